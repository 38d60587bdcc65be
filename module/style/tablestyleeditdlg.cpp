// The style edit dialog: its opening, the direction, and the selection in the box of cell styles.

#include "module/style/tablestyleeditdlg.h"

#include <QWidget>

#include "kd/db/database.h"
#include "kd/db/tablestyle.h"
#include "kd/ui/hostdialogs.h"
#include "module/controls/wiring.h"
#include "module/core/cellstylewalk.h"
#include "module/core/tablecommon.h"
#include "module/core/transactions.h"
#include "module/style/textnaming.h"

namespace {

constexpr const char* kTabs = "IDC_TABLESTYLEEDIT_STYLE_TABLE";
constexpr const char* kDirectionBox = "IDC_TABLESTYLEEDIT_DIRECTION_COMBOBOX";
constexpr const char* kCellStyleBox = "IDC_TABLESTYLEEDIT_CELLSTYLE_COMBOBOX";
constexpr const char* kTablePreview = "IDC_TABLESTYLEEDIT_TABLEUP_STATIC";
constexpr const char* kCellPreview = "IDC_TABLESTYLEEDIT_PREVIEWPIC_STATIC";
constexpr const char* kStartGroup = "IDC_TABLESTYLEEDIT_START_GROUP";
constexpr const char* kSelectLabel = "IDC_TABLESTYLEEDIT_SELECT_STATIC";

struct ToolButton {
    const char* control;
    const char* bitmap;
    unsigned toolTip;  ///< number of its text
};

/// In the order of the dialog's own list of buttons.
constexpr std::array kToolButtons = {
    ToolButton{"IDC_TABLESTYLEEDIT_SELECT_BUTTON", "IDB_TABLESTYLE_SELECT_BMP", 2122},
    ToolButton{"IDC_TABLESTYLEEDIT_REMOVE_BUTTON", "IDB_TABLESTYLE_REMOVE_BMP", 2123},
    ToolButton{"IDC_TABLESTYLEEDIT_CREATE_BUTTON", "IDB_TABLESTYLE_CREATE_BMP", 2125},
    ToolButton{"IDC_TABLESTYLEEDIT_MANAGE_BUTTON", "IDB_TABLESTYLE_MANAGE_BMP", 2129},
};
constexpr const char* kSelectDisabledBitmap = "IDB_TABLESTYLE_SELECT_DISABLE_BMP";
constexpr const char* kRemoveDisabledBitmap = "IDB_TABLESTYLE_REMOVE_DISABLE_BMP";
constexpr unsigned kToolBitmapMask = 0xff00ff;

struct PageTab {
    unsigned title;  ///< number of its text
    unsigned helpId;
};
constexpr std::array kPageTabs = {PageTab{2127, 108}, PageTab{2133, 109}, PageTab{2134, 110}};

constexpr unsigned kUpwardsText = 2032;
constexpr unsigned kDownwardsText = 2033;
constexpr unsigned kDataText = 2037;
constexpr unsigned kNewTitleText = 2044;
constexpr unsigned kChangedTitleText = 2045;
constexpr unsigned kCreateRowText = 2128;
constexpr unsigned kManageRowText = 2132;

/// By so much the pages are lower than the first page was.
constexpr int kTrimmedHeight = 5;

enum Flow : int { kDownwards = 0, kUpwards = 1 };

// The rows of the box of cell styles, counted from its number of rows.
constexpr int kLastCellStyleRow = 3;
constexpr int kCreateRow = 2;
constexpr int kManageRow = 1;

/// The name that the style's operations take, for one that the box shows.
CStdStr<wchar_t> internalName(CStdStr<wchar_t> name) {
    CVqTableCommon::DefaultCellStyleConvert(name);
    return name;
}

}  // namespace

int CVqTableStyleEditDlg::m_nPageIndex = -1;
int CVqTableStyleEditDlg::m_nComboBoxIndex = -1;

CVqTableStyleEditDlg::CVqTableStyleEditDlg(CWnd* parent, int modify) : KdUiBaseDialog(parent), m_bModify(modify) {
    buildTree(*this, "IDD_TABLESTYLEEDIT_DIALOG");
}

CVqTableStyleEditDlg::~CVqTableStyleEditDlg() = default;

int CVqTableStyleEditDlg::SetTableStyleId(const KdDbObjectId& id) {
    m_idStyle = id;
    return 1;
}

int CVqTableStyleEditDlg::AddCellStyleName(const CStdStr<wchar_t>& name) {
    m_cellStyleNames.Add(name);
    return 1;
}

void CVqTableStyleEditDlg::bindSingals() {
    using Dialog = CVqTableStyleEditDlg;
    static constexpr ControlWire<Dialog> kControls[] = {
        {kDirectionBox, ControlSignal::SelectionChange, &Dialog::OnSelDirectionComboBox},
        {kCellStyleBox, ControlSignal::SelectionChange, &Dialog::OnSelCellStyleComboBox},
        {kToolButtons[CreateButton].control, ControlSignal::Clicked, &Dialog::OnCreateCellStyleButton},
        {kToolButtons[ManageButton].control, ControlSignal::Clicked, &Dialog::OnManageCellStyleButton},
        {kToolButtons[SelectButton].control, ControlSignal::Clicked, &Dialog::OnSelectButton},
        {kToolButtons[RemoveButton].control, ControlSignal::Clicked, &Dialog::OnRemoveButton},
        {"IDOK", ControlSignal::Clicked, &Dialog::OnOk},
        {"IDHELP", ControlSignal::Clicked, &Dialog::OnHelp},
    };
    connectControls(*this, kControls);
}

void CVqTableStyleEditDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kTabs, m_tabs);
    DDX_Control(exchange, kDirectionBox, m_directionBox);
    DDX_Control(exchange, kCellStyleBox, m_cellStyleBox);
    for (std::size_t i = 0; i < kToolButtons.size(); ++i) {
        DDX_Control(exchange, kToolButtons[i].control, m_buttons[i]);
    }
    DDX_Control(exchange, kTablePreview, m_tablePreview);
    DDX_Control(exchange, kCellPreview, m_cellPreview);
}

bool CVqTableStyleEditDlg::PreTranslateMessage(MSG* message) {
    m_toolTips.RelayEvent(message);
    return KdUiBaseDialog::PreTranslateMessage(message);
}

void CVqTableStyleEditDlg::OnHelp() {
    kdedHelp(nullptr, L"Tablestyle", 0);
}

int CVqTableStyleEditDlg::OnHelpInfo() {
    OnHelp();
    return 1;
}

void CVqTableStyleEditDlg::OnOk() {
    m_nPageIndex = m_tabs.GetCurSel();
    OnOK();
}

// ---- the opening

int CVqTableStyleEditDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    setWindowIcon();
    LoadButtonBitmap();
    if (const int loaded = LoadCellStyleFromDatabase(); loaded == 0) return loaded;
    SetButtonToolTip();
    FillDirectionComboBox();
    FillCellStyleComboBox();
    InitCellStyleTabContrl();
    SetTableStartState(0);
    setTitle();
    initializeTablePreviewer();
    ShowTableStylePreview(0);
    const CStdStr<wchar_t> shown = internalName(selectedText(m_cellStyleBox));
    initializeCellPreviewer(shown);
    ShowCellStylePreview(shown);
    hideStartTable();
    return 1;
}

void CVqTableStyleEditDlg::LoadButtonBitmap() {
    for (std::size_t i = 0; i < kToolButtons.size(); ++i) {
        m_buttons[i].setBitmapId(scaledBitmap(kToolButtons[i].bitmap), kToolBitmapMask);
    }
}

int CVqTableStyleEditDlg::LoadCellStyleFromDatabase() {
    m_pTransaction = topTransaction();
    const KdDbTableStyle* found = style(KdDb::kForRead);
    if (found == nullptr) return 0;
    m_pDatabase = found->database();
    m_cellStyleNames.RemoveAll();
    for (const CStdStr<wchar_t>& name : cellStyleDisplayNames(*found)) AddCellStyleName(name);
    return 1;
}

void CVqTableStyleEditDlg::SetButtonToolTip() {
    m_toolTips.Create(this);
    for (std::size_t i = 0; i < kToolButtons.size(); ++i) {
        m_toolTips.AddTool(&m_buttons[i], loadText(kToolButtons[i].toolTip));
    }
}

void CVqTableStyleEditDlg::FillDirectionComboBox() {
    m_directionBox.AddString(loadText(kUpwardsText));
    m_directionBox.AddString(loadText(kDownwardsText));
    showRow(m_directionBox, GetCurSelTableDirectionIndex());
}

int CVqTableStyleEditDlg::GetCurSelTableDirectionIndex() const {
    const KdDbTableStyle* found = style(KdDb::kForRead);
    if (found == nullptr) return 0;
    return m_directionBox.FindString(-1, loadText(found->flowDirection() == kUpwards ? kUpwardsText : kDownwardsText));
}

void CVqTableStyleEditDlg::FillCellStyleComboBox() {
    m_cellStyleBox.ResetContent();
    AddCellStyle();
    AddCellStyleManager();
    const int lastCellStyle = m_cellStyleBox.GetCount() - kLastCellStyleRow;
    m_cellStyleBox.SetCompartIndex(lastCellStyle);
    // The row of the last cell style is never restored.
    if (m_nComboBoxIndex == -1 || m_nComboBoxIndex >= lastCellStyle) {
        m_nComboBoxIndex = m_cellStyleBox.FindStringExact(-1, loadText(kDataText));
    }
    showRow(m_cellStyleBox, m_nComboBoxIndex);
    m_cellStyleBox.UseNormalHeight();
}

void CVqTableStyleEditDlg::AddCellStyle() {
    for (const CStdStr<wchar_t>& name : m_cellStyleNames) m_cellStyleBox.AddString(name, true);
}

/// These two stay last.
void CVqTableStyleEditDlg::AddCellStyleManager() {
    m_cellStyleBox.AddString(loadText(kCreateRowText), false);
    m_cellStyleBox.AddString(loadText(kManageRowText), false);
}

void CVqTableStyleEditDlg::InitCellStyleTabContrl() {
    const CStdStr<wchar_t> shown = internalName(selectedText(m_cellStyleBox));
    for (CVqTableCellStylePage* page : pages()) {
        page->SetTableStyleId(m_idStyle);
        page->SetCellStyleName(shown);
    }
    sizePages();
    int index = 0;
    for (CVqTableCellStylePage* page : pages()) {
        const PageTab& tab = kPageTabs[static_cast<std::size_t>(index)];
        m_tabs.AddTab(index++, loadText(tab.title), tab.helpId, page);
    }
    movePages();
    m_nPageIndex = 0;
    m_tabs.SetCurSel(m_nPageIndex);
}

void CVqTableStyleEditDlg::sizePages() {
    QSize needed;
    for (const CVqTableCellStylePage* page : pages()) needed = needed.expandedTo(page->sizeHint());
    m_generalPage.resize(needed.width(), needed.height() + kTrimmedHeight);
    const QRect rect = m_generalPage.rect();
    for (CVqTableCellStylePage* page : pages()) {
        page->setFixedSize(rect.right() - rect.left() + 1, rect.bottom() - rect.top() - 4);
    }
}

void CVqTableStyleEditDlg::movePages() {
    if (m_tabs.widget() == nullptr) return;
    CRect client;
    m_tabs.GetClientRect(client);
    const QPoint place(static_cast<int>(client.left) + 3,
                       static_cast<int>(client.top) + static_cast<int>(kdadGetDPIScale() * 4.0 + 20.0));
    // The place is within the tab control; from then on its own layout keeps the pages below the tabs.
    for (CVqTableCellStylePage* page : pages()) page->move(page->parentWidget()->mapFrom(m_tabs.widget(), place));
}

void CVqTableStyleEditDlg::SetTableStartState(int state) {
    // The start table is there in form only: both buttons stay hidden, and nothing is ever taken from a table.
    const bool hasTable = state != 0;
    const char* select = hasTable ? kSelectDisabledBitmap : kToolButtons[SelectButton].bitmap;
    const char* remove = hasTable ? kToolButtons[RemoveButton].bitmap : kRemoveDisabledBitmap;
    m_buttons[SelectButton].setBitmapId(scaledBitmap(select), kToolBitmapMask);
    m_buttons[RemoveButton].setBitmapId(scaledBitmap(remove), kToolBitmapMask);
    m_buttons[SelectButton].EnableWindow(!hasTable);
    m_buttons[RemoveButton].EnableWindow(hasTable);
}

void CVqTableStyleEditDlg::setTitle() {
    SetWindowTextW(textNaming(m_bModify != 0 ? kChangedTitleText : kNewTitleText, m_strStyleName));
}

void CVqTableStyleEditDlg::hideStartTable() {
    m_buttons[SelectButton].ShowWindow(SW_HIDE);
    m_buttons[RemoveButton].ShowWindow(SW_HIDE);
    for (const char* name : {kStartGroup, kSelectLabel}) {
        if (CWnd* control = GetDlgItem(name)) control->ShowWindow(SW_HIDE);
    }
}

// ---- what the user does

void CVqTableStyleEditDlg::OnSelDirectionComboBox() {
    const bool upwards = selectedText(m_directionBox).CompareNoCase(loadText(kUpwardsText)) == 0;
    KdDbTableStyle* written = style(KdDb::kForWrite);
    if (written == nullptr) return;
    written->setFlowDirection(upwards ? kUpwards : kDownwards);
    ShowTableStylePreview(1);
}

void CVqTableStyleEditDlg::OnSelCellStyleComboBox() {
    const int count = m_cellStyleBox.GetCount();
    const int selected = m_cellStyleBox.GetCurSel();
    m_nComboBoxIndex = selected;
    if (selected == count - kLastCellStyleRow) {
        // The list opens again, and the pages keep the cell style before: the last cell style can't be reached by
        // its row.
        m_cellStyleBox.ShowDropDown(true);
    } else if (selected == count - kCreateRow) {
        selectFirstCellStyle();
        LaunchCreateCellStyleDlg();
    } else if (selected == count - kManageRow) {
        selectFirstCellStyle();
        LaunchManageCellStyleDlg();
    } else {
        showCellStyle(internalName(selectedText(m_cellStyleBox)));
    }
}

/// As a choice of its own, which the pages follow.
void CVqTableStyleEditDlg::selectFirstCellStyle() {
    m_nComboBoxIndex = 0;
    m_cellStyleBox.SetCurSel(0);
}

void CVqTableStyleEditDlg::showCellStyle(const CStdStr<wchar_t>& name) {
    for (CVqTableCellStylePage* page : pages()) page->SetCellStyleName(name);
    for (CVqTableCellStylePage* page : pages()) page->UpdateFormDatabaseData();
    for (CVqTableCellStylePage* page : pages()) page->Invalidate(true);
    ShowCellStylePreview(name);
}

void CVqTableStyleEditDlg::OnSelectButton() {
    SetTableStartState(1);
}

void CVqTableStyleEditDlg::OnRemoveButton() {
    SetTableStartState(0);
}

void CVqTableStyleEditDlg::OnCreateCellStyleButton() {
    // The box shows the new cell style already; only now is there something of it to show.
    if (LaunchCreateCellStyleDlg() == 1) showCellStyle(internalName(boxText()));
}

void CVqTableStyleEditDlg::OnManageCellStyleButton() {
    LaunchManageCellStyleDlg();
}
