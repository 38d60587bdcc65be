// Picking, selection sets and what is selected before a command.

#include "kd/ed/selection.h"

#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/ed/picking.h"
#include "host/rx/commandstack.h"
#include "host/rx/faults.h"
#include "kd/db/line.h"
#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "kd/ed/view.h"
#include "tests/support/application.h"

namespace {

using kdhost::InputItem;
using kdhost::peek;

class Selections : public kdtest::ApplicationTest {
protected:
    KdDbObjectId add(std::unique_ptr<KdDbEntity> entity) {
        entity->setDatabaseDefaults(&host.database());
        EXPECT_TRUE(kdhost::appendToCurrentSpace(host.database(), std::move(entity)));
        return kdhost::entitiesOfCurrentSpace(host.database()).back();
    }

    KdDbObjectId addLine(const KdGePoint3d& from, const KdGePoint3d& to) {
        return add(std::make_unique<KdDbLine>(from, to));
    }

    /// Cells of 10 by 10 units, downwards from the point.
    KdDbObjectId addTable(const KdGePoint3d& position, int rows = 3, int columns = 3) {
        auto table = std::make_unique<KdDbTable>();
        table->setSize(rows, columns);
        table->setColumnWidth(10.0);
        table->setRowHeight(10.0);
        table->setPosition(position);
        return add(std::move(table));
    }

    std::vector<KdDbObjectId> picked(double x, double y) {
        KdadSelectSet set;
        kdadPickSelect({x, y, 0.0}, set);
        std::vector<KdDbObjectId> ids;
        for (int i = 0; i < set.count(); ++i) ids.push_back(set.at(i));
        return ids;
    }

    /// What "_I" gives.
    static std::vector<KdDbObjectId> before() {
        kded_name set;
        std::vector<KdDbObjectId> ids;
        if (kdedSSGet(L"_I", nullptr, nullptr, nullptr, set) != RTNORM) return ids;
        int length = 0;
        kdedSSLength(set, &length);
        for (int i = 0; i < length; ++i) {
            kded_name name;
            KdDbObjectId id;
            EXPECT_EQ(kdedSSName(set, i, name), RTNORM);
            EXPECT_EQ(kddbGetObjectId(id, name), Kdad::eOk);
            ids.push_back(id);
        }
        EXPECT_EQ(kdedSSFree(set), RTNORM);
        EXPECT_EQ(kdedSSFree(set), RTERROR);
        return ids;
    }

    void click(double x, double y, InputItem::Kind kind = InputItem::Kind::Pick) {
        host.editor().input().put(kind, {x, y, 0.0});
        host.run(L"");
    }

    using Ids = std::vector<KdDbObjectId>;
};

TEST_F(Selections, a_line_is_hit_within_the_pick_box_only) {
    const KdDbObjectId line = addLine({0, 0, 0}, {100, 0, 0});
    const double half = host.editor().view().unitsPerPixel() * kdhost::kPickBoxPixels / 2.0;
    EXPECT_EQ(picked(50.0, 0.9 * half), Ids{line});
    EXPECT_EQ(picked(50.0, 1.1 * half), Ids{});
    EXPECT_EQ(picked(100.0 + 0.9 * half, 0.0), Ids{line});
    EXPECT_EQ(picked(100.0 + 1.1 * half, 0.0), Ids{});
}

TEST_F(Selections, the_pick_box_keeps_its_size_on_a_dense_screen) {
    const KdDbObjectId line = addLine({0, 0, 0}, {100, 0, 0});
    kdhost::View& view = host.editor().view();
    const double half = view.unitsPerPixel() * kdhost::kPickBoxPixels / 2.0;
    view.setScreenScale(2.0);
    EXPECT_EQ(picked(50.0, 1.9 * half), Ids{line});
    EXPECT_EQ(picked(50.0, 2.1 * half), Ids{});
}

TEST_F(Selections, a_table_is_hit_anywhere_inside_its_outline) {
    const KdDbObjectId table = addTable({100, 100, 0});
    EXPECT_EQ(picked(101, 99), Ids{table});
    EXPECT_EQ(picked(115, 85), Ids{table});
    EXPECT_EQ(picked(129, 71), Ids{table});
    EXPECT_EQ(picked(95, 85), Ids{});
    EXPECT_EQ(picked(115, 65), Ids{});
}

TEST_F(Selections, a_pick_gives_all_that_lies_there_the_newest_first) {
    const KdDbObjectId table = addTable({100, 100, 0});
    const KdDbObjectId line = addLine({90, 85, 0}, {150, 85, 0});
    EXPECT_EQ(picked(115, 85), (Ids{line, table}));
}

TEST_F(Selections, picking_opens_nothing) {
    const KdDbObjectId table = addTable({100, 100, 0});
    const kdhost::Opened<KdDbTable> writer(table, KdDb::kForWrite);
    ASSERT_TRUE(writer);
    EXPECT_EQ(picked(115, 85), Ids{table});
}

TEST_F(Selections, an_erased_entity_is_not_hit) {
    const KdDbObjectId line = addLine({0, 0, 0}, {100, 0, 0});
    kdhost::Opened<KdDbLine>(line, KdDb::kForWrite)->erase();
    EXPECT_EQ(picked(50, 0), Ids{});
}

TEST_F(Selections, an_entity_prompt_takes_picks_and_coordinates) {
    const KdDbObjectId line = addLine({0, 0, 0}, {100, 0, 0});
    host.editor().input().put(InputItem::Kind::Pick, {50.0, 0.0, 0.0});
    host.type(L"what\n20,0\n300,300\n\n");
    kded_name name;
    kded_point point;
    KdDbObjectId id;
    ASSERT_EQ(kdedEntSel(L"Pick: ", name, point), RTNORM);
    EXPECT_EQ(kddbGetObjectId(id, name), Kdad::eOk);
    EXPECT_EQ(id, line);
    EXPECT_DOUBLE_EQ(point[0], 50.0);
    ASSERT_EQ(kdedEntSel(L"Pick: ", name, point), RTNORM);
    EXPECT_DOUBLE_EQ(point[0], 20.0);
    EXPECT_EQ(kdedEntSel(L"Pick: ", name, point), RTERROR) << "nothing lies there";
    EXPECT_EQ(kdedEntSel(L"Pick: ", name, point), RTERROR) << "Enter";
    host.editor().input().put(InputItem::Kind::Escape);
    EXPECT_EQ(kdedEntSel(L"Pick: ", name, point), RTCAN);
}

TEST_F(Selections, names_of_nothing_are_refused) {
    KdDbObjectId id(77);
    const kded_name empty = {0, 0};
    EXPECT_EQ(kddbGetObjectId(id, nullptr), Kdad::eInvalidInput);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(kddbGetObjectId(id, empty), Kdad::eInvalidInput);
    const kded_name unknown = {987654321, 1};
    EXPECT_EQ(kddbGetObjectId(id, unknown), Kdad::eUnknownId);
    kded_name name;
    EXPECT_EQ(kddbGetKfsName(name, KdDbObjectId::kNull), Kdad::eNullObjectId);
    EXPECT_EQ(kddbGetKfsName(name, KdDbObjectId(987654321)), Kdad::eUnknownId);
    int length = 0;
    EXPECT_EQ(kdedSSLength(empty, &length), RTERROR);
    EXPECT_EQ(kdedSSFree(nullptr), RTERROR);
}

TEST_F(Selections, sets_are_built_and_made_the_selection) {
    const KdDbObjectId line = addLine({0, 0, 0}, {100, 0, 0});
    const KdDbObjectId table = addTable({100, 100, 0});
    kded_name set;
    kded_name name;
    ASSERT_EQ(kdedSSAdd(nullptr, nullptr, set), RTNORM);
    kddbGetKfsName(name, table);
    ASSERT_EQ(kdedSSAdd(name, set, set), RTNORM);
    ASSERT_EQ(kdedSSAdd(name, set, set), RTNORM);
    int length = 0;
    EXPECT_EQ(kdedSSLength(set, &length), RTNORM);
    EXPECT_EQ(length, 1) << "each once";
    kddbGetKfsName(name, line);
    ASSERT_EQ(kdedSSAdd(name, set, set), RTNORM);
    EXPECT_EQ(kdedSSName(set, 2, name), RTERROR);
    EXPECT_EQ(kdedSSSetFirst(set, nullptr), RTNORM);
    kdedSSFree(set);
    EXPECT_EQ(before(), (Ids{table, line}));
    EXPECT_EQ(kdedSSSetFirst(nullptr, nullptr), RTNORM);
    EXPECT_EQ(before(), Ids{});
    EXPECT_EQ(kdedSSSetFirst(set, nullptr), RTERROR) << "freed";
}

TEST_F(Selections, a_table_with_selected_cells_counts_as_selected) {
    const KdDbObjectId table = addTable({100, 100, 0});
    {
        const kdhost::Opened<KdDbTable> open(table);
        open->setSubSelection(KdCellRange{1, 1, 1, 2});
    }
    EXPECT_EQ(before(), Ids{table});
    kdedSSSetFirst(nullptr, nullptr);
    EXPECT_FALSE(peek<KdDbTable>(table)->hasSubSelection());
    EXPECT_EQ(before(), Ids{});
}

TEST_F(Selections, clicks_select_the_table_then_a_cell_then_nothing) {
    const KdDbObjectId table = addTable({100, 100, 0});
    click(115, 85);
    EXPECT_EQ(before(), Ids{table});
    EXPECT_FALSE(peek<KdDbTable>(table)->hasSubSelection());
    click(125, 75);
    EXPECT_EQ(peek<KdDbTable>(table)->getSubSelection(), (KdCellRange{2, 2, 2, 2}));
    click(300, 300);
    EXPECT_EQ(before(), Ids{});
    EXPECT_FALSE(peek<KdDbTable>(table)->hasSubSelection());
}

TEST_F(Selections, adding_clicks_keep_what_is_selected) {
    const KdDbObjectId first = addLine({0, 0, 0}, {100, 0, 0});
    const KdDbObjectId second = addLine({0, 50, 0}, {100, 50, 0});
    click(50, 0);
    click(50, 50, InputItem::Kind::AddPick);
    EXPECT_EQ(before(), (Ids{first, second}));
    click(300, 300, InputItem::Kind::AddPick);
    EXPECT_EQ(before(), (Ids{first, second}));
    click(50, 50);
    EXPECT_EQ(before(), Ids{second});
}

TEST_F(Selections, the_simulated_click_selects_table_and_cell_at_once) {
    const KdDbObjectId table = addTable({100, 100, 0});
    KdGePoint3d point(115, 85, 0);
    kdadGetActiveGsView()->getKdadViewport()->worldToScreen(point);
    EXPECT_TRUE(kdadPickSelSetWithoutInteraction(point));
    EXPECT_EQ(before(), Ids{table});
    EXPECT_EQ(peek<KdDbTable>(table)->getSubSelection(), (KdCellRange{1, 1, 1, 1}));
    point = {300, 300, 0};
    kdadGetActiveGsView()->getKdadViewport()->worldToScreen(point);
    EXPECT_FALSE(kdadPickSelSetWithoutInteraction(point));
    EXPECT_EQ(before(), Ids{table}) << "a click beside it changes nothing";
}

TEST_F(Selections, the_prompt_for_objects_takes_picks_and_words) {
    const KdDbObjectId first = addLine({0, 0, 0}, {100, 0, 0});
    const KdDbObjectId second = addLine({0, 50, 0}, {100, 50, 0});
    kded_name set;
    int length = 0;
    host.type(L"50,0\n300,300\nl\n\n");
    ASSERT_EQ(kdedSSGet(nullptr, nullptr, nullptr, nullptr, set), RTNORM);
    kdedSSLength(set, &length);
    EXPECT_EQ(length, 2);
    kdedSSFree(set);
    host.type(L"all\n\n");
    ASSERT_EQ(kdedSSGet(nullptr, nullptr, nullptr, nullptr, set), RTNORM);
    kdedSSLength(set, &length);
    EXPECT_EQ(length, 2);
    kdedSSFree(set);
    host.type(L"\n");
    EXPECT_EQ(kdedSSGet(nullptr, nullptr, nullptr, nullptr, set), RTERROR);
    host.type(L"50,0\n");
    EXPECT_EQ(kdedSSGet(nullptr, nullptr, nullptr, nullptr, set), RTCAN) << "the input ends before Enter";
    EXPECT_NE(first, second);
}

TEST_F(Selections, the_view_converts_both_ways_and_can_be_missing) {
    KdadViewport* viewport = kdadGetActiveGsView()->getKdadViewport();
    ASSERT_NE(viewport, nullptr);
    KdGePoint3d point(12.5, 34.0, 5.0);
    viewport->worldToScreen(point);
    viewport->screenToWorld(point);
    EXPECT_TRUE(point.isEqualTo({12.5, 34.0, 5.0}, 1e-9));
    KdGePoint3d corner(0, 0, 0);
    viewport->screenToWorld(corner);
    EXPECT_GT(corner.y, 297.0) << "y counts downwards from the top left corner";
    EXPECT_NE(kdedGetKdadDwgView(), nullptr);
    kdhost::faults().noView = true;
    EXPECT_EQ(kdedGetKdadDwgView(), nullptr);
    EXPECT_EQ(kdadGetActiveGsView(), nullptr);
}

// What a command finds selected, by its flags.
int selectedWhileRunning = -1;

void countSelected() {
    kded_name set;
    selectedWhileRunning = 0;
    if (kdedSSGet(L"_I", nullptr, nullptr, nullptr, set) != RTNORM) return;
    kdedSSLength(set, &selectedWhileRunning);
    kdedSSFree(set);
}

struct FlagCase {
    int flags;
    int seen;
};

class SelectionAndCommands : public Selections, public ::testing::WithParamInterface<FlagCase> {};

TEST_P(SelectionAndCommands, flags_decide_whether_the_selection_stays) {
    const KdDbObjectId table = addTable({100, 100, 0});
    kdhost::commandStack().addCommand(L"TEST", L"COUNTSELECTED", L"COUNTSELECTED", GetParam().flags, countSelected,
                                      nullptr, -1, nullptr, nullptr);
    kdhost::selectCellsByUser(host.editor(), table, {0, 0, 0, 1});
    host.run(L"COUNTSELECTED\n");
    EXPECT_EQ(selectedWhileRunning, GetParam().seen);
    EXPECT_EQ(peek<KdDbTable>(table)->hasSubSelection(), GetParam().seen == 1);
    kdhost::commandStack().removeGroup(L"TEST");
}

INSTANTIATE_TEST_SUITE_P(Flags, SelectionAndCommands,
                         ::testing::Values(FlagCase{0, 0}, FlagCase{1, 0}, FlagCase{2, 1}, FlagCase{4, 1},
                                           FlagCase{6, 1}));

TEST_F(Selections, esc_at_the_command_prompt_empties_the_selection_and_a_cancel_does_not) {
    const KdDbObjectId table = addTable({100, 100, 0});
    kdhost::selectCellsByUser(host.editor(), table, {0, 0, 0, 1});
    host.documents().sendStringToExecute(&host.document(), L"^C^C");
    host.run(L"");
    EXPECT_EQ(before(), Ids{table});
    host.editor().input().put(InputItem::Kind::Escape);
    host.run(L"");
    EXPECT_EQ(before(), Ids{});
}

TEST_F(Selections, the_user_s_cell_selection_is_kept_in_the_document_s_record) {
    const KdDbObjectId table = addTable({100, 100, 0});
    kdhost::selectCellsByUser(host.editor(), table, {0, 0, 0, 1});
    EXPECT_EQ(GetKdadAppCtxActiveDocData()->m_tableId, table);
    kdhost::selectNothingByUser(host.editor());
    EXPECT_TRUE(GetKdadAppCtxActiveDocData()->m_tableId.isNull());
}

TEST_F(Selections, the_table_made_or_selected_last_is_the_current_one) {
    EXPECT_TRUE(host.editor().pickFirst().currentTable().isNull());
    const KdDbObjectId first = addTable({100, 100, 0});
    const KdDbObjectId second = addTable({200, 100, 0});
    EXPECT_EQ(host.editor().pickFirst().currentTable(), second);
    click(115, 85);
    EXPECT_EQ(host.editor().pickFirst().currentTable(), first);
    kdhost::Opened<KdDbTable>(first, KdDb::kForWrite)->erase();
    EXPECT_EQ(host.editor().pickFirst().currentTable(), second) << "the one before it is there still";
    kdhost::Opened<KdDbTable>(second, KdDb::kForWrite)->erase();
    EXPECT_TRUE(host.editor().pickFirst().currentTable().isNull());
}

}  // namespace
