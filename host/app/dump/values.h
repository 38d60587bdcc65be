// Values of a drawing as the dump writes them.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "kd/db/color.h"
#include "kd/db/objectid.h"
#include "kd/ge/extents.h"

namespace kdhost::dump {

/// Keys keep the order they are added in.
using Json = nlohmann::ordered_json;

/// "none", "bylayer", "byblock", "aci:N" or "rgb:R,G,B".
std::string color(const KdCmColor& color);
/// Hexadecimal, in capitals.
std::string handle(std::uint64_t handle);
Json point(double x, double y, double z);
/// The two corners; null for a box that holds nothing.
Json extents(const KdDbExtents& box);
/// Name of a layer, text style, line type or block; empty for an id of none.
std::string recordName(KdDbObjectId id);

}  // namespace kdhost::dump
