// A plain slow model of a table and of the tests of its ranges: a grid of merge numbers and naive loops, with
// no tricks, to hold the module's operations against.
#pragma once

#include <string>
#include <vector>

#include "module/core/cellrange.h"

class KdDbTable;

namespace kdtest {

struct PlainCell {
    int merge = -1;  ///< index into the table's merges
    int state = 0;
    std::wstring style;
    int alignment = 0;
    int dataType = 0;
    int unitType = 0;
    std::wstring text;
    bool contentEditable = true;
    bool formatEditable = true;
};

class PlainTable {
public:
    using Range = CVqTableCellRange;

    /// The cells as the table's getters tell them; the merges as the test made them.
    PlainTable(const KdDbTable& table, std::vector<Range> merges);

    // Each gives what the operation of that name is to give.
    bool CheckCellRangeValid(const Range& range) const;
    bool IsSelectEntireTable(const Range& range) const;
    bool IsSelectEntireRow(const Range& range) const;
    bool IsSelectEntireColumn(const Range& range) const;
    bool IsCanDeleteRow(const Range& range) const;
    bool IsCanDeleteColumn(const Range& range) const;
    bool IsMatchCell(const Range& range) const;
    bool IsSelectMergedEqual(const Range& range) const;
    bool IsMergeAndSelectEqual(const Range& range) const;
    bool IsOnlyCanInsertBlock(const Range& range) const;
    bool IsRowMergeCell(const Range& range) const;
    bool IsColumnMergeCell(const Range& range) const;
    bool IsCanMergeCell(const Range& range) const;
    bool IsCanUnmergeCell(const Range& range) const;
    bool IsMergeable(const Range& range) const;
    bool IsMergeContentNoFirst(const Range& range) const;
    bool IsFirstMergedCell(bool byColumn, int row, int column) const;
    bool IsLastMergedCell(bool byColumn, int row, int column) const;
    bool IsCellRangeAllContentLocked(const Range& range) const;
    bool IsCellRangeHasContentLocked(const Range& range) const;
    bool IsCellRangeAllFormatLocked(const Range& range) const;
    bool IsRowHasText(int row) const;
    bool IsIdenticalCellStyle(const Range& range) const;
    bool IsIdenticalAlignment(const Range& range) const;
    bool IsIdenticalLocking(const Range& range) const;
    bool IsIdenticalDataFormat(const Range& range) const;
    bool IsSingleCell(const Range& selection) const;
    bool CanMergeCells(const Range& selection) const;
    bool CanUnMergeCells(const Range& selection) const;
    int CanColumnSizeEqually(const Range& selection) const;
    int CanRowSizeEqually(const Range& selection) const;
    bool contentFlag(const Range& selection) const;
    bool formatFlag(const Range& selection) const;
    Range SearchMaxCellRange(int a, int b, const Range& range) const;
    Range CellRangeBackward(bool byColumn, const Range& range) const;
    Range CellRangeForward(bool byColumn, const Range& range) const;
    bool checkRangeFromTable(const Range& range) const;
    bool isInvalidRowColByMerge(int row, int column, bool& mergedAcross) const;

    int rows() const { return m_rows; }
    int columns() const { return m_columns; }
    /// The grid of merges, and the locks, for a failure's message.
    std::string describe() const;

private:
    /// The cell at a place; a row or column of -1 is the first one, and every cell outside is alike.
    const PlainCell& at(int row, int column) const;
    /// The merge that the place belongs to; null for none.
    const Range* mergeAt(int row, int column) const;
    /// The cell by which a place is judged: the top left one of its merge.
    const PlainCell& judged(int row, int column) const;
    Range backwardByColumn(const Range& range) const;
    Range backwardByRow(const Range& range) const;
    Range forwardByColumn(const Range& range) const;
    Range forwardByRow(const Range& range) const;

    int m_rows;
    int m_columns;
    std::vector<Range> m_merges;
    std::vector<std::vector<PlainCell>> m_cells;
    PlainCell m_outside;
};

}  // namespace kdtest
