// Objects in a line: their sizes, and how they are painted.

#include "host/ui/inplaceeditor/textobjects.h"

#include <QFontMetricsF>
#include <QPainter>

#include "host/text/glyphs.h"
#include "host/ui/inplaceeditor/richdocument.h"

namespace kdhost {
namespace {

/// Left and right of a field's text, in heights of capitals.
constexpr double kFieldMargin = 0.2;
/// How strongly a field stands out from what is around it.
constexpr int kFieldAlpha = 48;

QString nameOf(const RichDocument& document, const text::Piece& piece) {
    constexpr QChar kNoSign(0x25AF);
    const wchar_t character = piece.text.front();
    return character >= RichDocument::kFirstField ? QString::fromStdWString(document.nameOf(character))
                                                  : QString(kNoSign);
}

}  // namespace

TextObjects::TextObjects(RichDocument& document) : QObject(&document), m_document(document) {}

QSizeF TextObjects::intrinsicSize(QTextDocument*, int, const QTextFormat& format) {
    const text::Piece& piece = m_document.object(format);
    if (piece.kind == text::Piece::Kind::Stack) {
        const text::StackLayout stack = m_document.looks().stack(piece);
        return {stack.width, stack.above + stack.below};
    }
    const QFontMetricsF metrics(format.toCharFormat().font());
    return {metrics.horizontalAdvance(nameOf(m_document, piece)) + 2.0 * kFieldMargin * TextLooks::kCapital,
            metrics.ascent()};
}

void TextObjects::drawObject(QPainter* painter, const QRectF& rect, QTextDocument*, int, const QTextFormat& format) {
    const text::Piece& piece = m_document.object(format);
    if (piece.kind == text::Piece::Kind::Stack) {
        const double below = m_document.looks().stack(piece).below;
        m_document.looks().paintStack(*painter, rect.bottomLeft() - QPointF(0.0, below), piece);
        return;
    }
    const QTextCharFormat characters = format.toCharFormat();
    QColor ground = characters.foreground().color();
    ground.setAlpha(kFieldAlpha);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(ground);
    const double radius = 0.15 * TextLooks::kCapital;
    painter->drawRoundedRect(rect, radius, radius);
    painter->setPen(characters.foreground().color());
    painter->setFont(characters.font());
    painter->drawText(rect.bottomLeft() + QPointF(kFieldMargin * TextLooks::kCapital, 0.0), nameOf(m_document, piece));
    painter->restore();
}

}  // namespace kdhost
