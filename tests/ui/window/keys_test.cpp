// The command line of the window: keys, prompts, keywords, completion, what was entered before.

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>

#include "host/app/window/commandlinewidget.h"
#include "host/app/window/drawingview.h"
#include "host/app/window/promptwords.h"
#include "host/db/currentspace.h"
#include "host/ed/pickfirst.h"
#include "tests/ui/window/fixture.h"

namespace {

using kdhost::Answer;
using kdhost::PromptKind;

class WindowKeys : public kdtest::WindowTest {
protected:
    std::size_t entityCount() { return kdhost::entitiesOfCurrentSpace(host.database()).size(); }
    Step askText(bool takesBlanks) {
        return
            [this, takesBlanks] { answers.push_back(host.editor().ask(PromptKind::Text, L"\nText: ", takesBlanks)); };
    }
    /// A click on a word of the prompt.
    Step clickWord(const char* word) {
        return [this, word] {
            const QString text = promptText();
            const int at = text.indexOf(QString::fromUtf8(word));
            ASSERT_GE(at, 0) << text.toStdString();
            const QFontMetrics metrics = prompt().fontMetrics();
            const int x =
                metrics.horizontalAdvance(text.left(at)) + metrics.horizontalAdvance(QString::fromUtf8(word)) / 2;
            QTest::mouseClick(&prompt(), Qt::LeftButton, Qt::NoModifier, {x, prompt().height() / 2});
        };
    }

    std::vector<Answer> answers;
};

TEST_F(WindowKeys, typed_over_the_drawing_go_to_the_command_line) {
    play({[&] { view().setFocus(); }, keys("LI"), [&] { EXPECT_EQ(edit().text(), QStringLiteral("LI")); },
          key(Qt::Key_Backspace), [&] { EXPECT_EQ(edit().text(), QStringLiteral("L")); }});
}

TEST_F(WindowKeys, a_blank_and_Enter_each_end_a_token) {
    play({keys("LINE "), [&] { EXPECT_EQ(promptText(), QStringLiteral("First point: ")); }, keys("0,0"),
          key(Qt::Key_Return), keys("10,0"), key(Qt::Key_Enter), [&] { EXPECT_EQ(entityCount(), 1u); },
          key(Qt::Key_Space), [&] { EXPECT_EQ(promptText(), QStringLiteral("Command: ")); }});
}

TEST_F(WindowKeys, a_blank_is_a_character_where_the_prompt_takes_blanks) {
    play({askText(true), keys("two words"), key(Qt::Key_Return), askText(false), keys("one ")});
    ASSERT_EQ(answers.size(), 2u);
    EXPECT_EQ(answers[0].text, L"two words");
    EXPECT_EQ(answers[1].text, L"one");
}

TEST_F(WindowKeys, Esc_gives_up_what_was_typed_and_cancels_what_runs) {
    play({keys("LINE 0,0 5"), key(Qt::Key_Escape), [&] {
              EXPECT_EQ(edit().text(), QString());
              EXPECT_EQ(promptText(), QStringLiteral("Command: "));
          }});
    EXPECT_EQ(entityCount(), 0u);
}

TEST_F(WindowKeys, Esc_between_commands_gives_up_the_selection) {
    play({keys("LINE 0,0 50,0  "),
          [&] { host.editor().pickFirst().set(kdhost::entitiesOfCurrentSpace(host.database())); }, key(Qt::Key_Escape),
          [&] { EXPECT_TRUE(host.editor().pickFirst().objects().empty()); }});
}

TEST_F(WindowKeys, an_empty_line_repeats_no_command) {
    play({keys("LINE 0,0 5,5  "), key(Qt::Key_Return), [&] { EXPECT_EQ(promptText(), QStringLiteral("Command: ")); }});
}

TEST_F(WindowKeys, the_history_holds_prompts_with_answers_and_messages) {
    play({keys("SETVAR "), keys("LWDISPLAY "), keys("1 "), keys("NOSUCH ")});
    const QString text = historyText();
    EXPECT_TRUE(text.startsWith(QStringLiteral("Command: SETVAR\nName of the variable or [?]: LWDISPLAY\n")))
        << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("\nCommand: NOSUCH\nUnknown command \"NOSUCH\"."))) << text.toStdString();
}

TEST_F(WindowKeys, text_sent_to_a_drawing_is_shown_when_it_asks_for_that) {
    play({[&] { kdDocManagerPtr()->sendStringToExecute(&host.document(), L"REGEN\n", true, false, true); },
          [&] { EXPECT_TRUE(historyText().contains(QStringLiteral("REGEN"))); },
          [&] { kdDocManagerPtr()->sendStringToExecute(&host.document(), L"ZOOM 2x\n", true, false, false); },
          [&] { EXPECT_FALSE(historyText().contains(QStringLiteral("ZOOM"))); }});
}

TEST_F(WindowKeys, a_click_on_a_keyword_enters_it) {
    play({keys("LAYER "), [&] { EXPECT_EQ(promptText(), QStringLiteral("[Make/Set/LOck/Unlock/Plot/Noplot]: ")); },
          clickWord("LOck"), [&] { EXPECT_EQ(promptText(), QStringLiteral("Name of the layer: ")); }, keys("0 "),
          key(Qt::Key_Escape)});
    EXPECT_TRUE(historyText().contains(QStringLiteral("[Make/Set/LOck/Unlock/Plot/Noplot]: LOck")));
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(WindowKeys, names_of_commands_that_go_on_are_offered) {
    const auto offered = [&] {
        QStringList names;
        for (int i = 0; i < completions().count(); ++i) names << completions().item(i)->text();
        return names;
    };
    play({keys("expo"),
          [&] {
              EXPECT_TRUE(completions().isVisible());
              EXPECT_EQ(offered(), (QStringList{QStringLiteral("EXPORTPNG"), QStringLiteral("EXPORTSVG")}));
          },
          keys("rtsvg"), [&] { EXPECT_FALSE(completions().isVisible()); }, key(Qt::Key_Escape), keys("nosuch"),
          [&] { EXPECT_FALSE(completions().isVisible()); }});
}

TEST_F(WindowKeys, Tab_takes_the_first_name_offered) {
    play({keys("reg"), key(Qt::Key_Tab), [&] {
              EXPECT_EQ(edit().text(), QStringLiteral("REGEN"));
              EXPECT_TRUE(edit().hasFocus());
              EXPECT_FALSE(completions().isVisible());
          }});
}

TEST_F(WindowKeys, the_arrows_choose_among_the_names_and_Enter_runs_the_chosen_one) {
    host.answerFileDialog(std::nullopt);
    play({keys("export"), key(Qt::Key_Down), key(Qt::Key_Down), key(Qt::Key_Return)});
    ASSERT_EQ(host.fileDialogs().size(), 1u);
    EXPECT_EQ(host.fileDialogs()[0].extension, L"svg");
}

TEST_F(WindowKeys, a_click_on_a_name_runs_it) {
    host.answerFileDialog(std::nullopt);
    play({keys("export"), [&] {
              const QRect row = completions().visualItemRect(completions().item(0));
              QTest::mouseClick(completions().viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
          }});
    ASSERT_EQ(host.fileDialogs().size(), 1u);
    EXPECT_EQ(host.fileDialogs()[0].extension, L"png");
}

TEST_F(WindowKeys, nothing_is_offered_at_the_prompt_of_a_command) {
    play({keys("LAYER "), keys("ma"), [&] { EXPECT_FALSE(completions().isVisible()); }});
}

TEST_F(WindowKeys, Up_and_Down_go_through_what_was_entered) {
    const auto shows = [&](const char* text) {
        return [this, text] { EXPECT_EQ(edit().text(), QString::fromUtf8(text)); };
    };
    play({keys("REGEN "), keys("LAYER "), key(Qt::Key_Escape), key(Qt::Key_Up), shows("LAYER"), key(Qt::Key_Up),
          shows("REGEN"), key(Qt::Key_Up), shows("REGEN"), key(Qt::Key_Down), shows("LAYER"), key(Qt::Key_Down),
          shows(""), key(Qt::Key_Down), shows("")});
}

TEST_F(WindowKeys, a_macro_is_shown_without_its_cancels_and_gives_up_what_was_typed) {
    play({keys("LINE 1,1 7"), [&] { window.type(L"^C^C_REGEN\n"); },
          [&] {
              EXPECT_EQ(edit().text(), QString());
              EXPECT_TRUE(historyText().endsWith(QStringLiteral("_REGEN"))) << historyText().toStdString();
          }});
    EXPECT_TRUE(host.failures().empty());
}

struct Word {
    const char* shown;
    const char* typed;
};

TEST(PromptWords, are_typed_by_their_letters_in_parentheses_or_the_word_with_capitals) {
    for (const Word& word :
         {Word{"Make", "Make"}, Word{"LOck", "LOck"}, Word{"merge All", "All"}, Word{"insert ABove", "ABove"},
          Word{"BG color", "BG"}, Word{"edit cell Style", "Style"}, Word{"返回(BA)", "BA"}, Word{"plain", "plain"}}) {
        EXPECT_EQ(kdhost::typedFor(QString::fromUtf8(word.shown)), QString::fromUtf8(word.typed)) << word.shown;
    }
}

TEST(PromptWords, become_links_and_all_other_text_stays_as_it_is) {
    EXPECT_EQ(kdhost::promptAsLinks(L"\nSize <a&b> [LOck/返回(BA)]: "),
              QStringLiteral("Size &lt;a&amp;b&gt; [<a href=\"LOck\" style=\"color:#1f6fb2\">LOck</a>/"
                             "<a href=\"BA\" style=\"color:#1f6fb2\">返回(BA)</a>]: "));
    EXPECT_EQ(kdhost::promptAsLinks(L"no [bracket"), QStringLiteral("no [bracket"));
}

}  // namespace
