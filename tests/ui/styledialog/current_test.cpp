// The current table style, as the dialog sets it: at once and for good, by button, double click and menu.

#include "tests/ui/styledialog/fixture.h"

namespace kdtest {
namespace {

class TableStyleDialogCurrent : public TableStyleDialogTest {
protected:
    void SetUp() override {
        StyleDialogTest::SetUp();
        addStyle(L"Alpha");
    }
};

TEST_F(TableStyleDialogCurrent, By_the_button_and_Cancel_does_not_bring_the_former_back) {
    EXPECT_EQ(run({choose(kList, L"Alpha"), click(kSetCurrent), [&] { EXPECT_EQ(currentStyle(), L"Alpha"); },
                   expect(L"IDC_TABLESTYLE_CURRENT_STATIC", L"text", L"Current table style: Alpha"),
                   expect(L"IDC_TABLESTYLE_DELSTYLE_BUTTON", L"enabled", L"no"), click(L"IDCANCEL")}),
              2);
    EXPECT_EQ(currentStyle(), L"Alpha");
    EXPECT_EQ(dialog->GetCurrentTableStyleName(), L"Alpha");
    EXPECT_EQ(dialog->getCurrentTableStyleId(), style(L"Alpha"));
}

TEST_F(TableStyleDialogCurrent, The_style_that_was_current_can_be_deleted_from_then_on) {
    makeCurrent(L"Alpha");
    run({choose(kList, L"Alpha"), expect(L"IDC_TABLESTYLE_DELSTYLE_BUTTON", L"enabled", L"no"),
         choose(kList, L"Standard"), click(kSetCurrent), choose(kList, L"Alpha"),
         expect(L"IDC_TABLESTYLE_DELSTYLE_BUTTON", L"enabled", L"yes"), click(L"IDOK")});
}

TEST_F(TableStyleDialogCurrent, By_a_double_click_on_a_row) {
    run({doubleClick(kList, L"#0"), [&] { EXPECT_EQ(currentStyle(), L"Alpha"); },
         expect(L"IDC_TABLESTYLE_DELSTYLE_BUTTON", L"enabled", L"no"), click(L"IDOK")});
    EXPECT_EQ(currentStyle(), L"Alpha");
}

TEST_F(TableStyleDialogCurrent, A_double_click_on_empty_space_changes_nothing) {
    run({choose(kList, L"Alpha"), doubleClick(kList, L"empty"), [&] { EXPECT_EQ(currentStyle(), L"Standard"); },
         click(L"IDOK")});
}

TEST_F(TableStyleDialogCurrent, By_the_context_menu) {
    run({context(kList, L"#0"), menu(L"IDR_MANAGETABLE_CURRENT"), click(L"IDOK")});
    EXPECT_EQ(currentStyle(), L"Alpha");
}

TEST_F(TableStyleDialogCurrent, By_keys_alone) {
    run({expectFocus(kList), key(L"UP"), key(L"TAB"), expectFocus(L"IDC_TABLESTYLE_LIST_COMBOBOX"), key(L"TAB"),
         expectFocus(kSetCurrent), key(L"SPACE"), key(L"ESC")});
    EXPECT_EQ(currentStyle(), L"Alpha");
}

TEST_F(TableStyleDialogCurrent, A_style_that_has_vanished_gives_Standard) {
    makeCurrent(L"Alpha");
    make();
    EXPECT_EQ(dialog->SetCurrentTableStyle(L"No such style"), 1);
    EXPECT_EQ(currentStyle(), L"Standard");
    dialog->SetCurrentTableStyle(L"ALPHA");
    EXPECT_EQ(currentStyle(), L"Alpha");
    eraseStyle(L"Alpha");
    dialog->SetCurrentTableStyle(L"Alpha");
    EXPECT_EQ(currentStyle(), L"Standard");
}

TEST_F(TableStyleDialogCurrent, A_style_erased_by_another_road_gives_Standard_by_the_button_too) {
    run({choose(kList, L"Alpha"), [&] { eraseStyle(L"Alpha"); }, click(kSetCurrent),
         [&] { EXPECT_EQ(currentStyle(), L"Standard"); }, click(L"IDOK")});
    EXPECT_EQ(dialog->GetCurrentTableStyleName(), L"Alpha");
    EXPECT_EQ(dialog->getCurrentTableStyleId(), KdDbObjectId::kNull);
}

}  // namespace
}  // namespace kdtest
