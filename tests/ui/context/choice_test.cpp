// Which menu a right click on a table gets.

#include "host/rx/commandstack.h"
#include "kd/ad/document.h"
#include "tests/ui/context/fixture.h"

namespace kdtest {
namespace {

using ChoiceOfMenu = ContextMenus;

std::string titleOf(const QMenu* menu) {
    return menu == nullptr ? std::string() : menu->objectName().toStdString();
}

TEST_F(ChoiceOfMenu, A_table_without_selected_cells_gets_the_menu_of_the_table) {
    const KdDbObjectId table = put(TableBuilder(3, 3));
    EXPECT_EQ(titleOf(ask(table)), "IDR_TABLESTYLE_POPUP");
    EXPECT_EQ(context.tableId(), table);
}

TEST_F(ChoiceOfMenu, Selected_cells_get_the_menu_of_cells) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("B2"));
    EXPECT_EQ(titleOf(ask(table)), "IDR_TABLECELL_POPUP");
    EXPECT_EQ(context.tableId(), table);
}

TEST_F(ChoiceOfMenu, No_object_and_two_or_more_get_none) {
    const KdDbObjectId first = put(TableBuilder(3, 3).select("B2"));
    const KdDbObjectId second = put(TableBuilder(3, 3));
    ask(first);
    EXPECT_EQ(ask(std::vector<KdDbObjectId>{}), nullptr);
    EXPECT_TRUE(context.tableId().isNull()) << "the table before is given up";
    EXPECT_EQ(ask({first, second}), nullptr);
    EXPECT_EQ(ask({first, second, first}), nullptr);
    EXPECT_TRUE(context.tableId().isNull());
}

TEST_F(ChoiceOfMenu, What_cannot_be_opened_gets_none) {
    const KdDbObjectId table = put(TableBuilder(3, 3));
    EXPECT_EQ(ask(KdDbObjectId::kNull), nullptr);
    EXPECT_EQ(ask(host.database().clayer()), nullptr) << "no table";
    {
        const OpenObject<KdDbTable> writer(table, KdDb::kForWrite);
        EXPECT_EQ(ask(table), nullptr);
    }
    EXPECT_TRUE(context.tableId().isNull());
    // The first open is for the indicators, the second for the menu.
    kdhost::faults().failOpenNumber = 1;
    EXPECT_EQ(titleOf(ask(table)), "IDR_TABLESTYLE_POPUP");
    kdhost::faults().failOpenNumber = 2;
    EXPECT_EQ(ask(table), nullptr);
    kdhost::faults().failOpenNumber = 0;
}

TEST_F(ChoiceOfMenu, A_row_indicator_selects_its_whole_row_first_and_gets_a_menu_of_its_own) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("A1:B2"));
    moveToRowIndicator(2);
    EXPECT_EQ(titleOf(ask(table)), "IDR_BYROW_POPUP");
    EXPECT_EQ(selection(table), (KdCellRange{2, -1, 2, -1}));
    EXPECT_EQ(context.tableId(), table);
    EXPECT_FALSE(host.document().unlock()) << "its document isn't locked any more";
    EXPECT_TRUE(steps().empty()) << "a selection is no step of undo";
}

TEST_F(ChoiceOfMenu, A_column_indicator_selects_its_whole_column_first_and_gets_a_menu_of_its_own) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("A1:B2"));
    moveToColumnIndicator(1);
    EXPECT_EQ(titleOf(ask(table)), "IDR_BYCOLUMN_POPUP");
    EXPECT_EQ(selection(table), (KdCellRange{-1, 1, -1, 1}));
    EXPECT_FALSE(host.document().unlock());
}

TEST_F(ChoiceOfMenu, An_indicator_counts_without_selected_cells_too) {
    const KdDbObjectId table = put(TableBuilder(3, 3));
    moveToRowIndicator(0);
    EXPECT_EQ(titleOf(ask(table)), "IDR_BYROW_POPUP");
    EXPECT_EQ(selection(table), (KdCellRange{0, -1, 0, -1}));
}

TEST_F(ChoiceOfMenu, A_click_on_a_cell_keeps_the_selection_and_gets_the_menu_of_cells) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("A1:B2"));
    moveCursor(115.0, 190.0);
    EXPECT_EQ(titleOf(ask(table)), "IDR_TABLECELL_POPUP");
    EXPECT_EQ(selection(table), cells("A1:B2"));
}

TEST_F(ChoiceOfMenu, Without_a_view_no_indicator_is_hit) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("A1:B2"));
    moveToRowIndicator(2);
    kdhost::faults().noView = true;
    EXPECT_EQ(titleOf(ask(table)), "IDR_TABLECELL_POPUP");
    kdhost::faults().noView = false;
    EXPECT_EQ(selection(table), cells("A1:B2"));
}

TEST_F(ChoiceOfMenu, A_table_that_cannot_be_written_keeps_its_selection_and_gets_the_menu_of_the_indicator) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("A1:B2"));
    const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
    moveToRowIndicator(2);
    EXPECT_EQ(titleOf(ask(table)), "IDR_BYROW_POPUP");
    EXPECT_EQ(selection(table), cells("A1:B2"));
}

std::function<void()> inCommand;
void runInCommand() {
    inCommand();
}

TEST_F(ChoiceOfMenu, An_indicator_whose_document_cannot_be_locked_is_passed_over_and_the_table_stays_open) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("A1:B2"));
    moveToRowIndicator(2);
    kdhost::Document& first = host.document();
    kdhost::Document& second = host.documents().openNew();
    std::string shown;
    bool isOpen = false;
    inCommand = [&] {
        host.documents().activate(first);
        shown = titleOf(ask(table));
        isOpen = kdhost::peek<KdDbTable>(table)->isReadEnabled();
        const_cast<KdDbTable*>(kdhost::peek<KdDbTable>(table))->close();
        host.documents().activate(second);
    };
    kdhost::commandStack().addCommand(L"TEST", L"ASKMENU", L"ASKMENU", 0, runInCommand, nullptr, -1, nullptr, nullptr);
    host.run(L"ASKMENU\n");
    kdhost::commandStack().removeGroup(L"TEST");
    EXPECT_EQ(shown, "IDR_TABLECELL_POPUP");
    EXPECT_EQ(selection(table), cells("A1:B2"));
    EXPECT_TRUE(isOpen);
}

TEST_F(ChoiceOfMenu, Both_menus_are_built_anew_for_each_click_and_stay_between) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("B2"));
    const QPointer<QMenu> first = ask(table);
    context.onCommand(1848);
    EXPECT_FALSE(first.isNull());
    const QPointer<QMenu> second = ask(table);
    EXPECT_TRUE(first.isNull());
    moveToColumnIndicator(0);
    const QPointer<QMenu> third = ask(table);
    EXPECT_TRUE(second.isNull());
    EXPECT_EQ(ask(std::vector<KdDbObjectId>{}), nullptr);
    EXPECT_TRUE(third.isNull()) << "also when the click gets no menu";
}

TEST_F(ChoiceOfMenu, A_missing_resource_module_gives_no_menu) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("B2"));
    FreeLibrary(hLibModule);
    hLibModule = nullptr;
    EXPECT_EQ(ask(table), nullptr);
    moveToRowIndicator(0);
    EXPECT_EQ(ask(table), nullptr);
    hLibModule = LoadResourceDll(L"TvxTableRes.dll");
    EXPECT_NE(ask(table), nullptr);
}

TEST_F(ChoiceOfMenu, A_table_that_grows_upwards_has_its_indicators_where_its_rows_are) {
    const KdDbObjectId table = put(TableBuilder(3, 3).select("B2"));
    OpenObject<KdDbTable>(table, KdDb::kForWrite)->setFlowDirection(1);
    moveCursor(96.0, 210.0);
    EXPECT_EQ(titleOf(ask(table)), "IDR_BYROW_POPUP");
    EXPECT_EQ(selection(table), (KdCellRange{0, -1, 0, -1}));
}

TEST_F(ChoiceOfMenu, The_form_without_a_table_gives_none) {
    KdEdUIContext& base = context;
    EXPECT_EQ(base.getMenuContext(), nullptr);
    base.OnUpdateMenu();
}

}  // namespace
}  // namespace kdtest
