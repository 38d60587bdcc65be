// References to cells as they are typed at the command line: A1, A1:C4, whole columns as A or A:C, whole rows as
// 1 or 1:3.
#pragma once

#include <optional>
#include <string>

#include "kd/db/cellrange.h"

/// The range that the text names, its rows and its columns in ascending order; -1 stands in the rows of whole
/// columns and in the columns of whole rows, and in all fields for a lone colon. Letters may be in either case.
/// Nothing for a text that names none.
///
/// The size of a table doesn't matter here: a place behind its end is the caller's to clamp.
std::optional<KdCellRange> parseCellReference(const std::wstring& text);
