// The border page: what it shows, what is picked, and what the buttons give to the edges.

#include "module/style/cellstyleborderdlg.h"

#include "kd/db/database.h"
#include "kd/db/tablestyle.h"
#include "module/controls/comboboxes.h"
#include "module/controls/wiring.h"
#include "module/core/resources.h"

namespace {

constexpr const char* kWeightBox = "IDC_CELLSTYLEBORDER_LWEIGHT_COMBOBOX";
constexpr const char* kTypeBox = "IDC_CELLSTYLEBORDER_LTYPE_COMBOBOX";
constexpr const char* kColorBox = "IDC_CELLSTYLEBORDER_COLOR_COMBOBOX";
constexpr const char* kInfoText = "IDC_CELLSTYLEBORDER_BORDERINFO_STATIC";
constexpr const char* kSpacingEdit = "IDC_CELLSTYLEBORDER_SPACING_EDIT";
constexpr const char* kDoubleLineButton = "IDC_CELLSTYLEBORDER_DOUBLELINE_BUTTON";

constexpr unsigned kInfoTextNumber = 2124;

/// The edges of each selector. Bottom, left, top and right take the inside line of their direction along.
constexpr std::array kSelectors = {
    kAllEdges,
    KdDb::kHorzTop | KdDb::kHorzBottom | KdDb::kVertLeft | KdDb::kVertRight,
    KdDb::kHorzInside | KdDb::kVertInside,
    KdDb::kHorzInside | KdDb::kHorzBottom,
    KdDb::kVertLeft | KdDb::kVertInside,
    KdDb::kHorzTop | KdDb::kHorzInside,
    KdDb::kVertInside | KdDb::kVertRight,
};

}  // namespace

using Page = CVqTableCellStyleBorderDlg;

const std::array<PictureButton<Page>, 8> Page::kBorderButtons = {{
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
    m_buttons.connect(*this);
}

void CVqTableCellStyleBorderDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kWeightBox, m_boxes.weight);
    DDX_Control(exchange, kTypeBox, m_boxes.type);
    DDX_Control(exchange, kColorBox, m_boxes.color);
    DDX_Control(exchange, kInfoText, m_infoText);
    DDX_Control(exchange, kSpacingEdit, m_spacingEdit);
    DDX_Control(exchange, kDoubleLineButton, m_doubleLineButton);
    m_buttons.exchange(exchange);
}

int CVqTableCellStyleBorderDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    initPageWindow();
    LoadButtonBitmap();
    m_boxes.type.setDatabase(database());
    if (UpdateFormDatabaseData() == 0) return 0;
    SetButtonToolTip();
    m_infoText.SetWindowTextW(loadText(kInfoTextNumber));
    GetWindowRect(m_windowRect);
    InitUI();
    return 1;
}

void CVqTableCellStyleBorderDlg::LoadButtonBitmap() {
    m_buttons.loadBitmaps();
}

void CVqTableCellStyleBorderDlg::SetButtonToolTip() {
    m_buttons.addToolTips(*this);
}

void CVqTableCellStyleBorderDlg::InitUI() {
    m_boxes.showSamples();
}

bool CVqTableCellStyleBorderDlg::PreTranslateMessage(MSG* message) {
    if (isLeftToDialog(*message)) return false;
    m_buttons.relay(message);
    return CVqTableCellStylePage::PreTranslateMessage(message);
}

int CVqTableCellStyleBorderDlg::UpdateFormDatabaseData() {
    m_looks.emptyLines();
    if (m_doubleLineButton.GetSafeHwnd() == nullptr) return 0;
    m_doubleLineButton.SetCheck(0);
    m_spacingEdit.EnableWindow(false);
    const KdDbTableStyle* style = styleForRead();
    if (style == nullptr) return 0;
    gatherEdges(*style);
    m_boxes.show(m_looks);
    m_lineWeight = m_boxes.weight.GetCurrentItemLineWeight();
    showSpacing(*style);
    return 1;
}

void CVqTableCellStyleBorderDlg::gatherEdges(const KdDbTableStyle& style) {
    for (const KdDb::GridLineType edge : kGridEdges) {
        if (style.gridVisibility(edge, cellStyle()) == KdDb::kVisible) {
            m_looks.lineWeights.Add(style.gridLineWeight(edge, cellStyle()));
            m_looks.linetypes.Add(style.gridLinetype(edge, cellStyle()));
            m_looks.colors.Add(style.gridColor(edge, cellStyle()));
            m_looks.spacings.Add(style.gridDoubleLineSpacing(edge, cellStyle()));
        }
        // A double line shows on the button even where its edge is hidden.
        if (style.gridLineStyle(edge, cellStyle()) == KdDb::kGridLineStyleDouble) {
            m_doubleLineButton.SetCheck(1);
            m_spacingEdit.EnableWindow(true);
        }
    }
}

void CVqTableCellStyleBorderDlg::showSpacing(const KdDbTableStyle& style) {
    showLength(m_spacingEdit, m_looks.IsSpacingUnification()
                                  ? m_looks.spacings[0]
                                  : style.gridDoubleLineSpacing(KdDb::kHorzTop, cellStyle()));
}

void CVqTableCellStyleBorderDlg::OnSelLWeightComboBox() {
    if (m_boxes.weight.GetCurSel() >= 0) m_lineWeight = m_boxes.weight.GetCurrentItemLineWeight();
}

void CVqTableCellStyleBorderDlg::OnSelColorComboBox() {
    finishColorChoice(m_boxes.color);
    if (m_boxes.color.GetCurSel() >= 0) m_boxes.color.GetCurrentItemColor(m_color);
}

void CVqTableCellStyleBorderDlg::OnDropDownColorComboBox() {
    m_droppedRow = m_boxes.color.GetCurSel();
}

void CVqTableCellStyleBorderDlg::OnSelLTypeComboBox() {
    if (m_boxes.type.GetCurSel() < 0) return;
    m_idLinetype = m_boxes.chosenLinetype();
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
    m_boxes.color.GetCurrentItemColor(m_color);
    m_idLinetype = m_boxes.type.GetItemLinetype(m_boxes.type.GetCurSel());
    m_lineWeight = m_boxes.weight.GetCurrentItemLineWeight();
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
    for (const KdDb::GridLineType edge : kGridEdges) {
        if (style->gridVisibility(edge, cellStyle()) != KdDb::kVisible) continue;
        style->setGridLineStyle(KdDb::kGridLineStyleSingle, edge, cellStyle());
    }
}

void CVqTableCellStyleBorderDlg::SetBorderInvisible() {
    KdDbTableStyle* style = styleForWrite();
    if (style == nullptr) return;
    for (const KdDb::GridLineType edge : kGridEdges) {
        const KdDbDatabase* drawing = style->database();
        if (drawing == nullptr) return;
        style->setGridLinetype(drawing->byBlockLinetype(), edge, cellStyle());
        style->setGridVisibility(KdDb::kInvisible, edge, cellStyle());
    }
    UpdatePreview(0);
}
