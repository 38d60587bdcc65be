// Closing drawings that have changes: who works in the window is asked before they are lost.

#include <QAbstractButton>
#include <QFile>
#include <QMessageBox>
#include <QTabBar>
#include <QTemporaryDir>

#include "host/mfc/messagebox.h"
#include "host/win32/modules.h"
#include "tests/ui/window/fixture.h"

namespace {

class WindowClosing : public kdtest::WindowTest {
protected:
    WindowClosing() { kdhost::forgetMessageBoxes(); }
    ~WindowClosing() override { kdhost::setLanguage(kdhost::Language::English); }

    static Step draw() { return keys("LINE 0,0 9,9  "); }
    /// Presses a button of the question, which must be open.
    Step answer(QMessageBox::StandardButton button) {
        return [this, button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            m_questions << box->text();
            box->button(button)->click();
        };
    }
    /// What has been answered, and nothing beside it.
    QStringList questions() const {
        const QString last = QString::fromStdWString(kdhost::lastMessageBoxText());
        EXPECT_EQ(last, m_questions.isEmpty() ? QString() : m_questions.last());
        return m_questions;
    }
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    Step saveAs(const char* name) {
        return [this, name] {
            host.answerFileDialog(path(name).toStdWString());
            host.editor().input().type(L"SAVEAS\n");
        };
    }
    Step expectChanged(int index, bool changed) {
        return [this, index, changed] { EXPECT_EQ(host.documents().at(index)->isChanged(), changed); };
    }
    QString tabText(int index) { return window.tabs().tabText(index).remove(QLatin1Char('&')); }

private:
    QTemporaryDir m_folder;
    QStringList m_questions;
};

TEST_F(WindowClosing, a_program_without_changes_ends_unasked) {
    play({keys("REGEN "), keys("QUIT ")});
    EXPECT_TRUE(hasQuit());
    EXPECT_EQ(questions(), QStringList());
}

TEST_F(WindowClosing, changes_that_were_undone_are_none) {
    play({draw(), keys("U "), expectChanged(0, false), keys("QUIT ")});
    EXPECT_TRUE(hasQuit());
    EXPECT_EQ(questions(), QStringList());
}

TEST_F(WindowClosing, changes_are_discarded_when_the_user_says_so) {
    play({draw(), keys("QUIT "), answer(QMessageBox::No)});
    EXPECT_TRUE(hasQuit());
    EXPECT_EQ(questions(), QStringList{QStringLiteral("Save changes to Drawing1?")});
    EXPECT_TRUE(host.fileDialogs().empty());
}

TEST_F(WindowClosing, cancel_goes_on_as_if_nothing_had_been_asked) {
    play({draw(), keys("QUIT "), answer(QMessageBox::Cancel),
          [&] { EXPECT_EQ(promptText(), QStringLiteral("Command: ")); }, expectChanged(0, true), draw(), keys("U "),
          expectChanged(0, true), keys("U "), expectChanged(0, false)});
    EXPECT_FALSE(hasQuit());
    EXPECT_EQ(questions().size(), 1);
}

TEST_F(WindowClosing, the_frame_asks_as_the_command_does) {
    play({draw(), [&] { EXPECT_FALSE(window.close()); }, answer(QMessageBox::Cancel),
          [&] {
              EXPECT_TRUE(window.isVisible());
              EXPECT_FALSE(window.close());
          },
          answer(QMessageBox::No)});
    EXPECT_TRUE(hasQuit());
    EXPECT_EQ(questions().size(), 2);
}

TEST_F(WindowClosing, a_new_drawing_is_saved_under_a_name_that_is_asked_for) {
    play({draw(), keys("QUIT "), [&] {
              host.answerFileDialog(path("plan.dxf").toStdWString());
              answer(QMessageBox::Yes)();
          }});
    EXPECT_TRUE(hasQuit());
    EXPECT_TRUE(QFile::exists(path("plan.dxf")));
    EXPECT_EQ(host.fileDialogs().size(), 1U);
}

TEST_F(WindowClosing, without_a_name_for_the_file_the_program_goes_on) {
    play({draw(), keys("QUIT "), answer(QMessageBox::Yes), expectChanged(0, true)});
    EXPECT_FALSE(hasQuit());
    EXPECT_EQ(host.fileDialogs().size(), 1U);
}

TEST_F(WindowClosing, a_file_that_cant_be_written_keeps_the_program_going) {
    play({draw(), keys("QUIT "),
          [&] {
              host.answerFileDialog(path("nowhere/plan.dxf").toStdWString());
              answer(QMessageBox::Yes)();
          },
          expectChanged(0, true)});
    EXPECT_FALSE(hasQuit());
    EXPECT_TRUE(historyText().contains(QStringLiteral("the file can't be read or written")));
}

TEST_F(WindowClosing, each_drawing_with_changes_is_shown_and_asked_about_up_to_the_first_that_stays) {
    play({saveAs("a.dxf"), draw(), keys("NEW "), keys("NEW "), draw(), keys("DOCUMENT 2 "), keys("QUIT "),
          [&] {
              EXPECT_EQ(host.documents().current(), host.documents().at(0)) << "what is asked about is seen";
              answer(QMessageBox::Yes)();
          },
          [&] {
              EXPECT_EQ(host.documents().current(), host.documents().at(2));
              answer(QMessageBox::Cancel)();
          },
          expectChanged(0, false), expectChanged(2, true), keys("QUIT "), answer(QMessageBox::No)});
    EXPECT_TRUE(hasQuit());
    EXPECT_EQ(questions(),
              (QStringList{QStringLiteral("Save changes to a.dxf?"), QStringLiteral("Save changes to Drawing3?"),
                           QStringLiteral("Save changes to Drawing3?")}));
    EXPECT_EQ(host.fileDialogs().size(), 1U) << "the file of the first is known";
}

TEST_F(WindowClosing, a_closed_drawing_is_asked_about_too) {
    play({draw(), keys("NEW "), keys("CLOSE 1 "), answer(QMessageBox::Cancel),
          [&] { EXPECT_EQ(host.documents().documentCount(), 2); }, keys("CLOSE 1 "), answer(QMessageBox::No),
          [&] {
              EXPECT_EQ(host.documents().documentCount(), 1);
              EXPECT_EQ(tabText(0), QStringLiteral("Drawing2"));
          },
          keys("CLOSE  "), [&] { EXPECT_EQ(tabText(0), QStringLiteral("Drawing3")); }});
    EXPECT_EQ(questions().size(), 2);
}

TEST_F(WindowClosing, a_saved_drawing_shows_its_new_name_and_is_not_asked_about) {
    play({draw(), saveAs("plan.dxf"), [&] { EXPECT_EQ(tabText(0), QStringLiteral("plan.dxf")); }, keys("QUIT ")});
    EXPECT_TRUE(hasQuit());
    EXPECT_EQ(questions(), QStringList());
}

TEST_F(WindowClosing, the_question_speaks_chinese) {
    kdhost::setLanguage(kdhost::Language::Chinese);
    play({draw(), keys("QUIT "), answer(QMessageBox::No)});
    EXPECT_EQ(questions(), QStringList{QString::fromWCharArray(L"是否将更改保存到 Drawing1?")});
}

TEST_F(WindowClosing, a_script_in_the_window_loses_its_changes_unasked) {
    for (const wchar_t* line : {L"LINE 0,0 9,9 \n", L"NEW\n", L"LINE 0,0 9,9 \n", L"CLOSE 1\n"}) host.run(line);
    EXPECT_EQ(host.documents().documentCount(), 1);
    EXPECT_TRUE(host.document().isChanged());
    host.run(L"QUIT\n");
    EXPECT_TRUE(host.application().isQuitRequested());
    EXPECT_EQ(questions(), QStringList());
}

}  // namespace
