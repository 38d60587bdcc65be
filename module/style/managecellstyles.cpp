// The cell styles of a table's style, managed outside the style dialogs.

#include "module/style/managecellstyles.h"

#include "kd/db/tablestyle.h"
#include "module/core/cellstylewalk.h"
#include "module/core/editframe.h"
#include "module/core/tablecommon.h"
#include "module/core/tablestyles.h"
#include "module/core/transactions.h"
#include "module/style/managercellstyledlg.h"

namespace {

constexpr EditMark kManageCellStyles{.name = L"ManCellStyle", .titleText = 2132, .updatesDisplay = false};

}  // namespace

void manageCellStylesOf(KdDbObjectId id) {
    const auto* style = getObject<KdDbTableStyle>(startTransaction(), id, KdDb::kForWrite);
    // The transaction stays open then, for whoever ends the next one.
    if (style == nullptr) return;

    CVqTableManagerCellStyleDlg dialog;
    for (const CStdStr<wchar_t>& name : cellStyleDisplayNames(*style)) dialog.AddCellStyleName(name);
    dialog.SetTableStyleId(id);
    dialog.SetTableStyleName(nameOfTableStyle(*style));
    if (dialog.DoModal() == IDOK) {
        currentTransactions()->endTransaction();
    } else {
        currentTransactions()->abortTransaction();
    }
}

/// The table stays open for write meanwhile. The dialog can't open it for read beside that, so that a cell style which
/// only this table uses counts as not in use there.
int CVqTableCommon::ManageCellStyles(KdDbObjectId table) {
    return markedTableEdit(table, kManageCellStyles,
                           [](const KdDbTable& open) { manageCellStylesOf(open.tableStyle()); });
}
