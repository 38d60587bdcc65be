// The host's own dialogs, and its help.
#pragma once

#include "kd/db/color.h"
#include "kd/db/objectid.h"
#include "kd/db/value.h"
#include "mfc/stdstr.h"

class CWnd;
class KdDbDatabase;

/// Asks for a colour. `color` is the colour shown first and, on true, the one chosen. `allowMeta` offers by
/// layer and by block; `layerColor` is what by layer shows.
bool kdedSetColorDialogTrueColor(KdCmColor& color, bool allowMeta, const KdCmColor& layerColor, int reserved = 7);

/// Asks for data type, unit type and format. 0 when the user confirms, with the choice in the value.
int VqFdUiInvokeDataTypeDialog(KdValue*& value, KdDbDatabase* database, CWnd* parent);

/// Opens the text style dialog on a style; it may change the drawing's text styles and its current one. The
/// name is that of the style shown last. True when it was closed with OK.
bool invokeTextStyleDialog(KdDbDatabase* database, CStdStr<wchar_t>* name);

/// Lets the user choose a line type, or load one of the standard patterns into the drawing. False when it is
/// cancelled.
bool kdedLinetypeDialog(KdDbDatabase* database, KdDbObjectId& linetype);

/// Shows the page of `docs/` on a topic; an unknown topic shows the first page. Returns 5100.
int kdedHelp(const wchar_t* file, const wchar_t* topic, int command);

/// The screen's scale: 1 at 96 dots an inch.
double kdadGetDPIScale();
