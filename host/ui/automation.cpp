// The actions of scripts on windows and their controls.

#include "host/ui/automation.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <array>
#include <optional>

#include "host/ui/automationfind.h"
#include "host/ui/realinput.h"

namespace kdhost::automation {

namespace {

QString qt(const std::wstring& text) {
    return QString::fromStdWString(text);
}

/// The edit that typing goes to; null for a control without one.
QLineEdit* editOf(QWidget& control) {
    if (auto* edit = qobject_cast<QLineEdit*>(&control)) return edit;
    if (auto* combo = qobject_cast<QComboBox*>(&control)) return combo->lineEdit();
    if (qobject_cast<QAbstractSpinBox*>(&control) != nullptr) return control.findChild<QLineEdit*>();
    return nullptr;
}

std::optional<bool> flagOf(const std::wstring& value) {
    const QString word = qt(value).toLower();
    for (const char* on : {"on", "yes", "true", "1"}) {
        if (word == QLatin1String(on)) return true;
    }
    for (const char* off : {"off", "no", "false", "0"}) {
        if (word == QLatin1String(off)) return false;
    }
    return std::nullopt;
}

void setCheck(QAbstractButton& button, bool wanted) {
    if (button.isChecked() != wanted) pressKey(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
}

struct NamedKey {
    const wchar_t* name;
    int key;
    const char* text;
};

constexpr std::array kKeys = {
    NamedKey{L"ENTER", Qt::Key_Return, "\r"},    NamedKey{L"ESC", Qt::Key_Escape, ""},
    NamedKey{L"TAB", Qt::Key_Tab, "\t"},         NamedKey{L"SPACE", Qt::Key_Space, " "},
    NamedKey{L"DELETE", Qt::Key_Delete, ""},     NamedKey{L"BACKSPACE", Qt::Key_Backspace, ""},
    NamedKey{L"INSERT", Qt::Key_Insert, ""},     NamedKey{L"UP", Qt::Key_Up, ""},
    NamedKey{L"DOWN", Qt::Key_Down, ""},         NamedKey{L"LEFT", Qt::Key_Left, ""},
    NamedKey{L"RIGHT", Qt::Key_Right, ""},       NamedKey{L"HOME", Qt::Key_Home, ""},
    NamedKey{L"END", Qt::Key_End, ""},           NamedKey{L"PAGEUP", Qt::Key_PageUp, ""},
    NamedKey{L"PAGEDOWN", Qt::Key_PageDown, ""}, NamedKey{L"MENU", Qt::Key_Menu, ""},
};

/// Takes a prefix off; false when it isn't there.
bool takePrefix(std::wstring& text, const std::wstring& prefix) {
    if (text.rfind(prefix, 0) != 0) return false;
    text.erase(0, prefix.size());
    return true;
}

Qt::KeyboardModifiers takeModifiers(std::wstring& name) {
    Qt::KeyboardModifiers modifiers;
    for (;;) {
        if (takePrefix(name, L"CTRL+")) {
            modifiers |= Qt::ControlModifier;
        } else if (takePrefix(name, L"SHIFT+")) {
            modifiers |= Qt::ShiftModifier;
        } else {
            return modifiers;
        }
    }
}

/// 1 to 12; 0 for a name that is none of a function key.
int functionKey(const std::wstring& name) {
    if (name.size() < 2 || name[0] != L'F') return 0;
    const int number = qt(name).midRef(1).toInt();
    return number >= 1 && number <= 12 ? number : 0;
}

bool isFlag(const std::wstring& property) {
    return property == L"enabled" || property == L"checked" || property == L"visible";
}

std::wstring actual(const QWidget& control, const std::wstring& property) {
    if (property == L"text") return shownText(control).toStdWString();
    if (property == L"rows") return std::to_wstring(Choices(const_cast<QWidget&>(control)).count());
    if (property == L"enabled") return control.isEnabled() ? L"on" : L"off";
    if (property == L"visible") return control.isVisible() ? L"on" : L"off";
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button != nullptr && button->isChecked() ? L"on" : L"off";
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

}  // namespace

QWidget* topWindow() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    bringTopDialogToFront();
    return QApplication::activeWindow();
}

std::wstring topWindowName() {
    const QWidget* top = topWindow();
    if (top == nullptr) return {};
    QString name;
    if (const auto* box = qobject_cast<const QMessageBox*>(top)) {
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
    return QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr;
}

bool hasWindow() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) { return window->isVisible(); });
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
        } else if (const std::wstring error = replaceText(*edit, name, value); !error.empty()) {
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

std::wstring key(const std::wstring& name) {
    std::wstring rest = name;
    const Qt::KeyboardModifiers modifiers = takeModifiers(rest);
    if (topWindow() == nullptr) return L"no window is open.";
    for (const NamedKey& known : kKeys) {
        if (rest != known.name) continue;
        const bool backwards = known.key == Qt::Key_Tab && (modifiers & Qt::ShiftModifier) != 0;
        pressKey(backwards ? Qt::Key_Backtab : known.key, modifiers, QString::fromLatin1(known.text));
        return {};
    }
    if (const int number = functionKey(rest); number != 0) {
        pressKey(Qt::Key_F1 + number - 1, modifiers);
        return {};
    }
    if (rest.size() != 1) return L"there is no key " + name + L".";
    const QString character = qt(rest);
    const bool command = (modifiers & Qt::ControlModifier) != 0;
    pressKey(character.toUpper().at(0).unicode(), modifiers, command ? QString() : character);
    return {};
}

std::wstring shot(const std::wstring& file) {
    QWidget* top = topWindow();
    if (top == nullptr) return L"no window is open.";
    return top->grab().save(qt(file)) ? L"" : L"the picture " + file + L" can't be written.";
}

std::wstring expect(const std::wstring& name, const std::wstring& property, const std::wstring& value) {
    const QWidget* control = findControl(qt(name));
    if (control == nullptr) return L"there is no control " + name + L".";
    if (!isFlag(property) && property != L"text" && property != L"rows") {
        return L"nothing is called " + property + L" of a control.";
    }
    const std::wstring found = actual(*control, property);
    const std::optional<bool> flag = isFlag(property) ? flagOf(value) : false;
    if (!flag) return property + L" is on or off.";
    const std::wstring wanted = isFlag(property) ? (*flag ? L"on" : L"off") : value;
    return found == wanted ? L"" : name + L" " + property + L" is " + found + L", not " + wanted + L".";
}

std::wstring expectFocus(const std::wstring& name) {
    if (QApplication::activePopupWidget() == nullptr) bringTopDialogToFront();
    const QWidget* focused = QApplication::focusWidget();
    const std::wstring found = focused == nullptr ? L"nowhere" : focused->objectName().toStdWString();
    return found == name ? L"" : L"the focus is in " + found + L", not in " + name + L".";
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
