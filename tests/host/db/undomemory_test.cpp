// What a step keeps of a large table.

#include "host/db/tableaccess.h"
#include "kd/db/table.h"
#include "tests/host/db/undofixture.h"
#include "tests/support/tablebuilder.h"

namespace {

using kdtest::Undo;

bool sharesCells(const kdhost::TableRows& a, int row, const kdhost::TableRows& b, int otherRow) {
    return a.looks(row).shares(b.looks(otherRow)) && a[row].contents.shares(b[otherRow].contents) &&
           a[row].links.shares(b[otherRow].links);
}

/// How many rows of the table have cells that are the step's copies, that is, no longer shared with the state before.
int copiedRows(const kdhost::TableState& before, const kdhost::TableState& now) {
    int copied = 0;
    for (int row = 0; row < std::min(before.rowCount(), now.rowCount()); ++row) {
        if (!sharesCells(before.rows, row, now.rows, row)) ++copied;
    }
    return copied;
}

class UndoOfLargeTables : public Undo {
protected:
    static constexpr int kRows = 12'500;
    static constexpr int kColumns = 8;

    template <class Change>
    int copiesOf(Change change) {
        const kdhost::TableState before = kdhost::tableState(*kdhost::peek<KdDbTable>(m_table));
        step([&] { edit<KdDbTable>(m_table, change); });
        return copiedRows(before, kdhost::tableState(*kdhost::peek<KdDbTable>(m_table)));
    }

    KdDbObjectId m_table = kdtest::append(m_database, kdtest::TableBuilder(kRows, kColumns).build().release());
};

TEST_F(UndoOfLargeTables, a_step_copies_the_rows_that_it_touches) {
    EXPECT_EQ(copiesOf([](KdDbTable&) {}), 0);
    EXPECT_EQ(copiesOf([](KdDbTable& table) { table.setTextString(7000, 3, L"text"); }), 1);
    EXPECT_EQ(copiesOf([](KdDbTable& table) { table.setColumnWidth(2, 20.0); }), 0);
    EXPECT_EQ(copiesOf([](KdDbTable& table) { table.mergeCells(10, 14, 1, 2); }), 5);
    EXPECT_EQ(copiesOf([](KdDbTable& table) {
                  for (int row = 100; row < 200; ++row) table.setAlignment(row, 0, KdDb::kTopRight);
              }),
              100);
    // A row is written for the first time once in a step, however often.
    EXPECT_EQ(copiesOf([](KdDbTable& table) {
                  for (int column = 0; column < kColumns; ++column) table.setTextString(50, column, L"text");
              }),
              1);
}

TEST_F(UndoOfLargeTables, inserted_rows_leave_the_others_shared) {
    const auto* table = kdhost::peek<KdDbTable>(m_table);
    const kdhost::TableState before = kdhost::tableState(*table);
    step([&] { edit<KdDbTable>(m_table, [](KdDbTable& open) { open.insertRowsAndInherit(6000, 5999, 3); }); });
    const kdhost::TableState& now = kdhost::tableState(*table);
    for (int row = 0; row < kRows; ++row) {
        ASSERT_TRUE(sharesCells(before.rows, row, now.rows, row < 6000 ? row : row + 3)) << row;
    }
}

TEST_F(UndoOfLargeTables, undo_puts_the_very_rows_back) {
    const auto* table = kdhost::peek<KdDbTable>(m_table);
    const kdhost::TableState before = kdhost::tableState(*table);
    step([&] { edit<KdDbTable>(m_table, [](KdDbTable& open) { open.setAlignment(-1, -1, KdDb::kTopRight); }); });
    EXPECT_EQ(copiedRows(before, kdhost::tableState(*table)), kRows);
    history().undo();
    EXPECT_EQ(copiedRows(before, kdhost::tableState(*table)), 0);
}

}  // namespace
