// The lists of styles in the context menus of tables.

#include "host/rx/commandstack.h"
#include "kd/ad/document.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/tablestyle.h"
#include "module/core/resources.h"
#include "tests/ui/context/fixture.h"

namespace kdtest {
namespace {

class ListsOfStyles : public ContextMenus {
protected:
    KdDbObjectId addStyle(const wchar_t* name, const std::vector<std::wstring>& cellStyles = {}) {
        auto* style = new KdDbTableStyle;
        for (const std::wstring& cellStyle : cellStyles) style->createCellStyle(cellStyle.c_str(), L"_DATA");
        KdDbObjectId id;
        EXPECT_EQ(style->postTableStyleToDb(&host.database(), name, id), Kdad::eOk);
        style->close();
        return id;
    }
    KdDbObjectId tableOf(KdDbObjectId style, const char* selection = nullptr) {
        const KdDbObjectId table = put(TableBuilder(3, 3));
        OpenObject<KdDbTable>(table, KdDb::kForWrite)->setTableStyle(style);
        if (selection != nullptr) select(table, selection);
        return table;
    }

    struct Item {
        std::string name;
        std::string text;
        bool checked;
        friend bool operator==(const Item&, const Item&) = default;
        friend void PrintTo(const Item& item, std::ostream* out) {
            *out << item.name << " \"" << item.text << "\"" << (item.checked ? " checked" : "");
        }
    };
    static std::vector<Item> itemsOf(const QMenu* list) {
        std::vector<Item> items;
        for (const QAction* item : list->actions()) {
            const std::string name = item->isSeparator() ? "-" : item->objectName().toStdString();
            items.push_back({name, item->text().toStdString(), item->isChecked()});
        }
        return items;
    }
    std::vector<Item> tableStyles(KdDbObjectId table) { return itemsOf(ask(table)->actions()[0]->menu()); }
};

TEST_F(ListsOfStyles, Table_styles_stand_with_the_standard_one_first_and_then_in_the_order_of_the_dictionary) {
    addStyle(L"Walls");
    addStyle(L"Areas");
    addStyle(L"R&D");
    const KdDbObjectId table = put(TableBuilder(2, 2));
    EXPECT_EQ(tableStyles(table), (std::vector<Item>{{"TABLESTYLE_BEGININDEX", "Standard", true},
                                                     {"ABLESTYLE_BEGININDEX", "Areas", false},
                                                     {"BLESTYLE_BEGININDEX", "R&&D", false},
                                                     {"LESTYLE_BEGININDEX", "Walls", false}}));
}

TEST_F(ListsOfStyles, The_table_style_in_use_is_checked) {
    const KdDbObjectId walls = addStyle(L"Walls");
    addStyle(L"Areas");
    EXPECT_EQ(tableStyles(tableOf(walls)), (std::vector<Item>{{"TABLESTYLE_BEGININDEX", "Standard", false},
                                                              {"ABLESTYLE_BEGININDEX", "Areas", false},
                                                              {"BLESTYLE_BEGININDEX", "Walls", true}}));
}

TEST_F(ListsOfStyles, A_drawing_without_the_standard_style_lists_the_others_from_the_first_place_on) {
    const KdDbObjectId walls = addStyle(L"Walls");
    const KdDbObjectId table = tableOf(walls);
    KdDbDictionary* styles = nullptr;
    ASSERT_EQ(host.database().getTableStyleDictionary(styles, KdDb::kForWrite), Kdad::eOk);
    ASSERT_TRUE(styles->setName(L"Standard", L"Another"));
    styles->close();
    EXPECT_EQ(tableStyles(table), (std::vector<Item>{{"TABLESTYLE_BEGININDEX", "Another", false},
                                                     {"ABLESTYLE_BEGININDEX", "Walls", true}}));
}

TEST_F(ListsOfStyles, Without_the_dictionary_the_list_of_table_styles_is_empty) {
    const KdDbObjectId table = put(TableBuilder(2, 2));
    kdhost::faults().noTableStyleDictionary = true;
    EXPECT_TRUE(tableStyles(table).empty());
    kdhost::faults().noTableStyleDictionary = false;
}

TEST_F(ListsOfStyles, A_table_style_that_cannot_be_opened_is_not_checked) {
    const KdDbObjectId walls = addStyle(L"Walls");
    const KdDbObjectId table = tableOf(walls);
    const OpenObject<KdDbTableStyle> writer(walls, KdDb::kForWrite);
    for (const Item& item : tableStyles(table)) EXPECT_FALSE(item.checked) << item.text;
}

TEST_F(ListsOfStyles, More_table_styles_than_the_literal_has_letters_have_names_of_their_own_too) {
    for (int i = 0; i < 60; ++i) addStyle((L"Style " + std::to_wstring(100 + i)).c_str());
    const std::vector<Item> items = tableStyles(put(TableBuilder(2, 2)));
    ASSERT_EQ(items.size(), 61U);
    std::set<std::string> names;
    for (const Item& item : items) {
        EXPECT_FALSE(item.name.empty());
        names.insert(item.name);
    }
    EXPECT_EQ(names.size(), 61U);
    for (const MenuCommand& row : TableResArr) EXPECT_FALSE(names.contains(row.objectName));
}

TEST_F(ListsOfStyles, A_click_on_a_table_style_does_nothing_while_the_hosts_number_of_its_place_changes_the_style) {
    const KdDbObjectId walls = addStyle(L"Walls");
    const KdDbObjectId table = put(TableBuilder(2, 2));
    QMenu* menu = ask(table);
    choose(*menu, "ABLESTYLE_BEGININDEX");
    EXPECT_EQ(look(table).tableStyle(), host.database().tablestyle());
    EXPECT_EQ(context.tableId(), table);
    context.onCommand(51001);
    EXPECT_EQ(look(table).tableStyle(), walls);
    EXPECT_TRUE(context.tableId().isNull());
    EXPECT_EQ(steps().size(), 1U);
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(look(table).tableStyle(), host.database().tablestyle());
}

TEST_F(ListsOfStyles, The_hosts_number_works_on_cells_too_and_numbers_outside_the_list_do_nothing) {
    const KdDbObjectId walls = addStyle(L"Walls");
    const KdDbObjectId table = tableOf(walls);
    for (const unsigned command : {50999U, 51002U, 51003U, 60000U, 4294967295U}) {
        ask(table);
        context.onCommand(command);
        EXPECT_EQ(look(table).tableStyle(), walls) << command;
        EXPECT_TRUE(context.tableId().isNull());
    }
    select(table, "A1");
    ask(table);
    context.onCommand(51000);
    EXPECT_EQ(look(table).tableStyle(), host.database().tablestyle());
}

TEST_F(ListsOfStyles, A_table_style_that_is_gone_or_a_table_in_use_keeps_the_style) {
    const KdDbObjectId walls = addStyle(L"Walls");
    const KdDbObjectId table = put(TableBuilder(2, 2));
    const KdDbObjectId standard = host.database().tablestyle();
    ask(table);
    {
        const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
        context.onCommand(51001);
    }
    EXPECT_EQ(look(table).tableStyle(), standard);
    ask(table);
    kdhost::faults().noTableStyleDictionary = true;
    context.onCommand(51001);
    kdhost::faults().noTableStyleDictionary = false;
    EXPECT_EQ(look(table).tableStyle(), standard);
    ask(table);
    OpenObject<KdDbTableStyle>(walls, KdDb::kForWrite)->erase();
    context.onCommand(51001);
    EXPECT_EQ(look(table).tableStyle(), standard);
}

TEST_F(ListsOfStyles, Without_a_working_drawing_the_list_of_table_styles_is_empty_and_the_style_stays) {
    const KdDbObjectId walls = addStyle(L"Walls");
    const KdDbObjectId table = tableOf(walls);
    KdDbHostApplicationServices* services = kddbHostApplicationServices();
    const auto withoutDrawing = [&](const auto& act) {
        services->setWorkingDatabase(nullptr);
        act();
        services->setWorkingDatabase(&host.database());
    };
    withoutDrawing([&] { EXPECT_TRUE(tableStyles(table).empty()); });
    ask(table);
    withoutDrawing([&] { context.onCommand(51000); });
    EXPECT_EQ(look(table).tableStyle(), walls);
    EXPECT_TRUE(context.tableId().isNull());
}

std::function<void()> changeStyle;

TEST_F(ListsOfStyles, While_the_document_cannot_be_locked_the_table_style_stays) {
    const KdDbObjectId walls = addStyle(L"Walls");
    const KdDbObjectId table = tableOf(walls);
    ask(table);
    kdhost::Document& first = host.document();
    kdhost::Document& second = host.documents().openNew();
    changeStyle = [&] {
        host.documents().activate(first);
        context.onCommand(51000);
        host.documents().activate(second);
    };
    kdhost::commandStack().addCommand(
        L"TEST", L"CHANGESTYLE", L"CHANGESTYLE", 0, [] { changeStyle(); }, nullptr, -1, nullptr, nullptr);
    host.run(L"CHANGESTYLE\n");
    kdhost::commandStack().removeGroup(L"TEST");
    EXPECT_EQ(look(table).tableStyle(), walls);
    EXPECT_TRUE(context.tableId().isNull());
}

// The cell styles.

TEST_F(ListsOfStyles, A_row_indicators_menu_offers_the_cell_styles_at_position_16) {
    const KdDbObjectId table = tableOf(addStyle(L"Walls", {L"Notes", L"R&D"}));
    moveToRowIndicator(1);
    const QMenu* menu = ask(table);
    ASSERT_EQ(menu->actions().size(), 17);
    const QAction* list = menu->actions()[16];
    EXPECT_EQ(list->objectName(), QStringLiteral("IDR_TABLECELL_CELLSTYLE"));
    EXPECT_EQ(list->text(), QStringLiteral("Cell &Style"));
    EXPECT_EQ(itemsOf(list->menu()), (std::vector<Item>{{"IDR_TABLEDIT_CELLSTYLE_BASE", "Title", false},
                                                        {"DR_TABLEDIT_CELLSTYLE_BASE", "Header", false},
                                                        {"R_TABLEDIT_CELLSTYLE_BASE", "Data", false},
                                                        {"_TABLEDIT_CELLSTYLE_BASE", "Notes", false},
                                                        {"TABLEDIT_CELLSTYLE_BASE", "R&&D", false}}));
}

TEST_F(ListsOfStyles, A_column_indicators_list_begins_with_the_item_that_follows_the_rows) {
    const KdDbObjectId table = tableOf(addStyle(L"Walls"));
    moveToColumnIndicator(1);
    const QMenu* menu = ask(table);
    EXPECT_EQ(itemsOf(menu->actions()[16]->menu()),
              (std::vector<Item>{{"IDR_TABLEDIT_CELLSTYLE_TITLE", "By Row", false},
                                 {"IDR_TABLEDIT_CELLSTYLE_BASE", "Title", false},
                                 {"DR_TABLEDIT_CELLSTYLE_BASE", "Header", false},
                                 {"R_TABLEDIT_CELLSTYLE_BASE", "Data", false}}));
}

TEST_F(ListsOfStyles, The_cell_style_in_use_is_not_checked_and_a_click_on_one_does_nothing) {
    const KdDbObjectId table = tableOf(addStyle(L"Walls", {L"Notes"}));
    {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        for (int column = 0; column < 3; ++column) open->setCellStyle(1, column, L"Notes");
    }
    moveToRowIndicator(1);
    const std::string before = describe(look(table));
    QMenu* menu = ask(table);
    EXPECT_TRUE(checkedIn(*menu).empty());
    choose(*menu, "IDR_TABLEDIT_CELLSTYLE_BASE");
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(context.tableId(), table);
}

TEST_F(ListsOfStyles, A_table_style_that_cannot_be_opened_leaves_the_indicators_menu_without_cell_styles) {
    const KdDbObjectId walls = addStyle(L"Walls");
    const KdDbObjectId table = tableOf(walls);
    const OpenObject<KdDbTableStyle> writer(walls, KdDb::kForWrite);
    moveToRowIndicator(1);
    EXPECT_EQ(ask(table)->actions().size(), 16);
}

TEST_F(ListsOfStyles, The_list_for_cells_may_save_the_style_of_a_single_cell_and_stands_at_position_19) {
    const KdDbObjectId id = tableOf(addStyle(L"Walls"), "B2");
    for (const char* selected : {"B2", "B2:C2"}) {
        select(id, selected);
        const OpenObject<KdDbTable> table(id, KdDb::kForRead);
        const ResourceScope resources;
        TableMenu parent;
        parent.CreatePopupMenu();
        for (int i = 0; i < 25; ++i) parent.AppendMenuW(0x800, {}, {});
        EXPECT_TRUE(context.addCellStyleMenu(parent, *table, KdDb::kTableHitCell, false));
        const QAction* list = parent.actions()[19];
        EXPECT_EQ(list->objectName(), QStringLiteral("IDR_TABLECELL_CELLSTYLE"));
        const std::vector<Item> items = itemsOf(list->menu());
        ASSERT_EQ(items.size(), 6U);
        EXPECT_EQ(items[0], (Item{"IDR_TABLEDIT_CELLSTYLE_TITLE", "By Row/Column", false}));
        EXPECT_EQ(items[4].name, "-");
        EXPECT_EQ(items[5], (Item{"IDR_TABLEDIT_CELLSTYLE_SAVEAS", "&Save as New Cell Style...", false}));
        EXPECT_EQ(disabledIn(*list->menu()).contains("IDR_TABLEDIT_CELLSTYLE_SAVEAS"),
                  std::string(selected) == "B2:C2");
    }
}

TEST_F(ListsOfStyles, Default_cell_styles_have_the_names_of_the_language) {
    kdhost::setLanguage(kdhost::Language::Chinese);
    const KdDbObjectId table = put(TableBuilder(3, 3));
    moveToColumnIndicator(1);
    const std::vector<Item> items = itemsOf(ask(table)->actions()[16]->menu());
    ASSERT_EQ(items.size(), 4U);
    EXPECT_EQ(items[0].text, "随行");
    EXPECT_EQ(items[1].text, "标题");
    EXPECT_EQ(items[2].text, "表头");
    EXPECT_EQ(items[3].text, "数据");
}

}  // namespace
}  // namespace kdtest
