// A reference of a formula to cells: how it is written, and how it follows the cells when rows and columns come
// and go.
#pragma once

#include <string>

#include "host/db/fieldevaluation.h"
#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"

namespace kdhost::field {

/// What stands in a formula for cells that are gone.
inline constexpr std::wstring_view kBroken = L"#REF!";

/// Rows and columns that are fixed by a dollar sign stay where they are when the formula is copied elsewhere.
struct FixedPlaces {
    bool top = false;
    bool left = false;
    bool bottom = false;
    bool right = false;

    friend bool operator==(const FixedPlaces&, const FixedPlaces&) = default;
};

struct Reference {
    bool foreign = false;  ///< names its table, `table`; otherwise it is the formula's own
    KdDbObjectId table;    ///< null where a foreign table is unknown
    bool broken = false;   ///< names no cells any more
    bool isRange = false;  ///< written as a range, be it of one cell
    KdCellRange cells;     ///< in order
    FixedPlaces fixed;

    friend bool operator==(const Reference&, const Reference&) = default;
};

/// As it stands in formulas: "A1", "A1:C4", "Table(12).A1".
std::wstring written(const Reference& reference);

/// The reference after a change of the structure of its table. Places that are inserted before it push it on,
/// inside it they widen it; places that go narrow it, until none is left and it is broken.
Reference after(const Reference& reference, const StructureChange& change);

/// The same cells as seen from a formula that was copied elsewhere. Broken where they would lie left of or above
/// the table.
Reference moved(const Reference& reference, int rows, int columns);

}  // namespace kdhost::field
