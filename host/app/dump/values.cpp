// Values of a drawing as text and numbers.

#include "host/app/dump/values.h"

#include <cstdio>

#include "host/db/access.h"
#include "host/db/symbols.h"
#include "host/rx/encoding.h"
#include "kd/db/symboltable.h"

namespace kdhost::dump {

std::string color(const KdCmColor& color) {
    switch (color.colorMethod()) {
        case KdCmEntityColor::kByLayer:
            return "bylayer";
        case KdCmEntityColor::kByBlock:
            return "byblock";
        case KdCmEntityColor::kByColor:
            return "rgb:" + std::to_string(color.red()) + "," + std::to_string(color.green()) + "," +
                   std::to_string(color.blue());
        case KdCmEntityColor::kByACI:
            return "aci:" + std::to_string(color.colorIndex());
        case KdCmEntityColor::kNone:
            break;
    }
    return "none";
}

std::string handle(std::uint64_t handle) {
    char digits[17];
    std::snprintf(digits, sizeof digits, "%llX", static_cast<unsigned long long>(handle));
    return digits;
}

Json point(double x, double y, double z) {
    return Json::array({x, y, z});
}

Json extents(const KdDbExtents& box) {
    if (!box.isValid()) return nullptr;
    const KdGePoint3d& low = box.minPoint();
    const KdGePoint3d& high = box.maxPoint();
    return Json::array({point(low.x, low.y, low.z), point(high.x, high.y, high.z)});
}

std::string recordName(KdDbObjectId id) {
    return toUtf8(kdhost::recordName(id));
}

}  // namespace kdhost::dump
