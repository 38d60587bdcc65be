// Rows and the context menu of the lists of styles.

#include "module/controls/stylelist.h"

#include <QCursor>
#include <QListWidget>

#include "kd/ui/menu.h"
#include "kd/ui/uicreator.h"
#include "module/controls/wiring.h"

namespace {

constexpr int kKindMenu = 3;
constexpr int kFewestItems = 3;

/// The menu at the root of what was built; null when that is something else, or holds too little.
KdUiMenu* builtMenu(const VqUICreator& creator) {
    if (creator.actions().size() < kFewestItems) return nullptr;
    return qobject_cast<KdUiMenu*>(creator.widgets().first());
}

void equip(const VqUICreator& creator, const StyleMenuItem& item) {
    QAction* action = creator.action(QString::fromLatin1(item.action));
    if (action == nullptr) return;
    action->setEnabled(item.enabled);
    if (item.enabled) QObject::connect(action, &QAction::triggered, item.run);
}

}  // namespace

int selectedRow(const CListCtrl& list) {
    if (list.GetSelectedCount() != 1) return -1;
    int row = 0;
    while (list.GetItemState(row, LVIS_SELECTED) == 0) ++row;
    return row;
}

void selectRow(CListCtrl& list, int row) {
    list.SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    list.SetFocus();
}

void editMarkedLabel(CListCtrl& list) {
    if (list.GetSelectedCount() != 1) return;
    list.SetFocus();
    const int row = list.GetSelectionMark();
    list.SetItemState(row, LVIS_FOCUSED, LVIS_FOCUSED);
    list.EditLabel(row);
}

void makeCurrentRow(const CListCtrl& list, int row) {
    if (auto* widget = list.widgetAs<QListWidget>()) widget->setCurrentRow(row);
}

void showStyleMenu(KdUiBaseDialog& dialog, const char* tree, const std::vector<StyleMenuItem>& items) {
    dialog.SetFocus();
    VqUICreator creator(&dialog, QString::fromLatin1(kModuleResources), kKindMenu);
    if (!creator.generate(QString::fromLatin1(tree))) return;
    KdUiMenu* menu = builtMenu(creator);
    if (menu == nullptr) {
        creator.release();
        return;
    }
    for (const StyleMenuItem& item : items) equip(creator, item);
    menu->exec(QCursor::pos());
    menu->deleteLater();
}
