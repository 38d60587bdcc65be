// Locks in a range, and text in a row.

#include <gtest/gtest.h>

#include "module/core/tablecommon.h"
#include "tests/module/core/sampletables.h"

namespace kdtest {
namespace {

constexpr Range whole{0, 0, 3, 3};

struct Locked {
    bool allContent;
    bool someContent;
    bool allFormat;

    friend bool operator==(const Locked&, const Locked&) = default;
};

void PrintTo(const Locked& locked, std::ostream* out) {
    *out << "all content " << locked.allContent << ", some content " << locked.someContent << ", all format "
         << locked.allFormat;
}

Locked locksOf(const KdDbTable* table, const Range& range) {
    return {CVqTableCommon::IsCellRangeAllContentLocked(table, range),
            CVqTableCommon::IsCellRangeHasContentLocked(table, range),
            CVqTableCommon::IsCellRangeAllFormatLocked(table, range)};
}

TEST(LockTests, Tell_all_from_some_and_content_from_format) {
    const auto table = makeTable(4, 4);
    EXPECT_EQ(locksOf(table.get(), whole), (Locked{false, false, false}));
    setStates(*table, whole, KdDb::kCellStateContentLocked);
    EXPECT_EQ(locksOf(table.get(), whole), (Locked{true, true, false}));
    setStates(*table, whole, KdDb::kCellStateContentLocked | KdDb::kCellStateFormatLocked);
    EXPECT_EQ(locksOf(table.get(), whole), (Locked{true, true, true}));
    table->setCellState(3, 3, KdDb::kCellStateNone);
    EXPECT_EQ(locksOf(table.get(), whole), (Locked{false, true, false}));
    EXPECT_EQ(locksOf(table.get(), {3, 3, 3, 3}), (Locked{false, false, false}));
    EXPECT_EQ(locksOf(table.get(), {0, 0, 2, 3}), (Locked{true, true, true}));
}

TEST(LockTests, Read_only_is_no_lock) {
    const auto table = makeTable(2, 2);
    setStates(*table, {0, 0, 1, 1}, KdDb::kCellStateContentReadOnly | KdDb::kCellStateFormatReadOnly);
    EXPECT_EQ(locksOf(table.get(), {0, 0, 1, 1}), (Locked{false, false, false}));
}

TEST(LockTests, A_merge_is_judged_by_its_owner_whether_the_owner_is_in_the_range_or_not) {
    const auto table = makeTable(4, 4, {{1, 1, 2, 2}});
    table->setCellState(1, 1, static_cast<KdDb::CellState>(17));
    EXPECT_EQ(locksOf(table.get(), {1, 1, 2, 2}), (Locked{true, true, true}));
    EXPECT_EQ(locksOf(table.get(), {2, 2, 2, 2}), (Locked{true, true, true}));
    table->setCellState(1, 1, KdDb::kCellStateNone);
    EXPECT_EQ(locksOf(table.get(), {1, 1, 2, 2}), (Locked{false, false, false}));
}

TEST(LockTests, The_walk_goes_on_behind_a_merge) {
    const auto table = makeTable(2, 3, {{0, 0, 1, 1}});
    setStates(*table, {0, 0, 1, 1}, 17);
    EXPECT_EQ(locksOf(table.get(), {0, 0, 1, 2}), (Locked{false, true, false}));
    setStates(*table, {0, 2, 1, 2}, 17);
    EXPECT_EQ(locksOf(table.get(), {0, 0, 1, 2}), (Locked{true, true, true}));
}

TEST(LockTests, A_reversed_range_holds_no_cell) {
    const auto table = makeTable(4, 4);
    for (const int state : {0, 17}) {
        setStates(*table, whole, state);
        EXPECT_EQ(locksOf(table.get(), {3, 0, 0, 3}), (Locked{true, false, true}));
        EXPECT_EQ(locksOf(table.get(), {0, 3, 3, 0}), (Locked{true, false, true}));
    }
}

TEST(LockTests, A_cell_outside_the_table_is_not_locked) {
    const auto table = makeTable(2, 2);
    setStates(*table, {0, 0, 1, 1}, 17);
    EXPECT_EQ(locksOf(table.get(), {0, 0, 2, 1}), (Locked{false, true, false}));
    EXPECT_EQ(locksOf(table.get(), {0, 0, 2147483647, 1}), (Locked{false, true, false}));
    EXPECT_EQ(locksOf(table.get(), {0, 2, 1, 5}), (Locked{false, false, false}));
    EXPECT_EQ(locksOf(table.get(), {-5, 0, 1, 1}), (Locked{false, true, false}));
}

TEST(LockTests, Without_a_table_all_are_false_even_for_reversed_rows) {
    EXPECT_EQ(locksOf(nullptr, whole), (Locked{false, false, false}));
    EXPECT_EQ(locksOf(nullptr, {3, 0, 0, 3}), (Locked{false, false, false}));
}

TEST(IsRowHasText, Answers_whether_the_row_is_free_of_text) {
    const auto table = makeTable(3, 3);
    table->setTextString(1, 2, L"x");
    EXPECT_TRUE(CVqTableCommon::IsRowHasText(table.get(), 0));
    EXPECT_FALSE(CVqTableCommon::IsRowHasText(table.get(), 1));
    EXPECT_TRUE(CVqTableCommon::IsRowHasText(table.get(), 2));
}

TEST(IsRowHasText, Takes_a_block_for_no_text) {
    const auto table = makeTable(1, 2);
    table->setBlockTableRecordId(0, 1, 0, KdDbObjectId(5), false);
    ASSERT_FALSE(table->isEmpty(0, 1));
    EXPECT_TRUE(CVqTableCommon::IsRowHasText(table.get(), 0));
}

TEST(IsRowHasText, Is_true_in_a_table_without_columns) {
    const auto table = makeTable(2, 0);
    ASSERT_EQ(table->numColumns(), 0);
    EXPECT_TRUE(CVqTableCommon::IsRowHasText(table.get(), 1));
    EXPECT_FALSE(CVqTableCommon::IsRowHasText(table.get(), 2));
}

TEST(IsRowHasText, Is_false_for_a_row_outside_a_negative_one_included) {
    const auto table = makeTable(3, 3);
    EXPECT_FALSE(CVqTableCommon::IsRowHasText(table.get(), 3));
    EXPECT_FALSE(CVqTableCommon::IsRowHasText(table.get(), -1));
    EXPECT_FALSE(CVqTableCommon::IsRowHasText(nullptr, 0));
}

}  // namespace
}  // namespace kdtest
