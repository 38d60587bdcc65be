// What each word of EDITTABLECELL asks before it acts: the places, the counts and the answers that its gate goes by,
// each told apart from its neighbours'. A refused word opens the table once, for the survey; an allowed one once more.

#include <gtest/gtest.h>

#include "kd/ed/resbuf.h"
#include "tests/module/edit/commandrun.h"

namespace kdtest {
namespace {

using Gui = EditTableCellGUI;

constexpr int bothLocks = KdDb::kCellStateContentLocked | KdDb::kCellStateFormatLocked;

class Surveys : public CommandRun {
protected:
    bool isAllowed(const wchar_t* word, const KdCellRange& selected,
                   const std::function<void(KdDbTable&)>& prepare = {}) {
        return opensOf(&Gui::editCell_Operation, addSelected(selected, prepare), {word}) > 1;
    }

    static void lockAll(KdDbTable& table) { setStates(table, {0, 0, 3, 2}, bothLocks); }
    static void unlockAll(KdDbTable& table) { setStates(table, {0, 0, 3, 2}, 0); }

    /// A run that has found content and format of a locked table not editable; the table is unlocked then.
    KdDbObjectId addRefusedOnce(Gui& gui) {
        const KdDbObjectId id = addSelected(cells("A1:C4"), lockAll);
        EXPECT_FALSE(gui.canContentEdit(id));
        EXPECT_FALSE(gui.canFormatEdit(id));
        change(id, unlockAll);
        return id;
    }
};

// Rows are inserted above by the first selected row alone, and below by the last one alone.
TEST_F(Surveys, Insertion_asks_about_the_row_or_column_at_its_own_side) {
    const KdCellRange topAlone{1, 0, -1, 0};
    const KdCellRange bottomAlone{-1, 0, 1, 0};
    EXPECT_TRUE(isAllowed(L"insertABove", topAlone));
    EXPECT_FALSE(isAllowed(L"insertABove", bottomAlone));
    EXPECT_FALSE(isAllowed(L"insertBElow", topAlone));
    EXPECT_TRUE(isAllowed(L"insertBElow", bottomAlone));
    const KdCellRange leftAlone{0, 1, 0, -1};
    const KdCellRange rightAlone{0, -1, 0, 1};
    EXPECT_TRUE(isAllowed(L"insertLEft", leftAlone));
    EXPECT_FALSE(isAllowed(L"insertLEft", rightAlone));
    EXPECT_FALSE(isAllowed(L"insertRIght", leftAlone));
    EXPECT_TRUE(isAllowed(L"insertRIght", rightAlone));
}

TEST_F(Surveys, Deletion_asks_about_all_selected_rows_from_the_first_one_on) {
    EXPECT_TRUE(isAllowed(L"deleteROw", cells("A2:A4")));
    EXPECT_FALSE(isAllowed(L"deleteROw", cells("A1:A4"))) << "one row has to stay";
    for (int locked = 0; locked < 4; ++locked) {
        const auto lock = [=](KdDbTable& table) { table.setCellState(locked, 2, KdDb::kCellStateContentLocked); };
        EXPECT_EQ(isAllowed(L"deleteROw", cells("A2:A3"), lock), locked == 0 || locked == 3) << locked;
    }
}

TEST_F(Surveys, Deletion_asks_about_all_selected_columns_from_the_first_one_on) {
    EXPECT_TRUE(isAllowed(L"deleteCOlumn", cells("B1:C1")));
    EXPECT_TRUE(isAllowed(L"deleteCOlumn", cells("A1:B1")));
    EXPECT_FALSE(isAllowed(L"deleteCOlumn", cells("A1:C1"))) << "one column has to stay";
    for (int locked = 0; locked < 3; ++locked) {
        const auto lock = [=](KdDbTable& table) { table.setCellState(3, locked, KdDb::kCellStateContentLocked); };
        EXPECT_EQ(isAllowed(L"deleteCOlumn", cells("A1:B1"), lock), locked == 2) << locked;
    }
}

// The count is 0 where a row or column isn't given, and a reversed selection counts as many as the right one.
TEST_F(Surveys, Deletion_counts_nothing_where_one_end_is_missing_and_reversed_ends_as_they_lie_apart) {
    EXPECT_FALSE(isAllowed(L"deleteROw", {1, 0, -1, 0}));
    EXPECT_FALSE(isAllowed(L"deleteCOlumn", {0, 1, 0, -1}));
    EXPECT_TRUE(isAllowed(L"deleteROw", {1, 0, 0, 0})) << "two rows from row 1 on are in the table";
    EXPECT_FALSE(isAllowed(L"deleteROw", {3, 0, 0, 0})) << "four rows from row 3 on are not";
    EXPECT_TRUE(isAllowed(L"deleteCOlumn", {0, 1, 0, 0}));
    EXPECT_FALSE(isAllowed(L"deleteCOlumn", {0, 2, 0, 0}));
}

TEST_F(Surveys, Locks_and_the_names_of_cell_styles_ask_no_gate_whatever_the_run_was_refused_before) {
    struct Word {
        int (Gui::*menu)(KdDbObjectId);
        std::vector<Step> replies;
        std::function<bool(const KdDbTable&)> isDone;
    };
    const auto stateIs = [](int state) {
        return [=](const KdDbTable& table) { return table.cellState(3, 2) == state; };
    };
    const Word words[] = {
        {&Gui::editCell_Content, {L"Lock"}, stateIs(1)},
        {&Gui::editCell_Format, {L"Lock"}, stateIs(16)},
        {&Gui::editCell_Content, {L"Lock", L"Unlock"}, stateIs(0)},
        {&Gui::editCell_Format, {L"Lock", L"Unlock"}, stateIs(0)},
        {&Gui::editCell_Style,
         {L"editcellStyle", L"_TITLE"},
         [](const KdDbTable& table) { return std::wstring(table.cellStyle(3, 2)) == L"_TITLE"; }},
    };
    for (const Word& word : words) {
        SCOPED_TRACE(&word - words);
        Gui gui;
        const KdDbObjectId id = addRefusedOnce(gui);
        std::vector<Step> replies = word.replies;
        replies.push_back(L"BAck");
        EXPECT_EQ(runMenu(gui, word.menu, id, replies), RTNORM);
        EXPECT_TRUE(word.isDone(look(id)));
    }
}

/// What a word asks is told by the answers that the run keeps of a table that was locked then.
struct Asks {
    int (Gui::*menu)(KdDbObjectId);
    const wchar_t* word;
    bool content;
    bool format;
};

TEST_F(Surveys, Each_word_asks_about_content_or_format_or_neither_and_never_about_both) {
    const Asks words[] = {
        {&Gui::editCell_Operation, L"insertABove", false, false},
        {&Gui::editCell_Operation, L"insertBElow", false, false},
        {&Gui::editCell_Operation, L"deleteROw", false, false},
        {&Gui::editCell_Operation, L"insertLEft", false, false},
        {&Gui::editCell_Operation, L"insertRIght", false, false},
        {&Gui::editCell_Operation, L"deleteCOlumn", false, false},
        {&Gui::editCell_Operation, L"Unmerge", false, false},
        {&Gui::editCell_Operation, L"insertBLock", true, false},
        {&Gui::editCell_Operation, L"insertFIeld", true, false},
        {&Gui::editCell_Operation, L"BOrder", false, true},
        {&Gui::editCell_Merge, L"mergeAll", false, false},
        {&Gui::editCell_Merge, L"mergeHorizontal", false, false},
        {&Gui::editCell_Merge, L"mergeVertical", false, false},
        {&Gui::editCell_Formula, L"Sum", true, false},
        {&Gui::editCell_Formula, L"Average", true, false},
        {&Gui::editCell_Formula, L"COunt", true, false},
        {&Gui::editCell_Formula, L"CEll", true, false},
        {&Gui::editCell_Formula, L"Equation", true, false},
        {&Gui::editCell_Content, L"Datatype", false, false},
        {&Gui::editCell_Content, L"Manage", false, false},
        {&Gui::editCell_Alignment, L"TL", false, true},
        {&Gui::editCell_Alignment, L"BR", false, true},
    };
    for (const Asks& asks : words) {
        SCOPED_TRACE(QString::fromWCharArray(asks.word).toStdString());
        Gui gui;
        const KdDbObjectId id = addSelected(cells("A1:B2"), lockAll);
        EXPECT_EQ(runMenu(gui, asks.menu, id, {asks.word, L"BAck"}), RTNORM);
        // Where the answer is kept, it outlives the lock.
        change(id, [](KdDbTable& table) {
            unlockAll(table);
            table.setSubSelection(cells("A1:B2"));
        });
        EXPECT_EQ(gui.canContentEdit(id), !asks.content);
        EXPECT_EQ(gui.canFormatEdit(id), !asks.format);
    }
}

TEST_F(Surveys, A_table_that_cannot_be_opened_at_the_end_keeps_its_selection_without_a_word) {
    const KdDbObjectId id = addSelected({});
    std::unique_ptr<OpenObject<KdDbTable>> reader;
    runCommandOn(L"A1:B2",
                 {Step([&] { reader = std::make_unique<OpenObject<KdDbTable>>(id, KdDb::kForRead); }), L"Quit"});
    EXPECT_EQ(selection(id), cells("A1:B2"));
    EXPECT_TRUE(host.messages().empty());
}

}  // namespace
}  // namespace kdtest
