// Where cells lie, and which cell lies at a point.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "kd/ge/matrix3d.h"
#include "tests/support/tablebuilder.h"

using kdtest::TableBuilder;

namespace {

constexpr double kRight = std::numbers::pi / 2.0;

/// Three columns of 10, 20 and 30, three rows of 5, 6 and 7, at (100, 200).
TableBuilder placed() {
    TableBuilder builder(3, 3);
    for (int i = 0; i < 3; ++i) builder.rowHeight(i, 5.0 + i).columnWidth(i, 10.0 * (i + 1));
    return builder;
}

std::unique_ptr<KdDbTable> placedTable() {
    auto table = placed().build();
    table->setPosition({100, 200, 0});
    return table;
}

void expectCorners(const KdDbTable& table, int row, int column, std::initializer_list<KdGePoint3d> corners,
                   bool outer = true) {
    KdGePoint3dArray points;
    table.getCellExtents(row, column, outer, points);
    ASSERT_EQ(points.length(), 4);
    int i = 0;
    for (const KdGePoint3d& corner : corners) {
        EXPECT_TRUE(points[i].isEqualTo(corner, 1e-9)) << "corner " << i << ": " << points[i].x << ", " << points[i].y;
        ++i;
    }
}

struct Hit {
    bool hit = false;
    int row = -9;
    int column = -9;
};

Hit hitCell(const KdDbTable& table, double x, double y, double width = 0.0, double height = 0.0) {
    Hit hit;
    hit.hit = table.hitTestCell({x, y, 0}, KdGeVector3d(0, 0, 1), width, height, hit.row, hit.column);
    return hit;
}

}  // namespace

TEST(TablePlace, corners_come_as_top_left_top_right_bottom_left_bottom_right) {
    auto table = placedTable();
    expectCorners(*table, 1, 1, {{110, 195, 0}, {130, 195, 0}, {110, 189, 0}, {130, 189, 0}});
    expectCorners(*table, 0, 0, {{100, 200, 0}, {110, 200, 0}, {100, 195, 0}, {110, 195, 0}});
}

TEST(TablePlace, corners_are_appended_and_a_place_outside_has_none) {
    auto table = placedTable();
    KdGePoint3dArray points;
    table->getCellExtents(0, 0, true, points);
    table->getCellExtents(1, 0, true, points);
    EXPECT_EQ(points.length(), 8);
    table->getCellExtents(3, 0, true, points);
    table->getCellExtents(0, -2, true, points);
    EXPECT_EQ(points.length(), 8);
}

TEST(TablePlace, a_merged_cell_has_the_corners_of_its_merge) {
    auto table = placedTable();
    table->mergeCells(1, 2, 0, 1);
    for (const auto& [row, column] : {std::pair{1, 0}, {2, 1}}) {
        expectCorners(*table, row, column, {{100, 195, 0}, {130, 195, 0}, {100, 182, 0}, {130, 182, 0}});
    }
}

TEST(TablePlace, inner_corners_leave_the_margins_off) {
    auto table = placedTable();
    expectCorners(*table, 1, 1, {{111.5, 193.5, 0}, {128.5, 193.5, 0}, {111.5, 190.5, 0}, {128.5, 190.5, 0}}, false);
}

TEST(TablePlace, flow_upwards_stacks_the_rows_on_the_position) {
    auto table = placedTable();
    table->setFlowDirection(1);
    expectCorners(*table, 1, 1, {{110, 211, 0}, {130, 211, 0}, {110, 205, 0}, {130, 205, 0}});
    expectCorners(*table, 1, 1, {{111.5, 209.5, 0}, {128.5, 209.5, 0}, {111.5, 206.5, 0}, {128.5, 206.5, 0}}, false);
    EXPECT_EQ(hitCell(*table, 101, 212).row, 2);
    EXPECT_FALSE(hitCell(*table, 101, 199).hit);
}

TEST(TablePlace, rows_run_in_the_table_direction_whatever_its_length) {
    auto table = placedTable();
    table->setDirection({0, 5, 0});
    EXPECT_TRUE(table->direction().isEqualTo({0, 5, 0})) << "kept as set";
    expectCorners(*table, 1, 1, {{105, 210, 0}, {105, 230, 0}, {111, 210, 0}, {111, 230, 0}});
    EXPECT_NEAR(table->rotation(), kRight, 1e-12);
    table->setDirection({-1, 0, 0});
    EXPECT_NEAR(table->rotation(), 2 * kRight, 1e-12);
}

TEST(TablePlace, lies_in_the_plane_of_its_normal) {
    auto table = placedTable();
    table->setPosition({0, 0, 0});
    table->setNormal({0, -2, 0});
    table->setDirection({1, 0, 0});
    EXPECT_TRUE(table->normal().isEqualTo({0, -2, 0}));
    // Seen from the front, up is the world's z.
    expectCorners(*table, 1, 0, {{0, 0, -5}, {10, 0, -5}, {0, 0, -11}, {10, 0, -11}});
    EXPECT_NEAR(table->rotation(), 0.0, 1e-12);
    int row = -1, column = -1;
    EXPECT_TRUE(table->hitTestCell({15, 77, -6}, {0, 1, 0}, 0, 0, row, column)) << "along the line of sight";
    EXPECT_EQ(row, 1);
    EXPECT_EQ(column, 1);
    EXPECT_FALSE(table->hitTestCell({15, 77, -6}, {1, 0, 0}, 0, 0, row, column)) << "a sight along the plane";
}

TEST(TablePlace, a_direction_that_says_nothing_leaves_the_planes_x_axis) {
    auto table = placedTable();
    for (const KdGeVector3d& direction : {KdGeVector3d(0, 0, 0), KdGeVector3d(0, 0, 3)}) {
        table->setDirection(direction);
        expectCorners(*table, 0, 0, {{100, 200, 0}, {110, 200, 0}, {100, 195, 0}, {110, 195, 0}});
    }
}

TEST(TableHit, finds_the_cell_and_the_owner_of_a_merge) {
    auto table = placedTable();
    table->mergeCells(1, 2, 1, 2);
    const Hit cell = hitCell(*table, 105, 198);
    EXPECT_TRUE(cell.hit);
    EXPECT_EQ(cell.row, 0);
    EXPECT_EQ(cell.column, 0);
    const Hit merged = hitCell(*table, 159, 183);
    EXPECT_EQ(merged.row, 1);
    EXPECT_EQ(merged.column, 1);
}

TEST(TableHit, outside_is_a_miss_that_leaves_the_outputs) {
    auto table = placedTable();
    for (const auto& [x, y] : {std::pair{99.0, 198.0}, {161.0, 198.0}, {105.0, 201.0}, {105.0, 181.0}}) {
        const Hit hit = hitCell(*table, x, y);
        EXPECT_FALSE(hit.hit) << x << ", " << y;
        EXPECT_EQ(hit.row, -9);
        EXPECT_EQ(hit.column, -9);
    }
}

TEST(TableHit, an_aperture_reaches_half_its_size_beyond_the_border) {
    auto table = placedTable();
    EXPECT_TRUE(hitCell(*table, 99, 198, 2.0, 0.0).hit);
    EXPECT_FALSE(hitCell(*table, 98.9, 198, 2.0, 0.0).hit);
    EXPECT_EQ(hitCell(*table, 161, 181.5, 2.0, 1.0).row, 2);
    EXPECT_EQ(hitCell(*table, 161, 181.5, 2.0, 1.0).column, 2);
}

TEST(TableHit, an_aperture_reaches_beyond_the_border_for_parts_of_the_table_too) {
    auto table = placedTable();
    int row = 7, column = 7, content = 7;
    KdDb::TableHitItem item = KdDb::kTableHitNone;
    EXPECT_FALSE(table->hitTest({161, 181.5, 0}, {0, 0, 1}, 1.9, 1.0, row, column, content, item));
    EXPECT_FALSE(table->hitTest({161, 181.5, 0}, {0, 0, 1}, 2.0, 0.9, row, column, content, item));
    EXPECT_EQ(row, 7);
    ASSERT_TRUE(table->hitTest({161, 181.5, 0}, {0, 0, 1}, 2.0, 1.0, row, column, content, item));
    EXPECT_EQ(row, 2);
    EXPECT_EQ(column, 2);
    EXPECT_EQ(content, 0);
    EXPECT_EQ(item, KdDb::kTableHitCell);
}

TEST(TableHit, indicators_are_bands_of_twice_the_data_text_height) {
    auto table = placedTable();
    struct Case {
        double x, y;
        bool hit;
        int item, row, column;
    };
    for (const Case& test :
         {Case{95, 192, true, 2, 1, 0}, Case{91, 183, true, 2, 2, 0}, Case{90.9, 192, false, 0, 0, 0},
          Case{115, 205, true, 4, 0, 1}, Case{155, 209, true, 4, 0, 2}, Case{115, 209.1, false, 0, 0, 0},
          Case{95, 205, false, 0, 0, 0}, Case{115, 192, true, 1, 1, 1}, Case{165, 192, false, 0, 0, 0}}) {
        int row = 7, column = 7, content = 7;
        KdDb::TableHitItem item = KdDb::kTableHitNone;
        const bool hit = table->hitTest({test.x, test.y, 0}, {0, 0, 1}, 0, 0, row, column, content, item);
        EXPECT_EQ(hit, test.hit) << test.x << ", " << test.y;
        EXPECT_EQ(item, test.item) << test.x << ", " << test.y;
        EXPECT_EQ(row, test.hit ? test.row : 7);
        EXPECT_EQ(column, test.hit ? test.column : 7);
        EXPECT_EQ(content, test.hit ? 0 : 7);
    }
}

TEST(TablePlace, extents_hold_the_whole_table) {
    auto table = placedTable();
    KdDbExtents extents = table->getGeomExtents();
    ASSERT_TRUE(extents.isValid());
    EXPECT_TRUE(extents.minPoint().isEqualTo({100, 182, 0}));
    EXPECT_TRUE(extents.maxPoint().isEqualTo({160, 200, 0}));
    table->setDirection({0, 1, 0});
    extents = table->getGeomExtents();
    EXPECT_TRUE(extents.minPoint().isEqualTo({100, 200, 0}));
    EXPECT_TRUE(extents.maxPoint().isEqualTo({118, 260, 0}));
}

TEST(TableTransform, moves_turns_and_scales) {
    auto table = placedTable();
    ASSERT_EQ(table->transformBy(KdGeMatrix3d::translation({1, 2, 3})), Kdad::eOk);
    EXPECT_TRUE(table->position().isEqualTo({101, 202, 3}));
    table->setPosition({100, 200, 0});
    ASSERT_EQ(table->transformBy(KdGeMatrix3d::rotation(kRight, {0, 0, 1}, {100, 200, 0})), Kdad::eOk);
    EXPECT_NEAR(table->rotation(), kRight, 1e-9);
    EXPECT_TRUE(table->position().isEqualTo({100, 200, 0}));
    ASSERT_EQ(table->transformBy(KdGeMatrix3d::scaling(2.0, {100, 200, 0})), Kdad::eOk);
    EXPECT_DOUBLE_EQ(table->columnWidth(1), 40);
    EXPECT_DOUBLE_EQ(table->rowHeight(1), 12);
    EXPECT_DOUBLE_EQ(table->textHeight(2, 0), 9.0);
    EXPECT_DOUBLE_EQ(table->margin(2, 0, KdDb::kCellMarginLeft), 3.0);
    EXPECT_DOUBLE_EQ(table->margin(2, 0, KdDb::kCellMarginTop), 3.0);
}

TEST(TableTransform, refuses_what_a_table_cannot_take) {
    auto table = placedTable();
    const std::string before = kdtest::describe(*table);
    KdGeMatrix3d uneven;
    uneven.entry[0][0] = 2.0;
    EXPECT_EQ(table->transformBy(uneven), Kdad::eInvalidInput);
    KdGeMatrix3d flat;
    flat.entry[2][2] = 0.0;
    EXPECT_EQ(table->transformBy(flat), Kdad::eInvalidInput);
    EXPECT_EQ(kdtest::describe(*table), before);
    EXPECT_TRUE(table->position().isEqualTo({100, 200, 0}));
}
