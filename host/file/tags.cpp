// Taking a file's bytes apart into tags, and values into numbers and texts.

#include "host/file/tags.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>

#include "host/file/largepages.h"
#include "host/file/tagwriter.h"
#include "host/rx/encoding.h"

namespace kdhost::file {
namespace {

constexpr int kComment = 999;
constexpr int kLowestCode = -5;
constexpr int kHighestCode = 1071;

constexpr bool isBlank(char letter) {
    return letter == ' ' || letter == '\t';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

template <class Number, class... Format>
std::optional<Number> numberOf(std::string_view text, Format... format) {
    text = trimmed(text);
    // Signs of plus are written by some; from_chars takes none.
    if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, format...);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// Reads lines; each ends with a line feed, a carriage return before it is no part of it.
class Lines {
public:
    explicit Lines(std::string_view bytes) : m_at(bytes.data()), m_end(bytes.data() + bytes.size()) {}

    bool atEnd() const { return m_at == m_end; }

    bool nextCode(int& code) {
        while (m_at != m_end && *m_at == ' ') ++m_at;
        const bool negative = m_at != m_end && *m_at == '-';
        if (negative) ++m_at;
        int number = 0;
        const char* first = m_at;
        for (; m_at != m_end && *m_at >= '0' && *m_at <= '9'; ++m_at) {
            if (m_at - first >= 4) return false;
            number = number * 10 + (*m_at - '0');
        }
        if (m_at == first) return false;
        while (m_at != m_end && isBlank(*m_at)) ++m_at;
        if (m_at != m_end && *m_at == '\r') ++m_at;
        if (m_at == m_end || *m_at != '\n') return false;
        ++m_at;
        code = negative ? -number : number;
        return code >= kLowestCode && code <= kHighestCode;
    }

    /// The last line of a file may lack its end.
    void nextValue(Tag& tag) {
        const auto* end = static_cast<const char*>(std::memchr(m_at, '\n', static_cast<std::size_t>(m_end - m_at)));
        tag.at = m_at;
        const char* behind = end == nullptr ? m_end : end;
        m_at = end == nullptr ? m_end : end + 1;
        if (behind != tag.at && behind[-1] == '\r') --behind;
        tag.length = static_cast<std::uint32_t>(behind - tag.at);
    }

private:
    const char* m_at;
    const char* m_end;
};

/// Plain letters, eight at a time.
struct EightBytes {
    static constexpr std::uint64_t kOnes = 0x0101010101010101;
    static constexpr std::uint64_t kHigh = 0x80 * kOnes;

    explicit EightBytes(const char* at) { std::memcpy(&letters, at, sizeof letters); }
    bool isPlain() const { return (letters & kHigh) == 0 && markedZeros(letters) == 0; }
    /// Of plain letters.
    std::size_t lineFeeds() const {
        return static_cast<std::size_t>(std::popcount(markedZeros(letters ^ '\n' * kOnes)));
    }

    std::uint64_t letters;

private:
    /// The high bit of each byte that is zero, where none has its own high bit set.
    static std::uint64_t markedZeros(std::uint64_t bytes) { return ~(bytes + 0x7F * kOnes) & kHigh; }
};

/// The line feeds of a text in UTF-8 without zeros; none for other bytes. Nearly all of them are plain letters.
std::optional<std::size_t> lineFeedsIn(std::string_view bytes) {
    std::size_t lineFeeds = 0;
    while (!bytes.empty()) {
        if (bytes.size() >= sizeof(EightBytes)) {
            const EightBytes eight(bytes.data());
            if (eight.isPlain()) {
                lineFeeds += eight.lineFeeds();
                bytes.remove_prefix(sizeof eight);
                continue;
            }
        }
        const std::string_view before = bytes;
        const wchar_t letter = takeUtf8(bytes);
        constexpr wchar_t kReplacement = 0xFFFD;
        if (letter == 0) return std::nullopt;
        if (letter == kReplacement && before.size() - bytes.size() != 3) return std::nullopt;
        lineFeeds += letter == L'\n' ? 1 : 0;
    }
    return lineFeeds;
}

}  // namespace

bool looksLikeTags(std::string_view bytes) {
    Lines lines(bytes);
    int code = 0;
    Tag tag;
    while (!lines.atEnd() && lines.nextCode(code)) {
        lines.nextValue(tag);
        if (code != kComment) return code == 0 && tag.value() == "SECTION";
    }
    return false;
}

bool readTags(std::string_view bytes, std::vector<Tag>& tags) {
    const std::optional<std::size_t> lineFeeds = bytes.size() < UINT32_MAX ? lineFeedsIn(bytes) : std::nullopt;
    if (!lineFeeds) return false;
    tags.clear();
    // Each takes two lines, of which the very last may lack its end.
    tags.reserve(*lineFeeds / 2 + 1);
    askForLargePages(tags.data(), tags.capacity() * sizeof(Tag));
    if (!appendTags(bytes, tags)) return false;
    // The end is at the end and nowhere before.
    const auto isEnd = [](const Tag& tag) { return tag.code == 0 && tag.value() == "EOF"; };
    return !tags.empty() && std::find_if(tags.begin(), tags.end(), isEnd) == tags.end() - 1;
}

bool appendTags(std::string_view bytes, std::vector<Tag>& tags) {
    // Each takes two lines.
    if (tags.capacity() == 0) {
        tags.reserve(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) / 2 + 1);
    }
    Lines lines(bytes);
    while (!lines.atEnd()) {
        int code = 0;
        if (!lines.nextCode(code) || lines.atEnd()) return false;
        Tag tag;
        lines.nextValue(tag);
        tag.code = static_cast<std::int16_t>(code);
        if (code != kComment) tags.push_back(tag);
    }
    return true;
}

std::optional<double> realOf(const Tag& tag) {
    return numberOf<double>(tag.value(), std::chars_format::general);
}

std::optional<double> angleOf(const Tag& tag) {
    const std::optional<long double> degrees = numberOf<long double>(tag.value(), std::chars_format::general);
    return degrees ? std::optional(radiansOf(*degrees)) : std::nullopt;
}

std::optional<std::int64_t> integerOf(const Tag& tag) {
    return numberOf<std::int64_t>(tag.value());
}

std::optional<std::uint64_t> handleOf(const Tag& tag) {
    return numberOf<std::uint64_t>(tag.value(), 16);
}

std::wstring textOf(std::string_view value) {
    std::wstring text;
    text.reserve(value.size());
    while (!value.empty()) {
        const auto byte = static_cast<unsigned char>(value.front());
        if (byte == '^' && value.size() > 1 && value[1] >= ' ' && value[1] <= '_' && value[1] != '!') {
            const char letter = value[1];
            if (letter == ' ' || letter >= '@') {
                text += letter == ' ' ? L'^' : static_cast<wchar_t>(letter - '@');
                value.remove_prefix(2);
                continue;
            }
        }
        if (byte < 0x80) {
            text += static_cast<wchar_t>(byte);
            value.remove_prefix(1);
        } else {
            text += takeUtf8(value);
        }
    }
    return text;
}

std::string linesOf(TagSpan tags) {
    std::string lines;
    for (const Tag& tag : tags) {
        lines += std::to_string(tag.code) + '\n';
        lines.append(tag.at, tag.length) += '\n';
    }
    return lines;
}

bool isPointerCode(int code) {
    return (code >= 330 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481 || code == 1005;
}

bool isOwningCode(int code) {
    return code >= 350 && code <= 369;
}

}  // namespace kdhost::file
