// How a page opens: what is filled before the style is looked at, and what is left out when there is none.

#include "kd/ui/widgets.h"
#include "tests/ui/style/borders.h"
#include "tests/ui/stylepages/controls.h"

namespace kdtest {
namespace {

/// The samples that a box paints before its rows.
struct BoxSamples {
    const char* name;
    int samples;  ///< 1 line types, 2 line weights, 3 colours
};
constexpr BoxSamples kBoxSamples[] = {
    {kFillBox, 3}, {kTextColorBox, 3}, {kColorBox, 3}, {kTypeBox, 1}, {kWeightBox, 2}};

class StylePageOpening : public StyleEditing {
protected:
    static KdUiBaseDialog& pageOf(QWidget& control) { return dynamic_cast<KdUiBaseDialog&>(*control.parentWidget()); }
    static int samplesOf(QWidget& dialog, const char* name) { return in<KdUiComboBox>(dialog, name).comboBoxStyle(); }
};

TEST_F(StylePageOpening, Boxes_of_colours_line_types_and_line_weights_get_their_samples) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        for (const BoxSamples& each : kBoxSamples) EXPECT_EQ(samplesOf(dialog, each.name), each.samples) << each.name;
        cancel(dialog);
    });
}

TEST_F(StylePageOpening, A_page_is_no_parent_of_controls_in_the_tab_order_of_its_dialog) {
    constexpr UINT kOther = 0x8;
    transactions().startTransaction();
    CVqTableStyleEditDlg dialog(nullptr, 1);
    dialog.SetTableStyleId(styleId());
    const auto pages = [&] {
        std::vector<KdUiBaseDialog*> found;
        for (const char* name : {kFillBox, kTextColorBox, kColorBox}) {
            for (QWidget* widget : QApplication::allWidgets()) {
                if (widget->objectName() == QLatin1String(name)) found.push_back(&pageOf(*widget));
            }
        }
        return found;
    }();
    ASSERT_EQ(pages.size(), 3U);
    for (KdUiBaseDialog* page : pages) EXPECT_TRUE(page->ModifyStyleEx(0, WS_EX_CONTROLPARENT | kOther));
    runModal(dialog, [&] {
        for (KdUiBaseDialog* page : pages) EXPECT_EQ(page->GetExStyle(), kOther);
        cancel(dialog);
    });
    transactions().abortTransaction();
}

TEST_F(StylePageOpening, A_list_that_drops_writes_nothing) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        const nlohmann::json before = dump();
        std::size_t dropped = 0;
        for (const StylePage page : {GeneralPage, TextPage, BorderPage}) {
            showPage(dialog, page);
            for (const BoxSamples& each : kBoxSamples) {
                if (!box(dialog, each.name).isVisible()) continue;
                box(dialog, each.name).showPopup();
                box(dialog, each.name).hidePopup();
                ++dropped;
            }
        }
        EXPECT_EQ(dropped, std::size(kBoxSamples));
        EXPECT_EQ(dump(), before);
        cancel(dialog);
    });
}

TEST_F(StylePageOpening, Without_a_style_boxes_are_filled_all_the_same_and_the_rest_is_left_out) {
    CVqTableCellStyleGeneralDlg general;
    CVqTableCellStyleTextDlg texts;
    CVqTableCellStyleBorderDlg borders;
    for (KdUiBaseDialog* page : {static_cast<KdUiBaseDialog*>(&general), static_cast<KdUiBaseDialog*>(&texts),
                                 static_cast<KdUiBaseDialog*>(&borders)}) {
        EXPECT_EQ(page->OnInitDialog(), 0);
    }
    EXPECT_EQ(box(general, kAlignmentBox).count(), 9);
    EXPECT_EQ(samplesOf(general, kFillBox), 0);
    EXPECT_EQ(samplesOf(texts, kTextColorBox), 0);
    EXPECT_EQ(samplesOf(borders, kWeightBox), 0);
    EXPECT_EQ(in<QLabel>(borders, "IDC_CELLSTYLEBORDER_BORDERINFO_STATIC").text(), QString());
    for (const BorderButtonEdges& each : kButtons) {
        const auto& button = in<QPushButton>(borders, each.name);
        EXPECT_FALSE(button.icon().isNull()) << each.name;
        EXPECT_EQ(button.toolTip(), QString()) << each.name;
    }
}

using StylePageWithoutTree = ApplicationTest;

TEST_F(StylePageWithoutTree, Has_no_controls_and_tells_that_nothing_can_be_shown) {
    KdDbTransactionManager& transactions = *host.document().transactionManager();
    transactions.startTransaction();
    CVqTableCellStyleGeneralDlg general;
    CVqTableCellStyleTextDlg texts;
    CVqTableCellStyleBorderDlg borders;
    for (CVqTableCellStylePage* page :
         {static_cast<CVqTableCellStylePage*>(&general), static_cast<CVqTableCellStylePage*>(&texts),
          static_cast<CVqTableCellStylePage*>(&borders)}) {
        page->SetTableStyleId(host.database().tablestyle());
        page->SetCellStyleName(L"_DATA");
        EXPECT_TRUE(page->findChildren<QWidget*>().isEmpty());
        EXPECT_EQ(page->OnInitDialog(), 0);
        EXPECT_EQ(page->UpdateFormDatabaseData(), 0);
    }
    transactions.abortTransaction();
}

}  // namespace
}  // namespace kdtest
