// What of a table follows the window: rows, columns and sizes for each type of window, worked out by hand.
//
// The style has capitals of 6 in the title and 4.5 below, and margins of 1.5: a row of one line is 11 or 9 high.

#include <cmath>
#include <limits>

#include "kd/db/tablestyle.h"
#include "tests/module/create/jigfixture.h"

namespace kdtest {
namespace {

struct WindowCase {
    const char* what;
    int type;
    double width;
    double height;
    int rows;
    int columns;
    double rowHeight;  ///< of every row
    double columnWidth;
};

void PrintTo(const WindowCase& window, std::ostream* out) {
    *out << window.what;
}

class Windows : public TableJig, public ::testing::WithParamInterface<WindowCase> {};

TEST_P(Windows, size_the_table) {
    const WindowCase& window = GetParam();
    jig->setSpecifyWindowType(window.type);
    const KdDbTable& table = dragWindow({10, 300, 0}, {10 + window.width, 300 - window.height, 0});
    EXPECT_EQ(table.numRows(), window.rows);
    EXPECT_EQ(table.numColumns(), window.columns);
    for (int row = 0; row < table.numRows(); ++row) EXPECT_NEAR(table.rowHeight(row), window.rowHeight, 1e-9) << row;
    for (int column = 0; column < table.numColumns(); ++column) {
        EXPECT_EQ(table.columnWidth(column), window.columnWidth) << column;
    }
    for (int row = 0; row < table.numRows(); ++row) {
        const bool mergeAll = row == 0 && table.numColumns() > 1;
        EXPECT_EQ(table.isMergedCell(row, 0), mergeAll) << row;
        EXPECT_STREQ(table.cellStyle(row, 0), row == 0 ? L"_TITLE" : row == 1 ? L"_HEADER" : L"_DATA");
    }
    if (table.numColumns() > 1) {
        EXPECT_EQ(table.getMergeRange(0, 0), (KdCellRange{0, 0, 0, table.numColumns() - 1}));
    }
}

// The figures of the dialog are 3 columns of 30 and 3 rows of data.
INSTANTIATE_TEST_SUITE_P(
    fixed_counts, Windows,
    ::testing::Values(WindowCase{"both sizes follow", 0, 150, 100, 5, 3, 20, 50},
                      WindowCase{"a width is cut to a whole number", 0, 200, 100, 5, 3, 20, 66},
                      WindowCase{"lower than the least height only: taken as it is", 0, 300, 5, 5, 3, 1, 100},
                      WindowCase{"narrower than the least width only: taken as it is", 0, 6, 100, 5, 3, 20, 2}));

INSTANTIATE_TEST_SUITE_P(columns_follow, Windows,
                         ::testing::Values(WindowCase{"as many columns as have room", 1, 200, 100, 5, 6, 20, 30},
                                           WindowCase{"exactly two", 1, 60, 100, 5, 2, 20, 30},
                                           WindowCase{"narrower than one column: one column", 1, 20, 100, 5, 1, 20, 30},
                                           WindowCase{"narrower than the least width: one column too", 1, 3, 100, 5, 1,
                                                      20, 30}));

INSTANTIATE_TEST_SUITE_P(rows_follow, Windows,
                         ::testing::Values(WindowCase{"as many rows as have room", 2, 150, 100, 11, 3, 9, 50},
                                           WindowCase{"exactly four", 2, 150, 36, 4, 3, 9, 50},
                                           WindowCase{"room for two rows: three rows", 2, 150, 26, 3, 3, 9, 50},
                                           WindowCase{"room for no row: three rows", 2, 150, 4, 3, 3, 9, 50},
                                           WindowCase{"narrow and high: taken as it is", 2, 6, 100, 11, 3, 9, 2}));

// 100 less a title of 11 and a header of 9 holds eight rows of data.
INSTANTIATE_TEST_SUITE_P(both_follow, Windows,
                         ::testing::Values(WindowCase{"as many of both as have room", 3, 200, 100, 10, 6, 9, 30},
                                           WindowCase{"lower than the two top rows: three rows", 3, 200, 15, 3, 6, 9,
                                                      30},
                                           WindowCase{"room for one row of data", 3, 200, 29, 3, 6, 9, 30},
                                           WindowCase{"room for two", 3, 200, 38, 4, 6, 9, 30},
                                           WindowCase{"narrower than one column: one column", 3, 20, 100, 10, 1, 9, 30},
                                           WindowCase{"any other type works alike", 7, 200, 100, 10, 6, 9, 30}));

class TableJigSize : public TableJig {
protected:
    /// The least sizes that the table has when its drag begins.
    void dragTinyWindow() {
        look([&](const KdDbTable& table) {
            leastColumnWidth = table.minimumColumnWidth(0);
            leastRowHeight = table.minimumRowHeight(0);
            ASSERT_GT(leastColumnWidth, 1.0);
            ASSERT_GT(leastRowHeight, 1.0);
            pick(10, 10);
            pick(11, 11);
        });
        placed = &place();
    }
    double leastColumnWidth = 0.0;
    double leastRowHeight = 0.0;
    const KdDbTable* placed = nullptr;
};

TEST_F(TableJigSize, a_window_too_small_in_both_directions_is_lifted_to_the_least_of_type_0) {
    jig->setSpecifyWindowType(0);
    dragTinyWindow();
    EXPECT_EQ(placed->columnWidth(0), std::trunc(leastColumnWidth / 3));
    EXPECT_NEAR(jig->getTableHeight(5), leastRowHeight, 1e-9);
}

TEST_F(TableJigSize, a_window_too_small_in_both_directions_is_lifted_to_the_least_of_type_3) {
    jig->setSpecifyWindowType(3);
    // Wide 7.5, one capital and one margin; high 3 rows by the largest capital, 3 * (8 + 3).
    const KdDbTable& table = dragWindow({10, 10, 0}, {11, 11, 0});
    EXPECT_EQ(table.numColumns(), 1);
    EXPECT_EQ(table.numRows(), 3) << "33 less 20 holds one row of data";
}

TEST_F(TableJigSize, a_window_too_small_in_both_directions_is_lifted_to_the_least_of_type_1) {
    jig->setSpecifyWindowType(1);
    dragTinyWindow();
    EXPECT_EQ(placed->numColumns(), 1);
    EXPECT_EQ(placed->columnWidth(0), 30.0);
    EXPECT_NEAR(jig->getTableHeight(5), leastRowHeight, 1e-9);
}

TEST_F(TableJigSize, a_window_too_small_in_both_directions_is_lifted_to_the_least_of_type_2) {
    jig->setSpecifyWindowType(2);
    jig->setTableRowHeight(2);
    // Three rows by the largest capital, 3 * (2 * 8 + 3) = 57, hold 57 / 15 rows of the last one's kind.
    dragTinyWindow();
    EXPECT_EQ(placed->numRows(), 3);
    EXPECT_EQ(placed->columnWidth(0), std::trunc(leastColumnWidth / 3));
}

TEST_F(TableJigSize, another_type_has_no_least_size) {
    jig->setSpecifyWindowType(9);
    jig->setTableRowHeight(4);
    const KdDbTable& table = dragWindow({10, 10, 0}, {11, 11, 0});
    EXPECT_EQ(table.numRows(), 3);
    EXPECT_EQ(table.numColumns(), 1);
}

TEST_F(TableJigSize, the_figures_move_with_the_drag) {
    jig->setSpecifyWindowType(3);
    pick(10, 300);
    move(210, 200);
    look([&](const KdDbTable& table) {
        EXPECT_EQ(table.numRows(), 10);
        EXPECT_EQ(table.numColumns(), 6);
        move(100, 250);
    });
    look([&](const KdDbTable& table) {
        EXPECT_EQ(table.numRows(), 5);
        EXPECT_EQ(table.numColumns(), 3);
        EXPECT_EQ(table.getMergeRange(0, 0), cells("A1:C1"));
        move(210, 200);
    });
    look([&](const KdDbTable& table) {
        EXPECT_EQ(table.numRows(), 10);
        EXPECT_EQ(table.getMergeRange(0, 0), cells("A1:F1"));
        pick(40.5, 230);
    });
    const KdDbTable& table = place();
    EXPECT_EQ(table.numColumns(), 1);
    EXPECT_FALSE(table.isMergedCell(0, 0));
}

TEST_F(TableJigSize, one_height_for_all_rows_is_that_of_the_last) {
    jig->setSpecifyWindowType(2);
    jig->setTableRowHeight(2);
    const KdDbTable& table = dragWindow({10, 300, 0}, {160, 200, 0});
    // 100 / (2 * 6 + 3): the title's row is no higher than the others.
    EXPECT_EQ(table.numRows(), 6);
    EXPECT_EQ(table.rowHeight(0), 15.0);
    EXPECT_EQ(table.rowHeight(5), 15.0);
}

/// The rows that a window holds are told with the vertical margin, their height is set with the horizontal one.
TEST_F(TableJigSize, the_two_margins_serve_each_its_own_rule) {
    OpenObject<KdDbTableStyle> style(host.database().tablestyle(), KdDb::kForWrite);
    style->setMargin(KdDb::kCellMarginTop, 4.5, L"_DATA");
    style->setMargin(KdDb::kCellMarginLeft, 0.5, L"_DATA");
    style.close();
    jig->setSpecifyWindowType(2);
    const KdDbTable& table = dragWindow({10, 300, 0}, {160, 200, 0});
    EXPECT_EQ(table.numRows(), 6) << "100 / (6 + 2 * 4.5)";
    EXPECT_EQ(table.rowHeight(5), 7.0) << "6 + 2 * 0.5";
}

TEST_F(TableJigSize, the_rows_of_a_window_are_told_with_the_text_of_the_last_row_s_type) {
    OpenObject<KdDbTableStyle> style(host.database().tablestyle(), KdDb::kForWrite);
    style->setTextHeight(9.0, L"_HEADER");
    style.close();
    jig->setSpecifyWindowType(2);
    jig->setOtherCellText(L"_HEADER");
    const KdDbTable& table = dragWindow({10, 300, 0}, {160, 200, 0});
    EXPECT_EQ(table.numRows(), 6) << "100 / (12 + 2 * 1.5)";
    EXPECT_EQ(table.rowHeight(5), 15.0);
}

TEST_F(TableJigSize, the_two_top_rows_leave_the_window_their_heights_each_with_its_own_margin) {
    OpenObject<KdDbTableStyle> style(host.database().tablestyle(), KdDb::kForWrite);
    style->setMargin(KdDb::kCellMarginTop, 11.5, L"_HEADER");
    style.close();
    jig->setSpecifyWindowType(3);
    const KdDbTable& table = dragWindow({10, 300, 0}, {210, 200, 0});
    EXPECT_EQ(table.numRows(), 8) << "100 less 8 + 2 * 1.5 and 6 + 2 * 11.5 holds six rows of 9";
}

TEST_F(TableJigSize, no_rows_at_all_get_the_height_0) {
    pick(1, 1);
    pick(200, 200);
    place();
    const OpenObject<KdDbTable> writer(jig->entity()->objectId(), KdDb::kForWrite);
    EXPECT_EQ(jig->setCellData(0, true), 1);
    for (int row = 0; row < writer->numRows(); ++row) EXPECT_EQ(writer->rowHeight(row), 0.0);
}

TEST_F(TableJigSize, a_reasonable_window_holds_one_column_and_three_rows) {
    pick(10, 10);
    pick(200, 200);
    place();
    EXPECT_TRUE(jig->isReasonableInput({17.5, 43, 0}));
    EXPECT_TRUE(jig->isReasonableInput({2.5, -23, 0}));
    EXPECT_FALSE(jig->isReasonableInput({17.4, 43, 0}));
    EXPECT_FALSE(jig->isReasonableInput({17.5, 42.9, 0}));
}

TEST_F(TableJigSize, the_name_of_the_style_is_written_where_that_is_asked_for) {
    pick(1, 1);
    pick(200, 200);
    place();
    const OpenObject<KdDbTable> writer(jig->entity()->objectId(), KdDb::kForWrite);
    CStdStr<wchar_t> shown = L"_DATA";
    CVqTableCommon::DefaultCellStyleReverseConvert(shown);
    jig->setCellText(shown, 2, 2, 3, true);
    EXPECT_STREQ(writer->textString(2, 0), shown) << "the name as passed in, not the internal one";
    EXPECT_STREQ(writer->textString(3, 0), shown);
    EXPECT_STREQ(writer->textString(3, 1), L"");
    EXPECT_STREQ(writer->textString(4, 0), L"");
}

constexpr int kLargest = std::numeric_limits<int>::max();

struct Counts {
    const char* what;
    int columns;
    int dataRows;
    int keptColumns;
    int keptRows;
};

void PrintTo(const Counts& counts, std::ostream* out) {
    *out << counts.what;
}

/// A million cells at most: columns leave room for three rows, and rows give way to columns.
class CountsFarTooLarge : public TableJig, public ::testing::WithParamInterface<Counts> {};

TEST_P(CountsFarTooLarge, are_cut_at_a_point) {
    jig->setPointMode(true);
    jig->setTableColumns(GetParam().columns);
    jig->setTableDataRows(GetParam().dataRows);
    pick(1, 1);
    const KdDbTable& table = place();
    EXPECT_EQ(table.numColumns(), GetParam().keptColumns);
    EXPECT_EQ(table.numRows(), GetParam().keptRows);
    EXPECT_STREQ(table.cellStyle(table.numRows() - 1, 0), L"_DATA");
}

TEST_P(CountsFarTooLarge, are_cut_in_a_window) {
    jig->setSpecifyWindowType(0);
    jig->setTableColumns(GetParam().columns);
    jig->setTableDataRows(GetParam().dataRows);
    const KdDbTable& table = dragWindow({0, 300, 0}, {1e6, 200, 0});
    EXPECT_EQ(table.numColumns(), GetParam().keptColumns);
    EXPECT_EQ(table.numRows(), GetParam().keptRows);
}

INSTANTIATE_TEST_SUITE_P(
    all, CountsFarTooLarge,
    ::testing::Values(Counts{"rows whose sum with the top rows still is a number", 3, kLargest - 2, 3, 333'333},
                      Counts{"rows whose sum with the top rows is none", 3, kLargest - 1, 3, 333'333},
                      Counts{"the most rows", 40, kLargest, 40, 25'000},
                      Counts{"the most columns", kLargest, 3, 333'333, 3},
                      Counts{"the most of both", kLargest, kLargest, 333'333, 3}));

TEST_F(TableJigSize, a_window_far_too_large_keeps_the_cells_in_bounds) {
    jig->setSpecifyWindowType(3);
    jig->setTableColumnWidth(1000.0);
    pick(1, 1);
    pick(1e12, 1e12);
    const KdDbTable& table = place();
    EXPECT_LE(double(table.numRows()) * table.numColumns(), 1e6);
}

}  // namespace
}  // namespace kdtest
