// A new cell style of a table's style, asked for outside the style dialogs. The style is written directly: there is
// no transaction to take it back, and the new cell style stands as soon as the style is closed.

#include "kd/db/tablestyle.h"
#include "module/core/cellstylewalk.h"
#include "module/core/editframe.h"
#include "module/core/tablecommon.h"
#include "module/style/createcellstyledlg.h"

namespace {

constexpr EditMark kCreateCellStyle{.name = L"CreateCellStyle", .titleText = 2128, .updatesDisplay = false};

/// Asks for the name and the start style, and makes the cell style unless the user cancels.
void createCellStyle(KdDbTableStyle& style) {
    const std::vector<CStdStr<wchar_t>> names = cellStyleDisplayNames(style);
    CVqTableCreateCellStyleDlg dialog;
    for (const CStdStr<wchar_t>& name : names) dialog.AddCellStyleNameToArray(name);
    dialog.SetStartWithName(names.front());
    if (dialog.DoModal() != 1) return;

    CStdStr<wchar_t> name;
    CStdStr<wchar_t> start;
    dialog.GetCellStyleName(name);
    dialog.GetFromCellStyleName(start);
    CVqTableCommon::DefaultCellStyleConvert(start);
    style.createCellStyle(name, start);
}

}  // namespace

int CVqTableCommon::CreateNewCellStyle(KdDbObjectId table) {
    return markedTableEdit(table, kCreateCellStyle, [](KdDbTable& open) {
        const OpenObject<KdDbTableStyle> style(open.tableStyle(), KdDb::kForWrite);
        if (style) createCellStyle(*style);
    });
}
