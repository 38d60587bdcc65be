// The small controls: windows, buttons, edits, spin boxes, pictures, tool tips, message boxes.

#include <gtest/gtest.h>

#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>

#include "host/mfc/messagebox.h"
#include "mfc/controls.h"
#include "tests/ui/base/dialog.h"

using kdtest::Log;
using kdtest::onceModal;
using kdtest::RecordingDialog;

namespace {

TEST(Windows, without_a_widget_answer_as_empty_and_hidden_and_do_nothing) {
    CWnd none;
    CStdStr<wchar_t> text = L"old";
    none.SetWindowTextW(L"x");
    none.GetWindowTextW(text);
    EXPECT_EQ(text, L"");
    EXPECT_FALSE(none.IsWindowEnabled());
    EXPECT_FALSE(none.IsWindowVisible());
    EXPECT_FALSE(none.EnableWindow());
    EXPECT_FALSE(none.ShowWindow(SW_SHOW));
    EXPECT_EQ(none.GetSafeHwnd(), nullptr);
    CRect rect(1, 2, 3, 4);
    none.GetWindowRect(rect);
    EXPECT_EQ(rect, CRect());
    none.SetFocus();
    none.Invalidate();
    none.UpdateWindow();
    none.MoveWindow(CRect(0, 0, 1, 1));
    none.SetWindowPos(nullptr, 0, 0, 1, 1, 0);
}

TEST(Windows, give_their_widget_up_when_it_is_gone) {
    auto label = std::make_unique<QLabel>();
    CWnd wnd(label.get());
    wnd.SetWindowTextW(L"text");
    label.reset();
    CStdStr<wchar_t> text = L"old";
    wnd.GetWindowTextW(text);
    EXPECT_EQ(text, L"");
    EXPECT_EQ(wnd.widget(), nullptr);
}

TEST(Windows, that_hold_controls_hand_the_focus_to_the_one_that_had_it_last) {
    RecordingDialog dialog;
    dialog.open();
    dialog.GetDlgItem("IDC_EDIT")->SetFocus();
    ASSERT_TRUE(dialog.getWidgetsFromOrignal("IDC_EDIT")->hasFocus());
    dialog.SetFocus();
    EXPECT_TRUE(dialog.getWidgetsFromOrignal("IDC_EDIT")->hasFocus());
}

TEST(Windows, texts_go_where_each_kind_of_control_shows_them) {
    RecordingDialog dialog;
    for (const char* name : {"IDC_LABEL", "IDC_GROUP", "IDC_EDIT", "IDC_SPIN", "IDC_CHECK", "IDOK"}) {
        CWnd* wnd = dialog.GetDlgItem(name);
        wnd->SetWindowTextW(L"<b>A</b> \u4e2d");
        CStdStr<wchar_t> text;
        wnd->GetWindowTextW(text);
        EXPECT_EQ(text, L"<b>A</b> \u4e2d") << name;
    }
    EXPECT_EQ(dialog.control<QGroupBox>("IDC_GROUP").title(), QString::fromWCharArray(L"<b>A</b> \u4e2d"));
    EXPECT_EQ(dialog.control<QLabel>("IDC_LABEL").textFormat(), Qt::PlainText);
    dialog.SetWindowTextW(L"Title");
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Title"));
}

TEST(Windows, show_enable_and_move_as_told) {
    RecordingDialog dialog("BASE_FIXED");
    dialog.open();
    CWnd* edit = dialog.GetDlgItem("IDC_EDIT");
    EXPECT_FALSE(edit->EnableWindow(false));
    EXPECT_TRUE(edit->EnableWindow(true));
    EXPECT_TRUE(edit->ShowWindow(SW_HIDE));
    EXPECT_FALSE(edit->IsWindowVisible());
    EXPECT_FALSE(edit->ShowWindow(SW_SHOW));
    EXPECT_TRUE(edit->IsWindowVisible());
    edit->MoveWindow(CRect(5, 6, 55, 26));
    EXPECT_EQ(edit->widget()->geometry(), QRect(5, 6, 50, 20));
    edit->SetWindowPos(nullptr, 7, 8, 99, 99, SWP_NOSIZE);
    EXPECT_EQ(edit->widget()->geometry(), QRect(7, 8, 50, 20));
    edit->SetWindowPos(nullptr, 1, 1, 60, 30, SWP_NOMOVE | SWP_HIDEWINDOW);
    EXPECT_EQ(edit->widget()->geometry(), QRect(7, 8, 60, 30));
    EXPECT_FALSE(edit->IsWindowVisible());
    CRect rect;
    edit->GetClientRect(rect);
    EXPECT_EQ(rect, CRect(0, 0, 60, 30));
    edit->GetWindowRect(rect);
    dialog.ScreenToClient(rect);
    EXPECT_EQ(rect, CRect(7, 8, 67, 38));
}

TEST(Buttons, hold_a_check_and_the_program_may_uncheck_the_one_of_a_group) {
    RecordingDialog dialog;
    CButton check;
    check.Attach(dialog.getWidgetsFromOrignal("IDC_CHECK"));
    EXPECT_EQ(check.GetCheck(), 0);
    check.SetCheck(1);
    EXPECT_EQ(check.GetCheck(), 1);
    CButton one;
    CButton two;
    one.Attach(dialog.getWidgetsFromOrignal("IDC_RADIO_ONE"));
    two.Attach(dialog.getWidgetsFromOrignal("IDC_RADIO_TWO"));
    one.SetCheck(1);
    two.SetCheck(1);
    EXPECT_EQ(one.GetCheck(), 0);
    two.SetCheck(0);
    EXPECT_EQ(two.GetCheck(), 0);
    QButtonGroup group;
    group.addButton(one.widgetAs<QAbstractButton>());
    group.addButton(two.widgetAs<QAbstractButton>());
    one.SetCheck(1);
    one.SetCheck(0);
    EXPECT_EQ(one.GetCheck(), 0);
    EXPECT_TRUE(group.exclusive());
    CButton none;
    none.SetCheck(1);
    EXPECT_EQ(none.GetCheck(), 0);
}

TEST(Buttons, setting_a_check_is_no_click) {
    RecordingDialog dialog;
    dialog.record("IDC_CHECK", "clicked()", "clicked");
    CButton check;
    check.Attach(dialog.getWidgetsFromOrignal("IDC_CHECK"));
    check.SetCheck(1);
    EXPECT_EQ(dialog.take(), Log{});
    dialog.open();
    QTest::keyClick(check.widget(), Qt::Key_Space);
    EXPECT_EQ(dialog.take(), Log{"clicked"});
    EXPECT_EQ(check.GetCheck(), 0);
}

TEST(Edits, select_replace_and_become_read_only) {
    RecordingDialog dialog;
    dialog.record("IDC_EDIT", "textChanged(const QString&)", "changed");
    for (const char* name : {"IDC_EDIT", "IDC_SPIN"}) {
        CEdit edit;
        edit.Attach(dialog.getWidgetsFromOrignal(name));
        edit.SetWindowTextW(L"12345");
        edit.SetSel(1, 3);
        edit.ReplaceSel(L"x");
        CStdStr<wchar_t> text;
        edit.GetWindowTextW(text);
        EXPECT_EQ(text, L"1x45") << name;
        edit.SetSel(0, -1);
        edit.ReplaceSel(L"all");
        edit.GetWindowTextW(text);
        EXPECT_EQ(text, L"all") << name;
        edit.SetSel(-1, 0);
        EXPECT_FALSE(edit.widget()->findChildren<QLineEdit*>().isEmpty() ? edit.widgetAs<QLineEdit>()->hasSelectedText()
                                                                         : false);
    }
    EXPECT_EQ(dialog.take(), (Log{"changed", "changed", "changed"}));
    CEdit edit;
    edit.Attach(dialog.getWidgetsFromOrignal("IDC_EDIT"));
    edit.SetReadOnly(true);
    QTest::keyClicks(edit.widget(), QStringLiteral("typed"));
    CStdStr<wchar_t> text;
    edit.GetWindowTextW(text);
    EXPECT_EQ(text, L"all");
    CEdit none;
    none.SetSel(0, -1);
    none.ReplaceSel(L"x");
    none.SetReadOnly(true);
}

class SpinBoxes : public ::testing::Test {
protected:
    void SetUp() override {
        const auto tell = [this](const char* which) {
            return [this, which](NMHDR* header, LRESULT* result) {
                const auto& step = reinterpret_cast<const NMUPDOWN&>(*header);
                dialog.log.push_back(std::string(which) + " " + std::to_string(step.iPos) + " " +
                                     std::to_string(step.iDelta));
                *result = refuse ? 1 : 0;
            };
        };
        dialog.connectNotification("IDC_SPIN", "stepUp(NMHDR*, LRESULT*)", tell("up"), Qt::DirectConnection);
        dialog.connectNotification("IDC_SPIN", "stepDown(NMHDR*, LRESULT*)", tell("down"), Qt::DirectConnection);
        dialog.open();
        spin.setFocus();
        dialog.take();
    }

    RecordingDialog dialog;
    KdUiDoubleSpinBox& spin = dialog.control<KdUiDoubleSpinBox>("IDC_SPIN");
    bool refuse = false;
};

TEST_F(SpinBoxes, take_any_text) {
    kdtest::typeText(&spin, QStringLiteral("3'-6 1/2\""));
    EXPECT_EQ(spin.text(), QStringLiteral("3'-6 1/2\""));
    EXPECT_EQ(spin.value(), 0.0);
    QTest::keyClick(&spin, Qt::Key_Tab);
    EXPECT_EQ(spin.text(), QStringLiteral("3'-6 1/2\""));
}

TEST_F(SpinBoxes, without_a_range_only_signal_their_steps) {
    spin.setText(QStringLiteral("5"));
    QTest::keyClick(&spin, Qt::Key_Up);
    QTest::keyClick(&spin, Qt::Key_Down);
    EXPECT_EQ(spin.text(), QStringLiteral("5"));
    EXPECT_EQ(dialog.take(), (Log{"up 5 -1", "down 5 1"}));
}

TEST_F(SpinBoxes, step_within_their_range_after_they_have_signalled) {
    spin.setRange(1.0, 32767.0, true, false);
    spin.setValue(2);
    QTest::keyClick(&spin, Qt::Key_Down);
    EXPECT_EQ(spin.text(), QStringLiteral("1"));
    QTest::keyClick(&spin, Qt::Key_Down);
    EXPECT_EQ(spin.text(), QStringLiteral("1"));
    EXPECT_EQ(dialog.take(), Log{"down 2 1"});
    QTest::keyClick(&spin, Qt::Key_PageUp);
    EXPECT_EQ(spin.text(), QStringLiteral("11"));
    EXPECT_EQ(dialog.take(), Log{"up 1 -10"});
    spin.setText(QStringLiteral("40000"));
    QTest::keyClick(&spin, Qt::Key_Down);
    EXPECT_EQ(spin.text(), QStringLiteral("32766"));
    spin.setText(QStringLiteral("junk"));
    QTest::keyClick(&spin, Qt::Key_Up);
    EXPECT_EQ(spin.text(), QStringLiteral("2"));
}

TEST_F(SpinBoxes, go_on_at_the_other_end_when_they_wrap) {
    spin.setRange(0, 3, true, true);
    spin.setValue(3);
    QTest::keyClick(&spin, Qt::Key_Up);
    EXPECT_EQ(spin.text(), QStringLiteral("0"));
    QTest::keyClick(&spin, Qt::Key_Down);
    EXPECT_EQ(spin.text(), QStringLiteral("3"));
}

TEST_F(SpinBoxes, a_result_refuses_the_step) {
    spin.setRange(0, 9, true, false);
    spin.setValue(4);
    refuse = true;
    QTest::keyClick(&spin, Qt::Key_Up);
    EXPECT_EQ(spin.text(), QStringLiteral("4"));
}

TEST_F(SpinBoxes, show_fractions_unless_their_range_is_one_of_whole_numbers) {
    spin.setValue(2.5);
    EXPECT_EQ(spin.text(), QStringLiteral("2.5"));
    spin.setRange(0, 9, true, false);
    spin.setValue(2.6);
    EXPECT_EQ(spin.text(), QStringLiteral("3"));
}

TEST_F(SpinBoxes, step_by_their_arrows_under_the_mouse) {
    spin.setRange(0, 9, true, false);
    spin.setValue(4);
    QTest::mouseClick(&spin, Qt::LeftButton, Qt::NoModifier, QPoint(spin.width() - 6, 5));
    EXPECT_EQ(spin.text(), QStringLiteral("5"));
    QTest::mouseClick(&spin, Qt::LeftButton, Qt::NoModifier, QPoint(spin.width() - 6, spin.height() - 5));
    EXPECT_EQ(spin.text(), QStringLiteral("4"));
}

class Pictures : public ::testing::Test {
protected:
    QString write(QImage::Format format) {
        QImage image(4, 4, format);
        image.fill(QColor(255, 0, 255));
        image.setPixelColor(1, 1, QColor(10, 20, 30));
        const QString path = folder.filePath(QStringLiteral("picture.png"));
        EXPECT_TRUE(image.save(path));
        return path;
    }
    QTemporaryDir folder;
    KdUiPushButton button;
};

TEST_F(Pictures, are_transparent_where_the_mask_colour_is) {
    for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
        button.setIcon(write(format), QColor(255, 0, 255));
        const QImage shown = button.icon().pixmap(4, 4).toImage();
        EXPECT_EQ(shown.pixelColor(0, 0).alpha(), 0);
        EXPECT_EQ(shown.pixelColor(1, 1), QColor(10, 20, 30));
        EXPECT_EQ(button.iconSize(), QSize(4, 4));
    }
}

TEST_F(Pictures, that_are_missing_leave_the_button_as_it_was) {
    button.setIcon(write(QImage::Format_RGB32), QColor(255, 0, 255));
    const qint64 before = button.icon().cacheKey();
    button.setIcon(QStringLiteral(":/NoSuchPicture"), QColor(255, 0, 255));
    EXPECT_EQ(button.icon().cacheKey(), before);
}

TEST(ArrowParts, answer_to_the_mouse_and_to_the_key_apart_from_the_button) {
    RecordingDialog dialog;
    auto& button = dialog.control<KdUiPushButton>("IDC_PICTURE");
    button.setButtonStyle(6);
    dialog.record("IDC_PICTURE", "clicked()", "button");
    dialog.record("IDC_PICTURE", "clickedEventEx()", "arrow");
    dialog.open();
    const int middle = button.height() / 2;
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(5, middle));
    EXPECT_EQ(dialog.take(), Log{"button"});
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(button.width() - 5, middle));
    EXPECT_EQ(dialog.take(), Log{"arrow"});
    QTest::keyClick(&button, Qt::Key_Down);
    EXPECT_EQ(dialog.take(), Log{"arrow"});
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(dialog.take(), Log{"button"});
    button.setEnabled(false);
    button.clickArrow();
    EXPECT_EQ(dialog.take(), Log{});
    button.setEnabled(true);
    button.setButtonStyle(2);
    EXPECT_TRUE(button.isFlat());
    button.clickArrow();
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(button.width() - 5, middle));
    EXPECT_EQ(dialog.take(), Log{"button"});
}

TEST(ToolTips, show_while_active) {
    RecordingDialog dialog;
    CToolTipCtrl tips;
    EXPECT_FALSE(tips.Create(nullptr));
    EXPECT_TRUE(tips.Create(&dialog));
    CWnd* ok = dialog.GetDlgItem("IDOK");
    EXPECT_TRUE(tips.AddTool(ok, L"Accept"));
    EXPECT_FALSE(tips.AddTool(nullptr, L"x"));
    CWnd none;
    EXPECT_FALSE(tips.AddTool(&none, L"x"));
    EXPECT_EQ(ok->widget()->toolTip(), QStringLiteral("Accept"));
    tips.Activate(false);
    EXPECT_EQ(ok->widget()->toolTip(), QString());
    EXPECT_TRUE(tips.AddTool(ok, L"Take it"));
    EXPECT_EQ(ok->widget()->toolTip(), QString());
    tips.Activate(true);
    EXPECT_EQ(ok->widget()->toolTip(), QStringLiteral("Take it"));
}

struct Box {
    UINT type;
    QMessageBox::StandardButtons buttons;
    QMessageBox::Icon icon;
    int byEsc;
};

class MessageBoxes : public ::testing::TestWithParam<Box> {};

TEST_P(MessageBoxes, have_the_buttons_and_the_icon_of_their_type) {
    const Box& expected = GetParam();
    RecordingDialog dialog;
    dialog.open();
    onceModal([&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->standardButtons(), expected.buttons);
        EXPECT_EQ(box->icon(), expected.icon);
        EXPECT_EQ(box->text(), QStringLiteral("<i>text</i>"));
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->windowTitle(), QStringLiteral("caption"));
        QTest::keyClick(box, Qt::Key_Escape);
    });
    EXPECT_EQ(dialog.MessageBoxW(L"<i>text</i>", L"caption", expected.type), expected.byEsc);
    EXPECT_EQ(kdhost::lastMessageBoxText(), L"<i>text</i>");
}

const QMessageBox::StandardButtons kOk = QMessageBox::Ok;
INSTANTIATE_TEST_SUITE_P(Types, MessageBoxes,
                         ::testing::Values(Box{0, kOk, QMessageBox::NoIcon, IDOK},
                                           Box{16, kOk, QMessageBox::Critical, IDOK},
                                           Box{48, kOk, QMessageBox::Warning, IDOK},
                                           Box{49, kOk | QMessageBox::Cancel, QMessageBox::Warning, IDCANCEL},
                                           Box{65, kOk | QMessageBox::Cancel, QMessageBox::Information, IDCANCEL},
                                           Box{35, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                                               QMessageBox::Question, IDCANCEL},
                                           Box{36, QMessageBox::Yes | QMessageBox::No, QMessageBox::Question, IDNO}));

TEST(MessageBoxAnswers, are_the_pressed_buttons) {
    const std::pair<QMessageBox::StandardButton, int> answers[] = {
        {QMessageBox::Yes, IDYES}, {QMessageBox::No, IDNO}, {QMessageBox::Cancel, IDCANCEL}};
    for (const auto& [button, answer] : answers) {
        onceModal([button = button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QTest::mouseClick(box->button(button), Qt::LeftButton);
        });
        EXPECT_EQ(AfxMessageBox(L"text", 3), answer);
    }
    onceModal([] {
        EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), QString::fromWCharArray(GetOemProductName()));
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(AfxMessageBox(L""), IDOK);
    EXPECT_EQ(kdhost::lastMessageBoxText(), L"");
}

TEST(MessageBoxAnswers, the_dialog_below_has_its_focus_again) {
    RecordingDialog dialog;
    dialog.open();
    dialog.control<QWidget>("IDC_EDIT").setFocus();
    onceModal([] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
    dialog.MessageBoxW(L"text", L"caption", 48);
    QApplication::setActiveWindow(&dialog);
    EXPECT_EQ(QApplication::focusWidget(), dialog.getWidgetsFromOrignal("IDC_EDIT"));
}

}  // namespace
