// Placing of tables: the drag, its prompts and its ends, and what lies in the drawing then.

#include <new>

#include "host/ed/commandline.h"
#include "kd/db/tablestyle.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"
#include "kd/ed/variables.h"
#include "tests/module/create/jigfixture.h"

namespace kdtest {
namespace {

using PlaceByWindow = TableJig;

/// What the command line shows as if it had been typed.
class Echoes : private kdhost::CommandLineListener {
public:
    Echoes() { kdhost::commandLine().setListener(this); }
    ~Echoes() override { kdhost::commandLine().setListener(nullptr); }
    Echoes(const Echoes&) = delete;
    Echoes& operator=(const Echoes&) = delete;

    const std::vector<std::wstring>& seen() const { return m_seen; }

private:
    void written(const std::wstring&) override {}
    void failed(const std::wstring&) override {}
    void echoed(const std::wstring& input) override { m_seen.push_back(input); }

    std::vector<std::wstring> m_seen;
};

TEST_F(PlaceAtPoint, one_pick_places_a_table_of_the_figures_given) {
    pick(10, 20);
    const KdDbTable& table = place();
    EXPECT_EQ(table.position(), KdGePoint3d(10, 20, 0));
    EXPECT_EQ(table.numRows(), 5);
    EXPECT_EQ(table.numColumns(), 3);
    for (int column = 0; column < 3; ++column) EXPECT_EQ(table.columnWidth(column), 30.0);
    // (t + t/3) * 1 + 2 * 1.5, with capitals 6 and 4.5 high.
    EXPECT_EQ(table.rowHeight(0), 11.0);
    for (int row = 1; row < 5; ++row) EXPECT_EQ(table.rowHeight(row), 9.0);
    EXPECT_STREQ(table.cellStyle(0, 2), L"_TITLE");
    EXPECT_STREQ(table.cellStyle(1, 0), L"_HEADER");
    EXPECT_STREQ(table.cellStyle(4, 1), L"_DATA");
    EXPECT_EQ(table.getMergeRange(0, 0), cells("A1:C1"));
    EXPECT_FALSE(table.isMergedCell(1, 0));
    for (int row = 0; row < 5; ++row) EXPECT_EQ(table.cellType(row, 2), KdDb::kTextCell);
    EXPECT_EQ(table.ownerId(), host.database().modelSpaceId());
    EXPECT_EQ(table.database(), &host.database());
}

TEST_F(PlaceAtPoint, lines_make_rows_higher_and_a_narrow_column_gets_the_least_width) {
    jig->setTableRowHeight(3);
    jig->setTableColumnWidth(2.0);
    pick(1, 1);
    const KdDbTable& table = place();
    EXPECT_EQ(table.rowHeight(0), 27.0);
    EXPECT_EQ(table.rowHeight(4), 21.0);
    EXPECT_EQ(table.columnWidth(1), 7.5) << "one capital of the title, and a margin";
}

TEST_F(PlaceAtPoint, the_height_of_a_row_is_that_of_its_lines_with_the_horizontal_margin) {
    OpenObject<KdDbTableStyle> style(host.database().tablestyle(), KdDb::kForWrite);
    style->setMargin(KdDb::kCellMarginTop, 4.5, L"_DATA");
    style->setMargin(KdDb::kCellMarginLeft, 0.5, L"_DATA");
    style.close();
    pick(1, 1);
    EXPECT_EQ(place().rowHeight(4), 7.0) << "6 + 2 * 0.5";
}

TEST_F(PlaceAtPoint, the_least_width_is_that_of_the_cell_style_chosen_for_the_first_row) {
    jig->setFirstCellText(L"_DATA");
    jig->setTableColumnWidth(2.0);
    pick(1, 1);
    EXPECT_EQ(place().columnWidth(0), 6.0) << "a capital of data, and a margin";
}

TEST_F(PlaceAtPoint, display_names_of_cell_styles_are_made_internal) {
    CStdStr<wchar_t> title = L"_TITLE";
    CVqTableCommon::DefaultCellStyleReverseConvert(title);
    ASSERT_STRNE(title, L"_TITLE");
    jig->setOtherCellText(title);
    pick(1, 1);
    const KdDbTable& table = place();
    EXPECT_STREQ(table.cellStyle(3, 0), L"_TITLE");
    EXPECT_EQ(table.getMergeRange(3, 1), cells("A4:C4"));
}

TEST_F(PlaceAtPoint, the_style_of_the_first_row_wins_for_row_0_without_rows_of_data_too) {
    jig->setTableDataRows(0);
    pick(1, 1);
    const KdDbTable& table = place();
    EXPECT_EQ(table.numRows(), 2);
    EXPECT_STREQ(table.cellStyle(0, 0), L"_TITLE");
    EXPECT_STREQ(table.cellStyle(1, 0), L"_HEADER");
}

TEST_F(PlaceAtPoint, row_0_of_one_column_is_never_merged) {
    jig->setTableColumns(1);
    pick(1, 1);
    EXPECT_FALSE(place().isMergedCell(0, 0));
}

TEST_F(PlaceAtPoint, the_table_follows_the_cursor) {
    move(3, 4);
    look([&](const KdDbTable& table) {
        EXPECT_EQ(table.position(), KdGePoint3d(3, 4, 0));
        EXPECT_TRUE(table.objectId().isNull());
        pick(5, 6);
    });
    EXPECT_EQ(place().position(), KdGePoint3d(5, 6, 0));
}

TEST_F(PlaceAtPoint, a_pick_on_the_origin_is_the_first_point_as_it_stands_and_places_the_table) {
    pick(0, 0);
    const KdDbTable& table = place();
    EXPECT_EQ(table.position(), KdGePoint3d(0, 0, 0));
    EXPECT_EQ(table.direction(), KdGeVector3d::kXAxis);
}

TEST_F(PlaceAtPoint, a_point_within_1e_10_of_the_first_gives_no_update) {
    move(3, 4);
    move(3 + 5e-11, 4);
    pick(3 + 5e-11, 4);
    EXPECT_EQ(place().position().x, 3.0);
}

TEST_F(PlaceAtPoint, the_prompt_is_the_module_s_and_comes_again_after_Enter) {
    std::vector<std::wstring> prompts;
    look([&](const KdDbTable&) { prompts.push_back(host.editor().promptText()), enter(); });
    look([&](const KdDbTable&) { prompts.push_back(host.editor().promptText()), pick(1, 1); });
    place();
    EXPECT_EQ(prompts, std::vector<std::wstring>(2, loadText(2008)));
}

TEST_F(PlaceAtPoint, Esc_and_the_end_of_input_place_nothing) {
    escape();
    EXPECT_EQ(jig->doJig(nullptr), 0);
    EXPECT_EQ(jig->entity(), nullptr);
    EXPECT_EQ(jig->doJig(nullptr), 0);
    EXPECT_EQ(jig->entity(), nullptr);
    EXPECT_EQ(sent(), L"");
}

TEST_F(PlaceAtPoint, Esc_ends_the_drag_with_minus_4) {
    escape();
    EXPECT_EQ(jig->startDrag(), -4);
}

TEST_F(PlaceAtPoint, an_error_in_the_drag_costs_the_new_table_only) {
    std::weak_ptr<const void> held;
    look([&](const KdDbTable& table) {
        held = holdBy(table);
        throw std::bad_alloc();
    });
    EXPECT_THROW(jig->doJig(nullptr), std::bad_alloc);
    EXPECT_TRUE(held.expired()) << "the table is gone";
    EXPECT_EQ(jig->entity(), nullptr);
    pick(1, 1);
    EXPECT_EQ(place().numRows(), 5);
}

TEST_F(PlaceAtPoint, a_table_that_was_placed_before_survives_an_error_in_the_next_drag) {
    pick(1, 1);
    const KdDbObjectId id = place().objectId();
    look([](const KdDbTable&) { throw std::bad_alloc(); });
    EXPECT_THROW(jig->doJig(nullptr), std::bad_alloc);
    EXPECT_EQ(look(id).numRows(), 5);
}

TEST_F(PlaceAtPoint, a_space_that_cannot_be_written_costs_the_new_table_only) {
    pick(1, 1);
    const OpenObject<KdDbBlockTableRecord> reader(host.database().modelSpaceId(), KdDb::kForRead);
    EXPECT_EQ(jig->doJig(nullptr), 0);
    EXPECT_EQ(jig->entity(), nullptr);
    EXPECT_EQ(sent(), L"");
}

TEST_F(PlaceAtPoint, the_first_cell_is_selected_and_handed_to_the_editor) {
    const Echoes echoes;
    pick(1, 1);
    ASSERT_EQ(jig->doJig(nullptr), 1);
    EXPECT_EQ(sent(), L"TABLEDIT \n");
    EXPECT_EQ(echoes.seen(), std::vector<std::wstring>()) << "nobody has typed it";
    const KdDbObjectId id = jig->entity()->objectId();
    EXPECT_EQ(selection(id), cells("A1:C1")) << "the merge of the title";
    kded_name set;
    ASSERT_EQ(kdedSSGet(L"_I", nullptr, nullptr, nullptr, set), RTNORM);
    int length = 0;
    kdedSSLength(set, &length);
    EXPECT_EQ(length, 1);
    kded_name name;
    KdDbObjectId selected;
    kdedSSName(set, 0, name);
    kddbGetObjectId(selected, name);
    EXPECT_EQ(selected, id);
    kdedSSFree(set);
}

TEST_F(PlaceAtPoint, the_first_cell_alone_is_selected_where_it_is_in_no_merge) {
    jig->setFirstCellText(L"_DATA");
    pick(1, 1);
    place();
    EXPECT_EQ(selection(jig->entity()->objectId()), cells("A1"));
}

TEST_F(PlaceAtPoint, no_cell_is_edited_of_a_table_that_cannot_be_had) {
    pick(1, 1);
    const KdDbObjectId id = place().objectId();
    EXPECT_EQ(jig->setMText(KdDbObjectId::kNull), 0);
    const OpenObject<KdDbTable> reader(id, KdDb::kForRead);
    EXPECT_EQ(jig->setMText(id), 0);
    EXPECT_EQ(sent(), L"");
}

TEST_F(PlaceAtPoint, the_table_lies_along_the_user_coordinate_system) {
    host.database().setUcs({0, 0, 0}, {0, 1, 0}, {-1, 0, 0});
    pick(7, 8);
    const KdDbTable& table = place();
    EXPECT_EQ(table.direction(), KdGeVector3d(0, 1, 0));
    EXPECT_EQ(table.normal(), KdGeVector3d(0, 0, 1));
    EXPECT_EQ(table.position(), KdGePoint3d(7, 8, 0));
}

/// Where no move of the cursor brings the table up to date, it lies as it was made.
TEST_F(PlaceAtPoint, a_table_that_is_never_moved_lies_along_the_axes_of_the_space_it_is_made_in) {
    KdDbDatabase& db = host.database();
    db.setUcs({0, 0, 0}, {0, 1, 0}, {0, 0, 1});
    db.setPucs({0, 0, 0}, {-1, 0, 0}, {0, 0, 1});
    const KdDbTable& inModel = placeAtOrigin();
    EXPECT_EQ(inModel.direction(), KdGeVector3d(0, 1, 0));
    EXPECT_EQ(inModel.normal(), KdGeVector3d(1, 0, 0));
    db.setTilemode(false);
    const KdDbTable& table = placeAtOrigin();
    EXPECT_EQ(table.direction(), KdGeVector3d(-1, 0, 0));
    EXPECT_EQ(table.normal(), KdGeVector3d(0, 1, 0));
}

TEST_F(PlaceAtPoint, a_new_table_has_the_drawings_current_properties) {
    KdDbObjectId layer;
    {
        const OpenObject<KdDbLayerTable> layers(host.database().layerTableId(), KdDb::kForWrite);
        auto* const record = new KdDbLayerTableRecord;
        record->setName(L"Tables");
        ASSERT_EQ(layers->add(layer, record), Kdad::eOk);
        record->close();
    }
    host.database().setClayer(layer);
    pick(1, 1);
    EXPECT_EQ(place().layerId(), layer);
}

TEST_F(PlaceAtPoint, the_table_turns_with_the_coordinate_system_while_it_is_dragged) {
    move(1, 1);
    look([&](const KdDbTable& table) {
        EXPECT_EQ(table.direction(), KdGeVector3d::kXAxis);
        host.database().setUcs({0, 0, 0}, {0, 0, 1}, {0, 1, 0});
        pick(2, 2);
    });
    const KdDbTable& table = place();
    EXPECT_EQ(table.direction(), KdGeVector3d(0, 0, 1));
    EXPECT_EQ(table.normal(), KdGeVector3d(-1, 0, 0));
}

TEST_F(PlaceAtPoint, a_table_of_a_style_that_grows_upwards_grows_upwards) {
    KdDbTableStyle* style = nullptr;
    OpenObject<KdDbTableStyle> open(host.database().tablestyle(), KdDb::kForWrite);
    style = open.get();
    style->setFlowDirection(1);
    open.close();
    pick(1, 1);
    const KdDbTable& table = place();
    EXPECT_EQ(table.flowDirection(), 1);
    EXPECT_EQ(table.rowHeight(0), 11.0);
    KdGePoint3d middle;
    jig->getCellCenterPoint(0, 0, middle);
    EXPECT_EQ(middle, KdGePoint3d(46, 6.5, 0));
}

TEST_F(PlaceAtPoint, the_null_id_stands_for_the_style_Standard) {
    pick(1, 1);
    const OpenObject<KdDbTableStyle> style(place().tableStyle(), KdDb::kForRead);
    wchar_t* name = nullptr;
    style->getName(name);
    EXPECT_STREQ(name, L"Standard");
    kdutDelBuffer(name);
}

TEST_F(PlaceAtPoint, a_dictionary_that_cannot_be_had_leaves_the_table_without_a_style) {
    kdhost::faults().noTableStyleDictionary = true;
    jig->setTableStyleId({});
    kdhost::faults().noTableStyleDictionary = false;
    pick(1, 1);
    EXPECT_TRUE(place().tableStyle().isNull());
}

TEST_F(PlaceAtPoint, the_jig_takes_the_working_database_by_itself) {
    CVqTableJig own;
    own.setTableStyleId({});
    own.setTableColumns(1);
    own.setPointMode(true);
    pick(1, 1);
    ASSERT_EQ(own.doJig(nullptr), 1);
    dropSent();
    EXPECT_EQ(own.entity()->database(), &host.database());
}

TEST_F(PlaceAtPoint, placing_is_one_step_of_undo) {
    {
        const kdhost::UndoCommandScope command(&host.database(), L"TABLE");
        pick(12, 34);
        place();
    }
    EXPECT_EQ(steps(), std::vector<std::wstring>{L"TABLE"});
    const KdDbObjectId id = jig->entity()->objectId();
    ASSERT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(kdhost::peek<KdDbTable>(id), nullptr);
    ASSERT_EQ(undoHistory().redo(), Kdad::eOk);
    EXPECT_EQ(look(id).position(), KdGePoint3d(12, 34, 0));
}

TEST_F(PlaceByWindow, both_corners_are_asked_for_each_again_after_Enter) {
    std::vector<std::wstring> prompts;
    const auto note = [&] { prompts.push_back(host.editor().promptText()); };
    look([&](const KdDbTable&) { note(), enter(); });
    look([&](const KdDbTable&) { note(), pick(1, 1); });
    look([&](const KdDbTable&) { note(), enter(); });
    look([&](const KdDbTable&) { note(), pick(500, 500); });
    place();
    const std::wstring first = loadText(2020).c_str(), other = loadText(2021).c_str();
    EXPECT_EQ(prompts, (std::vector<std::wstring>{first, first, other, other}));
}

TEST_F(PlaceByWindow, the_table_stays_as_it_is_once_the_second_corner_is_asked_for_again) {
    pick(10, 10);
    move(160, 110);
    std::string dragged;
    look([&](const KdDbTable& table) {
        dragged = describe(table);
        enter();
        move(400, 400);
        pick(500, 500);
    });
    EXPECT_EQ(describe(place()), dragged);
    EXPECT_NE(dragged, "");
}

TEST_F(PlaceByWindow, Esc_at_each_corner_places_nothing) {
    escape();
    EXPECT_EQ(jig->doJig(nullptr), 0);
    EXPECT_EQ(jig->entity(), nullptr);

    pick(1, 1);
    move(100, 100);
    escape();
    EXPECT_EQ(jig->doJig(nullptr), 0);
    EXPECT_EQ(jig->entity(), nullptr);
    EXPECT_EQ(kdhost::draggedEntity(), nullptr);
    EXPECT_EQ(sent(), L"");
}

TEST_F(PlaceByWindow, a_second_pick_on_the_first_point_changes_nothing_and_ends) {
    pick(10, 10);
    pick(10, 10);
    const KdDbTable& table = place();
    EXPECT_EQ(table.numRows(), 5);
    EXPECT_EQ(table.columnWidth(0), 30.0);
    EXPECT_EQ(table.rowHeight(0), 11.0);
}

TEST_F(PlaceByWindow, the_first_corner_is_the_table_s_position_wherever_the_other_lies) {
    const KdDbTable& table = dragWindow({200, 100, 0}, {50, 300, 0});
    EXPECT_EQ(table.position(), KdGePoint3d(200, 100, 0));
    EXPECT_EQ(table.columnWidth(0), 50.0);
    EXPECT_EQ(table.rowHeight(0), 40.0);
}

}  // namespace
}  // namespace kdtest
