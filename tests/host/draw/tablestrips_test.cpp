// Tables draw what is seen of them: the picture is the same as that of the whole table, at the cost of its pixels.

#include "host/draw/tablestrips.h"

#include <QImage>

#include "host/draw/paint.h"
#include "host/draw/view.h"
#include "tests/host/draw/drawing.h"
#include "tests/support/tablebuilder.h"

namespace {

using namespace kdhost::draw;
using kdtest::painted;
using kdtest::TableBuilder;

Visible visibleIn(const View& view) {
    const KdGePoint3d low = view.toWorld({0.0, view.heightPixels()});
    const KdGePoint3d high = view.toWorld({view.widthPixels(), 0.0});
    return {low.x, low.y, high.x, high.y, 1.0 / view.scale()};
}

class SeenPart : public ::testing::Test {
protected:
    void addTable(KdGeVector3d direction = KdGeVector3d::kXAxis, int flow = 0) {
        auto table = TableBuilder(60, 12).fill().merge("B2:D30").merge("F40:F60").merge("A35:L35").build();
        table->setTableStyle(drawing.database.tablestyle());
        table->setDirection(direction);
        table->setFlowDirection(flow);
        for (int row = 0; row < 60; row += 3) table->setBackgroundColor(row, 4, KdCmColor::fromRgb(200, 220, 240));
        drawing.add(std::move(table));
    }

    /// The part looked at, as the whole table and as what is seen of it.
    void expectSamePicture(const View& view) const {
        Options options;
        options.selections = true;
        const Primitives whole = drawing.primitives(options);
        options.visible = visibleIn(view);
        const Primitives part = drawing.primitives(options);
        EXPECT_EQ(painted(part, view), painted(whole, view));
        EXPECT_LT(part.size(), whole.size());
    }

    View viewAt(double x, double y, double width) const {
        View view(400.0, 300.0);
        view.zoomExtents({{x, y, 0.0}, {x + width, y + 0.75 * width, 0.0}}, 0.0);
        return view;
    }

    kdtest::Drawing drawing;
};

TEST_F(SeenPart, looks_as_the_whole_table_does_there) {
    addTable();
    const KdDbExtents box = extentsOf(drawing.primitives());
    const double width = box.maxPoint().x - box.minPoint().x;
    const double height = box.maxPoint().y - box.minPoint().y;
    for (const double x : {-0.05, 0.2, 0.5, 0.9}) {
        for (const double y : {-0.02, 0.3, 0.6, 0.95}) {
            SCOPED_TRACE(testing::Message() << x << "," << y);
            expectSamePicture(viewAt(box.minPoint().x + x * width, box.minPoint().y + y * height, 0.4 * width));
        }
    }
}

TEST_F(SeenPart, looks_the_same_in_a_turned_table_and_one_that_runs_upwards) {
    for (const int flow : {0, 1}) addTable({0.6, 0.8, 0.0}, flow);
    const KdDbExtents box = extentsOf(drawing.primitives());
    const KdGePoint3d middle = box.minPoint() + (box.maxPoint() - box.minPoint()) * 0.5;
    expectSamePicture(viewAt(middle.x - 300.0, middle.y - 300.0, 150.0));
    expectSamePicture(viewAt(middle.x, middle.y, 150.0));
}

TEST_F(SeenPart, of_a_selected_table_shows_its_indicators) {
    auto table = TableBuilder(60, 12).fill().build();
    table->setTableStyle(drawing.database.tablestyle());
    table->setSubSelection({2, 1, 5, 3});
    drawing.add(std::move(table));
    expectSamePicture(viewAt(-20.0, -120.0, 160.0));
    expectSamePicture(viewAt(100.0, -60.0, 160.0));
}

TEST_F(SeenPart, is_empty_where_the_table_is_not) {
    addTable();
    Options options;
    options.visible = visibleIn(viewAt(1e5, 1e5, 100.0));
    EXPECT_TRUE(drawing.primitives(options).empty());
}

TEST_F(SeenPart, of_a_table_of_any_length_is_no_more_than_its_pixels) {
    auto table = TableBuilder(20000, 8).build();
    table->setTableStyle(drawing.database.tablestyle());
    for (int row = 0; row < 20000; ++row) table->setTextString(row, row % 8, L"text");
    drawing.add(std::move(table));
    for (const double share : {1.0, 0.1, 0.01}) {
        View view(400.0, 300.0);
        const KdDbExtents box(KdGePoint3d(0.0, -180000.0 * share, 0.0), KdGePoint3d(300.0, 0.0, 0.0));
        view.zoomExtents(box, 0.0);
        Options options;
        options.visible = visibleIn(view);
        EXPECT_LT(drawing.primitives(options).size(), 5000u) << share;
    }
}

TEST(TableStrips, run_without_gaps_over_what_is_seen) {
    auto table = TableBuilder(1000, 5).build();
    const TableGeometry geometry(*table);
    for (const double unitsPerPixel : {0.1, 3.0, 40.0, 5000.0}) {
        const double low = -geometry.rowEdge(700);
        const TableStrips strips = stripsOf(geometry, Visible{10.0, low, 100.0, -geometry.rowEdge(200), unitsPerPixel});
        ASSERT_FALSE(strips.rows.isEmpty());
        EXPECT_LE(strips.rows.at(0).first, 200);
        EXPECT_GE(strips.rows.at(strips.rows.count() - 1).last, 699);
        for (int i = 1; i < strips.rows.count(); ++i) {
            EXPECT_EQ(strips.rows.at(i).first, strips.rows.at(i - 1).last + 1);
            const double size = geometry.rowEdge(strips.rows.behind(i)) - geometry.rowEdge(strips.rows.behind(i - 1));
            EXPECT_TRUE(size >= 2.0 * unitsPerPixel || strips.rows.at(i - 1).isSingle());
        }
    }
}

}  // namespace
