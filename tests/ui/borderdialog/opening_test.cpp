// The dialog of cell borders as it opens: its buttons' pictures and tips, its boxes' samples, and what it takes the
// selection for.

#include "kd/ui/widgets.h"
#include "module/edit/cellborderpropdlg.h"
#include "tests/support/programicon.h"
#include "tests/ui/borderdialog/fixture.h"

namespace kdtest {
namespace {

/// A button, by the stem that it shares with its picture, and the number of its tip.
struct BorderButton {
    const char* stem;
    unsigned toolTip;
};
constexpr BorderButton kButtons[] = {
    {"ALLBORDER", 2088},        {"OUTERBORDER", 2089},   {"INNERBORDER", 2090},     {"ONLYBOTTOMBORDER", 2092},
    {"ONLYLEFTBORDER", 2126},   {"ONLYTOPBORDER", 2130}, {"ONLYRIGHTBORDER", 2131}, {"HORZINSIDEBORDER", 2276},
    {"VERTINSIDEBORDER", 2277}, {"NOBORDER", 2091},
};
const std::set<std::string> kInsideButtons = {"INNERBORDER", "HORZINSIDEBORDER", "VERTINSIDEBORDER"};

class BorderDialogOpening : public BorderDialogTest {
protected:
    static QPushButton& button(QWidget& dialog, const std::string& stem) {
        return control<QPushButton>(dialog, (stem + "_BUTTON").c_str());
    }
    static QImage pictureOf(const QPushButton& button) { return button.icon().pixmap(16, 16).toImage(); }
    /// What a button shows whose bitmap has that end.
    static QImage bitmap(const std::string& stem, const char* end) {
        KdUiPushButton shown;
        CVqBitmapButton wrapper;
        wrapper.Attach(&shown);
        wrapper.setBitmapId(QString::fromStdString("IDB_CELLSTYLE_" + stem + end), 8684032);
        return pictureOf(shown);
    }
    /// What the dialog takes the selection for when it opens.
    int statusOf(const KdCellRange& range) {
        select(table, range);
        const ResourceScope resources;
        CVqTableCellBorderPropDlg dialog;
        dialog.SetTableObjectId(table);
        dialog.OnInitDialog();
        return dialog.GetCellSeledStatus();
    }
};

TEST_F(BorderDialogOpening, Buttons_have_pictures_and_tool_tips) {
    select(table, "B2:C3");
    setBorders([](QWidget& dialog) {
        std::set<std::string> tips;
        for (const BorderButton& each : kButtons) {
            SCOPED_TRACE(each.stem);
            const QPushButton& shown = button(dialog, each.stem);
            EXPECT_TRUE(shown.isEnabled());
            EXPECT_FALSE(shown.icon().isNull());
            EXPECT_EQ(pictureOf(shown), bitmap(each.stem, "_BMP"));
            const std::string tip = shown.toolTip().toStdString();
            const ResourceScope resources;
            EXPECT_EQ(shown.toolTip().toStdWString(), loadText(each.toolTip));
            EXPECT_EQ(tip, shown.accessibleName().toStdString());
            EXPECT_TRUE(!tip.empty() && tips.insert(tip).second) << tip;
        }
    });
}

TEST_F(BorderDialogOpening, One_cell_has_no_inside_and_its_buttons_are_disabled_in_pictures_of_their_own) {
    setBorders([](QWidget& dialog) {
        for (const BorderButton& each : kButtons) {
            SCOPED_TRACE(each.stem);
            const bool isInside = kInsideButtons.count(each.stem) != 0;
            const QPushButton& shown = button(dialog, each.stem);
            EXPECT_EQ(shown.isEnabled(), !isInside);
            EXPECT_EQ(pictureOf(shown), bitmap(each.stem, isInside ? "_DISABLE_BMP" : "_BMP"));
            if (isInside) {
                EXPECT_NE(pictureOf(shown), bitmap(each.stem, "_BMP"));
            }
        }
    });
}

TEST_F(BorderDialogOpening, Boxes_paint_the_samples_of_their_kinds) {
    setBorders([](QWidget& dialog) {
        EXPECT_EQ(control<KdUiComboBox>(dialog, kBorderColor).comboBoxStyle(), 3);
        EXPECT_EQ(control<KdUiComboBox>(dialog, kBorderType).comboBoxStyle(), 1);
        EXPECT_EQ(control<KdUiComboBox>(dialog, kBorderWeight).comboBoxStyle(), 2);
    });
}

TEST_F(BorderDialogOpening, Takes_the_programs_icon) {
    const ProgramIcon icon;
    setBorders([](QWidget& dialog) { EXPECT_TRUE(dialog.testAttribute(Qt::WA_SetWindowIcon)); });
}

TEST_F(BorderDialogOpening, F1_opens_nothing) {
    setBorders([](QWidget& dialog) {
        pressKey(Qt::Key_F1);
        EXPECT_TRUE(dialog.isActiveWindow());
        for (QWidget* window : QApplication::topLevelWidgets()) {
            EXPECT_TRUE(window == &dialog || !window->isVisible()) << window->metaObject()->className();
        }
    });
}

TEST_F(BorderDialogOpening, Takes_the_selection_for_one_cell_for_cells_without_merges_or_with_one_beside_merges) {
    EXPECT_EQ(statusOf(cells("B2")), 1);
    EXPECT_EQ(statusOf(cells("B2:C3")), 2);
    change([](KdDbTable& open) { open.mergeCells(1, 1, 1, 2); });
    EXPECT_EQ(statusOf(cells("B2:C3")), 4) << "two beside the merge";
    EXPECT_EQ(statusOf(cells("B2:C2")), 4) << "none beside the merge";
    change([](KdDbTable& open) { open.mergeCells(2, 3, 1, 1); });
    EXPECT_EQ(statusOf(cells("B2:C3")), 3);
}

TEST_F(BorderDialogOpening, Takes_a_selection_without_cells_by_the_product_of_its_rows_and_columns) {
    EXPECT_EQ(statusOf({2, 1, 1, 2}), 2) << "no rows";
    EXPECT_EQ(statusOf({1, 2, 2, 1}), 2) << "no columns";
    EXPECT_EQ(statusOf({3, 1, 1, 2}), 4);
    CVqTableCellBorderPropDlg withoutTable;
    EXPECT_EQ(withoutTable.GetCellSeledStatus(), 0);
}

}  // namespace
}  // namespace kdtest
