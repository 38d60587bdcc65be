// Menus, tabs, exports and the end of the program with a window.

#include <QAction>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QToolButton>
#include <QXmlStreamReader>
#include <set>

#include "host/app/usersettings.h"
#include "host/app/window/drawingview.h"
#include "host/app/window/menus.h"
#include "host/db/currentspace.h"
#include "host/ed/display.h"
#include "host/rx/commandstack.h"
#include "kd/ui/hostdialogs.h"
#include "tests/ui/looks/dialoglooks.h"
#include "tests/ui/window/fixture.h"

namespace {

QString inQt(const kdhost::Words& words) {
    return QString::fromWCharArray(words.text());
}

class WindowMenus : public kdtest::WindowTest {
protected:
    ~WindowMenus() override { kdhost::setLanguage(kdhost::Language::English); }

    std::size_t entityCount() { return kdhost::entitiesOfCurrentSpace(host.database()).size(); }
    QTabBar& tabs() { return window.tabs(); }
    Step clickTab(int index) {
        return [this, index] {
            QTest::mouseClick(&tabs(), Qt::LeftButton, Qt::NoModifier, tabs().tabRect(index).center());
        };
    }
    Step closeTab(int index) {
        return [this, index] {
            auto* button = qobject_cast<QAbstractButton*>(tabs().tabButton(index, QTabBar::RightSide));
            if (button == nullptr) button = qobject_cast<QAbstractButton*>(tabs().tabButton(index, QTabBar::LeftSide));
            ASSERT_NE(button, nullptr);
            QTest::mouseClick(button, Qt::LeftButton);
        };
    }
    QString tabText(int index) { return tabs().tabText(index).remove(QLatin1Char('&')); }
};

TEST(WindowTexts, of_every_menu_are_there_in_both_languages_with_mnemonics_of_their_own) {
    for (const kdhost::Language language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        std::set<QString> titles;
        const auto isChinese = [](const QString& text) {
            return std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x2E80; });
        };
        const auto mnemonic = [](const QString& text) {
            return text.mid(text.indexOf(QLatin1Char('&')) + 1, 1).toUpper();
        };
        for (const kdhost::MenuRecord& menu : kdhost::menuRecords()) {
            EXPECT_TRUE(titles.insert(mnemonic(inQt(menu.title))).second) << menu.name;
            EXPECT_EQ(isChinese(inQt(menu.title)), language == kdhost::Language::Chinese) << menu.name;
            std::set<QString> entries;
            for (const kdhost::MenuEntry& entry : menu.entries) {
                if (entry.name == nullptr) continue;
                const QString text = inQt(entry.text);
                EXPECT_TRUE(text.contains(QLatin1Char('&'))) << entry.name;
                EXPECT_TRUE(entries.insert(mnemonic(text)).second) << entry.name << " has the mnemonic of another";
                // A language is called by its own name.
                if (std::string(menu.name) == "LanguageMenu") continue;
                EXPECT_EQ(isChinese(text), language == kdhost::Language::Chinese) << entry.name;
            }
        }
    }
    kdhost::setLanguage(kdhost::Language::English);
}

TEST_F(WindowMenus, have_no_entry_without_a_command) {
    ASSERT_EQ(host.application().loadModule(L"TvxTable.tvx"), L"");
    for (const kdhost::MenuRecord& menu : kdhost::menuRecords()) {
        for (const kdhost::MenuEntry& entry : menu.entries) {
            if (entry.name == nullptr) continue;
            const std::wstring typed = entry.typed;
            EXPECT_TRUE(kdhost::findCommand(typed.substr(0, typed.find_first_of(L" \n")))) << entry.name;
        }
    }
}

TEST_F(WindowMenus, disable_what_no_module_has_brought) {
    auto* entry = window.findChild<QAction*>(QStringLiteral("TableInsert"));
    auto* menu = qobject_cast<QMenu*>(entry->parent());
    emit menu->aboutToShow();
    EXPECT_FALSE(entry->isEnabled());
    EXPECT_TRUE(window.findChild<QAction*>(QStringLiteral("TableImport"))->isEnabled());
}

TEST_F(WindowMenus, type_their_commands_and_cancel_what_runs) {
    play({keys("LINE 1,1 9,9 "), choose("ViewRegen"),
          [&] {
              EXPECT_EQ(entityCount(), 1u);
              EXPECT_EQ(promptText(), QStringLiteral("Command: "));
          },
          choose("EditUndo"), [&] { EXPECT_EQ(entityCount(), 0u); }, choose("EditRedo"),
          [&] { EXPECT_EQ(entityCount(), 1u); }, choose("DrawLine"),
          [&] { EXPECT_EQ(promptText(), QStringLiteral("First point: ")); }});
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(WindowMenus, zoom_and_erase) {
    const double scale = window.view().scale();
    play({choose("ViewZoomIn"), [&] { EXPECT_DOUBLE_EQ(window.view().scale(), 2.0 * scale); }, choose("ViewZoomOut"),
          [&] { EXPECT_DOUBLE_EQ(window.view().scale(), scale); }, keys("LINE 1000,1000 1001,1001  "),
          choose("ViewZoomExtents"), [&] { EXPECT_TRUE(view().rect().contains(pixelsOf(1000.5, 1000.5))); },
          [&] { host.editor().pickFirst().set(kdhost::entitiesOfCurrentSpace(host.database())); }, choose("EditErase"),
          [&] { EXPECT_EQ(entityCount(), 0u); }});
}

TEST_F(WindowMenus, answer_shortcuts_while_nothing_is_typed) {
    play({keys("LINE 1,1 9,9  "), key(Qt::Key_Z, Qt::ControlModifier), [&] { EXPECT_EQ(entityCount(), 0u); },
          key(Qt::Key_Y, Qt::ControlModifier), [&] { EXPECT_EQ(entityCount(), 1u); },
          // What is being typed has an undo of its own.
          keys("ab"), key(Qt::Key_Z, Qt::ControlModifier), [&] { EXPECT_EQ(entityCount(), 1u); }});
}

TEST_F(WindowMenus, tabs_show_and_switch_the_drawings) {
    play({[&] { EXPECT_EQ(tabs().count(), 1); }, choose("FileNew"),
          [&] {
              EXPECT_EQ(tabs().count(), 2);
              EXPECT_EQ(tabs().currentIndex(), 1);
              EXPECT_EQ(window.windowTitle(), QStringLiteral("Drawing2 - kdhost"));
          },
          keys("LINE 0,0 9,9  "), clickTab(0),
          [&] {
              EXPECT_EQ(host.documents().current(), host.documents().at(0));
              EXPECT_EQ(tabs().currentIndex(), 0);
              EXPECT_EQ(entityCount(), 0u);
          },
          clickTab(1), [&] { EXPECT_EQ(entityCount(), 1u); }, keys("DOCUMENT 1 "),
          [&] { EXPECT_EQ(tabs().currentIndex(), 0); }});
}

TEST_F(WindowMenus, a_tab_clicked_during_a_command_ends_the_command_first) {
    play({choose("FileNew"), keys("LINE 0,0 "), clickTab(0),
          [&] { EXPECT_EQ(host.documents().current(), host.documents().at(0)); }, clickTab(1),
          [&] { EXPECT_EQ(promptText(), QStringLiteral("Command: ")); }});
}

TEST_F(WindowMenus, closing_a_tab_closes_its_drawing_and_the_last_gives_way_to_a_new_one) {
    play({choose("FileNew"), closeTab(0),
          [&] {
              EXPECT_EQ(host.documents().documentCount(), 1);
              EXPECT_EQ(tabText(0), QStringLiteral("Drawing2"));
          },
          choose("FileClose"),
          [&] {
              EXPECT_EQ(host.documents().documentCount(), 1);
              EXPECT_EQ(tabText(0), QStringLiteral("Drawing3"));
          },
          keys("LINE 0,0 9,9  "), [&] { EXPECT_EQ(entityCount(), 1u); }, keys("CLOSE 7 ")});
    EXPECT_TRUE(historyText().contains(QStringLiteral("There is no drawing 7.")));
}

TEST_F(WindowMenus, closing_the_window_quits_and_so_does_the_menu) {
    play({keys("LINE 0,0 "), [&] { window.close(); }});
    EXPECT_TRUE(host.application().isQuitRequested());
    EXPECT_TRUE(historyText().contains(QStringLiteral("_QUIT")));
}

TEST_F(WindowMenus, pictures_of_the_drawing_are_written_and_can_be_read) {
    const QString png = config.path() + QStringLiteral("/p.png");
    const QString svg = config.path() + QStringLiteral("/p.svg");
    const QString pdf = config.path() + QStringLiteral("/p.pdf");
    for (const QString& path : {png, svg, pdf}) host.answerFileDialog(path.toStdWString());
    host.answerFileDialog(L"/no/such/folder/p.png");
    play({keys("LINE 0,0 90,60  "), choose("FileExportPng"), choose("FileExportSvg"), choose("FilePrintPdf"),
          keys("EXPORTPNG ")});
    EXPECT_FALSE(QImage(png).isNull());
    QFile vector(svg);
    ASSERT_TRUE(vector.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&vector);
    while (!reader.atEnd()) reader.readNext();
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    QFile page(pdf);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    EXPECT_TRUE(page.readAll().startsWith("%PDF-"));
    EXPECT_EQ(host.fileDialogs()[0].defaultName, L"Drawing1.png");
    EXPECT_TRUE(host.fileDialogs()[0].forWriting);
    EXPECT_TRUE(historyText().contains(QStringLiteral("can't write the picture /no/such/folder/p.png")));
}

TEST_F(WindowMenus, the_language_is_kept_for_the_next_start) {
    EXPECT_EQ(kdhost::storedLanguage(), std::nullopt);
    play({choose("LanguageChinese"), [&] { EXPECT_EQ(kdhost::storedLanguage(), kdhost::Language::Chinese); },
          choose("LanguageEnglish"), [&] { EXPECT_EQ(kdhost::storedLanguage(), kdhost::Language::English); },
          keys("LANGUAGE french ")});
    EXPECT_EQ(kdhost::storedLanguage(), kdhost::Language::English);
    EXPECT_TRUE(historyText().contains(QStringLiteral("\"french\" is none of English, Chinese.")));
    EXPECT_EQ(kdhost::language(), kdhost::Language::English);
}

TEST_F(WindowMenus, the_window_comes_back_where_it_was) {
    window.resize(777, 555);
    QApplication::processEvents();
    session.reset();
    EXPECT_FALSE(kdhost::storedWindowPlace().isEmpty());
    window.resize(900, 700);
    session.emplace(host.application(), window);
    EXPECT_EQ(window.size(), QSize(777, 555));
}

TEST_F(WindowMenus, nothing_of_the_session_is_left_behind) {
    play({keys("REGEN ")});
    session.reset();
    EXPECT_EQ(kdhost::inputSource(), nullptr);
    EXPECT_EQ(kdhost::viewWidget(), nullptr);
    EXPECT_EQ(host.documents().reactorCount(), 0u);
    kdhost::queueAllForRedraw();
    kdhost::updateDisplay();
}

/// Looked at at the screen's scale, whatever that is.
TEST_F(WindowMenus, DialogLooks_of_the_window_cut_no_text) {
    // A screen of that scale has room for it; the tests' own may not.
    window.resize(QSize(1000, 750) * kdadGetDPIScale());
    window.show();
    QApplication::processEvents();
    EXPECT_EQ(kdtest::cutControls(window), kdtest::Faults{});
    kdtest::keepPicture(window, QStringLiteral("MainWindow"));
}

}  // namespace
