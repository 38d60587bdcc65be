// The text page: what it shows of a cell style, and what each control writes.

#include <cmath>

#include "host/ui/dialogs/textstyles.h"
#include "kd/db/symboltable.h"
#include "module/valuetext/tableutils.h"
#include "tests/ui/styleedit/fixture.h"
#include "tests/ui/stylepages/controls.h"

namespace kdtest {
namespace {

class StylePageText : public StyleEditing {
protected:
    StylePageText() : textStyles(host.database()) {}

    KdDbObjectId textStyle(const wchar_t* cellStyle = L"_DATA") { return style().textStyle(cellStyle); }
    void makeTextStyles(std::initializer_list<const wchar_t*> names) {
        for (const wchar_t* name : names) EXPECT_FALSE(textStyles.create(name, L"Standard"));
    }
    /// The dialog on its text page.
    int editText(const Edit& act) {
        return edit([&](CVqTableStyleEditDlg& dialog) {
            showPage(dialog, TextPage);
            act(dialog);
            if (dialog.isVisible()) cancel(dialog);
        });
    }
    void eraseTextStyle(KdDbObjectId id) { OpenObject<KdDbTextStyleTableRecord>(id, KdDb::kForWrite)->erase(); }

    kdhost::TextStyles textStyles;
};

TEST_F(StylePageText, Shows_all_four_values) {
    makeTextStyles({L"Notes"});
    change([&](KdDbTableStyle& open) {
        open.setTextStyle(textStyles.find(L"Notes"), L"_DATA");
        open.setTextHeight(2.5, L"_DATA");
        open.setColor(KdCmColor::fromIndex(1), L"_DATA");
        open.setRotation(std::acos(-1.0) / 4, L"_DATA");
    });
    editText([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog, kTextStyleBox), (std::vector<std::string>{"Standard", "Notes"})) << "in table order";
        EXPECT_EQ(shown(dialog, kTextStyleBox), "Notes");
        EXPECT_EQ(text(dialog, kHeight), "2.5");
        EXPECT_EQ(shown(dialog, kTextColorBox), "Red");
        EXPECT_EQ(text(dialog, kAngle), "45");
    });
}

TEST_F(StylePageText, Writes_the_text_style_and_the_colour) {
    makeTextStyles({L"Notes", L"Other"});
    EXPECT_EQ(editText([&](CVqTableStyleEditDlg& dialog) {
                  choose(kTextStyleBox, "Other");
                  EXPECT_EQ(textStyle(), textStyles.find(L"Other"));
                  choose(kTextStyleBox, "Notes");
                  choose(kTextColorBox, 1);
                  EXPECT_TRUE(style().color(L"_DATA").isByBlock());
                  choose(kTextColorBox, 3);
                  ok(dialog);
              }),
              1);
    EXPECT_EQ(textStyle(), textStyles.find(L"Notes"));
    EXPECT_NE(textStyle(L"_HEADER"), textStyles.find(L"Notes"));
    EXPECT_EQ(style().color(L"_DATA"), KdCmColor::fromIndex(2));
}

TEST_F(StylePageText, Another_colour_is_asked_for) {
    editText([&](CVqTableStyleEditDlg& dialog) {
        next([](QWidget&) { EXPECT_EQ(kdhost::automation::color(L"1,2,3"), L""); });
        choose(kTextColorBox, box(dialog, kTextColorBox).count() - 1);
        EXPECT_EQ(style().color(L"_DATA"), KdCmColor::fromRgb(1, 2, 3));
    });
}

TEST_F(StylePageText, A_name_is_shown_by_the_first_row_that_begins_with_it_and_that_writes_nothing) {
    makeTextStyles({L"Notes on doors", L"Notes"});
    change([&](KdDbTableStyle& open) { open.setTextStyle(textStyles.find(L"Notes"), L"_DATA"); });
    editText([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(shown(dialog, kTextStyleBox), "Notes on doors");
        ok(dialog);
    });
    EXPECT_EQ(textStyle(), textStyles.find(L"Notes"));
}

TEST_F(StylePageText, The_rows_are_sought_from_the_first_one_on) {
    makeTextStyles({L"Standard 2"});
    editText([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog, kTextStyleBox), (std::vector<std::string>{"Standard", "Standard 2"}));
        EXPECT_EQ(shown(dialog, kTextStyleBox), "Standard");
    });
}

TEST_F(StylePageText, A_colour_that_no_row_has_shows_none) {
    change([](KdDbTableStyle& open) { open.setColor(KdCmColor::fromRgb(1, 2, 3), L"_DATA"); });
    editText([&](CVqTableStyleEditDlg& dialog) { EXPECT_EQ(box(dialog, kTextColorBox).currentIndex(), -1); });
}

TEST_F(StylePageText, A_height_above_0_is_stored_and_shown_as_the_drawing_writes_it) {
    editText([&](CVqTableStyleEditDlg& dialog) {
        enter(dialog, kHeight, "1/4");
        EXPECT_EQ(text(dialog, kHeight), "0.25");
        EXPECT_EQ(style().textHeight(L"_DATA"), 0.25);
        enter(dialog, kHeight, "2.123456789");
        EXPECT_EQ(text(dialog, kHeight), "2.1235");
        EXPECT_EQ(style().textHeight(L"_DATA"), 2.123456789) << "as typed, whatever is shown";
    });
    EXPECT_EQ(style().textHeight(L"_DATA"), 4.5);
}

TEST_F(StylePageText, Any_angle_is_stored_as_it_stands_and_its_text_stays_as_typed) {
    const double pi = std::acos(-1.0);
    editText([&](CVqTableStyleEditDlg& dialog) {
        for (const auto& [typed, degrees] : {std::pair{"30", 30.0}, {"-90", -90.0}, {"0", 0.0}, {"725", 5.0}}) {
            enter(dialog, kAngle, typed);
            EXPECT_EQ(text(dialog, kAngle), typed);
            EXPECT_NEAR(std::cos(style().rotation(L"_DATA") - degrees * pi / 180.0), 1.0, 1e-12) << typed;
            double parsed = 0.0;
            EXPECT_EQ(CVqTableUtils::StringToAngleConvert(&host.database(), widen(typed), parsed), 1) << typed;
            EXPECT_EQ(style().rotation(L"_DATA"), parsed) << typed;
        }
    });
}

TEST_F(StylePageText, A_text_style_that_is_gone_is_shown_as_the_first_one) {
    makeTextStyles({L"Gone"});
    const KdDbObjectId gone = textStyles.find(L"Gone");
    change([&](KdDbTableStyle& open) { open.setTextStyle(gone, L"_DATA"); });
    eraseTextStyle(gone);
    editText([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog, kTextStyleBox), std::vector<std::string>{"Standard"});
        EXPECT_EQ(shown(dialog, kTextStyleBox), "Standard");
        EXPECT_EQ(text(dialog, kHeight), "4.5");
        ok(dialog);
    });
    EXPECT_EQ(textStyle(), gone) << "what is shown is not written";
}

TEST_F(StylePageText, A_drawing_without_a_text_style_to_be_read_leaves_the_rest_unshown) {
    const OpenObject<KdDbTextStyleTable> table(host.database().textStyleTableId(), KdDb::kForWrite);
    const OpenObject<KdDbTextStyleTableRecord> record(textStyles.find(L"Standard"), KdDb::kForWrite);
    editText([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_TRUE(rows(dialog, kTextStyleBox).empty());
        EXPECT_EQ(text(dialog, kHeight), "");
        EXPECT_EQ(text(dialog, kAngle), "");
    });
}

TEST_F(StylePageText, A_text_style_that_cannot_be_read_has_no_row) {
    makeTextStyles({L"Notes"});
    const OpenObject<KdDbTextStyleTableRecord> record(textStyles.find(L"Standard"), KdDb::kForWrite);
    editText([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog, kTextStyleBox), std::vector<std::string>{"Notes"});
        EXPECT_EQ(shown(dialog, kTextStyleBox), "Notes")
            << "the first one, for the cell style's own that can't be read";
        EXPECT_EQ(text(dialog, kHeight), "4.5");
    });
}

TEST_F(StylePageText, Without_any_text_style_the_refresh_tells_that_it_failed) {
    const OpenObject<KdDbTextStyleTableRecord> record(textStyles.find(L"Standard"), KdDb::kForWrite);
    editText([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_TRUE(rows(dialog, kTextStyleBox).empty());
        auto& page = dynamic_cast<CVqTableCellStyleTextDlg&>(*box(dialog, kTextStyleBox).parentWidget());
        EXPECT_EQ(page.UpdateFormDatabaseData(), 0);
        EXPECT_EQ(text(dialog, kHeight), "");
    });
}

TEST_F(StylePageText, A_row_is_not_written_while_the_text_styles_cannot_be_looked_up) {
    makeTextStyles({L"Notes"});
    editText([&](CVqTableStyleEditDlg&) {
        const KdDbObjectId before = textStyle();
        const OpenObject<KdDbTextStyleTable> table(host.database().textStyleTableId(), KdDb::kForWrite);
        choose(kTextStyleBox, "Notes");
        EXPECT_EQ(textStyle(), before);
    });
}

TEST_F(StylePageText, A_text_style_that_the_box_does_not_list_leaves_the_rest_as_it_was) {
    editText([&](CVqTableStyleEditDlg& dialog) {
        makeTextStyles({L"Late"});  // after the box was filled
        auto* open = getObject<KdDbTableStyle>(topTransaction(), styleId(), KdDb::kForWrite);
        open->setTextStyle(textStyles.find(L"Late"), L"_HEADER");
        open->setTextHeight(77.0, L"_HEADER");
        choose(kCellStyleBox, "Header");
        EXPECT_EQ(text(dialog, kHeight), "4.5");
        EXPECT_EQ(shown(dialog, kTextStyleBox), "Standard");
    });
}

TEST_F(StylePageText, A_name_with_blanks_around_it_is_looked_up_without_them_and_a_miss_is_set_all_the_same) {
    makeTextStyles({L"Padded"});
    OpenObject<KdDbTextStyleTableRecord>(textStyles.find(L"Padded"), KdDb::kForWrite)->setName(L" Padded ");
    editText([&](CVqTableStyleEditDlg& dialog) {
        choose(kTextStyleBox, 1);
        EXPECT_TRUE(textStyle().isNull());
        choose(kTextStyleBox, 0);
        EXPECT_EQ(textStyle(), textStyles.find(L"Standard"));
        cancel(dialog);
    });
}

TEST_F(StylePageText, Whatever_ends_the_text_style_dialog_the_cell_style_takes_the_drawings_current_one) {
    makeTextStyles({L"Current", L"Own"});
    EXPECT_FALSE(textStyles.setCurrent(L"Current"));
    for (const bool confirmed : {false, true}) {
        change([&](KdDbTableStyle& open) { open.setTextStyle(textStyles.find(L"Own"), L"_DATA"); });
        editText([&](CVqTableStyleEditDlg& dialog) {
            next([&](QWidget& hosts) {
                EXPECT_EQ(in<QListWidget>(hosts, "IDC_TEXTSTYLE_LIST").currentItem()->text(), QStringLiteral("Own"));
                confirmed ? ok(hosts) : cancel(hosts);
            });
            press(dialog, kTextStyleButton);
            backIn(dialog);
            EXPECT_EQ(shown(dialog, kTextStyleBox), "Current");
            EXPECT_EQ(textStyle(), textStyles.find(L"Current"));
        });
        EXPECT_EQ(textStyle(), textStyles.find(L"Own"));
    }
}

TEST_F(StylePageText, Text_styles_made_in_their_dialog_stand_in_the_box) {
    editText([&](CVqTableStyleEditDlg& dialog) {
        next([&](QWidget& hosts) {
            next([](QWidget& naming) {
                typeInto(naming, "IDC_TEXTSTYLE_NAME_EDIT", "Fresh");
                ok(naming);
            });
            press(hosts, "IDC_TEXTSTYLE_NEW_BUTTON");
            press(hosts, "IDC_TEXTSTYLE_SETCURRENT_BUTTON");
            ok(hosts);
        });
        press(dialog, kTextStyleButton);
        backIn(dialog);
        EXPECT_EQ(rows(dialog, kTextStyleBox), (std::vector<std::string>{"Standard", "Fresh"}));
        EXPECT_EQ(shown(dialog, kTextStyleBox), "Fresh");
        EXPECT_EQ(textStyle(), textStyles.find(L"Fresh"));
        ok(dialog);
    });
    EXPECT_EQ(textStyle(), textStyles.find(L"Fresh"));
}

TEST_F(StylePageText, A_current_text_style_that_the_box_does_not_list_is_not_taken) {
    makeTextStyles({L"Current", L"Own"});
    EXPECT_FALSE(textStyles.setCurrent(L"Current"));
    change([&](KdDbTableStyle& open) { open.setTextStyle(textStyles.find(L"Own"), L"_DATA"); });
    editText([&](CVqTableStyleEditDlg& dialog) {
        const OpenObject<KdDbTextStyleTableRecord> record(textStyles.find(L"Current"), KdDb::kForWrite);
        next([](QWidget& hosts) { cancel(hosts); });
        press(dialog, kTextStyleButton);
        backIn(dialog);
        EXPECT_EQ(textStyle(), textStyles.find(L"Own"));
    });
}

TEST_F(StylePageText, Without_its_own_text_style_the_cell_style_gets_no_dialog) {
    makeTextStyles({L"Gone"});
    change([&](KdDbTableStyle& open) { open.setTextStyle(textStyles.find(L"Gone"), L"_DATA"); });
    eraseTextStyle(textStyle());
    editText([&](CVqTableStyleEditDlg& dialog) {
        press(dialog, kTextStyleButton);
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    });
}

}  // namespace
}  // namespace kdtest
