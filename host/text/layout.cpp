// Text wrapped into lines and measured.

#include "host/text/layout.h"

#include <algorithm>
#include <cmath>

#include "host/text/characters.h"
#include "host/text/format.h"
#include "host/text/glyphs.h"

namespace kdhost::text {
namespace {

/// Tabs without stops of their own, in heights of the text.
constexpr double kTabStep = 4.0;

bool isBlank(const Glyph& glyph) {
    return glyph.character == L' ' || glyph.character == L'\t';
}

/// Where the next tab stop lies behind a place in the line. Stops are counted in heights of the text.
double tabStopBehind(double x, const Paragraph& paragraph, double height) {
    for (const double stop : paragraph.tabs) {
        if (stop * height > x) return stop * height;
    }
    const double step = kTabStep * height;
    return (std::floor(x / step) + 1.0) * step;
}

/// A word and the blanks behind it, as places in a paragraph.
struct Word {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::size_t next = 0;
    double width = 0.0;
};

using Glyphs = std::vector<Glyph>;

/// The word at a place: up to a blank, or a place beside a CJK character.
Word wordAt(const Glyphs& paragraph, std::size_t begin) {
    Word word{begin, begin, begin, 0.0};
    while (word.end < paragraph.size() && !isBlank(paragraph[word.end])) {
        const bool breakable =
            word.end > begin && (isCjk(paragraph[word.end].character) || isCjk(paragraph[word.end - 1].character));
        if (breakable) break;
        word.width += paragraph[word.end++].advance;
    }
    word.next = word.end;
    while (word.next < paragraph.size() && isBlank(paragraph[word.next])) ++word.next;
    return word;
}

/// Lays one paragraph out after another.
class Setter {
public:
    Setter(const GlyphText& text, double textHeight, double wrapWidth, Layout& out)
        : m_text(text), m_textHeight(textHeight), m_wrapWidth(wrapWidth), m_out(out) {}

    void set(std::size_t number) {
        m_glyphs = &m_text.paragraphs[number];
        m_format = &m_text.formats[m_text.paragraphFormats[number]];
        m_firstLine = true;
        if (m_wrapWidth > 0.0) {
            wrap();
        } else {
            finish(0, m_glyphs->size(), true);
        }
    }

private:
    const Paragraph& paragraph() const { return m_format->paragraph; }
    double indent() const { return (paragraph().left + (m_firstLine ? paragraph().firstIndent : 0.0)) * m_textHeight; }
    double outdent() const { return paragraph().right * m_textHeight; }

    double limit() const { return (m_wrapWidth - indent() - outdent()) * (1.0 + 1e-9); }

    double advanceAt(const Glyph& glyph, double x) const {
        if (glyph.character != L'\t') return glyph.advance;
        return tabStopBehind(indent() + x, paragraph(), m_textHeight) - indent() - x;
    }

    void wrap() {
        const Glyphs& glyphs = *m_glyphs;
        std::size_t begin = 0;
        std::size_t end = 0;
        double filled = 0.0;
        bool hasWord = false;
        for (std::size_t at = 0; at < glyphs.size();) {
            const Word word = wordAt(glyphs, at);
            if (hasWord && filled + word.width > limit()) {
                finish(begin, end, false);
                begin = word.begin;
                filled = 0.0;
            }
            hasWord = hasWord || word.end > word.begin;
            filled += word.width;
            for (std::size_t blank = word.end; blank < word.next; ++blank) filled += advanceAt(glyphs[blank], filled);
            end = word.end;
            at = word.next;
        }
        finish(begin, end, true);
    }

    void appendStack(Line& line, const StackLayout& stack) const {
        for (Run run : stack.runs) {
            run.x += line.width;
            line.runs.push_back(std::move(run));
        }
        for (Stroke stroke : stack.strokes) {
            stroke.fromX += line.width;
            stroke.toX += line.width;
            line.strokes.push_back(stroke);
        }
    }

    /// Blanks of a justified line grow by `stretch` each.
    Line lineOf(std::size_t begin, std::size_t end, double stretch) const {
        Line line;
        const Glyph* before = nullptr;
        for (std::size_t i = begin; i < end; ++i) {
            const Glyph& glyph = (*m_glyphs)[i];
            const double advance = advanceAt(glyph, line.width) + (glyph.character == L' ' ? stretch : 0.0);
            if (glyph.isStack()) {
                appendStack(line, m_text.stacks[glyph.stack]);
                line.width += advance;
                before = nullptr;
                continue;
            }
            // A tab and a stretched blank are runs of their own: what stands beside them keeps its width.
            const bool apart = glyph.character == L'\t' || (stretch > 0.0 && glyph.character == L' ');
            if (apart || before == nullptr || before->format != glyph.format) {
                line.runs.push_back(emptyRun(m_text.formats[glyph.format]));
                line.runs.back().x = line.width;
            }
            before = apart ? nullptr : &glyph;
            line.runs.back().text += apart ? L' ' : glyph.character;
            line.runs.back().width += advance;
            line.width += advance;
        }
        return line;
    }

    double stretchFor(std::size_t begin, std::size_t end, bool last) const {
        const bool spreads = m_wrapWidth > 0.0 && (paragraph().align == L'd' || (paragraph().align == L'j' && !last));
        if (!spreads) return 0.0;
        const auto blanks = std::count_if(m_glyphs->begin() + static_cast<std::ptrdiff_t>(begin),
                                          m_glyphs->begin() + static_cast<std::ptrdiff_t>(end),
                                          [](const Glyph& glyph) { return glyph.character == L' '; });
        const double free = limit() - lineOf(begin, end, 0.0).width;
        return blanks == 0 || free <= 0.0 ? 0.0 : free / static_cast<double>(blanks);
    }

    /// The heights of the line's characters on and above its baseline, and what hangs below.
    struct Extent {
        double height = 0.0;
        double above = 0.0;
        double below = 0.0;
    };

    Extent extentOf(std::size_t begin, std::size_t end) const {
        Extent extent;
        for (std::size_t i = begin; i < end; ++i) {
            const Glyph& glyph = (*m_glyphs)[i];
            const Format& format = m_text.formats[glyph.format];
            extent.height = std::max(extent.height, format.height);
            if (!glyph.isStack()) continue;
            extent.above = std::max(extent.above, m_text.stacks[glyph.stack].above);
            extent.below = std::max(extent.below, m_text.stacks[glyph.stack].below);
        }
        if (begin == end) extent.height = m_format->height;
        extent.above = std::max(extent.above, extent.height);
        return extent;
    }

    /// Text smaller than its line stands at the line's bottom, centre or top.
    void placeSmallText(Line& line, std::size_t begin, std::size_t end, double height) const {
        if (begin == end) return;
        const int alignment = m_text.formats[(*m_glyphs)[begin].format].alignment;
        if (alignment == 0) return;
        for (Run& run : line.runs) {
            if (run.y == 0.0 && run.height < height) run.y = (height - run.height) * 0.5 * alignment;
        }
    }

    /// Baseline to baseline. Between two lines lies what the higher one of them asks for.
    double pitch(const Extent& extent) const {
        return m_before.below + (kLinePitch - 1.0) * std::max(extent.height, m_before.height) + extent.above;
    }

    void finish(std::size_t begin, std::size_t end, bool last) {
        Line line = lineOf(begin, end, stretchFor(begin, end, last));
        const Extent extent = extentOf(begin, end);
        placeSmallText(line, begin, end, extent.height);
        line.indent = indent();
        line.outdent = outdent();
        line.align = alignOf(paragraph().align);
        line.baseline = m_out.lines.empty() ? extent.above : m_out.lines.back().baseline + pitch(extent);
        m_before = extent;
        m_firstLine = false;
        m_out.width = std::max(m_out.width, line.indent + line.width + line.outdent);
        m_out.height = line.baseline + extent.below;
        m_out.lines.push_back(std::move(line));
    }

    static int alignOf(wchar_t align) {
        switch (align) {
            case L'l':
            case L'j':
            case L'd':
                return 0;
            case L'c':
                return 1;
            case L'r':
                return 2;
            default:
                return Line::kAsText;
        }
    }

    const GlyphText& m_text;
    double m_textHeight;
    double m_wrapWidth;
    Layout& m_out;
    const Glyphs* m_glyphs = nullptr;
    const Format* m_format = nullptr;
    bool m_firstLine = true;
    Extent m_before;  ///< of the line before
};

/// A line end as the last character ends the line before it and opens none of its own: texts that come line
/// by line from a file keep theirs. A paragraph code does open a line.
bool endsInLineEnd(const std::wstring& contents) {
    return contents.back() == L'\n';
}

Format baseFormat(const Font& font, double textHeight) {
    Format base;
    base.font = font;
    base.height = textHeight;
    return base;
}

}  // namespace

Layout layout(const std::wstring& contents, const Font& font, double textHeight, double wrapWidth) {
    Layout result;
    if (contents.empty()) return result;
    GlyphText text = glyphsOf(contents, baseFormat(font, textHeight));
    if (endsInLineEnd(contents) && text.paragraphs.size() > 1) text.paragraphs.pop_back();
    Setter setter(text, textHeight, wrapWidth, result);
    for (std::size_t i = 0; i < text.paragraphs.size(); ++i) setter.set(i);
    result.room = wrapWidth > 0.0 ? wrapWidth : result.width;
    return result;
}

double widestWord(const std::wstring& contents, const Font& font, double textHeight) {
    double widest = 0.0;
    for (const Glyphs& paragraph : glyphsOf(contents, baseFormat(font, textHeight)).paragraphs) {
        for (std::size_t at = 0; at < paragraph.size();) {
            const Word word = wordAt(paragraph, at);
            widest = std::max(widest, word.width);
            at = word.next;
        }
    }
    return widest;
}

}  // namespace kdhost::text
