// What a change of documents means for the toolbar.

#include "module/frame/docmanagerreactor.h"

#include "module/core/tablecommon.h"
#include "module/edit/tabletoolbar.h"

VqTableDocManagerReactor::VqTableDocManagerReactor() {
    kdDocManagerPtr()->addReactor(this);
}

VqTableDocManagerReactor::~VqTableDocManagerReactor() {
    kdDocManagerPtr()->removeReactor(this);
}

void VqTableDocManagerReactor::documentToBeActivated(KdApDocument* document) {
    if (document == nullptr) return;
    const KdadDocData* data = GetKdadAppCtxActiveDocData();
    if (data == nullptr) return;
    if (data->m_tableId.isNull()) {
        CVqTableCommon::ShowTableToolbar(KdDbObjectId::kNull, false);
    } else {
        CVqTableCommon::ShowTableToolbar(data->m_tableId, true);
    }
}

void VqTableDocManagerReactor::documentToBeDestroyed(KdApDocument*) {
    if (kdDocManagerPtr()->documentCount() != 1) return;
    if (const KdadDocData* data = GetKdadAppCtxActiveDocData()) {
        CVqTableCommon::ShowTableToolbar(data->m_tableId, false);
    }
}
