// Where the text of a cell stands in the editor: the box, and the point for each alignment, worked out by hand.

#include "module/edit/celltextplace.h"

#include <gtest/gtest.h>

#include <ostream>

#include "tests/module/core/sampletables.h"
#include "tests/support/points.h"

namespace kdtest {
namespace {

/// Columns of 20 and 40, rows of 10 and 30, at (100, 200, 7); B2 reaches from (120, 190) to (160, 160).
std::unique_ptr<KdDbTable> makePlaced() {
    auto table = makeTable(2, 2);
    table->setColumnWidth(0, 20.0);
    table->setColumnWidth(1, 40.0);
    table->setRowHeight(0, 10.0);
    table->setRowHeight(1, 30.0);
    table->setPosition({100.0, 200.0, 7.0});
    return table;
}

/// Two horizontally and one vertically.
CellTextBox boxOf(const KdDbTable& table, int row, int column) {
    CellTextBox box = cellTextBox(table, row, column);
    box.horizontalMargin = 2.0;
    box.verticalMargin = 1.0;
    return box;
}

KdGePoint3d locationIn(const KdDbTable& table, int row, int column, int alignment) {
    return cellTextLocation(table, row, column, boxOf(table, row, column), static_cast<KdDb::CellAlignment>(alignment));
}

struct Place {
    int alignment;
    KdGePoint3d location;
};

/// The texts at a corner keep the corner's depth, those at a middle lie in the plane itself.
const Place places[] = {
    {1, {122, 189, 7}}, {2, {140, 189, 0}}, {3, {158, 189, 7}}, {4, {122, 175, 0}},
    {5, {140, 175, 0}}, {6, {158, 175, 0}}, {7, {122, 161, 7}}, {8, {140, 161, 0}},
    {9, {158, 161, 7}}, {0, {0, 0, 0}},     {10, {0, 0, 0}},    {-1, {0, 0, 0}},
};

TEST(CellTextPlace, stands_by_the_alignment_within_the_margins) {
    const auto table = makePlaced();
    for (const Place& place : places) {
        EXPECT_EQ(locationIn(*table, 1, 1, place.alignment), place.location) << place.alignment;
    }
}

TEST(CellTextPlace, of_a_merged_cell_stands_in_its_block) {
    const auto table = makePlaced();
    table->mergeCells(0, 1, 0, 1);
    for (const auto& [row, column] : {std::pair{0, 0}, {0, 1}, {1, 0}, {1, 1}}) {
        EXPECT_EQ(locationIn(*table, row, column, 1), KdGePoint3d(102, 199, 7));
        EXPECT_EQ(locationIn(*table, row, column, 5), KdGePoint3d(130, 180, 0));
        EXPECT_EQ(locationIn(*table, row, column, 9), KdGePoint3d(158, 161, 7));
    }
}

TEST(CellTextPlace, in_a_table_that_grows_upwards_is_the_same_in_the_same_cell) {
    const auto table = makePlaced();
    table->setFlowDirection(1);
    // The lower edge of B2 stands 10 above the position now.
    for (const Place& place : places) {
        const bool known = place.alignment >= 1 && place.alignment <= 9;
        const KdGePoint3d moved = place.location + KdGeVector3d(0.0, known ? 50.0 : 0.0, 0.0);
        EXPECT_EQ(locationIn(*table, 1, 1, place.alignment), moved) << place.alignment;
    }
}

TEST(CellTextPlace, is_worked_out_in_the_plane_of_the_table) {
    const auto table = makePlaced();
    // The plane's x axis is the world's y, its y axis (-0.8, 0, 0.6).
    table->setNormal({0.6, 0.0, 0.8});
    table->setDirection({0.0, 1.0, 0.0});
    table->setPosition({0.0, 0.0, 0.0});
    // B2 reaches from (20, -10) to (60, -40) there.
    EXPECT_TRUE(locationIn(*table, 1, 1, 1).isEqualTo({0.8 * 11.0, 22.0, -0.6 * 11.0}, 1e-9));
    EXPECT_TRUE(locationIn(*table, 1, 1, 8).isEqualTo({0.8 * 39.0, 40.0, -0.6 * 39.0}, 1e-9));
}

/// The margins go along the axes of the plane, however the table is turned in it.
TEST(CellTextPlace, of_a_turned_table_keeps_the_planes_axes) {
    const auto table = makePlaced();
    table->setDirection({0.0, 1.0, 0.0});
    // The rows run upwards and follow each other to the right: B2 reaches from (110, 220) to (140, 260).
    EXPECT_TRUE(locationIn(*table, 1, 1, 1).isEqualTo({112.0, 219.0, 7.0}, 1e-9));
    EXPECT_TRUE(locationIn(*table, 1, 1, 5).isEqualTo({125.0, 240.0, 0.0}, 1e-9));
}

TEST(CellTextPlace, has_the_size_of_the_cell_or_of_its_block_without_the_margins) {
    const auto table = makePlaced();
    EXPECT_EQ(cellTextBox(*table, 1, 1).width, 40.0);
    EXPECT_EQ(cellTextBox(*table, 1, 1).height, 30.0);
    EXPECT_EQ(cellTextBox(*table, 0, 0).width, 20.0);
    EXPECT_EQ(cellTextBox(*table, 0, 0).height, 10.0);
    EXPECT_EQ(cellTextBox(*table, 0, 0).horizontalMargin, table->margin(0, 0, KdDb::kCellMarginLeft));
    EXPECT_EQ(cellTextBox(*table, 0, 0).verticalMargin, table->margin(0, 0, KdDb::kCellMarginTop));
    table->mergeCells(0, 1, 0, 1);
    for (const auto& [row, column] : {std::pair{0, 0}, {1, 1}}) {
        const CellTextBox box = boxOf(*table, row, column);
        EXPECT_EQ(box.textWidth(), 60.0 - 2.0 * 2.0);
        EXPECT_EQ(box.textHeight(), 40.0 - 2.0 * 1.0);
    }
}

}  // namespace
}  // namespace kdtest
