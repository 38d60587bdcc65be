// Where the indicators of a table lie.

#include "host/app/cells/indicators.h"

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "kd/db/table.h"
#include "tests/support/application.h"
#include "tests/support/objects.h"
#include "tests/support/tablebuilder.h"

namespace {

class Indicators : public kdtest::ApplicationTest {
protected:
    KdDbObjectId add(const KdGeVector3d& direction, int flow) {
        auto made = kdtest::TableBuilder(3, 4).rowHeight(1, 17.0).columnWidth(2, 40.0).select("B2").build();
        made->setPosition({30.0, 40.0, 0.0});
        made->setDirection(direction);
        made->setFlowDirection(flow);
        return kdtest::append(host.database(), made.release());
    }
    static const KdDbTable& look(KdDbObjectId id) { return *kdhost::peek<KdDbTable>(id); }
};

TEST_F(Indicators, are_found_at_their_middles_whichever_way_the_table_turns_and_grows) {
    for (const int flow : {0, 1}) {
        for (const KdGeVector3d& direction : {KdGeVector3d(1, 0, 0), KdGeVector3d(0, 1, 0), KdGeVector3d(-3, 4, 0)}) {
            const KdDbObjectId id = add(direction, flow);
            for (int row = 0; row < 3; ++row) {
                const auto line = kdhost::indicatorAt(id, kdhost::middleOfIndicator(look(id), true, row));
                ASSERT_TRUE(line.has_value()) << row << " flow " << flow;
                EXPECT_TRUE(line->isRow);
                EXPECT_EQ(line->cells, (KdCellRange{row, 0, row, 3}));
            }
            for (int column = 0; column < 4; ++column) {
                const auto line = kdhost::indicatorAt(id, kdhost::middleOfIndicator(look(id), false, column));
                ASSERT_TRUE(line.has_value()) << column << " flow " << flow;
                EXPECT_FALSE(line->isRow);
                EXPECT_EQ(line->cells, (KdCellRange{0, column, 2, column}));
            }
        }
    }
}

TEST_F(Indicators, are_there_only_beside_a_table_with_selected_cells) {
    const KdDbObjectId id = add({1, 0, 0}, 0);
    const KdGePoint3d middle = kdhost::middleOfIndicator(look(id), true, 1);
    EXPECT_FALSE(kdhost::indicatorAt(id, middle + KdGeVector3d(-50, 0, 0)).has_value());
    EXPECT_FALSE(kdhost::indicatorAt(id, middle + KdGeVector3d(20, 0, 0)).has_value()) << "a cell";
    EXPECT_FALSE(kdhost::indicatorAt(KdDbObjectId::kNull, middle).has_value());
    auto* table = kdtest::mustOpen<KdDbTable>(id);
    table->clearSubSelection();
    table->close();
    EXPECT_FALSE(kdhost::indicatorAt(id, middle).has_value());
}

}  // namespace
