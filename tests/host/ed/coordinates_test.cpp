// User and world coordinates, and pixels of the view.

#include "kd/ed/coordinates.h"

#include <cmath>

#include "host/rx/faults.h"
#include "kd/db/database.h"
#include "kd/ed/view.h"
#include "kd/ge/matrix3d.h"
#include "tests/support/application.h"

namespace {

class Coordinates : public kdtest::ApplicationTest {
protected:
    /// A system at (10, 20, 5) with its x axis along the world's y and its z axis along the world's x.
    void tilt() { ASSERT_EQ(host.database().setUcs({10, 20, 5}, {0, 1, 0}, {0, 0, 1}), Kdad::eOk); }
    void expectAxes(const KdGeVector3d& x, const KdGeVector3d& z) {
        KdGeVector3d foundX;
        KdGeVector3d foundZ;
        EXPECT_TRUE(kdadGetUCS(foundX, foundZ));
        EXPECT_EQ(foundX, x);
        EXPECT_EQ(foundZ, z);
    }
};

TEST_F(Coordinates, of_the_user_are_those_of_the_world_in_a_new_drawing) {
    KdGePoint3d point;
    EXPECT_TRUE(kddbUcs2Wcs({1, 2, 3}, point, 1));
    EXPECT_EQ(point, KdGePoint3d(1, 2, 3));
    EXPECT_TRUE(kddbWcs2Ucs({1, 2, 3}, point, 1));
    EXPECT_EQ(point, KdGePoint3d(1, 2, 3));
    expectAxes({1, 0, 0}, {0, 0, 1});
}

TEST_F(Coordinates, go_from_the_user_to_the_world_and_back) {
    tilt();
    KdGePoint3d point;
    EXPECT_TRUE(kddbUcs2Wcs({1, 2, 3}, point, 1));
    EXPECT_EQ(point, KdGePoint3d(13, 21, 7));
    EXPECT_TRUE(kddbWcs2Ucs(point, point, 1)) << "in place";
    EXPECT_EQ(point, KdGePoint3d(1, 2, 3));
    EXPECT_TRUE(kddbUcs2Wcs({1, 2, 3}, point, 0));
    EXPECT_EQ(point, KdGePoint3d(3, 1, 2)) << "directions are not moved";
    EXPECT_TRUE(kddbWcs2Ucs(point, point, 0));
    EXPECT_EQ(point, KdGePoint3d(1, 2, 3));
    expectAxes({0, 1, 0}, {1, 0, 0});
}

TEST_F(Coordinates, are_those_of_the_current_space) {
    tilt();
    host.database().setTilemode(false);
    expectAxes({1, 0, 0}, {0, 0, 1});
    host.database().setPucs({0, 0, 0}, {-1, 0, 0}, {0, -1, 0});
    expectAxes({-1, 0, 0}, {0, 0, 1});
    host.database().setTilemode(true);
    expectAxes({0, 1, 0}, {1, 0, 0});
}

TEST_F(Coordinates, of_pixels_are_the_user_s) {
    host.database().setUcs({10, 20, 0}, {0, 1, 0}, {-1, 0, 0});
    host.editor().view().zoomTo({{0, 0, 0}, {400, 300, 0}});
    const KdadViewport* viewport = kdadGetActiveGsView()->getKdadViewport();
    for (const auto& [x, y] : {std::pair{0, 0}, {17, 250}, {-40, 5}}) {
        KdGePoint3d world(x, y, 0);
        viewport->screenToWorld(world);
        KdGePoint3d point;
        ASSERT_TRUE(kdedCoordFromPixelToWorldInternal(x, y, point));
        EXPECT_NEAR(point.x, world.y - 20.0, 1e-9);
        EXPECT_NEAR(point.y, 10.0 - world.x, 1e-9);
        EXPECT_EQ(point.z, 0.0);
    }
}

TEST_F(Coordinates, are_none_without_a_view_or_a_drawing) {
    const KdGePoint3d kept(1, 2, 3);
    KdGePoint3d point = kept;
    kdhost::faults().noView = true;
    EXPECT_FALSE(kdedCoordFromPixelToWorldInternal(5, 5, point));
    EXPECT_EQ(point, kept);
    kdhost::faults() = {};
    host.documents().close(host.document());
    EXPECT_FALSE(kdedCoordFromPixelToWorldInternal(5, 5, point));
    EXPECT_FALSE(kddbUcs2Wcs(point, point, 1));
    EXPECT_FALSE(kddbWcs2Ucs(point, point, 1));
    EXPECT_EQ(point, kept);
    KdGeVector3d x(4, 5, 6);
    KdGeVector3d z(7, 8, 9);
    EXPECT_FALSE(kdadGetUCS(x, z));
    EXPECT_EQ(x, KdGeVector3d(4, 5, 6));
    EXPECT_EQ(z, KdGeVector3d(7, 8, 9));
}

}  // namespace
