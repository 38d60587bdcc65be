// Coordinates as they are typed.

#include "host/ed/points.h"

#include <gtest/gtest.h>

namespace {

struct TypedPoint {
    const wchar_t* text;
    KdGePoint3d point;
};

class TypedPoints : public ::testing::TestWithParam<TypedPoint> {};

TEST_P(TypedPoints, are_read) {
    const auto point = kdhost::parsePoint(GetParam().text, {10.0, 20.0, 30.0});
    ASSERT_TRUE(point.has_value());
    EXPECT_TRUE(point->isEqualTo(GetParam().point, 1e-9)) << point->x << ' ' << point->y << ' ' << point->z;
}

INSTANTIATE_TEST_SUITE_P(Points, TypedPoints,
                         ::testing::Values(TypedPoint{L"1,2", {1, 2, 0}}, TypedPoint{L"-1.5,+2e2", {-1.5, 200, 0}},
                                           TypedPoint{L"1,2,3", {1, 2, 3}}, TypedPoint{L".5,0", {0.5, 0, 0}},
                                           TypedPoint{L"@1,2", {11, 22, 30}}, TypedPoint{L"@1,2,3", {11, 22, 33}},
                                           TypedPoint{L"@", {10, 20, 30}}, TypedPoint{L"5<90", {0, 5, 0}},
                                           TypedPoint{L"@5<180", {5, 20, 30}}));

class OtherTexts : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(OtherTexts, are_no_points) {
    EXPECT_FALSE(kdhost::parsePoint(GetParam(), {}).has_value());
}

INSTANTIATE_TEST_SUITE_P(Points, OtherTexts,
                         ::testing::Values(L"", L"1", L",", L"1,", L"1,2,", L"1,2,3,4", L"a,b", L"1,2x", L"1;2",
                                           L"nan,1", L"inf,1", L"1<", L"1<2<3", L"@@1,2", L"１,２", L"1e999,0"));

}  // namespace
