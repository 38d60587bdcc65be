// The manager of cell styles in a transaction, as its callers run it.
#pragma once

#include "module/style/managercellstyledlg.h"
#include "tests/ui/style/fixture.h"

namespace kdtest {

class CellStyleManagerTest : public StyleDialogTest {
protected:
    void SetUp() override {
        StyleDialogTest::SetUp();
        addStyle(kStyle, {L"Notes", L"Remarks"});
        addStyle(L"Other", {L"Notes"});
    }

    /// Runs the manager on the style, and keeps or takes back what it did, as it says.
    int run(Steps steps) {
        transactions().startTransaction();
        CVqTableManagerCellStyleDlg opened;
        opened.SetTableStyleId(style(kStyle));
        opened.SetTableStyleName(kStyle);
        dialog = &opened;
        const int result = play([&] { return opened.DoModal(); }, std::move(steps));
        dialog = nullptr;
        EXPECT_EQ(result == 1 ? transactions().endTransaction() : transactions().abortTransaction(), Kdad::eOk);
        return result;
    }
    QListWidget& list() const { return listIn(*dialog, "IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST"); }
    Step expectRows(const Names& rows, const std::wstring& selected) {
        return [this, rows, selected] { expectList(list(), rows, selected); };
    }
    static Step expectButtons(bool rename, bool erase) {
        return [=] {
            expect(L"IDC_MANAGERCELLSTYLE_RENAME_BUTTON", L"enabled", rename ? L"yes" : L"no")();
            expect(L"IDC_MANAGERCELLSTYLE_DELETE_BUTTON", L"enabled", erase ? L"yes" : L"no")();
        };
    }
    static Step choose(const std::wstring& row) { return kdtest::choose(kList, row); }

    inline static const std::wstring kStyle = L"Walls";
    inline static const std::wstring kList = L"IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST";
    inline static const std::wstring kNew = L"IDC_MANAGERCELLSTYLE_NEW_BUTTON";
    inline static const std::wstring kRename = L"IDC_MANAGERCELLSTYLE_RENAME_BUTTON";
    inline static const std::wstring kDelete = L"IDC_MANAGERCELLSTYLE_DELETE_BUTTON";
    inline static const std::wstring kQuestion = L"Delete the selected cell style?";

    /// As the list shows them, and as the style has them.
    const Names all = {L"Title", L"Header", L"Data", L"Notes", L"Remarks"};
    const Names allInternal = {L"_TITLE", L"_HEADER", L"_DATA", L"Notes", L"Remarks"};

    CVqTableManagerCellStyleDlg* dialog = nullptr;  ///< while it is open
};

}  // namespace kdtest
