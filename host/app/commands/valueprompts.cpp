// Texts and numbers as they are typed.

#include "host/app/commands/valueprompts.h"

#include "host/ed/commandline.h"
#include "host/rx/numbertext.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

constexpr Words kNoNumber{L"\"%1\" is no number.", L"“%1”不是数值。"};

}  // namespace

std::optional<std::wstring> askForText(const Words& prompt, bool takesBlanks) {
    wchar_t text[1024];
    if (kdedGetString(takesBlanks ? 1 : 0, prompt.text(), text) != RTNORM) return std::nullopt;
    return text;
}

std::optional<double> askForNumber(const Words& prompt, double standard) {
    const std::optional<std::wstring> text = askForText(prompt);
    if (!text) return std::nullopt;
    if (text->empty()) return standard;
    const std::optional<double> number = numberFrom(*text);
    if (!number) commandLine().fail(kNoNumber.with(*text));
    return number;
}

}  // namespace kdhost
