// Push buttons with pictures and arrow parts.

#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

#include "kd/ui/hostdialogs.h"
#include "kd/ui/widgets.h"

namespace {

// Button styles.
constexpr int kFlat = 2;
constexpr int kFlatWithArrow = 6;

/// The arrow part takes the right 2 fifths of a button twice as wide as high.
int arrowWidth(const QWidget& button) {
    return button.width() * 2 / 5;
}

/// The picture at the size that fits the screen, where the resource brings it: "_2X" or "_3X" stands behind its name.
QImage pictureAt(const QString& path) {
    constexpr int kLargest = 3;
    const int scale = std::min(kLargest, static_cast<int>(kdadGetDPIScale()));
    QImage larger;
    if (scale > 1) larger.load(QStringLiteral("%1_%2X").arg(path).arg(scale));
    return larger.isNull() ? QImage(path) : larger;
}

}  // namespace

KdUiPushButton::KdUiPushButton(QWidget* parent) : QPushButton(parent) {}

void KdUiPushButton::setIcon(const QString& path, const QColor& mask) {
    QImage picture = pictureAt(path);
    if (picture.isNull()) return;
    picture = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        std::replace_if(
            line, line + picture.width(), [&](QRgb pixel) { return pixel == mask.rgb(); }, 0U);
    }
    QPushButton::setIcon(QIcon(QPixmap::fromImage(picture)));
    setIconSize(picture.size() / picture.devicePixelRatio());
}

void KdUiPushButton::setButtonStyle(int style) {
    m_style = style;
    setFlat(style == kFlat || style == kFlatWithArrow);
}

bool KdUiPushButton::hasArrowPart() const {
    return m_style == kFlatWithArrow;
}

void KdUiPushButton::clickArrow() {
    if (isEnabled() && hasArrowPart()) emit clickedEventEx();
}

void KdUiPushButton::paintEvent(QPaintEvent* event) {
    if (!hasArrowPart()) {
        QPushButton::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    option.rect.setRight(option.rect.right() - arrowWidth(*this));
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
    option.rect = QRect(width() - arrowWidth(*this), 0, arrowWidth(*this), height());
    painter.drawPrimitive(QStyle::PE_IndicatorArrowDown, option);
}

void KdUiPushButton::mousePressEvent(QMouseEvent* event) {
    if (hasArrowPart() && event->button() == Qt::LeftButton && event->x() >= width() - arrowWidth(*this)) {
        clickArrow();
        return;
    }
    QPushButton::mousePressEvent(event);
}

void KdUiPushButton::keyPressEvent(QKeyEvent* event) {
    // The arrow part answers to the key that opens a combo box.
    if (hasArrowPart() && event->key() == Qt::Key_Down) {
        clickArrow();
        return;
    }
    QPushButton::keyPressEvent(event);
}
