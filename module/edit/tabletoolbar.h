// The floating toolbar: the one window, and when it shows.
#pragma once

class CVqTableditMiniFrameWnd;

/// The one toolbar window; null while there is none.
extern CVqTableditMiniFrameWnd* gpTableditMiniFrameWnd;

CVqTableditMiniFrameWnd* GetTableditMiniFrameWnd();
