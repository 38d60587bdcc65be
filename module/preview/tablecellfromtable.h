// The sample of a range of cells: at most two by two cells that show the borders of the range.
//
// It is laid out as the sample of a cell style is, in a drawing of its own. Its properties come from a table, and are
// those of the range's first cell.
#pragma once

#include <memory>

#include "module/core/cellrange.h"
#include "module/preview/cellcalccache.h"
#include "module/preview/sampleblock.h"

class KdDbTable;
class SampleLines;

class CVqTableCellFromTable {
public:
    /// `table` is open and stays so while the sample is in use; null leaves the object without a drawing, and the
    /// sizes 0. A range that is exactly one merge shows one cell, one of three or more rows or columns two by two.
    CVqTableCellFromTable(KdDbTable* table, const CVqTableCellRange& range);
    virtual ~CVqTableCellFromTable();
    CVqTableCellFromTable(const CVqTableCellFromTable&) = delete;
    CVqTableCellFromTable& operator=(const CVqTableCellFromTable&) = delete;

    /// Makes the reference and all that it shows. True once there is a reference, even one whose block failed; false
    /// without a table.
    bool CreateTableCell();
    /// Makes the reference's block. False, with the reference as it was, when the block can't be added.
    bool RecomputeTableBlock();
    /// Null before CreateTableCell. Owned by this object.
    KdDbBlockReference* GetTableCell() const { return m_reference.get(); }
    /// The drawing that the sample lies in, owned by this object; null without a table.
    KdDbDatabase* GetDatabase() const { return m_database.get(); }

    // The sizes of each cell, in drawing units; no text makes them grow.

    double GetRowHeight() const { return m_grid.rowHeight; }
    void SetRowHeight(double height) { m_grid.rowHeight = height; }
    double GetColumnWidth() const { return m_grid.columnWidth; }
    void SetColumnWidth(double width) { m_grid.columnWidth = width; }

private:
    void findShape();
    int referenceRow() const { return static_cast<int>(m_referenceRow); }
    int referenceColumn() const { return static_cast<int>(m_referenceColumn); }

    VqTableCellCalcCaches calcCells() const;
    void calcTextCell(double width, double height, VqTableCellCalcCache& cache) const;
    void addRowContent(KdGePoint3d position, std::vector<VqTableCellCalcCache>& row, KdDbBlockTableRecord& block) const;
    void makeCell(const KdGePoint3d& origin, SampleLines& lines) const;

    std::unique_ptr<KdDbDatabase> m_database;
    KdDbTable* m_table = nullptr;  ///< the caller's
    std::unique_ptr<KdDbBlockReference> m_reference;
    CVqTableCellRange m_range;
    SampleGrid m_grid;
    unsigned m_shape = 0;  ///< 0 one cell, 1 a row of two, 2 a column of two, 3 two by two
    unsigned m_rows = 0;
    unsigned m_columns = 0;
    // The range's first cell: the text and most properties of lines are read from it.
    unsigned m_referenceRow = 0;
    unsigned m_referenceColumn = 0;
};
