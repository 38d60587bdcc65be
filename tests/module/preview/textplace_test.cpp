// Places of texts in one cell of 100 by 40 with margins of 3 and 2, worked out by hand for every attachment, axis and
// quadrant: the letters 5 high, the text as wrapped 20 wide and 12 high. Slants are those of the triangle of 3, 4 and
// 5, so that sines and cosines are 0.6 and 0.8 and the text needs 20 * 0.6 + 12 * 0.8 + 2 * 2 = 25.6 of height.

#include "module/preview/textplace.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;
const double kSlant = std::asin(0.6);

SampleText text(double rotation, int attachment, int flowDirection) {
    SampleText result;
    result.sizes = {.cellWidth = 100.0,
                    .cellHeight = 40.0,
                    .horzMargin = 3.0,
                    .vertMargin = 2.0,
                    .textHeight = 12.0,
                    .textWidth = 20.0,
                    .capital = 5.0};
    result.rotation = rotation;
    result.attachment = attachment;
    result.flowDirection = flowDirection;
    return result;
}

TextFit fitOf(const SampleText& text) {
    const std::optional<unsigned> turns = quarterTurns(text.rotation);
    return turns ? fitOfUprightText(text, *turns) : fitOfSlantedText(text);
}

struct WorkedPlace {
    double x;
    double up;    ///< y where rows grow upwards
    double down;  ///< y where they grow downwards
};

struct Direction {
    const char* name;
    double rotation;
    std::array<WorkedPlace, 9> places;  ///< by attachment
};
void PrintTo(const Direction& direction, std::ostream* out) {
    *out << direction.name;
}

const Direction kDirections[] = {
    {"level",
     0.0,
     {{{3, 38, -2},
       {50, 38, -2},
       {97, 38, -2},
       {3, 20, -20},
       {50, 20, -20},
       {97, 20, -20},
       {3, 2, -38},
       {50, 2, -38},
       {97, 2, -38}}}},
    {"running_up",
     kPi / 2.0,
     {{{3, 2, -38},
       {44, 20, -20},
       {85, 38, -2},
       {9, 2, -38},
       {50, 20, -20},
       {91, 38, -2},
       {15, 2, -38},
       {56, 20, -20},
       {97, 38, -2}}}},
    {"on_its_head",
     kPi,
     {{{23.1, 26, -14},
       {50, 26, -14},
       {76.9, 26, -14},
       {23.1, 20, -20},
       {50, 20, -20},
       {76.9, 20, -20},
       {23.1, 14, -26},
       {50, 14, -26},
       {76.9, 14, -26}}}},
    {"running_down",
     3.0 * kPi / 2.0,
     {{{15, 38, -2},
       {56, 20, -20},
       {97, 2, -38},
       {9, 38, -2},
       {50, 20, -20},
       {91, 2, -38},
       {3, 38, -2},
       {44, 20, -20},
       {85, 2, -38}}}},
    {"first_quadrant",
     kSlant,
     {{{3, 6, -19.6},
       {48.5, 14.8, -10.8},
       {94, 23.6, -2},
       {4.5, 4, -21.6},
       {50, 12.8, -12.8},
       {95.5, 21.6, -4},
       {6, 2, -23.6},
       {51.5, 10.8, -10.8},
       {97, 19.6, -6}}}},
    {"second_quadrant",
     kPi - kSlant,
     {{{19, 2, -23.6},
       {48.5, 10.8, -14.8},
       {78, 14, -11.6},
       {20.5, 4, -21.6},
       {50, 12.8, -12.8},
       {79.5, 16, -9.6},
       {22, 6, -19.6},
       {51.5, 10.8, -10.8},
       {81, 18, -7.6}}}},
    {"third_quadrant",
     kPi + kSlant,
     {{{22, 19.6, -6},
       {51.5, 10.8, -14.8},
       {81, 2, -23.6},
       {20.5, 21.6, -4},
       {50, 12.8, -12.8},
       {79.5, 12.24, -21.6},
       {19, 23.6, -2},
       {48.5, 14.8, -10.8},
       {78, 6, -19.6}}}},
    {"fourth_quadrant",
     2.0 * kPi - kSlant,
     {{{6, 23.6, -2},
       {51.5, 14.8, -10.8},
       {97, 6, -19.6},
       {4.5, 21.6, -4},
       {50, 12.8, -12.8},
       {95.5, 4, -21.6},
       {3, 19.6, -6},
       {48.5, 10.8, -14.8},
       {94, 2, -23.6}}}},
};

class TextPlaces : public ::testing::TestWithParam<Direction> {};

INSTANTIATE_TEST_SUITE_P(Directions, TextPlaces, ::testing::ValuesIn(kDirections),
                         [](const auto& info) { return info.param.name; });

TEST_P(TextPlaces, Of_each_attachment_are_those_worked_out_by_hand_in_both_flows) {
    for (int attachment = 1; attachment <= 9; ++attachment) {
        const WorkedPlace& place = GetParam().places.at(static_cast<std::size_t>(attachment - 1));
        for (const auto& [flow, y] : {std::pair{1, place.up}, std::pair{0, place.down}, std::pair{2, place.down}}) {
            const KdGeVector3d seen = fitOf(text(GetParam().rotation, attachment, flow)).offset;
            EXPECT_NEAR(seen.x, place.x, 1e-9) << "attachment " << attachment << " flow " << flow;
            EXPECT_NEAR(seen.y, y, 1e-9) << "attachment " << attachment << " flow " << flow;
            EXPECT_EQ(seen.z, 0.0);
        }
    }
}

TEST(TextRoom, Is_what_lines_need_across_and_one_letter_along_with_both_margins) {
    for (const double rotation : {0.0, kPi}) {
        const TextFit fit = fitOf(text(rotation, 5, 0));
        EXPECT_DOUBLE_EQ(fit.width, 11.0) << rotation;
        EXPECT_DOUBLE_EQ(fit.height, 16.0) << rotation;
    }
    for (const double rotation : {kPi / 2.0, 3.0 * kPi / 2.0}) {
        const TextFit fit = fitOf(text(rotation, 5, 0));
        EXPECT_DOUBLE_EQ(fit.width, 18.0) << rotation;
        EXPECT_DOUBLE_EQ(fit.height, 9.0) << rotation;
    }
}

TEST(TextRoom, At_a_slant_is_the_cells_width_and_the_height_of_the_turned_text) {
    for (const double rotation : {kSlant, kPi - kSlant, kPi + kSlant, 2.0 * kPi - kSlant}) {
        const TextFit fit = fitOf(text(rotation, 5, 0));
        EXPECT_EQ(fit.width, 100.0) << rotation;
        EXPECT_NEAR(fit.height, 25.6, 1e-9) << rotation;
    }
}

TEST(TextPlace, Of_what_is_none_of_the_nine_attachments_is_the_upper_left_along_an_axis_and_the_corner_at_a_slant) {
    for (const int attachment : {-1, 0, 10, 100}) {
        const KdGeVector3d level = fitOf(text(0.0, attachment, 0)).offset;
        EXPECT_TRUE(level.isEqualTo({3.0, -2.0, 0.0})) << attachment;
        const TextFit slanted = fitOf(text(kSlant, attachment, 0));
        EXPECT_TRUE(slanted.offset.isEqualTo({0.0, 0.0, 0.0})) << attachment;
        EXPECT_NEAR(slanted.height, 25.6, 1e-9) << attachment;
    }
}

TEST(TextPlace, Of_a_slant_that_lies_exactly_on_an_axis_is_the_corner) {
    for (const double rotation : {0.0, kPi / 2.0, kPi, 3.0 * kPi / 2.0, 2.0 * kPi}) {
        EXPECT_TRUE(fitOfSlantedText(text(rotation, 5, 1)).offset.isEqualTo({0.0, 0.0, 0.0})) << rotation;
    }
}

TEST(QuarterTurns, Are_told_within_a_millionth_on_either_side_and_beyond_a_whole_turn) {
    for (int turns = -9; turns <= 9; ++turns) {
        const double axis = turns * kPi / 2.0;
        const auto quarter = static_cast<unsigned>((turns + 12) % 4);
        for (const double off : {-0.9e-6, 0.0, 0.9e-6}) EXPECT_EQ(quarterTurns(axis + off), quarter) << axis + off;
        for (const double off : {-0.7, -1.1e-6, 1.1e-6, 0.7}) EXPECT_FALSE(quarterTurns(axis + off)) << axis + off;
    }
}

}  // namespace
