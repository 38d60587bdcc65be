// The scanner of feet, inches and fractions.
//
//     feet ' [- or blank] inches [. fraction] ["]
//     feet ' [- or blank] [inches - or blank] numerator / denominator ["]
//     [inches - or blank] numerator / denominator ["]
//     inches [. fraction] ["]    feet . fraction '
//
// Every form may be what a text is; which one is decided by the character behind each number.

#include "module/valuetext/digits.h"
#include "module/valuetext/numberparse.h"

namespace {

constexpr double inchesPerFoot = 12.0;

struct Parts {
    double feet = 0.0;
    double inches = 0.0;
    double numerator = 0.0;
    double denominator = 1.0;

    /// The terms are added in this order; results are compared to the last bit.
    double total() const { return numerator / denominator + (inches + feet * inchesPerFoot); }
};

bool isSeparator(wchar_t character) {
    return character == L'-' || character == L' ';
}

/// The end, or the mark of inches right before it.
bool atEnd(const wchar_t* cursor) {
    return cursor[0] == 0 || (cursor[0] == L'"' && cursor[1] == 0);
}

/// The cursor stands behind the slash.
bool parseDenominator(const wchar_t* cursor, Parts& parts) {
    if (!isDigit(*cursor)) return false;
    parts.denominator = gatherDigits(cursor).value;
    return parts.denominator > negligible && atEnd(cursor);
}

/// The cursor stands behind the separator of whole inches and fraction.
bool parseMixedFraction(const wchar_t* cursor, Parts& parts) {
    if (!isDigit(*cursor)) return false;
    parts.numerator = gatherDigits(cursor).value;
    return *cursor == L'/' && parseDenominator(cursor + 1, parts);
}

/// What stands behind a number of inches: the end, or a fraction. A slash makes the number the numerator.
bool parseBehindInches(const wchar_t* cursor, double number, Parts& parts) {
    if (*cursor == L'/') {
        parts.numerator = number;
        return parseDenominator(cursor + 1, parts);
    }
    parts.inches = number;
    if (isSeparator(*cursor)) return parseMixedFraction(cursor + 1, parts);
    return atEnd(cursor);
}

/// The cursor stands behind the mark of feet. One separator may be passed over; digits may be missing behind
/// the point of decimal inches.
bool parseBehindFeet(const wchar_t* cursor, Parts& parts) {
    if (*cursor == 0) return true;
    if (isSeparator(*cursor)) ++cursor;
    if (!isDigit(*cursor)) return false;
    const double number = gatherDigits(cursor).value;
    if (*cursor != L'.') return parseBehindInches(cursor, number, parts);
    ++cursor;
    const double fraction = gatherFraction(cursor);
    // The fraction comes last here: it takes the numerator's place.
    parts.inches = parts.feet * inchesPerFoot + number;
    parts.feet = 0.0;
    parts.inches += fraction;
    return atEnd(cursor);
}

/// The cursor stands behind the point of the text's first number, which is inches, or feet where a mark of feet
/// ends the text. A point with nothing behind it is fine, so a lone point is 0.
bool parseBehindPoint(const wchar_t* cursor, double whole, Parts& parts) {
    parts.inches = whole;
    if (*cursor == 0) return true;
    if (!isDigit(*cursor)) return false;
    parts.inches = whole + gatherFraction(cursor);
    if (cursor[0] == L'\'' && cursor[1] == 0) {
        parts.feet = parts.inches;
        parts.inches = 0.0;
        return true;
    }
    return atEnd(cursor);
}

bool parse(const wchar_t* cursor, Parts& parts) {
    if (*cursor != L'.' && !isDigit(*cursor)) return false;
    const double first = gatherDigits(cursor).value;
    if (*cursor == L'.') return parseBehindPoint(cursor + 1, first, parts);
    if (*cursor != L'\'') return parseBehindInches(cursor, first, parts);
    parts.feet = first;
    return parseBehindFeet(cursor + 1, parts);
}

}  // namespace

bool scanArchitectural(const wchar_t* text, double& value) {
    Parts parts;
    const bool parsed = parse(text, parts);
    value = parsed ? parts.total() : 0.0;
    return parsed;
}

int ParseAsArchitectural(wchar_t* text, double* out) {
    return scanArchitectural(text, *out) ? 1 : 0;
}
