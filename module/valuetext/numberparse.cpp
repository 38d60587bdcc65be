// The scanner of decimal numbers, and what both scanners of lengths stand on.

#include "module/valuetext/numberparse.h"

#include <cmath>

#include "module/valuetext/digits.h"

void GatherValue(wchar_t** cursor, double* value, int* count) {
    const wchar_t* at = *cursor;
    const Digits digits = gatherDigits(at);
    *value = digits.value;
    *count = digits.count;
    *cursor += digits.count;
}

namespace {

constexpr double largestExponent = 99.0;

bool isExponentMark(wchar_t character) {
    return character == L'E' || character == L'e';
}

/// What stands behind the mark of the exponent: a sign and digits, both of which may be left out, up to the end.
bool parseExponent(const wchar_t* cursor, double mantissa, double& value) {
    double sign = 1.0;
    if (*cursor == L'+' || *cursor == L'-') sign = *cursor++ == L'-' ? -1.0 : 1.0;
    const double exponent = gatherDigits(cursor).value;
    if (*cursor != 0 || exponent > largestExponent) return false;
    value = exponent <= negligible ? mantissa : std::pow(10.0, sign * exponent) * mantissa;
    return true;
}

/// What stands behind the digits of the mantissa: the end, or an exponent.
bool parseTail(const wchar_t* cursor, double mantissa, double& value) {
    if (*cursor == 0) {
        value = mantissa;
        return true;
    }
    return isExponentMark(*cursor) && parseExponent(cursor + 1, mantissa, value);
}

}  // namespace

bool scanDecimal(const wchar_t* text, double& value) {
    value = 0.0;
    const wchar_t* cursor = text;
    double whole = 0.0;
    if (*cursor == L'.') {
        ++cursor;
    } else {
        if (!isDigit(*cursor)) return false;
        whole = gatherDigits(cursor).value;
        if (*cursor != L'.') return parseTail(cursor, whole, value);
        ++cursor;
        if (*cursor == 0) {
            value = whole;
            return true;
        }
    }
    // An exponent may stand right behind the point; where the point begins the text, the mantissa is 0.
    if (isExponentMark(*cursor)) return parseExponent(cursor + 1, whole, value);
    if (!isDigit(*cursor)) return false;
    const double fraction = gatherFraction(cursor);
    return parseTail(cursor, whole + fraction, value);
}

int ParseAsDecimal(wchar_t* text, double* out) {
    return scanDecimal(text, *out) ? 1 : 0;
}
