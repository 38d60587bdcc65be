// The actions of scripts on windows and their controls.

#include "host/ui/automation/automation.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <optional>

#include "host/ad/application.h"
#include "host/ed/display.h"
#include "host/ui/automation/find.h"
#include "host/ui/automation/realinput.h"
#include "host/ui/inplaceeditor/editorpanel.h"
#include "host/ui/inplaceeditor/inplaceeditor.h"

namespace kdhost::automation {

namespace {

/// The edit that typing goes to; null for a control without one.
QLineEdit* editOf(QWidget& control) {
    if (auto* edit = qobject_cast<QLineEdit*>(&control)) return edit;
    if (auto* combo = qobject_cast<QComboBox*>(&control)) return combo->lineEdit();
    if (qobject_cast<QAbstractSpinBox*>(&control) != nullptr) return control.findChild<QLineEdit*>();
    return nullptr;
}

void setCheck(QAbstractButton& button, bool wanted) {
    if (button.isChecked() != wanted) pressKey(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
}

QString quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

/// A drop-down list goes by the name of its combo box.
QString nameOfPopup(const QWidget& popup) {
    if (qobject_cast<const QMenu*>(&popup) != nullptr) return QStringLiteral("the menu ") + popup.objectName();
    const QWidget* owner = popup.parentWidget();
    return QStringLiteral("the list of ") + (owner == nullptr ? popup.objectName() : owner->objectName());
}

/// The in-place editor, unless a dialog is open over it.
QWidget* editorOnTop() {
    EditorPanel* editor = openInPlaceEditor();
    const QWidget* modal = QApplication::activeModalWidget();
    return modal == nullptr || modal == editor ? editor : nullptr;
}

}  // namespace

QWidget* topWindow() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* editor = editorOnTop()) return editor;
    bringTopDialogToFront();
    return QApplication::activeWindow();
}

std::wstring topWindowName() {
    const QWidget* top = topWindow();
    if (top == nullptr) return {};
    QString name;
    if (top == openInPlaceEditor()) {
        name = QStringLiteral("the cell editor");
    } else if (const auto* box = qobject_cast<const QMessageBox*>(top)) {
        name = QStringLiteral("the message box ") + quoted(box->text());
    } else if (qobject_cast<const QFileDialog*>(top) != nullptr) {
        name = QStringLiteral("the file dialog ") + quoted(top->windowTitle());
    } else if (top->windowType() == Qt::Popup) {
        name = nameOfPopup(*top);
    } else {
        name = QStringLiteral("the dialog ") + top->objectName() + QLatin1Char(' ') + quoted(top->windowTitle());
    }
    return name.toStdWString();
}

bool isBlocked() {
    return QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr ||
           openInPlaceEditor() != nullptr;
}

bool hasWindow() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) { return window->isVisible(); });
}

bool hasKeyboard() {
    if (QApplication::activePopupWidget() != nullptr) return true;
    // A dialog that asks at the prompt leaves the keys to it.
    if (QApplication::activeModalWidget() != nullptr) return false;
    const QWidget* focused = QApplication::focusWidget();
    return focused != nullptr && focused->isVisible();
}

std::wstring set(const std::wstring& name, const std::wstring& value) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        const QPointer<QWidget> held(&control);
        const QPointer<QLineEdit> edit(editOf(control));
        auto* button = qobject_cast<QAbstractButton*>(&control);
        if (edit == nullptr && (button == nullptr || !button->isCheckable())) return name + L" takes no value.";
        const std::optional<bool> wanted = edit == nullptr ? flagOf(value) : false;
        if (!wanted) return name + L" is set on or off.";

        control.setFocus(Qt::TabFocusReason);
        if (!hasKeys(held)) return name + L" did not get the focus.";
        if (edit == nullptr) {
            setCheck(*button, *wanted);
        } else if (std::wstring error = replaceText(*edit, name, value); !error.empty()) {
            return error;
        }
        if (hasKeys(held)) pressKey(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
        return {};
    });
}

std::wstring type(const std::wstring& name, const std::wstring& text) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        const QPointer<QWidget> held(&control);
        if (!hasKeys(held)) control.setFocus(Qt::OtherFocusReason);
        if (!hasKeys(held)) return name + L" did not get the focus.";
        for (const QChar character : qt(text)) {
            if (!hasKeys(held)) return name + L" lost the focus before all was typed.";
            typeKeys(character);
        }
        return {};
    });
}

std::wstring focus(const std::wstring& name) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        if (control.focusPolicy() == Qt::NoFocus) return name + L" takes no focus.";
        control.setFocus(Qt::TabFocusReason);
        return {};
    });
}

std::wstring shot(const std::wstring& file) {
    QWidget* top = topWindow();
    // A prompt would bring the window up to date before a person sees it.
    updateDisplay();
    if (top == nullptr && Application::current() != nullptr) top = Application::current()->mainWindow();
    if (top == nullptr) return L"no window is open.";
    return top->window()->grab().save(qt(file)) ? L"" : L"the picture " + file + L" can't be written.";
}

std::wstring close() {
    QWidget* top = topWindow();
    if (top == nullptr) return L"no window is open.";
    top->close();
    return {};
}

void dismiss() {
    const QPointer<QWidget> top = topWindow();
    if (top == nullptr) return;
    if (auto* dialog = qobject_cast<QDialog*>(top.data())) {
        dialog->done(QDialog::Rejected);
    } else {
        top->close();
    }
    if (top != nullptr) top->hide();
}

}  // namespace kdhost::automation
