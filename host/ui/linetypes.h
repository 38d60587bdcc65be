// The line types of a drawing, and the standard patterns that can be loaded into it.
#pragma once

#include <string>
#include <vector>

#include "kd/db/objectid.h"

class KdDbDatabase;

namespace kdhost {

struct LinetypeEntry {
    std::wstring name;
    std::wstring comments;
    std::vector<double> dashes;
    KdDbObjectId id;  ///< null for a standard pattern
};

/// By layer, by block, then the others in the order of their making. Empty without a database.
std::vector<LinetypeEntry> linetypesOf(KdDbDatabase* database);

/// What a list shows for a line type: its name, and for by layer and by block the host's own text.
std::wstring shownName(const LinetypeEntry& entry, const KdDbDatabase& database);

const std::vector<LinetypeEntry>& standardLinetypes();

/// Makes the pattern a line type of the drawing, unless one of the name is there, which stays as it is. Its id;
/// null when the drawing doesn't take it.
KdDbObjectId loadLinetype(KdDbDatabase& database, const LinetypeEntry& pattern);

}  // namespace kdhost
