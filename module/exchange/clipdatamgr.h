// Cells to and from the clipboard.
//
// The clipboard never holds cells themselves. A copy clones the table, cuts the clone down to the selected cells, saves
// it alone in a temporary drawing and puts records on the clipboard that name the file; a paste reads the drawing back
// and lets the host copy from its one table. So a cell travels with all that it is, between tables, drawings and
// running programs. The file stays, since it may be pasted again.
#pragma once

#include <optional>

#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"
#include "kd/rx/kdstring.h"
#include "mfc/oledataobject.h"
#include "module/core/cellrange.h"
#include "module/exchange/cliprecords.h"

class KdDbDatabase;
class KdDbTable;

class CVqTableClipDataMgr {
public:
    /// The cells to work on; the table's selection where this isn't valid, as it is at first.
    CKdTableCellRange m_range;

    // The clipboard's formats, by number.
    static CLIPFORMAT m_cfAcTable;
    static CLIPFORMAT m_cfAcMText;
    static CLIPFORMAT m_cfAutoCAD;
    static CLIPFORMAT GetAutoCADClipFormat();
    static CLIPFORMAT GetAcTableClipFormat();
    static CLIPFORMAT GetAutoCADUnicodeMTextClipFormat();

    /// Puts cells on the clipboard. The table is open at least for read; nothing in the drawing is changed in the end.
    /// 0 when that can't be done, with the clipboard as it was: without cells or a working drawing, on a locked layer,
    /// or when the file can't be written.
    int CopyTableCells(KdDbTable* table);
    /// Pastes cells, or a text into every cell. The table is open for write. `formula` becomes true when cells got
    /// formulas, and is otherwise left alone. 1, with nothing done, when the clipboard holds neither; 0 when the paste
    /// is refused.
    int PastTableCells(KdDbTable* table, bool& formula);
    /// Whether what lies on the clipboard fits at the table's selection; text and a single cell fit everywhere.
    int CanPasteTableCell(const KdDbTable* table) const;

    /// Reads the drawing that the record names and copies its cells to the table, which is open for write. 0 when the
    /// file is missing or isn't one of a single table, and when the cells are refused.
    int ApplyCellProperties(KdDbTable* table, tagVqTableClipboardInfo* info);
    /// Whether the source's cells may take the place of the target's; a message tells why not. `targetRange` becomes as
    /// large as a source of several cells. Of the locks and merges in the last column, and of the merges in the last
    /// row, this test takes no notice: the host still refuses what it can't do.
    static int CanApplyCellProperties(KdDbTable* target, KdDbTable* source, CKdTableCellRange& targetRange,
                                      CKdTableCellRange& sourceRange);
    /// A single cell is spread over the whole target.
    static int DoApplyCellProperties(KdDbTable* target, KdDbTable* source, const CKdTableCellRange& targetRange,
                                     const CKdTableCellRange& sourceRange);

    /// 0 when the clipboard has no such format; 1, with `info` as it was, when there is no whole record.
    static int GetAcTableClipboardData(const COleDataObject& object, tagVqTableClipboardInfo& info);
    /// Formatted text that another program copied. 0 for an empty one.
    static int GetAutoCADMTextClipboardData(const COleDataObject& object, KdString& text);
    /// Text in whichever format there is, formatted before plain; empty, and 0, when there is none.
    static int GetTextClipboardData(const COleDataObject& object, KdString& text);

    /// A new name in the folder for temporary files, to be freed with kdutDelBuffer; null on failure.
    static wchar_t* GenerateTempFileName();
    /// Saves the entity alone in a new drawing, in which `basePoint` is the point to insert it by. A status of the
    /// host; 0 with an empty `fileName` when there is no name for the file.
    static int WriteTableToTempFile(KdDbDatabase* database, const KdDbObjectId& entity, const KdGePoint3d& basePoint,
                                    KdString& fileName);
    /// Reads the file into `database`, which holds nothing yet, and makes a block of it in the working drawing. 0, or a
    /// status: 124 without a database, 506 when the block can't be read, 3 when there isn't exactly one table in it, or
    /// one of the host. The block, as soon as there is one, is the caller's to erase.
    static int ReadTableFromTempFile(KdDbDatabase*& database, const wchar_t* fileName, KdDbObjectId& table,
                                     KdDbObjectId& block);
    /// Deletes the rows and columns around the range, if it lies in the table. 0 for null or a range without cells.
    static int TrimTable(KdDbTable* table, const CKdTableCellRange* range);

private:
    /// The block of cells to work on: whole rows and columns by all their cells, corners in order. Nothing without
    /// cells.
    std::optional<CKdTableCellRange> cellsOf(const KdDbTable& table) const;
};
