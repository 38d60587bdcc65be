// The colour box: its rows, its silence, and its entry that asks.

#include <QListWidget>

#include "host/ui/automation/automation.h"
#include "tests/ui/combo/fixture.h"

namespace {

using kdtest::BoxTest;

constexpr int kRows = 10;  // by layer, by block, seven colours, other
constexpr int kOther = kRows - 1;

class ColorBox : public BoxTest {
protected:
    ColorBox() { box.Attach(combo); }
    void answer(const char* text, const std::function<void()>& run) {
        inDialog([&](QWidget&) { EXPECT_EQ(kdhost::automation::color(QString::fromLatin1(text).toStdWString()), L""); },
                 run);
    }
    KdCmColor color() const {
        KdCmColor current = KdCmColor::none();
        EXPECT_TRUE(box.GetCurrentItemColor(current));
        return current;
    }

    CKdUiTrueColorComboBox box;
};

TEST_F(ColorBox, an_attached_box_has_its_rows_and_shows_the_first_without_a_signal) {
    ASSERT_EQ(box.GetCount(), kRows);
    EXPECT_EQ(box.GetCurSel(), 0);
    EXPECT_EQ(textOf(box, 0), L"By layer");
    EXPECT_EQ(textOf(box, 1), L"By block");
    EXPECT_EQ(textOf(box, 2), L"Red");
    EXPECT_EQ(textOf(box, 8), L"Black or white");
    EXPECT_EQ(textOf(box, kOther), std::wstring(box.GetOtherName()));
    EXPECT_EQ(signalled, 0);
}

TEST_F(ColorBox, rows_hold_their_kind_and_colour_under_the_item_role) {
    const int kinds[] = {-102, -102, 1, 1, 1, 1, 1, 1, 1, -102};
    for (int row = 0; row < kRows; ++row) {
        EXPECT_EQ(combo->itemData(row, kColorItemRole).value<ColorItemData>().kind, kinds[row]) << row;
    }
    EXPECT_EQ(combo->itemData(4, kColorItemRole).value<ColorItemData>().color, KdCmColor::fromIndex(3));
}

TEST_F(ColorBox, rows_are_in_the_hosts_language) {
    kdhost::setLanguage(kdhost::Language::Chinese);
    box.AddItems();
    EXPECT_EQ(textOf(box, 0), L"随层");
    EXPECT_EQ(textOf(box, kOther), L"选择颜色...");
    EXPECT_EQ(box.GetCount(), kRows);
}

TEST_F(ColorBox, other_stays_what_it_is_when_the_language_changes) {
    kdhost::setLanguage(kdhost::Language::Chinese);
    EXPECT_EQ(textOf(box, kOther), std::wstring(box.GetOtherName()));
    EXPECT_EQ(box.AddColorToMRU(KdCmColor::fromRgb(1, 2, 3)), kOther) << "before the other entry";
    box.SetCurSel(2);
    answer("CANCEL", [&] { pickInList(kOther + 1); });
    EXPECT_EQ(box.GetCurSel(), 2);
}

TEST_F(ColorBox, choosing_and_adding_rows_from_the_program_does_not_signal) {
    for (const int row : {3, 0, 8, -1, 5}) EXPECT_EQ(box.SetCurSel(row), row);
    EXPECT_EQ(box.SetCurSel(99), -1);
    EXPECT_EQ(box.AddColorToMRU(KdCmColor::fromRgb(1, 2, 3)), kOther);
    box.AddItems();
    EXPECT_EQ(signalled, 0);
}

TEST_F(ColorBox, a_colour_is_found_in_its_row) {
    EXPECT_EQ(box.FindItemByColor(KdCmColor()), 0);
    EXPECT_EQ(box.FindItemByColor(KdCmColor::byBlock()), 1);
    EXPECT_EQ(box.FindItemByColor(KdCmColor::fromIndex(5)), 6);
    EXPECT_EQ(box.FindItemByColor(KdCmColor::none()), -1);
    EXPECT_EQ(box.FindItemByColor(KdCmColor::fromIndex(8)), -1);
    EXPECT_EQ(box.FindItemByColor(KdCmColor::fromRgb(255, 0, 0)), -1);
}

TEST_F(ColorBox, an_added_colour_stands_before_other_and_once) {
    box.SetCurSel(2);
    const KdCmColor added = KdCmColor::fromRgb(10, 20, 30);
    EXPECT_EQ(box.AddColorToMRU(added), kOther);
    EXPECT_EQ(box.AddColorToMRU(added), kOther);
    EXPECT_EQ(box.AddColorToMRU(KdCmColor::fromIndex(2)), 3);
    EXPECT_EQ(box.GetCount(), kRows + 1);
    EXPECT_EQ(textOf(box, kOther), L"10,20,30");
    EXPECT_EQ(textOf(box, kRows), std::wstring(box.GetOtherName()));
    EXPECT_EQ(combo->itemData(kOther, kColorItemRole).value<ColorItemData>().kind, -3);
    EXPECT_EQ(box.GetCurSel(), 2);
}

TEST_F(ColorBox, boxes_filled_later_have_the_last_eight_colours) {
    for (int blue = 0; blue < 10; ++blue) box.AddColorToMRU(KdCmColor::fromRgb(1, 1, blue));
    KdUiComboBox laterWidget;
    CKdUiTrueColorComboBox later;
    later.Attach(&laterWidget);
    EXPECT_EQ(later.GetCount(), kRows + 8);
    EXPECT_EQ(later.FindItemByColor(KdCmColor::fromRgb(1, 1, 1)), -1);
    EXPECT_EQ(later.FindItemByColor(KdCmColor::fromRgb(1, 1, 2)), kOther);
}

TEST_F(ColorBox, no_colour_is_told_without_a_row) {
    KdCmColor color = KdCmColor::fromIndex(4);
    box.SetCurSel(-1);
    EXPECT_FALSE(box.GetCurrentItemColor(color));
    box.SetCurSel(kOther);
    EXPECT_FALSE(box.GetCurrentItemColor(color));
    EXPECT_EQ(color, KdCmColor::fromIndex(4));
}

TEST_F(ColorBox, the_users_choice_of_other_asks_and_shows_the_answer) {
    answer("12,34,56", [&] { pickInList(kOther); });
    EXPECT_EQ(color(), KdCmColor::fromRgb(12, 34, 56));
    EXPECT_EQ(box.GetCurSel(), kOther);
    EXPECT_EQ(signalled, 1) << "the choice of the row alone signals";
    EXPECT_EQ(box.GetLastSelection(), kOther);
}

TEST_F(ColorBox, a_cancelled_other_goes_back_to_the_row_before) {
    box.SetCurSel(4);
    answer("CANCEL", [&] { pickInList(kOther); });
    EXPECT_EQ(box.GetCurSel(), 4);
    EXPECT_EQ(box.GetCount(), kRows);
}

TEST_F(ColorBox, a_handler_that_ends_the_choice_itself_asks_only_once) {
    int asked = 0;
    onChange = [&] {
        box.clearDropFlags(0x20 | 0x40);
        box.OnSelEndOk();
        box.OnCloseUp();
        ++asked;
    };
    answer("3", [&] { pickInList(kOther); });
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(color(), KdCmColor::fromIndex(3));
    EXPECT_EQ(box.GetCount(), kRows);
}

TEST_F(ColorBox, the_arrow_keys_choose_and_signal) {
    box.SetCurSel(2);
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(box.GetCurSel(), 3);
    EXPECT_EQ(signalled, 1);
    EXPECT_EQ(box.GetLastSelection(), 3);
}

TEST_F(ColorBox, stepping_onto_other_by_key_asks_too) {
    box.SetCurSel(kOther - 1);
    answer("CANCEL", [&] { QTest::keyClick(combo, Qt::Key_Down); });
    EXPECT_EQ(box.GetCurSel(), kOther - 1);
}

TEST_F(ColorBox, the_drop_flags_are_set_while_the_list_is_open) {
    EXPECT_EQ(box.dropFlags(), 0U);
    combo->showPopup();
    EXPECT_EQ(box.dropFlags(), 0x60U);
    box.clearDropFlags(0x40);
    EXPECT_EQ(box.dropFlags(), 0x20U);
    box.OnCloseUp();
    EXPECT_EQ(box.dropFlags(), 0U);
    EXPECT_FALSE(box.GetDroppedState());
}

TEST_F(ColorBox, samples_are_painted_in_the_style_of_colours_only) {
    box.SetCurSel(2);
    const auto reds = [&] {
        const QImage picture = combo->grab().toImage();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, y) == QColor(255, 0, 0) ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(reds(), 0);
    combo->setComboBoxStyle(3);
    EXPECT_GT(reds(), 20);
    combo->setComboBoxStyle(1);
    EXPECT_EQ(reds(), 0);
}

TEST_F(ColorBox, a_list_stands_in_for_a_box) {
    QListWidget list;
    CKdUiTrueColorComboBox over;
    ASSERT_TRUE(over.Create(&list));
    EXPECT_EQ(over.GetCount(), kRows);
    EXPECT_EQ(over.SetCurSel(3), 3);
    KdCmColor color;
    EXPECT_TRUE(over.GetCurrentItemColor(color));
    EXPECT_EQ(color, KdCmColor::fromIndex(2));
}

TEST_F(ColorBox, without_a_widget_everything_answers_as_for_an_empty_box) {
    CKdUiTrueColorComboBox none;
    none.Attach(nullptr);
    none.AddItems();
    KdCmColor color;
    EXPECT_EQ(none.GetCount(), 0);
    EXPECT_EQ(none.SetCurSel(1), -1);
    EXPECT_FALSE(none.GetCurrentItemColor(color));
    EXPECT_EQ(none.FindItemByColor(color), -1);
    EXPECT_EQ(none.AddColorToMRU(KdCmColor::fromRgb(9, 9, 9)), -1);
    none.OnSelEndOk();
    none.OnCloseUp();
    EXPECT_FALSE(none.Create(nullptr));
    EXPECT_FALSE(none.Create(plain));
    EXPECT_EQ(none.widget(), nullptr);
}

TEST_F(ColorBox, a_box_whose_widget_is_gone_answers_as_an_empty_one) {
    delete combo;
    EXPECT_EQ(box.GetCount(), 0);
    EXPECT_EQ(box.SetCurSel(0), -1);
    EXPECT_EQ(box.FindItemByColor(KdCmColor()), -1);
    box.AddItems();
}

TEST_F(ColorBox, a_widget_that_outlives_its_wrapper_is_an_ordinary_box) {
    auto second = std::make_unique<CKdUiTrueColorComboBox>();
    KdUiComboBox widget;
    second->Attach(&widget);
    second.reset();
    widget.setCurrentIndex(widget.count() - 1);
    QTest::keyClick(&widget, Qt::Key_Up);
    EXPECT_EQ(widget.currentIndex(), kRows - 2);
}

/// A box with one more row in front, as a module's own may have.
class BoxWithNone : public CKdUiTrueColorComboBox {
public:
    bool GetCurrentItemColor(KdCmColor& color) const override {
        if (GetCurSel() != 0) return CKdUiTrueColorComboBox::GetCurrentItemColor(color);
        color = KdCmColor::none();
        return true;
    }

protected:
    void OnAddItems() override {
        CKdUiTrueColorComboBox::OnAddItems();
        InsertString(0, L"No fill");
        widgetAs<QComboBox>()->setItemData(0, QVariant::fromValue(ColorItemData{-1, KdCmColor::none()}),
                                           kColorItemRole);
    }
};

TEST_F(ColorBox, a_derived_box_puts_a_row_in_front) {
    BoxWithNone derived;
    derived.Attach(combo);
    EXPECT_EQ(derived.GetCount(), kRows + 1);
    EXPECT_EQ(derived.FindItemByColor(KdCmColor::none()), 0);
    EXPECT_EQ(derived.FindItemByColor(KdCmColor()), 1);
    derived.SetCurSel(0);
    KdCmColor color;
    EXPECT_TRUE(derived.GetCurrentItemColor(color));
    EXPECT_TRUE(color.isNone());
    EXPECT_FALSE(combo->itemIcon(0).isNull());
}

}  // namespace
