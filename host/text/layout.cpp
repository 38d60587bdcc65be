// Text wrapped into lines and measured.

#include "host/text/layout.h"

#include <algorithm>
#include <cstdint>

#include "host/text/characters.h"
#include "host/text/metrics.h"
#include "host/text/tokens.h"

namespace kdhost::text {
namespace {

constexpr wchar_t kHardBlank = 0x00A0;

/// Lines along the text, a bit each.
enum Looks : std::uint8_t { kPlain = 0, kUnderline = 1, kOverline = 2, kStrike = 4 };

struct Glyph {
    wchar_t character;
    std::uint8_t looks;
    double advance;
};
using Paragraph = std::vector<Glyph>;

std::uint8_t toggled(std::uint8_t looks, wchar_t code) {
    switch (code) {
        case L'L':
            return looks | kUnderline;
        case L'l':
            return looks & static_cast<std::uint8_t>(~kUnderline);
        case L'O':
            return looks | kOverline;
        case L'o':
            return looks & static_cast<std::uint8_t>(~kOverline);
        case L'K':
            return looks | kStrike;
        case L'k':
            return looks & static_cast<std::uint8_t>(~kStrike);
        default:
            return looks;
    }
}

/// Walks the tokens into measured characters. A text has one font and one height; codes that ask for others
/// take no effect.
class Measurer {
public:
    Measurer(const Font& font, double textHeight)
        : m_advances(advancesOf(font)), m_unit(textHeight * font.widthFactor) {}

    std::vector<Paragraph> paragraphs(const std::wstring& contents) {
        std::vector<Paragraph> all(1);
        std::vector<std::uint8_t> groups;
        std::uint8_t looks = kPlain;
        for (const Token& token : parse(contents)) {
            switch (token.kind) {
                case TokenKind::characters:
                    append(all.back(), token.text, looks);
                    break;
                case TokenKind::stack:
                    append(all.back(), asRead(token), looks);
                    break;
                case TokenKind::hardBlank:
                    append(all.back(), std::wstring(1, kHardBlank), looks);
                    break;
                case TokenKind::lineBreak:
                    all.emplace_back();
                    break;
                case TokenKind::groupBegin:
                    groups.push_back(looks);
                    break;
                case TokenKind::groupEnd:
                    looks = groups.back();
                    groups.pop_back();
                    break;
                case TokenKind::toggle:
                    looks = toggled(looks, token.code);
                    break;
                case TokenKind::property:
                    break;
            }
        }
        return all;
    }

private:
    void append(Paragraph& paragraph, const std::wstring& text, std::uint8_t looks) {
        paragraph.reserve(paragraph.size() + text.size());
        for (const wchar_t c : text) paragraph.push_back({c, looks, m_advances.of(c) * m_unit});
    }

    Advances& m_advances;
    double m_unit;
};

bool isBlank(const Glyph& glyph) {
    return glyph.character == L' ' || glyph.character == L'\t';
}

/// A word and the blanks behind it, as places in a paragraph.
struct Word {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t next = 0;
    double width = 0.0;
    double blanks = 0.0;
};

/// The word at a place: up to a blank, or a place beside a CJK character.
Word wordAt(const Paragraph& paragraph, std::size_t begin) {
    Word word{begin, begin, begin, 0.0, 0.0};
    while (word.end < paragraph.size() && !isBlank(paragraph[word.end])) {
        const bool breakable =
            word.end > begin && (isCjk(paragraph[word.end].character) || isCjk(paragraph[word.end - 1].character));
        if (breakable) break;
        word.width += paragraph[word.end++].advance;
    }
    word.next = word.end;
    while (word.next < paragraph.size() && isBlank(paragraph[word.next])) word.blanks += paragraph[word.next++].advance;
    return word;
}

Line lineOf(const Paragraph& paragraph, std::size_t begin, std::size_t end) {
    Line line;
    for (std::size_t i = begin; i < end; ++i) {
        const Glyph& glyph = paragraph[i];
        if (i == begin || glyph.looks != paragraph[i - 1].looks) {
            Run run;
            run.x = line.width;
            run.underline = (glyph.looks & kUnderline) != 0;
            run.overline = (glyph.looks & kOverline) != 0;
            run.strike = (glyph.looks & kStrike) != 0;
            line.runs.push_back(std::move(run));
        }
        line.runs.back().text += glyph.character;
        line.runs.back().width += glyph.advance;
        line.width += glyph.advance;
    }
    return line;
}

void wrap(const Paragraph& paragraph, double wrapWidth, std::vector<Line>& lines) {
    if (wrapWidth <= 0.0) {
        lines.push_back(lineOf(paragraph, 0, paragraph.size()));
        return;
    }
    const double limit = wrapWidth * (1.0 + 1e-9);
    std::size_t begin = 0;
    std::size_t end = 0;
    double filled = 0.0;
    bool hasWord = false;
    for (std::size_t at = 0; at < paragraph.size();) {
        const Word word = wordAt(paragraph, at);
        if (hasWord && filled + word.width > limit) {
            lines.push_back(lineOf(paragraph, begin, end));
            begin = word.begin;
            filled = 0.0;
        }
        hasWord = hasWord || word.end > word.begin;
        filled += word.width + word.blanks;
        end = word.end;
        at = word.next;
    }
    lines.push_back(lineOf(paragraph, begin, end));
}

/// A line end as the last character ends the line before it and opens none of its own: texts that come line
/// by line from a file keep theirs. A paragraph code does open a line.
bool endsInLineEnd(const std::wstring& contents) {
    return contents.back() == L'\n';
}

}  // namespace

Layout layout(const std::wstring& contents, const Font& font, double textHeight, double wrapWidth) {
    Layout result;
    if (contents.empty()) return result;
    std::vector<Paragraph> paragraphs = Measurer(font, textHeight).paragraphs(contents);
    if (endsInLineEnd(contents) && paragraphs.size() > 1) paragraphs.pop_back();
    for (const Paragraph& paragraph : paragraphs) wrap(paragraph, wrapWidth, result.lines);
    for (const Line& line : result.lines) result.width = std::max(result.width, line.width);
    result.height = textHeight * (1.0 + kLinePitch * static_cast<double>(result.lines.size() - 1));
    return result;
}

double widestWord(const std::wstring& contents, const Font& font, double textHeight) {
    double widest = 0.0;
    for (const Paragraph& paragraph : Measurer(font, textHeight).paragraphs(contents)) {
        for (std::size_t at = 0; at < paragraph.size();) {
            const Word word = wordAt(paragraph, at);
            widest = std::max(widest, word.width);
            at = word.next;
        }
    }
    return widest;
}

}  // namespace kdhost::text
