// The dialog of table styles on the drawing of a test.
#pragma once

#include "module/style/tablestyledlg.h"
#include "tests/ui/style/fixture.h"

namespace kdtest {

class TableStyleDialogTest : public StyleDialogTest {
protected:
    void TearDown() override {
        dialog.reset();
        StyleDialogTest::TearDown();
    }

    void make() {
        dialog = std::make_unique<CVqTableStyleDlg>();
        dialog->SetDatabase(&drawing());
    }
    /// Runs a new dialog, which stays for looks at it when it is closed.
    int run(Steps steps) {
        make();
        return play([&] { return dialog->DoModal(); }, std::move(steps));
    }
    QListWidget& list() const { return listIn(*dialog, "IDC_TABLESTYLE_STYLE_LIST"); }
    Step expectRows(const Names& rows, const std::wstring& selected) const {
        return [this, rows, selected] { expectList(list(), rows, selected); };
    }
    Step expectTransactions(int count) {
        return [this, count] { EXPECT_EQ(transactions().numActiveTransactions(), count); };
    }

    /// The dialog that a style is edited in.
    inline static const std::wstring kEditing = L"IDD_TABLESTYLEEDIT_DIALOG";

    inline static const std::wstring kList = L"IDC_TABLESTYLE_STYLE_LIST";
    inline static const std::wstring kFilter = L"IDC_TABLESTYLE_LIST_COMBOBOX";
    inline static const std::wstring kSetCurrent = L"IDC_TABLESTYLE_CURSTYLE_BUTTON";
    inline static const std::wstring kNew = L"IDC_TABLESTYLE_NEWSTYLE_BUTTON";
    inline static const std::wstring kModify = L"IDC_TABLESTYLE_MODSTYLE_BUTTON";
    inline static const std::wstring kDelete = L"IDC_TABLESTYLE_DELSTYLE_BUTTON";
    inline static const std::wstring kCurrentTip = L"IDC_TABLESTYLE_CURRENT_STATIC";
    inline static const std::wstring kPreviewTip = L"IDC_TABLESTYLE_PREVIEW_STATIC";

    std::unique_ptr<CVqTableStyleDlg> dialog;
};

}  // namespace kdtest
