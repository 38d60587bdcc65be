// How drawings look on the screen.

#include "host/draw/screen.h"

#include <algorithm>
#include <cmath>

namespace kdhost::draw {

QColor screenPaper() {
    return {0x20, 0x27, 0x2F};
}

PaintDevice screenDevice(double scale) {
    PaintDevice device;
    device.pixelsPerMillimetre *= scale;
    device.thinnestLine = std::max(std::round(scale), 1.0);
    device.darkPaper = true;
    device.paper = screenPaper();
    return device;
}

}  // namespace kdhost::draw
