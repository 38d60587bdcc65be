// Lists: what reaches the dialog, in which order, and the list control over them.

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QListWidget>

#include "mfc/listctrl.h"
#include "mfc/tabctrl.h"
#include "tests/ui/base/dialog.h"

using kdtest::Log;
using kdtest::RecordingDialog;

namespace {

class Lists : public ::testing::Test {
protected:
    void SetUp() override {
        list.Attach(dialog.getWidgetsFromOrignal("IDC_LIST"));
        for (const wchar_t* text : {L"zero", L"one", L"two", L"three"}) list.InsertItem(list.GetItemCount(), text);
        dialog.connectNotification("IDC_LIST", "RightClickItem(NMHDR*, LRESULT*)", [this](NMHDR* header, LRESULT*) {
            signalled.push_back("RightClickItem " + std::to_string(reinterpret_cast<NMLISTVIEW*>(header)->iItem));
        });
        dialog.connectNotification("IDC_LIST", "currentItemChanged(NMHDR*, LRESULT*)", [this](NMHDR* header, LRESULT*) {
            signalled.push_back("currentItemChanged " + std::to_string(reinterpret_cast<NMLISTVIEW*>(header)->iItem));
        });
        widget().setMinimumHeight(160);  // with empty space below the rows
        dialog.open();
        widget().setFocus();
        EXPECT_EQ(take(), Log{});
        EXPECT_EQ(signalled, Log{});
    }

    KdUiListWidget& widget() { return dialog.control<KdUiListWidget>("IDC_LIST"); }
    QPoint place(int row) { return widget().visualItemRect(widget().item(row)).center(); }
    void click(int row, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(widget().viewport(), button, Qt::NoModifier, place(row));
    }
    /// What reached the dialog from the list, without its name.
    Log take() {
        Log found;
        for (const std::string& line : dialog.take()) {
            if (line.rfind("IDC_LIST ", 0) == 0) found.push_back(line.substr(9));
        }
        return found;
    }
    void typeLabel(const char* text) {
        QLineEdit* edit = widget().labelEditor();
        ASSERT_NE(edit, nullptr);
        edit->selectAll();
        QTest::keyClicks(edit, QString::fromUtf8(text));
    }
    void pressInLabel(Qt::Key key) {
        ASSERT_NE(widget().labelEditor(), nullptr);
        QTest::keyClick(widget().labelEditor(), key);
        QApplication::processEvents();
    }

    RecordingDialog dialog;
    CListCtrl list;
    Log signalled;
};

TEST_F(Lists, a_click_tells_the_changed_rows_before_the_click) {
    click(1);
    EXPECT_EQ(take(), (Log{"selected 1", "click 1"}));
    click(2);
    EXPECT_EQ(take(), (Log{"deselected 1", "selected 2", "click 2"}));
    click(2);
    EXPECT_EQ(take(), Log{"click 2"});
    EXPECT_EQ(signalled, (Log{"currentItemChanged 1", "currentItemChanged 1", "currentItemChanged 2"}));
}

TEST_F(Lists, a_click_into_empty_space_tells_row_minus_one) {
    QTest::mouseClick(widget().viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(5, widget().viewport()->height() - 2));
    EXPECT_EQ(take(), Log{"click -1"});
}

TEST_F(Lists, a_double_click_comes_after_the_click) {
    click(2);
    QTest::mouseDClick(widget().viewport(), Qt::LeftButton, Qt::NoModifier, place(2));
    const Log found = take();
    ASSERT_GE(found.size(), 3U);
    EXPECT_EQ(found[0], "selected 2");
    EXPECT_EQ(found[1], "click 2");
    EXPECT_EQ(found.back(), "doubleclick 2");
}

TEST_F(Lists, a_right_click_selects_then_tells_and_signals) {
    click(1, Qt::RightButton);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place(1), widget().viewport()->mapToGlobal(place(1)));
    QApplication::sendEvent(widget().viewport(), &event);
    EXPECT_EQ(take(), (Log{"selected 1", "rightclick 1"}));
    EXPECT_EQ(signalled, (Log{"currentItemChanged 1", "RightClickItem 1"}));
}

TEST_F(Lists, a_right_click_into_empty_space_tells_row_minus_one) {
    const QPoint empty(5, widget().viewport()->height() - 2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, empty, widget().viewport()->mapToGlobal(empty));
    QApplication::sendEvent(widget().viewport(), &event);
    EXPECT_EQ(take(), Log{"rightclick -1"});
}

TEST_F(Lists, the_menu_key_is_a_right_click_on_the_current_row) {
    click(3);
    take();
    QTest::keyClick(&widget(), Qt::Key_Menu);
    EXPECT_EQ(take(), (Log{"key 93", "rightclick 3"}));
    QTest::keyClick(&widget(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(take(), (Log{"key 16", "key 121", "rightclick 3"}));
}

TEST_F(Lists, a_platform_that_makes_a_menu_of_the_menu_key_itself_tells_one_right_click) {
    click(3);
    take();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1));
    QApplication::sendEvent(widget().viewport(), &event);
    QTest::keyClick(&widget(), Qt::Key_Menu);
    EXPECT_EQ(take(), (Log{"rightclick 3", "key 93"}));
}

TEST_F(Lists, arrows_change_rows_and_each_key_is_told_after_what_it_did) {
    click(0);
    take();
    QTest::keyClick(&widget(), Qt::Key_Down);
    EXPECT_EQ(take(), (Log{"deselected 0", "selected 1", "key 40"}));
    QTest::keyClick(&widget(), Qt::Key_Delete);
    EXPECT_EQ(take(), Log{"key 46"});
    QTest::keyClick(&widget(), Qt::Key_F2);
    EXPECT_EQ(take(), Log{"key 113"});
}

TEST_F(Lists, a_label_edit_tells_begin_and_end_with_the_typed_text) {
    EXPECT_TRUE(list.EditLabel(1));
    EXPECT_EQ(take(), Log{"begin 1 one"});
    typeLabel("uno");
    pressInLabel(Qt::Key_Return);
    EXPECT_EQ(take(), Log{"end 1 uno"});
    EXPECT_EQ(list.GetItemText(1, 0), L"one");  // the answer was 0
    EXPECT_EQ(widget().labelEditor(), nullptr);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(widget().hasFocus());
}

TEST_F(Lists, a_label_is_shown_as_typed_when_the_dialog_says_so) {
    dialog.answer = [](const NMHDR& header) { return header.code == LVN_ENDLABELEDIT ? 1L : 0L; };
    list.EditLabel(1);
    typeLabel("uno");
    pressInLabel(Qt::Key_Return);
    EXPECT_EQ(list.GetItemText(1, 0), L"uno");
}

TEST_F(Lists, a_dialog_may_write_the_label_itself) {
    dialog.answer = [this](const NMHDR& header) {
        if (header.code == LVN_ENDLABELEDIT) {
            list.SetItemText(1, 0, reinterpret_cast<const NMLVDISPINFO&>(header).pszText);
        }
        return 0L;
    };
    list.EditLabel(1);
    typeLabel("uno");
    pressInLabel(Qt::Key_Return);
    EXPECT_EQ(list.GetItemText(1, 0), L"uno");
}

TEST_F(Lists, a_refused_label_edit_does_not_begin) {
    dialog.answer = [](const NMHDR& header) { return header.code == LVN_BEGINLABELEDIT ? 1L : 0L; };
    EXPECT_FALSE(list.EditLabel(1));
    EXPECT_EQ(take(), Log{"begin 1 one"});
    EXPECT_EQ(widget().labelEditor(), nullptr);
    EXPECT_FALSE(list.EditLabel(4));
    EXPECT_EQ(take(), Log{});
}

TEST_F(Lists, Esc_gives_a_label_edit_up_and_leaves_the_dialog_open) {
    list.EditLabel(2);
    typeLabel("x");
    take();
    pressInLabel(Qt::Key_Escape);
    EXPECT_EQ(take(), Log{"end 2 (given up)"});
    EXPECT_EQ(list.GetItemText(2, 0), L"two");
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(Lists, a_label_edit_that_loses_the_focus_ends_with_its_text) {
    list.EditLabel(2);
    typeLabel("deux");
    take();
    QTest::mouseClick(dialog.getWidgetsFromOrignal("IDC_ACTION"), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(take(), Log{"end 2 deux"});
}

TEST_F(Lists, a_second_label_edit_ends_the_first) {
    list.EditLabel(1);
    typeLabel("uno");
    take();
    EXPECT_TRUE(list.EditLabel(2));
    EXPECT_EQ(take(), (Log{"end 1 uno", "begin 2 two"}));
    ASSERT_NE(widget().labelEditor(), nullptr);
    EXPECT_EQ(widget().labelEditor()->text(), QStringLiteral("two"));
}

TEST_F(Lists, a_row_deleted_under_its_label_edit_ends_it_untold) {
    list.EditLabel(1);
    take();
    EXPECT_TRUE(list.DeleteItem(1));
    QApplication::processEvents();
    EXPECT_EQ(take(), Log{});
    EXPECT_EQ(widget().labelEditor(), nullptr);
}

TEST_F(Lists, clicks_and_keys_alone_never_begin_a_label_edit) {
    click(1);
    QTest::mouseDClick(widget().viewport(), Qt::LeftButton, Qt::NoModifier, place(1));
    QTest::keyClick(&widget(), Qt::Key_F2);
    EXPECT_EQ(widget().labelEditor(), nullptr);
}

TEST_F(Lists, adding_deleting_and_sorting_rows_never_signals) {
    click(1);
    take();
    signalled.clear();
    list.InsertItem(0, L"first");
    EXPECT_EQ(list.GetItemState(2, 3), LVIS_SELECTED | LVIS_FOCUSED);  // the chosen row has moved on
    list.DeleteItem(2);
    EXPECT_EQ(list.GetSelectedCount(), 0);
    list.SetItemState(1, 3, 3);
    take();
    signalled.clear();
    for (int row = 0; row < list.GetItemCount(); ++row) list.SetItemData(row, -row);
    list.SortItems([](std::int64_t a, std::int64_t b, std::int64_t) { return a < b ? -1 : a > b ? 1 : 0; }, 0);
    list.DeleteAllItems();
    EXPECT_EQ(take(), Log{});
    EXPECT_EQ(signalled, Log{});
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(Lists, SetItemState_signals_the_change_as_a_click_would) {
    EXPECT_TRUE(list.SetItemState(2, 3, 3));
    EXPECT_EQ(take(), Log{"selected 2"});
    EXPECT_EQ(list.GetItemState(2, 3), LVIS_SELECTED | LVIS_FOCUSED);
    EXPECT_TRUE(list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED));
    EXPECT_EQ(take(), (Log{"deselected 2", "selected 1"}));
    EXPECT_EQ(list.GetItemState(2, 3), LVIS_FOCUSED);
    EXPECT_TRUE(list.SetItemState(1, 0, LVIS_SELECTED));
    EXPECT_EQ(take(), Log{"deselected 1"});
    EXPECT_FALSE(list.SetItemState(9, 3, 3));
    EXPECT_EQ(list.GetItemState(9, 3), 0U);
}

TEST_F(Lists, rows_sort_stably_by_their_data_and_carry_choice_and_mark_along) {
    const int data[] = {3, 1, 3, 1};
    for (int row = 0; row < 4; ++row) list.SetItemData(row, data[row]);
    list.SetItemState(2, 3, 3);
    list.SetSelectionMark(2);
    EXPECT_TRUE(list.SortItems(
        [](std::int64_t a, std::int64_t b, std::int64_t extra) { return static_cast<int>((a - b) * extra); }, 1));
    Log order;
    for (int row = 0; row < 4; ++row) order.push_back(QString::fromStdWString(list.GetItemText(row, 0)).toStdString());
    EXPECT_EQ(order, (Log{"one", "three", "zero", "two"}));
    EXPECT_EQ(list.GetItemState(3, 3), LVIS_SELECTED | LVIS_FOCUSED);
    EXPECT_EQ(list.GetSelectionMark(), 3);
    EXPECT_FALSE(list.SortItems(nullptr, 0));
}

TEST_F(Lists, the_selection_mark_goes_along_with_its_row) {
    EXPECT_EQ(list.GetSelectionMark(), -1);
    EXPECT_EQ(list.SetSelectionMark(2), -1);
    list.InsertItem(0, L"before");
    EXPECT_EQ(list.GetSelectionMark(), 3);
    list.DeleteItem(0);
    EXPECT_EQ(list.GetSelectionMark(), 2);
    list.DeleteItem(3);
    EXPECT_EQ(list.GetSelectionMark(), 2);
    list.DeleteItem(2);
    EXPECT_EQ(list.GetSelectionMark(), -1);
}

TEST_F(Lists, columns_behind_the_first_keep_texts) {
    EXPECT_EQ(list.InsertColumn(0, L"", 0, 176), 0);
    EXPECT_EQ(list.InsertColumn(1, L"", 0, 0), 1);
    EXPECT_EQ(list.InsertColumn(9, L""), 2);
    EXPECT_TRUE(list.SetItemText(1, 1, L"more"));
    EXPECT_EQ(list.GetItemText(1, 1), L"more");
    EXPECT_EQ(list.GetItemText(1, 0), L"one");
    EXPECT_EQ(list.GetItemText(1, 2), L"");
    EXPECT_EQ(list.GetItemText(7, 0), L"");
    EXPECT_FALSE(list.SetItemText(7, 0, L"x"));
    EXPECT_FALSE(list.SetItemText(1, -1, L"x"));
}

TEST_F(Lists, rows_are_inserted_at_their_place_cut_to_the_count) {
    EXPECT_EQ(list.InsertItem(99, L"last"), 4);
    EXPECT_EQ(list.InsertItem(-5, L"first"), 0);
    EXPECT_EQ(list.GetItemText(0, 0), L"first");
    EXPECT_FALSE(list.DeleteItem(99));
    EXPECT_EQ(list.GetItemCount(), 6);
}

TEST(ListsWithoutAWidget, answer_as_an_empty_list) {
    CListCtrl none;
    EXPECT_EQ(none.GetItemCount(), 0);
    EXPECT_EQ(none.InsertItem(0, L"x"), -1);
    EXPECT_EQ(none.InsertColumn(0, L"x"), -1);
    EXPECT_FALSE(none.DeleteItem(0));
    EXPECT_FALSE(none.DeleteAllItems());
    EXPECT_FALSE(none.EditLabel(0));
    EXPECT_EQ(none.GetSelectedCount(), 0);
    EXPECT_EQ(none.GetSelectionMark(), -1);
    EXPECT_EQ(none.SetSelectionMark(1), -1);
    EXPECT_FALSE(none.SetItemState(0, 3, 3));
    EXPECT_EQ(none.GetItemText(0, 0), L"");
}

TEST(ListsOnPages, notify_the_page_and_not_the_dialog_around_it) {
    RecordingDialog dialog("BASE_TABS");
    RecordingDialog page("BASE_PAGE");
    CTabCtrl tabs;
    tabs.Attach(dialog.getWidgetsFromOrignal("IDC_TAB"));
    tabs.AddTab(0, L"Page", 0, &page);
    CListCtrl list;
    list.Attach(page.getWidgetsFromOrignal("IDC_PAGE_LIST"));
    list.InsertItem(0, L"row");
    dialog.open();
    page.take();
    dialog.take();
    list.SetItemState(0, 3, 3);
    EXPECT_EQ(page.take(), Log{"IDC_PAGE_LIST selected 0"});
    EXPECT_EQ(dialog.take(), Log{});
    page.setParent(nullptr);
}

}  // namespace
