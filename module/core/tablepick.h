// Free functions that several commands share: which table or cell the user means, by a pick or by what was
// selected before the command, and where a merged block can be entered.
#pragma once

#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"

class KdDbTable;

/// Asks for a point; `point` gets it in world coordinates, whatever the answer was. The one object that lies there,
/// of any class; the null id for a miss, for several, and when the user cancels.
KdDbObjectId pickOneObject(const wchar_t* prompt, KdGePoint3d& point);

/// Asks for a point; `point` gets it in world coordinates, whatever the answer was. Gives the one object that
/// lies there, open for read and to be closed by the caller, when it is a table; else null.
KdDbTable* getTableAtPt(KdGePoint3d& point);

/// Whether a table with selected cells was the one object selected before the command: `id` is the table,
/// `row` and `col` the top left of its selection. Otherwise false, with the null id and -1.
bool isDoubleClickEdit(KdDbObjectId& id, int& row, int& col);

/// Whether a table without selected cells was the one object selected before the command; a table with
/// selected cells stands for these, not for itself. `id` is set only when true.
bool getSelectSingleTable(KdDbObjectId& id);

/// Whether the cell lies in a merged block but can't be the one where the block is entered: it is in a row
/// below the block's first, or in its first row but in another column than the first. `mergedAcross` becomes
/// true where the columns decided, and is left alone otherwise.
bool isInvalidRowColByMerge(KdDbTable* table, int row, int col, bool& mergedAcross);
