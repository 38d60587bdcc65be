// Lengths: the text of a dialog field to a number and back.

#include <cmath>
#include <cwctype>
#include <string_view>

#include "kd/db/headervar.h"
#include "kd/ed/resbuf.h"
#include "module/valuetext/digits.h"
#include "module/valuetext/tableutils.h"
#include "win32/widenumbers.h"

namespace {

constexpr unsigned long bufferLength = 256;

/// White space of the program's character set. Digits and marks, which nearly every text begins and ends with, are
/// passed without asking for it.
bool isBlank(wchar_t character) {
    const bool isVisible = character > L' ' && character <= L'~';
    return !isVisible && std::iswspace(static_cast<std::wint_t>(character)) != 0;
}

/// The form that a length has by its look: an exponent makes it decimal for the C library, else a mark of feet,
/// inches or fractions makes it architectural.
enum class Look { kDecimal, kExponent, kArchitectural };

Look lookOf(std::wstring_view text) {
    Look look = Look::kDecimal;
    for (const wchar_t character : text) {
        switch (character) {
            case L'E':
            case L'e':
                return Look::kExponent;
            case L'\'':
            case L'-':
            case L' ':
            case L'/':
            case L'"':
                look = Look::kArchitectural;
                break;
            default:
                break;
        }
    }
    return look;
}

/// A length without its sign.
bool scanLength(const wchar_t* text, std::size_t size, double& value) {
    switch (lookOf({text, size})) {
        case Look::kExponent:
            if (!scanDecimal(text, value)) return false;
            value = _wtof(text);
            return true;
        case Look::kArchitectural:
            return scanArchitectural(text, value);
        default:
            return scanDecimal(text, value);
    }
}

}  // namespace

int CVqTableUtils::StringToDoubleConvert(KdDbDatabase*, const CStdStr<wchar_t>& text, double& value) {
    if (text.empty()) return 0;
    // The scanners read up to the text's end, so that only white space to be taken off there asks for a copy.
    if (isBlank(text.back())) {
        CStdStr<wchar_t> trimmed = text;
        trimmed.Trim();
        // What is all white space goes on as an empty number.
        if (!trimmed.empty()) return StringToDoubleConvert(nullptr, trimmed, value);
        value = 0.0;
        return 0;
    }
    std::size_t start = 0;
    while (isBlank(text[start])) ++start;
    // The sign goes before the hyphen between inches and fraction is looked for.
    const bool negative = text[start] == L'-';
    if (negative || text[start] == L'+') ++start;
    const bool parsed = scanLength(text.c_str() + start, text.size() - start, value);
    // A refused text behind a minus sign leaves -0.
    if (negative) value = -value;
    return parsed ? 1 : 0;
}

int CVqTableUtils::DoubleToStringConvert(KdDbDatabase* database, double value, CStdStr<wchar_t>& text) {
    if (database == nullptr) return RTERROR;
    const KdDbHeaderVar& header = KdDbSystemInternals::getImpDatabase(database)->headerVar();
    wchar_t buffer[bufferLength] = {};
    const int status = KdadConvertRealToString(header, value, -1, -1, buffer, bufferLength, -1);
    text = buffer;
    return status == RTNORM ? 1 : 0;
}

int CVqTableUtils::ConvertStringWithDimzin(double value, int precision, int dimzin, CStdStr<wchar_t>& text) {
    text.Format(L"%.*f", precision, value);
    if (dimzin < 4) return 1;
    CStdStr<wchar_t> work = text;

    const bool leading = dimzin < 8 || dimzin > 11;
    const std::size_t sign = work[0] == L'-' ? 1 : 0;
    if (leading && work.compare(sign, 2, L"0.") == 0) {
        work.erase(0, sign + 1);
        text = work;
        // The minus sign is to come back by moving the characters one place to the right. The first move is
        // outside the text and throws, so that such a number is never written; callers count on that.
        if (sign != 0) {
            for (std::size_t at = text.size(); at > 0; --at) text.at(at) = text.at(at - 1);
        }
    }
    if (dimzin >= 8 && work.find(L'.') != work.npos) {
        while (!work.empty() && work.back() == L'0') work.pop_back();
        if (!work.empty() && work.back() == L'.') work.pop_back();
    }
    text = work;
    if (text.empty() && std::abs(value) <= negligible) text = L"0";
    return 1;
}
