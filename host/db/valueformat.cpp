// Codes of formats taken apart, and values written by them.

#include "host/db/valueformat.h"

#include <QDateTime>
#include <QLocale>
#include <array>
#include <cwchar>

#include "host/db/angletext.h"
#include "host/win32/modules.h"
#include "kd/db/headervar.h"
#include "kd/ed/resbuf.h"

namespace kdhost {
namespace {

/// What stands behind the two letters of a part: digits, then text in brackets; either may be missing.
struct PartValue {
    std::optional<int> number;
    std::wstring text;
};

bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

/// Numbers of more digits than any part needs are cut.
int takeNumber(std::wstring_view& rest) {
    constexpr int tooLarge = 100000;
    int number = 0;
    for (; !rest.empty() && isDigit(rest.front()); rest.remove_prefix(1)) {
        if (number < tooLarge) number = number * 10 + (rest.front() - L'0');
    }
    return number;
}

PartValue takePartValue(std::wstring_view& rest) {
    PartValue value;
    if (!rest.empty() && isDigit(rest.front())) value.number = takeNumber(rest);
    const std::size_t end = rest.find(L']');
    if (rest.empty() || rest.front() != L'[' || end == rest.npos) return value;
    value.text = rest.substr(1, end - 1);
    rest.remove_prefix(end + 1);
    return value;
}

void takeSurroundings(ValueFormat& format, const PartValue& value) {
    const std::size_t comma = value.text.find(L',');
    format.before = value.text.substr(0, comma);
    format.behind = comma == value.text.npos ? std::wstring() : value.text.substr(comma + 1);
}

void takeFactor(ValueFormat& format, const PartValue& value) {
    constexpr int product = 8;
    if (value.number == product && !value.text.empty()) format.factor = std::wcstod(value.text.c_str(), nullptr);
}

struct Part {
    std::wstring_view letters;
    void (*take)(ValueFormat& format, const PartValue& value);
};
constexpr std::array kParts = {
    Part{L"lu", [](ValueFormat& format, const PartValue& value) { format.lengthUnit = value.number; }},
    Part{L"au", [](ValueFormat& format, const PartValue& value) { format.angleUnit = value.number; }},
    Part{L"pr", [](ValueFormat& format, const PartValue& value) { format.precision = value.number; }},
    Part{L"zs", [](ValueFormat& format, const PartValue& value) { format.zeros = value.number; }},
    Part{L"th", [](ValueFormat& format, const PartValue& value) { format.thousands = value.text; }},
    Part{L"ct", takeFactor},
    Part{L"ps", takeSurroundings},
    Part{L"tc", [](ValueFormat& format, const PartValue& value) { format.textCase = value.number.value_or(0); }},
    Part{L"td", [](ValueFormat& format, const PartValue& value) { format.datePattern = value.text; }},
};

/// Enough digits to tell any two numbers apart that a user would.
std::wstring asStored(double value) {
    return QString::number(value, 'g', 15).toStdWString();
}

bool saysHow(const ValueFormat& format) {
    return format.lengthUnit || format.angleUnit || format.precision || format.zeros;
}

std::optional<std::wstring> lengthText(double value, const ValueFormat& format, const KdDbHeaderVar& header) {
    std::array<wchar_t, 512> buffer{};
    const int status =
        KdadConvertRealToString(header, value, format.lengthUnit.value_or(-1), format.precision.value_or(-1),
                                buffer.data(), buffer.size(), format.zeros.value_or(-1));
    if (status != RTNORM) return std::nullopt;
    return buffer.data();
}

std::optional<std::wstring> plainNumber(double value, const ValueFormat& format, const KdDbHeaderVar& header) {
    if (format.angleUnit) return angleText(value, *format.angleUnit, format.precision.value_or(header.auprec()));
    return saysHow(format) ? lengthText(value, format, header) : asStored(value);
}

/// Puts the separator between groups of three of the number's first digits.
void separateThousands(std::wstring& number, const std::wstring& separator) {
    constexpr std::size_t group = 3;
    const std::size_t first = number.starts_with(L'-') ? 1 : 0;
    std::size_t end = first;
    while (end < number.size() && isDigit(number[end])) ++end;
    for (std::size_t at = end; at > first + group;) {
        at -= group;
        number.insert(at, separator);
    }
}

/// The number in its surroundings, which stand behind its sign.
std::wstring surrounded(std::wstring number, const ValueFormat& format) {
    separateThousands(number, format.thousands);
    number.insert(number.starts_with(L'-') ? 1 : 0, format.before);
    return number + format.behind;
}

std::optional<std::wstring> numberText(double value, const ValueFormat& format, const KdDbHeaderVar& header) {
    const std::optional<std::wstring> number = plainNumber(value * format.factor, format, header);
    if (!number) return std::nullopt;
    return surrounded(*number, format);
}

std::optional<std::wstring> pointText(const std::array<double, 3>& point, const ValueFormat& format,
                                      const KdDbHeaderVar& header) {
    std::wstring text;
    for (const double coordinate : point) {
        const std::optional<std::wstring> number = numberText(coordinate, format, header);
        if (!number) return std::nullopt;
        text += (text.empty() ? L"" : L", ") + *number;
    }
    return text;
}

std::wstring inCase(const std::wstring& text, int textCase) {
    constexpr int kUpper = 1;
    constexpr int kLower = 2;
    const QString given = QString::fromStdWString(text);
    if (textCase == kUpper) return given.toUpper().toStdWString();
    return textCase == kLower ? given.toLower().toStdWString() : text;
}

/// As it is stored, a date shows its time only where it has one.
QString storedPattern(const QTime& time) {
    return time == QTime(0, 0) ? QStringLiteral("yyyy-MM-dd") : QStringLiteral("yyyy-MM-dd HH:mm:ss");
}

std::optional<std::wstring> dateText(const KdDate& date, const std::wstring& pattern) {
    const QDate day(date.year, date.month, date.day);
    const QTime time(date.hour, date.minute, date.second);
    if (!day.isValid() || !time.isValid()) return std::nullopt;
    const QLocale locale = language() == Language::Chinese ? QLocale(QLocale::Chinese, QLocale::China)
                                                           : QLocale(QLocale::English, QLocale::UnitedStates);
    const QString wanted = pattern.empty() ? storedPattern(time) : QString::fromStdWString(pattern);
    return locale.toString(QDateTime(day, time, Qt::UTC), wanted).toStdWString();
}

}  // namespace

ValueFormat parseValueFormat(std::wstring_view code) {
    constexpr std::size_t letters = 2;
    ValueFormat format;
    while (!code.empty()) {
        const bool isPart = code.front() == L'%';
        code.remove_prefix(1);
        if (!isPart) continue;
        for (const Part& part : kParts) {
            if (code.substr(0, letters) != part.letters) continue;
            code.remove_prefix(letters);
            part.take(format, takePartValue(code));
            break;
        }
    }
    return format;
}

std::optional<std::wstring> formattedValue(const KdValue& value, const ValueFormat& format,
                                           const KdDbHeaderVar& header) {
    long whole = 0;
    double real = 0.0;
    std::array<double, 3> point{};
    std::wstring text;
    KdDate date;
    if (value.get(whole)) return surrounded(std::to_wstring(whole), format);
    if (value.get(real)) return numberText(real, format, header);
    if (value.get(text)) return inCase(text, format.textCase);
    if (value.get(date)) return dateText(date, format.datePattern);
    if (value.get(point[0], point[1], point[2])) return pointText(point, format, header);
    return std::nullopt;
}

}  // namespace kdhost
