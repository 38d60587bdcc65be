// References to cells as scripts write them, and selections as dragging makes them.
#pragma once

#include <optional>
#include <string>

#include "kd/db/cellrange.h"

class KdDbTable;

namespace kdhost {

/// "B2", "A1:C3", "2:3" (whole rows) or "B:C" (whole columns), corners in any order, letters in either case.
/// None for another text and for cells outside a table of that size.
std::optional<KdCellRange> parseCells(const std::wstring& text, int rows, int columns);

/// The smallest rectangle that holds the range, which must lie in the table, and cuts no merge.
KdCellRange grownToMerges(const KdDbTable& table, KdCellRange range);

}  // namespace kdhost
