// Which cell the ending keys of the cell editor lead to.

#include "module/edit/celleditwalk.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>

#include "kd/ed/inplaceeditor.h"
#include "tests/support/tablebuilder.h"

void PrintTo(const CellEditStep& step, std::ostream* out) {
    *out << "(" << step.row << ", " << step.column << (step.goesOn ? ")" : "), end");
}

namespace kdtest {
namespace {

CellEditStep step(KdDbTable& table, int row, int column, int key) {
    return nextEditedCell(&table, table.numRows(), table.numColumns(), row, column, key);
}

CellEditStep cell(int row, int column) {
    return {row, column, true};
}
CellEditStep end(int row, int column) {
    return {row, column, false};
}

TEST(CellEditWalk, Tab_and_Right_go_on_in_reading_order) {
    const auto table = TableBuilder(2, 3).build();
    for (const int key : {kMTextEditorTab, kMTextEditorRight}) {
        EXPECT_EQ(step(*table, 0, 0, key), cell(0, 1));
        EXPECT_EQ(step(*table, 0, 2, key), cell(1, 0));
    }
}

TEST(CellEditWalk, Tab_in_the_last_editable_cell_ends_and_Right_stays) {
    const auto table = TableBuilder(2, 3).lock("C2").build();
    EXPECT_EQ(step(*table, 1, 1, kMTextEditorTab), end(1, 1));
    EXPECT_EQ(step(*table, 1, 1, kMTextEditorRight), cell(1, 1));
}

TEST(CellEditWalk, the_backward_keys_end_or_stay_at_the_start) {
    const auto table = TableBuilder(2, 3).build();
    EXPECT_EQ(step(*table, 1, 0, kMTextEditorShiftTab), cell(0, 2));
    EXPECT_EQ(step(*table, 1, 0, kMTextEditorLeft), cell(0, 2));
    EXPECT_EQ(step(*table, 0, 0, kMTextEditorShiftTab), end(0, 0));
    EXPECT_EQ(step(*table, 0, 0, kMTextEditorLeft), cell(0, 0));
}

TEST(CellEditWalk, Enter_in_the_last_row_ends_and_Down_stays) {
    const auto table = TableBuilder(2, 3).build();
    EXPECT_EQ(step(*table, 0, 1, kMTextEditorEnter), cell(1, 1));
    EXPECT_EQ(step(*table, 0, 1, kMTextEditorDown), cell(1, 1));
    EXPECT_EQ(step(*table, 1, 1, kMTextEditorEnter), end(1, 1));
    EXPECT_EQ(step(*table, 1, 1, kMTextEditorDown), cell(1, 1));
}

TEST(CellEditWalk, the_upward_keys_end_or_stay_in_the_first_row) {
    const auto table = TableBuilder(2, 3).build();
    EXPECT_EQ(step(*table, 1, 1, kMTextEditorShiftEnter), cell(0, 1));
    EXPECT_EQ(step(*table, 1, 1, kMTextEditorUp), cell(0, 1));
    EXPECT_EQ(step(*table, 0, 1, kMTextEditorShiftEnter), end(0, 1));
    EXPECT_EQ(step(*table, 0, 1, kMTextEditorUp), cell(0, 1));
}

TEST(CellEditWalk, every_other_key_ends) {
    const auto table = TableBuilder(2, 3).build();
    for (const int key : {0, 27, 10, -1, 65}) EXPECT_EQ(step(*table, 0, 1, key), end(0, 1)) << key;
}

TEST(CellEditWalk, a_block_is_entered_at_its_top_left_cell_only) {
    const auto table = TableBuilder(4, 3).merge("B2:C3").build();
    EXPECT_EQ(step(*table, 1, 0, kMTextEditorTab), cell(1, 1));
    EXPECT_EQ(step(*table, 1, 1, kMTextEditorTab), cell(2, 0)) << "the covered rest of the block's first row";
    EXPECT_EQ(step(*table, 2, 0, kMTextEditorTab), cell(3, 0)) << "the block's second row";
    EXPECT_EQ(step(*table, 3, 0, kMTextEditorShiftTab), cell(2, 0));
    EXPECT_EQ(step(*table, 0, 1, kMTextEditorDown), cell(1, 1));
    EXPECT_EQ(step(*table, 1, 1, kMTextEditorDown), cell(3, 1)) << "covered rows are passed";
}

TEST(CellEditWalk, a_block_across_columns_met_while_going_down_is_followed_to_its_first_column) {
    const auto table = TableBuilder(3, 4).merge("B2:D2").build();
    EXPECT_EQ(step(*table, 0, 3, kMTextEditorDown), cell(1, 1));
    EXPECT_EQ(step(*table, 0, 3, kMTextEditorEnter), cell(1, 1));
    EXPECT_EQ(step(*table, 2, 3, kMTextEditorUp), cell(1, 1));
    EXPECT_EQ(step(*table, 2, 2, kMTextEditorShiftEnter), cell(1, 1));
}

TEST(CellEditWalk, a_locked_block_is_passed_by_rows) {
    const auto table = TableBuilder(3, 4).merge("B2:D2").lock("B2").build();
    EXPECT_EQ(step(*table, 0, 3, kMTextEditorDown), cell(2, 3));
    EXPECT_EQ(step(*table, 2, 2, kMTextEditorUp), cell(0, 2));
}

TEST(CellEditWalk, the_counts_are_those_that_are_handed_in) {
    const auto table = TableBuilder(4, 4).build();
    EXPECT_EQ(nextEditedCell(table.get(), 2, 2, 1, 1, kMTextEditorTab), end(1, 1));
    EXPECT_EQ(nextEditedCell(table.get(), 2, 2, 0, 1, kMTextEditorTab), cell(1, 0));
}

/// A table of random merges and locks.
std::unique_ptr<KdDbTable> randomTable(std::mt19937& random) {
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    auto table = TableBuilder(1 + below(5), 1 + below(5)).build();
    for (int merges = below(4); merges > 0; --merges) {
        const int top = below(table->numRows());
        const int left = below(table->numColumns());
        table->mergeCells(top, std::min(table->numRows() - 1, top + below(3)), left,
                          std::min(table->numColumns() - 1, left + below(3)));
    }
    for (int locks = below(5); locks > 0; --locks) {
        table->setCellState(below(table->numRows()), below(table->numColumns()), KdDb::kCellStateContentLocked);
    }
    return table;
}

TEST(CellEditWalk, a_walk_ends_where_it_began_or_in_a_cell_that_can_be_edited_and_entered) {
    std::mt19937 random(7);
    for (int round = 0; round < 5000; ++round) {
        const auto table = randomTable(random);
        const int row = static_cast<int>(random() % static_cast<unsigned>(table->numRows()));
        const int column = static_cast<int>(random() % static_cast<unsigned>(table->numColumns()));
        for (const int key : {9, 13, 25, 29, 37, 38, 39, 40}) {
            const CellEditStep next = step(*table, row, column, key);
            if (!next.goesOn || (next.row == row && next.column == column)) continue;
            int top = next.row;
            int left = next.column;
            table->isMergedCell(next.row, next.column, &top, nullptr, &left, nullptr);
            ASSERT_TRUE(table->isContentEditable(next.row, next.column)) << describe(*table);
            ASSERT_TRUE(top == next.row && left == next.column) << describe(*table);
        }
    }
}

/// The walks candidate by candidate, with nothing shared between the keys.
CellEditStep plainStep(const KdDbTable& table, int row, int column, int key) {
    const int lastRow = table.numRows() - 1;
    const int lastColumn = table.numColumns() - 1;
    const bool arrow = key >= 37 && key <= 40;
    bool mergedAcross = false;
    int r = row;
    int c = column;
    for (;;) {
        if (key == 9 || key == 39) {
            if (++c > lastColumn) {
                ++r;
                c = 0;
            }
            if (r > lastRow) return {row, column, arrow};
        } else if (key == 25 || key == 37) {
            if (--c < 0) {
                --r;
                c = lastColumn;
            }
            if (r < 0) return {row, column, arrow};
        } else if (mergedAcross) {
            if (--c < 0) return {row, column, true};
        } else {
            r += key == 13 || key == 40 ? 1 : -1;
            if (r < 0 || r > lastRow) return {row, c, arrow};
        }
        if (!table.isContentEditable(r, c)) continue;
        int top = r, bottom = r, left = c, right = c;
        if (!table.isMergedCell(r, c, &top, &bottom, &left, &right)) return {r, c, true};
        if (bottom > top && r != top) continue;
        if (right == left) return {r, c, true};
        mergedAcross = true;
        if (c == left) return {r, c, true};
    }
}

TEST(CellEditWalk, agrees_with_the_plain_walk_on_random_tables) {
    std::mt19937 random(72);
    int edges = 0;
    for (int round = 0; round < 5000; ++round) {
        const auto table = randomTable(random);
        for (int row = 0; row < table->numRows(); ++row) {
            for (int column = 0; column < table->numColumns(); ++column) {
                for (const int key : {9, 13, 25, 29, 37, 38, 39, 40}) {
                    const CellEditStep expected = plainStep(*table, row, column, key);
                    ASSERT_EQ(step(*table, row, column, key), expected)
                        << key << " from " << row << ", " << column << "\n"
                        << describe(*table);
                    if (!expected.goesOn) ++edges;
                }
            }
        }
    }
    EXPECT_GT(edges, 10000);
}

}  // namespace
}  // namespace kdtest
