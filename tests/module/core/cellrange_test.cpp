// The value class of a range: its forms, its counts, and when it lies in another.

#include "module/core/cellrange.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/module/core/sampletables.h"

namespace kdtest {
namespace {

CKdTableCellRange rangeOf(int top, int left, int bottom, int right) {
    return CKdTableCellRange(KdCellRange{top, left, bottom, right});
}

const CKdTableCellRange block = rangeOf(1, 1, 2, 3);
const CKdTableCellRange wholeRows = rangeOf(1, -1, 2, -1);
const CKdTableCellRange wholeColumns = rangeOf(-1, 1, -1, 3);
const CKdTableCellRange invalid;

TEST(KdTableCellRange, A_default_range_is_invalid_and_counts_no_cells) {
    const CKdTableCellRange range;
    EXPECT_FALSE(range.isValid());
    EXPECT_EQ(range.numCells(), 0);
    EXPECT_EQ(range.numRows(), 0);
    EXPECT_EQ(range.numColumns(), 0);
    EXPECT_EQ(range.asRange(), (KdCellRange{-1, -1, -1, -1}));
}

TEST(KdTableCellRange, It_takes_the_four_fields_of_what_it_is_given) {
    const KdCellRange fields{1, 2, 3, 4};
    CKdTableCellRange range;
    range = fields;
    EXPECT_EQ(range.asRange(), fields);
    range = CKdTableCellRange();
    EXPECT_EQ(range.asRange(), KdCellRange{});
    range = &fields;
    EXPECT_EQ(range.asRange(), fields);
    const KdCellRange* none = nullptr;
    range = none;
    EXPECT_EQ(range.asRange(), fields);
    EXPECT_EQ(CKdTableCellRange(range).asRange(), fields);
}

struct Count {
    KdCellRange range;
    bool valid;
    int rangeOf;
    int rows;
    int columns;
};

TEST(KdTableCellRange, Each_form_counts_its_own_unit) {
    const Count counts[] = {
        {{0, 0, 0, 0}, true, 1, 1, 1},    {{1, 1, 2, 3}, true, 6, 2, 3},
        {{5, 0, 2, 0}, true, 4, 4, 1},  // reversed, counted as an absolute difference
        {{2, 3, 1, 1}, true, 6, 2, 3},    {{1, -1, 4, -1}, true, 4, 4, 0},  // whole rows
        {{4, -2, 1, -7}, true, 4, 4, 0},  {{-1, 2, -1, 3}, true, 2, 0, 2},  // whole columns
        {{-5, 3, -1, 2}, true, 2, 0, 2},  {{-1, -1, -1, -1}, false, 0, 0, 0},
        {{-1, 0, 0, 0}, false, 0, 0, 1},  {{0, -1, 0, 0}, false, 0, 1, 0},
        {{0, 0, -1, 0}, false, 0, 0, 1},  {{0, 0, 0, -1}, false, 0, 1, 0},
        {{0, -1, -1, 0}, false, 0, 0, 0}, {{-1, -1, 0, -1}, false, 0, 0, 0},
    };
    for (const Count& expected : counts) {
        const CKdTableCellRange range(expected.range);
        SCOPED_TRACE(::testing::PrintToString(expected.range));
        EXPECT_EQ(range.isValid(), expected.valid);
        EXPECT_EQ(range.numCells(), expected.rangeOf);
        EXPECT_EQ(range.numRows(), expected.rows);
        EXPECT_EQ(range.numColumns(), expected.columns);
    }
}

TEST(KdTableCellRange, A_count_too_large_for_a_number_stays_at_the_largest) {
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(rangeOf(0, 0, most, 0).numRows(), most);
    EXPECT_EQ(rangeOf(0, 0, most, most).numCells(), most);
}

TEST(KdTableCellRange, A_block_lies_in_a_block_on_both_axes) {
    EXPECT_TRUE(block.beingContained(block));
    EXPECT_TRUE(block.beingContained(rangeOf(0, 0, 9, 9)));
    EXPECT_FALSE(block.beingContained(rangeOf(2, 1, 2, 3)));
    EXPECT_FALSE(block.beingContained(rangeOf(1, 2, 2, 3)));
    EXPECT_FALSE(block.beingContained(rangeOf(1, 1, 1, 3)));
    EXPECT_FALSE(block.beingContained(rangeOf(1, 1, 2, 2)));
}

TEST(KdTableCellRange, A_block_is_held_against_whole_rows_by_rows_and_against_whole_columns_by_columns) {
    EXPECT_TRUE(block.beingContained(wholeRows));
    EXPECT_FALSE(block.beingContained(rangeOf(2, -1, 2, -1)));
    EXPECT_FALSE(block.beingContained(rangeOf(1, -1, 1, -1)));
    EXPECT_TRUE(block.beingContained(wholeColumns));
    EXPECT_FALSE(block.beingContained(rangeOf(-1, 2, -1, 3)));
    EXPECT_FALSE(block.beingContained(rangeOf(-1, 1, -1, 2)));
    EXPECT_FALSE(block.beingContained(invalid));
}

TEST(KdTableCellRange, Whole_rows_compare_only_rows_and_whole_columns_only_columns) {
    EXPECT_TRUE(wholeRows.beingContained(block));
    EXPECT_TRUE(wholeRows.beingContained(wholeRows));
    EXPECT_FALSE(wholeRows.beingContained(rangeOf(2, 0, 9, 9)));
    EXPECT_FALSE(wholeRows.beingContained(wholeColumns));
    EXPECT_TRUE(wholeRows.beingContained(rangeOf(0, -1, 5, 0)));  // an invalid one, whose rows hold
    EXPECT_TRUE(wholeColumns.beingContained(block));
    EXPECT_TRUE(wholeColumns.beingContained(wholeColumns));
    EXPECT_FALSE(wholeColumns.beingContained(rangeOf(0, 2, 9, 9)));
    EXPECT_FALSE(wholeColumns.beingContained(wholeRows));
}

TEST(KdTableCellRange, An_invalid_range_is_compared_with_whole_columns_only) {
    EXPECT_FALSE(invalid.beingContained(block));
    EXPECT_FALSE(invalid.beingContained(wholeRows));
    EXPECT_FALSE(invalid.beingContained(invalid));
    EXPECT_FALSE(invalid.beingContained(wholeColumns));
    EXPECT_TRUE(rangeOf(0, 1, -1, 2).beingContained(wholeColumns));
    EXPECT_FALSE(rangeOf(0, 0, -1, 2).beingContained(wholeColumns));
}

TEST(KdTableCellRange, Ranges_match_by_their_size_alone) {
    EXPECT_TRUE(block.rangeMatching(block));
    EXPECT_TRUE(invalid.rangeMatching(invalid));
    EXPECT_TRUE(block.rangeMatching(rangeOf(7, 7, 8, 9)));
    EXPECT_TRUE(block.rangeMatching(rangeOf(8, 9, 7, 7)));
    EXPECT_FALSE(block.rangeMatching(rangeOf(1, 1, 3, 2)));
    EXPECT_FALSE(block.rangeMatching(wholeRows));
    EXPECT_TRUE(wholeRows.rangeMatching(rangeOf(4, -3, 5, -1)));
}

TEST(KdTableCellRange, A_range_is_held_against_a_table_by_its_end) {
    const auto table = makeTable(3, 4);
    EXPECT_TRUE(rangeOf(0, 0, 2, 3).checkRangeFromTable(table.get()));
    EXPECT_FALSE(rangeOf(0, 0, 3, 3).checkRangeFromTable(table.get()));
    EXPECT_FALSE(rangeOf(0, 0, 2, 4).checkRangeFromTable(table.get()));
    EXPECT_TRUE(rangeOf(7, 0, 2, 3).checkRangeFromTable(table.get()));  // reversed: the end alone counts
    EXPECT_TRUE(rangeOf(0, -1, 2, -1).checkRangeFromTable(table.get()));
    EXPECT_FALSE(rangeOf(0, -1, 3, -1).checkRangeFromTable(table.get()));
    EXPECT_TRUE(rangeOf(-1, 0, -1, 3).checkRangeFromTable(table.get()));
    EXPECT_FALSE(rangeOf(-1, 0, -1, 4).checkRangeFromTable(table.get()));
    EXPECT_FALSE(invalid.checkRangeFromTable(table.get()));
    EXPECT_FALSE(rangeOf(0, 0, 0, 0).checkRangeFromTable(nullptr));
}

}  // namespace
}  // namespace kdtest
