// The sample of a cell style, laid out.

#include "module/preview/tablecellfromtablestyle.h"

#include <utility>

#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/solid.h"
#include "kd/db/symboltable.h"
#include "kd/db/tablestyle.h"
#include "module/core/tablecommon.h"
#include "module/preview/samplelines.h"
#include "module/preview/textplace.h"

namespace {

/// Edges as the cell style has them; each cell of the sample has the same.
class StyleEdges final : public SampleEdges {
public:
    StyleEdges(const KdDbTableStyle& style, const wchar_t* cellStyle) : m_style(style), m_cellStyle(cellStyle) {}

    KdDb::Visibility visibility(KdDb::GridLineType edge) const override {
        return m_style.gridVisibility(edge, m_cellStyle);
    }
    KdDb::GridLineStyle style(KdDb::GridLineType edge) const override {
        return m_style.gridLineStyle(edge, m_cellStyle);
    }
    KdDbObjectId linetype(KdDb::GridLineType edge) const override { return m_style.gridLinetype(edge, m_cellStyle); }
    KdDb::LineWeight lineWeight(KdDb::GridLineType edge) const override {
        return m_style.gridLineWeight(edge, m_cellStyle);
    }
    KdCmColor color(KdDb::GridLineType edge) const override { return m_style.gridColor(edge, m_cellStyle); }
    double spacing(int /*row*/, int /*column*/, KdDb::GridLineType edge) const override {
        return m_style.gridDoubleLineSpacing(edge, m_cellStyle);
    }

private:
    const KdDbTableStyle& m_style;
    const wchar_t* m_cellStyle;
};

/// Whether the sample's inner lines take the properties of the inside edges. With both kinds of them visible that is
/// so where an outer edge is hidden, and otherwise where none is.
bool takesInsideEdges(const SampleEdges& edges) {
    const bool hidesOuterEdge = !edges.isVisible(KdDb::kHorzTop) || !edges.isVisible(KdDb::kHorzBottom) ||
                                !edges.isVisible(KdDb::kVertLeft) || !edges.isVisible(KdDb::kVertRight);
    const bool showsInside = edges.isVisible(KdDb::kHorzInside) && edges.isVisible(KdDb::kVertInside);
    return showsInside ? hidesOuterEdge : !hidesOuterEdge;
}

/// The edge whose looks a line between two cells takes: the two outer edges that fall together there, the far one
/// first, unless inner lines have looks of their own.
KdDb::GridLineType innerLooks(const SampleEdges& edges, bool insideLines, KdDb::GridLineType inside,
                              KdDb::GridLineType near, KdDb::GridLineType far) {
    if (insideLines) return inside;
    return edges.isVisible(far) ? far : near;
}

KdString displayName(const KdString& cellStyle) {
    CStdStr<wchar_t> name(cellStyle.kwszPtr());
    CVqTableCommon::DefaultCellStyleReverseConvert(name);
    return {name.c_str()};
}

/// Makes `size` reach what any of the cells along it needs. True when that changed it.
template <class Needs>
bool grow(double& size, unsigned cells, const Needs& needs) {
    bool changed = false;
    for (unsigned cell = 0; cell < cells; ++cell) {
        const double missing = needs(cell) - size;
        if (!(missing > 0.0)) continue;
        size += missing;
        changed = true;
    }
    if (!(size < 0.0)) return changed;
    size = 0.0;
    return true;
}

}  // namespace

CVqTableCellFromTableStyle::CVqTableCellFromTableStyle(KdDbTableStyle* style, KdString cellStyle, bool singleColumn) {
    if (style == nullptr) return;
    m_database = std::make_unique<KdDbDatabase>(true, false);
    m_style = style;
    m_cellStyle = std::move(cellStyle);
    m_singleColumn = singleColumn;
    if (m_singleColumn) m_columns = 1;
    const wchar_t* name = m_cellStyle.kwszPtr();
    const double textHeight = m_style->textHeight(name);
    m_grid.rowHeight =
        2.0 * CVqTableCommon::GetVertCellMarginFromTableStyle(m_style, name) + (textHeight / 3.0 + textHeight);
    m_grid.columnWidth = 5.0 * m_grid.rowHeight;
}

CVqTableCellFromTableStyle::~CVqTableCellFromTableStyle() {
    m_database.reset();  // before the reference into it
}

bool CVqTableCellFromTableStyle::CreateTableCell() {
    if (m_style == nullptr) return false;
    m_reference = startSample(*m_database, m_style->flowDirection(), m_grid);
    RecomputeTableBlock();
    return true;
}

bool CVqTableCellFromTableStyle::RecomputeTableBlock() {
    if (m_reference == nullptr) return false;
    const SampleBlock block = addSampleBlock(*m_database);
    if (block == nullptr) return false;
    VqTableCellCalcCaches caches = calcCells();
    if (adjustRowColumnSize(caches)) caches = calcCells();

    const StyleEdges edges(*m_style, m_cellStyle.kwszPtr());
    SampleLines lines(edges, m_grid);
    KdGePoint3d rowOrigin;
    for (unsigned row = 0; row < m_rows; ++row, rowOrigin += m_grid.rowStep()) {
        addRowContent(rowOrigin, caches[row], *block);
        KdGePoint3d cellOrigin = rowOrigin;
        for (unsigned column = 0; column < m_columns; ++column, cellOrigin += m_grid.columnStep()) {
            makeCell(cellOrigin, static_cast<int>(row), static_cast<int>(column), lines);
        }
    }
    lines.appendTo(*block);
    placeSample(*m_reference, *block, *m_database);
    return true;
}

bool CVqTableCellFromTableStyle::mergesAll() const {
    return m_style->isMergeAllEnabled(m_cellStyle.kwszPtr());
}

/// Where a row is merged, its one text is measured over all columns, and the other cells hold nothing.
VqTableCellCalcCaches CVqTableCellFromTableStyle::calcCells() const {
    const bool merged = mergesAll();
    const double width = merged ? m_grid.columnWidth * m_columns : m_grid.columnWidth;
    VqTableCellCalcCaches caches(m_rows);
    for (std::vector<VqTableCellCalcCache>& row : caches) {
        row.resize(m_columns);
        for (unsigned column = 0; column < (merged ? 1 : m_columns); ++column) {
            calcTextCell(width, m_grid.rowHeight, row[column]);
        }
    }
    return caches;
}

void CVqTableCellFromTableStyle::calcTextCell(double width, double height, VqTableCellCalcCache& cache) const {
    const wchar_t* name = m_cellStyle.kwszPtr();
    SampleText text;
    text.rotation = m_style->rotation(name);
    text.flowDirection = m_style->flowDirection();
    CellSizes& sizes = text.sizes;
    sizes.cellWidth = width;
    sizes.cellHeight = height;
    sizes.horzMargin = CVqTableCommon::GetHorzCellMarginFromTableStyle(m_style, name);
    sizes.vertMargin = CVqTableCommon::GetVertCellMarginFromTableStyle(m_style, name);
    sizes.capital = m_style->textHeight(name);
    // A slanted text is wrapped as one without rotation.
    const std::optional<unsigned> turns = quarterTurns(text.rotation);
    const bool isVertical = turns.value_or(0) % 2 == 1;

    cache.entity = std::make_unique<KdDbMText>();
    KdDbMText& entity = *cache.entity;
    entity.setDatabaseDefaults(m_database.get());
    entity.setTextStyle(m_style->textStyle(name));
    entity.setTextHeight(sizes.capital);
    entity.setColor(m_style->color(name));
    kddbSetMtextRotation(&entity, text.rotation);
    entity.setAttachment(static_cast<KdDbMText::AttachmentPoint>(m_style->alignment(name)));
    entity.setFlowDirection(KdDbMText::kByStyle);
    entity.setWidth(isVertical ? height - 2.0 * sizes.vertMargin : width - 2.0 * sizes.horzMargin);
    entity.setContents(displayName(m_cellStyle).kwszPtr());

    text.attachment = entity.attachment();
    sizes.textHeight = entity.actualHeight();
    sizes.textWidth = entity.actualWidth();
    const TextFit fit = turns ? fitOfUprightText(text, *turns) : fitOfSlantedText(text);
    cache.height = fit.height;
    cache.width = fit.width;
    cache.offset = fit.offset;
}

/// True when a size changed. The text of a merged row counts for the width of its first column alone, so that a
/// slanted one, which asks for all of its width, makes each column as wide as the row was.
bool CVqTableCellFromTableStyle::adjustRowColumnSize(const VqTableCellCalcCaches& caches) {
    bool changed = false;
    for (unsigned row = 0; row < m_rows; ++row) {
        changed |= grow(m_grid.rowHeight, m_columns, [&](unsigned column) { return caches[row][column].height; });
    }
    for (unsigned column = 0; column < m_columns; ++column) {
        changed |= grow(m_grid.columnWidth, m_rows, [&](unsigned row) { return caches[row][column].width; });
    }
    return changed;
}

void CVqTableCellFromTableStyle::addRowContent(KdGePoint3d position, std::vector<VqTableCellCalcCache>& row,
                                               KdDbBlockTableRecord& block) const {
    const std::size_t shown = mergesAll() ? 1 : row.size();
    for (std::size_t column = 0; column < shown; ++column, position += m_grid.columnStep()) {
        addBackground(position, block);
        appendCellText(block, row[column], position, m_grid.rotation);
    }
}

/// In a merged row the fill is twice as wide as a column, with a single column too: that is a rule.
void CVqTableCellFromTableStyle::addBackground(const KdGePoint3d& position, KdDbBlockTableRecord& block) const {
    const KdCmColor color = m_style->backgroundColor(m_cellStyle.kwszPtr());
    if (color.isNone()) return;
    const KdGeVector3d across = mergesAll() ? m_grid.columnStep() * 2.0 : m_grid.columnStep();
    const KdGeVector3d down = m_grid.rowStep();
    auto fill = std::make_unique<KdDbSolid>(position, position + across, position + down, position + across + down);
    fill->setColor(color);
    appendToSample(block, std::move(fill));
}

void CVqTableCellFromTableStyle::makeCell(const KdGePoint3d& origin, int row, int column, SampleLines& lines) {
    m_insideLines = takesInsideEdges(lines.edges());
    const bool isLastRow = row + 1 == static_cast<int>(m_rows);
    const bool isLastColumn = column + 1 == static_cast<int>(m_columns);
    addTopLine(origin, row, column, lines);
    if (column == 0 || !mergesAll()) addLeftLine(origin, row, column, lines);
    if (isLastRow) lines.add({KdDb::kHorzBottom, row, column}, origin + m_grid.rowStep());
    if (isLastColumn) lines.add({KdDb::kVertRight, row, column}, origin + m_grid.columnStep());
}

/// The line of a further row is double when the top edge is, whatever edge it looks like.
void CVqTableCellFromTableStyle::addTopLine(const KdGePoint3d& origin, int row, int column, SampleLines& lines) const {
    const SampleEdges& edges = lines.edges();
    const auto looks = row == 0
                           ? KdDb::kHorzTop
                           : innerLooks(edges, m_insideLines, KdDb::kHorzInside, KdDb::kHorzTop, KdDb::kHorzBottom);
    lines.add({KdDb::kHorzTop, row, column}, looks, edges.isDouble(KdDb::kHorzTop), origin);
}

/// The line of a further column is double when the left edge is. When only a visible right edge is, it is double as
/// well, and takes the looks of the right edge; its place is that of a left edge all the same.
void CVqTableCellFromTableStyle::addLeftLine(const KdGePoint3d& origin, int row, int column, SampleLines& lines) const {
    const SampleEdges& edges = lines.edges();
    const EdgePlace place{KdDb::kVertLeft, row, column};
    const bool asRightEdge = column != 0 && !edges.isDouble(KdDb::kVertLeft) && edges.isVisible(KdDb::kVertRight) &&
                             edges.isDouble(KdDb::kVertRight);
    if (asRightEdge) {
        lines.add(place, KdDb::kVertRight, true, origin);
        return;
    }
    const auto looks = column == 0
                           ? KdDb::kVertLeft
                           : innerLooks(edges, m_insideLines, KdDb::kVertInside, KdDb::kVertLeft, KdDb::kVertRight);
    lines.add(place, looks, edges.isDouble(KdDb::kVertLeft), origin);
}
