// Open menus and their items, as scripts name and choose them.

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <functional>

#include "host/ui/automation/automation.h"
#include "host/ui/automation/find.h"
#include "host/ui/automation/realinput.h"

namespace kdhost::automation {

namespace {

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

}  // namespace

QString plainText(const QAction& action) {
    QString text = action.text().section(QLatin1Char('\t'), 0, 0);
    text.replace(QStringLiteral("&&"), QStringLiteral("\n"));
    text.remove(QLatin1Char('&'));
    return text.replace(QLatin1Char('\n'), QLatin1Char('&'));
}

QAction* findMenuItem(const QString& name) {
    const QMenu* open = openMenu();
    if (open == nullptr) return nullptr;
    const Way way = wayTo(*open, [&](const QAction& action) { return action.objectName() == name; });
    return way.isEmpty() ? nullptr : way.last().data();
}

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

}  // namespace kdhost::automation
