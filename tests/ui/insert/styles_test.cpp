// Table styles and cell styles in the insert dialog: what is listed and chosen, and the way to the dialog of styles.

#include "host/rx/faults.h"
#include "tests/ui/insert/fixture.h"

namespace kdtest {
namespace {

const Names kDefaultCellStyles = {L"Title", L"Header", L"Data"};

class InsertDialogStyles : public InsertDialogTest {
protected:
    void expectCellStyles(const Names& rows) const {
        for (const char* name : {kFirstRow, kSecondRow, kOtherRow}) EXPECT_EQ(rowsOf(name), rows) << name;
    }
    void expectChosen(const Names& chosen) const {
        EXPECT_EQ((Names{shown(kFirstRow), shown(kSecondRow), shown(kOtherRow)}), chosen);
    }
};

TEST_F(InsertDialogStyles, Each_row_offers_all_cell_styles_and_has_its_default_chosen) {
    addStyle(L"Beta", {L"Notes", L"Aside"});
    makeCurrent(L"Beta");
    open([&] {
        expectCellStyles({L"Title", L"Header", L"Data", L"Notes", L"Aside"});
        expectChosen(kDefaultCellStyles);
    });
}

TEST_F(InsertDialogStyles, The_walk_passes_the_gaps_that_deleted_cell_styles_leave) {
    addStyle(L"Beta", {L"One", L"Two", L"Three", L"Four"});
    {
        const OpenObject<KdDbTableStyle> open(style(L"Beta"), KdDb::kForWrite);
        EXPECT_EQ(open->deleteCellStyle(L"One"), Kdad::eOk);
        EXPECT_EQ(open->deleteCellStyle(L"Three"), Kdad::eOk);
    }
    makeCurrent(L"Beta");
    open([&] { expectCellStyles({L"Title", L"Header", L"Data", L"Two", L"Four"}); });
}

TEST_F(InsertDialogStyles, Another_table_style_brings_its_cell_styles_with_the_defaults_chosen) {
    addStyle(L"Beta", {L"Notes"});
    run({choose(wide(kFirstRow), L"Data"),
         [&] {
             expectChosen({L"Data", L"Header", L"Data"});
         },
         choose(wide(kStyleBox), L"Beta"),
         [&] {
             expectCellStyles({L"Title", L"Header", L"Data", L"Notes"});
             expectChosen(kDefaultCellStyles);
         },
         click(L"IDCANCEL")});
    EXPECT_EQ(currentStyle(), L"Standard") << "the choice is for this table alone";
}

TEST_F(InsertDialogStyles, Each_drop_of_the_list_shows_the_dictionary_as_it_is_and_chooses_the_current_style) {
    addStyle(L"Beta");
    run({choose(wide(kStyleBox), L"Beta"), [&] { EXPECT_EQ(shown(kStyleBox), L"Beta"); }, [&] { addStyle(L"Later"); },
         [&] { EXPECT_EQ(box(kStyleBox).count(), 2); },
         [&] { EXPECT_EQ(kdhost::automation::drop(wide(kStyleBox)), L""); },
         [&] {
             EXPECT_EQ(rowsOf(kStyleBox), styleNames());
             EXPECT_EQ(shown(kStyleBox), L"Standard");
         },
         key(L"ESC"), click(L"IDCANCEL")});
}

TEST_F(InsertDialogStyles, The_dialog_of_styles_hands_its_current_style_over) {
    addStyle(L"Beta", {L"Notes"});
    run({click(wide(kStyleManager)), expectTop(L"IDD_TABLESTYLE_DIALOG"), choose(L"IDC_TABLESTYLE_STYLE_LIST", L"Beta"),
         click(L"IDC_TABLESTYLE_CURSTYLE_BUTTON"), click(L"IDOK"), expectTop(L"IDD_TABLEINSERT_DIALOG"),
         [&] {
             EXPECT_EQ(shown(kStyleBox), L"Beta");
             expectCellStyles({L"Title", L"Header", L"Data", L"Notes"});
         },
         click(L"IDCANCEL")});
    EXPECT_EQ(currentStyle(), L"Beta");
}

TEST_F(InsertDialogStyles, A_current_style_renamed_there_by_F2_shows_its_old_name_until_the_list_drops) {
    addStyle(L"Beta", {L"Notes"});
    makeCurrent(L"Beta");
    run({click(wide(kStyleManager)), expectTop(L"IDD_TABLESTYLE_DIALOG"), key(L"F2"), label(L"Walls"), click(L"IDOK"),
         [&] { EXPECT_EQ(shown(kStyleBox), L"Beta"); },
         [&] {
             EXPECT_EQ(rowsOf(kStyleBox), (Names{L"Beta", L"Standard"}));
         },
         [&] { EXPECT_EQ(kdhost::automation::drop(wide(kStyleBox)), L""); },
         [&] {
             EXPECT_EQ(rowsOf(kStyleBox), (Names{L"Standard", L"Walls"}));
             EXPECT_EQ(shown(kStyleBox), L"Walls");
             expectCellStyles({L"Title", L"Header", L"Data", L"Notes"});
         },
         key(L"ESC"), click(L"IDCANCEL")});
}

TEST_F(InsertDialogStyles, A_style_that_came_meanwhile_is_added_when_it_is_chosen_in_the_dialog_of_styles) {
    run({[&] { addStyle(L"Later"); }, click(wide(kStyleManager)), choose(L"IDC_TABLESTYLE_STYLE_LIST", L"Later"),
         click(L"IDC_TABLESTYLE_CURSTYLE_BUTTON"), click(L"IDOK"),
         [&] {
             EXPECT_EQ(rowsOf(kStyleBox), (Names{L"Standard", L"Later"}));
             EXPECT_EQ(shown(kStyleBox), L"Later");
         },
         click(L"IDCANCEL")});
}

TEST_F(InsertDialogStyles, Cancel_in_the_dialog_of_styles_changes_no_choice_here) {
    addStyle(L"Beta");
    run({click(wide(kStyleManager)), choose(L"IDC_TABLESTYLE_STYLE_LIST", L"Beta"),
         click(L"IDC_TABLESTYLE_CURSTYLE_BUTTON"), click(L"IDCANCEL"),
         [&] { EXPECT_EQ(shown(kStyleBox), L"Standard"); }, click(L"IDCANCEL")});
    EXPECT_EQ(currentStyle(), L"Beta") << "there it took effect at once";
}

TEST_F(InsertDialogStyles, A_style_that_cannot_be_opened_leaves_the_cell_styles_as_they_are) {
    addStyle(L"Beta", {L"Notes"});
    open([&] {
        const KdDbObjectId beta = style(L"Beta");
        const OpenObject<KdDbTableStyle> held(beta, KdDb::kForWrite);
        box(kStyleBox).setCurrentIndex(box(kStyleBox).findText(QStringLiteral("Beta")));
        expectCellStyles(kDefaultCellStyles);
    });
}

}  // namespace
}  // namespace kdtest
