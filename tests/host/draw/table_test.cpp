// Tables to primitives: where fills, texts and blocks of cells lie, and what colours they have.

#include "kd/db/table.h"

#include <algorithm>
#include <cmath>

#include "kd/db/dictionary.h"
#include "kd/db/tablestyle.h"
#include "tests/host/draw/drawing.h"
#include "tests/support/angles.h"
#include "tests/support/points.h"

using namespace kdhost::draw;
using kdtest::Drawing;
using kdtest::only;

namespace {

using kdtest::expectAt;

/// A table in no database: rows 20 high, columns 60 wide, at the origin.
std::unique_ptr<KdDbTable> plainTable(int rows, int columns) {
    auto table = std::make_unique<KdDbTable>();
    table->setSize(rows, columns);
    table->setRowHeight(20.0);
    table->setColumnWidth(60.0);
    return table;
}

/// The corners of a polygon as a box.
void expectBox(const Polygon& polygon, double left, double bottom, double right, double top) {
    KdDbExtents extents;
    for (const KdGePoint3d& point : polygon.points) extents.addPoint(point);
    expectAt(extents.minPoint(), left, bottom);
    expectAt(extents.maxPoint(), right, top);
}

TEST(TableTexts, stand_by_alignment_inside_the_margins) {
    for (int alignment = 1; alignment <= 9; ++alignment) {
        SCOPED_TRACE(alignment);
        const auto table = plainTable(3, 2);
        table->setTextString(2, 1, L"Bolt");
        table->setAlignment(2, 1, static_cast<KdDb::CellAlignment>(alignment));
        const auto texts = only<Text>(primitivesOf(*table, {}));
        ASSERT_EQ(texts.size(), 1U);
        const double height = table->textHeight(2, 1);
        EXPECT_EQ(texts[0].height, height);
        // The cell spans 60 to 120, -60 to -40; margins are 1.5.
        const double x[] = {61.5, 90.0 - 0.5 * texts[0].width, 118.5 - texts[0].width};
        const double y[] = {-41.5 - height, -50.0 - 0.5 * height, -58.5};
        expectAt(texts[0].origin, x[(alignment - 1) % 3], y[(alignment - 1) / 3]);
    }
}

TEST(TableTexts, wrap_at_the_width_between_the_margins) {
    const auto table = plainTable(3, 1);
    table->setColumnWidth(30.0);
    table->setAlignment(2, 0, KdDb::kTopLeft);
    table->setTextString(2, 0, L"hexagonal bolt");
    const auto texts = only<Text>(primitivesOf(*table, {}));
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].text, L"hexagonal");
    EXPECT_EQ(texts[1].text, L"bolt");
    EXPECT_NEAR(texts[0].origin.y - texts[1].origin.y, kdhost::text::kLinePitch * texts[0].height, 1e-9);
}

TEST(TableTexts, of_a_merge_stand_in_the_whole_merge_once) {
    const auto table = plainTable(4, 3);
    table->setTextString(2, 0, L"owner");
    table->setAlignment(2, 0, KdDb::kMiddleCenter);
    table->mergeCells(2, 3, 0, 1);
    const auto texts = only<Text>(primitivesOf(*table, {}));
    ASSERT_EQ(texts.size(), 1U);
    expectAt(texts[0].origin, 60.0 - 0.5 * texts[0].width, -60.0 - 0.5 * texts[0].height);
}

TEST(TableTexts, follow_position_and_direction_of_the_table) {
    const auto table = plainTable(3, 1);
    table->setPosition({100.0, 200.0, 0.0});
    table->setDirection({0.0, 5.0, 0.0});
    table->setAlignment(2, 0, KdDb::kBottomLeft);
    table->setTextString(2, 0, L"up");
    const auto texts = only<Text>(primitivesOf(*table, {}));
    ASSERT_EQ(texts.size(), 1U);
    // Along the rows is upwards now, from row to row to the right.
    expectAt(texts[0].origin, 100.0 + 58.5, 200.0 + 1.5);
    EXPECT_NEAR(texts[0].direction.y, 1.0, 1e-9);
}

TEST(TableTexts, of_a_table_that_grows_upwards_stand_upright) {
    const auto table = plainTable(3, 1);
    table->setFlowDirection(1);
    table->setAlignment(2, 0, KdDb::kTopLeft);
    table->setTextString(2, 0, L"top");
    const auto texts = only<Text>(primitivesOf(*table, {}));
    ASSERT_EQ(texts.size(), 1U);
    expectAt(texts[0].origin, 1.5, 60.0 - 1.5 - texts[0].height);
    EXPECT_NEAR(texts[0].direction.x, 1.0, 1e-9);
}

TEST(TableTexts, are_read_without_their_codes) {
    const auto table = plainTable(3, 1);
    table->setTextString(2, 0, L"{\\H2x;\\C1;M8}\\Lx");
    const auto texts = only<Text>(primitivesOf(*table, {}));
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].text, L"M8");
    EXPECT_EQ(texts[1].text, L"x");
    EXPECT_TRUE(texts[1].underline);
}

TEST(TableTexts, take_their_colour_or_the_tables) {
    const auto table = plainTable(3, 2);
    table->setColor(KdCmColor::fromRgb(1, 2, 3));
    table->setTextString(2, 0, L"own");
    table->setContentColor(2, 0, KdCmColor::fromRgb(200, 0, 0));
    table->setTextString(2, 1, L"byblock");
    table->setContentColor(2, 1, KdCmColor::byBlock());
    const auto texts = only<Text>(primitivesOf(*table, {}));
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].color, (Color{200, 0, 0, false}));
    EXPECT_EQ(texts[1].color, (Color{1, 2, 3, false}));
}

struct TurnCase {
    double angle;
    double x;  ///< of the text's direction
    double y;
};

class TurnedTexts : public ::testing::TestWithParam<TurnCase> {};

TEST_P(TurnedTexts, keep_their_box_in_the_middle_of_the_cell) {
    Drawing drawing;
    KdDbObject* style = nullptr;
    ASSERT_EQ(kddbOpenObject(style, drawing.database.tablestyle(), KdDb::kForWrite), Kdad::eOk);
    static_cast<KdDbTableStyle*>(style)->setRotation(GetParam().angle, L"_DATA");
    style->close();
    auto made = plainTable(3, 1);
    made->setTableStyle(drawing.database.tablestyle());
    made->setAlignment(2, 0, KdDb::kMiddleCenter);
    made->setTextString(2, 0, L"M8");
    made->setRowHeight(40.0);
    drawing.add(std::move(made));
    const auto texts = only<Text>(drawing.primitives());
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_NEAR(texts[0].direction.x, GetParam().x, 1e-9);
    EXPECT_NEAR(texts[0].direction.y, GetParam().y, 1e-9);
    const KdDbExtents extents = extentsOf({texts[0]});
    EXPECT_NEAR(0.5 * (extents.minPoint().x + extents.maxPoint().x), 30.0, 1e-9);
    EXPECT_NEAR(0.5 * (extents.minPoint().y + extents.maxPoint().y), -100.0, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(angles, TurnedTexts,
                         ::testing::Values(TurnCase{kdtest::pi / 2, 0, 1}, TurnCase{kdtest::pi, -1, 0},
                                           TurnCase{-kdtest::pi / 2, 0, -1},
                                           TurnCase{kdtest::pi / 4, std::sqrt(0.5), std::sqrt(0.5)}));

TEST(TableFills, cover_the_cell_or_its_merge_and_come_first) {
    const auto table = plainTable(4, 3);
    table->setTextString(3, 2, L"text");
    table->setBackgroundColor(3, 2, KdCmColor::fromRgb(1, 1, 1));
    table->mergeCells(2, 3, 0, 1);
    table->setBackgroundColor(2, 0, KdCmColor::fromRgb(2, 2, 2));
    const Primitives primitives = primitivesOf(*table, {});
    const auto fills = only<Polygon>(primitives);
    ASSERT_EQ(fills.size(), 2U);
    EXPECT_TRUE(std::holds_alternative<Polygon>(primitives[0]) && std::holds_alternative<Polygon>(primitives[1]));
    EXPECT_TRUE(std::holds_alternative<Text>(primitives[2]));
    EXPECT_TRUE(std::holds_alternative<Polyline>(primitives[3]));
    EXPECT_EQ(fills[0].color, (Color{2, 2, 2, false}));
    expectBox(fills[0], 0, -80, 120, -40);
    expectBox(fills[1], 120, -80, 180, -60);
}

TEST(TableFills, none_means_no_fill) {
    const auto table = plainTable(2, 2);
    table->setBackgroundColor(1, 1, KdCmColor::none());
    EXPECT_TRUE(only<Polygon>(primitivesOf(*table, {})).empty());
}

/// A drawing with a block of two by one units, and a table whose cell (2, 0) shows it.
class TableBlocks : public ::testing::Test {
protected:
    TableBlocks() : block(drawing.addBlock(L"plate")), table(plainTable(3, 1)) {
        drawing.add(std::make_unique<KdDbLine>(KdGePoint3d(5, 5, 0), KdGePoint3d(7, 6, 0)), block);
    }
    Polyline drawn() {
        const KdDbTable& before = *table;
        const auto lines = only<Polyline>(primitivesOf(before, {}));
        return lines.at(0);
    }

    Drawing drawing;
    KdDbObjectId block;
    std::unique_ptr<KdDbTable> table;
};

TEST_F(TableBlocks, stand_by_alignment_at_their_scale) {
    table->setBlockTableRecordId(2, 0, 0, block, false);
    table->setBlockScale(2, 0, 4.0);
    table->setAlignment(2, 0, KdDb::kMiddleCenter);
    const Polyline line = drawn();
    expectAt(line.points[0], 26.0, -52.0);
    expectAt(line.points[1], 34.0, -48.0);
}

TEST_F(TableBlocks, with_autofit_fill_the_cell_between_its_margins) {
    table->setBlockTableRecordId(2, 0, 0, block, true);
    table->setAlignment(2, 0, KdDb::kTopLeft);
    const Polyline line = drawn();
    // 17 units of height are free, the block is one high.
    expectAt(line.points[0], 1.5, -58.5);
    expectAt(line.points[1], 35.5, -41.5);
}

TEST_F(TableBlocks, are_turned) {
    table->setBlockTableRecordId(2, 0, 0, block, false);
    table->setBlockRotation(2, 0, kdtest::pi / 2);
    table->setAlignment(2, 0, KdDb::kBottomRight);
    const Polyline line = drawn();
    expectAt(line.points[0], 58.5, -58.5);
    expectAt(line.points[1], 57.5, -56.5);
}

TEST_F(TableBlocks, that_show_their_own_table_end) {
    table->setBlockTableRecordId(2, 0, 0, block, true);
    drawing.add(std::move(table), block);
    drawing.add(std::make_unique<KdDbBlockReference>(KdGePoint3d(), block));
    const auto lines = only<Polyline>(drawing.primitives());
    EXPECT_EQ(lines.size(), 1U + 4U + 2U) << "the line, and the grid of the table in the block";
}

TEST(LargeTables, every_cell_of_a_hundred_thousand_is_drawn) {
    const auto table = plainTable(10000, 10);
    for (int row = 0; row < 10000; ++row) {
        for (int column = 0; column < 10; ++column) table->setTextString(row, column, L"Bolt M8");
    }
    table->setSubSelection(1, 9999, 0, 9);
    EXPECT_GE(primitivesOf(*table, {false, true}).size(), 100000U);
}

}  // namespace
