// How typed values look: the codes of formats, and the texts that values become by them.
//
// A code is a row of parts. A part that a code lacks leaves its matter to the drawing or to nothing; parts that
// nobody knows are passed over. An empty code shows the value as it is stored.
//
//     %lu2        length unit, as LUNITS
//     %au1        angle unit, as AUNITS; the value is in radians
//     %pr3        decimal places, as LUPREC or AUPREC
//     %zs8        suppression of zeros, as DIMZIN
//     %th[,]      what stands between thousands
//     %ct8[100]   a factor for the number
//     %ps[$,]     what stands before the number and, after the comma, behind it
//     %tc1        text in capitals, %tc2 in small letters
//     %td[...]    date and time: d, dd, ddd, dddd, M to MMMM, yy, yyyy, h, H, mm, ss, AP, text in quotes
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "kd/db/value.h"

class KdDbHeaderVar;

namespace kdhost {

struct ValueFormat {
    std::optional<int> lengthUnit;
    std::optional<int> angleUnit;
    std::optional<int> precision;
    std::optional<int> zeros;
    std::wstring thousands;
    double factor = 1.0;
    std::wstring before;
    std::wstring behind;
    int textCase = 0;
    std::wstring datePattern;
};

ValueFormat parseValueFormat(std::wstring_view code);

/// The value's text; names of months and days in the host's language. Nothing when the value has no content, is no
/// number that can be written, or a date that no calendar has.
std::optional<std::wstring> formattedValue(const KdValue& value, const ValueFormat& format,
                                           const KdDbHeaderVar& header);

}  // namespace kdhost
