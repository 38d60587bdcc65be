// The text as it is read, without its formatting codes.

#include <array>
#include <cstdint>

#include "host/text/layout.h"
#include "host/text/tokens.h"

namespace kdhost::text {
namespace {

/// For each character below 128 whether it ends a plain text: the zero, and what may begin a code.
constexpr std::array<bool, 128> kEnds = [] {
    std::array<bool, 128> ends{};
    for (const unsigned char c : {'\0', '\\', '%', '{', '}', '\r'}) ends[c] = true;
    return ends;
}();

bool endsPlainText(wchar_t character) {
    const auto code = static_cast<std::uint32_t>(character);
    return code < kEnds.size() && kEnds[code];
}

}  // namespace

int plainLength(const wchar_t* contents) {
    const wchar_t* end = contents;
    while (!endsPlainText(*end)) ++end;
    return *end == L'\0' ? static_cast<int>(end - contents) : -1;
}

std::wstring strip(const std::wstring& contents) {
    if (isPlain(contents)) return contents;
    std::wstring read;
    read.reserve(contents.size());
    for (const Token& token : parse(contents)) {
        switch (token.kind) {
            case TokenKind::characters:
                read += token.text;
                break;
            case TokenKind::hardBlank:
                read += L' ';
                break;
            case TokenKind::lineBreak:
                read += L'\n';
                break;
            case TokenKind::stack:
                read += asRead(token);
                break;
            case TokenKind::groupBegin:
            case TokenKind::groupEnd:
            case TokenKind::toggle:
            case TokenKind::property:
                break;
        }
    }
    return read;
}

}  // namespace kdhost::text
