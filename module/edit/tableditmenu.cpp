// The drop-down menus of the toolbar.

#include "module/edit/tableditmenu.h"

#include <QActionGroup>
#include <QCursor>
#include <array>

#include "kd/ui/uicreator.h"

namespace {

constexpr int kKindMenu = 3;

struct MenuAction {
    unsigned command;
    const char* objectName;
};

/// What the items of all five menus do.
constexpr std::array<MenuAction, 31> IdCmenuActionMaps = {{
    {1802, "IDR_ALIGNMENT_TOPLEFT"},
    {1803, "IDR_ALIGNMENT_TOPCENTER"},
    {1804, "IDR_ALIGNMENT_TOPRIGHT"},
    {1805, "IDR_ALIGNMENT_MIDDLELEFT"},
    {1806, "IDR_ALIGNMENT_MIDDLECENTER"},
    {1807, "IDR_ALIGNMENT_MIDDLERIGHT"},
    {1808, "IDR_ALIGNMENT_BOTTOMLEFT"},
    {1809, "IDR_ALIGNMENT_BOTTOMCENTER"},
    {1810, "IDR_ALIGNMENT_BOTTOMRIGHT"},
    {1816, "IDR_MERGE_ALL"},
    {1817, "IDR_MERGE_BYROW"},
    {1818, "IDR_MERGE_BYCOLUMN"},
    {1819, "IDR_LOCKING_UNLOCKED"},
    {1820, "IDR_LOCKING_CONTENTLOCKED"},
    {1821, "IDR_LOCKING_FORMATLOCKED"},
    {1822, "IDR_LOCKING_CONTENTFORMATLOCKED"},
    {1823, "IDR_FORMAT_ANGLE"},
    {1824, "IDR_FORMAT_CURRENCY"},
    {1825, "IDR_FORMAT_DATE"},
    {1826, "IDR_FORMAT_DECIMAL"},
    {1827, "IDR_FORMAT_GENERAL"},
    {1828, "IDR_FORMAT_PERCENTAGE"},
    {1829, "IDR_FORMAT_POINT"},
    {1830, "IDR_FORMAT_TEXT"},
    {1831, "IDR_FORMAT_WHOLE"},
    {1832, "IDR_FORMAT_CUSTOMFORMAT"},
    {1811, "IDR_FORMULA_SUM"},
    {1812, "IDR_FORMULA_AVERAGE"},
    {1813, "IDR_FORMULA_COUNT"},
    {1814, "IDR_FORMULA_CELL"},
    {1815, "IDR_FORMULA_EQUATION"},
}};

const MenuAction* actionNamed(const QString& name) {
    for (const MenuAction& row : IdCmenuActionMaps) {
        if (name == QLatin1String(row.objectName)) return &row;
    }
    return nullptr;
}

}  // namespace

VqTableditMenu::VqTableditMenu(QWidget* parent) : KdUiMenu(parent), m_group(new QActionGroup(this)) {}

VqTableditMenu::~VqTableditMenu() = default;

bool VqTableditMenu::LoadMenuItem(const QString& file, const QString& name, CommandHandler handler) {
    auto creator = std::make_unique<VqUICreator>(this, file, kKindMenu);
    if (!creator->generate(name)) return false;
    if (m_creator != nullptr) m_creator->release();
    QWidget* tree = creator->widget(name);
    for (QAction* item : tree->actions()) {
        addAction(item);
        if (item->isSeparator()) continue;
        item->setCheckable(true);
        m_group->addAction(item);
        connect(item, &QAction::triggered, this, &VqTableditMenu::OnMenuClicked);
    }
    m_creator = std::move(creator);
    m_handler = std::move(handler);
    return true;
}

QAction* VqTableditMenu::itemAt(int position) const {
    const QList<QAction*> items = actions();
    return position >= 0 && position < items.size() ? items[position] : nullptr;
}

void VqTableditMenu::check(QAction* item) {
    if (m_checked != nullptr) m_checked->setChecked(false);
    item->setChecked(true);
    m_checked = item;
}

void VqTableditMenu::CheckMenuItem(int position, unsigned flags) {
    QAction* item = itemAt(position);
    if (item == nullptr || !item->isCheckable()) return;
    if ((flags & kMenuItemChecked) != 0) {
        check(item);
    } else {
        item->setChecked(false);
    }
}

void VqTableditMenu::EnableMenuItem(int position, unsigned flags) {
    if (QAction* item = itemAt(position)) item->setEnabled((flags & (kMenuItemGrayed | kMenuItemDisabled)) == 0);
}

void VqTableditMenu::ResetMenuItems() {
    for (QAction* item : actions()) {
        item->setChecked(false);
        item->setEnabled(true);
    }
    m_checked = nullptr;
}

void VqTableditMenu::OnMenuClicked() {
    auto* item = qobject_cast<QAction*>(sender());
    if (item == nullptr) return;
    check(item);
    const MenuAction* action = actionNamed(item->objectName());
    if (action != nullptr && m_handler) m_handler(action->command);
}

void VqTableditMenu::ShowMenuItem() {
    exec(QCursor::pos());
}
