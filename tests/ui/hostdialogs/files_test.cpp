// The file dialog, the help and the screen's scale.

#include <QDirIterator>
#include <QFileDialog>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextDocument>

#include "host/ui/dialogs/filedialog.h"
#include "host/ui/help.h"
#include "kd/ed/prompts.h"
#include "kd/ed/resbuf.h"
#include "tests/support/places.h"
#include "tests/ui/hostdialogs/fixture.h"

namespace {

class FileDialogs : public kdtest::HostDialogTest {
protected:
    int ask(int flags) {
        resbuf* result = nullptr;
        const int status = kdedGetFileNavDialog(L"Choose", L"Table1", L"csv", nullptr, flags, &result);
        path.clear();
        if (result != nullptr) path = result->resval.rstring;
        kdutRelRb(result);
        return status;
    }
    QTemporaryDir folder;
    kdhost::WindowFileDialog dialogs;
    std::wstring path;
};

TEST_F(FileDialogs, a_new_name_gets_the_extension) {
    next([&](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), QStringLiteral("FileDialog"));
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(files.windowTitle(), QStringLiteral("Choose"));
        EXPECT_EQ(files.acceptMode(), QFileDialog::AcceptSave);
        auto* name = dialog.findChild<QLineEdit*>();
        EXPECT_EQ(name->text(), QStringLiteral("Table1"));
        name->setText(folder.filePath(QStringLiteral("out")));
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_EQ(ask(33), RTNORM);
    EXPECT_EQ(path, folder.filePath(QStringLiteral("out.csv")).toStdWString());
}

TEST_F(FileDialogs, cancel_gives_no_path) {
    next([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(ask(33), RTCAN);
    EXPECT_TRUE(path.empty());
}

TEST_F(FileDialogs, an_existing_file_is_chosen_for_reading) {
    QFile file(folder.filePath(QStringLiteral("in.csv")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    next([&](QWidget& dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).acceptMode(), QFileDialog::AcceptOpen);
        auto* name = dialog.findChild<QLineEdit*>();
        name->setText(file.fileName());
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_EQ(ask(32), RTNORM);
    EXPECT_EQ(path, file.fileName().toStdWString());
}

TEST(FileDialogsGone, without_one_the_editor_is_answered_with_cancel) {
    { kdhost::WindowFileDialog gone; }
    resbuf* result = nullptr;
    EXPECT_EQ(kdedGetFileNavDialog(L"t", L"n", L"csv", nullptr, 33, &result), RTCAN);
    EXPECT_EQ(result, nullptr);
}

class Help : public ::testing::Test {
protected:
    void SetUp() override {
        write(QStringLiteral("index.md"), "# First page\n");
        write(QStringLiteral("TableStyle.md"), "# Styles\n\ntext of **styles**\n");
        kdhost::setHelpFolder(folder.path());
    }
    void TearDown() override {
        for (QDialog* window : windows()) delete window;
        kdhost::setHelpFolder({});
        kdhost::setLanguage(kdhost::Language::English);
        qunsetenv("KDHOST_DOCS");
    }
    void write(const QString& name, const char* text) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    static QList<QDialog*> windows() {
        QList<QDialog*> found;
        for (QWidget* window : QApplication::allWidgets()) {
            if (window->objectName() == QStringLiteral("HelpWindow")) found << qobject_cast<QDialog*>(window);
        }
        return found;
    }
    static QString page() {
        const QList<QDialog*> open = windows();
        return open.isEmpty() ? QString() : open.first()->findChild<QTextBrowser*>()->document()->toPlainText();
    }
    /// The window becomes active as its events come.
    static int ask(const wchar_t* topic) {
        const int result = kdedHelp(nullptr, topic, 0);
        QApplication::processEvents();
        return result;
    }
    static QPushButton* button(const char* name) {
        return windows().first()->findChild<QPushButton*>(QString::fromLatin1(name));
    }
    QTemporaryDir folder;
};

TEST_F(Help, a_topics_page_is_shown_whatever_its_case) {
    EXPECT_EQ(ask(L"Tablestyle"), RTNORM);
    EXPECT_TRUE(page().startsWith(QStringLiteral("Styles"))) << page().toStdString();
    EXPECT_TRUE(page().contains(QStringLiteral("text of styles")));
}

TEST_F(Help, an_unknown_or_missing_topic_shows_the_first_page) {
    EXPECT_EQ(ask(L"nothing of the kind"), RTNORM);
    EXPECT_EQ(page().trimmed(), QStringLiteral("First page"));
    delete windows().first();
    EXPECT_EQ(ask(nullptr), RTNORM);
    EXPECT_EQ(page().trimmed(), QStringLiteral("First page"));
}

TEST_F(Help, a_page_in_the_hosts_language_goes_before_one_in_no_language_and_that_before_one_in_another) {
    const QString topic = QStringLiteral("Tablestyle");
    const auto folderOf = [&] { return QFileInfo(kdhost::helpPage(topic)).dir().dirName(); };
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("zh_CN")));
    write(QStringLiteral("zh_CN/Tablestyle.md"), "# \xE6\xA0\xB7\xE5\xBC\x8F\n");
    EXPECT_EQ(folderOf(), QDir(folder.path()).dirName());
    kdhost::setLanguage(kdhost::Language::Chinese);
    EXPECT_EQ(folderOf(), QStringLiteral("zh_CN"));
    EXPECT_EQ(ask(L"Tablestyle"), RTNORM);
    EXPECT_EQ(page(), QString::fromUtf8("\xE6\xA0\xB7\xE5\xBC\x8F"));
    kdhost::setLanguage(kdhost::Language::English);
    ASSERT_TRUE(QFile::remove(folder.filePath(QStringLiteral("TableStyle.md"))));
    EXPECT_EQ(folderOf(), QStringLiteral("zh_CN"));
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("en")));
    write(QStringLiteral("en/Tablestyle.md"), "# Styles\n");
    EXPECT_EQ(folderOf(), QStringLiteral("en"));
}

TEST_F(Help, links_lead_to_the_pages_beside_and_back) {
    write(QStringLiteral("index.md"), "[styles](TableStyle.md)\n");
    EXPECT_EQ(ask(nullptr), RTNORM);
    auto* browser = windows().first()->findChild<QTextBrowser*>();
    auto* back = button("IDC_HELP_BACK_BUTTON");
    EXPECT_TRUE(browser->hasFocus());
    EXPECT_FALSE(back->isEnabled());
    QTest::keyClick(browser, Qt::Key_Tab);
    QTest::keyClick(browser, Qt::Key_Return);
    EXPECT_TRUE(page().startsWith(QStringLiteral("Styles"))) << page().toStdString();
    QTest::keyClick(browser, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(page(), QStringLiteral("styles"));
    QTest::keyClick(browser, Qt::Key_Return);  // the link is still the chosen one
    EXPECT_TRUE(page().startsWith(QStringLiteral("Styles"))) << page().toStdString();
    QTest::mouseClick(back, Qt::LeftButton);
    EXPECT_EQ(page(), QStringLiteral("styles"));
    EXPECT_FALSE(back->isEnabled());
}

TEST_F(Help, the_first_page_is_one_press_away_from_every_page) {
    EXPECT_EQ(ask(L"Tablestyle"), RTNORM);
    // A button that is pressed by its mnemonic stays down for a moment.
    const auto comes = [](const char* text) {
        return QTest::qWaitFor([text] { return page().startsWith(QString::fromLatin1(text)); }, 5000);
    };
    QTest::keyClick(windows().first(), Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(comes("First page"));
    QTest::keyClick(windows().first(), Qt::Key_B, Qt::AltModifier);
    EXPECT_TRUE(comes("Styles"));
}

TEST_F(Help, a_second_topic_is_shown_in_the_window_that_is_open) {
    EXPECT_EQ(ask(L"Tablestyle"), RTNORM);
    EXPECT_EQ(ask(nullptr), RTNORM);
    ASSERT_EQ(windows().size(), 1);
    EXPECT_EQ(page().trimmed(), QStringLiteral("First page"));
    QTest::mouseClick(button("IDC_HELP_BACK_BUTTON"), Qt::LeftButton);
    EXPECT_TRUE(page().startsWith(QStringLiteral("Styles")));
}

TEST_F(Help, is_closed_by_its_button_and_by_Esc) {
    for (const bool byKey : {false, true}) {
        EXPECT_EQ(ask(L"Tablestyle"), RTNORM);
        if (byKey) {
            QTest::keyClick(windows().first(), Qt::Key_Escape);
        } else {
            QTest::mouseClick(button("IDCANCEL"), Qt::LeftButton);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(windows().isEmpty()) << byKey;
    }
}

/// Topics that the module asks the help for, as its sources name them.
std::set<QString> topicsOfTheModule() {
    static const QRegularExpression pattern(QStringLiteral("(?:kdedHelp\\([^,;]*,\\s*|helpTopic\\s*=\\s*)L\"(\\w+)\""));
    std::set<QString> topics;
    QDirIterator walk(kdtest::sourcePath("module"), {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        QFile source(walk.next());
        EXPECT_TRUE(source.open(QIODevice::ReadOnly));
        auto matches = pattern.globalMatch(QString::fromUtf8(source.readAll()));
        while (matches.hasNext()) topics.insert(matches.next().captured(1));
    }
    return topics;
}

TEST(HelpPages, there_is_one_for_each_topic_of_the_module_in_each_language) {
    kdhost::setHelpFolder(kdtest::sourcePath("docs"));
    std::set<QString> topics = topicsOfTheModule();
    EXPECT_TRUE(topics.count(QStringLiteral("Tablestyle")) == 1);
    topics.insert(QStringLiteral("TABLE_DIA"));
    for (const auto& [language, folder] : {std::pair{kdhost::Language::English, QStringLiteral("en")},
                                           std::pair{kdhost::Language::Chinese, QStringLiteral("zh_CN")}}) {
        kdhost::setLanguage(language);
        for (const QString& topic : topics) {
            const QFileInfo found(kdhost::helpPage(topic));
            EXPECT_EQ(found.completeBaseName(), topic);
            EXPECT_EQ(found.dir().dirName(), folder) << topic.toStdString();
            EXPECT_GT(found.size(), 1000) << topic.toStdString();
        }
        EXPECT_EQ(kdhost::helpPage({}), kdhost::helpPage(QStringLiteral("index")));
        EXPECT_EQ(QFileInfo(kdhost::helpPage({})).dir().dirName(), folder);
    }
    kdhost::setLanguage(kdhost::Language::English);
    kdhost::setHelpFolder({});
}

TEST(HelpPages, open_by_their_topics_in_both_languages) {
    struct Page {
        const wchar_t* topic;
        kdhost::Language language;
        QString title;
    };
    kdhost::setHelpFolder(kdtest::sourcePath("docs"));
    for (const Page& each :
         {Page{L"Tablestyle", kdhost::Language::English, QStringLiteral("Table styles")},
          Page{L"TABLE_DIA", kdhost::Language::English, QStringLiteral("Insert table")},
          Page{L"Tablestyle", kdhost::Language::Chinese, QStringLiteral("\u8868\u683c\u6837\u5f0f")},
          Page{L"TABLE_DIA", kdhost::Language::Chinese, QStringLiteral("\u63d2\u5165\u8868\u683c")}}) {
        kdhost::setLanguage(each.language);
        EXPECT_EQ(kdedHelp(nullptr, each.topic, 0), RTNORM);
        QApplication::processEvents();
        QWidget* window = QApplication::activeWindow();
        ASSERT_NE(window, nullptr);
        const QString shown = window->findChild<QTextBrowser*>()->document()->toPlainText();
        EXPECT_EQ(shown.section(QLatin1Char('\n'), 0, 0).toStdString(), each.title.toStdString());
        delete window;
    }
    kdhost::setLanguage(kdhost::Language::English);
    kdhost::setHelpFolder({});
}

TEST(HelpPages, lead_only_to_pages_that_are_there) {
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)]+)\\)"));
    QDirIterator walk(kdtest::sourcePath("docs/help"), {QStringLiteral("*.md")}, QDir::Files,
                      QDirIterator::Subdirectories);
    int links = 0;
    while (walk.hasNext()) {
        QFile page(walk.next());
        ASSERT_TRUE(page.open(QIODevice::ReadOnly));
        auto matches = link.globalMatch(QString::fromUtf8(page.readAll()));
        for (; matches.hasNext(); ++links) {
            const QString target = matches.next().captured(1);
            EXPECT_TRUE(QFileInfo(page.fileName()).dir().exists(target)) << target.toStdString();
        }
    }
    EXPECT_GE(links, 6);
}

TEST(HelpPages, are_the_same_in_each_language) {
    const auto pagesIn = [](const char* language) {
        return QDir(kdtest::sourcePath("docs/help/") + QLatin1String(language))
            .entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name);
    };
    EXPECT_GE(pagesIn("en").size(), 5);
    EXPECT_EQ(pagesIn("en"), pagesIn("zh_CN"));
}

TEST_F(Help, without_pages_it_says_so) {
    const QTemporaryDir empty;
    kdhost::setHelpFolder(empty.path());
    EXPECT_TRUE(kdhost::helpPage(QStringLiteral("Tablestyle")).isEmpty());
    EXPECT_EQ(kdedHelp(nullptr, L"Tablestyle", 0), RTNORM);
    EXPECT_EQ(page(), QStringLiteral("There are no help pages."));
}

TEST_F(Help, the_folder_is_the_environments_or_found_above_the_program) {
    kdhost::setHelpFolder({});
    EXPECT_EQ(QDir(kdhost::helpFolder()).canonicalPath(), QDir(kdtest::sourcePath("docs")).canonicalPath());
    qputenv("KDHOST_DOCS", folder.path().toUtf8());
    EXPECT_EQ(kdhost::helpFolder(), folder.path());
}

TEST_F(Help, it_can_be_read_while_a_dialog_is_open) {
    QDialog dialog;
    QTimer::singleShot(0, &dialog, [&] {
        kdedHelp(nullptr, L"Tablestyle", 0);
        kdedHelp(nullptr, L"Tablestyle", 0);
        ASSERT_EQ(windows().size(), 1);
        EXPECT_EQ(windows().first()->parentWidget(), &dialog);
        QTest::keyClick(windows().first(), Qt::Key_Escape);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        dialog.reject();
    });
    dialog.exec();
}

TEST(Scale, the_screens_scale_is_one_at_96_dots_an_inch) {
    EXPECT_DOUBLE_EQ(kdadGetDPIScale(), QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0);
    EXPECT_GT(kdadGetDPIScale(), 0.0);
}

}  // namespace
