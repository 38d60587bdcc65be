// What the user does in the drawing view, apart from looking around: the view gives presses, moves and keys to one
// of these, and lets it paint over the drawing. Zooming and panning are the view's own.
#pragma once

#include <QPointF>
#include <Qt>

#include "kd/ge/point3d.h"

class QKeyEvent;
class QPainter;

namespace kdhost {

namespace draw {
class View;
}

/// Where the mouse is, and what is held down.
struct ViewPoint {
    KdGePoint3d world;           ///< in the plane z = 0
    QPointF pixels;              ///< from the view's top left corner
    double unitsPerPixel = 1.0;  ///< size of a pixel in the drawing
    Qt::KeyboardModifiers modifiers;
    Qt::MouseButtons buttons;  ///< held during a move
};

/// Each call concerns the editor that is active then. None of them waits for the user: what takes an answer goes into
/// the editor's input queue.
class ViewInput {
public:
    virtual ~ViewInput() = default;

    /// The left button. A second press in quick succession is a double click, which has a release of its own.
    virtual void press(const ViewPoint& point) = 0;
    virtual void release(const ViewPoint&) {}
    virtual void doubleClick(const ViewPoint& point) { press(point); }
    /// The mouse over the view, with or without a button.
    virtual void move(const ViewPoint& point) = 0;
    /// The right button has been pressed and let go without a move between.
    virtual void context(const ViewPoint& point) = 0;
    /// The mouse has left the view.
    virtual void leave() {}

    /// A key pressed in the window while nothing has been typed at the command line yet. True takes it away from the
    /// command line.
    virtual bool key(const QKeyEvent&) { return false; }

    /// Paints over the drawing, in pixels of the view; `view` is what is shown.
    virtual void paintOver(QPainter&, const draw::View&) {}
    /// What the mouse looks like there; the view's own cross for Qt::CrossCursor.
    virtual Qt::CursorShape cursorAt(const ViewPoint&) { return Qt::CrossCursor; }
};

}  // namespace kdhost
