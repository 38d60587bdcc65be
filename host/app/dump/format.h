// Formats of cells and cell styles in the dump: each property by its name in the list of properties.
#pragma once

#include "host/app/dump/values.h"
#include "host/db/cellformat.h"

namespace kdhost::dump {

inline Json value(int number) {
    return number;
}
inline Json value(double number) {
    return number;
}
inline Json value(bool flag) {
    return flag;
}
inline Json value(const KdCmColor& value) {
    return color(value);
}
inline Json value(KdDbObjectId id) {
    return recordName(id);
}
Json value(const std::wstring& text);
/// Whether an edge is drawn.
inline Json value(KdDb::Visibility visibility) {
    return visibility == KdDb::kVisible;
}
template <class Enumeration>
requires std::is_enum_v<Enumeration> Json value(Enumeration enumerator) {
    return static_cast<int>(enumerator);
}

/// Looks of one edge. No line type means by block.
Json edge(const GridLook& look);
/// Edge value ("1" to "32") to looks.
template <class LookOfEdge>
Json grid(const LookOfEdge& lookOf) {
    Json edges = Json::object();
    for (int i = 0; i < kEdgeCount; ++i)
        edges[std::to_string(static_cast<int>(kEdges[static_cast<std::size_t>(i)]))] = edge(lookOf(i));
    return edges;
}

}  // namespace kdhost::dump
