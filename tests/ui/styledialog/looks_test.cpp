// The looks of the dialog of table styles, of the manager of cell styles, and of their menus, in both languages.

#include "kd/db/tablestyle.h"
#include "module/core/openobject.h"
#include "module/style/managercellstyledlg.h"
#include "module/style/tablestyledlg.h"
#include "tests/ui/looks/fixture.h"

namespace kdtest {
namespace {

class StyleDialogLooks : public DialogLooks {
protected:
    const wchar_t* named(const wchar_t* english, const wchar_t* chinese) const {
        return isChinese() ? chinese : english;
    }
    KdDbObjectId addStyle(const wchar_t* name, const std::vector<const wchar_t*>& cellStyles) {
        auto* style = new KdDbTableStyle;
        {
            const OpenObject<KdDbTableStyle> standard(host.database().tablestyle(), KdDb::kForRead);
            style->copyFrom(standard.get());
        }
        for (const wchar_t* cellStyle : cellStyles) style->createCellStyle(cellStyle, L"_DATA");
        style->setBackgroundColor(KdCmColor::fromRgb(40, 70, 110), L"_TITLE");
        style->setColor(KdCmColor::fromIndex(2), L"_TITLE");
        style->setBackgroundColor(KdCmColor::fromRgb(70, 70, 70), L"_HEADER");
        style->setGridLineWeight(KdDb::kLnWt050, KdDb::kHorzBottom, L"_HEADER");
        KdDbObjectId id;
        style->postTableStyleToDb(&host.database(), name, id);
        style->close();
        return id;
    }
    /// The menu that a right click on a row opens.
    void lookAtMenuOf(QListWidget& list, int row, const char* name) {
        QTimer::singleShot(0, qApp, [&] {
            QWidget* menu = QApplication::activePopupWidget();
            ASSERT_NE(menu, nullptr);
            look(*menu, name);
            QTest::keyClick(menu, Qt::Key_Escape);
        });
        const QPoint place = list.visualItemRect(list.item(row)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
        QApplication::sendEvent(list.viewport(), &event);
    }
};

INSTANTIATE_TEST_SUITE_P(Languages, StyleDialogLooks, bothLanguages(), languageName);

TEST_P(StyleDialogLooks, of_table_styles) {
    addStyle(named(L"Schedule of doors", L"门窗表"), {});
    addStyle(named(L"Parts", L"零件表"), {});
    host.database().setTablestyle(addStyle(named(L"Title block", L"标题栏"), {}));
    CVqTableStyleDlg dialog;
    dialog.SetDatabase(&host.database());
    next([&](QWidget& shown) {
        lookAndReach(shown, "tablestyle");
        lookAtMenuOf(in<QListWidget>(shown, "IDC_TABLESTYLE_STYLE_LIST"), 0, "tablestyle_menu");
        press(shown, "IDCANCEL");
    });
    EXPECT_EQ(dialog.DoModal(), 2);
}

TEST_P(StyleDialogLooks, of_cell_styles) {
    const KdDbObjectId style =
        addStyle(named(L"Parts", L"零件表"), {named(L"Totals", L"合计"), named(L"Notes", L"备注")});
    KdDbTransactionManager& transactions = *host.document().transactionManager();
    transactions.startTransaction();
    CVqTableManagerCellStyleDlg dialog;
    dialog.SetTableStyleId(style);
    next([&](QWidget& shown) {
        lookAndReach(shown, "managercellstyle_default");
        in<QListWidget>(shown, "IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST").setCurrentRow(3);
        lookAndReach(shown, "managercellstyle");
        lookAtMenuOf(in<QListWidget>(shown, "IDC_MANAGERCELLSTYLE_CELLSTYLE_LIST"), 3, "managercellstyle_menu");
        press(shown, "IDCANCEL");
    });
    EXPECT_EQ(dialog.DoModal(), 2);
    transactions.abortTransaction();
}

}  // namespace
}  // namespace kdtest
