// When a control counts as left: killFocus of edits, spin boxes and combo boxes.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QMenu>
#include <QMessageBox>

#include "tests/ui/base/dialog.h"

using kdtest::Log;
using kdtest::onceModal;
using kdtest::RecordingDialog;

namespace {

class KillFocus : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        dialog.record(GetParam(), "killFocus()", "left");
        dialog.open();
        control = dialog.getWidgetsFromOrignal(GetParam());
        control->setFocus();
        ASSERT_TRUE(control->hasFocus());
        dialog.take();
    }
    /// Left by the control under test; others in the dialog notify as well.
    Log left() {
        Log found;
        for (const std::string& line : dialog.take()) {
            if (line == "left") found.push_back(line);
        }
        return found;
    }

    RecordingDialog dialog;
    QWidget* control = nullptr;
};

TEST_P(KillFocus, comes_when_the_focus_moves_to_another_control_by_key) {
    QTest::keyClick(control, Qt::Key_Tab);
    EXPECT_EQ(left(), Log{"left"});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_TRUE(control->hasFocus());
    EXPECT_EQ(left(), Log{});
}

TEST_P(KillFocus, comes_when_the_focus_moves_to_another_control_by_mouse) {
    QTest::mouseClick(dialog.getWidgetsFromOrignal("IDC_ACTION"), Qt::LeftButton);
    EXPECT_EQ(left(), Log{"left"});
}

TEST_P(KillFocus, comes_when_another_dialog_opens_over_it) {
    RecordingDialog other("BASE_FIXED", &dialog);
    onceModal([&] {
        EXPECT_EQ(left(), Log{"left"});
        other.OnCancel();
    });
    other.DoModal();
    EXPECT_EQ(left(), Log{});
}

TEST_P(KillFocus, comes_when_a_message_box_opens_over_it) {
    onceModal([&] {
        EXPECT_EQ(left(), Log{"left"});
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    });
    dialog.MessageBoxW(L"text", L"caption", 0);
    EXPECT_EQ(left(), Log{});
}

TEST_P(KillFocus, does_not_come_for_a_popup_menu) {
    QMenu menu(control);
    menu.addAction(QStringLiteral("Item"));
    onceModal([&] {
        EXPECT_EQ(left(), Log{});
        menu.close();
    });
    menu.exec();
    EXPECT_EQ(left(), Log{});
}

TEST_P(KillFocus, does_not_come_when_another_program_comes_to_the_front) {
    QApplication::setActiveWindow(nullptr);
    EXPECT_EQ(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(left(), Log{});
}

TEST_P(KillFocus, does_not_come_when_its_own_dialog_ends) {
    RecordingDialog over("BASE_ALL", &dialog);
    over.record(GetParam(), "killFocus()", "left");
    onceModal([&] {
        over.getWidgetsFromOrignal(GetParam())->setFocus();
        over.take();
        QTest::keyClick(over.focusWidget(), Qt::Key_Escape);
    });
    over.DoModal();
    EXPECT_EQ(over.take(), (Log{"OnCancel", "OnDestroy"}));
}

TEST_P(KillFocus, does_not_call_into_a_dialog_that_is_being_destroyed) {
    bool calledLate = false;
    {
        auto shown = std::make_unique<RecordingDialog>();
        shown->connectControl(GetParam(), "killFocus()", [&] { calledLate = true; });
        shown->open();
        shown->getWidgetsFromOrignal(GetParam())->setFocus();
        calledLate = false;
    }
    EXPECT_FALSE(calledLate);
}

INSTANTIATE_TEST_SUITE_P(Controls, KillFocus, ::testing::Values("IDC_EDIT", "IDC_OTHER_EDIT", "IDC_SPIN", "IDC_COMBO"));

TEST(KillFocusOfComboBoxes, does_not_come_for_the_boxes_own_list) {
    RecordingDialog dialog;
    auto& combo = dialog.control<KdUiComboBox>("IDC_COMBO");
    combo.addItems({QStringLiteral("one"), QStringLiteral("two")});
    dialog.record("IDC_COMBO", "killFocus()", "left");
    dialog.open();
    combo.setFocus();
    combo.showPopup();
    QApplication::processEvents();
    EXPECT_TRUE(combo.view()->isVisible());
    combo.hidePopup();
    EXPECT_EQ(dialog.take(), Log{});
}

}  // namespace
