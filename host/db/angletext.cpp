// Angles are rounded once, to the last place shown, before they are split: so nothing rounds up to sixty.

#include "host/db/angletext.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cwchar>
#include <numbers>

namespace kdhost {
namespace {

constexpr double kHalfTurn = 180.0;
constexpr wchar_t kDegreeSign[] = L"\u00b0";

double inDegrees(double radians) {
    return radians * kHalfTurn / std::numbers::pi;
}

/// Rounded to that many decimals; without a sign where nothing but zeros is shown.
std::wstring decimals(double value, int precision) {
    std::array<wchar_t, 400> buffer{};
    std::swprintf(buffer.data(), buffer.size(), L"%.*f", precision, value);
    std::wstring text = buffer.data();
    const bool isZero = text.find_first_of(L"123456789") == text.npos;
    if (isZero && text.front() == L'-') text.erase(0, 1);
    return text;
}

/// How many of the smallest unit shown make a degree, and how many decimals a second has.
struct Places {
    explicit Places(int precision)
        : shown(precision == 0   ? 0
                : precision <= 2 ? 1
                                 : 2),
          decimals(std::max(precision - 4, 0)) {
        constexpr std::array<std::int64_t, 3> perDegree = {1, 60, 3600};
        steps = perDegree[static_cast<std::size_t>(shown)];
        for (int place = 0; place < decimals; ++place) steps *= 10;
    }
    int shown;  ///< 0 degrees, 1 minutes too, 2 seconds too
    int decimals;
    std::int64_t steps;
};

std::wstring twoParts(std::int64_t whole, std::int64_t part, int digits) {
    std::wstring text = std::to_wstring(whole);
    if (digits == 0) return text;
    const std::wstring behind = std::to_wstring(part);
    return text + L"." + std::wstring(static_cast<std::size_t>(digits) - behind.size(), L'0') + behind;
}

/// `degrees` is not negative.
std::wstring sexagesimal(double degrees, int precision) {
    const Places places(precision);
    const auto rounded = static_cast<std::int64_t>(std::llround(degrees * static_cast<double>(places.steps)));
    const std::int64_t below = rounded % places.steps;
    std::wstring text = std::to_wstring(rounded / places.steps) + kDegreeSign;
    if (places.shown == 1) text += std::to_wstring(below) + L"'";
    if (places.shown == 2) {
        const std::int64_t perSecond = places.steps / 3600;
        const std::int64_t seconds = below / perSecond;
        text +=
            std::to_wstring(seconds / 60) + L"'" + twoParts(seconds % 60, below % perSecond, places.decimals) + L"\"";
    }
    return text;
}

std::wstring degreesMinutesSeconds(double degrees, int precision) {
    const std::wstring size = sexagesimal(std::abs(degrees), precision);
    const bool isZero = size.find_first_of(L"123456789") == size.npos;
    return degrees < 0.0 && !isZero ? L"-" + size : size;
}

/// From north or south towards east or west. Each direction is the start of the quarter behind it.
std::wstring bearing(double degrees, int precision) {
    constexpr double turn = 2.0 * kHalfTurn;
    constexpr double quarter = kHalfTurn / 2.0;
    const double turned = std::fmod(std::fmod(degrees, turn) + turn, turn);
    const bool north = turned < kHalfTurn;
    const bool east = turned < quarter || turned >= 3.0 * quarter;
    const double size = std::abs(turned - (north ? quarter : 3.0 * quarter));
    return std::wstring(north ? L"N " : L"S ") + sexagesimal(size, precision) + (east ? L" E" : L" W");
}

}  // namespace

std::optional<std::wstring> angleText(double radians, int unit, int precision) {
    constexpr int mostPlaces = 8;
    // Beyond this, degrees have no fraction to show.
    constexpr double largest = 1e9;
    if (!(std::abs(radians) <= largest) || precision < 0 || precision > mostPlaces) return std::nullopt;
    const double degrees = inDegrees(radians);
    switch (unit) {
        case 0:
            return decimals(degrees, precision) + kDegreeSign;
        case 1:
            return degreesMinutesSeconds(degrees, precision);
        case 2:
            return decimals(radians * 200.0 / std::numbers::pi, precision) + L"g";
        case 3:
            return decimals(radians, precision) + L"r";
        case 4:
            return bearing(degrees, precision);
        default:
            return std::nullopt;
    }
}

}  // namespace kdhost
