// What the dialog of cell borders shows of the selected cells, and its edit of the spacing.

#include <QListWidget>

#include "host/ui/linetypes.h"
#include "kd/db/database.h"
#include "module/edit/cellborderpropdlg.h"
#include "tests/ui/borderdialog/fixture.h"

namespace kdtest {
namespace {

class BorderDialogBoxes : public BorderDialogTest {
protected:
    void dress(KdDbTable& open, int row, int column, bool isDouble = false) {
        forEachEdge(kAllEdges, [&](KdDb::GridLineType edge) {
            open.setGridVisibility(row, column, edge, KdDb::kVisible);
            open.setGridColor(row, column, edge, KdCmColor::fromIndex(1));
            open.setGridLinetype(row, column, edge, host.database().continuousLinetype());
            open.setGridLineWeight(row, column, edge, KdDb::kLnWt050);
            open.setGridDoubleLineSpacing(row, column, edge, 0.75);
            open.setGridLineStyle(row, column, edge,
                                  isDouble ? KdDb::kGridLineStyleDouble : KdDb::kGridLineStyleSingle);
        });
    }
    static void expectMixed(QWidget& dialog) {
        for (const char* name : {kBorderWeight, kBorderType, kBorderColor}) EXPECT_EQ(row(dialog, name), 1) << name;
    }
};

TEST_F(BorderDialogBoxes, Show_what_all_lines_of_one_cell_share) {
    change([&](KdDbTable& open) { dress(open, 1, 1); });
    setBorders([](QWidget& dialog) {
        EXPECT_EQ(shown(dialog, kBorderWeight), "0.50 mm");
        EXPECT_EQ(shown(dialog, kBorderColor), "Red");
        EXPECT_EQ(shown(dialog, kBorderType), "Continuous");
        EXPECT_FALSE(isChecked(dialog, kBorderDouble));
        EXPECT_FALSE(isEnabled(dialog, kBorderSpacing));
        EXPECT_EQ(text(dialog, kBorderSpacing), "0.75") << "that of the first cell's top";
    });
}

TEST_F(BorderDialogBoxes, Six_double_lines_check_the_button_and_are_painted_double_again) {
    change([&](KdDbTable& open) { dress(open, 1, 1, true); });
    setBorders([](QWidget& dialog) {
        EXPECT_TRUE(isChecked(dialog, kBorderDouble));
        EXPECT_TRUE(isEnabled(dialog, kBorderSpacing));
        EXPECT_EQ(text(dialog, kBorderSpacing), "0.75");
        click(dialog, "ALLBORDER_BUTTON");
    });
    EXPECT_EQ(look(table).gridLineStyle(1, 1, KdDb::kHorzTop), KdDb::kGridLineStyleDouble);
}

TEST_F(BorderDialogBoxes, What_they_show_is_painted_untouched) {
    const KdDbObjectId types[] = {host.database().byLayerLinetype(), host.database().byBlockLinetype(),
                                  host.database().continuousLinetype()};
    for (const KdDbObjectId type : types) {
        change([&](KdDbTable& open) {
            dress(open, 1, 1);
            forEachEdge(kAllEdges, [&](KdDb::GridLineType edge) { open.setGridLinetype(1, 1, edge, type); });
        });
        const std::vector<std::string> before = linesOf(look(table));
        setBorders([](QWidget& dialog) { click(dialog, "ALLBORDER_BUTTON"); });
        EXPECT_EQ(linesOf(look(table)), before) << type.asInteger();
    }
}

TEST_F(BorderDialogBoxes, One_line_that_differs_or_is_hidden_shows_row_1) {
    change([&](KdDbTable& open) {
        dress(open, 1, 1);
        open.setGridLineWeight(1, 1, KdDb::kVertRight, KdDb::kLnWt060);
    });
    setBorders([](QWidget& dialog) {
        EXPECT_EQ(row(dialog, kBorderWeight), 1);
        EXPECT_EQ(shown(dialog, kBorderColor), "Red");
    });
    change([&](KdDbTable& open) {
        dress(open, 1, 1, true);
        open.setGridVisibility(1, 1, KdDb::kVertInside, KdDb::kInvisible);
    });
    setBorders([](QWidget& dialog) {
        expectMixed(dialog);
        EXPECT_FALSE(isChecked(dialog, kBorderDouble));
        EXPECT_FALSE(isEnabled(dialog, kBorderSpacing));
    });
}

TEST_F(BorderDialogBoxes, Two_cells_count_as_mixed_though_all_their_lines_are_equal) {
    change([&](KdDbTable& open) {
        dress(open, 1, 1, true);
        dress(open, 1, 2, true);
    });
    select(table, "B2:C2");
    setBorders([](QWidget& dialog) {
        expectMixed(dialog);
        EXPECT_FALSE(isChecked(dialog, kBorderDouble));
        EXPECT_EQ(text(dialog, kBorderSpacing), "0.75") << "that of the first cell's top";
    });
}

TEST_F(BorderDialogBoxes, Six_single_lines_of_one_spacing_show_that_of_the_first_cells_top_too) {
    change([&](KdDbTable& open) {
        dress(open, 1, 1);
        dress(open, 1, 2);
        open.setGridDoubleLineSpacing(1, 1, KdDb::kHorzTop, 3.0);
        forEachEdge(kAllEdges & ~KdDb::kVertLeft,
                    [&](KdDb::GridLineType edge) { open.setGridVisibility(1, 1, edge, KdDb::kInvisible); });
    });
    ASSERT_EQ(visible(1, 1), KdDb::kVertLeft);
    ASSERT_EQ(visible(1, 2), kAllEdges & ~KdDb::kVertLeft) << "what it shares with the first cell is hidden";
    select(table, "B2:C2");
    setBorders([](QWidget& dialog) {
        EXPECT_EQ(shown(dialog, kBorderWeight), "0.50 mm") << "six lines that agree";
        EXPECT_EQ(text(dialog, kBorderSpacing), "3");
    });
}

TEST_F(BorderDialogBoxes, A_colour_without_a_row_shows_row_1) {
    change([&](KdDbTable& open) {
        dress(open, 1, 1);
        forEachEdge(kAllEdges,
                    [&](KdDb::GridLineType edge) { open.setGridColor(1, 1, edge, KdCmColor::fromRgb(12, 34, 56)); });
    });
    setBorders([](QWidget& dialog) {
        EXPECT_EQ(row(dialog, kBorderColor), 1);
        EXPECT_EQ(shown(dialog, kBorderWeight), "0.50 mm");
    });
}

TEST_F(BorderDialogBoxes, Six_spacings_agree_that_differ_by_less_than_arithmetic_does) {
    // Six double lines show of two cells, and the first cell's top line isn't among them.
    const auto prepare = [&](double difference) {
        change([&](KdDbTable& open) {
            dress(open, 1, 2, true);
            dress(open, 1, 1, true);
            forEachEdge(kAllEdges & ~KdDb::kHorzInside,
                        [&](KdDb::GridLineType edge) { open.setGridVisibility(1, 1, edge, KdDb::kInvisible); });
            open.setGridDoubleLineSpacing(1, 1, KdDb::kHorzTop, 3.0);
            open.setGridDoubleLineSpacing(1, 2, KdDb::kHorzBottom, 0.75 + difference);
        });
        select(table, "B2:C2");
    };
    for (const double difference : {0.0, 0.5e-10, -0.5e-10}) {
        prepare(difference);
        setBorders([](QWidget& dialog) {
            EXPECT_EQ(text(dialog, kBorderSpacing), "0.75");
            EXPECT_TRUE(isChecked(dialog, kBorderDouble));
        });
    }
    prepare(2e-10);
    setBorders([](QWidget& dialog) { EXPECT_EQ(text(dialog, kBorderSpacing), "3") << "that of the first cell's top"; });
}

TEST_F(BorderDialogBoxes, List_the_line_types_of_the_tables_drawing) {
    kdhost::loadLinetype(host.database(), kdhost::standardLinetypes().front());
    setBorders([&](QWidget& dialog) {
        auto& box = control<QComboBox>(dialog, kBorderType);
        EXPECT_GE(box.findText(QString::fromStdWString(std::wstring(kdhost::standardLinetypes().front().name))), 2);
        choose(kBorderType, "Continuous");
        click(dialog, "ALLBORDER_BUTTON");
    });
    EXPECT_EQ(look(table).gridLinetype(1, 1, KdDb::kHorzTop), host.database().continuousLinetype());
}

TEST_F(BorderDialogBoxes, One_cell_has_no_inside_and_the_buttons_show_it) {
    const auto insides = {"INNERBORDER_BUTTON", "HORZINSIDEBORDER_BUTTON", "VERTINSIDEBORDER_BUTTON"};
    std::map<std::string, QImage> disabled;
    const auto pictureOf = [](QWidget& dialog, const char* name) {
        return control<QPushButton>(dialog, name).icon().pixmap(16).toImage();
    };
    setBorders([&](QWidget& dialog) {
        for (const char* name : insides) {
            EXPECT_FALSE(isEnabled(dialog, name)) << name;
            disabled[name] = pictureOf(dialog, name);
        }
        EXPECT_TRUE(isEnabled(dialog, "ALLBORDER_BUTTON"));
    });
    select(table, "B2:B3");
    setBorders([&](QWidget& dialog) {
        for (const char* name : insides) {
            EXPECT_TRUE(isEnabled(dialog, name)) << name;
            EXPECT_NE(pictureOf(dialog, name), disabled[name]) << name;
        }
    });
}

TEST_F(BorderDialogBoxes, A_merge_is_several_cells) {
    change([](KdDbTable& open) { open.mergeCells(1, 2, 1, 2); });
    select(table, "B2:C3");
    setBorders([](QWidget& dialog) { EXPECT_TRUE(isEnabled(dialog, "INNERBORDER_BUTTON")); });
}

TEST_F(BorderDialogBoxes, The_double_line_opens_the_spacing) {
    setBorders([](QWidget& dialog) {
        EXPECT_FALSE(isEnabled(dialog, kBorderSpacing));
        click(dialog, kBorderDouble);
        EXPECT_TRUE(isEnabled(dialog, kBorderSpacing));
        click(dialog, kBorderDouble);
        EXPECT_FALSE(isEnabled(dialog, kBorderSpacing));
    });
}

TEST_F(BorderDialogBoxes, A_spacing_is_written_as_the_drawing_writes_lengths_and_goes_with_the_next_button) {
    setBorders([&](QWidget& dialog) {
        click(dialog, kBorderDouble);
        typeSpacing(dialog, "1.50");
        pressKey(Qt::Key_Tab);
        EXPECT_EQ(text(dialog, kBorderSpacing), "1.5");
        EXPECT_NE(look(table).gridDoubleLineSpacing(1, 1, KdDb::kHorzTop), 1.5);
        click(dialog, "ONLYTOPBORDER_BUTTON");
    });
    EXPECT_EQ(look(table).gridDoubleLineSpacing(1, 1, KdDb::kHorzTop), 1.5);
    EXPECT_NE(look(table).gridDoubleLineSpacing(1, 1, KdDb::kVertLeft), 1.5);
}

TEST_F(BorderDialogBoxes, A_spacing_never_entered_leaves_those_of_the_lines) {
    change([](KdDbTable& open) { open.setGridDoubleLineSpacing(1, 1, KdDb::kVertLeft, 3.0); });
    setBorders([](QWidget& dialog) {
        click(dialog, kBorderDouble);
        click(dialog, "ALLBORDER_BUTTON");
    });
    EXPECT_EQ(look(table).gridDoubleLineSpacing(1, 1, KdDb::kVertLeft), 3.0);
}

TEST_F(BorderDialogBoxes, A_spacing_of_0_is_taken) {
    setBorders([](QWidget& dialog) {
        click(dialog, kBorderDouble);
        typeSpacing(dialog, "0");
        click(dialog, "ONLYTOPBORDER_BUTTON");
    });
    EXPECT_EQ(look(table).gridDoubleLineSpacing(1, 1, KdDb::kHorzTop), 0.0);
}

TEST_F(BorderDialogBoxes, A_bad_spacing_keeps_the_focus_all_of_it_selected) {
    for (const char* bad : {"-1", "wide", ""}) {
        setBorders([&](QWidget& dialog) {
            click(dialog, kBorderDouble);
            typeSpacing(dialog, bad);
            pressKey(Qt::Key_Tab);
            EXPECT_EQ(focusName(), borderControl(kBorderSpacing)) << bad;
            EXPECT_EQ(control<QLineEdit>(dialog, kBorderSpacing).selectedText().toStdString(), bad);
            EXPECT_EQ(text(dialog, kBorderSpacing), bad);
            close(dialog, "IDCANCEL");
            EXPECT_FALSE(dialog.isVisible()) << "Cancel is let through";
        });
    }
}

TEST_F(BorderDialogBoxes, A_bad_spacing_lets_the_focus_go_to_Cancel_and_to_another_window) {
    setBorders([](QWidget& dialog) {
        click(dialog, kBorderDouble);
        typeSpacing(dialog, "-1");
        dialog.findChild<QPushButton*>(QStringLiteral("IDCANCEL"))->setFocus();
        EXPECT_EQ(focusName(), "IDCANCEL");
        const auto& edit = control<QLineEdit>(dialog, kBorderSpacing);
        typeSpacing(dialog, "-1");
        EXPECT_EQ(edit.selectedText(), QString());
        QTimer::singleShot(0, &dialog, [&] {
            QWidget* box = QApplication::activeModalWidget();
            EXPECT_TRUE(
                QTest::qWaitFor([&] { return box->isActiveWindow() && box->isAncestorOf(box->focusWidget()); }));
            EXPECT_EQ(edit.selectedText(), QString()) << "it isn't called back";
            QTest::keyClick(box, Qt::Key_Escape);
        });
        dynamic_cast<KdUiBaseDialog&>(dialog).MessageBoxW(L"text", L"caption", 0);
        EXPECT_EQ(edit.text(), QStringLiteral("-1"));
        close(dialog, "IDCANCEL");
    });
}

TEST_F(BorderDialogBoxes, A_bad_spacing_has_no_effect) {
    change([](KdDbTable& open) { open.setGridDoubleLineSpacing(1, 1, KdDb::kHorzTop, 3.0); });
    setBorders([](QWidget& dialog) {
        click(dialog, kBorderDouble);
        typeSpacing(dialog, "-1");
        control<QWidget>(dialog, "ALLBORDER_BUTTON").setFocus();
        EXPECT_EQ(focusName(), borderControl(kBorderSpacing));
        typeSpacing(dialog, "2");
        pressKey(Qt::Key_Tab);
        EXPECT_NE(focusName(), borderControl(kBorderSpacing));
    });
    EXPECT_EQ(look(table).gridDoubleLineSpacing(1, 1, KdDb::kHorzTop), 3.0);
}

TEST_F(BorderDialogBoxes, A_colour_of_the_colour_dialog_is_painted) {
    setBorders([](QWidget& dialog) {
        auto& box = control<QComboBox>(dialog, kBorderColor);
        QTimer::singleShot(0, &dialog, [] { EXPECT_EQ(kdhost::automation::color(L"10,20,30"), L""); });
        choose(kBorderColor, box.itemText(box.count() - 1).toUtf8().constData());
        QApplication::setActiveWindow(&dialog);
        click(dialog, "ONLYTOPBORDER_BUTTON");
    });
    EXPECT_EQ(look(table).gridColor(1, 1, KdDb::kHorzTop), KdCmColor::fromRgb(10, 20, 30));
}

TEST_F(BorderDialogBoxes, Other_line_types_are_asked_for_and_a_cancelled_choice_keeps_the_row_before) {
    const auto chooseOther = [](QWidget& dialog, const char* button) {
        QTimer::singleShot(0, &dialog, [button] {
            QWidget* types = QApplication::activeModalWidget();
            types->findChild<QListWidget*>(QStringLiteral("IDC_LINETYPE_LIST"))->setCurrentRow(0);
            close(*types, button);
        });
        const auto& box = control<QComboBox>(dialog, kBorderType);
        choose(kBorderType, box.itemText(box.count() - 1).toUtf8().constData());
        QApplication::setActiveWindow(&dialog);
    };
    setBorders([&](QWidget& dialog) {
        choose(kBorderType, "Continuous");
        chooseOther(dialog, "IDCANCEL");
        EXPECT_EQ(shown(dialog, kBorderType), "Continuous");
        click(dialog, "ONLYTOPBORDER_BUTTON");
        chooseOther(dialog, "IDOK");
        EXPECT_EQ(shown(dialog, kBorderType), "By layer") << "the first of those offered";
        click(dialog, "ONLYLEFTBORDER_BUTTON");
    });
    EXPECT_EQ(look(table).gridLinetype(1, 1, KdDb::kHorzTop), host.database().continuousLinetype());
    EXPECT_EQ(look(table).gridLinetype(1, 1, KdDb::kVertLeft), host.database().byLayerLinetype());
}

TEST_F(BorderDialogBoxes, An_operation_that_nothing_calls_makes_shown_lines_single) {
    change([&](KdDbTable& open) {
        dress(open, 1, 1, true);
        open.setGridVisibility(1, 1, KdDb::kVertLeft, KdDb::kInvisible);
    });
    const ResourceScope resources;
    CVqTableCellBorderPropDlg dialog;
    dialog.SetTableObjectId(table);
    dialog.OnInitDialog();
    dialog.SetInvisibleGridLineData();
    EXPECT_EQ(look(table).gridLineStyle(1, 1, KdDb::kHorzTop), KdDb::kGridLineStyleSingle);
    EXPECT_EQ(look(table).gridLineStyle(1, 1, KdDb::kVertLeft), KdDb::kGridLineStyleDouble);
}

TEST_F(BorderDialogBoxes, Another_that_nothing_calls_reads_the_number_that_a_text_begins_with) {
    EXPECT_EQ(CVqTableCellBorderPropDlg::GetSpacingValue(L"1.25 mm"), 1.25);
    EXPECT_EQ(CVqTableCellBorderPropDlg::GetSpacingValue(L"-2e1"), -20.0);
    EXPECT_EQ(CVqTableCellBorderPropDlg::GetSpacingValue(L"wide"), 0.0);
}

}  // namespace
}  // namespace kdtest
