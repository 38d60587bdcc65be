// The formats by data type and unit type.

#include "host/ui/dataformat.h"

#include <array>

#include "host/db/valueformat.h"
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

/// From the shortest to the one with names, then those with the time.
const std::vector<FormatKind>& dateKinds() {
    static const std::vector<FormatKind> kinds = [] {
        std::vector<FormatKind> made = {kAsStored};
        for (const wchar_t* pattern :
             {L"yyyy-MM-dd", L"yyyy/M/d", L"M/d/yyyy", L"d/M/yyyy", L"dd.MM.yyyy", L"dd-MMM-yy", L"d MMM yyyy",
              L"d MMMM yyyy", L"MMMM d, yyyy", L"dddd, MMMM d, yyyy", L"yyyy\u5e74M\u6708d\u65e5",
              L"yyyy\u5e74M\u6708d\u65e5 dddd", L"yyyy-MM-dd HH:mm", L"M/d/yyyy h:mm AP", L"H:mm", L"H:mm:ss",
              L"h:mm AP"}) {
            made.push_back({HostText::FormatDate, std::wstring(L"%td[") + pattern + L"]", L"", false});
        }
        return made;
    }();
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
    if (kind.name != HostText::FormatDate) return hostText(kind.name);
    const ValueFormat format = parseValueFormat(kind.head);
    return QString::fromStdWString(formattedValue(sampleOf(KdValue::kDate), format, {}).value_or(kind.head));
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
