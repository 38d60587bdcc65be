// The order of a class's virtual operations, which a module built elsewhere relies on.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <vector>

namespace kdtest {

/// The place of a virtual operation in its class's table of virtual functions, counted from 0.
template <class Operation>
std::ptrdiff_t slotOf(Operation operation) {
    // A pointer to a virtual operation holds the place in bytes, and one more; to another it holds its address.
    static_assert(sizeof operation == 2 * sizeof(std::ptrdiff_t));
    std::ptrdiff_t place = 0;
    std::memcpy(&place, &operation, sizeof place);
    constexpr auto step = static_cast<std::ptrdiff_t>(sizeof(void*));
    EXPECT_EQ(place % step, 1) << "no virtual operation";
    return place / step;
}

/// Where each of the operations lies, in the order given.
template <class... Operations>
std::vector<std::ptrdiff_t> slotsOf(Operations... operations) {
    return {slotOf(operations)...};
}

}  // namespace kdtest
