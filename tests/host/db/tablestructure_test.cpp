// Rows, columns and merges: how they come and go together.

#include <gtest/gtest.h>

#include "tests/support/tablebuilder.h"

using kdtest::cells;
using kdtest::describe;
using kdtest::TableBuilder;
using kdtest::texts;

namespace {

/// Calls the operation with arguments that mean nothing; the table must stay as it is.
template <class Operation>
void expectUntouched(KdDbTable& table, Operation operation) {
    const std::string before = describe(table);
    operation();
    EXPECT_EQ(describe(table), before);
}

}  // namespace

// ---- merging

TEST(TableMerge, takes_both_rows_first_and_then_both_columns) {
    auto table = TableBuilder(5, 6).build();
    table->mergeCells(1, 2, 3, 5);
    int top = 0, bottom = 0, left = 0, right = 0;
    ASSERT_TRUE(table->isMergedCell(2, 4, &top, &bottom, &left, &right));
    EXPECT_EQ(top, 1);
    EXPECT_EQ(bottom, 2);
    EXPECT_EQ(left, 3);
    EXPECT_EQ(right, 5);
    EXPECT_EQ(table->getMergeRange(2, 4), (KdCellRange{1, 3, 2, 5}));
    EXPECT_FALSE(table->isMergedCell(3, 1)) << "not the rectangle with the orders confused";
}

TEST(TableMerge, outputs_of_a_cell_in_no_merge_stay_as_they_were_and_any_may_be_null) {
    auto table = TableBuilder(3, 3).merge("A1:B2").build();
    int top = 7, bottom = 8, left = 9, right = 10;
    EXPECT_FALSE(table->isMergedCell(2, 2, &top, &bottom, &left, &right));
    EXPECT_EQ(top, 7);
    EXPECT_EQ(bottom, 8);
    EXPECT_EQ(left, 9);
    EXPECT_EQ(right, 10);
    EXPECT_FALSE(table->isMergedCell(5, 0, &top, nullptr, nullptr, nullptr));
    EXPECT_TRUE(table->isMergedCell(1, 1, nullptr, &bottom, nullptr, nullptr));
    EXPECT_EQ(bottom, 1);
}

TEST(TableMerge, clears_the_text_of_covered_cells_and_keeps_the_owners) {
    auto table = TableBuilder(3, 3).fill().build();
    table->mergeCells(0, 1, 0, 1);
    EXPECT_EQ(texts(*table), "|A1|.|C1|\n|.|.|C2|\n|A3|B3|C3|\n");
    table->unmergeCells(0, 0, 0, 0);
    EXPECT_EQ(texts(*table), "|A1||C1|\n|||C2|\n|A3|B3|C3|\n");
}

TEST(TableMerge, absorbs_merges_that_it_touches_whole) {
    auto table = TableBuilder(6, 6).fill().merge("B2:C3").merge("D4:E5").build();
    // C3:D4 touches both; the rectangle around them all becomes the merge.
    table->mergeCells(2, 3, 2, 3);
    EXPECT_EQ(table->getMergeRange(4, 4), cells("B2:E5"));
    EXPECT_STREQ(table->textString(1, 1), L"B2");
    table->unmergeCells(4, 4, 4, 4);
    EXPECT_FALSE(table->isMergedCell(1, 1));
}

TEST(TableMerge, grows_again_when_what_it_absorbs_brings_more) {
    auto table = TableBuilder(6, 6).merge("A1:B1").merge("B2:B4").merge("A4:A5").build();
    table->mergeCells(0, 1, 1, 1);
    EXPECT_EQ(table->getMergeRange(0, 0), cells("A1:B5"));
}

TEST(TableMerge, whole_rows_and_whole_columns_are_given_by_minus_one) {
    auto table = TableBuilder(4, 4).build();
    table->mergeCells(1, 1, -1, -1);
    EXPECT_EQ(table->getMergeRange(1, 2), cells("A2:D2"));
    table->unmergeCells(-1, -1, 0, 0);
    EXPECT_FALSE(table->isMergedCell(1, 2));
    table->mergeCells(-1, -1, 2, 3);
    EXPECT_EQ(table->getMergeRange(3, 3), cells("C1:D4"));
}

TEST(TableMerge, of_nothing_one_cell_or_a_place_outside_changes_nothing) {
    auto table = TableBuilder(4, 4).fill().merge("B2:C3").build();
    expectUntouched(*table, [&] {
        table->mergeCells(0, 0, 0, 0);
        table->mergeCells(2, 2, 2, 2);
        table->mergeCells(1, 2, 1, 2);
        table->mergeCells(0, 4, 0, 1);
        table->mergeCells(0, 1, 3, 4);
        table->mergeCells(1, 0, 0, 1);
        table->mergeCells(0, 1, 1, 0);
        table->mergeCells(-1, -1, -1, -1);
        table->mergeCells(-2, 1, 0, 1);
        table->mergeCells(-1, 1, 0, 1);
        table->unmergeCells(3, 3, 3, 3);
        table->unmergeCells(0, 9, 0, 9);
        table->unmergeCells(2, 1, 2, 1);
    });
}

TEST(TableMerge, is_refused_over_locked_content_and_so_is_its_end) {
    for (const KdDb::CellState lock : {KdDb::kCellStateContentLocked, KdDb::kCellStateContentReadOnly}) {
        auto table = TableBuilder(4, 4).fill().merge("C3:D4").lock("C3", lock).lock("B2", lock).build();
        expectUntouched(*table, [&] {
            table->mergeCells(0, 1, 0, 1);
            table->unmergeCells(0, 3, 0, 3);
        });
    }
    auto table = TableBuilder(3, 3).lock("A1:C3", KdDb::kCellStateFormatLocked).build();
    table->mergeCells(0, 1, 0, 1);
    EXPECT_TRUE(table->isMergedCell(0, 0)) << "a lock of the format is none of the content";
}

TEST(TableMerge, unmerging_ends_every_merge_that_the_rectangle_touches) {
    auto table = TableBuilder(6, 6).merge("A1:B2").merge("C1:D2").merge("E5:F6").build();
    table->unmergeCells(1, 1, 1, 2);
    EXPECT_FALSE(table->isMergedCell(0, 0));
    EXPECT_FALSE(table->isMergedCell(0, 3));
    EXPECT_TRUE(table->isMergedCell(4, 4));
}

// ---- inserting

TEST(TableInsert, at_a_merges_first_row_moves_it_and_inside_makes_it_grow) {
    auto table = TableBuilder(4, 3).fill().merge("B2:C3").build();
    table->insertRowsAndInherit(1, 1, 2);
    EXPECT_EQ(table->getMergeRange(3, 1), cells("B4:C5"));
    EXPECT_FALSE(table->isMergedCell(1, 1));
    table->insertRowsAndInherit(4, 4, 3);
    EXPECT_EQ(table->getMergeRange(3, 1), cells("B4:C8"));
    table->insertRowsAndInherit(8, 7, 1);
    EXPECT_EQ(table->getMergeRange(3, 1), cells("B4:C8")) << "behind the last row";
    EXPECT_STREQ(table->textString(3, 1), L"B2");
}

TEST(TableInsert, of_columns_follows_the_same_rules) {
    auto table = TableBuilder(3, 4).fill().merge("B2:C3").build();
    table->insertColumnsAndInherit(1, 1, 2);
    EXPECT_EQ(table->getMergeRange(1, 3), cells("D2:E3"));
    table->insertColumnsAndInherit(4, 4, 3);
    EXPECT_EQ(table->getMergeRange(1, 3), cells("D2:H3"));
    table->insertColumnsAndInherit(8, 7, 1);
    EXPECT_EQ(table->getMergeRange(1, 3), cells("D2:H3"));
    EXPECT_EQ(table->numColumns(), 10);
}

TEST(TableInsert, takes_looks_and_size_of_the_inherited_row_and_neither_content_nor_locks) {
    auto table = TableBuilder(4, 2)
                     .fill()
                     .align("A3:B3", KdDb::kBottomRight)
                     .cellStyle("B3", L"_HEADER")
                     .rowHeight(2, 33)
                     .lock("A3")
                     .build();
    table->insertRowsAndInherit(0, 2, 2);
    for (const int row : {0, 1}) {
        EXPECT_DOUBLE_EQ(table->rowHeight(row), 33);
        EXPECT_EQ(table->alignment(row, 0), KdDb::kBottomRight);
        EXPECT_STREQ(table->cellStyle(row, 1), L"_HEADER");
        EXPECT_EQ(table->rowType(row), KdDb::kDataRow);
        EXPECT_TRUE(table->isEmpty(row, 0));
        EXPECT_EQ(table->cellState(row, 0), KdDb::kCellStateNone);
    }
    EXPECT_EQ(table->rowType(2), KdDb::kTitleRow);
}

TEST(TableInsert, of_columns_takes_width_and_looks_of_the_inherited_one) {
    auto table = TableBuilder(3, 3).fill().align("B2", KdDb::kMiddleLeft).columnWidth(1, 12).build();
    table->insertColumnsAndInherit(3, 1, 1);
    EXPECT_DOUBLE_EQ(table->columnWidth(3), 12);
    EXPECT_EQ(table->alignment(1, 3), KdDb::kMiddleLeft);
    EXPECT_TRUE(table->isEmpty(1, 3));
}

TEST(TableInsert, with_nothing_to_inherit_from_gives_the_defaults_of_new_ones) {
    auto table = TableBuilder(3, 2).rowHeight(2, 50).columnWidth(1, 5).build();
    for (const int inherit : {-1, 3, 99}) {
        table->insertRowsAndInherit(3, inherit, 1);
        EXPECT_DOUBLE_EQ(table->rowHeight(3), 9);
        EXPECT_EQ(table->rowType(3), KdDb::kDataRow);
        table->insertColumnsAndInherit(2, inherit, 1);
        EXPECT_DOUBLE_EQ(table->columnWidth(2), 63.5);
        EXPECT_STREQ(table->cellStyle(1, 2), L"_HEADER");
        table->deleteRows(3, 1);
        table->deleteColumns(2, 1);
    }
}

TEST(TableInsert, outside_the_table_or_of_nothing_changes_nothing) {
    auto table = TableBuilder(3, 3).fill().build();
    expectUntouched(*table, [&] {
        table->insertRowsAndInherit(-1, 0, 1);
        table->insertRowsAndInherit(4, 0, 1);
        table->insertRowsAndInherit(1, 0, 0);
        table->insertRowsAndInherit(1, 0, -2);
        table->insertColumnsAndInherit(-1, 0, 1);
        table->insertColumnsAndInherit(4, 0, 1);
        table->insertColumnsAndInherit(1, 0, 0);
    });
}

TEST(TableInsert, rows_that_came_together_are_apart_from_each_other) {
    auto table = TableBuilder(2, 2).build();
    table->insertRowsAndInherit(2, 1, 3);
    table->setTextString(3, 0, L"only here");
    EXPECT_TRUE(table->isEmpty(2, 0));
    EXPECT_TRUE(table->isEmpty(4, 0));
    EXPECT_TRUE(table->isEmpty(1, 0));
}

// ---- deleting

TEST(TableDelete, inside_a_merge_makes_it_shorter) {
    auto table = TableBuilder(6, 4).fill().merge("B2:C5").build();
    table->deleteRows(2, 2);
    EXPECT_EQ(table->getMergeRange(1, 1), cells("B2:C3"));
    table->deleteColumns(2, 1);
    EXPECT_EQ(table->getMergeRange(1, 1), cells("B2:B3"));
    table->deleteRows(2, 1);
    EXPECT_FALSE(table->isMergedCell(1, 1)) << "one cell is no merge";
    EXPECT_STREQ(table->textString(1, 1), L"B2");
}

TEST(TableDelete, of_the_owners_row_passes_content_and_looks_on) {
    auto table = TableBuilder(6, 4).fill().merge("B2:C5").align("B2", KdDb::kBottomLeft).lock("B2").build();
    table->deleteRows(0, 3);
    EXPECT_EQ(table->getMergeRange(0, 1), cells("B1:C2"));
    EXPECT_STREQ(table->textString(0, 1), L"B2");
    EXPECT_EQ(table->alignment(1, 2), KdDb::kBottomLeft);
    EXPECT_EQ(table->cellState(0, 1), KdDb::kCellStateContentLocked);
}

TEST(TableDelete, of_the_owners_column_passes_content_and_looks_on) {
    auto table = TableBuilder(4, 6).fill().merge("B2:E3").align("B2", KdDb::kBottomLeft).build();
    table->deleteColumns(0, 3);
    EXPECT_EQ(table->getMergeRange(1, 0), cells("A2:B3"));
    EXPECT_STREQ(table->textString(1, 0), L"B2");
    EXPECT_EQ(table->alignment(2, 1), KdDb::kBottomLeft);
}

TEST(TableDelete, of_all_rows_of_a_merge_takes_it_along_and_leaves_others) {
    auto table = TableBuilder(7, 4).fill().merge("A2:B3").merge("C2:D2").merge("A5:D6").build();
    table->deleteRows(1, 2);
    EXPECT_EQ(texts(*table), "|A1|B1|C1|D1|\n|A4|B4|C4|D4|\n|A5|.|.|.|\n|.|.|.|.|\n|A7|B7|C7|D7|\n");
    EXPECT_EQ(table->getMergeRange(3, 3), cells("A3:D4"));
}

TEST(TableDelete, keeps_a_row_and_a_column_and_refuses_places_outside) {
    auto table = TableBuilder(3, 3).fill().build();
    expectUntouched(*table, [&] {
        table->deleteRows(0, 3);
        table->deleteRows(2, 2);
        table->deleteRows(-1, 1);
        table->deleteRows(3, 1);
        table->deleteRows(0, 0);
        table->deleteRows(1, 2147483647);
        table->deleteColumns(0, 3);
        table->deleteColumns(2, 2);
        table->deleteColumns(-1, 1);
        table->deleteColumns(0, -1);
    });
}

TEST(TableDelete, is_done_through_locks_though_canDelete_says_no) {
    auto table = TableBuilder(3, 3).fill().lock("B2").build();
    EXPECT_FALSE(table->canDelete(1, 1, true));
    EXPECT_FALSE(table->canDelete(1, 1, false));
    table->deleteRows(1, 1);
    EXPECT_EQ(texts(*table), "|A1|B1|C1|\n|A3|B3|C3|\n");
}

TEST(TableCan, insert_from_0_to_the_count_whatever_is_locked) {
    auto table = TableBuilder(3, 2).lock("A1:B3").build();
    for (const int index : {0, 1, 3}) EXPECT_TRUE(table->canInsert(index, true)) << index;
    for (const int index : {-1, 4}) EXPECT_FALSE(table->canInsert(index, true)) << index;
    EXPECT_TRUE(table->canInsert(2, false));
    EXPECT_FALSE(table->canInsert(3, false));
}

TEST(TableCan, delete_inside_the_table_never_all_and_no_locked_content) {
    auto table = TableBuilder(4, 2).lock("B3").lock("A2", KdDb::kCellStateFormatLocked).build();
    EXPECT_TRUE(table->canDelete(0, 2, true));
    EXPECT_FALSE(table->canDelete(0, 3, true));
    EXPECT_TRUE(table->canDelete(3, 1, true));
    EXPECT_FALSE(table->canDelete(3, 2, true));
    EXPECT_FALSE(table->canDelete(-1, 1, true));
    EXPECT_FALSE(table->canDelete(0, 0, true));
    EXPECT_TRUE(table->canDelete(0, 1, false));
    EXPECT_FALSE(table->canDelete(1, 1, false));
    EXPECT_FALSE(table->canDelete(0, 2, false));
}
