// Sizes and places of cells, with coordinates worked out by hand.

#include <gtest/gtest.h>

#include <cmath>

#include "kd/db/tablestyle.h"
#include "tests/module/core/editfixture.h"
#include "tests/support/points.h"

namespace kdtest {
namespace {

using Points = std::vector<KdGePoint3d>;

Points list(const KdGePoint3dArray& points) {
    return {points.begin(), points.end()};
}

KdGePoint3dArray arrayOf(const Points& points) {
    KdGePoint3dArray array;
    for (const KdGePoint3d& point : points) array.append(point);
    return array;
}

KdGePoint3d middle(const KdGePoint3d& a, const KdGePoint3d& b) {
    return a + (b - a) * 0.5;
}

/// Columns of 10, 20 and 30; rows of 5, 7 and 9.
std::unique_ptr<KdDbTable> makeSizedTable(int flow = 0) {
    auto table = makeTable(3, 3);
    for (int i = 0; i < 3; ++i) {
        table->setColumnWidth(i, 10.0 * (i + 1));
        table->setRowHeight(i, 5.0 + 2.0 * i);
    }
    table->setFlowDirection(flow);
    return table;
}

TEST(CellGeometry, Widths_and_heights_of_a_range_are_summed_up) {
    const auto table = makeSizedTable();
    EXPECT_EQ(CVqTableCommon::GetCellRangeWidth(table.get(), {0, 1, 2, 2}), 50.0);
    EXPECT_EQ(CVqTableCommon::GetCellRangeHeight(table.get(), {0, 1, 2, 2}), 21.0);
    EXPECT_EQ(CVqTableCommon::GetCellRangeWidth(table.get(), {1, 1, 1, 1}), 20.0);
    EXPECT_EQ(CVqTableCommon::GetCellRangeHeight(table.get(), {1, 1, 1, 1}), 7.0);
    EXPECT_EQ(CVqTableCommon::GetCellRangeWidth(table.get(), {2, 2, 0, 0}), 0.0) << "reversed";
    EXPECT_EQ(CVqTableCommon::GetCellRangeHeight(table.get(), {2, 2, 0, 0}), 0.0) << "reversed";
    EXPECT_EQ(CVqTableCommon::GetCellRangeWidth(nullptr, {0, 0, 2, 2}), 0.0);
    EXPECT_EQ(CVqTableCommon::GetCellRangeHeight(nullptr, {0, 0, 2, 2}), 0.0);
}

TEST(CellGeometry, Extents_ignore_all_points_behind_the_fourth) {
    const KdGePoint3dArray points =
        arrayOf({{1, 5, -2}, {3, 2, 0}, {-4, 8, 1}, {0, 0, 6}, {100, 100, 100}, {-100, -100, -100}});
    EXPECT_EQ(CVqTableCommon::GetExtentsMinPoint(points), KdGePoint3d(-4, 0, -2));
    EXPECT_EQ(CVqTableCommon::GetExtentsMaxPoint(points), KdGePoint3d(3, 8, 6));
    EXPECT_EQ(CVqTableCommon::GetExtentsCenterPoint(points), KdGePoint3d(-0.5, 4, 2));
    KdGePoint3dArray out = arrayOf({{9, 9, 9}});
    CVqTableCommon::GetExtents(points, out);
    EXPECT_EQ(list(out), (Points{{9, 9, 9}, {-4, 0, -2}, {3, 8, 6}}));
}

TEST(CellGeometry, Extents_of_no_points_are_their_start_values) {
    const KdGePoint3dArray none;
    EXPECT_EQ(CVqTableCommon::GetExtentsMinPoint(none), KdGePoint3d(1e20, 1e20, 1e20));
    EXPECT_EQ(CVqTableCommon::GetExtentsMaxPoint(none), KdGePoint3d(-1e20, -1e20, -1e20));
    EXPECT_EQ(CVqTableCommon::GetExtentsCenterPoint(none), KdGePoint3d(0, 0, 0));
}

TEST(CellGeometry, The_center_of_a_cell_is_that_of_its_merge) {
    auto table = makeSizedTable();
    table->setPosition({100, 200, 7});
    KdGePoint3d point;
    CVqTableCommon::GetCellCenterPoint(table.get(), 1, 2, point);
    EXPECT_EQ(point, KdGePoint3d(145, 191.5, 7));
    table->mergeCells(1, 2, 0, 1);
    for (const auto& [row, column] : {std::pair{1, 0}, {1, 1}, {2, 0}, {2, 1}}) {
        CVqTableCommon::GetCellCenterPoint(table.get(), row, column, point);
        EXPECT_EQ(point, KdGePoint3d(115, 187, 7));
    }
    table->setFlowDirection(1);
    CVqTableCommon::GetCellCenterPoint(table.get(), 1, 2, point);
    EXPECT_EQ(point, KdGePoint3d(145, 208.5, 7));
}

struct Turn {
    const char* what;
    KdGeVector3d direction;
    KdGeVector3d normal;
    KdGeVector3d x;           ///< GetDirection
    KdGeVector3d y0;          ///< with flow 0
    KdGePoint3d transformed;  ///< of (10, 5, 1), the position being (1, 2, 3)
};

// In the plane of (0, 0, -1) the x axis is (-1, 0, 0) and the y axis (0, 1, 0); in that of (0.6, 0, 0.8) they are
// (0, 1, 0) and (-0.8, 0, 0.6).
const Turn turns[] = {
    {"upright", {1, 0, 0}, {0, 0, 1}, {1, 0, 0}, {0, -1, 0}, {11, 7, 4}},
    {"longer than 1", {7, 0, 0}, {0, 0, 3}, {1, 0, 0}, {0, -1, 0}, {11, 7, 4}},
    {"quarter turn", {0, 1, 0}, {0, 0, 1}, {0, 1, 0}, {1, 0, 0}, {-4, 12, 4}},
    {"three quarters", {0, -1, 0}, {0, 0, 1}, {0, -1, 0}, {-1, 0, 0}, {6, -8, 4}},
    {"half turn", {-1, 0, 0}, {0, 0, 1}, {-1, 0, 0}, {0, 1, 0}, {-9, -3, 4}},
    {"3 and 4", {3, 4, 0}, {0, 0, 1}, {0.6, 0.8, 0}, {0.8, -0.6, 0}, {3, 13, 4}},
    {"from behind", {1, 0, 0}, {0, 0, -1}, {-1, 0, 0}, {0, 1, 0}, {11, -3, 2}},
    {"from behind, turned", {0, 1, 0}, {0, 0, -1}, {0, 1, 0}, {1, 0, 0}, {6, 12, 2}},
    {"tilted, along the plane's x", {0, 1, 0}, {0.6, 0, 0.8}, {1, 0, 0}, {0, -1, 0}, {-2.4, 12, 6.8}},
    {"tilted, along the plane's y", {-0.8, 0, 0.6}, {0.6, 0, 0.8}, {0, 1, 0}, {1, 0, 0}, {-6.4, -3, 9.8}},
};

TEST(CellGeometry, Directions_are_those_in_the_tables_plane) {
    for (const Turn& turn : turns) {
        SCOPED_TRACE(turn.what);
        auto table = makeSizedTable();
        table->setDirection(turn.direction);
        table->setNormal(turn.normal);
        KdGeVector3d x;
        KdGeVector3d y;
        CVqTableCommon::GetDirection(table.get(), x, y);
        EXPECT_EQ(x, turn.x);
        EXPECT_EQ(y, turn.y0);
        for (const int flow : {1, 2, -1}) {
            table->setFlowDirection(flow);
            CVqTableCommon::GetDirection(table.get(), x, y);
            EXPECT_EQ(x, turn.x);
            EXPECT_EQ(y, -turn.y0);
        }
    }
}

TEST(CellGeometry, The_transform_goes_from_the_tables_own_coordinates_to_the_world) {
    for (const Turn& turn : turns) {
        for (const int flow : {0, 1, 2, -1}) {
            SCOPED_TRACE(std::string(turn.what) + ", flow " + std::to_string(flow));
            auto table = makeSizedTable(flow);
            table->setDirection(turn.direction);
            table->setNormal(turn.normal);
            table->setPosition({1, 2, 3});
            KdGeMatrix3d matrix;
            CVqTableCommon::GetTableTransform(table.get(), matrix);
            EXPECT_EQ(matrix * KdGePoint3d(0, 0, 0), KdGePoint3d(1, 2, 3));
            EXPECT_EQ(matrix * KdGePoint3d(10, 5, 1), turn.transformed);
        }
    }
}

TEST(CellGeometry, Without_a_table_the_transform_stays) {
    KdGeMatrix3d matrix = KdGeMatrix3d::translation({4, 5, 6});
    CVqTableCommon::GetTableTransform(nullptr, matrix);
    EXPECT_TRUE(matrix.isEqualTo(KdGeMatrix3d::translation({4, 5, 6})));
}

TEST(CellGeometry, Grips_stand_in_the_middles_of_the_edges) {
    const auto table = makeSizedTable();
    const Range range{1, 1, 2, 2};
    KdGePoint3dArray points = arrayOf({{9, 9, 9}});
    CVqTableCommon::GetCellRangeGripPoints(table.get(), range, {}, points);
    EXPECT_EQ(list(points), (Points{{35, -5, 0}, {35, -21, 0}, {10, -13, 0}, {60, -13, 0}}));
    table->setFlowDirection(1);
    CVqTableCommon::GetCellRangeGripPoints(table.get(), range, {}, points);
    EXPECT_EQ(list(points), (Points{{35, 5, 0}, {35, 21, 0}, {10, 13, 0}, {60, 13, 0}}));
    CVqTableCommon::GetCellRangeGripPoints(table.get(), {0, 0, 0, 0}, KdGeMatrix3d::translation({1, 2, 3}), points);
    EXPECT_EQ(list(points), (Points{{6, 2, 3}, {6, 7, 3}, {1, 4.5, 3}, {11, 4.5, 3}}));
}

TEST(CellGeometry, Grips_lie_on_the_outline_of_the_cells_however_the_table_is_turned) {
    for (const Turn& turn : turns) {
        for (const int flow : {0, 1}) {
            SCOPED_TRACE(std::string(turn.what) + ", flow " + std::to_string(flow));
            auto table = makeSizedTable(flow);
            table->setDirection(turn.direction);
            table->setNormal(turn.normal);
            table->setPosition({-3, 8, 2});
            KdGeMatrix3d matrix;
            CVqTableCommon::GetTableTransform(table.get(), matrix);
            KdGePoint3dArray grips;
            CVqTableCommon::GetCellRangeGripPoints(table.get(), {1, 0, 2, 1}, matrix, grips);
            table->mergeCells(1, 2, 0, 1);
            KdGePoint3dArray corners;  // top left, top right, bottom left, bottom right
            table->getCellExtents(1, 0, true, corners);
            if (flow != 0) {  // the grips begin at the range's first row, which stands lowest then
                std::swap(corners[0], corners[2]);
                std::swap(corners[1], corners[3]);
            }
            EXPECT_EQ(list(grips), (Points{middle(corners[0], corners[1]), middle(corners[2], corners[3]),
                                           middle(corners[0], corners[2]), middle(corners[1], corners[3])}));
        }
    }
}

TEST(CellGeometry, CalcCellPointArray_makes_four_corners_of_two) {
    const auto table = makeSizedTable();
    KdGePoint3dArray out = arrayOf({{9, 9, 9}});
    CVqTableCommon::CalcCellPointArray(table.get(), arrayOf({{2, 3, 1}, {12, 9, 4}, {50, 50, 50}}), out);
    EXPECT_EQ(list(out), (Points{{9, 9, 9}, {2, 9, 4}, {12, 9, 4}, {2, 3, 1}, {12, 3, 1}}));
    out.setLogicalLength(0);
    CVqTableCommon::CalcCellPointArray(table.get(), arrayOf({{12, 3, 0}, {2, 9, 0}}), out);
    EXPECT_EQ(list(out), (Points{{-8, 9, 0}, {2, 9, 0}, {12, 3, 0}, {22, 3, 0}})) << "the distance has no sign";
    out.setLogicalLength(0);
    CVqTableCommon::CalcCellPointArray(table.get(), arrayOf({{1, 1, 1}}), out);
    EXPECT_EQ(out.length(), 0);
}

// ---- what texts need

class TextGeometry : public TableEdits {
protected:
    /// Changes the drawing's "Standard", which every new table has.
    template <class Change>
    void changeStyle(Change change) {
        const OpenObject<KdDbTableStyle> style(host.database().tablestyle(), KdDb::kForWrite);
        ASSERT_TRUE(style);
        change(*style);
    }
    std::unique_ptr<KdDbTable> makeStyled(int rows, int columns) {
        return TableBuilder(rows, columns).style(host.database().tablestyle()).build();
    }
    void setMargins(double horizontal, double vertical, const wchar_t* name) {
        changeStyle([&](KdDbTableStyle& style) {
            style.setMargin(KdDb::kCellMarginLeft, horizontal, name);
            style.setMargin(KdDb::kCellMarginTop, vertical, name);
        });
    }
};

TEST_F(TextGeometry, Margins_are_told_of_a_cell_and_of_a_style) {
    setMargins(2.5, 0.5, L"_HEADER");
    const auto table = makeStyled(3, 2);
    EXPECT_EQ(CVqTableCommon::GetHorzCellMarginFromTable(table.get(), 1, 0), 2.5);
    EXPECT_EQ(CVqTableCommon::GetVertCellMarginFromTable(table.get(), 1, 0), 0.5);
    EXPECT_EQ(CVqTableCommon::GetHorzCellMarginFromTable(table.get(), 2, 0), 1.5);
    const OpenObject<KdDbTableStyle> style(host.database().tablestyle(), KdDb::kForRead);
    EXPECT_EQ(CVqTableCommon::GetHorzCellMarginFromTableStyle(style.get(), L"_HEADER"), 2.5);
    EXPECT_EQ(CVqTableCommon::GetVertCellMarginFromTableStyle(style.get(), L"_HEADER"), 0.5);
    EXPECT_EQ(CVqTableCommon::GetVertCellMarginFromTableStyle(style.get(), L"_DATA"), 1.5);
}

TEST_F(TextGeometry, A_text_stands_by_its_alignment) {
    setMargins(2.0, 0.5, L"_DATA");
    setMargins(7.0, 3.0, L"_HEADER");
    auto table = makeStyled(3, 2);
    table->setCellStyle(2, 0, L"_HEADER");  // the margins of its neighbour don't matter to a cell
    // Width 40, height 10; x, and y with flow 0 and flow 1.
    struct Case {
        int alignment;
        double x;
        double down;
        double up;
    };
    const Case all[] = {
        {1, 2, -0.5, 9.5},  {2, 20, -0.5, 9.5}, {3, 38, -0.5, 9.5}, {4, 2, -5, 5},
        {5, 20, -5, 5},     {6, 38, -5, 5},     {7, 2, -9.5, 0.5},  {8, 20, -9.5, 0.5},
        {9, 38, -9.5, 0.5}, {0, 2, -0.5, 9.5},  {10, 2, -0.5, 9.5}, {-1, 2, -0.5, 9.5},
    };
    for (const Case& expected : all) {
        SCOPED_TRACE(expected.alignment);
        const auto alignment = static_cast<KdDb::CellAlignment>(expected.alignment);
        const auto place = [&](int flow) {
            table->setFlowDirection(flow);
            return CVqTableCommon::CalcTextPoint(table.get(), 2, 1, 40.0, 10.0, alignment);
        };
        EXPECT_EQ(place(0), KdGePoint3d(expected.x, expected.down, 0));
        EXPECT_EQ(place(1), KdGePoint3d(expected.x, expected.up, 0));
        EXPECT_EQ(place(2), KdGePoint3d(expected.x, expected.down, 0)) << "only a flow of 1 counts upwards";
    }
}

TEST_F(TextGeometry, The_first_row_needs_one_text_height_and_one_margin) {
    setMargins(2.0, 0.5, L"_TITLE");
    setMargins(4.0, 0.5, L"_DATA");
    auto table = makeStyled(3, 2);
    double width = -1.0;
    CVqTableCommon::GetCellFirstRowMinWidth(table.get(), width);
    EXPECT_EQ(width, 6.0 + 2.0) << "a title";
    table->setCellStyle(0, -1, L"_DATA");
    CVqTableCommon::GetCellFirstRowMinWidth(table.get(), width);
    EXPECT_EQ(width, 4.5 + 4.0) << "data";
    CVqTableCommon::GetTableMinWidth(table.get(), 7, width);
    EXPECT_EQ(width, 7 * 8.5);
}

TEST_F(TextGeometry, A_header_as_first_row_is_missed_and_measured_as_data) {
    setMargins(4.0, 0.5, L"_DATA");
    changeStyle([](KdDbTableStyle& style) { style.setTextHeight(30.0, L"_HEADER"); });
    auto table = makeStyled(3, 2);
    table->setCellStyle(0, -1, L"_HEADER");
    ASSERT_EQ(table->rowType(0), KdDb::kHeaderRow);
    double width = 0.0;
    CVqTableCommon::GetCellFirstRowMinWidth(table.get(), width);
    EXPECT_EQ(width, 4.5 + 4.0);
}

TEST_F(TextGeometry, The_first_row_needs_nothing_when_the_style_cannot_be_opened) {
    const auto table = makeStyled(3, 2);
    const OpenObject<KdDbTableStyle> writer(host.database().tablestyle(), KdDb::kForWrite);
    double width = -1.0;
    CVqTableCommon::GetCellFirstRowMinWidth(table.get(), width);
    EXPECT_EQ(width, 0.0);
    width = -1.0;
    CVqTableCommon::GetTableMinWidth(table.get(), 5, width);
    EXPECT_EQ(width, 0.0);
    width = -1.0;
    CVqTableCommon::GetCellFirstRowMinWidth(nullptr, width);
    EXPECT_EQ(width, 0.0);
}

TEST_F(TextGeometry, GetTableMinHeight_keeps_the_largest_text_height_from_row_to_row) {
    auto table = makeStyled(4, 2);
    for (int row = 0; row < 4; ++row) table->setCellStyle(row, -1, L"_DATA");
    table->setTextHeight(1, 1, 9.0);
    double height = 100.0;
    CVqTableCommon::GetTableMinHeight(table.get(), 4, 1, height);
    // 4.5 in the first row, 9 from the second on although the third and fourth are of 4.5.
    EXPECT_DOUBLE_EQ(height, 100.0 + (3.0 + 6.0) + 3 * (3.0 + 12.0));
    height = 0.0;
    CVqTableCommon::GetTableMinHeight(table.get(), 2, 3, height);
    EXPECT_DOUBLE_EQ(height, (3.0 + 3 * 6.0) + (3.0 + 3 * 12.0));
    height = 5.0;
    CVqTableCommon::GetTableMinHeight(table.get(), 0, 3, height);
    EXPECT_EQ(height, 5.0);
    CVqTableCommon::GetTableMinHeight(nullptr, 3, 3, height);
    EXPECT_EQ(height, 5.0);
}

TEST_F(TextGeometry, GetTableMinHeight_takes_the_vertical_margin_of_the_first_column) {
    setMargins(50.0, 2.0, L"_HEADER");
    auto table = makeStyled(1, 2);
    table->setCellStyle(0, 0, L"_HEADER");
    table->setCellStyle(0, 1, L"_DATA");
    double height = 0.0;
    CVqTableCommon::GetTableMinHeight(table.get(), 1, 1, height);
    EXPECT_DOUBLE_EQ(height, 4.0 + 6.0);
}

TEST_F(TextGeometry, GetTableMinHeight_takes_the_margin_of_each_row) {
    setMargins(1.0, 1.0, L"_TITLE");
    setMargins(1.0, 2.0, L"_HEADER");
    setMargins(1.0, 5.0, L"_DATA");
    auto table = makeStyled(3, 2);
    table->setTextHeight(-1, -1, 3.0);
    double height = 0.0;
    CVqTableCommon::GetTableMinHeight(table.get(), 3, 1, height);
    EXPECT_DOUBLE_EQ(height, (2.0 + 4.0) + (4.0 + 4.0) + (10.0 + 4.0));
}

}  // namespace
}  // namespace kdtest
