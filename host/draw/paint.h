// Primitives onto anything that Qt paints on: the screen, pictures, pages.
#pragma once

#include <QColor>

#include "host/draw/primitives.h"
#include "host/draw/view.h"

class QPainter;

namespace kdhost::draw {

/// Capitals lower than this, in pixels, can't be read.
inline constexpr double kReadablePixels = 1.5;

/// What the device needs to know beside the primitives. "Pixels" are the device's own.
struct PaintDevice {
    double pixelsPerMillimetre = 96.0 / 25.4;  ///< for line weights
    double thinnestLine = 1.0;                 ///< pixels
    bool darkPaper = false;                    ///< the foreground is white then
    QColor paper{};                            ///< its colour; an invalid one is white, or black where it is dark
    bool wholePixels = true;  ///< straight lines and fills go to pixels exactly, so that they are crisp
};

/// Paints in the order given. What lies outside the view is left out. A text too small to be read is painted
/// as a grey bar.
void paintPrimitives(QPainter& painter, const Primitives& primitives, const View& view, const PaintDevice& device);

}  // namespace kdhost::draw
