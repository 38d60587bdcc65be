// The popup menus of the resource module by themselves: loading, positions and names, states, items added and taken
// out, and what choosing one calls.

#include "module/edit/contextmenu/tablemenu.h"

#include <QTest>
#include <climits>

#include "tests/ui/context/fixture.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {
namespace {

const QString kFile = QStringLiteral("TvxTableRes/TvxTableRes");

/// Notes the commands that it gets.
class NotingContext : public KdEdUIContext {
public:
    QMenu* getMenuContext(const KdRxClass*, const KdArray<KdDbObjectId>&) override { return nullptr; }
    void onCommand(unsigned command) override { commands.push_back(command); }
    std::vector<unsigned> commands;
};

class TableMenus : public ModuleResources {
protected:
    void SetUp() override {
        ModuleResources::SetUp();
        menu.SetonCommand(&noting);
    }
    void load(const char* name) { menu.LoadMenuW(kFile, QString::fromLatin1(name)); }
    static std::vector<std::string> ids(const TableMenu& of) {
        std::vector<std::string> found;
        for (int position = 0; position < of.GetMenuItemCount(); ++position) {
            found.push_back(of.GetMenuItemID(position).toStdString());
        }
        return found;
    }
    /// Three items behind one another, named A, B and C.
    void makeThree() {
        menu.CreatePopupMenu();
        for (const char* name : {"A", "B", "C"}) {
            menu.AppendMenuW(0, QString::fromLatin1(name), QStringLiteral("Item ") + QString::fromLatin1(name));
        }
    }
    static QLatin1String id(const char* name) { return QLatin1String(name); }

    NotingContext noting;
    TableMenu menu;
};

using Ids = std::vector<std::string>;

TEST_F(TableMenus, TableResArr_has_37_rows_with_a_name_and_a_command_each_of_its_own) {
    std::set<unsigned> commands;
    std::set<std::string> names;
    for (const MenuCommand& row : TableResArr) {
        commands.insert(row.command);
        names.insert(row.objectName);
    }
    EXPECT_EQ(TableResArr.size(), 37U);
    EXPECT_EQ(commands.size(), 37U);
    EXPECT_EQ(names.size(), 37U);
}

TEST_F(TableMenus, Every_row_stands_in_one_of_the_four_menus_and_its_item_calls_the_context_with_its_command) {
    std::set<std::string> found;
    for (const char* name :
         {"IDR_TABLECELL_MENU", "IDR_TABLESTYLE_MENU", "IDR_BYROW_INSERT_MENU", "IDR_BYCOLUMN_INSERT_MENU"}) {
        load(name);
        ASSERT_NE(menu.popup(), nullptr) << name;
        for (const MenuCommand& row : TableResArr) {
            QAction* item = itemNamed(*menu.popup(), row.objectName);
            if (item == nullptr) continue;
            found.insert(row.objectName);
            noting.commands.clear();
            item->trigger();
            EXPECT_EQ(noting.commands, std::vector{row.command}) << row.objectName;
        }
    }
    EXPECT_EQ(found.size(), 37U);
}

TEST_F(TableMenus, Items_without_a_row_call_nothing) {
    load("IDR_TABLECELL_MENU");
    ItemNames idle;
    for (QAction* item : itemsIn(*menu.popup())) {
        noting.commands.clear();
        if (item->menu() == nullptr) item->trigger();
        if (item->menu() == nullptr && noting.commands.empty()) idle.insert(nameOfItem(*item));
    }
    EXPECT_EQ(idle, (ItemNames{"IDR_TABLECELL_BORDERS", "IDR_TABLECELL_MATCHCELL"}));
}

TEST_F(TableMenus, Have_their_items_in_sub_menu_0_at_the_places_that_the_rules_look_at) {
    load("IDR_TABLECELL_MENU");
    EXPECT_EQ(menu.GetMenuItemCount(), 1);
    const auto cell = menu.GetSubMenu(0);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(ids(*cell), (Ids{"IDR_TABLECELL_CUT", "IDR_TABLECELL_COPY", "IDR_TABLECELL_PASTE", "",
                               "IDR_TABLECELL_ALIGNMENT", "IDR_TABLECELL_BACKGROUNDFILL", "IDR_TABLECELL_BORDERS",
                               "IDR_TABLECELL_LOCKING", "IDR_TABLECELL_DATAFORMAT", "IDR_TABLECELL_MATCHCELL", "",
                               "IDR_TABLECELL_MERGE", "IDR_TABLECELL_UNMERGE", "", "IDR_TABLECELL_DELETEALLCONTENT",
                               "IDR_TABLECELL_EDITTEXT", "IDR_TABLECELL_COLUMNS", "IDR_TABLECELL_ROWS"}));
    const int from = cell->positionOf(id("IDR_TABLECELL_DELETEALLCONTENT"));
    EXPECT_TRUE(cell->GetSubMenu(from + 2)->holds(id("IDR_BYCOLUMN_LEFTINSERT")));
    EXPECT_TRUE(cell->GetSubMenu(from + 3)->holds(id("IDR_BYROW_ABOVEINSERT")));
    EXPECT_TRUE(cell->GetSubMenu(cell->positionOf(id("IDR_TABLECELL_UNMERGE")) - 1)->holds(id("IDR_MERGE_ALL")));
    EXPECT_TRUE(
        cell->GetSubMenu(cell->positionOf(id("IDR_TABLECELL_BACKGROUNDFILL")) - 1)->holds(id("IDR_ALIGNMENT_TOPLEFT")));

    load("IDR_TABLESTYLE_MENU");
    const auto table = menu.GetSubMenu(0);
    EXPECT_EQ(ids(*table),
              (Ids{"IDR_TABLESTYLE_LIST", "", "IDR_BYCOLUMN_SIZEEQUALLY", "IDR_BYROW_SIZEEQUALLY", "",
                   "IDR_TABLESTYLE_SAVESTYLE", "IDR_TABLESTYLE_SETCURRENTSTYLE", "IDR_TABLESTYLE_REMOVEOVERRIDES", "",
                   "IDR_TABLESTYLE_EXPORT", "IDR_TABLESTYLE_INDICATORCOLOR"}));
    ASSERT_NE(table->GetSubMenu(0), nullptr);
    EXPECT_EQ(table->GetSubMenu(0)->GetMenuItemCount(), 0);

    for (const char* name : {"IDR_BYROW_INSERT_MENU", "IDR_BYCOLUMN_INSERT_MENU"}) {
        load(name);
        EXPECT_EQ(menu.GetSubMenu(0)->GetMenuItemCount(), 16) << name;
    }
}

TEST_F(TableMenus, Empty_arguments_load_nothing_and_a_missing_tree_leaves_a_menu_without_items) {
    menu.LoadMenuW({}, QStringLiteral("IDR_TABLECELL_MENU"));
    menu.LoadMenuW(kFile, {});
    EXPECT_EQ(menu.popup(), nullptr);
    load("IDR_TABLECELL_MENU");
    QMenu* kept = menu.popup();
    menu.LoadMenuW({}, {});
    EXPECT_EQ(menu.popup(), kept);
    load("IDR_NONE_MENU");
    EXPECT_EQ(menu.popup(), nullptr);
    EXPECT_EQ(menu.GetMenuItemCount(), 0);
    EXPECT_EQ(menu.GetMenuItemID(0), QString());
    EXPECT_EQ(menu.GetSubMenu(0), nullptr);
    menu.EnableMenuItem(0, 3);
    menu.EnableMenuItem(id("IDR_TABLECELL_CUT"), 3);
    menu.CheckMenuItem(0, 8);
    menu.AppendMenuW(0, QStringLiteral("A"), QStringLiteral("A"));
    menu.InsertMenuW(id("S"), 0, QStringList(), QStringList());
    menu.CheckMenuRadioItem(id("A"), id("B"), id("A"), 0);
    menu.DeleteMenu(0);
    menu.ShowMenuItem();
    EXPECT_EQ(menu.GetMenuItemCount(), 0);
}

TEST_F(TableMenus, Loading_again_and_DestroyMenu_delete_what_was_loaded) {
    load("IDR_TABLECELL_MENU");
    const QPointer<QMenu> first = menu.popup();
    load("IDR_TABLESTYLE_MENU");
    EXPECT_TRUE(first.isNull());
    const QPointer<QMenu> second = menu.popup();
    menu.DestroyMenu();
    EXPECT_TRUE(second.isNull());
    EXPECT_EQ(menu.popup(), nullptr);
    menu.DestroyMenu();
    load("IDR_TABLESTYLE_MENU");
    EXPECT_NE(menu.popup(), nullptr) << "the creator is used again";
}

TEST_F(TableMenus, DestroyMenu_leaves_a_menu_without_a_name) {
    makeThree();
    menu.DestroyMenu();
    EXPECT_EQ(menu.GetMenuItemCount(), 3);
}

TEST_F(TableMenus, A_tree_is_built_below_the_parent_where_there_is_one) {
    QWidget parent;
    TableMenu child(&parent);
    child.LoadMenuW(kFile, QStringLiteral("IDR_TABLECELL_MENU"));
    EXPECT_EQ(child.popup()->parentWidget(), &parent);
    load("IDR_TABLECELL_MENU");
    EXPECT_EQ(menu.popup()->parentWidget(), &menu);
}

TEST_F(TableMenus, EnableMenuItem_disables_by_either_of_the_two_low_bits_by_name_and_by_position) {
    load("IDR_TABLECELL_MENU");
    const auto cell = menu.GetSubMenu(0);
    for (const unsigned flags : {1U, 2U, 3U, 1025U, 1027U}) {
        cell->EnableMenuItem(0, flags);
        cell->EnableMenuItem(id("IDR_BYROW_DELETE"), flags);
        EXPECT_EQ(disabledIn(*cell->popup()), (ItemNames{"IDR_TABLECELL_CUT", "IDR_BYROW_DELETE"})) << flags;
        cell->EnableMenuItem(0, 1024);
        cell->EnableMenuItem(id("IDR_BYROW_DELETE"), 0);
        EXPECT_TRUE(disabledIn(*cell->popup()).empty());
    }
    for (const int position : {-1, 18, 1840, INT_MAX, INT_MIN}) cell->EnableMenuItem(position, 3);
    cell->EnableMenuItem(id("IDR_NOTHING"), 3);
    EXPECT_TRUE(disabledIn(*cell->popup()).empty());
}

TEST_F(TableMenus, CheckMenuItem_checks_and_unchecks_by_name_and_by_position) {
    makeThree();
    menu.AppendMenuW(0x800, {}, {});
    menu.CheckMenuItem(id("A"), 8);
    menu.CheckMenuItem(2, 8);
    for (const int position : {-1, 3, 4}) menu.CheckMenuItem(position, 8);
    EXPECT_EQ(checkedIn(menu), (ItemNames{"A", "C"}));
    menu.CheckMenuItem(2, 0);
    menu.CheckMenuItem(id("A"), 0);
    menu.CheckMenuItem(id("D"), 8);
    EXPECT_TRUE(checkedIn(menu).empty());
}

TEST_F(TableMenus, CheckMenuRadioItem_keeps_one_item_of_the_group_checked) {
    load("IDR_TABLECELL_MENU");
    const auto cell = menu.GetSubMenu(0);
    const auto check = [&](const char* name) {
        cell->CheckMenuRadioItem(id("IDR_LOCKING_CONTENTFORMATLOCKED"), id("IDR_LOCKING_UNLOCKED"), id(name), 0);
    };
    check("IDR_LOCKING_FORMATLOCKED");
    EXPECT_EQ(checkedIn(*cell->popup()), ItemNames{"IDR_LOCKING_FORMATLOCKED"});
    check("IDR_LOCKING_UNLOCKED");
    EXPECT_EQ(checkedIn(*cell->popup()), ItemNames{"IDR_LOCKING_UNLOCKED"});
    itemNamed(*cell->popup(), "IDR_LOCKING_CONTENTLOCKED")->setChecked(true);
    EXPECT_EQ(checkedIn(*cell->popup()), ItemNames{"IDR_LOCKING_CONTENTLOCKED"});
    check("IDR_NOTHING");
    cell->CheckMenuRadioItem(id("IDR_NOTHING"), id("IDR_LOCKING_UNLOCKED"), id("IDR_LOCKING_UNLOCKED"), 0);
    EXPECT_EQ(checkedIn(*cell->popup()), ItemNames{"IDR_LOCKING_CONTENTLOCKED"});
}

TEST_F(TableMenus, AppendMenuW_adds_separators_and_enabled_or_disabled_items_and_nothing_for_other_flags) {
    menu.CreatePopupMenu();
    menu.AppendMenuW(0, QStringLiteral("A"), QStringLiteral("First"));
    menu.AppendMenuW(0x800, QStringLiteral("X"), QStringLiteral("X"));
    menu.AppendMenuW(1, QStringLiteral("B"), QStringLiteral("Second"));
    menu.AppendMenuW(3, QStringLiteral("C"), QStringLiteral("Third"));
    for (const unsigned flags : {2U, 8U, 1024U}) menu.AppendMenuW(flags, QStringLiteral("X"), QStringLiteral("X"));
    EXPECT_EQ(ids(menu), (Ids{"A", "", "B", "C"}));
    EXPECT_TRUE(menu.actions()[1]->isSeparator());
    EXPECT_EQ(disabledIn(menu), (ItemNames{"B", "C"}));
    menu.AppendMenuW(0, QStringLiteral("IDR_MERGE_ALL"), QStringLiteral("Merge"));
    menu.actions().last()->trigger();
    EXPECT_EQ(noting.commands, std::vector{1816U});
}

TEST_F(TableMenus, CreatePopupMenu_empties_the_menu_that_there_was) {
    makeThree();
    menu.CreatePopupMenu();
    EXPECT_EQ(menu.GetMenuItemCount(), 0);
    load("IDR_TABLECELL_MENU");
    const QPointer<QMenu> loaded = menu.popup();
    menu.CreatePopupMenu();
    EXPECT_TRUE(loaded.isNull());
    EXPECT_EQ(menu.popup(), &menu);
    makeThree();
    menu.DestroyMenu();
    EXPECT_EQ(menu.GetMenuItemCount(), 3) << "nor has it the name any more that was loaded";
}

TEST_F(TableMenus, Items_and_sub_menus_are_put_in_before_a_position_and_taken_out_by_name_and_position) {
    makeThree();
    TableMenu below;
    below.CreatePopupMenu();
    below.AppendMenuW(0, QStringLiteral("B1"), QStringLiteral("Below"));
    menu.InsertMenuW(id("S"), 1, below, QStringLiteral("Sub-menu"));
    EXPECT_EQ(ids(menu), (Ids{"A", "S", "B", "C"}));
    EXPECT_EQ(menu.actions()[1]->text(), QStringLiteral("Sub-menu"));
    menu.InsertMenuW(id("IDR_ODD"), 90, {QStringLiteral("IDR_MERGE_ALL"), QStringLiteral("N")},
                     {QStringLiteral("Merge")});
    EXPECT_EQ(ids(menu), (Ids{"A", "S", "B", "C", "IDR_ODD"}));
    const auto odd = menu.GetSubMenu(4);
    EXPECT_EQ(ids(*odd), (Ids{"IDR_MERGE_ALL", "N"}));
    EXPECT_EQ(odd->popup()->actions()[1]->text(), QStringLiteral("N"));
    odd->popup()->actions()[0]->trigger();
    EXPECT_EQ(noting.commands, std::vector{1816U});

    const QPointer<QAction> item = itemNamed(*odd->popup(), "N");
    menu.DeleteMenu(id("N"));
    EXPECT_TRUE(item.isNull());
    EXPECT_EQ(ids(*odd), Ids{"IDR_MERGE_ALL"});
    menu.DeleteMenu(id("S"));
    EXPECT_EQ(ids(menu), (Ids{"A", "B", "C", "IDR_ODD"}));
    EXPECT_EQ(below.GetMenuItemCount(), 1) << "a popup that was put in stays its owner's";
    const QPointer<QMenu> made = odd->popup();
    menu.DeleteMenu(3);
    EXPECT_TRUE(made.isNull()) << "one that was made goes with its item";
    menu.DeleteMenu(0);
    menu.DeleteMenu(7);
    menu.DeleteMenu(id("IDR_NONE"));
    menu.DeleteMenuItem(nullptr);
    menu.InsertMenuItemW(0, nullptr);
    EXPECT_EQ(ids(menu), (Ids{"B", "C"}));
}

TEST_F(TableMenus, Sub_menus_are_wrapped_and_their_own_new_items_call_the_same_context) {
    load("IDR_TABLESTYLE_MENU");
    const auto table = menu.GetSubMenu(0);
    EXPECT_EQ(menu.GetSubMenu(1), nullptr);
    EXPECT_EQ(menu.GetSubMenu(-1), nullptr);
    EXPECT_EQ(table->GetSubMenu(1), nullptr) << "a separator";
    const auto list = table->GetSubMenu(0);
    list->AppendMenuW(0, QStringLiteral("IDR_MERGE_BYROW"), QStringLiteral("By row"));
    list->popup()->actions()[0]->trigger();
    EXPECT_EQ(noting.commands, std::vector{1817U});
}

TEST_F(TableMenus, Without_a_context_or_a_sender_a_click_does_nothing) {
    menu.OnMenuClicked();
    menu.SetonCommand(nullptr);
    load("IDR_TABLECELL_MENU");
    itemNamed(*menu.popup(), "IDR_MERGE_ALL")->trigger();
    EXPECT_TRUE(noting.commands.empty());
}

TEST_F(TableMenus, ShowMenuItem_opens_at_the_cursor_and_answers_to_mnemonics) {
    load("IDR_TABLECELL_MENU");
    const auto cell = menu.GetSubMenu(0);
    QCursor::setPos(40, 30);
    QTimer::singleShot(0, &menu, [&] {
        EXPECT_EQ(QApplication::activePopupWidget(), cell->popup());
        EXPECT_EQ(cell->popup()->pos(), QPoint(40, 30));
        QTest::keyClick(cell->popup(), Qt::Key_D);
    });
    cell->ShowMenuItem();
    EXPECT_EQ(noting.commands, std::vector{1863U});
}

}  // namespace
}  // namespace kdtest
