// A plain slow model of a table's grid and of what is done to it by the selection: every change is made by looking
// at every cell. A value: a copy is what an undo has to give back.
//
// A cell's own record stays with it whatever covers it. What a reader sees of a covered cell is no content, and
// style and locks of the owner of its merge.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "kd/db/cellrange.h"

class KdDbTable;

namespace kdtest {

struct SlowCell {
    std::wstring text;
    std::wstring style;
    int state = 0;
    int merge = 0;  ///< number of the merge; 0 for none

    bool locked() const { return (state & 3) != 0; }  ///< content locked or read-only
};

/// A row or a column.
struct SlowLine {
    double size = 0.0;
    std::wstring style;  ///< of rows only: what new columns begin with
};

class SlowGrid {
public:
    /// Answers the question whether content may be lost.
    using Ask = std::function<bool()>;

    /// As the table keeps it, with what covered cells hold unseen.
    explicit SlowGrid(const KdDbTable& table);

    /// Empty when the table shows the same.
    std::string difference(const KdDbTable& table) const;
    /// Merges, texts and locks, for a failure's message.
    std::string describe() const;

    int rowCount() const { return static_cast<int>(rows.size()); }
    int columnCount() const { return static_cast<int>(columns.size()); }
    SlowCell& at(int row, int column);
    const SlowCell& at(int row, int column) const;
    /// Calls `visit(row, column)` for each cell of the selection, which may be reversed or have -1 in it.
    void eachSelected(const std::function<void(int, int)>& visit) const;

    // What a reader sees.
    KdCellRange mergeRange(int row, int column) const;
    bool covered(int row, int column) const;
    bool empty(int row, int column) const;

    // What the table itself does. Each passes over what the table doesn't allow.
    void insertRows(int place, int inheritFrom, int count);
    void insertColumns(int place, int inheritFrom, int count);
    void deleteRows(int first, int count);
    void deleteColumns(int first, int count);
    void mergeCells(int top, int bottom, int left, int right);
    void unmergeCells(int top, int bottom, int left, int right);

    // Each does what the operation of that name is to do to the selection.
    void InsertRowByAbove();
    void InsertRowByBelow();
    void DeleteRows();
    void InsertColumnByLeft();
    void InsertColumnByRight();
    void DeleteColumns();
    void UnmergeCells();
    void MergeAll(const Ask& ask);
    void MergeByRow(const Ask& ask);
    void MergeByColumn(const Ask& ask);
    void SizeColumnsEvenly();
    void SizeRowsEvenly();

    std::vector<SlowLine> rows;
    std::vector<SlowLine> columns;
    std::vector<std::vector<SlowCell>> cells;
    KdCellRange selection;

private:
    /// The grid with rows and columns exchanged, on which columns are told as rows.
    SlowGrid turned() const;
    SlowGrid() = default;
    bool contains(const KdCellRange& range) const;
    bool isSingleCell() const;
    bool losesContent(const KdCellRange& part) const;
    bool isRectangle() const;
    KdCellRange rangeOf(int merge) const;
    KdCellRange grown(KdCellRange range) const;
    void dropSingleMerges();
    void clampSelection(int rowsBefore, int columnsBefore);
    template <class Change>
    void onTurned(Change change) {
        SlowGrid other = turned();
        change(other);
        *this = other.turned();
    }

    int m_lastMerge = 0;
};

}  // namespace kdtest
