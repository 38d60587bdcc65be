// The looks of the style edit dialog with each of its pages, in both languages.

#include "host/ui/linetypes.h"
#include "tests/ui/looks/fixture.h"
#include "tests/ui/styleedit/fixture.h"

namespace kdtest {
namespace {

class StyleEditDialogLooks : public DialogLooks {};

INSTANTIATE_TEST_SUITE_P(Languages, StyleEditDialogLooks, bothLanguages(), languageName);

TEST_P(StyleEditDialogLooks, of_each_page) {
    CVqTableStyleEditDlg::m_nComboBoxIndex = -1;
    kdhost::loadLinetype(host.database(), kdhost::standardLinetypes().front());
    {
        const OpenObject<KdDbTableStyle> style(host.database().tablestyle(), KdDb::kForWrite);
        style->createCellStyle(isChinese() ? L"总计" : L"Totals", L"_HEADER");
        style->setBackgroundColor(KdCmColor::fromIndex(4), L"_HEADER");
        style->setGridLineStyle(KdDb::kGridLineStyleDouble, KdDb::kHorzBottom, L"_HEADER");
    }
    KdDbTransactionManager& transactions = *host.document().transactionManager();
    transactions.startTransaction();
    CVqTableStyleEditDlg dialog(nullptr, 1);
    dialog.SetTableStyleName(isChinese() ? L"门窗表" : L"Schedule of Doors");
    dialog.SetTableStyleId(host.database().tablestyle());
    runModal(dialog, [&] {
        auto& tabs = in<QTabWidget>(dialog, "IDC_TABLESTYLEEDIT_STYLE_TABLE");
        const char* const names[] = {"tablestyleedit_general", "tablestyleedit_text", "tablestyleedit_borders"};
        for (int page = 0; page < 3; ++page) {
            tabs.setCurrentIndex(page);
            lookAndReach(dialog, names[page]);
        }
        for (const char* name : {"IDC_CELLSTYLEBORDER_ALLBORDER_BUTTON", "IDC_TABLESTYLEEDIT_CREATE_BUTTON"}) {
            const int scale = static_cast<int>(kdadGetDPIScale());
            EXPECT_EQ(in<QPushButton>(dialog, name).iconSize(), QSize(16, 16) * scale) << name;
        }
        press(dialog, "IDCANCEL");
    });
    transactions.abortTransaction();
    CVqTableStyleEditDlg::m_nComboBoxIndex = -1;
}

}  // namespace
}  // namespace kdtest
