// The answers of scripts to menus, message boxes and the host's own dialogs.

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <array>
#include <functional>

#include "host/ui/automation.h"
#include "host/ui/automationfind.h"
#include "host/ui/colorchoice.h"
#include "host/ui/realinput.h"

namespace kdhost::automation {

namespace {

QString qt(const std::wstring& text) {
    return QString::fromStdWString(text);
}

QString plainText(const QAction& action) {
    QString text = action.text().section(QLatin1Char('\t'), 0, 0);
    text.replace(QStringLiteral("&&"), QStringLiteral("\n"));
    text.remove(QLatin1Char('&'));
    return text.replace(QLatin1Char('\n'), QLatin1Char('&'));
}

using Way = QList<QPointer<QAction>>;

/// The way from the menu down to the item: sub-menus' actions, then the item's own. Empty when it isn't there.
Way wayTo(const QMenu& menu, const std::function<bool(const QAction&)>& wanted) {
    for (QAction* action : menu.actions()) {
        if (!action->isVisible() || action->isSeparator()) continue;
        if (action->menu() == nullptr) {
            if (wanted(*action)) return {action};
            continue;
        }
        Way way = wayTo(*action->menu(), wanted);
        if (!way.isEmpty()) return Way{action} + way;
    }
    return {};
}

QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// By object name, or by its text in quotes or without.
Way wayToItem(const QMenu& menu, const std::wstring& item) {
    const bool quoted = item.size() >= 2 && item.front() == L'"' && item.back() == L'"';
    const QString name = qt(quoted ? item.substr(1, item.size() - 2) : item);
    Way way;
    if (!quoted) way = wayTo(menu, [&](const QAction& action) { return action.objectName() == name; });
    if (way.isEmpty()) way = wayTo(menu, [&](const QAction& action) { return plainText(action) == name; });
    return way;
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

void press(QAbstractButton& button) {
    pressMouse(button, button.rect().center());
}

/// The button of the dialog's own that stands for an answer; null when it has none.
QAbstractButton* buttonOf(const QDialog& dialog, QDialogButtonBox::ButtonRole role) {
    const auto* box = dialog.findChild<QDialogButtonBox*>();
    if (box == nullptr) return nullptr;
    for (QAbstractButton* button : box->buttons()) {
        if (box->buttonRole(button) == role) return button;
    }
    return nullptr;
}

}  // namespace

std::wstring menu(const std::wstring& item) {
    QMenu* open = openMenu();
    if (open == nullptr) return L"no menu is open.";
    if (item == L"CANCEL") {
        // One press for each level.
        for (; open != nullptr; open = openMenu()) pressKey(Qt::Key_Escape);
        return {};
    }
    const Way way = wayToItem(*open, item);
    if (way.isEmpty()) return L"the menu has no item " + item + L".";
    for (const QPointer<QAction>& step : way) {
        if (!step->isEnabled()) return L"the menu's item " + item + L" is disabled.";
    }
    for (const QPointer<QAction>& step : way) {
        open = openMenu();
        if (open == nullptr || step == nullptr) return L"the menu closed before " + item + L" was chosen.";
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
        press(*pressed);
        return {};
    }
    return L"a message box is answered with OK, CANCEL, YES or NO.";
}

std::wstring file(const std::wstring& path) {
    const auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return L"no file dialog is open.";
    if (path.empty()) return L"a file dialog is answered with a path or CANCEL.";
    if (path == L"CANCEL") {
        press(*buttonOf(*dialog, QDialogButtonBox::RejectRole));
        return {};
    }
    // What the dialog shows depends on where its user has been; a script starts from the program's folder.
    const QString absolute = QDir::cleanPath(QDir::current().absoluteFilePath(qt(path)));
    if (QDir(absolute).exists()) return path + L" is a folder.";
    return onControl(L"fileNameEdit", [&](QWidget& edit) -> std::wstring {
        // With the focus elsewhere the dialog would hold on to the file that its list has selected.
        edit.setFocus(Qt::OtherFocusReason);
        static_cast<QLineEdit&>(edit).setText(absolute);
        QAbstractButton* button = buttonOf(*dialog, QDialogButtonBox::AcceptRole);
        // So it is with a file to be read that isn't there.
        if (!button->isEnabled()) return path + L" can't be chosen.";
        press(*button);
        return {};
    });
}

std::wstring color(const std::wstring& color) {
    const QWidget* top = QApplication::activeModalWidget();
    if (top == nullptr || top->objectName() != QLatin1String("ColorDialog")) return L"no colour dialog is open.";
    if (answerColorDialog(qt(color))) return {};
    return L"the colour dialog takes none, bylayer and byblock where it offers them, N, R,G,B or CANCEL, not " + color +
           L".";
}

}  // namespace kdhost::automation
