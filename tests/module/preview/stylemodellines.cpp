// The model of a sample's grid lines. Ends of lines are counted from the sample's origin along its rows (right) and
// from row to row (down), so that both flows are one.

#include <array>

#include "tests/module/preview/doublelines.h"
#include "tests/module/preview/stylemodel.h"

namespace kdtest::preview {
namespace {

class Grid {
public:
    Grid(const CellLook& look, int columns, const CellSize& cell) : m_look(look), m_columns(columns), m_cell(cell) {}

    std::vector<Line> lines() {
        for (int row = 0; row < kRowCount; ++row) {
            for (int column = 0; column < m_columns; ++column) addCell(row, column);
        }
        return m_lines;
    }

private:
    const Edge& edge(EdgeName name) const { return m_look.edges.at(static_cast<std::size_t>(name)); }
    bool isHidden(EdgeName name) const { return !edge(name).visible; }

    /// Whether inner lines look like the inside edges.
    bool innerLinesAreInside() const {
        const bool anyOuterHidden = isHidden(kTop) || isHidden(kBottom) || isHidden(kLeft) || isHidden(kRight);
        const bool bothInsideShown = !isHidden(kInsideHorz) && !isHidden(kInsideVert);
        return bothInsideShown ? anyOuterHidden : !anyOuterHidden;
    }

    EdgeName looksOfTop(int row) const {
        if (row == 0) return kTop;
        if (innerLinesAreInside()) return kInsideHorz;
        return isHidden(kBottom) ? kTop : kBottom;
    }

    EdgeName looksOfLeft(int column) const {
        if (column == 0) return kLeft;
        if (innerLinesAreInside()) return kInsideVert;
        return isHidden(kRight) ? kLeft : kRight;
    }

    void addCell(int row, int column) {
        const double left = column * m_cell.width;
        const double top = row * m_cell.height;
        const double right = left + m_cell.width;
        const double bottom = top + m_cell.height;
        add(kTop, looksOfTop(row), edge(kTop).isDouble, row, column, {left, top}, {right, top});
        if (!m_look.mergeAll || column == 0) addLeft(row, column, {left, top}, {left, bottom});
        if (row + 1 == kRowCount) {
            add(kBottom, kBottom, edge(kBottom).isDouble, row, column, {left, bottom}, {right, bottom});
        }
        if (column + 1 == m_columns) {
            add(kRight, kRight, edge(kRight).isDouble, row, column, {right, top}, {right, bottom});
        }
    }

    /// Between columns a double right edge doubles the line where the left edge doesn't.
    void addLeft(int row, int column, const GridPoint& from, const GridPoint& to) {
        const bool byRight = column != 0 && !edge(kLeft).isDouble && !isHidden(kRight) && edge(kRight).isDouble;
        add(kLeft, byRight ? kRight : looksOfLeft(column), byRight || edge(kLeft).isDouble, row, column, from, to);
    }

    void add(EdgeName place, EdgeName looks, bool isDouble, int row, int column, const GridPoint& from,
             const GridPoint& to) {
        if (!isDouble) {
            addLine({from, to}, looks);
            return;
        }
        HalfSpacings half{};
        for (int name = 0; name < kEdgeCount; ++name) {
            half.at(static_cast<std::size_t>(name)) = m_look.edges.at(static_cast<std::size_t>(name)).spacing / 2.0;
        }
        for (const GridLine& line : doubled(place, row, column, {from, to}, half)) addLine(line, looks);
    }

    void addLine(const GridLine& line, EdgeName looks) {
        const double down = m_look.flow == 0 ? -1.0 : 1.0;
        m_lines.push_back(dressed({line.from.right, down * line.from.down, 0.0},
                                  {line.to.right, down * line.to.down, 0.0}, edge(looks)));
    }

    const CellLook& m_look;
    int m_columns;
    CellSize m_cell;
    std::vector<Line> m_lines;
};

}  // namespace

Line dressed(const KdGePoint3d& from, const KdGePoint3d& to, const Edge& edge) {
    if (edge.visible) return {from, to, edge.linetype, edge.weight, edge.color, false};
    return {from, to, edge.linetype, KdDb::kLnWt000, KdCmColor::fromIndex(8), true};
}

std::array<GridLine, 2> doubled(EdgeName place, int row, int column, const GridLine& line, const HalfSpacings& half) {
    auto [a1, b1] = line;
    auto [a2, b2] = line;
    const auto sp = [&](EdgeName edge) { return half.at(static_cast<std::size_t>(edge)); };
    switch (place) {
        case kTop:
            a1.down -= sp(kTop), b1.down -= sp(kTop);
            a2.down += sp(kTop), b2.down += sp(kTop);
            if (row != 0) a1.right += sp(kLeft), b1.right -= sp(kRight);
            a2.right += sp(kLeft), b2.right -= sp(kRight);
            break;
        case kLeft:
            a1.right -= sp(kLeft), b1.right -= sp(kLeft);
            a2.right += sp(kLeft), b2.right += sp(kLeft);
            if (column != 0) {
                a1.down += sp(kLeft), a2.down += sp(kLeft);
                b1.down -= sp(kLeft), b2.down -= sp(kLeft);
            } else {
                a1.down -= sp(kLeft), a2.down += sp(kLeft);
                b2.down -= sp(kLeft);
                if (row != 0) b1.down += sp(kLeft);
            }
            break;
        case kRight:  // by the spacing of the left edge
            a1.right += sp(kLeft), b1.right += sp(kLeft);
            a2.right -= sp(kLeft), b2.right -= sp(kLeft);
            a1.down -= sp(kLeft), a2.down += sp(kLeft);
            b1.down += sp(kLeft), b2.down -= sp(kLeft);
            break;
        case kBottom:
            a1.down -= sp(kBottom), b1.down -= sp(kBottom);
            a2.down += sp(kBottom), b2.down += sp(kBottom);
            a1.right += sp(kBottom), a2.right -= sp(kBottom);
            b1.right -= sp(kBottom), b2.right += sp(kBottom);
            break;
        case kInsideHorz:
            a1.down -= sp(kInsideHorz), b1.down -= sp(kInsideHorz);
            a2.down += sp(kInsideHorz), b2.down += sp(kInsideHorz);
            a1.right += sp(kLeft), a2.right += sp(kLeft);
            b1.right -= sp(kRight), b2.right -= sp(kRight);
            break;
        case kInsideVert:
            a1.right -= sp(kInsideVert), b1.right -= sp(kInsideVert);
            a2.right += sp(kInsideVert), b2.right += sp(kInsideVert);
            a1.down += sp(kInsideVert), a2.down += sp(kInsideVert);
            b1.down -= sp(kInsideVert), b2.down -= sp(kInsideVert);
            break;
    }
    return {GridLine{a1, b1}, GridLine{a2, b2}};
}

std::vector<Line> modelLines(const CellLook& look, int columns, const CellSize& cell) {
    return Grid(look, columns, cell).lines();
}

}  // namespace kdtest::preview
