// The grid lines of a drawn table: each line once, neighbouring pieces of the same looks joined.

#include <algorithm>
#include <array>
#include <map>
#include <tuple>

#include "host/db/tableaccess.h"
#include "host/draw/tabledrawing.h"
#include "kd/db/table.h"

namespace kdhost::draw {
namespace {

/// Looks of an edge; `spacing` is the gap of a double line, 0 for a single one.
struct EdgeLooks {
    Color color;
    int lineWeight = 0;
    std::vector<double> dashes;
    double spacing = 0.0;
};

/// An edge's place in the list of looks; 0 for an edge that isn't drawn.
using Edge = int;
constexpr Edge kNoEdge = 0;

/// Which cell and which of its edges tell about a grid edge.
struct Side {
    int row;
    int column;
    KdDb::GridLineType edge;
};

/// Along a line, a dash pattern begins where a run of like edges does, and anew at each row or column that is a
/// multiple of this. So the same pattern is found whichever part is drawn, at no more than this many looks back.
constexpr int kEdgesOfPattern = 256;

/// The edges of a whole table. Lines of rows run along the rows between grid nodes, lines of columns across.
class Grid {
public:
    explicit Grid(const TableDrawing& drawing)
        : m_drawing(drawing), m_rows(drawing.strips.rows.count()), m_columns(drawing.strips.columns.count()) {
        for (const bool ofRows : {true, false}) {
            m_edges[ofRows ? 0 : 1].assign(size(lines(ofRows), length(ofRows)), kNoEdge);
            for (int line = 0; line < lines(ofRows); ++line) {
                for (int index = 0; index < length(ofRows); ++index)
                    set(ofRows, line, index, find(ofRows, line, along(ofRows).at(index).first));
            }
        }
    }

    /// Lines that run along rows (`ofRows`) or columns, and the number of edges in each.
    int lines(bool ofRows) const { return (ofRows ? m_rows : m_columns) + 1; }
    int length(bool ofRows) const { return ofRows ? m_columns : m_rows; }

    Edge at(bool ofRows, int line, int index) const {
        if (line < 0 || line >= lines(ofRows) || index < 0 || index >= length(ofRows)) return kNoEdge;
        return m_edges[ofRows ? 0 : 1][place(ofRows, line, index)];
    }
    const EdgeLooks& looks(Edge edge) const { return m_looks[static_cast<std::size_t>(edge)]; }

    /// The edge that leaves a node of a line to one side: -1 towards the lines before, 1 towards those after.
    Edge across(bool ofRows, int line, int node, int side) const {
        return at(!ofRows, node, side < 0 ? line - 1 : line);
    }
    bool isDouble(Edge edge) const { return edge != kNoEdge && looks(edge).spacing > 0.0; }

    /// Whether the edge goes on what the one before it began.
    bool continues(bool ofRows, int line, int index) const {
        const Edge edge = at(ofRows, line, index);
        if (edge == kNoEdge || at(ofRows, line, index - 1) != edge) return false;
        const int stretch = along(ofRows).at(index).first / kEdgesOfPattern;
        return looks(edge).dashes.empty() || along(ofRows).at(index - 1).first / kEdgesOfPattern == stretch;
    }

    /// The row or column where the run of edges that is met at `index` begins. One that is drawn dashed may begin
    /// before what is seen.
    int runStart(bool ofRows, int line, int index) {
        const Edge edge = at(ofRows, line, index);
        int start = along(ofRows).at(index).first;
        if (index > 0 || looks(edge).dashes.empty()) return start;
        while (start % kEdgesOfPattern != 0 && find(ofRows, line, start - 1) == edge) --start;
        return start;
    }

private:
    static std::size_t size(int lines, int length) {
        return static_cast<std::size_t>(lines) * static_cast<std::size_t>(length);
    }
    std::size_t place(bool ofRows, int line, int index) const {
        return size(line, length(ofRows)) + static_cast<std::size_t>(index);
    }
    void set(bool ofRows, int line, int index, Edge edge) {
        m_edges[ofRows ? 0 : 1][place(ofRows, line, index)] = edge;
    }

    const Strips& along(bool ofRows) const { return ofRows ? m_drawing.strips.columns : m_drawing.strips.rows; }

    /// The edge between two cells, or at the table's border; one inside a merge is not drawn. `place` is the column of
    /// a line of rows, the row of a line of columns.
    Edge find(bool ofRows, int line, int place) {
        const auto& [rows, columns] = m_drawing.strips;
        const int row = ofRows ? rows.behind(line) : place;
        const int column = ofRows ? place : columns.behind(line);
        const Side before = ofRows ? Side{row - 1, column, KdDb::kHorzBottom} : Side{row, column - 1, KdDb::kVertRight};
        if (row == m_drawing.geometry.rows() || column == m_drawing.geometry.columns()) return fromSide(before);
        const KdCellRange merge = m_drawing.table.getMergeRange(row, column);
        if (ofRows ? merge.m_topRow != row : merge.m_leftColumn != column) return kNoEdge;
        return between(before, {row, column, ofRows ? KdDb::kHorzTop : KdDb::kVertLeft});
    }

    /// The two cells beside an edge may differ: by their styles, and where a merge lies along several cells,
    /// each of which may say something else of its part. So the later cell speaks first, but a single cell
    /// before a merge; and what neither has hidden itself is drawn when the style of one of them shows it.
    Edge between(const Side& before, const Side& after) {
        if (before.row < 0 || before.column < 0) return fromSide(after);
        const bool swapped = isOfMerge(after) && !isOfMerge(before);
        const Side& first = swapped ? before : after;
        const Edge edge = fromSide(first);
        return edge != kNoEdge || isSetByCell(first) ? edge : fromSide(swapped ? after : before);
    }

    /// Whether the edge is a part of a longer side of a merge.
    bool isOfMerge(const Side& side) const {
        const KdCellRange merge = m_drawing.table.getMergeRange(side.row, side.column);
        const bool ofRows = side.edge == KdDb::kHorzTop || side.edge == KdDb::kHorzBottom;
        return ofRows ? merge.m_rightColumn > merge.m_leftColumn : merge.m_bottomRow > merge.m_topRow;
    }

    /// Whether the cell itself, not its style, tells if the edge is visible.
    bool isSetByCell(const Side& side) const {
        const CellLook& cell = tableState(m_drawing.table).look(side.row, side.column);
        return cell.ownValue(property::visibility.at(edgeIndex(side.edge))) != nullptr;
    }

    Edge fromSide(const Side& side) {
        const KdDbTable& table = m_drawing.table;
        if (table.gridVisibility(side.row, side.column, side.edge) != KdDb::kVisible) return kNoEdge;
        const Looks& looks = m_drawing.looks;
        const Color color = looks.color(table.gridColor(side.row, side.column, side.edge)).value_or(looks.color());
        const int weight = looks.lineWeight(table.gridLineWeight(side.row, side.column, side.edge));
        const KdDbObjectId linetype = table.gridLinetype(side.row, side.column, side.edge);
        const bool isDouble = table.gridLineStyle(side.row, side.column, side.edge) == KdDb::kGridLineStyleDouble;
        const double spacing = isDouble ? table.gridDoubleLineSpacing(side.row, side.column, side.edge) : 0.0;
        const auto [known, added] =
            m_known.try_emplace({color, weight, linetype, spacing}, static_cast<Edge>(m_looks.size()));
        if (added) m_looks.push_back({color, weight, looks.dashes(linetype), spacing});
        return known->second;
    }

    const TableDrawing& m_drawing;
    int m_rows;
    int m_columns;
    std::array<std::vector<Edge>, 2> m_edges;
    std::vector<EdgeLooks> m_looks{1};
    std::map<std::tuple<Color, int, KdDbObjectId, double>, Edge> m_known;
};

/// Draws the lines of one direction.
class GridLineDrawer {
public:
    GridLineDrawer(const TableDrawing& drawing, Grid& grid, bool ofRows)
        : m_drawing(drawing), m_grid(grid), m_ofRows(ofRows) {}

    void draw() {
        for (int line = 0; line < m_grid.lines(m_ofRows); ++line) drawLine(line);
    }

private:
    void drawLine(int line) {
        for (int begin = 0; begin < m_grid.length(m_ofRows);) {
            const Edge edge = m_grid.at(m_ofRows, line, begin);
            int end = begin + 1;
            while (m_grid.continues(m_ofRows, line, end)) ++end;
            if (edge != kNoEdge) drawRun(line, begin, end);
            begin = end;
        }
    }

    void drawRun(int line, int begin, int end) {
        const Edge edge = m_grid.at(m_ofRows, line, begin);
        m_patternStart = edgeOf(m_grid.runStart(m_ofRows, line, begin));
        if (m_grid.isDouble(edge)) {
            drawDouble(line, begin, end, -1);
            drawDouble(line, begin, end, 1);
        } else {
            drawSingle(line, begin, end);
        }
    }

    // A single line leaves the band of a double one free that it meets:
    //
    //         | |          |  +------        |
    //     ----+ +----      +--+              |
    //         | |          |  | +----        +----
    //                         | |            +----
    void drawSingle(int line, int begin, int end) {
        const auto isCrossed = [&](int node) {
            return m_grid.isDouble(m_grid.across(m_ofRows, line, node, -1)) &&
                   m_grid.isDouble(m_grid.across(m_ofRows, line, node, 1));
        };
        for (int from = begin; from < end;) {
            int to = from + 1;
            while (to < end && !isCrossed(to)) ++to;
            piece(m_grid.at(m_ofRows, line, begin), line, 0.0, position(from) + trimSingle(line, from, from - 1),
                  position(to) - trimSingle(line, to, to));
            from = to;
        }
    }

    /// How far a single line stays back from a node: half the band that lies across its end, or runs along behind it.
    /// Where the double line only begins there, at a corner, it runs on to the farther one of its lines instead.
    double trimSingle(int line, int node, int beyond) const {
        const Edge before = m_grid.across(m_ofRows, line, node, -1);
        const Edge after = m_grid.across(m_ofRows, line, node, 1);
        const double half = 0.5 * std::max(m_grid.looks(before).spacing, m_grid.looks(after).spacing);
        const Edge further = m_grid.at(m_ofRows, line, beyond);
        if ((m_grid.isDouble(before) && m_grid.isDouble(after)) || m_grid.isDouble(further)) return half;
        return further == kNoEdge ? -half : 0.0;
    }

    // One of the two lines of a double line. Where a double line meets it on its own side, both open towards
    // each other; at a corner the outer lines run on until they meet:
    //
    //     +-----------       ----+ +----
    //     | +---------       ----+ +----
    //     | |                ----+ +----
    //     | |                    | |
    void drawDouble(int line, int begin, int end, int side) {
        const Edge edge = m_grid.at(m_ofRows, line, begin);
        for (int from = begin; from < end;) {
            int to = from + 1;
            while (to < end && !m_grid.isDouble(m_grid.across(m_ofRows, line, to, side))) ++to;
            const double offset = 0.5 * m_grid.looks(edge).spacing * side;
            piece(edge, line, offset, position(from) + trim(line, from, side, from - 1),
                  position(to) - trim(line, to, side, to));
            from = to;
        }
    }

    /// How far a line of a double line stays back from a node; negative where it runs on. `beyond` is the
    /// index of the edge on the node's other side.
    double trim(int line, int node, int side, int beyond) const {
        const Edge near = m_grid.across(m_ofRows, line, node, side);
        if (m_grid.isDouble(near)) return 0.5 * m_grid.looks(near).spacing;
        const Edge far = m_grid.across(m_ofRows, line, node, -side);
        const bool isCorner = m_grid.isDouble(far) && !m_grid.isDouble(m_grid.at(m_ofRows, line, beyond));
        return isCorner ? -0.5 * m_grid.looks(far).spacing : 0.0;
    }

    double rowEdge(int line) const { return m_drawing.geometry.rowEdge(m_drawing.strips.rows.behind(line)); }
    double columnEdge(int line) const { return m_drawing.geometry.columnEdge(m_drawing.strips.columns.behind(line)); }

    double position(int node) const { return m_ofRows ? columnEdge(node) : rowEdge(node); }
    /// The near edge of a column, on a line of rows, or of a row.
    double edgeOf(int place) const {
        return m_ofRows ? m_drawing.geometry.columnEdge(place) : m_drawing.geometry.rowEdge(place);
    }

    /// Nothing where the bands at both ends leave no room for a line.
    void piece(Edge edge, int line, double offset, double from, double to) const {
        if (from >= to) return;
        const TableGeometry& geometry = m_drawing.geometry;
        const double fixed = (m_ofRows ? rowEdge(line) : columnEdge(line)) + offset;
        const EdgeLooks& looks = m_grid.looks(edge);
        const KdGePoint3d start = m_ofRows ? geometry.at(from, fixed) : geometry.at(fixed, from);
        const KdGePoint3d stop = m_ofRows ? geometry.at(to, fixed) : geometry.at(fixed, to);
        const double dashStart = looks.dashes.empty() ? 0.0 : from - m_patternStart;
        m_drawing.out.push_back(Polyline{{start, stop}, looks.color, looks.lineWeight, looks.dashes, dashStart});
    }

    const TableDrawing& m_drawing;
    Grid& m_grid;
    bool m_ofRows;
    double m_patternStart = 0.0;  ///< along the line, of the run that is being drawn
};

}  // namespace

void drawGrid(const TableDrawing& drawing) {
    Grid grid(drawing);
    GridLineDrawer(drawing, grid, true).draw();
    GridLineDrawer(drawing, grid, false).draw();
}

}  // namespace kdhost::draw
