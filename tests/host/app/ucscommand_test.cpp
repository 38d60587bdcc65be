// UCS: the user's coordinates by points, by a turn, the world's and those before.

#include <cmath>

#include "host/app/dump/dump.h"
#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/undo.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "tests/support/application.h"
#include "tests/support/points.h"

namespace {

class UcsCommand : public kdtest::ApplicationTest {
protected:
    void expectUcs(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y) {
        EXPECT_EQ(host.database().ucsorg(), origin);
        EXPECT_EQ(host.database().ucsxdir(), x);
        EXPECT_EQ(host.database().ucsydir(), y);
    }
    void expectWorld() { expectUcs({0, 0, 0}, {1, 0, 0}, {0, 1, 0}); }
    std::vector<std::wstring> steps() { return kdhost::undoHistory(host.database())->undoSteps(); }
};

TEST_F(UcsCommand, takes_three_points) {
    host.run(L"UCS 10,20,5 10,30,5 0,20,5\n");
    expectUcs({10, 20, 5}, {0, 1, 0}, {-1, 0, 0});
    EXPECT_EQ(steps(), std::vector<std::wstring>{L"UCS"});
}

TEST_F(UcsCommand, takes_points_in_the_coordinates_before) {
    host.run(L"UCS 10,20 10,30 0,20\nUCS 1,2 @3,0 @0,4\n");
    expectUcs({8, 21, 0}, {0, 1, 0}, {-1, 0, 0});
}

TEST_F(UcsCommand, has_its_axes_at_a_right_angle_wherever_beside_the_x_axis_the_third_point_lies) {
    host.run(L"UCS 0,0 5,0 7,3\n");
    expectUcs({0, 0, 0}, {1, 0, 0}, {0, 1, 0});
    host.run(L"UCS 0,0 5,0 7,-3\n");
    expectUcs({0, 0, 0}, {1, 0, 0}, {0, -1, 0});
}

TEST_F(UcsCommand, moves_the_origin_alone_when_no_point_on_the_x_axis_is_given) {
    host.run(L"UCS Z 90\nUCS\n10,20\n\n");
    expectUcs({-20, 10, 0}, {0, 1, 0}, {-1, 0, 0});
}

TEST_F(UcsCommand, keeps_its_plane_when_no_point_beside_the_y_axis_is_given) {
    host.run(L"UCS\n0,0\n3,4\n\n");
    expectUcs({0, 0, 0}, {0.6, 0.8, 0}, {-0.8, 0.6, 0});
    host.run(L"UCS World\nUCS\n0,0\n1,0,1\n\n");
    const double half = std::sqrt(0.5);
    expectUcs({0, 0, 0}, {half, 0, half}, {0, 1, 0});
}

TEST_F(UcsCommand, turns_about_its_z_axis_by_degrees_90_for_enter) {
    host.run(L"UCS Z 30\n");
    const double cosine = std::sqrt(0.75);
    expectUcs({0, 0, 0}, {cosine, 0.5, 0}, {-0.5, cosine, 0});
    host.run(L"UCS Z -30\nUCS\nZ\n\n");
    expectUcs({0, 0, 0}, {0, 1, 0}, {-1, 0, 0});
}

TEST_F(UcsCommand, goes_back_to_the_world_by_its_word_or_enter) {
    for (const wchar_t* world : {L"UCS World\n", L"UCS W\n", L"UCS\n\n"}) {
        host.run(L"UCS 1,2 3,4 0,9\n");
        host.run(world);
        expectWorld();
    }
}

TEST_F(UcsCommand, goes_back_step_by_step_as_far_as_ten_systems) {
    for (int i = 1; i <= 12; ++i) host.run(L"UCS\n" + std::to_wstring(1) + L",0\n\n");
    EXPECT_EQ(host.database().ucsorg(), KdGePoint3d(12, 0, 0));
    for (int i = 1; i <= 10; ++i) host.run(L"UCS Previous\n");
    EXPECT_EQ(host.database().ucsorg(), KdGePoint3d(2, 0, 0));
    EXPECT_TRUE(host.failures().empty());
    host.run(L"UCS P\n");
    EXPECT_EQ(host.failures(), std::vector<std::wstring>{L"There is no earlier coordinate system."});
    EXPECT_EQ(host.database().ucsorg(), KdGePoint3d(2, 0, 0));
}

TEST_F(UcsCommand, remembers_for_each_space_its_own) {
    host.run(L"UCS\n1,0\n\nTILEMODE 0\nUCS P\n");
    EXPECT_EQ(host.failures().size(), 1u) << "nothing was changed in the paper space yet";
    host.run(L"UCS\n0,5\n\n");
    EXPECT_EQ(host.database().pucsorg(), KdGePoint3d(0, 5, 0));
    host.run(L"UCS P\nTILEMODE 1\n");
    EXPECT_EQ(host.database().pucsorg(), KdGePoint3d(0, 0, 0));
    EXPECT_EQ(host.database().ucsorg(), KdGePoint3d(1, 0, 0));
    host.run(L"UCS P\n");
    expectWorld();
}

TEST_F(UcsCommand, is_undone_with_what_it_remembers) {
    host.run(L"UCS\n1,0\n\nUCS\n1,0\n\nU\n");
    EXPECT_EQ(host.database().ucsorg(), KdGePoint3d(1, 0, 0));
    host.run(L"UCS P\n");
    expectWorld();
    host.run(L"UNDO 2\nREDO\n");
    EXPECT_EQ(host.database().ucsorg(), KdGePoint3d(1, 0, 0));
}

TEST_F(UcsCommand, that_stays_as_it_is_makes_no_step_and_nothing_to_go_back_to) {
    host.run(L"UCS World\nUCS\n0,0\n\n");
    EXPECT_TRUE(steps().empty());
    host.run(L"UCS P\n");
    EXPECT_EQ(host.failures().size(), 1u);
}

TEST_F(UcsCommand, refuses_points_on_one_line_and_what_is_no_angle) {
    host.run(L"UCS 0,0 5,0 9,0\nUCS 1,1 1,1 5,5\nUCS\n0,0\n0,0,7\n\nUCS Z x\n");
    EXPECT_EQ(host.failures(),
              (std::vector<std::wstring>{L"The points lie on one line: there is no such coordinate system.",
                                         L"The points lie on one line: there is no such coordinate system.",
                                         L"The points lie on one line: there is no such coordinate system.",
                                         L"\"x\" is no number."}));
    expectWorld();
    EXPECT_TRUE(steps().empty());
}

TEST_F(UcsCommand, that_is_cancelled_at_any_prompt_changes_nothing) {
    for (const wchar_t* typed : {L"UCS\n\x1b", L"UCS\n1,2\n\x1b", L"UCS\n1,2\n3,4\n\x1b", L"UCS\nZ\n\x1b"}) {
        host.run(typed);
        expectWorld();
    }
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(UcsCommand, leaves_the_point_entered_last_where_it_is_in_the_world) {
    host.run(L"LINE 10,20 11,21 \nUCS\n5,5\n\nLINE @ @1,0 \n");
    const auto ids = kdhost::entitiesOfCurrentSpace(host.database());
    ASSERT_EQ(ids.size(), 2u);
    // The origin is the point that was entered last, with the coordinates 0,0 now.
    EXPECT_EQ(kdhost::peek<KdDbLine>(ids[1])->startPoint(), KdGePoint3d(5, 5, 0));
    EXPECT_EQ(kdhost::peek<KdDbLine>(ids[1])->endPoint(), KdGePoint3d(6, 5, 0));
}

}  // namespace
