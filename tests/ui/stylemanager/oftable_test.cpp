// The management of the cell styles of a table's style: one step of undo, in a transaction of its own.

#include "host/db/undo.h"
#include "host/rx/faults.h"
#include "kd/db/table.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "tests/support/leakguard.h"
#include "tests/ui/style/fixture.h"

namespace kdtest {
namespace {

const std::wstring kList = L"IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST";
const std::wstring kDelete = L"IDC_MANAGERCELLSTYLE_DELETE_BUTTON";
const std::wstring kQuestion = L"Delete the selected cell style?";

class ManageCellStyles : public StyleDialogTest {
protected:
    void SetUp() override {
        StyleDialogTest::SetUp();
        TvxTable.m_resourceInstance = resources().handle();
        addStyle(L"Walls", {L"Notes", L"Remarks"});
        table = addTable(L"Walls", L"Notes");
    }
    void TearDown() override {
        TvxTable.m_resourceInstance = nullptr;
        StyleDialogTest::TearDown();
    }
    int run(Steps steps) {
        return play([&] { return CVqTableCommon::ManageCellStyles(table); }, std::move(steps));
    }
    Names undoSteps() { return kdhost::undoHistory(drawing())->undoSteps(); }

    KdDbObjectId table;
    const Names all = {L"_TITLE", L"_HEADER", L"_DATA", L"Notes", L"Remarks"};
};

TEST_F(ManageCellStyles, OK_is_one_step_of_undo) {
    EXPECT_EQ(run({choose(kList, L"Notes"), key(L"F2"), label(L"Doors"), choose(kList, L"Remarks"), key(L"F2"),
                   label(L"Windows"), click(L"IDOK")}),
              1);
    EXPECT_EQ(cellStyleNames(L"Walls"), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Doors", L"Windows"}));
    EXPECT_STREQ(OpenObject<KdDbTable>(table, KdDb::kForRead)->cellStyle(2, 1), L"Doors");
    ASSERT_EQ(undoSteps().back(), L"ManCellStyle");
    EXPECT_EQ(kdhost::undoHistory(drawing())->undoTitle(), L"Manage cell styles");
    EXPECT_EQ(kdhost::undoHistory(drawing())->undo(), Kdad::eOk);
    EXPECT_EQ(cellStyleNames(L"Walls"), all);
    EXPECT_STREQ(OpenObject<KdDbTable>(table, KdDb::kForRead)->cellStyle(2, 1), L"Notes");
}

TEST_F(ManageCellStyles, Cancel_takes_everything_back_and_is_no_step) {
    const Names before = undoSteps();
    EXPECT_EQ(run({choose(kList, L"Notes"), key(L"F2"), label(L"Doors"), click(L"IDC_MANAGERCELLSTYLE_NEW_BUTTON"),
                   click(L"IDOK"), click(L"IDCANCEL")}),
              1);
    EXPECT_EQ(cellStyleNames(L"Walls"), all);
    EXPECT_STREQ(OpenObject<KdDbTable>(table, KdDb::kForRead)->cellStyle(2, 1), L"Notes");
    EXPECT_EQ(undoSteps(), before);
    EXPECT_EQ(transactions().numActiveTransactions(), 0);
}

TEST_F(ManageCellStyles, What_only_the_table_itself_uses_can_be_deleted) {
    // The table is open for write, so that the search for uses passes over it.
    run({choose(kList, L"Notes"), expect(kDelete, L"enabled", L"yes"), click(kDelete), answer(kQuestion, L"OK"),
         click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(L"Walls"), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Remarks"}));
}

TEST_F(ManageCellStyles, What_another_table_of_the_style_uses_cannot_be_deleted) {
    addTable(L"Walls", L"Notes");
    run({choose(kList, L"Notes"), expect(kDelete, L"enabled", L"no"), click(L"IDOK")});
}

TEST_F(ManageCellStyles, Without_the_main_application_service_nothing_happens) {
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(run({}), 0);
}

TEST_F(ManageCellStyles, A_table_that_cannot_be_opened_shows_no_dialog) {
    const OpenObject<KdDbTable> reader(table, KdDb::kForRead);
    EXPECT_EQ(run({}), 1);
    table = KdDbObjectId::kNull;
    EXPECT_EQ(run({}), 1);
    EXPECT_EQ(transactions().numActiveTransactions(), 0);
}

TEST_F(ManageCellStyles, A_style_that_cannot_be_had_for_write_leaves_the_transaction_open) {
    const OpenObject<KdDbTableStyle> reader(style(L"Walls"), KdDb::kForRead);
    // The host ends it with the mark.
    expectDisciplineBreach("a transaction was left open in ManCellStyle");
    EXPECT_EQ(run({}), 1);
}

TEST_F(ManageCellStyles, Without_a_transaction_no_dialog_comes_up) {
    kdhost::faults().noTransaction = true;
    EXPECT_EQ(run({}), 1);
}

}  // namespace
}  // namespace kdtest
