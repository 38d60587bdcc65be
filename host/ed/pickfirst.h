// What is selected before a command starts, and cells selected in a table.
#pragma once

#include <vector>

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"

class KdDbDatabase;

namespace kdhost {

/// The objects with grips. A table with selected cells belongs to them whoever selected the cells.
class PickFirst {
public:
    explicit PickFirst(const KdDbDatabase& database) : m_database(database) {}

    /// The objects picked, then the tables with selected cells that are not among them. Erased ones left out.
    std::vector<KdDbObjectId> objects() const;

    /// Cells selected in tables that are not among the objects are given up.
    void set(std::vector<KdDbObjectId> ids);
    void add(KdDbObjectId id);
    void clear() { set({}); }

    /// Selects cells, with their table as the sole object.
    void selectCells(KdDbObjectId table, const KdCellRange& cells);

    /// The table that was selected or made last, of those that aren't erased; null when the latest are all gone.
    KdDbObjectId currentTable() const;
    void setCurrentTable(KdDbObjectId table);

private:
    std::vector<KdDbObjectId> tablesWithSelectedCells() const;

    const KdDbDatabase& m_database;
    std::vector<KdDbObjectId> m_picked;
    std::vector<KdDbObjectId> m_latestTables;  ///< the current one last
};

}  // namespace kdhost
