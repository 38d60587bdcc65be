// Tests of what a dialog field holds, which also bring the text into its plainest form.

#include <QString>
#include <cstdint>
#include <cstring>

#include "module/valuetext/tableutils.h"
#include "win32/widenumbers.h"

namespace {

/// A part of a number holds fewer digits than this.
constexpr std::size_t numberBuffer = 1024;

bool isRunOfDigits(const std::wstring& text) {
    return !text.empty() && text.size() < numberBuffer && text.find_first_not_of(L"0123456789") == text.npos;
}

/// White space off both ends; false when nothing is left.
bool trimmed(CStdStr<wchar_t>& text) {
    text.Trim();
    return !text.empty();
}

}  // namespace

bool CVqTableUtils::IsLegalNumber(CStdStr<wchar_t>& text) {
    if (!trimmed(text)) return false;
    const std::size_t point = text.find(L'.');
    const std::wstring whole = text.substr(0, point);
    if (!isRunOfDigits(whole)) return false;
    if (point == text.npos) {
        text.Format(L"%d", _wtoi(whole.c_str()));
        return true;
    }
    const std::wstring fraction = text.substr(point + 1);
    if (!isRunOfDigits(fraction)) return false;
    // The fraction stays as typed, zeros at its end too.
    text.Format(L"%d.%s", _wtoi(whole.c_str()), fraction.c_str());
    return true;
}

bool CVqTableUtils::IsLegalInteger(CStdStr<wchar_t>& text) {
    if (!trimmed(text) || text.find(L'.') != text.npos) return false;
    bool isInteger = false;
    const int value = QString::fromStdWString(text).toInt(&isInteger, 10);
    if (!isInteger || value == 0) return false;
    text = QString::number(value).toStdWString();
    return true;
}

bool CVqTableUtils::IsLegalScientificNotation(CStdStr<wchar_t>& text) {
    return trimmed(text);
}

bool CVqTableUtils::IsRealValid(double value) {
    constexpr int mantissaBits = 52;
    constexpr std::uint64_t exponentOnes = 0x7ff;
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    const std::uint64_t exponent = (bits >> mantissaBits) & exponentOnes;
    const std::uint64_t mantissa = bits & ((std::uint64_t{1} << mantissaBits) - 1);
    return exponent != exponentOnes && (exponent != 0 || mantissa == 0);
}
