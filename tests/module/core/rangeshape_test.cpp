// Conversions of ranges, tests of their shape, and of their place in the table.

#include <gtest/gtest.h>

#include "module/core/tablecommon.h"
#include "tests/module/core/sampletables.h"

namespace kdtest {
namespace {

TEST(RangeConversion, CellRangeConvert_copies_in_the_told_direction) {
    Range range{1, 2, 3, 4};
    KdCellRange host{5, 6, 7, 8};
    CVqTableCommon::CellRangeConvert(range, host, 1);
    EXPECT_EQ(host, (KdCellRange{1, 2, 3, 4}));
    EXPECT_EQ(range, (Range{1, 2, 3, 4}));
    host = {5, 6, 7, 8};
    CVqTableCommon::CellRangeConvert(range, host, 0);
    EXPECT_EQ(range, (Range{5, 6, 7, 8}));
    host = {};
    CVqTableCommon::CellRangeConvert(range, host, -7);
    EXPECT_EQ(host, (KdCellRange{5, 6, 7, 8}));
}

TEST(RangeConversion, CellRangeConvert_takes_numbers_with_both_rows_first) {
    Range range;
    CVqTableCommon::CellRangeConvert(range, 1, 3, 2, 4);
    EXPECT_EQ(range, (Range{1, 2, 3, 4}));
    KdCellRange host;
    CVqTableCommon::CellRangeConvert(host, 1, 3, 2, 4);
    EXPECT_EQ(host, (KdCellRange{1, 2, 3, 4}));
}

TEST(RangeConversion, Indicators_count_from_one) {
    Range out;
    EXPECT_TRUE(CVqTableCommon::IndicatorRangeToCellRange({1, 2, 3, 4}, out));
    EXPECT_EQ(out, (Range{0, 1, 2, 3}));
    EXPECT_TRUE(CVqTableCommon::CellRangeToIndicatorRange({0, 1, 2, 3}, out));
    EXPECT_EQ(out, (Range{1, 2, 3, 4}));
}

TEST(RangeConversion, One_field_of_minus_one_refuses_and_leaves_the_output_other_negatives_are_converted) {
    for (const Range& refused : {Range{-1, 2, 3, 4}, {1, -1, 3, 4}, {1, 2, -1, 4}, {1, 2, 3, -1}, noCell}) {
        Range out{9, 9, 9, 9};
        EXPECT_FALSE(CVqTableCommon::IndicatorRangeToCellRange(refused, out));
        EXPECT_FALSE(CVqTableCommon::CellRangeToIndicatorRange(refused, out));
        EXPECT_EQ(out, (Range{9, 9, 9, 9}));
    }
    Range out;
    EXPECT_TRUE(CVqTableCommon::IndicatorRangeToCellRange({-2, 0, 1, 1}, out));
    EXPECT_EQ(out, (Range{-3, -1, 0, 0}));
    EXPECT_TRUE(CVqTableCommon::CellRangeToIndicatorRange({-2, 0, 1, 1}, out));
    EXPECT_EQ(out, (Range{-1, 1, 2, 2}));
}

TEST(RangeConversion, One_range_may_be_input_and_output) {
    Range range{1, 2, 3, 4};
    EXPECT_TRUE(CVqTableCommon::IndicatorRangeToCellRange(range, range));
    EXPECT_EQ(range, (Range{0, 1, 2, 3}));
}

struct Shape {
    Range range;
    bool single;
    bool byRow;
    bool byColumn;
    bool manyRows;
    bool manyColumns;
    bool ordered;
};

TEST(RangeShape, Tests_look_at_the_range_alone) {
    const Shape shapes[] = {
        {{2, 3, 2, 3}, true, false, false, false, false, true}, {{2, 3, 2, 5}, false, true, false, false, true, true},
        {{2, 3, 4, 3}, false, false, true, true, false, true},  {{2, 3, 4, 5}, false, false, false, true, true, true},
        {{4, 3, 2, 5}, false, false, false, true, true, false}, {{2, 5, 4, 3}, false, false, false, true, true, false},
        {{2, 5, 2, 3}, false, true, false, false, true, false}, {{4, 3, 2, 3}, false, false, true, true, false, false},
        {noCell, true, false, false, false, false, true},
    };
    for (const Shape& shape : shapes) {
        SCOPED_TRACE(::testing::PrintToString(shape.range));
        EXPECT_EQ(CVqTableCommon::IsSelectSingleCell(shape.range), shape.single);
        EXPECT_EQ(CVqTableCommon::IsOnlyMergeNone(hostRange(shape.range)), shape.single);
        EXPECT_EQ(CVqTableCommon::IsOnlyMergeByRow(hostRange(shape.range)), shape.byRow);
        EXPECT_EQ(CVqTableCommon::IsOnlyMergeByColumn(hostRange(shape.range)), shape.byColumn);
        EXPECT_EQ(CVqTableCommon::IsRowSizeQually(nullptr, shape.range), shape.manyRows);
        EXPECT_EQ(CVqTableCommon::IsColumnSizeQually(nullptr, shape.range), shape.manyColumns);
        EXPECT_EQ(CVqTableCommon::IsCanDataLink(nullptr, shape.range), shape.ordered);
    }
}

TEST(RangeInTable, CheckCellRangeValid_tests_the_end_of_a_block) {
    const auto table = makeTable(3, 4);
    EXPECT_TRUE(CVqTableCommon::CheckCellRangeValid(table.get(), {0, 0, 2, 3}));
    EXPECT_FALSE(CVqTableCommon::CheckCellRangeValid(table.get(), {0, 0, 3, 3}));
    EXPECT_FALSE(CVqTableCommon::CheckCellRangeValid(table.get(), {0, 0, 2, 4}));
}

TEST(RangeInTable, CheckCellRangeValid_accepts_one_row_or_column_whose_far_end_lies_outside) {
    const auto table = makeTable(3, 4);
    EXPECT_TRUE(CVqTableCommon::CheckCellRangeValid(table.get(), {2, 3, 2, 99}));
    EXPECT_TRUE(CVqTableCommon::CheckCellRangeValid(table.get(), {2, 3, 99, 3}));
    EXPECT_TRUE(CVqTableCommon::CheckCellRangeValid(table.get(), {2, 3, 2, 3}));
    EXPECT_FALSE(CVqTableCommon::CheckCellRangeValid(table.get(), {3, 0, 3, 2}));
    EXPECT_FALSE(CVqTableCommon::CheckCellRangeValid(table.get(), {0, 4, 2, 4}));
}

struct Spans {
    Range range;
    bool table;
    bool row;
    bool column;
    bool canDeleteRow;
    bool canDeleteColumn;
};

void expectSpans(const KdDbTable& table, const std::vector<Spans>& all) {
    for (const Spans& spans : all) {
        SCOPED_TRACE(::testing::PrintToString(spans.range));
        EXPECT_EQ(CVqTableCommon::IsSelectEntireTable(&table, spans.range), spans.table);
        EXPECT_EQ(CVqTableCommon::IsSelectEntireRow(&table, spans.range), spans.row);
        EXPECT_EQ(CVqTableCommon::IsSelectEntireColumn(&table, spans.range), spans.column);
        EXPECT_EQ(CVqTableCommon::IsCanDeleteRow(&table, spans.range), spans.canDeleteRow);
        EXPECT_EQ(CVqTableCommon::IsCanDeleteColumn(&table, spans.range), spans.canDeleteColumn);
    }
}

TEST(RangeInTable, Entire_rows_and_columns_exclude_the_entire_table_and_forbid_deleting_it) {
    expectSpans(*makeTable(3, 4), {
                                      {{0, 0, 2, 3}, true, false, false, false, false},
                                      {{1, 0, 1, 3}, false, true, false, true, false},
                                      {{0, 0, 1, 3}, false, true, false, true, false},
                                      {{1, 0, 2, 3}, false, true, false, true, false},
                                      {{0, 1, 2, 1}, false, false, true, false, true},
                                      {{0, 0, 2, 2}, false, false, true, false, true},
                                      {{0, 1, 2, 3}, false, false, true, false, true},
                                      {{0, 0, 1, 2}, false, false, false, true, true},
                                      {{1, 1, 1, 1}, false, false, false, true, true},
                                      {{2, 3, 0, 0}, false, false, false, true, true},
                                      {{0, 0, 3, 4}, false, false, false, true, true},
                                      {noCell, false, false, false, true, true},
                                  });
}

TEST(RangeInTable, The_only_row_is_the_entire_table_and_stays) {
    expectSpans(*makeTable(1, 4), {
                                      {{0, 0, 0, 3}, true, false, false, false, false},
                                      {{0, 1, 0, 2}, false, false, true, false, true},
                                      {{5, 0, 5, 1}, false, false, false, false, true},
                                  });
}

TEST(RangeInTable, The_only_column_is_the_entire_table_and_stays) {
    expectSpans(*makeTable(4, 1), {
                                      {{0, 0, 3, 0}, true, false, false, false, false},
                                      {{1, 0, 2, 0}, false, true, false, true, false},
                                      {{0, 5, 1, 5}, false, false, false, true, false},
                                  });
}

TEST(RangeInTable, Without_a_table_nothing_holds) {
    expectSpans(*makeTable(1, 1), {{{0, 0, 0, 0}, true, false, false, false, false}});
    EXPECT_FALSE(CVqTableCommon::CheckCellRangeValid(nullptr, {0, 0, 0, 0}));
    EXPECT_FALSE(CVqTableCommon::IsSelectEntireTable(nullptr, {0, 0, 0, 0}));
    EXPECT_FALSE(CVqTableCommon::IsSelectEntireRow(nullptr, {0, 0, 0, 0}));
    EXPECT_FALSE(CVqTableCommon::IsSelectEntireColumn(nullptr, {0, 0, 0, 0}));
    EXPECT_FALSE(CVqTableCommon::IsCanDeleteRow(nullptr, {0, 0, 0, 0}));
    EXPECT_FALSE(CVqTableCommon::IsCanDeleteColumn(nullptr, {0, 0, 0, 0}));
}

}  // namespace
}  // namespace kdtest
