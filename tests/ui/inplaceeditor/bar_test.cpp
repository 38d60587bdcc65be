// The format bar of the in-place editor: each control, with the mouse and by keys alone.

#include <QToolButton>

#include "host/ui/automation/automation.h"
#include "tests/ui/inplaceeditor/fixture.h"

namespace kdtest {
namespace {

using kdhost::EditorPanel;

class InPlaceEditorBar : public InPlaceEditorTest {
protected:
    /// Selects "bc" of "abcd", acts, and leaves.
    std::wstring act(const User& user) {
        text.setContents(L"abcd");
        edit([&](EditorPanel& panel) {
            select(panel, 1, 3);
            user(panel);
            panel.focusText();
            tab();
        });
        return text.contents();
    }
    static User click(const char* name) {
        return [name](EditorPanel& panel) {
            auto& button = in<QToolButton>(panel, name);
            kdhost::pressMouse(button, button.rect().center());
        };
    }
    /// Answers the colour dialog that comes next.
    static void answerColor(const std::wstring& color) {
        QTimer::singleShot(0, qApp, [color] { EXPECT_EQ(kdhost::automation::color(color), L""); });
    }
};

TEST_F(InPlaceEditorBar, buttons_switch_what_is_selected) {
    EXPECT_EQ(act(click("EditorBold")), L"a{\\fDejaVu Sans|b1|i0;bc}d");
    EXPECT_EQ(act(click("EditorItalic")), L"a{\\fDejaVu Sans|b0|i1;bc}d");
    EXPECT_EQ(act(click("EditorUnderline")), L"a{\\Lbc}d");
}

TEST_F(InPlaceEditorBar, Ctrl_and_a_letter_switches_the_same) {
    const auto key = [](Qt::Key key) { return [key](EditorPanel&) { press(key, Qt::ControlModifier); }; };
    EXPECT_EQ(act(key(Qt::Key_B)), L"a{\\fDejaVu Sans|b1|i0;bc}d");
    EXPECT_EQ(act(key(Qt::Key_I)), L"a{\\fDejaVu Sans|b0|i1;bc}d");
    EXPECT_EQ(act(key(Qt::Key_U)), L"a{\\Lbc}d");
}

TEST_F(InPlaceEditorBar, a_second_press_switches_off_again) {
    EXPECT_EQ(act([](EditorPanel& panel) {
                  click("EditorUnderline")(panel);
                  click("EditorUnderline")(panel);
              }),
              L"abcd");
}

TEST_F(InPlaceEditorBar, a_press_with_the_mouse_leaves_the_keys_to_the_text) {
    act([](EditorPanel& panel) {
        click("EditorBold")(panel);
        EXPECT_TRUE(panel.hasFocus());
    });
}

TEST_F(InPlaceEditorBar, with_nothing_selected_the_next_characters_are_switched) {
    text.setContents(L"ab");
    edit(
        [](EditorPanel&) {
            press(Qt::Key_U, Qt::ControlModifier);
            kdhost::typeKeys(QStringLiteral("x"));
            press(Qt::Key_U, Qt::ControlModifier);
            kdhost::typeKeys(QStringLiteral("y"));
            tab();
        },
        kMTextEditorCaretAtEnd);
    EXPECT_EQ(contents(), L"ab{\\Lx}y");
}

TEST_F(InPlaceEditorBar, buttons_show_the_format_at_the_caret) {
    text.setContents(L"a{\\Lb}c");
    edit([](EditorPanel& panel) {
        auto& underline = in<QToolButton>(panel, "EditorUnderline");
        for (const auto& [place, on] : {std::pair(1, false), {2, true}, {3, false}}) {
            select(panel, 0, 0);
            for (int i = 0; i < place; ++i) press(Qt::Key_Right);
            EXPECT_EQ(underline.isChecked(), on) << place;
        }
        press(Qt::Key_Escape);
    });
}

TEST_F(InPlaceEditorBar, a_chosen_colour_is_that_of_what_is_selected) {
    struct Row {
        const wchar_t* answer;
        const wchar_t* contents;
    };
    const Row rows[] = {
        {L"1", L"a{\\C1;bc}d"}, {L"255,128,0", L"a{\\c33023;bc}d"}, {L"byblock", L"a{\\C0;bc}d"}, {L"bylayer", L"abcd"},
        {L"CANCEL", L"abcd"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(act([&](EditorPanel& panel) {
                      answerColor(row.answer);
                      click("EditorColor")(panel);
                      EXPECT_TRUE(panel.hasFocus());
                      EXPECT_FALSE(panel.hasEnded());
                  }),
                  row.contents)
            << QString::fromWCharArray(row.answer).toStdString();
    }
}

TEST_F(InPlaceEditorBar, a_typed_height_is_that_of_what_is_selected) {
    EXPECT_EQ(act([](EditorPanel& panel) {
                  auto& height = in<QLineEdit>(panel, "EditorHeight");
                  EXPECT_EQ(height.text(), QStringLiteral("4"));
                  height.setFocus();
                  height.selectAll();
                  kdhost::typeKeys(QStringLiteral("7.5"));
                  press(Qt::Key_Return);
                  EXPECT_TRUE(panel.hasFocus());
                  EXPECT_FALSE(panel.hasEnded());
              }),
              L"a{\\H7.5;bc}d");
}

TEST_F(InPlaceEditorBar, a_height_that_is_none_changes_nothing) {
    for (const char* height : {"", "0", "-2", "tall", "1e9", "nan"}) {
        EXPECT_EQ(act([&](EditorPanel& panel) {
                      auto& edit = in<QLineEdit>(panel, "EditorHeight");
                      edit.setFocus();
                      edit.selectAll();
                      press(Qt::Key_Delete);
                      kdhost::typeKeys(QString::fromLatin1(height));
                      press(Qt::Key_Return);
                  }),
                  L"abcd")
            << height;
    }
}

TEST_F(InPlaceEditorBar, a_change_of_format_is_one_step_of_undo) {
    EXPECT_EQ(act([](EditorPanel&) {
                  press(Qt::Key_U, Qt::ControlModifier);
                  press(Qt::Key_Z, Qt::ControlModifier);
              }),
              L"abcd");
}

TEST_F(InPlaceEditorBar, F10_leads_to_the_bar_Tab_through_it_and_Esc_back) {
    text.setContents(L"ab");
    const Ended ended = edit([](EditorPanel& panel) {
        press(Qt::Key_F10);
        const char* const names[] = {"EditorBold",   "EditorItalic",  "EditorUnderline", "EditorColor",
                                     "EditorHeight", "EditorFormula", "EditorBold"};
        for (const char* name : names) {
            ASSERT_NE(QApplication::focusWidget(), nullptr);
            EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
            EXPECT_FALSE(QApplication::focusWidget()->accessibleName().isEmpty()) << name;
            tab();
        }
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), "EditorBold");
        press(Qt::Key_Escape);
        EXPECT_TRUE(panel.hasFocus());
        EXPECT_FALSE(panel.hasEnded());
        tab();
    });
    EXPECT_EQ(ended.key, kMTextEditorTab);
}

TEST_F(InPlaceEditorBar, Enter_and_the_blank_press_the_button_that_has_the_keys) {
    EXPECT_EQ(act([](EditorPanel& panel) {
                  press(Qt::Key_F10);
                  tab();
                  tab();
                  press(Qt::Key_Return);
                  EXPECT_TRUE(in<QToolButton>(panel, "EditorUnderline").isChecked());
                  kdhost::pressKey(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
                  EXPECT_FALSE(in<QToolButton>(panel, "EditorUnderline").isChecked());
                  press(Qt::Key_Return);
              }),
              L"a{\\Lbc}d");
}

TEST_F(InPlaceEditorBar, keys_that_the_bar_has_no_use_for_stay_in_it) {
    edit([](EditorPanel& panel) {
        press(Qt::Key_F10);
        press(Qt::Key_Up);
        press(Qt::Key_X);
        EXPECT_FALSE(panel.hasEnded());
        EXPECT_EQ(panel.plainText(), L"");
        press(Qt::Key_Escape);
        press(Qt::Key_Escape);
    });
}

}  // namespace
}  // namespace kdtest
