// How ranges grow over merges, and move their edges off merges at the table's ends.

#include <gtest/gtest.h>

#include "module/core/tablecommon.h"
#include "tests/module/core/sampletables.h"

namespace kdtest {
namespace {

struct Growth {
    int a;
    int b;
    Range range;
    Range grown;
};

void expectGrowth(KdDbTable& table, const std::vector<Growth>& all) {
    for (const Growth& growth : all) {
        EXPECT_EQ(CVqTableCommon::SearchMaxCellRange(&table, growth.a, growth.b, growth.range), growth.grown)
            << growth.a << ", " << growth.b << ", " << ::testing::PrintToString(growth.range);
    }
}

TEST(SearchMaxCellRange, Takes_in_the_merges_that_it_touches_one_after_the_other) {
    expectGrowth(*makeEdgeTable(), {
                                       {0, 1, {4, 0, 4, 5}, {4, 0, 4, 5}},
                                       {0, 1, {1, 1, 1, 1}, edge::a},
                                       {1, 1, {2, 2, 3, 3}, edge::e},
                                       {1, 1, {3, 3, 3, 4}, {2, 2, 3, 4}},
                                       {0, 1, {1, 1, 2, 2}, {0, 0, 3, 5}},  // A and E, then B, then C
                                       {1, 1, {0, 0, 5, 5}, {0, 0, 5, 5}},
                                       {0, 1, {5, 5, 9, 9}, {5, 4, 9, 9}},
                                       {0, 1, {3, 3, 2, 2}, {3, 3, 2, 2}},
                                       {0, 1, noCell, noCell},
                                   });
}

TEST(SearchMaxCellRange, With_two_zeros_begins_at_the_first_row) {
    expectGrowth(*makeEdgeTable(), {
                                       {0, 0, {4, 0, 4, 1}, {0, 0, 4, 1}},
                                       {0, 0, {4, 2, 4, 2}, {0, 2, 4, 5}},  // E and B on the way up, then C
                                       {0, 0, {0, 2, 0, 2}, {0, 2, 0, 2}},
                                       {0, 0, {2, 4, 1, 4}, {0, 2, 3, 5}},  // reversed, and ordered by its new start
                                   });
}

TEST(SearchMaxCellRange, With_only_the_second_zero_begins_at_the_first_column) {
    expectGrowth(*makeEdgeTable(), {
                                       {1, 0, {5, 1, 5, 1}, edge::f},
                                       {1, 0, {3, 3, 3, 3}, {2, 0, 3, 3}},
                                       {-1, 0, {4, 4, 4, 4}, {4, 0, 4, 4}},
                                       {1, 0, {1, 2, 1, 2}, {0, 0, 1, 2}},
                                   });
}

TEST(SearchMaxCellRange, A_top_or_left_of_minus_one_gives_way_to_the_merges_found) {
    const auto table = makeTable(5, 5, {{2, 2, 3, 3}});
    expectGrowth(*table, {
                             {0, 1, {2, -1, 2, 2}, {2, 2, 3, 3}},  // narrower on the left than it was
                             {0, 1, {-1, 2, 2, 2}, {2, 2, 3, 3}},
                             {0, 1, {-1, -1, 4, 4}, {2, 2, 4, 4}},
                             {0, 1, {0, -1, 1, 1}, {0, -1, 1, 1}},  // without a merge it stays
                             {0, 1, {2, -2, 2, 2}, {2, -2, 3, 3}},  // -2 is compared
                         });
}

TEST(SearchMaxCellRange, Follows_a_long_chain_of_merges_and_looks_at_each_cell_once) {
    // Two columns like a zip: each merge overlaps the next one by a row, so that the range grows row by row.
    constexpr int rows = 20000;
    std::vector<Range> merges;
    for (int row = 0; row + 1 < rows; row += 2) merges.push_back({row, 0, row + 1, 0});
    for (int row = 1; row + 1 < rows; row += 2) merges.push_back({row, 1, row + 1, 1});
    const auto table = makeTable(rows, 3, merges);
    EXPECT_EQ(CVqTableCommon::SearchMaxCellRange(table.get(), 0, 1, {0, 0, 0, 1}), (Range{0, 0, rows - 1, 1}));
}

TEST(SearchMaxCellRange, Without_a_table_the_range_stays) {
    EXPECT_EQ(CVqTableCommon::SearchMaxCellRange(nullptr, 0, 0, {1, 2, 3, 4}), (Range{1, 2, 3, 4}));
    EXPECT_EQ(CVqTableCommon::CellRangeBackward(nullptr, 1, {1, 2, 3, 4}), (Range{1, 2, 3, 4}));
    EXPECT_EQ(CVqTableCommon::CellRangeForward(nullptr, 1, {1, 2, 3, 4}), (Range{1, 2, 3, 4}));
}

/// A line of merges along columns, in a table of two rows; the row form is tested on the transposed table.
struct EdgeMove {
    const char* what;
    int length;
    std::vector<std::pair<int, int>> merges;
    std::pair<int, int> span;
    std::pair<int, int> moved;
};

using SpanMove = Range (*)(KdDbTable*, int, const Range&);

void expectMoves(SpanMove move, const std::vector<EdgeMove>& all) {
    for (const EdgeMove& expected : all) {
        SCOPED_TRACE(expected.what);
        std::vector<Range> across;
        std::vector<Range> down;
        for (const auto& [first, last] : expected.merges) {
            across.push_back({0, first, 1, last});
            down.push_back({first, 0, last, 1});
        }
        const auto& [first, last] = expected.span;
        const auto& [movedFirst, movedLast] = expected.moved;
        const auto wide = makeTable(3, expected.length, across);
        EXPECT_EQ(move(wide.get(), 1, {0, first, 1, last}), (Range{0, movedFirst, 1, movedLast})) << "by column";
        const auto tall = makeTable(expected.length, 3, down);
        EXPECT_EQ(move(tall.get(), 0, {first, 0, last, 1}), (Range{movedFirst, 0, movedLast, 1})) << "by row";
    }
}

TEST(CellRangeBackward, Moves_the_leading_edge_off_a_merge_at_the_start_of_the_table) {
    expectMoves(CVqTableCommon::CellRangeBackward,
                {
                    {"behind the first merge", 8, {{0, 1}}, {0, 5}, {2, 5}},
                    {"from the middle of the first merge", 8, {{0, 2}}, {1, 5}, {3, 5}},
                    {"behind the merges that follow it", 8, {{0, 1}, {2, 3}, {4, 5}}, {0, 7}, {6, 7}},
                    {"up to the end of the range", 8, {{0, 1}, {2, 3}}, {0, 3}, {4, 3}},
                    {"not beyond a plain cell", 8, {{0, 1}, {3, 4}}, {0, 7}, {2, 7}},
                    {"not from a plain cell", 8, {{2, 3}}, {0, 5}, {0, 5}},
                    {"not from a merge that starts later", 8, {{1, 2}}, {1, 5}, {1, 5}},
                    {"not when the range ends with the merge", 8, {{0, 1}}, {0, 1}, {0, 1}},
                    {"not when the range ends in the merge", 8, {{0, 2}}, {0, 1}, {0, 1}},
                    {"to the whole table where a merge ends it", 6, {{0, 1}, {2, 5}}, {1, 3}, {0, 5}},
                    {"to the whole table after other merges", 6, {{0, 1}, {2, 3}, {4, 5}}, {0, 4}, {0, 5}},
                    {"a range beyond the table's end", 4, {{0, 1}, {2, 3}}, {0, 9}, {0, 3}},
                });
}

TEST(CellRangeForward, Moves_the_trailing_edge_off_a_merge_at_the_end_of_the_range) {
    expectMoves(CVqTableCommon::CellRangeForward,
                {
                    {"before the last merge", 8, {{6, 7}}, {2, 7}, {2, 5}},
                    {"also in the middle of the table", 8, {{4, 5}}, {2, 5}, {2, 3}},
                    {"before the merges ahead of it", 8, {{2, 3}, {4, 5}, {6, 7}}, {0, 7}, {0, 1}},
                    {"down to the start of the range", 8, {{4, 5}, {6, 7}}, {4, 7}, {4, 3}},
                    {"not beyond a plain cell", 8, {{2, 4}, {6, 7}}, {0, 7}, {0, 5}},
                    {"not from a plain cell", 8, {{4, 5}}, {0, 7}, {0, 7}},
                    {"not from a merge that ends later", 8, {{4, 6}}, {0, 5}, {0, 5}},
                    {"not when the range starts with the merge", 8, {{6, 7}}, {6, 7}, {6, 7}},
                    {"to the whole table where a merge starts it", 6, {{0, 2}, {3, 4}}, {1, 4}, {0, 5}},
                    {"to the whole table after other merges", 6, {{0, 1}, {2, 3}, {4, 5}}, {1, 5}, {0, 5}},
                });
}

TEST(CellRangeBackward, Reads_the_line_of_the_leading_cell_and_Forward_that_of_the_trailing_one) {
    const auto table = makeTable(2, 4, {{0, 0, 0, 1}, {1, 2, 1, 3}});
    EXPECT_EQ(CVqTableCommon::CellRangeBackward(table.get(), 1, {0, 0, 1, 3}), (Range{0, 2, 1, 3}));
    EXPECT_EQ(CVqTableCommon::CellRangeForward(table.get(), 1, {0, 0, 1, 3}), (Range{0, 0, 1, 1}));
    EXPECT_EQ(CVqTableCommon::CellRangeBackward(table.get(), 1, {1, 0, 1, 3}), (Range{1, 0, 1, 3}));
    EXPECT_EQ(CVqTableCommon::CellRangeForward(table.get(), 1, {0, 0, 0, 3}), (Range{0, 0, 0, 3}));
}

}  // namespace
}  // namespace kdtest
