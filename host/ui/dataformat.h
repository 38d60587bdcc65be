// Formats of values: which there are for a data type and a unit type, their codes, and how a value looks in one.
//
// A code is made of parts: "%lu" or "%au" and a unit of lengths or angles, "%pr" and the decimal places, "%ps"
// with what stands before and behind the number in brackets, "%ct8" with a factor in brackets, "%tc" and the
// case of a text. An empty code shows the value as it is stored.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "host/ui/hosttexts.h"
#include "kd/db/value.h"

class KdDbHeaderVar;

namespace kdhost {

struct FormatKind {
    HostText name;
    const wchar_t* head;  ///< before the decimal places
    const wchar_t* tail;  ///< behind them
    bool hasPrecision;
};

/// The first is the usual one.
std::vector<FormatKind> formatKinds(KdValue::DataType type, KdValue::UnitType unit);

inline constexpr int kMostDecimals = 8;

/// `precision` is passed over where the kind has none.
std::wstring formatCode(const FormatKind& kind, int precision);

struct FormatPlace {
    std::size_t kind = 0;
    int precision = 0;
};
/// The kind that a code is of; nothing for a code of another make.
std::optional<FormatPlace> placeOfFormat(const std::vector<FormatKind>& kinds, const std::wstring& code);

/// The value in a format; nothing when it has no content, or none of a kind that the format shows.
std::optional<QString> formatted(const KdValue& value, const std::wstring& code, const KdDbHeaderVar& header);

}  // namespace kdhost
