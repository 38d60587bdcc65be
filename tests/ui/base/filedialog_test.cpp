// The file dialog under the framework's name.

#include <QFileDialog>
#include <QTemporaryDir>

#include "mfc/filedialog.h"
#include "mfc/messagebox.h"
#include "tests/ui/hostdialogs/fixture.h"

namespace {

class FrameworkFileDialog : public kdtest::HostDialogTest {
protected:
    QString make(const char* name) {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return file.fileName();
    }
    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    static void enter(QWidget& dialog, const QString& path) {
        auto& name = in<QLineEdit>(dialog, "fileNameEdit");
        name.setText(path);
        QTest::keyClick(&name, Qt::Key_Return);
    }
    QTemporaryDir folder;
};

TEST_F(FrameworkFileDialog, opens_a_file_that_is_there) {
    make("in.CSV");
    next([&](QWidget& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(files.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(files.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(files.nameFilters(), QStringList(QStringLiteral("*.csv")));
        enter(dialog, path("in.CSV"));
    });
    CFileDialog dialog(true, L"csv", nullptr, OFN_FILEMUSTEXIST, L"*.csv");
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), path("in.CSV").toStdWString());
    EXPECT_EQ(dialog.GetFileExt(), L"CSV");
}

TEST_F(FrameworkFileDialog, gives_a_name_without_an_extension_the_default_one) {
    make("in.xls");
    next([&](QWidget& dialog) { enter(dialog, path("in")); });
    CFileDialog dialog(true, L"xls", nullptr, OFN_FILEMUSTEXIST);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetFileExt(), L"xls");
}

TEST_F(FrameworkFileDialog, keeps_standing_on_a_name_that_must_exist_and_doesnt) {
    next([&](QWidget& dialog) {
        next([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        enter(dialog, path("gone.csv"));
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    CFileDialog dialog(true, L"csv", nullptr, OFN_FILEMUSTEXIST);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(dialog.GetPathName().IsEmpty());
    EXPECT_TRUE(dialog.GetFileExt().IsEmpty());
}

TEST_F(FrameworkFileDialog, proposes_a_name_for_a_new_file_and_lists_pairs_of_names_and_patterns) {
    next([&](QWidget& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        EXPECT_EQ(files.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(files.nameFilters(),
                  (QStringList{QStringLiteral("Tables (*.csv *.txt)"), QStringLiteral("All files (*.*)")}));
        EXPECT_EQ(in<QLineEdit>(dialog, "fileNameEdit").text(), QStringLiteral("Table1"));
        enter(dialog, path("out"));
    });
    CFileDialog dialog(false, L"csv", L"Table1", OFN_OVERWRITEPROMPT,
                       L"Tables (*.csv;*.txt)|*.csv;*.txt|All files|*.*||");
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), path("out.csv").toStdWString());
}

TEST_F(FrameworkFileDialog, cancelled_gives_no_path) {
    next([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    CFileDialog dialog(true);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(dialog.GetPathName().IsEmpty());
}

}  // namespace
