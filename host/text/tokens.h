// The formatting codes of a text, taken apart. Whoever measures, draws or strips a text walks its tokens and
// never looks at the codes themselves.
#pragma once

#include <string>
#include <vector>

namespace kdhost::text {

enum class TokenKind {
    characters,  ///< text as it is read, in `text`
    hardBlank,   ///< a blank that no line breaks at
    lineBreak,
    groupBegin,  ///< looks that change inside a group end with it
    groupEnd,
    toggle,    ///< `code` L, O, K switches a line under, over or through the text on; l, o, k switches it off
    property,  ///< `code` one of H W Q T A C c F f p, its parameter in `text`
    stack,     ///< `text` above or before `lower`; `code` is the separator, one of / # ^
};

struct Token {
    TokenKind kind = TokenKind::characters;
    wchar_t code = 0;
    std::wstring text;
    std::wstring lower;
};

/// Takes any text, in time linear to its length. What is no code, or a code cut short, is text as it stands;
/// a closing brace without an opening one too. A group that is never closed reaches to the end.
std::vector<Token> parse(const std::wstring& contents);

/// A stack in one line: "a/b" whatever the separator; the one part alone when the other is empty, as in a
/// raised exponent.
std::wstring asRead(const Token& stack);

}  // namespace kdhost::text
