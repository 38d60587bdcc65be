// A table's own coordinates: along its rows, from the position in the table's direction, and across them, from the
// position towards the last row.
#pragma once

#include "host/db/tableaccess.h"

namespace kdhost {

/// The directions have length 1.
struct TableAxes {
    KdGePoint3d origin;
    KdGeVector3d along;
    KdGeVector3d across;  ///< from a row to the next one
    KdGeVector3d up;      ///< as text stands: `across`, or against it
    KdGeVector3d normal;

    KdGePoint3d at(double a, double b) const { return origin + along * a + across * b; }
};

TableAxes axesOf(const TableState& state);

/// The table's own flow direction, else that of its style.
int flowOf(const TableState& state);

}  // namespace kdhost
