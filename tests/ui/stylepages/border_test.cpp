// The border page: what its boxes show of six edges, what is picked and kept, and what the eight buttons write.

#include <QCheckBox>

#include "host/ui/linetypes.h"
#include "kd/db/database.h"
#include "kd/ui/widgets.h"
#include "tests/ui/style/borders.h"

namespace kdtest {
namespace {

TEST_F(StylePageBorder, Boxes_show_what_all_six_edges_share) {
    change([](KdDbTableStyle& open) {
        for (const KdDb::GridLineType edge : kEdges) {
            open.setGridLineWeight(KdDb::kLnWt050, edge, L"_DATA");
            open.setGridColor(KdCmColor::fromIndex(1), edge, L"_DATA");
            open.setGridLinetype(open.database()->continuousLinetype(), edge, L"_DATA");
            open.setGridDoubleLineSpacing(0.75, edge, L"_DATA");
        }
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(shown(dialog, kWeightBox), "0.50 mm");
        EXPECT_EQ(shown(dialog, kColorBox), "Red");
        EXPECT_EQ(box(dialog, kTypeBox).currentIndex(), 2);
        EXPECT_EQ(text(dialog, kSpacing), "0.75");
        EXPECT_FALSE(in<QCheckBox>(dialog, kDouble).isChecked());
        EXPECT_FALSE(in<QLineEdit>(dialog, kSpacing).isEnabled());
    });
}

TEST_F(StylePageBorder, One_edge_that_differs_or_is_hidden_makes_every_box_show_row_1) {
    change([](KdDbTableStyle& open) {
        for (const KdDb::GridLineType edge : kEdges) open.setGridLineWeight(KdDb::kLnWt050, edge, L"_DATA");
        open.setGridLineWeight(KdDb::kLnWt060, KdDb::kVertRight, L"_DATA");
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) { EXPECT_EQ(shown(dialog, kWeightBox), "By block"); });
    change([](KdDbTableStyle& open) {
        open.setGridLineWeight(KdDb::kLnWt050, KdDb::kVertRight, L"_DATA");
        for (const KdDb::GridLineType edge : kEdges) {
            open.setGridColor(KdCmColor::fromIndex(1), edge, L"_DATA");
            open.setGridLinetype(open.database()->continuousLinetype(), edge, L"_DATA");
        }
        open.setGridVisibility(KdDb::kInvisible, KdDb::kVertInside, L"_DATA");
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        for (const char* name : {kWeightBox, kTypeBox, kColorBox}) {
            EXPECT_EQ(box(dialog, name).currentIndex(), 1) << name;
        }
    });
}

TEST_F(StylePageBorder, All_edges_hidden_show_row_1_everywhere_and_the_top_edges_spacing) {
    change([](KdDbTableStyle& open) {
        for (const KdDb::GridLineType edge : kEdges) open.setGridVisibility(KdDb::kInvisible, edge, L"_DATA");
        open.setGridDoubleLineSpacing(0.5, KdDb::kHorzTop, L"_DATA");
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        for (const char* name : {kWeightBox, kTypeBox, kColorBox}) {
            EXPECT_EQ(box(dialog, name).currentIndex(), 1) << name;
        }
        EXPECT_EQ(text(dialog, kSpacing), "0.5");
    });
}

TEST_F(StylePageBorder, A_double_line_on_a_hidden_edge_checks_the_button) {
    change([](KdDbTableStyle& open) {
        open.setGridLineStyle(KdDb::kGridLineStyleDouble, KdDb::kHorzBottom, L"_DATA");
        open.setGridVisibility(KdDb::kInvisible, KdDb::kHorzBottom, L"_DATA");
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_TRUE(in<QCheckBox>(dialog, kDouble).isChecked());
        EXPECT_TRUE(in<QLineEdit>(dialog, kSpacing).isEnabled());
        choose(kCellStyleBox, "Header");
        EXPECT_FALSE(in<QCheckBox>(dialog, kDouble).isChecked());
        EXPECT_FALSE(in<QLineEdit>(dialog, kSpacing).isEnabled());
    });
}

TEST_F(StylePageBorder, The_button_that_shows_double_without_having_been_touched_writes_single_lines) {
    change(
        [](KdDbTableStyle& open) { open.setGridLineStyle(KdDb::kGridLineStyleDouble, KdDb::kHorzBottom, L"_DATA"); });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_TRUE(in<QCheckBox>(dialog, kDouble).isChecked());
        press(dialog, kAll);
        for (const KdDb::GridLineType edge : kEdges) {
            EXPECT_EQ(style().gridLineStyle(edge, L"_DATA"), KdDb::kGridLineStyleSingle) << edge;
        }
    });
}

TEST_F(StylePageBorder, The_picked_double_line_stays_for_the_next_cell_style_though_its_button_shows_none) {
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        QTest::mouseClick(&in<QCheckBox>(dialog, kDouble), Qt::LeftButton, Qt::NoModifier, QPoint(5, 8));
        EXPECT_TRUE(in<QLineEdit>(dialog, kSpacing).isEnabled());
        choose(kCellStyleBox, "Header");
        EXPECT_FALSE(in<QCheckBox>(dialog, kDouble).isChecked());
        press(dialog, kTop);
        EXPECT_EQ(style().gridLineStyle(KdDb::kHorzTop, L"_HEADER"), KdDb::kGridLineStyleDouble);
        EXPECT_EQ(style().gridLineStyle(KdDb::kHorzBottom, L"_HEADER"), KdDb::kGridLineStyleSingle);
    });
}

TEST_F(StylePageBorder, Nothing_is_written_before_a_button_is_pressed) {
    const nlohmann::json before = dump();
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        choose(kWeightBox, "1.00 mm");
        choose(kColorBox, "Red");
        choose(kTypeBox, 2);
        QTest::mouseClick(&in<QCheckBox>(dialog, kDouble), Qt::LeftButton, Qt::NoModifier, QPoint(5, 8));
        enter(dialog, kSpacing, "2");
        ok(dialog);
    });
    EXPECT_EQ(dump(), before);
}

TEST_F(StylePageBorder, Top_then_bottom_add_up_and_the_inside_line_has_the_latest) {
    hideAllEdges();
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        choose(kColorBox, "Red");
        press(dialog, kTop);
        choose(kColorBox, "Green");
        press(dialog, kBottom);
        EXPECT_EQ(visibleEdges(), KdDb::kHorzTop | KdDb::kHorzInside | KdDb::kHorzBottom);
        EXPECT_EQ(style().gridColor(KdDb::kHorzTop, L"_DATA"), KdCmColor::fromIndex(1));
        EXPECT_EQ(style().gridColor(KdDb::kHorzInside, L"_DATA"), KdCmColor::fromIndex(3));
        EXPECT_EQ(style().gridColor(KdDb::kHorzBottom, L"_DATA"), KdCmColor::fromIndex(3));
    });
}

TEST_F(StylePageBorder, Each_button_shows_its_edges_and_no_other) {
    for (const BorderButtonEdges& each : kButtons) {
        hideAllEdges();
        editBorders([&](CVqTableStyleEditDlg& dialog) {
            press(dialog, each.name);
            EXPECT_EQ(visibleEdges(), each.edges) << each.name;
        });
    }
}

TEST_F(StylePageBorder, A_spacing_never_typed_leaves_those_of_the_edges) {
    change([](KdDbTableStyle& open) {
        for (const KdDb::GridLineType edge : kEdges)
            open.setGridDoubleLineSpacing(static_cast<double>(edge), edge, L"_DATA");
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        press(dialog, kAll);
        for (const KdDb::GridLineType edge : kEdges) {
            EXPECT_EQ(style().gridDoubleLineSpacing(edge, L"_DATA"), static_cast<double>(edge));
        }
        ok(dialog);
    });
}

TEST_F(StylePageBorder, A_spacing_once_typed_goes_to_every_edge_from_then_on) {
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        QTest::mouseClick(&in<QCheckBox>(dialog, kDouble), Qt::LeftButton, Qt::NoModifier, QPoint(5, 8));
        enter(dialog, kSpacing, "1/8");
        EXPECT_EQ(text(dialog, kSpacing), "0.125") << "as the drawing writes it";
        press(dialog, kInner);
        EXPECT_EQ(style().gridDoubleLineSpacing(KdDb::kVertInside, L"_DATA"), 0.125);
        EXPECT_NE(style().gridDoubleLineSpacing(KdDb::kHorzTop, L"_DATA"), 0.125);
        choose(kCellStyleBox, "Header");
        press(dialog, kOuter);
        EXPECT_EQ(style().gridDoubleLineSpacing(KdDb::kHorzTop, L"_HEADER"), 0.125);
        EXPECT_NE(style().gridDoubleLineSpacing(KdDb::kHorzInside, L"_HEADER"), 0.125);
    });
}

TEST_F(StylePageBorder, Leaving_the_edit_takes_the_spacing_that_it_shows) {
    change([](KdDbTableStyle& open) { open.setGridDoubleLineSpacing(0.5, KdDb::kHorzTop, L"_DATA"); });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        in<QCheckBox>(dialog, kDouble).click();
        EXPECT_EQ(text(dialog, kSpacing), "0.5") << "the edges don't agree: that of the top one";
        in<QLineEdit>(dialog, kSpacing).setFocus();
        pressKey(Qt::Key_Tab);
        EXPECT_EQ(focusName(), kAll);
        press(dialog, kAll);
        for (const KdDb::GridLineType edge : kEdges) {
            EXPECT_EQ(style().gridDoubleLineSpacing(edge, L"_DATA"), 0.5) << edge;
        }
    });
}

TEST_F(StylePageBorder, A_spacing_that_is_none_is_ignored_without_a_sign) {
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        QTest::mouseClick(&in<QCheckBox>(dialog, kDouble), Qt::LeftButton, Qt::NoModifier, QPoint(5, 8));
        const double before = style().gridDoubleLineSpacing(KdDb::kHorzTop, L"_DATA");
        for (const char* refused : {"-1", "much", ""}) {
            enter(dialog, kSpacing, refused);
            EXPECT_EQ(text(dialog, kSpacing), refused);
            EXPECT_EQ(focusName(), kAll) << "the focus is left alone";
            press(dialog, kAll);
            EXPECT_EQ(style().gridDoubleLineSpacing(KdDb::kHorzTop, L"_DATA"), before);
        }
        enter(dialog, kSpacing, "0");
        press(dialog, kAll);
        EXPECT_EQ(style().gridDoubleLineSpacing(KdDb::kHorzTop, L"_DATA"), 0.0) << "0 is taken";
    });
}

TEST_F(StylePageBorder, No_border_hides_by_block_and_keeps_colour_and_weight) {
    change([](KdDbTableStyle& open) {
        for (const KdDb::GridLineType edge : kEdges) {
            open.setGridLineWeight(KdDb::kLnWt050, edge, L"_DATA");
            open.setGridColor(KdCmColor::fromIndex(6), edge, L"_DATA");
            open.setGridLinetype(open.database()->continuousLinetype(), edge, L"_DATA");
        }
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        press(dialog, kNone);
        EXPECT_EQ(visibleEdges(), 0);
        for (const KdDb::GridLineType edge : kEdges) {
            EXPECT_EQ(style().gridLinetype(edge, L"_DATA"), host.database().byBlockLinetype());
            EXPECT_EQ(style().gridLineWeight(edge, L"_DATA"), KdDb::kLnWt050);
            EXPECT_EQ(style().gridColor(edge, L"_DATA"), KdCmColor::fromIndex(6));
        }
    });
}

TEST_F(StylePageBorder, Only_the_first_refresh_of_a_fully_visible_cell_style_sees_that_the_spacings_agree) {
    change([](KdDbTableStyle& open) {
        for (const wchar_t* name : {L"_DATA", L"_HEADER"}) {
            for (const KdDb::GridLineType edge : kEdges) open.setGridDoubleLineSpacing(0.5, edge, name);
        }
        open.setGridDoubleLineSpacing(0.5 + 5e-11, KdDb::kVertLeft, L"_DATA");  // too close to tell
        open.setGridVisibility(KdDb::kInvisible, KdDb::kHorzTop, L"_HEADER");
        open.setGridDoubleLineSpacing(0.25, KdDb::kHorzTop, L"_HEADER");
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(text(dialog, kSpacing), "0.5");
        choose(kCellStyleBox, "Header");
        EXPECT_EQ(text(dialog, kSpacing), "0.25") << "of the top edge, visible or not";
        choose(kCellStyleBox, "Data");
        EXPECT_EQ(text(dialog, kSpacing), "0.5");
    });
}

TEST_F(StylePageBorder, The_next_cell_style_shows_its_top_edges_spacing_though_its_edges_agree) {
    change([](KdDbTableStyle& open) {
        for (const KdDb::GridLineType edge : kEdges) {
            open.setGridDoubleLineSpacing(0.5, edge, L"_DATA");
            open.setGridDoubleLineSpacing(0.75, edge, L"_HEADER");
        }
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, "Header");
        EXPECT_EQ(text(dialog, kSpacing), "0.75") << "its own, not the first that was ever gathered";
    });
}

TEST_F(StylePageBorder, Spacings_of_several_refreshes_that_make_up_six_count_as_those_of_one) {
    change([](KdDbTableStyle& open) {
        // Four visible edges, then two: six spacings, all alike, none of them the top edge's of the second.
        for (const KdDb::GridLineType edge : {KdDb::kHorzTop, KdDb::kHorzInside}) {
            open.setGridVisibility(KdDb::kInvisible, edge, L"_DATA");
        }
        for (const KdDb::GridLineType edge : {KdDb::kHorzTop, KdDb::kHorzInside, KdDb::kHorzBottom, KdDb::kVertLeft}) {
            open.setGridVisibility(KdDb::kInvisible, edge, L"_HEADER");
        }
        for (const wchar_t* name : {L"_DATA", L"_HEADER"}) {
            for (const KdDb::GridLineType edge : kEdges) open.setGridDoubleLineSpacing(0.5, edge, name);
            open.setGridDoubleLineSpacing(0.25, KdDb::kHorzTop, name);
        }
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(text(dialog, kSpacing), "0.25") << "four spacings: the top edge's is shown";
        choose(kCellStyleBox, "Header");
        EXPECT_EQ(text(dialog, kSpacing), "0.5") << "six now: what they share is shown";
        choose(kCellStyleBox, "Data");
        EXPECT_EQ(text(dialog, kSpacing), "0.25");
    });
}

TEST_F(StylePageBorder, A_colour_in_no_row_keeps_the_picked_one_out_of_it) {
    change([](KdDbTableStyle& open) {
        for (const KdDb::GridLineType edge : kEdges) open.setGridColor(KdCmColor::fromRgb(9, 8, 7), edge, L"_DATA");
    });
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(shown(dialog, kColorBox), "By block");
        press(dialog, kAll);
        EXPECT_TRUE(style().gridColor(KdDb::kHorzTop, L"_DATA").isByBlock()) << "what the box shows is what is given";
    });
}

TEST_F(StylePageBorder, Other_colours_and_line_types_are_asked_for) {
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        next([](QWidget&) { EXPECT_EQ(kdhost::automation::color(L"7,8,9"), L""); });
        choose(kColorBox, box(dialog, kColorBox).count() - 1);
        next([](QWidget& types) {
            in<QListWidget>(types, "IDC_LINETYPE_LIST").setCurrentRow(0);
            ok(types);
        });
        choose(kTypeBox, box(dialog, kTypeBox).count() - 1);
        press(dialog, kAll);
        EXPECT_EQ(style().gridColor(KdDb::kHorzTop, L"_DATA"), KdCmColor::fromRgb(7, 8, 9));
        EXPECT_FALSE(style().gridLinetype(KdDb::kHorzTop, L"_DATA").isNull());
        EXPECT_NE(style().gridLinetype(KdDb::kHorzTop, L"_DATA"), host.database().byBlockLinetype());
    });
}

TEST_F(StylePageBorder, Another_colour_is_asked_for_however_its_row_was_selected) {
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        next([](QWidget&) { EXPECT_EQ(kdhost::automation::color(L"7,8,9"), L""); });
        box(dialog, kColorBox).setCurrentIndex(box(dialog, kColorBox).count() - 1);
        EXPECT_EQ(shown(dialog, kColorBox), "7,8,9");
    });
}

TEST_F(StylePageBorder, A_picked_colour_stays_when_its_box_shows_none) {
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        choose(kColorBox, "Red");
        box(dialog, kColorBox).setCurrentIndex(-1);
        press(dialog, kTop);
        EXPECT_EQ(style().gridColor(KdDb::kHorzTop, L"_DATA"), KdCmColor::fromIndex(1));
    });
}

TEST_F(StylePageBorder, A_cancelled_choice_of_a_line_type_keeps_the_row_before) {
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        choose(kTypeBox, 2);
        next([](QWidget& types) { cancel(types); });
        choose(kTypeBox, box(dialog, kTypeBox).count() - 1);
        EXPECT_EQ(box(dialog, kTypeBox).currentIndex(), 2);
        press(dialog, kAll);
        EXPECT_EQ(style().gridLinetype(KdDb::kHorzTop, L"_DATA"), host.database().continuousLinetype());
    });
}

/// The text of a resource module, as a widget shows it.
QString textOf(unsigned number) {
    return QString::fromStdWString(loadText(number));
}

TEST_F(StylePageBorder, Buttons_have_pictures_and_tool_tips_and_a_line_tells_what_they_do) {
    const auto picture = [](const QPushButton& button) { return button.icon().pixmap(16, 16).toImage(); };
    editBorders([&](CVqTableStyleEditDlg& dialog) {
        for (const BorderButtonEdges& each : kButtons) {
            KdUiPushButton expected;
            CVqBitmapButton wrapper;
            wrapper.Attach(&expected);
            wrapper.setBitmapId(QString::fromLatin1(each.bitmap), 0x848200);
            const auto& button = in<QPushButton>(dialog, each.name);
            EXPECT_FALSE(button.icon().isNull()) << each.name;
            EXPECT_EQ(picture(button), picture(expected)) << each.name;
            EXPECT_EQ(button.toolTip(), textOf(each.toolTip)) << each.name;
            EXPECT_EQ(button.toolTip(), button.accessibleName()) << each.name;
            EXPECT_FALSE(button.toolTip().isEmpty()) << each.name;
        }
        const QString info = in<QLabel>(dialog, "IDC_CELLSTYLEBORDER_BORDERINFO_STATIC").text();
        EXPECT_EQ(info, textOf(2124));
        EXPECT_FALSE(info.isEmpty());
    });
}

TEST_F(StylePageBorder, Two_operations_that_nothing_calls_do_as_they_say) {
    CVqTableCellStyleBorderDlg page;
    page.SetTableStyleId(styleId());
    page.SetCellStyleName(L"_DATA");
    EXPECT_FALSE(page.IsGridLineStyleUnification());
    change([](KdDbTableStyle& open) {
        for (const KdDb::GridLineType edge : kEdges) {
            open.setGridLineStyle(KdDb::kGridLineStyleDouble, edge, L"_DATA");
        }
        open.setGridVisibility(KdDb::kInvisible, KdDb::kVertLeft, L"_DATA");
    });
    transactions().startTransaction();
    page.OnInitDialog();
    page.SetInvisibleGridLineData();
    for (const KdDb::GridLineType edge : kEdges) {
        EXPECT_EQ(style().gridLineStyle(edge, L"_DATA"),
                  edge == KdDb::kVertLeft ? KdDb::kGridLineStyleDouble : KdDb::kGridLineStyleSingle);
    }
    transactions().abortTransaction();
}

}  // namespace
}  // namespace kdtest
