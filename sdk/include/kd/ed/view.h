// The drawing view and its conversions between screen and drawing.
#pragma once

#include "kd/ge/point3d.h"
#include "kd/ge/vector3d.h"

/// A viewport: pixels from the top left corner, y downwards, against world coordinates.
class KdadViewport {
public:
    virtual ~KdadViewport();
    virtual void worldToScreen(KdGePoint3d& point) const = 0;
    virtual void screenToWorld(KdGePoint3d& point) const = 0;
};

class KdadGsView {
public:
    virtual ~KdadGsView();
    /// Null when the view shows nothing yet.
    virtual KdadViewport* getKdadViewport() const = 0;
};

/// The window of a drawing.
class KdadDwgView {
public:
    virtual ~KdadDwgView();
    /// From the position on the whole screen to pixels of the view.
    virtual void screenToClient(int& x, int& y) const = 0;
};

/// Null when no drawing is shown.
KdadDwgView* kdedGetKdadDwgView();
KdadGsView* kdadGetActiveGsView();
