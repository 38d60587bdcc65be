// What tests of the context menus of tables share: the class that gives them, the cursor on a place of the drawing, the
// menus shown and their items chosen by real events.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QMenu>
#include <QTimer>
#include <cmath>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "host/ed/editor.h"
#include "host/ui/automation/automation.h"
#include "host/win32/modules.h"
#include "module/edit/contextmenu/menucommands.h"
#include "module/edit/contextmenu/tableuicontext.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {

/// With what only it uses itself within reach.
class OpenContext : public CVqTableUIContext {
public:
    using CVqTableUIContext::addCellStyleMenu;
    using CVqTableUIContext::getIndicatorMenu;
    KdDbObjectId tableId() const { return m_tableId; }
};

using ItemNames = std::set<std::string>;

inline std::string nameOfItem(const QAction& item) {
    const bool isSubMenu = item.menu() != nullptr && item.objectName().isEmpty();
    return (isSubMenu ? item.menu()->objectName() : item.objectName()).toStdString();
}

/// All items of the menu and of its sub-menus, without separators.
inline std::vector<QAction*> itemsIn(const QMenu& menu) {
    std::vector<QAction*> items;
    for (QAction* item : menu.actions()) {
        if (item->isSeparator()) continue;
        items.push_back(item);
        if (item->menu() == nullptr) continue;
        const std::vector<QAction*> below = itemsIn(*item->menu());
        items.insert(items.end(), below.begin(), below.end());
    }
    return items;
}

template <class Wanted>
ItemNames itemsThat(const QMenu& menu, Wanted wanted) {
    ItemNames names;
    for (const QAction* item : itemsIn(menu)) {
        if (wanted(*item)) names.insert(nameOfItem(*item));
    }
    return names;
}

/// By their own state: the items of a disabled sub-menu count as they are.
inline ItemNames disabledIn(const QMenu& menu) {
    return itemsThat(menu, [](const QAction& item) { return !item.isEnabled(); });
}
inline ItemNames checkedIn(const QMenu& menu) {
    return itemsThat(menu, [](const QAction& item) { return item.isChecked(); });
}

inline QAction* itemNamed(const QMenu& menu, const std::string& name) {
    for (QAction* item : itemsIn(menu)) {
        if (nameOfItem(*item) == name) return item;
    }
    return nullptr;
}

class ContextMenus : public TableEdits {
protected:
    void SetUp() override {
        TableEdits::SetUp();
        QGuiApplication::clipboard()->clear();
        host.editor().view().setOrigin(70, 40);
        moveCursor(-500.0, -500.0);
    }
    void TearDown() override {
        kdhost::setLanguage(kdhost::Language::English);
        TableEdits::TearDown();
    }

    /// In the drawing with its upper left corner at (100, 200), columns of 30 and rows of 20.
    KdDbObjectId put(TableBuilder& builder) {
        std::unique_ptr<KdDbTable> made = builder.style(host.database().tablestyle()).build();
        made->setColumnWidth(30.0);
        made->setRowHeight(20.0);
        made->setPosition({100.0, 200.0, 0.0});
        return add(std::move(made));
    }

    KdDbObjectId put(TableBuilder&& builder) { return put(builder); }

    void moveCursor(double x, double y) {
        KdGePoint3d pixel{x, y, 0.0};
        host.editor().view().worldToScreen(pixel);
        QCursor::setPos(static_cast<int>(std::lround(pixel.x)) + 70, static_cast<int>(std::lround(pixel.y)) + 40);
    }
    /// Counted from 0.
    void moveToRowIndicator(int row) { moveCursor(96.0, 190.0 - 20.0 * row); }
    void moveToColumnIndicator(int column) { moveCursor(115.0 + 30.0 * column, 204.0); }
    void moveAway() { moveCursor(-500.0, -500.0); }

    QMenu* ask(const std::vector<KdDbObjectId>& tables) {
        KdArray<KdDbObjectId> ids;
        for (const KdDbObjectId id : tables) ids.append(id);
        return context.getMenuContext(KdDbTable::desc(), ids);
    }
    QMenu* ask(KdDbObjectId table) { return ask(std::vector{table}); }

    /// Shows the menu and acts on it; one that stays open fails the test.
    static void show(QMenu& menu, const std::function<void()>& act) {
        const QPointer<QMenu> shown = &menu;
        QTimer::singleShot(0, &menu, [&] {
            EXPECT_EQ(QApplication::activePopupWidget(), shown);
            act();
            if (shown == nullptr || !shown->isVisible()) return;
            ADD_FAILURE() << "the menu stays open";
            shown->close();
        });
        menu.exec(QPoint(20, 20));
    }
    static void choose(QMenu& menu, const std::string& item) {
        show(menu, [&] { EXPECT_EQ(kdhost::automation::menu(std::wstring(item.begin(), item.end())), L"") << item; });
    }

    void lockLayer(bool locked) {
        OpenObject<KdDbLayerTableRecord>(host.database().clayer(), KdDb::kForWrite)->setIsLocked(locked);
    }
    std::wstring sent() {
        std::wstring text;
        while (const auto item = host.editor().input().next(nullptr)) text += item->character;
        return text;
    }

    OpenContext context;
};

}  // namespace kdtest
