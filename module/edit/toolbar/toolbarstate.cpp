// What the toolbar shows of a table: which commands are possible, the alignment and the fill of the selected cells.

#include "kd/db/table.h"
#include "kd/ui/widgets.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"
#include "module/edit/toolbar/tableditminiframewnd.h"

namespace {

using Control = ToolbarControl;

/// Controls that change the format of cells.
constexpr Control kFormatControls[] = {Control::CellBorder, Control::Alignment, Control::DataFormat, Control::CellStyle,
                                       Control::Color};

/// Images of the alignments from 1.
constexpr const char* kAlignmentImages[] = {
    "TABLEDIT_TOPLEFT",    "TABLEDIT_TOPCENTER",    "TABLEDIT_TOPRIGHT",
    "TABLEDIT_MIDDLELEFT", "TABLEDIT_MIDDLECENTER", "TABLEDIT_MIDDLERIGHT",
    "TABLEDIT_BOTTOMLEFT", "TABLEDIT_BOTTOMCENTER", "TABLEDIT_BOTTOMRIGHT",
};

}  // namespace

void CVqTableditMiniFrameWnd::UpdateToolBar() {
    const OpenObject<KdDbTable> table(m_tableId, KdDb::kForRead);
    if (!table) return;
    followTableStyle(*table);
    if (!table->hasSubSelection()) return;
    SetToolbarState(*table);
    SetAlignmentImage(*table);
    SetBackgroundColorSel(*table);
}

/// The button of locks is never disabled: a lock must be taken off again.
void CVqTableditMiniFrameWnd::SetToolbarState(const KdDbTable& table) {
    setEnabledState(Control::MergeCell, CVqTableCommon::CanMergeCells(&table));
    setEnabledState(Control::UnmergeCell, CVqTableCommon::CanUnMergeCells(&table));
    SetToolbarInsertAndDeleteState(table);
    bool content = false;
    bool format = false;
    CVqTableCommon::GetReadOnlyState(&table, content, format);
    for (const Control control : kFormatControls) setEnabledState(control, format);
    setEnabledState(Control::Formula, content);
    updateToolbar();
}

void CVqTableditMiniFrameWnd::SetToolbarInsertAndDeleteState(const KdDbTable& table) {
    const KdCellRange cells = table.getSubSelection();
    const CKdTableCellRange counted(cells);
    setEnabledState(Control::TopInsert, table.canInsert(cells.m_topRow, true));
    setEnabledState(Control::BottomInsert, table.canInsert(cells.m_bottomRow, true));
    setEnabledState(Control::RowDelete, table.canDelete(cells.m_topRow, counted.numRows(), true));
    setEnabledState(Control::LeftInsert, table.canInsert(cells.m_leftColumn, false));
    setEnabledState(Control::RightInsert, table.canInsert(cells.m_rightColumn, false));
    setEnabledState(Control::ColumnDelete, table.canDelete(cells.m_leftColumn, counted.numColumns(), false));
    updateToolbar();
}

void CVqTableditMiniFrameWnd::setEnabledState(ToolbarControl which, bool enabled) {
    if (int* entry = switchOf(which).enabled) *entry = enabled ? 1 : 0;
}

void CVqTableditMiniFrameWnd::updateToolbar() {
    for (const auto& [widget, enabled] : m_switches) {
        if (widget != nullptr && widget->isEnabled() != (*enabled == 1)) widget->setEnabled(*enabled == 1);
    }
}

void CVqTableditMiniFrameWnd::SetAlignmentImage(const KdDbTable& table) {
    KdDb::CellAlignment alignment = m_alignment;
    if (CVqTableCommon::GetCellAlignment(&table, alignment)) m_alignment = alignment;
    const char* wanted = kAlignmentImages[CVqTableCommon::CellAlignmentToIndex(m_alignment)];
    QWidget* button = switchOf(Control::Alignment).widget;
    if (button == nullptr || m_shownImage == wanted) return;
    m_shownImage = wanted;
    const QPixmap image(QStringLiteral(":/TvxTableRes/TvxTableRes/%1%2").arg(QLatin1String(wanted), m_imageEnding));
    static_cast<KdUiPushButton*>(button)->setIcon(QIcon(image));
}

bool CVqTableditMiniFrameWnd::showsColor(const KdCmColor& color) const {
    KdCmColor shown;
    const int row = m_colorCombo.GetCurSel();
    return row >= 0 && row == m_colorCombo.GetLastSelection() && m_colorCombo.GetCurrentItemColor(shown) &&
           shown == color;
}

void CVqTableditMiniFrameWnd::SetBackgroundColorSel(const KdDbTable& table) {
    KdCmColor color;
    if (!CVqTableCommon::GetBackgroundColor(&table, color)) {
        m_colorCombo.SetCurSel(-1);
        m_colorCombo.SetLastSelection(0);
    } else if (showsColor(color)) {
        return;
    } else if (color.isNone()) {
        const int row = m_colorCombo.FindOtherItem(m_noFillText);
        if (row >= 0) m_colorCombo.SetCurSel(row);
    } else {
        const int row = m_colorCombo.FindItemByColor(color);
        m_colorCombo.SetCurSel(row >= 0 ? row : m_colorCombo.AddColorToMRU(color));
    }
}
