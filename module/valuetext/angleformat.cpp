// Angles as text, in the drawing's units.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "kd/db/database.h"
#include "module/valuetext/angle.h"
#include "module/valuetext/tableutils.h"

namespace {

constexpr double gradsPerDegree = 1.1111111111111112;

/// Angle units of a drawing.
enum AngleUnit : int { kDecimalDegrees, kDegreesMinutesSeconds, kGrads, kRadians, kSurveyors };

constexpr int suppressLeadingZero = 4;
constexpr int suppressTrailingZeros = 8;

/// The whole part, and sixty times what is left of it.
struct Sexagesimal {
    explicit Sexagesimal(double value) : whole(static_cast<int>(value)), sixtieths((value - whole) * 60.0) {}
    int whole;
    double sixtieths;
};

/// Halves count as a whole; nothing is added to a negative fraction.
int roundedUp(double value) {
    const int whole = static_cast<int>(value);
    return value - whole >= 0.5 ? whole + 1 : whole;
}

/// Passes a full sixty on to the next greater unit.
void carry(int& sixtieths, int& whole) {
    if (sixtieths != 60) return;
    sixtieths = 0;
    ++whole;
}

void writeDegreesAndMinutes(Sexagesimal degrees, CStdStr<wchar_t>& text) {
    int minutes = roundedUp(degrees.sixtieths);
    carry(minutes, degrees.whole);
    text.Format(L"%dd%d'", degrees.whole, minutes);
}

void writeWholeSeconds(Sexagesimal degrees, CStdStr<wchar_t>& text) {
    Sexagesimal minutes(degrees.sixtieths);
    int seconds = roundedUp(minutes.sixtieths);
    carry(seconds, minutes.whole);
    carry(minutes.whole, degrees.whole);
    text.Format(L"%dd%d'%d\"", degrees.whole, minutes.whole, seconds);
}

/// Seconds with decimals carry nothing: they may round up to sixty.
void writeDecimalSeconds(const Sexagesimal& degrees, int precision, CStdStr<wchar_t>& text) {
    constexpr int mostDecimals = 13;
    const Sexagesimal minutes(degrees.sixtieths);
    text.Format(L"%dd%d'%0.*f\"", degrees.whole, minutes.whole, std::min(precision - 4, mostDecimals),
                minutes.sixtieths);
}

/// Moves the text from the point to the start, by a count of bytes equal to the number of characters: a quarter
/// of the characters move, and the length stays, so that 0.50 comes out as ..50. This is how such text is stored.
void moveFromPoint(std::wstring& text) {
    const std::size_t point = text.find(L'.');
    if (point == text.npos) return;
    std::memmove(text.data(), text.data() + point, text.size() - point);
}

void removeTrailingZeros(std::wstring& text) {
    if (text.find(L'.') == text.npos) return;
    while (!text.empty() && text.back() == L'0') text.pop_back();
    if (!text.empty() && text.back() == L'.') text.pop_back();
}

void writeDecimals(double value, int precision, int dimzin, const wchar_t* unit, CStdStr<wchar_t>& text) {
    constexpr int mostDecimals = 15;
    constexpr int mostDecimalsBelowOne = 30;
    const int decimals = std::min(precision, value < 1.0 ? mostDecimalsBelowOne : mostDecimals);
    text.Format(L"%0.*f", decimals, value);
    if (value < 1.0 && (dimzin & suppressLeadingZero) != 0) moveFromPoint(text);
    if ((dimzin & suppressTrailingZeros) != 0) removeTrailingZeros(text);
    if (text.empty()) text = L"0";
    text.append(unit);
}

/// A quarter of the turn: its bearings, and the direction that it starts with.
struct Quarter {
    double start;
    const wchar_t* alone;    ///< the direction at the start
    const wchar_t* degrees;  ///< its bearing
    const wchar_t* from;
    const wchar_t* towards;
    double zero;  ///< the angle of bearing 0
    double sense;
};
constexpr Quarter quarters[] = {
    {0.0, L"E", L"90d", L"N", L"E", halfPi, -1.0},
    {halfPi, L"N", L"0d", L"N", L"W", halfPi, 1.0},
    {pi, L"W", L"90d", L"S", L"W", threeHalvesPi, -1.0},
    {threeHalvesPi, L"S", L"0d", L"S", L"E", threeHalvesPi, 1.0},
};

bool isNear(double a, double b) {
    return std::abs(a - b) <= negligible;
}

/// The quarter that starts with this direction; null for an angle between directions.
const Quarter* quarterAt(double angle) {
    if (isNear(angle, twoPi)) return quarters;
    const Quarter* found = std::find_if(std::begin(quarters), std::end(quarters),
                                        [&](const Quarter& q) { return isNear(angle, q.start); });
    return found == std::end(quarters) ? nullptr : found;
}

/// The quarter around this angle; null outside the turn.
const Quarter* quarterAround(double angle) {
    if (angle < 0.0 || angle > twoPi) return nullptr;
    return std::upper_bound(std::begin(quarters), std::end(quarters), angle,
                            [](double value, const Quarter& q) { return value < q.start; }) -
           1;
}

/// A bearing, such as "N 45d E", with blanks or without. At precision 0 the four directions are written with their
/// degrees, else by their letter alone. False when the bearing can't be written.
bool writeBearing(double angle, int precision, bool blanks, CStdStr<wchar_t>& text) {
    const wchar_t* blank = blanks ? L" " : L"";
    CStdStr<wchar_t> bearing;
    const Quarter* quarter = quarterAt(angle);
    if (quarter != nullptr) {
        if (precision != 0) {
            text = quarter->alone;
            return true;
        }
        bearing = quarter->degrees;
    } else {
        quarter = quarterAround(angle);
        if (quarter == nullptr) return true;
        const double size = quarter->sense * (angle - quarter->zero);
        if (CVqTableUtils::RadianToDecimaldegrees(size, precision, bearing) == 0) return false;
    }
    text.Format(L"%s%s%s%s%s", quarter->from, blank, bearing.c_str(), blank, quarter->towards);
    return true;
}

/// Adds or takes off whole turns until the angle lies in one, whose both ends are allowed.
double withinWholeTurn(double angle) {
    constexpr double largeAngle = 1e6;
    if (std::abs(angle) > largeAngle) angle = std::fmod(angle, twoPi);
    while (angle < 0.0) angle += twoPi;
    while (angle > twoPi) angle -= twoPi;
    return angle;
}

/// The angle to write: relative to the drawing's base, in its direction, and in one turn unless the flags keep more.
double shownAngle(const KdDbDatabase& database, int flags, double angle) {
    if ((flags & kAngleAsGiven) == 0) {
        double base = database.angbase();
        CVqTableUtils::NormalAngle(&base, nullptr);
        angle = database.angdir() ? base - angle : angle - base;
    }
    if ((flags & kAngleWholeTurn) != 0) return withinWholeTurn(angle);
    if ((flags & kAngleUnbounded) != 0) return angle;
    CVqTableUtils::NormalAngle(&angle, nullptr);
    const double tiny = std::pow(10.0, -std::max(10, database.auprec()));
    return angle < tiny || twoPi - angle < tiny ? 0.0 : angle;
}

}  // namespace

int CVqTableUtils::RadianToDecimaldegrees(double radians, int precision, CStdStr<wchar_t>& text) {
    if (precision < 0) return 0;
    if (radians > twoPi) radians -= twoPi * std::trunc(radians / twoPi);
    const double value = radians * degreesPerRadian;
    if (!(std::abs(value) < std::numeric_limits<int>::max())) return 0;
    const Sexagesimal degrees(value);
    if (precision == 0) {
        text.Format(L"%dd", roundedUp(value));
    } else if (precision <= 2) {
        writeDegreesAndMinutes(degrees, text);
    } else if (precision <= 4) {
        writeWholeSeconds(degrees, text);
    } else {
        writeDecimalSeconds(degrees, precision, text);
    }
    return 1;
}

int CVqTableUtils::AngleToStringConvert(KdDbDatabase* database, int flags, double radians, CStdStr<wchar_t>& text) {
    if (database == nullptr) return 0;
    const int precision = database->auprec();
    const double angle = shownAngle(*database, flags, radians);
    const double degrees = angle * degreesPerRadian;
    switch (database->aunits()) {
        case kDecimalDegrees:
            writeDecimals(degrees, precision, database->dimzin(), L"", text);
            return 1;
        case kDegreesMinutesSeconds:
            if (RadianToDecimaldegrees(angle, precision, text) == 0) return 0;
            return ReplaceDegreeMark(flags, text);
        case kGrads:
            writeDecimals(degrees * gradsPerDegree, precision, database->dimzin(), L"g", text);
            return 1;
        case kRadians:
            writeDecimals(angle, precision, database->dimzin(), L"r", text);
            return 1;
        case kSurveyors:
            if (!writeBearing(angle, precision, database->unitmode() == 0, text)) return 0;
            return ReplaceDegreeMark(flags, text);
        default:
            return 1;
    }
}
