// How the insert dialog is wired, opened and closed.

#include "module/create/tableinsertdlg.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>

#include "kd/ad/mainapp.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/ui/hostdialogs.h"
#include "module/controls/wiring.h"
#include "module/core/resources.h"
#include "module/create/tableinsertdlgcontrols.h"
#include "module/create/tablejig.h"

using namespace insertdlg;

namespace {

constexpr const char* kStyleManager = "IDC_TABLEINSERT_TABLESTYLE_BUTTON";
constexpr const char* kDataLinkManager = "IDC_TABLEINSERT_DATALINKMAN_BUTTON";
constexpr const char* kFromExtraction = "IDC_TABLEINSERT_DATAEXTRACTION_BUTTON";
constexpr const char* kPreview = "IDC_TABLEINSERT_PREVIEW_STATIC";
constexpr const char* kLineBetween = "IDC_TABLEINSERT_LINEBETWEEN_STATIC";

/// Pairs of radio buttons of which one is on.
struct RadioPair {
    const char* first;
    const char* second;
};
constexpr RadioPair kRadioPairs[] = {
    {kFigures[0].radio, kFigures[1].radio},
    {kFigures[2].radio, kFigures[3].radio},
    {kFromEmpty, kFromFile},
};

constexpr unsigned kManyCellsText = 2070;
constexpr unsigned kStyleManagerTip = 2110;
constexpr unsigned kDataLinkManagerTip = 6061;
constexpr unsigned kFromFileText = 6100;

/// A table of more cells is made only after a question.
constexpr long long kMostCellsUnasked = 1999;

constexpr int kLineHeight = 2;

// What stands for an automatic figure until the window tells it.
constexpr int kAutomaticColumns = 3;
constexpr int kAutomaticRows = 1;
constexpr double kAutomaticColumnWidth = 1.0;
constexpr int kAutomaticRowHeight = 1;

}  // namespace

CVqTableInsertDlg::CVqTableInsertDlg(CWnd* parent) : KdUiBaseDialog(parent) {
    buildTree(*this, "IDD_TABLEINSERT_DIALOG");
}

CVqTableInsertDlg::~CVqTableInsertDlg() {
    // Given up before what it shows.
    m_ctrlPreview.uninitPreviewer();
}

int CVqTableInsertDlg::SetDatabase(KdDbDatabase* database) {
    if (database == nullptr) return 0;
    m_pDatabase = database;
    return 1;
}

int CVqTableInsertDlg::SetFromTablStyleFlag(int flag) {
    m_nFromTableStyle = flag;
    return 1;
}

CVqTableJig* CVqTableInsertDlg::GetTableJig() {
    if (m_pJig == nullptr) m_pJig = new CVqTableJig(m_pDatabase);
    return m_pJig;
}

void CVqTableInsertDlg::bindSingals() {
    using Dialog = CVqTableInsertDlg;
    static constexpr ControlWire<Dialog> kControls[] = {
        {kStyleManager, ControlSignal::Clicked, &Dialog::OnTableStyleManButton},
        {kDataLinkManager, ControlSignal::Clicked, &Dialog::OnDataLinkManButton},
        {kFromEmpty, ControlSignal::Clicked, &Dialog::OnInsertButton},
        {kFromFile, ControlSignal::Clicked, &Dialog::OnDataLinkButton},
        {kFromExtraction, ControlSignal::Clicked, &Dialog::OnDataExtractionButton},
        {kAtPoint, ControlSignal::Clicked, &Dialog::OnInsetPointButton},
        {kInWindow, ControlSignal::Clicked, &Dialog::OnWindowButton},
        {kFigures[Columns].radio, ControlSignal::Clicked, &Dialog::OnColumnButton},
        {kFigures[ColumnWidth].radio, ControlSignal::Clicked, &Dialog::OnColumnWidthButton},
        {kFigures[DataRows].radio, ControlSignal::Clicked, &Dialog::OnDataRowButton},
        {kFigures[RowHeight].radio, ControlSignal::Clicked, &Dialog::OnRowHeightButton},
        {"IDOK", ControlSignal::Clicked, &Dialog::OnOk},
        {"IDHELP", ControlSignal::Clicked, &Dialog::OnHelp},
        {kFigures[Columns].edit, ControlSignal::KillFocus, &Dialog::OnKillfocusColumnEdit},
        {kFigures[ColumnWidth].edit, ControlSignal::KillFocus, &Dialog::OnKillfocusColumnWidthEdit},
        {kFigures[DataRows].edit, ControlSignal::KillFocus, &Dialog::OnKillfocusDataRowEdit},
        {kFigures[RowHeight].edit, ControlSignal::KillFocus, &Dialog::OnKillfocusRowHeightEdit},
        {kOptionChecks[0], ControlSignal::Clicked, &Dialog::OnLabelCheck},
        {kOptionChecks[1], ControlSignal::Clicked, &Dialog::OnDataLinkCheck},
        {kOptionChecks[2], ControlSignal::Clicked, &Dialog::OnDataCheck},
        {kOptionChecks[3], ControlSignal::Clicked, &Dialog::OnFieldsCheck},
        {kOptionChecks[4], ControlSignal::Clicked, &Dialog::OnBlockCheck},
        {kOptionChecks[5], ControlSignal::Clicked, &Dialog::OnFormulasCheck},
        {kOptionChecks[6], ControlSignal::Clicked, &Dialog::OnRetainCellCheck},
        {kStyleName, ControlSignal::SelectionChange, &Dialog::OnSelStyleNameComboBox},
        {kDataLink, ControlSignal::SelectionChange, &Dialog::OnSelDataLinkComboBox},
        {kFirstRow, ControlSignal::SelectionChange, &Dialog::OnSelFirstRowComboBox},
        {kSecondRow, ControlSignal::SelectionChange, &Dialog::OnSelSecondRowComboBox},
        {kOtherRow, ControlSignal::SelectionChange, &Dialog::OnSelOtherRowComboBox},
        {kStyleName, ControlSignal::BoxDropDown, &Dialog::OnDropDownTablestyleCombo},
    };
    static constexpr NotificationWire<Dialog> kNotifications[] = {
        {kFigures[ColumnWidth].edit, UDN_DELTAPOS, &Dialog::OnDelColumnWidthSpin},
    };
    connectControls(*this, kControls);
    connectNotifications(*this, kNotifications);
}

void CVqTableInsertDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kStyleName, m_ctrlStyleName);
    DDX_Control(exchange, kDataLink, m_ctrlDataLink);
    DDX_Control(exchange, kPreview, m_ctrlPreview);
    DDX_Control(exchange, kFirstRow, m_ctrlFirstRow);
    DDX_Control(exchange, kSecondRow, m_ctrlSecondRow);
    DDX_Control(exchange, kOtherRow, m_ctrlOtherRow);
    DDX_Control(exchange, kStyleManager, m_managers[StyleManager]);
    DDX_Control(exchange, kDataLinkManager, m_managers[DataLinkManager]);
    DDX_Control(exchange, kFromEmpty, m_fromEmpty);
    DDX_Control(exchange, kFromFile, m_fromFile);
    DDX_Control(exchange, kAtPoint, m_atPoint);
    DDX_Control(exchange, kInWindow, m_inWindow);
    for (std::size_t i = 0; i < kOptions; ++i) DDX_Control(exchange, kOptionChecks[i], m_options[i]);
    for (const Figure figure : {Columns, ColumnWidth, DataRows, RowHeight}) {
        DDX_Control(exchange, kFigures[figure].radio, m_fixed[figure]);
        DDX_Control(exchange, kFigures[figure].edit, m_edits[figure]);
        exchangeFigure(exchange, figure);
    }
}

// ---- the opening

int CVqTableInsertDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    setWindowIcon();
    InitRadioButton();
    LoadButtonBitmap();
    if (LoadDatabaseData() == 0) return 0;
    ReadRegedit();
    FillTableStyleComboBox();
    FillDataLinkComboBox();
    FillCellComboBox();
    InitSpinButtonCtrl();
    InitGroupRadioButton();
    MoveRowColumnEdit();
    MoveSpinButtonCtrl();
    TableToStartFrom(m_nFromTableStyle);
    SetTableHyperLink();
    SetButtonToolTip();
    showPictures();
    InitDatalinkCtrls();
    InitDlgSize();
    initializeTablePreviewer();
    ShowPreviewPicture(1, 0);
    return 1;
}

void CVqTableInsertDlg::InitRadioButton() {
    for (const RadioPair& pair : kRadioPairs) {
        auto* group = new QButtonGroup(this);
        group->setExclusive(true);
        int id = 0;
        for (const char* name : {pair.first, pair.second}) {
            if (auto* button = qobject_cast<QRadioButton*>(getWidgetsFromOrignal(name))) group->addButton(button, id);
            ++id;
        }
    }
}

void CVqTableInsertDlg::LoadButtonBitmap() {
    enableManager(StyleManager, true);
    enableManager(DataLinkManager, true);
}

int CVqTableInsertDlg::LoadDatabaseData() {
    KdDbDictionary* styles = nullptr;
    if (m_pDatabase == nullptr || m_pDatabase->getTableStyleDictionary(styles, KdDb::kForRead) != Kdad::eOk) return 0;
    m_idDictionary = styles->objectId();
    styles->close();
    return 1;
}

void CVqTableInsertDlg::InitGroupRadioButton() {
    m_fromEmpty.SetCheck(1);
    EnableTableInsetWindow(1);
    (m_bPointMode ? m_atPoint : m_inWindow).SetCheck(1);
    UpdateInsetMode(m_bPointMode ? 1 : 0);
}

/// A figure's radio button and its label have one text and one place, of which the larger one keeps its room.
void CVqTableInsertDlg::MoveRowColumnEdit() {
    for (const FigureControls& controls : kFigures) {
        const CStdStr<wchar_t> text = loadText(controls.text);
        for (const char* name : {controls.radio, controls.label}) {
            CWnd* control = GetDlgItem(name);
            if (control == nullptr) continue;
            control->SetWindowTextW(text);
            QSizePolicy policy = control->widget()->sizePolicy();
            policy.setRetainSizeWhenHidden(true);
            control->widget()->setSizePolicy(policy);
        }
    }
}

void CVqTableInsertDlg::TableToStartFrom(int fromTableStyle) {
    for (const char* option : kOptionChecks) showControl(option, fromTableStyle != 0);
    for (const char* around : kOptionFrame) showControl(around, fromTableStyle != 0);
}

void CVqTableInsertDlg::SetButtonToolTip() {
    m_toolTips.Create(this);
    m_toolTips.AddTool(&m_managers[StyleManager], loadText(kStyleManagerTip));
    m_toolTips.AddTool(&m_managers[DataLinkManager], loadText(kDataLinkManagerTip));
}

void CVqTableInsertDlg::showPictures() {
    if (QWidget* line = getWidgetsFromOrignal(kLineBetween)) line->setFixedHeight(kLineHeight);
    for (const char* name : {kColumnPicture, kRowPicture}) {
        auto* picture = qobject_cast<QLabel*>(getWidgetsFromOrignal(name));
        if (picture == nullptr) continue;
        picture->setPixmap(QPixmap(QStringLiteral(":/TvxTableRes/TvxTableRes/") + scaledBitmap(name)));
    }
}

void CVqTableInsertDlg::InitDatalinkCtrls() {
    if (CWnd* button = GetDlgItem(kFromFile)) {
        QString text = QString::fromStdWString(loadText(kFromFileText));
        text.replace(QLatin1String("Excel"), QLatin1String("csv(UTF-8)"), Qt::CaseSensitive);
        button->SetWindowTextW(text.toStdWString().c_str());
    }
    showControl(kFromExtraction, false);
    m_ctrlDataLink.EnableWindow(false);
}

void CVqTableInsertDlg::InitDlgSize() {
    resize(sizeHint());
    GetWindowRect(m_rcWindow);
    m_nClientWidth = width();
    m_nClientHeight = height();
    m_bSizeKnown = true;
    OnSizing();
}

/// The dialog never gets smaller than it opened.
void CVqTableInsertDlg::OnSizing() {
    if (m_bSizeKnown) setMinimumSize(m_rcWindow.toQRect().size());
}

// ---- the closing

void CVqTableInsertDlg::OnOk() {
    // A figure counts by its number also while it is automatic, and with a table from a file too.
    const long long cells = static_cast<long long>(integerOf(Columns)) * integerOf(DataRows);
    if (cells > kMostCellsUnasked &&
        MessageBoxW(loadText(kManyCellsText), GetOemProductName(), MB_OKCANCEL | MB_ICONINFORMATION) != IDOK) {
        return;
    }
    if (CreateTable() == 1) WriteRegedit();
    OnOK();
}

int CVqTableInsertDlg::CreateTable() {
    // In point mode the window type stays as it was.
    if (!m_bPointMode) SetSpecifiWindowMode();
    if (m_pJig == nullptr) return 0;
    m_pJig->setSpecifyWindowType(m_nWindowType);
    m_pJig->setTableColumns(isAutomatic(Columns) ? kAutomaticColumns : integerOf(Columns));
    m_pJig->setTableDataRows(isAutomatic(DataRows) ? kAutomaticRows : integerOf(DataRows));
    m_pJig->setTableColumnWidth(isAutomatic(ColumnWidth) ? kAutomaticColumnWidth : columnWidth());
    m_pJig->setTableRowHeight(isAutomatic(RowHeight) ? kAutomaticRowHeight : integerOf(RowHeight));
    m_pJig->setTableStyleId(m_idStyle);
    m_pJig->setFirstCellText(GetFirstCellText());
    m_pJig->setSecondCellText(GetSecondCellText());
    m_pJig->setOtherCellText(GetOtherCellText());
    m_pJig->setPointMode(m_bPointMode);
    return 1;
}

void CVqTableInsertDlg::OnCancel() {
    if (KdadMainAppService* service = vqcadMainAppService()) service->dialogCancelled();
    KdUiBaseDialog::OnCancel();
}

int CVqTableInsertDlg::DoModal() {
    const int result = KdUiBaseDialog::DoModal();
    m_ctrlPreview.uninitPreviewer();
    return result;
}

bool CVqTableInsertDlg::PreTranslateMessage(MSG* message) {
    return KdUiBaseDialog::PreTranslateMessage(message);
}

void CVqTableInsertDlg::OnDestroy() {
    KdUiBaseDialog::OnDestroy();
}

void CVqTableInsertDlg::OnHelp() {
    kdedHelp(nullptr, L"TABLE_DIA", 0);
}

int CVqTableInsertDlg::OnHelpInfo() {
    OnHelp();
    return 1;
}

// ---- the options, which nothing reads

void CVqTableInsertDlg::noteCheck(std::size_t option) {
    m_nCheck = m_options[option].GetCheck();
}

void CVqTableInsertDlg::OnLabelCheck() {
    noteCheck(0);
}
void CVqTableInsertDlg::OnDataLinkCheck() {
    noteCheck(1);
}
void CVqTableInsertDlg::OnDataCheck() {
    noteCheck(2);
}
void CVqTableInsertDlg::OnFieldsCheck() {
    noteCheck(3);
}
void CVqTableInsertDlg::OnBlockCheck() {
    noteCheck(4);
}
void CVqTableInsertDlg::OnFormulasCheck() {
    noteCheck(5);
}
void CVqTableInsertDlg::OnRetainCellCheck() {
    noteCheck(6);
}

void CVqTableInsertDlg::enableControl(const char* control, bool enable) const {
    if (CWnd* wnd = GetDlgItem(control)) wnd->EnableWindow(enable);
}

void CVqTableInsertDlg::showControl(const char* control, bool show) const {
    if (CWnd* wnd = GetDlgItem(control)) wnd->ShowWindow(show ? SW_SHOW : SW_HIDE);
}
