// References to cells as scripts write them.
#pragma once

#include <optional>
#include <string>

#include "kd/db/cellrange.h"

namespace kdhost {

/// "B2", "A1:C3", "2:3" (whole rows) or "B:C" (whole columns), corners in any order, letters in either case.
/// None for another text and for cells outside a table of that size.
std::optional<KdCellRange> parseCells(const std::wstring& text, int rows, int columns);

}  // namespace kdhost
