// The dialogs that the style edit dialog opens: for a new cell style, and for the management of all of them.

#include "kd/db/tablestyle.h"
#include "module/core/tablecommon.h"
#include "module/core/transactions.h"
#include "module/style/createcellstyledlg.h"
#include "module/style/managercellstyledlg.h"
#include "module/style/tablestyleeditdlg.h"

namespace {

/// From this number of rows on, the box has cell styles to start from.
constexpr int kRowsWithStartStyles = 4;
/// Behind the rows that are handed on: the last cell style and the two entries that aren't cell styles.
constexpr int kRowsKeptBack = 3;

/// Hands the names of the box to the naming dialog. The last cell style is not among them: it is no start style, and
/// counts as no name that is taken.
void offerStartStyles(const CComboBox& box, CVqTableCreateCellStyleDlg& dialog) {
    const int count = box.GetCount();
    if (count < kRowsWithStartStyles) return;
    for (int row = 0; row < count - kRowsKeptBack; ++row) {
        CStdStr<wchar_t> name;
        box.GetLBText(row, name);
        dialog.AddCellStyleNameToArray(name);
    }
}

}  // namespace

CStdStr<wchar_t> CVqTableStyleEditDlg::boxText() const {
    CStdStr<wchar_t> text;
    m_cellStyleBox.GetWindowTextW(text);
    return text.Trim();
}

KdDbTableStyle* CVqTableStyleEditDlg::style(KdDb::OpenMode mode) const {
    return getObject<KdDbTableStyle>(m_pTransaction, m_idStyle, mode);
}

int CVqTableStyleEditDlg::LaunchCreateCellStyleDlg() {
    CVqTableCreateCellStyleDlg dialog(this);
    const CStdStr<wchar_t> start = boxText();
    offerStartStyles(m_cellStyleBox, dialog);
    dialog.SetStartWithName(start);
    if (dialog.DoModal() != 1) return 0;

    CStdStr<wchar_t> name;
    CStdStr<wchar_t> from;
    dialog.GetCellStyleName(name);
    AddCellStyleName(name);
    // The box shows the new name before there is a cell style of it. Refilled, it has no choice yet, so that the new
    // name is one in whichever row it stands, and the pages follow it.
    FillCellStyleComboBox();
    showRow(m_cellStyleBox, -1);
    m_cellStyleBox.SetCurSel(m_cellStyleBox.FindStringExact(-1, name));
    dialog.GetFromCellStyleName(from);
    CreateCellStyle(name, from);
    return 1;
}

void CVqTableStyleEditDlg::CreateCellStyle(const CStdStr<wchar_t>& name, const CStdStr<wchar_t>& from) {
    KdDbTableStyle* written = style(KdDb::kForWrite);
    if (written == nullptr) return;
    CStdStr<wchar_t> source = from;
    CVqTableCommon::DefaultCellStyleConvert(source);
    written->createCellStyle(name, source);
}

int CVqTableStyleEditDlg::LaunchManageCellStyleDlg() {
    CVqTableManagerCellStyleDlg dialog(this);
    for (const CStdStr<wchar_t>& name : m_cellStyleNames) dialog.AddCellStyleName(name);
    KdDbTransaction* inner = startTransaction();
    if (inner == nullptr) return 0;
    // Without the style the inner transaction stays open, for the caller of this dialog to end with the outer one.
    if (getObject<KdDbTableStyle>(inner, m_idStyle, KdDb::kForRead) == nullptr) return 0;

    dialog.SetTableStyleId(m_idStyle);
    dialog.SetTableStyleName(m_strStyleName);
    if (dialog.DoModal() != 1) {
        currentTransactions()->abortTransaction();
        return 0;
    }
    // Into the outer transaction, whose abort still takes it back.
    currentTransactions()->endTransaction();
    LoadCellStyleFromDatabase();
    FillCellStyleComboBox();
    return 1;
}
