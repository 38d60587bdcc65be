// The text page: what it shows, and what each of its controls writes.

#include "module/style/cellstyletextdlg.h"

#include <memory>
#include <optional>

#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/tablestyle.h"
#include "kd/ui/hostdialogs.h"
#include "module/controls/comboboxes.h"
#include "module/controls/wiring.h"
#include "module/core/openobject.h"
#include "module/valuetext/tableutils.h"

namespace {

constexpr const char* kTextStyleBox = "IDC_CELLSTYLETEXT_TEXTSTYLE_COMBOBOX";
constexpr const char* kTextStyleButton = "IDC_CELLSTYLETEXT_TEXTSTYLE_BUTTON";
constexpr const char* kColorBox = "IDC_CELLSTYLETEXT_TEXTCOLOR_COMBOBOX";
constexpr const char* kHeightEdit = "IDC_CELLSTYLETEXT_TEXTHEIGHT_EDIT";
constexpr const char* kAngleEdit = "IDC_CELLSTYLETEXT_TEXTANGLE_EDIT";

constexpr int kWithDegreeSign = 2;

/// A height of 0 is refused, unlike a margin of 0.
bool isHeight(double value) {
    return value > 0.0;
}

/// Empty when the record can't be opened.
CStdStr<wchar_t> nameOfRecord(KdDbObjectId id) {
    const OpenObject<KdDbTextStyleTableRecord> record(id, KdDb::kForRead);
    std::wstring name;
    if (record) record->getName(name);
    return name;
}

/// The text style of that name, the null id when the drawing has none. Nothing when the text styles can't be read.
std::optional<KdDbObjectId> textStyleNamed(const KdDbDatabase& database, const wchar_t* name) {
    const OpenObject<KdDbTextStyleTable> table(database.textStyleTableId(), KdDb::kForRead);
    if (!table) return std::nullopt;
    KdDbObjectId id;
    table->getAt(name, id, false);
    return id;
}

}  // namespace

CVqTableCellStyleTextDlg::CVqTableCellStyleTextDlg(CWnd* parent) : CVqTableCellStylePage(parent) {
    buildTree(*this, "IDD_CELLSTYLETEXT_DIALOG");
}

void CVqTableCellStyleTextDlg::bindSingals() {
    using Page = CVqTableCellStyleTextDlg;
    static constexpr ControlWire<Page> kControls[] = {
        {kAngleEdit, ControlSignal::KillFocus, &Page::OnKillfocusAngleEdit},
        {kHeightEdit, ControlSignal::KillFocus, &Page::OnKillfocusTextHeightEdit},
        {kTextStyleBox, ControlSignal::SelectionChange, &Page::OnSelTextstyleComboBox},
        {kColorBox, ControlSignal::SelectionChange, &Page::OnSelTextcolorComboBox},
        {kColorBox, ControlSignal::BoxDropDown, &Page::OnDropDownColorComboBox},
        {kTextStyleButton, ControlSignal::Clicked, &Page::OnTextStyleButton},
    };
    connectControls(*this, kControls);
}

void CVqTableCellStyleTextDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kTextStyleBox, m_textStyleBox);
    DDX_Control(exchange, kColorBox, m_colorBox);
    DDX_Control(exchange, kHeightEdit, m_heightEdit);
    DDX_Control(exchange, kAngleEdit, m_angleEdit);
}

int CVqTableCellStyleTextDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    initPageWindow();
    FillTextStyleComboBox();
    FillColorComboBox();
    if (UpdateFormDatabaseData() == 0) return 0;
    InitUI();
    return 1;
}

int CVqTableCellStyleTextDlg::FillTextStyleNameArray() {
    m_textStyleNames.RemoveAll();
    const KdDbDatabase* drawing = database();
    if (drawing == nullptr) return 0;
    const OpenObject<KdDbTextStyleTable> table(drawing->textStyleTableId(), KdDb::kForRead);
    if (!table) return 0;
    KdDbSymbolTableIterator* made = nullptr;
    if (table->newIterator(made) != Kdad::eOk) return 0;
    const std::unique_ptr<KdDbSymbolTableIterator> records(made);
    for (records->start(); !records->done(); records->step()) {
        KdDbObjectId id;
        records->getRecordId(id);
        const CStdStr<wchar_t> name = nameOfRecord(id);
        if (!name.IsEmpty()) m_textStyleNames.Add(name);
    }
    return 1;
}

void CVqTableCellStyleTextDlg::FillTextStyleComboBox() {
    FillTextStyleNameArray();
    m_textStyleBox.ResetContent();
    for (const CStdStr<wchar_t>& name : m_textStyleNames) m_textStyleBox.AddString(name);
}

void CVqTableCellStyleTextDlg::InitUI() {
    showSamples(m_colorBox, kColorSamples);
}

int CVqTableCellStyleTextDlg::UpdateFormDatabaseData() {
    const KdDbTableStyle* style = styleForRead();
    if (style == nullptr) return 0;
    const CStdStr<wchar_t> textStyle = shownTextStyle(*style);
    // The first row that begins with the name. A name that no row begins with leaves height, colour and angle as
    // they were.
    const int row = textStyle.IsEmpty() ? -1 : m_textStyleBox.FindString(-1, textStyle);
    if (row < 0) return 0;
    showRow(m_textStyleBox, row);
    SetTextHeightValue(style->textHeight(cellStyle()));
    m_colorBox.SetCurSel(m_colorBox.FindItemByColor(style->color(cellStyle())));
    SetTextAngleValue(style->rotation(cellStyle()));
    return 1;
}

CStdStr<wchar_t> CVqTableCellStyleTextDlg::shownTextStyle(const KdDbTableStyle& style) const {
    CStdStr<wchar_t> own = nameOfRecord(style.textStyle(cellStyle()));
    if (!own.IsEmpty() || m_textStyleNames.IsEmpty()) return own;
    return m_textStyleNames.GetAt(0);
}

void CVqTableCellStyleTextDlg::SetTextHeightValue(double height) {
    showLength(m_heightEdit, height);
}

void CVqTableCellStyleTextDlg::SetTextAngleValue(double angle) {
    KdDbDatabase* drawing = database();
    CStdStr<wchar_t> text;
    if (drawing == nullptr) return;
    if (CVqTableUtils::AngleToStringConvert(drawing, kWithDegreeSign, angle, text) != 0) {
        m_angleEdit.SetWindowTextW(text);
    }
}

void CVqTableCellStyleTextDlg::OnDropDownColorComboBox() {
    m_droppedRow = m_colorBox.GetCurSel();
}

void CVqTableCellStyleTextDlg::OnSelTextstyleComboBox() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr || style->database() == nullptr) return;
    const CStdStr<wchar_t> name = selectedText(m_textStyleBox).Trim();
    const std::optional<KdDbObjectId> textStyle = textStyleNamed(*style->database(), name);
    if (!textStyle) return;
    // Without the blanks around it the name may be found nowhere; the null id is set then all the same.
    style->setTextStyle(*textStyle, cellStyle());
    UpdatePreview(0);
}

void CVqTableCellStyleTextDlg::OnSelTextcolorComboBox() {
    finishColorChoice(m_colorBox);
    KdDbTableStyle* style = styleForWrite();
    KdCmColor color;
    if (style == nullptr || !m_colorBox.GetCurrentItemColor(color)) return;
    style->setColor(color, cellStyle());
    UpdatePreview(0);
}

void CVqTableCellStyleTextDlg::OnTextStyleButton() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr || style->database() == nullptr) return;
    CStdStr<wchar_t> name = nameOfRecord(style->textStyle(cellStyle()));
    if (name.IsEmpty()) return;
    invokeTextStyleDialog(style->database(), &name);
    FillTextStyleComboBox();

    // However the dialog was left: the cell style takes on the drawing's current text style.
    const KdDbObjectId current = style->database()->textstyle();
    const CStdStr<wchar_t> currentName = nameOfRecord(current);
    const int row = currentName.IsEmpty() ? -1 : m_textStyleBox.FindString(0, currentName);
    if (row < 0) return;
    showRow(m_textStyleBox, row);
    style->setTextStyle(current, cellStyle());
    UpdatePreview(0);
}

void CVqTableCellStyleTextDlg::OnKillfocusTextHeightEdit() {
    commitLength(m_heightEdit, isHeight,
                 [&](KdDbTableStyle& style, double value) { style.setTextHeight(value, cellStyle()); });
}

void CVqTableCellStyleTextDlg::OnKillfocusAngleEdit() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    CStdStr<wchar_t> text;
    m_angleEdit.GetWindowTextW(text);
    double angle = 0.0;
    if (CVqTableUtils::StringToAngleConvert(database(), text, angle) == 0) {
        takeFocusBack(m_angleEdit);
        return;
    }
    // Any angle is taken as it stands, and the text stays as typed.
    style->setRotation(angle, cellStyle());
    UpdatePreview(0);
}
