// The formats by data type and unit type.

#include "host/ui/dialogs/dataformat.h"

#include <array>

#include "host/db/valueformat.h"
#include "host/win32/modules.h"
#include "kd/db/headervar.h"

namespace kdhost {
namespace {

const FormatKind kAsStored{HostText::FormatAsStored, L"", L"", false};

const std::vector<FormatKind>& lengthKinds() {
    static const std::vector<FormatKind> kinds = {
        kAsStored,
        {HostText::FormatDecimal, L"%lu2", L"", true},
        {HostText::FormatScientific, L"%lu1", L"", true},
        {HostText::FormatEngineering, L"%lu3", L"", true},
        {HostText::FormatArchitectural, L"%lu4", L"", true},
        {HostText::FormatFractional, L"%lu5", L"", true},
    };
    return kinds;
}

const std::vector<FormatKind>& angleKinds() {
    static const std::vector<FormatKind> kinds = {
        kAsStored,
        {HostText::FormatDegrees, L"%au0", L"", true},
        {HostText::FormatDegreesMinutesSeconds, L"%au1", L"", true},
        {HostText::FormatGradians, L"%au2", L"", true},
        {HostText::FormatRadians, L"%au3", L"", true},
        {HostText::FormatBearing, L"%au4", L"", true},
    };
    return kinds;
}

/// Amounts keep the zeros at their end.
const std::vector<FormatKind>& currencyKinds() {
    static const std::vector<FormatKind> kinds = {
        {HostText::FormatDollar, L"%lu2", L"%zs0%th[,]%ps[$,]", true},
        {HostText::FormatEuro, L"%lu2", L"%zs0%th[,]%ps[\u20ac,]", true},
        {HostText::FormatPound, L"%lu2", L"%zs0%th[,]%ps[\u00a3,]", true},
        {HostText::FormatYuan, L"%lu2", L"%zs0%th[,]%ps[\u00a5,]", true},
        kAsStored,
    };
    return kinds;
}

const std::vector<FormatKind>& percentageKinds() {
    static const std::vector<FormatKind> kinds = {
        {HostText::UnitPercentage, L"%lu2", L"%zs0%ps[,%]%ct8[100]", true},
        kAsStored,
    };
    return kinds;
}

const std::vector<FormatKind>& decimalKinds(KdValue::UnitType unit) {
    switch (unit) {
        case KdValue::kAngle:
            return angleKinds();
        case KdValue::kCurrency:
            return currencyKinds();
        case KdValue::kPercentage:
            return percentageKinds();
        default:
            return lengthKinds();
    }
}

struct DatePattern {
    const wchar_t* pattern;
    bool inEnglish;
    bool inChinese;
};

/// From the shortest to the ones with names, then those with the time. Names in an order that isn't the language's
/// are not offered in it.
constexpr std::array kDatePatterns = {
    DatePattern{L"yyyy-MM-dd", true, true},
    DatePattern{L"yyyy/M/d", true, true},
    DatePattern{L"M/d/yyyy", true, true},
    DatePattern{L"d/M/yyyy", true, true},
    DatePattern{L"dd.MM.yyyy", true, true},
    DatePattern{L"dd-MMM-yy", true, false},
    DatePattern{L"d MMM yyyy", true, false},
    DatePattern{L"d MMMM yyyy", true, false},
    DatePattern{L"MMMM d, yyyy", true, false},
    DatePattern{L"dddd, MMMM d, yyyy", true, false},
    DatePattern{L"yyyy\u5e74M\u6708d\u65e5", true, true},
    DatePattern{L"yyyy\u5e74M\u6708d\u65e5 dddd", false, true},
    DatePattern{L"yyyy-MM-dd HH:mm", true, true},
    DatePattern{L"M/d/yyyy h:mm AP", true, false},
    DatePattern{L"yyyy\u5e74M\u6708d\u65e5 APh:mm", false, true},
    DatePattern{L"H:mm", true, true},
    DatePattern{L"H:mm:ss", true, true},
    DatePattern{L"h:mm AP", true, false},
    DatePattern{L"APh:mm", false, true},
};

std::vector<FormatKind> dateKinds() {
    std::vector<FormatKind> kinds = {kAsStored};
    for (const DatePattern& each : kDatePatterns) {
        const bool offered = language() == Language::Chinese ? each.inChinese : each.inEnglish;
        if (offered) kinds.push_back({HostText::FormatDate, std::wstring(L"%td[") + each.pattern + L"]", L"", false});
    }
    return kinds;
}

const std::vector<FormatKind>& textKinds() {
    static const std::vector<FormatKind> kinds = {
        kAsStored,
        {HostText::FormatUpper, L"%tc1", L"", false},
        {HostText::FormatLower, L"%tc2", L"", false},
    };
    return kinds;
}

const std::vector<FormatKind>& wholeKinds() {
    static const std::vector<FormatKind> kinds = {kAsStored, {HostText::FormatThousands, L"%th[,]", L"", false}};
    return kinds;
}

}  // namespace

std::vector<FormatKind> formatKinds(KdValue::DataType type, KdValue::UnitType unit) {
    switch (type) {
        case KdValue::kLong:
            return wholeKinds();
        case KdValue::kDouble:
            return decimalKinds(unit);
        case KdValue::kPoint:
            return lengthKinds();
        case KdValue::kString:
            return textKinds();
        case KdValue::kDate:
            return dateKinds();
        default:
            return {kAsStored};
    }
}

QString formatName(const FormatKind& kind) {
    return kind.name == HostText::FormatDate ? codeName(kind.head) : hostText(kind.name);
}

QString codeName(const std::wstring& code) {
    const ValueFormat format = parseValueFormat(code);
    if (format.datePattern.empty()) return QString::fromStdWString(code);
    return QString::fromStdWString(formattedValue(sampleOf(KdValue::kDate), format, {}).value_or(code));
}

std::wstring formatCode(const FormatKind& kind, int precision) {
    if (!kind.hasPrecision) return kind.head;
    return kind.head + (L"%pr" + std::to_wstring(precision)) + kind.tail;
}

std::optional<FormatPlace> placeOfFormat(const std::vector<FormatKind>& kinds, const std::wstring& code) {
    for (std::size_t kind = 0; kind < kinds.size(); ++kind) {
        const int last = kinds[kind].hasPrecision ? kMostDecimals : 0;
        for (int precision = 0; precision <= last; ++precision) {
            if (formatCode(kinds[kind], precision) == code) return FormatPlace{kind, precision};
        }
    }
    return std::nullopt;
}

KdValue sampleOf(KdValue::DataType type) {
    KdValue sample;
    switch (type) {
        case KdValue::kLong:
            sample.set(12345L);
            break;
        case KdValue::kDouble:
            sample.set(1.2345);
            break;
        case KdValue::kString:
        case KdValue::kGeneral:
            sample.set(hostText(HostText::FormatSampleText).toStdWString().c_str());
            break;
        case KdValue::kDate:
            // A day that tells day, month and year apart.
            sample.set(KdDate{2004, 9, 1, 14, 5, 9});
            break;
        case KdValue::kPoint:
            sample.set(1.25, 2.5, 0.0);
            break;
        default:
            break;
    }
    return sample;
}

}  // namespace kdhost
