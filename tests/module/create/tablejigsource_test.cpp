// Placing of a table that was read from a file: its preview, the table itself, and the axes it gets.

#include <malloc.h>

#include <new>

#include "tests/module/create/jigfixture.h"

namespace kdtest {
namespace {

class PlaceSource : public PlaceAtPoint {
protected:
    /// Merges in both directions and at both ends, sizes of their own, texts.
    std::unique_ptr<KdDbTable> source() {
        return TableBuilder(4, 4)
            .style(host.database().tablestyle())
            .fill()
            .merge("A1:D1")
            .merge("B2:C4")
            .merge("D3:D4")
            .rowHeight(2, 33.0)
            .columnWidth(1, 44.0)
            .build();
    }
};

TEST_F(PlaceSource, a_preview_of_its_shape_is_dragged_and_the_table_itself_is_placed) {
    std::unique_ptr<KdDbTable> table = source();
    const std::string before = describe(*table);
    move(3, 4);
    look([&](const KdDbTable& preview) {
        EXPECT_NE(&preview, table.get());
        EXPECT_EQ(preview.tableStyle(), table->tableStyle());
        EXPECT_EQ(preview.position(), KdGePoint3d(3, 4, 0));
        for (int row = 0; row < 4; ++row) EXPECT_EQ(preview.rowHeight(row), table->rowHeight(row));
        for (int column = 0; column < 4; ++column) EXPECT_EQ(preview.columnWidth(column), table->columnWidth(column));
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                EXPECT_EQ(preview.getMergeRange(row, column), table->getMergeRange(row, column));
                EXPECT_STREQ(preview.textString(row, column), L"");
            }
        }
        pick(70, 80);
    });
    ASSERT_EQ(jig->doJig(table.get()), 1);
    EXPECT_EQ(jig->entity(), table.get());
    const KdDbTable* placed = table.release();
    EXPECT_FALSE(placed->objectId().isNull());
    EXPECT_EQ(placed->position(), KdGePoint3d(70, 80, 0));
    EXPECT_EQ(describe(*placed), before);
    EXPECT_EQ(sent(), L"") << "no cell is edited";
    EXPECT_FALSE(placed->hasSubSelection());
}

TEST_F(PlaceSource, a_cancelled_table_stays_the_caller_s_and_unchanged) {
    const std::unique_ptr<KdDbTable> table = source();
    const std::string before = describe(*table);
    move(3, 4);
    escape();
    EXPECT_EQ(jig->doJig(table.get()), 0);
    EXPECT_EQ(describe(*table), before);
    EXPECT_EQ(table->position(), KdGePoint3d());
    EXPECT_EQ(jig->entity(), nullptr);
}

TEST_F(PlaceSource, a_space_that_cannot_be_written_leaves_the_table_to_the_caller) {
    const std::unique_ptr<KdDbTable> table = source();
    pick(1, 1);
    const OpenObject<KdDbBlockTableRecord> reader(host.database().modelSpaceId(), KdDb::kForRead);
    EXPECT_EQ(jig->doJig(table.get()), 0);
    EXPECT_TRUE(table->objectId().isNull());
}

TEST_F(PlaceSource, an_error_in_the_drag_costs_the_preview_only) {
    const std::unique_ptr<KdDbTable> table = source();
    const std::string before = describe(*table);
    std::weak_ptr<const void> held;
    look([&](const KdDbTable& preview) {
        held = holdBy(preview);
        throw std::bad_alloc();
    });
    EXPECT_THROW(jig->doJig(table.get()), std::bad_alloc);
    EXPECT_TRUE(held.expired()) << "the preview is gone";
    EXPECT_EQ(jig->entity(), nullptr);
    EXPECT_EQ(describe(*table), before);
}

/// A table whose last row can't be read.
class HalfReadTable : public KdDbTable {
public:
    double rowHeight(int row) const override {
        if (row == numRows() - 1) throw std::bad_alloc();
        return KdDbTable::rowHeight(row);
    }
};

TEST_F(PlaceSource, an_error_while_the_preview_is_filled_leaves_nothing_of_it) {
    HalfReadTable table;
    table.setSize(20, 10);
    const auto fail = [&] {
        EXPECT_THROW(jig->doJig(&table), std::bad_alloc);
        EXPECT_EQ(jig->entity(), nullptr);
    };
    fail();  // what stays for good is made the first time
    const std::size_t before = mallinfo2().uordblks;
    constexpr std::size_t kTimes = 50;
    for (std::size_t time = 0; time < kTimes; ++time) fail();
    const std::size_t after = mallinfo2().uordblks;
    const std::size_t cellsOfPreview = 20 * 10 * sizeof(void*);
    EXPECT_LT(after - std::min(before, after), kTimes * cellsOfPreview / 4);
}

/// Which axes a table gets; those of the drawing's two spaces differ.
class AxesOfSource : public PlaceSource {
protected:
    KdGeVector3d directionIn(bool modelSpace) {
        KdDbDatabase& db = host.database();
        db.setUcs({0, 0, 0}, {0, 1, 0}, {-1, 0, 0});
        db.setPucs({0, 0, 0}, {-1, 0, 0}, {0, -1, 0});
        db.setTilemode(modelSpace);
        pick(1, 1);
        EXPECT_EQ(jig->doJig(source().release()), 1);
        return static_cast<const KdDbTable*>(jig->entity())->direction();
    }
};

TEST_F(AxesOfSource, model_space_gives_the_model_s) {
    EXPECT_EQ(directionIn(true), KdGeVector3d(0, 1, 0));
}

TEST_F(AxesOfSource, the_sheet_of_a_layout_gives_its_own) {
    EXPECT_EQ(directionIn(false), KdGeVector3d(-1, 0, 0));
    EXPECT_EQ(static_cast<const KdDbTable*>(jig->entity())->normal(), KdGeVector3d(0, 0, 1));
}

TEST_F(AxesOfSource, a_viewport_variable_that_cannot_be_read_counts_as_the_model) {
    kdhost::faults().unreadableVariables.insert(L"CVPORT");
    EXPECT_EQ(directionIn(false), KdGeVector3d(0, 1, 0));
    kdhost::faults().unreadableVariables.clear();
}

}  // namespace
}  // namespace kdtest
