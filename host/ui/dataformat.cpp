// Codes of formats, and values shown by them.

#include "host/ui/dataformat.h"

#include <QRegularExpression>
#include <array>
#include <cmath>
#include <numbers>

#include "kd/db/headervar.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

constexpr FormatKind kAsStored{HostText::FormatAsStored, L"", L"", false};

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

std::vector<FormatKind> decimalKinds(KdValue::UnitType unit) {
    switch (unit) {
        case KdValue::kAngle:
            return {kAsStored,
                    {HostText::FormatDegrees, L"%au0", L"", true},
                    {HostText::FormatGradians, L"%au2", L"", true},
                    {HostText::FormatRadians, L"%au3", L"", true}};
        case KdValue::kCurrency:
            return {{HostText::UnitCurrency, L"%lu2", L"%ps[$,]", true}, kAsStored};
        case KdValue::kPercentage:
            return {{HostText::UnitPercentage, L"%lu2", L"%ps[,%]%ct8[100]", true}, kAsStored};
        default:
            return lengthKinds();
    }
}

QString qt(const std::wstring& text) {
    return QString::fromStdWString(text);
}

/// What follows a part's name in a code.
std::optional<int> partOf(const QString& code, const QString& name) {
    const QRegularExpressionMatch match =
        QRegularExpression(QLatin1Char('%') + name + QStringLiteral("(\\d+)")).match(code);
    if (!match.hasMatch()) return std::nullopt;
    return match.captured(1).toInt();
}

QString asStored(double value) {
    return QString::number(value, 'g', 15);
}

std::optional<QString> length(double value, int unit, int precision, const KdDbHeaderVar& header) {
    std::array<wchar_t, 128> buffer{};
    if (KdadConvertRealToString(header, value, unit, precision, buffer.data(), buffer.size(), -1) != RTNORM) {
        return std::nullopt;
    }
    return QString::fromWCharArray(buffer.data());
}

QString angle(double radians, int unit, int precision) {
    constexpr int kGradians = 2;
    constexpr int kRadians = 3;
    switch (unit) {
        case kGradians:
            return QString::number(radians * 200.0 / std::numbers::pi, 'f', precision) + QLatin1Char('g');
        case kRadians:
            return QString::number(radians, 'f', precision) + QLatin1Char('r');
        default:
            return QString::number(radians * 180.0 / std::numbers::pi, 'f', precision) + QChar(0xB0);
    }
}

std::optional<QString> number(double value, const QString& code, const KdDbHeaderVar& header) {
    static const QRegularExpression around(QStringLiteral("%ps\\[([^,\\]]*),([^\\]]*)\\]"));
    static const QRegularExpression factor(QStringLiteral("%ct8\\[([0-9.]+)\\]"));
    if (code.isEmpty()) return asStored(value);
    const QRegularExpressionMatch scaled = factor.match(code);
    if (scaled.hasMatch()) value *= scaled.captured(1).toDouble();
    const int precision = partOf(code, QStringLiteral("pr")).value_or(-1);
    std::optional<QString> text;
    if (const std::optional<int> unit = partOf(code, QStringLiteral("au"))) {
        text = angle(value, *unit, precision < 0 ? header.auprec() : precision);
    } else {
        text = length(value, partOf(code, QStringLiteral("lu")).value_or(-1), precision, header);
    }
    const QRegularExpressionMatch surrounded = around.match(code);
    if (!text || !surrounded.hasMatch()) return text;
    return surrounded.captured(1) + *text + surrounded.captured(2);
}

QString inCase(const QString& text, const QString& code) {
    constexpr int kUpper = 1;
    constexpr int kLower = 2;
    switch (partOf(code, QStringLiteral("tc")).value_or(0)) {
        case kUpper:
            return text.toUpper();
        case kLower:
            return text.toLower();
        default:
            return text;
    }
}

}  // namespace

std::vector<FormatKind> formatKinds(KdValue::DataType type, KdValue::UnitType unit) {
    switch (type) {
        case KdValue::kDouble:
            return decimalKinds(unit);
        case KdValue::kPoint:
            return lengthKinds();
        case KdValue::kString:
            return {
                kAsStored, {HostText::FormatUpper, L"%tc1", L"", false}, {HostText::FormatLower, L"%tc2", L"", false}};
        default:
            return {kAsStored};
    }
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

std::optional<QString> formatted(const KdValue& value, const std::wstring& code, const KdDbHeaderVar& header) {
    long whole = 0;
    double real = 0.0;
    std::array<double, 3> point{};
    std::wstring text;
    if (value.get(whole)) return QString::number(whole);
    if (value.get(real)) return number(real, qt(code), header);
    if (value.get(text)) return inCase(qt(text), qt(code));
    if (!value.get(point[0], point[1], point[2])) return std::nullopt;
    QStringList parts;
    for (const double coordinate : point) {
        const std::optional<QString> part = number(coordinate, qt(code), header);
        if (!part) return std::nullopt;
        parts.push_back(*part);
    }
    return parts.join(QStringLiteral(", "));
}

}  // namespace kdhost
