// How the formats of a drawing's text look in a text document of Qt: fonts, colours, lines and paragraphs. The
// document is laid out at a size of its own, which whoever shows it scales to the drawing.
#pragma once

#include <QColor>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextOption>

#include "host/draw/looks.h"
#include "host/text/format.h"
#include "host/text/glyphs.h"

class KdDbMText;
class QPainter;

namespace kdhost {

class TextLooks {
public:
    /// The text must outlive the looks. `paper` is what it stands on, where it has no fill.
    TextLooks(const KdDbMText& text, QColor paper);

    /// Of characters without formatting codes.
    const text::Format& base() const { return m_base; }
    /// Document pixels for a drawing unit.
    double pixelsPerUnit() const;
    /// Height of a capital without codes, in document pixels.
    static constexpr double kCapital = 64.0;

    QTextCharFormat characters(const text::Format& format) const;
    QTextBlockFormat paragraph(const text::Paragraph& paragraph) const;
    /// What holds for all paragraphs: the side the text stands at, and tabs.
    QTextOption option() const;

    QColor color(const text::Ink& ink) const;
    /// What the text as a whole stands on.
    QColor fill() const;

    /// A stack's parts in document pixels.
    text::StackLayout stack(const text::Piece& piece) const;
    /// Paints a stack that begins at `origin`, on its baseline.
    void paintStack(QPainter& painter, const QPointF& origin, const text::Piece& piece) const;

private:
    QColor shown(const draw::Color& color) const;
    bool hasDarkPaper() const;
    int pixelSize(const text::Format& format) const;

    draw::Options m_options;
    text::Format m_base;
    int m_attachment;
    draw::Looks m_looks;
    draw::Color m_color;
    draw::Color m_fill;
    QColor m_paper;
};

}  // namespace kdhost
