// How the style edit dialog opens: title, direction, the cell style and the page shown, what survives from one opening
// to the next, and what OK and Cancel leave of the edits.

#include <QTextBrowser>

#include "host/ui/help.h"
#include "kd/ui/hostdialogs.h"
#include "tests/support/places.h"
#include "tests/ui/styleedit/fixture.h"

namespace kdtest {
namespace {

using StyleEditOpening = StyleEditing;

TEST_F(StyleEditOpening, The_title_names_the_style_and_tells_new_from_changed) {
    QString title;
    const auto read = [&](CVqTableStyleEditDlg& dialog) {
        title = dialog.windowTitle();
        cancel(dialog);
    };
    edit(read, 1);
    EXPECT_EQ(title, QStringLiteral("Modify Table Style: Standard"));
    edit(read, 0);
    EXPECT_EQ(title, QStringLiteral("New Table Style: Standard"));
    kdhost::setLanguage(kdhost::Language::Chinese);
    edit(read, 1);
    EXPECT_EQ(title, QStringLiteral("修改表格样式：Standard"));
}

TEST_F(StyleEditOpening, A_style_with_the_three_default_cell_styles_has_a_box_of_five_rows) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog),
                  (std::vector<std::string>{"Data", "Header", "Title", "Create cell style", "Manage cell styles"}));
        EXPECT_EQ(shown(dialog), "Data");
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, Cell_styles_stand_in_the_order_of_the_box_and_the_two_other_entries_stay_last) {
    for (const wchar_t* name : {L"zebra", L"Alpha", L"7th", L"数值"}) addCellStyle(name);
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog), (std::vector<std::string>{"7th", "Alpha", "Data", "Header", "Title", "zebra", "数值",
                                                          "Create cell style", "Manage cell styles"}));
        EXPECT_EQ(shown(dialog), "Data");
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, The_rows_of_the_box_of_cell_styles_have_the_modules_height) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        const QComboBox& listed = box(dialog, kCellStyleBox);
        const int height = static_cast<int>(16.0 * kdadGetDPIScale());
        for (int row = 0; row < listed.count(); ++row) {
            EXPECT_EQ(listed.itemData(row, Qt::SizeHintRole).toSize().height(), height) << row;
        }
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, Gaps_in_the_indices_of_cell_styles_are_passed_over) {
    for (const wchar_t* name : {L"a", L"b", L"c"}) addCellStyle(name);
    change([](KdDbTableStyle& open) {
        open.deleteCellStyle(L"a");
        open.deleteCellStyle(L"b");
    });
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog), (std::vector<std::string>{"c", "Data", "Header", "Title", "Create cell style",
                                                          "Manage cell styles"}));
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, In_Chinese_the_default_cell_styles_have_their_names_and_order) {
    kdhost::setLanguage(kdhost::Language::Chinese);
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog), (std::vector<std::string>{"表头", "数据", "标题", "创建单元样式", "管理单元样式"}));
        EXPECT_EQ(shown(dialog), "数据");
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, Always_opens_on_the_first_page) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(dialog.GetCurSelCellPage(), GeneralPage);
        showPage(dialog, BorderPage);
        EXPECT_EQ(dialog.GetCurSelCellPage(), GeneralPage) << "written by OK alone";
        ok(dialog);
    });
    EXPECT_EQ(CVqTableStyleEditDlg::m_nPageIndex, BorderPage);
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(in<QTabWidget>(dialog, "IDC_TABLESTYLEEDIT_STYLE_TABLE").currentIndex(), GeneralPage);
        EXPECT_EQ(dialog.GetCurSelCellPage(), GeneralPage);
        showPage(dialog, TextPage);
        cancel(dialog);
    });
    EXPECT_EQ(CVqTableStyleEditDlg::m_nPageIndex, GeneralPage) << "Cancel doesn't remember";
}

TEST_F(StyleEditOpening, The_cell_style_of_the_last_opening_is_shown_again_by_its_row_and_not_by_its_name) {
    editAndOk([&](CVqTableStyleEditDlg&) { choose(kCellStyleBox, 1); });
    EXPECT_EQ(CVqTableStyleEditDlg::m_nComboBoxIndex, 1);
    addCellStyle(L"Amounts");  // which is row 0 from now on
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(shown(dialog), "Data");
        showPage(dialog, TextPage);
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, The_row_of_the_last_opening_is_kept_for_another_table_style) {
    editAndOk([&](CVqTableStyleEditDlg&) { choose(kCellStyleBox, "Header"); });
    KdDbObjectId other;
    auto* made = new KdDbTableStyle;
    ASSERT_EQ(made->postTableStyleToDb(&host.database(), L"Other", other), Kdad::eOk);
    made->createCellStyle(L"Amounts", L"_DATA");
    made->close();
    host.database().setTablestyle(other);
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(shown(dialog), "Data") << "row 1 of this one";
        cancel(dialog);
    });
    EXPECT_EQ(CVqTableStyleEditDlg::m_nComboBoxIndex, 1);
}

TEST_F(StyleEditOpening, Has_a_fixed_size_and_three_pages_of_one_size) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(dialog.minimumSize(), dialog.size());
        EXPECT_EQ(dialog.maximumSize(), dialog.size());
        const auto& tabs = in<QTabWidget>(dialog, "IDC_TABLESTYLEEDIT_STYLE_TABLE");
        std::vector<QString> titles;
        for (int tab = 0; tab < tabs.count(); ++tab) titles.push_back(tabs.tabText(tab));
        EXPECT_EQ(titles, (std::vector<QString>{QStringLiteral("&General"), QStringLiteral("&Text"),
                                                QStringLiteral("&Borders")}));
        const QList<KdUiBaseDialog*> pages = dialog.findChildren<KdUiBaseDialog*>();
        ASSERT_EQ(pages.size(), 3);
        for (const KdUiBaseDialog* page : pages) {
            EXPECT_EQ(page->minimumSize(), pages.first()->maximumSize()) << page->objectName().toStdString();
            EXPECT_EQ(page->maximumSize(), pages.first()->minimumSize()) << page->objectName().toStdString();
        }
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, The_first_page_is_shown_before_tabs_that_the_tree_brings_along) {
    transactions().startTransaction();
    CVqTableStyleEditDlg dialog(nullptr, 1);
    dialog.SetTableStyleId(styleId());
    auto& tabs = in<QTabWidget>(dialog, "IDC_TABLESTYLEEDIT_STYLE_TABLE");
    tabs.addTab(new QWidget, QStringLiteral("More"));
    runModal(dialog, [&] {
        EXPECT_EQ(tabs.tabText(3), QStringLiteral("More"));
        EXPECT_EQ(tabs.currentIndex(), GeneralPage);
        cancel(dialog);
    });
    transactions().abortTransaction();
}

TEST_F(StyleEditOpening, The_pages_are_put_below_the_tabs_before_the_dialog_shows) {
    transactions().startTransaction();
    CVqTableStyleEditDlg dialog(nullptr, 1);
    dialog.SetTableStyleId(styleId());
    EXPECT_EQ(dialog.OnInitDialog(), 1);
    const auto& tabs = in<QTabWidget>(dialog, "IDC_TABLESTYLEEDIT_STYLE_TABLE");
    const QPoint place(3, static_cast<int>(kdadGetDPIScale() * 4.0 + 20.0));
    const QList<KdUiBaseDialog*> pages = tabs.findChildren<KdUiBaseDialog*>();
    EXPECT_EQ(pages.size(), 3);
    for (const KdUiBaseDialog* page : pages) EXPECT_EQ(page->mapTo(&tabs, QPoint()), place);
    dialog.OnDestroy();
    transactions().abortTransaction();
}

TEST_F(StyleEditOpening, The_row_of_the_last_cell_style_is_never_restored) {
    CVqTableStyleEditDlg::m_nComboBoxIndex = 2;
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(shown(dialog), "Data");
        cancel(dialog);
    });
    EXPECT_EQ(CVqTableStyleEditDlg::m_nComboBoxIndex, 0);
    for (const int beyond : {3, 4, 40}) {
        CVqTableStyleEditDlg::m_nComboBoxIndex = beyond;
        edit([&](CVqTableStyleEditDlg& dialog) {
            EXPECT_EQ(shown(dialog), "Data") << beyond;
            cancel(dialog);
        });
    }
}

TEST_F(StyleEditOpening, The_pages_show_the_cell_style_that_the_box_shows) {
    change([](KdDbTableStyle& open) { open.setMargin(KdDb::kCellMarginLeft, 7.25, L"_HEADER"); });
    CVqTableStyleEditDlg::m_nComboBoxIndex = 1;
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(shown(dialog), "Header");
        EXPECT_EQ(text(dialog, "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT"), "7.25");
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, The_direction_is_shown_and_written) {
    change([](KdDbTableStyle& open) { open.setFlowDirection(1); });
    editAndOk([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(rows(dialog, kDirectionBox), (std::vector<std::string>{"Up", "Down"}));
        EXPECT_EQ(shown(dialog, kDirectionBox), "Up");
        choose(kDirectionBox, "Down");
        EXPECT_EQ(style().flowDirection(), 0) << "at once";
    });
    EXPECT_EQ(style().flowDirection(), 0);
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(shown(dialog, kDirectionBox), "Down");
        choose(kDirectionBox, "Up");
        EXPECT_EQ(style().flowDirection(), 1);
        cancel(dialog);
    });
    EXPECT_EQ(style().flowDirection(), 0) << "Cancel is its caller's way back";
}

TEST_F(StyleEditOpening, A_direction_that_is_neither_of_the_two_is_shown_as_down) {
    for (const int flow : {5, -1}) {
        change([&](KdDbTableStyle& open) { open.setFlowDirection(flow); });
        ASSERT_EQ(style().flowDirection(), flow);
        edit([&](CVqTableStyleEditDlg& dialog) {
            EXPECT_EQ(shown(dialog, kDirectionBox), "Down") << flow;
            cancel(dialog);
        });
    }
}

TEST_F(StyleEditOpening, A_look_through_pages_and_cell_styles_writes_nothing_with_OK_either) {
    addCellStyle(L"Totals");
    change([](KdDbTableStyle& open) {
        open.setFlowDirection(5);  // neither of the two
        open.setAlignment(static_cast<KdDb::CellAlignment>(12), L"_HEADER");
        open.setCellClass(0, L"_TITLE");
        open.setBackgroundColor(KdCmColor::fromRgb(1, 2, 3), L"_DATA");
    });
    const nlohmann::json before = dump();
    editAndOk([&](CVqTableStyleEditDlg& dialog) {
        for (const int row : {1, 2, 0}) {
            choose(kCellStyleBox, row);
            for (const StylePage page : {TextPage, BorderPage, GeneralPage}) showPage(dialog, page);
        }
    });
    EXPECT_EQ(dump(), before);
}

TEST_F(StyleEditOpening, Cancel_and_Esc_and_the_frame_leave_the_drawing_as_it_was) {
    const nlohmann::json before = dump();
    const std::function<void(CVqTableStyleEditDlg&)> ways[] = {
        [](CVqTableStyleEditDlg& dialog) { cancel(dialog); },
        [](CVqTableStyleEditDlg&) { pressKey(Qt::Key_Escape); },
        [](CVqTableStyleEditDlg& dialog) { dialog.close(); },
    };
    for (const auto& leave : ways) {
        EXPECT_EQ(edit([&](CVqTableStyleEditDlg& dialog) {
                      choose(kDirectionBox, "Up");
                      enter(dialog, "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT", "9");
                      EXPECT_NE(dump(), before);
                      leave(dialog);
                  }),
                  2);
        EXPECT_EQ(dump(), before);
    }
}

TEST_F(StyleEditOpening, Enter_commits_the_edit_that_is_being_typed_in) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        typeInto(dialog, "IDC_CELLSTYLEGENERAL_VERTICAL_EDIT", "3.5");
        pressKey(Qt::Key_Return);
    });
    EXPECT_EQ(style().margin(KdDb::kCellMarginTop, L"_DATA"), 3.5);
}

TEST_F(StyleEditOpening, The_start_table_is_hidden_and_its_buttons_stay_connected) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        for (const char* name :
             {"IDC_TABLESTYLEEDIT_SELECT_BUTTON", "IDC_TABLESTYLEEDIT_REMOVE_BUTTON", "IDC_TABLESTYLEEDIT_START_GROUP",
              "IDC_TABLESTYLEEDIT_SELECT_STATIC", "IDC_TABLESTYLEEDIT_TABLEDOWN_STATIC"}) {
            EXPECT_FALSE(in<QWidget>(dialog, name).isVisible()) << name;
        }
        auto& select = in<QPushButton>(dialog, "IDC_TABLESTYLEEDIT_SELECT_BUTTON");
        auto& remove = in<QPushButton>(dialog, "IDC_TABLESTYLEEDIT_REMOVE_BUTTON");
        EXPECT_TRUE(select.isEnabled());
        EXPECT_FALSE(remove.isEnabled());
        const qint64 picture = select.icon().cacheKey();
        select.click();
        EXPECT_FALSE(select.isEnabled());
        EXPECT_TRUE(remove.isEnabled());
        EXPECT_NE(select.icon().cacheKey(), picture);
        remove.click();
        EXPECT_TRUE(select.isEnabled());
        EXPECT_FALSE(remove.isEnabled());
        EXPECT_EQ(dialog.SelectTable(), 0);
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, Buttons_with_pictures_tell_what_they_do) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        const auto tip = [&](const char* name) { return in<QWidget>(dialog, name).toolTip().toStdString(); };
        EXPECT_EQ(tip("IDC_TABLESTYLEEDIT_CREATE_BUTTON"), "Create a cell style");
        EXPECT_EQ(tip("IDC_TABLESTYLEEDIT_MANAGE_BUTTON"), "Manage cell styles");
        EXPECT_EQ(tip("IDC_TABLESTYLEEDIT_SELECT_BUTTON"), "Select a table to start from");
        EXPECT_EQ(tip("IDC_TABLESTYLEEDIT_REMOVE_BUTTON"), "Remove the start table");
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, Help_and_F1_show_the_page_on_table_styles) {
    kdhost::setHelpFolder(kdtest::sourcePath("docs"));
    const auto helpAfter = [](CVqTableStyleEditDlg& dialog, const std::function<void()>& ask) {
        ask();
        auto* window = dialog.findChild<QDialog*>(QStringLiteral("HelpWindow"));
        const QString shown = window == nullptr ? QString() : window->findChild<QTextBrowser*>()->toPlainText();
        delete window;
        backIn(dialog);
        return shown.left(12);
    };
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(helpAfter(dialog, [&] { press(dialog, "IDHELP"); }), QStringLiteral("Table styles"));
        EXPECT_EQ(helpAfter(dialog, [&] { EXPECT_EQ(dialog.OnHelpInfo(), 1); }), QStringLiteral("Table styles"));
        auto& edit = in<QLineEdit>(dialog, "IDC_CELLSTYLEGENERAL_VERTICAL_EDIT");
        EXPECT_EQ(helpAfter(dialog, [&] { QTest::keyClick(&edit, Qt::Key_F1); }), QStringLiteral("Table styles"));
        cancel(dialog);
    });
    kdhost::setHelpFolder({});
}

TEST_F(StyleEditOpening, The_focus_is_in_the_first_control) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(focusName(), kDirectionBox);
        cancel(dialog);
    });
}

TEST_F(StyleEditOpening, Tab_goes_from_the_direction_by_the_cell_style_and_the_page_to_the_buttons) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        std::vector<std::string> tour;
        in<QComboBox>(dialog, kDirectionBox).setFocus();
        for (int i = 0; i < 15; ++i) {
            tour.push_back(focusName());
            pressKey(Qt::Key_Tab);
        }
        EXPECT_EQ(tour, (std::vector<std::string>{
                            kDirectionBox, kCellStyleBox, "IDC_TABLESTYLEEDIT_CREATE_BUTTON",
                            "IDC_TABLESTYLEEDIT_MANAGE_BUTTON", "qt_tabwidget_tabbar",
                            "IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX", "IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX",
                            "IDC_CELLSTYLEGENERAL_TYPE_COMBOBOX", "IDC_CELLSTYLEGENERAL_FORMAT_BUTTON",
                            "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT", "IDC_CELLSTYLEGENERAL_VERTICAL_EDIT",
                            "IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON", "IDOK", "IDCANCEL", "IDHELP"}));
        EXPECT_EQ(focusName(), kDirectionBox);
        cancel(dialog);
    });
}

}  // namespace
}  // namespace kdtest
