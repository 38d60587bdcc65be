// The operations on a table and its cells that every road of editing shares: the class has no instances and
// keeps no state. The tests read the table and never change it; none of them reports anything to the user.
//
// A range is handed in as it is: reversed, partly outside the table, with whole rows or columns as -1. A cell
// outside the table belongs to no merge and answers as a fresh cell; a reversed range holds no cell; -1 in
// all four fields is no cell. A test whose answer needs the table gives false for a null table.
#pragma once

#include "kd/db/cellrange.h"
#include "kd/db/color.h"
#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"
#include "kd/db/value.h"
#include "kd/ge/matrix3d.h"
#include "kd/ge/point3d.h"
#include "kd/ge/vector3d.h"
#include "kd/rx/array.h"
#include "kd/rx/kdstring.h"
#include "mfc/geometry.h"
#include "mfc/stdstr.h"
#include "module/core/cellrange.h"

class KdDbDatabase;
class KdDbTable;
class KdDbTableStyle;
class KdUiMenu;

class CVqTableCommon {
public:
    CVqTableCommon() = delete;

    // Conversions.

    /// Non-zero `toHost` copies `range` into `hostRange`, zero the other way.
    static void CellRangeConvert(CVqTableCellRange& range, KdCellRange& hostRange, int toHost);
    /// Both rows come first.
    static void CellRangeConvert(CVqTableCellRange& range, int top, int bottom, int left, int right);
    static void CellRangeConvert(KdCellRange& range, int top, int bottom, int left, int right);
    /// From indicators, which count from 1, to cells. False, with `out` as it was, when a field is -1; other
    /// negative fields are converted.
    static bool IndicatorRangeToCellRange(const CVqTableCellRange& in, CVqTableCellRange& out);
    /// The reverse, with the same refusal.
    static bool CellRangeToIndicatorRange(const CVqTableCellRange& in, CVqTableCellRange& out);

    // The shape of a range. None of these reads the table, which may be null.

    static bool IsSelectSingleCell(const CVqTableCellRange& range);
    static bool IsOnlyMergeNone(const KdCellRange& range);
    /// One row, several columns.
    static bool IsOnlyMergeByRow(const KdCellRange& range);
    /// One column, several rows.
    static bool IsOnlyMergeByColumn(const KdCellRange& range);
    /// More than one row.
    static bool IsRowSizeQually(const KdDbTable* table, const CVqTableCellRange& range);
    /// More than one column.
    static bool IsColumnSizeQually(const KdDbTable* table, const CVqTableCellRange& range);
    /// Not reversed.
    static bool IsCanDataLink(const KdDbTable* table, const CVqTableCellRange& range);

    // A range against the table's size.

    /// A range of several rows and several columns is tested by its bottom right corner, any other one by
    /// its top left corner: a range in one row or one column passes when its far end lies outside.
    static bool CheckCellRangeValid(const KdDbTable* table, const CVqTableCellRange& range);
    static bool IsSelectEntireTable(const KdDbTable* table, const CVqTableCellRange& range);
    /// Spans all columns and isn't the entire table.
    static bool IsSelectEntireRow(const KdDbTable* table, const CVqTableCellRange& range);
    /// Spans all rows and isn't the entire table.
    static bool IsSelectEntireColumn(const KdDbTable* table, const CVqTableCellRange& range);
    static bool IsCanDeleteRow(const KdDbTable* table, const CVqTableCellRange& range);
    static bool IsCanDeleteColumn(const KdDbTable* table, const CVqTableCellRange& range);

    // Merges in a range.

    /// One cell, or exactly one merge.
    static bool IsMatchCell(const KdDbTable* table, const CVqTableCellRange& range);
    /// Exactly one merge; false for one cell that isn't merged.
    static bool IsSelectMergedEqual(const KdDbTable* table, const CVqTableCellRange& range);
    /// The first merged cell, row by row, belongs to a merge that is the range.
    static bool IsMergeAndSelectEqual(const KdDbTable* table, const CVqTableCellRange& range);
    /// Rejects one cell and exactly one merge. The name stays although the test is a rejection.
    static bool IsOnlyCanInsertBlock(const KdDbTable* table, const CVqTableCellRange& range);
    /// Exactly one merge within one row.
    static bool IsRowMergeCell(const KdDbTable* table, const CVqTableCellRange& range);
    /// Exactly one merge within one column.
    static bool IsColumnMergeCell(const KdDbTable* table, const CVqTableCellRange& range);
    /// More than one cell, no content locked, not exactly one merge already. A reversed range passes.
    static bool IsCanMergeCell(const KdDbTable* table, const CVqTableCellRange& range);
    /// More than one cell, with a merge whose owner has no content lock.
    static bool IsCanUnmergeCell(const KdDbTable* table, const CVqTableCellRange& range);
    /// Looks only at a range from row 0: false when a merge reaches below the range's bottom row anywhere
    /// across the whole table. True for any other range and for a table without columns.
    static bool IsMergeable(const KdDbTable* table, const CVqTableCellRange& range);
    /// A cell other than the top left one has text.
    static bool IsMergeContentNoFirst(const KdDbTable* table, const CVqTableCellRange& range);
    /// The cell's merge starts at the first column (non-zero `byColumn`) or the first row.
    static bool IsFirstMergedCell(const KdDbTable* table, int byColumn, int row, int column);
    /// The cell's merge ends at the last column (non-zero `byColumn`) or the last row.
    static bool IsLastMergedCell(const KdDbTable* table, int byColumn, int row, int column);

    // Questions that are always answered alike, and operations that leave everything as it is.

    static int IsRowLastMerged(const KdDbTable* table, const CVqTableCellRange& range);             ///< always 0
    static int IsColumnLastMerged(const KdDbTable* table, const CVqTableCellRange& range);          ///< always 0
    static int IsCanCellDownloadChange(const KdDbTable* table, const CVqTableCellRange& range);     ///< always 0
    static int IsCanCellManageCellContent(const KdDbTable* table, const CVqTableCellRange& range);  ///< always 0
    static int FindCellRange(const KdDbTable* table, CVqTableCellRange& range);  ///< always 0, `range` as it was
    static int CreateTable(KdDbDatabase* database, KdDbTable*& table);           ///< always 0, `table` as it was
    /// True when there are two tables; `count` stays as it was.
    static bool CheckCellsCanPaste(const KdDbTable* source, const KdDbTable* target, const CVqTableCellRange& range,
                                   int& count, int option);
    /// Deletes nothing. True when there is a table and the range isn't reversed.
    static bool DeleteCells(KdDbTable* table, const CVqTableCellRange& range, int option);
    static int SortStyles(KdArray<KdString>& names);  ///< always 0, the array as it was

    // Locks. A merge is judged by its owner.

    /// True for reversed rows.
    static bool IsCellRangeAllContentLocked(const KdDbTable* table, const CVqTableCellRange& range);
    /// False for reversed rows.
    static bool IsCellRangeHasContentLocked(const KdDbTable* table, const CVqTableCellRange& range);
    /// True for reversed rows.
    static bool IsCellRangeAllFormatLocked(const KdDbTable* table, const CVqTableCellRange& range);

    /// The reverse of what the name says: true when the row is free of text, or has no cell. False for a row
    /// outside the table.
    static bool IsRowHasText(const KdDbTable* table, int row);

    // Whether the cells of a range are alike. The top left cell is the reference, a merge is judged by its
    // owner; true for one cell, for a reversed range, and as soon as the range turns out to be one merge.

    /// By name. Behind a merge the scan goes on in the merge's last row; the rows between aren't visited.
    static bool IsIdenticalCellStyle(const KdDbTable* table, const CVqTableCellRange& range);
    static bool IsIdenticalAlignment(const KdDbTable* table, const CVqTableCellRange& range);
    /// All bits of the state count.
    static bool IsIdenticalLocking(const KdDbTable* table, const CVqTableCellRange& range);
    /// A cell differs by its data type or its unit type, a merge only by both.
    static bool IsIdenticalDataFormat(const KdDbTable* table, const CVqTableCellRange& range);

    // The table's current selection.

    /// -1 in all fields when the table can't be opened or nothing is selected.
    static KdCellRange GetSubSelection(KdDbObjectId table);
    /// The selection of the toolbar's table. False without a toolbar, without a table in it, or when the
    /// table can't be opened.
    static bool GetSelectRange(KdCellRange& range);
    /// Fewer than two cells, or exactly one merge.
    static bool IsSingleCell(const KdDbTable* table);
    /// More than one cell, and the content of each can be edited. True for a reversed selection.
    static bool CanMergeCells(const KdDbTable* table);
    /// A merged cell is selected, and a cell whose content can be edited.
    static bool CanUnMergeCells(const KdDbTable* table);
    /// Not a yes or no, but how many columns are selected; 0 when a column is negative.
    static int CanColumnSizeEqually(const KdDbTable* table);
    /// How many rows are selected; 0 when a row is negative.
    static int CanRowSizeEqually(const KdDbTable* table);
    /// In spite of the name, the outputs tell that the content, and the format, of some selected cell may be
    /// edited. False, with both outputs false, for a null table.
    static bool GetReadOnlyState(const KdDbTable* table, bool& content, bool& format);
    /// Whether the table lies on a locked layer. False when the table or its layer can't be opened.
    static bool IsTableLocking(KdDbObjectId table);

    // Growing and shrinking of a range by the merges that it touches.

    /// The smallest rectangle that holds the range with all merges that it touches. With `a` and `b` both 0
    /// it also begins at the first row; with only `b` 0 at the first column. A top or left field of -1 takes
    /// the place of the merges found, if there are any.
    static CVqTableCellRange SearchMaxCellRange(KdDbTable* table, int a, int b, const CVqTableCellRange& range);
    /// Moves the range's leading edge (left for non-zero `byColumn`, else top) off a merge that begins at the
    /// table's first column or row. Where it meets a merge that ends at the table's last column or row, the
    /// range becomes as long as the table.
    static CVqTableCellRange CellRangeBackward(KdDbTable* table, int byColumn, const CVqTableCellRange& range);
    /// Moves the trailing edge off a merge that ends there; the mirror of CellRangeBackward.
    static CVqTableCellRange CellRangeForward(KdDbTable* table, int byColumn, const CVqTableCellRange& range);

    // Changes of the grid, on the table's current selection, each one step of undo. None checks whether it is
    // allowed: that is the menus' task. False only without the main application service; true also when the
    // table can't be opened or nothing is selected.

    /// The new rows inherit from the first selected one; the same cells stay selected. As many rows as are
    /// selected; one for a single merged cell.
    static int InsertRowByAbove(KdDbObjectId table);
    static int InsertRowByBelow(KdDbObjectId table);
    static int DeleteRows(KdDbObjectId table);
    static int InsertColumnByLeft(KdDbObjectId table);
    static int InsertColumnByRight(KdDbObjectId table);
    static int DeleteColumns(KdDbObjectId table);
    static int UnmergeCells(KdDbObjectId table);
    /// Asks first when a cell other than the top left one holds content.
    static int MergeAll(KdDbObjectId table);
    /// One merge for each row. Asks at most once; after a no the row with the content stays as it is, and the
    /// later ones are merged without a question.
    static int MergeByRow(KdDbObjectId table);
    static int MergeByColumn(KdDbObjectId table);
    /// Without a selection all columns.
    static int SizeColumnsEvenly(KdDbObjectId table);
    /// Without a selection all rows. The height shared out is no plain sum: a row counts only when it is higher
    /// than the total so far.
    static int SizeRowsEvenly(KdDbObjectId table);

    // Properties of the selected cells, each call one step of undo; results as above.

    static int SetBackgroundColor(KdDbObjectId table, const KdCmColor& color);
    static int SetSelectionAlignment(KdDbObjectId table, KdDb::CellAlignment alignment);
    /// Menu command 1820 locks content, 1821 format, 1822 both; every other one unlocks.
    static int SettingLocked(unsigned menuId, KdDbObjectId table);
    static int SetDataFormatMenu(unsigned menuId, KdDbObjectId table);
    /// Without a mark of its own. True when the table could be opened.
    static int SetDataType(KdDbObjectId table, KdValue::DataType type, KdValue::UnitType unit);
    /// By the host's data format dialog.
    static int SetDataFormat(KdDbObjectId table);
    static int ClearCellOverrides(KdDbObjectId table);
    static int ClearTableStyleOverrides(KdDbObjectId table);
    static int DeleteContent(KdDbObjectId table);
    /// A display name of a default cell style is taken for its internal name.
    static int SetCellStyleByName(KdDbObjectId table, CStdStr<wchar_t>& name);
    // These four mark a step and leave the table as it is: they hold the place of operations that this module
    // doesn't carry out.
    static int InsertField(KdDbObjectId table);
    static int InsertBlock(KdDbObjectId table);
    static int SetCurrentTableStyleAsTable(KdDbObjectId table);
    static int ManageCellContent(KdDbObjectId table);
    /// By the colour dialog; a cell without a fill starts from the default colour.
    static int SetBackgroundColorFormMenu(KdDbObjectId table);
    /// By the colour dialog, which always starts from the current layer's colour: the colour handed in reaches
    /// it only when the layer can't be opened. True when the user chose one.
    static bool GetColorDialogTrueColor(KdCmColor& color, bool allowMeta);
    /// The colour of the row and column indicators, by the colour dialog. Whether the colour could be read.
    static bool SetTableIndicator(KdDbObjectId table);

    // Menu commands and what they stand for.

    /// 1802 to 1810 for the nine alignments, else 0.
    static int GetAlignmentToMenuId(KdDb::CellAlignment alignment);
    /// Top left for every number that is no alignment.
    static KdDb::CellAlignment GetMenuIDToAlignment(unsigned menuId);
    /// Position in the list of alignments, from 0; 0 for what is no alignment.
    static int CellAlignmentToIndex(KdDb::CellAlignment alignment);
    static KdDb::CellAlignment CellAlignmentToIndex(int index);
    /// False, with both outputs 0, for a number that is no data format.
    static bool GetDataFormat(int menuId, KdValue::DataType& type, KdValue::UnitType& unit);
    /// 0 for a pair that is no menu entry.
    static int GetDataFormatToMenuId(KdValue::DataType type, KdValue::UnitType unit);
    /// Fills the value with a sample for the data format dialog; types without one leave it unset.
    static void GetValue(KdValue*& value, KdValue::DataType type, KdValue::UnitType unit);

    // What the selected cells have in common, for the check marks of menus.

    /// The last cell's pair. The first change of the pair from the initial 0 and 0 is tolerated; at the second
    /// the type becomes 0, and the answer stays true. False without a selection.
    static bool GetDataType(const KdDbTable* table, KdValue::DataType& type, KdValue::UnitType& unit);
    static bool GetCellAlignment(const KdDbTable* table, KdDb::CellAlignment& alignment);
    /// The four bits of locks, when all cells have the same.
    static bool GetCellState(const KdDbTable* table, KdDb::CellState& state);
    /// A merge is judged by its top left cell.
    static bool GetBackgroundColor(const KdDbTable* table, KdCmColor& color);
    // Each sets the check marks of one of the toolbar's menus; false for a menu of another class.
    static bool SetFormatMenuState(const KdDbTable* table, KdUiMenu* menu);
    static bool SetAlignmentMenuState(const KdDbTable* table, KdUiMenu* menu);
    static bool SetLockingMenuState(const KdDbTable* table, KdUiMenu* menu);

    // Formulas: each lets the user pick what it needs and opens the cell editor on the ready formula. The form
    // without a table takes the toolbar's, and so does the other one given the null id. False when a step fails.

    static bool InsertSumFormula();
    static bool InsertSumFormula(KdDbObjectId table);
    static bool InsertCountFormula();
    static bool InsertCountFormula(KdDbObjectId table);
    static bool InsertAverageFormula();
    static bool InsertAverageFormula(KdDbObjectId table);
    static bool InsertCellFormula();
    static bool InsertCellFormula(KdDbObjectId table);
    static bool InsertEquation();
    static bool InsertEquation(KdDbObjectId table);

    // Moving the selected cell; true when a cell was selected.

    /// The next cell in reading order that isn't covered by a merge; false behind the last.
    static bool SelectNextCell(KdDbObjectId table);
    /// False before the first cell, with the selection as it was.
    static bool SelectPrevCell(KdDbObjectId table);
    /// Stays in the first row.
    static bool SelectUpperCell(KdDbObjectId table);
    /// Stays in the last row.
    static bool SelectLowerCell(KdDbObjectId table);
    static bool SelectTopCell(KdDbObjectId table);
    static bool SelectBottomCell(KdDbObjectId table);

    // Geometry. Points and vectors are in world coordinates where nothing else is said.

    /// 0 for a reversed range.
    static double GetCellRangeWidth(const KdDbTable* table, const CVqTableCellRange& range);
    static double GetCellRangeHeight(const KdDbTable* table, const CVqTableCellRange& range);
    // Each of the next four reads exactly the first four points.
    static KdGePoint3d GetExtentsMinPoint(const KdGePoint3dArray& points);
    static KdGePoint3d GetExtentsMaxPoint(const KdGePoint3dArray& points);
    static KdGePoint3d GetExtentsCenterPoint(const KdGePoint3dArray& points);
    /// Appends the smallest and the largest corner.
    static void GetExtents(const KdGePoint3dArray& points, KdGePoint3dArray& out);
    static void GetCellCenterPoint(const KdDbTable* table, int row, int column, KdGePoint3d& point);
    static double GetHorzCellMarginFromTable(const KdDbTable* table, int row, int column);
    static double GetVertCellMarginFromTable(const KdDbTable* table, int row, int column);
    static double GetHorzCellMarginFromTableStyle(const KdDbTableStyle* style, const wchar_t* name);
    static double GetVertCellMarginFromTableStyle(const KdDbTableStyle* style, const wchar_t* name);
    /// The directions of rows and columns in the table's plane, normalised.
    static void GetDirection(const KdDbTable* table, KdGeVector3d& x, KdGeVector3d& y);
    /// From the table's own coordinates to the world. A null table leaves the matrix alone.
    static void GetTableTransform(const KdDbTable* table, KdGeMatrix3d& matrix);
    /// The middles of the range's top, bottom, left and right edge, transformed by `matrix`.
    static void GetCellRangeGripPoints(const KdDbTable* table, const CVqTableCellRange& range,
                                       const KdGeMatrix3d& matrix, KdGePoint3dArray& points);
    /// Appends four points made from the first two of `corners`.
    static void CalcCellPointArray(const KdDbTable* table, const KdGePoint3dArray& corners, KdGePoint3dArray& out);
    /// Where a text of that alignment stands in a cell of that size, from the cell's first corner.
    static KdGePoint3d CalcTextPoint(const KdDbTable* table, int row, int column, double width, double height,
                                     KdDb::CellAlignment alignment);
    /// One text height and one margin of the first row's style; 0 when the style can't be opened.
    static void GetCellFirstRowMinWidth(const KdDbTable* table, double& width);
    static void GetTableMinWidth(const KdDbTable* table, int columns, double& width);
    /// Adds to `height`, which the caller sets.
    static void GetTableMinHeight(const KdDbTable* table, int rows, int lines, double& height);
    /// What lies under a point of the screen; false, with all outputs 0, for a miss, a null table or without a
    /// view.
    static bool TableHitTest(const KdDbTable* table, const CPoint& point, int& row, int& column, int& content,
                             KdDb::TableHitItem& item);

    // Tables of a drawing, and the rest.

    /// Appends the tables of all blocks; objects of derived classes are left out. False when the blocks can't
    /// be read.
    static bool GetTablesFormDatabase(KdDbDatabase* database, KdArray<KdDbObjectId>& tables);
    static bool FindTableStyleFromTable(const KdArray<KdDbObjectId>& tables, KdDbObjectId style);
    /// 1 when a cell of a table of the named table style has the named cell style. A table that can't be opened is
    /// passed over; one whose style can't be opened ends the search with 0.
    static int FindCellStyleFromTable(const KdArray<KdDbObjectId>& tables, const CStdStr<wchar_t>& tableStyle,
                                      const CStdStr<wchar_t>& cellStyle);
    /// A new temporary file; a null directory is the host's temporary folder. 0 on success, 53 when the host
    /// doesn't say why it failed. `out` takes KD_MAX_PATH characters.
    static int GetVqcadTmpFileName(const wchar_t* prefix, const wchar_t* directory, wchar_t* out);
    static int SelectTable();                             ///< always 0: selects nothing
    static bool SaveAsNewCellStyle(KdDbObjectId table);   ///< whether the table can be opened for read
    static bool SaveAsNewTableStyle(KdDbObjectId table);  ///< always true

    // Names of styles and formats, internal and as shown. Texts are compared without regard to case.

    /// A display name becomes the internal one, in place; another name stays.
    static void DefaultCellStyleConvert(CStdStr<wchar_t>& name);
    static void DefaultCellStyleReverseConvert(CStdStr<wchar_t>& name);
    /// Label for its text, data for every other text.
    static KdDb::CellClass TypeStringToCellClass(const CStdStr<wchar_t>& text);
    static CStdStr<wchar_t> CellClassToTypeString(KdDb::CellClass cellClass);
    /// Empty for a pair without a name.
    static CStdStr<wchar_t> FormatFormDataUnitType(KdValue::DataType type, KdValue::UnitType unit);
    /// Both outputs stay as they are for an unknown text.
    static void DataUnitTypeFormFormat(KdValue::DataType& type, KdValue::UnitType& unit, const CStdStr<wchar_t>& text);
    /// False when the name holds one of < > / \ " : ; ? * | , = ` or an apostrophe. An empty name passes.
    static bool CheckStyleNameValid(const CStdStr<wchar_t>& name);
    /// The naming dialog, and a new cell style of the table's style. False without the main application service.
    static int CreateNewCellStyle(KdDbObjectId table);
    /// The dialog of the cell styles of the table's style, in a transaction of its own and as one step of undo; its
    /// Cancel takes all back. False without the main application service.
    static int ManageCellStyles(KdDbObjectId table);
    /// The dialog of the selected cells' borders, which writes at once; all it did is one step of undo, whichever
    /// button closes it. False, with no dialog, for a null id and without the main application service.
    static int SetBorders(KdDbObjectId table);

    // The toolbar.

    /// Shows or hides the toolbar for a table. Always true.
    static bool ShowTableToolbar(KdDbObjectId table, bool show);

    // The cell editor.

    /// Opens the editor on the first selected cell, and on one after another as the user goes on. One step of
    /// undo.
    static int TableEdit(KdDbObjectId table);

    // The clipboard; non-zero on success.

    static int CutTableCells(KdDbObjectId table);
    static int CopyTableCells(KdDbObjectId table);
    static int PasteTableCells(KdDbObjectId table);
};

/// Selects a cell by simulating a pick at its centre; `table` is open, and stays open for read. Nothing
/// happens without a table or a view.
void PickSelCell(KdDbTable* table, int row, int column);
