// Files chosen in the import dialog: good ones, refused ones, and one after the other.

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "module/core/resources.h"
#include "tests/support/tablebuilder.h"
#include "tests/ui/import/fixture.h"
#include "tests/ui/preview/fixture.h"

namespace kdtest {
namespace {

constexpr unsigned kWrongKind = 6053;

class ImportDialog : public ImportDialogTest {};

TEST_F(ImportDialog, Opens_on_no_file_with_the_check_on_and_nothing_to_accept) {
    inDialog([](CExlImportDlg& dialog) {
        EXPECT_EQ(shownPath(dialog), "");
        EXPECT_TRUE(in<QCheckBox>(dialog, kImportCheck).isChecked());
        EXPECT_FALSE(in<QComboBox>(dialog, kImportSheet).isEnabled());
        EXPECT_FALSE(canBeAccepted(dialog));
        EXPECT_TRUE(showsWords(dialog));
        EXPECT_FALSE(showsPreview(dialog));
        EXPECT_EQ(dialog.m_pTable, nullptr);
    });
}

TEST_F(ImportDialog, A_good_file_is_shown_and_its_table_is_taken_by_who_asked) {
    CExlImportDlg dialog;
    const QString file = files.good();
    EXPECT_EQ(inDialog(dialog,
                       [&](CExlImportDlg&) {
                           choose(dialog, file);
                           EXPECT_EQ(shownPath(dialog), file.toStdString());
                           EXPECT_TRUE(canBeAccepted(dialog));
                           EXPECT_TRUE(showsPreview(dialog));
                           EXPECT_FALSE(showsWords(dialog));
                           EXPECT_GT(drawnPart(picture(dialog)).width(), 100) << "the table is drawn";
                           EXPECT_EQ(picture(dialog).size(), in<QLabel>(dialog, kImportPicture).size());
                           press(dialog, "IDOK");
                       }),
              IDOK);
    EXPECT_EQ(dialog.m_strPath, file.toStdWString());
    const std::unique_ptr<KdDbTable> taken = std::move(dialog.m_pTable);
    ASSERT_NE(taken, nullptr);
    EXPECT_EQ(dialog.m_pTable, nullptr);
    EXPECT_EQ(texts(*taken), "|Part|Number|Mass\n|\n|Bolt|12|0.4\n|\n|Washer|24|0.1\n|\n");
    EXPECT_TRUE(taken->objectId().isNull()) << "it is in no drawing";
}

TEST_F(ImportDialog, A_table_that_nobody_takes_goes_with_the_dialog) {
    CExlImportDlg dialog;
    EXPECT_EQ(inDialog(dialog, [&](CExlImportDlg&) { choose(dialog, files.good()); }), IDCANCEL);
    EXPECT_NE(dialog.m_pTable, nullptr);
}

TEST_F(ImportDialog, The_extension_may_be_in_capitals) {
    inDialog([&](CExlImportDlg& dialog) {
        choose(dialog, files.write("x.CSV", "a,b\n"));
        EXPECT_TRUE(canBeAccepted(dialog));
        EXPECT_EQ(dialog.m_pTable->numColumns(), 2);
    });
}

TEST_F(ImportDialog, An_empty_file_gives_a_table_of_no_rows_that_may_be_accepted) {
    CExlImportDlg dialog;
    EXPECT_EQ(inDialog(dialog,
                       [&](CExlImportDlg&) {
                           choose(dialog, files.write("empty.csv", ""));
                           EXPECT_TRUE(canBeAccepted(dialog));
                           EXPECT_FALSE(showsWords(dialog));
                           press(dialog, "IDOK");
                       }),
              IDOK);
    ASSERT_NE(dialog.m_pTable, nullptr);
    EXPECT_EQ(dialog.m_pTable->numRows(), 0);
    EXPECT_EQ(dialog.m_pTable->numColumns(), 0);
}

TEST_F(ImportDialog, A_file_that_isnt_UTF_8_is_refused_with_a_box_that_tells_nothing) {
    inDialog([&](CExlImportDlg& dialog) {
        const BoxAnswers boxes({BoxAnswer::Escape});
        choose(dialog, files.notUtf8());
        ASSERT_EQ(boxes.count(), 1);
        EXPECT_EQ(boxes.seen()[0].text, L"");
        EXPECT_EQ(boxes.seen()[0].icon, QMessageBox::Critical);
        EXPECT_EQ(dialog.m_pTable, nullptr);
        EXPECT_FALSE(canBeAccepted(dialog));
        EXPECT_TRUE(showsWords(dialog));
        EXPECT_FALSE(showsPreview(dialog));
        EXPECT_EQ(shownPath(dialog), files.path("latin.csv").toStdString());
    });
}

/// A socket has a name like a file, but nobody can open it as one, not even who may read everything.
class SocketFile {
public:
    explicit SocketFile(const QString& path) : m_socket(::socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.toLocal8Bit().toStdString().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    }
    ~SocketFile() { ::close(m_socket); }
    SocketFile(const SocketFile&) = delete;
    SocketFile& operator=(const SocketFile&) = delete;

private:
    int m_socket;
};

TEST_F(ImportDialog, A_file_that_cant_be_opened_is_refused_with_a_box_that_tells_nothing) {
    const SocketFile socket(files.path("socket.csv"));
    inDialog([&](CExlImportDlg& dialog) {
        const BoxAnswers boxes({BoxAnswer::Escape});
        choose(dialog, files.path("socket.csv"));
        ASSERT_EQ(boxes.count(), 1);
        EXPECT_EQ(boxes.seen()[0].text, L"");
        EXPECT_EQ(dialog.m_pTable, nullptr);
        EXPECT_FALSE(canBeAccepted(dialog));
        EXPECT_TRUE(showsWords(dialog));
    });
}

TEST_F(ImportDialog, Another_extension_is_warned_of_and_nothing_is_read) {
    inDialog([&](CExlImportDlg& dialog) {
        const BoxAnswers boxes({BoxAnswer::Escape});
        const QString file = files.write("parts.txt", "a,b\n");
        choose(dialog, file);
        ASSERT_EQ(boxes.count(), 1);
        EXPECT_EQ(boxes.seen()[0].text, loadText(kWrongKind));
        EXPECT_EQ(boxes.seen()[0].icon, QMessageBox::Warning);
        EXPECT_EQ(shownPath(dialog), file.toStdString());
        EXPECT_EQ(dialog.m_pTable, nullptr);
        EXPECT_FALSE(canBeAccepted(dialog));
    });
}

TEST_F(ImportDialog, A_name_without_an_extension_is_taken_as_that_of_a_spreadsheet) {
    inDialog([&](CExlImportDlg& dialog) {
        const BoxAnswers boxes({BoxAnswer::Escape});
        files.write("book.xls", "a");
        choose(dialog, files.path("book"));
        EXPECT_EQ(boxes.count(), 1);
        EXPECT_EQ(shownPath(dialog), files.path("book.xls").toStdString());
    });
}

TEST_F(ImportDialog, A_second_file_that_is_refused_leaves_no_table_of_the_first) {
    inDialog([&](CExlImportDlg& dialog) {
        choose(dialog, files.good());
        ASSERT_TRUE(canBeAccepted(dialog));
        const BoxAnswers boxes({BoxAnswer::Escape});
        choose(dialog, files.notUtf8());
        EXPECT_EQ(boxes.count(), 1);
        EXPECT_EQ(dialog.m_pTable, nullptr);
        EXPECT_FALSE(canBeAccepted(dialog));
        EXPECT_FALSE(showsPreview(dialog));
        EXPECT_TRUE(showsWords(dialog));
        choose(dialog, files.good());
        EXPECT_TRUE(canBeAccepted(dialog));
        EXPECT_TRUE(showsPreview(dialog));
    });
}

TEST_F(ImportDialog, A_second_file_of_another_extension_keeps_the_first_from_being_accepted) {
    CExlImportDlg dialog;
    EXPECT_EQ(inDialog(dialog,
                       [&](CExlImportDlg&) {
                           choose(dialog, files.good());
                           const BoxAnswers boxes({BoxAnswer::Escape});
                           choose(dialog, files.write("parts.txt", "a,b\n"));
                           EXPECT_FALSE(canBeAccepted(dialog));
                           EXPECT_NE(dialog.m_pTable, nullptr) << "nothing is read in its stead";
                           press(dialog, "IDOK");
                           EXPECT_TRUE(dialog.isVisible());
                       }),
              IDCANCEL);
}

TEST_F(ImportDialog, Each_file_read_replaces_the_table_of_the_one_before) {
    inDialog([&](CExlImportDlg& dialog) {
        choose(dialog, files.good());
        const QImage first = picture(dialog);
        choose(dialog, files.write("other.csv", "only\n"));
        EXPECT_EQ(texts(*dialog.m_pTable), "|only\n|\n");
        EXPECT_NE(picture(dialog), first);
        // The same file again, changed meanwhile.
        choose(dialog, files.write("other.csv", "new,texts\n"));
        EXPECT_EQ(texts(*dialog.m_pTable), "|new|texts\n|\n");
    });
}

TEST_F(ImportDialog, Cancelling_the_file_dialog_leaves_all_as_it_was) {
    inDialog([&](CExlImportDlg& dialog) {
        choose(dialog, files.good());
        const KdDbTable* table = dialog.m_pTable.get();
        const std::string path = shownPath(dialog);
        next([](QWidget& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
        press(dialog, kImportBrowse);
        EXPECT_EQ(dialog.m_pTable.get(), table);
        EXPECT_EQ(shownPath(dialog), path);
        EXPECT_TRUE(canBeAccepted(dialog));
    });
}

TEST_F(ImportDialog, The_file_dialog_lists_text_files_and_stands_over_the_dialog) {
    inDialog([&](CExlImportDlg& dialog) {
        next([&](QWidget& shown) {
            auto& asked = dynamic_cast<QFileDialog&>(shown);
            EXPECT_EQ(asked.nameFilters(), QStringList(QStringLiteral("*.csv")));
            EXPECT_EQ(asked.defaultSuffix(), QStringLiteral("xls"));
            EXPECT_EQ(asked.acceptMode(), QFileDialog::AcceptOpen);
            EXPECT_EQ(asked.fileMode(), QFileDialog::ExistingFile);
            EXPECT_EQ(asked.parentWidget(), &dialog);
            QTest::keyClick(&shown, Qt::Key_Escape);
        });
        press(dialog, kImportBrowse);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
    });
}

TEST_F(ImportDialog, The_keyboard_alone_imports_a_file) {
    const QString file = files.good();
    EXPECT_EQ(inDialog([&](CExlImportDlg& dialog) {
                  EXPECT_EQ(focusName(), kImportBrowse);
                  next([&](QWidget& shown) { enterFile(shown, file); });
                  pressKey(Qt::Key_Space);
                  EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
                  EXPECT_TRUE(canBeAccepted(dialog));
                  for (int tab = 0; tab < 10 && focusName() != "IDOK"; ++tab) pressKey(Qt::Key_Tab);
                  pressKey(Qt::Key_Return);
              }),
              IDOK);
}

TEST_F(ImportDialog, Sheets_have_no_names_and_help_has_nothing_to_say) {
    inDialog([&](CExlImportDlg& dialog) {
        choose(dialog, files.good());
        EXPECT_EQ(in<QComboBox>(dialog, kImportSheet).count(), 0);
        press(dialog, "IDHELP");
        EXPECT_TRUE(dialog.isVisible());
    });
}

}  // namespace
}  // namespace kdtest
