// The model of the sample of a range.

#include "tests/module/preview/rangemodel.h"

#include <cmath>

#include "kd/db/table.h"
#include "tests/module/preview/doublelines.h"

namespace kdtest::preview {
namespace {

/// The table's values at one cell.
Edge edgeAt(const KdDbTable& table, int row, int column, int name) {
    const KdDb::GridLineType type = edgeType(name);
    return {table.gridVisibility(row, column, type) == KdDb::kVisible,
            table.gridLineStyle(row, column, type) == KdDb::kGridLineStyleDouble,
            table.gridDoubleLineSpacing(row, column, type),
            table.gridColor(row, column, type),
            table.gridLineWeight(row, column, type),
            table.gridLinetype(row, column, type)};
}

class RangeLines {
public:
    RangeLines(const KdDbTable& table, const CVqTableCellRange& range, const CellSize& size)
        : m_table(table), m_range(range), m_size(size) {}

    /// A line of one cell's length, from `right` columns and `down` rows off the origin.
    void add(EdgeName name, int row, int column, int right, int down) {
        const Edge looks = edgeAt(m_table, m_range.m_topRow, m_range.m_leftColumn, name);
        const bool alongRow = name == kTop || name == kBottom || name == kInsideHorz;
        const GridPoint from{right * m_size.width, down * m_size.height};
        const GridPoint to{from.right + (alongRow ? m_size.width : 0.0), from.down + (alongRow ? 0.0 : m_size.height)};
        if (!looks.isDouble) {
            addLine({from, to}, looks);
            return;
        }
        HalfSpacings half{};  // of the table's cell that has the sample's own row and column
        for (int other = 0; other < kEdgeCount; ++other) {
            half.at(static_cast<std::size_t>(other)) = edgeAt(m_table, row, column, other).spacing / 2.0;
        }
        for (const GridLine& line : doubled(name, row, column, {from, to}, half)) addLine(line, looks);
    }

    Picture picture;

private:
    void addLine(const GridLine& line, const Edge& looks) {
        const double down = m_table.flowDirection() == 0 ? -1.0 : 1.0;
        picture.push_back(
            dressed({line.from.right, down * line.from.down, 0.0}, {line.to.right, down * line.to.down, 0.0}, looks));
    }

    const KdDbTable& m_table;
    CVqTableCellRange m_range;
    CellSize m_size;
};

void addOneCell(RangeLines& lines) {
    lines.add(kTop, 0, 0, 0, 0);
    lines.add(kLeft, 0, 0, 0, 0);
    lines.add(kRight, 0, 0, 1, 0);
    lines.add(kBottom, 0, 0, 0, 1);
}

void addOneRow(RangeLines& lines) {
    lines.add(kLeft, 0, 0, 0, 0);
    lines.add(kInsideVert, 0, 0, 1, 0);
    lines.add(kRight, 0, 0, 2, 0);
    for (const int c : {0, 1}) lines.add(kTop, 0, c, c, 0);
    for (const int c : {0, 1}) lines.add(kBottom, 0, c, c, 1);
}

void addOneColumn(RangeLines& lines) {
    lines.add(kTop, 0, 0, 0, 0);
    lines.add(kInsideHorz, 0, 0, 0, 1);
    lines.add(kBottom, 0, 0, 0, 2);
    for (const int r : {0, 1}) {
        lines.add(kLeft, r, 0, 0, r);
        lines.add(kRight, r, 0, 1, r);
    }
}

void addTwoByTwo(RangeLines& lines) {
    for (const int c : {0, 1}) {
        lines.add(kTop, 0, c, c, 0);
        lines.add(kInsideHorz, 0, c, c, 1);
        lines.add(kBottom, 0, c, c, 2);
    }
    for (const int r : {0, 1}) {
        lines.add(kInsideVert, r, 0, 1, r);
        lines.add(kLeft, r, 0, 0, r);
        lines.add(kRight, r, 0, 2, r);
    }
}

}  // namespace

RangeShape modelShape(const KdDbTable& table, const CVqTableCellRange& range) {
    const KdCellRange merge = table.getMergeRange(range.m_topRow, range.m_leftColumn);
    const bool isMerged = merge.m_topRow != merge.m_bottomRow || merge.m_leftColumn != merge.m_rightColumn;
    if (isMerged &&
        CVqTableCellRange{merge.m_topRow, merge.m_leftColumn, merge.m_bottomRow, merge.m_rightColumn} == range) {
        return {1, 1};
    }
    const int rows = std::abs(range.m_topRow - range.m_bottomRow) + 1;
    const int columns = std::abs(range.m_leftColumn - range.m_rightColumn) + 1;
    return rows < 3 && columns < 3 ? RangeShape{rows, columns} : RangeShape{2, 2};
}

CellSize modelRangeSize(const KdDbTable& table, const CVqTableCellRange& range) {
    const double t = table.textHeight(range.m_topRow, range.m_leftColumn);
    const double v = table.margin(range.m_topRow, range.m_leftColumn, KdDb::kCellMarginTop);
    const double height = (2.0 * v + (t + t / 3.0)) * 4.0;
    return {height * 1.5, height};
}

Picture modelRangePicture(const KdDbTable& table, const CVqTableCellRange& range, const std::wstring& word,
                          const CellSize& size) {
    const int row = range.m_topRow;
    const int column = range.m_leftColumn;
    const RangeShape shape = modelShape(table, range);
    const double down = table.flowDirection() == 0 ? -size.height : size.height;

    RangeLines lines(table, range, size);
    for (int r = 0; r < shape.rows; ++r) {
        for (int c = 0; c < shape.columns; ++c) {
            Text text;
            text.contents = word;
            text.place = {c * size.width + size.width / 2.0, r * down - size.height / 2.0, 0.0};
            text.direction = {1.0, 0.0, 0.0};
            text.height = table.textHeight(row, column);
            text.wrapWidth = size.width - table.margin(row, column, KdDb::kCellMarginLeft);
            text.attachment = KdDb::kMiddleCenter;
            text.flow = kByStyle;
            text.style = table.textStyle(row, column);
            text.color = table.contentColor(row, column);
            lines.picture.push_back(text);
        }
    }
    if (shape.rows == 1 && shape.columns == 1) {
        addOneCell(lines);
    } else if (shape.rows == 1) {
        addOneRow(lines);
    } else if (shape.columns == 1) {
        addOneColumn(lines);
    } else {
        addTwoByTwo(lines);
    }
    return lines.picture;
}

}  // namespace kdtest::preview
