// Moving the selected cell, and the pick that selects a cell.

#include <gtest/gtest.h>

#include <cmath>

#include "host/ed/editor.h"
#include "kd/ed/view.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {
namespace {

using Move = bool (*)(KdDbObjectId);

class Navigation : public TableEdits {
protected:
    KdDbObjectId addSized(TableBuilder&& builder) { return addSized(builder); }
    KdDbObjectId addSized(TableBuilder& builder) {
        std::unique_ptr<KdDbTable> table = builder.build();
        table->setPosition({50.0, 250.0, 0.0});
        return add(std::move(table));
    }
    /// What the moves select one after another, until one is false.
    std::string walk(KdDbObjectId id, Move move) {
        std::string path;
        for (int i = 0; i < 100 && move(id); ++i) {
            KdString name;
            const KdCellRange at = selection(id);
            EXPECT_TRUE(kdadConvertIndexToIndicatorString(at.m_topRow, at.m_leftColumn, name));
            path += QString::fromWCharArray(name.kwszPtr()).toStdString() + ' ';
        }
        return path;
    }
};

TEST_F(Navigation, SelectNextCell_goes_in_reading_order_and_ends_behind_the_last_cell) {
    const KdDbObjectId id = addSized(TableBuilder(3, 2).select("A1"));
    EXPECT_EQ(walk(id, CVqTableCommon::SelectNextCell), "B1 A2 B2 A3 B3 ");
    EXPECT_EQ(selection(id), cells("B3")) << "the last cell stays selected";
}

TEST_F(Navigation, SelectNextCell_skips_the_covered_cells_of_a_merge) {
    const KdDbObjectId id = addSized(TableBuilder(4, 3).merge("B1:C2").merge("A3:A4").select("A1"));
    EXPECT_EQ(walk(id, CVqTableCommon::SelectNextCell), "B1 A2 A3 B3 C3 B4 C4 ");
}

TEST_F(Navigation, SelectNextCell_selects_a_merge_whole) {
    const KdDbObjectId id = addSized(TableBuilder(3, 3).merge("B1:C2").select("A1"));
    EXPECT_TRUE(CVqTableCommon::SelectNextCell(id));
    EXPECT_EQ(selection(id), cells("B1:C2"));
}

TEST_F(Navigation, SelectNextCell_goes_on_behind_a_selection_of_several_cells) {
    const KdDbObjectId id = addSized(TableBuilder(4, 4));
    struct Case {
        const char* selected;
        const char* next;
    };
    for (const Case& expected : {Case{"B1:C2", "D1"}, {"B1:D2", "A2"}, {"A1:D2", "A3"}, {"B2:D3", "A3"}}) {
        select(id, expected.selected);
        EXPECT_TRUE(CVqTableCommon::SelectNextCell(id));
        EXPECT_EQ(selection(id), cells(expected.next)) << expected.selected;
    }
    for (const char* last : {"A1:D4", "B4:D4", "A4:D4"}) {
        select(id, last);
        EXPECT_FALSE(CVqTableCommon::SelectNextCell(id)) << last;
        EXPECT_EQ(selection(id), cells(last));
    }
}

TEST_F(Navigation, SelectNextCell_of_a_selection_from_right_to_left_begins_at_its_left_column) {
    const KdDbObjectId id = addSized(TableBuilder(3, 4));
    const std::pair<KdCellRange, const char*> all[] = {
        {{0, 2, 0, 0}, "C1"}, {{1, 3, 2, 1}, "D2"}, {{0, 3, 0, 2}, "D1"}};
    for (const auto& [selected, next] : all) {
        select(id, selected);
        EXPECT_TRUE(CVqTableCommon::SelectNextCell(id));
        EXPECT_EQ(selection(id), cells(next));
    }
}

TEST_F(Navigation, SelectNextCell_begins_at_the_first_cell_when_nothing_is_selected) {
    const KdDbObjectId id = addSized(TableBuilder(2, 2));
    EXPECT_TRUE(CVqTableCommon::SelectNextCell(id));
    EXPECT_EQ(selection(id), cells("A1"));
}

TEST_F(Navigation, SelectNextCell_is_false_where_nothing_but_covered_cells_follow) {
    const KdDbObjectId id = addSized(TableBuilder(2, 3).merge("B1:C2").merge("A1:A2").select("B1:C2"));
    EXPECT_FALSE(CVqTableCommon::SelectNextCell(id));
    EXPECT_EQ(selection(id), cells("B1:C2"));
}

TEST_F(Navigation, SelectPrevCell_goes_back_in_reading_order) {
    const KdDbObjectId id = addSized(TableBuilder(3, 2).select("B3"));
    EXPECT_EQ(walk(id, CVqTableCommon::SelectPrevCell), "A3 B2 A2 B1 A1 ");
}

TEST_F(Navigation, SelectPrevCell_takes_a_merge_for_its_top_left_cell) {
    const KdDbObjectId id = addSized(TableBuilder(3, 3).merge("A1:B2").select("C2"));
    EXPECT_TRUE(CVqTableCommon::SelectPrevCell(id));
    EXPECT_EQ(selection(id), cells("A1:B2"));
    EXPECT_FALSE(CVqTableCommon::SelectPrevCell(id));
}

TEST_F(Navigation, SelectPrevCell_at_the_first_cell_is_false_and_changes_nothing) {
    const KdDbObjectId id = addSized(TableBuilder(3, 3));
    for (const KdCellRange& range : {cells("A1"), cells("A1:C3"), KdCellRange{}, KdCellRange{-1, 2, -1, 2}}) {
        select(id, range);
        EXPECT_FALSE(CVqTableCommon::SelectPrevCell(id));
        EXPECT_EQ(selection(id), range);
    }
}

TEST_F(Navigation, SelectUpperCell_goes_up_and_stays_in_the_first_row) {
    const KdDbObjectId id = addSized(TableBuilder(3, 3).select("B3:C3"));
    EXPECT_TRUE(CVqTableCommon::SelectUpperCell(id));
    EXPECT_EQ(selection(id), cells("B2"));
    EXPECT_TRUE(CVqTableCommon::SelectUpperCell(id));
    EXPECT_EQ(selection(id), cells("B1"));
    select(id, "B1:C1");
    EXPECT_TRUE(CVqTableCommon::SelectUpperCell(id));
    EXPECT_EQ(selection(id), cells("B1")) << "picked again";
}

TEST_F(Navigation, SelectLowerCell_goes_down_from_the_top_of_the_selection_and_stays_in_the_last_row) {
    const KdDbObjectId id = addSized(TableBuilder(3, 3).select("B1:C3"));
    EXPECT_TRUE(CVqTableCommon::SelectLowerCell(id));
    EXPECT_EQ(selection(id), cells("B2"));
    EXPECT_TRUE(CVqTableCommon::SelectLowerCell(id));
    EXPECT_EQ(selection(id), cells("B3"));
    EXPECT_TRUE(CVqTableCommon::SelectLowerCell(id));
    EXPECT_EQ(selection(id), cells("B3"));
}

TEST_F(Navigation, Moves_into_a_merge_select_it_whole) {
    const KdDbObjectId id = addSized(TableBuilder(4, 3).merge("A2:C3").select("C1"));
    EXPECT_TRUE(CVqTableCommon::SelectLowerCell(id));
    EXPECT_EQ(selection(id), cells("A2:C3"));
    select(id, "B4");
    EXPECT_TRUE(CVqTableCommon::SelectUpperCell(id));
    EXPECT_EQ(selection(id), cells("A2:C3"));
}

TEST_F(Navigation, SelectTopCell_and_SelectBottomCell_go_to_the_ends_of_the_column) {
    const KdDbObjectId id = addSized(TableBuilder(4, 3).select("B2:C3"));
    EXPECT_TRUE(CVqTableCommon::SelectBottomCell(id));
    EXPECT_EQ(selection(id), cells("B4"));
    EXPECT_TRUE(CVqTableCommon::SelectTopCell(id));
    EXPECT_EQ(selection(id), cells("B1"));
}

TEST_F(Navigation, Moves_along_a_column_are_false_without_a_column) {
    const KdDbObjectId id = addSized(TableBuilder(3, 3));
    const std::pair<Move, const char*> moves[] = {{CVqTableCommon::SelectUpperCell, "C1"},
                                                  {CVqTableCommon::SelectLowerCell, "C1"},
                                                  {CVqTableCommon::SelectTopCell, "C1"},
                                                  {CVqTableCommon::SelectBottomCell, "C3"}};
    for (const auto& [move, fromWholeColumn] : moves) {
        for (const KdCellRange& range : {KdCellRange{}, KdCellRange{1, -1, 1, -1}}) {
            select(id, range);
            EXPECT_FALSE(move(id));
            EXPECT_EQ(selection(id), range);
        }
        select(id, {-1, 2, -1, 2});
        EXPECT_TRUE(move(id)) << "whole columns have one";
        EXPECT_EQ(selection(id), cells(fromWholeColumn));
    }
}

const Move allMoves[] = {CVqTableCommon::SelectNextCell,  CVqTableCommon::SelectPrevCell,
                         CVqTableCommon::SelectUpperCell, CVqTableCommon::SelectLowerCell,
                         CVqTableCommon::SelectTopCell,   CVqTableCommon::SelectBottomCell};

TEST_F(Navigation, Every_move_is_false_when_the_table_cannot_be_opened) {
    const KdDbObjectId id = addSized(TableBuilder(3, 3).select("B2"));
    for (const Move move : allMoves) {
        {
            const OpenObject<KdDbTable> reader(id, KdDb::kForRead);
            EXPECT_FALSE(move(id));
        }
        EXPECT_FALSE(move(KdDbObjectId::kNull));
        EXPECT_FALSE(move(host.database().layerTableId()));
        EXPECT_EQ(selection(id), cells("B2"));
    }
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->erase(true);
    for (const Move move : allMoves) EXPECT_FALSE(move(id));
}

TEST_F(Navigation, SelectBottomCell_and_SelectNextCell_are_false_in_a_table_without_rows) {
    auto table = std::make_unique<KdDbTable>();
    table->setSize(0, 3);
    ASSERT_EQ(table->numRows(), 0);
    const KdDbObjectId id = add(std::move(table));
    select(id, {0, 1, 0, 1});
    EXPECT_FALSE(CVqTableCommon::SelectBottomCell(id));
    EXPECT_FALSE(CVqTableCommon::SelectNextCell(id));
    EXPECT_EQ(selection(id), (KdCellRange{0, 1, 0, 1}));
}

TEST_F(Navigation, Moves_that_cannot_be_made_say_nothing) {
    const KdDbObjectId id = addSized(TableBuilder(2, 2));
    for (const Move move : allMoves) {
        move(KdDbObjectId::kNull);
        move(id);
    }
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(Navigation, Without_a_view_a_move_clears_the_selection_and_is_true_all_the_same) {
    const KdDbObjectId id = addSized(TableBuilder(3, 3));
    for (const Move move : allMoves) {
        select(id, "B2");
        kdhost::faults().noView = true;
        EXPECT_TRUE(move(id));
        EXPECT_EQ(selection(id), KdCellRange{});
    }
}

TEST_F(Navigation, Moves_are_no_step_of_undo) {
    const KdDbObjectId id = addSized(TableBuilder(3, 3));
    for (const Move move : allMoves) {
        select(id, "B2");
        EXPECT_TRUE(move(id));
    }
    EXPECT_TRUE(steps().empty());
}

TEST_F(Navigation, A_move_makes_the_table_the_only_object_selected) {
    const KdDbObjectId other = addSized(TableBuilder(1, 1));
    auto far = TableBuilder(2, 2).select("A1").build();
    far->setPosition({1000.0, 0.0, 0.0});
    const KdDbObjectId id = add(std::move(far));
    host.editor().pickFirst().set({other});
    EXPECT_TRUE(CVqTableCommon::SelectNextCell(id));
    EXPECT_EQ(host.editor().pickFirst().objects(), std::vector<KdDbObjectId>{id});
}

// ---- PickSelCell

struct Place {
    const char* what;
    KdGeVector3d direction;
    KdGeVector3d normal;
    KdGePoint3d position;
};

const Place places[] = {
    {"upright", {1, 0, 0}, {0, 0, 1}, {0, 0, 0}},
    {"turned by 30 degrees", {std::sqrt(0.75), 0.5, 0}, {0, 0, 1}, {120, 80, 0}},
    {"turned by 90 degrees", {0, 1, 0}, {0, 0, 1}, {-40, 60, 5}},
    {"turned by 217 degrees", {-4, -3, 0}, {0, 0, 1}, {10, 10, 10}},
    {"upside down", {-1, 0, 0}, {0, 0, 1}, {200, 200, 0}},
    {"seen from behind", {1, 0, 0}, {0, 0, -1}, {60, 60, 0}},
    {"seen from behind and turned", {0.6, 0.8, 0}, {0, 0, -1}, {60, 60, -3}},
    {"tilted", {-0.8, 0, 0.6}, {0.6, 0, 0.8}, {1, 2, 3}},
    {"tilted along a diagonal", {1, -1, 0}, {1, 1, 1}, {30, 20, 10}},
};

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.what;
}

class PickSel : public TableEdits, public ::testing::WithParamInterface<std::tuple<Place, int>> {
protected:
    KdDbObjectId addAt(TableBuilder&& builder) { return addAt(builder); }
    KdDbObjectId addAt(TableBuilder& builder) {
        const auto& [place, flow] = GetParam();
        std::unique_ptr<KdDbTable> table = builder.build();
        table->setDirection(place.direction);
        table->setNormal(place.normal);
        table->setPosition(place.position);
        table->setFlowDirection(flow);
        return add(std::move(table));
    }
    static void pick(KdDbObjectId id, int row, int column) {
        const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
        ASSERT_TRUE(table);
        PickSelCell(table.get(), row, column);
        EXPECT_FALSE(table->isWriteEnabled());
        EXPECT_TRUE(table->isReadEnabled());
    }
    void expectEveryCellPicked(KdDbObjectId id) {
        for (int row = 0; row < look(id).numRows(); ++row) {
            for (int column = 0; column < look(id).numColumns(); ++column) {
                pick(id, row, column);
                EXPECT_EQ(selection(id), look(id).getMergeRange(row, column)) << row << ", " << column;
            }
        }
    }
};

TEST_P(PickSel, Selects_each_cell_or_its_merge) {
    TableBuilder builder(5, 4);
    builder.merge("B2:C4").merge("D1:D2").merge("A5:D5").rowHeight(2, 1.25).columnWidth(3, 0.5);
    expectEveryCellPicked(addAt(builder));
}

TEST_P(PickSel, Selects_cells_that_lie_off_the_view) {
    const KdDbObjectId id = addAt(TableBuilder(3, 3).merge("A1:B2"));
    host.editor().view().zoomTo({{5000.0, 5000.0, 0.0}, {5001.0, 5001.0, 0.0}});
    expectEveryCellPicked(id);
    host.editor().view().zoomTo({{-1e6, -1e6, 0.0}, {1e6, 1e6, 0.0}});
    expectEveryCellPicked(id);
}

TEST_P(PickSel, Selects_in_user_coordinates_of_any_kind) {
    const KdDbObjectId id = addAt(TableBuilder(2, 2));
    host.editor().setUcs(KdGeMatrix3d::translation({100.0, -30.0, 2.0}) *
                         KdGeMatrix3d::rotation(0.7, KdGeVector3d::kZAxis, KdGePoint3d::kOrigin));
    expectEveryCellPicked(id);
}

INSTANTIATE_TEST_SUITE_P(Everywhere, PickSel, ::testing::Combine(::testing::ValuesIn(places), ::testing::Values(0, 1)));

class PickSelFailures : public TableEdits {};

TEST_F(PickSelFailures, Nothing_happens_without_a_table_or_a_view) {
    PickSelCell(nullptr, 0, 0);
    const KdDbObjectId id = add(TableBuilder(2, 2).select("A1"));
    const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    kdhost::faults().noView = true;
    PickSelCell(table.get(), 1, 1);
    EXPECT_EQ(selection(id), cells("A1"));
    EXPECT_TRUE(table->isWriteEnabled());
}

TEST_F(PickSelFailures, A_cell_outside_the_table_is_picked_at_the_origin) {
    auto table = TableBuilder(2, 2).build();
    table->setPosition({-1.0, 1.0, 0.0});
    const KdDbObjectId id = add(std::move(table));
    {
        const OpenObject<KdDbTable> open(id, KdDb::kForWrite);
        PickSelCell(open.get(), 7, 7);
    }
    EXPECT_EQ(selection(id), cells("A1"));
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->setPosition({1.0, -1.0, 0.0});
    select(id, "B2");
    {
        const OpenObject<KdDbTable> open(id, KdDb::kForWrite);
        PickSelCell(open.get(), 7, 7);
    }
    EXPECT_EQ(selection(id), KdCellRange{});
}

}  // namespace
}  // namespace kdtest
