// The boxes of line weights and line types.

#include <QListWidget>
#include <QPushButton>

#include "host/db/access.h"
#include "host/ui/linetypes.h"
#include "kd/db/symboltable.h"
#include "tests/ui/combo/fixture.h"

namespace {

using kdtest::BoxTest;

class WeightBox : public BoxTest {
protected:
    WeightBox() { box.Attach(combo); }
    CKdUiLineWeightComboBox box;
};

TEST_F(WeightBox, rows_are_by_layer_by_block_default_and_the_weights_in_order) {
    ASSERT_EQ(box.GetCount(), 27);
    EXPECT_EQ(textOf(box, 0), L"By layer");
    EXPECT_EQ(textOf(box, 1), L"By block");
    EXPECT_EQ(textOf(box, 2), L"Default");
    EXPECT_EQ(textOf(box, 3), L"0.00 mm");
    EXPECT_EQ(textOf(box, 26), L"2.11 mm");
    for (int row = 4; row < 27; ++row) EXPECT_GT(box.GetItemData(row), box.GetItemData(row - 1)) << row;
    kdhost::setLanguage(kdhost::Language::Chinese);
    box.AddItems();
    EXPECT_EQ(textOf(box, 10), L"0.25 毫米");
}

TEST_F(WeightBox, every_weight_is_found_and_comes_back) {
    for (int row = 0; row < box.GetCount(); ++row) {
        const auto weight = static_cast<KdDb::LineWeight>(box.GetItemData(row));
        EXPECT_EQ(box.FindItemByLineWeight(weight), row);
        box.SetCurrentItemLineWeight(weight);
        EXPECT_EQ(box.GetCurrentItemLineWeight(), weight);
    }
    EXPECT_EQ(signalled, 0);
}

TEST_F(WeightBox, a_weight_without_a_row_leaves_none_selected_which_means_by_layer) {
    EXPECT_EQ(box.FindItemByLineWeight(static_cast<KdDb::LineWeight>(7)), -1);
    box.SetCurrentItemLineWeight(static_cast<KdDb::LineWeight>(7));
    EXPECT_EQ(box.GetCurSel(), -1);
    EXPECT_EQ(box.GetCurrentItemLineWeight(), KdDb::kLnWtByLayer);
}

TEST_F(WeightBox, it_has_no_other_entry) {
    EXPECT_TRUE(box.GetOtherName().IsEmpty());
    box.SetCurSel(26);
    box.OnSelEndOk();
    EXPECT_EQ(box.GetCurSel(), 26);
    EXPECT_FALSE(box.SelectOther(1));
    EXPECT_EQ(box.GetCurSel(), 26);
}

TEST_F(WeightBox, a_heavier_line_has_a_thicker_sample) {
    combo->setComboBoxStyle(2);
    const auto ink = [&](KdDb::LineWeight weight) {
        const QImage picture = combo->itemIcon(box.FindItemByLineWeight(weight)).pixmap(64, 16).toImage();
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) count += qAlpha(picture.pixel(32, y)) > 128 ? 1 : 0;
        return count;
    };
    EXPECT_EQ(ink(KdDb::kLnWt000), 1);
    EXPECT_LT(ink(KdDb::kLnWt025), ink(KdDb::kLnWt100));
    EXPECT_LT(ink(KdDb::kLnWt100), ink(KdDb::kLnWt211));
}

class TypeBox : public BoxTest {
protected:
    TypeBox() {
        box.setDatabase(&host.database());
        box.Attach(combo);
    }
    int other() const { return box.GetCount() - 1; }
    CKdUiLineTypeComboBox box;
};

TEST_F(TypeBox, rows_are_by_layer_by_block_the_drawings_others_and_other) {
    const auto types = static_cast<int>(kdhost::linetypesOf(&host.database()).size());
    ASSERT_EQ(box.GetCount(), types + 1);
    EXPECT_EQ(textOf(box, 0), L"By layer");
    EXPECT_EQ(textOf(box, 1), L"By block");
    EXPECT_EQ(textOf(box, 2), L"Continuous");
    EXPECT_EQ(textOf(box, other()), std::wstring(box.GetOtherName()));
    EXPECT_EQ(box.GetItemLinetype(0), host.database().byLayerLinetype());
    EXPECT_EQ(box.GetItemLinetype(1), host.database().byBlockLinetype());
    EXPECT_EQ(box.FindItemByLinetype(host.database().continuousLinetype()), 2);
    EXPECT_TRUE(box.GetItemLinetype(other()).isNull());
    EXPECT_TRUE(box.GetItemLinetype(-1).isNull());
    EXPECT_EQ(box.FindItemByLinetype(KdDbObjectId::kNull), -1);
}

TEST_F(TypeBox, without_a_database_of_its_own_it_lists_the_working_one) {
    CKdUiLineTypeComboBox working;
    KdUiComboBox widget;
    working.Attach(&widget);
    EXPECT_EQ(working.GetCount(), box.GetCount());
    kddbHostApplicationServices()->setWorkingDatabase(nullptr);
    working.AddItems();
    EXPECT_EQ(working.GetCount(), 1);
    kddbHostApplicationServices()->setWorkingDatabase(&host.database());
}

TEST_F(TypeBox, other_opens_the_dialog_and_shows_the_type_chosen_there) {
    const KdDbObjectId dashed = kdhost::loadLinetype(host.database(), kdhost::standardLinetypes()[3]);
    inDialog(
        [&](QWidget& dialog) {
            EXPECT_EQ(dialog.objectName(), QStringLiteral("LinetypeDialog"));
            auto* list = dialog.findChild<QListWidget*>(QStringLiteral("IDC_LINETYPE_LIST"));
            list->setCurrentItem(list->findItems(QStringLiteral("DASHED"), Qt::MatchExactly).first());
            QTest::keyClick(list, Qt::Key_Return);
        },
        [&] { EXPECT_TRUE(box.SelectOther(1)); });
    EXPECT_EQ(box.GetItemLinetype(box.GetCurSel()), dashed);
    EXPECT_EQ(signalled, 0);
}

TEST_F(TypeBox, a_handler_that_sees_others_text_opens_the_dialog_and_cancel_goes_back) {
    box.SetCurSel(other() - 1);
    onChange = [&] {
        if (textOf(box, box.GetCurSel()) == static_cast<const std::wstring&>(box.GetOtherName())) {
            EXPECT_FALSE(box.SelectOther(1));
        }
    };
    inDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
             [&] { QTest::keyClick(combo, Qt::Key_Down); });
    EXPECT_EQ(box.GetCurSel(), other() - 1);
    EXPECT_EQ(signalled, 1);
}

TEST_F(TypeBox, the_dialog_is_not_opened_over_itself) {
    inDialog(
        [&](QWidget& dialog) {
            EXPECT_FALSE(box.SelectOther(1));
            QTest::keyClick(&dialog, Qt::Key_Escape);
        },
        [&] { EXPECT_FALSE(box.SelectOther(1)); });
}

TEST_F(TypeBox, samples_follow_the_pattern) {
    combo->setComboBoxStyle(1);
    kdhost::loadLinetype(host.database(), kdhost::standardLinetypes()[3]);
    box.AddItems();
    const auto inked = [&](int row) {
        // A quarter of its height is left free before the text.
        const QImage picture = combo->itemIcon(row).pixmap(64 + 4, 16).toImage();
        int columns = 0;
        for (int x = 0; x < picture.width(); ++x) {
            bool ink = false;
            for (int y = 0; y < picture.height(); ++y) ink = ink || qAlpha(picture.pixel(x, y)) > 128;
            columns += ink ? 1 : 0;
        }
        return columns;
    };
    EXPECT_EQ(inked(2), 64);
    EXPECT_GT(inked(3), 30);
    EXPECT_LT(inked(3), 60);
}

}  // namespace
