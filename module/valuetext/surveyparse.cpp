// The scanner of surveyor's bearings: from north or south, so many degrees towards east or west.

#include <algorithm>
#include <string_view>

#include "module/valuetext/angle.h"
#include "module/valuetext/tableutils.h"

namespace {

bool isBearingCharacter(wchar_t character) {
    constexpr std::wstring_view marks = L"Dd\"'";
    return isDegreeDigit(character) || marks.find(character) != marks.npos;
}

/// The bearing behind the first letter, and the one letter behind it; false where the text has another form.
bool splitBearing(const CStdStr<wchar_t>& text, CStdStr<wchar_t>& bearing, wchar_t& side) {
    const auto blankAt = [&](std::size_t at) { return at < text.size() && text[at] == L' '; };
    const std::size_t start = blankAt(1) ? 2 : 1;
    if (start >= text.size() || !isDigit(text[start])) return false;
    const auto end =
        std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), isBearingCharacter);
    std::size_t at = static_cast<std::size_t>(end - text.begin());
    bearing = text.substr(start, at - start);
    if (blankAt(at)) ++at;
    if (at + 1 != text.size()) return false;
    side = text[at];
    return true;
}

}  // namespace

int CVqTableUtils::ProcessSurveyNorthAndSouthToAngle(int flags, const CStdStr<wchar_t>& text, double& angle,
                                                     double& out, double base, int direction, int north) {
    const double offset = north != 0 ? 0.0 : pi;
    if (text.size() == 1) {
        angle = offset + halfPi;
        return ProcessAngle(flags, base, direction, angle, out) ? 1 : 0;
    }
    CStdStr<wchar_t> bearing;
    wchar_t side = 0;
    const bool wellFormed = splitBearing(text, bearing, side);
    // The bearing is read before the letter behind it is looked at.
    if (bearing.empty() || DecimaldegreesToRadian(bearing, angle) == 0) return 0;
    if (angle < 0.0 || angle > halfPi || !wellFormed) return 0;
    switch (side) {
        case L'W':
        case L'w':
            // North or south makes no difference towards west.
            angle = halfPi + angle;
            return ProcessAngle(flags, base, direction, angle, out) ? 1 : 0;
        case L'E':
        case L'e':
            // The angle is worked out, yet a bearing towards east doesn't convert.
            angle = offset + halfPi - angle;
            return 0;
        default:
            return 0;
    }
}
