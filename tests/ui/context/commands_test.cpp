// What choosing an item does: each of the 37 rows against the operation that it stands for, called on an equal table.

#include "host/ui/dialogs/colorpalette.h"
#include "kd/ad/mainapp.h"
#include "kd/db/tablestyle.h"
#include "tests/module/edit/typist.h"
#include "tests/support/modalacts.h"
#include "tests/ui/context/fixture.h"

namespace kdtest {
namespace {

using Common = CVqTableCommon;
namespace automation = kdhost::automation;

template <KdDb::CellAlignment alignment>
void align(KdDbObjectId id) {
    Common::SetSelectionAlignment(id, alignment);
}
template <unsigned command>
void setLocks(KdDbObjectId id) {
    Common::SettingLocked(command, id);
}
template <auto operation>
void call(KdDbObjectId id) {
    operation(id);
}

/// An item, what it stands for, and the step of undo that it leaves; none for a null name.
struct Row {
    const char* item;
    void (*operation)(KdDbObjectId table);
    const wchar_t* step;
    const char* selection = "B2:C3";
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.item;
}

const Row kCellRows[] = {
    {"IDR_TABLECELL_CUT", call<Common::CutTableCells>, L"CutTableCell"},
    {"IDR_ALIGNMENT_TOPLEFT", align<KdDb::kTopLeft>, L"ChangeCellAlignment"},
    {"IDR_ALIGNMENT_TOPCENTER", align<KdDb::kTopCenter>, L"ChangeCellAlignment"},
    {"IDR_ALIGNMENT_TOPRIGHT", align<KdDb::kTopRight>, L"ChangeCellAlignment"},
    {"IDR_ALIGNMENT_MIDDLELEFT", align<KdDb::kMiddleLeft>, L"ChangeCellAlignment"},
    {"IDR_ALIGNMENT_MIDDLECENTER", align<KdDb::kMiddleCenter>, L"ChangeCellAlignment"},
    {"IDR_ALIGNMENT_MIDDLERIGHT", align<KdDb::kMiddleRight>, L"ChangeCellAlignment"},
    {"IDR_ALIGNMENT_BOTTOMLEFT", align<KdDb::kBottomLeft>, L"ChangeCellAlignment"},
    {"IDR_ALIGNMENT_BOTTOMCENTER", align<KdDb::kBottomCenter>, L"ChangeCellAlignment"},
    {"IDR_ALIGNMENT_BOTTOMRIGHT", align<KdDb::kBottomRight>, L"ChangeCellAlignment"},
    {"IDR_LOCKING_UNLOCKED", setLocks<1819>, L"EditCellLock", "D4"},
    {"IDR_LOCKING_CONTENTLOCKED", setLocks<1820>, L"EditCellLock"},
    {"IDR_LOCKING_FORMATLOCKED", setLocks<1821>, L"EditCellLock"},
    {"IDR_LOCKING_CONTENTFORMATLOCKED", setLocks<1822>, L"EditCellLock"},
    {"IDR_TABLECELL_EDITTEXT", call<Common::TableEdit>, L"TableEdit", "B2"},
    {"IDR_TABLECELL_DELETEALLCONTENT", call<Common::DeleteContent>, L"DeleteContent"},
    {"IDR_BYCOLUMN_LEFTINSERT", call<Common::InsertColumnByLeft>, L"LeftInsert"},
    {"IDR_BYCOLUMN_RIGHTINSERT", call<Common::InsertColumnByRight>, L"RightInsert"},
    {"IDR_BYCOLUMN_DELETE", call<Common::DeleteColumns>, L"DeleteColumn", "B1:C2"},
    {"IDR_BYCOLUMN_SIZEEQUALLY", call<Common::SizeColumnsEvenly>, L"SizeColumnsEvenly"},
    {"IDR_BYROW_ABOVEINSERT", call<Common::InsertRowByAbove>, L"AboveInsert"},
    {"IDR_BYROW_BELOWINSERT", call<Common::InsertRowByBelow>, L"BelowInsert"},
    {"IDR_BYROW_DELETE", call<Common::DeleteRows>, L"DeleteRows"},
    {"IDR_BYROW_SIZEEQUALLY", call<Common::SizeRowsEvenly>, L"SizeRowsEvenly"},
    {"IDR_MERGE_ALL", call<Common::MergeAll>, L"MergeCell"},
    {"IDR_MERGE_BYROW", call<Common::MergeByRow>, L"MergeByRow"},
    {"IDR_MERGE_BYCOLUMN", call<Common::MergeByColumn>, L"MergeByColumn"},
    {"IDR_TABLECELL_UNMERGE", call<Common::UnmergeCells>, L"UMergeCell", "A4:B4"},
};

const Row kTableRows[] = {
    {"IDR_BYCOLUMN_SIZEEQUALLY", call<Common::SizeColumnsEvenly>, L"SizeColumnsEvenly", nullptr},
    {"IDR_BYROW_SIZEEQUALLY", call<Common::SizeRowsEvenly>, L"SizeRowsEvenly", nullptr},
    {"IDR_TABLESTYLE_SAVESTYLE", call<Common::SaveAsNewTableStyle>, nullptr, nullptr},
    {"IDR_TABLESTYLE_SETCURRENTSTYLE", call<Common::SetCurrentTableStyleAsTable>, nullptr, nullptr},
    {"IDR_TABLESTYLE_REMOVEOVERRIDES", call<Common::ClearTableStyleOverrides>, L"ClearTableOverride", nullptr},
};

class CommandsOfMenus : public ContextMenus {
protected:
    void TearDown() override {
        m_dialogs.expectAllCame();
        lockLayer(false);
        ContextMenus::TearDown();
    }

    /// Uneven, filled, with a merge, a lock and overrides.
    KdDbObjectId addSample(const char* selection) {
        auto made = TableBuilder(5, 4)
                        .fill()
                        .merge("A4:B4")
                        .lock("D4")
                        .align("A1:D5", KdDb::kTopLeft)
                        .align("B2", KdDb::kBottomRight)
                        .rowHeight(1, 33.0)
                        .columnWidth(2, 55.0)
                        .style(host.database().tablestyle())
                        .build();
        // Alignments that no row sets to what is there already.
        made->setAlignment(2, 2, KdDb::kMiddleLeft);
        made->setBackgroundColor(0, 0, KdCmColor::fromIndex(3));
        made->setPosition({1000.0 * m_samples++, 0.0, 0.0});
        const KdDbObjectId id = add(std::move(made));
        if (selection != nullptr) select(id, selection);
        return id;
    }

    /// Chooses the item for one table and calls the operation on an equal one: both come out equal, and changed if a
    /// step of undo is expected.
    void compare(const Row& row) {
        SCOPED_TRACE(row.item);
        const KdDbObjectId chosen = addSample(row.selection);
        const KdDbObjectId expected = addSample(row.selection);
        const std::string before = describe(look(chosen));
        ASSERT_EQ(before, describe(look(expected)));
        const std::size_t stepsBefore = steps().size();
        {
            BoxAnswers answers({BoxAnswer::Yes});
            row.operation(expected);
        }
        std::vector<std::wstring> expectedSteps = steps();
        expectedSteps.erase(expectedSteps.begin(), expectedSteps.begin() + static_cast<std::ptrdiff_t>(stepsBefore));
        const KdCellRange expectedSelection = selection(expected);
        // Edits that end in another cell select it by a pick, as the one table that has selected cells.
        if (row.selection != nullptr) select(chosen, row.selection);
        QMenu* menu = ask(chosen);
        ASSERT_NE(menu, nullptr);
        {
            BoxAnswers answers({BoxAnswer::Yes});
            choose(*menu, row.item);
        }
        EXPECT_EQ(describe(look(chosen)), describe(look(expected)));
        EXPECT_EQ(selection(chosen), expectedSelection);
        EXPECT_EQ(expectedSteps,
                  row.step == nullptr ? std::vector<std::wstring>{} : std::vector<std::wstring>{row.step});
        EXPECT_EQ(steps().size(), stepsBefore + 2 * expectedSteps.size());
        EXPECT_EQ(describe(look(chosen)) != before, row.step != nullptr);
        EXPECT_TRUE(context.tableId().isNull());
        if (row.step == nullptr) return;
        EXPECT_EQ(steps().back(), row.step);
        EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
        EXPECT_EQ(describe(look(chosen)), before);
    }

    /// Acts on the modal dialog that comes next.
    void next(ModalActs::Act act) { m_dialogs.next(std::move(act)); }
    /// Chooses an item that opens a dialog, which `act` answers.
    void chooseAsking(QMenu& menu, const char* item, ModalActs::Act act) {
        show(menu, [&] {
            next(std::move(act));
            EXPECT_EQ(automation::menu(QString::fromLatin1(item).toStdWString()), L"");
        });
    }

private:
    ModalActs m_dialogs;
    int m_samples = 0;
};

class RowOfCellMenu : public CommandsOfMenus, public ::testing::WithParamInterface<Row> {};
std::string testName(const ::testing::TestParamInfo<Row>& info) {
    return std::string(info.param.item).substr(4);
}
INSTANTIATE_TEST_SUITE_P(Menu, RowOfCellMenu, ::testing::ValuesIn(kCellRows), testName);

TEST_P(RowOfCellMenu, Does_what_the_operation_does) {
    Typist typist;
    typist.types({{L"typed", kMTextEditorTab}, leave(kMTextEditorEscape), {L"typed", kMTextEditorTab}});
    compare(GetParam());
}

class RowOfTableMenu : public CommandsOfMenus, public ::testing::WithParamInterface<Row> {};
INSTANTIATE_TEST_SUITE_P(Menu, RowOfTableMenu, ::testing::ValuesIn(kTableRows), testName);

TEST_P(RowOfTableMenu, Does_what_the_operation_does) {
    compare(GetParam());
}

TEST_F(CommandsOfMenus, Merging_asks_about_the_content_and_a_no_changes_nothing) {
    const KdDbObjectId table = addSample("B2:C3");
    const std::string before = describe(look(table));
    QMenu* menu = ask(table);
    BoxAnswers answers({BoxAnswer::No});
    choose(*menu, "IDR_MERGE_ALL");
    EXPECT_EQ(answers.count(), 1);
    EXPECT_EQ(describe(look(table)), before);
}

TEST_F(CommandsOfMenus, Copy_and_Paste_carry_cells_to_another_table) {
    const KdDbObjectId source = addSample("B2:C3");
    const std::string before = describe(look(source));
    choose(*ask(source), "IDR_TABLECELL_COPY");
    EXPECT_TRUE(context.tableId().isNull());
    EXPECT_EQ(describe(look(source)), before);
    const KdDbObjectId pasted = put(TableBuilder(4, 4).select("A1"));
    const KdDbObjectId expected = put(TableBuilder(4, 4).select("A1"));
    choose(*ask(pasted), "IDR_TABLECELL_PASTE");
    EXPECT_NE(Common::PasteTableCells(expected), 0);
    EXPECT_EQ(describe(look(pasted)), describe(look(expected)));
    EXPECT_STREQ(look(pasted).textString(1, 1), L"C3");
    EXPECT_EQ(steps(), (std::vector<std::wstring>{L"CopyTableCell", L"PasteTable", L"PasteTable"}));
}

TEST_F(CommandsOfMenus, Background_Fill_asks_for_the_colour) {
    const KdDbObjectId table = addSample("B2:C3");
    chooseAsking(*ask(table), "IDR_TABLECELL_BACKGROUNDFILL",
                 [](QWidget&) { EXPECT_EQ(automation::color(L"1,2,3"), L""); });
    EXPECT_EQ(look(table).backgroundColor(2, 2), KdCmColor::fromRgb(1, 2, 3));
    EXPECT_EQ(steps(), std::vector<std::wstring>{L"BackgroundFill"});
}

TEST_F(CommandsOfMenus, Data_Format_asks_for_the_format) {
    const KdDbObjectId table = addSample("B2:C3");
    Common::SetDataType(table, KdValue::kDouble, KdValue::kUnitless);
    chooseAsking(*ask(table), "IDR_TABLECELL_DATAFORMAT", [](QWidget&) {
        EXPECT_EQ(automation::select(L"IDC_DATAFORMAT_UNIT_COMBOBOX", L"Currency"), L"");
        EXPECT_EQ(automation::click(L"IDOK"), L"");
    });
    auto type = KdValue::kUnknown;
    auto unit = KdValue::kUnitless;
    look(table).getDataType(2, 2, type, unit);
    EXPECT_EQ(unit, KdValue::kCurrency);
    EXPECT_EQ(steps().back(), L"SetDataFormat");
}

TEST_F(CommandsOfMenus, Indicator_Color_keeps_the_colour_that_is_chosen) {
    KdCmColor before;
    ASSERT_TRUE(vqcadMainAppService()->tableIndicatorColor(before));
    const KdDbObjectId table = addSample(nullptr);
    lockLayer(true);
    chooseAsking(*ask(table), "IDR_TABLESTYLE_INDICATORCOLOR",
                 [](QWidget&) { EXPECT_EQ(automation::color(L"11,22,33"), L""); });
    KdCmColor after;
    vqcadMainAppService()->tableIndicatorColor(after);
    EXPECT_EQ(after, KdCmColor::fromRgb(11, 22, 33));
    vqcadMainAppService()->setTableIndicatorColor(before);
}

TEST_F(CommandsOfMenus, Export_sends_the_command_also_for_a_locked_table) {
    const KdDbObjectId table = addSample(nullptr);
    choose(*ask(table), "IDR_TABLESTYLE_EXPORT");
    EXPECT_EQ(sent(), L"TABLEEXPORT\n");
    lockLayer(true);
    choose(*ask(table), "IDR_TABLESTYLE_EXPORT");
    EXPECT_EQ(sent(), L"TABLEEXPORT\n");
}

TEST_F(CommandsOfMenus, Borders_and_Match_Cell_do_nothing_from_the_menu_while_the_hosts_numbers_act) {
    const KdDbObjectId table = addSample("B2:C3");
    const std::string before = describe(look(table));
    QMenu* menu = ask(table);
    choose(*menu, "IDR_TABLECELL_BORDERS");
    choose(*menu, "IDR_TABLECELL_MATCHCELL");
    EXPECT_EQ(sent(), L"");
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_EQ(context.tableId(), table);

    context.onCommand(1854);
    EXPECT_EQ(sent(), L"_matchcell\n");
    ask(table);
    bool came = false;
    next([&](QWidget&) {
        came = true;
        EXPECT_EQ(automation::key(L"ESC"), L"");
    });
    context.onCommand(1852);
    EXPECT_TRUE(came);
}

// Numbers of the host that no item has.

struct HostNumber {
    unsigned command;
    Edit operation;
};

TEST_F(CommandsOfMenus, Numbers_of_the_host_without_an_item_do_what_they_stand_for) {
    const HostNumber numbers[] = {{1855, Common::ClearCellOverrides},
                                  {1857, Common::InsertBlock},
                                  {1858, Common::InsertField},
                                  {1860, Common::ManageCellContent},
                                  {40026, nullptr},
                                  {1801, nullptr},
                                  {1823, nullptr},
                                  {9999, nullptr}};
    for (const HostNumber& number : numbers) {
        const KdDbObjectId chosen = addSample("B2:C3");
        const KdDbObjectId expected = addSample("B2:C3");
        if (number.operation != nullptr) number.operation(expected);
        ask(chosen);
        context.onCommand(number.command);
        EXPECT_EQ(describe(look(chosen)), describe(look(expected))) << number.command;
        EXPECT_TRUE(context.tableId().isNull()) << number.command;
    }
    EXPECT_EQ(steps(), (std::vector<std::wstring>{L"ClearCellOverride", L"ClearCellOverride"}));
}

// Tables that grow upwards.

TEST_F(CommandsOfMenus, Above_and_below_are_exchanged_where_the_style_grows_upwards) {
    OpenObject<KdDbTableStyle>(host.database().tablestyle(), KdDb::kForWrite)->setFlowDirection(1);
    compare({"IDR_BYROW_ABOVEINSERT", call<Common::InsertRowByBelow>, L"BelowInsert"});
    compare({"IDR_BYROW_BELOWINSERT", call<Common::InsertRowByAbove>, L"AboveInsert"});
}

TEST_F(CommandsOfMenus, A_style_that_cannot_be_opened_counts_as_growing_downwards) {
    const KdDbObjectId style = host.database().tablestyle();
    OpenObject<KdDbTableStyle>(style, KdDb::kForWrite)->setFlowDirection(1);
    const KdDbObjectId table = addSample("B2");
    ask(table);
    const OpenObject<KdDbTableStyle> writer(style, KdDb::kForWrite);
    context.onCommand(1840);
    EXPECT_EQ(steps().back(), L"AboveInsert");
}

TEST_F(CommandsOfMenus, The_direction_of_the_table_itself_does_not_count) {
    const KdDbObjectId table = addSample("B2");
    OpenObject<KdDbTable>(table, KdDb::kForWrite)->setFlowDirection(1);
    ask(table);
    context.onCommand(1840);
    EXPECT_EQ(steps().back(), L"AboveInsert");
}

// Locked layers.

TEST_F(CommandsOfMenus, On_a_locked_layer_whatever_would_change_the_table_is_dropped_and_the_table_is_kept) {
    const KdDbObjectId table = addSample("B2:C3");
    const std::string before = describe(look(table));
    lockLayer(true);
    std::set<unsigned> passed;
    for (const MenuCommand& row : TableResArr) {
        if (row.command == 1886) continue;  // it asks for a colour, and has a test of its own
        ask(table);
        context.onCommand(row.command);
        EXPECT_EQ(describe(look(table)), before) << row.objectName;
        if (context.tableId().isNull()) passed.insert(row.command);
    }
    for (const unsigned other : {1852U, 1854U, 1855U, 1857U, 1858U, 1860U, 40026U, 51000U, 9999U}) {
        ask(table);
        context.onCommand(other);
        EXPECT_EQ(describe(look(table)), before) << other;
        if (context.tableId().isNull()) passed.insert(other);
    }
    EXPECT_EQ(passed, (std::set<unsigned>{1848, 1854, 1882, 1883, 1885, 40026}));
    EXPECT_EQ(sent(), L"TABLEEXPORT\n_matchcell\n");
    EXPECT_TRUE(steps().empty());
}

TEST_F(CommandsOfMenus, A_command_that_was_dropped_acts_once_the_layer_is_unlocked) {
    const KdDbObjectId table = addSample("B2:C3");
    ask(table);
    lockLayer(true);
    context.onCommand(1842);
    EXPECT_EQ(look(table).numRows(), 5);
    lockLayer(false);
    context.onCommand(1842);
    EXPECT_EQ(look(table).numRows(), 3);
}

// Failures.

TEST_F(CommandsOfMenus, Without_a_menu_before_a_command_does_nothing) {
    context.onCommand(1842);
    const KdDbObjectId table = addSample("B2:C3");
    context.onCommand(1842);
    ask(table);
    context.onCommand(1842);
    context.onCommand(1842);
    EXPECT_EQ(look(table).numRows(), 3) << "a menu is good for one command";
}

TEST_F(CommandsOfMenus, A_table_that_cannot_be_opened_is_given_up_and_nothing_happens) {
    const KdDbObjectId table = addSample("B2:C3");
    ask(table);
    {
        const OpenObject<KdDbTable> writer(table, KdDb::kForWrite);
        context.onCommand(1842);
    }
    EXPECT_TRUE(context.tableId().isNull());
    EXPECT_EQ(look(table).numRows(), 5);
    ask(table);
    OpenObject<KdDbTable>(table, KdDb::kForWrite)->erase();
    context.onCommand(1885);
    EXPECT_EQ(sent(), L"");
}

TEST_F(CommandsOfMenus, Without_the_main_application_service_nothing_changes) {
    const KdDbObjectId table = addSample("B2:C3");
    const std::string before = describe(look(table));
    ask(table);
    kdhost::faults().noMainAppService = true;
    context.onCommand(1842);
    kdhost::faults().noMainAppService = false;
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_TRUE(context.tableId().isNull());
}

// The menus of indicators.

TEST_F(CommandsOfMenus, A_row_indicators_items_work_on_the_row) {
    const KdDbObjectId table = put(TableBuilder(3, 3).fill());
    moveToRowIndicator(1);
    choose(*ask(table), "IDR_BYROW_ABOVEINSERT");
    EXPECT_EQ(texts(look(table)), "|A1|B1|C1|\n||||\n|A2|B2|C2|\n|A3|B3|C3|\n");
    EXPECT_EQ(selection(table), (KdCellRange{2, -1, 2, -1}));
    moveToRowIndicator(0);
    choose(*ask(table), "IDR_BYROW_DELETE");
    choose(*ask(table), "IDR_TABLECELL_DELETEALLCONTENT");
    EXPECT_EQ(texts(look(table)), "||||\n|A2|B2|C2|\n|A3|B3|C3|\n");
    moveToRowIndicator(2);
    choose(*ask(table), "IDR_ALIGNMENT_MIDDLERIGHT");
    for (int column = 0; column < 3; ++column) EXPECT_EQ(look(table).alignment(2, column), KdDb::kMiddleRight);
    choose(*ask(table), "IDR_LOCKING_FORMATLOCKED");
    for (int column = 0; column < 3; ++column) EXPECT_EQ(look(table).cellState(2, column), 16);
}

// Inserting to the right asks about rows, which a column that its indicator has selected doesn't have.
TEST_F(CommandsOfMenus, A_column_indicators_items_work_on_the_column_but_inserting_to_the_right_does_nothing) {
    const KdDbObjectId table = put(TableBuilder(2, 3).fill());
    moveToColumnIndicator(1);
    choose(*ask(table), "IDR_BYCOLUMN_RIGHTINSERT");
    EXPECT_EQ(look(table).numColumns(), 3);
    choose(*ask(table), "IDR_BYCOLUMN_LEFTINSERT");
    EXPECT_EQ(texts(look(table)), "|A1||B1|C1|\n|A2||B2|C2|\n");
    choose(*ask(table), "IDR_BYCOLUMN_DELETE");
    EXPECT_EQ(texts(look(table)), "|A1|B1|C1|\n|A2|B2|C2|\n");
    choose(*ask(table), "IDR_LOCKING_CONTENTLOCKED");
    EXPECT_EQ(look(table).cellState(1, 1), 1);
    EXPECT_EQ(look(table).cellState(1, 2), 0);
}

}  // namespace
}  // namespace kdtest
