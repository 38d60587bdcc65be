// A table in a database: what needs a write open, what is told at the close.

#include <gtest/gtest.h>

#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/tablestyle.h"
#include "tests/support/leakguard.h"
#include "tests/support/tablebuilder.h"

namespace {

class CountingReactor : public KdDbObjectReactor {
public:
    void modified(const KdDbObject*) override { ++changes; }
    int changes = 0;
};

/// A filled table of three rows and columns in the model space, closed.
class TableInDatabase : public ::testing::Test {
protected:
    void SetUp() override {
        KdDbObject* space = nullptr;
        ASSERT_EQ(kddbOpenObject(space, m_database.modelSpaceId(), KdDb::kForWrite), Kdad::eOk);
        auto* table = kdtest::TableBuilder(3, 3).fill().build().release();
        ASSERT_EQ(static_cast<KdDbBlockTableRecord*>(space)->appendKdDbEntity(m_id, table), Kdad::eOk);
        table->addReactor(&m_reactor);
        table->close();
        space->close();
        m_reactor.changes = 0;
    }

    void TearDown() override {
        KdDbTable* table = open(KdDb::kForRead);
        table->removeReactor(&m_reactor);
        table->close();
    }

    KdDbTable* open(KdDb::OpenMode mode) {
        KdDbObject* object = nullptr;
        EXPECT_EQ(kddbOpenObject(object, m_id, mode, false, KdDbTable::desc()), Kdad::eOk);
        return static_cast<KdDbTable*>(object);
    }

    KdDbDatabase m_database;
    KdDbObjectId m_id;
    CountingReactor m_reactor;
};

}  // namespace

TEST_F(TableInDatabase, a_setter_needs_a_write_open) {
    kdtest::expectDisciplineBreach("KdDbTable");
    KdDbTable* table = open(KdDb::kForRead);
    const std::string before = kdtest::describe(*table);
    table->setTextString(0, 0, L"no");
    EXPECT_EQ(kdtest::describe(*table), before);
    table->close();
    EXPECT_EQ(m_reactor.changes, 0);
}

TEST_F(TableInDatabase, many_changes_of_one_open_are_told_once_at_its_close) {
    KdDbTable* table = open(KdDb::kForWrite);
    table->setTextString(0, 0, L"a");
    table->setAlignment(-1, -1, KdDb::kBottomLeft);
    table->deleteRows(2, 1);
    EXPECT_EQ(m_reactor.changes, 0);
    table->close();
    EXPECT_EQ(m_reactor.changes, 1);
}

TEST_F(TableInDatabase, wants_to_be_drawn_afresh_when_its_block_is_made_again_by_force) {
    KdDbTable* table = open(KdDb::kForWrite);
    const std::string before = kdtest::describe(*table);
    table->recomputeTableBlock(false);
    table->close();
    EXPECT_EQ(m_reactor.changes, 0);
    table = open(KdDb::kForWrite);
    table->recomputeTableBlock(true);
    EXPECT_EQ(kdtest::describe(*table), before);
    table->close();
    EXPECT_EQ(m_reactor.changes, 1);
}

TEST_F(TableInDatabase, a_refused_change_is_none) {
    KdDbTable* table = open(KdDb::kForWrite);
    table->setTextString(9, 9, L"no");
    table->deleteRows(0, 3);
    table->mergeCells(0, 0, 0, 0);
    table->insertRowsAndInherit(7, 0, 1);
    table->setRowHeight(1, -4.0);
    table->close();
    EXPECT_EQ(m_reactor.changes, 0);
}

TEST_F(TableInDatabase, a_selection_needs_no_write_open_and_is_told_all_the_same) {
    KdDbTable* table = open(KdDb::kForRead);
    table->setSubSelection(0, 1, 0, 1);
    EXPECT_TRUE(table->hasSubSelection());
    table->close();
    EXPECT_EQ(m_reactor.changes, 1);
    table = open(KdDb::kForRead);
    table->clearSubSelection();
    table->close();
    EXPECT_EQ(m_reactor.changes, 2);
}

TEST_F(TableInDatabase, asking_for_heights_is_no_change) {
    KdDbTable* table = open(KdDb::kForWrite);
    table->setTextString(2, 0, L"one\\Ptwo");
    table->close();
    m_reactor.changes = 0;
    table = open(KdDb::kForRead);
    EXPECT_GT(table->rowHeight(2), 9.0);
    EXPECT_GT(table->getGeomExtents().maxPoint().y, -1.0);
    table->close();
    EXPECT_EQ(m_reactor.changes, 0);
}

TEST_F(TableInDatabase, takes_the_databases_text_style_where_it_has_none) {
    KdDbTable* table = open(KdDb::kForWrite);
    table->setTextString(2, 0, L"a text that is measured in a wide font here");
    const double before = table->minimumRowHeight(2);
    table->close();
    KdDbObject* style = nullptr;
    ASSERT_EQ(kddbOpenObject(style, m_database.textstyle(), KdDb::kForWrite), Kdad::eOk);
    static_cast<KdDbTextStyleTableRecord*>(style)->setXScale(4.0);
    style->close();
    table = open(KdDb::kForRead);
    EXPECT_GT(table->minimumRowHeight(2), before);
    table->close();
}

TEST_F(TableInDatabase, it_grows_as_its_style_does_until_it_has_a_direction_of_its_own) {
    KdDbTable* table = open(KdDb::kForWrite);
    table->setTableStyle(m_database.tablestyle());
    KdDbObject* style = nullptr;
    ASSERT_EQ(kddbOpenObject(style, m_database.tablestyle(), KdDb::kForWrite), Kdad::eOk);
    EXPECT_EQ(table->flowDirection(), 0);
    static_cast<KdDbTableStyle*>(style)->setFlowDirection(1);
    EXPECT_EQ(table->flowDirection(), 1);
    EXPECT_GT(table->getGeomExtents().maxPoint().y, table->position().y);
    table->setFlowDirection(0);
    EXPECT_EQ(table->flowDirection(), 0);
    EXPECT_LE(table->getGeomExtents().maxPoint().y, table->position().y);
    style->close();
    table->close();
}
