// A block in a cell, from the pick in the drawing to the cell that takes it.

#include "host/ed/display.h"
#include "tests/ui/blockdialog/fixture.h"

namespace kdtest {
namespace {

/// Keeps what the last update drew.
class DrawnAgain : public kdhost::Display {
public:
    DrawnAgain() {
        kdhost::updateDisplay();
        kdhost::setDisplay(this);
    }
    ~DrawnAgain() override { kdhost::setDisplay(nullptr); }
    DrawnAgain(const DrawnAgain&) = delete;
    DrawnAgain& operator=(const DrawnAgain&) = delete;
    void redraw(const std::vector<KdDbObjectId>& ids) override { last = ids; }
    std::vector<KdDbObjectId> last;
};

class BlockInCell : public BlockDialogTest {
protected:
    void SetUp() override {
        BlockDialogTest::SetUp();
        table = add(TableBuilder(4, 3).fill());
        block = addBlock(L"part");
        change([&](KdDbTable& open) {
            open.setBlockTableRecordId(2, 1, 0, block, false);
            open.setBlockScale(2, 1, 2.5);
            open.setBlockRotation(2, 1, 0.5);
            open.setAlignment(2, 1, KdDb::kBottomRight);
        });
    }
    void change(const std::function<void(KdDbTable&)>& act) {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        ASSERT_TRUE(open);
        act(*open);
    }
    bool invoke(int row, int column, const Act& act) {
        next(act);
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        return invokeTableInsertBlockDlg(open.get(), row, column, 0);
    }
    /// Types a point in the middle of a cell for the pick to come.
    void pick(int row, int column) {
        KdGePoint3dArray corners;
        look(table).getCellExtents(row, column, true, corners);
        const KdGePoint3d first = corners[0];
        const KdGePoint3d last = corners[3];
        host.type(std::to_wstring((first.x + last.x) / 2) + L"," + std::to_wstring((first.y + last.y) / 2) + L"\n");
    }

    KdDbObjectId table;
    KdDbObjectId block;
};

TEST_F(BlockInCell, The_dialog_shows_the_block_of_the_cell) {
    EXPECT_FALSE(invoke(2, 1, [](QWidget& dialog) {
        EXPECT_EQ(text(dialog, kBlockScale), "2.500000");
        EXPECT_EQ(text(dialog, kBlockAngle), "0.500000");
        EXPECT_EQ(in<QComboBox>(dialog, kBlockAlignment).currentIndex(), 8);
        EXPECT_FALSE(in<QCheckBox>(dialog, kBlockAutofit).isChecked());
    }));
}

TEST_F(BlockInCell, OK_writes_to_the_cell_whose_column_is_the_number_of_the_row) {
    const std::string before = describe(look(table));
    EXPECT_TRUE(invoke(2, 1, [](QWidget& dialog) { press(dialog, "IDOK"); }));
    EXPECT_NE(describe(look(table)), before);
    EXPECT_EQ(look(table).blockTableRecordId(2, 2, 0), block);
    EXPECT_EQ(look(table).blockScale(2, 2), 2.5);
    EXPECT_EQ(look(table).blockRotation(2, 2), 0.5);
    EXPECT_EQ(look(table).alignment(2, 2), KdDb::kBottomRight);
    EXPECT_EQ(look(table).blockTableRecordId(2, 1, 0), block) << "the cell itself stays";
}

TEST_F(BlockInCell, A_block_that_is_fitted_to_its_cell_is_so_in_the_other_one) {
    change([&](KdDbTable& open) { open.setBlockTableRecordId(2, 1, 0, block, true); });
    EXPECT_TRUE(invoke(2, 1, [](QWidget& dialog) {
        EXPECT_TRUE(in<QCheckBox>(dialog, kBlockAutofit).isChecked());
        press(dialog, "IDOK");
    }));
    EXPECT_TRUE(look(table).isAutoScale(2, 2, 0));
}

TEST_F(BlockInCell, A_row_beyond_the_columns_has_no_such_cell_and_nothing_is_changed) {
    const std::string before = describe(look(table));
    EXPECT_TRUE(invoke(3, 1, [](QWidget& dialog) { press(dialog, "IDOK"); }));
    EXPECT_EQ(describe(look(table)), before);
}

TEST_F(BlockInCell, Cancel_writes_nothing) {
    const std::string before = describe(look(table));
    EXPECT_FALSE(invoke(2, 1, [](QWidget& dialog) { press(dialog, "IDCANCEL"); }));
    EXPECT_EQ(describe(look(table)), before);
}

TEST_F(BlockInCell, No_table_opens_no_dialog) {
    EXPECT_FALSE(invokeTableInsertBlockDlg(nullptr, 0, 0, 0));
}

TEST_F(BlockInCell, A_pick_opens_the_dialog_on_the_cell_under_it_and_OK_redraws_the_table) {
    next([](QWidget& dialog) {
        EXPECT_EQ(text(dialog, kBlockScale), "2.500000");
        press(dialog, "IDOK");
    });
    pick(2, 1);
    const DrawnAgain drawn;
    tableInsertBlockEntry();
    EXPECT_EQ(look(table).blockTableRecordId(2, 2, 0), block);
    EXPECT_EQ(drawn.last, std::vector<KdDbObjectId>{table});
}

TEST_F(BlockInCell, OK_redraws_the_table_also_where_no_cell_takes_the_block_and_Cancel_redraws_nothing) {
    for (const char* button : {"IDOK", "IDCANCEL"}) {
        next([=](QWidget& dialog) { press(dialog, button); });
        pick(3, 1);
        const DrawnAgain drawn;
        tableInsertBlockEntry();
        const bool accepted = std::string(button) == "IDOK";
        EXPECT_EQ(drawn.last, accepted ? std::vector{table} : std::vector<KdDbObjectId>()) << button;
    }
}

TEST_F(BlockInCell, A_pick_beside_the_table_and_a_cancelled_one_open_no_dialog) {
    const std::string before = describe(look(table));
    host.type(L"-5000,5000\n");
    tableInsertBlockEntry();
    tableInsertBlockEntry();
    EXPECT_EQ(describe(look(table)), before);
}

TEST_F(BlockInCell, A_table_that_cant_be_opened_for_write_opens_no_dialog) {
    pick(2, 1);
    const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
    tableInsertBlockEntry();
}

}  // namespace
}  // namespace kdtest
