// The box of cell styles in the style edit dialog: what each of its rows does, and the cell styles that are made and
// managed from it.

#include <QAbstractItemView>

#include "kd/db/symboltable.h"
#include "module/core/cellstylewalk.h"
#include "module/core/transactions.h"
#include "tests/support/tablebuilder.h"
#include "tests/ui/styleedit/fixture.h"

namespace kdtest {
namespace {

constexpr const char* kHorizontalEdit = "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT";
constexpr const char* kCreateButton = "IDC_TABLESTYLEEDIT_CREATE_BUTTON";
constexpr const char* kManageButton = "IDC_TABLESTYLEEDIT_MANAGE_BUTTON";
constexpr const char* kNameEdit = "IDC_CREATECELLSTYLE_NEWNAME_EDIT";
constexpr const char* kStartBox = "IDC_CREATECELLSTYLE_STARTWITH_COMBOBOX";

class StyleEditCellStyles : public StyleEditing {
protected:
    void SetUp() override {
        StyleEditing::SetUp();
        // Each cell style has a margin of its own, by which the pages tell which one they show.
        change([](KdDbTableStyle& open) {
            open.setMargin(KdDb::kCellMarginLeft, 1.0, L"_DATA");
            open.setMargin(KdDb::kCellMarginLeft, 2.0, L"_HEADER");
            open.setMargin(KdDb::kCellMarginLeft, 3.0, L"_TITLE");
        });
    }
    static std::string margin(QWidget& dialog) { return text(dialog, kHorizontalEdit); }
    static bool isListOpen(QWidget& dialog) { return box(dialog, kCellStyleBox).view()->isVisible(); }
    /// In the naming dialog that comes next: a name, and OK.
    void nameNext(const char* name) {
        next([name](QWidget& naming) {
            typeInto(naming, kNameEdit, name);
            ok(naming);
        });
    }
    std::vector<CStdStr<wchar_t>> cellStyles() { return cellStyleDisplayNames(style()); }
};

TEST_F(StyleEditCellStyles, A_selected_row_is_shown_by_the_pages) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_EQ(margin(dialog), "1");
        choose(kCellStyleBox, "Header");
        EXPECT_EQ(margin(dialog), "2");
        EXPECT_EQ(CVqTableStyleEditDlg::m_nComboBoxIndex, 1);
        choose(kCellStyleBox, "Data");
        EXPECT_EQ(margin(dialog), "1");
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, What_is_written_goes_to_the_selected_cell_style_alone) {
    editAndOk([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, "Header");
        enter(dialog, kHorizontalEdit, "8");
    });
    EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"_HEADER"), 8.0);
    EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"_DATA"), 1.0);
    EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"_TITLE"), 3.0);
}

TEST_F(StyleEditCellStyles, The_row_of_the_last_cell_style_reopens_the_list_and_the_pages_keep_the_one_before) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, "Header");
        auto& list = box(dialog, kCellStyleBox);
        list.setFocus();
        pressKey(Qt::Key_Down);
        EXPECT_TRUE(isListOpen(dialog));
        EXPECT_EQ(shown(dialog), "Title");
        EXPECT_EQ(margin(dialog), "2");
        EXPECT_EQ(CVqTableStyleEditDlg::m_nComboBoxIndex, 2);
        list.hidePopup();
        enter(dialog, kHorizontalEdit, "6");
        EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"_HEADER"), 6.0) << "still the cell style before";
        EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"_TITLE"), 3.0);
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, The_list_reopens_for_the_mouse_too_and_goes_on_with_another_row) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        auto& list = box(dialog, kCellStyleBox);
        list.showPopup();
        const auto click = [&](int row) {
            const QRect place = list.view()->visualRect(list.model()->index(row, 0));
            // A press that comes as quickly behind the opening as a test's counts as the one that opened the list.
            QTest::qWait(QApplication::doubleClickInterval() + 50);
            QTest::mouseClick(list.view()->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
        };
        click(2);
        EXPECT_TRUE(isListOpen(dialog));
        EXPECT_EQ(margin(dialog), "1");
        click(1);
        EXPECT_FALSE(isListOpen(dialog));
        EXPECT_EQ(margin(dialog), "2");
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, The_button_makes_a_cell_style_and_the_pages_show_it) {
    editAndOk([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, "Header");
        next([&](QWidget& naming) {
            EXPECT_EQ(rows(naming, kStartBox), (std::vector<std::string>{"Data", "Header"})) << "the last one isn't";
            EXPECT_EQ(shown(naming, kStartBox), "Header");
            EXPECT_EQ(text(naming, kNameEdit), "Copy of Header");
            typeInto(naming, kNameEdit, "Amounts");
            ok(naming);
        });
        press(dialog, kCreateButton);
        backIn(dialog);
        EXPECT_EQ(rows(dialog), (std::vector<std::string>{"Amounts", "Data", "Header", "Title", "Create cell style",
                                                          "Manage cell styles"}));
        EXPECT_EQ(shown(dialog), "Amounts");
        EXPECT_EQ(margin(dialog), "2");
        enter(dialog, kHorizontalEdit, "4");
    });
    EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"Amounts"), 4.0);
    EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"_HEADER"), 2.0);
}

TEST_F(StyleEditCellStyles, The_box_is_refilled_before_the_cell_style_exists_so_that_from_the_row_the_pages_show_data) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        next([&](QWidget& naming) {
            EXPECT_EQ(shown(naming, kStartBox), "Data") << "row 0 is selected first";
            choose(kStartBox, "Header");
            typeInto(naming, kNameEdit, "Great");
            ok(naming);
        });
        choose(kCellStyleBox, "Create cell style");
        backIn(dialog);
        EXPECT_EQ(shown(dialog), "Great");
        EXPECT_EQ(margin(dialog), "1") << "a cell style that isn't there yet reads as data";
        EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"Great"), 2.0) << "it was made from the header";
        choose(kCellStyleBox, "Data");
        choose(kCellStyleBox, "Great");
        EXPECT_EQ(margin(dialog), "2");
        cancel(dialog);
    });
    EXPECT_EQ(cellStyles().size(), 3U);
}

TEST_F(StyleEditCellStyles, From_its_row_a_new_cell_style_that_comes_first_is_shown_by_the_pages_too) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        nameNext("Amounts");
        choose(kCellStyleBox, "Create cell style");
        backIn(dialog);
        EXPECT_EQ(shown(dialog), "Amounts") << "in row 0, where Data was";
        enter(dialog, kHorizontalEdit, "6");
        EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"Amounts"), 6.0);
        EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"_DATA"), 1.0);
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, A_new_cell_style_that_comes_last_is_shown_by_the_button_though_its_row_reopens_the_list) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        nameNext("Zinc");
        press(dialog, kCreateButton);
        backIn(dialog);
        EXPECT_EQ(shown(dialog), "Zinc");
        EXPECT_TRUE(isListOpen(dialog));
        box(dialog, kCellStyleBox).hidePopup();
        enter(dialog, kHorizontalEdit, "5");
        EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"Zinc"), 5.0);
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, From_its_row_a_new_cell_style_that_comes_last_leaves_the_pages_with_row_0) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, "Header");
        nameNext("Zinc");
        choose(kCellStyleBox, "Create cell style");
        backIn(dialog);
        EXPECT_EQ(shown(dialog), "Zinc");
        EXPECT_EQ(margin(dialog), "1");
        box(dialog, kCellStyleBox).hidePopup();
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, A_cancelled_creation_changes_nothing_but_the_row) {
    const nlohmann::json before = dump();
    edit([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, "Header");
        next([](QWidget& naming) { cancel(naming); });
        press(dialog, kCreateButton);
        backIn(dialog);
        EXPECT_EQ(shown(dialog), "Header");
        next([](QWidget& naming) { cancel(naming); });
        choose(kCellStyleBox, "Create cell style");
        backIn(dialog);
        EXPECT_EQ(shown(dialog), "Data") << "the row moves to the first one before the dialog asks";
        EXPECT_EQ(margin(dialog), "1");
        EXPECT_EQ(CVqTableStyleEditDlg::m_nComboBoxIndex, 0);
        EXPECT_EQ(dump(), before);
        ok(dialog);
    });
    EXPECT_EQ(dump(), before);
}

TEST_F(StyleEditCellStyles, The_name_of_the_last_cell_style_is_not_known_as_taken) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        nameNext("Title");
        press(dialog, kCreateButton);
        backIn(dialog);
        EXPECT_EQ(rows(dialog), (std::vector<std::string>{"Data", "Header", "Title", "Title", "Create cell style",
                                                          "Manage cell styles"}));
        EXPECT_EQ(cellStyles().size(), 4U) << "a user's cell style of that name, beside the default one";
        EXPECT_EQ(style().margin(KdDb::kCellMarginLeft, L"Title"), 1.0) << "made from data";
        EXPECT_EQ(margin(dialog), "3") << "the name stands for the default one, whose values are shown";
        box(dialog, kCellStyleBox).hidePopup();
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, The_new_name_is_used_as_typed) {
    editAndOk([&](CVqTableStyleEditDlg& dialog) {
        nameNext("  Fine Print ");
        press(dialog, kCreateButton);
        backIn(dialog);
        EXPECT_EQ(shown(dialog), "Fine Print");
    });
    EXPECT_EQ(cellStyles().back(), L"Fine Print");
}

TEST_F(StyleEditCellStyles, The_start_of_a_new_one_is_sought_without_the_blanks_around_its_name) {
    addCellStyle(L"Amounts ");
    edit([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, 0);
        EXPECT_EQ(shown(dialog), "Amounts ");
        next([](QWidget& naming) {
            EXPECT_EQ(rows(naming, kStartBox), (std::vector<std::string>{"Amounts ", "Data", "Header"}));
            EXPECT_EQ(box(naming, kStartBox).currentIndex(), -1);
            cancel(naming);
        });
        press(dialog, kCreateButton);
        backIn(dialog);
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, The_manager_does_not_delete_what_a_table_of_the_style_uses) {
    addCellStyle(L"Amounts");
    {
        std::unique_ptr<KdDbTable> table = TableBuilder(2, 2).style(styleId()).cellStyle("B2", L"Amounts").build();
        KdDbObjectId id;
        const OpenObject<KdDbBlockTableRecord> space(host.database().modelSpaceId(), KdDb::kForWrite);
        ASSERT_EQ(space->appendKdDbEntity(id, table.get()), Kdad::eOk);
        table.release()->close();
    }
    edit([&](CVqTableStyleEditDlg& dialog) {
        next([](QWidget& manager) {
            choose("IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST", "Amounts");
            EXPECT_TRUE(in<QPushButton>(manager, "IDC_MANAGERCELLSTYLE_RENAME_BUTTON").isEnabled());
            EXPECT_FALSE(in<QPushButton>(manager, "IDC_MANAGERCELLSTYLE_DELETE_BUTTON").isEnabled());
            ok(manager);
        });
        press(dialog, kManageButton);
        backIn(dialog);
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, Manage_with_OK_refills_the_box_and_leaves_the_pages) {
    addCellStyle(L"Amounts");
    change([](KdDbTableStyle& open) { open.setMargin(KdDb::kCellMarginLeft, 9.0, L"Amounts"); });
    editAndOk([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, "Amounts");
        EXPECT_EQ(margin(dialog), "9");
        next([&](QWidget& manager) {
            EXPECT_EQ(transactions().numActiveTransactions(), 2);
            auto* managed = getObject<KdDbTableStyle>(topTransaction(), styleId(), KdDb::kForWrite);
            EXPECT_EQ(managed->deleteCellStyle(L"Amounts"), Kdad::eOk);
            ok(manager);
        });
        press(dialog, kManageButton);
        backIn(dialog);
        EXPECT_EQ(transactions().numActiveTransactions(), 1);
        EXPECT_EQ(rows(dialog),
                  (std::vector<std::string>{"Data", "Header", "Title", "Create cell style", "Manage cell styles"}));
        EXPECT_EQ(shown(dialog), "Data") << "the row, not the name, is kept";
        EXPECT_EQ(margin(dialog), "9") << "the pages aren't refreshed";
    });
    EXPECT_EQ(cellStyles().size(), 3U);
}

TEST_F(StyleEditCellStyles, Manage_with_Cancel_takes_back_what_was_done_in_it) {
    addCellStyle(L"Amounts");
    const nlohmann::json before = dump();
    edit([&](CVqTableStyleEditDlg& dialog) {
        next([&](QWidget& manager) {
            nameNext("Within");
            press(manager, "IDC_MANAGERCELLSTYLE_NEW_BUTTON");
            EXPECT_EQ(cellStyles().size(), 5U);
            cancel(manager);
        });
        press(dialog, kManageButton);
        backIn(dialog);
        EXPECT_EQ(dump(), before);
        EXPECT_EQ(rows(dialog).size(), 6U);
        ok(dialog);
    });
    EXPECT_EQ(dump(), before);
}

TEST_F(StyleEditCellStyles, The_row_that_opens_the_manager_gives_way_to_the_first_one_which_the_pages_show) {
    addCellStyle(L"Amounts");
    change([](KdDbTableStyle& open) { open.setMargin(KdDb::kCellMarginLeft, 9.0, L"Amounts"); });
    edit([&](CVqTableStyleEditDlg& dialog) {
        choose(kCellStyleBox, "Header");
        next([&](QWidget& manager) {
            EXPECT_EQ(shown(dialog), "Amounts") << "before the manager opens";
            cancel(manager);
        });
        choose(kCellStyleBox, "Manage cell styles");
        backIn(dialog);
        EXPECT_EQ(shown(dialog), "Amounts");
        EXPECT_EQ(margin(dialog), "9");
        EXPECT_EQ(CVqTableStyleEditDlg::m_nComboBoxIndex, 0);
        cancel(dialog);
    });
}

TEST_F(StyleEditCellStyles, The_Cancel_of_the_style_takes_back_an_OK_of_the_manager) {
    const nlohmann::json before = dump();
    edit([&](CVqTableStyleEditDlg& dialog) {
        next([&](QWidget& manager) {
            nameNext("Within");
            press(manager, "IDC_MANAGERCELLSTYLE_NEW_BUTTON");
            ok(manager);
        });
        choose(kCellStyleBox, "Manage cell styles");
        backIn(dialog);
        EXPECT_EQ(rows(dialog).size(), 6U);
        EXPECT_EQ(shown(dialog), "Data") << "row 0 is selected before the manager opens";
        cancel(dialog);
    });
    EXPECT_EQ(dump(), before);
}

}  // namespace
}  // namespace kdtest
