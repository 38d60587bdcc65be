// Operations on dialogs of fixed size: they check their arguments and change nothing.

#include "module/controls/dlgctrlstrans.h"

namespace {

bool given(const KdUiBaseDialog* dialog, const UINT* controls) {
    return dialog != nullptr && controls != nullptr;
}

}  // namespace

bool CVqDlgCtrlsTrans::Move(const KdUiBaseDialog* dialog, const UINT* controls, int, int, int) {
    return given(dialog, controls);
}

bool CVqDlgCtrlsTrans::Stretch(const KdUiBaseDialog* dialog, const UINT* controls, int, int, int) {
    return given(dialog, controls);
}

bool CVqDlgCtrlsTrans::MoveAndStretch(const KdUiBaseDialog* dialog, const UINT* controls, int, int, int) {
    return given(dialog, controls);
}

bool CVqDlgCtrlsTrans::SetVisualStatus(const KdUiBaseDialog* dialog, const UINT* controls, int, int) {
    return given(dialog, controls);
}

bool CVqDlgCtrlsTrans::SetEnableStatus(const KdUiBaseDialog* dialog, const UINT* controls, int, int) {
    return given(dialog, controls);
}

bool CVqDlgCtrlsTrans::LockDlgSize(const KdUiBaseDialog* dialog) {
    return dialog != nullptr;
}

bool CVqDlgCtrlsTrans::UnlockDlgSize(const KdUiBaseDialog* dialog) {
    return dialog != nullptr;
}
