// The standard codes of a cell's overrides: bit, code, and which property it is.
//
// What a cell holds beyond these codes, or in values that they can't tell, stands in the extras.
#pragma once

#include "host/db/tablecell.h"

namespace kdhost::file {

/// One part of one edge.
struct EdgeCode {
    std::int64_t bit;
    int code;
    int edge;  ///< an index of kEdges
};
inline constexpr EdgeCode kEdgeColors[] = {{0x40, 69, 0}, {0x80, 65, 5}, {0x100, 66, 2}, {0x200, 68, 3}};
inline constexpr EdgeCode kEdgeWeights[] = {{0x400, 279, 0}, {0x800, 275, 5}, {0x1000, 276, 2}, {0x2000, 278, 3}};
inline constexpr EdgeCode kEdgeVisibilities[] = {
    {0x4000, 289, 0}, {0x8000, 285, 5}, {0x10000, 286, 2}, {0x20000, 288, 3}};

inline constexpr std::int64_t kAlignmentBit = 0x01;
inline constexpr std::int64_t kFillBit = 0x02;
inline constexpr std::int64_t kFillColorBit = 0x04;
inline constexpr std::int64_t kColorBit = 0x08;
inline constexpr std::int64_t kTextStyleBit = 0x10;
inline constexpr std::int64_t kTextHeightBit = 0x20;

/// The properties that have a standard code.
FormatBits standardProperties();

}  // namespace kdhost::file
