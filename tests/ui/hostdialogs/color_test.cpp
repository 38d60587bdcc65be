// The colour dialog, and the texts that answer it.

#include <QTabWidget>

#include "host/ui/automation/automation.h"
#include "host/ui/colorchoice.h"
#include "host/ui/dialogs/colorpalette.h"
#include "tests/ui/hostdialogs/fixture.h"

namespace {

using kdhost::ColorPalette;

struct Named {
    const char* text;
    KdCmColor color;
};

TEST(ColorTexts, each_accepted_text_names_its_colour) {
    const Named cases[] = {
        {"none", KdCmColor::none()},
        {"ByLayer", KdCmColor()},
        {" BYBLOCK ", KdCmColor::byBlock()},
        {"1", KdCmColor::fromIndex(1)},
        {"255", KdCmColor::fromIndex(255)},
        {"007", KdCmColor::fromIndex(7)},
        {"0,0,0", KdCmColor::fromRgb(0, 0, 0)},
        {"255, 128 ,1", KdCmColor::fromRgb(255, 128, 1)},
    };
    for (const Named& named : cases)
        EXPECT_EQ(kdhost::colorOfText(QString::fromLatin1(named.text)), named.color) << named.text;
}

TEST(ColorTexts, any_other_text_is_refused) {
    for (const char* text :
         {"", "0", "256", "-1", "+1", "1.0", "1,2", "1,2,3,4", "1,2,256", "1,,3", "red", "99999999999"}) {
        EXPECT_FALSE(kdhost::colorOfText(QString::fromLatin1(text)).has_value()) << text;
    }
}

TEST(ColorPalettes, every_index_has_a_field_of_its_own_that_answers_the_mouse) {
    int chosen = 0;
    ColorPalette palette(nullptr, [&](int index) { chosen = index; });
    palette.resize(palette.sizeHint());
    for (int index = 1; index <= 255; ++index) {
        const QRect field = palette.fieldOf(index);
        ASSERT_TRUE(palette.rect().contains(field)) << index;
        EXPECT_EQ(palette.indexAt(field.center()), index);
        QTest::mouseClick(&palette, Qt::LeftButton, {}, field.center());
        EXPECT_EQ(chosen, index);
    }
    EXPECT_EQ(palette.indexAt(QPoint(-1, 3)), 0);
    EXPECT_EQ(palette.indexAt(palette.rect().bottomRight()), 0);
    EXPECT_TRUE(palette.fieldOf(0).isEmpty());
    EXPECT_TRUE(palette.fieldOf(256).isEmpty());
}

TEST(ColorPalettes, the_arrow_keys_walk_and_stop_at_the_edges) {
    int chosen = 0;
    ColorPalette palette(nullptr, [&](int index) { chosen = index; });
    QTest::keyClick(&palette, Qt::Key_Right);
    EXPECT_EQ(chosen, 1);
    QTest::keyClick(&palette, Qt::Key_Left);
    EXPECT_EQ(chosen, 1);
    palette.setIndex(9);
    QTest::keyClick(&palette, Qt::Key_Right);
    EXPECT_EQ(chosen, 250) << "over the gap to the greys";
    palette.setIndex(255);
    QTest::keyClick(&palette, Qt::Key_Right);
    EXPECT_EQ(palette.index(), 255);
    palette.setIndex(1);
    QTest::keyClick(&palette, Qt::Key_Up);
    EXPECT_EQ(chosen, 19);
}

class ColorDialogs : public kdtest::HostDialogTest {
protected:
    bool ask(bool meta = true) { return kdedSetColorDialogTrueColor(color, meta, KdCmColor::fromIndex(3)); }
    void nextAnswer(const char* text) {
        next([text](QWidget&) { EXPECT_EQ(answer(text), L""); });
    }
    static std::wstring answer(const char* text) {
        return kdhost::automation::color(QString::fromLatin1(text).toStdWString());
    }
    KdCmColor color = KdCmColor::fromIndex(1);
};

TEST_F(ColorDialogs, answers_by_text_press_ok_or_cancel) {
    for (const Named& named :
         {Named{"none", KdCmColor::none()}, Named{"bylayer", KdCmColor()}, Named{"byblock", KdCmColor::byBlock()},
          Named{"77", KdCmColor::fromIndex(77)}, Named{"77", KdCmColor::fromIndex(77)},
          Named{"1,2,3", KdCmColor::fromRgb(1, 2, 3)}, Named{"0,0,0", KdCmColor::fromRgb(0, 0, 0)}}) {
        nextAnswer(named.text);
        EXPECT_TRUE(ask());
        EXPECT_EQ(color, named.color) << named.text;
    }
    nextAnswer("CANCEL");
    EXPECT_FALSE(ask());
    EXPECT_EQ(color, KdCmColor::fromRgb(0, 0, 0));
}

TEST_F(ColorDialogs, without_a_dialog_there_is_nothing_to_answer) {
    EXPECT_EQ(answer("1"), L"no colour dialog is open.");
}

TEST_F(ColorDialogs, what_is_not_offered_or_no_colour_leaves_the_dialog_open) {
    next([](QWidget& dialog) {
        for (const char* text : {"bylayer", "byblock", "none", "0", "x", "cancel", ""}) {
            EXPECT_NE(answer(text), L"") << text;
        }
        EXPECT_EQ(dialog.findChild<QPushButton*>(QStringLiteral("IDC_COLOR_BYLAYER_BUTTON")), nullptr);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(answer("5"), L"");
    });
    EXPECT_TRUE(ask(false));
    EXPECT_EQ(color, KdCmColor::fromIndex(5));
}

TEST_F(ColorDialogs, black_typed_over_the_parts_of_no_colour_is_black) {
    color = KdCmColor::none();
    nextAnswer("0,0,0");
    EXPECT_TRUE(ask());
    EXPECT_EQ(color, KdCmColor::fromRgb(0, 0, 0));
}

TEST_F(ColorDialogs, passing_over_the_parts_of_a_colour_leaves_it_as_it_is) {
    next([](QWidget& dialog) {
        in<QTabWidget>(dialog, "IDC_COLOR_PAGES").setCurrentIndex(1);
        in<QSpinBox>(dialog, "IDC_COLOR_RED_SPIN").setFocus();
        for (int i = 0; i < 3; ++i) QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        press(dialog, "IDOK");
    });
    EXPECT_TRUE(ask());
    EXPECT_EQ(color, KdCmColor::fromIndex(1));
}

TEST_F(ColorDialogs, typing_an_index_and_enter_chooses_it) {
    next([](QWidget& dialog) {
        typeInto(dialog, "IDC_COLOR_INDEX_EDIT", "140");
        EXPECT_EQ(in<ColorPalette>(dialog, "IDC_COLOR_PALETTE").index(), 140);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    });
    EXPECT_TRUE(ask());
    EXPECT_EQ(color, KdCmColor::fromIndex(140));
}

TEST_F(ColorDialogs, an_index_out_of_range_is_told_and_keeps_the_dialog_open) {
    next([&](QWidget& dialog) {
        typeInto(dialog, "IDC_COLOR_INDEX_EDIT", "300");
        next([](QWidget& box) {
            EXPECT_EQ(box.objectName(), QStringLiteral("MessageBox"));
            QTest::keyClick(&box, Qt::Key_Return);
        });
        press(dialog, "IDOK");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.focusWidget()->objectName(), QStringLiteral("IDC_COLOR_INDEX_EDIT"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(ask());
    EXPECT_EQ(color, KdCmColor::fromIndex(1));
}

TEST_F(ColorDialogs, the_true_colour_page_takes_red_green_and_blue) {
    color = KdCmColor::fromRgb(9, 8, 7);
    next([](QWidget& dialog) {
        EXPECT_EQ(in<QTabWidget>(dialog, "IDC_COLOR_PAGES").currentIndex(), 1);
        EXPECT_EQ(in<QSpinBox>(dialog, "IDC_COLOR_GREEN_SPIN").value(), 8);
        in<QSpinBox>(dialog, "IDC_COLOR_RED_SPIN").setValue(200);
        EXPECT_EQ(in<QLabel>(dialog, "IDC_COLOR_NAME_STATIC").text(), QStringLiteral("200,8,7"));
        press(dialog, "IDOK");
    });
    EXPECT_TRUE(ask());
    EXPECT_EQ(color, KdCmColor::fromRgb(200, 8, 7));
}

TEST_F(ColorDialogs, the_meta_buttons_choose_and_ok_confirms) {
    next([](QWidget& dialog) {
        press(dialog, "IDC_COLOR_BYBLOCK_BUTTON");
        EXPECT_EQ(in<QLabel>(dialog, "IDC_COLOR_NAME_STATIC").text(), QStringLiteral("By block"));
        press(dialog, "IDOK");
    });
    EXPECT_TRUE(ask());
    EXPECT_TRUE(color.isByBlock());
}

TEST_F(ColorDialogs, one_colour_may_be_given_for_both) {
    nextAnswer("6");
    EXPECT_TRUE(kdedSetColorDialogTrueColor(color, true, color));
    EXPECT_EQ(color, KdCmColor::fromIndex(6));
}

TEST_F(ColorDialogs, every_control_is_named_and_reached_by_tab_in_both_languages) {
    for (const auto language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        next([&](QWidget& dialog) {
            expectReachable(dialog);
            in<QTabWidget>(dialog, "IDC_COLOR_PAGES").setCurrentIndex(1);
            expectReachable(dialog);
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        EXPECT_FALSE(ask());
    }
}

}  // namespace
