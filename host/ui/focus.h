// When a control counts as left.
#pragma once

#include <QWidget>
#include <QtGlobal>

namespace kdhost {

/// True when the focus moved to another control, or to a dialog over the widget's own; false for a popup
/// of the widget's own and for another program in front.
bool losesFocus(const QWidget& widget, Qt::FocusReason reason);

}  // namespace kdhost
