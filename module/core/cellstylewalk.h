// The cell styles of a table style, as lists and boxes show them.
#pragma once

#include <vector>

#include "mfc/stdstr.h"

class KdDbTableStyle;

/// The display names of the three default cell styles, then the users' names as they are, in the order of their
/// indices.
std::vector<CStdStr<wchar_t>> cellStyleDisplayNames(const KdDbTableStyle& style);
