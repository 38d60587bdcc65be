// The list of cell styles: how it is filled, what its rows allow, and what mouse and keys do in it.

#include "module/style/managercellstyledlg.h"

#include <algorithm>

#include "kd/db/tablestyle.h"
#include "module/controls/stylelist.h"
#include "module/controls/wiring.h"
#include "module/core/cellstylewalk.h"
#include "module/core/resources.h"
#include "module/core/ssicmp.h"
#include "module/core/tablecommon.h"
#include "module/core/transactions.h"
#include "module/preview/tablecellfromtablestyle.h"

namespace {

constexpr const char* kList = "IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST";
constexpr const char* kPreview = "IDC_MANAGERCELLSTYLE_PREVIEWPIC_STATIC";
constexpr const char* kRenameButton = "IDC_MANAGERCELLSTYLE_RENAME_BUTTON";
constexpr const char* kDeleteButton = "IDC_MANAGERCELLSTYLE_DELETE_BUTTON";
constexpr int kColumnWidth = 176;

constexpr unsigned kDataText = 2037;
constexpr unsigned kTitleText = 2038;
constexpr unsigned kHeaderText = 2039;

}  // namespace

CVqTableManagerCellStyleDlg::CVqTableManagerCellStyleDlg(CWnd* parent) : KdUiBaseDialog(parent) {
    buildTree(*this, "IDD_MANAGERCELLSTYLE_DIALOG");
}

CVqTableManagerCellStyleDlg::~CVqTableManagerCellStyleDlg() = default;

void CVqTableManagerCellStyleDlg::bindSingals() {
    using Dialog = CVqTableManagerCellStyleDlg;
    static constexpr ControlWire<Dialog> kControls[] = {
        {"IDC_MANAGERCELLSTYLE_NEW_BUTTON", ControlSignal::Clicked, &Dialog::OnNewButton},
        {kRenameButton, ControlSignal::Clicked, &Dialog::OnRenameButton},
        {kDeleteButton, ControlSignal::Clicked, &Dialog::OnDeleteButton},
        {"IDOK", ControlSignal::Clicked, &Dialog::OnOk},
        {"IDHELP", ControlSignal::Clicked, &Dialog::OnHelp},
    };
    static constexpr NotificationWire<Dialog> kNotifications[] = {
        {kList, NM_RCLICK, &Dialog::OnNMRclickCellstyleList},
        {kList, LVN_ITEMCHANGED, &Dialog::OnItemchangList},
    };
    connectControls(*this, kControls);
    connectNotifications(*this, kNotifications);
}

/// What no signal of the list carries comes by this way.
void CVqTableManagerCellStyleDlg::OnListNotify(const char* control, NMHDR* header, LRESULT* result) {
    using Dialog = CVqTableManagerCellStyleDlg;
    static constexpr ListNotificationWire<Dialog> kNotifications[] = {
        {kList, NM_CLICK, &Dialog::OnNMClickCellstyleList},
        {kList, LVN_KEYDOWN, &Dialog::OnLvnKeydownCellstyleList},
        {kList, LVN_BEGINLABELEDIT, &Dialog::OnLvnBeginlabeleditCellstyleList},
        {kList, LVN_ENDLABELEDIT, &Dialog::OnLvnEndlabeleditCellstyleList},
    };
    dispatchListNotification(*this, kNotifications, control, header, result);
}

void CVqTableManagerCellStyleDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kList, m_ctrlList);
    DDX_Control(exchange, kPreview, m_ctrlPreview);
}

void CVqTableManagerCellStyleDlg::AddCellStyleName(const CStdStr<wchar_t>& name) {
    m_names.Add(name);
}

void CVqTableManagerCellStyleDlg::RemoveAll() {
    m_names.RemoveAll();
}

void CVqTableManagerCellStyleDlg::SetTableStyleId(const KdDbObjectId& style) {
    m_idStyle = style;
}

void CVqTableManagerCellStyleDlg::SetTableStyleName(const CStdStr<wchar_t>& name) {
    m_strTableStyle = name;
}

bool CVqTableManagerCellStyleDlg::PreTranslateMessage(MSG* message) {
    return KdUiBaseDialog::PreTranslateMessage(message);
}

int CVqTableManagerCellStyleDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    setWindowIcon();
    // Without a transaction or the style the list shows the names that the caller gave.
    LoadCellStyleFromDatabase();
    FillCellStyleItem();
    GetWindowRect(m_windowRect);
    initializeCellPreviewer(rowText(0));
    // Once more, with line weights as in every later picture.
    ShowPreviewPicture(rowText(0));
    return 1;
}

int CVqTableManagerCellStyleDlg::LoadCellStyleFromDatabase() {
    m_pTransaction = topTransaction();
    const KdDbTableStyle* open = style(KdDb::kForRead);
    if (open == nullptr) return 0;
    RemoveAll();
    for (const CStdStr<wchar_t>& name : cellStyleDisplayNames(*open)) AddCellStyleName(name);
    return 1;
}

void CVqTableManagerCellStyleDlg::FillCellStyleItem() {
    LoadCellStyle();
    SetButtonState(rowText(0));
}

void CVqTableManagerCellStyleDlg::LoadCellStyle() {
    m_ctrlList.InsertColumn(0, L"", 0, kColumnWidth);
    for (int row = 0; row < m_names.GetSize(); ++row) m_ctrlList.InsertItem(row, m_names[row]);
    selectRow(m_ctrlList, 0);
}

int CVqTableManagerCellStyleDlg::SetButtonState(const CStdStr<wchar_t>& name) {
    CWnd* rename = GetDlgItem(kRenameButton);
    CWnd* erase = GetDlgItem(kDeleteButton);
    if (rename == nullptr && erase == nullptr) return 0;
    // A style in use can have another name: its cells go along.
    const bool isUsers = !name.empty() && !IsDefaultCellStyle(name);
    if (rename != nullptr) rename->EnableWindow(isUsers);
    if (erase != nullptr) erase->EnableWindow(isUsers && !IsUseCellStyle(name));
    return 1;
}

bool CVqTableManagerCellStyleDlg::IsDefaultCellStyle(const CStdStr<wchar_t>& name) {
    for (const unsigned number : {kHeaderText, kTitleText, kDataText}) {
        if (ssicmp(name, loadText(number)) == 0) return true;
    }
    return false;
}

bool CVqTableManagerCellStyleDlg::IsExistCellStyle(const CStdStr<wchar_t>& name) const {
    return std::any_of(m_names.begin(), m_names.end(),
                       [&](const CStdStr<wchar_t>& listed) { return ssicmp(listed, name) == 0; });
}

bool CVqTableManagerCellStyleDlg::IsUseCellStyle(const CStdStr<wchar_t>& name) const {
    if (IsDefaultCellStyle(name)) return true;
    const auto* open = getObject<KdDbTableStyle>(topTransaction(), m_idStyle, KdDb::kForRead);
    if (open == nullptr) return false;
    KdArray<KdDbObjectId> tables(0, 8);
    CVqTableCommon::GetTablesFormDatabase(open->database(), tables);
    return CVqTableCommon::FindCellStyleFromTable(tables, m_strTableStyle, name) != 0;
}

KdDbTableStyle* CVqTableManagerCellStyleDlg::style(KdDb::OpenMode mode) const {
    return getObject<KdDbTableStyle>(m_pTransaction, m_idStyle, mode);
}

CStdStr<wchar_t> CVqTableManagerCellStyleDlg::rowText(int row) const {
    return m_ctrlList.GetItemText(row, 0);
}

void CVqTableManagerCellStyleDlg::OnOk() {
    OnOK();
}

/// There is no page about this dialog.
void CVqTableManagerCellStyleDlg::OnHelp() {}

void CVqTableManagerCellStyleDlg::OnNewButton() {
    CreateNewCellStyle();
}

void CVqTableManagerCellStyleDlg::OnRenameButton() {
    RenameCellStyle();
}

void CVqTableManagerCellStyleDlg::OnDeleteButton() {
    DeleteCellStyle();
}

void CVqTableManagerCellStyleDlg::OnItemchangList(NMHDR* header, LRESULT* result) {
    *result = 0;
    const auto& notice = noticeOf<NMLISTVIEW>(header);
    const bool isNewlySelected = (notice.uNewState & ~notice.uOldState & LVIS_SELECTED) != 0;
    if (!isNewlySelected) return;
    m_ctrlList.SetSelectionMark(notice.iItem);
    SetButtonState(rowText(notice.iItem));
    ShowPreviewPicture(rowText(notice.iItem));
}

/// A click on empty space leaves the row selected, and nothing to be done with it until a row is selected again.
void CVqTableManagerCellStyleDlg::OnNMClickCellstyleList(NMHDR* header, LRESULT* result) {
    *result = 0;
    if (noticeOf<NMLISTVIEW>(header).iItem < 0) SetButtonState({});
}

void CVqTableManagerCellStyleDlg::OnNMRclickCellstyleList(NMHDR* header, LRESULT* result) {
    *result = 0;
    const int row = noticeOf<NMLISTVIEW>(header).iItem;
    if (row < 0) return;
    m_ctrlList.SetSelectionMark(row);
    SetButtonState(rowText(row));
    makeCurrentRow(m_ctrlList, row);
    ShowRButtonMenu(rowText(row));
}

void CVqTableManagerCellStyleDlg::ShowRButtonMenu(const CStdStr<wchar_t>& name) {
    showStyleMenu(*this, "IDR_MANAGECELL_MENU",
                  {
                      {"IDR_MANAGECELL_NEW", true, [this] { CreateNewCellStyle(); }},
                      {"IDR_MANAGECELL_RENAME", !IsDefaultCellStyle(name), [this] { RenameCellStyle(); }},
                      {"IDR_MANAGECELL_DELETE", !IsUseCellStyle(name), [this] { DeleteCellStyle(); }},
                  });
}

void CVqTableManagerCellStyleDlg::OnLvnKeydownCellstyleList(NMHDR* header, LRESULT* result) {
    *result = 0;
    const int row = selectedRow(m_ctrlList);
    if (row < 0) return;
    switch (noticeOf<NMLVKEYDOWN>(header).wVKey) {
        case VK_DELETE:
            if (!IsUseCellStyle(rowText(row))) DeleteCellStyle();
            break;
        case VK_F2:
            if (!IsDefaultCellStyle(rowText(row))) m_ctrlList.EditLabel(row);
            break;
        default:
            break;
    }
}
