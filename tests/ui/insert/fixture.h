// The insert dialog on the drawing of a test, with stored settings of the test's own.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QTemporaryDir>
#include <QTest>
#include <stdexcept>

#include "host/ui/automation/automation.h"
#include "module/create/tableinsertdlg.h"
#include "module/create/tablejig.h"
#include "module/valuetext/tableutils.h"
#include "tests/support/configfolder.h"
#include "tests/ui/style/fixture.h"

namespace kdtest {

inline constexpr const char* kColumnsEdit = "IDC_TABLEINSERT_COLUMN_EDIT";
inline constexpr const char* kWidthEdit = "IDC_TABLEINSERT_COLUMNWIDTH_EDIT";
inline constexpr const char* kRowsEdit = "IDC_TABLEINSERT_DATAROW_EDIT";
inline constexpr const char* kHeightEdit = "IDC_TABLEINSERT_ROWHEIGHT_EDIT";
inline constexpr const char* kFigureEdits[] = {kColumnsEdit, kWidthEdit, kRowsEdit, kHeightEdit};

inline constexpr const char* kColumnsRadio = "IDC_TABLEINSERT_COLUMN_BUTTON";
inline constexpr const char* kWidthRadio = "IDC_TABLEINSERT_COLUMNWIDTH_BUTTON";
inline constexpr const char* kRowsRadio = "IDC_TABLEINSERT_DATAROW_BUTTON";
inline constexpr const char* kHeightRadio = "IDC_TABLEINSERT_ROWHEIGHT_BUTTON";
inline constexpr const char* kFigureRadios[] = {kColumnsRadio, kWidthRadio, kRowsRadio, kHeightRadio};

inline constexpr const char* kFigureLabels[] = {"IDC_TABLEINSERT_COLUMN_STATIC", "IDC_TABLEINSERT_COLUMNWIDTH_STATIC",
                                                "IDC_TABLEINSERT_DATAROW_STATIC", "IDC_TABLEINSERT_ROWHEIGHT_STATIC"};
inline constexpr const char* kOptionFrame[] = {"IDC_TABLEINSERT_TABLEOPTION_GROUP",
                                               "IDC_TABLEINSERT_RETAINPROP_STATIC"};

inline constexpr const char* kEmptyRadio = "IDC_TABLEINSERT_INSERT_BUTTON";
inline constexpr const char* kFileRadio = "IDC_TABLEINSERT_DATALINK_BUTTON";
inline constexpr const char* kExtractionRadio = "IDC_TABLEINSERT_DATAEXTRACTION_BUTTON";
inline constexpr const char* kPointRadio = "IDC_TABLEINSERT_INSETPOINT_BUTTON";
inline constexpr const char* kWindowRadio = "IDC_TABLEINSERT_WINDOW_BUTTON";
inline constexpr const char* kStyleBox = "IDC_TABLEINSERT_STYLENAME_COMBOBOX";
inline constexpr const char* kFileBox = "IDC_TABLEINSERT_DATALINK_COMBOBOX";
inline constexpr const char* kStyleManager = "IDC_TABLEINSERT_TABLESTYLE_BUTTON";
inline constexpr const char* kFileManager = "IDC_TABLEINSERT_DATALINKMAN_BUTTON";
inline constexpr const char* kFirstRow = "IDC_TABLEINSERTROW_FIRSTROW_COMBOBOX";
inline constexpr const char* kSecondRow = "IDC_TABLEINSERTROW_SECONDROW_COMBOBOX";
inline constexpr const char* kOtherRow = "IDC_TABLEINSERTROW_OTHERROW_COMBOBOX";
inline constexpr const char* kPreview = "IDC_TABLEINSERT_PREVIEW_STATIC";
inline constexpr const char* kNoPreviewTip = "IDC_TABLEINSERT_NOTPREVIEWTIP_STATIC";

inline std::wstring wide(const char* name) {
    return QString::fromLatin1(name).toStdWString();
}

/// Answers the file dialog with a path.
inline Step file(const QString& path) {
    return [path] { EXPECT_EQ(kdhost::automation::file(path.toStdWString()), L""); };
}

class InsertDialogTest : public StyleDialogTest {
protected:
    void TearDown() override {
        jig.reset();
        dialog.reset();
        StyleDialogTest::TearDown();
    }

    void make() {
        dialog = std::make_unique<CVqTableInsertDlg>();
        dialog->SetDatabase(&drawing());
        jig.reset(dialog->GetTableJig());
    }
    /// Runs a new dialog, which stays for looks at it when it is closed.
    int run(Steps steps) {
        make();
        return play([&] { return dialog->DoModal(); }, std::move(steps));
    }
    /// Acts in a new dialog, which is cancelled when that leaves it open.
    int open(const std::function<void()>& act) {
        make();
        return runModal(*dialog, [&] {
            act();
            if (dialog->isVisible()) press("IDCANCEL");
        });
    }

    QWidget& control(const char* name) const {
        QWidget* found = dialog->getWidgetsFromOrignal(name);
        if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *found;
    }
    template <class Widget>
    Widget& as(const char* name) const {
        return dynamic_cast<Widget&>(control(name));
    }
    /// With the mouse, on the part of the control that every kind of button has.
    void press(const char* name) const {
        QWidget& button = control(name);
        ASSERT_TRUE(button.isVisible() && button.isEnabled()) << name;
        QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(6, button.height() / 2));
    }
    std::wstring shown(const char* name) const { return kdtest::textOf(*dialog, name); }
    bool isOn(const char* name) const { return kdtest::isEnabled(*dialog, name); }
    bool isSeen(const char* name) const { return control(name).isVisible(); }
    bool isChecked(const char* name) const { return as<QAbstractButton>(name).isChecked(); }
    QComboBox& box(const char* name) const { return as<QComboBox>(name); }
    Names rowsOf(const char* name) const {
        Names rows;
        for (int row = 0; row < box(name).count(); ++row) rows.push_back(box(name).itemText(row).toStdWString());
        return rows;
    }
    QImage picture() const { return pictureIn(*dialog, kPreview); }

    /// Moves the focus to an edit and puts a text there.
    void put(const char* edit, const std::wstring& text) const {
        control(edit).setFocus(Qt::TabFocusReason);
        dialog->GetDlgItem(edit)->SetWindowTextW(text.c_str());
    }
    void leaveTo(const char* name) const { control(name).setFocus(Qt::TabFocusReason); }

    /// As the drawing writes lengths.
    std::wstring length(double value) {
        CStdStr<wchar_t> text;
        EXPECT_EQ(CVqTableUtils::DoubleToStringConvert(&drawing(), value, text), 1);
        return text;
    }
    Names figures() const {
        Names texts;
        for (const char* edit : kFigureEdits) texts.push_back(shown(edit));
        return texts;
    }

    static int stored(const wchar_t* name) {
        int value = -1;
        EXPECT_EQ(CVqTableUtils::RegeditQueryValue(name, value), 1) << std::wstring(name);
        return value;
    }
    static double storedWidth() {
        double value = -1.0;
        EXPECT_EQ(CVqTableUtils::RegeditQueryValue(L"ColumnWidth", value), 1);
        return value;
    }
    template <class Value>
    static void store(const wchar_t* name, Value value) {
        CVqTableUtils::IsRegeditOpenKey();
        EXPECT_EQ(CVqTableUtils::RegeditSetValue(name, value), 1);
    }

    QString write(const char* name, const QByteArray& content) const {
        QFile made(folder.filePath(QString::fromUtf8(name)));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        EXPECT_EQ(made.write(content), content.size());
        return made.fileName();
    }
    QString goodFile() const { return write("parts.csv", "Part,Number\nBolt,12\nWasher,24\n"); }
    /// What is done with the open dialog to have a table from a file.
    static Steps steps(std::initializer_list<Steps> parts) {
        Steps all;
        for (const Steps& part : parts) all.insert(all.end(), part.begin(), part.end());
        return all;
    }
    static Steps import(const QString& path) {
        return {click(wide(kFileRadio)), click(wide(kFileManager)), click(L"IDC_BTN_SELPATH"), file(path),
                click(L"IDOK")};
    }

    ConfigFolder config;
    QTemporaryDir folder;
    std::unique_ptr<CVqTableInsertDlg> dialog;
    std::unique_ptr<CVqTableJig> jig;
};

}  // namespace kdtest
