// EDITTABLECELL from its start to its main menu, and its end: the pick of the table, the cells, the selection.

#include <gtest/gtest.h>

#include <algorithm>

#include "host/ed/display.h"
#include "host/ed/editor.h"
#include "module/edit/toolbar/tableditminiframewnd.h"
#include "tests/module/edit/commandrun.h"

namespace kdtest {
namespace {

constexpr unsigned pickTable = 6227;
constexpr unsigned enterCells = 6225;
constexpr unsigned invalidCells = 6226;
constexpr unsigned mainMenu = 6210;

constexpr KdCellRange none{-1, -1, -1, -1};

class EditTableCell : public CommandRun {
protected:
    std::vector<std::wstring> texts(std::initializer_list<unsigned> numbers) const {
        std::vector<std::wstring> all;
        for (const unsigned number : numbers) all.push_back(text(number));
        return all;
    }
    KdDbObjectId addFilled(int rows, int columns) { return add(TableBuilder(rows, columns).fill().build()); }
};

TEST_F(EditTableCell, Asks_for_the_table_then_for_its_cells_then_by_the_main_menu) {
    addFilled(3, 3);
    runCommandOn(L"A1", {L"Quit"});
    EXPECT_EQ(prompts, texts({pickTable, enterCells, mainMenu}));
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(EditTableCell, Holds_the_table_open_while_the_cells_are_asked_for_and_never_else) {
    const KdDbObjectId id = addFilled(3, 3);
    const auto expectHeld = [&] {
        KdDbObject* object = nullptr;
        EXPECT_EQ(kddbOpenObject(object, id, KdDb::kForRead), Kdad::eWasOpenForWrite);
    };
    runCommandOn(L"A1", {L"Operation", L"Merge",         L"BAck",   L"Formula", L"BAck",    L"insertABove", L"BAck",
                         L"Format",    L"ALignment",     L"TL",     L"BAck",    L"BGcolor", L"7",           L"BAck",
                         L"Style",     L"editcellStyle", L"_TITLE", L"BAck",    L"Content", L"Lock",        L"Quit"});
    for (std::size_t i = 0; i < prompts.size(); ++i) EXPECT_EQ(openAtPrompts[i], i == 1 ? 1U : 0U) << i;
    runCommand({L"1,-1", Step(expectHeld), L"A1", L"Quit"});
}

struct Selects {
    const wchar_t* reply;
    KdCellRange cells;
};

class CellsNamed : public EditTableCell, public ::testing::WithParamInterface<Selects> {};

/// In a table of 6 rows and 4 columns.
TEST_P(CellsNamed, are_selected_within_the_table) {
    const KdDbObjectId id = addFilled(6, 4);
    KdCellRange selected;
    runCommandOn(GetParam().reply, {Step([&] { selected = selection(id); }), L"Quit"});
    EXPECT_EQ(selected, GetParam().cells);
    EXPECT_TRUE(host.messages().empty());
}

INSTANTIATE_TEST_SUITE_P(The_reply_c4_a1_selects_the_rows_0_to_3_and_columns_0_to_2, CellsNamed,
                         ::testing::Values(Selects{L"c4:a1", {0, 0, 3, 2}}));
INSTANTIATE_TEST_SUITE_P(The_reply_B2_A5_selects_the_rows_1_to_4_and_columns_0_to_1, CellsNamed,
                         ::testing::Values(Selects{L"B2:A5", {1, 0, 4, 1}}));
INSTANTIATE_TEST_SUITE_P(Row_numbers_0_and_1_select_the_same_row, CellsNamed,
                         ::testing::Values(Selects{L"A0", {0, 0, 0, 0}}, Selects{L"A1", {0, 0, 0, 0}},
                                           Selects{L"0", {0, -1, 0, -1}}, Selects{L"1", {0, -1, 0, -1}}));
INSTANTIATE_TEST_SUITE_P(Ten_letters_Z_saturate_and_select_the_last_column, CellsNamed,
                         ::testing::Values(Selects{L"ZZZZZZZZZZ1", {0, 3, 0, 3}}));
INSTANTIATE_TEST_SUITE_P(A_row_number_beyond_the_table_selects_the_last_row, CellsNamed,
                         ::testing::Values(Selects{L"7", {5, -1, 5, -1}}, Selects{L"B99999999999999", {5, 1, 5, 1}},
                                           Selects{L"A6", {5, 0, 5, 0}}));
INSTANTIATE_TEST_SUITE_P(The_reply_99_1_selects_from_row_0_to_the_last_row, CellsNamed,
                         ::testing::Values(Selects{L"99:1", {0, -1, 5, -1}}));
INSTANTIATE_TEST_SUITE_P(A_and_1_with_a_colon_are_valid, CellsNamed,
                         ::testing::Values(Selects{L"A:", {-1, 0, -1, 0}}, Selects{L"1:", {0, -1, 0, -1}},
                                           Selects{L":B2", {1, 1, 1, 1}}, Selects{L":", none}));
INSTANTIATE_TEST_SUITE_P(Whole_rows_and_columns, CellsNamed,
                         ::testing::Values(Selects{L"C:B", {-1, 1, -1, 2}}, Selects{L"b", {-1, 1, -1, 1}},
                                           Selects{L"2:3", {1, -1, 2, -1}}, Selects{L"X:Y", {-1, 3, -1, 3}}));

TEST_F(EditTableCell, The_reply_AA1_selects_column_26) {
    const KdDbObjectId id = addFilled(2, 30);
    KdCellRange selected;
    runCommandOn(L"AA1", {Step([&] { selected = selection(id); }), L"Quit"});
    EXPECT_EQ(selected, (KdCellRange{0, 26, 0, 26}));
}

class InvalidCells : public EditTableCell, public ::testing::WithParamInterface<const wchar_t*> {};

TEST_P(InvalidCells, are_told_and_asked_for_again) {
    const KdDbObjectId id = addFilled(3, 3);
    KdCellRange selected;
    runCommandOn(GetParam(), {GetParam(), L"B2", Step([&] { selected = selection(id); }), L"Quit"});
    EXPECT_EQ(prompts, texts({pickTable, enterCells, enterCells, enterCells, mainMenu}));
    EXPECT_EQ(host.messages(), texts({invalidCells, invalidCells}));
    EXPECT_EQ(selected, (KdCellRange{1, 1, 1, 1}));
}

INSTANTIATE_TEST_SUITE_P(Replies, InvalidCells,
                         ::testing::Values(L"1A", L"A1:B2:C3", L"A1:", L"A:1", L"", L"1:A", L"A:B2", L"A1:2", L"$A$1",
                                           L"甲1", L"-1", L"::"));

// The prompt takes one word: what follows a blank is the next prompt's answer.
TEST_F(EditTableCell, A_blank_between_letter_and_digit_ends_the_reply) {
    const KdDbObjectId id = addFilled(3, 3);
    KdCellRange selected;
    runCommandOn(L"A 1", {Step([&] { selected = selection(id); }), L"Quit"});
    EXPECT_EQ(selected, (KdCellRange{-1, 0, -1, 0}));
}

TEST_F(EditTableCell, A_reply_of_the_greatest_length_is_taken_whole) {
    const KdDbObjectId id = addFilled(3, 3);
    KdCellRange selected;
    const std::wstring longest = L"C" + std::wstring(1021, L'0') + L"2";
    runCommandOn(longest, {Step([&] { selected = selection(id); }), L"Quit"});
    EXPECT_EQ(selected, (KdCellRange{1, 2, 1, 2}));
}

class PicksWithoutATable : public EditTableCell {
protected:
    /// Ends behind the pick, without a word and without a change.
    void expectNothingAt(const wchar_t* point) {
        runCommand({point});
        EXPECT_EQ(prompts, texts({pickTable})) << point;
        EXPECT_TRUE(host.messages().empty());
    }
};

TEST_F(PicksWithoutATable, hit_nothing_or_two_objects_or_a_line_and_end_the_command_without_a_word) {
    const KdDbObjectId table = addFilled(3, 3);
    add(TableBuilder(3, 3).build(), {40.0, 0.0, 0.0});
    addLine({0.0, 100.0, 0.0}, {60.0, 100.0, 0.0});
    change(table, [](KdDbTable& open) { open.setSubSelection(cells("A1:B2")); });
    for (const wchar_t* point : {L"500,500", L"50,-5", L"30,100"}) expectNothingAt(point);
    EXPECT_EQ(selection(table), cells("A1:B2"));
}

TEST_F(PicksWithoutATable, Esc_ends_the_command_without_a_word) {
    addFilled(3, 3);
    runCommand({esc.c_str()});
    EXPECT_EQ(prompts, texts({pickTable}));
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(PicksWithoutATable, A_table_on_a_locked_layer_is_not_edited) {
    const KdDbObjectId table = addFilled(3, 3);
    lockLayerOf(table);
    expectNothingAt(L"1,-1");
}

TEST_F(PicksWithoutATable, A_table_that_somebody_else_has_open_is_not_edited) {
    const KdDbObjectId table = addFilled(3, 3);
    const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
    expectNothingAt(L"1,-1");
}

// Only Esc and an error end the command at this prompt; Enter leaves the point where it starts.
TEST_F(EditTableCell, Enter_at_the_pick_takes_what_lies_at_the_origin) {
    add(TableBuilder(3, 3).build(), {-10.0, 10.0, 0.0});
    runCommand({L"", L"A1", L"Quit"});
    EXPECT_EQ(prompts, texts({pickTable, enterCells, mainMenu}));
}

TEST_F(EditTableCell, The_pick_is_made_in_user_coordinates) {
    add(TableBuilder(3, 3).build(), {1000.0, 0.0, 0.0});
    host.editor().setUcs(KdGeMatrix3d::translation({1000.0, 0.0, 0.0}));
    runCommandOn(L"A1", {L"Quit"});
    EXPECT_EQ(prompts.size(), 3U);
}

TEST_F(EditTableCell, Cells_selected_before_are_dropped_when_the_table_is_picked) {
    const KdDbObjectId id = addFilled(3, 3);
    change(id, [](KdDbTable& open) { open.setSubSelection(cells("A1:B2")); });
    KdCellRange whileAsking;
    runCommand({L"1,-1", Step([&] { whileAsking = selection(id); }), L"C3", L"Quit"});
    EXPECT_EQ(whileAsking, none);
}

// Over a table that opens it would have given the cells.
TEST_F(EditTableCell, The_toolbar_over_a_table_that_was_erased_is_hidden_when_another_one_is_picked) {
    addFilled(3, 3);
    const KdDbObjectId erased = add(TableBuilder(3, 3).build(), {1000.0, 0.0, 0.0});
    CVqTableCommon::ShowTableToolbar(erased, true);
    change(erased, [](KdDbTable& open) { open.erase(); });
    const auto expectShown = [](bool shown) {
        return Step([=] { EXPECT_EQ(GetTableditMiniFrameWnd()->isVisible(), shown); });
    };
    runCommand({expectShown(true), L"1,-1", expectShown(false), L"A1", L"Quit"});
}

TEST_F(EditTableCell, Esc_at_the_cells_closes_the_table_and_leaves_nothing_selected) {
    const KdDbObjectId id = addFilled(3, 3);
    change(id, [](KdDbTable& open) { open.setSubSelection(cells("A1:B2")); });
    runCommand({L"1,-1", esc});
    EXPECT_EQ(prompts, texts({pickTable, enterCells}));
    EXPECT_EQ(selection(id), none);
    runCommand({L"1,-1", L"1A", esc});
    EXPECT_EQ(selection(id), none);
}

TEST_F(EditTableCell, Nothing_is_selected_when_the_command_has_ended) {
    const KdDbObjectId id = addFilled(3, 3);
    for (const auto& steps : {std::vector<Step>{L"Quit"}, std::vector<Step>{esc}, std::vector<Step>{L""},
                              std::vector<Step>{L"Operation", L"Quit"},
                              std::vector<Step>{L"ExecuteOneAction", L"Operation", L"insertABove"}}) {
        runCommandOn(L"A1:B2", steps);
        EXPECT_EQ(selection(id), none);
    }
}

TEST_F(EditTableCell, A_table_that_went_during_the_command_is_no_trouble) {
    const KdDbObjectId id = addFilled(3, 3);
    const auto erase = [&] { change(id, [](KdDbTable& open) { open.erase(); }); };
    runCommandOn(L"A1:B2", {Step(erase), L"Operation", L"insertABove", L"Unmerge", L"Merge", L"mergeAll", L"Quit"});
}

TEST_F(EditTableCell, The_table_is_drawn_afresh_with_its_cells_selected) {
    const KdDbObjectId id = addFilled(3, 3);
    kdhost::updateDisplay();
    bool queued = false;
    runCommandOn(L"A1:B2", {Step([&] {
                                const auto& ids = kdhost::queuedForRedraw();
                                queued = std::find(ids.begin(), ids.end(), id) != ids.end();
                            }),
                            L"Quit"});
    EXPECT_TRUE(queued);
}

TEST_F(EditTableCell, A_failed_open_of_the_picked_table_ends_the_command) {
    const KdDbObjectId id = addFilled(3, 3);
    change(id, [](KdDbTable& open) { open.setSubSelection(cells("A1:B2")); });
    kdhost::faults().failOpenNumber = 1;
    runCommand({L"1,-1"});
    EXPECT_EQ(prompts, texts({pickTable}));
    EXPECT_EQ(selection(id), cells("A1:B2"));
}

}  // namespace
}  // namespace kdtest
