// What is particular to the naming of table styles.

#include "module/style/createtablestyledlg.h"

namespace {

constexpr StyleNaming kNaming = {
    .dialog = "IDD_CREATETABLESTYLE_DIALOG",
    .nameEdit = "IDC_CREATETABLESTYLE_NEWNAME_EDIT",
    .startBox = "IDC_CREATETABLESTYLE_STARTWITH_COMBOBOX",
    .emptyText = 2017,
    .existsText = 2018,
    .invalidText = 2017,
    .tooLongText = 0,
    .longestName = 0,
    .helpTopic = L"Tablestyle",
    .startsFromRow = true,
};

}  // namespace

CVqTableCreateTableStyleDlg::CVqTableCreateTableStyleDlg(CWnd* parent) : CVqStyleNamingDlg(kNaming, parent) {}
