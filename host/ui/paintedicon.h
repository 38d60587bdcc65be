// Icons that paint themselves at the size wanted, so that they are sharp at any scale.
#pragma once

#include <QIcon>
#include <QPainter>
#include <functional>

namespace kdhost {

using PaintIcon = std::function<void(QPainter&, const QRect&)>;

/// A disabled icon is painted faintly.
QIcon paintedIcon(PaintIcon paint);

}  // namespace kdhost
