// The sample of a cell style: a small table whose cells show the style's own name.
//
// It is laid out in a drawing of its own, as a block of plain entities under a block reference, so that the user's
// drawing is never changed by a preview and no undo is recorded. Text is measured first; rows and columns grow until
// it fits; then come fills, texts and grid lines.
#pragma once

#include <memory>

#include "kd/rx/kdstring.h"
#include "module/preview/cellcalccache.h"
#include "module/preview/sampleblock.h"

class KdDbTableStyle;
class SampleLines;

class CVqTableCellFromTableStyle {
public:
    /// `style` is open and stays so while the sample is in use; null leaves the object without a drawing, and the
    /// sizes 0. A sample has two rows, and two columns or a single one.
    CVqTableCellFromTableStyle(KdDbTableStyle* style, KdString cellStyle, bool singleColumn);
    virtual ~CVqTableCellFromTableStyle();
    CVqTableCellFromTableStyle(const CVqTableCellFromTableStyle&) = delete;
    CVqTableCellFromTableStyle& operator=(const CVqTableCellFromTableStyle&) = delete;

    /// Makes the reference and all that it shows. True once there is a reference, even one whose block failed; false
    /// without a style.
    bool CreateTableCell();
    /// Makes the reference's block. False, with the reference as it was, when the block can't be added.
    bool RecomputeTableBlock();
    /// Null before CreateTableCell. Owned by this object.
    KdDbBlockReference* GetTableCell() const { return m_reference.get(); }
    /// The drawing that the sample lies in, owned by this object; null without a style.
    KdDbDatabase* GetDatabase() const { return m_database.get(); }

    // The sizes of each cell, in drawing units. CreateTableCell starts from them, and lets them grow.

    double GetRowHeight() const { return m_grid.rowHeight; }
    void SetRowHeight(double height) { m_grid.rowHeight = height; }
    double GetColumnWidth() const { return m_grid.columnWidth; }
    void SetColumnWidth(double width) { m_grid.columnWidth = width; }

private:
    bool mergesAll() const;

    VqTableCellCalcCaches calcCells() const;
    void calcTextCell(double width, double height, VqTableCellCalcCache& cache) const;
    bool adjustRowColumnSize(const VqTableCellCalcCaches& caches);
    void addRowContent(KdGePoint3d position, std::vector<VqTableCellCalcCache>& row, KdDbBlockTableRecord& block) const;
    void addBackground(const KdGePoint3d& position, KdDbBlockTableRecord& block) const;
    void makeCell(const KdGePoint3d& origin, int row, int column, SampleLines& lines);
    void addTopLine(const KdGePoint3d& origin, int row, int column, SampleLines& lines) const;
    void addLeftLine(const KdGePoint3d& origin, int row, int column, SampleLines& lines) const;

    std::unique_ptr<KdDbDatabase> m_database;
    KdDbTableStyle* m_style = nullptr;  ///< the caller's
    std::unique_ptr<KdDbBlockReference> m_reference;
    KdString m_cellStyle;
    SampleGrid m_grid;
    bool m_insideLines = false;  ///< inner lines take the properties of the inside edges
    bool m_singleColumn = false;
    unsigned m_rows = 2;
    unsigned m_columns = 2;
};
