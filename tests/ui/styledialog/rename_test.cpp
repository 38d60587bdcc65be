// The renaming of table styles in their rows: at once, past the dialog's Cancel, and refused without a word.

#include <QLineEdit>

#include "host/rx/faults.h"
#include "kd/db/table.h"
#include "tests/ui/styledialog/fixture.h"

namespace kdtest {
namespace {

class TableStyleDialogRename : public TableStyleDialogTest {
protected:
    void SetUp() override {
        StyleDialogTest::SetUp();
        for (const wchar_t* name : {L"Alpha", L"Beta", L"Zeta"}) addStyle(name);
    }

    const Names all = {L"Alpha", L"Beta", L"Standard", L"Zeta"};
};

TEST_F(TableStyleDialogRename, By_the_menu_at_once_whatever_the_dialog_ends_with) {
    const KdDbObjectId beta = style(L"Beta");
    EXPECT_EQ(run({context(kList, L"#1"), menu(L"IDR_MANAGETABLE_RENAME"), label(L"Walls"),
                   expectRows({L"Alpha", L"Walls", L"Standard", L"Zeta"}, L"Walls"),
                   [&] { EXPECT_EQ(style(L"Walls"), beta); }, click(L"IDCANCEL")}),
              2);
    EXPECT_EQ(style(L"Walls"), beta);
    EXPECT_EQ(styleNames(), (Names{L"Alpha", L"Standard", L"Walls", L"Zeta"}));
}

TEST_F(TableStyleDialogRename, The_row_keeps_its_place_until_the_list_is_filled_anew) {
    run({choose(kList, L"Beta"), key(L"F2"), label(L"Zz"), expectRows({L"Alpha", L"Zz", L"Standard", L"Zeta"}, L"Zz"),
         choose(L"IDC_TABLESTYLE_LIST_COMBOBOX", L"#1"), choose(L"IDC_TABLESTYLE_LIST_COMBOBOX", L"#0"),
         expectRows({L"Alpha", L"Standard", L"Zeta", L"Zz"}, L"Standard"), click(L"IDOK")});
}

TEST_F(TableStyleDialogRename, By_keys_alone_with_Enter_that_ends_the_label_and_not_the_dialog) {
    run({choose(kList, L"Beta"), key(L"F2"), key(L"W"), key(L"1"), key(L"ENTER"), expectTop(L"IDD_TABLESTYLE_DIALOG"),
         expectRows({L"Alpha", L"W1", L"Standard", L"Zeta"}, L"W1"), key(L"ENTER")});
    EXPECT_FALSE(style(L"W1").isNull());
}

TEST_F(TableStyleDialogRename, A_label_given_up_keeps_the_name) {
    run({choose(kList, L"Beta"), key(L"F2"), label(L"CANCEL"), expectRows(all, L"Beta"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogRename, Refuses_without_a_word_and_shows_the_old_name) {
    Names refused = {L"", L"Beta", L"BETA", L"alpha", L"STANDARD", L"Zeta"};
    for (const wchar_t c : std::wstring(L"<>/\\\":;?*|,=`'")) refused.push_back(L"x" + std::wstring(1, c));
    Steps steps = {choose(kList, L"Beta")};
    for (const std::wstring& name : refused) {
        for (Step& step :
             Steps{key(L"F2"), label(name), expectTop(L"IDD_TABLESTYLE_DIALOG"), expectRows(all, L"Beta")}) {
            steps.push_back(std::move(step));
        }
    }
    steps.push_back(click(L"IDOK"));
    run(std::move(steps));
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogRename, The_case_alone_of_a_letter_beyond_A_to_Z_can_be_changed) {
    const KdDbObjectId trouble = addStyle(L"Ärger");
    const Names renamed = {L"Alpha", L"Beta", L"Standard", L"Zeta", L"ärger"};
    run({choose(kList, L"Ärger"), key(L"F2"), label(L"ärger"), expectRows(renamed, L"ärger"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), renamed);
    EXPECT_EQ(style(L"ärger"), trouble);
    EXPECT_TRUE(style(L"Ärger").isNull());
}

TEST_F(TableStyleDialogRename, Blanks_and_long_names_pass) {
    const std::wstring longName(300, L'n');
    run({choose(kList, L"Beta"), key(L"F2"), label(L" b "), choose(kList, L"Alpha"), key(L"F2"), label(longName),
         click(L"IDOK")});
    EXPECT_FALSE(style(L" b ").isNull());
    EXPECT_FALSE(style(longName).isNull());
}

TEST_F(TableStyleDialogRename, Standard_keeps_its_name) {
    run({choose(kList, L"Standard"), key(L"F2"), [&] { EXPECT_EQ(list().findChild<QLineEdit*>(), nullptr); },
         click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

TEST_F(TableStyleDialogRename, The_key_renames_a_style_in_use_which_the_menu_does_not_offer) {
    const KdDbObjectId table = addTable(L"Beta");
    const KdDbObjectId beta = style(L"Beta");
    run({context(kList, L"#1"), expect(L"IDR_MANAGETABLE_RENAME", L"enabled", L"no"), menu(L"CANCEL"), key(L"F2"),
         label(L"Walls"), expect(kDelete, L"enabled", L"no"), click(L"IDOK")});
    EXPECT_EQ(style(L"Walls"), beta);
    EXPECT_EQ(OpenObject<KdDbTable>(table, KdDb::kForRead)->tableStyle(), beta);
}

TEST_F(TableStyleDialogRename, The_key_renames_the_current_style_and_the_captions_show_the_old_name) {
    makeCurrent(L"Beta");
    run({key(L"F2"), label(L"Walls"), expect(kCurrentTip, L"text", L"Current table style: Beta"),
         expect(L"IDC_TABLESTYLE_PREVIEW_STATIC", L"text", L"Preview: Beta"),
         // Under its new name it counts as used by nothing.
         expect(kDelete, L"enabled", L"yes"), click(L"IDOK")});
    EXPECT_EQ(currentStyle(), L"Walls");
    EXPECT_EQ(dialog->GetCurrentTableStyleName(), L"Beta");
}

TEST_F(TableStyleDialogRename, Without_the_dictionary_the_row_alone_changes) {
    std::unique_ptr<OpenObject<KdDbObject>> reader;
    run({choose(kList, L"Beta"), key(L"F2"),
         [&] {
             reader = std::make_unique<OpenObject<KdDbObject>>(drawing().tableStyleDictionaryId(), KdDb::kForRead);
             label(L"Walls")();
         },
         expectRows({L"Alpha", L"Walls", L"Standard", L"Zeta"}, L"Walls"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), all);
}

}  // namespace
}  // namespace kdtest
