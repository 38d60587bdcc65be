// The sample of a range of cells, laid out.

#include "module/preview/tablecellfromtable.h"

#include <array>
#include <cstdlib>
#include <span>
#include <utility>

#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/preview/samplelines.h"

namespace {

constexpr unsigned kSampleWord = 2040;
constexpr unsigned kMostCellsAcross = 2;

/// The shapes of a sample.
enum Shape : unsigned { kOneCell, kRowOfTwo, kColumnOfTwo, kTwoByTwo };

/// Edges as the reference cell has them. Only the gaps of double lines are read at the sample's own rows and columns,
/// taken as those of the table: that is a rule.
class TableEdges final : public SampleEdges {
public:
    TableEdges(const KdDbTable& table, int row, int column) : m_table(table), m_row(row), m_column(column) {}

    KdDb::Visibility visibility(KdDb::GridLineType edge) const override {
        return m_table.gridVisibility(m_row, m_column, edge);
    }
    KdDb::GridLineStyle style(KdDb::GridLineType edge) const override {
        return m_table.gridLineStyle(m_row, m_column, edge);
    }
    KdDbObjectId linetype(KdDb::GridLineType edge) const override {
        return m_table.gridLinetype(m_row, m_column, edge);
    }
    KdDb::LineWeight lineWeight(KdDb::GridLineType edge) const override {
        return m_table.gridLineWeight(m_row, m_column, edge);
    }
    KdCmColor color(KdDb::GridLineType edge) const override { return m_table.gridColor(m_row, m_column, edge); }
    double spacing(int row, int column, KdDb::GridLineType edge) const override {
        return m_table.gridDoubleLineSpacing(row, column, edge);
    }

private:
    const KdDbTable& m_table;
    int m_row;
    int m_column;
};

/// One line of a shape, and how many columns to the right and rows down it starts.
struct ShapeLine {
    EdgePlace place;
    int right;
    int down;
};

constexpr std::array kLinesOfOneCell = {
    ShapeLine{{KdDb::kHorzTop, 0, 0}, 0, 0},
    ShapeLine{{KdDb::kVertLeft, 0, 0}, 0, 0},
    ShapeLine{{KdDb::kVertRight, 0, 0}, 1, 0},
    ShapeLine{{KdDb::kHorzBottom, 0, 0}, 0, 1},
};

constexpr std::array kLinesOfRow = {
    ShapeLine{{KdDb::kVertLeft, 0, 0}, 0, 0},   ShapeLine{{KdDb::kVertInside, 0, 0}, 1, 0},
    ShapeLine{{KdDb::kVertRight, 0, 0}, 2, 0},  ShapeLine{{KdDb::kHorzTop, 0, 0}, 0, 0},
    ShapeLine{{KdDb::kHorzTop, 0, 1}, 1, 0},    ShapeLine{{KdDb::kHorzBottom, 0, 0}, 0, 1},
    ShapeLine{{KdDb::kHorzBottom, 0, 1}, 1, 1},
};

constexpr std::array kLinesOfColumn = {
    ShapeLine{{KdDb::kHorzTop, 0, 0}, 0, 0},    ShapeLine{{KdDb::kHorzInside, 0, 0}, 0, 1},
    ShapeLine{{KdDb::kHorzBottom, 0, 0}, 0, 2}, ShapeLine{{KdDb::kVertLeft, 0, 0}, 0, 0},
    ShapeLine{{KdDb::kVertRight, 0, 0}, 1, 0},  ShapeLine{{KdDb::kVertLeft, 1, 0}, 0, 1},
    ShapeLine{{KdDb::kVertRight, 1, 0}, 1, 1},
};

constexpr std::array kLinesOfTwoByTwo = {
    ShapeLine{{KdDb::kHorzTop, 0, 0}, 0, 0},    ShapeLine{{KdDb::kHorzInside, 0, 0}, 0, 1},
    ShapeLine{{KdDb::kHorzBottom, 0, 0}, 0, 2}, ShapeLine{{KdDb::kHorzTop, 0, 1}, 1, 0},
    ShapeLine{{KdDb::kHorzInside, 0, 1}, 1, 1}, ShapeLine{{KdDb::kHorzBottom, 0, 1}, 1, 2},
    ShapeLine{{KdDb::kVertInside, 0, 0}, 1, 0}, ShapeLine{{KdDb::kVertLeft, 0, 0}, 0, 0},
    ShapeLine{{KdDb::kVertRight, 0, 0}, 2, 0},  ShapeLine{{KdDb::kVertInside, 1, 0}, 1, 1},
    ShapeLine{{KdDb::kVertLeft, 1, 0}, 0, 1},   ShapeLine{{KdDb::kVertRight, 1, 0}, 2, 1},
};

/// By shape.
constexpr std::array<std::span<const ShapeLine>, 4> kShapeLines = {kLinesOfOneCell, kLinesOfRow, kLinesOfColumn,
                                                                   kLinesOfTwoByTwo};

bool isExactlyOneMerge(const KdDbTable& table, const CVqTableCellRange& range) {
    CVqTableCellRange merge;
    return table.isMergedCell(range.m_topRow, range.m_leftColumn, &merge.m_topRow, &merge.m_bottomRow,
                              &merge.m_leftColumn, &merge.m_rightColumn) &&
           merge == range;
}

VqTableCellCalcCache copyOf(const VqTableCellCalcCache& cell) {
    VqTableCellCalcCache copy;
    copy.height = cell.height;
    copy.width = cell.width;
    copy.offset = cell.offset;
    copy.entity = std::make_unique<KdDbMText>();
    copy.entity->copyFrom(cell.entity.get());
    return copy;
}

}  // namespace

CVqTableCellFromTable::CVqTableCellFromTable(KdDbTable* table, const CVqTableCellRange& range) {
    if (table == nullptr) return;
    m_database = std::make_unique<KdDbDatabase>(true, false);
    m_table = table;
    m_range = range;
    m_referenceRow = static_cast<unsigned>(range.m_topRow);
    m_referenceColumn = static_cast<unsigned>(range.m_leftColumn);
    findShape();
    const double textHeight = m_table->textHeight(referenceRow(), referenceColumn());
    const double margin = CVqTableCommon::GetVertCellMarginFromTable(m_table, referenceRow(), referenceColumn());
    m_grid.rowHeight = (2.0 * margin + (textHeight + textHeight / 3.0)) * 4.0;
    m_grid.columnWidth = m_grid.rowHeight * 1.5;
}

CVqTableCellFromTable::~CVqTableCellFromTable() {
    m_database.reset();  // before the reference into it
}

void CVqTableCellFromTable::findShape() {
    m_rows = static_cast<unsigned>(std::abs(m_range.m_topRow - m_range.m_bottomRow)) + 1;
    m_columns = static_cast<unsigned>(std::abs(m_range.m_leftColumn - m_range.m_rightColumn)) + 1;
    if (isExactlyOneMerge(*m_table, m_range)) {
        m_rows = m_columns = 1;
    } else if (m_rows > kMostCellsAcross || m_columns > kMostCellsAcross) {
        // A range that is large in one direction alone shows two by two cells as well.
        m_rows = m_columns = kMostCellsAcross;
    }
    m_shape = m_rows == 1 ? (m_columns == 1 ? kOneCell : kRowOfTwo) : (m_columns == 1 ? kColumnOfTwo : kTwoByTwo);
}

bool CVqTableCellFromTable::CreateTableCell() {
    if (m_table == nullptr) return false;
    m_reference = startSample(*m_database, m_table->flowDirection(), m_grid);
    RecomputeTableBlock();
    return true;
}

bool CVqTableCellFromTable::RecomputeTableBlock() {
    if (m_reference == nullptr) return false;
    const SampleBlock block = addSampleBlock(*m_database);
    if (block == nullptr) return false;
    KdGePoint3d rowOrigin;
    for (std::vector<VqTableCellCalcCache>& row : calcCells()) {
        addRowContent(rowOrigin, row, *block);
        rowOrigin += m_grid.rowStep();
    }
    const TableEdges edges(*m_table, referenceRow(), referenceColumn());
    SampleLines lines(edges, m_grid);
    makeCell(KdGePoint3d::kOrigin, lines);
    lines.appendTo(*block);
    placeSample(*m_reference, *block, *m_database);
    return true;
}

/// Only the first cell is measured; every other one has a copy of its text.
VqTableCellCalcCaches CVqTableCellFromTable::calcCells() const {
    VqTableCellCalcCaches caches(m_rows);
    for (std::vector<VqTableCellCalcCache>& row : caches) row.resize(m_columns);
    VqTableCellCalcCache& first = caches.front().front();
    calcTextCell(m_grid.columnWidth, m_grid.rowHeight, first);
    for (std::vector<VqTableCellCalcCache>& row : caches) {
        for (VqTableCellCalcCache& cell : row) {
            if (&cell != &first) cell = copyOf(first);
        }
    }
    return caches;
}

/// The sample word stands in the middle of each cell and isn't turned, whatever the table's texts do. Its wrap width
/// takes one horizontal margin off, not two, and its place is counted downwards in a table that grows upwards as well:
/// these are rules.
void CVqTableCellFromTable::calcTextCell(double width, double height, VqTableCellCalcCache& cache) const {
    const int row = referenceRow();
    const int column = referenceColumn();
    const double horzMargin = CVqTableCommon::GetHorzCellMarginFromTable(m_table, row, column);
    const double vertMargin = CVqTableCommon::GetVertCellMarginFromTable(m_table, row, column);
    const double textHeight = m_table->textHeight(row, column);

    cache.entity = std::make_unique<KdDbMText>();
    KdDbMText& entity = *cache.entity;
    entity.setDatabaseDefaults(m_database.get());
    entity.setTextStyle(m_table->textStyle(row, column));
    entity.setTextHeight(textHeight);
    entity.setColor(m_table->contentColor(row, column));
    kddbSetMtextRotation(&entity, 0.0);
    entity.setAttachment(KdDbMText::kMiddleCenter);
    entity.setFlowDirection(KdDbMText::kByStyle);
    entity.setWidth(width - horzMargin);
    entity.setContents(loadText(kSampleWord));

    cache.height = entity.actualHeight() + 2.0 * vertMargin;
    cache.width = 2.0 * horzMargin + textHeight;
    cache.offset = {width / 2.0, -height / 2.0, 0.0};
}

void CVqTableCellFromTable::addRowContent(KdGePoint3d position, std::vector<VqTableCellCalcCache>& row,
                                          KdDbBlockTableRecord& block) const {
    for (VqTableCellCalcCache& cell : row) {
        appendCellText(block, cell, position, m_grid.rotation);
        position += m_grid.columnStep();
    }
}

void CVqTableCellFromTable::makeCell(const KdGePoint3d& origin, SampleLines& lines) const {
    for (const ShapeLine& line : kShapeLines[m_shape]) {
        lines.add(line.place, origin + line.right * m_grid.columnStep() + line.down * m_grid.rowStep());
    }
}
