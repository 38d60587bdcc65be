// Geometry of the place of the edited text. All lengths are pixels unless told otherwise; the origin is the text's
// location.

#include "host/ui/inplaceeditor/editorbox.h"

#include <QAbstractTextDocumentLayout>
#include <QGraphicsSceneContextMenuEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "host/draw/entitydrawing.h"
#include "host/ui/inplaceeditor/editorplace.h"
#include "kd/db/mtext.h"

namespace kdhost {
namespace {

/// At a screen of 96 dots per inch.
constexpr double kBorder = 3.0;
constexpr double kCaretWidth = 1.5;
constexpr double kUsualDots = 96.0;

/// What hangs below the last baseline, in heights of capitals.
constexpr double kHangs = 0.35;

const QColor kFrameColor(0x2D, 0x7D, 0xD2);

}  // namespace

EditorBox::EditorBox(const KdDbMText& text, RichDocument& document)
    : m_text(text), m_document(document), m_item(document, this) {}

void EditorBox::place(const EditorPlace& place, const QRectF& limits, double dotsPerInch) {
    constexpr double kHalfTurn = 180.0;
    const double pixelsPerUnit = place.pixelsPerUnit();
    const KdGeVector3d direction = m_text.direction();
    prepareGeometryChange();
    m_scale = pixelsPerUnit / m_document.looks().pixelsPerUnit();
    m_border = kBorder * dotsPerInch / kUsualDots;
    const double caret = kCaretWidth * dotsPerInch / kUsualDots / m_scale;
    m_document.document().documentLayout()->setProperty("cursorWidth", std::max(1, static_cast<int>(caret)));
    setPos(place.toPixels(m_text.location()));
    setRotation(-std::atan2(direction.y, direction.x) * kHalfTurn / M_PI);
    fitText(m_text.width() * pixelsPerUnit, m_text.height() * pixelsPerUnit);
    keepWithin(limits);
    update();
}

void EditorBox::fitText(double width, double height) {
    const double capital = TextLooks::kCapital * m_scale;
    m_item.setScale(m_scale);
    m_item.setTextWidth(width > 0.0 ? std::max(width, capital) / m_scale : -1.0);
    const double needed = std::max(m_document.document().idealWidth() * m_scale, capital);
    if (width <= 0.0) m_item.setTextWidth(needed / m_scale);
    width = std::max(width, capital);

    const RichDocument::Extent extent = m_document.extent();
    const double textHeight = extent.height() * m_scale;
    const int place = m_text.attachment();
    const double left = -0.5 * draw::horizontalOf(place) * width;
    const double top = -0.5 * draw::verticalOf(place) * height;
    // A text that fits stands in its box as in the cell; a longer one begins at the top.
    const double above = 0.5 * draw::verticalOf(place) * std::max(0.0, height - textHeight);
    m_item.setPos(left, top + above - (extent.firstBaseline - extent.above) * m_scale);
    const double bottom = std::max(height, above + textHeight);
    const double hangs = std::max(m_border, kHangs * capital);
    m_frame = QRectF(left, top, std::max(width, needed), bottom).adjusted(-m_border, -m_border, m_border, hangs);
}

void EditorBox::keepWithin(const QRectF& limits) {
    const QRectF shown = mapRectToScene(m_frame);
    const auto shift = [](double low, double high, double least, double most) {
        if (high > most) return std::max(most - high, least - low);
        return std::max(0.0, least - low);
    };
    moveBy(shift(shown.left(), shown.right(), limits.left(), limits.right()),
           shift(shown.top(), shown.bottom(), limits.top(), limits.bottom()));
}

void EditorBox::mousePressEvent(QGraphicsSceneMouseEvent* event) {
    if (event->button() == Qt::LeftButton) m_item.moveTo(m_item.mapFromParent(event->pos()));
}

void EditorBox::contextMenuEvent(QGraphicsSceneContextMenuEvent* event) {
    m_item.openMenu(event->screenPos(), event->widget());
}

void EditorBox::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(m_document.looks().fill());
    painter->setPen(QPen(kFrameColor, 0.5 * m_border));
    const double half = 0.25 * m_border;
    painter->drawRect(m_frame.adjusted(half, half, -half, -half));
}

}  // namespace kdhost
