// The looks of every dialog of the host and of the naming dialogs, in both languages: nothing cut, nothing left in
// another language, everything reached by keys. Each is kept as a picture. The program runs once for each scale of
// the screen.

#include <QAbstractItemView>
#include <QFileDialog>
#include <QStyle>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include "host/ui/dialogs/dataformat.h"
#include "host/ui/dialogs/filedialog.h"
#include "host/ui/dialogs/textstyles.h"
#include "host/ui/help.h"
#include "host/ui/linetypes.h"
#include "kd/db/database.h"
#include "kd/ed/prompts.h"
#include "kd/ed/resbuf.h"
#include "kd/ui/comboboxes.h"
#include "kd/ui/widgets.h"
#include "mfc/messagebox.h"
#include "module/style/createcellstyledlg.h"
#include "module/style/createtablestyledlg.h"
#include "tests/support/places.h"
#include "tests/ui/looks/fixture.h"

namespace kdtest {
namespace {

INSTANTIATE_TEST_SUITE_P(Languages, DialogLooks, bothLanguages(), languageName);

TEST_P(DialogLooks, of_colours) {
    KdCmColor color = KdCmColor::fromIndex(141);
    lookAtNext("color_index");
    EXPECT_FALSE(kdedSetColorDialogTrueColor(color, true, KdCmColor::fromIndex(3)));
    color = KdCmColor();
    lookAtNext("color_bylayer");
    EXPECT_FALSE(kdedSetColorDialogTrueColor(color, true, KdCmColor::fromIndex(3)));
    color = KdCmColor::fromRgb(200, 120, 40);
    lookAtNext("color_true");
    EXPECT_FALSE(kdedSetColorDialogTrueColor(color, false, KdCmColor::fromIndex(3)));
}

TEST_P(DialogLooks, of_line_types) {
    for (const kdhost::LinetypeEntry& pattern : kdhost::standardLinetypes()) {
        kdhost::loadLinetype(host.database(), pattern);
    }
    KdDbObjectId linetype = host.database().continuousLinetype();
    next([&](QWidget& dialog) {
        lookAndReach(dialog, "linetype");
        lookAtNext("linetype_load");
        press(dialog, "IDC_LINETYPE_LOAD_BUTTON");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(kdedLinetypeDialog(&host.database(), linetype));
}

TEST_P(DialogLooks, of_text_styles) {
    kdhost::TextStyles styles(host.database());
    for (const wchar_t* name : {L"Notes", L"Dimensions of the ground floor", L"标题"}) styles.create(name, L"Standard");
    CStdStr<wchar_t> shown = L"Standard";
    next([&](QWidget& dialog) {
        lookAndReach(dialog, "textstyle");
        lookAtNext("textstyle_name");
        press(dialog, "IDC_TEXTSTYLE_NEW_BUTTON");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(invokeTextStyleDialog(&host.database(), &shown));
}

TEST_P(DialogLooks, of_data_formats) {
    struct Shown {
        const char* name;
        KdValue::DataType type;
        KdValue::UnitType unit;
        int row;  ///< of the format
    };
    for (const Shown& each : {Shown{"dataformat_general", KdValue::kGeneral, KdValue::kUnitless, 0},
                              Shown{"dataformat_currency", KdValue::kDouble, KdValue::kCurrency, 0},
                              Shown{"dataformat_angle", KdValue::kDouble, KdValue::kAngle, 2},
                              Shown{"dataformat_date", KdValue::kDate, KdValue::kUnitless, isChinese() ? 7 : 10},
                              Shown{"dataformat_point", KdValue::kPoint, KdValue::kUnitless, 5}}) {
        KdValue value = kdhost::sampleOf(each.type);
        value.setDataType(each.type);
        value.setUnitType(each.unit);
        KdValue* pointer = &value;
        lookAtNext(each.name, [&each](QWidget& dialog) {
            in<QComboBox>(dialog, "IDC_DATAFORMAT_FORMAT_COMBOBOX").setCurrentIndex(each.row);
        });
        EXPECT_NE(VqFdUiInvokeDataTypeDialog(pointer, &host.database(), nullptr), 0);
    }
}

TEST_P(DialogLooks, of_files) {
    const kdhost::WindowFileDialog dialogs;
    const QTemporaryDir folder;
    for (const char* name : {"/doors.csv", "/windows.csv"}) {
        QFile file(folder.path() + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    for (const auto& [name, flags] : {std::pair{"file_save", 33}, {"file_open", 32}}) {
        next([&, name = name](QWidget& dialog) {
            dynamic_cast<QFileDialog&>(dialog).setDirectory(folder.path());
            QTest::qWait(100);  // its model reads in a thread of its own
            keep(dialog, name);
            if (isChinese()) {
                EXPECT_EQ(untranslatedTexts(dialog), Faults()) << name;
            }
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        resbuf* result = nullptr;
        EXPECT_EQ(kdedGetFileNavDialog(isChinese() ? L"选择文件" : L"Choose a file", L"Table1", L"csv", nullptr, flags,
                                       &result),
                  RTCAN);
        EXPECT_EQ(result, nullptr);
    }
}

TEST_P(DialogLooks, of_message_boxes) {
    const wchar_t* text = isChinese() ? L"无法读取该文件。\n它不是表格。" : L"The file can't be read.\nIt is no table.";
    struct Box {
        const char* name;
        UINT type;
    };
    for (const Box& box : {Box{"message_warning", MB_OK | MB_ICONWARNING}, Box{"message_stop", MB_OK | MB_ICONSTOP},
                           Box{"message_okcancel", MB_OKCANCEL | MB_ICONINFORMATION},
                           Box{"message_yesnocancel", MB_YESNOCANCEL | MB_ICONQUESTION}}) {
        next([&, box](QWidget& shown) {
            shown.setWindowTitle(isChinese() ? QStringLiteral("表格") : QStringLiteral("Tables"));
            look(shown, box.name);
            QTest::keyClick(&shown, Qt::Key_Escape);
        });
        AfxMessageBox(text, box.type);
    }
}

TEST_P(DialogLooks, of_naming_dialogs) {
    CVqTableCreateTableStyleDlg tableStyle;
    for (const wchar_t* name : {L"Standard", L"Schedule of doors"}) tableStyle.AddTableStyleNameToArray(name);
    tableStyle.SetStartWithName(L"Schedule of doors");
    lookAtNext("createtablestyle");
    EXPECT_EQ(tableStyle.DoModal(), 2);
    CVqTableCreateCellStyleDlg cellStyle;
    for (const wchar_t* name : {L"Data", L"Header", L"Title"}) cellStyle.AddCellStyleNameToArray(name);
    cellStyle.SetStartWithName(L"Data");
    lookAtNext("createcellstyle");
    EXPECT_EQ(cellStyle.DoModal(), 2);
}

TEST_P(DialogLooks, of_help) {
    kdhost::setHelpFolder(kdtest::sourcePath("docs"));
    for (const wchar_t* topic : {L"Tablestyle", L"TABLE_DIA", L""}) {
        EXPECT_EQ(kdedHelp(nullptr, topic, 0), RTNORM);
        QApplication::processEvents();
        auto* window = QApplication::activeWindow();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(window->objectName(), QStringLiteral("HelpWindow"));
        look(*window, *topic == L'\0' ? "help" : ("help_" + QString::fromWCharArray(topic).toUtf8()).constData());
        delete window;
    }
    kdhost::setHelpFolder({});
}

TEST_P(DialogLooks, of_boxes_and_their_lists) {
    QWidget window;
    window.setWindowTitle(isChinese() ? QStringLiteral("列表框") : QStringLiteral("Boxes"));
    QVBoxLayout layout(&window);
    const auto add = [&](CKdUiMRUComboBox& box, int style) {
        auto* widget = new KdUiComboBox(&window);
        widget->setComboBoxStyle(style);
        layout.addWidget(widget);
        box.Create(widget);
        return widget;
    };
    CKdUiLineTypeComboBox types;
    CKdUiLineWeightComboBox weights;
    CKdUiTrueColorComboBox colors;
    kdhost::loadLinetype(host.database(), kdhost::standardLinetypes().front());
    add(types, 1);
    add(weights, 2);
    KdUiComboBox* colorBox = add(colors, 3);
    types.SetCurSel(2);
    weights.SetCurSel(20);
    colors.SetCurSel(4);
    window.show();
    look(window, "boxes");
    colorBox->showPopup();
    QApplication::processEvents();
    keep(*colorBox->view()->window(), "boxes_colorlist");
    colorBox->hidePopup();
}

TEST(DialogLooksOfControls, follow_the_scale_of_the_screen) {
    const double scale = kdadGetDPIScale();
    const QPushButton shortText(QStringLiteral("OK"));
    EXPECT_EQ(shortText.sizeHint().width(), qRound(80 * scale));
    const QPushButton longText(QString(60, QLatin1Char('m')));
    EXPECT_GT(longText.sizeHint().width(), longText.fontMetrics().horizontalAdvance(longText.text()));
    EXPECT_EQ(qApp->style()->pixelMetric(QStyle::PM_MessageBoxIconSize), qRound(36 * scale));
}

TEST(DialogLooksOfControls, a_message_has_sixty_letters_a_line_and_no_more_lines_than_it_needs) {
    for (const int letters : {10, 40, 59, 100, 290}) {
        QString text;
        while (text.size() < letters) text += QStringLiteral("nnnn ");
        text = text.trimmed();
        QTimer::singleShot(0, qApp, [&] {
            QWidget* box = QApplication::activeModalWidget();
            ASSERT_NE(box, nullptr);
            const auto* label = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            const QFontMetrics metrics = label->fontMetrics();
            const int wide = metrics.averageCharWidth() * 60;
            const int least = (metrics.horizontalAdvance(text) + wide - 1) / wide;
            const int lines = label->wordWrap() ? label->heightForWidth(label->width()) / metrics.lineSpacing() : 1;
            EXPECT_EQ(cutControls(*box), Faults()) << letters;
            EXPECT_GE(lines, least) << letters;
            EXPECT_LE(lines, least + 1) << letters;
            EXPECT_EQ(label->wordWrap(), lines > 1) << letters;
            QTest::keyClick(box, Qt::Key_Escape);
        });
        kdMessageBox(nullptr, text.toStdWString().c_str(), L"Tables", MB_OK | MB_ICONWARNING);
    }
}

}  // namespace
}  // namespace kdtest
