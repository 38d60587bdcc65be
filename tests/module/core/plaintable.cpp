// The tests of ranges as naive loops over a grid.

#include "tests/module/core/plaintable.h"

#include <cstdlib>
#include <functional>

#include "kd/db/table.h"

namespace kdtest {
namespace {

using Range = PlainTable::Range;

bool isNoCell(const Range& range) {
    return range == Range{-1, -1, -1, -1};
}

bool oneCell(const Range& range) {
    return range.m_topRow == range.m_bottomRow && range.m_leftColumn == range.m_rightColumn;
}

bool reversed(const Range& range) {
    return range.m_topRow > range.m_bottomRow || range.m_leftColumn > range.m_rightColumn;
}

PlainCell readCell(const KdDbTable& table, int row, int column) {
    PlainCell cell;
    cell.state = table.cellState(row, column);
    cell.style = table.cellStyle(row, column);
    cell.alignment = table.alignment(row, column);
    KdValue::DataType dataType = KdValue::kUnknown;
    KdValue::UnitType unitType = KdValue::kUnitless;
    table.getDataType(row, column, dataType, unitType);
    cell.dataType = dataType;
    cell.unitType = unitType;
    cell.text = table.textString(row, column);
    cell.contentEditable = table.isContentEditable(row, column);
    cell.formatEditable = table.isFormatEditable(row, column);
    return cell;
}

int lines(int first, int last) {
    return first < 0 || last < 0 ? 0 : std::abs(last - first) + 1;
}

}  // namespace

PlainTable::PlainTable(const KdDbTable& table, std::vector<Range> merges)
    : m_rows(table.numRows()), m_columns(table.numColumns()), m_merges(std::move(merges)) {
    m_outside = readCell(table, m_rows + 9, m_columns + 9);
    for (int row = 0; row < m_rows; ++row) {
        m_cells.emplace_back();
        for (int column = 0; column < m_columns; ++column) m_cells.back().push_back(readCell(table, row, column));
    }
    for (int i = 0; i < static_cast<int>(m_merges.size()); ++i) {
        const Range& merge = m_merges[static_cast<std::size_t>(i)];
        for (int row = merge.m_topRow; row <= merge.m_bottomRow; ++row) {
            for (int column = merge.m_leftColumn; column <= merge.m_rightColumn; ++column) {
                m_cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].merge = i;
            }
        }
    }
}

const PlainCell& PlainTable::at(int row, int column) const {
    if (row == -1) row = 0;
    if (column == -1) column = 0;
    if (row < 0 || column < 0 || row >= m_rows || column >= m_columns) return m_outside;
    return m_cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

const Range* PlainTable::mergeAt(int row, int column) const {
    const int merge = at(row, column).merge;
    return merge < 0 ? nullptr : &m_merges[static_cast<std::size_t>(merge)];
}

const PlainCell& PlainTable::judged(int row, int column) const {
    const Range* merge = mergeAt(row, column);
    return merge != nullptr ? at(merge->m_topRow, merge->m_leftColumn) : at(row, column);
}

std::string PlainTable::describe() const {
    std::string text;
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            const PlainCell& cell = at(row, column);
            text += cell.merge < 0 ? '.' : static_cast<char>('A' + cell.merge);
            text += std::to_string(cell.state) + ' ';
        }
        text += '\n';
    }
    return text;
}

bool PlainTable::CheckCellRangeValid(const Range& range) const {
    if (range.m_topRow != range.m_bottomRow && range.m_leftColumn != range.m_rightColumn) {
        return range.m_bottomRow < m_rows && range.m_rightColumn < m_columns;
    }
    return range.m_topRow < m_rows && range.m_leftColumn < m_columns;
}

bool PlainTable::IsSelectEntireTable(const Range& range) const {
    return range == Range{0, 0, m_rows - 1, m_columns - 1};
}

bool PlainTable::IsSelectEntireRow(const Range& range) const {
    if (range.m_leftColumn != 0 || range.m_rightColumn != m_columns - 1) return false;
    return range.m_topRow != 0 || range.m_bottomRow != m_rows - 1;
}

bool PlainTable::IsSelectEntireColumn(const Range& range) const {
    if (range.m_topRow != 0 || range.m_bottomRow != m_rows - 1) return false;
    return range.m_leftColumn != 0 || range.m_rightColumn != m_columns - 1;
}

bool PlainTable::IsCanDeleteRow(const Range& range) const {
    return !IsSelectEntireTable(range) && m_rows != 1 && !IsSelectEntireColumn(range);
}

bool PlainTable::IsCanDeleteColumn(const Range& range) const {
    return !IsSelectEntireTable(range) && m_columns != 1 && !IsSelectEntireRow(range);
}

bool PlainTable::IsMatchCell(const Range& range) const {
    if (oneCell(range)) return true;
    const Range* merge = mergeAt(range.m_topRow, range.m_leftColumn);
    return merge != nullptr && *merge == range;
}

bool PlainTable::IsSelectMergedEqual(const Range& range) const {
    const Range* merge = mergeAt(range.m_topRow, range.m_leftColumn);
    return merge != nullptr && *merge == range;
}

bool PlainTable::IsMergeAndSelectEqual(const Range& range) const {
    if (isNoCell(range)) return false;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            const Range* merge = mergeAt(row, column);
            if (merge != nullptr) return *merge == range;
        }
    }
    return false;
}

bool PlainTable::IsOnlyCanInsertBlock(const Range& range) const {
    return !oneCell(range) && !IsMergeAndSelectEqual(range);
}

bool PlainTable::IsRowMergeCell(const Range& range) const {
    return !oneCell(range) && IsMergeAndSelectEqual(range) && range.m_topRow == range.m_bottomRow;
}

bool PlainTable::IsColumnMergeCell(const Range& range) const {
    return !oneCell(range) && IsMergeAndSelectEqual(range) && range.m_leftColumn == range.m_rightColumn;
}

bool PlainTable::IsCanMergeCell(const Range& range) const {
    if (oneCell(range)) return false;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            if ((judged(row, column).state & 1) != 0) return false;
        }
    }
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            const Range* merge = mergeAt(row, column);
            if (merge != nullptr) return !(*merge == range);
        }
    }
    return true;
}

bool PlainTable::IsCanUnmergeCell(const Range& range) const {
    if (oneCell(range) || reversed(range)) return false;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            if (mergeAt(row, column) != nullptr && (judged(row, column).state & 1) == 0) return true;
        }
    }
    return false;
}

bool PlainTable::IsMergeable(const Range& range) const {
    if (range.m_topRow != 0) return true;
    for (int column = 0; column < m_columns; ++column) {
        const Range* merge = mergeAt(range.m_bottomRow, column);
        if (merge != nullptr && merge->m_bottomRow > range.m_bottomRow) return false;
    }
    return true;
}

bool PlainTable::IsMergeContentNoFirst(const Range& range) const {
    if (isNoCell(range)) return false;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            if (row == range.m_topRow && column == range.m_leftColumn) continue;
            if (!at(row, column).text.empty()) return true;
        }
    }
    return false;
}

bool PlainTable::IsFirstMergedCell(bool byColumn, int row, int column) const {
    const Range* merge = mergeAt(row, column);
    if (merge == nullptr) return false;
    return byColumn ? merge->m_leftColumn == 0 : merge->m_topRow == 0;
}

bool PlainTable::IsLastMergedCell(bool byColumn, int row, int column) const {
    const Range* merge = mergeAt(row, column);
    if (merge == nullptr) return false;
    return byColumn ? merge->m_rightColumn == m_columns - 1 : merge->m_bottomRow == m_rows - 1;
}

bool PlainTable::IsCellRangeAllContentLocked(const Range& range) const {
    if (isNoCell(range)) return true;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            if ((judged(row, column).state & 1) == 0) return false;
        }
    }
    return true;
}

bool PlainTable::IsCellRangeHasContentLocked(const Range& range) const {
    if (isNoCell(range)) return false;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            if ((judged(row, column).state & 1) != 0) return true;
        }
    }
    return false;
}

bool PlainTable::IsCellRangeAllFormatLocked(const Range& range) const {
    if (isNoCell(range)) return true;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            if ((judged(row, column).state & 16) == 0) return false;
        }
    }
    return true;
}

bool PlainTable::IsRowHasText(int row) const {
    if (row < 0 || row >= m_rows) return false;
    for (int column = 0; column < m_columns; ++column) {
        if (!at(row, column).text.empty()) return false;
    }
    return true;
}

// In the four likeness tests a merge that is the range is met at the first cell that is looked at.

bool PlainTable::IsIdenticalCellStyle(const Range& range) const {
    if (oneCell(range) || reversed(range)) return true;
    const std::wstring& reference = at(range.m_topRow, range.m_leftColumn).style;
    int row = range.m_topRow;
    while (row <= range.m_bottomRow) {
        int column = range.m_leftColumn;
        while (column <= range.m_rightColumn) {
            const Range* merge = mergeAt(row, column);
            if (merge == nullptr) {
                if (at(row, column).style != reference) return false;
                column = column + 1;
                continue;
            }
            if (*merge == range) return true;
            if (judged(row, column).style != reference) return false;
            column = merge->m_rightColumn + 1;
            row = merge->m_bottomRow;
        }
        row = row + 1;
    }
    return true;
}

bool PlainTable::IsIdenticalAlignment(const Range& range) const {
    if (oneCell(range) || reversed(range)) return true;
    if (IsSelectMergedEqual(range)) return true;
    const int reference = at(range.m_topRow, range.m_leftColumn).alignment;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            if (judged(row, column).alignment != reference) return false;
        }
    }
    return true;
}

bool PlainTable::IsIdenticalLocking(const Range& range) const {
    if (oneCell(range) || reversed(range)) return true;
    if (IsSelectMergedEqual(range)) return true;
    const int reference = at(range.m_topRow, range.m_leftColumn).state;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            if (judged(row, column).state != reference) return false;
        }
    }
    return true;
}

bool PlainTable::IsIdenticalDataFormat(const Range& range) const {
    if (oneCell(range) || reversed(range)) return true;
    if (IsSelectMergedEqual(range)) return true;
    const PlainCell& reference = at(range.m_topRow, range.m_leftColumn);
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            const PlainCell& cell = judged(row, column);
            const int differences =
                (cell.dataType != reference.dataType ? 1 : 0) + (cell.unitType != reference.unitType ? 1 : 0);
            if (differences >= (mergeAt(row, column) != nullptr ? 2 : 1)) return false;
        }
    }
    return true;
}

namespace {

/// How many cells a selection holds; 0 for an invalid one.
int cellsIn(const Range& range) {
    const bool rowsSet = range.m_topRow >= 0 && range.m_bottomRow >= 0;
    const bool columnsSet = range.m_leftColumn >= 0 && range.m_rightColumn >= 0;
    const int rows = lines(range.m_topRow, range.m_bottomRow);
    const int columns = lines(range.m_leftColumn, range.m_rightColumn);
    if (rowsSet && columnsSet) return rows * columns;
    if (rowsSet && range.m_leftColumn < 0 && range.m_rightColumn < 0) return rows;
    if (columnsSet && range.m_topRow < 0 && range.m_bottomRow < 0) return columns;
    return 0;
}

}  // namespace

bool PlainTable::IsSingleCell(const Range& selection) const {
    if (cellsIn(selection) < 2) return true;
    const Range* merge = mergeAt(selection.m_topRow, selection.m_leftColumn);
    return merge != nullptr && *merge == selection;
}

bool PlainTable::CanMergeCells(const Range& selection) const {
    if (cellsIn(selection) == 1 || IsSingleCell(selection)) return false;
    for (int row = selection.m_topRow; row <= selection.m_bottomRow; ++row) {
        for (int column = selection.m_leftColumn; column <= selection.m_rightColumn; ++column) {
            if (!at(row, column).contentEditable) return false;
        }
    }
    return true;
}

bool PlainTable::CanUnMergeCells(const Range& selection) const {
    if (isNoCell(selection) || selection.m_topRow > selection.m_bottomRow) return false;
    bool merged = false;
    bool editable = false;
    for (int row = selection.m_topRow; row <= selection.m_bottomRow; ++row) {
        for (int column = selection.m_leftColumn; column <= selection.m_rightColumn; ++column) {
            if (mergeAt(row, column) != nullptr) merged = true;
            if (at(row, column).contentEditable) editable = true;
        }
    }
    return merged && editable;
}

int PlainTable::CanColumnSizeEqually(const Range& selection) const {
    return lines(selection.m_leftColumn, selection.m_rightColumn);
}

int PlainTable::CanRowSizeEqually(const Range& selection) const {
    return lines(selection.m_topRow, selection.m_bottomRow);
}

bool PlainTable::contentFlag(const Range& selection) const {
    if (isNoCell(selection)) return false;
    for (int row = selection.m_topRow; row <= selection.m_bottomRow; ++row) {
        for (int column = selection.m_leftColumn; column <= selection.m_rightColumn; ++column) {
            if (at(row, column).contentEditable) return true;
        }
    }
    return false;
}

bool PlainTable::formatFlag(const Range& selection) const {
    if (isNoCell(selection)) return false;
    for (int row = selection.m_topRow; row <= selection.m_bottomRow; ++row) {
        for (int column = selection.m_leftColumn; column <= selection.m_rightColumn; ++column) {
            if (at(row, column).formatEditable) return true;
        }
    }
    return false;
}

Range PlainTable::SearchMaxCellRange(int a, int b, const Range& range) const {
    Range w = range;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            if (isNoCell(range)) break;
            const Range* merge = mergeAt(row, column);
            if (merge == nullptr) continue;
            if (w.m_bottomRow == -1 || merge->m_bottomRow > w.m_bottomRow) w.m_bottomRow = merge->m_bottomRow;
            if (w.m_topRow == -1 || merge->m_topRow < w.m_topRow) w.m_topRow = merge->m_topRow;
            if (w.m_rightColumn == -1 || merge->m_rightColumn > w.m_rightColumn) w.m_rightColumn = merge->m_rightColumn;
            if (w.m_leftColumn == -1 || merge->m_leftColumn < w.m_leftColumn) w.m_leftColumn = merge->m_leftColumn;
        }
    }
    if (a == 0 && b == 0) {
        w.m_topRow = 0;
        if (range.m_topRow != 0) return SearchMaxCellRange(a, b, w);
    }
    if (a != 0 && b == 0) w.m_leftColumn = 0;
    if (w == range) return w;
    return SearchMaxCellRange(a, b, w);
}

Range PlainTable::backwardByColumn(const Range& range) const {
    Range w = range;
    const Range* m = mergeAt(w.m_topRow, range.m_leftColumn);
    if (m == nullptr || m->m_leftColumn != 0) return w;
    int c = m->m_rightColumn + 1;
    bool found = false;
    while (c <= w.m_rightColumn) {
        const Range* next = mergeAt(w.m_topRow, c);
        if (next == nullptr) {
            if (!found) w.m_leftColumn = m->m_rightColumn + 1;
            break;
        }
        if (IsLastMergedCell(true, w.m_topRow, c)) {
            c = c + 1;
            w = {range.m_topRow, 0, range.m_bottomRow, m_columns - 1};
        } else {
            found = true;
            c = next->m_rightColumn + 1;
            w.m_leftColumn = c;
        }
    }
    return w;
}

Range PlainTable::backwardByRow(const Range& range) const {
    Range w = range;
    const Range* m = mergeAt(w.m_topRow, w.m_leftColumn);
    if (m == nullptr || m->m_topRow != 0) return w;
    int r = m->m_bottomRow + 1;
    bool found = false;
    while (r <= w.m_bottomRow) {
        const Range* next = mergeAt(r, w.m_leftColumn);
        if (next == nullptr) {
            if (!found) w.m_topRow = m->m_bottomRow + 1;
            break;
        }
        if (IsLastMergedCell(false, r, w.m_leftColumn)) {
            r = r + 1;
            w = {0, range.m_leftColumn, m_rows - 1, w.m_rightColumn};
        } else {
            found = true;
            r = next->m_bottomRow + 1;
            w.m_topRow = r;
        }
    }
    return w;
}

Range PlainTable::forwardByColumn(const Range& range) const {
    Range w = range;
    const Range* m = mergeAt(w.m_bottomRow, range.m_rightColumn);
    if (m == nullptr || m->m_rightColumn != range.m_rightColumn) return w;
    int c = m->m_leftColumn - 1;
    bool found = false;
    while (c >= w.m_leftColumn) {
        const Range* next = mergeAt(w.m_bottomRow, c);
        if (next == nullptr) {
            if (!found) w.m_rightColumn = m->m_leftColumn - 1;
            break;
        }
        if (IsFirstMergedCell(true, w.m_bottomRow, c)) {
            c = c - 1;
            w = {range.m_topRow, 0, range.m_bottomRow, m_columns - 1};
        } else {
            found = true;
            c = next->m_leftColumn - 1;
            w.m_rightColumn = c;
        }
    }
    return w;
}

Range PlainTable::forwardByRow(const Range& range) const {
    Range w = range;
    const Range* m = mergeAt(range.m_bottomRow, w.m_rightColumn);
    if (m == nullptr || m->m_bottomRow != range.m_bottomRow) return w;
    int r = m->m_topRow - 1;
    bool found = false;
    while (r >= w.m_topRow) {
        const Range* next = mergeAt(r, w.m_rightColumn);
        if (next == nullptr) {
            if (!found) w.m_bottomRow = m->m_topRow - 1;
            break;
        }
        if (IsFirstMergedCell(false, r, w.m_rightColumn)) {
            r = r - 1;
            w = {0, range.m_leftColumn, m_rows - 1, range.m_rightColumn};
        } else {
            found = true;
            r = next->m_topRow - 1;
            w.m_bottomRow = r;
        }
    }
    return w;
}

Range PlainTable::CellRangeBackward(bool byColumn, const Range& range) const {
    return byColumn ? backwardByColumn(range) : backwardByRow(range);
}

Range PlainTable::CellRangeForward(bool byColumn, const Range& range) const {
    return byColumn ? forwardByColumn(range) : forwardByRow(range);
}

bool PlainTable::checkRangeFromTable(const Range& range) const {
    const bool rowsSet = range.m_topRow >= 0 && range.m_bottomRow >= 0;
    const bool columnsSet = range.m_leftColumn >= 0 && range.m_rightColumn >= 0;
    const bool rowsUnset = range.m_topRow < 0 && range.m_bottomRow < 0;
    const bool columnsUnset = range.m_leftColumn < 0 && range.m_rightColumn < 0;
    const bool valid = (rowsSet && columnsSet) || (rowsSet && columnsUnset) || (rowsUnset && columnsSet);
    return valid && range.m_bottomRow < m_rows && range.m_rightColumn < m_columns;
}

bool PlainTable::isInvalidRowColByMerge(int row, int column, bool& mergedAcross) const {
    const Range* merge = mergeAt(row, column);
    if (merge == nullptr) return false;
    const bool manyRows = merge->m_bottomRow > merge->m_topRow;
    const bool manyColumns = merge->m_rightColumn > merge->m_leftColumn;
    if (manyRows && row != merge->m_topRow) return true;
    if (manyColumns) mergedAcross = true;
    return manyColumns && column != merge->m_leftColumn;
}

}  // namespace kdtest
