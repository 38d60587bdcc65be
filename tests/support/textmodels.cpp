// The models. They use the C library's numbers and Qt's regular expressions, nothing of the module.

#include "tests/support/textmodels.h"

#include <QRegularExpression>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cwchar>
#include <cwctype>

namespace kdtest {
namespace {

const double pi = 3.141592653589793;
const double twoPi = 6.283185307179586;

/// The pattern, to be matched over a whole text. Compiling one takes far longer than matching it.
QRegularExpression whole(const char* pattern) {
    QRegularExpression expression(QStringLiteral("\\A(?:%1)\\z").arg(QLatin1String(pattern)));
    expression.optimize();
    return expression;
}

/// A match; a group that took no part is null.
class Match {
public:
    Match(const QRegularExpression& expression, const std::wstring& text)
        : m_match(expression.match(QString::fromStdWString(text))) {}
    explicit operator bool() const { return m_match.hasMatch(); }
    bool has(const char* group) const { return !m_match.captured(QLatin1String(group)).isNull(); }
    std::wstring text(const char* group) const { return m_match.captured(QLatin1String(group)).toStdWString(); }

    double digits(const char* group) const {
        double value = 0.0;
        for (const wchar_t digit : text(group)) value = (digit - L'0') + 10.0 * value;
        return value;
    }
    double fraction(const char* group) const {
        double value = digits(group);
        for (std::size_t left = text(group).size(); left > 0; --left) value /= 10.0;
        return value;
    }

private:
    QRegularExpressionMatch m_match;
};

double number(const std::wstring& text) {
    return std::wcstod(text.c_str(), nullptr);
}

bool holds(const std::wstring& text, const wchar_t* characters) {
    return text.find_first_of(characters) != text.npos;
}

Scanned turned(double angle) {
    if (std::abs(angle) > 1e10) return std::nullopt;
    if (std::abs(angle) > 1e6 || (angle != 0.0 && !std::isnormal(angle))) return 0.0;
    while (angle > 628318.5307179586) angle -= 628318.5307179586;
    while (angle < -628318.5307179586) angle += 628318.5307179586;
    while (angle > 6283.185307179586) angle -= 6283.185307179586;
    while (angle < -6283.185307179586) angle += 6283.185307179586;
    while (angle + 1e-10 < 0.0) angle += twoPi;
    while (angle + 1e-10 >= twoPi) angle -= twoPi;
    return angle;
}

}  // namespace

Scanned modelDecimal(const std::wstring& text) {
    static const QRegularExpression matchForm =
        whole("(?:(?<a>[0-9]+)(?:\\.(?<f>[0-9]*))?|\\.(?<g>[0-9]+|(?=[eE])))(?<mark>[eE](?<sign>[+-]?)(?<e>[0-9]*))?");
    const Match match(matchForm, text);
    if (!match) return std::nullopt;
    const double mantissa = match.digits("a") + (match.fraction("f") + match.fraction("g"));
    const double exponent = match.digits("e");
    if (exponent > 99.0) return std::nullopt;
    if (exponent == 0.0) return mantissa;
    const double sign = match.text("sign") == L"-" ? -1.0 : 1.0;
    return std::pow(10.0, sign * exponent) * mantissa;
}

Scanned modelArchitectural(const std::wstring& text) {
    static const QRegularExpression feetWithDecimalInchesForm =
        whole("(?<feet>[0-9]+)'[- ]?(?<inches>[0-9]+)\\.(?<f>[0-9]*)\"?");
    const Match feetWithDecimalInches(feetWithDecimalInchesForm, text);
    if (feetWithDecimalInches) {
        return feetWithDecimalInches.digits("feet") * 12.0 + feetWithDecimalInches.digits("inches") +
               feetWithDecimalInches.fraction("f");
    }
    static const QRegularExpression feetAloneForm = whole("(?<feet>[0-9]*)\\.(?<f>[0-9]+)'");
    const Match feetAlone(feetAloneForm, text);
    if (feetAlone) return 0.0 / 1.0 + (0.0 + (feetAlone.digits("feet") + feetAlone.fraction("f")) * 12.0);
    static const QRegularExpression inchesAloneForm = whole("(?<inches>[0-9]*)\\.(?:(?<f>[0-9]+)\"?)?");
    const Match inchesAlone(inchesAloneForm, text);
    if (inchesAlone) return inchesAlone.digits("inches") + inchesAlone.fraction("f");
    static const QRegularExpression restForm = whole(
        "(?:(?<feet>[0-9]+)'(?:\\z|[- ]?(?=[0-9])))?"
        "(?:(?:(?<inches>[0-9]+)[- ])?(?<n>[0-9]+)/(?<d>[0-9]+)\"?|(?<whole>[0-9]+)\"?)?");
    const Match rest(restForm, text);
    if (!rest || text.empty()) return std::nullopt;
    const double denominator = rest.has("d") ? rest.digits("d") : 1.0;
    if (denominator == 0.0) return std::nullopt;
    const double inches = rest.digits("inches") + rest.digits("whole");
    return rest.digits("n") / denominator + (inches + rest.digits("feet") * 12.0);
}

Scanned modelLength(const std::wstring& text) {
    const auto isBlank = [](wchar_t character) { return std::iswspace(static_cast<std::wint_t>(character)) != 0; };
    std::wstring rest = text;
    while (!rest.empty() && isBlank(rest.back())) rest.pop_back();
    while (!rest.empty() && isBlank(rest.front())) rest.erase(0, 1);
    const bool negative = rest.substr(0, 1) == L"-";
    if (negative || rest.substr(0, 1) == L"+") rest.erase(0, 1);
    Scanned value;
    if (holds(rest, L"eE")) {
        value = modelDecimal(rest);
        if (value) value = number(rest);
    } else {
        value = holds(rest, L"'- /\"") ? modelArchitectural(rest) : modelDecimal(rest);
    }
    return value && negative ? -*value : value;
}

Scanned modelDegrees(const std::wstring& text) {
    if (text.empty()) return std::nullopt;
    const double sign = text[0] == L'-' ? -1.0 : 1.0;
    if (text == L"-" || text == L"--") return -0.0;
    static const QRegularExpression aloneForm = whole("-?(?<n>[0-9.]+)");
    const Match alone(aloneForm, text);
    if (alone) return number(alone.text("n")) * pi / 180.0 * sign;
    static const QRegularExpression markedForm =
        whole("-?(?:(?<d>[0-9.]*)[dD])?(?:(?<m>[0-9.]*)')?(?:(?<s>[0-9.]*)\")?");
    const Match marked(markedForm, text);
    if (!marked) return std::nullopt;
    const double total = number(marked.text("d")) + number(marked.text("m")) / 60.0 + number(marked.text("s")) / 3600.0;
    return total * pi / 180.0 * sign;
}

Scanned modelDecimalAngle(const std::wstring& text) {
    static const QRegularExpression beginsForm = whole("[-0-9.](?s:.*)");
    const Match begins(beginsForm, text);
    if (!begins) return std::nullopt;
    std::wstring digits = text;
    for (const wchar_t* mark : {L"D", L"d", L"\u00b0"}) {
        const std::size_t at = digits.find(mark);
        if (at != digits.npos) digits = at < 2 ? L"" : digits.substr(0, at - 1);
    }
    static const QRegularExpression restForm = whole("(?:[-0-9.][0-9.]*)?");
    const Match rest(restForm, digits);
    if (!rest) return std::nullopt;
    return number(digits) * pi / 180.0;
}

Scanned modelSurvey(const std::wstring& text, bool north) {
    if (text.size() == 1) return turned((north ? 0.0 : pi) + pi / 2.0);
    static const QRegularExpression matchForm = whole("(?s:.) ?(?<bearing>[0-9][0-9Dd\"'.]*) ?[Ww]");
    const Match match(matchForm, text);
    if (!match) return std::nullopt;
    const Scanned bearing = modelDegrees(match.text("bearing"));
    if (!bearing || *bearing > pi / 2.0) return std::nullopt;
    return turned(pi / 2.0 + *bearing);
}

Scanned modelAngle(const std::wstring& given) {
    if (given.empty()) return std::nullopt;
    std::wstring text = given;
    for (wchar_t& character : text) {
        if (character == L'\u00b0') character = L'd';
    }
    const bool beginsNumber = holds(text.substr(0, 1), L"0123456789-.");
    Scanned angle;
    if (holds(text, L"NnSsEeWw")) {
        if (holds(text.substr(0, 1), L"NnSs")) return modelSurvey(text, holds(text.substr(0, 1), L"Nn"));
        if (holds(text.substr(0, 1), L"Ee")) {
            if (text.size() == 1) angle = 0.0;
        } else if (holds(text.substr(0, 1), L"Ww")) {
            if (text.size() == 1) angle = pi;
        } else {
            angle = modelDecimalAngle(text);
        }
    } else if (holds(text, L"Gg")) {
        if (beginsNumber) angle = pi * number(text) / 200.0;
    } else if (holds(text, L"Rr")) {
        if (beginsNumber) angle = number(text);
    } else if (holds(text, L"\"'")) {
        angle = modelDegrees(text);
    } else {
        angle = modelDecimalAngle(text);
    }
    // The base, which is 0, is added: that makes 0 of -0.
    return angle ? turned(*angle + 0.0) : angle;
}

bool sameBits(const Scanned& a, const Scanned& b) {
    if (a.has_value() != b.has_value()) return false;
    return !a || std::bit_cast<std::uint64_t>(*a) == std::bit_cast<std::uint64_t>(*b);
}

std::wstring randomText(std::mt19937& random, const std::wstring& alphabet, std::size_t longest) {
    std::wstring text(random() % (longest + 1), 0);
    for (wchar_t& character : text) character = alphabet[random() % alphabet.size()];
    return text;
}

std::string quoted(const std::wstring& text) {
    return '"' + QString::fromStdWString(text).toStdString() + '"';
}

}  // namespace kdtest
