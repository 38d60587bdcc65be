// The manager of cell styles: what it lists, what it offers for each, and how its controls are reached.

#include "host/rx/faults.h"
#include "kd/db/table.h"
#include "kd/ui/widgets.h"
#include "module/core/resources.h"
#include "tests/ui/stylemanager/fixture.h"

namespace kdtest {
namespace {

class CellStyleManagerList : public CellStyleManagerTest {};

TEST_F(CellStyleManagerList, Shows_the_three_defaults_by_their_display_names_and_then_the_users) {
    EXPECT_EQ(run({expectRows(all, L"Title"), expectFocus(kList), expectButtons(false, false),
                   [&] { EXPECT_FALSE(pictureIn(*dialog, "IDC_MANAGERCELLSTYLE_PREVIEWPIC_STATIC").isNull()); },
                   click(L"IDOK")}),
              1);
}

TEST_F(CellStyleManagerList, Names_that_a_caller_gives_are_replaced_by_those_of_the_drawing) {
    transactions().startTransaction();
    {
        CVqTableManagerCellStyleDlg opened;
        opened.AddCellStyleName(L"Stale");
        opened.SetTableStyleId(style(kStyle));
        dialog = &opened;
        play([&] { return opened.DoModal(); }, {expectRows(all, L"Title"), click(L"IDOK")});
    }
    transactions().endTransaction();
}

TEST_F(CellStyleManagerList, Without_a_transaction_it_shows_the_names_that_its_caller_gave) {
    CVqTableManagerCellStyleDlg opened;
    opened.AddCellStyleName(L"gone");
    opened.RemoveAll();
    opened.AddCellStyleName(L"One");
    opened.SetTableStyleId(style(kStyle));
    dialog = &opened;
    play([&] { return opened.DoModal(); },
         {expectRows({L"One"}, L"One"),
          [&] { EXPECT_TRUE(pictureIn(opened, "IDC_MANAGERCELLSTYLE_PREVIEWPIC_STATIC").isNull()); },
          // Nothing reaches the drawing.
          click(kDelete), answer(kQuestion, L"OK"), expectRows({}, L""), click(L"IDOK")});
    EXPECT_EQ(cellStyleNames(kStyle), allInternal);
}

TEST_F(CellStyleManagerList, Gaps_in_the_numbers_of_cell_styles_are_passed_over) {
    {
        const OpenObject<KdDbTableStyle> open(style(kStyle), KdDb::kForWrite);
        open->deleteCellStyle(L"Notes");
        open->createCellStyle(L"Later", L"_DATA");
    }
    run({expectRows({L"Title", L"Header", L"Data", L"Remarks", L"Later"}, L"Title"), click(L"IDOK")});
}

TEST_F(CellStyleManagerList, Defaults_can_be_neither_renamed_nor_deleted_by_buttons_menu_or_keys) {
    Steps steps;
    for (const std::wstring name : {L"Title", L"Header", L"Data"}) {
        const std::wstring row = L"#" + std::to_wstring(std::find(all.begin(), all.end(), name) - all.begin());
        for (Step& step :
             Steps{choose(name), expectButtons(false, false), key(L"DELETE"), expectTop(L"IDD_MANAGERCELLSTYLE_DIALOG"),
                   key(L"F2"), [&] { EXPECT_EQ(dynamic_cast<KdUiListWidget&>(list()).labelEditor(), nullptr); },
                   context(kList, row), expect(L"IDR_MANAGECELL_NEW", L"enabled", L"yes"),
                   expect(L"IDR_MANAGECELL_RENAME", L"enabled", L"no"),
                   expect(L"IDR_MANAGECELL_DELETE", L"enabled", L"no"), menu(L"CANCEL")}) {
            steps.push_back(std::move(step));
        }
    }
    steps.push_back(click(L"IDOK"));
    run(std::move(steps));
}

TEST_F(CellStyleManagerList, A_style_in_use_can_be_renamed_and_not_deleted) {
    addTable(kStyle, L"Notes");
    run({choose(L"Notes"), expectButtons(true, false), key(L"DELETE"), expectTop(L"IDD_MANAGERCELLSTYLE_DIALOG"),
         context(kList, L"#3"), expect(L"IDR_MANAGECELL_RENAME", L"enabled", L"yes"),
         expect(L"IDR_MANAGECELL_DELETE", L"enabled", L"no"), menu(L"CANCEL"), choose(L"Remarks"),
         expectButtons(true, true), context(kList, L"#4"), expect(L"IDR_MANAGECELL_RENAME", L"enabled", L"yes"),
         expect(L"IDR_MANAGECELL_DELETE", L"enabled", L"yes"), menu(L"CANCEL"), click(L"IDOK")});
}

TEST_F(CellStyleManagerList, A_cell_style_of_the_same_name_in_another_table_style_is_no_use) {
    addTable(L"Other", L"Notes");
    run({choose(L"Notes"), expectButtons(true, true), click(L"IDOK")});
    addTable(kStyle, L"notes");
    run({choose(L"Notes"), expectButtons(true, false), click(L"IDOK")});
}

TEST_F(CellStyleManagerList, A_table_whose_style_cannot_be_opened_ends_the_search_for_uses) {
    const KdDbObjectId odd = addTable(L"Other");
    addTable(kStyle, L"Notes");
    OpenObject<KdDbTable>(odd, KdDb::kForWrite)->setTableStyle(KdDbObjectId::kNull);
    run({choose(L"Notes"), expectButtons(true, true), click(L"IDOK")});
}

TEST_F(CellStyleManagerList, A_click_on_empty_space_disables_both_buttons_until_a_row_is_selected_again) {
    run({choose(L"Notes"), expectButtons(true, true), click(kList, L"empty"), expectButtons(false, false),
         expectRows(all, L"Notes"),
         // The row was never left, so that a click on it selects nothing anew.
         click(kList, L"#3"), expectButtons(false, false), choose(L"Remarks"), expectButtons(true, true),
         click(L"IDOK")});
}

TEST_F(CellStyleManagerList, A_right_click_on_the_selected_row_enables_what_a_click_on_empty_space_has_disabled) {
    run({choose(L"Notes"), click(kList, L"empty"), expectButtons(false, false), context(kList, L"#3"), menu(L"CANCEL"),
         expectButtons(true, true), click(L"IDOK")});
}

TEST_F(CellStyleManagerList, The_menu_comes_up_on_rows_alone_and_its_row_becomes_the_selected_one) {
    run({context(kList, L"empty"), expectTop(L"IDD_MANAGERCELLSTYLE_DIALOG"), context(kList, L"#4"),
         expectTop(L"IDR_MANAGECELL_MENU"), menu(L"CANCEL"), expectRows(all, L"Remarks"), expectFocus(kList),
         key(L"MENU"), expectTop(L"IDR_MANAGECELL_MENU"), key(L"ESC"), expectFocus(kList), click(L"IDOK")});
}

TEST_F(CellStyleManagerList, Tab_leads_through_every_control) {
    run({choose(L"Notes"), key(L"TAB"), expectFocus(kNew), key(L"TAB"), expectFocus(kRename), key(L"TAB"),
         expectFocus(kDelete), key(L"TAB"), expectFocus(L"IDOK"), key(L"TAB"), expectFocus(L"IDCANCEL"), key(L"TAB"),
         expectFocus(L"IDHELP"), key(L"SPACE"), expectTop(L"IDD_MANAGERCELLSTYLE_DIALOG"), key(L"TAB"),
         expectFocus(kList), key(L"ENTER")});
}

TEST_F(CellStyleManagerList, In_Chinese_the_defaults_are_known_by_their_Chinese_names) {
    kdhost::setLanguage(kdhost::Language::Chinese);
    run({[&] {
             EXPECT_EQ(rowsOf(list()), (Names{loadText(2038), loadText(2039), loadText(2037), L"Notes", L"Remarks"}));
         },
         expectButtons(false, false), choose(L"Notes"), expectButtons(true, true), click(L"IDOK")});
}

TEST_F(CellStyleManagerList, A_users_style_that_bears_a_default_name_in_any_case_is_protected_as_the_default_is) {
    // As a drawing may bring it.
    OpenObject<KdDbTableStyle>(style(kStyle), KdDb::kForWrite)->createCellStyle(L"data", L"_DATA");
    run({choose(L"data"), expectButtons(false, false), key(L"DELETE"), expectTop(L"IDD_MANAGERCELLSTYLE_DIALOG"),
         key(L"F2"), [&] { EXPECT_EQ(dynamic_cast<KdUiListWidget&>(list()).labelEditor(), nullptr); }, click(L"IDOK")});
}

TEST_F(CellStyleManagerList, A_users_style_that_bears_a_default_name_of_another_language_is_no_default) {
    OpenObject<KdDbTableStyle>(style(kStyle), KdDb::kForWrite)->createCellStyle(L"数据", L"_DATA");
    run({choose(L"数据"), expectButtons(true, true), click(L"IDOK")});
}

TEST_F(CellStyleManagerList, Missing_controls_end_the_step_that_needs_them_alone) {
    for (const std::wstring& missing :
         {kList, kNew, kRename, kDelete, std::wstring(L"IDC_MANAGERCELLSTYLE_PREVIEWPIC_STATIC")}) {
        const std::string name = QString::fromStdWString(missing).toStdString();
        SCOPED_TRACE(name);
        transactions().startTransaction();
        CVqTableManagerCellStyleDlg opened;
        opened.SetTableStyleId(style(kStyle));
        delete opened.getWidgetsFromOrignal(name.c_str());
        Steps steps;
        if (missing != kList) steps.push_back(choose(L"Notes"));
        steps.push_back(click(L"IDOK"));
        EXPECT_EQ(play([&] { return opened.DoModal(); }, std::move(steps)), 1);
        transactions().endTransaction();
    }
}

TEST_F(CellStyleManagerList, Without_its_two_buttons_menu_and_keys_still_work) {
    transactions().startTransaction();
    {
        CVqTableManagerCellStyleDlg opened;
        opened.SetTableStyleId(style(kStyle));
        opened.SetTableStyleName(kStyle);
        for (const char* missing : {"IDC_MANAGERCELLSTYLE_RENAME_BUTTON", "IDC_MANAGERCELLSTYLE_DELETE_BUTTON"}) {
            delete opened.getWidgetsFromOrignal(missing);
        }
        play([&] { return opened.DoModal(); },
             {choose(L"Notes"), key(L"F2"), label(L"Doors"), context(kList, L"#4"), menu(L"IDR_MANAGECELL_DELETE"),
              answer(kQuestion, L"OK"), click(L"IDOK")});
    }
    transactions().endTransaction();
    EXPECT_EQ(cellStyleNames(kStyle), (Names{L"_TITLE", L"_HEADER", L"_DATA", L"Doors"}));
}

TEST_F(CellStyleManagerList, Has_a_fixed_size) {
    run({[&] {
             EXPECT_EQ(dialog->minimumSize(), dialog->size());
             EXPECT_EQ(dialog->maximumSize(), dialog->size());
         },
         click(L"IDOK")});
}

TEST_F(CellStyleManagerList, No_menu_comes_up_when_its_tree_is_missing) {
    run({choose(L"Notes"), [&] { resources().unload(); }, context(kList, L"#3"),
         expectTop(L"IDD_MANAGERCELLSTYLE_DIALOG"), [&] { resources().load(); }, context(kList, L"#3"),
         expectTop(L"IDR_MANAGECELL_MENU"), menu(L"CANCEL"), click(L"IDOK")});
}

TEST_F(CellStyleManagerList, Esc_is_Cancel) {
    EXPECT_EQ(run({key(L"ESC")}), 2);
}

}  // namespace
}  // namespace kdtest
