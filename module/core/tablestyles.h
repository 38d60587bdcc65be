// The table styles of a drawing, found by their names.
#pragma once

#include <optional>

#include "kd/db/objectid.h"

class KdDbDatabase;

/// The table style of that name, the null id when there is none. Nothing when the drawing, or its dictionary of table
/// styles, can't be had.
std::optional<KdDbObjectId> tableStyleNamed(KdDbDatabase* database, const wchar_t* name);
