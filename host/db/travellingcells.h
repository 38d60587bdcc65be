// Cells on their way through the clipboard.
//
// A part of a table travels by itself: a copy of the table from which all around the part is deleted. What formulas
// read there is then gone, and yet they are to read, where they arrive, what lies around them, as in spreadsheets. So
// a formula takes along how it was written, and in which cell.
#pragma once

#include <string>

#include "host/db/fieldstate.h"
#include "kd/db/table.h"

namespace kdhost {

/// A formula's code in the cell that it was written for.
struct WrittenFormula {
    std::wstring code;
    int row = 0;
    int column = 0;
};

/// While cells are cut, copied or pasted.
bool areCellsTravelling();
void setCellsTravelling(bool travelling);

/// Every formula in the table that doesn't know yet how it was written remembers it.
void rememberFormulas(const KdDbTable& table);

/// Calls `visit(field)` for the field and all fields in it.
void forEachFieldIn(KdDbObjectId field, const std::function<void(const KdDbField&)>& visit);

}  // namespace kdhost
