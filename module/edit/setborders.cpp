// The borders of the selected cells.

#include "module/core/editframe.h"
#include "module/core/tablecommon.h"
#include "module/edit/cellborderpropdlg.h"

int CVqTableCommon::SetBorders(KdDbObjectId table) {
    if (table.isNull() || !table.isValid()) return false;
    constexpr EditMark mark{.name = L"CellBorder", .titleText = 2108, .updatesDisplay = false};
    return markedEdit(mark, [table] {
        CVqTableCellBorderPropDlg dialog;
        dialog.SetTableObjectId(table);
        dialog.DoModal();
    });
}
