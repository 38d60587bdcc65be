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
