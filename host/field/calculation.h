// Carrying out the steps of an expression.
//
// Cells count as spreadsheets have it: an empty cell is 0 in a calculation, a text is an error there; Sum and
// Average pass over empty cells and texts and fail on errors; Count counts numbers and passes over all else. The
// average of no numbers, a division by zero and what is no finite number are errors. A formula that only names a
// cell shows its text, too; for an empty one it shows 0. A range outside a function is an error.
#pragma once

#include "host/field/expression.h"
#include "host/field/sheet.h"
#include "host/field/value.h"

namespace kdhost::field {

/// What an expression is calculated over.
class Operands {
public:
    virtual ~Operands() = default;
    /// Null where the reference leads nowhere.
    virtual const Sheet* sheetOf(std::size_t reference) const = 0;
    /// What a field comes to that a cell shows; good until the next call.
    virtual const Value& valueOfField(int cellField) const = 0;
    virtual Value valueOfChild(int child) const = 0;
};

/// False for a reference that is broken, or names cells that its table hasn't.
bool leadsToCells(const Reference& reference, const Sheet* sheet);

/// An expression with a reference that leads nowhere is an error as a whole.
Value calculate(const Expression& expression, const Operands& operands);

}  // namespace kdhost::field
