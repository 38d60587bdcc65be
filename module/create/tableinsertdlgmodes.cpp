// What the insert dialog offers in each of its modes: an empty table or one from a file, a point or a window, and in a
// window what is fixed.

#include "module/core/resources.h"
#include "module/create/tableinsertdlg.h"
#include "module/create/tableinsertdlgcontrols.h"

using namespace insertdlg;

namespace {

constexpr const char* kSettingsGroup = "IDC_TABLEINSERT_SETTINGS_GROUP";
constexpr unsigned kPointSettingsText = 2163;
constexpr unsigned kWindowSettingsText = 2164;

constexpr unsigned kBitmapMask = 0xff00ff;

struct ManagerBitmaps {
    const char* enabled;
    const char* disabled;
};
/// In the order of the dialog's manager buttons.
constexpr std::array kManagerBitmaps = {
    ManagerBitmaps{"IDB_TABLEINSERT_TABLESTYLEMAN_BMP", "IDB_TABLEINSERT_TABLESTYLEMAN_DISABLE_BMP"},
    ManagerBitmaps{"IDB_TABLEINSERT_DATALINKMAN_BMP", "IDB_TABLEINSERT_DATALINKMAN_DISABLE_BMP"},
};

constexpr const char* kStyleControls[] = {"IDC_TABLEINSERT_TABLESTYLE_GROUP", kStyleName};
constexpr const char* kSettingsControls[] = {kSettingsGroup, kColumnPicture, kRowPicture,
                                             "IDC_TABLEINSERT_LINES_STATIC"};
constexpr const char* kCellStyleControls[] = {
    "IDC_TABLEINSERT_CELLSTYLE_GROUP",
    "IDC_TABLEINSERTROW_FIRSTROW_STATIC",
    "IDC_TABLEINSERTROW_SECONDROW_STATIC",
    "IDC_TABLEINSERTROW_OTHERROW_STATIC",
    kFirstRow,
    kSecondRow,
    kOtherRow,
};

/// By their index: the group, the point's radio button, the window's.
constexpr std::array kInsertModeControls = {"IDC_TABLEINSERT_INSERTMODE_GROUP", kAtPoint, kInWindow};
constexpr int kPointIndex = 1;
constexpr int kNoIndex = -1;

/// What EnableTableInsetWindow enables. Any other mode enables nothing.
enum WindowMode : int { kEmptyTable = 1, kTableFromFile = 2 };

// The window types of the jig, by what the user fixes.
constexpr int kRowsAndColumnsFixed = 0;
constexpr int kRowsFixed = 1;
constexpr int kColumnsFixed = 2;
constexpr int kSizesFixed = 3;

}  // namespace

// ---- an empty table, or one from a file

void CVqTableInsertDlg::OnInsertButton() {
    UpdateInsetMode(m_atPoint.GetCheck());
    EnableTableInsetWindow(kEmptyTable);
    ShowPreviewPicture(1, 0);
    m_bDataLink = false;
    enableControl("IDOK", true);
}

void CVqTableInsertDlg::OnDataLinkButton() {
    UpdateInsetMode(1);
    m_atPoint.SetCheck(1);
    EnableTableInsetWindow(kTableFromFile);
    ShowPreviewPicture(1, 0);
    m_ctrlDataLink.EnableWindow(false);
    m_bDataLink = true;
    enableControl("IDOK", m_ctrlDataLink.GetCount() > 0);
    enableFigures(false);
}

void CVqTableInsertDlg::OnDataExtractionButton() {
    EnableTableInsetWindow(3);
    ShowPreviewPicture(0, 0);
}

void CVqTableInsertDlg::EnableTableInsetWindow(int mode) {
    const bool isEmpty = mode == kEmptyTable;
    const bool isFromFile = mode == kTableFromFile;
    for (const char* control : kStyleControls) enableControl(control, isEmpty);
    enableManager(StyleManager, isEmpty);
    enableManager(DataLinkManager, isFromFile);
    // A table from a file is placed by a point, whose radio button alone stays enabled.
    EnableInsertMode(isFromFile ? kPointIndex : kNoIndex, isEmpty);
    enableSettings(isEmpty);
    for (const char* control : kCellStyleControls) enableControl(control, isEmpty);
    for (const char* option : kOptionChecks) enableControl(option, isEmpty);
    for (const char* around : kOptionFrame) enableControl(around, isEmpty);
}

/// The control at `index`, if there is one, gets the opposite of what all others get.
void CVqTableInsertDlg::EnableInsertMode(int index, bool state) {
    int at = 0;
    for (const char* control : kInsertModeControls) enableControl(control, (at++ == index) != state);
}

void CVqTableInsertDlg::enableManager(ManagerButton button, bool enable) {
    const ManagerBitmaps& bitmaps = kManagerBitmaps[button];
    m_managers[button].EnableWindow(enable);
    m_managers[button].setBitmapId(scaledBitmap(enable ? bitmaps.enabled : bitmaps.disabled), kBitmapMask);
}

void CVqTableInsertDlg::enableSettings(bool on) {
    for (const char* control : kSettingsControls) enableControl(control, on);
    for (const FigureControls& controls : kFigures) {
        enableControl(controls.radio, on);
        enableControl(controls.label, on);
    }
    enableFigures(on);
}

/// An automatic figure has nothing to type.
void CVqTableInsertDlg::enableFigures(bool on) {
    for (const Figure figure : {Columns, ColumnWidth, DataRows, RowHeight}) {
        m_edits[figure].EnableWindow(on && !isAutomatic(figure));
    }
}

// ---- a point, or a window

void CVqTableInsertDlg::OnInsetPointButton() {
    UpdateInsetMode(1);
}

void CVqTableInsertDlg::OnWindowButton() {
    UpdateInsetMode(0);
}

void CVqTableInsertDlg::UpdateInsetMode(int mode) {
    m_bPointMode = mode != 0;
    for (const FigureControls& controls : kFigures) {
        showControl(controls.radio, !m_bPointMode);
        showControl(controls.label, m_bPointMode);
    }
    if (CWnd* group = GetDlgItem(kSettingsGroup)) {
        group->SetWindowTextW(loadText(m_bPointMode ? kPointSettingsText : kWindowSettingsText));
    }
    if (m_bPointMode) {
        if (!m_bDataLink) enableSettings(true);
        showFigures();
        return;
    }
    m_fixed[m_bColumnsFixed ? Columns : ColumnWidth].SetCheck(1);
    m_fixed[m_bDataRowsFixed ? DataRows : RowHeight].SetCheck(1);
    InitRowColSelState();
}

// ---- what is fixed in a window

void CVqTableInsertDlg::setFixed(bool& isFixed, bool fixed) {
    isFixed = fixed;
    InitRowColSelState();
    SetSpecifiWindowMode();
}

void CVqTableInsertDlg::OnColumnButton() {
    setFixed(m_bColumnsFixed, true);
}

void CVqTableInsertDlg::OnColumnWidthButton() {
    setFixed(m_bColumnsFixed, false);
}

void CVqTableInsertDlg::OnDataRowButton() {
    setFixed(m_bDataRowsFixed, true);
}

void CVqTableInsertDlg::OnRowHeightButton() {
    setFixed(m_bDataRowsFixed, false);
}

bool CVqTableInsertDlg::isAutomatic(Figure figure) const {
    if (m_bPointMode) return false;
    switch (figure) {
        case Columns:
            return !m_bColumnsFixed;
        case ColumnWidth:
            return m_bColumnsFixed;
        case DataRows:
            return !m_bDataRowsFixed;
        default:
            return m_bDataRowsFixed;
    }
}

void CVqTableInsertDlg::InitRowColSelState() {
    showFigures();
    enableFigures(true);
}

void CVqTableInsertDlg::showFigures() {
    const CStdStr<wchar_t> automatic = loadText(kAutomaticText);
    for (const Figure figure : {Columns, ColumnWidth, DataRows, RowHeight}) {
        m_edits[figure].SetWindowTextW(isAutomatic(figure) ? automatic : m_texts[figure]);
    }
}

void CVqTableInsertDlg::SetSpecifiWindowMode() {
    if (m_bDataRowsFixed) {
        m_nWindowType = m_bColumnsFixed ? kRowsAndColumnsFixed : kRowsFixed;
    } else {
        m_nWindowType = m_bColumnsFixed ? kColumnsFixed : kSizesFixed;
    }
}
