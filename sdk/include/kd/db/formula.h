// Formula text over cells.
#pragma once

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/rx/kdstring.h"

/// Appends a formula of that function over the range, as "=Sum(A1:C4)"; over cells of another table the
/// range is named "Table(id).A1:C4". A null id means the current table. False, with `text` as it was, for
/// an empty name or an invalid range.
bool kdadConvertToFormulaExpr(KdCellRange range, KdString name, KdDbObjectId table, KdString& text);
