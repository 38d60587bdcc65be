// What is particular to the naming of cell styles.

#include "module/style/createcellstyledlg.h"

namespace {

constexpr StyleNaming kNaming = {
    .dialog = "IDD_CREATECELLSTYLE_DIALOG",
    .nameEdit = "IDC_CREATECELLSTYLE_NEWNAME_EDIT",
    .startBox = "IDC_CREATECELLSTYLE_STARTWITH_COMBOBOX",
    .emptyText = 2190,
    .existsText = 2136,
    .invalidText = 2135,
    .tooLongText = 2189,
    .longestName = 255,
    .helpTopic = nullptr,
    .startsFromRow = false,
};

}  // namespace

CVqTableCreateCellStyleDlg::CVqTableCreateCellStyleDlg(CWnd* parent) : CVqStyleNamingDlg(kNaming, parent) {}

void CVqTableCreateCellStyleDlg::OnOK() {
    SetFromCellStyleName(startBoxText());
    CVqStyleNamingDlg::OnOK();
}
