// Runs of digits, the step that every scanner of numbers repeats; inline, since a dialog field's text is a few
// characters long and a call would cost as much as the digits.
#pragma once

#include <cstdint>

/// Exponents, denominators and angles up to this size count as 0.
constexpr double negligible = 1e-10;

/// Digits are 0 to 9 in every locale.
constexpr bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

/// A run of digits and its length.
struct Digits {
    double value = 0.0;
    int count = 0;
};

/// Moves the cursor behind the digits that it stands on.
inline Digits gatherDigits(const wchar_t*& cursor) {
    // Up to fifteen digits are exact in both integers and doubles, and integers are quicker to add up.
    constexpr int exactDigits = 15;
    const wchar_t* const start = cursor;
    const wchar_t* at = start;
    std::int64_t exact = 0;
    for (; at - start < exactDigits && isDigit(*at); ++at) exact = (*at - L'0') + 10 * exact;
    double value = static_cast<double>(exact);
    for (; isDigit(*at); ++at) value = static_cast<double>(*at - L'0') + 10.0 * value;
    cursor = at;
    return {value, static_cast<int>(at - start)};
}

/// Digits behind a point. Their value is divided by ten once for each digit, not by a power of ten: the rounding
/// of these repeated divisions is what results are compared with.
inline double gatherFraction(const wchar_t*& cursor) {
    Digits digits = gatherDigits(cursor);
    for (; digits.count > 0; --digits.count) digits.value /= 10.0;
    return digits.value;
}

/// The scanners themselves; the text stays as it is. False, with `value` 0, for a text of another form.
bool scanDecimal(const wchar_t* text, double& value);
bool scanArchitectural(const wchar_t* text, double& value);
