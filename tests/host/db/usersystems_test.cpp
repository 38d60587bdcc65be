// The user coordinate systems of a drawing, one for each space, and the space that is current.

#include <gtest/gtest.h>

#include <limits>

#include "kd/db/database.h"

namespace {

/// A system as its origin and the directions of its axes.
struct System {
    KdGePoint3d origin;
    KdGeVector3d x;
    KdGeVector3d y;

    friend bool operator==(const System&, const System&) = default;
};

void PrintTo(const System& system, std::ostream* out) {
    for (const KdGeVector3d& part : {system.origin.asVector(), system.x, system.y}) {
        *out << '(' << part.x << ", " << part.y << ", " << part.z << ") ";
    }
}

/// The operations of one of the two spaces.
struct Space {
    const char* name;
    Kdad::ErrorStatus (KdDbDatabase::*set)(const KdGePoint3d&, const KdGeVector3d&, const KdGeVector3d&);
    System (*read)(const KdDbDatabase&);
};

const Space model{"model", &KdDbDatabase::setUcs, [](const KdDbDatabase& d) {
                      return System{d.ucsorg(), d.ucsxdir(), d.ucsydir()};
                  }};
const Space paper{"paper", &KdDbDatabase::setPucs, [](const KdDbDatabase& d) {
                      return System{d.pucsorg(), d.pucsxdir(), d.pucsydir()};
                  }};

void PrintTo(const Space& space, std::ostream* out) {
    *out << space.name;
}

const System world{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};

class UserSystems : public ::testing::TestWithParam<Space> {
protected:
    Kdad::ErrorStatus set(const System& system) {
        return (m_database.*GetParam().set)(system.origin, system.x, system.y);
    }
    System read() const { return GetParam().read(m_database); }
    /// Of the space that is not set.
    System other() const { return (GetParam().read == model.read ? paper : model).read(m_database); }

    KdDbDatabase m_database;
};

TEST_P(UserSystems, is_the_world_in_a_new_drawing) {
    EXPECT_EQ(read(), world);
}

TEST_P(UserSystems, is_kept_for_its_own_space) {
    const System system{{1, 2, 3}, {0, 0.6, 0.8}, {0, -0.8, 0.6}};
    EXPECT_EQ(set(system), Kdad::eOk);
    EXPECT_EQ(read(), system);
    EXPECT_EQ(other(), world);
    EXPECT_EQ(set(world), Kdad::eOk);
    EXPECT_EQ(read(), world);
}

TEST_P(UserSystems, has_axes_of_length_1_at_right_angles_the_x_axis_as_given) {
    EXPECT_EQ(set({{5, 0, 0}, {3, 4, 0}, {0, 100, 0}}), Kdad::eOk);
    EXPECT_EQ(read(), (System{{5, 0, 0}, {0.6, 0.8, 0}, {-0.8, 0.6, 0}}));
    EXPECT_EQ(set({{0, 0, 0}, {0, 0, -2}, {1, 0, 7}}), Kdad::eOk);
    EXPECT_EQ(read(), (System{{0, 0, 0}, {0, 0, -1}, {1, 0, 0}}));
}

TEST_P(UserSystems, refuses_directions_without_length_or_along_one_line_and_stays) {
    const System kept{{1, 2, 3}, {0, 1, 0}, {-1, 0, 0}};
    ASSERT_EQ(set(kept), Kdad::eOk);
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const std::pair<KdGeVector3d, KdGeVector3d> wrong[] = {
        {{0, 0, 0}, {0, 1, 0}},  {{1, 0, 0}, {0, 0, 0}},   {{1, 1, 0}, {2, 2, 0}},
        {{1, 0, 0}, {-3, 0, 0}}, {{nan, 0, 0}, {0, 1, 0}}, {{1, 0, 0}, {0, nan, 0}},
    };
    for (const auto& [x, y] : wrong) {
        EXPECT_EQ(set({{9, 9, 9}, x, y}), Kdad::eInvalidInput);
        EXPECT_EQ(read(), kept);
    }
}

INSTANTIATE_TEST_SUITE_P(Spaces, UserSystems, ::testing::Values(model, paper),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(CurrentSpace, is_the_model_until_it_is_set_and_new_entities_go_there) {
    KdDbDatabase database;
    EXPECT_TRUE(database.tilemode());
    EXPECT_EQ(database.currentSpaceId(), database.modelSpaceId());
    database.setTilemode(false);
    EXPECT_FALSE(database.tilemode());
    EXPECT_EQ(database.currentSpaceId(), database.paperSpaceId());
    database.setTilemode(true);
    EXPECT_EQ(database.currentSpaceId(), database.modelSpaceId());
}

}  // namespace
