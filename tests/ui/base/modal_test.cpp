// Dialogs as their user meets them: results, keys, the exchange of texts.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QWheelEvent>

#include "mfc/controls.h"
#include "tests/ui/base/dialog.h"

using kdtest::Log;
using kdtest::onceModal;
using kdtest::RecordingDialog;

namespace {

TEST(DoModal, gives_1_for_OK_and_2_for_Cancel) {
    RecordingDialog accepted;
    onceModal([&] { QTest::mouseClick(&accepted.control<QPushButton>("IDOK"), Qt::LeftButton); });
    EXPECT_EQ(accepted.DoModal(), 1);
    EXPECT_EQ(accepted.take(), (Log{"init", "OnOK", "OnDestroy"}));

    RecordingDialog cancelled;
    onceModal([&] { QTest::mouseClick(&cancelled.control<QPushButton>("IDCANCEL"), Qt::LeftButton); });
    EXPECT_EQ(cancelled.DoModal(), 2);
    EXPECT_EQ(cancelled.take(), (Log{"init", "OnCancel", "OnDestroy"}));
}

TEST(DoModal, Esc_and_the_frame_cancel) {
    RecordingDialog byKey;
    onceModal([&] { QTest::keyClick(byKey.focusWidget(), Qt::Key_Escape); });
    EXPECT_EQ(byKey.DoModal(), 2);
    RecordingDialog byFrame;
    onceModal([&] { byFrame.close(); });
    EXPECT_EQ(byFrame.DoModal(), 2);
    EXPECT_EQ(byFrame.take(), (Log{"init", "OnCancel", "OnDestroy"}));
}

TEST(DoModal, Esc_in_a_dialog_without_a_Cancel_button_cancels_too) {
    RecordingDialog dialog("BASE_FIXED");
    onceModal([&] { QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape); });
    EXPECT_EQ(dialog.DoModal(), 2);
}

TEST(DoModal, does_not_show_a_dialog_that_its_initialisation_has_ended) {
    RecordingDialog dialog;
    dialog.onInit = [&] { dialog.OnOK(); };
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_EQ(dialog.take(), (Log{"init", "OnOK", "OnDestroy"}));
}

TEST(DialogKeys, Enter_in_an_edit_presses_the_default_button_after_the_edit_has_committed) {
    RecordingDialog dialog;
    dialog.record("IDC_EDIT", "killFocus()", "committed");
    dialog.open();
    dialog.control<QWidget>("IDC_EDIT").setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.take(), (Log{"committed", "OnOK"}));
}

TEST(DialogKeys, an_edit_that_takes_the_focus_back_stops_the_press) {
    RecordingDialog dialog;
    CWnd* edit = dialog.GetDlgItem("IDC_EDIT");
    dialog.connectControl("IDC_EDIT", "killFocus()", [&] {
        dialog.log.push_back("refused");
        edit->SetFocus();
    });
    dialog.open();
    edit->SetFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Enter);
    EXPECT_EQ(dialog.take(), Log{"refused"});
    EXPECT_EQ(QApplication::focusWidget(), edit->widget());
    EXPECT_TRUE(dialog.isVisible());
}

TEST(DialogKeys, Enter_on_another_button_presses_that_one_and_a_disabled_default_button_nothing) {
    RecordingDialog dialog;
    dialog.record("IDC_ACTION", "clicked()", "action");
    dialog.open();
    dialog.control<QWidget>("IDC_ACTION").setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.take(), Log{"action"});
    dialog.control<QWidget>("IDOK").setEnabled(false);
    dialog.control<QWidget>("IDC_EDIT").setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.take(), Log{});
    EXPECT_EQ(dialog.focusWidget(), dialog.getWidgetsFromOrignal("IDC_EDIT"));
}

TEST(DialogKeys, a_commit_that_disables_the_default_button_stops_the_press) {
    RecordingDialog dialog;
    dialog.connectControl("IDC_EDIT", "killFocus()", [&] { dialog.control<QWidget>("IDOK").setEnabled(false); });
    dialog.open();
    dialog.control<QWidget>("IDC_EDIT").setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.take(), Log{});
    EXPECT_TRUE(dialog.isVisible());
}

TEST(DialogKeys, F1_asks_for_help) {
    RecordingDialog dialog;
    dialog.open();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_F1);
    EXPECT_EQ(dialog.take(), Log{"OnHelp"});
}

TEST(DialogKeys, PreTranslateMessage_sees_each_key_once_wherever_its_control_stands) {
    RecordingDialog dialog;
    dialog.open();
    for (const char* name : {"IDC_EDIT", "IDC_SPIN", "IDC_LIST", "IDC_COMBO", "IDOK"}) {
        QTest::keyClick(dialog.getWidgetsFromOrignal(name), Qt::Key_F5);
        EXPECT_EQ(std::exchange(dialog.keys, {}), Log{std::string(name) + " 116"});
    }
    // One that came later.
    QLineEdit late(&dialog);
    late.setObjectName(QStringLiteral("late"));
    QTest::keyClick(&late, Qt::Key_A);
    EXPECT_EQ(std::exchange(dialog.keys, {}), Log{"late 65"});
    // The same key again, to an ancestor of the control before: a key of its own.
    QTest::keyClick(dialog.getWidgetsFromOrignal("IDC_EDIT"), Qt::Key_F5);
    QTest::keyClick(dialog.getWidgetsFromOrignal("IDC_GROUP"), Qt::Key_F5);
    EXPECT_EQ(dialog.keys, (Log{"IDC_EDIT 116", "IDC_GROUP 116"}));
}

TEST(DialogKeys, a_key_that_PreTranslateMessage_takes_does_not_reach_the_control) {
    RecordingDialog dialog;
    dialog.open();
    dialog.swallowedKey = VK_RETURN;
    dialog.control<QWidget>("IDC_EDIT").setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.take(), Log{});
    EXPECT_TRUE(dialog.isVisible());
}

TEST(DialogKeys, the_wheel_reaches_the_dialog_where_no_control_has_a_use_for_it) {
    RecordingDialog dialog;
    dialog.open();
    auto& spin = dialog.control<KdUiDoubleSpinBox>("IDC_SPIN");
    const auto turn = [&] {
        const QPointF at(5, 5);
        QWheelEvent wheel(at, spin.mapToGlobal(at.toPoint()), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);
        qApp->notify(&spin, &wheel);
    };
    turn();
    EXPECT_EQ(dialog.take(), Log{"wheel 120"});
    spin.setRange(0, 9, true, false);
    spin.setValue(3);
    turn();
    EXPECT_EQ(spin.text(), QStringLiteral("4"));
    EXPECT_EQ(dialog.take(), Log{});
}

struct Fields {
    CStdStr<wchar_t> edit = L"text";
    CStdStr<wchar_t> spin = L"12";
    CStdStr<wchar_t> none = L"kept";
    int check = 1;
    CEdit wrapper;
    CEdit missing;
    bool fails = false;

    void exchange(CDataExchange* data) {
        DDX_Control(data, "IDC_EDIT", wrapper);
        DDX_Control(data, "IDC_NONE", missing);
        DDX_Text(data, "IDC_NONE", none);
        DDX_Check(data, "IDC_CHECK", check);
        DDX_Text(data, "IDC_EDIT", edit);
        DDX_Text(data, "IDC_SPIN", spin);
        if (fails) data->Fail();
    }
};

TEST(Exchange, fills_the_controls_when_the_dialog_opens_and_reads_them_back) {
    RecordingDialog dialog;
    Fields fields;
    dialog.exchangeData = [&](CDataExchange* data) { fields.exchange(data); };
    onceModal([&] {
        EXPECT_EQ(dialog.control<QLineEdit>("IDC_EDIT").text(), QStringLiteral("text"));
        EXPECT_EQ(dialog.control<KdUiDoubleSpinBox>("IDC_SPIN").text(), QStringLiteral("12"));
        EXPECT_TRUE(dialog.control<QCheckBox>("IDC_CHECK").isChecked());
        dialog.control<QLineEdit>("IDC_EDIT").setText(QStringLiteral("other"));
        dialog.control<KdUiDoubleSpinBox>("IDC_SPIN").setText(QStringLiteral("no number"));
        dialog.control<QCheckBox>("IDC_CHECK").setChecked(false);
        EXPECT_TRUE(dialog.UpdateData(true));
        dialog.OnCancel();
    });
    EXPECT_EQ(dialog.DoModal(), 2);
    EXPECT_EQ(fields.edit, L"other");
    EXPECT_EQ(fields.spin, L"no number");
    EXPECT_EQ(fields.none, L"kept");
    EXPECT_EQ(fields.check, 0);
    EXPECT_EQ(fields.wrapper.widget(), dialog.getWidgetsFromOrignal("IDC_EDIT"));
    EXPECT_EQ(fields.missing.widget(), nullptr);
}

TEST(Exchange, a_failure_gives_false_with_the_focus_and_the_selection_in_the_control) {
    RecordingDialog dialog;
    Fields fields;
    fields.fails = true;
    dialog.exchangeData = [&](CDataExchange* data) { fields.exchange(data); };
    dialog.open();
    dialog.control<KdUiDoubleSpinBox>("IDC_SPIN").setText(QStringLiteral("bad"));
    dialog.control<QWidget>("IDOK").setFocus();
    EXPECT_FALSE(dialog.UpdateData(true));
    EXPECT_EQ(QApplication::focusWidget(), dialog.getWidgetsFromOrignal("IDC_SPIN"));
    EXPECT_EQ(dialog.control<KdUiDoubleSpinBox>("IDC_SPIN").edit()->selectedText(), QStringLiteral("bad"));
}

TEST(Focus, GotoDlgCtrl_and_NextDlgCtrl_move_it) {
    RecordingDialog dialog;
    dialog.open();
    dialog.GotoDlgCtrl(dialog.GetDlgItem("IDC_OTHER_EDIT"));
    EXPECT_EQ(QApplication::focusWidget(), dialog.getWidgetsFromOrignal("IDC_OTHER_EDIT"));
    dialog.NextDlgCtrl();
    EXPECT_EQ(QApplication::focusWidget(), dialog.getWidgetsFromOrignal("IDC_EDIT"));
    dialog.GotoDlgCtrl(nullptr);
    EXPECT_EQ(QApplication::focusWidget(), dialog.getWidgetsFromOrignal("IDC_EDIT"));
}

}  // namespace
