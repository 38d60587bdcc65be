// Whether the looks of edges agree.

#include <gtest/gtest.h>

#include <array>

#include "module/style/edgelooks.h"

namespace kdtest {
namespace {

constexpr int kEdgeCount = 6;

/// That many edges, all alike.
EdgeLooks alike(int count) {
    EdgeLooks looks;
    for (int edge = 0; edge < count; ++edge) {
        looks.lineWeights.Add(KdDb::kLnWt050);
        looks.linetypes.Add(KdDbObjectId(7));
        looks.colors.Add(KdCmColor::fromIndex(3));
        looks.lineStyles.Add(KdDb::kGridLineStyleDouble);
        looks.spacings.Add(0.5);
    }
    return looks;
}

/// What each of the five tests says, in the order of the struct's fields.
std::array<bool, 5> agreements(const EdgeLooks& looks) {
    return {looks.IsLineWeightUnification(), looks.IsLineTypeUnification(), looks.IsCmColorUnification(),
            looks.IsGridLineStyleUnification(), looks.IsSpacingUnification()};
}
constexpr std::array kAllAgree = {true, true, true, true, true};
constexpr std::array kNoneAgrees = {false, false, false, false, false};

TEST(EdgeLooksAgreement, Needs_exactly_one_look_for_each_of_the_six_edges) {
    for (int count = 0; count <= 3 * kEdgeCount; ++count) {
        EXPECT_EQ(agreements(alike(count)), count == kEdgeCount ? kAllAgree : kNoneAgrees) << count;
    }
}

TEST(EdgeLooksAgreement, One_look_that_differs_ends_it_wherever_it_stands) {
    for (int edge = 0; edge < kEdgeCount; ++edge) {
        EdgeLooks looks = alike(kEdgeCount);
        looks.lineWeights[edge] = KdDb::kLnWt060;
        EXPECT_EQ(agreements(looks), (std::array{false, true, true, true, true})) << edge;
        looks.linetypes[edge] = KdDbObjectId::kNull;
        EXPECT_EQ(agreements(looks), (std::array{false, false, true, true, true})) << edge;
        looks.colors[edge] = KdCmColor::byBlock();
        EXPECT_EQ(agreements(looks), (std::array{false, false, false, true, true})) << edge;
        looks.lineStyles[edge] = KdDb::kGridLineStyleSingle;
        EXPECT_EQ(agreements(looks), (std::array{false, false, false, false, true})) << edge;
        looks.spacings[edge] = 0.25;
        EXPECT_EQ(agreements(looks), kNoneAgrees) << edge;
    }
}

TEST(EdgeLooksAgreement, Spacings_are_held_against_their_neighbours_with_room_for_arithmetic) {
    const auto agree = [](double step, int steps) {
        EdgeLooks looks = alike(kEdgeCount);
        for (int edge = 1; edge < kEdgeCount; ++edge) {
            looks.spacings[edge] = looks.spacings[edge - 1] + (edge <= steps ? step : 0.0);
        }
        return looks.IsSpacingUnification();
    };
    for (const double sign : {1.0, -1.0}) {
        EXPECT_TRUE(agree(sign * 0.9e-10, 1));
        EXPECT_TRUE(agree(sign * 0.9e-10, 5)) << "the ends are further apart than neighbours may be";
        EXPECT_FALSE(agree(sign * 1.1e-10, 1));
    }
}

TEST(EdgeLooksAgreement, A_refresh_empties_all_but_line_styles_and_spacings) {
    EdgeLooks looks = alike(kEdgeCount);
    looks.emptyLines();
    EXPECT_EQ(looks.lineWeights.GetSize(), 0);
    EXPECT_EQ(looks.linetypes.GetSize(), 0);
    EXPECT_EQ(looks.colors.GetSize(), 0);
    EXPECT_EQ(looks.lineStyles.GetSize(), kEdgeCount);
    EXPECT_EQ(looks.spacings.GetSize(), kEdgeCount);
}

}  // namespace
}  // namespace kdtest
