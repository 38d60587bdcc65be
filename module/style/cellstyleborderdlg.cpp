// The border page: what it shows, what is picked, and what the buttons give to the edges.

#include "module/style/cellstyleborderdlg.h"

#include <algorithm>
#include <cmath>

#include "kd/db/database.h"
#include "kd/db/tablestyle.h"
#include "module/core/resources.h"
#include "module/style/controls/comboboxes.h"
#include "module/style/controls/wiring.h"

namespace {

constexpr const char* kWeightBox = "IDC_CELLSTYLEBORDER_LWEIGHT_COMBOBOX";
constexpr const char* kTypeBox = "IDC_CELLSTYLEBORDER_LTYPE_COMBOBOX";
constexpr const char* kColorBox = "IDC_CELLSTYLEBORDER_COLOR_COMBOBOX";
constexpr const char* kInfoText = "IDC_CELLSTYLEBORDER_BORDERINFO_STATIC";
constexpr const char* kSpacingEdit = "IDC_CELLSTYLEBORDER_SPACING_EDIT";
constexpr const char* kDoubleLineButton = "IDC_CELLSTYLEBORDER_DOUBLELINE_BUTTON";

constexpr unsigned kInfoTextNumber = 2124;
constexpr unsigned kBitmapMask = 0x848200;
constexpr double kSameSpacing = 1e-10;
/// What a box shows when the edges don't agree: by block.
constexpr int kMixedRow = 1;

// Kinds of samples in the boxes.
constexpr int kLinetypeSamples = 1;
constexpr int kWeightSamples = 2;
constexpr int kColorSamples = 3;

constexpr int kHorizontal = KdDb::kHorzTop | KdDb::kHorzInside | KdDb::kHorzBottom;
constexpr int kVertical = KdDb::kVertLeft | KdDb::kVertInside | KdDb::kVertRight;

constexpr std::array kEdges = {KdDb::kHorzTop,  KdDb::kHorzInside, KdDb::kHorzBottom,
                               KdDb::kVertLeft, KdDb::kVertInside, KdDb::kVertRight};

/// The edges of each selector. Bottom, left, top and right take the inside line of their direction along.
constexpr std::array kSelectors = {
    kHorizontal | kVertical,
    KdDb::kHorzTop | KdDb::kHorzBottom | KdDb::kVertLeft | KdDb::kVertRight,
    KdDb::kHorzInside | KdDb::kVertInside,
    KdDb::kHorzInside | KdDb::kHorzBottom,
    KdDb::kVertLeft | KdDb::kVertInside,
    KdDb::kHorzTop | KdDb::kHorzInside,
    KdDb::kVertInside | KdDb::kVertRight,
};

template <class Visit>
void forEachEdge(int edges, Visit visit) {
    for (const KdDb::GridLineType edge : kEdges) {
        if ((edges & edge) != 0) visit(edge);
    }
}

/// Whether some entry differs from the next one.
template <class T, class Argument>
bool IsRepeatFromArray(const CArray<T, Argument>& array) {
    return std::adjacent_find(array.begin(), array.end(), [](const T& a, const T& b) { return a != b; }) != array.end();
}

/// Whether there is an entry for each of the six edges: hidden edges have none.
template <class T, class Argument>
bool holdsAllEdges(const CArray<T, Argument>& array) {
    return array.GetSize() == static_cast<int>(kEdges.size());
}

template <class T, class Argument>
bool allEdgesAgree(const CArray<T, Argument>& array) {
    return holdsAllEdges(array) && !IsRepeatFromArray(array);
}

}  // namespace

using Page = CVqTableCellStyleBorderDlg;

const std::array<Page::BorderButton, 8> Page::kBorderButtons = {{
    {"IDC_CELLSTYLEBORDER_ALLBORDER_BUTTON", "IDB_CELLSTYLE_ALLBORDER_BMP", 2088, &Page::OnAllBorderButton},
    {"IDC_CELLSTYLEBORDER_OUTERBORDER_BUTTON", "IDB_CELLSTYLE_OUTERBORDER_BMP", 2089, &Page::OnOuterBorderButton},
    {"IDC_CELLSTYLEBORDER_INNERBORDER_BUTTON", "IDB_CELLSTYLE_INNERBORDER_BMP", 2090, &Page::OnInnerBorderButton},
    {"IDC_CELLSTYLEBORDER_BOTTOMBORDER_BUTTON", "IDB_CELLSTYLE_BOTTOMBORDER_BMP", 2092, &Page::OnBottomBorderButton},
    {"IDC_CELLSTYLEBORDER_LEFTBORDER_BUTTON", "IDB_CELLSTYLE_LEFTBORDER_BMP", 2126, &Page::OnLeftBorderButton},
    {"IDC_CELLSTYLEBORDER_TOPBORDER_BUTTON", "IDB_CELLSTYLE_TOPBORDER_BMP", 2130, &Page::OnTopBorderButton},
    {"IDC_CELLSTYLEBORDER_RIGHTBORDER_BUTTON", "IDB_CELLSTYLE_RIGHTBORDER_BMP", 2131, &Page::OnRightBorderButton},
    {"IDC_CELLSTYLEBORDER_NOBORDER_BUTTON", "IDB_CELLSTYLE_NOBORDER_BMP", 2091, &Page::OnNoBorderButton},
}};

CVqTableCellStyleBorderDlg::CVqTableCellStyleBorderDlg(CWnd* parent) : CVqTableCellStylePage(parent) {
    buildTree(*this, "IDD_CELLSTYLEBORDER_DIALOG");
}

void CVqTableCellStyleBorderDlg::bindSingals() {
    static constexpr ControlWire<Page> kControls[] = {
        {kSpacingEdit, ControlSignal::KillFocus, &Page::OnKillfocusSpacingEdit},
        {kWeightBox, ControlSignal::SelectionChange, &Page::OnSelLWeightComboBox},
        {kTypeBox, ControlSignal::SelectionChange, &Page::OnSelLTypeComboBox},
        {kTypeBox, ControlSignal::BoxDropDown, &Page::OnDropDownLintypeComboBox},
        {kColorBox, ControlSignal::SelectionChange, &Page::OnSelColorComboBox},
        {kColorBox, ControlSignal::BoxDropDown, &Page::OnDropDownColorComboBox},
        {kDoubleLineButton, ControlSignal::Clicked, &Page::OnDoubleLineButton},
    };
    connectControls(*this, kControls);
    for (const BorderButton& button : kBorderButtons) {
        const ControlWire<Page> wire[] = {{button.control, ControlSignal::Clicked, button.handler}};
        connectControls(*this, wire);
    }
}

void CVqTableCellStyleBorderDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kWeightBox, m_weightBox);
    DDX_Control(exchange, kTypeBox, m_typeBox);
    DDX_Control(exchange, kColorBox, m_colorBox);
    DDX_Control(exchange, kInfoText, m_infoText);
    DDX_Control(exchange, kSpacingEdit, m_spacingEdit);
    DDX_Control(exchange, kDoubleLineButton, m_doubleLineButton);
    for (std::size_t i = 0; i < kBorderButtons.size(); ++i) {
        DDX_Control(exchange, kBorderButtons[i].control, m_buttons[i]);
    }
}

int CVqTableCellStyleBorderDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    initPageWindow();
    LoadButtonBitmap();
    m_typeBox.setDatabase(database());
    if (UpdateFormDatabaseData() == 0) return 0;
    SetButtonToolTip();
    m_infoText.SetWindowTextW(loadText(kInfoTextNumber));
    GetWindowRect(m_windowRect);
    InitUI();
    return 1;
}

void CVqTableCellStyleBorderDlg::LoadButtonBitmap() {
    for (std::size_t i = 0; i < kBorderButtons.size(); ++i) {
        m_buttons[i].setBitmapId(QString::fromLatin1(kBorderButtons[i].bitmap), kBitmapMask);
    }
}

void CVqTableCellStyleBorderDlg::SetButtonToolTip() {
    m_toolTips.Create(this);
    for (std::size_t i = 0; i < kBorderButtons.size(); ++i) {
        m_toolTips.AddTool(&m_buttons[i], loadText(kBorderButtons[i].toolTip));
    }
}

void CVqTableCellStyleBorderDlg::InitUI() {
    setBoxStyle(kColorBox, kColorSamples);
    setBoxStyle(kTypeBox, kLinetypeSamples);
    setBoxStyle(kWeightBox, kWeightSamples);
}

bool CVqTableCellStyleBorderDlg::PreTranslateMessage(MSG* message) {
    if (isLeftToDialog(*message)) return false;
    m_toolTips.RelayEvent(message);
    return CVqTableCellStylePage::PreTranslateMessage(message);
}

int CVqTableCellStyleBorderDlg::UpdateFormDatabaseData() {
    m_lineWeights.RemoveAll();
    m_linetypes.RemoveAll();
    m_colors.RemoveAll();
    if (m_doubleLineButton.GetSafeHwnd() == nullptr) return 0;
    m_doubleLineButton.SetCheck(0);
    m_spacingEdit.EnableWindow(false);
    const KdDbTableStyle* style = styleForRead();
    if (style == nullptr) return 0;
    gatherEdges(*style);
    showWeight();
    showLinetype();
    showColor();
    showSpacing(*style);
    return 1;
}

void CVqTableCellStyleBorderDlg::gatherEdges(const KdDbTableStyle& style) {
    for (const KdDb::GridLineType edge : kEdges) {
        if (style.gridVisibility(edge, cellStyle()) == KdDb::kVisible) {
            m_lineWeights.Add(style.gridLineWeight(edge, cellStyle()));
            m_linetypes.Add(style.gridLinetype(edge, cellStyle()));
            m_colors.Add(style.gridColor(edge, cellStyle()));
            m_spacings.Add(style.gridDoubleLineSpacing(edge, cellStyle()));
        }
        // A double line shows on the button even where its edge is hidden.
        if (style.gridLineStyle(edge, cellStyle()) == KdDb::kGridLineStyleDouble) {
            m_doubleLineButton.SetCheck(1);
            m_spacingEdit.EnableWindow(true);
        }
    }
}

bool CVqTableCellStyleBorderDlg::IsLineWeightUnification() const {
    return allEdgesAgree(m_lineWeights);
}

bool CVqTableCellStyleBorderDlg::IsLineTypeUnification() const {
    return allEdgesAgree(m_linetypes);
}

bool CVqTableCellStyleBorderDlg::IsCmColorUnification() const {
    return allEdgesAgree(m_colors);
}

bool CVqTableCellStyleBorderDlg::IsGridLineStyleUnification() const {
    return allEdgesAgree(m_lineStyles);
}

bool CVqTableCellStyleBorderDlg::IsSpacingUnification() const {
    const auto differ = [](double a, double b) { return std::abs(a - b) > kSameSpacing; };
    return holdsAllEdges(m_spacings) &&
           std::adjacent_find(m_spacings.begin(), m_spacings.end(), differ) == m_spacings.end();
}

void CVqTableCellStyleBorderDlg::showWeight() {
    const int row = IsLineWeightUnification() ? m_weightBox.FindItemByLineWeight(m_lineWeights[0]) : -1;
    m_weightBox.SetCurSel(row >= 0 ? row : kMixedRow);
    m_lineWeight = m_weightBox.GetCurrentItemLineWeight();
}

void CVqTableCellStyleBorderDlg::showLinetype() {
    // The null id is no row's.
    const int row = IsLineTypeUnification() ? m_typeBox.FindItemByLinetype(m_linetypes[0]) : -1;
    m_typeBox.SetCurSel(row >= 0 ? row : kMixedRow);
}

void CVqTableCellStyleBorderDlg::showColor() {
    const int row = IsCmColorUnification() ? m_colorBox.FindItemByColor(m_colors[0]) : -1;
    m_colorBox.SetCurSel(row >= 0 ? row : kMixedRow);
}

void CVqTableCellStyleBorderDlg::showSpacing(const KdDbTableStyle& style) {
    showLength(m_spacingEdit,
               IsSpacingUnification() ? m_spacings[0] : style.gridDoubleLineSpacing(KdDb::kHorzTop, cellStyle()));
}

void CVqTableCellStyleBorderDlg::OnSelLWeightComboBox() {
    if (m_weightBox.GetCurSel() >= 0) m_lineWeight = m_weightBox.GetCurrentItemLineWeight();
}

void CVqTableCellStyleBorderDlg::OnSelColorComboBox() {
    finishColorChoice(m_colorBox);
    if (m_colorBox.GetCurSel() >= 0) m_colorBox.GetCurrentItemColor(m_color);
}

void CVqTableCellStyleBorderDlg::OnDropDownColorComboBox() {
    m_droppedRow = m_colorBox.GetCurSel();
}

void CVqTableCellStyleBorderDlg::OnSelLTypeComboBox() {
    if (m_typeBox.GetCurSel() < 0) return;
    if (selectedText(m_typeBox) == m_typeBox.GetOtherName()) m_typeBox.SelectOther(1);
    m_idLinetype = m_typeBox.GetItemLinetype(m_typeBox.GetCurSel());
}

void CVqTableCellStyleBorderDlg::OnDoubleLineButton() {
    m_nDoubleLine = m_doubleLineButton.GetCheck();
    m_spacingEdit.EnableWindow(m_nDoubleLine != 0);
}

void CVqTableCellStyleBorderDlg::OnKillfocusSpacingEdit() {
    if (database() == nullptr) return;
    double spacing = 0.0;
    // What is refused stays in the edit, and nothing tells so; the focus goes where it wanted to.
    if (!readLength(m_spacingEdit, spacing) || spacing < 0.0) return;
    showLength(m_spacingEdit, spacing);
    m_dSpacing = spacing;
    m_bSpacingSet = 1;
}

void CVqTableCellStyleBorderDlg::SetBorderVisible(int selector) {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    forEachEdge(kSelectors[static_cast<std::size_t>(selector)],
                [&](KdDb::GridLineType edge) { style->setGridVisibility(KdDb::kVisible, edge, cellStyle()); });
    SetVisibleGridLineData(m_nDoubleLine, selector);
    UpdatePreview(0);
}

void CVqTableCellStyleBorderDlg::SetVisibleGridLineData(int doubleLine, int selector) {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    m_colorBox.GetCurrentItemColor(m_color);
    m_idLinetype = m_typeBox.GetItemLinetype(m_typeBox.GetCurSel());
    m_lineWeight = m_weightBox.GetCurrentItemLineWeight();
    const auto lineStyle = doubleLine != 0 ? KdDb::kGridLineStyleDouble : KdDb::kGridLineStyleSingle;
    forEachEdge(kSelectors[static_cast<std::size_t>(selector)], [&](KdDb::GridLineType edge) {
        style->setGridLineStyle(lineStyle, edge, cellStyle());
        style->setGridColor(m_color, edge, cellStyle());
        style->setGridLinetype(m_idLinetype, edge, cellStyle());
        style->setGridLineWeight(m_lineWeight, edge, cellStyle());
        if (m_bSpacingSet == 1) style->setGridDoubleLineSpacing(m_dSpacing, edge, cellStyle());
    });
}

void CVqTableCellStyleBorderDlg::SetInvisibleGridLineData() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    for (const KdDb::GridLineType edge : kEdges) {
        if (style->gridVisibility(edge, cellStyle()) != KdDb::kVisible) continue;
        style->setGridLineStyle(KdDb::kGridLineStyleSingle, edge, cellStyle());
    }
}

void CVqTableCellStyleBorderDlg::SetBorderInvisible() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    for (const KdDb::GridLineType edge : kEdges) {
        const KdDbDatabase* drawing = style->database();
        if (drawing == nullptr) return;
        style->setGridLinetype(drawing->byBlockLinetype(), edge, cellStyle());
        style->setGridVisibility(KdDb::kInvisible, edge, cellStyle());
    }
    UpdatePreview(0);
}
