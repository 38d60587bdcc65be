// Names of entities and of selection sets, as prompts hand them around: two numbers, the second of which
// tells what the first one numbers.
#pragma once

#include "kd/db/objectid.h"
#include "kd/ed/resbuf.h"

namespace kdhost {

enum class NameKind : std::int64_t { Entity = 1, SelectionSet = 2 };

inline void writeName(kded_name name, NameKind kind, std::int64_t number) {
    name[0] = number;
    name[1] = static_cast<std::int64_t>(kind);
}

inline bool isName(const kded_name name, NameKind kind) {
    return name != nullptr && name[0] != 0 && name[1] == static_cast<std::int64_t>(kind);
}

/// The null id for a name of nothing, or of a selection set.
inline KdDbObjectId entityOfName(const kded_name name) {
    return isName(name, NameKind::Entity) ? KdDbObjectId(static_cast<std::uint64_t>(name[0])) : KdDbObjectId::kNull;
}

}  // namespace kdhost
