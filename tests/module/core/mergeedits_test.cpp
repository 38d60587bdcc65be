// Merging the selected cells, with the question that guards their content.

#include <gtest/gtest.h>

#include <QMessageBox>

#include "host/ed/display.h"
#include "host/win32/modules.h"
#include "kd/ad/mainapp.h"
#include "mfc/messagebox.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {
namespace {

class MergeEdits : public TableEdits {
protected:
    /// The merges of the table, as the ranges of their cells.
    static std::vector<KdCellRange> merges(KdDbObjectId id) {
        std::vector<KdCellRange> found;
        for (int row = 0; row < look(id).numRows(); ++row) {
            for (int column = 0; column < look(id).numColumns(); ++column) {
                const KdCellRange merge = look(id).getMergeRange(row, column);
                if (!look(id).isMergedCell(row, column)) continue;
                if (merge.m_topRow == row && merge.m_leftColumn == column) found.push_back(merge);
            }
        }
        return found;
    }
};

using Merges = std::vector<KdCellRange>;

TEST_F(MergeEdits, UnmergeCells_takes_apart_every_merge_that_the_selection_touches) {
    const KdDbObjectId id = add(TableBuilder(5, 5).merge("A1:B2").merge("D4:E5").merge("D1:E1").select("B2:D4"));
    EXPECT_EQ(CVqTableCommon::UnmergeCells(id), 1);
    EXPECT_EQ(merges(id), Merges{cells("D1:E1")});
    EXPECT_EQ(selection(id), cells("B2:D4"));
}

TEST_F(MergeEdits, MergeAll_with_only_the_top_left_cell_filled_asks_nothing) {
    const KdDbObjectId id = add(TableBuilder(3, 3).text("A1", L"kept").text("C3", L"outside").select("A1:B3"));
    EXPECT_EQ(CVqTableCommon::MergeAll(id), 1);
    EXPECT_EQ(merges(id), Merges{cells("A1:B3")});
    EXPECT_STREQ(look(id).textString(0, 0), L"kept");
    EXPECT_EQ(selection(id), cells("A1:B3"));
}

TEST_F(MergeEdits, MergeAll_asks_with_the_products_name_over_the_main_window) {
    const KdDbObjectId id = add(TableBuilder(3, 3).text("B2", L"lost").select("A1:B3"));
    BoxAnswers answers({BoxAnswer::Yes});
    EXPECT_EQ(CVqTableCommon::MergeAll(id), 1);
    ASSERT_EQ(answers.count(), 1);
    const SeenBox& box = answers.seen().front();
    EXPECT_EQ(
        box.text,
        L"The selected cells hold content that merging may remove: a merged cell keeps only the content of its first "
        L"cell.\nMerge the cells?");
    EXPECT_EQ(box.caption, GetOemProductName());
    EXPECT_EQ(box.buttons, static_cast<int>(QMessageBox::Yes | QMessageBox::No));
    EXPECT_EQ(box.icon, QMessageBox::NoIcon);
    EXPECT_EQ(box.parent, kfsw_kdadMainWnd());
    EXPECT_EQ(merges(id), Merges{cells("A1:B3")});
    EXPECT_STREQ(look(id).textString(1, 1), L"");
}

TEST_F(MergeEdits, MergeAll_asks_in_the_hosts_language) {
    const KdDbObjectId id = add(TableBuilder(2, 2).text("B2", L"lost").select("A1:B2"));
    kdhost::setLanguage(kdhost::Language::Chinese);
    BoxAnswers answers({BoxAnswer::No});
    CVqTableCommon::MergeAll(id);
    kdhost::setLanguage(kdhost::Language::English);
    ASSERT_EQ(answers.count(), 1);
    EXPECT_EQ(answers.seen().front().text.substr(0, 4), L"所选单元");
}

TEST_F(MergeEdits, MergeAll_after_a_no_leaves_everything_and_no_step_of_undo) {
    for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Escape}) {
        const KdDbObjectId id = add(TableBuilder(3, 3).merge("A1:B1").text("B2", L"there").select("A1:B3"));
        const std::string before = describe(look(id));
        BoxAnswers answers({answer});
        EXPECT_EQ(CVqTableCommon::MergeAll(id), 1);
        EXPECT_EQ(answers.count(), 1);
        EXPECT_EQ(describe(look(id)), before);
        EXPECT_TRUE(steps().empty());
    }
}

TEST_F(MergeEdits, Each_updates_the_display_after_a_no_as_after_a_yes) {
    for (const Edit edit : {CVqTableCommon::MergeAll, CVqTableCommon::MergeByRow, CVqTableCommon::MergeByColumn}) {
        for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
            const KdDbObjectId id = add(TableBuilder(2, 2).text("B2", L"there").select("A1:B2"));
            BoxAnswers answers({answer});
            answers.setLook([&] { kdhost::queueForRedraw(id); });
            edit(id);
            EXPECT_EQ(answers.count(), 1);
            EXPECT_TRUE(kdhost::queuedForRedraw().empty());
        }
    }
}

TEST_F(MergeEdits, MergeAll_asks_while_the_table_is_closed) {
    const KdDbObjectId id = add(TableBuilder(2, 2).text("B2", L"there").select("A1:B2"));
    BoxAnswers answers({BoxAnswer::No});
    bool openMeanwhile = true;
    answers.setLook([&] { openMeanwhile = !kdhost::openObjects().empty(); });
    CVqTableCommon::MergeAll(id);
    EXPECT_FALSE(openMeanwhile);
}

TEST_F(MergeEdits, MergeByRow_and_MergeByColumn_ask_while_the_table_is_open_for_write) {
    for (const Edit edit : {CVqTableCommon::MergeByRow, CVqTableCommon::MergeByColumn}) {
        const KdDbObjectId id = add(TableBuilder(2, 2).text("B2", L"there").select("A1:B2"));
        BoxAnswers answers({BoxAnswer::No});
        bool writable = false;
        answers.setLook([&] { writable = look(id).isWriteEnabled(); });
        edit(id);
        EXPECT_TRUE(writable);
        EXPECT_EQ(answers.count(), 1);
    }
}

TEST_F(MergeEdits, Content_that_is_no_text_is_asked_about_too) {
    auto table = TableBuilder(2, 2).select("A1:B2").build();
    table->setBlockTableRecordId(1, 1, 0, host.database().modelSpaceId(), false);
    const KdDbObjectId id = add(std::move(table));
    BoxAnswers answers({BoxAnswer::No});
    CVqTableCommon::MergeAll(id);
    EXPECT_EQ(answers.count(), 1);
}

TEST_F(MergeEdits, MergeAll_does_not_ask_about_a_table_that_cannot_be_read_and_merges_all_the_same) {
    const KdDbObjectId id = add(TableBuilder(2, 2).text("B2", L"lost").select("A1:B2"));
    kdhost::faults().failOpenNumber = 1;
    EXPECT_EQ(CVqTableCommon::MergeAll(id), 1);
    EXPECT_EQ(merges(id), Merges{cells("A1:B2")});
}

TEST_F(MergeEdits, MergeAll_asks_about_a_table_that_others_read_and_leaves_it_after_a_yes) {
    const KdDbObjectId id = add(TableBuilder(2, 2).text("B2", L"there").select("A1:B2"));
    const OpenObject<KdDbTable> reader(id, KdDb::kForRead);
    BoxAnswers answers({BoxAnswer::Yes});
    EXPECT_EQ(CVqTableCommon::MergeAll(id), 1);
    EXPECT_EQ(answers.count(), 1);
    EXPECT_EQ(merges(id), Merges{});
}

TEST_F(MergeEdits, MergeByColumn_counts_the_first_cell_of_every_column_but_the_first_as_content) {
    const KdDbObjectId id = add(TableBuilder(2, 3).text("A1", L"kept").text("C1", L"kept too").select("A1:C2"));
    BoxAnswers answers({BoxAnswer::Yes});
    EXPECT_EQ(CVqTableCommon::MergeByColumn(id), 1);
    EXPECT_EQ(answers.count(), 1);
    EXPECT_EQ(merges(id), (Merges{cells("A1:A2"), cells("B1:B2"), cells("C1:C2")}));
    EXPECT_EQ(texts(look(id)), "|kept||kept too|\n|.|.|.|\n");
}

TEST_F(MergeEdits, MergeAll_takes_in_the_merges_that_it_overlaps) {
    const KdDbObjectId id = add(TableBuilder(4, 4).merge("B2:D3").select("A1:B2"));
    CVqTableCommon::MergeAll(id);
    EXPECT_EQ(merges(id), Merges{cells("A1:D3")});
}

TEST_F(MergeEdits, MergeByRow_makes_one_merge_of_each_row) {
    const KdDbObjectId id = add(TableBuilder(4, 4).merge("A2:B3").text("A2", L"first").select("A2:C4"));
    EXPECT_EQ(CVqTableCommon::MergeByRow(id), 1);
    EXPECT_EQ(merges(id), (Merges{cells("A2:C2"), cells("A3:C3"), cells("A4:C4")}));
    EXPECT_STREQ(look(id).textString(1, 0), L"first");
}

TEST_F(MergeEdits, MergeByRow_counts_the_first_cell_of_every_row_but_the_first_as_content) {
    const KdDbObjectId id = add(TableBuilder(3, 2).text("A1", L"kept").text("A2", L"kept too").select("A1:B3"));
    BoxAnswers answers({BoxAnswer::Yes});
    EXPECT_EQ(CVqTableCommon::MergeByRow(id), 1);
    EXPECT_EQ(answers.count(), 1);
    EXPECT_EQ(merges(id), (Merges{cells("A1:B1"), cells("A2:B2"), cells("A3:B3")}));
    EXPECT_EQ(texts(look(id)), "|kept|.|\n|kept too|.|\n||.|\n");
}

TEST_F(MergeEdits, MergeByRow_after_a_no_leaves_that_row_and_merges_the_later_ones_without_a_question) {
    const KdDbObjectId id =
        add(TableBuilder(4, 2).text("A2", L"stays").text("A3", L"3").text("B3", L"lost").select("A1:B4"));
    BoxAnswers answers({BoxAnswer::No});
    EXPECT_EQ(CVqTableCommon::MergeByRow(id), 1);
    EXPECT_EQ(answers.count(), 1);
    EXPECT_EQ(merges(id), (Merges{cells("A1:B1"), cells("A3:B3"), cells("A4:B4")}));
    EXPECT_EQ(texts(look(id)), "||.|\n|stays||\n|3|.|\n||.|\n");
}

TEST_F(MergeEdits, MergeByRow_takes_old_merges_apart_at_the_first_row_that_is_merged) {
    // The no at the first row leaves the old merge until the second row is merged.
    const KdDbObjectId id =
        add(TableBuilder(3, 3).text("B1", L"stays").merge("A2:C3").text("A2", L"2").select("A1:C3"));
    BoxAnswers answers({BoxAnswer::No});
    CVqTableCommon::MergeByRow(id);
    EXPECT_EQ(answers.count(), 1);
    EXPECT_EQ(merges(id), (Merges{cells("A2:C2"), cells("A3:C3")}));
    EXPECT_EQ(texts(look(id)), "||stays||\n|2|.|.|\n||.|.|\n");
}

TEST_F(MergeEdits, MergeByRow_of_one_row_after_a_no_takes_nothing_apart) {
    const KdDbObjectId id = add(TableBuilder(2, 3).merge("A1:B1").text("C1", L"there").select("A1:C1"));
    const std::string before = describe(look(id));
    BoxAnswers answers({BoxAnswer::No});
    CVqTableCommon::MergeByRow(id);
    EXPECT_EQ(describe(look(id)), before);
    EXPECT_TRUE(steps().empty());
}

TEST_F(MergeEdits, MergeByColumn_makes_one_merge_of_each_column) {
    const KdDbObjectId id = add(TableBuilder(3, 3).merge("A1:B1").text("A1", L"first").select("A1:B3"));
    EXPECT_EQ(CVqTableCommon::MergeByColumn(id), 1);
    EXPECT_EQ(merges(id), (Merges{cells("A1:A3"), cells("B1:B3")}));
    EXPECT_STREQ(look(id).textString(0, 0), L"first");
}

TEST_F(MergeEdits, MergeByColumn_after_a_no_leaves_that_column_and_merges_the_later_ones_without_a_question) {
    const KdDbObjectId id = add(TableBuilder(2, 4).text("B1", L"stays").text("C2", L"lost").select("A1:D2"));
    BoxAnswers answers({BoxAnswer::No});
    EXPECT_EQ(CVqTableCommon::MergeByColumn(id), 1);
    EXPECT_EQ(answers.count(), 1);
    EXPECT_EQ(merges(id), (Merges{cells("A1:A2"), cells("C1:C2"), cells("D1:D2")}));
    EXPECT_EQ(texts(look(id)), "||stays|||\n|.||.|.|\n");
}

TEST_F(MergeEdits, Merges_made_after_a_yes_come_back_with_their_content_by_one_undo) {
    for (const Edit edit : {CVqTableCommon::MergeAll, CVqTableCommon::MergeByRow, CVqTableCommon::MergeByColumn}) {
        const KdDbObjectId id = add(TableBuilder(3, 3).merge("A1:B2").fill().select("A1:C3"));
        const std::string before = describe(look(id));
        BoxAnswers answers({BoxAnswer::Yes});
        edit(id);
        EXPECT_NE(describe(look(id)), before);
        EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
        EXPECT_EQ(describe(look(id)), before);
    }
}

TEST_F(MergeEdits, Selections_that_name_no_rectangle_are_left_alone_without_a_question) {
    for (const Edit edit : {CVqTableCommon::UnmergeCells, CVqTableCommon::MergeAll, CVqTableCommon::MergeByRow,
                            CVqTableCommon::MergeByColumn}) {
        for (const KdCellRange& range :
             {KdCellRange{1, -1, 2, -1}, {-1, 0, -1, 1}, {0, 0, -1, 2}, {2, 2, 0, 0}, {-1, -1, -1, -1}}) {
            const KdDbObjectId id = add(TableBuilder(3, 3).merge("A1:B2").fill());
            const std::string before = describe(look(id));
            select(id, range);
            EXPECT_EQ(edit(id), 1);
            EXPECT_EQ(describe(look(id)), before);
        }
    }
}

TEST_F(MergeEdits, A_single_cell_is_no_merge) {
    for (const Edit edit : {CVqTableCommon::MergeAll, CVqTableCommon::MergeByRow, CVqTableCommon::MergeByColumn}) {
        const KdDbObjectId id = add(TableBuilder(3, 3).fill().select("B2"));
        edit(id);
        EXPECT_EQ(merges(id), Merges{});
    }
}

}  // namespace
}  // namespace kdtest
