// The table styles of a drawing, found by their names.
#pragma once

#include <optional>

#include "kd/db/objectid.h"
#include "mfc/stdstr.h"

class KdDbDatabase;
class KdDbTableStyle;

/// The table style of that name, the null id when there is none. Nothing when the drawing, or its dictionary of table
/// styles, can't be had.
std::optional<KdDbObjectId> tableStyleNamed(KdDbDatabase* database, const wchar_t* name);

/// The name that the style has in its dictionary; empty when it has none.
CStdStr<wchar_t> nameOfTableStyle(const KdDbTableStyle& style);

/// The name of the style that new tables take; empty when it can't be told.
CStdStr<wchar_t> currentTableStyleName();
