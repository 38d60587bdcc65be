// What a formula shows: its value, written by the data type, unit type and format of its cell.
#pragma once

#include <string>

#include "host/db/valueformat.h"
#include "host/field/value.h"

namespace kdhost::field {

/// How the values of a cell are written.
struct CellWriting {
    KdValue::DataType dataType = KdValue::kGeneral;
    KdValue::UnitType unitType = KdValue::kUnitless;
    std::wstring code;  ///< of a format

    friend bool operator==(const CellWriting&, const CellWriting&) = default;
};

/// As the contents of a cell; "####" for an error. A whole number is rounded to the nearest; an amount or a
/// percentage without a code has the one that a user would choose; a number that its code can't write is
/// written as it is stored.
std::wstring shownValue(const Value& value, const CellWriting& writing, const KdDbHeaderVar& header);

}  // namespace kdhost::field
