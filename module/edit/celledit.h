// Editing cells in place: the command's entry, the loop over cells, one cell, and a block in a cell.
#pragma once

#include "kd/db/objectid.h"
#include "kd/rx/kdstring.h"
#include "mfc/stdstr.h"

class KdDbTable;

/// The command: edits from the cell that was selected before, or from one that the user picks.
void tableEditEntry();

/// Edits one cell after another, beginning with the given one, as the ending keys lead. `selectedBefore` tells
/// that the cell was selected when the command began; the command's next input is then what the user types over
/// it, or a word for what else is to be done with the selected cells. `prefill` is put into the first cell in
/// place of its text. False when no editing began.
bool editTable(KdDbObjectId table, int row, int col, bool selectedBefore, KdString prefill);

/// One cell in the editor. The table is open for write, and is again afterwards. `key` hands in the key that
/// ended the pass before (0 for the first) and hands out the one that ended this one. `typedText` replaces the
/// text in the first pass, `prefill` in any. RTNORM when the cell took the text; RTERROR for a null table or a
/// cell outside it; else the editor's status, with the cell as it was.
int editTableCell(KdDbTable* table, int row, int col, int& key, const CStdStr<wchar_t>& typedText, bool firstCell,
                  KdString prefill);

/// A block in a cell that the user picks. No command, menu or button calls it.
void tableInsertBlockEntry();

/// The dialog of the block in a cell of a table that is open for write. True when it ended with OK: what it was given
/// is then written to the cell whose column has the number of the row. False for null.
bool invokeTableInsertBlockDlg(KdDbTable* table, int row, int col, int contentIndex);
