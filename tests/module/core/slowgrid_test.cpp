// Random sequences of edits of the grid, held against the plain model after each.

#include "tests/module/core/slowgrid.h"

#include <gtest/gtest.h>

#include "tests/module/core/editfixture.h"
#include "tests/support/random.h"

namespace kdtest {
namespace {

struct GridEdit {
    const char* name;
    Edit module;
    void (*model)(SlowGrid&, const SlowGrid::Ask&);
};

// An operation of the class beside the model's of the same name; the latter asks in those that may lose content.
#define EDIT(name)                                                                              \
    {                                                                                           \
#name, CVqTableCommon::name, [](SlowGrid & grid, const SlowGrid::Ask&) { grid.name(); } \
    }
#define ASKING(name)                                                                                   \
    {                                                                                                  \
#name, CVqTableCommon::name, [](SlowGrid & grid, const SlowGrid::Ask& ask) { grid.name(ask); } \
    }

const GridEdit gridEdits[] = {
    EDIT(InsertRowByAbove),    EDIT(InsertRowByBelow), EDIT(DeleteRows),        EDIT(InsertColumnByLeft),
    EDIT(InsertColumnByRight), EDIT(DeleteColumns),    EDIT(UnmergeCells),      ASKING(MergeAll),
    ASKING(MergeByRow),        ASKING(MergeByColumn),  EDIT(SizeColumnsEvenly), EDIT(SizeRowsEvenly),
};

#undef EDIT
#undef ASKING

/// A rectangle in the table, of up to four rows and columns.
KdCellRange rectangle(Random& random, int rows, int columns) {
    const int top = random.between(0, rows - 1);
    const int left = random.between(0, columns - 1);
    return {top, left, std::min(rows - 1, top + random.between(0, 3)),
            std::min(columns - 1, left + random.between(0, 3))};
}

/// Content in some tables, locks in some, merges and sizes in nearly all.
std::unique_ptr<KdDbTable> randomTable(Random& random) {
    constexpr const wchar_t* styles[] = {L"_TITLE", L"_HEADER", L"_DATA"};
    const int rows = random.between(1, 6);
    const int columns = random.between(1, 6);
    auto table = makeTable(rows, columns);
    for (int i = random.between(0, 4); i > 0; --i) {
        const KdCellRange merge = rectangle(random, rows, columns);
        table->mergeCells(merge.m_topRow, merge.m_bottomRow, merge.m_leftColumn, merge.m_rightColumn);
    }
    const bool filled = random.oneIn(3);
    const bool locked = random.oneIn(4);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const KdCellRange merge = table->getMergeRange(row, column);
            if (merge.m_topRow != row || merge.m_leftColumn != column) continue;
            if (filled && random.oneIn(2))
                table->setTextString(row, column, std::to_wstring(random.between(0, 99)).c_str());
            if (random.oneIn(3)) table->setCellStyle(row, column, styles[random.between(0, 2)]);
            if (locked && random.oneIn(8)) table->setCellState(row, column, KdDb::kCellStateContentLocked);
        }
        if (random.oneIn(2)) table->setRowHeight(row, table->rowHeight(row) + random.between(0, 20));
    }
    for (int column = 0; column < columns; ++column) table->setColumnWidth(column, random.between(20, 60));
    return table;
}

/// A rectangle for the most part; else a merge, nothing, whole rows or columns, or a reversed range.
KdCellRange randomSelection(Random& random, const SlowGrid& grid) {
    const KdCellRange range = rectangle(random, grid.rowCount(), grid.columnCount());
    switch (random.between(1, 12)) {
        case 1:
            return {};
        case 2:
            return {range.m_topRow, -1, range.m_bottomRow, -1};
        case 3:
            return {-1, range.m_leftColumn, -1, range.m_rightColumn};
        case 4:
            return {range.m_bottomRow, range.m_rightColumn, range.m_topRow, range.m_leftColumn};
        case 5:
            return {range.m_bottomRow, range.m_leftColumn, range.m_topRow, range.m_rightColumn};
        case 6:
        case 7:
            return grid.mergeRange(range.m_topRow, range.m_leftColumn);
        default:
            return range;
    }
}

constexpr int sequencesPerSeed = 2500;
constexpr int editsPerSequence = 6;
constexpr int largest = 12;

class GridModel : public TableEdits, public ::testing::WithParamInterface<unsigned> {
protected:
    /// One edit of table and model alike; the edit's name and selection for a failure's message.
    std::string step(Random& random, KdDbObjectId id, SlowGrid& grid) {
        grid.selection = randomSelection(random, grid);
        select(id, grid.selection);
        const GridEdit& edit = gridEdits[random.between(0, static_cast<int>(std::size(gridEdits)) - 1)];
        const std::string told = std::string(edit.name) + " of\n" + grid.describe();
        const bool yes = random.oneIn(2);
        int asked = 0;
        edit.model(grid, [&] {
            ++asked;
            return yes;
        });
        const BoxAnswers answers({static_cast<std::size_t>(asked), yes ? BoxAnswer::Yes : BoxAnswer::No});
        EXPECT_EQ(edit.module(id), 1);
        EXPECT_EQ(answers.count(), asked) << "questions";
        return told;
    }
};

TEST_P(GridModel, Every_edit_of_the_grid_agrees_in_random_sequences) {
    Random random(GetParam());
    for (int i = 0; i < sequencesPerSeed && !HasFailure(); ++i) {
        const KdDbObjectId id = add(randomTable(random));
        SlowGrid grid(look(id));
        std::string history;
        for (int j = 0; j < editsPerSequence && !HasFailure(); ++j) {
            if (grid.rowCount() > largest || grid.columnCount() > largest) break;
            history += step(random, id, grid);
            EXPECT_EQ(grid.difference(look(id)), "") << "sequence " << i << ", edit " << j << "\n" << history;
        }
        OpenObject<KdDbTable>(id, KdDb::kForWrite)->erase(true);
    }
}

// Four seeds, 10,000 sequences.
INSTANTIATE_TEST_SUITE_P(Seeds, GridModel, ::testing::Range(1U, 5U));

}  // namespace
}  // namespace kdtest
