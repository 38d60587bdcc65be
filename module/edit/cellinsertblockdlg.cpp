// The dialog of a block in a cell.

#include "module/edit/cellinsertblockdlg.h"

#include <utility>

#include "module/controls/comboboxes.h"
#include "module/controls/wiring.h"
#include "module/core/tablecommon.h"
#include "module/exchange/tableexport.h"
#include "module/valuetext/tableutils.h"
#include "win32/widenumbers.h"

namespace {

constexpr const char* kBlockNameBox = "IDC_CELLINSERTBLOCK_BLOCKNAME_COMBOBOX";
constexpr const char* kAlignmentBox = "IDC_CELLINSERTBLOCK_ALIGNMENT_COMBOBOX";
constexpr const char* kPathText = "IDC_CELLINSERTBLOCK_PATHNAME_STATIC";
constexpr const char* kScaleEdit = "IDC_CELLINSERTBLOCK_SCALE_EDIT";
constexpr const char* kRotationEdit = "IDC_CELLINSERTBLOCK_ANGLE_EDIT";
constexpr const char* kAutofitButton = "IDC_CELLINSERTBLOCK_AUTOFIT_BUTTON";

CStdStr<wchar_t> numberText(double value) {
    CStdStr<wchar_t> text;
    text.Format(L"%f", value);
    return text;
}

/// Takes over what an edit holds when it is a number above 0. Any other text stays in the edit, without effect.
void takeNumber(const CEdit& edit, CStdStr<wchar_t>& taken) {
    CStdStr<wchar_t> text;
    edit.GetWindowTextW(text);
    const bool counts = CVqTableUtils::IsLegalNumber(text) || CVqTableUtils::IsLegalScientificNotation(text);
    if (counts && _wtof(text) > 0.0) taken = text;
}

}  // namespace

CVqTableCellInsertBlockDlg::CVqTableCellInsertBlockDlg(KdDbDatabase* database, CWnd* parent)
    : CVqTableCellInsertBlockDlg(database, false, 1.0, 0.0, KdDb::kTopLeft, KdDbObjectId::kNull, parent) {}

CVqTableCellInsertBlockDlg::CVqTableCellInsertBlockDlg(KdDbDatabase* database, bool autofit, double scale,
                                                       double rotation, KdDb::CellAlignment alignment,
                                                       KdDbObjectId blockId, CWnd* parent)
    : KdUiBaseDialog(parent),
      m_database(database),
      m_scale(scale),
      m_rotation(rotation),
      m_autofit(autofit),
      m_alignment(alignment),
      m_blockId(blockId) {
    buildTree(*this, "IDD_CELLINSERTBLOCK_DIALOG");
}

void CVqTableCellInsertBlockDlg::bindSingals() {
    using Dialog = CVqTableCellInsertBlockDlg;
    static constexpr ControlWire<Dialog> kControls[] = {
        {"IDC_CELLINSERTBLOCK_BROWSE_BUTTON", ControlSignal::Clicked, &Dialog::OnBnClickedCellinsertblockBrowseButton},
        {kAlignmentBox, ControlSignal::SelectionChange, &Dialog::OnCbnSelchangeCellinsertblockAlignmentCombobox},
        {kBlockNameBox, ControlSignal::SelectionChange, &Dialog::OnCbnSelchangeCellinsertblockBlocknameCombobox},
        {kAutofitButton, ControlSignal::Clicked, &Dialog::OnBnClickedCellinsertblockAutofitButton},
        {kScaleEdit, ControlSignal::KillFocus, &Dialog::OnKillfocusScaleEdit},
        {kRotationEdit, ControlSignal::KillFocus, &Dialog::OnKillfocusRotateEdit},
    };
    if (!std::exchange(m_connected, true)) connectControls(*this, kControls);
}

void CVqTableCellInsertBlockDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kBlockNameBox, m_blockNameCombo);
    DDX_Control(exchange, kAlignmentBox, m_alignmentCombo);
    DDX_Control(exchange, kScaleEdit, m_scaleEdit);
    DDX_Control(exchange, kRotationEdit, m_rotationEdit);
    DDX_Control(exchange, kAutofitButton, m_autofitButton);
    DDX_Text(exchange, kPathText, m_pathName);
    DDX_Text(exchange, kScaleEdit, m_scaleText);
    DDX_Text(exchange, kRotationEdit, m_rotationText);
}

int CVqTableCellInsertBlockDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    FillAlignmentComboBox();
    m_alignmentCombo.SetCurSel(CVqTableCommon::CellAlignmentToIndex(m_alignment));
    m_scaleText = numberText(m_scale);
    m_rotationText = numberText(m_rotation);
    m_autofitButton.SetCheck(m_autofit ? 1 : 0);
    UpdateData(false);
    return 1;
}

void CVqTableCellInsertBlockDlg::FillAlignmentComboBox() {
    addAlignments(m_alignmentCombo);
}

/// The question is that of the export, down to the name and extension it proposes.
void CVqTableCellInsertBlockDlg::OnBnClickedCellinsertblockBrowseButton() {
    const std::optional<std::wstring> name = fileNameFromDialog();
    if (!name) return;
    m_pathName = *name;
    GetDlgItem(kPathText)->SetWindowTextW(m_pathName);
}

void CVqTableCellInsertBlockDlg::OnKillfocusScaleEdit() {
    takeNumber(m_scaleEdit, m_scaleText);
}

void CVqTableCellInsertBlockDlg::OnKillfocusRotateEdit() {
    takeNumber(m_rotationEdit, m_rotationText);
}
