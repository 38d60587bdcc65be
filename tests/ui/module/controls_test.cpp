// The module's control classes over real widgets.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QTabWidget>
#include <QTest>

#include "kd/ui/hostdialogs.h"
#include "kd/ui/widgets.h"
#include "module/controls/bitmapbutton.h"
#include "module/controls/comboboxes.h"
#include "module/controls/tabsheet.h"
#include "tests/ui/module/fixture.h"

namespace kdtest {
namespace {

using BitmapButton = ModuleResources;

TEST_F(BitmapButton, Shows_the_bitmap_of_that_name) {
    KdUiPushButton widget;
    CVqBitmapButton button;
    button.Attach(&widget);
    button.setBitmapId(QStringLiteral("IDB_TABLESTYLE_CREATE_BMP"), 0xff00ff);
    EXPECT_EQ(widget.iconSize(), QSize(16, 16));
    button.setBitmapId(QStringLiteral("IDB_TABLESTYLE_CREATE_BMP_3X"), 0xff00ff);
    EXPECT_EQ(widget.iconSize(), QSize(48, 48));
}

TEST_F(BitmapButton, Keeps_its_picture_when_the_bitmap_is_missing) {
    KdUiPushButton widget;
    CVqBitmapButton button;
    button.Attach(&widget);
    button.setBitmapId(QStringLiteral("IDB_MISSING_BMP"), 0);
    EXPECT_TRUE(widget.icon().isNull());
}

TEST_F(BitmapButton, The_mask_has_red_in_its_lowest_byte) {
    // Two pixels: red 0x00, green 0x82, blue 0x84, then white.
    const TestResources picture(
        {{QStringLiteral("IDB_MASKED_BMP"), QByteArray("P6 2 1 255\n") + QByteArray("\x00\x82\x84\xff\xff\xff", 6)}});
    KdUiPushButton widget;
    CVqBitmapButton button;
    button.Attach(&widget);
    const auto alpha = [&](int x) { return widget.icon().pixmap(2, 1).toImage().pixelColor(x, 0).alpha(); };

    button.setBitmapId(QStringLiteral("IDB_MASKED_BMP"), 0x848200);
    EXPECT_EQ(alpha(0), 0);
    EXPECT_EQ(alpha(1), 255);
    button.setBitmapId(QStringLiteral("IDB_MASKED_BMP"), 0x008284);
    EXPECT_EQ(alpha(0), 255);
}

TEST(BitmapButtonWithoutWidget, Does_nothing) {
    CVqBitmapButton button;
    button.setBitmapId(QStringLiteral("IDB_TABLESTYLE_CREATE_BMP"), 0xff00ff);
    button.setFocusState(3);
    button.OnSetFocus();
    button.OnKillFocus();
    button.OnMouseLeave();
    EXPECT_EQ(button.focusState(), 3);
    EXPECT_EQ(button.OnEraseBkgnd(), 1);
}

/// Counts its paintings.
class PaintedButton : public KdUiPushButton {
public:
    int paintings = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++paintings;
        KdUiPushButton::paintEvent(event);
    }
};

TEST(BitmapButtonRepaints, At_each_change_of_focus_and_when_the_mouse_leaves) {
    PaintedButton widget;
    CVqBitmapButton button;
    button.Attach(&widget);
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    const auto repaints = [&](const auto& act) {
        QCoreApplication::processEvents();
        const int before = widget.paintings;
        act();
        QCoreApplication::processEvents();
        return widget.paintings > before;
    };
    EXPECT_FALSE(repaints([] {}));
    EXPECT_TRUE(repaints([&] { button.setFocusState(1); }));
    EXPECT_TRUE(repaints([&] { button.OnSetFocus(); }));
    EXPECT_TRUE(repaints([&] { button.OnKillFocus(); }));
    EXPECT_TRUE(repaints([&] { button.OnMouseLeave(); }));
    EXPECT_FALSE(repaints([&] {
        button.OnEraseBkgnd();
        button.DrawItem();
        button.OnMouseMove();
        button.drawFrame();
        button.drawBitmap();
        button.drawFocus();
        button.TransparentBlt();
        button.DisabledBlt();
    }));
    EXPECT_EQ(button.focusState(), 1);
}

class TabSheet : public ::testing::Test {
protected:
    TabSheet() {
        tabs.resize(300, 200);
        tabs.addTab(new QWidget, QStringLiteral("General"));
        tabs.addTab(new QWidget, QStringLiteral("Text"));
        sheet.Attach(&tabs);
        for (QWidget* page : {&first, &second}) page->setParent(&tabs);
        tabs.show();
    }

    // The pages go before their parent does.
    QTabWidget tabs;
    KdUiBaseDialog first;
    KdUiBaseDialog second;
    CVqTabSheet sheet;
};

TEST_F(TabSheet, Holds_sixteen_pages) {
    for (int page = 0; page < 16; ++page) EXPECT_EQ(sheet.AddPage(L"page", &first, 1), 1) << page;
    EXPECT_EQ(sheet.AddPage(L"page", &first, 1), 0);
    EXPECT_EQ(sheet.pageCount(), 16);
}

TEST_F(TabSheet, Lays_pages_out_below_the_first_tab_and_shows_the_first) {
    sheet.AddPage(L"General", &first, 1);
    sheet.AddPage(L"Text", &second, 2);
    sheet.Show();
    CRect tab;
    ASSERT_TRUE(sheet.GetItemRect(0, tab));
    const int left = static_cast<int>(tab.left);
    const int top = static_cast<int>(tab.bottom) + 1;
    const QRect area(left, top, 300 - left - 2, 200 - top - 2);
    EXPECT_EQ(first.geometry(), area);
    EXPECT_EQ(second.geometry(), area);
    EXPECT_TRUE(first.isVisible());
    EXPECT_FALSE(second.isVisible());
}

TEST_F(TabSheet, Without_tabs_pages_stay_where_they_are) {
    tabs.clear();
    sheet.AddPage(L"General", &first, 1);
    const QRect before = first.geometry();
    sheet.SetRect();
    EXPECT_EQ(first.geometry(), before);
}

TEST_F(TabSheet, Tells_the_tab_that_is_shown) {
    EXPECT_EQ(sheet.GetCurSel(), 0);
    tabs.setFocus();
    QTest::keyClick(tabs.tabBar(), Qt::Key_Right);
    EXPECT_EQ(sheet.GetCurSel(), 1);
    EXPECT_EQ(CVqTabSheet().GetCurSel(), -1);
}

TEST(CustomComboBox, Heights_are_cut_to_whole_pixels_at_each_scale) {
    struct Heights {
        double scale;
        unsigned edit;
        unsigned row;
    };
    for (const Heights& expected :
         {Heights{1.0, 15, 16}, {1.25, 18, 20}, {1.5, 22, 24}, {2.0, 30, 32}, {3.0, 45, 48}}) {
        KdUiComboBox widget;
        widget.addItem(QStringLiteral("row"));
        CVqCustomComboBox box;
        box.Attach(&widget);
        box.UseHeightsAtScale(expected.scale);
        EXPECT_EQ(box.GetItemHeight(-1), expected.edit) << expected.scale;
        EXPECT_EQ(box.GetItemHeight(0), expected.row) << expected.scale;
    }
}

TEST(CustomComboBox, The_normal_height_is_that_of_the_screen) {
    KdUiComboBox widget;
    widget.addItem(QStringLiteral("row"));
    CVqCustomComboBox box;
    box.Attach(&widget);
    box.UseNormalHeight();
    EXPECT_EQ(box.GetItemHeight(-1), static_cast<unsigned>(15.0 * kdadGetDPIScale()));
    EXPECT_EQ(box.GetItemHeight(0), static_cast<unsigned>(16.0 * kdadGetDPIScale()));
}

/// A box with rows as they are given.
class SpecialBox : public ::testing::Test {
protected:
    SpecialBox() { box.Attach(&widget); }

    void fill(const QStringList& rows) {
        widget.clear();
        widget.addItems(rows);
    }
    QStringList rows() const {
        QStringList texts;
        for (int row = 0; row < widget.count(); ++row) texts << widget.itemText(row);
        return texts;
    }

    KdUiComboBox widget;
    CVqSpecialComboBox box;
};

TEST_F(SpecialBox, Keeps_its_compart_index) {
    EXPECT_EQ(box.compartIndex(), -1);
    EXPECT_EQ(box.SetCompartIndex(4), 1);
    EXPECT_EQ(box.compartIndex(), 4);
}

TEST_F(SpecialBox, Sorted_adding_puts_a_text_before_its_equals) {
    EXPECT_EQ(box.AddString(L"b", true), 0);
    EXPECT_EQ(box.AddString(L"a", true), 0);
    EXPECT_EQ(box.AddString(L"c", true), 2);
    EXPECT_EQ(box.AddString(L"B", true), 1);
    EXPECT_EQ(box.AddString(L"1", true), 0);
    EXPECT_EQ(rows(), (QStringList{QStringLiteral("1"), QStringLiteral("a"), QStringLiteral("B"), QStringLiteral("b"),
                                   QStringLiteral("c")}));
}

TEST_F(SpecialBox, Unsorted_adding_appends) {
    fill({QStringLiteral("m")});
    EXPECT_EQ(box.AddString(L"a", false), 1);
    EXPECT_EQ(box.AddString(L"b"), 2);
    EXPECT_EQ(rows(), (QStringList{QStringLiteral("m"), QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(SpecialBox, The_sort_index_is_the_first_row_that_does_not_come_before) {
    EXPECT_EQ(box.GetSortIndex(L"x"), 0);
    fill({QStringLiteral("  b  "), QStringLiteral("d"), QStringLiteral("a")});
    EXPECT_EQ(box.GetSortIndex(L"b"), 0);  // blanks around a row don't count
    EXPECT_EQ(box.GetSortIndex(L"c"), 1);
    EXPECT_EQ(box.GetSortIndex(L"e"), 3);  // the unsorted row behind is passed, too
    EXPECT_EQ(box.GetSortIndex(L" b"), 0);
}

TEST_F(SpecialBox, Adding_does_not_choose_a_row) {
    box.AddString(L"b", true);
    EXPECT_EQ(box.GetCurSel(), -1);
    box.SetCurSel(0);
    box.AddString(L"a", true);
    EXPECT_EQ(box.GetCurSel(), 1);
    box.DrawItem();
    box.OnLButtonUp();
    EXPECT_EQ(box.GetCurSel(), 1);
}

}  // namespace
}  // namespace kdtest
