// What scripts do to dialogs, menus and message boxes.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QMenu>
#include <QMessageBox>
#include <QTabWidget>
#include <QTemporaryDir>

#include "host/ui/automation/automation.h"
#include "kd/ui/uicreator.h"
#include "mfc/combobox.h"
#include "mfc/listctrl.h"
#include "mfc/tabctrl.h"
#include "tests/ui/base/dialog.h"

namespace automation = kdhost::automation;
using kdtest::Log;
using kdtest::onceModal;
using kdtest::RecordingDialog;

namespace {

class Automation : public ::testing::Test {
protected:
    void SetUp() override {
        combo.Attach(dialog.getWidgetsFromOrignal("IDC_COMBO"));
        for (const wchar_t* text : {L"red", L"green", L"blue"}) combo.AddString(text);
        list.Attach(dialog.getWidgetsFromOrignal("IDC_LIST"));
        for (const wchar_t* text : {L"zero", L"one", L"two"}) list.InsertItem(list.GetItemCount(), text);
        dialog.control<KdUiListWidget>("IDC_LIST").setMinimumHeight(140);
        dialog.open();
    }

    RecordingDialog dialog;
    CComboBox combo;
    CListCtrl list;
};

TEST_F(Automation, set_types_into_an_edit_and_moves_on_so_that_it_commits) {
    dialog.record("IDC_EDIT", "killFocus()", "committed");
    EXPECT_EQ(automation::set(L"IDC_EDIT", L"3'-6 1/2\" \u4e2d"), L"");
    EXPECT_EQ(automation::expect(L"IDC_EDIT", L"text", L"3'-6 1/2\" \u4e2d"), L"");
    EXPECT_EQ(dialog.take(), Log{"committed"});
    EXPECT_EQ(automation::expectFocus(L"IDC_LIST"), L"");
    EXPECT_EQ(automation::set(L"IDC_EDIT", L""), L"");
    EXPECT_EQ(automation::expect(L"IDC_EDIT", L"text", L""), L"");
}

TEST_F(Automation, set_works_on_spin_boxes_and_checks) {
    EXPECT_EQ(automation::set(L"IDC_SPIN", L"12"), L"");
    EXPECT_EQ(automation::expect(L"IDC_SPIN", L"text", L"12"), L"");
    dialog.record("IDC_CHECK", "clicked()", "clicked");
    EXPECT_EQ(automation::set(L"IDC_CHECK", L"on"), L"");
    EXPECT_EQ(automation::set(L"IDC_CHECK", L"on"), L"");
    EXPECT_EQ(dialog.take(), Log{"clicked"});
    EXPECT_EQ(automation::expect(L"IDC_CHECK", L"checked", L"on"), L"");
    EXPECT_EQ(automation::set(L"IDC_CHECK", L"off"), L"");
    EXPECT_EQ(automation::expect(L"IDC_CHECK", L"checked", L"off"), L"");
    EXPECT_NE(automation::set(L"IDC_CHECK", L"perhaps"), L"");
    EXPECT_NE(automation::set(L"IDOK", L"x"), L"");
}

TEST_F(Automation, type_stays_in_the_control) {
    EXPECT_EQ(automation::type(L"IDC_EDIT", L"ab"), L"");
    EXPECT_EQ(automation::type(L"IDC_EDIT", L"c"), L"");
    EXPECT_EQ(automation::expect(L"IDC_EDIT", L"text", L"abc"), L"");
    EXPECT_EQ(automation::expectFocus(L"IDC_EDIT"), L"");
    EXPECT_NE(automation::expectFocus(L"IDC_LIST"), L"");
}

TEST_F(Automation, focus_only_moves_the_focus) {
    EXPECT_EQ(automation::focus(L"IDC_COMBO"), L"");
    EXPECT_EQ(automation::expectFocus(L"IDC_COMBO"), L"");
    EXPECT_NE(automation::focus(L"IDC_LABEL"), L"");
}

TEST_F(Automation, select_chooses_rows_of_boxes_by_text_and_by_number_with_one_signal) {
    dialog.record("IDC_COMBO", "currentIndexChanged(int)", "changed");
    dialog.record("IDC_COMBO", "boxDropdowm()", "dropped");
    EXPECT_EQ(automation::select(L"IDC_COMBO", L"blue"), L"");
    EXPECT_EQ(combo.GetCurSel(), 2);
    EXPECT_EQ(dialog.take(), (Log{"dropped", "changed"}));
    EXPECT_EQ(automation::select(L"IDC_COMBO", L"#0"), L"");
    EXPECT_EQ(combo.GetCurSel(), 0);
    EXPECT_EQ(automation::expect(L"IDC_COMBO", L"text", L"red"), L"");
    dialog.take();
    EXPECT_NE(automation::select(L"IDC_COMBO", L"#3"), L"");
    EXPECT_NE(automation::select(L"IDC_COMBO", L"Red"), L"");
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(combo.GetCurSel(), 0);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(Automation, drop_opens_a_box_and_select_goes_on_from_there) {
    EXPECT_EQ(automation::drop(L"IDC_COMBO"), L"");
    EXPECT_TRUE(combo.GetDroppedState());
    EXPECT_EQ(automation::select(L"IDC_COMBO", L"green"), L"");
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(combo.GetCurSel(), 1);
    EXPECT_NE(automation::drop(L"IDC_EDIT"), L"");
    EXPECT_NE(automation::drop(L"IDC_PICTURE"), L"");
    auto& button = dialog.control<KdUiPushButton>("IDC_PICTURE");
    button.setButtonStyle(6);
    dialog.record("IDC_PICTURE", "clickedEventEx()", "arrow");
    EXPECT_EQ(automation::drop(L"IDC_PICTURE"), L"");
    EXPECT_EQ(dialog.take(), Log{"arrow"});
}

TEST_F(Automation, select_and_clicks_on_lists_notify_as_the_mouse_does) {
    EXPECT_EQ(automation::select(L"IDC_LIST", L"one"), L"");
    EXPECT_EQ(dialog.take(), (Log{"IDC_LIST selected 1", "IDC_LIST click 1"}));
    EXPECT_EQ(automation::expect(L"IDC_LIST", L"text", L"one"), L"");
    EXPECT_EQ(automation::expect(L"IDC_LIST", L"rows", L"3"), L"");
    EXPECT_EQ(automation::click(L"IDC_LIST", L"#2"), L"");
    EXPECT_EQ(dialog.take(), (Log{"IDC_LIST deselected 1", "IDC_LIST selected 2", "IDC_LIST click 2"}));
    EXPECT_EQ(automation::click(L"IDC_LIST", L"#2"), L"");
    EXPECT_EQ(dialog.take(), Log{"IDC_LIST click 2"});  // no double click
    EXPECT_EQ(automation::doubleClick(L"IDC_LIST", L"#2"), L"");
    const Log twice = dialog.take();
    ASSERT_FALSE(twice.empty());
    EXPECT_EQ(twice.front(), "IDC_LIST click 2");
    EXPECT_EQ(std::count(twice.begin(), twice.end(), "IDC_LIST doubleclick 2"), 1);
    EXPECT_EQ(automation::click(L"IDC_LIST", L"empty"), L"");
    EXPECT_EQ(dialog.take(), Log{"IDC_LIST click -1"});
    EXPECT_NE(automation::click(L"IDC_LIST", L"#3"), L"");
    EXPECT_NE(automation::select(L"IDC_LIST", L"four"), L"");
    EXPECT_NE(automation::select(L"IDC_EDIT", L"x"), L"");
}

TEST_F(Automation, context_is_a_right_click) {
    EXPECT_EQ(automation::context(L"IDC_LIST", L"#1"), L"");
    EXPECT_EQ(dialog.take(), (Log{"IDC_LIST selected 1", "IDC_LIST rightclick 1"}));
}

TEST_F(Automation, click_presses_buttons_and_refuses_those_that_a_person_could_not_press) {
    dialog.record("IDC_ACTION", "clicked()", "action");
    EXPECT_EQ(automation::click(L"IDC_ACTION"), L"");
    EXPECT_EQ(dialog.take(), Log{"action"});
    dialog.control<QWidget>("IDC_ACTION").setEnabled(false);
    EXPECT_EQ(automation::click(L"IDC_ACTION"), L"IDC_ACTION is disabled.");
    dialog.control<QWidget>("IDC_ACTION").hide();
    EXPECT_EQ(automation::click(L"IDC_ACTION"), L"IDC_ACTION is hidden.");
    EXPECT_EQ(automation::click(L"IDC_NONE"), L"there is no control IDC_NONE.");
    EXPECT_EQ(dialog.take(), Log{});
}

TEST_F(Automation, label_ends_the_edit_of_a_row) {
    EXPECT_EQ(automation::label(L"x"), L"no label is being edited.");
    list.EditLabel(1);
    dialog.take();
    EXPECT_EQ(automation::label(L"uno"), L"");
    EXPECT_EQ(dialog.take(), Log{"IDC_LIST end 1 uno"});
    list.EditLabel(1);
    dialog.take();
    EXPECT_EQ(automation::label(L"CANCEL"), L"");
    EXPECT_EQ(dialog.take(), Log{"IDC_LIST end 1 (given up)"});
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(Automation, key_goes_to_whatever_has_the_focus) {
    automation::focus(L"IDC_LIST");
    automation::click(L"IDC_LIST", L"#0");
    dialog.take();
    EXPECT_EQ(automation::key(L"DOWN"), L"");
    EXPECT_EQ(dialog.take(), (Log{"IDC_LIST deselected 0", "IDC_LIST selected 1", "IDC_LIST key 40"}));
    EXPECT_EQ(automation::key(L"F2"), L"");
    EXPECT_EQ(dialog.take(), Log{"IDC_LIST key 113"});
    automation::focus(L"IDC_EDIT");
    EXPECT_EQ(automation::key(L"x"), L"");
    EXPECT_EQ(automation::key(L"SHIFT+LEFT"), L"");
    EXPECT_EQ(dialog.control<QLineEdit>("IDC_EDIT").selectedText(), QStringLiteral("x"));
    EXPECT_EQ(automation::key(L"CTRL+A"), L"");
    EXPECT_EQ(automation::key(L"DELETE"), L"");
    EXPECT_EQ(automation::expect(L"IDC_EDIT", L"text", L""), L"");
    EXPECT_EQ(automation::key(L"SHIFT+TAB"), L"");
    EXPECT_EQ(automation::expectFocus(L"IDC_OTHER_EDIT"), L"");
    EXPECT_EQ(automation::key(L"F1"), L"");
    EXPECT_EQ(dialog.take(), Log{"OnHelp"});
    EXPECT_NE(automation::key(L"HYPER"), L"");
    EXPECT_NE(automation::key(L"F99"), L"");
    EXPECT_EQ(automation::key(L"ENTER"), L"");
    EXPECT_EQ(dialog.take(), Log{"OnOK"});
}

TEST_F(Automation, expect_compares_and_tells_what_is_there) {
    EXPECT_EQ(automation::expect(L"IDC_EDIT", L"text", L"x"), L"IDC_EDIT text is , not x.");
    EXPECT_EQ(automation::expect(L"IDOK", L"enabled", L"off"), L"IDOK enabled is on, not off.");
    EXPECT_EQ(automation::expect(L"IDOK", L"visible", L"on"), L"");
    EXPECT_EQ(automation::expect(L"IDC_COMBO", L"rows", L"3"), L"");
    EXPECT_EQ(automation::expect(L"BASE_ALL", L"text", L"Every control"), L"");
    EXPECT_NE(automation::expect(L"IDOK", L"colour", L"red"), L"");
    EXPECT_NE(automation::expect(L"IDOK", L"enabled", L"maybe"), L"");
    EXPECT_NE(automation::expect(L"IDC_NONE", L"text", L""), L"");
}

TEST_F(Automation, shot_writes_a_picture_of_the_top_window) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("shot.png"));
    EXPECT_EQ(automation::shot(path.toStdWString()), L"");
    EXPECT_EQ(QImage(path).size(), dialog.size());
    EXPECT_NE(automation::shot(L"/no/such/folder/shot.png"), L"");
}

TEST_F(Automation, close_ends_the_dialog_by_its_frame) {
    EXPECT_EQ(automation::close(), L"");
    EXPECT_EQ(dialog.take(), Log{"OnCancel"});
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(Automation, reaches_into_dialogs_over_dialogs_and_answers_their_message_boxes) {
    struct Asking : RecordingDialog {
        explicit Asking(CWnd* parent) : RecordingDialog("BASE_FIXED", parent) {}
        void OnOK() override { log.push_back("asked " + std::to_string(MessageBoxW(L"Sure?", L"caption", 49))); }
    };
    Asking* over = nullptr;
    dialog.connectControl("IDC_ACTION", "clicked()", [&] {
        Asking asking(&dialog);
        over = &asking;
        EXPECT_EQ(asking.DoModal(), 2);
        dialog.log = asking.take();
        over = nullptr;
    });
    Log errors;
    const auto note = [&](const std::wstring& error) {
        errors.push_back(QString::fromStdWString(error).toStdString());
    };
    onceModal([&] {
        note(automation::set(L"IDC_EDIT", L"inner"));
        EXPECT_EQ(over->control<QLineEdit>("IDC_EDIT").text(), QStringLiteral("inner"));
        note(automation::click(L"IDCANCEL"));  // the dialog below is out of reach
        onceModal([&] {
            note(automation::answer(L"YES"));
            note(automation::answer(L"MAYBE"));
            note(automation::answer(L"CANCEL"));
        });
        note(automation::click(L"IDOK"));
        onceModal([&] { note(automation::answer(L"OK")); });
        note(automation::key(L"ENTER"));
        note(automation::answer(L"OK"));
        note(automation::close());
    });
    EXPECT_EQ(automation::click(L"IDC_ACTION"), L"");
    EXPECT_EQ(dialog.take(), (Log{"init", "asked 2", "asked 1", "OnCancel", "OnDestroy"}));
    EXPECT_EQ(errors, (Log{"", "there is no control IDCANCEL.", "the message box has no button YES.",
                           "a message box is answered with OK, CANCEL, YES or NO.", "", "", "", "",
                           "no message box is open.", ""}));
    EXPECT_EQ(dialog.control<QLineEdit>("IDC_EDIT").text(), QString());
}

TEST_F(Automation, tabs_are_chosen_by_title_and_by_number) {
    RecordingDialog tabbed("BASE_TABS");
    RecordingDialog first("BASE_PAGE");
    RecordingDialog second("BASE_PAGE");
    CTabCtrl tabs;
    tabs.Attach(tabbed.getWidgetsFromOrignal("IDC_TAB"));
    tabs.AddTab(0, L"&First", 0, &first);
    tabs.AddTab(1, L"Second", 0, &second);
    onceModal([&] {
        EXPECT_EQ(automation::select(L"IDC_TAB", L"Second"), L"");
        EXPECT_EQ(tabs.GetCurSel(), 1);
        // The page that shows is meant where two hold a control of that name.
        EXPECT_EQ(automation::set(L"IDC_PAGE_EDIT", L"second"), L"");
        EXPECT_EQ(automation::select(L"IDC_TAB", L"#0"), L"");
        EXPECT_EQ(tabs.GetCurSel(), 0);
        EXPECT_EQ(automation::expect(L"IDC_TAB", L"text", L"First"), L"");
        EXPECT_NE(automation::select(L"IDC_TAB", L"Third"), L"");
        EXPECT_EQ(automation::key(L"ESC"), L"");
    });
    EXPECT_EQ(tabbed.DoModal(), 2);
    EXPECT_EQ(second.control<QLineEdit>("IDC_PAGE_EDIT").text(), QStringLiteral("second"));
    EXPECT_EQ(first.control<QLineEdit>("IDC_PAGE_EDIT").text(), QString());
    first.setParent(nullptr);
    second.setParent(nullptr);
}

class Menus : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(creator.generate(QStringLiteral("BASE_MENU")));
        menu = qobject_cast<QMenu*>(creator.widgets().first());
        ASSERT_NE(menu, nullptr);
        for (QAction* action : creator.actions()) {
            QObject::connect(action, &QAction::triggered, menu,
                             [this, action] { chosen.push_back(action->objectName().toStdString()); });
        }
        dialog.open();
    }
    /// What `act` answered while the menu was open.
    template <class Act>
    std::wstring whileOpen(Act act) {
        std::wstring answer = L"never asked";
        onceModal([&] { answer = act(); });
        QTimer::singleShot(2000, menu, [this] { menu->close(); });
        menu->exec(QPoint(20, 20));
        return answer;
    }

    RecordingDialog dialog;
    VqUICreator creator{&dialog, QStringLiteral("KdUiTests"), 3};
    QMenu* menu = nullptr;
    Log chosen;
};

TEST_F(Menus, items_are_chosen_by_object_name_and_by_text) {
    EXPECT_EQ(whileOpen([] { return automation::menu(L"IDR_SECOND"); }), L"");
    EXPECT_EQ(whileOpen([] { return automation::menu(L"\"First item\""); }), L"");
    EXPECT_EQ(whileOpen([] { return automation::menu(L"Second item"); }), L"");
    EXPECT_EQ(chosen, (Log{"IDR_SECOND", "IDR_FIRST", "IDR_SECOND"}));
}

TEST_F(Menus, items_of_sub_menus_are_reached) {
    EXPECT_EQ(whileOpen([] { return automation::menu(L"IDR_DEEP"); }), L"");
    EXPECT_EQ(chosen, Log{"IDR_DEEP"});
}

TEST_F(Menus, a_disabled_or_missing_item_is_an_error_and_leaves_the_menu_open) {
    creator.action(QStringLiteral("IDR_SECOND"))->setEnabled(false);
    EXPECT_EQ(whileOpen([this] {
                  EXPECT_EQ(automation::menu(L"IDR_NONE"), L"the menu has no item IDR_NONE.");
                  const std::wstring error = automation::menu(L"IDR_SECOND");
                  EXPECT_TRUE(menu->isVisible());
                  EXPECT_EQ(automation::menu(L"CANCEL"), L"");
                  return error;
              }),
              L"the menu's item IDR_SECOND is disabled.");
    EXPECT_EQ(chosen, Log{});
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(automation::menu(L"IDR_FIRST"), L"no menu is open.");
}

TEST_F(Menus, keys_go_to_the_open_menu) {
    EXPECT_EQ(whileOpen([] {
                  automation::key(L"DOWN");
                  return automation::key(L"ENTER");
              }),
              L"");
    EXPECT_EQ(chosen, Log{"IDR_FIRST"});
}

TEST(AutomationWithoutAWindow, tells_that_nothing_is_open) {
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(automation::topWindow(), nullptr);
    EXPECT_EQ(automation::topWindowName(), L"");
    EXPECT_NE(automation::close(), L"");
    EXPECT_NE(automation::key(L"ENTER"), L"");
    EXPECT_NE(automation::shot(L"none.png"), L"");
    EXPECT_NE(automation::answer(L"OK"), L"");
    EXPECT_NE(automation::set(L"IDC_EDIT", L"x"), L"");
}

}  // namespace
