// What the menus of EDITTABLECELL refuse: by the place of the selection, by locks, and by answers kept for the run.

#include <gtest/gtest.h>

#include "kd/ed/resbuf.h"
#include "tests/module/edit/commandrun.h"

namespace kdtest {
namespace {

using Gui = EditTableCellGUI;

constexpr KdCellRange wholeColumn{-1, 1, -1, 1};
constexpr KdCellRange wholeRow{1, -1, 1, -1};

class Gates : public CommandRun {
protected:
    bool changes(Menu menu, KdDbObjectId id, std::vector<Step> replies) {
        const std::string before = describeTable(id);
        replies.push_back(L"BAck");
        EXPECT_EQ(runMenu(menu, id, std::move(replies)), RTNORM);
        return describeTable(id) != before;
    }
    bool operates(const wchar_t* word, KdDbObjectId id) { return changes(&Gui::editCell_Operation, id, {word}); }
    bool merges(const wchar_t* word, KdDbObjectId id) { return changes(&Gui::editCell_Merge, id, {word}); }
};

constexpr const wchar_t* rowWords[] = {L"insertABove", L"insertBElow", L"deleteROw"};
constexpr const wchar_t* columnWords[] = {L"insertLEft", L"insertRIght", L"deleteCOlumn"};
constexpr const wchar_t* mergeWords[] = {L"mergeAll", L"mergeHorizontal", L"mergeVertical"};

TEST_F(Gates, Rows_and_columns_are_inserted_and_deleted_at_a_cell) {
    for (const wchar_t* word : rowWords) EXPECT_TRUE(operates(word, addSelected(cells("B2"))));
    for (const wchar_t* word : columnWords) EXPECT_TRUE(operates(word, addSelected(cells("B2"))));
}

TEST_F(Gates, With_whole_columns_selected_no_rows_are_inserted_or_deleted) {
    for (const wchar_t* word : rowWords) EXPECT_FALSE(operates(word, addSelected(wholeColumn)));
    EXPECT_TRUE(operates(L"insertLEft", addSelected(wholeColumn)));
    EXPECT_TRUE(operates(L"deleteCOlumn", addSelected(wholeColumn)));
}

TEST_F(Gates, With_whole_rows_selected_no_columns_are_inserted_at_the_left_or_deleted) {
    EXPECT_FALSE(operates(L"insertLEft", addSelected(wholeRow)));
    EXPECT_FALSE(operates(L"insertRIght", addSelected(wholeRow)));
    EXPECT_FALSE(operates(L"deleteCOlumn", addSelected(wholeRow)));
    for (const wchar_t* word : rowWords) EXPECT_TRUE(operates(word, addSelected(wholeRow)));
}

TEST_F(Gates, Without_a_selection_nothing_is_inserted_or_deleted) {
    for (const wchar_t* word : rowWords) EXPECT_FALSE(operates(word, addSelected({})));
    for (const wchar_t* word : columnWords) EXPECT_FALSE(operates(word, addSelected({})));
}

TEST_F(Gates, All_rows_or_all_columns_are_not_deleted) {
    EXPECT_FALSE(operates(L"deleteROw", addSelected(cells("A1:A4"))));
    EXPECT_FALSE(operates(L"deleteCOlumn", addSelected(cells("A1:C1"))));
    const KdDbObjectId row = add(TableBuilder(1, 1).select("A1").build());
    EXPECT_FALSE(operates(L"deleteROw", row));
    EXPECT_FALSE(operates(L"deleteCOlumn", row));
    EXPECT_TRUE(operates(L"insertABove", row));
}

// The count that the gate asks about is the absolute difference, so that a reversed selection may pass it.
TEST_F(Gates, A_reversed_selection_is_counted_from_its_first_field) {
    EXPECT_FALSE(operates(L"deleteROw", addSelected({3, 0, 1, 0}))) << "rows 3 to 5 are not in the table";
    EXPECT_FALSE(operates(L"deleteROw", addSelected({1, 0, 0, 0}))) << "passes the gate; the operation deletes none";
}

TEST_F(Gates, Lines_with_a_cell_of_locked_content_are_not_deleted_but_lines_are_inserted_beside_them) {
    const auto lock = [](KdDbTable& table) { table.setCellState(1, 2, KdDb::kCellStateContentLocked); };
    EXPECT_FALSE(operates(L"deleteROw", addSelected(cells("A2"), lock)));
    EXPECT_TRUE(operates(L"deleteROw", addSelected(cells("A3"), lock)));
    EXPECT_FALSE(operates(L"deleteCOlumn", addSelected(cells("C4"), lock)));
    EXPECT_TRUE(operates(L"deleteCOlumn", addSelected(cells("B4"), lock)));
    EXPECT_TRUE(operates(L"insertABove", addSelected(cells("A2"), lock)));
    EXPECT_TRUE(operates(L"insertRIght", addSelected(cells("C4"), lock)));
}

TEST_F(Gates, The_survey_is_made_anew_for_each_reply) {
    const KdDbObjectId id = addSelected(cells("A1:A3"));
    // Once one row is left, it stays.
    runMenu(&Gui::editCell_Operation, id, {L"deleteROw", L"deleteROw", L"insertABove", L"BAck"});
    change(id, [](KdDbTable& table) { EXPECT_EQ(table.numRows(), 2); });
}

TEST_F(Gates, A_table_that_cannot_be_opened_for_the_survey_gets_nothing_done) {
    const KdDbObjectId id = addSelected(cells("B2"));
    for (const wchar_t* word : rowWords) {
        kdhost::faults().failOpenNumber = 1;
        EXPECT_FALSE(changes(&Gui::editCell_Operation, id, {word})) << "by the failure";
    }
}

TEST_F(Gates, Several_cells_with_editable_content_are_merged) {
    for (const wchar_t* word : mergeWords) EXPECT_TRUE(merges(word, addSelected(cells("A1:B2"))));
}

TEST_F(Gates, One_cell_or_one_merge_or_a_locked_cell_is_not_merged) {
    const auto merge = [](KdDbTable& table) { table.mergeCells(0, 1, 0, 1); };
    const auto lock = [](KdDbTable& table) { table.setCellState(1, 1, KdDb::kCellStateContentLocked); };
    for (const wchar_t* word : mergeWords) {
        EXPECT_FALSE(merges(word, addSelected(cells("B2"))));
        EXPECT_FALSE(merges(word, addSelected(cells("A1:B2"), merge)));
        EXPECT_FALSE(merges(word, addSelected(cells("A1:B2"), lock)));
        EXPECT_FALSE(merges(word, addSelected(wholeColumn)));
        EXPECT_FALSE(merges(word, addSelected({})));
    }
}

// The table is looked at before the status of the prompt is, in this menu alone.
TEST_F(Gates, The_merge_menu_surveys_the_table_even_after_Esc) {
    const KdDbObjectId id = addSelected(cells("A1:B2"));
    kdhost::faults().failOpenNumber = 1;
    EXPECT_EQ(runMenu(&Gui::editCell_Merge, id, {esc}), RTNORM);
    EXPECT_EQ(kdhost::faults().failOpenNumber, 0);
    kdhost::faults().failOpenNumber = 1;
    EXPECT_EQ(runMenu(&Gui::editCell_Operation, id, {esc}), RTNORM);
    EXPECT_EQ(kdhost::faults().failOpenNumber, 1);
}

TEST_F(Gates, A_merge_that_cannot_be_surveyed_is_not_made) {
    const KdDbObjectId id = addSelected(cells("A1:B2"));
    kdhost::faults().failOpenNumber = 1;
    EXPECT_FALSE(merges(L"mergeAll", id));
}

TEST_F(Gates, Unmerge_needs_a_merged_cell_and_a_cell_with_editable_content) {
    const auto merge = [](KdDbTable& table) { table.mergeCells(0, 1, 0, 1); };
    EXPECT_TRUE(operates(L"Unmerge", addSelected(cells("A1:B2"), merge)));
    EXPECT_TRUE(operates(L"Unmerge", addSelected(cells("B2:C3"), merge)));
    EXPECT_FALSE(operates(L"Unmerge", addSelected(cells("C3"), merge)));
    EXPECT_FALSE(operates(L"Unmerge", addSelected(cells("A1:B2"), [&](KdDbTable& table) {
                              merge(table);
                              setStates(table, {0, 0, 1, 1}, KdDb::kCellStateContentLocked);
                          })));
}

TEST_F(Gates, Unmerge_is_refused_on_a_locked_layer_before_the_operation_begins) {
    const KdDbObjectId id = addSelected(cells("A1:B2"), [](KdDbTable& table) { table.mergeCells(0, 1, 0, 1); });
    lockLayerOf(id);
    // The survey, the table for the gate, the table for its layer, the layer; the operation would be the fifth.
    kdhost::faults().failOpenNumber = 5;
    EXPECT_FALSE(operates(L"Unmerge", id));
    // "BAck" is surveyed, too, and that open fails.
    EXPECT_EQ(kdhost::faults().failOpenNumber, 0);
}

TEST_F(Gates, On_a_locked_layer_no_word_changes_the_table) {
    const KdDbObjectId id = addSelected(cells("A1:B2"));
    lockLayerOf(id);
    const std::string before = describeTable(id);
    for (const wchar_t* word : rowWords) operates(word, id);
    for (const wchar_t* word : columnWords) operates(word, id);
    for (const wchar_t* word : mergeWords) merges(word, id);
    changes(&Gui::editCell_Content, id, {L"Lock", L"Unlock"});
    changes(&Gui::editCell_Format, id, {L"Lock", L"Unlock", L"ALignment", L"TL", L"BAck"});
    changes(&Gui::editCell_Style, id, {L"editcellStyle", L"Title"});
    EXPECT_EQ(describeTable(id), before);
}

// Content and format: the answers kept for the run.

TEST_F(Gates, Content_and_format_are_editable_where_one_selected_cell_is) {
    const auto lockOne = [](KdDbTable& table) { setStates(table, {0, 0, 0, 0}, 17); };
    const auto lockAll = [](KdDbTable& table) { setStates(table, {0, 0, 3, 2}, 17); };
    EXPECT_TRUE(Gui().canContentEdit(addSelected(cells("A1:B1"), lockOne)));
    EXPECT_TRUE(Gui().canFormatEdit(addSelected(cells("A1:B1"), lockOne)));
    EXPECT_FALSE(Gui().canContentEdit(addSelected(cells("A1:B1"), lockAll)));
    EXPECT_FALSE(Gui().canFormatEdit(addSelected(cells("A1:B1"), lockAll)));
    EXPECT_FALSE(Gui().canContentEdit(addSelected({}))) << "nothing is selected";
    EXPECT_FALSE(Gui().canFormatEdit(addSelected({})));
}

TEST_F(Gates, Content_and_format_are_asked_and_kept_apart) {
    const KdDbObjectId contentLocked =
        addSelected(cells("A1"), [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateContentLocked); });
    const KdDbObjectId formatLocked =
        addSelected(cells("A1"), [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateFormatLocked); });
    Gui gui;
    EXPECT_FALSE(gui.canContentEdit(contentLocked));
    EXPECT_FALSE(gui.canFormatEdit(formatLocked)) << "not taken from the other question";
    EXPECT_FALSE(gui.canContentEdit(formatLocked)) << "the first answer holds";
    EXPECT_FALSE(gui.canFormatEdit(contentLocked));
    EXPECT_TRUE(Gui().canContentEdit(formatLocked));
    EXPECT_TRUE(Gui().canFormatEdit(contentLocked));
}

TEST_F(Gates, The_first_answer_holds_for_the_run_and_no_longer) {
    const KdDbObjectId id = addSelected(cells("A1"));
    Gui gui;
    EXPECT_TRUE(gui.canContentEdit(id));
    EXPECT_TRUE(gui.canFormatEdit(id));
    change(id, [](KdDbTable& table) { setStates(table, {0, 0, 3, 2}, 17); });
    EXPECT_TRUE(gui.canContentEdit(id));
    EXPECT_TRUE(gui.canFormatEdit(id));
    EXPECT_FALSE(Gui().canContentEdit(id));
    EXPECT_FALSE(Gui().canFormatEdit(id));
}

TEST_F(Gates, The_null_id_has_editable_content_and_no_editable_format_and_keeps_neither_answer) {
    const KdDbObjectId locked =
        addSelected(cells("A1"), [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateContentLocked); });
    Gui gui;
    EXPECT_TRUE(gui.canContentEdit(KdDbObjectId::kNull));
    EXPECT_FALSE(gui.canFormatEdit(KdDbObjectId::kNull));
    EXPECT_FALSE(gui.canContentEdit(locked));
    EXPECT_TRUE(gui.canFormatEdit(locked));
    EXPECT_FALSE(gui.canContentEdit(KdDbObjectId::kNull)) << "a kept answer comes before the null id";
    EXPECT_TRUE(gui.canFormatEdit(KdDbObjectId::kNull));
}

TEST_F(Gates, A_failed_open_refuses_and_keeps_no_answer) {
    const KdDbObjectId id = addSelected(cells("A1"));
    Gui gui;
    kdhost::faults().failOpenNumber = 1;
    EXPECT_FALSE(gui.canContentEdit(id));
    kdhost::faults().failOpenNumber = 1;
    EXPECT_FALSE(gui.canFormatEdit(id));
    EXPECT_TRUE(gui.canContentEdit(id));
    EXPECT_TRUE(gui.canFormatEdit(id));
}

TEST_F(Gates, An_alignment_refused_once_stays_refused_for_the_run) {
    const KdDbObjectId id =
        addSelected(cells("A1"), [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateFormatLocked); });
    runMenu(&Gui::editCell_Format, id,
            {L"ALignment", L"TL", L"BAck", L"Unlock", L"ALignment", L"TL", L"BAck", L"BAck"});
    change(id, [](KdDbTable& table) {
        EXPECT_EQ(table.cellState(0, 0), 0) << "unlocking is not gated";
        EXPECT_NE(table.alignment(0, 0), KdDb::kTopLeft);
    });
    EXPECT_TRUE(changes(&Gui::editCell_Alignment, id, {L"TL"})) << "the next run asks anew";
}

TEST_F(Gates, Each_alignment_asks_about_the_format) {
    const KdDbObjectId id =
        addSelected(cells("A1"), [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateFormatLocked); });
    Gui gui;
    EXPECT_FALSE(gui.canFormatEdit(id));
    change(id, [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateNone); });
    const std::string before = describeTable(id);
    runMenu(gui, &Gui::editCell_Alignment, id,
            {L"TL", L"TC", L"TR", L"ML", L"MC", L"MR", L"BL", L"BC", L"BR", L"BAck"});
    EXPECT_EQ(describeTable(id), before);
}

TEST_F(Gates, An_alignment_granted_once_goes_to_the_host_for_the_run) {
    const KdDbObjectId id = addSelected(cells("A1"));
    runMenu(&Gui::editCell_Format, id, {L"ALignment", L"TL", L"BAck", L"Lock", L"ALignment", L"BR", L"BAck", L"BAck"});
    change(id, [](KdDbTable& table) {
        EXPECT_EQ(table.alignment(0, 0), KdDb::kTopLeft) << "the host refuses where a cell is locked";
    });
}

TEST_F(Gates, BGcolor_asks_about_the_format_and_its_answer_holds_for_the_run) {
    const KdDbObjectId id =
        addSelected(cells("A1"), [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateFormatLocked); });
    runMenu(&Gui::editCell_Format, id, {L"BGcolor", L"7", L"Unlock", L"ALignment", L"TL", L"BAck", L"BAck"});
    change(id, [](KdDbTable& table) { EXPECT_NE(table.alignment(0, 0), KdDb::kTopLeft); });
}

TEST_F(Gates, BGcolor_that_is_cancelled_asks_nothing) {
    const KdDbObjectId id =
        addSelected(cells("A1"), [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateFormatLocked); });
    runMenu(&Gui::editCell_Format, id, {L"BGcolor", esc, L"Unlock", L"ALignment", L"TL", L"BAck", L"BAck"});
    change(id, [](KdDbTable& table) { EXPECT_EQ(table.alignment(0, 0), KdDb::kTopLeft); });
}

TEST_F(Gates, A_repeated_Lock_after_cells_became_locked_still_passes) {
    const KdDbObjectId id = addSelected(cells("A1"));
    Gui gui;
    EXPECT_EQ(runMenu(gui, &Gui::editCell_Content, id, {L"Lock", L"BAck"}), RTNORM);
    EXPECT_FALSE(gui.canContentEdit(id)) << "asked and kept: locked";
    EXPECT_EQ(runMenu(gui, &Gui::editCell_Format, id, {L"Lock", L"BAck"}), RTNORM);
    change(id, [](KdDbTable& table) { EXPECT_EQ(table.cellState(0, 0), KdDb::kCellStateFormatLocked); });
    EXPECT_EQ(runMenu(gui, &Gui::editCell_Content, id, {L"Lock", L"Lock", L"BAck"}), RTNORM);
    change(id, [](KdDbTable& table) { EXPECT_EQ(table.cellState(0, 0), KdDb::kCellStateContentLocked); });
}

TEST_F(Gates, With_content_locked_no_formula_block_or_field_is_begun) {
    const KdDbObjectId id =
        addSelected(cells("A1"), [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateContentLocked); });
    // The gate opens the table; nothing else does.
    for (const wchar_t* word : {L"Sum", L"Average", L"COunt", L"CEll", L"Equation"}) {
        EXPECT_EQ(opensOf(&Gui::editCell_Formula, id, {word}), 1) << word;
    }
    // In the operation menu the survey goes before the gate.
    EXPECT_EQ(opensOf(&Gui::editCell_Operation, id, {L"insertBLock"}), 2);
    EXPECT_EQ(opensOf(&Gui::editCell_Operation, id, {L"insertFIeld"}), 2);
}

TEST_F(Gates, With_editable_content_a_block_is_begun_in_whatever_case_it_is_typed) {
    const KdDbObjectId id = addSelected(cells("A1"));
    EXPECT_EQ(opensOf(&Gui::editCell_Operation, id, {L"insertBLock"}), 3);
    EXPECT_EQ(opensOf(&Gui::editCell_Operation, id, {L"insertblock"}), 3);
    EXPECT_EQ(opensOf(&Gui::editCell_Operation, id, {L"INSERTBLOCK"}), 3);
}

TEST_F(Gates, With_the_format_locked_no_border_is_begun) {
    const KdDbObjectId id =
        addSelected(cells("A1"), [](KdDbTable& table) { table.setCellState(0, 0, KdDb::kCellStateFormatLocked); });
    EXPECT_EQ(opensOf(&Gui::editCell_Operation, id, {L"BOrder"}), 2);
}

// The survey refuses before an operation is begun; it would open the table once more.
TEST_F(Gates, A_refused_word_begins_no_operation) {
    for (const wchar_t* word : rowWords) {
        EXPECT_EQ(opensOf(&Gui::editCell_Operation, addSelected(wholeColumn), {word}), 1);
        EXPECT_EQ(opensOf(&Gui::editCell_Operation, addSelected(cells("B2")), {word}), 2);
    }
    for (const wchar_t* word : columnWords) {
        EXPECT_EQ(opensOf(&Gui::editCell_Operation, addSelected(wholeRow), {word}), 1);
        EXPECT_EQ(opensOf(&Gui::editCell_Operation, addSelected(cells("B2")), {word}), 2);
    }
    EXPECT_EQ(opensOf(&Gui::editCell_Operation, addSelected(cells("C3")), {L"Unmerge"}), 2) << "nothing is merged";
}

}  // namespace
}  // namespace kdtest
