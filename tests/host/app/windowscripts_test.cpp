// Scripts that act on dialogs, menus and message boxes, within the loops of the windows.

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "host/ed/commands.h"
#include "kd/ed/prompts.h"
#include "kd/ui/hostdialogs.h"
#include "mfc/messagebox.h"
#include "tests/host/app/scriptfixture.h"

namespace {

using kdtest::answers;
using kdtest::Failing;
using kdtest::Texts;

void note(const std::wstring& answer) {
    answers.push_back(answer);
}

int ask(QWidget* parent, const wchar_t* text, UINT type) {
    const int button = kdMessageBox(parent, text, L"Ask", type);
    note(std::wstring(text) + L" " + std::to_wstring(button));
    return button;
}

/// A dialog with an edit, a button that leads further, OK and Cancel; all found by their names.
class TestDialog : public QDialog {
public:
    TestDialog(const char* name, QWidget* parent, const std::function<void(TestDialog&)>& further) : QDialog(parent) {
        setObjectName(QString::fromLatin1(name));
        setWindowTitle(QStringLiteral("Title of %1").arg(objectName()));
        auto* layout = new QVBoxLayout(this);
        edit.setObjectName(QStringLiteral("IDC_EDIT"));
        layout->addWidget(&edit);
        const auto button = [&](const char* buttonName) {
            auto* added = new QPushButton(QString::fromLatin1(buttonName), this);
            added->setObjectName(QString::fromLatin1(buttonName));
            layout->addWidget(added);
            return added;
        };
        connect(button("IDOK"), &QPushButton::clicked, this, &QDialog::accept);
        connect(button("IDCANCEL"), &QPushButton::clicked, this, &QDialog::reject);
        connect(button("IDC_FURTHER"), &QPushButton::clicked, this, [this, further] { further(*this); });
        button("IDC_DISABLED")->setEnabled(false);
    }

    void run() {
        const bool accepted = exec() == QDialog::Accepted;
        note(objectName().toStdWString() + (accepted ? L" OK " : L" cancelled ") + edit.text().toStdWString());
    }

    QLineEdit edit;
};

void nest() {
    TestDialog("OUTER", nullptr, [](TestDialog& outer) {
        TestDialog("INNER", &outer, [](TestDialog& inner) { ask(&inner, L"Sure?", MB_YESNO); }).run();
    }).run();
    wchar_t reply[1024] = L"(cancelled)";
    kdedGetString(0, L"After: ", reply);
    note(reply);
}

void showMenu() {
    QMenu menu;
    menu.setObjectName(QStringLiteral("IDR_TEST"));
    const auto add = [](QMenu& to, const char* name, const char* text) {
        QAction* item = to.addAction(QString::fromLatin1(text));
        item->setObjectName(QString::fromLatin1(name));
        return item;
    };
    QObject::connect(add(menu, "IDR_BOX", "&Box"), &QAction::triggered, [] { ask(nullptr, L"Box?", MB_OK); });
    add(menu, "IDR_OFF", "Off")->setEnabled(false);
    QMenu* more = menu.addMenu(QStringLiteral("More"));
    QObject::connect(add(*more, "IDR_DEEP", "Deep"), &QAction::triggered, [] { note(L"deep"); });
    const QAction* chosen = menu.exec(QPoint(10, 10));
    note(chosen == nullptr ? L"(no item)" : chosen->objectName().toStdWString());
}

void chooseColor() {
    KdCmColor color = KdCmColor::fromIndex(1);
    const bool chosen = kdedSetColorDialogTrueColor(color, true, KdCmColor::fromIndex(3));
    note(!chosen           ? L"(cancelled)"
         : color.isByACI() ? L"aci " + std::to_wstring(color.colorIndex())
                           : std::to_wstring(color.red()) + L"," + std::to_wstring(color.green()));
}

void askUntilYes() {
    while (ask(nullptr, L"Yes?", MB_YESNO) != IDYES) {
    }
}

/// A dialog whose button asks at the prompt.
void promptFromDialog() {
    TestDialog("PICKING", nullptr, [](TestDialog& dialog) {
        wchar_t reply[1024] = L"(cancelled)";
        kdedGetString(0, L"From the dialog: ", reply);
        dialog.edit.setText(QString::fromWCharArray(reply));
    }).run();
}

/// A menu without a loop of its own.
void leaveMenuOpen() {
    static QMenu menu;
    menu.setObjectName(QStringLiteral("IDR_LEFT"));
    if (menu.isEmpty()) menu.addAction(QStringLiteral("Item"), [] { note(L"item"); });
    menu.popup(QPoint(10, 10));
}

/// A window that stays beside the prompts, as a toolbar does.
class TestBar : public QWidget {
public:
    TestBar() : QWidget(nullptr, Qt::Tool) {
        setObjectName(QStringLiteral("BAR"));
        auto* layout = new QVBoxLayout(this);
        edit.setObjectName(QStringLiteral("IDC_FIND"));
        layout->addWidget(&edit);
        const auto button = [&](const char* name, auto clicked) {
            auto* added = new QPushButton(QString::fromLatin1(name), this);
            added->setObjectName(QString::fromLatin1(name));
            added->setFocusPolicy(Qt::NoFocus);
            layout->addWidget(added);
            connect(added, &QPushButton::clicked, this, clicked);
        };
        button("IDC_SEND", [] { kdhost::currentEditor()->input().send(L"NEST\n"); });
        button("IDC_MENU", showMenu);
        button("IDC_HIDE", [this] { hide(); });
    }

    QLineEdit edit;
};

class WindowScripts : public kdtest::ScriptTest {
protected:
    WindowScripts() {
        addCommand(L"NEST", nest);
        addCommand(L"SHOWMENU", showMenu);
        addCommand(L"CHOOSECOLOR", chooseColor);
        addCommand(L"ASKUNTILYES", askUntilYes);
        addCommand(L"PROMPTFROMDIALOG", promptFromDialog);
        addCommand(L"LEAVEMENUOPEN", leaveMenuOpen);
        addCommand(L"SAY", [] { ask(nullptr, L"Two\nlines", MB_OK); });
    }
    ~WindowScripts() override {
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
};

class BarScripts : public WindowScripts {
protected:
    BarScripts() { m_bar.show(); }

    TestBar m_bar;
};

TEST_F(BarScripts, a_window_beside_the_prompt_is_clicked_and_its_commands_come_before_the_next_line) {
    EXPECT_EQ(run("@click IDC_SEND\n@set IDC_EDIT sent\n@click IDOK\nreply\n@expect prompt Command:\n"), "");
    EXPECT_EQ(answers, (Texts{L"OUTER OK sent", L"reply"}));
}

TEST_F(BarScripts, a_menu_that_a_window_beside_the_prompt_opens_is_chosen_from_and_leads_on) {
    EXPECT_EQ(run("@click IDC_MENU\n@menu IDR_BOX\n@answer OK\n@expect prompt Command:\n"), "");
    EXPECT_EQ(answers, (Texts{L"Box? 1", L"IDR_BOX"}));
    EXPECT_EQ(run("@click IDC_MENU\n"), "s.kds:1: the menu IDR_TEST is not answered.");
}

TEST_F(BarScripts, keys_go_to_a_window_beside_the_prompt_only_while_that_has_the_keyboard) {
    EXPECT_EQ(run("NEST\n@click IDOK\n@focus IDC_FIND\n@key a\n@key b\n@expect IDC_FIND text ab\n@click IDC_HIDE\n"
                  "@key c\n@key ENTER\n@expect IDC_FIND text ab\n"),
              "");
    EXPECT_EQ(answers, (Texts{L"OUTER OK ", L"c"}));
}

TEST_F(BarScripts, a_hidden_window_is_told_from_none) {
    EXPECT_EQ(run("@expect BAR visible on\n@click IDC_HIDE\n@expect BAR visible off\n@expect IDC_FIND visible off\n"),
              "");
    EXPECT_EQ(run("@expect IDC_NONE visible off\n"), "s.kds:1: there is no control IDC_NONE.");
    m_bar.show();
    EXPECT_EQ(run("@click IDC_HIDE\n@close\n"), "s.kds:2: nothing is open that @close acts on.");
}

TEST_F(BarScripts, a_window_beside_the_prompt_is_closed_by_its_frame) {
    EXPECT_EQ(run("@focus IDC_FIND\n@close\n@expect BAR visible off\n"), "");
}

TEST_F(BarScripts, a_dialog_keeps_all_lines_from_the_windows_beside_it) {
    EXPECT_EQ(run("NEST\n@click IDC_HIDE\n"), "s.kds:2: there is no control IDC_HIDE.");
    EXPECT_TRUE(m_bar.isVisible());
}

TEST_F(WindowScripts, lines_follow_into_dialogs_over_dialogs_and_out_again_to_prompts) {
    EXPECT_EQ(run("NEST\n"
                  "@set IDC_EDIT outer\n"
                  "@click IDC_FURTHER\n"
                  "@expect IDC_EDIT text \n"
                  "@type IDC_EDIT inner\n"
                  "@expect focus IDC_EDIT\n"
                  "@click IDC_FURTHER\n"
                  "@message box Sure?\n"
                  "@answer YES\n"
                  "@click IDOK\n"
                  "@expect IDC_EDIT text outer\n"
                  "@key ESC\n"
                  "@expect prompt After:\n"
                  "reply\n"
                  "FILEDIA 0\n"),
              "");
    EXPECT_EQ(answers, (Texts{L"Sure? 6", L"INNER OK inner", L"OUTER cancelled outer", L"reply"}));
}

TEST_F(WindowScripts, dialogs_are_driven_by_keys_alone) {
    EXPECT_EQ(run("NEST\n@key a\n@key SHIFT+TAB\n@key SPACE\n@key ENTER\n@key TAB\n@key ENTER\n@key ESC\n"), "");
    EXPECT_EQ(answers, (Texts{L"INNER OK ", L"OUTER OK a", L"(cancelled)"}));
}

TEST_F(WindowScripts, the_frames_close_is_cancel_or_no) {
    EXPECT_EQ(run("NEST\n@close\nreply\nASKUNTILYES\n@close\n@answer YES\n"), "");
    EXPECT_EQ(answers, (Texts{L"OUTER cancelled ", L"reply", L"Yes? 7", L"Yes? 6"}));
}

TEST_F(WindowScripts, a_failing_line_ends_all_dialogs_and_the_command) {
    EXPECT_EQ(run("NEST\n@click IDC_FURTHER\n@click IDC_FURTHER\n@answer MAYBE\n@answer YES\nreply\n"),
              "s.kds:4: a message box is answered with OK, CANCEL, YES or NO.");
    EXPECT_EQ(answers, (Texts{L"Sure? 2", L"INNER cancelled ", L"OUTER cancelled ", L"(cancelled)"}));
}

TEST_F(WindowScripts, a_line_that_fails_after_its_dialogs_have_gone_is_told_with_its_own_number) {
    addCommand(L"STEAL", [] {
        TestDialog dialog("STEALING", nullptr, [](TestDialog&) {});
        QObject::connect(&dialog.edit, &QLineEdit::textEdited, &dialog, [&dialog] {
            ask(&dialog, L"Edited", MB_OK);
            dialog.reject();
        });
        dialog.run();
    });
    EXPECT_EQ(run("STEAL\n@type IDC_EDIT ab\n@answer OK\n"), "s.kds:2: IDC_EDIT lost the focus before all was typed.");
    EXPECT_EQ(answers, (Texts{L"Edited 1", L"STEALING cancelled a"}));
}

TEST_F(WindowScripts, menus_are_chosen_from_and_what_their_items_open_is_answered) {
    EXPECT_EQ(run("SHOWMENU\n@menu IDR_BOX\n@answer OK\nSHOWMENU\n@menu \"Deep\"\nSHOWMENU\n@menu CANCEL\n"
                  "SHOWMENU\n@key DOWN\n@key ENTER\n@key ENTER\n"),
              "");
    EXPECT_EQ(answers, (Texts{L"Box? 1", L"IDR_BOX", L"deep", L"IDR_DEEP", L"(no item)", L"Box? 1", L"IDR_BOX"}));
}

TEST_F(WindowScripts, items_of_the_open_menu_are_looked_at_as_controls_are) {
    EXPECT_EQ(
        run("SHOWMENU\n@expect IDR_OFF enabled off\n@expect IDR_BOX enabled on\n@expect IDR_BOX text Box\n"
            "@expect IDR_BOX checked off\n@expect IDR_DEEP visible on\n@expect IDR_TEST visible on\n@menu CANCEL\n"),
        "");
    EXPECT_EQ(run("SHOWMENU\n@expect IDR_OFF enabled on\n"), "s.kds:2: IDR_OFF enabled is off, not on.");
}

TEST_F(WindowScripts, a_menu_without_a_loop_of_its_own_is_chosen_from_at_the_prompt) {
    EXPECT_EQ(run("LEAVEMENUOPEN\n@menu \"Item\"\n"), "");
    EXPECT_EQ(answers, Texts{L"item"});
    EXPECT_EQ(run("LEAVEMENUOPEN\n"), "s.kds:1: the menu IDR_LEFT is not answered.");
}

TEST_F(WindowScripts, the_colour_dialog_is_answered_in_a_line) {
    EXPECT_EQ(run("CHOOSECOLOR\n@color 5\nCHOOSECOLOR\n@color 10,20,30\nCHOOSECOLOR\n@color CANCEL\n"), "");
    EXPECT_EQ(answers, (Texts{L"aci 5", L"10,20", L"(cancelled)"}));
}

TEST_F(WindowScripts, a_dialog_may_ask_at_the_prompt) {
    EXPECT_EQ(run("PROMPTFROMDIALOG\n@click IDC_FURTHER\n@expect prompt From the dialog:\n@expect IDC_EDIT text \n"
                  "reply\n@expect IDC_EDIT text reply\n@click IDOK\n"),
              "");
    EXPECT_EQ(answers, Texts{L"PICKING OK reply"});
}

TEST_F(WindowScripts, message_lines_end_with_line_ends) {
    EXPECT_EQ(run("SAY\n@answer OK\n@message box Two\\nlines\n"), "");
    EXPECT_EQ(run("@message box Two\\nlines\n"), "s.kds:1: no message box was shown.") << "another run showed it";
}

TEST_F(WindowScripts, a_picture_of_the_top_window_is_written) {
    EXPECT_EQ(run("NEST\n@click IDC_FURTHER\n@shot " + file("inner.png") + "\n@close\n@close\n"), "");
    EXPECT_FALSE(QImage(QString::fromStdString(file("inner.png"))).isNull());
}

TEST_F(WindowScripts, quitting_ends_the_dialogs) {
    addCommand(L"QUITTING", [] {
        TestDialog("OUTER", nullptr, [](TestDialog&) { kdhost::Application::current()->requestQuit(); }).run();
    });
    EXPECT_EQ(run("QUITTING\n@click IDC_FURTHER\n@set NOSUCH x\n"), "");
    EXPECT_EQ(answers, Texts{L"OUTER cancelled "});
}

TEST_F(WindowScripts, a_window_that_ends_itself_needs_no_answer) {
    addCommand(L"PASSING", [] {
        TestDialog dialog("PASSING", nullptr, [](TestDialog&) {});
        QTimer::singleShot(1, &dialog, &QDialog::accept);
        dialog.run();
    });
    EXPECT_EQ(run("PASSING\n"), "");
    EXPECT_EQ(answers, Texts{L"PASSING OK "});
}

TEST_F(WindowScripts, windows_without_a_script_are_not_waited_for_for_ever) {
    kdhost::WindowFeeder windows{std::chrono::milliseconds(20)};
    nest();
    EXPECT_EQ(windows.failure(), "the dialog OUTER \"Title of OUTER\" is not answered.");
    ask(nullptr, L"Late", MB_YESNO);
    EXPECT_EQ(answers, (Texts{L"OUTER cancelled ", L"(cancelled)", L"Late 2"}));
}

TEST_F(WindowScripts, a_person_goes_on_where_a_script_has_failed) {
    kdhost::WindowFeeder windows{std::nullopt};
    EXPECT_EQ(kdhost::ScriptRunner(m_application, kdhost::Script("s.kds", "NEST\n@nosuch\n"), windows).run(),
              "s.kds:2: there is no action @nosuch.");
    QTimer::singleShot(30, [] { qobject_cast<QDialog*>(QApplication::activeModalWidget())->done(QMessageBox::Yes); });
    ask(nullptr, L"Still there?", MB_YESNO);
    EXPECT_EQ(answers, (Texts{L"OUTER cancelled ", L"(cancelled)", L"Still there? 6"}));
}

TEST_F(WindowScripts, a_command_that_asks_for_ever_ends_the_program) {
    EXPECT_EXIT(run("ASKUNTILYES\n@answer CANCEL\n"), ::testing::ExitedWithCode(1),
                "s.kds:2: the message box has no button CANCEL.\nthe message box \"Yes\\?\" opens again and again.");
}

class FailingWindowScripts : public WindowScripts, public ::testing::WithParamInterface<Failing> {};

TEST_P(FailingWindowScripts, end_with_the_line_and_what_is_wrong) {
    EXPECT_EQ(run(GetParam().script), GetParam().failure);
}

INSTANTIATE_TEST_SUITE_P(
    Script, FailingWindowScripts,
    ::testing::Values(
        Failing{"NEST\n; nothing more\n", "s.kds:2: the dialog OUTER \"Title of OUTER\" is not answered."},
        Failing{"NEST\n@click IDC_FURTHER\n@click IDC_FURTHER\n",
                "s.kds:3: the message box \"Sure?\" is not answered."},
        Failing{"SHOWMENU\n", "s.kds:1: the menu IDR_TEST is not answered."},
        Failing{"CHOOSECOLOR\n@set IDC_COLOR_INDEX_EDIT x\n@click IDOK\n@answer OK\n",
                "s.kds:4: the dialog ColorDialog \"Select Color\" is not answered."},
        Failing{"NEST\nLINE\n",
                "s.kds:2: the dialog OUTER \"Title of OUTER\" is open: a line for a prompt doesn't reach it."},
        Failing{"NEST\n\n",
                "s.kds:2: the dialog OUTER \"Title of OUTER\" is open: a line for a prompt doesn't reach it."},
        Failing{"NEST\n@pick 1,2\n",
                "s.kds:2: the dialog OUTER \"Title of OUTER\" is open: @pick doesn't reach past it."},
        Failing{"NEST\n@cells A1\n",
                "s.kds:2: the dialog OUTER \"Title of OUTER\" is open: @cells doesn't reach past it."},
        Failing{"SAY\n@document 1\n",
                "s.kds:2: the message box \"Two\nlines\" is open: @document doesn't reach past it."},
        Failing{"NEST\n@expect prompt x\n", "s.kds:2: the dialog OUTER \"Title of OUTER\" is open: no prompt waits."},
        Failing{"NEST\n@click NOSUCH\n", "s.kds:2: there is no control NOSUCH."},
        Failing{"NEST\n@click\n", "s.kds:2: the name of a control is missing."},
        Failing{"NEST\n@click IDC_DISABLED\n", "s.kds:2: IDC_DISABLED is disabled."},
        Failing{"NEST\n@set IDC_DISABLED on\n", "s.kds:2: IDC_DISABLED is disabled."},
        Failing{"NEST\n@set IDOK on\n", "s.kds:2: IDOK takes no value."},
        Failing{"NEST\n@set IDC_EDIT a\n@expect IDC_EDIT text b\n", "s.kds:3: IDC_EDIT text is a, not b."},
        Failing{"NEST\n@expect focus IDOK\n", "s.kds:2: the focus is in IDC_EDIT, not in IDOK."},
        Failing{"NEST\n@select IDC_EDIT x\n", "s.kds:2: IDC_EDIT has no rows."},
        Failing{"NEST\n@drop IDC_EDIT\n", "s.kds:2: IDC_EDIT has nothing to drop."},
        Failing{"NEST\n@label x\n", "s.kds:2: no label is being edited."},
        Failing{"NEST\n@menu x\n", "s.kds:2: no menu is open."},
        Failing{"NEST\n@answer OK\n", "s.kds:2: no message box is open."},
        Failing{"NEST\n@file a\n", "s.kds:2: no file dialog is open."},
        Failing{"NEST\n@color 1\n", "s.kds:2: no colour dialog is open."},
        Failing{"NEST\n@key HYPER\n", "s.kds:2: there is no key HYPER."},
        Failing{"NEST\n@edit TAB x\n", "s.kds:2: no cell is being edited."},
        Failing{"NEST\n@message box x\n", "s.kds:2: no message box was shown."},
        Failing{"NEST\n@nosuch\n", "s.kds:2: there is no action @nosuch."},
        Failing{"NEST\n@shot /no/such/folder/a.png\n", "s.kds:2: the picture /no/such/folder/a.png can't be written."},
        Failing{"CHOOSECOLOR\n@color 256\n",
                "s.kds:2: the colour dialog takes none, bylayer and byblock where it offers them, N, R,G,B or CANCEL, "
                "not 256."},
        Failing{"SHOWMENU\n@menu IDR_OFF\n", "s.kds:2: the menu's item IDR_OFF is disabled."},
        Failing{"SHOWMENU\n@menu \"None\"\n", "s.kds:2: the menu has no item \"None\"."},
        Failing{"SAY\n@message box Other\n@answer OK\n",
                "s.kds:2: the last message is \"Two\nlines\", not \"Other\"."}));

}  // namespace
