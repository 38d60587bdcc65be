// Values that must be what they are: whatever is none refuses the file.
#pragma once

#include "host/file/loadcontext.h"

namespace kdhost::file {

template <class T>
T asked(const std::optional<T>& value) {
    require(value.has_value(), "a number is none");
    return *value;
}

inline int whole(const Tag& tag, std::int64_t lowest, std::int64_t highest) {
    const std::int64_t value = asked(integerOf(tag));
    require(value >= lowest && value <= highest, "a number is outside its range");
    return static_cast<int>(value);
}

inline double size(const Tag& tag) {
    const double value = asked(realOf(tag));
    require(value >= 0.0, "a size is below zero");
    return value;
}

inline KdCmColor indexedColor(const Tag& tag) {
    constexpr int kNone = 257;
    return KdCmColor::fromIndex(whole(tag, 0, kNone));
}

inline KdDb::LineWeight lineWeight(const Tag& tag) {
    return static_cast<KdDb::LineWeight>(whole(tag, INT16_MIN, INT16_MAX));
}

/// The file has 1 for what is seen.
inline KdDb::Visibility visibility(const Tag& tag) {
    return whole(tag, 0, 1) != 0 ? KdDb::kVisible : KdDb::kInvisible;
}

inline KdDb::CellAlignment alignment(const Tag& tag) {
    return static_cast<KdDb::CellAlignment>(whole(tag, KdDb::kTopLeft, KdDb::kBottomRight));
}

}  // namespace kdhost::file
