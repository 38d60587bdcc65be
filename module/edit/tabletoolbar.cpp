// Queries about the toolbar, answered as without a window.

#include "module/edit/tabletoolbar.h"

#include "module/core/tablecommon.h"
#include "tvx/exports.h"

CVqTableditMiniFrameWnd* gpTableditMiniFrameWnd = nullptr;

CVqTableditMiniFrameWnd* GetTableditMiniFrameWnd() {
    return gpTableditMiniFrameWnd;
}

KdDbObjectId toolbarTable() {
    return KdDbObjectId::kNull;
}

bool CVqTableCommon::ShowTableToolbar(KdDbObjectId, bool) {
    return true;
}

bool CVqTableCommon::GetSelectRange(KdCellRange&) {
    return false;
}

bool showTableToolBar(KdDbObjectId table, bool show) {
    return CVqTableCommon::ShowTableToolbar(table, show);
}
