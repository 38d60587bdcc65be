// What tests of the style edit dialog share: a drawing whose current table style is edited in a real transaction, by
// real widgets, as the dialog's callers do it.
#pragma once

#include <QTabBar>
#include <QTabWidget>
#include <nlohmann/json.hpp>
#include <sstream>

#include "host/app/dump/dump.h"
#include "host/db/access.h"
#include "host/rx/faults.h"
#include "host/ui/automation/automation.h"
#include "host/ui/recentcolors.h"
#include "kd/db/database.h"
#include "kd/db/tablestyle.h"
#include "kd/db/transaction.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/transactions.h"
#include "module/style/tablestyleeditdlg.h"
#include "tests/support/resourcemodule.h"
#include "tests/ui/hostdialogs/fixture.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {

inline constexpr const char* kCellStyleBox = "IDC_TABLESTYLEEDIT_CELLSTYLE_COMBOBOX";
inline constexpr const char* kDirectionBox = "IDC_TABLESTYLEEDIT_DIRECTION_COMBOBOX";

enum StylePage : int { GeneralPage, TextPage, BorderPage };

class StyleEditing : public HostDialogTest {
protected:
    StyleEditing() { forgetOpenings(); }
    ~StyleEditing() override { forgetOpenings(); }

    /// As when the module has just been loaded.
    static void forgetOpenings() {
        CVqTableStyleEditDlg::m_nPageIndex = -1;
        CVqTableStyleEditDlg::m_nComboBoxIndex = -1;
        kdhost::forgetRecentColors();
    }

    KdDbTransactionManager& transactions() { return *host.document().transactionManager(); }
    KdDbObjectId styleId() { return host.database().tablestyle(); }
    /// The style as it stands, whoever holds it open.
    const KdDbTableStyle& style() { return *kdhost::peek<KdDbTableStyle>(styleId()); }
    /// Changes the style outside of every transaction.
    void change(const std::function<void(KdDbTableStyle&)>& act) {
        const OpenObject<KdDbTableStyle> open(styleId(), KdDb::kForWrite);
        ASSERT_TRUE(open);
        act(*open);
    }
    void addCellStyle(const wchar_t* name) {
        change([&](KdDbTableStyle& open) { EXPECT_EQ(open.createCellStyle(name, L"_DATA"), Kdad::eOk); });
    }
    /// All that the drawing holds, whoever holds it open.
    nlohmann::json dump() {
        std::stringstream out;
        kdhost::writeDump(out, host.document());
        nlohmann::json all = nlohmann::json::parse(out.str());
        all.erase("open");
        return all;
    }

    using Edit = std::function<void(CVqTableStyleEditDlg&)>;
    /// Runs the dialog on the style and `act` in it, within the transaction that is open.
    int run(const Edit& act, int modify = 1) {
        CVqTableStyleEditDlg dialog(nullptr, modify);
        dialog.SetTableStyleName(L"Standard");
        dialog.SetTableStyleId(styleId());
        return runModal(dialog, [&] { act(dialog); });
    }
    /// Runs the dialog in a transaction of its own, which ends after OK and is aborted otherwise.
    int edit(const Edit& act, int modify = 1) {
        EXPECT_NE(transactions().startTransaction(), nullptr);
        const int result = run(act, modify);
        EXPECT_EQ(result == 1 ? transactions().endTransaction() : transactions().abortTransaction(), Kdad::eOk);
        return result;
    }
    /// The same; whatever `act` leaves open is closed by OK.
    int editAndOk(const Edit& act) {
        return edit([&](CVqTableStyleEditDlg& dialog) {
            act(dialog);
            ok(dialog);
        });
    }
    static void ok(QWidget& dialog) { press(dialog, "IDOK"); }
    static void cancel(QWidget& dialog) { press(dialog, "IDCANCEL"); }

    static void showPage(QWidget& dialog, StylePage page) {
        auto& tabs = in<QTabWidget>(dialog, "IDC_TABLESTYLEEDIT_STYLE_TABLE");
        QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, Qt::NoModifier, tabs.tabBar()->tabRect(page).center());
        ASSERT_EQ(tabs.currentIndex(), page);
    }
    static QComboBox& box(QWidget& dialog, const char* name) { return in<QComboBox>(dialog, name); }
    static std::vector<std::string> rows(QWidget& dialog, const char* name = kCellStyleBox) {
        std::vector<std::string> texts;
        const QComboBox& listed = box(dialog, name);
        for (int row = 0; row < listed.count(); ++row) texts.push_back(listed.itemText(row).toStdString());
        return texts;
    }
    static std::string shown(QWidget& dialog, const char* name = kCellStyleBox) {
        return box(dialog, name).currentText().toStdString();
    }
    static std::string text(QWidget& dialog, const char* name) {
        return in<QLineEdit>(dialog, name).text().toStdString();
    }
    /// The dialog has the keys again, after another one has closed.
    static void backIn(QWidget& dialog) {
        QApplication::setActiveWindow(&dialog);
        QApplication::processEvents();
    }
    /// Chooses a row as a user does, by the box's list.
    static void choose(const char* name, int row) {
        EXPECT_EQ(kdhost::automation::select(widen(name), L"#" + std::to_wstring(row)), L"");
    }
    static void choose(const char* name, const char* text) {
        EXPECT_EQ(kdhost::automation::select(widen(name), QString::fromUtf8(text).toStdWString()), L"");
    }
    /// Types into an edit and leaves it by Tab.
    static void enter(QWidget& dialog, const char* name, const char* text) {
        retype(in<QLineEdit>(dialog, name), QString::fromUtf8(text));
        pressKey(Qt::Key_Tab);
    }
    static std::wstring widen(const char* name) { return QString::fromUtf8(name).toStdWString(); }

private:
    ResourceModule m_resources;
};

}  // namespace kdtest
