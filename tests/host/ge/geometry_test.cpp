// Points, vectors and matrices.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "kd/ge/extents.h"
#include "kd/ge/matrix3d.h"

namespace {

constexpr double kPi = std::numbers::pi;

/// Random vectors with a fixed seed.
class Source {
public:
    KdGeVector3d vector() { return {next(), next(), next()}; }
    KdGePoint3d point() { return {next(), next(), next()}; }
    double next() { return m_values(m_engine); }

private:
    std::mt19937 m_engine{20240607};
    std::uniform_real_distribution<double> m_values{-10.0, 10.0};
};

KdGeMatrix3d anyTransformation(Source& source) {
    return KdGeMatrix3d::translation(source.vector()) *
           KdGeMatrix3d::rotation(source.next(), source.vector(), source.point()) *
           KdGeMatrix3d::scaling(std::fabs(source.next()) + 0.1, source.point());
}

}  // namespace

TEST(GeVector, cross_and_dot_products_follow_the_right_hand) {
    EXPECT_EQ(KdGeVector3d::kXAxis.crossProduct(KdGeVector3d::kYAxis), KdGeVector3d::kZAxis);
    EXPECT_EQ(KdGeVector3d::kYAxis.crossProduct(KdGeVector3d::kZAxis), KdGeVector3d::kXAxis);
    EXPECT_DOUBLE_EQ(KdGeVector3d(1, 2, 3).dotProduct({4, -5, 6}), 12.0);
    EXPECT_DOUBLE_EQ(KdGeVector3d(2, 3, 6).length(), 7.0);
}

TEST(GeVector, normalize_gives_length_one_and_leaves_a_zero_vector) {
    EXPECT_EQ(KdGeVector3d(0, 0, -4).normal(), -KdGeVector3d::kZAxis);
    const KdGeVector3d tiny(1e-11, 0, 0);
    EXPECT_EQ(tiny.normal().x, 1e-11);
    EXPECT_TRUE(tiny.isZeroLength());
}

TEST(GeVector, angle_between_is_exact_for_nearly_parallel_vectors) {
    EXPECT_DOUBLE_EQ(KdGeVector3d::kXAxis.angleTo({0, 5, 0}), kPi / 2);
    EXPECT_DOUBLE_EQ(KdGeVector3d::kXAxis.angleTo({-3, 0, 0}), kPi);
    EXPECT_NEAR(KdGeVector3d::kXAxis.angleTo({1, 1e-9, 0}), 1e-9, 1e-18);
}

TEST(GeVector, angle_about_a_reference_runs_the_full_turn) {
    const struct {
        KdGeVector3d to;
        double up;
        double down;
    } rows[] = {{{1, 0, 0}, 0, 0},
                {{1, 1, 0}, kPi / 4, 7 * kPi / 4},
                {{0, 1, 0}, kPi / 2, 3 * kPi / 2},
                {{-1, 0, 0}, kPi, kPi},
                {{0, -1, 0}, 3 * kPi / 2, kPi / 2}};
    for (const auto& row : rows) {
        EXPECT_NEAR(KdGeVector3d::kXAxis.angleTo(row.to, KdGeVector3d::kZAxis), row.up, 1e-12);
        EXPECT_NEAR(KdGeVector3d::kXAxis.angleTo(row.to, -KdGeVector3d::kZAxis), row.down, 1e-12);
    }
}

TEST(GeVector, rotating_keeps_the_length_and_the_part_along_the_axis) {
    EXPECT_EQ(KdGeVector3d(KdGeVector3d::kXAxis).rotateBy(kPi / 2, KdGeVector3d::kZAxis), KdGeVector3d::kYAxis);
    Source source;
    for (int i = 0; i < 200; ++i) {
        const KdGeVector3d v = source.vector();
        const KdGeVector3d axis = source.vector();
        const KdGeVector3d turned = KdGeVector3d(v).rotateBy(source.next(), axis);
        EXPECT_NEAR(turned.length(), v.length(), 1e-9);
        EXPECT_NEAR(turned.dotProduct(axis), v.dotProduct(axis), 1e-9);
    }
}

TEST(GeVector, parallel_in_either_direction_and_never_to_zero) {
    EXPECT_TRUE(KdGeVector3d(1, 2, 3).isParallelTo({-2, -4, -6}));
    EXPECT_TRUE(KdGeVector3d(1e6, 0, 0).isParallelTo({1e-6, 0, 0}));
    EXPECT_FALSE(KdGeVector3d(1, 2, 3).isParallelTo({1, 2, 3.001}));
    EXPECT_FALSE(KdGeVector3d::kXAxis.isParallelTo(KdGeVector3d::kIdentity));
}

TEST(GeVector, equality_is_within_a_tolerance_in_each_coordinate) {
    EXPECT_TRUE(KdGeVector3d(1, 1, 1) == KdGeVector3d(1 + 0.9e-10, 1, 1));
    EXPECT_TRUE(KdGeVector3d(1, 1, 1) != KdGeVector3d(1, 1, 1 + 2e-10));
    EXPECT_TRUE(KdGeVector3d(1, 1, 1).isEqualTo({1.05, 1, 0.95}, 0.1));
    EXPECT_FALSE(KdGeVector3d(1, 1, 1).isEqualTo({NAN, 1, 1}, 0.1));
}

TEST(GePoint, differences_and_sums) {
    const KdGePoint3d p(1, 2, 3);
    EXPECT_EQ(p + KdGeVector3d(1, 1, 1), KdGePoint3d(2, 3, 4));
    EXPECT_EQ(p - KdGePoint3d(1, 1, 1), KdGeVector3d(0, 1, 2));
    EXPECT_DOUBLE_EQ(p.distanceTo({1, 5, 7}), 5.0);
    KdGePoint3d moved = p;
    moved += {1, 0, 0};
    moved -= {0, 2, 0};
    EXPECT_EQ(moved, KdGePoint3d(2, 0, 3));
    EXPECT_EQ(moved.transformBy(KdGeMatrix3d::translation({0, 0, -3})), KdGePoint3d(2, 0, 0));
}

TEST(GePoint, in_a_plane_holds_its_two_coordinates) {
    constexpr KdGePoint2d origin;
    EXPECT_EQ(origin.x, 0.0);
    EXPECT_EQ(origin.y, 0.0);
    KdGePoint2d point(1.5, -2.5);
    EXPECT_EQ(point.x, 1.5);
    EXPECT_EQ(point.y, -2.5);
    point.y = 4.0;
    EXPECT_EQ(KdGePoint2d(point).y, 4.0);
}

TEST(GeMatrix, translation_moves_points_and_not_vectors) {
    const KdGeMatrix3d move = KdGeMatrix3d::translation({1, 2, 3});
    EXPECT_EQ(move * KdGePoint3d(1, 1, 1), KdGePoint3d(2, 3, 4));
    EXPECT_EQ(move * KdGeVector3d(1, 1, 1), KdGeVector3d(1, 1, 1));
}

TEST(GeMatrix, rotation_and_scaling_keep_their_centre) {
    const KdGePoint3d center(5, 6, 7);
    EXPECT_EQ(KdGeMatrix3d::rotation(kPi / 2, KdGeVector3d::kZAxis, center) * KdGePoint3d(6, 6, 7),
              KdGePoint3d(5, 7, 7));
    EXPECT_EQ(KdGeMatrix3d::rotation(1.0, {1, 1, 1}, center) * center, center);
    EXPECT_EQ(KdGeMatrix3d::scaling(3, center) * KdGePoint3d(6, 6, 8), KdGePoint3d(8, 6, 10));
    EXPECT_EQ(KdGeMatrix3d::scaling(3, center) * center, center);
}

TEST(GeMatrix, a_product_does_the_right_factor_first) {
    Source source;
    for (int i = 0; i < 200; ++i) {
        const KdGeMatrix3d a = anyTransformation(source);
        const KdGeMatrix3d b = anyTransformation(source);
        const KdGePoint3d p = source.point();
        EXPECT_TRUE((a * b * p).isEqualTo(a * (b * p), 1e-6));
    }
}

TEST(GeMatrix, the_inverse_undoes_any_transformation) {
    Source source;
    for (int i = 0; i < 200; ++i) {
        const KdGeMatrix3d m = anyTransformation(source);
        EXPECT_TRUE((m * m.inverse()).isEqualTo(KdGeMatrix3d::kIdentity, 1e-8));
        EXPECT_TRUE((m.inverse() * m).isEqualTo(KdGeMatrix3d::kIdentity, 1e-8));
    }
}

TEST(GeMatrix, a_very_small_scale_has_an_inverse_and_a_singular_matrix_gives_the_identity) {
    const KdGeMatrix3d small = KdGeMatrix3d::scaling(1e-6, KdGePoint3d::kOrigin);
    EXPECT_NEAR((small.inverse() * KdGePoint3d(1, 0, 0)).x, 1e6, 1e-3);
    const KdGeMatrix3d flat = KdGeMatrix3d::alignToWorld({1, 2, 3}, {1, 0, 0}, {2, 0, 0}, {0, 0, 1});
    EXPECT_TRUE(flat.inverse().isEqualTo(KdGeMatrix3d::kIdentity));
    const KdGeMatrix3d zero = KdGeMatrix3d::scaling(0, KdGePoint3d::kOrigin);
    EXPECT_TRUE(zero.inverse().isEqualTo(KdGeMatrix3d::kIdentity));
}

TEST(GeMatrix, the_planes_axes_follow_the_arbitrary_axis_rule) {
    const struct {
        KdGeVector3d normal;
        KdGeVector3d x;
    } rows[] = {{{0, 0, 1}, {1, 0, 0}},  {{0, 0, -1}, {-1, 0, 0}}, {{1, 0, 0}, {0, 1, 0}},
                {{0, 1, 0}, {-1, 0, 0}}, {{0, -1, 0}, {1, 0, 0}},  {{0, 0, 25}, {1, 0, 0}}};
    for (const auto& row : rows) {
        const KdGeMatrix3d plane = KdGeMatrix3d::planeToWorld(row.normal);
        EXPECT_EQ(plane * KdGeVector3d::kXAxis, row.x);
        EXPECT_EQ(plane * KdGeVector3d::kZAxis, row.normal.normal());
    }
    // Just inside of 1/64 the world's Y axis is the one crossed, just outside its Z axis.
    EXPECT_NEAR((KdGeMatrix3d::planeToWorld({0, 1.0 / 65, 1}) * KdGeVector3d::kXAxis).x, 1.0, 1e-12);
    EXPECT_NEAR((KdGeMatrix3d::planeToWorld({0, 1.0 / 63, 1}) * KdGeVector3d::kXAxis).x, -1.0, 1e-12);
}

TEST(GeMatrix, plane_axes_are_right_handed_and_the_way_back_leads_back) {
    Source source;
    for (int i = 0; i < 200; ++i) {
        const KdGeVector3d normal = source.vector();
        const KdGeMatrix3d plane = KdGeMatrix3d::planeToWorld(normal);
        EXPECT_EQ((plane * KdGeVector3d::kXAxis).crossProduct(plane * KdGeVector3d::kYAxis), normal.normal());
        EXPECT_TRUE((KdGeMatrix3d::worldToPlane(normal) * plane).isEqualTo(KdGeMatrix3d::kIdentity));
    }
    EXPECT_TRUE(KdGeMatrix3d::planeToWorld({}).isEqualTo(KdGeMatrix3d::kIdentity));
}

TEST(GeMatrix, alignToWorld_maps_the_origin_and_the_axes) {
    const KdGeMatrix3d m = KdGeMatrix3d::alignToWorld({1, 2, 3}, {0, 2, 0}, {-2, 0, 0}, {0, 0, 2});
    EXPECT_EQ(m * KdGePoint3d::kOrigin, KdGePoint3d(1, 2, 3));
    EXPECT_EQ(m * KdGePoint3d(1, 0, 0), KdGePoint3d(1, 4, 3));
    EXPECT_EQ(m * KdGePoint3d(0, 1, 1), KdGePoint3d(-1, 2, 5));
}

TEST(GeMatrix, setCoordSystem_replaces_the_whole_matrix_and_returns_it) {
    KdGeMatrix3d m = KdGeMatrix3d::rotation(1.0, KdGeVector3d::kZAxis, {4, 5, 6});
    const KdGeMatrix3d& returned = m.setCoordSystem({1, 2, 3}, {0, 2, 0}, {-2, 0, 0}, {0, 0, 2});
    EXPECT_EQ(&returned, &m);
    EXPECT_EQ(m * KdGePoint3d::kOrigin, KdGePoint3d(1, 2, 3));
    EXPECT_EQ(m * KdGePoint3d(1, 0, 0), KdGePoint3d(1, 4, 3));
    EXPECT_EQ(m * KdGePoint3d(0, 1, 1), KdGePoint3d(-1, 2, 5));
}

TEST(GeExtents, are_invalid_until_a_point_comes_and_then_the_box_around_all) {
    KdDbExtents box;
    EXPECT_FALSE(box.isValid());
    box.addExt(KdDbExtents());
    EXPECT_FALSE(box.isValid());
    box.addPoint({1, 5, -1});
    box.addExt(KdDbExtents({-3, 0, 0}, {0, 1, 2}));
    EXPECT_TRUE(box.isValid());
    EXPECT_EQ(box.minPoint(), KdGePoint3d(-3, 0, -1));
    EXPECT_EQ(box.maxPoint(), KdGePoint3d(1, 5, 2));
}
