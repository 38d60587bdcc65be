// The floating toolbar as the rest of the module sees it: the one window, and the table that it stands for. When it
// shows, CVqTableCommon::ShowTableToolbar tells.
#pragma once

#include "kd/db/objectid.h"

class CVqTableditMiniFrameWnd;

/// The one toolbar window; null while there is none. Not the owner: a window that is given up here is destroyed when
/// the module leaves memory, at the latest.
extern CVqTableditMiniFrameWnd* gpTableditMiniFrameWnd;

CVqTableditMiniFrameWnd* GetTableditMiniFrameWnd();

/// The table that the toolbar stands for; the null id without a toolbar.
KdDbObjectId toolbarTable();
