// Tables that the user means by a pick or by what was selected before, and where merged blocks are entered.

#include "module/core/tablepick.h"

#include <gtest/gtest.h>

#include "host/ed/editor.h"
#include "host/rx/faults.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"
#include "module/core/openobject.h"
#include "tests/module/core/sampletables.h"
#include "tests/support/application.h"

namespace kdtest {
namespace {

/// A drawing to which tables of 60 by 30 and lines are added.
class TablePick : public ApplicationTest {
protected:
    KdDbObjectId append(KdDbEntity* entity) {
        KdDbObjectId id;
        OpenObject<KdDbBlockTableRecord> space(host.database().modelSpaceId(), KdDb::kForWrite);
        EXPECT_EQ(space->appendKdDbEntity(id, entity), Kdad::eOk);
        entity->close();
        return id;
    }

    KdDbObjectId appendTable(double x, double y) {
        auto table = makeTable(3, 3);
        table->setColumnWidth(20.0);
        table->setRowHeight(10.0);
        table->setPosition({x, y, 0.0});
        return append(table.release());
    }

    KdDbObjectId appendLine(double y) {
        auto* line = new KdDbLine;
        line->setStartPoint({0.0, y, 0.0});
        line->setEndPoint({60.0, y, 0.0});
        return append(line);
    }

    void select(std::vector<KdDbObjectId> ids) { host.editor().pickFirst().set(std::move(ids)); }
    void selectCells(KdDbObjectId table, const KdCellRange& cells) {
        host.editor().pickFirst().selectCells(table, cells);
    }
};

/// How many of the selection sets made since it was built are still there. Sets have successive numbers.
class SetsLeft {
public:
    SetsLeft() { kdedSSAdd(nullptr, nullptr, m_before); }
    ~SetsLeft() { kdedSSFree(m_before); }
    int count() const {
        int left = 0;
        for (int i = 1; i <= 8; ++i) {
            const kded_name later = {m_before[0] + i, m_before[1]};
            int length = 0;
            if (kdedSSLength(later, &length) == RTNORM) ++left;
        }
        return left;
    }

private:
    kded_name m_before = {};
};

TEST_F(TablePick, GetTableAtPt_opens_the_one_table_under_the_point_for_read) {
    const KdDbObjectId id = appendTable(100.0, 50.0);
    host.type(L"110,45\n");
    KdGePoint3d point;
    KdDbTable* table = getTableAtPt(point);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->objectId(), id);
    EXPECT_TRUE(table->isReadEnabled());
    EXPECT_FALSE(table->isWriteEnabled());
    EXPECT_EQ(point, (KdGePoint3d{110.0, 45.0, 0.0}));
    EXPECT_EQ(table->close(), Kdad::eOk);
}

TEST_F(TablePick, GetTableAtPt_takes_the_answer_in_user_coordinates) {
    appendTable(100.0, 50.0);
    host.editor().setUcs(KdGeMatrix3d::translation({100.0, 0.0, 0.0}));
    host.type(L"10,45\n");
    KdGePoint3d point;
    KdDbTable* table = getTableAtPt(point);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(point, (KdGePoint3d{110.0, 45.0, 0.0}));
    table->close();
}

TEST_F(TablePick, GetTableAtPt_knows_no_keywords_of_an_earlier_prompt) {
    const KdDbObjectId id = appendTable(100.0, 50.0);
    kdedInitGet(0, L"Other _Other");
    host.type(L"other\n110,45\n");
    KdGePoint3d point;
    KdDbTable* table = getTableAtPt(point);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->objectId(), id);
    table->close();
}

TEST_F(TablePick, GetTableAtPt_gives_null_where_not_exactly_one_table_lies) {
    appendTable(100.0, 50.0);
    appendTable(140.0, 50.0);
    appendLine(200.0);
    for (const wchar_t* answer : {L"500,500\n", L"150,45\n", L"30,200\n"}) {
        host.type(answer);
        KdGePoint3d point;
        EXPECT_EQ(getTableAtPt(point), nullptr);
    }
}

TEST_F(TablePick, GetTableAtPt_gives_null_for_a_table_that_is_open_for_write) {
    const KdDbObjectId id = appendTable(100.0, 50.0);
    const OpenObject<KdDbTable> writer(id, KdDb::kForWrite);
    ASSERT_TRUE(writer);
    host.type(L"110,45\n");
    KdGePoint3d point;
    EXPECT_EQ(getTableAtPt(point), nullptr);
}

TEST_F(TablePick, GetTableAtPt_gives_null_on_cancel_and_writes_the_point_all_the_same) {
    appendTable(-10.0, 10.0);
    KdGePoint3d point{7.0, 7.0, 7.0};
    EXPECT_EQ(getTableAtPt(point), nullptr);
    EXPECT_EQ(point, (KdGePoint3d{0.0, 0.0, 0.0}));
}

TEST_F(TablePick, IsDoubleClickEdit_gives_the_first_selected_cell) {
    const KdDbObjectId table = appendTable(0.0, 0.0);
    selectCells(table, {1, 2, 2, 2});
    KdDbObjectId id;
    int row = -7;
    int column = -7;
    const SetsLeft sets;
    EXPECT_TRUE(isDoubleClickEdit(id, row, column));
    EXPECT_EQ(id, table);
    EXPECT_EQ(row, 1);
    EXPECT_EQ(column, 2);
    EXPECT_EQ(sets.count(), 0);
}

TEST_F(TablePick, GetSelectSingleTable_takes_a_table_without_selected_cells) {
    const KdDbObjectId table = appendTable(0.0, 0.0);
    select({table});
    KdDbObjectId id;
    const SetsLeft sets;
    EXPECT_TRUE(getSelectSingleTable(id));
    EXPECT_EQ(id, table);
    EXPECT_EQ(sets.count(), 0);
}

/// Neither question takes the selection; the outputs are those of a refusal and no set is left.
void expectRefused(bool byCells, bool byTable) {
    const SetsLeft sets;
    if (byCells) {
        KdDbObjectId id(1);
        int row = 5;
        int column = 5;
        EXPECT_FALSE(isDoubleClickEdit(id, row, column));
        EXPECT_TRUE(id.isNull());
        EXPECT_EQ(row, -1);
        EXPECT_EQ(column, -1);
    }
    if (byTable) {
        KdDbObjectId id(1);
        EXPECT_FALSE(getSelectSingleTable(id));
        EXPECT_EQ(id, KdDbObjectId(1));
    }
    EXPECT_EQ(sets.count(), 0);
}

TEST_F(TablePick, A_selection_of_none_or_several_objects_or_no_table_is_refused) {
    const KdDbObjectId first = appendTable(0.0, 0.0);
    const KdDbObjectId second = appendTable(100.0, 0.0);
    const KdDbObjectId line = appendLine(200.0);
    for (const std::vector<KdDbObjectId>& ids :
         {std::vector<KdDbObjectId>{}, {first, second}, {first, line}, {first, second, line}, {line}}) {
        select(ids);
        expectRefused(true, true);
    }
}

TEST_F(TablePick, Where_nothing_is_selected_nothing_is_opened) {
    kdhost::faults().failOpenNumber = 1;
    expectRefused(true, true);
    EXPECT_EQ(kdhost::faults().failOpenNumber, 1) << "an open has used up the failure";
}

TEST_F(TablePick, A_table_without_selected_cells_is_no_cell_and_one_with_cells_is_no_table) {
    const KdDbObjectId table = appendTable(0.0, 0.0);
    select({table});
    expectRefused(true, false);
    selectCells(table, {0, 0, 0, 0});
    expectRefused(false, true);
}

TEST_F(TablePick, A_table_that_is_open_for_write_is_refused) {
    const KdDbObjectId table = appendTable(0.0, 0.0);
    selectCells(table, {0, 0, 0, 0});
    const OpenObject<KdDbTable> writer(table, KdDb::kForWrite);
    ASSERT_TRUE(writer);
    expectRefused(true, true);
}

struct Entry {
    int row;
    int column;
    bool invalid;
    bool across;
};

TEST(IsInvalidRowColByMerge, Lets_a_block_be_entered_at_its_first_cell_only) {
    const auto table = makeEdgeTable();
    const Entry entries[] = {
        {4, 0, false, false},  // in no block
        {0, 0, false, true},   // A: two rows, two columns
        {0, 1, true, true},   {1, 0, true, false}, {1, 1, true, false},  {0, 3, false, true},  // B: one row
        {0, 4, true, true},   {0, 5, true, true},  {1, 5, false, false},                       // C: one column
        {2, 5, true, false},  {3, 5, true, false}, {9, 9, false, false},
    };
    for (const Entry& entry : entries) {
        SCOPED_TRACE(::testing::Message() << entry.row << ", " << entry.column);
        bool across = false;
        EXPECT_EQ(isInvalidRowColByMerge(table.get(), entry.row, entry.column, across), entry.invalid);
        EXPECT_EQ(across, entry.across);
    }
}

TEST(IsInvalidRowColByMerge, Never_takes_the_flag_back_and_holds_nothing_without_a_table) {
    const auto table = makeEdgeTable();
    bool across = true;
    EXPECT_TRUE(isInvalidRowColByMerge(table.get(), 1, 0, across));
    EXPECT_FALSE(isInvalidRowColByMerge(table.get(), 4, 0, across));
    EXPECT_FALSE(isInvalidRowColByMerge(nullptr, 0, 1, across));
    EXPECT_TRUE(across);
}

}  // namespace
}  // namespace kdtest
