// The figures of the insert dialog: how their edits are filled, left, stepped and read.

#include <QApplication>
#include <algorithm>
#include <cmath>

#include "kd/db/database.h"
#include "kd/ui/widgets.h"
#include "module/controls/wiring.h"
#include "module/core/resources.h"
#include "module/core/ssicmp.h"
#include "module/create/tableinsertdlg.h"
#include "module/create/tableinsertdlgcontrols.h"
#include "module/valuetext/tableutils.h"
#include "win32/widenumbers.h"

using namespace insertdlg;

namespace {

constexpr int kLeastInteger = 1;
constexpr int kLargestInteger = 32767;

/// Length units from this one on are those of feet and inches, in which the arrows step wider.
constexpr int kFirstUnitsOfInches = 3;
constexpr double kStepsOfDecimals = 2000.0;
constexpr double kStepsOfInches = 20.0;

constexpr double kWheelStep = 0.0005;

const QString kCancelButton = QStringLiteral("IDCANCEL");

bool isAutomaticWord(const CStdStr<wchar_t>& text) {
    return ssicmp(text, loadText(kAutomaticText)) == 0;
}

/// A finite length as the drawing writes it. 0 is given for anything else.
bool readWidth(KdDbDatabase* database, const CStdStr<wchar_t>& text, double& width) {
    if (CVqTableUtils::StringToDoubleConvert(database, text, width) != 0 && std::isfinite(width)) return true;
    width = 0.0;
    return false;
}

}  // namespace

void CVqTableInsertDlg::InitSpinButtonCtrl() {
    for (const Figure figure : {Columns, DataRows, RowHeight}) {
        auto* box = m_edits[figure].widgetAs<KdUiDoubleSpinBox>();
        if (box == nullptr) continue;
        box->setRange(kLeastInteger, kLargestInteger, true, false);
        // Stored settings may hold anything; the box holds what is in its range.
        box->setValue(std::clamp(integerOf(figure), kLeastInteger, kLargestInteger));
        m_edits[figure].GetWindowTextW(m_texts[figure]);
        m_texts[figure].Trim();
    }
    CStdStr<wchar_t>& text = m_texts[ColumnWidth];
    double width = 1.0;
    if (!text.Trim().empty()) readWidth(m_pDatabase, text, width);
    CVqTableUtils::DoubleToStringConvert(m_pDatabase, width, text);
    m_edits[ColumnWidth].SetWindowTextW(text);
}

// ---- leaving an edit. No message is shown for a bad text.

void CVqTableInsertDlg::OnKillfocusColumnEdit() {
    leaveInteger(Columns);
}

void CVqTableInsertDlg::OnKillfocusDataRowEdit() {
    leaveInteger(DataRows);
}

void CVqTableInsertDlg::OnKillfocusRowHeightEdit() {
    leaveInteger(RowHeight);
}

void CVqTableInsertDlg::leaveInteger(Figure figure) {
    CStdStr<wchar_t> text;
    m_edits[figure].GetWindowTextW(text);
    const bool isLegal = CVqTableUtils::IsLegalInteger(text);
    leaveFigure(figure, text, isLegal, _wtoi(text.c_str()) > 0);
}

void CVqTableInsertDlg::OnKillfocusColumnWidthEdit() {
    CStdStr<wchar_t> text;
    m_edits[ColumnWidth].GetWindowTextW(text);
    const bool isLegal = CVqTableUtils::IsLegalNumber(text) || CVqTableUtils::IsLegalScientificNotation(text);
    const double width = _wtof(text.c_str());
    leaveFigure(ColumnWidth, text, isLegal && std::isfinite(width), width > 0.0);
}

/// The two bad cases differ, as designed, where the focus has left the dialog: a legal text that isn't above 0 is left
/// in its edit then, and an illegal one gives way to the text before. On the way to Cancel both are left alone.
void CVqTableInsertDlg::leaveFigure(Figure figure, const CStdStr<wchar_t>& text, bool isLegal, bool isAboveZero) {
    if (isLegal && isAboveZero) {
        m_texts[figure] = text;
        return;
    }
    const QWidget* focused = QApplication::focusWidget();
    const bool isWithin = focused != nullptr && isAncestorOf(focused);
    if (isLegal && !isWithin) return;
    if (isWithin && focused->objectName() == kCancelButton) return;
    m_edits[figure].SetWindowTextW(m_texts[figure]);
}

// ---- the exchange

/// The word of an automatic figure is shown in its edit and never taken for its text.
void CVqTableInsertDlg::exchangeFigure(CDataExchange* exchange, Figure figure) {
    if (exchange->m_bSaveAndValidate) {
        CStdStr<wchar_t> text;
        m_edits[figure].GetWindowTextW(text);
        if (isAutomaticWord(text)) return;
    } else if (isAutomatic(figure)) {
        m_edits[figure].SetWindowTextW(loadText(kAutomaticText));
        return;
    }
    if (figure == ColumnWidth) DDV_Real(exchange);
    DDX_Text(exchange, kFigures[figure].edit, m_texts[figure]);
}

/// What the edit of the column width holds must be a finite length that isn't negative, before it becomes the text.
void CVqTableInsertDlg::DDV_Real(CDataExchange* exchange) const {
    if (!exchange->m_bSaveAndValidate) return;
    CStdStr<wchar_t> text;
    m_edits[ColumnWidth].GetWindowTextW(text);
    if (isAutomaticWord(text)) return;
    double width = 0.0;
    if (!readWidth(m_pDatabase, text, width) || width < 0.0) exchange->Fail();
}

// ---- stepping

void CVqTableInsertDlg::OnDelColumnWidthSpin(NMHDR* header, LRESULT*) {
    SpinMasterReal(m_edits[ColumnWidth], noticeOf<NMUPDOWN>(header).iDelta);
}

void CVqTableInsertDlg::SpinMasterReal(CEdit& edit, int delta) const {
    if (m_pDatabase == nullptr) return;
    CStdStr<wchar_t> text;
    edit.GetWindowTextW(text);
    double value = 0.0;
    readWidth(m_pDatabase, text, value);
    const double divisor = m_pDatabase->lunits() < kFirstUnitsOfInches ? kStepsOfDecimals : kStepsOfInches;
    value = std::max(0.0, value - delta / divisor);
    if (CVqTableUtils::DoubleToStringConvert(m_pDatabase, value, text) == 1) edit.SetWindowTextW(text);
}

int CVqTableInsertDlg::OnMouseWheel(int delta) {
    const QWidget* edit = m_edits[ColumnWidth].widget();
    if (edit == nullptr || QApplication::focusWidget() != edit || !UpdateData(true)) return 1;
    double width = shownColumnWidth();
    if (delta > 0) width += kWheelStep;
    if (delta < 0) width -= kWheelStep;
    m_texts[ColumnWidth].Format(L"%.4f", std::max(0.0, width));
    UpdateData(false);
    return 1;
}

// ---- reading

int CVqTableInsertDlg::integerOf(Figure figure) const {
    return _wtoi(m_texts[figure].c_str());
}

/// The table gets the width as a plain number, whatever the drawing's units: of feet and inches the number in front
/// counts.
double CVqTableInsertDlg::columnWidth() const {
    return _wtof(m_texts[ColumnWidth].c_str());
}

/// What the edit shows as a length of the drawing, to step from and to be shown again.
double CVqTableInsertDlg::shownColumnWidth() const {
    double width = 0.0;
    return readWidth(m_pDatabase, m_texts[ColumnWidth], width) ? width : columnWidth();
}
