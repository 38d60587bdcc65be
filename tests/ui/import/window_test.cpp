// The window of the import dialog: its preview, its sizes, its life while a large file is read, and its looks.

#include "tests/support/programicon.h"
#include "tests/ui/import/fixture.h"
#include "tests/ui/looks/fixture.h"
#include "tests/ui/preview/fixture.h"

namespace kdtest {
namespace {

class ImportWindow : public ImportDialogTest {};

TEST_F(ImportWindow, The_preview_check_turned_off_leaves_the_table_to_be_accepted) {
    CExlImportDlg dialog;
    EXPECT_EQ(inDialog(dialog,
                       [&](CExlImportDlg&) {
                           choose(dialog, files.good());
                           clickCheck(dialog);
                           EXPECT_FALSE(showsPreview(dialog));
                           EXPECT_TRUE(showsWords(dialog));
                           EXPECT_TRUE(canBeAccepted(dialog));
                           clickCheck(dialog);
                           EXPECT_TRUE(showsPreview(dialog));
                           EXPECT_FALSE(showsWords(dialog));
                           clickCheck(dialog);
                           press(dialog, "IDOK");
                       }),
              IDOK);
    EXPECT_NE(dialog.m_pTable, nullptr);
}

TEST_F(ImportWindow, A_file_read_without_preview_is_shown_once_the_check_goes_on) {
    inDialog([&](CExlImportDlg& dialog) {
        clickCheck(dialog);
        choose(dialog, files.good());
        EXPECT_FALSE(in<QCheckBox>(dialog, kImportCheck).isChecked()) << "a file doesn't turn it on";
        EXPECT_FALSE(showsPreview(dialog));
        EXPECT_FALSE(showsWords(dialog));
        EXPECT_TRUE(canBeAccepted(dialog));
        clickCheck(dialog);
        EXPECT_TRUE(showsPreview(dialog));
        EXPECT_GT(drawnPart(picture(dialog)).width(), 100);
    });
}

TEST_F(ImportWindow, Shows_no_table_at_one_size_whatever_the_frame_is_dragged_to) {
    inDialog([&](CExlImportDlg& dialog) {
        const QSize initial = dialog.size();
        const QSize low = initial - QSize(0, qRound(130 * kdadGetDPIScale()));
        for (const QSize& wanted : {initial + QSize(100, 100), initial - QSize(50, 50), initial - QSize(0, 400)}) {
            EXPECT_EQ(drag(dialog, wanted), low);
        }
    });
}

TEST_F(ImportWindow, With_a_table_grows_but_gets_no_smaller_than_at_first) {
    inDialog([&](CExlImportDlg& dialog) {
        const QSize initial = dialog.size();
        drag(dialog, initial + QSize(0, 10));
        ASSERT_LT(dialog.height(), initial.height());
        choose(dialog, files.good());
        EXPECT_EQ(dialog.size(), initial);
        EXPECT_EQ(drag(dialog, initial + QSize(200, 150)), initial + QSize(200, 150));
        EXPECT_EQ(drag(dialog, initial - QSize(200, 150)), initial);
    });
}

TEST_F(ImportWindow, A_file_of_another_kind_brings_the_height_back) {
    inDialog([&](CExlImportDlg& dialog) {
        const QSize initial = dialog.size();
        choose(dialog, files.good());
        drag(dialog, initial + QSize(200, 150));
        const BoxAnswers boxes({BoxAnswer::Escape});
        choose(dialog, files.write("parts.txt", ""));
        EXPECT_EQ(dialog.height(), initial.height());
        EXPECT_FALSE(canBeAccepted(dialog));
        drag(dialog, initial + QSize(200, 150));
        EXPECT_LT(dialog.height(), initial.height()) << "it shows no table any more";
        EXPECT_FALSE(canBeAccepted(dialog));
        EXPECT_FALSE(in<QComboBox>(dialog, kImportSheet).isEnabled());
    });
}

TEST_F(ImportWindow, Controls_keep_their_distance_to_its_edges_and_the_picture_fills_its_place) {
    inDialog([&](CExlImportDlg& dialog) {
        choose(dialog, files.good());
        QApplication::processEvents();
        const auto place = [&](const char* name) {
            QWidget& control = in<QWidget>(dialog, name);
            return QRect(control.mapTo(&dialog, QPoint()), control.size());
        };
        const QSize grown(220, 140);
        const QRect group = place("IDC_GROUP_PREV");
        const QRect shown = place(kImportPicture);
        const QRect browse = place(kImportBrowse);
        const QRect path = place(kImportPath);
        const QRect ok = place("IDOK");
        drag(dialog, dialog.size() + grown);
        EXPECT_EQ(place("IDC_GROUP_PREV"), QRect(group.topLeft(), group.size() + grown));
        EXPECT_EQ(place(kImportPicture), QRect(shown.topLeft(), shown.size() + grown));
        EXPECT_EQ(picture(dialog).size(), shown.size() + grown);
        EXPECT_EQ(place(kImportBrowse), browse.translated(grown.width(), 0));
        EXPECT_EQ(place(kImportPath), QRect(path.topLeft(), path.size() + QSize(grown.width(), 0)));
        EXPECT_EQ(place("IDOK"), ok.translated(grown.width(), grown.height()));
        EXPECT_TRUE(in<QComboBox>(dialog, kImportSheet).isEnabled()) << "sizing enables it with the table";
    });
}

TEST_F(ImportWindow, Takes_the_programs_icon) {
    const ProgramIcon icon;
    inDialog([](CExlImportDlg& dialog) { EXPECT_TRUE(dialog.testAttribute(Qt::WA_SetWindowIcon)); });
}

/// Watches the bar of progress: what it shows, and what happens meanwhile, also to another window of the program.
class BarWatch : public QObject {
public:
    explicit BarWatch(QProgressBar& bar) : m_bar(bar) {
        bar.installEventFilter(this);
        m_other.installEventFilter(this);
        m_other.setAttribute(Qt::WA_ShowWithoutActivating);
        m_other.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_other));
        connect(&m_timer, &QTimer::timeout, this, [this] { timerFired = timerFired || m_bar.isVisible(); });
    }

    std::vector<int> shares;   ///< shown, in hundredths, one after the other
    int windowPaints = 0;      ///< of the other window, while the bar shows
    bool timerFired = false;   ///< while the bar shows
    Qt::CursorShape cursor{};  ///< while the bar shows

private:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == &m_bar && event->type() == QEvent::Show) begin();
        if (event->type() != QEvent::Paint || !m_bar.isVisible()) return false;
        if (object == &m_bar) shares.push_back(m_bar.value() * 100 / qMax(1, m_bar.maximum()));
        if (object == &m_other) ++windowPaints;
        return false;
    }
    void begin() {
        if (QApplication::overrideCursor() != nullptr) cursor = QApplication::overrideCursor()->shape();
        m_other.update();
        m_timer.start();
    }

    QProgressBar& m_bar;
    QWidget m_other;
    QTimer m_timer;
};

TEST_F(ImportWindow, Shows_how_far_the_reading_of_100000_rows_has_come_and_paints_meanwhile) {
    QByteArray text;
    for (int row = 0; row < 100'000; ++row) text += QByteArray::number(row) + ",bolt M8,0.125,\"a, b\",x,y,z,w\n";
    const QString file = files.write("large.csv", text);
    inDialog([&](CExlImportDlg& dialog) {
        auto& bar = in<QProgressBar>(dialog, "IDC_PROGRESS_READING");
        EXPECT_FALSE(bar.isVisible());
        BarWatch watch(bar);
        choose(dialog, file);
        EXPECT_TRUE(canBeAccepted(dialog));
        EXPECT_EQ(dialog.m_pTable->numRows(), 100'000);
        EXPECT_GE(watch.shares.size(), 2U);
        EXPECT_TRUE(std::is_sorted(watch.shares.begin(), watch.shares.end()));
        EXPECT_GE(watch.windowPaints, 1);
        EXPECT_FALSE(watch.timerFired) << "nothing acts while a table is half read";
        EXPECT_EQ(watch.cursor, Qt::WaitCursor);
        EXPECT_FALSE(bar.isVisible());
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    });
}

TEST_F(ImportWindow, Shows_no_progress_of_a_file_that_is_read_at_once) {
    inDialog([&](CExlImportDlg& dialog) {
        BarWatch watch(in<QProgressBar>(dialog, "IDC_PROGRESS_READING"));
        choose(dialog, files.good());
        EXPECT_TRUE(watch.shares.empty());
        EXPECT_EQ(watch.windowPaints, 0);
    });
}

class ImportDialogLooks : public DialogLooks {
protected:
    void choose(CExlImportDlg& dialog, const QString& path) {
        next([path](QWidget& shown) { enterFile(shown, path); });
        press(dialog, kImportBrowse);
    }
    ImportFiles files;
};

INSTANTIATE_TEST_SUITE_P(Languages, ImportDialogLooks, bothLanguages(), languageName);

TEST_P(ImportDialogLooks, at_first_with_a_table_and_without_one) {
    CExlImportDlg dialog;
    const QByteArray english = "Part,Number,Mass\nHexagon bolt M8,12,0.4\nWasher,24,0.1\nSpring,3,1.25\n";
    const QByteArray chinese = "零件,数量,质量\n六角螺栓 M8,12,0.4\n垫圈,24,0.1\n弹簧,3,1.25\n";
    runModal(dialog, [&] {
        lookAndReach(dialog, "import_nofile");
        const QSize initial = dialog.size();
        dialog.windowHandle()->resize(initial + QSize(0, 1));
        QApplication::processEvents();
        lookAndReach(dialog, "import_low");
        choose(dialog, files.write("parts.csv", isChinese() ? chinese : english));
        lookAndReach(dialog, "import_table");
        dialog.windowHandle()->resize(initial * 1.5);
        QApplication::processEvents();
        lookAndReach(dialog, "import_large");
        const BoxAnswers boxes({BoxAnswer::Escape});
        choose(dialog, files.notUtf8());
        lookAndReach(dialog, "import_refused");
        in<QProgressBar>(dialog, "IDC_PROGRESS_READING").setValue(40);
        in<QProgressBar>(dialog, "IDC_PROGRESS_READING").show();
        look(dialog, "import_reading");
        press(dialog, "IDCANCEL");
    });
}

}  // namespace
}  // namespace kdtest
