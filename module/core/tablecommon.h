// The operations on a table and its cells that every road of editing shares: the class has no instances and
// keeps no state. The tests read the table and never change it; none of them reports anything to the user.
//
// A range is handed in as it is: reversed, partly outside the table, with whole rows or columns as -1. A cell
// outside the table belongs to no merge and answers as a fresh cell; a reversed range holds no cell; -1 in
// all four fields is no cell. A test whose answer needs the table gives false for a null table.
#pragma once

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/rx/array.h"
#include "kd/rx/kdstring.h"
#include "mfc/stdstr.h"
#include "module/core/cellrange.h"

class KdDbDatabase;
class KdDbTable;

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

    // Names of styles.

    /// False when the name holds one of < > / \ " : ; ? * | , = ` or an apostrophe. An empty name passes.
    static bool CheckStyleNameValid(const CStdStr<wchar_t>& name);

    // The toolbar.

    /// Shows or hides the toolbar for a table. Always true.
    static bool ShowTableToolbar(KdDbObjectId table, bool show);
};
