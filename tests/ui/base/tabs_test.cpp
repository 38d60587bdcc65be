// Tabs with their pages, tab bars and sliders, under the mouse and the keys; and popup menus as such.

#include <gtest/gtest.h>

#include <QTabWidget>

#include "kd/ui/menu.h"
#include "kd/ui/uicreator.h"
#include "mfc/tabctrl.h"
#include "tests/ui/base/dialog.h"

using kdtest::Log;
using kdtest::RecordingDialog;

namespace {

/// A dialog with three tabs; what the widget signals is written down.
class Tabs : public ::testing::Test {
protected:
    Tabs() {
        tabs.Attach(dialog.getWidgetsFromOrignal("IDC_TAB"));
        dialog.record("IDC_TAB", "currentChanged(int)", "changed");
    }
    ~Tabs() override {
        for (RecordingDialog* page : pages) page->setParent(nullptr);  // members of a dialog end before their tabs
    }
    void add() {
        const wchar_t* titles[] = {L"&General", L"&Text", L"&Borders"};
        for (int page = 0; page < 3; ++page) EXPECT_TRUE(tabs.AddTab(page, titles[page], 108, pages[page]));
        dialog.open();
        dialog.take();
    }
    QTabBar* bar() { return tabs.widgetAs<QTabWidget>()->tabBar(); }
    int shown() const {
        int found = -1;
        for (int page = 0; page < 3; ++page) {
            if (!pages[page]->isVisible()) continue;
            EXPECT_EQ(found, -1) << "two pages are shown";
            found = page;
        }
        return found;
    }

    RecordingDialog dialog{"BASE_TABS"};
    RecordingDialog first{"BASE_PAGE"};
    RecordingDialog second{"BASE_PAGE"};
    RecordingDialog third{"BASE_PAGE"};
    RecordingDialog* pages[3] = {&first, &second, &third};
    CTabCtrl tabs;
};

TEST_F(Tabs, a_press_of_the_mouse_shows_the_page_and_signals_once) {
    add();
    QTest::mouseClick(bar(), Qt::LeftButton, {}, bar()->tabRect(2).center());
    EXPECT_EQ(tabs.GetCurSel(), 2);
    EXPECT_EQ(shown(), 2);
    EXPECT_EQ(dialog.take(), Log{"changed"});
    QTest::mouseClick(bar(), Qt::LeftButton, {}, bar()->tabRect(2).center());
    EXPECT_EQ(dialog.take(), Log{});
}

TEST_F(Tabs, arrows_walk_from_tab_to_tab_and_stop_at_the_ends) {
    add();
    bar()->setFocus();
    for (const int expected : {1, 2, 2}) {
        QTest::keyClick(bar(), Qt::Key_Right);
        EXPECT_EQ(shown(), expected);
    }
    EXPECT_EQ(dialog.take(), (Log{"changed", "changed"}));
    for (const int expected : {1, 0, 0}) {
        QTest::keyClick(bar(), Qt::Key_Left);
        EXPECT_EQ(shown(), expected);
    }
}

TEST_F(Tabs, tab_goes_from_the_tabs_into_the_page_shown_and_then_on_behind_them) {
    add();
    QTest::keyClick(&dialog, Qt::Key_T, Qt::AltModifier);
    bar()->setFocus();
    std::vector<QWidget*> tour;
    for (int step = 0; step < 4; ++step) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        tour.push_back(dialog.focusWidget());
    }
    for (int step = 0; step < 3; ++step) {
        EXPECT_TRUE(second.isAncestorOf(tour[static_cast<std::size_t>(step)])) << step;
    }
    EXPECT_EQ(tour[0]->objectName(), QStringLiteral("IDC_PAGE_EDIT"));
    EXPECT_FALSE(second.isAncestorOf(tour[3]));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(dialog.focusWidget(), tour[2]);
}

TEST_F(Tabs, a_mnemonic_shows_its_page) {
    add();
    QTest::keyClick(&dialog, Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(shown(), 2);
    QTest::keyClick(&dialog, Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(shown(), 1);
}

TEST_F(Tabs, SetCurSel_signals_when_the_tab_changes_and_passes_over_what_is_no_tab) {
    add();
    EXPECT_EQ(tabs.SetCurSel(2), 0);
    EXPECT_EQ(dialog.take(), Log{"changed"});
    EXPECT_EQ(tabs.SetCurSel(2), 2);
    EXPECT_EQ(tabs.SetCurSel(7), 2);
    EXPECT_EQ(tabs.SetCurSel(-1), 2);
    EXPECT_EQ(dialog.take(), Log{});
    EXPECT_EQ(shown(), 2);
}

TEST_F(Tabs, rectangles_of_tabs_are_where_the_mouse_finds_them) {
    add();
    for (int tab = 0; tab < 3; ++tab) {
        CRect rect;
        ASSERT_TRUE(tabs.GetItemRect(tab, rect));
        const QPoint middle(static_cast<int>(rect.left + rect.right) / 2, static_cast<int>(rect.top + rect.bottom) / 2);
        EXPECT_EQ(bar()->tabAt(bar()->mapFrom(tabs.widget(), middle)), tab);
    }
}

TEST_F(Tabs, a_page_whose_tree_is_missing_is_shown_empty_and_never_initialised) {
    RecordingDialog missing("BASE_MISSING");
    EXPECT_FALSE(missing.built);
    EXPECT_TRUE(tabs.AddTab(0, L"Missing", 1, &missing));
    dialog.open();
    EXPECT_EQ(tabs.GetItemCount(), 1);
    EXPECT_TRUE(missing.isVisible());
    EXPECT_EQ(missing.take(), Log{});
    EXPECT_EQ(missing.getWidgetsFromOrignal("IDC_PAGE_EDIT"), nullptr);
    missing.setParent(nullptr);
}

/// What a widget's own notification carries.
template <class Sender>
std::vector<unsigned> codesOf(Sender& sender, void (Sender::*signal)(NMHDR*, LRESULT*),
                              const std::function<void()>& act) {
    std::vector<unsigned> codes;
    const auto connection = QObject::connect(&sender, signal, [&](NMHDR* header, LRESULT* result) {
        EXPECT_EQ(header->hwndFrom, &sender);
        EXPECT_EQ(*result, 0);
        codes.push_back(static_cast<unsigned>(header->code));
    });
    act();
    QObject::disconnect(connection);
    return codes;
}

TEST(TabBars, tell_each_change_by_mouse_by_key_and_by_the_program) {
    KdUiTabBar bar;
    for (const char* title : {"One", "Two", "Three"}) bar.addTab(QString::fromLatin1(title));
    bar.show();
    const auto act = [&] {
        QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.tabRect(2).center());
        QTest::keyClick(&bar, Qt::Key_Left);
        bar.setCurrentIndex(0);
        bar.setCurrentIndex(0);
    };
    using Told = void (KdUiTabBar::*)(NMHDR*, LRESULT*);
    EXPECT_EQ(codesOf(bar, static_cast<Told>(&KdUiTabBar::currentChanged), act),
              (std::vector<unsigned>(3, static_cast<unsigned>(TCN_SELCHANGE))));
}

TEST(Sliders, tell_each_step_by_key_by_wheel_and_by_the_program) {
    KdUiSlider slider;
    slider.setRange(0, 100);
    slider.show();
    const auto act = [&] {
        QTest::keyClick(&slider, Qt::Key_Up);
        QTest::keyClick(&slider, Qt::Key_End);
        slider.setValue(50);
        slider.setValue(50);
    };
    EXPECT_EQ(codesOf(slider, &KdUiSlider::OnSliderValueChange, act),
              (std::vector<unsigned>(3, static_cast<unsigned>(NM_CUSTOMDRAW))));
    EXPECT_EQ(slider.value(), 50);
}

/// The menu of the tests' tree, open at a corner of the screen.
class PopupMenus : public ::testing::Test {
protected:
    PopupMenus() {
        EXPECT_TRUE(creator.generate(QStringLiteral("BASE_MENU")));
        menu = qobject_cast<KdUiMenu*>(creator.widgets().first());
        QObject::connect(menu, &QMenu::triggered, menu,
                         [this](const QAction* action) { chosen << action->objectName(); });
        menu->popup(QPoint(10, 10));
        QApplication::processEvents();
    }
    void press(int key) {
        QWidget* open = QApplication::activePopupWidget();
        ASSERT_NE(open, nullptr);
        QTest::keyClick(open, static_cast<Qt::Key>(key));
    }

    QWidget parent;
    VqUICreator creator{&parent, QStringLiteral("KdUiTests"), 3};
    KdUiMenu* menu = nullptr;
    QStringList chosen;
};

TEST_F(PopupMenus, an_item_is_chosen_by_the_mouse) {
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions()[2]).center());
    EXPECT_EQ(chosen, QStringList{QStringLiteral("IDR_SECOND")});
    EXPECT_FALSE(menu->isVisible());
}

TEST_F(PopupMenus, arrows_pass_over_separators_and_Enter_chooses) {
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList{QStringLiteral("IDR_SECOND")});
}

TEST_F(PopupMenus, a_mnemonic_chooses_and_opens_what_lies_below) {
    press(Qt::Key_M);
    EXPECT_EQ(chosen, QStringList());
    press(Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList{QStringLiteral("IDR_DEEP")});
}

TEST_F(PopupMenus, Esc_chooses_nothing_and_a_disabled_item_can_not_be_chosen) {
    menu->actions()[0]->setEnabled(false);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions()[0]).center());
    press(Qt::Key_F);
    press(Qt::Key_Escape);
    EXPECT_EQ(chosen, QStringList());
    EXPECT_FALSE(menu->isVisible());
}

}  // namespace
