// Angles as numbers: comparison, normalising, and the drawing's base and direction.

#include "module/valuetext/angle.h"

#include <cmath>

#include "module/valuetext/tableutils.h"

namespace {

// Large angles come down in coarse steps first, so that they don't take long.
constexpr double largestAngle = 1e6;
constexpr double coarseSteps[] = {628318.5307179586, 6283.185307179586};

constexpr double largestTypedAngle = 1e10;

double reduced(double angle) {
    const double size = std::abs(angle);
    const double rest = size >= twoPi ? size - twoPi * std::trunc(size / twoPi) : size;
    return angle < 0.0 ? twoPi - rest : rest;
}

enum class Reduction { kInvalid, kTooLarge, kReduced };

Reduction reduceCoarsely(double& angle) {
    if (!CVqTableUtils::IsRealValid(angle)) {
        angle = 0.0;
        return Reduction::kInvalid;
    }
    if (std::abs(angle) > largestAngle) {
        angle = 0.0;
        return Reduction::kTooLarge;
    }
    for (const double step : coarseSteps) {
        while (angle > step) angle -= step;
        while (angle < -step) angle += step;
    }
    return Reduction::kReduced;
}

/// `upperSlack` is added to the angle where it is compared with a whole turn.
void bringIntoTurn(double& angle, double upperSlack) {
    while (angle + negligible < 0.0) angle += twoPi;
    while (angle + upperSlack >= twoPi) angle -= twoPi;
}

}  // namespace

bool CVqTableUtils::AngleEqual(double a, double b) {
    if (a == 0.0 && b == 0.0) return true;
    return std::abs(reduced(a) - reduced(b)) <= negligible;
}

bool CVqTableUtils::NormalAngle(double* a, double* b) {
    if (const Reduction result = reduceCoarsely(*a); result != Reduction::kReduced) {
        return result == Reduction::kTooLarge;
    }
    bringIntoTurn(*a, negligible);
    if (b == nullptr) return true;
    if (const Reduction result = reduceCoarsely(*b); result != Reduction::kReduced) {
        return result == Reduction::kTooLarge;
    }
    // The second angle may lie a little above a whole turn where the first comes down to 0.
    bringIntoTurn(*b, -negligible);
    const bool equal = AngleEqual(*b, *a);
    if (!equal && *a > *b) *b += twoPi;
    return equal;
}

bool CVqTableUtils::ProcessAngle(int flags, double base, int direction, double angle, double& out) {
    if (std::abs(angle) > largestTypedAngle) return false;
    const bool asGiven = (flags & kAngleAsGiven) != 0;
    const bool unbounded = (flags & kAngleDegreeSign) != 0;
    double value = angle;
    if (!asGiven) {
        value = direction == 0 ? angle + base : base - angle;
        if (unbounded) {
            out = value;
            return true;
        }
    }
    if (!asGiven || !unbounded) NormalAngle(&value, nullptr);
    if (asGiven && (flags & kAngleWholeTurn) == 0 && direction != 0) value = twoPi - value;
    out = value;
    return true;
}

int CVqTableUtils::ReplaceDegreeMark(int flags, CStdStr<wchar_t>& text) {
    if ((flags & kAngleDegreeSign) == 0) return 1;
    for (wchar_t& character : text) {
        if (character == L'd' || character == L'D') character = *DegreeSign();
    }
    return 1;
}

wchar_t* CVqTableUtils::DegreeSign() {
    static wchar_t sign[] = L"\u00b0";
    return sign;
}
