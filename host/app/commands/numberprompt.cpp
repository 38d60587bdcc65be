// Numbers as they are typed.

#include "host/app/commands/numberprompt.h"

#include <charconv>
#include <cmath>

#include "host/ed/commandline.h"
#include "host/rx/encoding.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

constexpr Words kNoNumber{L"\"%1\" is no number.", L"“%1”不是数值。"};

}  // namespace

std::optional<double> numberOf(const std::wstring& text) {
    const std::string digits = toUtf8(text);
    const char* begin = digits.data();
    const char* const end = begin + digits.size();
    if (begin != end && *begin == '+') ++begin;
    double number = 0.0;
    const auto [stop, error] = std::from_chars(begin, end, number);
    if (error != std::errc() || stop != end || !std::isfinite(number)) return std::nullopt;
    return number;
}

std::optional<double> askForNumber(const Words& prompt, double standard) {
    wchar_t text[1024];
    if (kdedGetString(0, prompt.text(), text) != RTNORM) return std::nullopt;
    if (text[0] == L'\0') return standard;
    const std::optional<double> number = numberOf(text);
    if (!number) commandLine().fail(kNoNumber.with(std::wstring(text)));
    return number;
}

}  // namespace kdhost
