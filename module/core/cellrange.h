// Rectangles of cells as the module keeps them: a plain record, and a value class that also knows the forms
// of whole rows and whole columns.
#pragma once

#include "kd/db/cellrange.h"

class KdDbTable;

/// Four fields in the order of KdCellRange; -1 in all of them means no cell.
struct CVqTableCellRange {
    int m_topRow = -1;
    int m_leftColumn = -1;
    int m_bottomRow = -1;
    int m_rightColumn = -1;

    friend bool operator==(const CVqTableCellRange&, const CVqTableCellRange&) = default;
};

/// A range of one of three forms: a block of cells (no field negative), whole rows (both columns negative)
/// or whole columns (both rows negative). Everything else is invalid. A range may be reversed.
class CKdTableCellRange {
public:
    /// -1 in all fields, which is invalid.
    CKdTableCellRange() = default;
    CKdTableCellRange(const KdCellRange& range) { *this = range; }
    CKdTableCellRange(const CKdTableCellRange&) = default;
    CKdTableCellRange& operator=(const CKdTableCellRange&) = default;
    CKdTableCellRange& operator=(const KdCellRange& range);
    /// Null leaves the range as it is.
    CKdTableCellRange& operator=(const KdCellRange* range);

    bool isValid() const;
    /// Cells of a block, rows of whole rows, columns of whole columns; 0 when invalid. A reversed range
    /// counts like its ordered one.
    int numCells() const;
    /// 0 when a row is negative.
    int numRows() const;
    /// 0 when a column is negative.
    int numColumns() const;
    KdCellRange asRange() const;

    /// Whether this range lies in `other`. A block is held against whole rows by its rows alone and against
    /// whole columns by its columns alone; whole rows compare only rows and whole columns only columns,
    /// whatever form `other` has. An invalid range is compared by columns with whole columns, and lies in
    /// nothing else.
    bool beingContained(const CKdTableCellRange& other) const;
    /// Whether both have as many rows and as many columns.
    bool rangeMatching(const CKdTableCellRange& other) const;
    /// Valid, and ending above the table's last row and left of its last column or on them. False for null.
    bool checkRangeFromTable(const KdDbTable* table) const;

    int m_topRow = -1;
    int m_leftColumn = -1;
    int m_bottomRow = -1;
    int m_rightColumn = -1;

private:
    enum class Form { Invalid, Block, WholeRows, WholeColumns };
    Form form() const;
    bool rowsLieIn(const CKdTableCellRange& other) const;
    bool columnsLieIn(const CKdTableCellRange& other) const;
};
