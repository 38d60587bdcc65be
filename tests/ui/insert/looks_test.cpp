// The looks of the insert dialog in each of its modes, in both languages.

#include <QComboBox>
#include <QDir>
#include <QPixmap>
#include <QScopeGuard>
#include <algorithm>

#include "kd/db/database.h"
#include "module/controls/comboboxes.h"
#include "module/create/tableinsertdlg.h"
#include "module/create/tablejig.h"
#include "tests/support/configfolder.h"
#include "tests/ui/looks/fixture.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {
namespace {

class InsertDialogLooks : public DialogLooks {
protected:
    static void choose(QWidget& dialog, const char* radio) {
        auto& button = in<QAbstractButton>(dialog, radio);
        QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(6, button.height() / 2));
    }
    ConfigFolder config;
};

INSTANTIATE_TEST_SUITE_P(Languages, InsertDialogLooks, bothLanguages(), languageName);

TEST_P(InsertDialogLooks, of_each_mode) {
    CVqTableInsertDlg dialog;
    dialog.SetDatabase(&host.database());
    runModal(dialog, [&] {
        lookAndReach(dialog, "tableinsert_point");
        choose(dialog, "IDC_TABLEINSERT_WINDOW_BUTTON");
        lookAndReach(dialog, "tableinsert_window");
        choose(dialog, "IDC_TABLEINSERT_COLUMNWIDTH_BUTTON");
        choose(dialog, "IDC_TABLEINSERT_ROWHEIGHT_BUTTON");
        lookAndReach(dialog, "tableinsert_window_sizes");
        choose(dialog, "IDC_TABLEINSERT_DATALINK_BUTTON");
        lookAndReach(dialog, "tableinsert_file_none");
        press(dialog, "IDCANCEL");
    });
}

TEST_P(InsertDialogLooks, with_pictures_of_the_screens_scale) {
    CVqTableInsertDlg dialog;
    dialog.SetDatabase(&host.database());
    runModal(dialog, [&] {
        const int scale = std::min(3, static_cast<int>(kdadGetDPIScale()));
        for (const char* name : {"IDB_TABLEINSERT_COLUMN_BMP", "IDB_TABLEINSERT_ROW_BMP"}) {
            const QPixmap plain(QStringLiteral(":/TvxTableRes/TvxTableRes/") + QLatin1String(name));
            EXPECT_FALSE(plain.isNull()) << name;
            EXPECT_EQ(in<QLabel>(dialog, name).pixmap(Qt::ReturnByValue).size(), plain.size() * scale) << name;
        }
        press(dialog, "IDCANCEL");
    });
}

TEST_P(InsertDialogLooks, with_a_table_from_a_file) {
    // The box has room for a short path.
    QFile file(QDir::temp().filePath(QStringLiteral("p.csv")));
    const auto removed = qScopeGuard([&file] { file.remove(); });
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Part,Number,Mass\nBolt,12,0.4\nWasher,24,0.1\nNut,12,0.2\n");
    file.close();
    CVqTableInsertDlg dialog;
    dialog.SetDatabase(&host.database());
    runModal(dialog, [&] {
        choose(dialog, "IDC_TABLEINSERT_DATALINK_BUTTON");
        next([&](QWidget& importing) {
            next([&](QWidget& files) {
                auto* name = files.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
                ASSERT_NE(name, nullptr);
                name->setText(file.fileName());
                QTest::keyClick(name, Qt::Key_Return);
            });
            press(importing, "IDC_BTN_SELPATH");
            press(importing, "IDOK");
        });
        press(dialog, "IDC_TABLEINSERT_DATALINKMAN_BUTTON");
        lookAndReach(dialog, "tableinsert_file");
        press(dialog, "IDCANCEL");
    });
}

TEST_P(InsertDialogLooks, with_options_and_larger_than_it_opens) {
    CVqTableInsertDlg dialog;
    dialog.SetDatabase(&host.database());
    dialog.SetFromTablStyleFlag(1);
    runModal(dialog, [&] {
        lookAndReach(dialog, "tableinsert_options");
        dialog.resize(dialog.size() + QSize(150, 60));
        look(dialog, "tableinsert_large");
        press(dialog, "IDCANCEL");
    });
}

}  // namespace
}  // namespace kdtest
