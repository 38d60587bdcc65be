// The toolbar's two lists: background colours and cell styles.

#include <QAbstractItemView>
#include <QLineEdit>
#include <QMessageBox>

#include "kd/db/tablestyle.h"
#include "module/core/cellstylewalk.h"
#include "tests/ui/toolbar/fixture.h"

namespace kdtest {
namespace {

class ToolbarColors : public ToolbarTest {
protected:
    static QComboBox& colors() { return combo(kColorComboName); }
    void fill(KdDbObjectId table, const char* range, const KdCmColor& color) {
        const KdCellRange area = cells(range);
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        for (int row = area.m_topRow; row <= area.m_bottomRow; ++row) {
            for (int column = area.m_leftColumn; column <= area.m_rightColumn; ++column) {
                open->setBackgroundColor(row, column, color);
            }
        }
    }
    void nextColor(const wchar_t* answer) {
        next([=](QWidget&) { EXPECT_EQ(kdhost::automation::color(answer), L""); });
    }
    static std::wstring other() { return L"#" + std::to_wstring(colors().count() - 1); }
};

TEST_F(ToolbarColors, show_no_fill_as_the_first_entry) {
    showOver(TableBuilder(3, 3).select("A1:B2"));
    EXPECT_EQ(colors().currentText(), QStringLiteral("None"));
    EXPECT_EQ(colors().currentIndex(), 0);
}

TEST_F(ToolbarColors, show_no_row_for_cells_of_different_fills) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    fill(table, "B2", KdCmColor::fromIndex(1));
    EXPECT_EQ(colors().currentIndex(), -1);
    select(table, "B2");
    EXPECT_GT(colors().currentIndex(), 0);
    EXPECT_TRUE(steps().empty());
}

TEST_F(ToolbarColors, add_a_colour_that_the_list_does_not_have) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    const int count = colors().count();
    fill(table, "A1", KdCmColor::fromRgb(10, 20, 30));
    EXPECT_EQ(colors().count(), count + 1);
    EXPECT_EQ(colors().currentIndex(), count - 1);
    select(table, "B1");
    select(table, "A1");
    EXPECT_EQ(colors().count(), count + 1);
    EXPECT_EQ(colors().currentIndex(), count - 1);
}

TEST_F(ToolbarColors, show_no_fill_also_when_the_language_was_changed_since_the_list_was_filled) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    fill(table, "A1", KdCmColor::fromIndex(1));
    kdhost::setLanguage(kdhost::Language::Chinese);
    select(table, "B2");
    EXPECT_EQ(colors().currentIndex(), 0);
    EXPECT_EQ(colors().currentText(), QStringLiteral("None"));
}

TEST_F(ToolbarColors, keep_by_layer_and_by_block_apart_from_no_fill) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    const std::pair<KdCmColor, int> rows[] = {
        {KdCmColor(), 1}, {KdCmColor::none(), 0}, {KdCmColor::byBlock(), 2}, {KdCmColor(), 1}};
    for (const auto& [color, row] : rows) {
        fill(table, "A1", color);
        EXPECT_EQ(colors().currentIndex(), row);
    }
}

TEST_F(ToolbarColors, fill_the_selected_cells_in_one_step_and_empty_them_again) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    const KdDbObjectId expected = addTable(TableBuilder(3, 3).select("A1:B2"));
    chooseRow(kColorComboName, L"#3");
    const KdCmColor chosen = look(table).backgroundColor(1, 1);
    EXPECT_EQ(chosen, KdCmColor::fromIndex(1));
    CVqTableCommon::SetBackgroundColor(expected, chosen);
    EXPECT_EQ(describe(look(table)), describe(look(expected)));
    EXPECT_EQ(steps(), (std::vector<std::wstring>{L"BackgroundFill", L"BackgroundFill"}));
    chooseRow(kColorComboName, L"None");
    EXPECT_TRUE(look(table).backgroundColor(0, 0).isNone());
    EXPECT_EQ(colors().currentIndex(), 0);
}

TEST_F(ToolbarColors, ask_for_another_colour) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    nextColor(L"1,2,3");
    chooseRow(kColorComboName, other());
    EXPECT_EQ(look(table).backgroundColor(1, 1), KdCmColor::fromRgb(1, 2, 3));
    EXPECT_EQ(steps().size(), 1U);
}

TEST_F(ToolbarColors, change_nothing_when_asking_is_cancelled) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    fill(table, "B2", KdCmColor::fromIndex(1));
    const std::string before = describe(look(table));
    nextColor(L"CANCEL");
    chooseRow(kColorComboName, other());
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_EQ(colors().currentIndex(), -1);
    select(table, "B2");
    const int row = colors().currentIndex();
    nextColor(L"CANCEL");
    chooseRow(kColorComboName, other());
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_EQ(colors().currentIndex(), row);
    EXPECT_TRUE(steps().empty());
}

TEST_F(ToolbarColors, empty_cells_of_different_fills_in_one_step_when_asking_is_answered_by_no_fill) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1:B2"));
    fill(table, "B2", KdCmColor::fromIndex(1));
    nextColor(L"none");
    chooseRow(kColorComboName, other());
    for (const auto& [row, column] : {std::pair{0, 0}, {0, 1}, {1, 0}, {1, 1}}) {
        EXPECT_TRUE(look(table).backgroundColor(row, column).isNone()) << row << ", " << column;
    }
    EXPECT_EQ(steps(), std::vector<std::wstring>{L"BackgroundFill"});
    EXPECT_EQ(colors().currentIndex(), 0);
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(look(table).backgroundColor(1, 1), KdCmColor::fromIndex(1));
    EXPECT_EQ(colors().currentIndex(), -1);
}

class ToolbarCellStyles : public ToolbarTest {
protected:
    static std::wstring text(unsigned number) {
        const ResourceScope resources;
        return loadText(number).c_str();
    }
    static QComboBox& styles() { return combo(kCellStyleComboName); }
    static std::vector<std::wstring> rows() {
        std::vector<std::wstring> texts;
        for (int row = 0; row < styles().count(); ++row) texts.push_back(styles().itemText(row).toStdWString());
        return texts;
    }
    std::vector<std::wstring> styleNames(KdDbObjectId table) {
        const OpenObject<KdDbTableStyle> style(look(table).tableStyle(), KdDb::kForRead);
        const ResourceScope resources;
        std::vector<std::wstring> names;
        for (const CStdStr<wchar_t>& name : cellStyleDisplayNames(*style)) names.emplace_back(name.c_str());
        return names;
    }
    /// Chooses row 0, from where another choice is a change.
    static void chooseFirst() { chooseRow(kCellStyleComboName, L"#0"); }
    void makeStyle(const char* name) {
        next([=](QWidget& dialog) {
            auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("IDC_CREATECELLSTYLE_NEWNAME_EDIT"));
            ASSERT_NE(edit, nullptr);
            edit->setText(QString::fromLatin1(name));
            QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("IDOK")), Qt::LeftButton);
        });
        chooseRow(kCellStyleComboName, L"#" + std::to_wstring(styles().count() - 2));
    }
};

TEST_F(ToolbarCellStyles, list_the_styles_of_the_tables_style_between_the_first_entry_and_the_two_last) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    std::vector<std::wstring> expected = {text(2224)};
    for (const std::wstring& name : styleNames(table)) expected.push_back(name);
    expected.push_back(L"Create cell style");
    expected.push_back(L"Manage cell styles");
    EXPECT_EQ(rows(), expected);
    EXPECT_EQ(expected.size(), 6U);
    EXPECT_EQ(styles().itemData(0).toInt(), 0);
    for (int row = 1; row <= 3; ++row) EXPECT_EQ(styles().itemData(row).toInt(), 1) << row;
}

TEST_F(ToolbarCellStyles, a_style_that_is_chosen_is_kept_and_changes_no_cell) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    const std::string before = describe(look(table));
    chooseFirst();
    chooseRow(kCellStyleComboName, L"#2");
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(styles().currentIndex(), 2);
    setMode(0);
    showTableToolBar(table, false);
    setMode(1);
    showTableToolBar(table, true);
    EXPECT_EQ(styles().currentIndex(), 2);
    chooseFirst();
}

TEST_F(ToolbarCellStyles, choosing_the_row_at_the_line_opens_the_list_again) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    const std::string before = describe(look(table));
    chooseFirst();
    chooseRow(kCellStyleComboName, L"#3");
    EXPECT_TRUE(styles().view()->isVisible());
    styles().hidePopup();
    EXPECT_EQ(describe(look(table)), before);
    setMode(0);
    showTableToolBar(table, false);
    setMode(1);
    showTableToolBar(table, true);
    EXPECT_EQ(rows().size(), 6U);
    EXPECT_LE(styles().currentIndex(), 0) << "it is no choice to be shown again";
    chooseRow(kCellStyleComboName, L"#1");
    chooseFirst();
}

TEST_F(ToolbarCellStyles, create_a_style_of_the_tables_style_in_one_step) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    chooseFirst();
    makeStyle("Mine");
    EXPECT_EQ(styleNames(table).back(), L"Mine");
    EXPECT_EQ(rows()[4], L"Mine");
    EXPECT_EQ(styles().currentIndex(), 0);
    EXPECT_EQ(steps(), std::vector<std::wstring>{L"CreateCellStyle"});
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(styleNames(table).size(), 3U);
    styles().showPopup();
    styles().hidePopup();
    EXPECT_EQ(styles().count(), 6);
}

TEST_F(ToolbarCellStyles, cancelled_creating_makes_nothing) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    chooseFirst();
    next([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    chooseRow(kCellStyleComboName, L"Create cell style");
    EXPECT_EQ(styleNames(table).size(), 3U);
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(styles().currentIndex(), 0);
}

TEST_F(ToolbarCellStyles, manage_the_styles_in_one_step_and_show_them_afterwards) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    chooseFirst();
    makeStyle("Mine");
    next([](QWidget& dialog) {
        EXPECT_EQ(kdhost::automation::select(L"IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST", L"Mine"), L"");
        QTimer::singleShot(0, qApp, [] {
            if (qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr) {
                EXPECT_EQ(kdhost::automation::answer(L"OK"), L"");
            }
        });
        EXPECT_EQ(kdhost::automation::click(L"IDC_MANAGERCELLSTYLE_DELETE_BUTTON"), L"");
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("IDOK")), Qt::LeftButton);
    });
    chooseRow(kCellStyleComboName, L"Manage cell styles");
    EXPECT_EQ(styleNames(table).size(), 3U);
    EXPECT_EQ(styles().count(), 6);
    EXPECT_EQ(steps(), (std::vector<std::wstring>{L"CreateCellStyle", L"ManCellStyle"}));
}

TEST_F(ToolbarCellStyles, without_a_table_list_the_first_entry_and_the_two_last) {
    showTableToolBar(KdDbObjectId::kNull, true);
    EXPECT_EQ(rows(), (std::vector<std::wstring>{text(2224), L"Create cell style", L"Manage cell styles"}));
}

TEST_F(ToolbarCellStyles, without_a_style_of_the_table_nothing_opens) {
    const KdDbObjectId table = showOver(TableBuilder(3, 3).select("A1"));
    showTableToolBar(table, false);
    window()->show();
    styles().showPopup();
    styles().hidePopup();
    EXPECT_EQ(styles().count(), 3);
    const QSignalBlocker quiet(&styles());
    for (const int row : {1, 2}) {
        styles().setCurrentIndex(row);
        window()->OnCellStyle();
    }
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(steps().empty());
}

}  // namespace
}  // namespace kdtest
