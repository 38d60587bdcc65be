// The moving and stretching of a dialog's controls when it is resized. The dialogs have fixed sizes, or sizes
// that their layouts follow, so that nothing is left to move: the operations only check what they are given.
#pragma once

#include "win32/types.h"

class KdUiBaseDialog;

class CVqDlgCtrlsTrans {
public:
    CVqDlgCtrlsTrans() = delete;

    // True when there are a dialog and a list of control numbers.

    static bool Move(const KdUiBaseDialog* dialog, const UINT* controls, int count, int dx, int dy);
    static bool Stretch(const KdUiBaseDialog* dialog, const UINT* controls, int count, int dx, int dy);
    static bool MoveAndStretch(const KdUiBaseDialog* dialog, const UINT* controls, int count, int dx, int dy);
    static bool SetVisualStatus(const KdUiBaseDialog* dialog, const UINT* controls, int count, int visible);
    static bool SetEnableStatus(const KdUiBaseDialog* dialog, const UINT* controls, int count, int enabled);

    // True when there is a dialog.

    static bool LockDlgSize(const KdUiBaseDialog* dialog);
    static bool UnlockDlgSize(const KdUiBaseDialog* dialog);
};
