// What the toolbar shows of a table: which commands are possible, the alignment and the fill of the selected cells.

#include "kd/db/table.h"
#include "kd/ui/widgets.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/toolbar/tableditminiframewnd.h"

namespace {

constexpr unsigned kNoFillText = 2006;

const QString kMerge = QStringLiteral("IDC_TABLEDIT_MERGECELL");
const QString kUnmerge = QStringLiteral("IDC_TABLEDIT_UNMERGECELL");
const QString kTopInsert = QStringLiteral("IDC_TABLEDIT_TOPINSERT");
const QString kBottomInsert = QStringLiteral("IDC_TABLEDIT_BOTTOMINSERT");
const QString kRowDelete = QStringLiteral("IDC_TABLEDIT_ROWDELETE");
const QString kLeftInsert = QStringLiteral("IDC_TABLEDIT_LEFTINSERT");
const QString kRightInsert = QStringLiteral("IDC_TABLEDIT_RIGHTINSERT");
const QString kColumnDelete = QStringLiteral("IDC_TABLEDIT_COLUMNDELETE");
const QString kFormula = QStringLiteral("IDC_TABLEDIT_FORMULA");
const QString kAlignment = QString::fromLatin1(kAlignmentName);

/// Controls that change the format of cells.
const std::array kFormatControls = {
    QStringLiteral("IDC_TABLEDIT_CELLBORDER"), kAlignment,
    QStringLiteral("IDC_TABLEDIT_DATAFORMAT"), QString::fromLatin1(kCellStyleComboName),
    QString::fromLatin1(kColorComboName),
};

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
    const ResourceScope resources;
    followTableStyle(*table);
    if (!table->hasSubSelection()) return;
    SetToolbarState(*table);
    SetAlignmentImage(*table);
    SetBackgroundColorSel(*table);
}

/// The button of locks is never disabled: a lock must be taken off again.
void CVqTableditMiniFrameWnd::SetToolbarState(const KdDbTable& table) {
    setEnabledState(kMerge, CVqTableCommon::CanMergeCells(&table));
    setEnabledState(kUnmerge, CVqTableCommon::CanUnMergeCells(&table));
    SetToolbarInsertAndDeleteState(table);
    bool content = false;
    bool format = false;
    CVqTableCommon::GetReadOnlyState(&table, content, format);
    for (const QString& name : kFormatControls) setEnabledState(name, format);
    setEnabledState(kFormula, content);
    updateToolbar();
}

void CVqTableditMiniFrameWnd::SetToolbarInsertAndDeleteState(const KdDbTable& table) {
    const KdCellRange cells = table.getSubSelection();
    const CKdTableCellRange counted(cells);
    setEnabledState(kTopInsert, table.canInsert(cells.m_topRow, true));
    setEnabledState(kBottomInsert, table.canInsert(cells.m_bottomRow, true));
    setEnabledState(kRowDelete, table.canDelete(cells.m_topRow, counted.numRows(), true));
    setEnabledState(kLeftInsert, table.canInsert(cells.m_leftColumn, false));
    setEnabledState(kRightInsert, table.canInsert(cells.m_rightColumn, false));
    setEnabledState(kColumnDelete, table.canDelete(cells.m_leftColumn, counted.numColumns(), false));
    updateToolbar();
}

/// Both maps are in the order of the names, so that one walk finds each control.
void CVqTableditMiniFrameWnd::updateToolbar() {
    auto control = m_widgetByName.begin();
    for (const auto& [name, enabled] : m_buttonEnabled) {
        while (control != m_widgetByName.end() && control->first < name) ++control;
        if (control == m_widgetByName.end()) return;
        const bool isFor = control->first == name;
        if (isFor && control->second->isEnabled() != (enabled == 1)) control->second->setEnabled(enabled == 1);
    }
}

void CVqTableditMiniFrameWnd::SetAlignmentImage(const KdDbTable& table) {
    KdDb::CellAlignment alignment = m_alignment;
    if (CVqTableCommon::GetCellAlignment(&table, alignment)) m_alignment = alignment;
    const auto place = static_cast<std::size_t>(CVqTableCommon::CellAlignmentToIndex(m_alignment));
    const auto found = m_widgetByName.find(kAlignment);
    if (found == m_widgetByName.end() || m_shownImage == kAlignmentImages[place]) return;
    m_shownImage = kAlignmentImages[place];
    const QPixmap image(
        QStringLiteral(":/TvxTableRes/TvxTableRes/%1%2").arg(QLatin1String(m_shownImage), m_imageEnding));
    static_cast<KdUiPushButton*>(found->second)->setIcon(QIcon(image));
}

void CVqTableditMiniFrameWnd::SetBackgroundColorSel(const KdDbTable& table) {
    KdCmColor color;
    if (!CVqTableCommon::GetBackgroundColor(&table, color)) {
        m_colorCombo.SetCurSel(-1);
        m_colorCombo.SetLastSelection(0);
    } else if (color.isNone()) {
        const int row = m_colorCombo.FindOtherItem(loadText(kNoFillText));
        if (row >= 0) m_colorCombo.SetCurSel(row);
    } else {
        const int row = m_colorCombo.FindItemByColor(color);
        m_colorCombo.SetCurSel(row >= 0 ? row : m_colorCombo.AddColorToMRU(color));
    }
}
