// Formula text over cells.
#pragma once

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/rx/kdstring.h"

/// Appends a call of that function over the range, as "Sum(A1:C4)"; the caller's text begins with the equals
/// sign. Over cells of another table the range is named "Table(id).A1:C4"; a null id means the current
/// table. A reversed range counts like the same range in order. False, with `text` as it was, for an empty
/// name or a range with a negative field.
bool kdadConvertToFormulaExpr(KdCellRange range, KdString name, KdDbObjectId table, KdString& text);

/// Turns a formula as typed, without its equals sign, into the expression of a field code, which the caller puts
/// between the brackets of "\AcExpr ( )": names of cells and functions are written in their usual case, full-width
/// characters as plain ones. False when it can't be evaluated; `code` is then the text as typed.
bool kdadConvertExprToFieldCode(const KdString& expression, KdString& code);
