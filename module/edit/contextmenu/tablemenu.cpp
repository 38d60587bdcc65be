// Loading of popups, and what is done to their items.

#include "module/edit/contextmenu/tablemenu.h"

#include <QActionGroup>
#include <QCursor>
#include <algorithm>

#include "kd/ed/uicontext.h"
#include "kd/ui/uicreator.h"
#include "module/edit/contextmenu/menucommands.h"

namespace {

constexpr int kKindMenu = 3;

QString nameOf(const QAction& item) {
    if (!item.objectName().isEmpty() || item.menu() == nullptr) return item.objectName();
    return item.menu()->objectName();
}

QAction* itemNamedIn(const QMenu& menu, QLatin1String name) {
    for (QAction* item : menu.actions()) {
        if (nameOf(*item) == name) return item;
        QAction* below = item->menu() == nullptr ? nullptr : itemNamedIn(*item->menu(), name);
        if (below != nullptr) return below;
    }
    return nullptr;
}

void enable(QAction* item, unsigned flags) {
    if (item != nullptr) item->setEnabled((flags & kTableMenuDisabled) == 0);
}

void check(QAction* item, unsigned flags) {
    if (item == nullptr || item->isSeparator()) return;
    const bool checked = (flags & kTableMenuChecked) != 0;
    if (checked) item->setCheckable(true);
    item->setChecked(checked);
}

/// The menu that the item stands in itself.
QMenu* menuOf(const QAction& item) {
    const QList<QWidget*> holders = item.associatedWidgets();
    return holders.isEmpty() ? nullptr : qobject_cast<QMenu*>(holders.first());
}

}  // namespace

TableMenu::TableMenu(QWidget* parent) : KdUiMenu(parent), m_parent(parent) {}

TableMenu::~TableMenu() {
    TableMenu::DestroyMenu();
}

void TableMenu::InitMenu(QMenu* popup, KdEdUIContext* context) {
    m_popup = popup;
    m_context = context;
}

void TableMenu::CreatePopupMenu() {
    DestroyMenu();
    clear();
    m_name.clear();
    m_popup = this;
}

void TableMenu::LoadMenuW(const QString& file, const QString& name) {
    if (file.isEmpty() || name.isEmpty()) return;
    DestroyMenu();
    m_file = file;
    m_name = name;
    if (m_creator == nullptr) {
        m_creator = std::make_unique<VqUICreator>(m_parent != nullptr ? m_parent.data() : this, m_file, kKindMenu);
    }
    if (!m_creator->generate(m_name)) return;
    m_popup = qobject_cast<QMenu*>(m_creator->widget(m_name));
    for (QAction* item : m_creator->actions()) connectItem(item);
}

void TableMenu::DestroyMenu() {
    if (m_popup == nullptr || m_name.isEmpty()) return;
    m_creator->release();
    m_popup = nullptr;
}

void TableMenu::connectItem(QAction* item) {
    connect(item, &QAction::triggered, this, &TableMenu::OnMenuClicked);
}

int TableMenu::GetMenuItemCount() const {
    return m_popup == nullptr ? 0 : m_popup->actions().size();
}

QAction* TableMenu::itemAt(int position) const {
    return position >= 0 && position < GetMenuItemCount() ? m_popup->actions()[position] : nullptr;
}

QAction* TableMenu::itemNamed(QLatin1String name) const {
    return m_popup == nullptr ? nullptr : itemNamedIn(*m_popup, name);
}

QString TableMenu::GetMenuItemID(int position) const {
    const QAction* item = itemAt(position);
    return item == nullptr ? QString() : nameOf(*item);
}

bool TableMenu::holds(QLatin1String name) const {
    return itemNamed(name) != nullptr;
}

int TableMenu::positionOf(QLatin1String name) const {
    const int count = GetMenuItemCount();
    int position = 0;
    while (position < count && GetMenuItemID(position) != name) ++position;
    return position;
}

std::unique_ptr<TableMenu> TableMenu::GetSubMenu(int position) const {
    const QAction* item = itemAt(position);
    if (item == nullptr || item->menu() == nullptr) return nullptr;
    auto wrapper = std::make_unique<TableMenu>();
    wrapper->InitMenu(item->menu(), m_context);
    return wrapper;
}

void TableMenu::EnableMenuItem(QLatin1String name, unsigned flags) {
    enable(itemNamed(name), flags);
}

void TableMenu::EnableMenuItem(int position, unsigned flags) {
    enable(itemAt(position), flags);
}

void TableMenu::CheckMenuItem(QLatin1String name, unsigned flags) {
    check(itemNamed(name), flags);
}

void TableMenu::CheckMenuItem(int position, unsigned flags) {
    check(itemAt(position), flags);
}

void TableMenu::CheckMenuRadioItem(QLatin1String first, QLatin1String last, QLatin1String checked, unsigned) {
    QAction* shown = itemNamed(checked);
    QMenu* menu = shown == nullptr ? nullptr : menuOf(*shown);
    if (menu == nullptr) return;
    const QList<QAction*> items = menu->actions();
    const auto [from, to] = std::minmax({items.indexOf(itemNamed(first)), items.indexOf(itemNamed(last))});
    if (from < 0) return;
    delete m_radioItems;
    m_radioItems = new QActionGroup(menu);
    for (QAction* item : items.mid(from, to - from + 1)) {
        if (item->isSeparator()) continue;
        item->setCheckable(true);
        item->setChecked(item == shown);
        m_radioItems->addAction(item);
    }
}

void TableMenu::DeleteMenuItem(QAction* item) {
    if (item == nullptr) return;
    if (QMenu* menu = menuOf(*item)) menu->removeAction(item);
    // The action of a sub-menu goes with the sub-menu; a popup that was put in stays its owner's.
    QMenu* below = item->menu();
    if (below == nullptr) {
        delete item;
    } else if (dynamic_cast<TableMenu*>(below) == nullptr) {
        delete below;
    }
}

void TableMenu::DeleteMenu(QLatin1String name) {
    DeleteMenuItem(itemNamed(name));
}

void TableMenu::DeleteMenu(int position) {
    DeleteMenuItem(itemAt(position));
}

void TableMenu::InsertMenuItemW(int position, QAction* item) {
    if (m_popup != nullptr && item != nullptr) m_popup->insertAction(itemAt(position), item);
}

void TableMenu::InsertMenuW(QLatin1String name, int position, TableMenu& subMenu, const QString& text) {
    if (subMenu.popup() == nullptr) return;
    subMenu.popup()->setTitle(text);
    subMenu.popup()->menuAction()->setObjectName(name);
    InsertMenuItemW(position, subMenu.popup()->menuAction());
}

void TableMenu::InsertMenuW(QLatin1String name, int position, const QStringList& names, const QStringList& texts) {
    if (m_popup == nullptr) return;
    auto* subMenu = new KdUiMenu(QString(name), m_popup);
    subMenu->menuAction()->setObjectName(name);
    for (int i = 0; i < names.size(); ++i) {
        QAction* item = subMenu->addAction(texts.value(i, names[i]));
        item->setObjectName(names[i]);
        connectItem(item);
    }
    InsertMenuItemW(position, subMenu->menuAction());
}

void TableMenu::AppendMenuW(unsigned flags, const QString& objectName, const QString& text) {
    if (m_popup == nullptr) return;
    if (flags == kTableMenuSeparator) {
        m_popup->addSeparator();
        return;
    }
    const bool disabled = (flags & 1U) != 0;
    if (flags != kTableMenuEnabled && !disabled) return;
    QAction* item = m_popup->addAction(text);
    item->setObjectName(objectName);
    item->setEnabled(!disabled);
    connectItem(item);
}

void TableMenu::OnMenuClicked() {
    const QObject* item = sender();
    KdEdUIContext* context = m_context;
    if (item == nullptr || context == nullptr) return;
    // A command may rebuild the menu, so that nothing of it is looked at behind the first call.
    const QString name = item->objectName();
    for (const MenuCommand& row : TableResArr) {
        if (name == QLatin1String(row.objectName)) context->onCommand(row.command);
    }
}

void TableMenu::ShowMenuItem() {
    if (m_popup != nullptr) m_popup->exec(QCursor::pos());
}
