// Edits of lengths.

#include "module/controls/lengthedit.h"

#include <QApplication>

#include "kd/ui/basedialog.h"
#include "module/valuetext/tableutils.h"

namespace {

const QString kCancelButton = QStringLiteral("IDCANCEL");

}  // namespace

bool lengthText(KdDbDatabase* database, double value, CStdStr<wchar_t>& text) {
    return CVqTableUtils::DoubleToStringConvert(database, value, text) == 1;
}

void showLength(KdDbDatabase* database, CEdit& edit, double value) {
    CStdStr<wchar_t> text;
    if (lengthText(database, value, text)) edit.SetWindowTextW(text);
}

bool readLength(KdDbDatabase* database, const CEdit& edit, double& value) {
    CStdStr<wchar_t> text;
    edit.GetWindowTextW(text);
    return CVqTableUtils::StringToDoubleConvert(database, text, value) != 0;
}

bool IsFocusOnCurWnd(const KdUiBaseDialog& dialog) {
    const QWidget* focused = QApplication::focusWidget();
    return focused != nullptr && focused->parentWidget() == &dialog;
}

void takeFocusBack(const KdUiBaseDialog& dialog, CEdit& edit) {
    if (!IsFocusOnCurWnd(dialog) || QApplication::focusWidget()->objectName() == kCancelButton) return;
    edit.SetSel(0, -1);
    edit.SetFocus();
}
