// Merges in a range: what is exactly one merge, what may be merged and unmerged.

#include <gtest/gtest.h>

#include "module/core/tablecommon.h"
#include "tests/module/core/sampletables.h"

namespace kdtest {
namespace {

struct Merging {
    const char* what;
    Range range;
    bool match;
    bool mergedEqual;
    bool firstMergeEqual;
    bool rejectsBlock;
    bool rowMerge;
    bool columnMerge;
    bool canMerge;
    bool canUnmerge;
};

constexpr bool yes = true;
constexpr bool no_ = false;

const Merging mergings[] = {
    {"a plain cell", {4, 0, 4, 0}, yes, no_, no_, no_, no_, no_, no_, no_},
    {"an owner alone", {0, 0, 0, 0}, yes, no_, no_, no_, no_, no_, no_, no_},
    {"a covered cell alone", {1, 1, 1, 1}, yes, no_, no_, no_, no_, no_, no_, no_},
    {"the merge at the upper left corner", edge::a, yes, yes, yes, no_, no_, no_, no_, yes},
    {"the merge at the upper right corner", edge::b, yes, yes, yes, no_, yes, no_, no_, yes},
    {"the merge at the right edge", edge::c, yes, yes, yes, no_, no_, yes, no_, yes},
    {"the merge at the left edge", edge::d, yes, yes, yes, no_, no_, yes, no_, yes},
    {"the merge in the middle", edge::e, yes, yes, yes, no_, no_, no_, no_, yes},
    {"the merge at the lower left corner", edge::f, yes, yes, yes, no_, yes, no_, no_, yes},
    {"the merge at the lower right corner", edge::g, yes, yes, yes, no_, yes, no_, no_, yes},
    {"plain cells in a row", {4, 1, 4, 4}, no_, no_, no_, yes, no_, no_, yes, no_},
    {"plain cells in a column", {1, 4, 4, 4}, no_, no_, no_, yes, no_, no_, yes, no_},
    {"the whole table", {0, 0, 5, 5}, no_, no_, no_, yes, no_, no_, yes, yes},
    {"a merge and a column more", {2, 2, 3, 4}, no_, no_, no_, yes, no_, no_, yes, yes},
    {"a merge and a row more", {2, 2, 4, 3}, no_, no_, no_, yes, no_, no_, yes, yes},
    {"a merge after plain cells", {4, 0, 5, 2}, no_, no_, no_, yes, no_, no_, yes, yes},
    {"a part of a merge", {2, 2, 3, 2}, no_, no_, no_, yes, no_, no_, yes, yes},
    {"parts of two merges", {3, 3, 5, 4}, no_, no_, no_, yes, no_, no_, yes, yes},
    {"a merge from its end to its start", {1, 1, 0, 0}, no_, no_, no_, yes, no_, no_, yes, no_},
    {"reversed columns", {0, 5, 0, 3}, no_, no_, no_, yes, no_, no_, yes, no_},
    {"a merge and cells outside", {5, 4, 7, 7}, no_, no_, no_, yes, no_, no_, yes, yes},
    {"cells outside alone", {9, 9, 10, 10}, no_, no_, no_, yes, no_, no_, yes, no_},
};

TEST(MergeTests, Hold_on_merges_at_every_edge) {
    const auto table = makeEdgeTable();
    for (const Merging& expected : mergings) {
        SCOPED_TRACE(expected.what);
        const Range& range = expected.range;
        EXPECT_EQ(CVqTableCommon::IsMatchCell(table.get(), range), expected.match);
        EXPECT_EQ(CVqTableCommon::IsSelectMergedEqual(table.get(), range), expected.mergedEqual);
        EXPECT_EQ(CVqTableCommon::IsMergeAndSelectEqual(table.get(), range), expected.firstMergeEqual);
        EXPECT_EQ(CVqTableCommon::IsOnlyCanInsertBlock(table.get(), range), expected.rejectsBlock);
        EXPECT_EQ(CVqTableCommon::IsRowMergeCell(table.get(), range), expected.rowMerge);
        EXPECT_EQ(CVqTableCommon::IsColumnMergeCell(table.get(), range), expected.columnMerge);
        EXPECT_EQ(CVqTableCommon::IsCanMergeCell(table.get(), range), expected.canMerge);
        EXPECT_EQ(CVqTableCommon::IsCanUnmergeCell(table.get(), range), expected.canUnmerge);
    }
}

TEST(MergeTests, Without_a_table_only_the_shape_answers) {
    const Range range{0, 0, 1, 1};
    EXPECT_TRUE(CVqTableCommon::IsMatchCell(nullptr, {0, 0, 0, 0}));
    EXPECT_FALSE(CVqTableCommon::IsMatchCell(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsSelectMergedEqual(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsMergeAndSelectEqual(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsOnlyCanInsertBlock(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsRowMergeCell(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsColumnMergeCell(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsCanMergeCell(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsCanUnmergeCell(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsMergeContentNoFirst(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsMergeable(nullptr, range));
    EXPECT_FALSE(CVqTableCommon::IsFirstMergedCell(nullptr, 1, 0, 0));
    EXPECT_FALSE(CVqTableCommon::IsLastMergedCell(nullptr, 1, 0, 0));
}

TEST(MergeTests, IsCanMergeCell_refuses_a_content_lock_and_ignores_a_format_lock) {
    const auto table = makeTable(3, 3);
    const Range range{0, 0, 1, 1};
    table->setCellState(1, 1, KdDb::kCellStateFormatLocked);
    EXPECT_TRUE(CVqTableCommon::IsCanMergeCell(table.get(), range));
    table->setCellState(1, 1, KdDb::kCellStateContentLocked);
    EXPECT_FALSE(CVqTableCommon::IsCanMergeCell(table.get(), range));
    EXPECT_TRUE(CVqTableCommon::IsCanMergeCell(table.get(), {0, 0, 1, 0}));
    // A reversed range holds no cell and so no lock.
    EXPECT_TRUE(CVqTableCommon::IsCanMergeCell(table.get(), {1, 1, 0, 0}));
}

TEST(MergeTests, IsCanUnmergeCell_needs_one_merge_whose_owner_is_not_content_locked) {
    const auto table = makeTable(4, 4, {{0, 0, 1, 1}, {2, 2, 3, 3}});
    const Range whole{0, 0, 3, 3};
    table->setCellState(0, 0, KdDb::kCellStateContentLocked);
    EXPECT_TRUE(CVqTableCommon::IsCanUnmergeCell(table.get(), whole));
    EXPECT_FALSE(CVqTableCommon::IsCanUnmergeCell(table.get(), {0, 0, 1, 1}));
    table->setCellState(2, 2, KdDb::kCellStateContentLocked);
    EXPECT_FALSE(CVqTableCommon::IsCanUnmergeCell(table.get(), whole));
    table->setCellState(2, 2, KdDb::kCellStateFormatLocked);
    EXPECT_TRUE(CVqTableCommon::IsCanUnmergeCell(table.get(), whole));
    EXPECT_FALSE(CVqTableCommon::IsCanUnmergeCell(table.get(), {3, 3, 0, 0}));
}

TEST(MergeTests, IsMergeable_looks_at_ranges_from_the_first_row_and_there_across_the_whole_table) {
    const auto table = makeEdgeTable();
    const std::pair<Range, bool> all[] = {
        {{0, 3, 0, 3}, false},  // A reaches below row 0, outside the range's columns
        {edge::a, false},       // C reaches below row 1 at the far right
        {{0, 2, 2, 2}, false},  // C, D and E reach below row 2
        {{0, 2, 3, 2}, true},   // all of them end in row 3
        {{0, 4, 4, 4}, true},  {{0, 0, 5, 5}, true},  {{1, 0, 1, 5}, true},  // any range that doesn't begin at row 0
        {{2, 2, 2, 2}, true},  {{-1, 0, 0, 0}, true}, {{0, 0, 99, 0}, true},
    };
    for (const auto& [range, expected] : all) {
        EXPECT_EQ(CVqTableCommon::IsMergeable(table.get(), range), expected) << ::testing::PrintToString(range);
    }
    EXPECT_TRUE(CVqTableCommon::IsMergeable(nullptr, {1, 0, 1, 5}));
    const auto withoutColumns = makeTable(3, 0);
    ASSERT_EQ(withoutColumns->numColumns(), 0);
    EXPECT_TRUE(CVqTableCommon::IsMergeable(withoutColumns.get(), {0, 0, 1, 0}));
}

TEST(MergeTests, IsMergeContentNoFirst_passes_over_the_top_left_cell_alone) {
    const auto table = makeTable(3, 3);
    const Range range{0, 0, 1, 1};
    EXPECT_FALSE(CVqTableCommon::IsMergeContentNoFirst(table.get(), range));
    table->setTextString(0, 0, L"first");
    table->setTextString(2, 2, L"outside the range");
    EXPECT_FALSE(CVqTableCommon::IsMergeContentNoFirst(table.get(), range));
    EXPECT_FALSE(CVqTableCommon::IsMergeContentNoFirst(table.get(), {0, 0, 0, 0}));
    EXPECT_FALSE(CVqTableCommon::IsMergeContentNoFirst(table.get(), {1, 1, 0, 0}));
    table->setTextString(1, 1, L"last");
    EXPECT_TRUE(CVqTableCommon::IsMergeContentNoFirst(table.get(), range));
    EXPECT_FALSE(CVqTableCommon::IsMergeContentNoFirst(table.get(), {1, 1, 1, 1}));
    table->setBlockTableRecordId(1, 1, 0, KdDbObjectId(5), false);
    ASSERT_FALSE(table->isEmpty(1, 1));
    EXPECT_FALSE(CVqTableCommon::IsMergeContentNoFirst(table.get(), range)) << "a block is no text";
}

struct AtEnd {
    int row;
    int column;
    bool firstColumn;
    bool firstRow;
    bool lastColumn;
    bool lastRow;
};

TEST(MergeTests, First_and_last_merged_cells_are_told_by_the_merge_of_the_cell) {
    const auto table = makeEdgeTable();
    const AtEnd all[] = {
        {0, 0, yes, yes, no_, no_}, {1, 1, yes, yes, no_, no_}, {0, 3, no_, yes, yes, no_}, {0, 5, no_, yes, yes, no_},
        {2, 5, no_, no_, yes, no_}, {3, 0, yes, no_, no_, no_}, {3, 3, no_, no_, no_, no_}, {5, 1, yes, no_, no_, yes},
        {5, 4, no_, no_, yes, yes}, {0, 2, no_, no_, no_, no_}, {4, 0, no_, no_, no_, no_}, {9, 9, no_, no_, no_, no_},
    };
    for (const AtEnd& cell : all) {
        SCOPED_TRACE(::testing::Message() << cell.row << ", " << cell.column);
        EXPECT_EQ(CVqTableCommon::IsFirstMergedCell(table.get(), 1, cell.row, cell.column), cell.firstColumn);
        EXPECT_EQ(CVqTableCommon::IsFirstMergedCell(table.get(), 0, cell.row, cell.column), cell.firstRow);
        EXPECT_EQ(CVqTableCommon::IsLastMergedCell(table.get(), 1, cell.row, cell.column), cell.lastColumn);
        EXPECT_EQ(CVqTableCommon::IsLastMergedCell(table.get(), 0, cell.row, cell.column), cell.lastRow);
    }
}

TEST(FixedAnswers, Are_zero_and_leave_everything_as_it_is) {
    const auto table = makeEdgeTable();
    const Range range{0, 0, 5, 5};
    EXPECT_EQ(CVqTableCommon::IsRowLastMerged(table.get(), range), 0);
    EXPECT_EQ(CVqTableCommon::IsColumnLastMerged(table.get(), range), 0);
    EXPECT_EQ(CVqTableCommon::IsCanCellDownloadChange(table.get(), range), 0);
    EXPECT_EQ(CVqTableCommon::IsCanCellManageCellContent(table.get(), range), 0);
    Range found{1, 2, 3, 4};
    EXPECT_EQ(CVqTableCommon::FindCellRange(table.get(), found), 0);
    EXPECT_EQ(found, (Range{1, 2, 3, 4}));
    KdDbTable* made = nullptr;
    EXPECT_EQ(CVqTableCommon::CreateTable(nullptr, made), 0);
    EXPECT_EQ(made, nullptr);
    KdArray<KdString> names;
    names.append(L"b");
    names.append(L"a");
    EXPECT_EQ(CVqTableCommon::SortStyles(names), 0);
    ASSERT_EQ(names.length(), 2);
    EXPECT_EQ(names[0], KdString(L"b"));
    EXPECT_EQ(names[1], KdString(L"a"));
}

TEST(FixedAnswers, CheckCellsCanPaste_needs_two_tables_and_nothing_else) {
    const auto table = makeTable(1, 1);
    int count = 7;
    EXPECT_TRUE(CVqTableCommon::CheckCellsCanPaste(table.get(), table.get(), {5, 5, 1, 1}, count, 0));
    EXPECT_FALSE(CVqTableCommon::CheckCellsCanPaste(nullptr, table.get(), {0, 0, 0, 0}, count, 0));
    EXPECT_FALSE(CVqTableCommon::CheckCellsCanPaste(table.get(), nullptr, {0, 0, 0, 0}, count, 0));
    EXPECT_EQ(count, 7);
}

TEST(FixedAnswers, DeleteCells_deletes_nothing) {
    const auto table = makeTable(2, 2);
    table->setTextString(0, 0, L"kept");
    EXPECT_TRUE(CVqTableCommon::DeleteCells(table.get(), {0, 0, 1, 1}, 0));
    EXPECT_STREQ(table->textString(0, 0), L"kept");
    EXPECT_EQ(table->numRows(), 2);
    EXPECT_FALSE(CVqTableCommon::DeleteCells(table.get(), {1, 0, 0, 1}, 0));
    EXPECT_FALSE(CVqTableCommon::DeleteCells(table.get(), {0, 1, 1, 0}, 0));
    EXPECT_FALSE(CVqTableCommon::DeleteCells(nullptr, {0, 0, 1, 1}, 0));
}

}  // namespace
}  // namespace kdtest
