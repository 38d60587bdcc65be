// The change of a table style: the style itself is edited, and its transaction is the way back.

#include "host/rx/faults.h"
#include "kd/db/table.h"
#include "tests/ui/styledialog/fixture.h"

namespace kdtest {
namespace {

const std::wstring kDirection = L"IDC_TABLESTYLEEDIT_DIRECTION_COMBOBOX";
const std::wstring kManaging = L"IDD_MANAGERCELLSTYLE_DIALOG";

class TableStyleDialogModify : public TableStyleDialogTest {
protected:
    void SetUp() override {
        StyleDialogTest::SetUp();
        addStyle(L"Beta", {L"Notes", L"Remarks"});
    }
    int flowOf(const std::wstring& name) {
        return OpenObject<KdDbTableStyle>(style(name), KdDb::kForRead)->flowDirection();
    }

    const Names cellStyles = {L"_TITLE", L"_HEADER", L"_DATA", L"Notes", L"Remarks"};
};

TEST_F(TableStyleDialogModify, OK_lets_the_edits_stand_and_shows_the_style_anew) {
    QImage before;
    run({choose(kList, L"Beta"), [&] { before = pictureIn(*dialog, "IDC_TABLESTYLE_PREVIEWPIC_STATIC"); },
         click(kModify), expectTop(kEditing), expectTitle(L"Modify Table Style: Beta"), expectTransactions(1),
         choose(kDirection, L"#0"), click(L"IDOK"), expectTop(L"IDD_TABLESTYLE_DIALOG"), expectTransactions(0),
         [&] { EXPECT_NE(pictureIn(*dialog, "IDC_TABLESTYLE_PREVIEWPIC_STATIC"), before); }, click(L"IDCANCEL")});
    EXPECT_EQ(flowOf(L"Beta"), 1);
    EXPECT_EQ(flowOf(L"Standard"), 0);
}

TEST_F(TableStyleDialogModify, Cancel_takes_all_edits_back) {
    run({choose(kList, L"Beta"), click(kModify), choose(kDirection, L"#0"), [&] { EXPECT_EQ(flowOf(L"Beta"), 1); },
         click(L"IDCANCEL"), expectTransactions(0), click(L"IDOK")});
    EXPECT_EQ(flowOf(L"Beta"), 0);
}

TEST_F(TableStyleDialogModify, Cancel_takes_back_what_was_kept_in_the_manager_of_cell_styles) {
    run({choose(kList, L"Beta"), click(kModify), click(L"IDC_TABLESTYLEEDIT_MANAGE_BUTTON"), expectTop(kManaging),
         expectTransactions(2), choose(L"IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST", L"Notes"),
         click(L"IDC_MANAGERCELLSTYLE_DELETE_BUTTON"), answer(L"Delete the selected cell style?", L"OK"),
         click(L"IDOK"), expectTop(kEditing), expectTransactions(1),
         [&] { EXPECT_EQ(cellStyleNames(L"Beta").size(), 4U); }, click(L"IDCANCEL"), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(L"Beta"), cellStyles);
}

TEST_F(TableStyleDialogModify, Cancel_of_the_manager_takes_its_own_edits_back_alone) {
    run({choose(kList, L"Beta"), click(kModify), choose(kDirection, L"#0"), click(L"IDC_TABLESTYLEEDIT_MANAGE_BUTTON"),
         choose(L"IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST", L"Notes"), click(L"IDC_MANAGERCELLSTYLE_DELETE_BUTTON"),
         answer(L"Delete the selected cell style?", L"OK"), click(L"IDCANCEL"), expectTop(kEditing),
         expectTransactions(1), click(L"IDOK"), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(L"Beta"), cellStyles);
    EXPECT_EQ(flowOf(L"Beta"), 1);
}

TEST_F(TableStyleDialogModify, Standard_can_be_changed) {
    run({choose(kList, L"Standard"), click(kModify), choose(kDirection, L"#0"), click(L"IDOK"), click(L"IDOK")});
    EXPECT_EQ(flowOf(L"Standard"), 1);
}

TEST_F(TableStyleDialogModify, A_style_erased_by_another_road_is_not_edited) {
    run({choose(kList, L"Beta"), [&] { eraseStyle(L"Beta"); }, click(kModify), expectTop(L"IDD_TABLESTYLE_DIALOG"),
         expectTransactions(0), click(L"IDOK")});
}

TEST_F(TableStyleDialogModify, Without_a_transaction_no_dialog_comes_up) {
    kdhost::faults().noTransaction = true;
    run({click(kModify), expectTop(L"IDD_TABLESTYLE_DIALOG"), click(L"IDOK")});
}

TEST_F(TableStyleDialogModify, A_style_that_cannot_be_got_leaves_the_transaction_open) {
    std::unique_ptr<OpenObject<KdDbTableStyle>> writer;
    run({choose(kList, L"Beta"),
         [&] { writer = std::make_unique<OpenObject<KdDbTableStyle>>(style(L"Beta"), KdDb::kForWrite); },
         click(kModify), expectTop(L"IDD_TABLESTYLE_DIALOG"), expectTransactions(1), click(L"IDOK")});
    EXPECT_EQ(transactions().abortTransaction(), Kdad::eOk);
}

}  // namespace
}  // namespace kdtest
