// The dialog of table styles as it opens: what it lists, selects and tells, also in drawings that lack something.

#include <QComboBox>

#include "host/rx/faults.h"
#include "mfc/resource.h"
#include "module/core/resources.h"
#include "module/style/tablestyledlg.h"
#include "tests/ui/style/fixture.h"

namespace kdtest {
namespace {

constexpr const char* kList = "IDC_TABLESTYLE_STYLE_LIST";
constexpr const char* kCurrent = "IDC_TABLESTYLE_CURRENT_STATIC";
constexpr const char* kPreview = "IDC_TABLESTYLE_PREVIEW_STATIC";
constexpr const char* kPicture = "IDC_TABLESTYLE_PREVIEWPIC_STATIC";
constexpr const char* kDelete = "IDC_TABLESTYLE_DELSTYLE_BUTTON";

class TableStyleDialogOpening : public StyleDialogTest {
protected:
    /// Opens the dialog on the drawing, looks, and leaves it by Esc.
    void opened(const std::function<void(CVqTableStyleDlg&)>& look) {
        CVqTableStyleDlg dialog;
        EXPECT_EQ(dialog.SetDatabase(&drawing()), 1);
        EXPECT_EQ(play([&] { return dialog.DoModal(); }, {[&] { look(dialog); }, key(L"ESC")}), 2);
    }
};

TEST_F(TableStyleDialogOpening, Lists_the_styles_in_the_drawings_order_and_selects_the_current_one) {
    for (const wchar_t* name : {L"zebra", L"Alpha"}) addStyle(name);
    makeCurrent(L"zebra");
    opened([&](CVqTableStyleDlg& dialog) {
        const QListWidget& list = listIn(dialog, kList);
        EXPECT_EQ(rowsOf(list), (Names{L"Alpha", L"Standard", L"zebra"}));
        EXPECT_EQ(selectedIn(list), L"zebra");
        EXPECT_EQ(list.currentRow(), 2);
        EXPECT_EQ(dialog.focusWidget(), &list);
        EXPECT_EQ(textOf(dialog, kCurrent), L"Current table style: zebra");
        EXPECT_EQ(textOf(dialog, kPreview), L"Preview: zebra");
        EXPECT_FALSE(pictureIn(dialog, kPicture).isNull());
        EXPECT_EQ(dialog.GetCurrentTableStyleName(), L"zebra");
    });
}

TEST_F(TableStyleDialogOpening, The_filter_offers_all_styles_and_those_in_use_and_opens_on_all) {
    opened([&](CVqTableStyleDlg& dialog) {
        const auto* filter = qobject_cast<QComboBox*>(dialog.getWidgetsFromOrignal("IDC_TABLESTYLE_LIST_COMBOBOX"));
        ASSERT_EQ(filter->count(), 2);
        EXPECT_EQ(filter->itemText(0), QStringLiteral("All styles"));
        EXPECT_EQ(filter->itemText(1), QStringLiteral("Styles in use"));
        EXPECT_EQ(filter->currentIndex(), 0);
    });
}

TEST_F(TableStyleDialogOpening, The_filter_is_not_remembered) {
    CVqTableStyleDlg first;
    first.SetDatabase(&drawing());
    play([&] { return first.DoModal(); }, {choose(L"IDC_TABLESTYLE_LIST_COMBOBOX", L"#1"), click(L"IDOK")});
    opened([&](CVqTableStyleDlg& dialog) {
        const auto* filter = qobject_cast<QComboBox*>(dialog.getWidgetsFromOrignal("IDC_TABLESTYLE_LIST_COMBOBOX"));
        EXPECT_EQ(filter->currentIndex(), 0);
    });
}

TEST_F(TableStyleDialogOpening, Standard_cannot_be_deleted_but_changed_and_made_current) {
    opened([&](CVqTableStyleDlg& dialog) {
        EXPECT_FALSE(isEnabled(dialog, kDelete));
        EXPECT_TRUE(isEnabled(dialog, "IDC_TABLESTYLE_MODSTYLE_BUTTON"));
        EXPECT_TRUE(isEnabled(dialog, "IDC_TABLESTYLE_CURSTYLE_BUTTON"));
    });
}

TEST_F(TableStyleDialogOpening, Without_the_name_of_the_current_style_the_first_row_is_selected_and_no_name_shown) {
    addStyle(L"Alpha");
    kdhost::faults().unreadableVariables = {L"CTABLESTYLE"};
    opened([&](CVqTableStyleDlg& dialog) {
        EXPECT_EQ(selectedIn(listIn(dialog, kList)), L"Alpha");
        EXPECT_EQ(textOf(dialog, kCurrent), L"Current table style: ");
        EXPECT_EQ(dialog.GetCurrentTableStyleName(), L"");
        EXPECT_TRUE(isEnabled(dialog, kDelete));
    });
}

TEST_F(TableStyleDialogOpening, A_preview_that_cannot_be_made_at_first_is_never_made) {
    addStyle(L"Alpha");
    kdhost::faults().unreadableVariables = {L"CTABLESTYLE"};
    opened([&](CVqTableStyleDlg& dialog) {
        EXPECT_EQ(textOf(dialog, kPreview), L"Preview: Alpha");
        EXPECT_TRUE(pictureIn(dialog, kPicture).isNull());
        listIn(dialog, kList).setCurrentRow(1);
        EXPECT_EQ(textOf(dialog, kPreview), L"Preview: Standard");
        EXPECT_TRUE(pictureIn(dialog, kPicture).isNull());
        EXPECT_EQ(textOf(dialog, kPicture), L"Standard") << "its window text is the name";
    });
}

TEST_F(TableStyleDialogOpening, The_list_is_empty_when_the_styles_cannot_be_read) {
    kdhost::faults().noTableStyleDictionary = true;
    opened([&](CVqTableStyleDlg& dialog) { EXPECT_EQ(rowsOf(listIn(dialog, kList)), Names()); });
}

TEST_F(TableStyleDialogOpening, The_list_is_there_when_the_blocks_cannot_be_read_and_no_table_counts) {
    addStyle(L"Used");
    addTable(L"Used");
    const OpenObject<KdDbObject> blocks(drawing().blockTableId(), KdDb::kForWrite);
    opened([&](CVqTableStyleDlg& dialog) {
        EXPECT_EQ(rowsOf(listIn(dialog, kList)), (Names{L"Standard", L"Used"}));
        listIn(dialog, kList).setCurrentRow(1);
        EXPECT_TRUE(isEnabled(dialog, kDelete));
    });
}

TEST_F(TableStyleDialogOpening, No_database_is_refused_and_the_one_before_kept) {
    CVqTableStyleDlg dialog;
    EXPECT_EQ(dialog.SetDatabase(nullptr), 0);
    EXPECT_EQ(dialog.getCurrentTableStyleId(), KdDbObjectId::kNull);
    EXPECT_EQ(dialog.SetDatabase(&drawing()), 1);
    EXPECT_EQ(dialog.SetDatabase(nullptr), 0);
    dialog.SetCurrentTableStyleName(L"standard");
    EXPECT_EQ(dialog.getCurrentTableStyleId(), style(L"Standard"));
}

TEST_F(TableStyleDialogOpening, Without_a_database_nothing_is_listed_and_nothing_breaks) {
    CVqTableStyleDlg dialog;
    play([&] { return dialog.DoModal(); },
         {click(L"IDC_TABLESTYLE_NEWSTYLE_BUTTON"), click(L"IDC_TABLESTYLE_MODSTYLE_BUTTON"),
          expectTop(L"IDD_TABLESTYLE_DIALOG"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), Names{L"Standard"});
}

TEST_F(TableStyleDialogOpening, Without_a_row_there_is_nothing_to_delete_to_rename_or_to_change) {
    kdhost::faults().noTableStyleDictionary = true;
    CVqTableStyleDlg dialog;
    dialog.SetDatabase(&drawing());
    play([&] { return dialog.DoModal(); },
         {click(L"IDC_TABLESTYLE_DELSTYLE_BUTTON"), click(L"IDC_TABLESTYLE_STYLE_LIST", L"empty"), key(L"DELETE"),
          key(L"F2"), click(L"IDC_TABLESTYLE_MODSTYLE_BUTTON"), expectTop(L"IDD_TABLESTYLE_DIALOG"), click(L"IDOK")});
    EXPECT_EQ(styleNames(), Names{L"Standard"});
}

TEST_F(TableStyleDialogOpening, A_missing_tree_gives_no_dialog) {
    resources().unload();
    {
        CVqTableStyleDlg dialog;
        dialog.SetDatabase(&drawing());
        EXPECT_EQ(dialog.DoModal(), -1);
    }
    resources().load();
}

TEST_F(TableStyleDialogOpening, Missing_controls_end_the_step_that_needs_them_alone) {
    addStyle(L"Alpha");
    for (const char* missing : {kCurrent, kPreview, kPicture, kDelete, kList, "IDC_TABLESTYLE_LIST_COMBOBOX",
                                "IDC_TABLESTYLE_PREVIEWNAME_STATIC"}) {
        SCOPED_TRACE(missing);
        CVqTableStyleDlg dialog;
        dialog.SetDatabase(&drawing());
        delete dialog.getWidgetsFromOrignal(missing);
        EXPECT_EQ(play([&] { return dialog.DoModal(); }, {[&] {
                                                              if (missing == kList) return;
                                                              listIn(dialog, kList).setCurrentRow(0);
                                                              EXPECT_EQ(selectedIn(listIn(dialog, kList)), L"Alpha");
                                                          },
                                                          click(L"IDOK")}),
                  1);
    }
}

TEST_F(TableStyleDialogOpening, Without_the_caption_of_the_current_style_a_rename_leaves_that_of_the_preview_too) {
    addStyle(L"Alpha");
    for (const bool missing : {false, true}) {
        CVqTableStyleDlg dialog;
        dialog.SetDatabase(&drawing());
        if (missing) delete dialog.getWidgetsFromOrignal(kCurrent);
        std::wstring caption;
        play([&] { return dialog.DoModal(); },
             {choose(L"IDC_TABLESTYLE_STYLE_LIST", L"#0"), key(L"F2"), label(missing ? L"Alpha" : L"Beta"),
              [&] { caption = textOf(dialog, kPreview); }, click(L"IDOK")});
        EXPECT_EQ(caption, missing ? L"Preview: Beta" : L"Preview: Standard");
    }
}

TEST_F(TableStyleDialogOpening, Has_a_fixed_size) {
    opened([&](CVqTableStyleDlg& dialog) {
        EXPECT_EQ(dialog.minimumSize(), dialog.size());
        EXPECT_EQ(dialog.maximumSize(), dialog.size());
    });
}

TEST_F(TableStyleDialogOpening, What_is_there_in_form_only_tells_that_it_is_done) {
    using Dialog = CVqTableStyleDlg;
    for (const auto operation :
         {Dialog::ReadRegedit, Dialog::WriteRegedit, Dialog::InitDlgSize, Dialog::OnSize, Dialog::OnSizing}) {
        EXPECT_EQ(operation(), 1);
    }
}

TEST_F(TableStyleDialogOpening, Its_name_of_the_preview_alone_never_shows) {
    opened([&](CVqTableStyleDlg& dialog) {
        EXPECT_FALSE(dialog.getWidgetsFromOrignal("IDC_TABLESTYLE_PREVIEWNAME_STATIC")->isVisible());
    });
    EXPECT_EQ(CVqTableStyleDlg::SetStylePreviewName(L"any"), 1);
}

}  // namespace
}  // namespace kdtest
