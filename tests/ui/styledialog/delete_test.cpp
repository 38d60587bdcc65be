// The deletion of table styles: at once, past the dialog's Cancel, by button, menu and key.

#include <QLineEdit>

#include "host/db/undo.h"
#include "host/rx/faults.h"
#include "tests/ui/styledialog/fixture.h"

namespace kdtest {
namespace {

const std::wstring kQuestion = L"Delete the table style \"Beta\"?";

class TableStyleDialogDelete : public TableStyleDialogTest {
protected:
    void SetUp() override {
        StyleDialogTest::SetUp();
        for (const wchar_t* name : {L"Alpha", L"Beta", L"Zeta"}) addStyle(name);
    }

    /// Takes back the erasure of an object, without a word to its dictionary.
    static void revive(KdDbObjectId id) {
        KdDbObject* object = nullptr;
        ASSERT_EQ(kddbOpenObject(object, id, KdDb::kForWrite, true), Kdad::eOk);
        EXPECT_EQ(object->erase(false), Kdad::eOk);
        object->close();
    }

    const Names all = {L"Alpha", L"Beta", L"Standard", L"Zeta"};
    const Names withoutBeta = {L"Alpha", L"Standard", L"Zeta"};
};

TEST_F(TableStyleDialogDelete, Asks_and_takes_effect_at_once_whatever_the_dialog_ends_with) {
    EXPECT_EQ(run({choose(kList, L"Beta"), click(kDelete),
                   expectBox(QMessageBox::Information, QMessageBox::Ok | QMessageBox::Cancel), answer(kQuestion, L"OK"),
                   expectRows(withoutBeta, L"Standard"), expectFocus(kList),
                   [&] { EXPECT_EQ(styleNames(), withoutBeta); }, click(L"IDCANCEL")}),
              2);
    EXPECT_EQ(styleNames(), withoutBeta);
}

TEST_F(TableStyleDialogDelete, Cancel_of_the_question_changes_nothing) {
    run({choose(kList, L"Beta"), click(kDelete), answer(kQuestion, L"CANCEL"), expectRows(all, L"Beta"),
         click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogDelete, By_the_menu) {
    run({context(kList, L"#1"), menu(L"IDR_MANAGETABLE_DELETE"), answer(kQuestion, L"OK"),
         expectRows(withoutBeta, L"Standard"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), withoutBeta);
}

TEST_F(TableStyleDialogDelete, By_the_key) {
    run({choose(kList, L"Beta"), key(L"DELETE"), answer(kQuestion, L"OK"), expectRows(withoutBeta, L"Standard"),
         expect(kDelete, L"enabled", L"no"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), withoutBeta);
}

TEST_F(TableStyleDialogDelete, The_key_passes_over_styles_in_use) {
    addTable(L"Alpha");
    makeCurrent(L"Zeta");
    run({key(L"DELETE"), choose(kList, L"Standard"), key(L"DELETE"), choose(kList, L"Alpha"), key(L"DELETE"),
         expectTop(L"IDD_TABLESTYLE_DIALOG"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogDelete, The_button_passes_over_the_current_style_that_a_new_one_leaves_marked) {
    run({click(L"IDC_TABLESTYLE_NEWSTYLE_BUTTON"), click(L"IDOK"), click(L"IDOK"), expect(kDelete, L"enabled", L"yes"),
         click(kDelete), expectTop(L"IDD_TABLESTYLE_DIALOG"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), (Names{L"Alpha", L"Beta", L"Copy of Standard", L"Standard", L"Zeta"}));
}

TEST_F(TableStyleDialogDelete, The_last_row_deleted_selects_the_new_last_row) {
    run({choose(kList, L"Zeta"), click(kDelete), answer(L"Delete the table style \"Zeta\"?", L"OK"),
         expectRows({L"Alpha", L"Beta", L"Standard"}, L"Standard"),
         expect(L"IDC_TABLESTYLE_PREVIEW_STATIC", L"text", L"Preview: Standard"), click(L"IDOK")});
}

TEST_F(TableStyleDialogDelete, With_one_row_left_that_row_is_selected) {
    run({choose(kList, L"Alpha"), click(kDelete), answer(L"Delete the table style \"Alpha\"?", L"OK"),
         choose(kList, L"Beta"), click(kDelete), answer(kQuestion, L"OK"), choose(kList, L"Zeta"), click(kDelete),
         answer(L"Delete the table style \"Zeta\"?", L"OK"), expectRows({L"Standard"}, L"Standard"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), Names{L"Standard"});
}

TEST_F(TableStyleDialogDelete, A_click_on_empty_space_keeps_everything_until_a_row_is_clicked) {
    run({choose(kList, L"Beta"), click(kList, L"empty"), key(L"DELETE"), click(kDelete),
         expectTop(L"IDD_TABLESTYLE_DIALOG"), click(kList, L"#1"), click(kDelete), answer(kQuestion, L"CANCEL"),
         click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogDelete, Arrow_keys_do_not_undo_a_click_on_empty_space) {
    run({choose(kList, L"Alpha"), click(kList, L"empty"), key(L"DOWN"), key(L"DELETE"),
         expectTop(L"IDD_TABLESTYLE_DIALOG"), expectRows(all, L"Beta"), click(L"IDOK")});
}

TEST_F(TableStyleDialogDelete, The_menu_behind_a_click_on_empty_space_deletes_at_its_second_showing) {
    run({click(kList, L"empty"), context(kList, L"#1"), menu(L"IDR_MANAGETABLE_DELETE"),
         expectTop(L"IDD_TABLESTYLE_DIALOG"), expectRows(all, L"Beta"), context(kList, L"#1"),
         menu(L"IDR_MANAGETABLE_DELETE"), answer(kQuestion, L"OK"), expectRows(withoutBeta, L"Standard"),
         click(L"IDOK")});
}

TEST_F(TableStyleDialogDelete, A_right_click_on_empty_space_counts_as_a_click_there) {
    run({choose(kList, L"Beta"), context(kList, L"empty"), click(kDelete), expectTop(L"IDD_TABLESTYLE_DIALOG"),
         click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogDelete, A_style_that_cannot_be_opened_stays_though_its_row_goes) {
    std::unique_ptr<OpenObject<KdDbTableStyle>> reader;
    run({choose(kList, L"Beta"), click(kDelete),
         [&] {
             reader = std::make_unique<OpenObject<KdDbTableStyle>>(style(L"Beta"), KdDb::kForRead);
             answer(kQuestion, L"OK")();
         },
         expectRows(withoutBeta, L"Standard"), choose(L"IDC_TABLESTYLE_LIST_COMBOBOX", L"#1"),
         choose(L"IDC_TABLESTYLE_LIST_COMBOBOX", L"#0"), expectRows(all, L"Standard"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogDelete, A_style_erased_by_another_road_loses_its_row) {
    run({choose(kList, L"Beta"), [&] { eraseStyle(L"Beta"); }, click(kDelete), answer(kQuestion, L"OK"),
         expectRows(withoutBeta, L"Standard"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), withoutBeta);
}

TEST_F(TableStyleDialogDelete, The_dictionary_is_told_so_that_a_style_that_comes_back_has_no_name_there) {
    const KdDbObjectId beta = style(L"Beta");
    run({choose(kList, L"Beta"), click(kDelete), answer(kQuestion, L"OK"), click(L"IDOK")});
    revive(beta);
    EXPECT_EQ(styleNames(), withoutBeta);
}

TEST_F(TableStyleDialogDelete, A_dictionary_that_cannot_be_told_keeps_no_style_that_is_erased) {
    const KdDbObjectId beta = style(L"Beta");
    std::unique_ptr<OpenObject<KdDbObject>> reader;
    run({choose(kList, L"Beta"), click(kDelete),
         [&] {
             // Readers let the style be found, and keep the dictionary from being written.
             reader = std::make_unique<OpenObject<KdDbObject>>(drawing().tableStyleDictionaryId(), KdDb::kForRead);
             answer(kQuestion, L"OK")();
         },
         expectRows(withoutBeta, L"Standard"), click(L"IDOK")});
    reader.reset();
    EXPECT_EQ(styleNames(), withoutBeta);
    revive(beta);
    EXPECT_EQ(styleNames(), all) << "its entry has waited";
}

TEST_F(TableStyleDialogDelete, The_key_needs_a_selected_row) {
    run({choose(kList, L"Beta"), [&] { list().clearSelection(); }, key(L"DELETE"), key(L"F2"),
         expectTop(L"IDD_TABLESTYLE_DIALOG"), [&] { EXPECT_EQ(list().findChild<QLineEdit*>(), nullptr); },
         click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogDelete, Is_undone_with_the_command) {
    kdhost::undoHistory(drawing())->beginCommand(L"TABLESTYLE");
    run({choose(kList, L"Beta"), click(kDelete), answer(kQuestion, L"OK"), click(L"IDOK")});
    kdhost::undoHistory(drawing())->endCommand();
    EXPECT_EQ(styleNames(), withoutBeta);
    EXPECT_EQ(kdhost::undoHistory(drawing())->undo(), Kdad::eOk);
    EXPECT_EQ(styleNames(), all);
}

}  // namespace
}  // namespace kdtest
