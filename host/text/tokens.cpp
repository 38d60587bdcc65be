// The formatting codes of a text, taken apart.

#include "host/text/tokens.h"

#include <array>
#include <optional>
#include <string_view>

#include "host/text/characters.h"

namespace kdhost::text {
namespace {

constexpr wchar_t kDegree = 0x00B0;
constexpr wchar_t kPlusMinus = 0x00B1;
constexpr wchar_t kDiameter = 0x2300;
constexpr wchar_t kReplacement = 0xFFFD;

std::optional<unsigned> number(std::wstring_view digits, unsigned base) {
    unsigned value = 0;
    for (const wchar_t c : digits) {
        unsigned digit = base;
        if (c >= L'0' && c <= L'9') digit = static_cast<unsigned>(c - L'0');
        if (c >= L'A' && c <= L'F') digit = static_cast<unsigned>(c - L'A') + 10;
        if (c >= L'a' && c <= L'f') digit = static_cast<unsigned>(c - L'a') + 10;
        if (digit >= base) return std::nullopt;
        value = value * base + digit;
    }
    return value;
}

bool isHighSurrogate(unsigned value) {
    return value >= 0xD800 && value < 0xDC00;
}
bool isLowSurrogate(unsigned value) {
    return value >= 0xDC00 && value < 0xE000;
}

class Parser {
public:
    explicit Parser(std::wstring_view text) : m_text(text) {}

    std::vector<Token> run() {
        while (m_at < m_text.size()) step();
        flush();
        return std::move(m_tokens);
    }

private:
    using Rule = bool (Parser::*)();
    struct CodeRule {
        wchar_t code;
        Rule rule;
    };
    static const std::array<CodeRule, 24> kCodes;

    void step() {
        const wchar_t c = m_text[m_at];
        switch (c) {
            case L'\\':
                if (!backslash()) literal(1);
                break;
            case L'%':
                if (!percent()) literal(1);
                break;
            case L'{':
                put({TokenKind::groupBegin, 0, {}, {}}, 1);
                ++m_depth;
                break;
            case L'}':
                closeGroup();
                break;
            case L'\r':
                put({TokenKind::lineBreak, 0, {}, {}}, peek(1) == L'\n' ? 2 : 1);
                break;
            case L'\n':
                put({TokenKind::lineBreak, 0, {}, {}}, 1);
                break;
            default:
                literal(1);
        }
    }

    void closeGroup() {
        if (m_depth == 0) return literal(1);
        --m_depth;
        put({TokenKind::groupEnd, 0, {}, {}}, 1);
    }

    /// A code that begins with a backslash; false when it is none.
    bool backslash() {
        const wchar_t code = peek(1);
        for (const CodeRule& rule : kCodes) {
            if (rule.code == code) return (this->*rule.rule)();
        }
        return false;
    }

    bool escaped() {
        character(m_text[m_at + 1], 2);
        return true;
    }
    bool hardBlank() {
        put({TokenKind::hardBlank, 0, {}, {}}, 2);
        return true;
    }
    bool paragraph() {
        put({TokenKind::lineBreak, 0, {}, {}}, 2);
        return true;
    }
    bool toggle() {
        put({TokenKind::toggle, m_text[m_at + 1], {}, {}}, 2);
        return true;
    }

    /// The parameter reaches to a semicolon; another code, a brace or a line end before it means that the
    /// code was cut short.
    bool property() {
        const std::size_t end = m_text.find_first_of(L";\\{}\r\n", m_at + 2);
        if (end == m_text.npos || m_text[end] != L';') return false;
        const std::wstring_view parameter = m_text.substr(m_at + 2, end - m_at - 2);
        put({TokenKind::property, m_text[m_at + 1], std::wstring(parameter), {}}, end + 1 - m_at);
        return true;
    }

    /// A backslash in a stack takes the next character literally. A stack stands in one line.
    bool stack() {
        if (m_at < m_noStackBefore) return false;
        Token token{TokenKind::stack, 0, {}, {}};
        std::size_t at = m_at + 2;
        const auto isLineEnd = [&](std::size_t place) { return m_text[place] == L'\n' || m_text[place] == L'\r'; };
        for (; at < m_text.size() && m_text[at] != L';' && !isLineEnd(at); ++at) {
            wchar_t c = m_text[at];
            if (token.code == 0 && (c == L'/' || c == L'^' || c == L'#')) {
                token.code = c;
                continue;
            }
            if (c == L'\\' && at + 1 < m_text.size() && !isLineEnd(at + 1)) c = m_text[++at];
            (token.code == 0 ? token.text : token.lower) += c;
        }
        if (at >= m_text.size() || m_text[at] != L';') {
            // Up to here no other stack can end either, and looking again would cost time.
            m_noStackBefore = at;
            return false;
        }
        put(std::move(token), at + 1 - m_at);
        return true;
    }

    /// The 16-bit value of a \U+XXXX code at a place.
    std::optional<unsigned> unicodeAt(std::size_t at) const {
        if (m_text.substr(at, 3) != L"\\U+" || at + 7 > m_text.size()) return std::nullopt;
        return number(m_text.substr(at + 3, 4), 16);
    }

    bool unicode() {
        const std::optional<unsigned> value = unicodeAt(m_at);
        if (!value || *value == 0) return false;
        if (isHighSurrogate(*value)) {
            const std::optional<unsigned> low = unicodeAt(m_at + 7);
            if (low && isLowSurrogate(*low)) {
                character(static_cast<wchar_t>(0x10000 + ((*value - 0xD800) << 10) + (*low - 0xDC00)), 14);
                return true;
            }
        }
        const bool half = isHighSurrogate(*value) || isLowSurrogate(*value);
        character(half ? kReplacement : static_cast<wchar_t>(*value), 7);
        return true;
    }

    bool multibyte() {
        if (peek(2) != L'+' || m_at + 8 > m_text.size()) return false;
        const std::optional<unsigned> bytes = number(m_text.substr(m_at + 4, 4), 16);
        if (!bytes) return false;
        const std::optional<wchar_t> decoded = characterOf(static_cast<int>(peek(3) - L'0'), *bytes);
        if (!decoded) return false;
        character(*decoded, 8);
        return true;
    }

    bool percent() {
        if (peek(1) != L'%') return false;
        switch (peek(2)) {
            case L'd':
            case L'D':
                character(kDegree, 3);
                return true;
            case L'p':
            case L'P':
                character(kPlusMinus, 3);
                return true;
            case L'c':
            case L'C':
                character(kDiameter, 3);
                return true;
            case L'%':
                character(L'%', 3);
                return true;
            default:
                return numbered();
        }
    }

    /// %%nnn, a character by its decimal number.
    bool numbered() {
        if (m_at + 5 > m_text.size()) return false;
        const std::optional<unsigned> value = number(m_text.substr(m_at + 2, 3), 10);
        if (!value || *value < 32 || *value > 255) return false;
        character(static_cast<wchar_t>(*value), 5);
        return true;
    }

    wchar_t peek(std::size_t offset) const { return m_at + offset < m_text.size() ? m_text[m_at + offset] : L'\0'; }

    void literal(std::size_t count) {
        m_pending.append(m_text.substr(m_at, count));
        m_at += count;
    }
    void character(wchar_t c, std::size_t consumed) {
        m_pending += c;
        m_at += consumed;
    }
    void put(Token token, std::size_t consumed) {
        flush();
        m_tokens.push_back(std::move(token));
        m_at += consumed;
    }
    void flush() {
        if (m_pending.empty()) return;
        m_tokens.push_back({TokenKind::characters, 0, std::move(m_pending), {}});
        m_pending.clear();
    }

    std::wstring_view m_text;
    std::size_t m_at = 0;
    std::size_t m_noStackBefore = 0;
    std::size_t m_depth = 0;
    std::wstring m_pending;
    std::vector<Token> m_tokens;
};

const std::array<Parser::CodeRule, 24> Parser::kCodes = {{
    {L'\\', &Parser::escaped},  {L'{', &Parser::escaped},  {L'}', &Parser::escaped},  {L'~', &Parser::hardBlank},
    {L'P', &Parser::paragraph}, {L'L', &Parser::toggle},   {L'l', &Parser::toggle},   {L'O', &Parser::toggle},
    {L'o', &Parser::toggle},    {L'K', &Parser::toggle},   {L'k', &Parser::toggle},   {L'H', &Parser::property},
    {L'W', &Parser::property},  {L'Q', &Parser::property}, {L'T', &Parser::property}, {L'A', &Parser::property},
    {L'C', &Parser::property},  {L'c', &Parser::property}, {L'F', &Parser::property}, {L'f', &Parser::property},
    {L'p', &Parser::property},  {L'S', &Parser::stack},    {L'U', &Parser::unicode},  {L'M', &Parser::multibyte},
}};

}  // namespace

std::vector<Token> parse(const std::wstring& contents) {
    return Parser(contents).run();
}

std::wstring asRead(const Token& stack) {
    if (stack.text.empty() || stack.lower.empty()) return stack.text + stack.lower;
    return stack.text + L'/' + stack.lower;
}

}  // namespace kdhost::text
