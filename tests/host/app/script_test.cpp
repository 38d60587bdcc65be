// Scripts: reading, running, and what ends a run.

#include "host/app/script.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QWidget>

#include "host/app/cellreference.h"
#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/ed/commands.h"
#include "host/rx/encoding.h"
#include "kd/db/database.h"
#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "tests/host/app/scriptfixture.h"

namespace {

using kdhost::Script;
using kdhost::ScriptLine;
using kdtest::Failing;

TEST(ScriptReading, comments_are_passed_over_and_marks_can_be_typed) {
    Script script("s.kds", "; a comment\nLINE\r\n\n@pick 1,2\n\\@text\n\\;text\n\\ text\n\\\\text\n\\n");
    struct Expected {
        int number;
        ScriptLine::Kind kind;
        const wchar_t* text;
    };
    const auto typed = ScriptLine::Kind::Typed;
    const Expected expected[] = {
        {2, typed, L"LINE"},   {3, typed, L""},      {4, ScriptLine::Kind::Action, L"pick 1,2"},
        {5, typed, L"@text"},  {6, typed, L";text"}, {7, typed, L" text"},
        {8, typed, L"\\text"}, {9, typed, L"\\n"}};
    for (const Expected& line : expected) {
        const auto read = script.next();
        ASSERT_TRUE(read.has_value());
        EXPECT_EQ(read->number, line.number);
        EXPECT_EQ(read->kind, line.kind);
        EXPECT_EQ(read->text, line.text);
    }
    EXPECT_FALSE(script.next().has_value());
    EXPECT_EQ(script.currentLine(), 9);
}

TEST(ScriptReading, a_missing_file_is_told) {
    std::string error;
    EXPECT_FALSE(Script::load("/nonexistent/s.kds", error).has_value());
    EXPECT_EQ(error.rfind("/nonexistent/s.kds: ", 0), 0u) << error;
}

struct CellsCase {
    const wchar_t* text;
    KdCellRange range;
};

class CellReferences : public ::testing::TestWithParam<CellsCase> {};

TEST_P(CellReferences, name_cells_of_a_table_of_30_rows_and_28_columns) {
    EXPECT_EQ(kdhost::parseCells(GetParam().text, 30, 28).value_or(KdCellRange{}), GetParam().range);
}

INSTANTIATE_TEST_SUITE_P(
    Script, CellReferences,
    ::testing::Values(CellsCase{L"A1", {0, 0, 0, 0}}, CellsCase{L"b2", {1, 1, 1, 1}}, CellsCase{L"AA1", {0, 26, 0, 26}},
                      CellsCase{L"A1:C3", {0, 0, 2, 2}}, CellsCase{L"C3:A1", {0, 0, 2, 2}},
                      CellsCase{L"C1:A3", {0, 0, 2, 2}}, CellsCase{L"2:3", {1, 0, 2, 27}},
                      CellsCase{L"B:C", {0, 1, 29, 2}}, CellsCase{L"AB30", {29, 27, 29, 27}}, CellsCase{L"AB31", {}},
                      CellsCase{L"AC30", {}}, CellsCase{L"", {}}, CellsCase{L"A", {}}, CellsCase{L"1", {}},
                      CellsCase{L"A0", {}}, CellsCase{L"0:1", {}}, CellsCase{L"A1:", {}}, CellsCase{L":A1", {}},
                      CellsCase{L"A:1", {}}, CellsCase{L"A1:B", {}}, CellsCase{L"1A", {}}, CellsCase{L"A1:B2:C3", {}},
                      CellsCase{L"A-1", {}}, CellsCase{L"ZZZZZZZZZZZ1", {}}, CellsCase{L"A99999999999", {}}));

using kdtest::answers;
using kdtest::Texts;

void askForFile(int flags) {
    resbuf* result = nullptr;
    const bool chosen = kdedGetFileNavDialog(L"Choose", L"", L"csv", nullptr, flags, &result) == RTNORM;
    answers.push_back(chosen ? result->resval.rstring : L"(cancelled)");
    kdutRelRb(result);
}

void askForever() {
    wchar_t reply[1024];
    while (kdedGetString(0, L"More: ", reply) == RTNORM) answers.push_back(reply);
    answers.push_back(L"(cancelled)");
}

class ScriptRuns : public kdtest::ScriptTest {
protected:
    ScriptRuns() {
        addCommand(L"ASKFILE", [] { askForFile(0); });
        addCommand(L"ASKNEWFILE", [] { askForFile(1); });
        addCommand(L"ASKFOREVER", askForever);
    }
};

TEST_F(ScriptRuns, the_end_of_the_script_cancels_what_still_prompts) {
    EXPECT_EQ(run("ASKFOREVER\none\ntwo\n"), "");
    EXPECT_EQ(answers, (Texts{L"one", L"two", L"(cancelled)"}));
}

TEST_F(ScriptRuns, a_file_dialog_is_answered) {
    EXPECT_EQ(run("ASKNEWFILE\n@file " + file("a b.csv") + "\nASKNEWFILE\n@file CANCEL\n"), "");
    EXPECT_EQ(answers, (Texts{kdhost::fromUtf8(file("a b.csv")), L"(cancelled)"}));
}

TEST_F(ScriptRuns, a_file_without_a_folder_lies_in_that_of_the_program) {
    EXPECT_EQ(run("ASKNEWFILE\n@file no such file\n"), "");
    EXPECT_EQ(answers, Texts{QDir::current().filePath(QStringLiteral("no such file.csv")).toStdWString()});
}

TEST_F(ScriptRuns, a_file_to_be_replaced_is_asked_about) {
    const std::string path = file("a.csv");
    QFile existing(QString::fromStdString(path));
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
    EXPECT_EQ(run("ASKNEWFILE\n@file " + path + "\n@message box a.csv already exists. Replace it?\n@answer NO\n@file " +
                  path + "\n@answer YES\n"),
              "");
    EXPECT_EQ(answers, Texts{kdhost::fromUtf8(path)});
}

TEST_F(ScriptRuns, a_missing_file_or_a_folder_can_not_be_chosen_for_reading) {
    const std::string missing = file("b.csv");
    EXPECT_EQ(run("ASKFILE\n@file " + missing + "\n"), "s.kds:2: " + missing + " can't be chosen.");
    const std::string folder = m_folder.path().toStdString();
    EXPECT_EQ(run("ASKFILE\n@file " + folder + "\n"), "s.kds:2: " + folder + " is a folder.");
    EXPECT_EQ(answers, (Texts{L"(cancelled)", L"(cancelled)"}));
}

TEST_F(ScriptRuns, a_file_is_chosen_for_reading) {
    QFile existing(m_folder.filePath(QStringLiteral("in.csv")));
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly));
    EXPECT_EQ(run("ASKFILE\n@file " + file("in.csv") + "\n"), "");
    EXPECT_EQ(answers, Texts{existing.fileName().toStdWString()});
}

TEST_F(ScriptRuns, a_failure_ends_the_run_and_nothing_more_is_carried_out) {
    EXPECT_EQ(run("ASKFOREVER\none\n@nosuch\ntwo\n"), "s.kds:3: there is no action @nosuch.");
    EXPECT_EQ(answers, (Texts{L"one", L"(cancelled)"}));
}

TEST_F(ScriptRuns, quit_ends_the_run) {
    EXPECT_EQ(run("QUIT\nNOSUCH\n"), "");
    EXPECT_TRUE(m_application.isQuitRequested());
}

TEST_F(ScriptRuns, keys_press_esc_enter_and_blank) {
    EXPECT_EQ(run("ASKFOREVER\n@key ENTER\n@key SPACE\n@key ESC\nFILEDIA 0\n"), "");
    EXPECT_EQ(answers, (Texts{L"", L"", L"(cancelled)"}));
}

TEST_F(ScriptRuns, keys_type_character_by_character) {
    EXPECT_EQ(run("ASKFOREVER\n@key a\n@key b\n@key 2\n@key ENTER\n@key ESC\n"), "");
    EXPECT_EQ(answers, (Texts{L"ab2", L"(cancelled)"}));
}

TEST_F(ScriptRuns, a_picture_without_an_open_window_shows_the_main_window) {
    QWidget mainWindow;
    mainWindow.resize(40, 30);
    m_application.setMainWindow(&mainWindow);
    EXPECT_EQ(run("@shot " + file("main.png") + "\n"), "");
    EXPECT_EQ(QImage(QString::fromStdString(file("main.png"))).size(), QSize(40, 30));
}

TEST_F(ScriptRuns, cells_are_selected_as_dragging_would_up_to_whole_merges) {
    auto table = std::make_unique<KdDbTable>();
    table->setSize(6, 6);
    table->mergeCells(1, 2, 1, 2);
    table->mergeCells(3, 4, 2, 3);
    KdDbDatabase& database = *m_application.documents().current()->database();
    ASSERT_TRUE(kdhost::appendToCurrentSpace(database, std::move(table)));
    const KdDbObjectId id = kdhost::entitiesOfCurrentSpace(database).front();
    const auto selected = [&] { return kdhost::peek<KdDbTable>(id)->getSubSelection(); };
    EXPECT_EQ(run("@cells C3\n"), "");
    EXPECT_EQ(selected(), (KdCellRange{1, 1, 2, 2}));
    EXPECT_EQ(run("@cells #0 C4:C3\n"), "");
    EXPECT_EQ(selected(), (KdCellRange{1, 1, 4, 3}));
    EXPECT_EQ(run("@cells none\n"), "");
    EXPECT_FALSE(kdhost::peek<KdDbTable>(id)->hasSubSelection());
    EXPECT_EQ(run("@cells G1\n"), "s.kds:1: \"G1\" names no cells of the table.");
}

TEST_F(ScriptRuns, the_clipboard_takes_text) {
    EXPECT_EQ(run("@clipboard one\\ntwo\n"), "");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("one\ntwo"));
}

TEST_F(ScriptRuns, lists_expectations_that_hold) {
    EXPECT_EQ(run("@expect prompt Command:\nASKFOREVER\n@expect prompt More:\n@key ESC\n"
                  "CVPORT\n@message line CVPORT = 2 (read only)\n"),
              "");
}

class FailingScripts : public ScriptRuns, public ::testing::WithParamInterface<Failing> {};

TEST_P(FailingScripts, end_with_the_line_and_what_is_wrong) {
    EXPECT_EQ(run(GetParam().script), GetParam().failure);
}

INSTANTIATE_TEST_SUITE_P(
    Script, FailingScripts,
    ::testing::Values(Failing{"NOSUCH\n", "s.kds:1: Unknown command \"NOSUCH\"."},
                      Failing{"ASKFILE\n; nothing more\n", "s.kds:2: the file dialog \"Choose\" is not answered."},
                      Failing{"ASKFILE\na.csv\n",
                              "s.kds:2: the file dialog \"Choose\" is open: a line for a prompt doesn't reach it."},
                      Failing{"ASKFILE\n@file\n", "s.kds:2: a file dialog is answered with a path or CANCEL."},
                      Failing{"@file a.csv\n", "s.kds:1: nothing is open that @file acts on."},
                      Failing{"@pick 1\n", "s.kds:1: @pick takes X,Y or +X,Y."},
                      Failing{"ASKFOREVER\n@pick 1,2\n", "s.kds:2: the prompt takes no pick."},
                      Failing{"@cells A1\n", "s.kds:1: there is no such table."},
                      Failing{"@cells #0 A1\n", "s.kds:1: there is no such table."},
                      Failing{"@document 2\n", "s.kds:1: There is no drawing 2."},
                      Failing{"@document\n", "s.kds:1: @document takes a number."},
                      Failing{"ASKFOREVER\n@document 1\n", "s.kds:2: a command runs."},
                      Failing{"@key F1\n", "s.kds:1: nothing is open that @key F1 acts on."},
                      Failing{"@message box Done\n", "s.kds:1: no message box was shown."},
                      Failing{"@message line Done\n", "s.kds:1: the last message is \"\", not \"Done\"."},
                      Failing{"@message other\n", "s.kds:1: @message takes box or line."},
                      Failing{"@expect prompt Name:\n", "s.kds:1: the prompt is \"Command:\", not \"Name:\"."},
                      Failing{"@expect IDOK enabled on\n", "s.kds:1: there is no control IDOK."},
                      Failing{"@set IDC_NAME x\n", "s.kds:1: nothing is open that @set acts on."},
                      Failing{"@menu CANCEL\n", "s.kds:1: nothing is open that @menu acts on."},
                      Failing{"@edit ENTER x\n", "s.kds:1: no cell is being edited."},
                      Failing{"@expect editor x\n", "s.kds:1: no cell is being edited."},
                      Failing{"@expect focus IDOK\n", "s.kds:1: the focus is in nowhere, not in IDOK."},
                      Failing{"@shot a.png\n", "s.kds:1: no window is open."},
                      Failing{"@close\n", "s.kds:1: nothing is open that @close acts on."},
                      Failing{"LAYER Set walls\n", "s.kds:1: There is no layer \"walls\"."},
                      Failing{"DOCUMENT x\n", "s.kds:1: There is no drawing x."},
                      Failing{"ZOOM -2\n", "s.kds:1: \"-2\" is no factor to zoom by."},
                      Failing{"TABLEIMPORT\nnothere.csv\n", "s.kds:2: nothere.csv: does not exist."}));

}  // namespace
