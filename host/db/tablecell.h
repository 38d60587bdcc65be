// A cell, a row, and the rows of a table.
//
// A cell is small: its text, and what it rarely has (overrides of its format, a block, a field), lie apart and are
// shared until written. Cells formatted alike share one record of overrides. Rows are shared between the
// states of a table until one of them writes, so that keeping a state is cheap whatever the table's size.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/db/cellformat.h"
#include "host/db/sharedtext.h"
#include "host/db/tablecow.h"

namespace kdhost {

/// A cell's place in its merge, relative to the cell, so that rows inserted elsewhere leave it alone. All
/// zero for a cell in no merge.
struct MergeLink {
    int up = 0;    ///< rows from the merge's top row
    int left = 0;  ///< columns from its left column
    int rows = 0;
    int columns = 0;

    bool merged() const { return rows != 0; }
    bool covered() const { return up != 0 || left != 0; }
    friend bool operator==(const MergeLink&, const MergeLink&) = default;
};

/// The properties that a cell overrides. Values of properties that are not in `own` mean nothing.
struct FormatOverrides {
    FormatBits own = 0;
    CellFormat format;
};

/// Content that is not text.
struct CellObjects {
    KdDbObjectId field;
    KdDbObjectId block;
    double blockScale = 1.0;
    double blockRotation = 0.0;  ///< radians
    bool autoFit = false;

    friend bool operator==(const CellObjects&, const CellObjects&) = default;
};

struct Cell {
    SharedText text;
    CopyOnWrite<FormatOverrides> overrides;
    CopyOnWrite<CellObjects> objects;
    MergeLink merge;
    std::uint16_t style = 0;  ///< place in the table's pool of cell styles
    std::uint8_t type = KdDb::kTextCell;
    std::uint8_t state = KdDb::kCellStateNone;

    FormatBits own() const { return overrides ? overrides->own : 0; }
    /// The cell's own value of a property; null where it overrides none.
    template <class T>
    const T* ownValue(const FormatProperty<T>& which) const {
        const FormatOverrides* held = overrides.get();
        return held != nullptr && (held->own & which.bit) != 0 ? &which.in(held->format) : nullptr;
    }
    bool hasField() const { return objects && !objects->field.isNull(); }
    KdDbObjectId field() const { return objects ? objects->field : KdDbObjectId::kNull; }
    KdDbObjectId block() const { return objects ? objects->block : KdDbObjectId::kNull; }
    bool empty() const { return text.empty() && field().isNull() && block().isNull(); }
    /// Back to an empty text cell; style, overrides and locks stay.
    void clearContent() {
        text.clear();
        objects = {};
        type = KdDb::kTextCell;
    }
    /// Everything of the other cell but its place in a merge.
    void takeOver(const Cell& other) {
        const MergeLink own = merge;
        *this = other;
        merge = own;
    }
};

struct TableRow {
    double height = 0.0;
    std::uint16_t style = 0;  ///< of the row itself; new columns begin with it
    std::vector<Cell> cells;

    /// Lowest height that the row's own text allows, as last worked out under `stamp`; 0 for never.
    mutable double minimumHeight = 0.0;
    mutable std::uint64_t minimumStamp = 0;
};

/// The rows of one state of a table.
class TableRows {
public:
    int size() const { return m_count; }
    const TableRow& operator[](int row) const { return *(*m_rows)[static_cast<std::size_t>(row)]; }
    const Cell& cell(int row, int column) const { return (*this)[row].cells[static_cast<std::size_t>(column)]; }
    /// Whether nothing was written in either since one was copied from the other.
    bool shares(const TableRows& other) const { return m_rows.shares(other.m_rows); }

    /// The row for this state alone.
    TableRow& write(int row) {
        TableRow& own = m_rows.write()[static_cast<std::size_t>(row)].write();
        own.minimumStamp = 0;
        return own;
    }
    /// A height is no part of what the row's own text asks for.
    void setHeight(int row, double height) {
        if ((*this)[row].height != height) m_rows.write()[static_cast<std::size_t>(row)].write().height = height;
    }
    Cell& writeCell(int row, int column) { return write(row).cells[static_cast<std::size_t>(column)]; }

    /// Inserts copies of one row; they share it until written.
    void insert(int at, int count, TableRow row) {
        Rows& rows = m_rows.write();
        rows.insert(rows.begin() + at, static_cast<std::size_t>(count), CopyOnWrite<TableRow>(std::move(row)));
        m_count += count;
    }
    void erase(int first, int count) {
        Rows& rows = m_rows.write();
        rows.erase(rows.begin() + first, rows.begin() + first + count);
        m_count -= count;
    }

private:
    using Rows = std::vector<CopyOnWrite<TableRow>>;
    CopyOnWrite<Rows> m_rows;
    int m_count = 0;  ///< asked for before every look at a cell, hence at hand
};

}  // namespace kdhost
