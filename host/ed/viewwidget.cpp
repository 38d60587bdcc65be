// Which widget shows the drawing.

#include "host/ed/viewwidget.h"

namespace kdhost {
namespace {
ViewWidget* shown = nullptr;
}

ViewWidget* viewWidget() {
    return shown;
}

void setViewWidget(ViewWidget* widget) {
    shown = widget;
}

}  // namespace kdhost
