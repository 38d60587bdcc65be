// The table's own changes of the model, and the comparison.

#include "tests/module/core/slowgrid.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "host/db/tableaccess.h"
#include "kd/db/table.h"

namespace kdtest {
namespace {

constexpr double kNewColumn = 63.5;  ///< width of a column that inherits from none

bool inside(const KdCellRange& range, int row, int column) {
    return row >= range.m_topRow && row <= range.m_bottomRow && column >= range.m_leftColumn &&
           column <= range.m_rightColumn;
}

std::wstring styleOfRow(const KdDbTable& table, int row) {
    switch (table.rowType(row)) {
        case KdDb::kTitleRow:
            return L"_TITLE";
        case KdDb::kHeaderRow:
            return L"_HEADER";
        default:
            return L"_DATA";
    }
}

std::string shown(const KdCellRange& range) {
    std::ostringstream out;
    out << range.m_topRow << ',' << range.m_leftColumn << '-' << range.m_bottomRow << ',' << range.m_rightColumn;
    return out.str();
}

bool near(double a, double b) {
    return std::abs(a - b) <= 1e-9 * std::max(1.0, std::abs(a));
}

}  // namespace

SlowGrid::SlowGrid(const KdDbTable& table) : selection(table.getSubSelection()) {
    for (int row = 0; row < table.numRows(); ++row) rows.push_back({table.rowHeight(row), styleOfRow(table, row)});
    for (int column = 0; column < table.numColumns(); ++column) columns.push_back({table.columnWidth(column), L""});
    cells.assign(rows.size(), std::vector<SlowCell>(columns.size()));
    const kdhost::TableState& state = kdhost::tableState(table);
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            SlowCell& cell = at(row, column);
            const kdhost::CellLook& kept = state.look(row, column);
            cell.text = state.content(row, column).text;
            cell.style = state.styles.name(kept.style);
            cell.state = kept.state;
            const KdCellRange merge = table.getMergeRange(row, column);
            const bool owner = merge.m_topRow == row && merge.m_leftColumn == column;
            if (!table.isMergedCell(row, column)) continue;
            cell.merge = owner ? ++m_lastMerge : at(merge.m_topRow, merge.m_leftColumn).merge;
        }
    }
}

std::string SlowGrid::difference(const KdDbTable& table) const {
    std::ostringstream out;
    if (table.numRows() != rowCount() || table.numColumns() != columnCount()) {
        out << "size " << table.numRows() << " x " << table.numColumns() << ", not " << rowCount() << " x "
            << columnCount() << '\n';
        return out.str();
    }
    if (table.getSubSelection() != selection) {
        out << "selection " << shown(table.getSubSelection()) << ", not " << shown(selection) << '\n';
    }
    for (int row = 0; row < rowCount(); ++row) {
        const SlowLine& line = rows[static_cast<std::size_t>(row)];
        if (!near(table.rowHeight(row), line.size)) out << "height of row " << row << '\n';
        if (styleOfRow(table, row) != line.style) out << "type of row " << row << '\n';
    }
    for (int column = 0; column < columnCount(); ++column) {
        const double width = columns[static_cast<std::size_t>(column)].size;
        if (!near(table.columnWidth(column), width)) out << "width of column " << column << '\n';
    }
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            const KdCellRange merge = mergeRange(row, column);
            const SlowCell& owner = at(merge.m_topRow, merge.m_leftColumn);
            const std::string place = std::to_string(row) + "," + std::to_string(column);
            if (table.getMergeRange(row, column) != merge) out << place << " lies in " << shown(merge) << '\n';
            if (table.isMergedCell(row, column) != (at(row, column).merge != 0)) out << place << " merged\n";
            if (table.textString(row, column) != (covered(row, column) ? L"" : owner.text)) out << place << " text\n";
            if (table.cellStyle(row, column) != owner.style) out << place << " style\n";
            if (table.cellState(row, column) != owner.state) out << place << " locks\n";
        }
    }
    return out.str();
}

std::string SlowGrid::describe() const {
    std::string text = "selection " + shown(selection) + '\n';
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            const SlowCell& cell = at(row, column);
            text += cell.merge == 0 ? '.' : static_cast<char>('A' + (cell.merge - 1) % 26);
            text += std::string(cell.text.begin(), cell.text.end()) + '/' + std::to_string(cell.state) + ' ';
        }
        text += '\n';
    }
    return text;
}

SlowCell& SlowGrid::at(int row, int column) {
    return cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
}

const SlowCell& SlowGrid::at(int row, int column) const {
    return cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
}

void SlowGrid::eachSelected(const std::function<void(int, int)>& visit) const {
    for (int row = selection.m_topRow; row <= selection.m_bottomRow; ++row) {
        for (int column = selection.m_leftColumn; column <= selection.m_rightColumn; ++column) visit(row, column);
    }
}

bool SlowGrid::contains(const KdCellRange& range) const {
    return range.m_topRow >= 0 && range.m_topRow <= range.m_bottomRow && range.m_bottomRow < rowCount() &&
           range.m_leftColumn >= 0 && range.m_leftColumn <= range.m_rightColumn && range.m_rightColumn < columnCount();
}

KdCellRange SlowGrid::rangeOf(int merge) const {
    KdCellRange range{rowCount(), columnCount(), -1, -1};
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            if (at(row, column).merge != merge) continue;
            range.m_topRow = std::min(range.m_topRow, row);
            range.m_leftColumn = std::min(range.m_leftColumn, column);
            range.m_bottomRow = std::max(range.m_bottomRow, row);
            range.m_rightColumn = std::max(range.m_rightColumn, column);
        }
    }
    return range;
}

KdCellRange SlowGrid::mergeRange(int row, int column) const {
    const int merge = at(row, column).merge;
    return merge == 0 ? KdCellRange{row, column, row, column} : rangeOf(merge);
}

bool SlowGrid::covered(int row, int column) const {
    const KdCellRange merge = mergeRange(row, column);
    return merge.m_topRow != row || merge.m_leftColumn != column;
}

bool SlowGrid::empty(int row, int column) const {
    return covered(row, column) || at(row, column).text.empty();
}

SlowGrid SlowGrid::turned() const {
    SlowGrid result;
    result.rows = columns;
    result.columns = rows;
    result.m_lastMerge = m_lastMerge;
    result.selection = {selection.m_leftColumn, selection.m_topRow, selection.m_rightColumn, selection.m_bottomRow};
    result.cells.assign(columns.size(), std::vector<SlowCell>(rows.size()));
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) result.at(column, row) = at(row, column);
    }
    return result;
}

KdCellRange SlowGrid::grown(KdCellRange range) const {
    for (KdCellRange before; before != range;) {
        before = range;
        for (int row = before.m_topRow; row <= before.m_bottomRow; ++row) {
            for (int column = before.m_leftColumn; column <= before.m_rightColumn; ++column) {
                const KdCellRange merge = mergeRange(row, column);
                range.m_topRow = std::min(range.m_topRow, merge.m_topRow);
                range.m_leftColumn = std::min(range.m_leftColumn, merge.m_leftColumn);
                range.m_bottomRow = std::max(range.m_bottomRow, merge.m_bottomRow);
                range.m_rightColumn = std::max(range.m_rightColumn, merge.m_rightColumn);
            }
        }
    }
    return range;
}

void SlowGrid::dropSingleMerges() {
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            const KdCellRange merge = mergeRange(row, column);
            const bool single = merge.m_topRow == merge.m_bottomRow && merge.m_leftColumn == merge.m_rightColumn;
            if (single) at(row, column).merge = 0;
        }
    }
}

void SlowGrid::clampSelection(int rowsBefore, int columnsBefore) {
    if (selection == KdCellRange{}) return;
    if (rowCount() < rowsBefore) {
        selection.m_topRow = std::min(selection.m_topRow, rowCount() - 1);
        selection.m_bottomRow = std::min(selection.m_bottomRow, rowCount() - 1);
    }
    if (columnCount() < columnsBefore) {
        selection.m_leftColumn = std::min(selection.m_leftColumn, columnCount() - 1);
        selection.m_rightColumn = std::min(selection.m_rightColumn, columnCount() - 1);
    }
}

void SlowGrid::insertRows(int place, int inheritFrom, int count) {
    if (place < 0 || place > rowCount() || count <= 0) return;
    const bool inherits = inheritFrom >= 0 && inheritFrom < rowCount();
    SlowLine line{kNewColumn, L""};
    if (inherits) line = rows[static_cast<std::size_t>(inheritFrom)];
    std::vector<SlowCell> fresh(columns.size());
    for (int column = 0; column < columnCount(); ++column) {
        SlowCell& cell = fresh[static_cast<std::size_t>(column)];
        cell.style = inherits ? at(inheritFrom, column).style : columns[static_cast<std::size_t>(column)].style;
        const bool between = place > 0 && place < rowCount();
        if (between && at(place - 1, column).merge == at(place, column).merge) cell.merge = at(place, column).merge;
    }
    for (int i = 0; i < count; ++i) {
        rows.insert(rows.begin() + place, line);
        cells.insert(cells.begin() + place, fresh);
    }
}

void SlowGrid::insertColumns(int place, int inheritFrom, int count) {
    onTurned([&](SlowGrid& grid) { grid.insertRows(place, inheritFrom, count); });
}

void SlowGrid::deleteRows(int first, int count) {
    const int before = rowCount();
    const int behind = first + count;
    if (first < 0 || count <= 0 || count >= before || behind > before) return;
    for (int merge = 1; merge <= m_lastMerge; ++merge) {
        const KdCellRange range = rangeOf(merge);
        const bool ownerGoes = range.m_topRow >= first && range.m_topRow < behind;
        if (!ownerGoes || range.m_bottomRow < behind) continue;
        SlowCell& heir = at(behind, range.m_leftColumn);
        heir = at(range.m_topRow, range.m_leftColumn);
    }
    rows.erase(rows.begin() + first, rows.begin() + behind);
    cells.erase(cells.begin() + first, cells.begin() + behind);
    dropSingleMerges();
    clampSelection(before, columnCount());
}

void SlowGrid::deleteColumns(int first, int count) {
    onTurned([&](SlowGrid& grid) { grid.deleteRows(first, count); });
}

void SlowGrid::mergeCells(int top, int bottom, int left, int right) {
    if (!contains({top, left, bottom, right})) return;
    const KdCellRange range = grown({top, left, bottom, right});
    if (range == mergeRange(range.m_topRow, range.m_leftColumn)) return;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            const KdCellRange merge = mergeRange(row, column);
            if (at(row, column).locked() || at(merge.m_topRow, merge.m_leftColumn).locked()) return;
        }
    }
    ++m_lastMerge;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            at(row, column).merge = m_lastMerge;
            if (row != range.m_topRow || column != range.m_leftColumn) at(row, column).text.clear();
        }
    }
}

void SlowGrid::unmergeCells(int top, int bottom, int left, int right) {
    if (!contains({top, left, bottom, right})) return;
    for (int merge = 1; merge <= m_lastMerge; ++merge) {
        const KdCellRange range = rangeOf(merge);
        bool touched = false;
        for (int row = top; row <= bottom; ++row) {
            for (int column = left; column <= right; ++column) touched = touched || inside(range, row, column);
        }
        if (!touched || at(range.m_topRow, range.m_leftColumn).locked()) continue;
        for (std::vector<SlowCell>& line : cells) {
            for (SlowCell& cell : line) {
                if (cell.merge == merge) cell.merge = 0;
            }
        }
    }
}

}  // namespace kdtest
