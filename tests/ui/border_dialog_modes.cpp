// What the ten buttons of the dialog of cell borders do to the lines of the selected cells.

#include "kd/db/database.h"
#include "tests/ui/border_fixture.h"

namespace kdtest {
namespace {

class BorderDialogModes : public BorderDialogTest {
protected:
    /// What is picked in the dialog, apart from the double line.
    void pick() {
        choose(kBorderColor, "Red");
        choose(kBorderWeight, "0.50 mm");
        choose(kBorderType, "Continuous");
    }
    void paint(KdDbTable& open, int row, int column, KdDb::GridLineType edge, bool isDouble) {
        open.setGridLineStyle(row, column, edge, isDouble ? KdDb::kGridLineStyleDouble : KdDb::kGridLineStyleSingle);
        open.setGridColor(row, column, edge, KdCmColor::fromIndex(1));
        open.setGridLinetype(row, column, edge, host.database().continuousLinetype());
        open.setGridLineWeight(row, column, edge, KdDb::kLnWt050);
        if (isDouble) open.setGridDoubleLineSpacing(row, column, edge, 0.75);
    }
    /// The rule, cell by cell and line by line, on another table like it.
    std::vector<std::string> expected(const BorderMode& mode, const KdCellRange& cells, bool isDouble) {
        KdDbTable model;
        model.copyFrom(&look(table));
        model.setDatabaseDefaults(&host.database());
        for (int row = cells.m_topRow; row <= cells.m_bottomRow; ++row) {
            for (int column = cells.m_leftColumn; column <= cells.m_rightColumn; ++column) {
                forEachEdge(mode.shown, [&](KdDb::GridLineType edge) {
                    model.setGridVisibility(row, column, edge, KdDb::kVisible);
                });
            }
        }
        for (int row = cells.m_topRow; row <= cells.m_bottomRow; ++row) {
            for (int column = cells.m_leftColumn; column <= cells.m_rightColumn; ++column) {
                forEachEdge(mode.painted, [&](KdDb::GridLineType edge) { paint(model, row, column, edge, isDouble); });
            }
        }
        return linesOf(model);
    }
    void expectMode(const BorderMode& mode, const char* range, bool isDouble) {
        SCOPED_TRACE(::testing::Message() << mode.button << ' ' << range << (isDouble ? " double" : " single"));
        change(hideAll);
        change([](KdDbTable& open) {
            for (int row = 0; row < open.numRows(); ++row) open.clearCellOverrides(row, 0);
        });
        select(table, range);
        const std::vector<std::string> wanted = expected(mode, cells(range), isDouble);
        setBorders([&](QWidget& dialog) {
            pick();
            if (isDouble) {
                click(dialog, kBorderDouble);
                typeSpacing(dialog, "0.75");
            }
            click(dialog, mode.button);
        });
        EXPECT_EQ(linesOf(look(table)), wanted);
    }
};

TEST_F(BorderDialogModes, Each_button_shows_and_paints_its_lines_of_one_cell_and_no_other) {
    for (const BorderMode& mode : kBorderModes) {
        change(hideAll);
        const bool needsCells = mode.button == std::string("INNERBORDER_BUTTON") || mode.painted == 0;
        if (needsCells) continue;
        setBorders([&](QWidget& dialog) {
            pick();
            click(dialog, mode.button);
        });
        EXPECT_EQ(visible(1, 1), mode.shown) << mode.button;
        forEachEdge(mode.painted, [&](KdDb::GridLineType edge) {
            EXPECT_EQ(look(table).gridColor(1, 1, edge), KdCmColor::fromIndex(1)) << mode.button << ' ' << edge;
        });
        change([](KdDbTable& open) { open.clearCellOverrides(1, 1); });
    }
}

TEST_F(BorderDialogModes, Each_button_does_to_several_cells_what_it_does_to_each_single_and_double) {
    for (const BorderMode& mode : kBorderModes) {
        for (const bool isDouble : {false, true}) {
            for (const char* range : {"B2:C3", "A1:D1", "D2:D5"}) expectMode(mode, range, isDouble);
        }
    }
}

TEST_F(BorderDialogModes, Outside_borders_are_the_four_sides_of_each_cell) {
    change(hideAll);
    select(table, "B2:C3");
    setBorders([](QWidget& dialog) { click(dialog, "OUTERBORDER_BUTTON"); });
    for (int row = 1; row <= 2; ++row) {
        for (int column = 1; column <= 2; ++column) EXPECT_EQ(visible(row, column), 1 | 4 | 8 | 32);
    }
}

TEST_F(BorderDialogModes, The_bottom_button_paints_the_inside_line_too_but_shows_the_bottom_alone) {
    change(hideAll);
    setBorders([](QWidget& dialog) {
        choose(kBorderColor, "Green");
        click(dialog, "ONLYBOTTOMBORDER_BUTTON");
    });
    EXPECT_EQ(visible(1, 1), static_cast<int>(KdDb::kHorzBottom));
    EXPECT_EQ(look(table).gridColor(1, 1, KdDb::kHorzBottom), KdCmColor::fromIndex(3));
    EXPECT_EQ(look(table).gridColor(1, 1, KdDb::kHorzInside), KdCmColor::fromIndex(3));
    EXPECT_NE(look(table).gridColor(1, 1, KdDb::kHorzTop), KdCmColor::fromIndex(3));
}

TEST_F(BorderDialogModes, The_buttons_of_one_inside_line_show_it_as_it_is) {
    change([](KdDbTable& open) {
        hideAll(open);
        open.setGridColor(1, 1, KdDb::kHorzInside, KdCmColor::fromIndex(5));
    });
    select(table, "B2:C3");
    setBorders([](QWidget& dialog) {
        choose(kBorderColor, "Red");
        click(dialog, "HORZINSIDEBORDER_BUTTON");
    });
    EXPECT_EQ(visible(1, 1), static_cast<int>(KdDb::kHorzInside));
    EXPECT_EQ(look(table).gridColor(1, 1, KdDb::kHorzInside), KdCmColor::fromIndex(5));
}

TEST_F(BorderDialogModes, Buttons_add_to_what_shows_and_the_last_one_takes_all_away) {
    change(hideAll);
    setBorders([&](QWidget& dialog) {
        click(dialog, "ONLYTOPBORDER_BUTTON");
        click(dialog, "ONLYLEFTBORDER_BUTTON");
        EXPECT_EQ(visible(1, 1), 1 | 8) << "at once";
        click(dialog, kNoBorders);
        EXPECT_EQ(visible(1, 1), 0);
        click(dialog, "ALLBORDER_BUTTON");
    });
    EXPECT_EQ(visible(1, 1), 63);
}

TEST_F(BorderDialogModes, Taking_borders_away_leaves_how_they_look) {
    change([](KdDbTable& open) { open.setGridColor(1, 1, KdDb::kVertLeft, KdCmColor::fromIndex(5)); });
    setBorders([](QWidget& dialog) {
        choose(kBorderColor, "Red");
        click(dialog, kNoBorders);
    });
    EXPECT_EQ(visible(1, 1), 0);
    EXPECT_EQ(look(table).gridColor(1, 1, KdDb::kVertLeft), KdCmColor::fromIndex(5));
}

TEST_F(BorderDialogModes, What_is_picked_without_a_button_changes_nothing) {
    const std::vector<std::string> before = linesOf(look(table));
    const std::size_t steps = this->steps().size();
    setBorders([](QWidget& dialog) {
        choose(kBorderColor, "Red");
        choose(kBorderWeight, "1.00 mm");
        choose(kBorderType, "Continuous");
        click(dialog, kBorderDouble);
        typeSpacing(dialog, "2");
        pressKey(Qt::Key_Tab);
    });
    EXPECT_EQ(linesOf(look(table)), before);
    EXPECT_EQ(this->steps().size(), steps);
}

TEST_F(BorderDialogModes, All_that_a_dialog_did_is_one_step_of_undo_whichever_button_closed_it) {
    for (const char* closing : {"IDOK", "IDCANCEL"}) {
        const std::vector<std::string> before = linesOf(look(table));
        const std::size_t steps = this->steps().size();
        EXPECT_TRUE(setBorders([&](QWidget& dialog) {
            click(dialog, kNoBorders);
            choose(kBorderColor, "Red");
            click(dialog, "ALLBORDER_BUTTON");
            close(dialog, closing);
        }));
        EXPECT_NE(linesOf(look(table)), before) << "what was done stays";
        ASSERT_EQ(this->steps().size(), steps + 1);
        EXPECT_EQ(this->steps().back(), L"CellBorder");
        EXPECT_EQ(undoHistory().undoTitle(), L"Cell borders");
        EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
        EXPECT_EQ(linesOf(look(table)), before);
        EXPECT_EQ(undoHistory().redo(), Kdad::eOk);
        EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    }
}

TEST_F(BorderDialogModes, Whole_rows_and_columns_take_borders_over_all_their_cells) {
    change(hideAll);
    select(table, KdCellRange{1, -1, 2, -1});
    setBorders([](QWidget& dialog) { click(dialog, "OUTERBORDER_BUTTON"); });
    for (int column = 0; column < 4; ++column) EXPECT_EQ(visible(1, column), 1 | 4 | 8 | 32) << column;
}

TEST_F(BorderDialogModes, Without_a_selection_nothing_is_changed) {
    OpenObject<KdDbTable>(table, KdDb::kForRead)->clearSubSelection();
    const std::vector<std::string> before = linesOf(look(table));
    setBorders([](QWidget& dialog) {
        click(dialog, kNoBorders);
        click(dialog, "ALLBORDER_BUTTON");
    });
    EXPECT_EQ(linesOf(look(table)), before);
}

TEST_F(BorderDialogModes, A_table_that_cant_be_opened_is_left_alone) {
    {
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        ASSERT_TRUE(open->erase(true) == Kdad::eOk);
    }
    setBorders([](QWidget& dialog) {
        for (const BorderMode& mode : kBorderModes) click(dialog, mode.button);
        click(dialog, kNoBorders);
        EXPECT_TRUE(picture(dialog).isNull());
    });
}

TEST_F(BorderDialogModes, No_table_is_refused_without_a_dialog) {
    EXPECT_FALSE(CVqTableCommon::SetBorders(KdDbObjectId::kNull));
    EXPECT_FALSE(CVqTableCommon::SetBorders(KdDbObjectId()));
}

}  // namespace
}  // namespace kdtest
