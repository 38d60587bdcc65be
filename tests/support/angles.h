// Angles in tests, in radians.
#pragma once

#include <numbers>

namespace kdtest {

inline constexpr double pi = std::numbers::pi;
inline constexpr double halfPi = pi / 2.0;
inline constexpr double twoPi = 2.0 * pi;

constexpr double degrees(double value) {
    return value * pi / 180.0;
}

}  // namespace kdtest
