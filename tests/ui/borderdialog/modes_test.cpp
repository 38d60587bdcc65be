// What the ten buttons of the dialog of cell borders do to the lines of the selected cells.

#include <set>

#include "host/ed/display.h"
#include "kd/db/database.h"
#include "tests/ui/borderdialog/fixture.h"

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
    /// Calls `act(row, column, edge)` for those lines of each cell.
    static void onLines(const KdCellRange& cells, int edges,
                        const std::function<void(int row, int column, KdDb::GridLineType edge)>& act) {
        for (int row = cells.m_topRow; row <= cells.m_bottomRow; ++row) {
            for (int column = cells.m_leftColumn; column <= cells.m_rightColumn; ++column) {
                forEachEdge(edges, [&](KdDb::GridLineType edge) { act(row, column, edge); });
            }
        }
    }
    /// The lines that the table has after `act`, which works on another one like it.
    std::vector<std::string> linesAfter(const std::function<void(KdDbTable&)>& act) {
        KdDbTable model;
        model.copyFrom(&look(table));
        model.setDatabaseDefaults(&host.database());
        act(model);
        return linesOf(model);
    }
    /// The rule, cell by cell and line by line.
    std::vector<std::string> expected(const BorderMode& mode, const KdCellRange& cells, bool isDouble) {
        return linesAfter([&](KdDbTable& model) {
            onLines(cells, mode.shown, [&](int row, int column, KdDb::GridLineType edge) {
                model.setGridVisibility(row, column, edge, KdDb::kVisible);
            });
            onLines(cells, mode.painted,
                    [&](int row, int column, KdDb::GridLineType edge) { paint(model, row, column, edge, isDouble); });
        });
    }
    /// No line shows, and each is of the other kind than what will be painted.
    void blankTable(bool isDouble) {
        change([&](KdDbTable& open) {
            const KdCellRange all{0, 0, open.numRows() - 1, open.numColumns() - 1};
            onLines(all, kAllEdges,
                    [&](int row, int column, KdDb::GridLineType) { open.clearCellOverrides(row, column); });
            hideAll(open);
            onLines(all, kAllEdges, [&](int row, int column, KdDb::GridLineType edge) {
                open.setGridLineStyle(row, column, edge,
                                      isDouble ? KdDb::kGridLineStyleSingle : KdDb::kGridLineStyleDouble);
            });
        });
    }
    void expectMode(const BorderMode& mode, const char* range, bool isDouble) {
        SCOPED_TRACE(::testing::Message() << mode.button << ' ' << range << (isDouble ? " double" : " single"));
        blankTable(isDouble);
        select(table, range);
        const std::vector<std::string> wanted = expected(mode, cells(range), isDouble);
        EXPECT_TRUE(wanted != linesOf(look(table)));
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
    void expectModes(const char* range, const std::set<std::string>& without = {}) {
        for (const BorderMode& mode : kBorderModes) {
            if (without.count(mode.button) != 0) continue;
            for (const bool isDouble : {false, true}) expectMode(mode, range, isDouble);
        }
    }
};

TEST_F(BorderDialogModes, Each_button_shows_and_paints_its_lines_of_one_cell_and_no_other_single_and_double) {
    expectModes("B2", {"INNERBORDER_BUTTON", "HORZINSIDEBORDER_BUTTON", "VERTINSIDEBORDER_BUTTON"});
}

TEST_F(BorderDialogModes, Each_button_does_to_several_cells_what_it_does_to_each_single_and_double) {
    for (const char* range : {"B2:C3", "A1:D1", "D2:D5"}) expectModes(range);
}

TEST_F(BorderDialogModes, Each_button_treats_every_cell_of_a_merge_as_one_of_its_own) {
    change([](KdDbTable& open) { open.mergeCells(2, 3, 1, 2); });
    expectModes("B3:C4");
}

TEST_F(BorderDialogModes, The_last_button_hides_every_line_of_every_selected_cell_and_no_other) {
    select(table, "B2:C3");
    const std::vector<std::string> wanted = linesAfter([](KdDbTable& model) {
        onLines({1, 1, 2, 2}, kAllEdges, [&](int row, int column, KdDb::GridLineType edge) {
            model.setGridVisibility(row, column, edge, KdDb::kInvisible);
        });
    });
    EXPECT_NE(wanted, linesOf(look(table)));
    setBorders([](QWidget& dialog) { click(dialog, kNoBorders); });
    EXPECT_EQ(linesOf(look(table)), wanted);
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

TEST_F(BorderDialogModes, A_table_that_another_reads_keeps_its_lines_and_the_preview_stays) {
    select(table, "B2:C3");
    const std::vector<std::string> before = linesOf(look(table));
    setBorders([&](QWidget& dialog) {
        choose(kBorderColor, "Red");
        const QImage shown = picture(dialog);
        ASSERT_FALSE(shown.isNull());
        const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
        for (const BorderMode& mode : kBorderModes) click(dialog, mode.button);
        click(dialog, kNoBorders);
        EXPECT_EQ(picture(dialog), shown);
    });
    EXPECT_EQ(linesOf(look(table)), before);
}

TEST_F(BorderDialogModes, Lines_are_shown_as_they_are_when_the_table_cant_be_opened_once_more_to_paint_them) {
    change(hideAll);
    select(table, "B2:C3");
    setBorders([&](QWidget& dialog) {
        choose(kBorderColor, "Red");
        const QImage shown = picture(dialog);
        kdhost::faults().failOpenNumber = 2;
        click(dialog, "OUTERBORDER_BUTTON");
        EXPECT_EQ(kdhost::faults().failOpenNumber, 0);
        EXPECT_NE(picture(dialog), shown);
    });
    EXPECT_EQ(visible(1, 1), 1 | 4 | 8 | 32);
    EXPECT_NE(look(table).gridColor(1, 1, KdDb::kHorzTop), KdCmColor::fromIndex(1));
}

TEST_F(BorderDialogModes, The_display_is_left_to_the_host) {
    kdhost::updateDisplay();
    ASSERT_TRUE(kdhost::queuedForRedraw().empty());
    EXPECT_TRUE(setBorders([](QWidget& dialog) { click(dialog, "ALLBORDER_BUTTON"); }));
    // Beside it wait the previews' entities.
    const std::vector<KdDbObjectId>& queued = kdhost::queuedForRedraw();
    EXPECT_EQ(std::count(queued.begin(), queued.end(), table), 1);
}

TEST_F(BorderDialogModes, No_table_is_refused_without_a_dialog) {
    EXPECT_FALSE(CVqTableCommon::SetBorders(KdDbObjectId::kNull));
    EXPECT_FALSE(CVqTableCommon::SetBorders(KdDbObjectId()));
}

TEST_F(BorderDialogModes, Without_the_main_application_service_there_is_no_dialog) {
    kdhost::faults().noMainAppService = true;
    EXPECT_FALSE(CVqTableCommon::SetBorders(table));
    kdhost::faults().noMainAppService = false;
    EXPECT_TRUE(steps().empty());
}

}  // namespace
}  // namespace kdtest
