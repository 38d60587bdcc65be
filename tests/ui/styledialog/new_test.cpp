// A new table style, from its name to the end of its transaction.

#include "host/db/undo.h"
#include "host/rx/faults.h"
#include "host/ui/automation/automation.h"
#include "tests/ui/styledialog/fixture.h"

namespace kdtest {
namespace {

const std::wstring kName = L"IDC_CREATETABLESTYLE_NEWNAME_EDIT";
const std::wstring kStart = L"IDC_CREATETABLESTYLE_STARTWITH_COMBOBOX";
const std::wstring kNaming = L"IDD_CREATETABLESTYLE_DIALOG";
class TableStyleDialogNew : public TableStyleDialogTest {
protected:
    void SetUp() override {
        StyleDialogTest::SetUp();
        addStyle(L"Beta", {L"Notes"});
    }

    const Names all = {L"Beta", L"Standard"};
};

TEST_F(TableStyleDialogNew, The_name_dialog_offers_every_style_and_starts_with_the_marked_one) {
    run({choose(kList, L"Beta"), click(kNew), expectTop(kNaming), expect(kStart, L"rows", L"2"),
         expect(kStart, L"text", L"Beta"), expect(kName, L"text", L"Copy of Beta"), expectTransactions(0),
         click(L"IDCANCEL"), expectTop(L"IDD_TABLESTYLE_DIALOG"), expectRows(all, L"Beta"), expectTransactions(0),
         click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogNew, OK_makes_a_copy_of_the_start_style) {
    run({choose(kList, L"Beta"), click(kNew), setText(kName, L"Walls"), click(L"IDOK"), expectTop(kEditing),
         expectTitle(L"New Table Style: Walls"), expectTransactions(1), click(L"IDOK"),
         expectTop(L"IDD_TABLESTYLE_DIALOG"), expectTransactions(0), click(L"IDOK")});
    EXPECT_EQ(styleNames(), (Names{L"Beta", L"Standard", L"Walls"}));
    EXPECT_EQ(cellStyleNames(L"Walls"), cellStyleNames(L"Beta"));
    EXPECT_EQ(cellStyleNames(L"Walls").back(), L"Notes");
}

TEST_F(TableStyleDialogNew, The_start_style_is_the_one_chosen_in_the_name_dialog) {
    run({choose(kList, L"Standard"), click(kNew), choose(kStart, L"Beta"), expect(kName, L"text", L"Copy of Beta"),
         click(L"IDOK"), click(L"IDOK"), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(L"Copy of Beta"), cellStyleNames(L"Beta"));
}

TEST_F(TableStyleDialogNew, Cancel_of_the_edit_leaves_the_drawing_as_it_was) {
    run({click(kNew), setText(kName, L"Walls"), click(L"IDOK"), expectTop(kEditing),
         [&] { EXPECT_FALSE(style(L"Walls").isNull()); }, click(L"IDCANCEL"), expectTransactions(0),
         expectRows(all, L"Standard"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogNew, It_stays_whatever_the_dialog_ends_with) {
    EXPECT_EQ(run({click(kNew), setText(kName, L"Walls"), click(L"IDOK"), click(L"IDOK"), click(L"IDCANCEL")}), 2);
    EXPECT_FALSE(style(L"Walls").isNull());
}

TEST_F(TableStyleDialogNew, What_becomes_current_is_the_row_marked_before_and_not_the_new_style) {
    run({choose(kList, L"Beta"), click(kNew), setText(kName, L"Walls"), click(L"IDOK"), click(L"IDOK"),
         [&] { EXPECT_EQ(currentStyle(), L"Beta"); }, expectRows({L"Beta", L"Standard", L"Walls"}, L"Beta"),
         // The preview and the button are those of the new style.
         expect(L"IDC_TABLESTYLE_PREVIEW_STATIC", L"text", L"Preview: Walls"),
         expect(L"IDC_TABLESTYLE_DELSTYLE_BUTTON", L"enabled", L"yes"), click(L"IDOK")});
    EXPECT_EQ(currentStyle(), L"Beta");
}

TEST_F(TableStyleDialogNew, A_right_click_on_the_row_that_stayed_marked_brings_its_own_state_of_the_button_back) {
    run({click(kNew), setText(kName, L"Walls"), click(L"IDOK"), click(L"IDOK"),
         expectRows({L"Beta", L"Standard", L"Walls"}, L"Standard"),
         expect(L"IDC_TABLESTYLE_DELSTYLE_BUTTON", L"enabled", L"yes"), context(kList, L"#1"), menu(L"CANCEL"),
         expect(L"IDC_TABLESTYLE_DELSTYLE_BUTTON", L"enabled", L"no"), click(L"IDOK")});
}

TEST_F(TableStyleDialogNew, A_name_that_differs_in_the_case_of_a_letter_beyond_A_to_Z_is_a_new_one) {
    const KdDbObjectId before = addStyle(L"Ärger");
    run({choose(kList, L"Ärger"), click(kNew), setText(kName, L"ärger"), click(L"IDOK"), expectTop(kEditing),
         click(L"IDOK"), expectTop(L"IDD_TABLESTYLE_DIALOG"),
         expectRows({L"Beta", L"Standard", L"Ärger", L"ärger"}, L"Ärger"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), (Names{L"Beta", L"Standard", L"Ärger", L"ärger"}));
    EXPECT_EQ(style(L"Ärger"), before);
    EXPECT_NE(style(L"ärger"), before);
    EXPECT_EQ(currentStyle(), L"Ärger");
}

TEST_F(TableStyleDialogNew, The_list_of_styles_in_use_does_not_get_the_new_one) {
    run({choose(L"IDC_TABLESTYLE_LIST_COMBOBOX", L"#1"), click(kNew), setText(kName, L"Walls"), click(L"IDOK"),
         click(L"IDOK"), expectRows({L"Standard"}, L"Standard"), click(L"IDOK")});
    EXPECT_FALSE(style(L"Walls").isNull());
}

TEST_F(TableStyleDialogNew, Names_that_the_dialog_refuses_are_told) {
    run({click(kNew), setText(kName, L"beta"), click(L"IDOK"),
         answer(L"A table style with this name already exists. Enter another name.", L"OK"), click(L"IDCANCEL"),
         click(L"IDOK")});
}

TEST_F(TableStyleDialogNew, Without_the_dictionary_no_dialog_comes_up) {
    std::unique_ptr<OpenObject<KdDbObject>> writer;
    run({[&] {
             writer = std::make_unique<OpenObject<KdDbObject>>(drawing().tableStyleDictionaryId(), KdDb::kForWrite);
         },
         click(kNew), expectTop(L"IDD_TABLESTYLE_DIALOG"), click(L"IDOK")});
}

TEST_F(TableStyleDialogNew, A_start_style_that_cannot_be_read_ends_it) {
    std::unique_ptr<OpenObject<KdDbTableStyle>> writer;
    run({click(kNew), setText(kName, L"Walls"), choose(kStart, L"Beta"),
         [&] {
             writer = std::make_unique<OpenObject<KdDbTableStyle>>(style(L"Beta"), KdDb::kForWrite);
             click(L"IDOK")();
         },
         expectTop(L"IDD_TABLESTYLE_DIALOG"), expectTransactions(0), click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogNew, A_start_style_erased_meanwhile_ends_it) {
    run({choose(kList, L"Beta"), click(kNew), [&] { eraseStyle(L"Beta"); }, click(L"IDOK"),
         expectTop(L"IDD_TABLESTYLE_DIALOG"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), Names{L"Standard"});
}

TEST_F(TableStyleDialogNew, Without_a_transaction_nothing_is_made) {
    kdhost::faults().noTransaction = true;
    run({click(kNew), setText(kName, L"Walls"), click(L"IDOK"), expectTop(L"IDD_TABLESTYLE_DIALOG"),
         expectRows(all, L"Standard"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogNew, Whichever_open_fails_the_drawing_is_as_it_was) {
    bool edited = false;
    int number = 0;
    while (!edited && ++number < 20) {
        SCOPED_TRACE(number);
        const auto cancelTheEdit = [&] {
            edited = kdhost::automation::topWindow()->objectName() == QString::fromStdWString(kEditing);
            kdhost::faults() = {};
            if (edited) click(L"IDCANCEL")();
        };
        run({click(kNew), setText(kName, L"Walls"),
             [&] {
                 kdhost::faults().failOpenNumber = number;
                 click(L"IDOK")();
             },
             cancelTheEdit, expectTop(L"IDD_TABLESTYLE_DIALOG"), expectTransactions(0), expectRows(all, L"Standard"),
             click(L"IDOK")});
        EXPECT_EQ(styleNames(), all);
    }
    // That of the start style, and that through the transaction.
    EXPECT_GT(number, 2);
}

TEST_F(TableStyleDialogNew, A_dictionary_that_takes_no_style_ends_it) {
    std::unique_ptr<OpenObject<KdDbObject>> reader;
    run({click(kNew), setText(kName, L"Walls"),
         [&] {
             // Readers let the start style be found, and keep the new one out.
             reader = std::make_unique<OpenObject<KdDbObject>>(drawing().tableStyleDictionaryId(), KdDb::kForRead);
             click(L"IDOK")();
         },
         expectTop(L"IDD_TABLESTYLE_DIALOG"), expectTransactions(0), expectRows(all, L"Standard"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogNew, Is_undone_with_the_command) {
    kdhost::undoHistory(drawing())->beginCommand(L"TABLESTYLE");
    run({click(kNew), setText(kName, L"Walls"), click(L"IDOK"), click(L"IDOK"), click(L"IDOK")});
    kdhost::undoHistory(drawing())->endCommand();
    EXPECT_FALSE(style(L"Walls").isNull());
    EXPECT_EQ(kdhost::undoHistory(drawing())->undoSteps(), Names{L"TABLESTYLE"});
    EXPECT_EQ(kdhost::undoHistory(drawing())->undo(), Kdad::eOk);
    EXPECT_EQ(styleNames(), all);
}

}  // namespace
}  // namespace kdtest
