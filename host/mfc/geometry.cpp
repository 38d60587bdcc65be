// Rectangles between Qt's form and the framework's.

#include "mfc/geometry.h"

#include <QRect>

CRect::CRect(const QRect& rect)
    : left(rect.x()), top(rect.y()), right(rect.x() + rect.width()), bottom(rect.y() + rect.height()) {}

QRect CRect::toQRect() const {
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(Width()), static_cast<int>(Height())};
}
