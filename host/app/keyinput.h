// Keys that a window has no use for, as the drawing takes them where no main window stands around it.
#pragma once

class QKeyEvent;

namespace kdhost {

/// Into the cells that are selected, else into the input queue. False for a key that means nothing there.
bool takeKeyForDrawing(const QKeyEvent& key);

}  // namespace kdhost
