// Constants of angle text. Their exact values are part of the results.
#pragma once

#include "module/valuetext/digits.h"

constexpr double pi = 3.141592653589793;
constexpr double halfPi = 1.5707963267948966;
constexpr double threeHalvesPi = 4.71238898038469;
constexpr double twoPi = 6.283185307179586;
constexpr double degreesPerRadian = 57.29577951308232;
constexpr double degreesInHalfTurn = 180.0;

/// Flags of angle conversions.
enum AngleFlag : int {
    kAngleAsGiven = 1,     ///< base and direction are left alone
    kAngleDegreeSign = 2,  ///< writing: the degree sign for d; reading: no normalising
    kAngleWholeTurn = 4,   ///< a whole turn stays a whole turn
    kAngleUnbounded = 8,   ///< any number of turns stays
};

inline bool startsNumber(wchar_t character) {
    return isDigit(character) || character == L'-' || character == L'.';
}

inline bool isDegreeDigit(wchar_t character) {
    return isDigit(character) || character == L'.';
}
