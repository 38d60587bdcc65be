// The floating toolbar: the one window, and when it shows.
#pragma once

#include "kd/db/objectid.h"

class CVqTableditMiniFrameWnd;

/// The one toolbar window; null while there is none.
extern CVqTableditMiniFrameWnd* gpTableditMiniFrameWnd;

CVqTableditMiniFrameWnd* GetTableditMiniFrameWnd();

/// The table that the toolbar stands for; the null id without a toolbar.
KdDbObjectId toolbarTable();
