// A table's counts and sizes, its rows' types, and its selection.

#include "kd/db/table.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/tablebuilder.h"

using kdtest::cells;
using kdtest::describe;
using kdtest::TableBuilder;

namespace {

constexpr KdCellRange kNothing{-1, -1, -1, -1};

}  // namespace

TEST(Table, begins_with_one_title_row_and_one_column) {
    KdDbTable table;
    EXPECT_EQ(table.numRows(), 1);
    EXPECT_EQ(table.numColumns(), 1);
    EXPECT_EQ(table.rowType(0), KdDb::kTitleRow);
    EXPECT_STREQ(table.cellStyle(0, 0), L"_TITLE");
    EXPECT_DOUBLE_EQ(table.rowHeight(0), 2 * 1.5 + 6.0 + 6.0 / 3.0);
    EXPECT_DOUBLE_EQ(table.columnWidth(0), 63.5);
}

TEST(Table, setSize_gives_row_0_the_title_row_1_the_header_and_the_rest_data) {
    KdDbTable table;
    table.setSize(4, 3);
    EXPECT_EQ(table.rowType(0), KdDb::kTitleRow);
    EXPECT_EQ(table.rowType(1), KdDb::kHeaderRow);
    EXPECT_EQ(table.rowType(2), KdDb::kDataRow);
    EXPECT_EQ(table.rowType(3), KdDb::kDataRow);
    for (int column = 0; column < 3; ++column) {
        EXPECT_STREQ(table.cellStyle(0, column), L"_TITLE");
        EXPECT_STREQ(table.cellStyle(1, column), L"_HEADER");
        EXPECT_STREQ(table.cellStyle(3, column), L"_DATA");
    }
    EXPECT_FALSE(table.isMergedCell(0, 0)) << "merge-all never merges by itself";
    EXPECT_TRUE(table.isMergeAllEnabled(0, 0));
    EXPECT_FALSE(table.isMergeAllEnabled(1, 0));
}

TEST(Table, setSize_takes_no_rows_and_no_columns) {
    KdDbTable table;
    table.setSize(0, 0);
    EXPECT_EQ(table.numRows(), 0);
    EXPECT_EQ(table.numColumns(), 0);
    EXPECT_DOUBLE_EQ(table.width(), 0.0);
    table.setTextString(0, 0, L"nowhere");
    table.setTextString(-1, -1, L"nowhere");
    table.generateLayout();
    table.mergeCells(-1, -1, 0, 0);
    EXPECT_STREQ(table.textString(0, 0), L"");
    EXPECT_FALSE(table.getGeomExtents().isValid());
    table.setSize(2, 2);
    EXPECT_EQ(table.rowType(1), KdDb::kHeaderRow);
}

TEST(Table, setSize_keeps_what_stands_inside_the_new_size) {
    auto table = TableBuilder(4, 4).fill().merge("A2:B3").rowHeight(1, 20).columnWidth(1, 30).build();
    table->setSize(3, 2);
    table->setSize(4, 4);
    EXPECT_STREQ(table->textString(1, 0), L"A2");
    EXPECT_STREQ(table->textString(1, 2), L"");
    EXPECT_EQ(table->getMergeRange(2, 1), cells("A2:B3"));
    EXPECT_DOUBLE_EQ(table->rowHeight(1), 20);
    EXPECT_DOUBLE_EQ(table->columnWidth(1), 30);
}

TEST(Table, a_negative_count_changes_nothing) {
    auto table = TableBuilder(3, 3).fill().build();
    const std::string before = describe(*table);
    table->setSize(-1, 3);
    table->setSize(3, -1);
    table->setNumRows(-1);
    table->setNumColumns(-1);
    EXPECT_EQ(describe(*table), before);
}

TEST(Table, shrinking_cuts_merges) {
    auto table = TableBuilder(4, 4).fill().merge("B2:D4").build();
    table->setNumRows(3);
    EXPECT_EQ(table->getMergeRange(1, 1), cells("B2:D3"));
    table->setNumColumns(2);
    EXPECT_EQ(table->getMergeRange(1, 1), cells("B2:B3"));
    table->setNumRows(2);
    EXPECT_FALSE(table->isMergedCell(1, 1));
    EXPECT_STREQ(table->textString(1, 1), L"B2");
}

TEST(Table, new_columns_take_the_style_of_their_row) {
    auto table = TableBuilder(3, 1).rowStyle(2, L"_HEADER").build();
    table->setNumColumns(2);
    EXPECT_STREQ(table->cellStyle(0, 1), L"_TITLE");
    EXPECT_STREQ(table->cellStyle(2, 1), L"_HEADER");
}

TEST(Table, sizes_stay_as_set_and_bad_ones_change_nothing) {
    auto table = TableBuilder(3, 2).fill().build();
    table->setRowHeight(1, 0.5);
    table->setColumnWidth(1, 2.0);
    EXPECT_DOUBLE_EQ(table->rowHeight(1), 0.5) << "lower than its text, and kept";
    EXPECT_DOUBLE_EQ(table->columnWidth(1), 2.0);
    EXPECT_DOUBLE_EQ(table->width(), 63.5 + 2.0);
    const std::string before = describe(*table);
    for (const int place : {-2, 3, 1000}) {
        table->setRowHeight(place, 7);
        table->setColumnWidth(place, 7);
    }
    table->setRowHeight(0, -1);
    table->setColumnWidth(0, -1);
    for (const double size : {std::nan(""), HUGE_VAL}) {
        for (const int place : {0, -1}) {
            table->setRowHeight(place, size);
            table->setColumnWidth(place, size);
        }
    }
    EXPECT_EQ(describe(*table), before);
}

TEST(Table, a_size_for_minus_one_is_for_all) {
    auto table = TableBuilder(3, 2).build();
    table->setRowHeight(-1, 12);
    table->setColumnWidth(-1, 13);
    EXPECT_DOUBLE_EQ(table->rowHeight(2), 12);
    EXPECT_DOUBLE_EQ(table->columnWidth(1), 13);
    table->setRowHeight(14.0);
    table->setColumnWidth(15.0);
    EXPECT_DOUBLE_EQ(table->rowHeight(0), 14);
    EXPECT_DOUBLE_EQ(table->rowHeight(-1), 14);
    EXPECT_DOUBLE_EQ(table->columnWidth(-1), 15);
}

TEST(Table, the_row_type_follows_the_style_of_the_whole_row_only) {
    auto table = TableBuilder(3, 2).build();
    table->setCellStyle(2, 0, L"_TITLE");
    EXPECT_EQ(table->rowType(2), KdDb::kDataRow);
    table->setCellStyle(2, -1, L"_title");
    EXPECT_EQ(table->rowType(2), KdDb::kTitleRow);
    table->setCellStyle(-1, -1, L"_HEADER");
    EXPECT_EQ(table->rowType(0), KdDb::kHeaderRow);
    EXPECT_EQ(table->rowType(7), KdDb::kDataRow) << "outside the table";
}

TEST(Table, textHeight_of_a_row_type_is_the_styles) {
    KdDbTable table;
    EXPECT_DOUBLE_EQ(table.textHeight(KdDb::kTitleRow), 6.0);
    EXPECT_DOUBLE_EQ(table.textHeight(KdDb::kHeaderRow), 4.5);
    EXPECT_DOUBLE_EQ(table.textHeight(KdDb::kDataRow), 4.5);
    EXPECT_DOUBLE_EQ(table.textHeight(KdDb::kUnknownRow), 4.5);
}

TEST(Table, flow_and_the_header_flag_are_kept_and_the_row_stays) {
    auto table = TableBuilder(3, 2).build();
    EXPECT_EQ(table->flowDirection(), 0);
    table->setFlowDirection(1);
    EXPECT_EQ(table->flowDirection(), 1);
    table->suppressHeaderRow(true);
    EXPECT_TRUE(table->isHeaderSuppressed());
    EXPECT_FALSE(table->isTitleSuppressed());
    EXPECT_EQ(table->numRows(), 3);
    EXPECT_EQ(table->rowType(1), KdDb::kHeaderRow);
}

TEST(Table, an_option_for_the_whole_table_changes_nothing) {
    auto table = TableBuilder(3, 2).fill().build();
    const std::string before = describe(*table);
    table->setTableOption(1, 7);
    EXPECT_EQ(describe(*table), before);
}

// ---- the selection

TEST(TableSelection, none_is_minus_one_in_all_fields_and_a_status) {
    auto table = TableBuilder(3, 3).build();
    EXPECT_FALSE(table->hasSubSelection());
    EXPECT_EQ(table->getSubSelection(), kNothing);
    int top = 7, bottom = 7, left = 7, right = 7;
    EXPECT_NE(table->getSubSelection(top, bottom, left, right), Kdad::eOk);
}

TEST(TableSelection, rows_come_first_in_the_numbers_and_the_range_is_top_left_bottom_right) {
    auto table = TableBuilder(5, 5).build();
    table->setSubSelection(1, 3, 2, 4);
    EXPECT_EQ(table->getSubSelection(), (KdCellRange{1, 2, 3, 4}));
    int top = 0, bottom = 0, left = 0, right = 0;
    EXPECT_EQ(table->getSubSelection(top, bottom, left, right), Kdad::eOk);
    EXPECT_EQ(top, 1);
    EXPECT_EQ(bottom, 3);
    EXPECT_EQ(left, 2);
    EXPECT_EQ(right, 4);
    table->clearSubSelection();
    EXPECT_FALSE(table->hasSubSelection());
}

TEST(TableSelection, whole_rows_and_columns_and_reversed_ranges_stay_as_given) {
    auto table = TableBuilder(5, 5).merge("B2:C3").build();
    for (const KdCellRange& range :
         {KdCellRange{1, -1, 2, -1}, KdCellRange{-1, 0, -1, 3}, KdCellRange{3, 3, 1, 1}, KdCellRange{1, 2, 1, 2}}) {
        table->setSubSelection(range);
        EXPECT_EQ(table->getSubSelection(), range);
        int top = 0, bottom = 0, left = 0, right = 0;
        EXPECT_EQ(table->getSubSelection(top, bottom, left, right), Kdad::eOk);
        EXPECT_EQ((KdCellRange{top, left, bottom, right}), range);
    }
}

TEST(TableSelection, is_held_inside_the_table_after_rows_or_columns_went) {
    auto table = TableBuilder(5, 5).select("D4:E5").build();
    table->deleteRows(3, 2);
    EXPECT_EQ(table->getSubSelection(), (KdCellRange{2, 3, 2, 4}));
    table->deleteColumns(0, 2);
    EXPECT_EQ(table->getSubSelection(), (KdCellRange{2, 2, 2, 2}));
    table->setSubSelection({-1, 2, -1, 2});
    table->setSize(1, 1);
    EXPECT_EQ(table->getSubSelection(), (KdCellRange{-1, 0, -1, 0}));
    table->setSize(0, 0);
    EXPECT_FALSE(table->hasSubSelection());
}

TEST(TableSelection, stays_as_it_was_held_when_as_many_rows_or_columns_come_back) {
    auto rows = TableBuilder(5, 5).select("D4:E5").build();
    rows->deleteRows(3, 2);
    rows->insertRowsAndInherit(3, 2, 2);
    EXPECT_EQ(rows->getSubSelection(), (KdCellRange{2, 3, 2, 4}));
    auto columns = TableBuilder(5, 5).select("D4:E5").build();
    columns->deleteColumns(3, 2);
    columns->insertColumnsAndInherit(3, 2, 2);
    EXPECT_EQ(columns->getSubSelection(), (KdCellRange{3, 2, 4, 2}));
}

TEST(TableSelection, stays_where_it_is_when_rows_come) {
    auto table = TableBuilder(3, 3).select("B2").build();
    table->insertRowsAndInherit(0, 0, 2);
    EXPECT_EQ(table->getSubSelection(), cells("B2"));
}

TEST(TableSelection, is_no_part_of_a_copy_of_the_table) {
    auto table = TableBuilder(3, 3).fill().select("B2").build();
    KdDbTable copy;
    ASSERT_EQ(copy.copyFrom(table.get()), Kdad::eOk);
    EXPECT_EQ(describe(copy), describe(*table));
    EXPECT_FALSE(copy.hasSubSelection());
}
