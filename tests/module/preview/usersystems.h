// Samples made in user coordinate systems (turned in the plane, moved, tilted), and with opens that fail there.
#pragma once

#include <gtest/gtest.h>

#include <array>

#include "host/rx/faults.h"
#include "kd/db/database.h"
#include "tests/module/preview/samplepicture.h"

namespace kdtest::preview {

struct UserSystem {
    const char* name;
    KdGePoint3d origin;
    KdGeVector3d x;
    KdGeVector3d y;

    KdGeMatrix3d matrix() const { return KdGeMatrix3d::alignToWorld(origin, x, y, x.crossProduct(y)); }
};

inline const std::array kUserSystems{
    UserSystem{"moved", {10, 20, 30}, {1, 0, 0}, {0, 1, 0}},
    UserSystem{"turned", {0, 0, 0}, {0.6, 0.8, 0}, {-0.8, 0.6, 0}},
    UserSystem{"upright", {0, 0, 0}, {1, 0, 0}, {0, 0, 1}},
    UserSystem{"tilted, turned and moved", {-7, 3, 2}, {0.36, 0.48, 0.8}, {-0.8, 0.6, 0}},
    UserSystem{"seen from below", {1, 2, 3}, {1, 0, 0}, {0, -1, 0}},
};

/// A sample made in each of the systems has its reference in that system's plane, and shows the picture of one made in
/// world coordinates. `construct` gives a pointer to what holds a new
/// sample.
template <class Construct>
void expectPictureStaysInEachUserSystem(Construct construct) {
    auto plain = construct();
    ASSERT_TRUE(plain->sample.CreateTableCell());
    EXPECT_TRUE(plain->sample.GetTableCell()->blockTransform().isEqualTo(KdGeMatrix3d::kIdentity));
    const Picture picture = pictureOf(plain->sample);
    EXPECT_FALSE(picture.empty());
    for (const UserSystem& system : kUserSystems) {
        SCOPED_TRACE(system.name);
        auto made = construct();
        ASSERT_EQ(made->sample.GetDatabase()->setUcs(system.origin, system.x, system.y), Kdad::eOk);
        ASSERT_TRUE(made->sample.CreateTableCell());
        EXPECT_TRUE(made->sample.GetTableCell()->blockTransform().isEqualTo(system.matrix()));
        EXPECT_TRUE(made->sample.GetTableCell()->position().isEqualTo(system.origin));
        EXPECT_EQ(difference(picture, pictureOf(made->sample)), "");
    }
}

/// The picture as it is without the layer of invisible edges.
inline Picture onOneLayer(Picture picture) {
    for (Part& part : picture) {
        if (auto* line = std::get_if<Line>(&part)) line->screenOnly = false;
    }
    return picture;
}

/// Lets each open in turn fail while the sample is made in moved user coordinates: there is a reference all the same,
/// nothing stays open, and at most one entity is out of its place. The reference is one without a block when the
/// table of blocks can't be opened.
template <class Construct>
void expectAnyOpenMayFail(Construct construct) {
    const UserSystem& system = kUserSystems.front();
    Picture whole;
    int failures = 0;
    int withoutBlock = 0;
    for (int number = 0; failures == number - 1 || number == 0; ++number) {
        auto made = construct();
        ASSERT_EQ(made->sample.GetDatabase()->setUcs(system.origin, system.x, system.y), Kdad::eOk);
        kdhost::faults().failOpenNumber = number;  // none fails at first
        EXPECT_TRUE(made->sample.CreateTableCell()) << number;
        if (number != 0 && kdhost::faults().failOpenNumber == 0) ++failures;
        kdhost::faults().failOpenNumber = 0;
        EXPECT_TRUE(kdhost::openObjects().empty()) << number;
        ASSERT_NE(made->sample.GetTableCell(), nullptr);
        const Picture seen = onOneLayer(pictureOf(made->sample));
        if (number == 0) {
            whole = seen;
        } else if (made->sample.GetTableCell()->blockTableRecord().isNull()) {
            ++withoutBlock;
        } else {
            EXPECT_LE(differingParts(whole, seen), 1) << number;
        }
    }
    EXPECT_EQ(withoutBlock, 1);
    EXPECT_GE(failures, static_cast<int>(whole.size())) << "each entity is opened for its place";
}

}  // namespace kdtest::preview
