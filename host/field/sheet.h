// A table as formulas see it: what each cell comes to, and which formulas read it.
//
// Only tables that hold formulas or are read by some have a sheet. A sheet remembers the rows of the table as it
// saw them last; rows are shared until written, so that comparing addresses finds the rows that have changed,
// whatever changed them.
#pragma once

#include <unordered_set>
#include <vector>

#include "host/db/tablerows.h"
#include "host/field/rangeindex.h"
#include "kd/db/objectid.h"

namespace kdhost::field {

enum class SlotKind : unsigned char { empty, number, text, error, field };

/// One cell. Its text is looked up in the table's rows where it is wanted.
struct Slot {
    SlotKind kind = SlotKind::empty;
    int cellField = -1;  ///< number of the field that the cell shows
    double number = 0.0;

    friend bool operator==(const Slot&, const Slot&) = default;
};

struct Sheet {
    KdDbObjectId table;
    bool erased = false;  ///< the table is
    TableRows seen;
    int columns = 0;
    std::vector<std::vector<Slot>> rows;
    std::vector<int> fieldsInColumn;
    std::unordered_set<int> cellFields;  ///< that cells show
    RangeIndex readers;
    std::size_t readerCount = 0;
    std::size_t goneReaders = 0;  ///< of those, readers that are formulas no more

    int rowCount() const { return static_cast<int>(rows.size()); }
    bool contains(const KdCellRange& cells) const {
        return cells.m_bottomRow < rowCount() && cells.m_rightColumn < columns;
    }
    const Slot& at(int row, int column) const {
        return rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }
    Slot& at(int row, int column) { return rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]; }
    bool hasFields(int column) const { return fieldsInColumn[static_cast<std::size_t>(column)] > 0; }
    void countField(int column, int count) { fieldsInColumn[static_cast<std::size_t>(column)] += count; }

    void addReader(const KdCellRange& cells, RangeIndex::Reader reader) {
        readers.add(cells, reader);
        ++readerCount;
    }
    void clearReaders() {
        readers.clear();
        readerCount = 0;
        goneReaders = 0;
    }
};

/// A cell of a sheet.
struct Place {
    Sheet* sheet = nullptr;
    int row = 0;
    int column = 0;

    friend bool operator==(const Place&, const Place&) = default;
};

}  // namespace kdhost::field
