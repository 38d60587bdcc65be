// Texts of several lines: the box they are meant for, their direction, the fill behind them.

#include <gtest/gtest.h>

#include <cmath>

#include "kd/db/mtext.h"
#include "tests/support/angles.h"

namespace {

TEST(MTextBox, the_height_is_kept_and_a_negative_one_refused) {
    KdDbMText text;
    EXPECT_EQ(text.height(), 0.0);
    EXPECT_EQ(text.setHeight(12.5), Kdad::eOk);
    EXPECT_EQ(text.setHeight(-1.0), Kdad::eInvalidInput);
    EXPECT_EQ(text.setHeight(std::nan("")), Kdad::eInvalidInput);
    EXPECT_EQ(text.height(), 12.5);
    EXPECT_EQ(text.transformBy(KdGeMatrix3d::scaling(2.0, {})), Kdad::eOk);
    EXPECT_EQ(text.height(), 25.0);
}

TEST(MTextBox, the_direction_is_the_rotation_told_as_a_vector) {
    KdDbMText text;
    EXPECT_TRUE(text.direction().isEqualTo({1.0, 0.0, 0.0}, 1e-12));
    text.setRotation(kdtest::halfPi);
    EXPECT_TRUE(text.direction().isEqualTo({0.0, 1.0, 0.0}, 1e-12));
    EXPECT_EQ(text.setDirection({-3.0, 0.0, 0.0}), Kdad::eOk);
    EXPECT_NEAR(std::abs(text.rotation()), 2.0 * kdtest::halfPi, 1e-12);
    kddbSetMtextRotation(&text, 0.25);
    EXPECT_EQ(text.rotation(), 0.25);
    kddbSetMtextRotation(nullptr, 0.25);
}

TEST(MTextBox, only_the_part_of_a_direction_in_the_plane_counts) {
    KdDbMText text;
    EXPECT_EQ(text.setDirection({0.0, 2.0, 7.0}), Kdad::eOk);
    EXPECT_NEAR(text.rotation(), kdtest::halfPi, 1e-12);
    EXPECT_EQ(text.setDirection({0.0, 0.0, 1.0}), Kdad::eInvalidInput);
    EXPECT_EQ(text.setDirection({0.0, 0.0, 0.0}), Kdad::eInvalidInput);
    EXPECT_NEAR(text.rotation(), kdtest::halfPi, 1e-12);
}

TEST(MTextBox, in_a_turned_plane_the_direction_is_still_a_world_vector) {
    KdDbMText text;
    text.setNormal({0.0, -1.0, 0.0});
    EXPECT_EQ(text.setDirection({0.0, 0.0, 1.0}), Kdad::eOk);
    EXPECT_TRUE(text.direction().isEqualTo({0.0, 0.0, 1.0}, 1e-12));
}

TEST(MTextBox, keeps_which_way_its_characters_run_and_refuses_others) {
    KdDbMText text;
    for (const auto flow : {KdDbMText::kLtoR, KdDbMText::kTtoB, KdDbMText::kByStyle}) {
        EXPECT_EQ(text.setFlowDirection(flow), Kdad::eOk);
        EXPECT_EQ(text.flowDirection(), flow);
    }
    EXPECT_EQ(text.setFlowDirection(static_cast<KdDbMText::FlowDirection>(2)), Kdad::eInvalidInput);
    EXPECT_EQ(text.flowDirection(), KdDbMText::kByStyle);
    KdDbMText copy;
    EXPECT_EQ(copy.copyFrom(&text), Kdad::eOk);
    EXPECT_EQ(copy.flowDirection(), KdDbMText::kByStyle);
}

TEST(MTextBackground, a_new_text_has_no_fill) {
    const KdDbMText text;
    EXPECT_FALSE(text.backgroundFillOn());
    EXPECT_FALSE(text.useBackgroundColorOn());
}

TEST(MTextBackground, the_fill_keeps_what_it_is_given) {
    KdDbMText text;
    EXPECT_EQ(text.setBackgroundFill(true), Kdad::eOk);
    EXPECT_EQ(text.setBackgroundFillColor(KdCmColor::fromRgb(1, 2, 3)), Kdad::eOk);
    EXPECT_EQ(text.setUseBackgroundColor(true), Kdad::eOk);
    EXPECT_TRUE(text.backgroundFillOn());
    EXPECT_TRUE(text.useBackgroundColorOn());
    EXPECT_EQ(text.backgroundFillColor(), KdCmColor::fromRgb(1, 2, 3));
}

TEST(MTextBackground, the_fill_reaches_one_to_five_times) {
    KdDbMText text;
    for (const double good : {1.0, 1.5, 5.0}) {
        EXPECT_EQ(text.setBackgroundScaleFactor(good), Kdad::eOk);
        EXPECT_EQ(text.backgroundScaleFactor(), good);
    }
    for (const double bad : {0.0, 0.99, 5.01, std::nan("")}) {
        EXPECT_EQ(text.setBackgroundScaleFactor(bad), Kdad::eInvalidInput);
        EXPECT_EQ(text.backgroundScaleFactor(), 5.0);
    }
}

}  // namespace
