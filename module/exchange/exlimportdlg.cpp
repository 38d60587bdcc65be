// Choosing, reading and showing a file of comma-separated text.

#include "module/exchange/exlimportdlg.h"

#include <QLayout>
#include <QProgressBar>
#include <QResizeEvent>
#include <cmath>

#include "kd/ui/hostdialogs.h"
#include "mfc/controls.h"
#include "mfc/filedialog.h"
#include "module/controls/comboboxes.h"
#include "module/controls/wiring.h"
#include "module/core/resources.h"
#include "module/exchange/readingprogress.h"
#include "tvx/exports.h"

namespace {

constexpr const char* kPathEdit = "IDC_EDIT_EXLPATH";
constexpr const char* kSheetBox = "IDC_COMB_SHEET";
constexpr const char* kPreviewCheck = "IDC_CHECK_PREVIEW";
constexpr const char* kPreviewGroup = "IDC_GROUP_PREV";
constexpr const char* kPreview = "IDC_STATIC_PREV";
constexpr const char* kNoPreview = "IDC_STATIC_NOPREV";
constexpr const char* kReadingBar = "IDC_PROGRESS_READING";

constexpr unsigned kWrongKindText = 6053;

constexpr int kTextFile = 1;
constexpr int kOtherFile = -1;

/// By how much the window is lower while it shows no table, in pixels of a plain screen.
constexpr int kHeightOfNoTable = 130;

}  // namespace

CExlImportDlg::CExlImportDlg(CWnd* parent) : KdUiBaseDialog(parent) {
    buildTree(*this, "IDD_EXLIMPORT");
}

CExlImportDlg::~CExlImportDlg() {
    dropTable();
}

void CExlImportDlg::bindSingals() {
    using Dialog = CExlImportDlg;
    static constexpr ControlWire<Dialog> kControls[] = {
        {"IDC_BTN_SELPATH", ControlSignal::Clicked, &Dialog::OnBnClickedBtnSelpath},
        {kPreviewCheck, ControlSignal::Clicked, &Dialog::OnBnClickedCheckPreview},
        {"IDHELP", ControlSignal::Clicked, &Dialog::OnHelp},
        {kSheetBox, ControlSignal::SelectionChange, &Dialog::OnCbnSelchangeCombSheet},
    };
    connectControls(*this, kControls);
}

void CExlImportDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kSheetBox, m_ctrlSheet);
    DDX_Control(exchange, kPreview, m_ctrlPreview);
    DDX_Text(exchange, kPathEdit, m_strPath);
    DDX_Check(exchange, kPreviewCheck, m_nShowPreview);
}

int CExlImportDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    setWindowIcon();
    // The tree's smallest size is the one to begin with.
    resize(minimumSize().expandedTo(sizeHint()));
    GetWindowRect(m_rcInitial);
    m_rcWindow = m_rcInitial;
    notePlaceOfPreview();
    InitCtrls();
    SetWndOriginal();
    Invalidate();
    return 1;
}

void CExlImportDlg::notePlaceOfPreview() {
    layout()->activate();
    CRect group;
    GetDlgItem(kPreviewGroup)->GetWindowRect(group);
    m_nPreviewLeft = static_cast<int>(group.left - m_rcInitial.left);
    m_nPreviewBottomGap = static_cast<int>(m_rcInitial.bottom - group.bottom);
}

void CExlImportDlg::InitCtrls() {
    m_ctrlSheet.EnableWindow(false);
    CButton check;
    check.Attach(getWidgetsFromOrignal(kPreviewCheck));
    check.SetCheck(1);
    setImported(false);
    m_bReady = true;
}

void CExlImportDlg::SetWndOriginal() {
    m_ctrlSheet.EnableWindow(false);
    GetDlgItem("IDOK")->EnableWindow(false);
    resize(width(), static_cast<int>(m_rcInitial.Height()));
}

void CExlImportDlg::OnBnClickedBtnSelpath() {
    // Names typed without an extension get that of a spreadsheet, and are then refused.
    constexpr UINT kFlags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
    CFileDialog files(true, L"xls", nullptr, kFlags, L"*.csv", this);
    if (files.DoModal() == IDOK) {
        m_strPath = files.GetPathName();
        m_nKind = kindOfFile(files.GetFileExt());
        takeReader(m_nKind);
        m_sheetNames.clear();
        m_ctrlSheet.ResetContent();
        GetSheetsName();
        UpdateData(false);
        OnCbnSelchangeCombSheet();
    }
    Invalidate();
}

int CExlImportDlg::kindOfFile(const CStdStr<wchar_t>& extension) {
    if (extension.CompareNoCase(L"csv") == 0) return kTextFile;
    AfxMessageBox(loadText(kWrongKindText), MB_OK | MB_ICONWARNING, 0);
    return kOtherFile;
}

void CExlImportDlg::takeReader(int kind) {
    if (CVqTableIOHandle* reader = CreateTableIOHandle(kind)) {
        m_readers.emplace_back(reader);
        return;
    }
    setImported(false);
    SetWndOriginal();
}

/// Read anew for each sheet that is chosen; a text file is read for its only one. What was read before stays where a
/// file isn't read at all.
void CExlImportDlg::OnCbnSelchangeCombSheet() {
    m_strSheet = selectedText(m_ctrlSheet);
    if (m_nKind != kTextFile) return;
    dropTable();
    const struTableIoInfo info = readAndShow();
    if (info.status != 0) {
        setImported(false);
        showPreviewPlace(false, true);
        // Also without a text: that no table came is to be noticed.
        AfxMessageBox(info.error, MB_OK | MB_ICONSTOP, 0);
    }
    GetDlgItem("IDOK")->EnableWindow(m_bImported);
}

struTableIoInfo CExlImportDlg::readAndShow() {
    // The bar stays, full, until a large table is drawn too.
    const ReadingBar bar(qobject_cast<QProgressBar*>(getWidgetsFromOrignal(kReadingBar)));
    struTableIoInfo info = readFile();
    m_pTable.reset(info.table);
    if (info.status != 0) return info;
    setImported(true);
    ShowPreview(m_pTable.get());
    return info;
}

struTableIoInfo CExlImportDlg::readFile() const {
    struTableIoInfo info;
    info.handle = m_readers.empty() ? nullptr : m_readers.back().get();
    info.file = m_strPath;
    info.sheet = m_strSheet;
    info.status = 1;
    ImportTableFromCSV(&info);
    return info;
}

void CExlImportDlg::dropTable() {
    m_ctrlPreview.uninitPreviewer();
    m_pTable.reset();
}

void CExlImportDlg::ShowPreview(KdDbTable* table) {
    UpdateData(true);
    if (table == nullptr) setImported(false);
    const bool shows = m_nShowPreview != 0;
    showPreviewPlace(shows && table != nullptr, table == nullptr);
    if (!shows || table == nullptr) return;
    initializeTablePreviewer();
    m_ctrlPreview.invalidate(true);
    m_ctrlPreview.update();
}

void CExlImportDlg::initializeTablePreviewer() {
    if (!m_ctrlPreview.isNeedInitialize() || m_pTable == nullptr) return;
    m_ctrlPreview.initialPreviewer(m_ctrlPreview.GetSafeHwnd(), m_pTable->database(), {m_pTable.get()});
}

void CExlImportDlg::showPreviewPlace(bool preview, bool words) {
    GetDlgItem(kNoPreview)->ShowWindow(words ? SW_SHOW : SW_HIDE);
    m_ctrlPreview.ShowWindow(preview ? SW_SHOW : SW_HIDE);
    // The preview has its size before it paints its picture.
    if (QWidget* place = m_ctrlPreview.widget()) place->parentWidget()->layout()->activate();
}

/// A table that was read while the check was off is shown when it goes on.
void CExlImportDlg::OnBnClickedCheckPreview() {
    UpdateData(true);
    const bool shows = m_nShowPreview != 0;
    showPreviewPlace(shows, !shows);
    if (!shows) return;
    initializeTablePreviewer();
    m_ctrlPreview.update();
}

/// With a table the window may be as large as one likes.
void CExlImportDlg::setImported(bool imported) {
    m_bImported = imported;
    m_refusedSize = QSize();
    const int lower = imported ? 0 : static_cast<int>(std::lround(kHeightOfNoTable * kdadGetDPIScale()));
    setMinimumSize(static_cast<int>(m_rcInitial.Width()), static_cast<int>(m_rcInitial.Height()) - lower);
}

void CExlImportDlg::resizeEvent(QResizeEvent* event) {
    KdUiBaseDialog::resizeEvent(event);
    if (!m_bReady) return;
    if (event->spontaneous()) OnSizing();
    OnSize();
}

/// Of a window dragged by its frame. While it shows no table it has one size; with one it keeps its smallest.
void CExlImportDlg::OnSizing() {
    const QSize dragged = size();
    const QSize allowed = m_bImported ? dragged.expandedTo(minimumSize()) : minimumSize();
    if (dragged == allowed || dragged == m_refusedSize) return;
    m_refusedSize = dragged;
    resize(allowed);
}

void CExlImportDlg::OnSize() {
    ResizeCtrls();
    GetWindowRect(m_rcWindow);
    Invalidate();
}

/// The tree's layout moves and stretches the controls.
void CExlImportDlg::ResizeCtrls() {
    GetDlgItem("IDOK")->EnableWindow(m_bImported);
    m_ctrlSheet.EnableWindow(m_bImported);
}

void CExlImportDlg::OnOK() {
    GetWindowRect(m_rcWindow);
    KdUiBaseDialog::OnOK();
}

void CExlImportDlg::OnCancel() {
    GetWindowRect(m_rcWindow);
    KdUiBaseDialog::OnCancel();
}
