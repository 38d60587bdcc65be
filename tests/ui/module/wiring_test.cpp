// The wiring of dialogs as tables: every signal and notification by real events, and what connects nothing.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QTest>
#include <QTreeWidget>
#include <memory>

#include "kd/ui/widgets.h"
#include "module/controls/wiring.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {
namespace {

/// A tree with one control of each class.
QByteArray allControls() {
    QByteArray controls;
    const auto add = [&controls](const char* widgetClass, const char* name, const char* inner = "") {
        controls += QByteArray("<item><widget class=\"") + widgetClass + "\" name=\"" + name + "\">" + inner +
                    "</widget></item>\n";
    };
    const char* rows =
        "<item><property name=\"text\"><string>a</string></property></item>"
        "<item><property name=\"text\"><string>b</string></property></item>";
    add("QPushButton", "IDC_BUTTON");
    add("QCheckBox", "IDC_CHECK");
    add("QComboBox", "IDC_COMBO", rows);
    add("QListWidget", "IDC_LIST", rows);
    add("QLineEdit", "IDC_EDIT");
    add("KdUiDoubleSpinBox", "IDC_SPIN");
    add("KdUiTreeWidget", "IDC_TREE");
    add("KdUiSlider", "IDC_SLIDER");
    add("KdUiTabBar", "IDC_TABS");
    add("QLabel", "IDC_LABEL");
    return "<ui version=\"4.0\"><class>IDD_WIRING_DIALOG</class>"
           "<widget class=\"QDialog\" name=\"IDD_WIRING_DIALOG\"><layout class=\"QVBoxLayout\">" +
           controls + "</layout></widget></ui>";
}

class WiredDialog : public KdUiBaseDialog {
public:
    using Self = WiredDialog;

    WiredDialog() { built = buildTree(*this, "IDD_WIRING_DIALOG"); }

    void bindSingals() override { ++bindings; }
    void OnListNotify(const char* control, NMHDR* header, LRESULT* result) override {
        static constexpr ListNotificationWire<Self> kListNotifications[] = {
            {"IDC_LIST", NM_CLICK, &Self::OnClick},
            {"IDC_LIST", NM_DBLCLK, &Self::OnDoubleClick},
            {"IDC_LIST", LVN_KEYDOWN, &Self::OnKey},
            {"IDC_LIST", LVN_BEGINLABELEDIT, &Self::OnBeginLabel},
            {"IDC_LIST", LVN_ENDLABELEDIT, &Self::OnEndLabel},
            {"IDC_OTHER_LIST", NM_RCLICK, &Self::OnKey},
        };
        dispatched = dispatchListNotification(*this, kListNotifications, control, header, result);
    }

    void count() { ++counted; }
    void note(NMHDR* header, LRESULT*) {
        codes.push_back(header->code);
        if (header->code == UDN_DELTAPOS) steps.push_back(noticeOf<NMUPDOWN>(header).iDelta);
    }
    void noteItem(QListWidgetItem* item) { items.push_back(item->text().toStdString()); }

    void OnClick(NMHDR* header, LRESULT*) { log.push_back("click " + row(header)); }
    void OnDoubleClick(NMHDR* header, LRESULT*) { log.push_back("double " + row(header)); }
    void OnKey(NMHDR* header, LRESULT*) { log.push_back("key " + std::to_string(noticeOf<NMLVKEYDOWN>(header).wVKey)); }
    void OnBeginLabel(NMHDR* header, LRESULT* result) {
        *result = refuseLabels ? 1 : 0;
        log.push_back("begin " + std::to_string(noticeOf<NMLVDISPINFO>(header).iItem));
    }
    void OnEndLabel(NMHDR* header, LRESULT* result) {
        *result = 1;
        const wchar_t* text = noticeOf<NMLVDISPINFO>(header).pszText;
        log.push_back("end " + (text == nullptr ? "given up" : QString::fromWCharArray(text).toStdString()));
    }

    template <class T>
    T& control(const char* name) {
        return *qobject_cast<T*>(getWidgetsFromOrignal(name));
    }
    bool connects(const char* name, ControlSignal signal) {
        const ControlWire<Self> wires[] = {{name, signal, &Self::count}};
        return connectControls(*this, wires) == 1;
    }
    bool connects(const char* name, NotifyCode notification, NotificationHandler<Self> handler) {
        const NotificationWire<Self> wires[] = {{name, notification, handler}};
        return connectNotifications(*this, wires) == 1;
    }

    bool built = false;
    int bindings = 0;
    int counted = 0;
    bool refuseLabels = false;
    bool dispatched = false;
    std::vector<int> codes;
    std::vector<int> steps;
    std::vector<std::string> items;
    std::vector<std::string> log;

private:
    static std::string row(NMHDR* header) { return std::to_string(noticeOf<NMLISTVIEW>(header).iItem); }
};

using Self = WiredDialog;

/// Types a text into the label that is being edited, and ends the edit.
void endLabel(const QAbstractItemView& view, const QString& text) {
    auto* editor = view.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText(text);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents();  // views commit from their event loop
}

class Wiring : public ModuleResources {
protected:
    void SetUp() override {
        ModuleResources::SetUp();
        m_tree = std::make_unique<TestResources>(
            std::vector<std::pair<QString, QByteArray>>{{QStringLiteral("IDD_WIRING_DIALOG.ui"), allControls()}});
        m_dialog = std::make_unique<WiredDialog>();
        ASSERT_TRUE(m_dialog->built);
    }
    void TearDown() override {
        m_dialog.reset();
        m_tree.reset();
        ModuleResources::TearDown();
    }
    void open() {
        m_dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
    }
    WiredDialog& dialog() { return *m_dialog; }

    /// Connects the signal of a control, acts on the control and tells how often the handler was called.
    int calls(const char* name, ControlSignal signal, const std::function<void(QWidget&)>& act) {
        if (!dialog().connects(name, signal)) return -1;
        QWidget* widget = dialog().getWidgetsFromOrignal(name);
        widget->setFocus();
        const int before = dialog().counted;
        act(*widget);
        return dialog().counted - before;
    }

private:
    std::unique_ptr<TestResources> m_tree;
    std::unique_ptr<WiredDialog> m_dialog;
};

TEST_F(Wiring, A_tree_that_is_built_binds_the_class_and_one_that_is_missing_does_not) {
    EXPECT_EQ(dialog().bindings, 1);

    class Missing : public KdUiBaseDialog {
    public:
        Missing() { built = buildTree(*this, "IDD_MISSING_DIALOG"); }
        void bindSingals() override { bound = true; }
        bool built = true;
        bool bound = false;
    };
    const Missing missing;
    EXPECT_FALSE(missing.built);
    EXPECT_FALSE(missing.bound);
}

TEST_F(Wiring, Each_kind_of_control_reaches_its_handler) {
    open();
    const auto key = [](Qt::Key pressed) { return [pressed](QWidget& widget) { QTest::keyClick(&widget, pressed); }; };
    EXPECT_EQ(calls("IDC_BUTTON", ControlSignal::Clicked, key(Qt::Key_Space)), 1);
    EXPECT_EQ(calls("IDC_CHECK", ControlSignal::Clicked, key(Qt::Key_Space)), 1);
    EXPECT_EQ(calls("IDC_COMBO", ControlSignal::SelectionChange, key(Qt::Key_Down)), 1);
    EXPECT_EQ(calls("IDC_LIST", ControlSignal::SelectionChange, key(Qt::Key_Down)), 1);
    EXPECT_EQ(calls("IDC_EDIT", ControlSignal::TextChanged, key(Qt::Key_A)), 1);
    EXPECT_EQ(calls("IDC_EDIT", ControlSignal::KillFocus, key(Qt::Key_Tab)), 1);
    EXPECT_EQ(calls("IDC_SPIN", ControlSignal::KillFocus, key(Qt::Key_Tab)), 1);
    EXPECT_EQ(calls("IDC_COMBO", ControlSignal::BoxDropDown, key(Qt::Key_F4)), 1);
    dialog().control<QComboBox>("IDC_COMBO").hidePopup();
}

TEST_F(Wiring, A_control_that_lacks_the_signal_or_is_missing_connects_nothing) {
    EXPECT_FALSE(dialog().connects("IDC_MISSING", ControlSignal::Clicked));
    EXPECT_FALSE(dialog().connects("IDC_LABEL", ControlSignal::Clicked));
    EXPECT_FALSE(dialog().connects("IDC_EDIT", ControlSignal::SelectionChange));
    EXPECT_FALSE(dialog().connects("IDC_BUTTON", ControlSignal::KillFocus));
    EXPECT_FALSE(dialog().connects("IDC_BUTTON", ControlSignal::TextChanged));
    EXPECT_FALSE(dialog().connects("IDC_LIST", ControlSignal::BoxDropDown));
    EXPECT_FALSE(dialog().connects("IDC_MISSING", NM_RCLICK, &Self::note));
}

TEST_F(Wiring, Steps_of_a_spin_box_come_from_two_signals) {
    open();
    ASSERT_TRUE(dialog().connects("IDC_SPIN", UDN_DELTAPOS, &Self::note));
    auto& spin = dialog().control<QWidget>("IDC_SPIN");
    spin.setFocus();
    QTest::keyClick(&spin, Qt::Key_Up);
    QTest::keyClick(&spin, Qt::Key_Down);
    EXPECT_EQ(dialog().codes, (std::vector<int>{UDN_DELTAPOS, UDN_DELTAPOS}));
    EXPECT_EQ(dialog().steps, (std::vector<int>{-1, 1}));
}

TEST_F(Wiring, The_end_of_a_list_label_is_carried_by_the_mouse_entering_a_row) {
    open();
    ASSERT_TRUE(dialog().connects("IDC_LIST", LVN_ENDLABELEDIT, &Self::noteItem));
    auto& list = dialog().control<QListWidget>("IDC_LIST");
    list.setMouseTracking(true);
    // Sent to the list itself: the pointer may stand there already, and would then tell nothing.
    QMouseEvent move(QEvent::MouseMove, list.visualItemRect(list.item(1)).center(), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(list.viewport(), &move);
    EXPECT_EQ(dialog().items, std::vector<std::string>{"b"});
}

TEST_F(Wiring, Trees_tell_the_end_of_a_label_and_a_new_selection) {
    auto& tree = dialog().control<QTreeWidget>("IDC_TREE");
    auto* item = new QTreeWidgetItem(&tree, {QStringLiteral("old")});
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    open();
    ASSERT_TRUE(dialog().connects("IDC_TREE", TVN_ENDLABELEDIT, &Self::note));
    ASSERT_TRUE(dialog().connects("IDC_TREE", TVN_SELCHANGED, &Self::count));
    tree.setFocus();
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, tree.visualItemRect(item).center());
    EXPECT_EQ(dialog().counted, 1);
    tree.editItem(item);
    endLabel(tree, QStringLiteral("new"));
    EXPECT_EQ(dialog().codes, std::vector<int>{TVN_ENDLABELEDIT});
}

TEST_F(Wiring, Sliders_tabs_and_lists_tell_their_changes) {
    auto& tabs = dialog().control<QTabBar>("IDC_TABS");
    tabs.addTab(QStringLiteral("one"));
    tabs.addTab(QStringLiteral("two"));
    open();
    ASSERT_TRUE(dialog().connects("IDC_SLIDER", NM_CUSTOMDRAW, &Self::note));
    ASSERT_TRUE(dialog().connects("IDC_TABS", TCN_SELCHANGE, &Self::note));
    ASSERT_TRUE(dialog().connects("IDC_LIST", LVN_ITEMCHANGED, &Self::note));
    ASSERT_TRUE(dialog().connects("IDC_LIST", NM_RCLICK, &Self::note));

    QTest::keyClick(&dialog().control<QWidget>("IDC_SLIDER"), Qt::Key_Up);
    QTest::keyClick(&tabs, Qt::Key_Right);
    auto& list = dialog().control<QListWidget>("IDC_LIST");
    QTest::keyClick(&list, Qt::Key_Down);
    QContextMenuEvent context(QContextMenuEvent::Mouse, list.visualItemRect(list.item(0)).center());
    QApplication::sendEvent(list.viewport(), &context);
    EXPECT_EQ(dialog().codes, (std::vector<int>{NM_CUSTOMDRAW, TCN_SELCHANGE, LVN_ITEMCHANGED, NM_RCLICK}));
}

TEST_F(Wiring, A_notification_that_no_signal_carries_connects_nothing) {
    for (const NotifyCode code : {NM_CLICK, NM_DBLCLK, LVN_KEYDOWN, LVN_BEGINLABELEDIT}) {
        EXPECT_FALSE(dialog().connects("IDC_LIST", code, &Self::note)) << code;
    }
}

TEST_F(Wiring, A_control_of_another_class_connects_nothing) {
    EXPECT_FALSE(dialog().connects("IDC_EDIT", UDN_DELTAPOS, &Self::note));
    EXPECT_FALSE(dialog().connects("IDC_TREE", LVN_ENDLABELEDIT, &Self::noteItem));
    EXPECT_FALSE(dialog().connects("IDC_LIST", TVN_ENDLABELEDIT, &Self::note));
    EXPECT_FALSE(dialog().connects("IDC_LIST", TVN_SELCHANGED, &Self::count));
    EXPECT_FALSE(dialog().connects("IDC_SPIN", NM_CUSTOMDRAW, &Self::note));
    EXPECT_FALSE(dialog().connects("IDC_TREE", LVN_ITEMCHANGED, &Self::note));
    EXPECT_FALSE(dialog().connects("IDC_LIST", TCN_SELCHANGE, &Self::note));
    EXPECT_FALSE(dialog().connects("IDC_COMBO", NM_RCLICK, &Self::note));
}

TEST_F(Wiring, A_handler_of_another_shape_connects_nothing) {
    EXPECT_FALSE(dialog().connects("IDC_SPIN", UDN_DELTAPOS, &Self::count));
    EXPECT_FALSE(dialog().connects("IDC_LIST", LVN_ENDLABELEDIT, &Self::note));
    EXPECT_FALSE(dialog().connects("IDC_TREE", TVN_SELCHANGED, &Self::note));
    EXPECT_FALSE(dialog().connects("IDC_LIST", NM_RCLICK, &Self::noteItem));
}

TEST_F(Wiring, Rows_are_counted_and_connected_each_for_itself) {
    const ControlWire<Self> wires[] = {
        {"IDC_MISSING", ControlSignal::Clicked, &Self::count},
        {"IDC_BUTTON", ControlSignal::Clicked, &Self::count},
        {"IDC_BUTTON", ControlSignal::Clicked, &Self::count},
    };
    EXPECT_EQ(connectControls(dialog(), wires), 2);
    open();
    QTest::keyClick(&dialog().control<QWidget>("IDC_BUTTON"), Qt::Key_Space);
    EXPECT_EQ(dialog().counted, 2);
}

TEST_F(Wiring, List_notifications_reach_the_handlers_of_their_list) {
    open();
    auto& list = dialog().control<QListWidget>("IDC_LIST");
    list.setFocus();
    const QPoint second = list.visualItemRect(list.item(1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, second);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, second);
    QTest::keyClick(&list, Qt::Key_Delete);
    const std::vector<std::string>& log = dialog().log;
    ASSERT_GE(log.size(), 3U);
    EXPECT_EQ(log.front(), "click 1");
    EXPECT_NE(std::find(log.begin(), log.end(), "double 1"), log.end());
    EXPECT_EQ(log.back(), "key " + std::to_string(VK_DELETE));
    EXPECT_TRUE(dialog().dispatched);

    QContextMenuEvent context(QContextMenuEvent::Mouse, second);
    QApplication::sendEvent(list.viewport(), &context);
    EXPECT_FALSE(dialog().dispatched) << "another list's row";
}

TEST_F(Wiring, Label_edits_ask_and_tell_the_dialog) {
    open();
    auto& list = dialog().control<KdUiListWidget>("IDC_LIST");
    dialog().refuseLabels = true;
    EXPECT_FALSE(list.editLabel(0));
    dialog().refuseLabels = false;
    ASSERT_TRUE(list.editLabel(1));
    endLabel(list, QStringLiteral("new"));
    EXPECT_EQ(dialog().log, (std::vector<std::string>{"begin 0", "begin 1", "end new"}));
    EXPECT_EQ(list.item(1)->text(), QStringLiteral("new"));
}

}  // namespace
}  // namespace kdtest
