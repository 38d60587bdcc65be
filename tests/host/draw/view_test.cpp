// World coordinates to pixels and back.

#include "host/draw/view.h"

#include <gtest/gtest.h>

#include <random>

using kdhost::draw::View;

namespace {

KdDbExtents box(double x0, double y0, double x1, double y1) {
    return {{x0, y0, 0.0}, {x1, y1, 0.0}};
}

TEST(View, y_runs_downwards_on_the_screen) {
    View view(200.0, 100.0);
    view.zoomExtents(box(0.0, 0.0, 20.0, 10.0), 0.0);
    EXPECT_DOUBLE_EQ(view.scale(), 10.0);
    EXPECT_EQ(view.toPixels({0.0, 10.0, 0.0}), QPointF(0.0, 0.0));
    EXPECT_EQ(view.toPixels({20.0, 0.0, 0.0}), QPointF(200.0, 100.0));
}

TEST(View, extents_fit_with_their_margin_and_stand_in_the_middle) {
    View view(220.0, 120.0);
    view.zoomExtents(box(100.0, 100.0, 102.0, 110.0), 10.0);
    EXPECT_DOUBLE_EQ(view.scale(), 10.0);
    EXPECT_EQ(view.toPixels({101.0, 110.0, 0.0}), QPointF(110.0, 10.0));
    EXPECT_EQ(view.toPixels({101.0, 100.0, 0.0}), QPointF(110.0, 110.0));
}

TEST(View, a_point_comes_to_the_middle_and_keeps_the_scale) {
    View view(100.0, 100.0);
    view.zoomExtents(box(0.0, 0.0, 10.0, 10.0), 0.0);
    view.zoomExtents(box(70.0, 70.0, 70.0, 70.0), 5.0);
    EXPECT_DOUBLE_EQ(view.scale(), 10.0);
    EXPECT_EQ(view.toPixels({70.0, 70.0, 0.0}), QPointF(50.0, 50.0));
}

TEST(View, invalid_extents_change_nothing) {
    View view(100.0, 100.0);
    view.zoomExtents(box(0.0, 0.0, 10.0, 10.0), 0.0);
    view.zoomExtents({}, 5.0);
    EXPECT_EQ(view.toPixels({5.0, 5.0, 0.0}), QPointF(50.0, 50.0));
}

TEST(View, a_line_along_an_axis_fits_by_its_length) {
    View view(120.0, 50.0);
    view.zoomExtents(box(0.0, 3.0, 10.0, 3.0), 10.0);
    EXPECT_DOUBLE_EQ(view.scale(), 10.0);
    EXPECT_EQ(view.toPixels({0.0, 3.0, 0.0}), QPointF(10.0, 25.0));
}

TEST(View, pan_moves_the_drawing_with_the_hand) {
    View view(100.0, 100.0);
    const QPointF before = view.toPixels({3.0, 4.0, 0.0});
    view.pan(7.0, -2.0);
    EXPECT_EQ(view.toPixels({3.0, 4.0, 0.0}), before + QPointF(7.0, -2.0));
}

TEST(View, zoom_keeps_the_place_under_the_mouse) {
    View view(640.0, 480.0);
    const QPointF mouse(100.0, 50.0);
    const KdGePoint3d under = view.toWorld(mouse);
    view.zoom(1.25, mouse);
    EXPECT_DOUBLE_EQ(view.scale(), 1.25);
    EXPECT_NEAR(view.toPixels(under).x(), mouse.x(), 1e-9);
    EXPECT_NEAR(view.toPixels(under).y(), mouse.y(), 1e-9);
}

TEST(View, a_senseless_factor_changes_nothing) {
    View view(100.0, 100.0);
    for (const double factor : {0.0, -1.0, 1e300, 1e-300, std::nan("")}) view.zoom(factor, {10.0, 10.0});
    EXPECT_DOUBLE_EQ(view.scale(), 1.0);
}

TEST(View, resizing_keeps_the_middle) {
    View view(100.0, 100.0);
    view.pan(13.0, 5.0);
    const KdGePoint3d middle = view.toWorld({50.0, 50.0});
    view.resize(300.0, 200.0);
    EXPECT_EQ(view.toPixels(middle), QPointF(150.0, 100.0));
    view.resize(-5.0, 0.0);
    EXPECT_EQ(view.widthPixels(), 1.0);
    EXPECT_EQ(view.heightPixels(), 1.0);
}

TEST(View, there_and_back_is_where_it_was) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> any(-1000.0, 1000.0);
    View view(800.0, 600.0);
    for (int round = 0; round < 1000; ++round) {
        view.pan(any(random), any(random));
        view.zoom(std::exp(any(random) / 2000.0), {any(random), any(random)});
        const QPointF pixels(any(random), any(random));
        const QPointF back = view.toPixels(view.toWorld(pixels));
        ASSERT_NEAR(back.x(), pixels.x(), 1e-5);
        ASSERT_NEAR(back.y(), pixels.y(), 1e-5);
    }
}

}  // namespace
