// What the fuzz targets share. Each target is a file with one function that a fuzzer calls with bytes; the driver
// beside them calls all of them with seeded inputs of its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tests/support/textmodels.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace kdtest {

/// The bytes as a wide text without zeros. Bytes beyond ASCII stand for characters that are easily mistaken.
inline std::wstring fuzzText(const std::uint8_t* data, std::size_t size) {
    constexpr wchar_t beyond[] = {L'\u00b0', L'\u0661', L'\uff11',  L'\u3000', L'\u00a0',
                                  0x1d7ce,   0xd800,    0x7fffffff, -1};
    constexpr std::size_t choices = sizeof beyond / sizeof *beyond;
    std::wstring text;
    for (std::size_t at = 0; at < size; ++at) {
        const std::uint8_t byte = data[at];
        if (byte != 0) text += byte < 0x80 ? static_cast<wchar_t>(byte) : beyond[(byte - 0x80U) % choices];
    }
    return text;
}

/// Ends the program, with the text told, unless the condition holds.
inline void require(bool condition, const char* what, const std::wstring& text) {
    if (condition) return;
    std::fprintf(stderr, "%s:", what);
    for (const wchar_t character : text) std::fprintf(stderr, " U+%04X", static_cast<unsigned>(character));
    std::fprintf(stderr, "\n");
    std::abort();
}

/// The number that requireModelled hands to a scanner.
constexpr double untouched = 17.0;

/// The scanner's answer is its model's, and a refused text leaves `onFailure`. `scan` takes a text and a number.
template <class Scan, class Model>
void requireModelled(const std::wstring& text, double onFailure, Scan scan, Model model) {
    double value = untouched;
    const bool accepted = scan(text, value) != 0;
    require(accepted || value == onFailure, "a refused text left another value", text);
    // The models read texts of Unicode characters only.
    for (const wchar_t character : text) {
        if (character < 0 || character > 0x10ffff || (character >= 0xd800 && character <= 0xdfff)) return;
    }
    require(sameBits(accepted ? Scanned(value) : std::nullopt, model(text)), "not as its model", text);
}

}  // namespace kdtest
