// The scanners of angle text: decimal degrees, degrees with minutes and seconds, grads, radians, bearings.

#include "kd/db/database.h"
#include "module/valuetext/angle.h"
#include "module/valuetext/tableutils.h"
#include "win32/widenumbers.h"

namespace {

double radiansOf(double degrees, double sign) {
    return degrees * pi / degreesInHalfTurn * sign;
}

bool holdsAny(const std::wstring& text, const wchar_t* characters) {
    return text.find_first_of(characters) != text.npos;
}

/// Marks of a text in degrees, minutes and seconds, in the order that they may come in. Each may be left out.
struct DegreeMark {
    const wchar_t* characters;
    double unitsPerDegree;
};
constexpr DegreeMark degreeMarks[] = {{L"Dd", 1.0}, {L"'", 60.0}, {L"\"", 3600.0}};
constexpr int degreeMarkCount = 3;

/// The index of a mark; the count when the character is none.
int degreeMarkIndex(wchar_t character) {
    int index = 0;
    while (index < degreeMarkCount && !holdsAny(std::wstring(1, character), degreeMarks[index].characters)) ++index;
    return index;
}

/// Reads runs of digits and points, each with its mark. A run without a mark may only stand alone.
bool parseDegrees(const std::wstring& text, double& degrees) {
    double total = 0.0;
    int nextMark = 0;
    std::size_t start = 0;
    while (true) {
        std::size_t end = start;
        while (end < text.size() && isDegreeDigit(text[end])) ++end;
        const double run = _wtof(text.substr(start, end - start).c_str());
        if (end == text.size()) {
            degrees = run;
            return nextMark == 0;
        }
        const int mark = degreeMarkIndex(text[end]);
        if (mark == degreeMarkCount || mark < nextMark) return false;
        total += run / degreeMarks[mark].unitsPerDegree;
        nextMark = mark + 1;
        start = end + 1;
        if (start == text.size()) {
            degrees = total;
            return true;
        }
    }
}

int parseGrads(const CStdStr<wchar_t>& text, double& radians) {
    constexpr double gradsInHalfTurn = 200.0;
    if (!startsNumber(text[0])) return 0;
    radians = pi * _wtof(text.c_str()) / gradsInHalfTurn;
    return 1;
}

int parseRadians(const CStdStr<wchar_t>& text, double& radians) {
    if (!startsNumber(text[0])) return 0;
    radians = _wtof(text.c_str());
    return 1;
}

/// East and west stand alone.
int parsePoint(const CStdStr<wchar_t>& text, double direction, double& radians) {
    if (text.size() != 1) return 0;
    radians = direction;
    return 1;
}

}  // namespace

int CVqTableUtils::DecimaldegreesToRadian(const CStdStr<wchar_t>& text, double& radians) {
    if (text.empty()) return 0;
    const bool negative = text[0] == L'-';
    const double sign = negative ? -1.0 : 1.0;
    const std::wstring rest = text.substr(negative ? 1 : 0);
    double degrees = 0.0;
    // A lone hyphen, or two, is minus zero.
    if (rest.empty() || (negative && rest == L"-")) {
        radians = 0.0 * sign;
        return 1;
    }
    if (!parseDegrees(rest, degrees)) return 0;
    radians = radiansOf(degrees, sign);
    return 1;
}

int CVqTableUtils::ProcessDecimalToAngle(const CStdStr<wchar_t>& text, wchar_t* degreeSign, double& radians) {
    if (text.empty() || !startsNumber(text[0])) return 0;
    // A mark of degrees takes the digit before it along, so that 45d reads as 4 degrees: the rule of this path.
    std::wstring digits = text;
    for (const wchar_t* mark : {L"D", L"d", static_cast<const wchar_t*>(degreeSign)}) {
        const std::size_t position = digits.find(mark);
        if (position != digits.npos) digits.resize(position < 2 ? 0 : position - 1);
    }
    for (std::size_t at = 1; at < digits.size(); ++at) {
        if (!isDegreeDigit(digits[at])) return 0;
    }
    radians = radiansOf(_wtof(digits.c_str()), 1.0);
    return 1;
}

int CVqTableUtils::StringToAngleConvert(KdDbDatabase* database, const CStdStr<wchar_t>& text, double& radians) {
    if (text.empty() || database == nullptr) return 0;
    CStdStr<wchar_t> work = text;
    for (wchar_t& character : work) {
        if (character == *DegreeSign()) character = L'd';
    }
    const int direction = database->angdir() ? 1 : 0;
    double base = database->angbase();
    NormalAngle(&base, nullptr);

    double angle = 0.0;
    int parsed = 0;
    if (holdsAny(work, L"NnSsEeWw")) {
        switch (work[0]) {
            case L'N':
            case L'n':
                return ProcessSurveyNorthAndSouthToAngle(0, work, angle, radians, base, direction, 1);
            case L'S':
            case L's':
                return ProcessSurveyNorthAndSouthToAngle(0, work, angle, radians, base, direction, 0);
            case L'E':
            case L'e':
                parsed = parsePoint(work, 0.0, angle);
                break;
            case L'W':
            case L'w':
                parsed = parsePoint(work, pi, angle);
                break;
            default:
                parsed = ProcessDecimalToAngle(work, DegreeSign(), angle);
        }
    } else if (holdsAny(work, L"Gg")) {
        parsed = parseGrads(work, angle);
    } else if (holdsAny(work, L"Rr")) {
        parsed = parseRadians(work, angle);
    } else if (holdsAny(work, L"\"'")) {
        parsed = DecimaldegreesToRadian(work, angle);
    } else {
        parsed = ProcessDecimalToAngle(work, DegreeSign(), angle);
    }
    if (parsed == 0) return 0;
    return ProcessAngle(0, base, direction, angle, radians) ? 1 : 0;
}
