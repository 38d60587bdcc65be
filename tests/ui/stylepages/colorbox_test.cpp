// The list of background colours: its entry for none before the host's colours.

#include "host/ui/automation/automation.h"
#include "host/ui/dialogs/colorpalette.h"
#include "kd/db/symboltable.h"
#include "module/controls/tablecolorcombobox.h"
#include "module/core/openobject.h"
#include "tests/support/resourcemodule.h"
#include "tests/ui/combo/fixture.h"

namespace kdtest {
namespace {

constexpr int kRows = 11;  // none, by layer, by block, seven colours, other
constexpr int kOther = kRows - 1;

class BackgroundColorBox : public BoxTest {
protected:
    BackgroundColorBox() { box.Attach(combo); }
    ~BackgroundColorBox() override { box.Attach(nullptr); }
    void answer(const wchar_t* text, const std::function<void()>& run) {
        inDialog([&](QWidget&) { EXPECT_EQ(kdhost::automation::color(text), L""); }, run);
    }
    KdCmColor color() const {
        KdCmColor current = KdCmColor::fromIndex(99);
        EXPECT_TRUE(box.GetCurrentItemColor(current));
        return current;
    }

    ResourceModule resources;
    CVqTableColorComboBox box;
};

TEST_F(BackgroundColorBox, Lists_no_background_first_and_then_the_hosts_colours) {
    ASSERT_EQ(box.GetCount(), kRows);
    EXPECT_EQ(textOf(box, 0), L"None");
    EXPECT_EQ(textOf(box, 1), L"By layer");
    EXPECT_EQ(textOf(box, 2), L"By block");
    EXPECT_EQ(textOf(box, 3), L"Red");
    EXPECT_EQ(textOf(box, kOther), std::wstring(box.GetOtherName()));
    EXPECT_EQ(box.GetCurSel(), 0);
    EXPECT_EQ(signalled, 0);
    const auto none = combo->itemData(0, kColorItemRole).value<ColorItemData>();
    EXPECT_EQ(none.kind, -1);
    EXPECT_TRUE(none.color.isNone());
    EXPECT_FALSE(combo->itemIcon(0).isNull());
}

TEST_F(BackgroundColorBox, Is_in_the_hosts_language_and_keeps_its_row_when_filled_again) {
    box.SetCurSel(4);
    box.AddItems();
    EXPECT_EQ(box.GetCurSel(), 4);
    ASSERT_EQ(box.GetCount(), kRows);
    kdhost::setLanguage(kdhost::Language::Chinese);
    box.AddItems();
    EXPECT_EQ(textOf(box, 0), L"无");
}

TEST_F(BackgroundColorBox, Row_0_is_no_colour_and_the_others_are_the_hosts) {
    EXPECT_TRUE(color().isNone());
    box.SetCurSel(1);
    EXPECT_TRUE(color().isByLayer());
    box.SetCurSel(2);
    EXPECT_TRUE(color().isByBlock());
    box.SetCurSel(5);
    EXPECT_EQ(color(), KdCmColor::fromIndex(3));
    KdCmColor kept = KdCmColor::fromIndex(99);
    box.SetCurSel(-1);
    EXPECT_FALSE(box.GetCurrentItemColor(kept));
    EXPECT_EQ(kept, KdCmColor::fromIndex(99));
}

TEST_F(BackgroundColorBox, Finds_rows_by_colour_and_by_text) {
    EXPECT_EQ(box.FindItemByColor(KdCmColor::none()), 0);
    EXPECT_EQ(box.FindItemByColor(KdCmColor::fromIndex(1)), 3);
    EXPECT_EQ(box.FindItemByColor(KdCmColor::fromIndex(77)), -1);
    EXPECT_EQ(box.FindOtherItem(L"None"), 0);
    EXPECT_EQ(box.FindOtherItem(L"none"), -1);
    EXPECT_EQ(box.FindOtherItem(box.GetOtherName()), kOther);
}

TEST_F(BackgroundColorBox, Another_colour_is_added_before_the_entry_that_asks_and_found_the_next_time) {
    answer(L"10,20,30", [&] { pickInList(kOther); });
    EXPECT_EQ(box.GetCurSel(), kOther);
    EXPECT_EQ(color(), KdCmColor::fromRgb(10, 20, 30));
    EXPECT_EQ(box.GetCount(), kRows + 1);
    box.SetCurSel(0);
    answer(L"10,20,30", [&] { pickInList(kOther + 1); });
    EXPECT_EQ(box.GetCurSel(), kOther);
    EXPECT_EQ(box.GetCount(), kRows + 1);
}

TEST_F(BackgroundColorBox, The_dialog_starts_with_by_layer_from_none_and_else_with_the_row_before) {
    OpenObject<KdDbLayerTableRecord>(host.database().clayer(), KdDb::kForWrite)->setColor(KdCmColor::fromIndex(141));
    const auto shown = [&](int row) {
        box.SetCurSel(row);
        int index = 0;
        inDialog(
            [&](QWidget& dialog) {
                index = dialog.findChild<kdhost::ColorPalette*>(QStringLiteral("IDC_COLOR_PALETTE"))->index();
                EXPECT_EQ(kdhost::automation::color(L"CANCEL"), L"");
            },
            [&] { pickInList(kOther); });
        EXPECT_EQ(box.GetCurSel(), row) << "cancelled";
        return index;
    };
    EXPECT_EQ(shown(3), 1);
    EXPECT_EQ(shown(0), shown(1)) << "as from by layer";
}

TEST_F(BackgroundColorBox, Without_a_widget_it_has_nothing) {
    CVqTableColorComboBox empty;
    KdCmColor kept = KdCmColor::fromIndex(99);
    EXPECT_FALSE(empty.GetCurrentItemColor(kept));
    EXPECT_EQ(empty.FindItemByColor(KdCmColor::none()), -1);
}

}  // namespace
}  // namespace kdtest
