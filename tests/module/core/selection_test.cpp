// Tests of a table's current selection, by the open table and by its id.

#include <gtest/gtest.h>

#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"
#include "tests/module/core/sampletables.h"

namespace kdtest {
namespace {

struct Selected {
    const char* what;
    Range selection;
    bool single;
    bool canMerge;
    bool canUnmerge;
    int columns;
    int rows;
};

TEST(SelectionTests, Hold_on_merges_at_every_edge) {
    const auto table = makeEdgeTable();
    const Selected all[] = {
        {"nothing", noCell, true, false, false, 0, 0},
        {"a plain cell", {4, 0, 4, 0}, true, false, false, 1, 1},
        {"an owner alone", {0, 0, 0, 0}, true, false, true, 1, 1},
        {"the merge at the upper left corner", edge::a, true, false, true, 2, 2},
        {"the merge at the right edge", edge::c, true, false, true, 1, 3},
        {"the merge at the lower right corner", edge::g, true, false, true, 2, 1},
        {"plain cells", {4, 1, 4, 4}, false, true, false, 4, 1},
        {"a merge and a column more", {2, 2, 3, 4}, false, true, true, 3, 2},
        {"the whole table", {0, 0, 5, 5}, false, true, true, 6, 6},
        {"reversed rows", {3, 2, 2, 3}, false, true, false, 2, 2},
        {"reversed columns", {2, 3, 3, 2}, false, true, false, 2, 2},
        {"one whole row", {4, -1, 4, -1}, true, false, false, 0, 1},
        {"whole columns", {-1, 0, -1, 1}, false, true, true, 2, 0},
        {"an invalid one", {0, 0, -1, 3}, true, false, false, 4, 0},
    };
    for (const Selected& expected : all) {
        SCOPED_TRACE(expected.what);
        table->setSubSelection(hostRange(expected.selection));
        EXPECT_EQ(CVqTableCommon::IsSingleCell(table.get()), expected.single);
        EXPECT_EQ(CVqTableCommon::CanMergeCells(table.get()), expected.canMerge);
        EXPECT_EQ(CVqTableCommon::CanUnMergeCells(table.get()), expected.canUnmerge);
        EXPECT_EQ(CVqTableCommon::CanColumnSizeEqually(table.get()), expected.columns);
        EXPECT_EQ(CVqTableCommon::CanRowSizeEqually(table.get()), expected.rows);
    }
}

TEST(SelectionTests, CanMergeCells_needs_every_cell_editable) {
    for (const auto& [state, expected] : {std::pair{1, false}, {2, false}, {16, true}, {32, true}}) {
        const auto table = makeTable(3, 3);
        table->setSubSelection({0, 0, 1, 1});
        table->setCellState(1, 1, static_cast<KdDb::CellState>(state));
        EXPECT_EQ(CVqTableCommon::CanMergeCells(table.get()), expected) << state;
        table->setSubSelection({0, 0, 0, 1});
        EXPECT_TRUE(CVqTableCommon::CanMergeCells(table.get())) << state;
    }
}

TEST(SelectionTests, CanUnMergeCells_needs_one_editable_cell_which_need_not_be_merged) {
    const auto table = makeTable(3, 3, {{0, 0, 1, 1}});
    setStates(*table, {0, 0, 2, 2}, KdDb::kCellStateContentLocked);
    table->setSubSelection({0, 0, 2, 2});
    EXPECT_FALSE(CVqTableCommon::CanUnMergeCells(table.get()));
    table->setCellState(2, 2, KdDb::kCellStateNone);
    EXPECT_TRUE(CVqTableCommon::CanUnMergeCells(table.get()));
    table->setSubSelection({0, 0, 1, 1});
    EXPECT_FALSE(CVqTableCommon::CanUnMergeCells(table.get()));
}

TEST(SelectionTests, GetReadOnlyState_tells_that_something_may_be_edited) {
    struct State {
        int first;
        int second;
        bool content;
        bool format;
    };
    const State states[] = {
        {0, 0, true, true},    {17, 17, false, false}, {17, 0, true, true}, {1, 16, true, true},   {1, 1, false, true},
        {16, 16, true, false}, {34, 34, false, false}, {2, 32, true, true}, {17, 16, true, false}, {1, 17, false, true},
    };
    for (const State& expected : states) {
        SCOPED_TRACE(::testing::Message() << expected.first << ", " << expected.second);
        const auto table = makeTable(3, 3);
        table->setCellState(1, 0, static_cast<KdDb::CellState>(expected.first));
        table->setCellState(2, 0, static_cast<KdDb::CellState>(expected.second));
        table->setSubSelection({1, 0, 2, 0});
        bool content = !expected.content;
        bool format = !expected.format;
        EXPECT_TRUE(CVqTableCommon::GetReadOnlyState(table.get(), content, format));
        EXPECT_EQ(content, expected.content);
        EXPECT_EQ(format, expected.format);
    }
}

TEST(SelectionTests, GetReadOnlyState_tells_of_nothing_where_nothing_is_selected) {
    const auto table = makeTable(2, 2);
    for (const Range& selection : {noCell, Range{1, 1, 0, 0}}) {
        table->setSubSelection(hostRange(selection));
        bool content = true;
        bool format = true;
        EXPECT_TRUE(CVqTableCommon::GetReadOnlyState(table.get(), content, format));
        EXPECT_FALSE(content);
        EXPECT_FALSE(format);
    }
}

TEST(SelectionTests, Without_a_table_all_are_false) {
    bool content = true;
    bool format = true;
    EXPECT_FALSE(CVqTableCommon::GetReadOnlyState(nullptr, content, format));
    EXPECT_FALSE(content);
    EXPECT_FALSE(format);
    EXPECT_FALSE(CVqTableCommon::IsSingleCell(nullptr));
    EXPECT_FALSE(CVqTableCommon::CanMergeCells(nullptr));
    EXPECT_FALSE(CVqTableCommon::CanUnMergeCells(nullptr));
    EXPECT_EQ(CVqTableCommon::CanColumnSizeEqually(nullptr), 0);
    EXPECT_EQ(CVqTableCommon::CanRowSizeEqually(nullptr), 0);
}

/// A drawing with one table of two rows and three columns, on a layer of its own.
class TableInDrawing : public ::testing::Test {
protected:
    void SetUp() override {
        layer = makeLayer();
        auto owned = makeTable(2, 3);
        owned->setLayer(layer);
        table = append(owned.release());
    }

    KdDbObjectId append(KdDbEntity* entity) {
        KdDbObjectId id;
        OpenObject<KdDbBlockTableRecord> space(database.modelSpaceId(), KdDb::kForWrite);
        EXPECT_TRUE(space);
        EXPECT_EQ(space->appendKdDbEntity(id, entity), Kdad::eOk);
        entity->close();
        return id;
    }

    KdDbObjectId makeLayer() {
        KdDbObjectId id;
        OpenObject<KdDbLayerTable> layers(database.layerTableId(), KdDb::kForWrite);
        auto* record = new KdDbLayerTableRecord;
        record->setName(L"Tables");
        EXPECT_EQ(layers->add(id, record), Kdad::eOk);
        record->close();
        return id;
    }

    void lockLayer(bool locked) const { OpenObject<KdDbLayerTableRecord>(layer, KdDb::kForWrite)->setIsLocked(locked); }

    KdDbDatabase database;
    KdDbObjectId layer;
    KdDbObjectId table;
};

TEST_F(TableInDrawing, GetSubSelection_reads_it_and_closes_the_table) {
    EXPECT_EQ(CVqTableCommon::GetSubSelection(table), KdCellRange{});
    OpenObject<KdDbTable>(table, KdDb::kForWrite)->setSubSelection({0, 1, 1, 2});
    EXPECT_EQ(CVqTableCommon::GetSubSelection(table), (KdCellRange{0, 1, 1, 2}));
}

TEST_F(TableInDrawing, GetSubSelection_gives_no_cell_when_the_open_fails) {
    OpenObject<KdDbTable>(table, KdDb::kForWrite)->setSubSelection({0, 1, 1, 2});
    EXPECT_EQ(CVqTableCommon::GetSubSelection(KdDbObjectId::kNull), KdCellRange{});
    EXPECT_EQ(CVqTableCommon::GetSubSelection(layer), KdCellRange{});
    const OpenObject<KdDbTable> writer(table, KdDb::kForWrite);
    EXPECT_EQ(CVqTableCommon::GetSubSelection(table), KdCellRange{});
}

TEST_F(TableInDrawing, GetSubSelection_reads_it_beside_others_and_on_a_locked_layer) {
    OpenObject<KdDbTable>(table, KdDb::kForWrite)->setSubSelection({0, 1, 1, 2});
    lockLayer(true);
    EXPECT_EQ(CVqTableCommon::GetSubSelection(table), (KdCellRange{0, 1, 1, 2}));
    lockLayer(false);
    const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
    EXPECT_EQ(CVqTableCommon::GetSubSelection(table), (KdCellRange{0, 1, 1, 2}));
}

TEST_F(TableInDrawing, IsTableLocking_tells_whether_its_layer_is_locked) {
    EXPECT_FALSE(CVqTableCommon::IsTableLocking(table));
    lockLayer(true);
    EXPECT_TRUE(CVqTableCommon::IsTableLocking(table));
    lockLayer(false);
    EXPECT_FALSE(CVqTableCommon::IsTableLocking(table));
}

TEST_F(TableInDrawing, IsTableLocking_is_false_when_something_cannot_be_opened) {
    EXPECT_FALSE(CVqTableCommon::IsTableLocking(KdDbObjectId::kNull));
    const KdDbObjectId line = append(new KdDbLine);
    {
        const OpenObject<KdDbTable> writer(table, KdDb::kForWrite);
        ASSERT_TRUE(writer);
        lockLayer(true);
        EXPECT_FALSE(CVqTableCommon::IsTableLocking(table));
    }
    EXPECT_FALSE(CVqTableCommon::IsTableLocking(line));
    {
        const OpenObject<KdDbLayerTableRecord> writer(layer, KdDb::kForWrite);
        ASSERT_TRUE(writer);
        EXPECT_FALSE(CVqTableCommon::IsTableLocking(table));
    }
    EXPECT_TRUE(CVqTableCommon::IsTableLocking(table));
}

}  // namespace
}  // namespace kdtest
