// The dialog of cell borders: what it shows, what is picked, and what the buttons give to the lines of the cells.

#include "module/edit/cellborderpropdlg.h"

#include "kd/db/table.h"
#include "module/controls/lengthedit.h"
#include "module/core/cellwalk.h"
#include "module/core/openobject.h"
#include "module/preview/tablecellfromtable.h"
#include "module/style/lineweightsshown.h"
#include "win32/widenumbers.h"

namespace {

constexpr const char* kWeightBox = "IDC_CELLBORDERPROP_LWEIGHT_COMBOBOX";
constexpr const char* kTypeBox = "IDC_CELLBORDERPROP_LTYPE_COMBOBOX";
constexpr const char* kColorBox = "IDC_CELLBORDERPROP_COLOR_COMBOBOX";
constexpr const char* kDoubleLineButton = "IDC_CELLBORDERPROP_DOUBLELINE_BUTTON";
constexpr const char* kSpacingEdit = "IDC_CELLBORDERPROP_SPACING_EDIT";
constexpr const char* kPreview = "IDC_CELLBORDERPROP_PREVIEW_STATIC";

enum SelectionStatus : int { kNoTable, kOneCell, kNoMerges, kOneUnmergedCell, kOtherCells };

constexpr int kOutside = KdDb::kHorzTop | KdDb::kHorzBottom | KdDb::kVertLeft | KdDb::kVertRight;
constexpr int kInside = KdDb::kHorzInside | KdDb::kVertInside;

/// Calls `visit(row, column, edge)` for each of those lines of each cell, row by row.
template <class Visit>
void forEachLine(const KdDbTable& table, const KdCellRange& cells, int edges, Visit visit) {
    cellwalk::anyCell(table, cells, [&](int row, int column) {
        forEachEdge(edges, [&](KdDb::GridLineType edge) { visit(row, column, edge); });
        return false;
    });
}

}  // namespace

using Dialog = CVqTableCellBorderPropDlg;

const std::array<PictureButton<Dialog>, 10> Dialog::kBorderButtons = {{
    {"IDC_CELLBORDERPROP_ALLBORDER_BUTTON", "IDB_CELLSTYLE_ALLBORDER_BMP", 2088, &Dialog::OnAllBorderButton},
    {"IDC_CELLBORDERPROP_OUTERBORDER_BUTTON", "IDB_CELLSTYLE_OUTERBORDER_BMP", 2089, &Dialog::OnOuterBorderButton},
    {"IDC_CELLBORDERPROP_INNERBORDER_BUTTON", "IDB_CELLSTYLE_INNERBORDER_BMP", 2090, &Dialog::OnInnerBorderButton},
    {"IDC_CELLBORDERPROP_ONLYBOTTOMBORDER_BUTTON", "IDB_CELLSTYLE_ONLYBOTTOMBORDER_BMP", 2092,
     &Dialog::OnOnlyBottomBorderButton},
    {"IDC_CELLBORDERPROP_ONLYLEFTBORDER_BUTTON", "IDB_CELLSTYLE_ONLYLEFTBORDER_BMP", 2126,
     &Dialog::OnOnlyLeftBorderButton},
    {"IDC_CELLBORDERPROP_ONLYTOPBORDER_BUTTON", "IDB_CELLSTYLE_ONLYTOPBORDER_BMP", 2130,
     &Dialog::OnOnlyTopBorderButton},
    {"IDC_CELLBORDERPROP_ONLYRIGHTBORDER_BUTTON", "IDB_CELLSTYLE_ONLYRIGHTBORDER_BMP", 2131,
     &Dialog::OnOnlyRightBorderButton},
    {"IDC_CELLBORDERPROP_HORZINSIDEBORDER_BUTTON", "IDB_CELLSTYLE_HORZINSIDEBORDER_BMP", 2276,
     &Dialog::OnHorzinSideBorderButton},
    {"IDC_CELLBORDERPROP_VERTINSIDEBORDER_BUTTON", "IDB_CELLSTYLE_VERTINSIDEBORDER_BMP", 2277,
     &Dialog::OnVertinSideBorderButton},
    {"IDC_CELLBORDERPROP_NOBORDER_BUTTON", "IDB_CELLSTYLE_NOBORDER_BMP", 2091, &Dialog::OnNoBorderButton},
}};

/// The two columns differ on purpose: the line inside the cells goes with the chosen side next to it, and the two
/// buttons of inside lines paint nothing.
const std::array<Dialog::ModeLines, 9> Dialog::kModes = {{
    {kAllEdges, kAllEdges},
    {kOutside, kOutside},
    {kInside, kInside},
    {KdDb::kHorzBottom, KdDb::kHorzInside | KdDb::kHorzBottom},
    {KdDb::kVertLeft, KdDb::kVertLeft | KdDb::kVertInside},
    {KdDb::kHorzTop, KdDb::kHorzTop | KdDb::kHorzInside},
    {KdDb::kVertRight, KdDb::kVertInside | KdDb::kVertRight},
    {KdDb::kHorzInside, 0},
    {KdDb::kVertInside, 0},
}};

CVqTableCellBorderPropDlg::CVqTableCellBorderPropDlg(CWnd* parent) : KdUiBaseDialog(parent) {
    buildTree(*this, "IDD_CELLBORDERPROP_DIALOG");
}

CVqTableCellBorderPropDlg::~CVqTableCellBorderPropDlg() {
    // It goes before the sample that it shows.
    m_preview.uninitPreviewer();
}

void CVqTableCellBorderPropDlg::bindSingals() {
    static constexpr ControlWire<Dialog> kControls[] = {
        {kDoubleLineButton, ControlSignal::Clicked, &Dialog::OnDoublelineButton},
        {kColorBox, ControlSignal::SelectionChange, &Dialog::OnSelchangeColorComboBox},
        {kColorBox, ControlSignal::BoxDropDown, &Dialog::OnDropDownColorComboBox},
        {kTypeBox, ControlSignal::SelectionChange, &Dialog::OnSelchangeLineTypeComBobox},
        {kTypeBox, ControlSignal::BoxDropDown, &Dialog::OnDropDownLintypeComboBox},
        {kWeightBox, ControlSignal::SelectionChange, &Dialog::OnSelchangeLineWeightComboBox},
        {kSpacingEdit, ControlSignal::KillFocus, &Dialog::OnKillfocusSpacingEdit},
    };
    m_buttons.connect(*this);
    connectControls(*this, kControls);
}

void CVqTableCellBorderPropDlg::DoDataExchange(CDataExchange* exchange) {
    KdUiBaseDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kWeightBox, m_boxes.weight);
    DDX_Control(exchange, kTypeBox, m_boxes.type);
    DDX_Control(exchange, kColorBox, m_boxes.color);
    m_buttons.exchange(exchange);
    DDX_Control(exchange, kPreview, m_preview);
    DDX_Control(exchange, kDoubleLineButton, m_doubleLineButton);
    DDX_Control(exchange, kSpacingEdit, m_spacingEdit);
}

int CVqTableCellBorderPropDlg::OnInitDialog() {
    KdUiBaseDialog::OnInitDialog();
    m_boxes.type.setDatabase(database());
    m_boxes.showSamples();
    setWindowIcon();
    LoadButtonBitmap();
    UpdateFormDatabaseData();
    SetButtonToolTip();
    initializeCellPreviewer();
    ShowCellPreview();
    InitCtrlsStatus();
    return 1;
}

void CVqTableCellBorderPropDlg::OnOK() {
    KdUiBaseDialog::OnOK();
}

bool CVqTableCellBorderPropDlg::PreTranslateMessage(MSG* message) {
    m_buttons.relay(message);
    return KdUiBaseDialog::PreTranslateMessage(message);
}

void CVqTableCellBorderPropDlg::LoadButtonBitmap() {
    m_buttons.loadBitmaps();
}

void CVqTableCellBorderPropDlg::SetButtonToolTip() {
    m_buttons.addToolTips(*this);
}

KdDbDatabase* CVqTableCellBorderPropDlg::database() const {
    const OpenObject<KdDbTable> table(m_tableId, KdDb::kForRead);
    return table ? table->database() : nullptr;
}

bool CVqTableCellBorderPropDlg::UpdateFormDatabaseData() {
    m_looks.emptyLines();
    const OpenObject<KdDbTable> table(m_tableId, KdDb::kForRead);
    if (!table) return false;
    m_selection = table->getSubSelection();
    gatherEdges(*table);
    m_boxes.show(m_looks);
    m_lineWeight = m_boxes.weight.GetCurrentItemLineWeight();
    showDoubleLine();
    const bool agrees = m_looks.IsSpacingUnification();
    SetSpacingValue(agrees
                        ? m_looks.spacings[0]
                        : table->gridDoubleLineSpacing(m_selection.m_topRow, m_selection.m_leftColumn, KdDb::kHorzTop));
    return true;
}

void CVqTableCellBorderPropDlg::gatherEdges(const KdDbTable& table) {
    forEachLine(table, m_selection, kAllEdges, [&](int row, int column, KdDb::GridLineType edge) {
        if (table.gridVisibility(row, column, edge) != KdDb::kVisible) return;
        m_looks.lineWeights.Add(table.gridLineWeight(row, column, edge));
        m_looks.linetypes.Add(table.gridLinetype(row, column, edge));
        m_looks.colors.Add(table.gridColor(row, column, edge));
        const KdDb::GridLineStyle style = table.gridLineStyle(row, column, edge);
        m_looks.lineStyles.Add(style);
        if (style == KdDb::kGridLineStyleDouble) {
            m_looks.spacings.Add(table.gridDoubleLineSpacing(row, column, edge));
        }
    });
}

void CVqTableCellBorderPropDlg::showDoubleLine() {
    const bool isDouble = m_looks.IsGridLineStyleUnification() && m_looks.lineStyles[0] == KdDb::kGridLineStyleDouble;
    m_doubleLine = isDouble ? 1 : 0;
    m_doubleLineButton.SetCheck(m_doubleLine);
    m_spacingEdit.EnableWindow(isDouble);
}

void CVqTableCellBorderPropDlg::SetSpacingValue(double value) {
    showLength(database(), m_spacingEdit, value);
}

double CVqTableCellBorderPropDlg::GetSpacingValue(const CStdStr<wchar_t>& text) {
    return _wtof(text);
}

int CVqTableCellBorderPropDlg::GetCellSeledStatus() const {
    const OpenObject<KdDbTable> table(m_tableId, KdDb::kForRead);
    if (!table) return kNoTable;
    if (cellwalk::isOneCell(m_selection)) return kOneCell;
    const long long rows = static_cast<long long>(m_selection.m_bottomRow) - m_selection.m_topRow + 1;
    const long long columns = static_cast<long long>(m_selection.m_rightColumn) - m_selection.m_leftColumn + 1;
    long long unmerged = 0;
    cellwalk::anyCell(*table, m_selection, [&](int row, int column) {
        unmerged += table->isMergedCell(row, column) ? 0 : 1;
        return false;
    });
    if (unmerged == rows * columns) return kNoMerges;
    return unmerged == 1 ? kOneUnmergedCell : kOtherCells;
}

void CVqTableCellBorderPropDlg::InitCtrlsStatus() {
    m_selectionStatus = GetCellSeledStatus();
    if (m_selectionStatus != kOneCell) return;
    // The buttons that have nothing to do on one cell.
    constexpr std::pair<Mode, const char*> kDisabled[] = {
        {Inside, "IDB_CELLSTYLE_INNERBORDER_DISABLE_BMP"},
        {HorizontalInside, "IDB_CELLSTYLE_HORZINSIDEBORDER_DISABLE_BMP"},
        {VerticalInside, "IDB_CELLSTYLE_VERTINSIDEBORDER_DISABLE_BMP"},
    };
    for (const auto& [mode, bitmap] : kDisabled) {
        m_buttons[mode].EnableWindow(false);
        m_buttons[mode].setBitmapId(QString::fromLatin1(bitmap), kBitmapMask);
    }
}

void CVqTableCellBorderPropDlg::SetBorderVisible(Mode mode) {
    {
        const OpenObject<KdDbTable> table(m_tableId, KdDb::kForWrite);
        if (!table) return;
        forEachLine(*table, m_selection, linesOf(mode).shown, [&](int row, int column, KdDb::GridLineType edge) {
            table->setGridVisibility(row, column, edge, KdDb::kVisible);
        });
    }
    SetVisibleGridLineData(m_doubleLine, mode);
    ShowCellPreview();
}

void CVqTableCellBorderPropDlg::SetVisibleGridLineData(int doubleLine, Mode mode) {
    const OpenObject<KdDbTable> table(m_tableId, KdDb::kForWrite);
    const int painted = linesOf(mode).painted;
    if (!table || painted == 0) return;
    pickFromBoxes();
    forEachLine(*table, m_selection, painted, [&](int row, int column, KdDb::GridLineType edge) {
        paintLine(*table, row, column, edge, doubleLine);
    });
}

void CVqTableCellBorderPropDlg::pickFromBoxes() {
    m_boxes.color.GetCurrentItemColor(m_color);
    const KdDbObjectId linetype = m_boxes.type.GetItemLinetype(m_boxes.type.GetCurSel());
    if (!linetype.isNull()) m_lineTypeId = linetype;
    m_lineWeight = m_boxes.weight.GetCurrentItemLineWeight();
}

void CVqTableCellBorderPropDlg::paintLine(KdDbTable& table, int row, int column, KdDb::GridLineType edge,
                                          int doubleLine) const {
    table.setGridLineStyle(row, column, edge,
                           doubleLine != 0 ? KdDb::kGridLineStyleDouble : KdDb::kGridLineStyleSingle);
    table.setGridColor(row, column, edge, m_color);
    table.setGridLinetype(row, column, edge, m_lineTypeId);
    table.setGridLineWeight(row, column, edge, m_lineWeight);
    if (m_spacingChanged) table.setGridDoubleLineSpacing(row, column, edge, m_spacing);
}

void CVqTableCellBorderPropDlg::SetBorderInvisible() {
    {
        const OpenObject<KdDbTable> table(m_tableId, KdDb::kForWrite);
        if (!table) return;
        forEachLine(*table, m_selection, kAllEdges, [&](int row, int column, KdDb::GridLineType edge) {
            table->setGridVisibility(row, column, edge, KdDb::kInvisible);
        });
    }
    ShowCellPreview();
}

void CVqTableCellBorderPropDlg::SetInvisibleGridLineData() {
    const OpenObject<KdDbTable> table(m_tableId, KdDb::kForWrite);
    if (!table) return;
    forEachLine(*table, m_selection, kAllEdges, [&](int row, int column, KdDb::GridLineType edge) {
        if (table->gridVisibility(row, column, edge) != KdDb::kVisible) return;
        table->setGridLineStyle(row, column, edge, KdDb::kGridLineStyleSingle);
    });
}

void CVqTableCellBorderPropDlg::ShowCellPreview() {
    const LineWeightsShown scope;
    // A preview that couldn't be made when the dialog opened isn't made later.
    if (m_preview.isNeedInitialize()) return;
    m_preview.uninitPreviewer();
    m_previewCell.reset();
    initializeCellPreviewer();
    m_preview.invalidate(true);
    m_preview.update();
}

bool CVqTableCellBorderPropDlg::initializeCellPreviewer() {
    if (!m_preview.isNeedInitialize()) return true;
    if (!CreatePreviewCell(m_tableId)) return false;
    m_preview.initialPreviewer(m_preview.GetSafeHwnd(), m_previewCell->GetDatabase(), {m_previewCell->GetTableCell()});
    return true;
}

bool CVqTableCellBorderPropDlg::CreatePreviewCell(KdDbObjectId id) {
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    if (!table) return false;
    CVqTableCellRange cells;
    if (table->getSubSelection(cells.m_topRow, cells.m_bottomRow, cells.m_leftColumn, cells.m_rightColumn) !=
        Kdad::eOk) {
        return false;
    }
    m_previewCell = std::make_unique<CVqTableCellFromTable>(table.get(), cells);
    m_previewCell->CreateTableCell();
    if (m_previewCell->GetTableCell() != nullptr) return true;
    m_previewCell.reset();
    return false;
}

void CVqTableCellBorderPropDlg::OnDoublelineButton() {
    m_doubleLine = m_doubleLineButton.GetCheck();
    m_spacingEdit.EnableWindow(m_doubleLine != 0);
}

void CVqTableCellBorderPropDlg::OnSelchangeColorComboBox() {
    if (m_boxes.color.GetCurSel() >= 0) m_boxes.color.GetCurrentItemColor(m_color);
}

void CVqTableCellBorderPropDlg::OnSelchangeLineWeightComboBox() {
    if (m_boxes.weight.GetCurSel() >= 0) m_lineWeight = m_boxes.weight.GetCurrentItemLineWeight();
}

void CVqTableCellBorderPropDlg::OnSelchangeLineTypeComBobox() {
    if (m_boxes.type.GetCurSel() >= 0) m_lineTypeId = m_boxes.chosenLinetype();
}

void CVqTableCellBorderPropDlg::OnDropDownColorComboBox() {
    m_colorIndexAtDrop = m_boxes.color.GetCurSel();
}

void CVqTableCellBorderPropDlg::OnDropDownLintypeComboBox() {
    m_lineTypeIndexAtDrop = m_boxes.type.GetCurSel();
}

void CVqTableCellBorderPropDlg::OnKillfocusSpacingEdit() {
    double spacing = 0.0;
    if (!readLength(database(), m_spacingEdit, spacing) || spacing < 0.0) {
        takeFocusBack(*this, m_spacingEdit);
        return;
    }
    SetSpacingValue(spacing);
    m_spacing = spacing;
    m_spacingChanged = true;
}
