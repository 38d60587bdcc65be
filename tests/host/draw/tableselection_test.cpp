// How a drawn table shows its selected cells.

#include <algorithm>

#include "kd/db/table.h"
#include "tests/host/draw/drawing.h"

using namespace kdhost::draw;
using kdtest::only;

namespace {

/// Four rows of 20, three columns of 60 units.
class DrawnSelection : public ::testing::Test {
protected:
    DrawnSelection() {
        table.setSize(4, 3);
        table.setRowHeight(20.0);
        table.setColumnWidth(60.0);
        band = 2.0 * table.textHeight(KdDb::kDataRow);
    }
    Primitives drawn() const { return primitivesOf(table, {false, true}); }
    /// The box of the selection frame: the last line, closed and thick.
    KdDbExtents frame() const {
        const auto lines = only<Polyline>(drawn());
        KdDbExtents extents;
        if (lines.empty() || lines.back().points.size() != 5) return extents;
        for (const KdGePoint3d& point : lines.back().points) extents.addPoint(point);
        return extents;
    }
    void expectFrame(double left, double bottom, double right, double top) const {
        const KdDbExtents extents = frame();
        ASSERT_TRUE(extents.isValid());
        EXPECT_TRUE(extents.minPoint().isEqualTo({left, bottom, 0.0}, 1e-9));
        EXPECT_TRUE(extents.maxPoint().isEqualTo({right, top, 0.0}, 1e-9));
    }

    KdDbTable table;
    double band = 0.0;
};

TEST_F(DrawnSelection, shows_nothing_without_selected_cells_or_when_not_asked) {
    const std::size_t bare = drawn().size();
    table.setSubSelection(1, 1, 1, 1);
    EXPECT_EQ(primitivesOf(table, {}).size(), bare);
    EXPECT_GT(drawn().size(), bare);
    table.clearSubSelection();
    EXPECT_EQ(drawn().size(), bare);
}

TEST_F(DrawnSelection, frames_the_selected_cells) {
    table.setSubSelection(1, 2, 0, 1);
    expectFrame(0, -60, 120, -20);
}

struct RangeCase {
    KdCellRange selected;  ///< top, left, bottom, right
    KdDbExtents framed;
};

TEST_F(DrawnSelection, frames_whole_rows_columns_reversed_and_overlong_ranges) {
    const RangeCase cases[] = {{{1, -1, 2, -1}, {{0, -60, 0}, {180, -20, 0}}},
                               {{-1, 1, -1, 1}, {{60, -80, 0}, {120, 0, 0}}},
                               {{2, 1, 1, 0}, {{0, -60, 0}, {120, -20, 0}}},
                               {{3, 2, 99, 99}, {{120, -80, 0}, {180, -60, 0}}}};
    for (const RangeCase& range : cases) {
        table.setSubSelection(range.selected);
        expectFrame(range.framed.minPoint().x, range.framed.minPoint().y, range.framed.maxPoint().x,
                    range.framed.maxPoint().y);
    }
}

TEST_F(DrawnSelection, takes_in_a_merge_that_it_cuts) {
    table.mergeCells(1, 2, 1, 2);
    table.setSubSelection(2, 3, 0, 1);
    expectFrame(0, -80, 180, -20);
}

TEST_F(DrawnSelection, has_a_grip_in_the_middle_of_each_side) {
    table.setSubSelection(1, 1, 1, 1);
    const auto polygons = only<Polygon>(drawn());
    ASSERT_EQ(polygons.size(), 3U + 4U + 4U) << "an indicator for each column and row, and the grips";
    const KdGePoint3d middles[] = {{90, -20, 0}, {60, -30, 0}, {120, -30, 0}, {90, -40, 0}};
    for (std::size_t i = 0; i < 4; ++i) {
        const KdDbExtents extents = extentsOf({polygons[7 + i]});
        EXPECT_NEAR(0.5 * (extents.minPoint().x + extents.maxPoint().x), middles[i].x, 1e-9);
        EXPECT_NEAR(0.5 * (extents.minPoint().y + extents.maxPoint().y), middles[i].y, 1e-9);
    }
}

TEST_F(DrawnSelection, indicators_are_bands_outside_the_first_row_and_column) {
    table.setSubSelection(1, 1, 2, 2);
    const auto polygons = only<Polygon>(drawn());
    for (int column = 0; column < 3; ++column) {
        const KdDbExtents extents = extentsOf({polygons[static_cast<std::size_t>(column)]});
        EXPECT_TRUE(extents.minPoint().isEqualTo({60.0 * column, 0.0, 0.0}, 1e-9));
        EXPECT_TRUE(extents.maxPoint().isEqualTo({60.0 * column + 60.0, band, 0.0}, 1e-9));
    }
    for (int row = 0; row < 4; ++row) {
        const KdDbExtents extents = extentsOf({polygons[3 + static_cast<std::size_t>(row)]});
        EXPECT_TRUE(extents.minPoint().isEqualTo({-band, -20.0 * row - 20.0, 0.0}, 1e-9));
        EXPECT_TRUE(extents.maxPoint().isEqualTo({0.0, -20.0 * row, 0.0}, 1e-9));
    }
    EXPECT_EQ(polygons[0].color, polygons[1].color);
    EXPECT_NE(polygons[0].color, polygons[2].color) << "the selected column's stands out";
    EXPECT_NE(polygons[3].color, polygons[4].color) << "and the selected row's";
}

TEST_F(DrawnSelection, indicators_bear_letters_and_numbers_that_fit) {
    table.setSubSelection(0, 0, 0, 0);
    const auto texts = only<Text>(drawn());
    std::vector<std::wstring> labels;
    for (const Text& text : texts) labels.push_back(text.text);
    EXPECT_EQ(labels, (std::vector<std::wstring>{L"A", L"B", L"C", L"1", L"2", L"3", L"4"}));
    EXPECT_NEAR(texts[0].origin.x + 0.5 * texts[0].width, 30.0, 1e-9);
    EXPECT_NEAR(texts[0].origin.y + 0.5 * texts[0].height, 0.5 * band, 1e-9);
    EXPECT_NEAR(texts[3].origin.x + 0.5 * texts[3].width, -0.5 * band, 1e-9);
}

TEST_F(DrawnSelection, a_long_number_is_written_smaller) {
    table.setSize(12000, 1);
    table.setSubSelection(0, 0, 0, 0);
    const auto texts = only<Text>(drawn());
    EXPECT_EQ(texts.back().text, L"12000");
    EXPECT_LE(texts.back().width, band);
    EXPECT_LT(texts.back().height, texts.front().height);
}

}  // namespace
