// Lengths as text, in the five length units of a drawing.

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <string>

#include "kd/db/headervar.h"
#include "kd/ed/resbuf.h"

namespace {

constexpr double inchesPerFoot = 12.0;
constexpr int fractionDenominators = 8;

/// How zeros are suppressed, told by DIMZIN.
struct ZeroSuppression {
    explicit ZeroSuppression(int dimzin)
        : feet((dimzin & 3) == 0 || (dimzin & 3) == 3),
          inches((dimzin & 3) == 0 || (dimzin & 3) == 2),
          leading((dimzin & 4) != 0),
          trailing((dimzin & 8) != 0) {}
    bool feet;
    bool inches;
    bool leading;
    bool trailing;
};

struct Settings {
    int precision;
    bool asTyped;  ///< UNITMODE 1
    ZeroSuppression zeros;
};

std::string printed(const char* pattern, int precision, double value) {
    const int length = std::snprintf(nullptr, 0, pattern, precision, value);
    std::string text(static_cast<std::size_t>(length), '\0');
    std::snprintf(text.data(), text.size() + 1, pattern, precision, value);
    return text;
}

void removeLeadingZero(std::string& text) {
    if (text.size() > 1 && text.compare(0, 2, "0.") == 0) text.erase(0, 1);
}

/// Zeros behind the point of the mantissa, and the point itself where nothing stays behind it.
void removeTrailingZeros(std::string& text) {
    const std::size_t end = std::min(text.find('E'), text.size());
    if (text.find('.') >= end) return;
    const std::size_t last = text.find_last_not_of('0', end - 1);
    const std::size_t keep = text[last] == '.' ? last : last + 1;
    text.erase(keep, end - keep);
}

/// A number without a digit other than 0 in its mantissa.
bool isZero(const std::string& text) {
    return text.find_first_of("123456789") >= text.find('E');
}

std::string decimals(double size, const Settings& settings, bool mayLoseLeading) {
    std::string text = printed("%.*f", settings.precision, size);
    if (settings.zeros.trailing) removeTrailingZeros(text);
    if (settings.zeros.leading && mayLoseLeading) removeLeadingZero(text);
    // A zero with both ends suppressed would leave nothing.
    return text.empty() || text == "." ? "0" : text;
}

std::string scientific(double size, const Settings& settings) {
    std::string text = printed("%.*E", settings.precision, size);
    if (settings.zeros.trailing) removeTrailingZeros(text);
    return text;
}

std::string decimal(double size, const Settings& settings) {
    return decimals(size, settings, true);
}

std::string whole(double value) {
    return printed("%.*f", 0, value);
}

/// Feet and inches around the text of the inches. `size` is rounded to what will be shown.
std::string feetAndInches(double feet, bool zeroInches, const std::string& inches, const Settings& settings) {
    const bool showFeet = feet > 0.0 || !settings.zeros.feet;
    // Something has to be shown: of a whole zero, the inches, or the feet where only those are kept.
    const bool showInches = !zeroInches || !settings.zeros.inches || !showFeet;
    std::string text;
    if (showFeet) text = whole(feet) + "'";
    if (showFeet && showInches && !settings.asTyped) text += "-";
    if (showInches) text += inches + "\"";
    return text;
}

std::string engineering(double size, const Settings& settings) {
    double feet = std::floor(size / inchesPerFoot);
    double inches = std::fmod(size, inchesPerFoot);
    if (printed("%.*f", settings.precision, inches) == printed("%.*f", settings.precision, inchesPerFoot)) {
        feet += 1.0;
        inches = 0.0;
    }
    const bool alone = feet == 0.0 && settings.zeros.feet;
    // Behind feet the leading zero stays, since such inches are read by their first digit.
    const std::string text = decimals(inches, settings, alone);
    return feetAndInches(feet, isZero(printed("%.*f", settings.precision, inches)), text, settings);
}

/// A number of whole units and of a fraction in lowest terms.
struct Fraction {
    Fraction(double size, int precision) : units(std::floor(size)), denominator(1 << precision) {
        numerator = static_cast<int>(std::lround((size - units) * denominator));
        if (numerator == denominator) {
            units += 1.0;
            numerator = 0;
        }
        while (numerator != 0 && numerator % 2 == 0) {
            numerator /= 2;
            denominator /= 2;
        }
    }
    std::string text() const { return std::to_string(numerator) + "/" + std::to_string(denominator); }

    double units;
    int denominator;
    int numerator;
};

/// The whole units and the fraction; a zero in front of a fraction only where it is kept.
std::string unitsAndFraction(double units, const Fraction& fraction, bool keepZero, const Settings& settings) {
    if (fraction.numerator == 0) return whole(units);
    if (units == 0.0 && !keepZero) return fraction.text();
    return whole(units) + (settings.asTyped ? "-" : " ") + fraction.text();
}

std::string architectural(double size, const Settings& settings) {
    const Fraction fraction(size, settings.precision);
    const double feet = std::floor(fraction.units / inchesPerFoot);
    const double inches = std::fmod(fraction.units, inchesPerFoot);
    const bool showsFeet = feet > 0.0 || !settings.zeros.feet;
    const std::string text = unitsAndFraction(inches, fraction, showsFeet, settings);
    return feetAndInches(feet, inches == 0.0 && fraction.numerator == 0, text, settings);
}

std::string fractional(double size, const Settings& settings) {
    const Fraction fraction(size, settings.precision);
    return unitsAndFraction(fraction.units, fraction, false, settings);
}

using Writer = std::string (*)(double size, const Settings& settings);
/// By length unit, from 1.
constexpr Writer writers[] = {scientific, decimal, engineering, architectural, fractional};

int orOwn(int setting, int own) {
    return setting == -1 ? own : setting;
}

bool isWithin(int value, int lowest, int highest) {
    return value >= lowest && value <= highest;
}

}  // namespace

int KdadConvertRealToString(const KdDbHeaderVar& header, double value, int unit, int precision, wchar_t* buffer,
                            unsigned long size, int dimzin) {
    unit = orOwn(unit, header.lunits());
    precision = orOwn(precision, header.luprec());
    dimzin = orOwn(dimzin, header.dimzin());
    if (!isWithin(unit, KdDbHeaderVar::kScientific, KdDbHeaderVar::kFractional) ||
        !isWithin(precision, 0, fractionDenominators) || !isWithin(dimzin, 0, 15) || !std::isfinite(value) ||
        buffer == nullptr) {
        return RTERROR;
    }
    const Settings settings{precision, header.unitmode() != 0, ZeroSuppression(dimzin)};
    std::string text = writers[unit - 1](std::abs(value), settings);
    // What is shown as zero has no sign.
    if (value < 0.0 && !isZero(text)) text.insert(text.begin(), '-');
    if (text.size() >= size) return RTERROR;
    std::copy(text.begin(), text.end(), buffer);
    buffer[text.size()] = 0;
    return RTNORM;
}
