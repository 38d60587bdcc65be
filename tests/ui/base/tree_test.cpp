// Widget trees become the contents of dialogs, pages and menus.

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLayout>
#include <QTabWidget>

#include "kd/ui/hostdialogs.h"
#include "kd/ui/menu.h"
#include "kd/ui/uicreator.h"
#include "mfc/controls.h"
#include "mfc/tabctrl.h"
#include "tests/ui/base/dialog.h"

using kdtest::Log;
using kdtest::RecordingDialog;

namespace {

TEST(DialogTree, controls_become_members_of_the_dialog_itself) {
    RecordingDialog dialog;
    ASSERT_TRUE(dialog.built);
    EXPECT_EQ(dialog.objectName(), QStringLiteral("BASE_ALL"));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Every control"));
    EXPECT_EQ(dialog.control<QWidget>("IDC_SPIN").parentWidget(), &dialog);
    EXPECT_EQ(dialog.control<QWidget>("IDC_EDIT").parentWidget(), &dialog.control<QWidget>("IDC_GROUP"));
    ASSERT_NE(dialog.layout(), nullptr);
    EXPECT_GE(dialog.layout()->indexOf(&dialog.control<QWidget>("IDC_SPIN")), 0);
    EXPECT_EQ(dialog.findChild<QWidget*>(QStringLiteral("BASE_ALL")), nullptr);
}

TEST(DialogTree, plain_classes_in_a_tree_become_those_of_the_host) {
    const RecordingDialog dialog;
    EXPECT_NE(qobject_cast<KdUiLineEdit*>(dialog.getWidgetsFromOrignal("IDC_OTHER_EDIT")), nullptr);
    EXPECT_NE(qobject_cast<KdUiComboBox*>(dialog.getWidgetsFromOrignal("IDC_COMBO")), nullptr);
    EXPECT_NE(qobject_cast<KdUiListWidget*>(dialog.getWidgetsFromOrignal("IDC_LIST")), nullptr);
}

TEST(DialogTree, Tab_visits_the_controls_in_the_order_of_the_tree) {
    RecordingDialog dialog;
    dialog.open();
    const char* order[] = {"IDC_OTHER_EDIT", "IDC_EDIT", "IDC_LIST", "IDC_COMBO", "IDC_SPIN", "IDC_CHECK"};
    for (const char* name : order) {
        ASSERT_EQ(QApplication::focusWidget(), dialog.getWidgetsFromOrignal(name)) << name;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

TEST(DialogTree, a_label_keeps_its_buddy) {
    const RecordingDialog dialog;
    EXPECT_EQ(dialog.control<QLabel>("IDC_LABEL").buddy(), dialog.getWidgetsFromOrignal("IDC_EDIT"));
}

TEST(DialogTree, a_tree_of_rectangles_keeps_size_places_and_hidden_controls_at_the_screens_scale) {
    const auto scaled = [](int pixels) { return qRound(pixels * kdadGetDPIScale()); };
    RecordingDialog dialog("BASE_FIXED");
    ASSERT_TRUE(dialog.built);
    dialog.open();
    EXPECT_EQ(dialog.size(), QSize(scaled(240), scaled(120)));
    EXPECT_EQ(dialog.minimumSize(), dialog.maximumSize());
    EXPECT_EQ(dialog.control<QWidget>("IDC_EDIT").geometry(), QRect(scaled(10), scaled(10), scaled(100), scaled(24)));
    EXPECT_EQ(dialog.control<QWidget>("IDC_EDIT").parentWidget(), &dialog);
    EXPECT_TRUE(dialog.control<QWidget>("IDC_EDIT").isVisible());
    EXPECT_FALSE(dialog.control<QWidget>("IDC_HIDDEN").isVisible());
}

class FailingTree : public ::testing::TestWithParam<const char*> {};

TEST_P(FailingTree, leaves_the_dialog_empty_and_DoModal_gives_minus_one_at_once) {
    RecordingDialog dialog(GetParam());
    EXPECT_FALSE(dialog.built);
    EXPECT_TRUE(dialog.findChildren<QWidget*>().isEmpty());
    EXPECT_EQ(dialog.layout(), nullptr);
    EXPECT_EQ(dialog.getWidgetsFromOrignal("IDOK"), nullptr);
    EXPECT_EQ(dialog.GetDlgItem("IDOK"), nullptr);
    EXPECT_FALSE(dialog.connectControl("IDOK", "clicked()", [] {}));
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.log, Log{});
}

INSTANTIATE_TEST_SUITE_P(Trees, FailingTree, ::testing::Values("BASE_MISSING", "BASE_BROKEN", ""));

TEST(DialogTree, a_missing_resource_path_fails) {
    KdUiBaseDialog dialog;
    EXPECT_FALSE(dialog.generateUICtrls("NoSuchPath", "BASE_ALL"));
    EXPECT_EQ(dialog.DoModal(), -1);
}

TEST(DialogTree, a_second_tree_is_refused) {
    RecordingDialog dialog("BASE_FIXED");
    QWidget* edit = dialog.getWidgetsFromOrignal("IDC_EDIT");
    EXPECT_FALSE(dialog.generateUICtrls("KdUiTests", "BASE_ALL"));
    EXPECT_EQ(dialog.getWidgetsFromOrignal("IDC_EDIT"), edit);
    EXPECT_EQ(dialog.objectName(), QStringLiteral("BASE_FIXED"));
}

TEST(DialogTree, an_unknown_control_or_signal_connects_nothing_and_leaves_nothing_behind) {
    RecordingDialog dialog;
    const int children = dialog.children().size();
    EXPECT_FALSE(dialog.connectControl("IDC_NONE", "clicked()", [] {}));
    EXPECT_FALSE(dialog.connectControl("IDC_EDIT", "clicked()", [] {}));
    EXPECT_FALSE(dialog.connectNotification("IDC_NONE", "stepUp(NMHDR*, LRESULT*)", [](NMHDR*, LRESULT*) {}));
    EXPECT_FALSE(dialog.connectNotification("IDC_SPIN", "stepAside(NMHDR*, LRESULT*)", [](NMHDR*, LRESULT*) {}));
    // A signal that brings no notification.
    EXPECT_FALSE(dialog.connectNotification("IDC_EDIT", "textChanged(const QString&)", [](NMHDR*, LRESULT*) {}));
    EXPECT_EQ(dialog.children().size(), children);
    EXPECT_TRUE(dialog.connectControl("IDC_EDIT", "textChanged(const QString&)", [] {}));
    EXPECT_EQ(dialog.children().size(), children + 1);
}

TEST(DialogTree, the_base_leaves_buttons_alone_that_the_class_has_connected) {
    struct OwnButtons : RecordingDialog {
        OwnButtons() : RecordingDialog("BASE_MISSING") {
            generateUICtrls("KdUiTests", "BASE_ALL");
            connectControl("IDOK", "clicked()", [this] { log.push_back("own OK"); });
            KdUiBaseDialog::bindSingals();
        }
    } dialog;
    QTest::mouseClick(&dialog.control<QPushButton>("IDOK"), Qt::LeftButton);
    EXPECT_EQ(dialog.take(), Log{"own OK"});
    QTest::mouseClick(&dialog.control<QPushButton>("IDCANCEL"), Qt::LeftButton);
    EXPECT_EQ(dialog.take(), Log{"OnCancel"});
}

TEST(DialogTree, GetDlgItem_wraps_each_control_once) {
    const RecordingDialog dialog;
    CWnd* edit = dialog.GetDlgItem("IDC_EDIT");
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->widget(), dialog.getWidgetsFromOrignal("IDC_EDIT"));
    EXPECT_EQ(dialog.GetDlgItem("IDC_EDIT"), edit);
    EXPECT_EQ(dialog.GetDlgItem("IDC_NONE"), nullptr);
}

TEST(Pages, get_OnInitDialog_once_when_they_are_added_and_know_their_dialog) {
    RecordingDialog dialog("BASE_TABS");
    RecordingDialog first("BASE_PAGE");
    RecordingDialog second("BASE_PAGE");
    CTabCtrl tabs;
    tabs.Attach(dialog.getWidgetsFromOrignal("IDC_TAB"));
    EXPECT_TRUE(tabs.AddTab(0, L"First", 108, &first));
    EXPECT_TRUE(tabs.AddTab(1, L"Second", 109, &second));
    EXPECT_EQ(first.take(), Log{"init"});
    EXPECT_EQ(first.GetParent(), static_cast<CWnd*>(&dialog));
    EXPECT_EQ(tabs.GetItemCount(), 2);
    EXPECT_EQ(tabs.GetCurSel(), 0);
    dialog.open();
    EXPECT_TRUE(first.isVisible());
    EXPECT_FALSE(second.isVisible());
    EXPECT_EQ(tabs.SetCurSel(1), 0);
    EXPECT_FALSE(first.isVisible());
    EXPECT_TRUE(second.isVisible());
    CRect rect;
    EXPECT_TRUE(tabs.GetItemRect(1, rect));
    EXPECT_GT(rect.Width(), 0);
    EXPECT_FALSE(tabs.GetItemRect(2, rect));
    EXPECT_EQ(first.take(), Log{});
    // The pages end before the tabs do, as members of their dialog would.
    first.setParent(nullptr);
    second.setParent(nullptr);
}

TEST(Pages, without_tabs_or_page_nothing_is_added) {
    RecordingDialog page("BASE_PAGE");
    CTabCtrl none;
    EXPECT_FALSE(none.AddTab(0, L"Page", 1, &page));
    EXPECT_EQ(none.GetItemCount(), 0);
    EXPECT_EQ(none.GetCurSel(), -1);
    EXPECT_EQ(none.SetCurSel(0), -1);
    EXPECT_EQ(page.take(), Log{});
    const RecordingDialog dialog("BASE_TABS");
    none.Attach(dialog.getWidgetsFromOrignal("IDC_TAB"));
    EXPECT_FALSE(none.AddTab(0, L"Page", 1, nullptr));
}

TEST(Pages, leave_Enter_Esc_and_F1_to_their_dialog) {
    RecordingDialog dialog("BASE_TABS");
    RecordingDialog page("BASE_PAGE");
    CTabCtrl tabs;
    tabs.Attach(dialog.getWidgetsFromOrignal("IDC_TAB"));
    tabs.AddTab(0, L"Page", 0, &page);
    dialog.open();
    page.take();
    QWidget* edit = page.getWidgetsFromOrignal("IDC_PAGE_EDIT");
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_F1);
    EXPECT_EQ(dialog.take(), Log{"OnHelp"});
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(dialog.take(), Log{"OnOK"});
    dialog.open();
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_EQ(dialog.take(), Log{"OnCancel"});
    EXPECT_EQ(page.take(), Log{});
    page.setParent(nullptr);
}

TEST(UICreator, a_menu_tree_gives_the_menu_first_and_its_named_actions) {
    QWidget parent;
    VqUICreator creator(&parent, QStringLiteral("KdUiTests"), 3);
    ASSERT_TRUE(creator.generate(QStringLiteral("BASE_MENU")));
    auto* menu = qobject_cast<KdUiMenu*>(creator.widgets().first());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 4);
    EXPECT_EQ(menu->actions()[0]->objectName(), QStringLiteral("IDR_FIRST"));
    EXPECT_TRUE(menu->actions()[1]->isSeparator());
    ASSERT_NE(menu->actions()[3]->menu(), nullptr);
    EXPECT_EQ(menu->actions()[3]->menu()->objectName(), QStringLiteral("IDR_SUB"));
    QStringList names;
    for (const QAction* action : creator.actions()) names << action->objectName();
    EXPECT_EQ(names.size(), 3);
    EXPECT_TRUE(names.contains(QStringLiteral("IDR_DEEP")));
    EXPECT_NE(creator.action(QStringLiteral("IDR_SECOND")), nullptr);
    EXPECT_EQ(creator.action(QStringLiteral("IDR_NONE")), nullptr);
    creator.release();
    EXPECT_TRUE(creator.widgets().isEmpty());
    EXPECT_TRUE(creator.actions().isEmpty());
    EXPECT_TRUE(parent.children().isEmpty());
}

TEST(UICreator, deleted_widgets_drop_out_of_the_lists) {
    QWidget parent;
    VqUICreator creator(&parent, QStringLiteral("KdUiTests"), 3);
    ASSERT_TRUE(creator.generate(QStringLiteral("BASE_MENU")));
    delete creator.widgets().first();
    EXPECT_TRUE(creator.widgets().isEmpty());
    EXPECT_EQ(creator.widget(QStringLiteral("IDR_SUB")), nullptr);
}

TEST(UICreator, a_missing_or_broken_tree_builds_nothing) {
    QWidget parent;
    VqUICreator creator(&parent, QStringLiteral("KdUiTests"), 3);
    EXPECT_FALSE(creator.generate(QStringLiteral("BASE_MISSING")));
    EXPECT_FALSE(creator.generate(QStringLiteral("BASE_BROKEN")));
    EXPECT_TRUE(creator.widgets().isEmpty());
    EXPECT_TRUE(parent.children().isEmpty());
}

}  // namespace
