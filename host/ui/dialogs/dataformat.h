// The formats that the data format dialog offers for a data type and a unit type, and their codes.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "host/ui/hosttexts.h"
#include "kd/db/value.h"

namespace kdhost {

struct FormatKind {
    HostText name;
    std::wstring head;          ///< of the code, before the decimal places
    std::wstring tail;          ///< behind them
    bool hasPrecision = false;  ///< without it, the code is the head
};

/// The first is the usual one.
std::vector<FormatKind> formatKinds(KdValue::DataType type, KdValue::UnitType unit);

/// What a list shows for a kind; for a kind of dates, a date in it.
QString formatName(const FormatKind& kind);
/// The code itself; for one of dates, a date in it.
QString codeName(const std::wstring& code);

inline constexpr int kMostDecimals = 8;

/// `precision` is passed over where the kind has none.
std::wstring formatCode(const FormatKind& kind, int precision);

struct FormatPlace {
    std::size_t kind = 0;
    int precision = 0;
};
/// The kind that a code is of; nothing for a code of another make.
std::optional<FormatPlace> placeOfFormat(const std::vector<FormatKind>& kinds, const std::wstring& code);

/// A value of that type to show formats by; of no type for a type without content.
KdValue sampleOf(KdValue::DataType type);

}  // namespace kdhost
