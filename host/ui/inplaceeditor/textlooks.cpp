// Formats of a drawing's text as formats of Qt.

#include "host/ui/inplaceeditor/textlooks.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "host/db/textstyle.h"
#include "host/draw/entitydrawing.h"
#include "host/draw/paint.h"
#include "host/text/glyphs.h"
#include "host/text/metrics.h"
#include "kd/db/mtext.h"

namespace kdhost {
namespace {

constexpr draw::Color kPaper{0, 0, 0, false, true};

/// Larger fonts cost more than they show.
constexpr int kLargestFont = 4096;
/// Tabs without stops of their own, in heights of the text.
constexpr double kTabStep = 4.0;
constexpr int kFullStretch = 100;

/// Of characters without codes.
text::Format baseOf(const KdDbMText& text) {
    text::Format base;
    base.font = fontOf(text.textStyle());
    base.height = text.textHeight();
    return base;
}

Qt::Alignment alignmentOf(wchar_t align) {
    switch (align) {
        case L'c':
            return Qt::AlignHCenter;
        case L'r':
            return Qt::AlignRight | Qt::AlignAbsolute;
        case L'j':
        case L'd':
            return Qt::AlignJustify;
        default:
            return Qt::AlignLeft | Qt::AlignAbsolute;
    }
}

}  // namespace

TextLooks::TextLooks(const KdDbMText& text, QColor paper)
    : m_base(baseOf(text)),
      m_attachment(text.attachment()),
      m_looks(text, {}, m_options),
      m_color(m_looks.color()),
      m_fill(kPaper),
      m_paper(std::move(paper)) {
    if (text.backgroundFillOn() && !text.useBackgroundColorOn()) {
        m_fill = m_looks.color(text.backgroundFillColor()).value_or(kPaper);
    }
}

double TextLooks::pixelsPerUnit() const {
    return kCapital / m_base.height;
}

int TextLooks::pixelSize(const text::Format& format) const {
    const double size = format.height * pixelsPerUnit() / text::capitalRatio(format.font);
    return std::clamp(static_cast<int>(std::lround(size)), 1, kLargestFont);
}

QTextCharFormat TextLooks::characters(const text::Format& format) const {
    QFont font = text::qtFont(format.font, pixelSize(format));
    // Slanted letters that no italic face has are close enough to italic ones while they are edited.
    font.setItalic(format.font.italic || format.font.obliqueAngle != 0.0);
    font.setStretch(std::max(1, static_cast<int>(std::lround(kFullStretch * format.font.widthFactor))));
    if (format.tracking != 1.0) font.setLetterSpacing(QFont::PercentageSpacing, 100.0 * format.tracking);
    font.setUnderline(format.underline);
    font.setOverline(format.overline);
    font.setStrikeOut(format.strike);
    QTextCharFormat result;
    result.setFont(font);
    result.setForeground(color(format.ink));
    return result;
}

QTextBlockFormat TextLooks::paragraph(const text::Paragraph& paragraph) const {
    QTextBlockFormat result;
    if (paragraph.align != 0) result.setAlignment(alignmentOf(paragraph.align));
    result.setLeftMargin(paragraph.left * kCapital);
    result.setRightMargin(paragraph.right * kCapital);
    result.setTextIndent(paragraph.firstIndent * kCapital);
    QList<QTextOption::Tab> stops;
    for (const double stop : paragraph.tabs) stops << QTextOption::Tab(stop * kCapital, QTextOption::LeftTab);
    if (!stops.isEmpty()) result.setTabPositions(stops);
    // Baselines follow each other as in the drawing, whatever the font thinks of itself.
    const double natural = QFontMetricsF(text::qtFont(m_base.font, pixelSize(m_base))).height();
    result.setLineHeight(100.0 * text::kLinePitch * kCapital / natural, QTextBlockFormat::ProportionalHeight);
    return result;
}

QTextOption TextLooks::option() const {
    constexpr std::array kSides = {L'l', L'c', L'r'};
    QTextOption option(alignmentOf(kSides[static_cast<std::size_t>(draw::horizontalOf(m_attachment))]));
    option.setWrapMode(QTextOption::WordWrap);
    option.setTabStopDistance(kTabStep * kCapital);
    return option;
}

bool TextLooks::hasDarkPaper() const {
    constexpr int kHalf = 128;
    return m_paper.lightness() < kHalf;
}

QColor TextLooks::shown(const draw::Color& color) const {
    if (color.paper) return m_paper;
    if (color.foreground) return hasDarkPaper() ? Qt::white : Qt::black;
    return {color.red, color.green, color.blue};
}

QColor TextLooks::color(const text::Ink& ink) const {
    if (ink.kind == text::Ink::Kind::ofText) return shown(m_color);
    return shown(m_looks.color(draw::colorOf(ink)).value_or(m_color));
}

QColor TextLooks::fill() const {
    return shown(m_fill);
}

text::StackLayout TextLooks::stack(const text::Piece& piece) const {
    text::Piece scaled = piece;
    scaled.format.height *= pixelsPerUnit();
    return text::layoutStack(scaled);
}

void TextLooks::paintStack(QPainter& painter, const QPointF& origin, const text::Piece& piece) const {
    // As the drawing is painted, on a sheet that has the stack in its middle.
    constexpr double kSheet = 1e6;
    const text::StackLayout parts = stack(piece);
    text::Layout layout;
    layout.lines.resize(1);
    layout.lines[0].runs = parts.runs;
    layout.lines[0].strokes = parts.strokes;
    layout.room = parts.width;
    draw::Primitives primitives;
    draw::drawText(layout, {{}, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}}, m_color, m_looks, primitives);
    painter.save();
    painter.translate(origin - QPointF(0.5 * kSheet, 0.5 * kSheet));
    draw::paintPrimitives(painter, primitives, draw::View(kSheet, kSheet),
                          {.thinnestLine = 0.06 * kCapital, .darkPaper = hasDarkPaper(), .wholePixels = false});
    painter.restore();
}

}  // namespace kdhost
