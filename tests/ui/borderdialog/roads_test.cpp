// The roads to the dialog of cell borders: the toolbar's button and the word of the command line.

#include "module/edit/edittablecell.h"
#include "tests/ui/toolbar/fixture.h"

namespace kdtest {
namespace {

class BorderDialogRoads : public ToolbarTest {
protected:
    /// Takes the borders of the selected cells away in the dialog that comes next.
    void hideBordersNext() {
        next([](QWidget& dialog) {
            EXPECT_EQ(dialog.findChildren<QPushButton*>(QStringLiteral("IDC_CELLBORDERPROP_NOBORDER_BUTTON")).size(),
                      1);
            EXPECT_EQ(kdhost::automation::click(L"IDC_CELLBORDERPROP_NOBORDER_BUTTON"), L"");
            EXPECT_EQ(kdhost::automation::click(L"IDOK"), L"");
        });
    }
    static bool hasBorders(KdDbObjectId table, int row, int column) {
        return look(table).gridVisibility(row, column, KdDb::kVertLeft) == KdDb::kVisible;
    }
    void expectHidden(KdDbObjectId table) {
        EXPECT_TRUE(hasBorders(table, 0, 0));
        EXPECT_FALSE(hasBorders(table, 1, 1));
        EXPECT_FALSE(hasBorders(table, 2, 2));
        EXPECT_EQ(steps(), std::vector<std::wstring>{L"CellBorder"});
    }
};

TEST_F(BorderDialogRoads, The_toolbars_button_gives_the_selected_cells_borders_in_one_step) {
    const KdDbObjectId table = showOver(TableBuilder(5, 4).fill().select("B2:C3"));
    hideBordersNext();
    click("IDC_TABLEDIT_CELLBORDER");
    expectHidden(table);
    EXPECT_EQ(selection(table), cells("B2:C3"));
    EXPECT_TRUE(isShown());
}

TEST_F(BorderDialogRoads, The_toolbars_button_is_closed_for_a_locked_format) {
    const KdDbObjectId table = addTable(TableBuilder(5, 4).fill().select("B2"));
    OpenObject<KdDbTable>(table, KdDb::kForWrite)->setCellState(1, 1, KdDb::kCellStateFormatLocked);
    showTableToolBar(table, true);
    ASSERT_FALSE(button("IDC_TABLEDIT_CELLBORDER").isEnabled());
    click("IDC_TABLEDIT_CELLBORDER");
    EXPECT_TRUE(hasBorders(table, 1, 1));
}

TEST_F(BorderDialogRoads, The_word_of_the_command_line_gives_the_selected_cells_borders_in_one_step) {
    const KdDbObjectId table = addTable(TableBuilder(5, 4).fill().select("B2:C3"));
    host.type(L"BOrder\nBAck\n");
    hideBordersNext();
    EditTableCellGUI gui;
    gui.editCell_Operation(table);
    expectHidden(table);
}

}  // namespace
}  // namespace kdtest
