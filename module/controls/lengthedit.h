// Edits that hold a length as the drawing writes it, and edits that keep the focus while what they hold is no number.
#pragma once

#include "mfc/controls.h"

class KdDbDatabase;
class KdUiBaseDialog;

/// The text that a length has in this drawing. False without a drawing and when the host refuses.
bool lengthText(KdDbDatabase* database, double value, CStdStr<wchar_t>& text);
/// Shows a length as the drawing writes it; without a drawing the edit is left alone.
void showLength(KdDbDatabase* database, CEdit& edit, double value);
/// Reads the edit's text as a length. False when it is none.
bool readLength(KdDbDatabase* database, const CEdit& edit, double& value);

/// Whether the focus is in one of the dialog's own controls.
bool IsFocusOnCurWnd(const KdUiBaseDialog& dialog);
/// Brings the focus back to an edit whose text was refused, all of it selected, unless the focus has left the dialog
/// or stands on "IDCANCEL".
void takeFocusBack(const KdUiBaseDialog& dialog, CEdit& edit);
