// What the style edit dialog does where something isn't to be had: no transaction, the style gone, a control missing, a
// page without a dialog around it. Nothing tells the user, nothing is lost, nothing crashes.

#include <QCheckBox>

#include "tests/support/leakguard.h"
#include "tests/ui/styleedit/fixture.h"

namespace kdtest {
namespace {

class StyleEditFailures : public StyleEditing {
protected:
    static void press(QWidget& dialog, const char* name) { in<QAbstractButton>(dialog, name).click(); }
    /// Uses everything that the dialog has.
    void useEverything(QWidget& dialog) {
        choose(kDirectionBox, box(dialog, kDirectionBox).currentIndex() == 0 ? 1 : 0);
        enter(dialog, "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT", "3");
        enter(dialog, "IDC_CELLSTYLEGENERAL_VERTICAL_EDIT", "x");
        choose("IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX", 4);
        choose("IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX", 8);
        choose("IDC_CELLSTYLEGENERAL_TYPE_COMBOBOX", 1);
        press(dialog, "IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON");
        press(dialog, "IDC_CELLSTYLEGENERAL_FORMAT_BUTTON");
        showPage(dialog, TextPage);
        choose("IDC_CELLSTYLETEXT_TEXTCOLOR_COMBOBOX", 3);
        enter(dialog, "IDC_CELLSTYLETEXT_TEXTHEIGHT_EDIT", "2");
        enter(dialog, "IDC_CELLSTYLETEXT_TEXTANGLE_EDIT", "x");
        press(dialog, "IDC_CELLSTYLETEXT_TEXTSTYLE_BUTTON");
        showPage(dialog, BorderPage);
        for (const char* name : {"ALL", "OUTER", "INNER", "BOTTOM", "LEFT", "TOP", "RIGHT", "NO"}) {
            press(dialog, (std::string("IDC_CELLSTYLEBORDER_") + name + "BORDER_BUTTON").c_str());
        }
        choose(kCellStyleBox, "Header");
    }
    KdDbObjectId otherStyle() {
        KdDbObjectId id;
        auto* made = new KdDbTableStyle;
        EXPECT_EQ(made->postTableStyleToDb(&host.database(), L"Other", id), Kdad::eOk);
        made->close();
        return id;
    }
};

TEST_F(StyleEditFailures, Without_a_transaction_it_opens_empty_and_closes) {
    const nlohmann::json before = dump();
    EXPECT_EQ(run([&](CVqTableStyleEditDlg& dialog) {
                  EXPECT_EQ(dialog.database(), nullptr);
                  EXPECT_TRUE(rows(dialog).empty());
                  EXPECT_TRUE(rows(dialog, kDirectionBox).empty());
                  EXPECT_EQ(in<QTabWidget>(dialog, "IDC_TABLESTYLEEDIT_STYLE_TABLE").count(), 0);
                  ok(dialog);
              }),
              1);
    EXPECT_EQ(dump(), before);
}

TEST_F(StyleEditFailures, Without_the_style_it_opens_empty_and_closes) {
    for (const KdDbObjectId id : {KdDbObjectId::kNull, host.database().clayer()}) {
        transactions().startTransaction();
        CVqTableStyleEditDlg dialog;
        EXPECT_EQ(dialog.SetTableStyleId(id), 1);
        EXPECT_EQ(runModal(dialog,
                           [&] {
                               EXPECT_TRUE(rows(dialog).empty());
                               cancel(dialog);
                           }),
                  2);
        transactions().abortTransaction();
    }
}

TEST_F(StyleEditFailures, A_style_that_another_has_open_for_write_opens_the_dialog_empty) {
    const OpenObject<KdDbTableStyle> writer(styleId(), KdDb::kForWrite);
    transactions().startTransaction();
    run([&](CVqTableStyleEditDlg& dialog) {
        EXPECT_TRUE(rows(dialog).empty());
        cancel(dialog);
    });
    transactions().abortTransaction();
}

TEST_F(StyleEditFailures, A_style_that_is_erased_while_the_dialog_is_open_is_left_alone_by_every_control) {
    const KdDbObjectId id = otherStyle();
    transactions().startTransaction();
    CVqTableStyleEditDlg dialog(nullptr, 1);
    dialog.SetTableStyleId(id);
    runModal(dialog, [&] {
        EXPECT_EQ(getObject<KdDbTableStyle>(topTransaction(), id, KdDb::kForWrite)->erase(), Kdad::eOk);
        useEverything(dialog);
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
        ok(dialog);
    });
    EXPECT_EQ(transactions().abortTransaction(), Kdad::eOk);
    const KdDbTableStyle fresh;
    const auto* back = kdhost::peek<KdDbTableStyle>(id);
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->margin(KdDb::kCellMarginLeft, L"_DATA"), fresh.margin(KdDb::kCellMarginLeft, L"_DATA"));
    EXPECT_EQ(back->flowDirection(), fresh.flowDirection());
    EXPECT_EQ(back->gridVisibility(KdDb::kHorzTop, L"_DATA"), KdDb::kVisible);
}

TEST_F(StyleEditFailures, A_cell_style_named_for_an_erased_style_stands_in_the_box_alone) {
    const KdDbObjectId id = otherStyle();
    transactions().startTransaction();
    CVqTableStyleEditDlg dialog(nullptr, 1);
    dialog.SetTableStyleId(id);
    runModal(dialog, [&] {
        getObject<KdDbTableStyle>(topTransaction(), id, KdDb::kForWrite)->erase();
        next([](QWidget& naming) { ok(naming); });
        press(dialog, "IDC_TABLESTYLEEDIT_CREATE_BUTTON");
        EXPECT_EQ(shown(dialog), "Copy of Data");
        press(dialog, "IDC_TABLESTYLEEDIT_MANAGE_BUTTON");
        EXPECT_EQ(transactions().numActiveTransactions(), 2) << "left open for the caller to end with the outer one";
        transactions().abortTransaction();
        cancel(dialog);
    });
    transactions().abortTransaction();
    EXPECT_EQ(kdhost::peek<KdDbTableStyle>(id)->numCellStyles(), 3);
}

TEST_F(StyleEditFailures, A_manager_that_gets_no_transaction_does_not_open) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        kdhost::faults().noTransaction = true;
        press(dialog, "IDC_TABLESTYLEEDIT_MANAGE_BUTTON");
        kdhost::faults() = {};
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
        EXPECT_EQ(transactions().numActiveTransactions(), 1);
        EXPECT_EQ(rows(dialog).size(), 5U);
        cancel(dialog);
    });
}

TEST_F(StyleEditFailures, An_open_that_fails_once_costs_one_edit_and_no_more) {
    edit([&](CVqTableStyleEditDlg& dialog) {
        kdhost::faults().failOpenNumber = 1;
        choose("IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX", 8);
        kdhost::faults() = {};
        EXPECT_EQ(style().alignment(L"_DATA"), KdDb::kTopCenter);
        choose("IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX", 7);
        EXPECT_EQ(style().alignment(L"_DATA"), KdDb::kBottomCenter);
        cancel(dialog);
    });
}

/// A control of a tree that has just been built, wherever it stands.
QWidget* builtControl(const char* name) {
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == QLatin1String(name)) return widget;
    }
    return nullptr;
}

TEST_F(StyleEditFailures, A_missing_control_costs_no_more_than_itself) {
    const char* const names[] = {
        kDirectionBox,
        kCellStyleBox,
        "IDC_TABLESTYLEEDIT_STYLE_TABLE",
        "IDC_TABLESTYLEEDIT_CREATE_BUTTON",
        "IDC_TABLESTYLEEDIT_SELECT_BUTTON",
        "IDC_TABLESTYLEEDIT_START_GROUP",
        "IDC_TABLESTYLEEDIT_TABLEUP_STATIC",
        "IDC_TABLESTYLEEDIT_TABLEDOWN_STATIC",
        "IDC_TABLESTYLEEDIT_PREVIEWPIC_STATIC",
        "IDC_CELLSTYLEGENERAL_FILLCOLOR_COMBOBOX",
        "IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX",
        "IDC_CELLSTYLEGENERAL_TYPE_COMBOBOX",
        "IDC_CELLSTYLEGENERAL_FORMATSHOW_STATIC",
        "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT",
        "IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON",
        "IDC_CELLSTYLETEXT_TEXTSTYLE_COMBOBOX",
        "IDC_CELLSTYLETEXT_TEXTCOLOR_COMBOBOX",
        "IDC_CELLSTYLETEXT_TEXTHEIGHT_EDIT",
        "IDC_CELLSTYLETEXT_TEXTANGLE_EDIT",
        "IDC_CELLSTYLEBORDER_DOUBLELINE_BUTTON",
        "IDC_CELLSTYLEBORDER_SPACING_EDIT",
        "IDC_CELLSTYLEBORDER_LTYPE_COMBOBOX",
        "IDC_CELLSTYLEBORDER_ALLBORDER_BUTTON",
    };
    const nlohmann::json before = dump();
    for (const char* name : names) {
        transactions().startTransaction();
        CVqTableStyleEditDlg dialog(nullptr, 1);
        dialog.SetTableStyleId(styleId());
        delete builtControl(name);
        EXPECT_EQ(runModal(dialog,
                           [&] {
                               if (dialog.getWidgetsFromOrignal(kCellStyleBox) != nullptr) choose(kCellStyleBox, 1);
                               cancel(dialog);
                           }),
                  2)
            << name;
        transactions().abortTransaction();
        EXPECT_EQ(dump(), before) << name;
    }
}

TEST_F(StyleEditFailures, Without_its_merge_button_the_general_page_tells_that_it_failed_after_the_margins) {
    transactions().startTransaction();
    CVqTableCellStyleGeneralDlg page;
    page.SetTableStyleId(styleId());
    page.SetCellStyleName(L"_DATA");
    EXPECT_EQ(page.OnInitDialog(), 1);
    delete page.getWidgetsFromOrignal("IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON");
    EXPECT_EQ(page.UpdateFormDatabaseData(), 0);
    CVqTableCellStyleBorderDlg borders;
    borders.SetTableStyleId(styleId());
    borders.SetCellStyleName(L"_DATA");
    EXPECT_EQ(borders.OnInitDialog(), 1);
    delete borders.getWidgetsFromOrignal("IDC_CELLSTYLEBORDER_DOUBLELINE_BUTTON");
    EXPECT_EQ(borders.UpdateFormDatabaseData(), 0);
    transactions().abortTransaction();
}

TEST_F(StyleEditFailures, A_page_without_a_dialog_around_it_leaves_its_edits_empty_and_writes_without_previews) {
    transactions().startTransaction();
    CVqTableCellStyleGeneralDlg page;
    page.SetTableStyleId(styleId());
    page.SetCellStyleName(L"_DATA");
    EXPECT_EQ(page.OnInitDialog(), 1);
    EXPECT_EQ(text(page, "IDC_CELLSTYLEGENERAL_HORIZONTAL_EDIT"), "");
    in<QComboBox>(page, "IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX").setCurrentIndex(8);
    EXPECT_EQ(style().alignment(L"_DATA"), KdDb::kBottomRight);
    CVqTableCellStyleTextDlg textPage;
    textPage.SetTableStyleId(styleId());
    textPage.SetCellStyleName(L"_DATA");
    EXPECT_EQ(textPage.OnInitDialog(), 0) << "without a drawing there are no text styles";
    MSG enter{&page, WM_KEYDOWN, VK_RETURN, 0};
    EXPECT_FALSE(page.PreTranslateMessage(&enter));
    transactions().abortTransaction();
}

TEST_F(StyleEditFailures, A_page_without_a_transaction_tells_so_and_its_controls_write_nothing) {
    const nlohmann::json before = dump();
    CVqTableCellStyleGeneralDlg general;
    CVqTableCellStyleTextDlg textPage;
    CVqTableCellStyleBorderDlg borders;
    for (CVqTableCellStylePage* page :
         {static_cast<CVqTableCellStylePage*>(&general), static_cast<CVqTableCellStylePage*>(&textPage),
          static_cast<CVqTableCellStylePage*>(&borders)}) {
        page->SetTableStyleId(styleId());
        page->SetCellStyleName(L"_DATA");
        EXPECT_EQ(page->OnInitDialog(), 0);
        EXPECT_EQ(page->UpdateFormDatabaseData(), 0);
    }
    in<QComboBox>(general, "IDC_CELLSTYLEGENERAL_ALIGNMENT_COMBOBOX").setCurrentIndex(8);
    in<QCheckBox>(general, "IDC_CELLSTYLEGENERAL_MERGECELL_BUTTON").click();
    in<QPushButton>(borders, "IDC_CELLSTYLEBORDER_NOBORDER_BUTTON").click();
    EXPECT_EQ(dump(), before);
}

}  // namespace
}  // namespace kdtest
