// The actions of scripts on dialogs, menus and message boxes.

#include "host/ui/automation.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTabBar>
#include <array>
#include <functional>
#include <optional>

#include "host/ui/automationfind.h"
#include "host/ui/realinput.h"
#include "kd/ui/widgets.h"

namespace kdhost::automation {

namespace {

QString qt(const std::wstring& text) {
    return QString::fromStdWString(text);
}

/// A control that a person could use now; null with `error` one line otherwise.
QWidget* usable(const std::wstring& name, std::wstring& error) {
    QWidget* control = findControl(qt(name));
    if (control == nullptr) {
        error = L"there is no control " + name + L".";
    } else if (!control->isVisible()) {
        error = name + L" is hidden.";
    } else if (!control->isEnabled()) {
        error = name + L" is disabled.";
    } else {
        QWidget* window = control->window();
        if (!window->isActiveWindow() && QApplication::activePopupWidget() == nullptr) {
            QApplication::setActiveWindow(window);
        }
        return control;
    }
    return nullptr;
}

/// Carries `act` out on a usable control.
std::wstring onControl(const std::wstring& name, const std::function<std::wstring(QWidget&)>& act) {
    std::wstring error;
    QWidget* control = usable(name, error);
    return control == nullptr ? error : act(*control);
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

std::wstring setCheck(QAbstractButton& button, const std::wstring& value) {
    const std::optional<bool> wanted = flagOf(value);
    if (!wanted) return L"a check is set on or off.";
    if (button.isChecked() != *wanted) pressKey(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    return {};
}

std::wstring replaceText(QLineEdit& edit, const std::wstring& value) {
    if (edit.isReadOnly()) return L"the edit can't be changed.";
    edit.selectAll();
    if (value.empty()) {
        pressKey(Qt::Key_Delete);
    } else {
        typeKeys(qt(value));
    }
    return {};
}

/// Where on the control a click goes; none for a row that isn't there.
std::optional<QPoint> placeOn(QWidget& control, QWidget*& target, const std::wstring& place) {
    const Choices choices(control);
    target = &control;
    if (place.empty()) return control.rect().center();
    if (choices.view() != nullptr) {
        target = choices.view()->viewport();
        if (place == L"empty") return QPoint(target->width() / 2, target->height() - 2);
        const std::optional<int> row = choices.find(qt(place));
        if (!row) return std::nullopt;
        const QModelIndex index = choices.view()->model()->index(*row, 0);
        choices.view()->scrollTo(index);
        return choices.view()->visualRect(index).center();
    }
    if (choices.tabs() != nullptr) {
        target = choices.tabs();
        const std::optional<int> tab = choices.find(qt(place));
        return tab ? std::optional<QPoint>(choices.tabs()->tabRect(*tab).center()) : std::nullopt;
    }
    return std::nullopt;
}

std::wstring pressOn(const std::wstring& name, const std::wstring& place, Qt::MouseButton button, bool twice) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        QWidget* target = nullptr;
        const std::optional<QPoint> at = placeOn(control, target, place);
        if (!at) return name + L" has no " + place + L".";
        if (place == L"empty" && Choices(control).view()->indexAt(*at).isValid()) return name + L" has no empty space.";
        pressMouse(*target, *at, button, twice);
        return {};
    });
}

std::wstring selectInCombo(QComboBox& combo, const std::wstring& name, const std::wstring& choice) {
    if (!combo.view()->isVisible()) {
        combo.setFocus(Qt::MouseFocusReason);
        pressKey(Qt::Key_F4);
    }
    // Rows may have come with the opening.
    const std::optional<int> row = Choices(combo).find(qt(choice));
    if (!row) {
        pressKey(Qt::Key_Escape);
        return name + L" has no row " + choice + L".";
    }
    combo.view()->setCurrentIndex(combo.model()->index(*row, combo.modelColumn(), combo.rootModelIndex()));
    pressKey(Qt::Key_Return);
    return {};
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

struct Answer {
    const wchar_t* name;
    QMessageBox::StandardButton button;
};

constexpr std::array kAnswers = {
    Answer{L"OK", QMessageBox::Ok},
    Answer{L"CANCEL", QMessageBox::Cancel},
    Answer{L"YES", QMessageBox::Yes},
    Answer{L"NO", QMessageBox::No},
};

QString plainText(const QAction& action) {
    QString text = action.text().section(QLatin1Char('\t'), 0, 0);
    text.replace(QStringLiteral("&&"), QStringLiteral("\n"));
    text.remove(QLatin1Char('&'));
    return text.replace(QLatin1Char('\n'), QLatin1Char('&'));
}

/// The way from the menu down to the item: sub-menus' actions, then the item's own. Empty when it isn't there.
QList<QAction*> wayTo(const QMenu& menu, const std::function<bool(const QAction&)>& wanted) {
    for (QAction* action : menu.actions()) {
        if (!action->isVisible() || action->isSeparator()) continue;
        if (action->menu() == nullptr) {
            if (wanted(*action)) return {action};
            continue;
        }
        QList<QAction*> way = wayTo(*action->menu(), wanted);
        if (!way.isEmpty()) return QList<QAction*>{action} + way;
    }
    return {};
}

QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

std::wstring actual(const QWidget& control, const std::wstring& property) {
    if (property == L"text") return shownText(control).toStdWString();
    if (property == L"rows") return std::to_wstring(Choices(const_cast<QWidget&>(control)).count());
    if (property == L"enabled") return control.isEnabled() ? L"on" : L"off";
    if (property == L"visible") return control.isVisible() ? L"on" : L"off";
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    return button != nullptr && button->isChecked() ? L"on" : L"off";
}

}  // namespace

QWidget* topWindow() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return QApplication::activeWindow();
}

std::wstring topWindowName() {
    const QWidget* top = topWindow();
    if (top == nullptr) return {};
    return (top->objectName() + QStringLiteral(" \"") + top->windowTitle() + QLatin1Char('"')).toStdWString();
}

std::wstring set(const std::wstring& name, const std::wstring& value) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        auto* button = qobject_cast<QAbstractButton*>(&control);
        QLineEdit* edit = editOf(control);
        if (edit == nullptr && (button == nullptr || !button->isCheckable())) return name + L" takes no value.";
        control.setFocus(Qt::TabFocusReason);
        const std::wstring error = edit != nullptr ? replaceText(*edit, value) : setCheck(*button, value);
        if (error.empty()) pressKey(Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
        return error;
    });
}

std::wstring type(const std::wstring& name, const std::wstring& text) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        if (!control.hasFocus()) control.setFocus(Qt::OtherFocusReason);
        typeKeys(qt(text));
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

std::wstring select(const std::wstring& name, const std::wstring& choice) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        const Choices choices(control);
        if (!choices.exist()) return name + L" has no rows.";
        if (choices.combo() != nullptr) return selectInCombo(*choices.combo(), name, choice);
        const std::optional<int> row = choices.find(qt(choice));
        if (!row) return name + L" has no row " + choice + L".";
        return pressOn(name, L"#" + std::to_wstring(*row), Qt::LeftButton, false);
    });
}

std::wstring drop(const std::wstring& name) {
    return onControl(name, [&](QWidget& control) -> std::wstring {
        if (qobject_cast<QComboBox*>(&control) != nullptr) {
            control.setFocus(Qt::MouseFocusReason);
            pressKey(Qt::Key_F4);
            return {};
        }
        const auto* button = qobject_cast<KdUiPushButton*>(&control);
        if (button == nullptr || !button->hasArrowPart()) return name + L" has nothing to drop.";
        pressMouse(control, QPoint(control.width() - 2, control.height() / 2));
        return {};
    });
}

std::wstring click(const std::wstring& name, const std::wstring& place) {
    return pressOn(name, place, Qt::LeftButton, false);
}

std::wstring doubleClick(const std::wstring& name, const std::wstring& place) {
    return pressOn(name, place, Qt::LeftButton, true);
}

std::wstring context(const std::wstring& name, const std::wstring& place) {
    return pressOn(name, place, Qt::RightButton, false);
}

std::wstring label(const std::wstring& text) {
    QWidget* focused = QApplication::focusWidget();
    QWidget* list = focused == nullptr ? nullptr : focused->parentWidget();
    while (list != nullptr && qobject_cast<KdUiListWidget*>(list) == nullptr) list = list->parentWidget();
    QLineEdit* edit = list == nullptr ? nullptr : static_cast<KdUiListWidget*>(list)->labelEditor();
    if (edit == nullptr) return L"no label is being edited.";
    if (text == L"CANCEL") {
        pressKey(Qt::Key_Escape);
        return {};
    }
    replaceText(*edit, text);
    pressKey(Qt::Key_Return);
    // The list ends its edit with the next turn of the loop.
    QCoreApplication::sendPostedEvents(static_cast<KdUiListWidget*>(list)->itemDelegate(), QEvent::MetaCall);
    return {};
}

std::wstring menu(const std::wstring& item) {
    QMenu* open = openMenu();
    if (open == nullptr) return L"no menu is open.";
    if (item == L"CANCEL") {
        // One press for each level.
        for (; open != nullptr; open = openMenu()) pressKey(Qt::Key_Escape);
        return {};
    }
    const bool quoted = item.size() >= 2 && item.front() == L'"' && item.back() == L'"';
    const QString name = qt(quoted ? item.substr(1, item.size() - 2) : item);
    QList<QAction*> way;
    if (!quoted) way = wayTo(*open, [&](const QAction& action) { return action.objectName() == name; });
    if (way.isEmpty()) way = wayTo(*open, [&](const QAction& action) { return plainText(action) == name; });
    if (way.isEmpty()) return L"the menu has no item " + item + L".";
    for (const QAction* step : way) {
        if (!step->isEnabled()) return L"the menu's item " + item + L" is disabled.";
    }
    for (QAction* step : way) {
        open = openMenu();
        if (open == nullptr) return L"the menu closed before " + item + L" was chosen.";
        open->setActiveAction(step);
        // An active sub-menu's own action has opened it.
        if (step->menu() == nullptr || !step->menu()->isVisible()) pressKey(Qt::Key_Return);
    }
    return {};
}

std::wstring answer(const std::wstring& button) {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return L"no message box is open.";
    for (const Answer& known : kAnswers) {
        if (button != known.name) continue;
        QAbstractButton* pressed = box->button(known.button);
        if (pressed == nullptr) return L"the message box has no button " + button + L".";
        pressMouse(*pressed, pressed->rect().center());
        return {};
    }
    return L"a message box is answered with OK, CANCEL, YES or NO.";
}

std::wstring key(const std::wstring& name) {
    std::wstring rest = name;
    Qt::KeyboardModifiers modifiers;
    for (bool more = true; more;) {
        more = false;
        if (takePrefix(rest, L"CTRL+")) {
            modifiers |= Qt::ControlModifier;
            more = true;
        }
        if (takePrefix(rest, L"SHIFT+")) {
            modifiers |= Qt::ShiftModifier;
            more = true;
        }
    }
    if (topWindow() == nullptr) return L"no window is open.";
    for (const NamedKey& known : kKeys) {
        if (rest != known.name) continue;
        const bool backwards = known.key == Qt::Key_Tab && (modifiers & Qt::ShiftModifier) != 0;
        pressKey(backwards ? Qt::Key_Backtab : known.key, modifiers, QString::fromLatin1(known.text));
        return {};
    }
    if (rest.size() >= 2 && rest[0] == L'F') {
        bool isNumber = false;
        const int number = qt(rest).midRef(1).toInt(&isNumber);
        if (isNumber && number >= 1 && number <= 12) {
            pressKey(Qt::Key_F1 + number - 1, modifiers);
            return {};
        }
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
    const bool isFlag = property == L"enabled" || property == L"checked" || property == L"visible";
    if (!isFlag && property != L"text" && property != L"rows")
        return L"nothing is called " + property + L" of a control.";
    const std::wstring found = actual(*control, property);
    const std::optional<bool> flag = isFlag ? flagOf(value) : std::nullopt;
    if (isFlag && !flag) return property + L" is on or off.";
    const std::wstring wanted = isFlag ? (*flag ? L"on" : L"off") : value;
    return found == wanted ? L"" : name + L" " + property + L" is " + found + L", not " + wanted + L".";
}

std::wstring expectFocus(const std::wstring& name) {
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

}  // namespace kdhost::automation
