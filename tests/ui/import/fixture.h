// The import dialog for tests: files of a folder of their own, chosen in the real file dialog, and what the dialog
// then shows.
#pragma once

#include <QCheckBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QMessageBox>
#include <QProgressBar>
#include <QTemporaryDir>
#include <QWindow>

#include "module/exchange/exlimportdlg.h"
#include "tests/support/boxanswers.h"
#include "tests/support/resourcemodule.h"
#include "tests/ui/hostdialogs/fixture.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {

inline constexpr const char* kImportBrowse = "IDC_BTN_SELPATH";
inline constexpr const char* kImportPath = "IDC_EDIT_EXLPATH";
inline constexpr const char* kImportSheet = "IDC_COMB_SHEET";
inline constexpr const char* kImportCheck = "IDC_CHECK_PREVIEW";
inline constexpr const char* kImportPicture = "IDC_STATIC_PREV";
inline constexpr const char* kImportWords = "IDC_STATIC_NOPREV";

/// A folder of files to import.
class ImportFiles {
public:
    QString write(const char* name, const QByteArray& content) {
        QFile file(m_folder.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        return file.fileName();
    }
    QString good() { return write("parts.csv", "Part,Number,Mass\nBolt,12,0.4\nWasher,24,0.1\n"); }
    QString notUtf8() { return write("latin.csv", "Tr\xE4ger,1\n"); }
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

private:
    QTemporaryDir m_folder;
};

/// A file is chosen by its name in the file dialog that has come.
inline void enterFile(QWidget& files, const QString& path) {
    auto* name = files.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    ASSERT_NE(name, nullptr);
    name->setText(path);
    QTest::keyClick(name, Qt::Key_Return);
}

class ImportDialogTest : public HostDialogTest {
protected:
    using Act = std::function<void(CExlImportDlg& dialog)>;

    /// Acts in the open dialog, which is cancelled when that leaves it open.
    int inDialog(const Act& act) {
        CExlImportDlg dialog;
        return inDialog(dialog, act);
    }
    static int inDialog(CExlImportDlg& dialog, const Act& act) {
        return runModal(dialog, [&] {
            act(dialog);
            if (dialog.isVisible()) press(dialog, "IDCANCEL");
        });
    }
    /// Chooses a file with the Browse button.
    void choose(CExlImportDlg& dialog, const QString& path) {
        next([path](QWidget& files) { enterFile(files, path); });
        press(dialog, kImportBrowse);
    }

    static bool canBeAccepted(CExlImportDlg& dialog) { return in<QPushButton>(dialog, "IDOK").isEnabled(); }
    static bool showsPreview(CExlImportDlg& dialog) { return in<QLabel>(dialog, kImportPicture).isVisible(); }
    static bool showsWords(CExlImportDlg& dialog) { return in<QLabel>(dialog, kImportWords).isVisible(); }
    static QImage picture(CExlImportDlg& dialog) {
        return in<QLabel>(dialog, kImportPicture).pixmap(Qt::ReturnByValue).toImage();
    }
    static std::string shownPath(CExlImportDlg& dialog) {
        return in<QLineEdit>(dialog, kImportPath).text().toStdString();
    }
    static void clickCheck(CExlImportDlg& dialog) {
        auto& check = in<QCheckBox>(dialog, kImportCheck);
        QTest::mouseClick(&check, Qt::LeftButton, Qt::NoModifier, QPoint(5, check.height() / 2));
    }
    /// As the frame is dragged: the size comes from the window system.
    static QSize drag(CExlImportDlg& dialog, QSize size) {
        dialog.windowHandle()->resize(size);
        QApplication::processEvents();
        QApplication::processEvents();
        return dialog.size();
    }

    ImportFiles files;

private:
    ResourceModule m_resources;
};

}  // namespace kdtest
