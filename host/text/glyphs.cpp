// Characters measured one by one.

#include "host/text/glyphs.h"

#include "host/text/metrics.h"

namespace kdhost::text {
namespace {

class Collector {
public:
    explicit Collector(const Format& base) { m_text.formats.push_back(base); }

    void characters(const std::wstring& characters, const Format& format) {
        const std::uint32_t place = placeOf(format);
        Advances& advances = advancesOf(format.font);
        const double unit = format.height * format.font.widthFactor * format.tracking;
        std::vector<Glyph>& paragraph = m_text.paragraphs.back();
        paragraph.reserve(paragraph.size() + characters.size());
        for (const wchar_t c : characters) paragraph.push_back({c, place, c == L'\t' ? 0.0 : advances.of(c) * unit});
        noteParagraph(place);
    }

    void stack(const Piece& piece) {
        const std::uint32_t place = placeOf(piece.format);
        m_text.stacks.push_back(layoutStack(piece));
        const auto number = static_cast<std::uint32_t>(m_text.stacks.size() - 1);
        m_text.paragraphs.back().push_back({kStackCharacter, place, m_text.stacks.back().width, number});
        noteParagraph(place);
    }

    void lineBreak(const Format& format) {
        noteParagraph(placeOf(format));
        begin();
    }

    void begin() {
        m_text.paragraphs.emplace_back();
        m_text.paragraphFormats.push_back(0);
        m_noted = false;
    }

    GlyphText take() { return std::move(m_text); }

private:
    std::uint32_t placeOf(const Format& format) {
        if (!(m_text.formats.back() == format)) m_text.formats.push_back(format);
        return static_cast<std::uint32_t>(m_text.formats.size() - 1);
    }

    void noteParagraph(std::uint32_t format) {
        if (!m_noted) m_text.paragraphFormats.back() = format;
        m_noted = true;
    }

    GlyphText m_text;
    bool m_noted = false;
};

/// A text without codes needs no taking apart; most texts of a large table are such.
void collectPlain(const std::wstring& contents, const Format& base, Collector& collector) {
    std::size_t begin = 0;
    for (;;) {
        const std::size_t end = contents.find(L'\n', begin);
        collector.characters(contents.substr(begin, end - begin), base);
        if (end == contents.npos) return;
        collector.lineBreak(base);
        begin = end + 1;
    }
}

}  // namespace

GlyphText glyphsOf(const std::wstring& contents, const Format& base) {
    Collector collector(base);
    collector.begin();
    if (isPlain(contents)) {
        collectPlain(contents, base, collector);
        return collector.take();
    }
    for (const Piece& piece : pieces(contents, base)) {
        switch (piece.kind) {
            case Piece::Kind::Characters:
                collector.characters(piece.text, piece.format);
                break;
            case Piece::Kind::Stack:
                collector.stack(piece);
                break;
            case Piece::Kind::LineBreak:
                collector.lineBreak(piece.format);
                break;
        }
    }
    return collector.take();
}

Run emptyRun(const Format& format) {
    Run run;
    run.font = format.font;
    run.height = format.height;
    run.tracking = format.tracking;
    run.ink = format.ink;
    run.underline = format.underline;
    run.overline = format.overline;
    run.strike = format.strike;
    return run;
}

}  // namespace kdhost::text
