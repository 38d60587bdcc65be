// The insert dialog as it opens: what is live in it, what isn't, and what it does in drawings and trees that lack
// something.

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QTextBrowser>

#include "host/ed/display.h"
#include "host/rx/faults.h"
#include "host/ui/help.h"
#include "mfc/resource.h"
#include "module/core/resources.h"
#include "tests/support/places.h"
#include "tests/support/programicon.h"
#include "tests/ui/insert/fixture.h"

namespace kdtest {
namespace {

constexpr const char* kChecks[] = {
    "IDC_TABLEINSERT_LABEL_CHECK",      "IDC_TABLEINSERT_DATALINK_CHECK", "IDC_TABLEINSERT_DATA_CHECK",
    "IDC_TABLEINSERT_FIELDS_CHECK",     "IDC_TABLEINSERT_BLOCK_CHECK",    "IDC_TABLEINSERT_FORMULAS_CHECK",
    "IDC_TABLEINSERT_RETAINCELL_CHECK",
};

class InsertDialogOpening : public InsertDialogTest {};

TEST_F(InsertDialogOpening, Begins_with_an_empty_table_at_a_point_of_default_figures) {
    open([&] {
        EXPECT_TRUE(isChecked(kEmptyRadio));
        EXPECT_TRUE(isChecked(kPointRadio));
        EXPECT_EQ(figures(), (Names{L"3", length(63.5), L"3", L"1"}));
        EXPECT_TRUE(isOn("IDOK"));
        EXPECT_EQ(dialog->GetTableJig(), jig.get()) << "one jig for each dialog";
        EXPECT_FALSE(dialog->m_bDataLink);
        EXPECT_EQ(dialog->m_pTable, nullptr);
    });
}

TEST_F(InsertDialogOpening, The_box_of_styles_lists_the_dictionary_and_shows_the_current_style) {
    addStyle(L"Beta");
    addStyle(L"alpha");
    makeCurrent(L"Beta");
    open([&] {
        EXPECT_EQ(rowsOf(kStyleBox), styleNames());
        EXPECT_EQ(shown(kStyleBox), L"Beta");
        EXPECT_TRUE(isOn(kStyleBox));
        EXPECT_TRUE(isOn(kStyleManager));
    });
}

TEST_F(InsertDialogOpening, A_file_is_offered_as_text_and_not_as_a_spreadsheet) {
    open([&] {
        EXPECT_NE(loadText(6100).find(L"Excel"), std::wstring::npos);
        EXPECT_EQ(shown(kFileRadio).find(L"Excel"), std::wstring::npos);
        EXPECT_NE(shown(kFileRadio).find(L"csv(UTF-8)"), std::wstring::npos);
        EXPECT_TRUE(isOn(kFileRadio));
        EXPECT_FALSE(isOn(kFileManager));
        EXPECT_FALSE(isOn(kFileBox));
        EXPECT_EQ(box(kFileBox).count(), 0);
    });
}

TEST_F(InsertDialogOpening, Extraction_and_the_options_of_a_start_table_are_hidden) {
    open([&] {
        EXPECT_FALSE(isSeen(kExtractionRadio));
        for (const char* check : kChecks) EXPECT_FALSE(isSeen(check)) << check;
        for (const char* around : kOptionFrame) EXPECT_FALSE(isSeen(around)) << around;
        EXPECT_FALSE(isSeen("IDC_TABLEINSERT_NOTPREVIEW_STATIC"));
        EXPECT_FALSE(isSeen(kNoPreviewTip));
        EXPECT_TRUE(isSeen(kPreview));
    });
}

TEST_F(InsertDialogOpening, With_a_start_table_its_options_show_and_take_clicks) {
    make();
    EXPECT_EQ(dialog->SetFromTablStyleFlag(1), 1);
    runModal(*dialog, [&] {
        for (const char* around : kOptionFrame) EXPECT_TRUE(isSeen(around) && isOn(around)) << around;
        for (const char* check : kChecks) {
            press(check);
            EXPECT_TRUE(isChecked(check)) << check;
        }
        press(kFileRadio);
        for (const char* check : kChecks) EXPECT_FALSE(isOn(check)) << check;
        for (const char* around : kOptionFrame) EXPECT_FALSE(isOn(around)) << around;
        press("IDCANCEL");
    });
}

TEST_F(InsertDialogOpening, Three_pairs_of_radio_buttons_are_exclusive_with_the_ids_0_and_1) {
    open([&] {
        const std::pair<const char*, const char*> pairs[] = {
            {kColumnsRadio, kWidthRadio}, {kRowsRadio, kHeightRadio}, {kEmptyRadio, kFileRadio}};
        for (const auto& [first, second] : pairs) {
            auto& one = as<QAbstractButton>(first);
            auto& other = as<QAbstractButton>(second);
            ASSERT_NE(one.group(), nullptr) << first;
            EXPECT_EQ(one.group(), other.group()) << first;
            EXPECT_TRUE(one.group()->exclusive()) << first;
            EXPECT_EQ(one.group()->id(&one), 0) << first;
            EXPECT_EQ(one.group()->id(&other), 1) << first;
            EXPECT_EQ(one.group()->buttons().size(), 2) << first;
        }
    });
}

TEST_F(InsertDialogOpening, Pictures_tool_tips_and_the_line_are_in_place) {
    open([&] {
        for (const char* name : {"IDB_TABLEINSERT_COLUMN_BMP", "IDB_TABLEINSERT_ROW_BMP"}) {
            const auto& label = as<QLabel>(name);
            EXPECT_FALSE(label.pixmap(Qt::ReturnByValue).isNull()) << name;
        }
        EXPECT_EQ(control("IDC_TABLEINSERT_LINEBETWEEN_STATIC").height(), 2);
        EXPECT_EQ(control(kStyleManager).toolTip().toStdWString(), loadText(2110));
        EXPECT_EQ(control(kFileManager).toolTip().toStdWString(), loadText(6061));
    });
}

TEST_F(InsertDialogOpening, The_dialog_takes_the_programs_icon) {
    const ProgramIcon icon;
    open([&] { EXPECT_TRUE(dialog->testAttribute(Qt::WA_SetWindowIcon)); });
}

TEST_F(InsertDialogOpening, The_dialog_grows_and_never_gets_smaller_than_it_opened) {
    open([&] {
        const QSize first = dialog->size();
        dialog->resize(first + QSize(120, 80));
        EXPECT_EQ(dialog->size(), first + QSize(120, 80));
        EXPECT_GT(control(kPreview).height(), 210);
        dialog->resize(100, 100);
        EXPECT_EQ(dialog->size(), first);
        press(kWindowRadio);
        QApplication::processEvents();
        EXPECT_EQ(dialog->size(), first) << "the modes need the same room";
    });
}

TEST_F(InsertDialogOpening, Help_F1_and_the_request_of_a_window_show_the_page_of_the_dialog) {
    kdhost::setHelpFolder(sourcePath("docs"));
    const auto page = [] {
        QString text;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->objectName() != QLatin1String("IDD_TABLEINSERT_DIALOG"))
                text += window->windowTitle();
        }
        return text;
    };
    const auto heading = [&]() -> std::string {
        for (const auto* browser : dialog->findChildren<QTextBrowser*>()) {
            if (browser->isVisible()) return browser->toPlainText().section(QLatin1Char('\n'), 0, 0).toStdString();
        }
        return {};
    };
    const std::function<void()> ways[] = {[&] { press("IDHELP"); }, [] { pressKey(Qt::Key_F1); },
                                          [&] { EXPECT_EQ(dialog->OnHelpInfo(), 1); }};
    open([&] {
        for (const auto& ask : ways) {
            const QString before = page();
            ask();
            EXPECT_NE(page(), before);
            EXPECT_EQ(heading(), "Insert table");
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (window != dialog.get() && window->isVisible()) window->close();
            }
            QApplication::setActiveWindow(dialog.get());
            EXPECT_TRUE(QTest::qWaitFor([&] { return page() == before; }));
        }
    });
    kdhost::setHelpFolder({});
}

/// Counts how often the host is told to draw everything afresh.
class RedrawCount : public kdhost::Display {
public:
    RedrawCount() {
        kdhost::updateDisplay();
        kdhost::setDisplay(this);
    }
    ~RedrawCount() override { kdhost::setDisplay(nullptr); }
    RedrawCount(const RedrawCount&) = delete;
    RedrawCount& operator=(const RedrawCount&) = delete;

    int ofAll() const { return m_ofAll; }

private:
    void redraw(const std::vector<KdDbObjectId>& ids) override { m_ofAll += ids.empty(); }

    int m_ofAll = 0;
};

TEST_F(InsertDialogOpening, Cancel_is_told_to_the_host_and_OK_is_not) {
    for (const auto& [button, told] : {std::pair{"IDCANCEL", 1}, {"IDOK", 0}}) {
        const RedrawCount redraws;
        open([&, name = button] { press(name); });
        EXPECT_EQ(redraws.ofAll(), told) << button;
    }
}

TEST_F(InsertDialogOpening, Some_operations_are_there_in_form_only) {
    EXPECT_EQ(CVqTableInsertDlg::FromDataLinkMode(), 1);
    EXPECT_EQ(CVqTableInsertDlg::FromEmptyTableMode(), 1);
    EXPECT_EQ(CVqTableInsertDlg::InitInsertOptions(), 1);
    EXPECT_EQ(CVqTableInsertDlg::FromDataExtraction(), 1);
    EXPECT_EQ(CVqTableInsertDlg::TableDataToCollect(), 1);
    EXPECT_EQ(CVqTableInsertDlg::SetTableHyperLink(), 1);
    EXPECT_EQ(CVqTableInsertDlg::MoveSpinButtonCtrl(), 1);
    EXPECT_EQ(CVqTableInsertDlg::FillDataLinkComboBox(), 1);
}

TEST_F(InsertDialogOpening, No_database_is_refused_and_the_one_before_kept) {
    CVqTableInsertDlg other;
    EXPECT_EQ(other.SetDatabase(nullptr), 0);
    EXPECT_EQ(other.SetDatabase(&drawing()), 1);
    EXPECT_EQ(other.SetDatabase(nullptr), 0);
    const std::unique_ptr<CVqTableJig> its(other.GetTableJig());
    EXPECT_NE(its, nullptr);
}

// What the dialog does where something is missing.

TEST_F(InsertDialogOpening, Without_a_database_it_opens_bare_and_breaks_nothing) {
    dialog = std::make_unique<CVqTableInsertDlg>();
    runModal(*dialog, [&] {
        EXPECT_EQ(box(kStyleBox).count(), 0);
        press("IDOK");
    });
    EXPECT_EQ(dialog->OnInitDialog(), 0);
}

TEST_F(InsertDialogOpening, Without_the_dictionary_of_styles_the_opening_ends_and_nothing_is_stored) {
    store(L"Columns", 8);
    store(L"AutoOptions", 10);
    kdhost::faults().noTableStyleDictionary = true;
    open([&] {
        EXPECT_EQ(box(kStyleBox).count(), 0);
        EXPECT_EQ(shown(kColumnsEdit), L"Auto");
        press("IDOK");
    });
    EXPECT_EQ(dialog->OnInitDialog(), 0);
    kdhost::faults().noTableStyleDictionary = false;
    EXPECT_EQ(stored(L"Columns"), 8);
}

TEST_F(InsertDialogOpening, A_current_style_that_cannot_be_told_leaves_none_chosen) {
    kdhost::faults().unreadableVariables = {L"CTABLESTYLE"};
    open([&] {
        EXPECT_EQ(rowsOf(kStyleBox), styleNames());
        EXPECT_EQ(box(kStyleBox).currentIndex(), -1);
        EXPECT_EQ(box(kFirstRow).count(), 0);
        EXPECT_TRUE(picture().isNull());
    });
}

TEST_F(InsertDialogOpening, A_display_of_line_weights_that_cannot_be_told_is_left_alone) {
    kdhost::faults().unreadableVariables = {L"LWDISPLAY"};
    open([&] { EXPECT_FALSE(picture().isNull()); });
    kdhost::faults().unreadableVariables.clear();
}

TEST_F(InsertDialogOpening, A_missing_tree_gives_no_dialog) {
    resources().unload();
    {
        CVqTableInsertDlg none;
        none.SetDatabase(&drawing());
        EXPECT_EQ(none.DoModal(), -1);
    }
    resources().load();
}

TEST_F(InsertDialogOpening, Missing_controls_break_nothing) {
    const std::vector<std::string> names = [&] {
        std::vector<std::string> found;
        CVqTableInsertDlg built;
        for (const QWidget* widget : built.findChildren<QWidget*>()) {
            const std::string name = widget->objectName().toStdString();
            if (name.rfind("ID", 0) == 0 && name != "IDCANCEL") found.push_back(name);
        }
        return found;
    }();
    ASSERT_GT(names.size(), 40U);
    for (const std::string& missing : names) {
        SCOPED_TRACE(missing);
        make();
        delete dialog->getWidgetsFromOrignal(missing.c_str());
        runModal(*dialog, [&] {
            for (const char* radio : {kWindowRadio, kWidthRadio, kHeightRadio, kFileRadio, kEmptyRadio}) {
                auto* button = qobject_cast<QAbstractButton*>(dialog->getWidgetsFromOrignal(radio));
                if (button != nullptr && button->isEnabled()) button->click();
            }
            press("IDCANCEL");
        });
    }
}

}  // namespace
}  // namespace kdtest
