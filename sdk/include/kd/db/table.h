// The table entity: a grid of cells with merges, content, format and a selection.
//
// Rows and columns count from 0; row 0 is the top row in the table's own order, column 0 the left column.
// Each rectangle of merged cells has one owner, its top left cell. A getter of a cell property gives the
// effective value: the cell's own override, else the value of its cell style in the table's style. A place
// outside the table is an error that changes nothing: a setter ignores it, a getter gives the value of a
// fresh cell of style "_DATA". A row or column of -1 stands for a whole column or row: a setter acts on all
// of it, a getter reads its first cell.
#pragma once

#include <memory>
#include <string>

#include "kd/db/blockreference.h"
#include "kd/db/cellrange.h"
#include "kd/db/color.h"
#include "kd/db/value.h"
#include "kd/rx/array.h"
#include "kd/rx/kdstring.h"

struct KdDbTableTransient;  ///< the selection, and what is worked out from the state; the host's own

class KdDbTable : public KdDbBlockReference {
public:
    KDRX_DECLARE_MEMBERS(KdDbTable)
    /// A table of one row and one column in memory, in no database.
    KdDbTable();
    ~KdDbTable() override;

    // The virtual operations stand in the order of the host's class.

    /// Kept as given, normalised on use.
    void setNormal(const KdGeVector3d& normal) override;
    /// Insertion point: the outer corner of the first cell.
    KdGePoint3d position() const override;
    void setPosition(const KdGePoint3d& position) override;
    virtual KdDbObjectId tableStyle() const;
    virtual void setTableStyle(const KdDbObjectId& style);
    /// Direction of the rows, in world coordinates; kept as given, normalised on use.
    virtual KdGeVector3d direction() const;
    virtual void setDirection(const KdGeVector3d& direction);
    virtual int numRows() const;
    virtual void setNumRows(int rows);
    virtual int numColumns() const;
    virtual void setNumColumns(int columns);
    virtual double width() const;
    virtual double columnWidth(int column) const;
    virtual void setColumnWidth(int column, double width);
    virtual void setColumnWidth(double width);
    virtual double rowHeight(int row) const;
    virtual void setRowHeight(int row, double height);
    virtual void setRowHeight(double height);
    /// Narrowest that the column's content allows.
    virtual double minimumColumnWidth(int column) const;
    /// Lowest that the row's content allows.
    virtual double minimumRowHeight(int row) const;
    /// 0: the table grows downwards from its position; otherwise upwards. As the table's style has it until it is
    /// set.
    virtual int flowDirection() const;
    virtual void setFlowDirection(int flow);
    virtual bool isTitleSuppressed() const;
    virtual bool isHeaderSuppressed() const;
    /// Sets the flag of the header row. The row itself stays.
    virtual void suppressHeaderRow(bool suppress);
    /// A table-wide option; the reference host keeps none, and the call changes nothing.
    virtual void setTableOption(int option, int value);
    /// Text height that the style gives the rows of that type.
    virtual double textHeight(KdDb::RowType rowType) const;
    /// Drops the overrides of every cell.
    virtual void clearTableStyleOverrides(int options);
    virtual KdDb::CellType cellType(int row, int column) const;
    virtual void setCellType(int row, int column, KdDb::CellType type);
    /// Appends the corners top left, top right, bottom left, bottom right in world coordinates, as the cell is read,
    /// whichever way the rows run; a merged cell gives its merge. `outer` false takes the margins off.
    virtual void getCellExtents(int row, int column, bool outer, KdGePoint3dArray& points) const;
    virtual KdDb::CellAlignment alignment(int row, int column) const;
    virtual void setAlignment(int row, int column, KdDb::CellAlignment alignment);
    /// none() when the cell has no fill.
    virtual KdCmColor backgroundColor(int row, int column) const;
    virtual void setBackgroundColor(int row, int column, const KdCmColor& color);
    virtual KdCmColor contentColor(int row, int column) const;
    virtual void setContentColor(int row, int column, const KdCmColor& color);
    virtual KdDb::RowType rowType(int row) const;
    /// With formatting codes; of a field the evaluated text. The table owns it; valid until the next change.
    virtual const wchar_t* textString(int row, int column) const;
    /// Makes the cell a text cell. A row too low for the text grows.
    virtual void setTextString(int row, int column, const wchar_t* text);
    virtual KdDbObjectId fieldId(int row, int column) const;
    virtual void setFieldId(int row, int column, const KdDbObjectId& field);
    virtual KdDbObjectId textStyle(int row, int column) const;
    /// A row too low for the text grows, as it does with the text height.
    virtual void setTextStyle(int row, int column, const KdDbObjectId& style);
    virtual double textHeight(int row, int column) const;
    virtual void setTextHeight(int row, int column, double height);
    virtual KdDbObjectId blockTableRecordId(int row, int column) const;
    virtual double blockScale(int row, int column) const;
    virtual void setBlockScale(int row, int column, double scale);
    virtual double blockRotation(int row, int column) const;  ///< radians
    virtual void setBlockRotation(int row, int column, double angle);
    /// A table keeps at least one column and one row.
    virtual void deleteColumns(int first, int count);
    virtual void deleteRows(int first, int count);
    /// Both rows first, then both columns. Merges that the rectangle touches are absorbed whole; text of
    /// covered cells is cleared.
    virtual void mergeCells(int top, int bottom, int left, int right);
    /// Unmerges every merge that touches the rectangle.
    virtual void unmergeCells(int top, int bottom, int left, int right);
    /// True when the cell belongs to a merge; only then are the outputs set. Any output may be null.
    virtual bool isMergedCell(int row, int column, int* top = nullptr, int* bottom = nullptr, int* left = nullptr,
                              int* right = nullptr) const;
    /// Makes rows as high and columns as wide as their content needs; nothing shrinks.
    virtual void generateLayout();
    /// Makes the table draw as it now stands.
    virtual void recomputeTableBlock(bool force);
    /// Whether the point lies on a cell; for a merge the owner is given. The two numbers are the width and
    /// height of the aperture, 0 for the point alone.
    virtual bool hitTestCell(const KdGePoint3d& point, const KdGeVector3d& viewDirection, double apertureWidth,
                             double apertureHeight, int& row, int& column) const;
    /// eNoSelection, with -1 in every output, when nothing is selected. Whole rows and columns are eOk with
    /// their -1.
    virtual Kdad::ErrorStatus getSubSelection(int& top, int& bottom, int& left, int& right) const;
    /// The selection is transient: it needs no write open, and is no part of undo or of files.
    virtual void setSubSelection(int top, int bottom, int left, int right);
    virtual void clearSubSelection();
    virtual bool hasSubSelection() const;

    // The direct operations.

    void setSize(int rows, int columns);
    /// -1 in all fields when nothing is selected.
    KdCellRange getSubSelection() const;
    void setSubSelection(const KdCellRange& range);
    /// Inserts `count` rows at index `row` (0 to the number of rows); they take the properties of row
    /// `inheritFrom`, counted before the insertion. At a merge's first row the merge moves; inside it grows.
    void insertRowsAndInherit(int row, int inheritFrom, int count);
    void insertColumnsAndInherit(int column, int inheritFrom, int count);
    bool canInsert(int index, bool row) const;
    bool canDelete(int index, int count, bool row) const;
    /// The merge's rectangle, or the cell itself.
    KdCellRange getMergeRange(int row, int column) const;
    bool isMergeAllEnabled(int row, int column) const;
    bool isEmpty(int row, int column) const;
    bool isContentEditable(int row, int column) const;
    bool isFormatEditable(int row, int column) const;
    KdDb::CellState cellState(int row, int column) const;
    void setCellState(int row, int column, KdDb::CellState state);
    /// Name of the cell's style; valid until the next change.
    const wchar_t* cellStyle(int row, int column) const;
    /// A row too low for a text in that style grows.
    void setCellStyle(int row, int column, const wchar_t* name);
    /// Keeps content, style name, locks and merges.
    void clearCellOverrides(int row, int column);
    void deleteContent(const KdCellRange& range);
    int contentType(int row, int column) const;
    int contentType(int row, int column, int content) const;
    KdString textString(int row, int column, int content) const;
    KdDbObjectId blockTableRecordId(int row, int column, int content) const;
    /// Makes the cell a block cell.
    void setBlockTableRecordId(int row, int column, int content, const KdDbObjectId& block, bool autoFit);
    bool isAutoScale(int row, int column, int content) const;
    /// Valid until the next change.
    const wchar_t* format(int row, int column) const;
    void setDataFormat(int row, int column, const wchar_t* format);
    void getDataType(int row, int column, KdValue::DataType& dataType, KdValue::UnitType& unitType) const;
    void setDataType(int row, int column, KdValue::DataType dataType, KdValue::UnitType unitType);
    double margin(int row, int column, KdDb::CellMargin margin) const;
    double rotation() const;  ///< radians, of the table's x axis
    KdDb::Visibility gridVisibility(int row, int column, KdDb::GridLineType edge) const;
    void setGridVisibility(int row, int column, KdDb::GridLineType edge, KdDb::Visibility visibility);
    KdDb::GridLineStyle gridLineStyle(int row, int column, KdDb::GridLineType edge) const;
    void setGridLineStyle(int row, int column, KdDb::GridLineType edge, KdDb::GridLineStyle style);
    KdCmColor gridColor(int row, int column, KdDb::GridLineType edge) const;
    void setGridColor(int row, int column, KdDb::GridLineType edge, const KdCmColor& color);
    KdDb::LineWeight gridLineWeight(int row, int column, KdDb::GridLineType edge) const;
    void setGridLineWeight(int row, int column, KdDb::GridLineType edge, KdDb::LineWeight weight);
    KdDbObjectId gridLinetype(int row, int column, KdDb::GridLineType edge) const;
    void setGridLinetype(int row, int column, KdDb::GridLineType edge, const KdDbObjectId& linetype);
    /// Gap between the two lines of a double line.
    double gridDoubleLineSpacing(int row, int column, KdDb::GridLineType edge) const;
    void setGridDoubleLineSpacing(int row, int column, KdDb::GridLineType edge, double spacing);
    /// Also answers for the indicators outside the first row and column.
    bool hitTest(const KdGePoint3d& point, const KdGeVector3d& viewDirection, double apertureWidth,
                 double apertureHeight, int& row, int& column, int& content, KdDb::TableHitItem& item) const;
    Kdad::ErrorStatus copyFrom(const KdDbTable* source, KdDb::TableCopyOption option, const KdCellRange& sourceRange,
                               const KdCellRange& targetRange, KdCellRange* outRange);
    Kdad::ErrorStatus copyFrom(const KdRxObject* source) override;
    void removeDataLink();

    Kdad::ErrorStatus transformBy(const KdGeMatrix3d& matrix) override;
    KdDbExtents getGeomExtents() const override;

private:
    friend struct KdDbTableAccess;  ///< the host's way in
    std::unique_ptr<KdDbTableTransient> m_transient;
};

/// The letters and number that name a cell in formulas: (0, 0) is "A1", column 26 is "AA". A column of -1
/// gives the number alone, a row of -1 the letters alone. False, with `text` as it was, when both are
/// negative.
bool kdadConvertIndexToIndicatorString(int row, int column, KdString& text);
