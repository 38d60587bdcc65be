// Rows of a table in their blocks: the same as a plain list of rows, whatever is shared with older states.

#include "host/db/tablerows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <new>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "host/db/tablestate.h"

namespace kdtest {
namespace {

using kdhost::RowMeasures;
using kdhost::TableRow;
using kdhost::TableRows;

TableRow rowOfCells(int count) {
    const auto size = static_cast<std::size_t>(count);
    TableRow row;
    row.looks = {size, {}};
    row.contents = {size, {}};
    return row;
}

TableRow rowOf(int number) {
    TableRow row = rowOfCells(1);
    row.height = number;
    return row;
}

/// Each row is told by its height.
std::vector<int> heights(const TableRows& rows) {
    std::vector<int> all;
    for (int row = 0; row < rows.size(); ++row) all.push_back(static_cast<int>(rows[row].height));
    return all;
}

/// The rows that aren't shared.
std::vector<int> changed(const TableRows& before, const TableRows& after) {
    std::vector<int> all;
    after.visitChanged(before, [&](int row) { all.push_back(row); });
    return all;
}

/// Rows 0, 1, 2 ...
TableRows numbered(int count) {
    TableRows rows;
    for (int row = 0; row < count; ++row) rows.insert(row, 1, rowOf(row));
    return rows;
}

TEST(TableRows, Keep_their_order_however_many_come_one_by_one_or_at_once) {
    const TableRows rows = numbered(1000);
    for (int row = 999; row >= 0; --row) ASSERT_EQ(rows[row].height, row);
    for (int row = 0; row < 1000; row += 7) ASSERT_EQ(rows[(row * 389) % 1000].height, (row * 389) % 1000);

    TableRows atOnce;
    atOnce.insert(0, 1000, rowOf(7));
    atOnce.insert(500, 300, rowOf(8));
    EXPECT_EQ(atOnce.size(), 1300);
    EXPECT_EQ(atOnce[499].height, 7);
    EXPECT_EQ(atOnce[500].height, 8);
    EXPECT_EQ(atOnce[799].height, 8);
    EXPECT_EQ(atOnce[800].height, 7);
}

TEST(TableRows, That_are_all_gone_can_come_back) {
    TableRows rows = numbered(300);
    rows.erase(0, 300);
    EXPECT_EQ(rows.size(), 0);
    rows.insert(0, 2, rowOf(5));
    EXPECT_EQ(heights(rows), (std::vector{5, 5}));
}

TEST(TableRows, Are_shared_with_a_copy_until_one_of_both_writes) {
    const TableRows before = numbered(400);
    TableRows after = before;
    EXPECT_TRUE(after.shares(before));
    EXPECT_EQ(&after[200], &before[200]);
    EXPECT_EQ(changed(before, after), std::vector<int>());
    after.write(200).height = -1.0;
    EXPECT_FALSE(after.shares(before));
    EXPECT_EQ(before[200].height, 200.0);
    EXPECT_EQ(after[200].height, -1.0);
    EXPECT_EQ(changed(before, after), std::vector{200});
    EXPECT_EQ(&after[399], &before[399]) << "another block";
    after.erase(10, 300);
    after.insert(10, 1, rowOf(-2));
    EXPECT_TRUE(after.looks(11).shares(before.looks(310))) << "rows that only moved are still shared";
    EXPECT_TRUE(after[11].contents.shares(before[310].contents));
}

TEST(TableRows, That_one_state_writes_again_stay_as_they_were_in_the_copy_made_between) {
    TableRows rows = numbered(200);
    rows.write(150).height = -1.0;
    const TableRows copy = rows;
    rows.write(150).height = -2.0;
    TableRows assigned;
    assigned.insert(0, 3, rowOf(9));
    assigned.write(1).height = 1.0;
    assigned = rows;
    rows.write(150).height = -3.0;
    assigned.write(150).height = -4.0;
    rows.write(150).height = -5.0;
    EXPECT_EQ(copy[150].height, -1.0);
    EXPECT_EQ(assigned[150].height, -4.0);
    EXPECT_EQ(rows[150].height, -5.0);
}

// A walk that lets rows grow writes to the blocks it walks over, which an older state may share.
TEST(TableRows, Settle_in_the_state_that_settles_alone_when_rows_are_written_meanwhile) {
    TableRows rows = numbered(300);
    TableRows before = rows;
    const auto unsettled = [](TableRows& state) {
        int count = 0;
        state.visitUnsettled(9, [&](int) { return ++count != 0; });
        return count;
    };
    rows.visitUnsettled(9, [&](int row) {
        rows.setHeight(row, 1000.0 + row);
        return true;
    });
    EXPECT_EQ(rows[299].height, 1299.0);
    EXPECT_EQ(unsettled(rows), 0);
    EXPECT_EQ(before[299].height, 299.0);
    EXPECT_EQ(unsettled(before), 300);
    EXPECT_EQ(unsettled(before), 0);
    rows.writeLook(150, 0).style = 3;
    EXPECT_GT(unsettled(rows), 0);
}

TEST(TableRows, Lose_what_was_worked_out_about_a_row_by_every_write_but_that_of_its_height) {
    TableRows rows = numbered(3);
    for (int row = 0; row < 3; ++row) rows.measures(row, 9).minimumHeight = 4.0;
    rows.setHeight(0, 50.0);
    rows.writeLook(1, 0).style = 3;
    EXPECT_EQ(rows[0].height, 50.0);
    EXPECT_EQ(rows.measures(0, 9).minimumHeight, 4.0);
    EXPECT_EQ(rows.measures(1, 9).minimumHeight, RowMeasures::kNotMeasured);
    EXPECT_EQ(rows.measures(2, 9).minimumHeight, 4.0);
}

void styleCells(TableRows& rows, int row, int count, std::uint16_t style) {
    for (int column = 0; column < count; ++column) rows.writeLook(row, column).style = style;
}

TEST(TableRows, Share_the_looks_of_rows_that_were_written_alike_and_of_no_other) {
    TableRows rows;
    for (int row = 0; row < 20; ++row) rows.insert(row, 1, rowOfCells(6));
    EXPECT_FALSE(rows.looks(1).shares(rows.looks(2))) << "each was made for itself";
    for (int row = 0; row < 20; ++row) styleCells(rows, row, 6, row == 9 ? 4 : 3);
    for (int row = 1; row < 19; ++row) {
        EXPECT_EQ(rows.looks(row).shares(rows.looks(row - 1)), row != 9 && row != 10) << row;
    }
    const TableRows before = rows;
    rows.writeLook(5, 2).style = 8;
    for (int row = 0; row < 20; ++row) {
        for (int column = 0; column < 6; ++column) {
            EXPECT_EQ(rows.look(row, column).style, row == 5 && column == 2 ? 8 : row == 9 ? 4 : 3);
            EXPECT_EQ(before.look(row, column).style, row == 9 ? 4 : 3);
        }
    }
    rows.writeLook(5, 2).style = 3;
    rows.shareLooks(5);
    EXPECT_TRUE(rows.looks(5).shares(rows.looks(4))) << "when asked to";
}

TEST(TableRows, Share_looks_from_block_to_block) {
    TableRows rows;
    for (int row = 0; row < 500; ++row) rows.insert(row, 1, rowOfCells(6));
    for (int row = 0; row < 500; ++row) styleCells(rows, row, 6, 3);
    for (int row = 1; row < 499; ++row) EXPECT_TRUE(rows.looks(row).shares(rows.looks(0))) << row;
}

// Cells of rows of different styles may look the same; what is new in a row begins with the row's own style.
TEST(TableRows, That_share_their_looks_get_new_columns_each_in_its_own_style) {
    using kdhost::CellStylePool;
    kdhost::TableState state;
    state.setColumnCount(3);
    state.setRowCount(4);
    for (int row = 0; row < 4; ++row) {
        styleCells(state.rows, row, 3, CellStylePool::kData);
        state.rows.shareLooks(row);
    }
    ASSERT_TRUE(state.rows.looks(0).shares(state.rows.looks(3)));
    state.insertColumns(3, -1, 2);
    for (int column = 3; column < 5; ++column) {
        EXPECT_EQ(state.look(0, column).style, CellStylePool::kTitle);
        EXPECT_EQ(state.look(1, column).style, CellStylePool::kHeader);
        EXPECT_EQ(state.look(2, column).style, CellStylePool::kData);
    }
    EXPECT_EQ(state.look(0, 2).style, CellStylePool::kData);
    EXPECT_TRUE(state.rows.looks(2).shares(state.rows.looks(3))) << "alike as before";
}

// A walk down each column writes a cell of every row at a time: comparing whole rows each time would cost it the square
// of the width.
TEST(TableRows, Compare_no_row_of_which_little_was_written) {
    TableRows rows;
    rows.insert(0, 20, rowOfCells(6));
    for (int column = 0; column < 6; ++column) {
        for (int row = 0; row < 20; ++row) rows.writeLook(row, column).style = 3;
    }
    EXPECT_FALSE(rows.looks(5).shares(rows.looks(6)));
    EXPECT_TRUE(rows.looks(5) == rows.looks(6));
}

TEST(TableRows, Hold_the_looks_that_were_written_in_whatever_order_while_copies_stand) {
    constexpr int kRows = 250;
    constexpr int kColumns = 5;
    using Model = std::vector<std::array<int, kColumns>>;
    std::mt19937 random(19);
    const auto below = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    TableRows rows;
    rows.insert(0, kRows, rowOfCells(kColumns));
    Model model(kRows);
    std::vector<std::pair<TableRows, Model>> copies;
    const auto same = [&](const TableRows& held, const Model& expected) {
        for (int row = 0; row < kRows; ++row) {
            for (int column = 0; column < kColumns; ++column) {
                if (held.look(row, column).style !=
                    expected[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)])
                    return false;
            }
        }
        return true;
    };
    for (int turn = 0; turn < 300; ++turn) {
        const int first = below(kRows);
        const int behind = std::min(kRows, first + 1 + below(40));
        const auto style = static_cast<std::uint16_t>(below(3));
        const bool down = below(4) == 0;
        for (int row = down ? behind - 1 : first; row >= first && row < behind; row += down ? -1 : 1) {
            for (int column = below(3) == 0 ? 1 : 0; column < kColumns; ++column) {
                rows.writeLook(row, column).style = style;
                model[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = style;
                if (below(50) == 0) rows.look(below(kRows), 0);  // a look elsewhere
            }
        }
        if (turn % 20 == 0) copies.emplace_back(rows, model);
        ASSERT_TRUE(same(rows, model)) << turn;
    }
    for (const auto& [held, expected] : copies) EXPECT_TRUE(same(held, expected));
}

TEST(PendingGrowth, Gives_back_the_cells_in_the_order_of_writing_and_keeps_a_walk_by_rows_as_one_block) {
    using kdhost::PendingGrowth;
    using Noted = std::vector<std::tuple<int, int, PendingGrowth::For>>;
    const auto noted = [](const PendingGrowth& pending) {
        Noted all;
        for (const PendingGrowth::Block& block : pending.blocks) {
            for (int row = block.top; row < block.bottom; ++row) {
                for (int column = block.left; column < block.right; ++column) all.emplace_back(row, column, block.what);
            }
        }
        return all;
    };
    PendingGrowth walk;
    for (int row = 3; row < 50; ++row) {
        for (int column = 2; column < 7; ++column) walk.note({row, column}, PendingGrowth::For::Content);
    }
    ASSERT_EQ(walk.blocks.size(), 1U);
    EXPECT_EQ(noted(walk).size(), 47U * 5U);
    EXPECT_EQ(walk.furthest, (PendingGrowth::Place{49, 6}));

    std::mt19937 random(23);
    for (int turn = 0; turn < 300; ++turn) {
        PendingGrowth pending;
        Noted expected;
        const int columns = 1 + static_cast<int>(random() % 4);
        for (int row = 0; row < 12; ++row) {
            for (int column = 0; column < columns; ++column) {
                if (random() % 8 == 0) continue;
                const auto what = random() % 9 == 0 ? PendingGrowth::For::Text : PendingGrowth::For::Content;
                pending.note({row, column}, what);
                expected.emplace_back(row, column, what);
            }
        }
        ASSERT_EQ(noted(pending), expected) << turn;
    }
}

TEST(RowMeasures, Forget_one_layout_when_asked_for_another) {
    RowMeasures row;
    row.of(9).minimumHeight = 4.0;
    row.of(9).fits = true;
    EXPECT_TRUE(row.of(9).fits);
    EXPECT_FALSE(row.of(10).fits);
    EXPECT_EQ(row.of(9).minimumHeight, RowMeasures::kNotMeasured);
}

TEST(TableRows, Share_the_bodies_of_rows_in_which_only_looks_were_written) {
    const TableRows before = numbered(300);
    TableRows after = before;
    for (int row = 0; row < 300; ++row) after.writeLook(row, 0).style = 3;
    for (int row = 0; row < 300; ++row) {
        EXPECT_EQ(&after[row], &before[row]);
        EXPECT_EQ(before.look(row, 0).style, 0);
    }
    after.writeContent(150, 0).text = L"x";
    EXPECT_EQ(after.content(150, 0).text.view(), L"x");
    EXPECT_TRUE(before.content(150, 0).empty());
}

TEST(TableRows, Stay_as_they_are_when_a_change_of_one_fails) {
    TableRows rows = numbered(3);
    rows.writeLook(1, 0).style = 5;
    rows.writeContent(1, 0).text = L"kept";
    EXPECT_THROW(rows.changeRow(1,
                                [](TableRow& row) {
                                    row.looks.insert(0, 2, {});
                                    row.insertContents(0, 2);
                                    throw std::bad_alloc();
                                }),
                 std::bad_alloc);
    EXPECT_EQ(rows.looks(1).size(), 1U);
    EXPECT_EQ(rows.look(1, 0).style, 5);
    EXPECT_EQ(rows.content(1, 0).text.view(), L"kept");
    rows.changeRow(1, [](TableRow& row) {
        row.looks.insert(0, 2, {});
        row.insertContents(0, 2);
    });
    EXPECT_EQ(rows.looks(1).size(), 3U);
    EXPECT_EQ(rows.content(1, 2).text.view(), L"kept");
}

/// A cell of a row that is known by every one of its parts.
struct KnownCell {
    int style = 0;
    std::wstring text;
    int mergedColumns = 0;

    friend bool operator==(const KnownCell&, const KnownCell&) = default;
};

std::vector<KnownCell> cellsOf(const TableRow& row) {
    std::vector<KnownCell> all;
    for (std::size_t column = 0; column < row.size(); ++column) {
        const bool merged = row.looks[column].isMerged;
        all.push_back({row.looks[column].style, std::wstring(row.content(column).text.view()),
                       merged ? row.links[column].columns : 0});
    }
    return all;
}

TEST(TableRow, Keeps_its_cells_through_any_changes_of_its_width_and_leaves_its_copies_alone) {
    std::mt19937 random(41);
    const auto below = [&](std::size_t bound) { return static_cast<int>(random() % bound); };
    struct Stand {
        TableRow row;
        std::vector<KnownCell> expected;
    };
    Stand now;
    now.row = rowOfCells(3);
    now.expected.resize(3);
    std::vector<Stand> kept;
    for (int change = 1; change <= 4000; ++change) {
        const std::size_t size = now.row.size();
        switch (below(4)) {
            case 0: {
                const int at = below(size + 1);
                const int count = 1 + below(5);
                kdhost::CellLook look;
                look.style = static_cast<std::uint16_t>(change);
                if (size + static_cast<std::size_t>(count) > 14) break;
                now.row.looks.insert(static_cast<std::size_t>(at), static_cast<std::size_t>(count), look);
                now.row.insertContents(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
                now.expected.insert(now.expected.begin() + at, static_cast<std::size_t>(count),
                                    KnownCell{change, {}, 0});
                break;
            }
            case 1: {
                const int first = below(size);
                const int behind = first + 1 + below(std::min<std::size_t>(5, size - static_cast<std::size_t>(first)));
                if (behind - first == static_cast<int>(size)) break;
                now.row.looks.erase(static_cast<std::size_t>(first), static_cast<std::size_t>(behind));
                now.row.eraseContents(static_cast<std::size_t>(first), static_cast<std::size_t>(behind));
                now.expected.erase(now.expected.begin() + first, now.expected.begin() + behind);
                break;
            }
            case 2: {
                const auto column = static_cast<std::size_t>(below(size));
                now.row.writeContent(column).text = now.expected[column].text = std::to_wstring(change);
                break;
            }
            default: {
                const int column = below(size);
                now.row.setLink(column, {0, 0, 1, change});
                now.expected[static_cast<std::size_t>(column)].mergedColumns = change;
            }
        }
        ASSERT_EQ(cellsOf(now.row), now.expected) << "change " << change;
        if (below(20) == 0) kept.push_back(now);
        if (below(40) == 0 && !kept.empty()) now = kept[static_cast<std::size_t>(below(kept.size()))];
    }
    for (const Stand& stand : kept) ASSERT_EQ(cellsOf(stand.row), stand.expected);
}

/// A state of the rows and what it must hold.
struct Kept {
    TableRows rows;
    std::vector<int> expected;
};

class RandomRows : public ::testing::Test {
protected:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }

    /// Few rows mostly, now and then many.
    int someOf(int most) { return below(4) == 0 ? below(most + 1) : std::min(most, below(3)); }

    void change(Kept& state) {
        const int size = state.rows.size();
        if (below(3) == 0 && size > 0) {
            const int row = below(size);
            if (below(2) == 0) {
                state.rows.write(row).height = ++m_next;
            } else {
                state.rows.setHeight(row, ++m_next);
            }
            state.expected[static_cast<std::size_t>(row)] = m_next;
        } else if (below(2) == 0 && size > 0) {
            const int first = below(size);
            const int count = someOf(size - first);
            state.rows.erase(first, count);
            state.expected.erase(state.expected.begin() + first, state.expected.begin() + first + count);
        } else {
            const int at = below(size + 1);
            const int count = size > 1500 ? 1 : someOf(400);
            state.rows.insert(at, count, rowOf(++m_next));
            state.expected.insert(state.expected.begin() + at, static_cast<std::size_t>(count), m_next);
        }
    }

    /// A number is given once, so that rows of one number were copied from each other.
    void checkChanged(const Kept& before, const Kept& after) {
        std::vector<int> expected;
        for (int row = 0; row < after.rows.size(); ++row) {
            const auto place = static_cast<std::size_t>(row);
            if (before.expected[place] != after.expected[place]) expected.push_back(row);
        }
        EXPECT_EQ(changed(before.rows, after.rows), expected);
        if (!expected.empty() && expected.size() < before.expected.size()) ++partlyChanged;
    }

    int partlyChanged = 0;

private:
    std::mt19937 m_random{20};
    int m_next = 0;
};

TEST_F(RandomRows, Are_those_of_a_plain_list_in_every_state_that_was_kept) {
    std::vector<Kept> states(4);
    for (int round = 0; round < 20'000; ++round) {
        const auto of = [&] { return static_cast<std::size_t>(below(4)); };
        Kept& state = states[of()];
        if (below(8) == 0) {
            // As keeping a state, putting one back and forgetting one do.
            state = states[of()];
        } else {
            change(state);
        }
        const int size = state.rows.size();
        ASSERT_EQ(size, static_cast<int>(state.expected.size()));
        for (int look = 0; look < 4 && size > 0; ++look) {
            const int row = below(size);
            ASSERT_EQ(state.rows[row].height, state.expected[static_cast<std::size_t>(row)]);
        }
        if (round % 50 != 0) continue;
        for (const Kept& kept : states) {
            ASSERT_EQ(heights(kept.rows), kept.expected) << "round " << round;
            if (kept.rows.size() == state.rows.size()) checkChanged(kept, state);
        }
    }
    EXPECT_GT(partlyChanged, 20);
}

}  // namespace
}  // namespace kdtest
