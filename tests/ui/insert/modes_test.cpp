// What the insert dialog offers by the choice of an empty table or a file, of a point or a window, and of what is
// fixed in a window.

#include "module/core/resources.h"
#include "tests/ui/insert/fixture.h"

namespace kdtest {
namespace {

class InsertDialogModes : public InsertDialogTest {
protected:
    /// Of columns, column width, data rows and row height.
    void expectEnabled(const std::vector<bool>& wanted) const {
        for (std::size_t i = 0; i < wanted.size(); ++i) EXPECT_EQ(isOn(kFigureEdits[i]), wanted[i]) << kFigureEdits[i];
    }
    /// At a point the labels stand where a window has the radio buttons, with the same texts.
    void expectTexts(const std::vector<const char*>& controls) const {
        const unsigned wanted[] = {2162, 2157, 2159, 2158};
        for (std::size_t i = 0; i < controls.size(); ++i) {
            EXPECT_TRUE(isSeen(controls[i])) << controls[i];
            EXPECT_EQ(shown(controls[i]), loadText(wanted[i])) << controls[i];
        }
    }
    QImage iconOf(const char* button) const {
        const QIcon icon = as<QAbstractButton>(button).icon();
        return icon.pixmap(icon.availableSizes().value(0)).toImage();
    }
};

TEST_F(InsertDialogModes, At_a_point_all_four_figures_are_open_and_no_radio_button_shows) {
    open([&] {
        expectEnabled({true, true, true, true});
        for (const char* radio : kFigureRadios) EXPECT_FALSE(isSeen(radio)) << radio;
        expectTexts({std::begin(kFigureLabels), std::end(kFigureLabels)});
        EXPECT_EQ(shown("IDC_TABLEINSERT_SETTINGS_GROUP"), loadText(2163));
    });
}

TEST_F(InsertDialogModes, In_a_window_one_of_each_pair_is_fixed_and_the_other_automatic) {
    open([&] {
        press(kWindowRadio);
        expectTexts({std::begin(kFigureRadios), std::end(kFigureRadios)});
        for (const char* label : kFigureLabels) EXPECT_FALSE(isSeen(label)) << label;
        EXPECT_EQ(shown("IDC_TABLEINSERT_SETTINGS_GROUP"), loadText(2164));
        EXPECT_TRUE(isChecked(kColumnsRadio));
        EXPECT_TRUE(isChecked(kRowsRadio));
        EXPECT_EQ(figures(), (Names{L"3", L"Auto", L"3", L"Auto"}));
        expectEnabled({true, false, true, false});

        press(kWidthRadio);
        EXPECT_FALSE(isChecked(kColumnsRadio));
        EXPECT_TRUE(isChecked(kRowsRadio)) << "the pairs don't mind each other";
        EXPECT_EQ(figures(), (Names{L"Auto", length(63.5), L"3", L"Auto"}));
        expectEnabled({false, true, true, false});

        press(kHeightRadio);
        EXPECT_EQ(figures(), (Names{L"Auto", length(63.5), L"Auto", L"1"}));
        expectEnabled({false, true, false, true});

        press(kColumnsRadio);
        press(kRowsRadio);
        EXPECT_EQ(figures(), (Names{L"3", L"Auto", L"3", L"Auto"}));
        expectEnabled({true, false, true, false});
    });
}

TEST_F(InsertDialogModes, Back_at_a_point_the_figures_show_their_numbers_again) {
    open([&] {
        put(kWidthEdit, L"17");
        leaveTo(kHeightEdit);
        put(kHeightEdit, L"4");
        press(kWindowRadio);
        EXPECT_EQ(figures(), (Names{L"3", L"Auto", L"3", L"Auto"}));
        press(kPointRadio);
        EXPECT_EQ(figures(), (Names{L"3", L"17", L"3", L"4"}));
        expectEnabled({true, true, true, true});
        EXPECT_FALSE(isChecked(kWindowRadio));
    });
}

TEST_F(InsertDialogModes, A_press_on_the_empty_table_leaves_automatic_figures_disabled) {
    open([&] {
        press(kWindowRadio);
        press(kEmptyRadio);
        expectEnabled({true, false, true, false});
        EXPECT_EQ(figures(), (Names{L"3", L"Auto", L"3", L"Auto"}));
    });
}

TEST_F(InsertDialogModes, With_a_file_only_the_point_and_the_files_button_stay) {
    open([&] {
        press(kWindowRadio);
        const QImage style = iconOf(kStyleManager);
        const QImage fileOff = iconOf(kFileManager);
        press(kFileRadio);
        EXPECT_TRUE(dialog->m_bDataLink);
        EXPECT_TRUE(isChecked(kPointRadio));
        EXPECT_TRUE(isOn(kPointRadio));
        EXPECT_TRUE(isOn(kFileManager));
        EXPECT_FALSE(isOn(kFileBox));
        for (const char* off :
             {kStyleBox, kStyleManager, kWindowRadio, "IDC_TABLEINSERT_INSERTMODE_GROUP", kFirstRow, kSecondRow,
              kOtherRow, "IDC_TABLEINSERT_SETTINGS_GROUP", "IDC_TABLEINSERT_CELLSTYLE_GROUP", "IDOK"}) {
            EXPECT_FALSE(isOn(off)) << off;
        }
        for (const char* label : kFigureLabels) EXPECT_FALSE(isOn(label)) << label;
        expectEnabled({false, false, false, false});
        EXPECT_EQ(figures(), (Names{L"3", length(63.5), L"3", L"1"}));
        EXPECT_NE(iconOf(kStyleManager), style) << "a disabled button has a picture of its own";
        EXPECT_NE(iconOf(kFileManager), fileOff);

        press(kEmptyRadio);
        EXPECT_FALSE(dialog->m_bDataLink);
        for (const char* on : {kStyleBox, kStyleManager, kWindowRadio, kPointRadio, "IDC_TABLEINSERT_INSERTMODE_GROUP",
                               kFirstRow, kSecondRow, kOtherRow, "IDOK"}) {
            EXPECT_TRUE(isOn(on)) << on;
        }
        for (const char* label : kFigureLabels) EXPECT_TRUE(isOn(label)) << label;
        EXPECT_FALSE(isOn(kFileManager));
        expectEnabled({true, true, true, true});
        EXPECT_EQ(iconOf(kStyleManager), style);
        EXPECT_EQ(iconOf(kFileManager), fileOff);
    });
}

TEST_F(InsertDialogModes, A_press_on_the_point_leaves_the_settings_of_a_file_disabled) {
    open([&] {
        press(kFileRadio);
        press(kPointRadio);
        EXPECT_FALSE(isOn("IDC_TABLEINSERT_SETTINGS_GROUP"));
        for (const char* label : kFigureLabels) EXPECT_FALSE(isOn(label)) << label;
        expectEnabled({false, false, false, false});
    });
}

TEST_F(InsertDialogModes, A_file_that_is_left_alone_keeps_OK_disabled_and_the_figures_closed) {
    run({click(wide(kFileRadio)), click(wide(kFileManager)), expectTop(L"IDD_EXLIMPORT"), click(L"IDCANCEL"),
         [&] {
             EXPECT_FALSE(isOn("IDOK"));
             expectEnabled({false, false, false, false});
             EXPECT_EQ(box(kFileBox).count(), 0);
             EXPECT_EQ(dialog->m_pTable, nullptr);
         },
         click(L"IDCANCEL")});
}

TEST_F(InsertDialogModes, Extraction_disables_all_and_tells_that_there_is_no_preview) {
    open([&] {
        as<QAbstractButton>(kExtractionRadio).click();
        EXPECT_FALSE(isSeen(kPreview));
        EXPECT_TRUE(isSeen(kNoPreviewTip));
        for (const char* off : {kStyleBox, kStyleManager, kFileManager, kPointRadio, kWindowRadio, kFirstRow}) {
            EXPECT_FALSE(isOn(off)) << off;
        }
        expectEnabled({false, false, false, false});
        press(kEmptyRadio);
        EXPECT_TRUE(isSeen(kPreview));
        EXPECT_FALSE(isSeen(kNoPreviewTip));
        EXPECT_TRUE(isOn(kPointRadio));
    });
}

TEST_F(InsertDialogModes, Tab_goes_down_the_left_side_and_then_down_the_right_one) {
    open([&] {
        const std::vector<std::string> wanted = {kStyleBox,  kStyleManager, kEmptyRadio, kPointRadio, kColumnsEdit,
                                                 kWidthEdit, kRowsEdit,     kHeightEdit, kFirstRow,   kSecondRow,
                                                 kOtherRow,  "IDOK",        "IDCANCEL",  "IDHELP"};
        control(kStyleBox).setFocus(Qt::TabFocusReason);
        std::vector<std::string> walked;
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            walked.push_back(focusName());
            pressKey(Qt::Key_Tab);
        }
        EXPECT_EQ(walked, wanted);
        EXPECT_EQ(focusName(), kStyleBox);
    });
}

TEST_F(InsertDialogModes, The_keyboard_alone_walks_the_radio_buttons) {
    open([&] {
        control(kPointRadio).setFocus(Qt::TabFocusReason);
        pressKey(Qt::Key_Down);
        EXPECT_TRUE(isChecked(kWindowRadio));
        EXPECT_EQ(shown(kWidthEdit), L"Auto");
        control(kColumnsRadio).setFocus(Qt::TabFocusReason);
        pressKey(Qt::Key_Tab);
        EXPECT_EQ(focusName(), kColumnsEdit) << "Tab goes from a choice to what it opens";
        control(kColumnsRadio).setFocus(Qt::TabFocusReason);
        pressKey(Qt::Key_Down);
        EXPECT_TRUE(isChecked(kWidthRadio));
        EXPECT_EQ(shown(kColumnsEdit), L"Auto");
    });
}

}  // namespace
}  // namespace kdtest
