// The application as a whole: its main window, and the service that groups changes into steps of undo.
#pragma once

#include "kd/db/color.h"
#include "kd/ge/point3d.h"
#include "kd/rx/kdstring.h"

class QWidget;

class KdadMainAppService {
public:
    virtual ~KdadMainAppService();
    /// Opens a group of changes that is undone as one step. `name` is a fixed keyword and names the step,
    /// `title` is what the user reads. Groups inside a group join it; an empty one is no step. Each begin has
    /// one end.
    virtual void beginCommandMark(const wchar_t* name, const KdString& title) = 0;
    /// Closes the innermost group; without an open one nothing happens.
    virtual void endCommandMark() = 0;
    /// A dialog that works on the drawing was left by Cancel: the views are painted afresh, since it may have
    /// shown there what doesn't hold any more.
    virtual void dialogCancelled() = 0;
    /// Turns a point of the current user coordinate system into world coordinates, in place.
    virtual void toWorld(KdGePoint3d& point) const = 0;
    /// The colour of the table indicators, kept in the user's settings. False, with `color` as it was, when it
    /// can't be read.
    virtual bool tableIndicatorColor(KdCmColor& color) const = 0;
    virtual void setTableIndicatorColor(const KdCmColor& color) = 0;
};

/// The host's one service; null before the host has started.
KdadMainAppService* vqcadMainAppService();

/// The main window; it may be hidden. Null before the host has started.
QWidget* kfsw_kdadMainWnd();
