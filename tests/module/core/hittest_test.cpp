// What part of a table lies under a point of the screen.

#include <gtest/gtest.h>

#include <cmath>

#include "host/ed/editor.h"
#include "kd/ed/view.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {
namespace {

struct Hit {
    bool hit = false;
    int row = 0;
    int column = 0;
    int content = 0;
    int item = 0;

    friend bool operator==(const Hit&, const Hit&) = default;
};

void PrintTo(const Hit& hit, std::ostream* out) {
    *out << hit.hit << " at " << hit.row << ", " << hit.column << ", content " << hit.content << ", item " << hit.item;
}

/// A table of three columns of 30 and three rows of 20 at (100, 200), in a view whose corner stands at (70, 40)
/// of the screen.
class HitTest : public TableEdits {
protected:
    void SetUp() override {
        TableEdits::SetUp();
        auto made = TableBuilder(3, 3).merge("B2:C3").build();
        made->setColumnWidth(30.0);
        made->setRowHeight(20.0);
        made->setPosition({100.0, 200.0, 0.0});
        table = add(std::move(made));
        host.editor().view().setOrigin(70, 40);
    }

    Hit test(const KdDbTable* tested, double x, double y) {
        KdGePoint3d pixel{x, y, 0.0};
        host.editor().view().worldToScreen(pixel);
        const CPoint screen{std::lround(pixel.x) + 70, std::lround(pixel.y) + 40};
        Hit found{false, 7, 7, 7, 7};
        auto item = static_cast<KdDb::TableHitItem>(7);
        found.hit = CVqTableCommon::TableHitTest(tested, screen, found.row, found.column, found.content, item);
        found.item = item;
        return found;
    }
    Hit test(double x, double y) { return test(&look(table), x, y); }

    KdDbObjectId table;
};

TEST_F(HitTest, Finds_the_cell_under_the_point_and_the_owner_of_its_merge) {
    EXPECT_EQ(test(115.0, 190.0), (Hit{true, 0, 0, 0, 1}));
    EXPECT_EQ(test(175.0, 190.0), (Hit{true, 0, 2, 0, 1}));
    EXPECT_EQ(test(115.0, 150.0), (Hit{true, 2, 0, 0, 1}));
    EXPECT_EQ(test(180.0, 145.0), (Hit{true, 1, 1, 0, 1}));
}

TEST_F(HitTest, Tells_the_row_beside_and_the_column_above_the_table) {
    EXPECT_EQ(test(96.0, 170.0), (Hit{true, 1, 0, 0, KdDb::kTableHitRowIndicator}));
    EXPECT_EQ(test(145.0, 204.0), (Hit{true, 0, 1, 0, KdDb::kTableHitColumnIndicator}));
}

TEST_F(HitTest, A_miss_gives_0_in_all_outputs) {
    EXPECT_EQ(test(10.0, 10.0), Hit{});
    EXPECT_EQ(test(96.0, 204.0), Hit{}) << "the corner between the indicators";
}

TEST_F(HitTest, Takes_the_users_coordinates_back_to_the_world) {
    host.editor().setUcs(KdGeMatrix3d::translation({500.0, -300.0, 0.0}) *
                         KdGeMatrix3d::rotation(1.0, KdGeVector3d::kZAxis, KdGePoint3d::kOrigin));
    EXPECT_EQ(test(175.0, 190.0), (Hit{true, 0, 2, 0, 1}));
}

TEST_F(HitTest, Follows_the_view) {
    host.editor().view().zoomTo({{100.0, 140.0, 0.0}, {190.0, 200.0, 0.0}});
    EXPECT_EQ(test(175.0, 190.0), (Hit{true, 0, 2, 0, 1}));
}

TEST_F(HitTest, Is_false_without_a_table_a_view_or_the_service) {
    EXPECT_EQ(test(nullptr, 115.0, 190.0), Hit{});
    kdhost::faults().noView = true;
    EXPECT_EQ(test(115.0, 190.0), Hit{});
    kdhost::faults() = {};
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(test(115.0, 190.0), Hit{});
}

}  // namespace
}  // namespace kdtest
