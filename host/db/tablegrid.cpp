// The edges of cells.
//
// Between two neighbours runs one line: what is set on a side of a cell is set on the facing side of its
// neighbour. A side without an override takes its style's inside value where the neighbour is of the same
// cell style, and its outside value where it isn't or there is none. Inside edges of a single cell are kept
// and drawn nowhere.

#include <array>

#include "host/db/tableaccess.h"

using namespace kdhost;

namespace {

/// What a side of a cell faces.
struct Side {
    int edge;      ///< the side, as an index of an edge
    int opposite;  ///< the neighbour's side that is the same line
    int inside;    ///< the edge whose value counts between cells of one style
    int down;      ///< step to the neighbour
    int right;
};
constexpr std::array<Side, 4> kSides{{
    {0, 2, 1, -1, 0},  // top
    {2, 0, 1, 1, 0},   // bottom
    {3, 5, 4, 0, -1},  // left
    {5, 3, 4, 0, 1},   // right
}};

/// Null for the inside edges.
const Side* sideOf(int edge) {
    for (const Side& side : kSides) {
        if (side.edge == edge) return &side;
    }
    return nullptr;
}

/// The cells along that side of a range, as a range one cell wide; it may lie outside the table.
KdCellRange facing(const KdCellRange& range, const Side& side) {
    KdCellRange cells = range;
    if (side.down != 0) {
        cells.m_topRow = cells.m_bottomRow = (side.down < 0 ? range.m_topRow : range.m_bottomRow) + side.down;
    } else {
        cells.m_leftColumn = cells.m_rightColumn =
            (side.right < 0 ? range.m_leftColumn : range.m_rightColumn) + side.right;
    }
    return cells;
}

/// The edge of its style that a cell's side without an override takes its looks from.
int styleEdge(const TableState& state, const KdCellRange& cell, int edge) {
    const Side* side = sideOf(edge);
    if (side == nullptr) return edge;
    const KdCellRange neighbours = facing(cell, *side);
    const int row = neighbours.m_topRow;
    const int column = neighbours.m_leftColumn;
    if (!state.contains(row, column)) return edge;
    const bool sameStyle = state.ownerLook(row, column).style == state.look(cell.m_topRow, cell.m_leftColumn).style;
    return sameStyle ? side->inside : edge;
}

template <class T>
T read(const KdDbTable& table, int row, int column, KdDb::GridLineType edges, const property::GridPart<T>& part) {
    const TableState& state = tableState(table);
    const int edge = std::max(0, edgeIndex(edges));
    KdCellRange target;
    if (!targetOf(state, row, column, target)) return part.at(edge).in(styleFormat(state, nullptr));
    const CellLook& cell = state.ownerLook(target.m_topRow, target.m_leftColumn);
    if (const T* own = cell.ownValue(part.at(edge))) return *own;
    const KdCellRange whole = state.mergeOf(target.m_topRow, target.m_leftColumn);
    return part.at(styleEdge(state, whole, edge)).in(styleFormat(state, &cell));
}

/// The cells that share the line on a side of a cell: of a merge's owner along the merge's whole side; of a
/// covered cell its own neighbour, where that lies outside the merge.
KdCellRange neighboursOf(const TableState& state, int row, int column, const Side& side) {
    const bool covered = state.look(row, column).isCovered;
    const KdCellRange merge = state.mergeOf(row, column);
    const KdCellRange cells = facing(covered ? KdCellRange{row, column, row, column} : merge, side);
    const bool insideMerge = covered && cells.m_topRow >= merge.m_topRow && cells.m_topRow <= merge.m_bottomRow &&
                             cells.m_leftColumn >= merge.m_leftColumn && cells.m_leftColumn <= merge.m_rightColumn;
    return insideMerge || !state.contains(cells) ? KdCellRange{0, 0, -1, -1} : cells;
}

template <class T>
void override(KdDbTable& table, int row, int column, KdDb::GridLineType edges, const property::GridPart<T>& part,
              const T& value) {
    OverrideMemo& memo = KdDbTableAccess::transient(table).overrideMemo;
    if (edgeIndex(edges) < 0) return;
    changeCells(table, row, column, formatEditable, [&](TableState& state, int r, int c) {
        for (int edge = 0; edge < kEdgeCount; ++edge) {
            if ((edges & kEdges[static_cast<std::size_t>(edge)]) == 0) continue;
            memo.set(state.rows.writeLook(r, c), Override{part.at(edge), value});
            const Side* side = sideOf(edge);
            if (side == nullptr) continue;
            const KdCellRange neighbours = neighboursOf(state, r, c, *side);
            for (int nr = neighbours.m_topRow; nr <= neighbours.m_bottomRow; ++nr) {
                for (int nc = neighbours.m_leftColumn; nc <= neighbours.m_rightColumn; ++nc) {
                    memo.set(state.rows.writeLook(nr, nc), Override{part.at(side->opposite), value});
                }
            }
        }
    });
}

}  // namespace

KdDb::Visibility KdDbTable::gridVisibility(int row, int column, KdDb::GridLineType edge) const {
    return read(*this, row, column, edge, property::visibility);
}

void KdDbTable::setGridVisibility(int row, int column, KdDb::GridLineType edge, KdDb::Visibility visibility) {
    override(*this, row, column, edge, property::visibility, visibility);
}

KdDb::GridLineStyle KdDbTable::gridLineStyle(int row, int column, KdDb::GridLineType edge) const {
    return read(*this, row, column, edge, property::lineStyle);
}

void KdDbTable::setGridLineStyle(int row, int column, KdDb::GridLineType edge, KdDb::GridLineStyle style) {
    override(*this, row, column, edge, property::lineStyle, style);
}

KdCmColor KdDbTable::gridColor(int row, int column, KdDb::GridLineType edge) const {
    return read(*this, row, column, edge, property::lineColor);
}

void KdDbTable::setGridColor(int row, int column, KdDb::GridLineType edge, const KdCmColor& color) {
    override(*this, row, column, edge, property::lineColor, color);
}

KdDb::LineWeight KdDbTable::gridLineWeight(int row, int column, KdDb::GridLineType edge) const {
    return read(*this, row, column, edge, property::weight);
}

void KdDbTable::setGridLineWeight(int row, int column, KdDb::GridLineType edge, KdDb::LineWeight weight) {
    override(*this, row, column, edge, property::weight, weight);
}

KdDbObjectId KdDbTable::gridLinetype(int row, int column, KdDb::GridLineType edge) const {
    return read(*this, row, column, edge, property::linetype);
}

void KdDbTable::setGridLinetype(int row, int column, KdDb::GridLineType edge, const KdDbObjectId& linetype) {
    override(*this, row, column, edge, property::linetype, linetype);
}

double KdDbTable::gridDoubleLineSpacing(int row, int column, KdDb::GridLineType edge) const {
    return read(*this, row, column, edge, property::spacing);
}

void KdDbTable::setGridDoubleLineSpacing(int row, int column, KdDb::GridLineType edge, double spacing) {
    if (spacing >= 0.0) override(*this, row, column, edge, property::spacing, spacing);
}
