// Columns of one width and rows of one height.

#include <gtest/gtest.h>

#include "tests/module/core/editfixture.h"

namespace kdtest {
namespace {

/// A table whose own width isn't the sum of its columns' widths.
class WideTable : public KdDbTable {
public:
    KDRX_DECLARE_MEMBERS(WideTable)
    double width() const override { return 600.0; }
};
KDRX_DEFINE_MEMBERS(WideTable, KdDbTable)

class EvenSizes : public TableEdits {
protected:
    static std::vector<double> widths(KdDbObjectId id) {
        std::vector<double> all;
        for (int column = 0; column < look(id).numColumns(); ++column) all.push_back(look(id).columnWidth(column));
        return all;
    }
    static std::vector<double> heights(KdDbObjectId id) {
        std::vector<double> all;
        for (int row = 0; row < look(id).numRows(); ++row) all.push_back(look(id).rowHeight(row));
        return all;
    }
    KdDbObjectId addWithWidths(const std::vector<double>& all) {
        TableBuilder builder(2, static_cast<int>(all.size()));
        for (int column = 0; column < static_cast<int>(all.size()); ++column) {
            builder.columnWidth(column, all[static_cast<std::size_t>(column)]);
        }
        return add(builder);
    }
    KdDbObjectId addWithHeights(const std::vector<double>& all) {
        TableBuilder builder(static_cast<int>(all.size()), 2);
        for (int row = 0; row < static_cast<int>(all.size()); ++row) {
            builder.rowHeight(row, all[static_cast<std::size_t>(row)]);
        }
        return add(builder);
    }
    KdDbObjectId addWideTable(const KdCellRange& selected) {
        auto table = std::make_unique<WideTable>();
        table->setSize(2, 3);
        table->setColumnWidth(10.0);
        table->setSubSelection(selected);
        return add(std::move(table));
    }
};

using Sizes = std::vector<double>;

TEST_F(EvenSizes, SizeColumnsEvenly_shares_the_widths_of_the_selected_columns) {
    const KdDbObjectId id = addWithWidths({10, 20, 35, 45, 5});
    select(id, "B1:D1");
    EXPECT_EQ(CVqTableCommon::SizeColumnsEvenly(id), 1);
    EXPECT_EQ(widths(id), (Sizes{10, 100.0 / 3, 100.0 / 3, 100.0 / 3, 5}));
    EXPECT_EQ(selection(id), cells("B1:D1"));
}

TEST_F(EvenSizes, SizeColumnsEvenly_from_the_first_column_but_not_to_the_last_shares_the_selected_widths) {
    const KdDbObjectId id = addWithWidths({10, 30, 50});
    select(id, "A1:B2");
    CVqTableCommon::SizeColumnsEvenly(id);
    EXPECT_EQ(widths(id), (Sizes{20, 20, 50}));
}

TEST_F(EvenSizes, SizeColumnsEvenly_over_all_columns_shares_the_tables_own_width) {
    for (const KdCellRange& selected : {KdCellRange{}, {0, 0, 0, 2}, {-1, 0, -1, 2}}) {
        const KdDbObjectId id = addWideTable(selected);
        CVqTableCommon::SizeColumnsEvenly(id);
        EXPECT_EQ(widths(id), (Sizes{200, 200, 200}));
    }
}

TEST_F(EvenSizes, SizeColumnsEvenly_to_the_last_column_but_not_from_the_first_shares_the_selected_widths) {
    const KdDbObjectId id = addWideTable({0, 1, 0, 2});
    CVqTableCommon::SizeColumnsEvenly(id);
    EXPECT_EQ(widths(id), (Sizes{10, 10, 10}));
}

TEST_F(EvenSizes, SizeColumnsEvenly_does_not_round) {
    const KdDbObjectId id = addWithWidths({1, 1, 0.5});
    CVqTableCommon::SizeColumnsEvenly(id);
    EXPECT_EQ(widths(id), (Sizes{2.5 / 3, 2.5 / 3, 2.5 / 3}));
}

TEST_F(EvenSizes, SizeColumnsEvenly_changes_nothing_in_one_column) {
    const KdDbObjectId id = addWideTable({0, 1, 1, 1});
    CVqTableCommon::SizeColumnsEvenly(id);
    EXPECT_EQ(widths(id), (Sizes{10, 10, 10})) << "one column selected";
    auto table = std::make_unique<WideTable>();
    table->setSize(3, 1);
    table->setColumnWidth(10.0);
    const KdDbObjectId one = add(std::move(table));
    CVqTableCommon::SizeColumnsEvenly(one);
    EXPECT_EQ(widths(one), Sizes{10}) << "a table of one column";
    EXPECT_TRUE(steps().empty());
}

TEST_F(EvenSizes, SizeColumnsEvenly_passes_over_whole_rows_and_reversed_columns) {
    const KdDbObjectId id = addWithWidths({10, 20, 30});
    for (const KdCellRange& selected : {KdCellRange{0, -1, 1, -1}, {0, 2, 1, 0}, {0, -1, 0, 1}}) {
        select(id, selected);
        EXPECT_EQ(CVqTableCommon::SizeColumnsEvenly(id), 1);
        EXPECT_EQ(widths(id), (Sizes{10, 20, 30}));
    }
}

TEST_F(EvenSizes, SizeRowsEvenly_counts_a_row_only_when_it_is_higher_than_the_total_so_far) {
    struct Case {
        Sizes before;
        double total;
    };
    const Case all[] = {
        {{10, 30, 20}, 40}, {{10, 10, 10}, 10}, {{30, 20, 10}, 30},
        {{1, 2, 4, 8}, 15}, {{0, 0}, 0},        {{5, 5, 6, 40}, 51},
    };
    for (const Case& expected : all) {
        const KdDbObjectId id = addWithHeights(expected.before);
        const double count = static_cast<double>(expected.before.size());
        EXPECT_EQ(CVqTableCommon::SizeRowsEvenly(id), 1);
        EXPECT_EQ(heights(id), Sizes(expected.before.size(), expected.total / count));
    }
}

TEST_F(EvenSizes, SizeRowsEvenly_takes_the_selected_rows) {
    const KdDbObjectId id = addWithHeights({50, 10, 30, 20, 60});
    select(id, "B2:B4");
    CVqTableCommon::SizeRowsEvenly(id);
    EXPECT_EQ(heights(id), (Sizes{50, 40.0 / 3, 40.0 / 3, 40.0 / 3, 60}));
    select(id, {0, -1, 1, -1});
    CVqTableCommon::SizeRowsEvenly(id);
    EXPECT_EQ(heights(id).front(), 25.0) << "whole rows";
}

TEST_F(EvenSizes, SizeRowsEvenly_changes_nothing_in_one_row_whole_columns_or_reversed_rows) {
    const KdDbObjectId id = addWithHeights({50, 10, 30});
    for (const KdCellRange& selected : {KdCellRange{1, 0, 1, 1}, {-1, 0, -1, 1}, {2, 0, 0, 1}, {-1, 0, 2, 0}}) {
        select(id, selected);
        EXPECT_EQ(CVqTableCommon::SizeRowsEvenly(id), 1);
        EXPECT_EQ(heights(id), (Sizes{50, 10, 30}));
    }
    const KdDbObjectId one = addWithHeights({50});
    CVqTableCommon::SizeRowsEvenly(one);
    EXPECT_EQ(heights(one), Sizes{50});
    EXPECT_TRUE(steps().empty());
}

}  // namespace
}  // namespace kdtest
