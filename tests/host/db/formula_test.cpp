// How formulas name cells and ranges.

#include "kd/db/formula.h"

#include <gtest/gtest.h>

#include <climits>

#include "kd/db/table.h"

namespace {

TEST(CellNames, letters_and_numbers_name_cells) {
    const struct {
        int row, column;
        const wchar_t* name;
    } cases[] = {{0, 0, L"A1"},    {9, 25, L"Z10"},   {0, 26, L"AA1"}, {0, 51, L"AZ1"}, {0, 52, L"BA1"},
                 {0, 701, L"ZZ1"}, {0, 702, L"AAA1"}, {-1, 2, L"C"},   {4, -1, L"5"},   {INT_MAX, 0, L"A2147483648"}};
    for (const auto& [row, column, name] : cases) {
        KdString text;
        EXPECT_TRUE(kdadConvertIndexToIndicatorString(row, column, text));
        EXPECT_EQ(text, KdString(name));
    }
    KdString kept(L"kept");
    EXPECT_FALSE(kdadConvertIndexToIndicatorString(-1, -1, kept));
    EXPECT_EQ(kept, KdString(L"kept"));
}

TEST(CellNames, every_column_reads_back_as_a_number_of_base_26) {
    for (int column = 0; column < 20'000; ++column) {
        KdString text;
        kdadConvertIndexToIndicatorString(-1, column, text);
        int read = 0;
        for (const wchar_t letter : text.str()) read = read * 26 + (letter - L'A' + 1);
        ASSERT_EQ(read - 1, column);
    }
}

TEST(Formulas, a_call_over_a_range_is_appended) {
    KdString text(L"=");
    EXPECT_TRUE(kdadConvertToFormulaExpr({0, 0, 3, 2}, L"Sum", {}, text));
    EXPECT_EQ(text, KdString(L"=Sum(A1:C4)"));
}

TEST(Formulas, cells_of_another_table_are_named_with_its_id) {
    KdString text;
    EXPECT_TRUE(kdadConvertToFormulaExpr({1, 1, 1, 1}, L"Average", KdDbObjectId(1234), text));
    EXPECT_EQ(text, KdString(L"Average(Table(1234).B2:B2)"));
}

TEST(Formulas, a_reversed_range_counts_in_order) {
    KdString text;
    EXPECT_TRUE(kdadConvertToFormulaExpr({3, 2, 0, 0}, L"Count", {}, text));
    EXPECT_EQ(text, KdString(L"Count(A1:C4)"));
}

TEST(Formulas, no_name_and_no_cells_append_nothing) {
    KdString text(L"=");
    EXPECT_FALSE(kdadConvertToFormulaExpr({0, 0, 3, 2}, L"", {}, text));
    for (const KdCellRange& wrong : {KdCellRange{}, KdCellRange{0, -1, 3, -1}, KdCellRange{-1, 0, -1, 2}}) {
        EXPECT_FALSE(kdadConvertToFormulaExpr(wrong, L"Sum", {}, text));
    }
    EXPECT_EQ(text, KdString(L"="));
}

}  // namespace
