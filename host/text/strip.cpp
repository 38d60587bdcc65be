// The text as it is read, without its formatting codes.

#include <algorithm>

#include "host/text/layout.h"
#include "host/text/tokens.h"

namespace kdhost::text {

bool isPlain(const std::wstring& contents) {
    return std::none_of(contents.begin(), contents.end(),
                        [](wchar_t c) { return c == L'\\' || c == L'%' || c == L'{' || c == L'}' || c == L'\r'; });
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
