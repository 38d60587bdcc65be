// The text as it is read, without its formatting codes.

#include "host/text/layout.h"
#include "host/text/tokens.h"

namespace kdhost::text {

std::wstring strip(const std::wstring& contents) {
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
