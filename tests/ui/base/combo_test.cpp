// Combo boxes, over a box and over a list in its place.

#include <gtest/gtest.h>

#include <QAbstractItemView>

#include "mfc/combobox.h"
#include "tests/ui/base/dialog.h"

using kdtest::Log;
using kdtest::RecordingDialog;

namespace {

struct Widget {
    const char* name;
    const char* signal;
};

class Combos : public ::testing::TestWithParam<Widget> {
protected:
    void SetUp() override {
        combo.Attach(dialog.getWidgetsFromOrignal(GetParam().name));
        dialog.record(GetParam().name, GetParam().signal, "changed");
    }
    void fill() {
        for (const wchar_t* text : {L"Alpha", L"beta", L"Alphabet", L"gamma"}) combo.AddString(text);
    }
    /// Signals of the widget; a list's notifications are not of interest here.
    int changes() {
        int count = 0;
        for (const std::string& line : dialog.take()) count += line == "changed" ? 1 : 0;
        return count;
    }

    RecordingDialog dialog;
    CComboBox combo;
};

TEST_P(Combos, adding_and_deleting_rows_never_signals_and_an_empty_box_shows_no_row) {
    EXPECT_EQ(combo.AddString(L"Alpha"), 0);
    EXPECT_EQ(combo.GetCurSel(), -1);
    EXPECT_EQ(combo.InsertString(0, L"first"), 0);
    EXPECT_EQ(combo.InsertString(-1, L"last"), 2);
    EXPECT_EQ(combo.GetCurSel(), -1);
    EXPECT_EQ(combo.DeleteString(1), 2);
    EXPECT_EQ(combo.DeleteString(7), -1);
    EXPECT_EQ(combo.GetCount(), 2);
    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);
    EXPECT_EQ(changes(), 0);
    EXPECT_EQ(dialog.log, Log{});
}

TEST_P(Combos, SetCurSel_signals_when_the_row_changes) {
    fill();
    EXPECT_EQ(combo.SetCurSel(1), 1);
    EXPECT_EQ(changes(), 1);
    EXPECT_EQ(combo.SetCurSel(1), 1);
    EXPECT_EQ(changes(), 0);
    EXPECT_EQ(combo.SetCurSel(9), -1);
    EXPECT_EQ(combo.GetCurSel(), -1);
    EXPECT_EQ(changes(), 1);
}

TEST_P(Combos, the_chosen_row_goes_along_with_rows_that_come_and_go) {
    fill();
    combo.SetCurSel(2);
    changes();
    combo.InsertString(0, L"x");
    EXPECT_EQ(combo.GetCurSel(), 3);
    combo.DeleteString(1);
    EXPECT_EQ(combo.GetCurSel(), 2);
    combo.DeleteString(3);
    EXPECT_EQ(combo.GetCurSel(), 2);
    combo.DeleteString(2);
    EXPECT_EQ(combo.GetCurSel(), -1);
    EXPECT_EQ(changes(), 0);
}

TEST_P(Combos, texts_are_found_behind_the_start_and_around_the_end_regardless_of_case) {
    fill();
    EXPECT_EQ(combo.FindString(-1, L"alpha"), 0);
    EXPECT_EQ(combo.FindString(0, L"ALPHA"), 2);
    EXPECT_EQ(combo.FindString(2, L"alpha"), 0);
    EXPECT_EQ(combo.FindString(-1, L"phab"), -1);
    EXPECT_EQ(combo.FindString(99, L"b"), 1);
    EXPECT_EQ(combo.FindStringExact(0, L"ALPHA"), 0);
    EXPECT_EQ(combo.FindStringExact(-1, L"BETA"), 1);
    EXPECT_EQ(combo.FindStringExact(-1, L"Alph"), -1);
    combo.AddString(L"Ärger");
    const int small = combo.AddString(L"ärger");
    EXPECT_EQ(combo.FindStringExact(-1, L"äRGER"), small) << "the letters A to Z alone have a case";
    EXPECT_EQ(combo.FindString(-1, L"äR"), small);
    combo.ResetContent();
    EXPECT_EQ(combo.FindString(-1, L"a"), -1);
    EXPECT_EQ(combo.FindStringExact(0, L"a"), -1);
}

TEST_P(Combos, rows_bear_texts_and_data) {
    fill();
    CStdStr<wchar_t> text;
    combo.GetLBText(2, text);
    EXPECT_EQ(text, L"Alphabet");
    combo.GetLBText(4, text);
    EXPECT_EQ(text, L"");
    combo.SetItemData(1, 0x123456789ALL);
    combo.InsertString(0, L"x");
    EXPECT_EQ(combo.GetItemData(2), 0x123456789ALL);
    EXPECT_EQ(combo.GetItemData(1), 0);
    EXPECT_EQ(combo.GetItemData(9), 0);
}

TEST_P(Combos, heights_of_the_edit_part_and_of_the_rows_are_kept) {
    fill();
    combo.SetItemHeight(-1, 22);
    combo.SetItemHeight(0, 24);
    EXPECT_EQ(combo.GetItemHeight(-1), 22U);
    EXPECT_EQ(combo.GetItemHeight(0), 24U);
    EXPECT_EQ(combo.GetItemHeight(3), 24U);
}

INSTANTIATE_TEST_SUITE_P(Widgets, Combos,
                         ::testing::Values(Widget{"IDC_COMBO", "currentIndexChanged(int)"},
                                           Widget{"IDC_LIST_AS_COMBO", "itemSelectionChanged()"}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(DroppedCombos, ShowDropDown_opens_and_closes_the_list_and_signals_before_it_opens) {
    RecordingDialog dialog;
    CComboBox combo;
    combo.Attach(dialog.getWidgetsFromOrignal("IDC_COMBO"));
    dialog.connectControl("IDC_COMBO", "boxDropdowm()", [&] {
        dialog.log.push_back(combo.GetDroppedState() ? "open already" : "about to open");
        combo.ResetContent();
        combo.AddString(L"filled now");
    });
    dialog.open();
    combo.ShowDropDown();
    EXPECT_EQ(dialog.take(), Log{"about to open"});
    EXPECT_TRUE(combo.GetDroppedState());
    EXPECT_EQ(combo.GetCount(), 1);
    combo.ShowDropDown(false);
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(dialog.take(), Log{});
}

TEST(DroppedCombos, rows_are_as_high_as_set_later_ones_too) {
    RecordingDialog dialog;
    CComboBox combo;
    auto& widget = dialog.control<KdUiComboBox>("IDC_COMBO");
    combo.Attach(&widget);
    combo.AddString(L"one");
    combo.SetItemHeight(0, 31);
    combo.AddString(L"two");
    dialog.open();
    combo.ShowDropDown();
    EXPECT_EQ(widget.view()->sizeHintForRow(0), 31);
    EXPECT_EQ(widget.view()->sizeHintForRow(1), 31);
    combo.ShowDropDown(false);
}

TEST(DroppedCombos, a_handler_may_open_the_list_again) {
    RecordingDialog dialog;
    CComboBox combo;
    auto& widget = dialog.control<KdUiComboBox>("IDC_COMBO");
    combo.Attach(&widget);
    for (const wchar_t* text : {L"one", L"two", L"three"}) combo.AddString(text);
    combo.SetCurSel(0);
    dialog.connectControl("IDC_COMBO", "currentIndexChanged(int)", [&] { combo.ShowDropDown(); });
    dialog.open();
    combo.ShowDropDown();
    QTest::keyClick(widget.view(), Qt::Key_Down);
    QTest::keyClick(widget.view(), Qt::Key_Return);
    EXPECT_EQ(combo.GetCurSel(), 1);
    EXPECT_TRUE(combo.GetDroppedState());
    combo.ShowDropDown(false);
}

/// A closed box with three rows, the focus in it.
class CombosOfUsers : public ::testing::Test {
protected:
    CombosOfUsers() {
        combo.Attach(&widget);
        for (const wchar_t* text : {L"one", L"two", L"three"}) combo.AddString(text);
        combo.SetCurSel(0);
        dialog.record("IDC_COMBO", "currentIndexChanged(int)", "changed");
        dialog.open();
        widget.setFocus();
        dialog.take();
    }
    RecordingDialog dialog;
    KdUiComboBox& widget = dialog.control<KdUiComboBox>("IDC_COMBO");
    CComboBox combo;
};

TEST_F(CombosOfUsers, arrows_and_first_letters_choose_and_signal_each_time) {
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(combo.GetCurSel(), 1);
    QTest::keyClick(&widget, Qt::Key_End);
    EXPECT_EQ(combo.GetCurSel(), 2);
    QTest::keyClick(&widget, Qt::Key_Down);  // no row is left
    QTest::keyClick(&widget, Qt::Key_O);
    EXPECT_EQ(combo.GetCurSel(), 0);
    EXPECT_EQ(dialog.take(), (Log{"changed", "changed", "changed"}));
}

TEST_F(CombosOfUsers, the_mouse_opens_the_list_and_chooses_a_row) {
    QTest::mouseClick(&widget, Qt::LeftButton);
    ASSERT_TRUE(combo.GetDroppedState());
    QAbstractItemView* list = widget.view();
    QTest::qWait(QApplication::doubleClickInterval() + 50);  // a press at once would count for the opening one
    const QPoint row = list->visualRect(list->model()->index(2, 0)).center();
    QTest::mouseMove(list->viewport(), row);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row);
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(combo.GetCurSel(), 2);
    EXPECT_EQ(dialog.take(), Log{"changed"});
}

TEST_F(CombosOfUsers, Esc_in_the_list_leaves_the_row_and_the_dialog) {
    combo.ShowDropDown();
    QTest::keyClick(widget.view(), Qt::Key_Down);
    QTest::keyClick(widget.view(), Qt::Key_Escape);
    EXPECT_FALSE(combo.GetDroppedState());
    EXPECT_EQ(combo.GetCurSel(), 0);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(dialog.take(), Log{});
}

TEST(EditableCombos, typed_text_survives_rows_that_come) {
    RecordingDialog dialog;
    auto& widget = dialog.control<KdUiComboBox>("IDC_COMBO");
    widget.setEditable(true);
    CComboBox combo;
    combo.Attach(&widget);
    combo.SetWindowTextW(L"typed");
    combo.AddString(L"row");
    CStdStr<wchar_t> text;
    combo.GetWindowTextW(text);
    EXPECT_EQ(text, L"typed");
}

TEST(CombosWithoutAWidget, answer_as_an_empty_box) {
    CComboBox none;
    EXPECT_EQ(none.GetCount(), 0);
    EXPECT_EQ(none.GetCurSel(), -1);
    EXPECT_EQ(none.SetCurSel(0), -1);
    EXPECT_EQ(none.AddString(L"x"), -1);
    EXPECT_EQ(none.DeleteString(0), -1);
    EXPECT_EQ(none.FindString(-1, L"x"), -1);
    EXPECT_EQ(none.SetItemHeight(0, 3), -1);
    EXPECT_EQ(none.GetItemHeight(0), 0U);
    EXPECT_FALSE(none.GetDroppedState());
    none.ShowDropDown();
    none.ResetContent();
}

}  // namespace
