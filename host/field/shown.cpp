// Values of formulas as text.

#include "host/field/shown.h"

#include <cmath>

#include "host/db/fieldstate.h"

namespace kdhost::field {
namespace {

/// The code that a number of that kind has when nobody has chosen one.
std::wstring codeFor(const CellWriting& writing) {
    if (!writing.code.empty() || writing.dataType != KdValue::kDouble) return writing.code;
    if (writing.unitType == KdValue::kCurrency) return L"%lu2%pr2%zs0%th[,]%ps[$,]";
    if (writing.unitType == KdValue::kPercentage) return L"%lu2%pr2%zs0%ps[,%]%ct8[100]";
    return {};
}

bool isWhole(KdValue::DataType type, double number) {
    constexpr double kMost = 9e18;
    return type == KdValue::kLong && std::abs(number) < kMost;
}

/// Text cells show a number as it is stored; the other types know no more of it than its format.
KdValue typed(const Value& value, KdValue::DataType type) {
    KdValue result;
    if (value.kind == ValueKind::text) {
        result.set(value.text.c_str());
    } else if (isWhole(type, value.number)) {
        result.set(std::lround(value.number));
    } else {
        result.set(value.number == 0.0 ? 0.0 : value.number);  // a zero has no sign
    }
    return result;
}

}  // namespace

std::wstring shownValue(const Value& value, const CellWriting& writing, const KdDbHeaderVar& header) {
    if (value.kind == ValueKind::error) return kNoEvaluation;
    const KdValue number = typed(value, writing.dataType);
    const bool isPlain = writing.dataType == KdValue::kString && value.kind != ValueKind::text;
    const ValueFormat format = isPlain ? ValueFormat() : parseValueFormat(codeFor(writing));
    if (const auto text = formattedValue(number, format, header)) return asContents(*text);
    return formattedValue(number, {}, header).value_or(kNoEvaluation);
}

}  // namespace kdhost::field
