// What a range of cells counts, and when it lies in another.

#include "module/core/cellrange.h"

#include <cstdint>
#include <cstdlib>
#include <limits>

#include "kd/db/table.h"

namespace {

/// How many lines lie between two lines, both counted; 0 when one is negative.
std::int64_t countLines(int first, int last) {
    if (first < 0 || last < 0) return 0;
    return std::abs(std::int64_t{last} - first) + 1;
}

int saturated(std::int64_t count) {
    constexpr int most = std::numeric_limits<int>::max();
    return count > most ? most : static_cast<int>(count);
}

}  // namespace

CKdTableCellRange& CKdTableCellRange::operator=(const KdCellRange& range) {
    m_topRow = range.m_topRow;
    m_leftColumn = range.m_leftColumn;
    m_bottomRow = range.m_bottomRow;
    m_rightColumn = range.m_rightColumn;
    return *this;
}

CKdTableCellRange& CKdTableCellRange::operator=(const KdCellRange* range) {
    if (range != nullptr) *this = *range;
    return *this;
}

CKdTableCellRange::Form CKdTableCellRange::form() const {
    const bool hasRows = m_topRow >= 0 && m_bottomRow >= 0;
    const bool hasColumns = m_leftColumn >= 0 && m_rightColumn >= 0;
    const bool noRows = m_topRow < 0 && m_bottomRow < 0;
    const bool noColumns = m_leftColumn < 0 && m_rightColumn < 0;
    if (hasRows && hasColumns) return Form::Block;
    if (hasRows && noColumns) return Form::WholeRows;
    if (noRows && hasColumns) return Form::WholeColumns;
    return Form::Invalid;
}

bool CKdTableCellRange::isValid() const {
    return form() != Form::Invalid;
}

int CKdTableCellRange::numCells() const {
    switch (form()) {
        case Form::Block: {
            const std::int64_t rows = countLines(m_topRow, m_bottomRow);
            const std::int64_t columns = countLines(m_leftColumn, m_rightColumn);
            return saturated(rows * columns);
        }
        case Form::WholeRows:
            return numRows();
        case Form::WholeColumns:
            return numColumns();
        case Form::Invalid:
            break;
    }
    return 0;
}

int CKdTableCellRange::numRows() const {
    return saturated(countLines(m_topRow, m_bottomRow));
}

int CKdTableCellRange::numColumns() const {
    return saturated(countLines(m_leftColumn, m_rightColumn));
}

KdCellRange CKdTableCellRange::asRange() const {
    return {m_topRow, m_leftColumn, m_bottomRow, m_rightColumn};
}

bool CKdTableCellRange::rowsLieIn(const CKdTableCellRange& other) const {
    return other.m_topRow <= m_topRow && m_bottomRow <= other.m_bottomRow;
}

bool CKdTableCellRange::columnsLieIn(const CKdTableCellRange& other) const {
    return other.m_leftColumn <= m_leftColumn && m_rightColumn <= other.m_rightColumn;
}

bool CKdTableCellRange::beingContained(const CKdTableCellRange& other) const {
    const Form outer = other.form();
    switch (form()) {
        case Form::Block:
            if (outer == Form::Block) return rowsLieIn(other) && columnsLieIn(other);
            if (outer == Form::WholeRows) return rowsLieIn(other);
            return outer == Form::WholeColumns && columnsLieIn(other);
        case Form::WholeRows:
            return rowsLieIn(other);
        case Form::WholeColumns:
            return columnsLieIn(other);
        case Form::Invalid:
            break;
    }
    return outer == Form::WholeColumns && columnsLieIn(other);
}

bool CKdTableCellRange::rangeMatching(const CKdTableCellRange& other) const {
    return numRows() == other.numRows() && numColumns() == other.numColumns();
}

bool CKdTableCellRange::checkRangeFromTable(const KdDbTable* table) const {
    return table != nullptr && isValid() && m_bottomRow < table->numRows() && m_rightColumn < table->numColumns();
}
