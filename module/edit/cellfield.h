// The field of a cell in the editor: how it becomes text to edit, and how edited text becomes a field again.
//
// A formula is two fields: the cell's own, whose code is one mark, and its child, whose code is the expression
// "\AcExpr (...)". The user edits the expression behind an equals sign.
#pragma once

#include "kd/db/objectid.h"
#include "kd/rx/kdstring.h"

class KdDbMText;
class KdDbTable;

/// What loading a field leaves for writing back.
struct LoadedField {
    KdString tail;           ///< what stood behind the expression, such as a format
    KdDbObjectId keptField;  ///< the field that a typed formula goes back into; null for a new one
};

/// Gives the text what the cell's field holds: the formula as it is typed, or copies of the fields. A field that
/// can't be opened leaves the text empty.
LoadedField loadCellField(KdDbMText& text, KdDbObjectId field, const KdDbTable& table);

/// Puts the edited text into the cell: as a formula over fields, as a field, as a typed formula, or as text. The
/// table is open for write. A field that can't be posted leaves the cell as it is.
void writeCellText(KdDbMText& text, KdDbTable& table, int row, int col, const LoadedField& loaded);
