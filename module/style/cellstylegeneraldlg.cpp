// The general page: what it shows, and what each of its controls writes.

#include "module/style/cellstylegeneraldlg.h"

#include "kd/db/tablestyle.h"
#include "kd/ui/hostdialogs.h"
#include "module/controls/comboboxes.h"
#include "module/controls/wiring.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"

namespace {

constexpr const char* kFillColorBox = "IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX";
constexpr const char* kAlignmentBox = "IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX";
constexpr const char* kTypeBox = "IDC_CELLSTYLEGENERAL_TYPE_COMBOBOX";
constexpr const char* kFormatText = "IDC_CELLSTYLEGENERAL_FORMATSHOW_STATIC";
constexpr const char* kHorizontalEdit = "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT";
constexpr const char* kVerticalEdit = "IDC_CELLSTYLEGENERAL_VERTICAL_EDIT";
constexpr const char* kMergeButton = "IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON";
constexpr const char* kFormatButton = "IDC_CELLSTYLEGENERAL_FORMAT_BUTTON";

/// The rows of the fill that stand for no colour of their own.
enum FillRow : int { kNoFillRow, kByLayerRow, kByBlockRow };

constexpr unsigned kDataText = 2140;
constexpr unsigned kLabelText = 2141;

/// 0 and any greater margin; there is no upper limit.
bool isMargin(double value) {
    return value >= 0.0;
}

}  // namespace

CVqTableCellStyleGeneralDlg::CVqTableCellStyleGeneralDlg(CWnd* parent) : CVqTableCellStylePage(parent) {
    buildTree(*this, "IDD_CELLSTYLEGENERAL_DIALOG");
}

void CVqTableCellStyleGeneralDlg::bindSingals() {
    using Page = CVqTableCellStyleGeneralDlg;
    static constexpr ControlWire<Page> kControls[] = {
        {kMergeButton, ControlSignal::Clicked, &Page::OnMergeCellButton},
        {kFormatButton, ControlSignal::Clicked, &Page::OnFormatButton},
        {kFillColorBox, ControlSignal::SelectionChange, &Page::OnSelFillColorComboBox},
        {kFillColorBox, ControlSignal::BoxDropDown, &Page::OnDropDownColorComboBox},
        {kAlignmentBox, ControlSignal::SelectionChange, &Page::OnSelAlignmentComboBox},
        {kTypeBox, ControlSignal::SelectionChange, &Page::OnSelTypeComboBox},
        {kHorizontalEdit, ControlSignal::KillFocus, &Page::OnKillfocusHorizontalEdit},
        {kVerticalEdit, ControlSignal::KillFocus, &Page::OnKillfocusVerticalEdit},
    };
    connectControls(*this, kControls);
}

void CVqTableCellStyleGeneralDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kFillColorBox, m_fillColorBox);
    DDX_Control(exchange, kAlignmentBox, m_alignmentBox);
    DDX_Control(exchange, kTypeBox, m_typeBox);
    DDX_Control(exchange, kFormatText, m_formatText);
    DDX_Control(exchange, kHorizontalEdit, m_horizontalEdit);
    DDX_Control(exchange, kVerticalEdit, m_verticalEdit);
    DDX_Control(exchange, kMergeButton, m_mergeButton);
}

int CVqTableCellStyleGeneralDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    initPageWindow();
    FillColorComboBox();
    FillAlignmentComboBox();
    FillTypeComboBox();
    if (UpdateFormDatabaseData() == 0) return 0;
    InitUI();
    return 1;
}

void CVqTableCellStyleGeneralDlg::FillColorComboBox() {
    m_fillColorBox.AddItems();
}

void CVqTableCellStyleGeneralDlg::FillAlignmentComboBox() {
    addAlignments(m_alignmentBox);
}

void CVqTableCellStyleGeneralDlg::FillTypeComboBox() {
    m_typeBox.AddString(loadText(kDataText));
    m_typeBox.AddString(loadText(kLabelText));
}

void CVqTableCellStyleGeneralDlg::InitUI() {
    showSamples(m_fillColorBox, kColorSamples);
}

int CVqTableCellStyleGeneralDlg::UpdateFormDatabaseData() {
    const KdDbTableStyle* style = styleForRead();
    if (style == nullptr) return 0;
    m_fillColorBox.SetCurSel(fillColorRow(style->backgroundColor(cellStyle())));
    showRow(m_alignmentBox, CVqTableCommon::CellAlignmentToIndex(style->alignment(cellStyle())));
    showFormat(*style);
    // A class that the box doesn't list leaves the margins and the merge flag as they were.
    if (!showType(*style)) return 0;
    showLength(m_horizontalEdit, CVqTableCommon::GetHorzCellMarginFromTableStyle(style, cellStyle()));
    showLength(m_verticalEdit, CVqTableCommon::GetVertCellMarginFromTableStyle(style, cellStyle()));
    if (m_mergeButton.GetSafeHwnd() == nullptr) return 0;
    m_mergeButton.SetCheck(style->isMergeAllEnabled(cellStyle()) ? 1 : 0);
    return 1;
}

int CVqTableCellStyleGeneralDlg::fillColorRow(const KdCmColor& color) const {
    if (color.isNone()) return kNoFillRow;
    if (color.isByLayer()) return kByLayerRow;
    if (color.isByBlock()) return kByBlockRow;
    return m_fillColorBox.FindItemByColor(color);
}

void CVqTableCellStyleGeneralDlg::showFormat(const KdDbTableStyle& style) {
    KdValue::DataType type = KdValue::kUnknown;
    KdValue::UnitType unit = KdValue::kUnitless;
    style.getDataType(type, unit, cellStyle());
    m_formatText.SetWindowTextW(CVqTableCommon::FormatFormDataUnitType(type, unit));
}

bool CVqTableCellStyleGeneralDlg::showType(const KdDbTableStyle& style) {
    const auto cellClass = static_cast<KdDb::CellClass>(style.cellClass(cellStyle()));
    const CStdStr<wchar_t> text = CVqTableCommon::CellClassToTypeString(cellClass);
    // A class without a name is no row, though every row begins with an empty text.
    const int row = text.IsEmpty() ? -1 : m_typeBox.FindString(0, text);
    if (row < 0) return false;
    showRow(m_typeBox, row);
    return true;
}

void CVqTableCellStyleGeneralDlg::OnDropDownColorComboBox() {
    m_droppedRow = m_fillColorBox.GetCurSel();
}

void CVqTableCellStyleGeneralDlg::OnSelFillColorComboBox() {
    finishColorChoice(m_fillColorBox);
    KdDbTableStyle* style = styleForWrite();
    KdCmColor color;
    if (style == nullptr || !m_fillColorBox.GetCurrentItemColor(color)) return;
    style->setBackgroundColor(color, cellStyle());
    UpdatePreview(0);
}

void CVqTableCellStyleGeneralDlg::OnSelAlignmentComboBox() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    style->setAlignment(CVqTableCommon::CellAlignmentToIndex(m_alignmentBox.GetCurSel()), cellStyle());
    UpdatePreview(0);
}

void CVqTableCellStyleGeneralDlg::OnSelTypeComboBox() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    // No preview shows the class.
    style->setCellClass(CVqTableCommon::TypeStringToCellClass(selectedText(m_typeBox)), cellStyle());
}

void CVqTableCellStyleGeneralDlg::OnMergeCellButton() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    style->enableMergeAll(m_mergeButton.GetCheck() == 1, cellStyle());
    // The only property that the cells of the sample table depend on, so that it has to be made again.
    UpdatePreview(1);
}

void CVqTableCellStyleGeneralDlg::OnFormatButton() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    KdValue::DataType type = KdValue::kUnknown;
    KdValue::UnitType unit = KdValue::kUnitless;
    style->getDataType(type, unit, cellStyle());

    KdValue chosen;
    chosen.setUnitType(unit);
    chosen.setFormat(style->format(cellStyle()).kwszPtr());
    KdValue* value = &chosen;
    CVqTableCommon::GetValue(value, type, unit);
    if (VqFdUiInvokeDataTypeDialog(value, style->database(), this) != 0) return;

    m_formatText.SetWindowTextW(CVqTableCommon::FormatFormDataUnitType(value->dataType(), value->unitType()));
    style->setDataType(value->dataType(), value->unitType(), cellStyle());
    style->setFormat(value->getFormat(), cellStyle());
}

void CVqTableCellStyleGeneralDlg::commitMargin(CEdit& edit, KdDb::CellMargin margin) {
    commitLength(edit, isMargin,
                 [&](KdDbTableStyle& style, double value) { style.setMargin(margin, value, cellStyle()); });
}

// One margin stands for both sides of its direction: the left one and the top one.

void CVqTableCellStyleGeneralDlg::OnKillfocusHorizontalEdit() {
    commitMargin(m_horizontalEdit, KdDb::kCellMarginLeft);
}

void CVqTableCellStyleGeneralDlg::OnKillfocusVerticalEdit() {
    commitMargin(m_verticalEdit, KdDb::kCellMarginTop);
}
