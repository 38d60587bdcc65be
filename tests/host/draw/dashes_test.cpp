// Dash patterns begin where the line does, whatever part of it is seen.

#include <QImage>

#include "host/draw/entitydrawing.h"
#include "host/draw/paint.h"
#include "host/draw/view.h"
#include "tests/host/draw/drawing.h"
#include "tests/support/tablebuilder.h"

namespace {

using namespace kdhost::draw;
using kdtest::painted;

constexpr int kWidth = 400;
constexpr int kHeight = 300;

Options seenIn(const View& view) {
    const KdGePoint3d low = view.toWorld({0.0, view.heightPixels()});
    const KdGePoint3d high = view.toWorld({view.widthPixels(), 0.0});
    Options options;
    options.visible = Visible{low.x, low.y, high.x, high.y, 1.0 / view.scale()};
    return options;
}

Primitives dashedLine(const KdGePoint3d& from, const KdGePoint3d& to) {
    return {Polyline{{from, to}, {.foreground = true}, 0, {13.0, 6.0, 0.0, 6.0}}};
}

bool isInk(const QImage& image, int x, int y) {
    return image.pixelColor(x, y).lightness() < 128;
}

int inkIn(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += isInk(image, x, y) ? 1 : 0;
    }
    return count;
}

/// The largest difference of two pixels in the same place, of 255.
int farthestApart(const QImage& a, const QImage& b) {
    int farthest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            farthest = std::max(farthest, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
        }
    }
    return farthest;
}

/// The picture after a pan is the one before, moved by the same pixels.
void expectMoved(const QImage& before, const QImage& after, int dx, int dy) {
    const QRect common = before.rect().intersected(before.rect().translated(-dx, -dy));
    EXPECT_LE(farthestApart(after.copy(common.translated(dx, dy)), before.copy(common)), 8) << dx << "," << dy;
    EXPECT_GT(inkIn(before.copy(common)), 0) << dx << "," << dy;
}

TEST(Dashes, move_with_the_hand_that_pans) {
    for (const KdGePoint3d& to : {KdGePoint3d(1e4, 0, 0), KdGePoint3d(0, -1e4, 0), KdGePoint3d(8e3, 6e3, 0)}) {
        const Primitives line = dashedLine({-3.3, 2.2, 0.0}, to);
        const View view(kWidth, kHeight);
        const QImage before = painted(line, view);
        for (const QPoint& hand : {QPoint(-90, 0), QPoint(0, 77), QPoint(-131, -101)}) {
            View moved = view;
            moved.pan(hand.x(), hand.y());
            expectMoved(before, painted(line, moved), hand.x(), hand.y());
        }
    }
}

TEST(Dashes, are_told_apart_on_a_line_of_any_length) {
    View view(kWidth, kHeight);
    for (const double length : {1e3, 1e6, 1e9}) {
        const QImage image = painted(dashedLine({-length, 0.0, 0.0}, {length, 0.0, 0.0}), view);
        int ink = 0;
        for (int x = 0; x < kWidth; ++x)
            ink += isInk(image, x, kHeight / 2) || isInk(image, x, kHeight / 2 - 1) ? 1 : 0;
        // 13 and a dot of a pixel in 26.
        const int expected = kWidth * 14 / 26;
        EXPECT_NEAR(ink, expected, 30) << length;
    }
}

TEST(Dashes, begin_with_the_first_dash_at_the_start) {
    View view(kWidth, kHeight);
    const QImage image = painted(dashedLine({-100.0, 0.25, 0.0}, {100.0, 0.25, 0.0}), view);
    const auto isDash = [&](int x) { return isInk(image, x, kHeight / 2) || isInk(image, x, kHeight / 2 - 1); };
    EXPECT_FALSE(isDash(98));
    EXPECT_TRUE(isDash(101));
    EXPECT_TRUE(isDash(111));
    EXPECT_FALSE(isDash(116));
}

TEST(Dashes, of_a_part_of_a_block_grow_with_it) {
    Primitives primitives = dashedLine({0.0, 0.0, 0.0}, {10.0, 0.0, 0.0});
    std::get<Polyline>(primitives[0]).dashStart = 4.0;
    transform(primitives, KdGeMatrix3d::scaling(3.0, {0.0, 0.0, 0.0}));
    EXPECT_EQ(std::get<Polyline>(primitives[0]).dashStart, 12.0);
    EXPECT_EQ(std::get<Polyline>(primitives[0]).dashes[0], 39.0);
}

class DashesOfTables : public ::testing::Test {
protected:
    DashesOfTables() {
        auto table = kdtest::TableBuilder(700, 30).merge("B2:D30").merge("F40:F60").merge("A35:L35").build();
        table->setTableStyle(drawing.database.tablestyle());
        const KdDbObjectId dashed = drawing.addLinetype(L"dashes", {7.0, -4.0});
        for (int row = 0; row < 700; ++row) {
            for (const int column : {1, 6, 20}) {
                for (const auto edge : {KdDb::kHorzTop, KdDb::kVertLeft})
                    table->setGridLinetype(row, column, edge, dashed);
            }
        }
        for (int column = 0; column < 30; ++column) table->setGridLinetype(300, column, KdDb::kHorzTop, dashed);
        drawing.add(std::move(table));
    }

    View viewAt(double x, double y) const {
        View view(kWidth, kHeight);
        view.pan(-x, y);
        return view;
    }

    kdtest::Drawing drawing;
};

TEST_F(DashesOfTables, look_in_a_part_as_in_the_whole) {
    for (const double x : {0.0, 150.5, 700.0}) {
        for (const double y : {-100.0, -1234.5, -2715.0, -6000.0}) {
            const View view = viewAt(x, y);
            const Primitives part = drawing.primitives(seenIn(view));
            EXPECT_EQ(painted(part, view), painted(drawing.primitives(), view)) << x << "," << y;
            EXPECT_FALSE(part.empty());
        }
    }
}

TEST_F(DashesOfTables, move_with_the_hand_that_pans) {
    const View view = viewAt(200.0, -1500.0);
    const QImage before = painted(drawing.primitives(seenIn(view)), view);
    for (const QPoint& hand : {QPoint(-60, 0), QPoint(0, -83), QPoint(45, 61)}) {
        View moved = view;
        moved.pan(hand.x(), hand.y());
        expectMoved(before, painted(drawing.primitives(seenIn(moved)), moved), hand.x(), hand.y());
    }
}

}  // namespace
