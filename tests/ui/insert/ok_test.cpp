// OK in the insert dialog: the question before a large table, and the table that the figures make.

#include <QMessageBox>

#include "host/rx/faults.h"
#include "kd/db/table.h"
#include "module/core/drawingwalk.h"
#include "module/core/resources.h"
#include "module/create/tableentry.h"
#include "tests/support/boxanswers.h"
#include "tests/ui/insert/fixture.h"
#include "win32/widenumbers.h"

namespace kdtest {
namespace {

class InsertDialogOk : public InsertDialogTest {
protected:
    /// The road of the command, with the points typed before.
    void insert(const std::wstring& points, Steps steps) {
        host.type(points);
        play(
            [] {
                tableEntry();
                return 0;
            },
            std::move(steps));
        host.editor().input().clear();
    }
    std::vector<KdDbObjectId> tables() {
        std::vector<KdDbObjectId> found;
        EXPECT_TRUE(visitEntities(&drawing(), [&](const KdDbEntity& entity) {
            if (entity.isKindOf(KdDbTable::desc())) found.push_back(entity.objectId());
        }));
        return found;
    }
    /// The one table of the drawing.
    void look(const std::function<void(const KdDbTable&)>& at) {
        const std::vector<KdDbObjectId> found = tables();
        ASSERT_EQ(found.size(), 1U);
        const OpenObject<KdDbTable> table(found.front(), KdDb::kForRead);
        at(*table);
    }
    static Step question(const std::wstring& button) { return answer(loadText(2070), button); }
};

TEST_F(InsertDialogOk, Of_1999_cells_nothing_is_asked) {
    EXPECT_EQ(run({setText(wide(kColumnsEdit), L"1999"), setText(wide(kRowsEdit), L"1"), click(L"IDOK")}), 1);
    EXPECT_EQ(stored(L"Columns"), 1999);
}

TEST_F(InsertDialogOk, Of_2000_cells_it_is_asked_and_Cancel_goes_back_to_the_dialog) {
    EXPECT_EQ(run({setText(wide(kColumnsEdit), L"40"), setText(wide(kRowsEdit), L"50"), click(L"IDOK"),
                   question(L"CANCEL"), expectTop(L"IDD_TABLEINSERT_DIALOG"), [] { EXPECT_EQ(stored(L"Columns"), 3); },
                   click(L"IDOK"), question(L"OK")}),
              1);
    EXPECT_EQ(stored(L"Columns"), 40);
    EXPECT_EQ(stored(L"Rows"), 50);
}

TEST_F(InsertDialogOk, The_question_is_an_information_with_OK_and_Cancel) {
    open([&] {
        put(kColumnsEdit, L"40");
        leaveTo(kRowsEdit);
        put(kRowsEdit, L"50");
        leaveTo("IDOK");
        const BoxAnswers boxes({BoxAnswer::Escape});
        press("IDOK");
        ASSERT_EQ(boxes.count(), 1);
        EXPECT_EQ(boxes.seen()[0].icon, QMessageBox::Information);
        EXPECT_EQ(boxes.seen()[0].buttons, QMessageBox::Ok | QMessageBox::Cancel);
        EXPECT_EQ(boxes.seen()[0].parent, dialog.get());
        EXPECT_TRUE(dialog->isVisible()) << "Escape is no OK";
    });
}

TEST_F(InsertDialogOk, The_product_of_large_numbers_is_asked_about_too) {
    EXPECT_EQ(run({setText(wide(kColumnsEdit), L"65536"), setText(wide(kRowsEdit), L"65536"), click(L"IDOK"),
                   question(L"CANCEL"), click(L"IDCANCEL")}),
              2);
}

TEST_F(InsertDialogOk, In_a_window_the_numbers_behind_automatic_figures_count) {
    EXPECT_EQ(run({setText(wide(kColumnsEdit), L"40"), setText(wide(kRowsEdit), L"50"), click(wide(kWindowRadio)),
                   click(wide(kWidthRadio)), click(wide(kHeightRadio)), click(L"IDOK"), question(L"OK")}),
              1);
}

TEST_F(InsertDialogOk, The_road_of_the_command_places_a_table_of_the_figures) {
    addStyle(L"Doors", {L"Notes"});
    makeCurrent(L"Doors");
    insert(L"10,20\n",
           {setText(wide(kColumnsEdit), L"4"), setText(wide(kRowsEdit), L"2"), setText(wide(kWidthEdit), L"50"),
            setText(wide(kHeightEdit), L"2"), choose(wide(kFirstRow), L"Notes"), choose(wide(kSecondRow), L"Data"),
            choose(wide(kOtherRow), L"Header"), click(L"IDOK")});
    look([&](const KdDbTable& table) {
        EXPECT_EQ(table.numColumns(), 4);
        EXPECT_EQ(table.numRows(), 4);
        EXPECT_DOUBLE_EQ(table.columnWidth(3), 50.0);
        EXPECT_EQ(table.tableStyle(), style(L"Doors"));
        EXPECT_STREQ(table.cellStyle(0, 0), L"Notes");
        EXPECT_STREQ(table.cellStyle(1, 0), L"_DATA");
        EXPECT_STREQ(table.cellStyle(3, 0), L"_HEADER");
        EXPECT_EQ(table.position(), KdGePoint3d(10.0, 20.0, 0.0));
    });
}

TEST_F(InsertDialogOk, The_road_of_the_command_offers_no_options_of_a_start_table) {
    insert(L"", {expect(L"IDC_TABLEINSERT_TABLEOPTION_GROUP", L"visible", L"off"),
                 expect(L"IDC_TABLEINSERT_RETAINPROP_STATIC", L"visible", L"off"),
                 expect(L"IDC_TABLEINSERT_LABEL_CHECK", L"visible", L"off"), click(L"IDCANCEL")});
}

TEST_F(InsertDialogOk, The_name_of_a_cell_style_is_handed_over_without_blanks_around_it) {
    addStyle(L"Doors", {L"Notes", L" Notes "});
    makeCurrent(L"Doors");
    insert(L"10,20\n", {choose(wide(kFirstRow), L"#4"), expect(wide(kFirstRow), L"text", L" Notes "),
                        choose(wide(kSecondRow), L"#4"), choose(wide(kOtherRow), L"#4"), click(L"IDOK")});
    look([](const KdDbTable& table) {
        for (int row = 0; row < table.numRows(); ++row) EXPECT_STREQ(table.cellStyle(row, 0), L"Notes") << row;
    });
}

TEST_F(InsertDialogOk, A_count_far_too_large_makes_a_table_of_a_million_cells_at_most_after_the_question) {
    for (const wchar_t* rows : {L"2147483646", L"2147483647"}) {
        insert(L"10,20\n", {setText(wide(kRowsEdit), rows), click(L"IDOK"), question(L"OK")});
        look([&](const KdDbTable& table) {
            EXPECT_EQ(table.numColumns(), 3);
            EXPECT_EQ(table.numRows(), 333'333);
        });
        EXPECT_EQ(stored(L"Rows"), _wtoi(rows)) << "the number is the user's";
        const OpenObject<KdDbTable> placed(tables().front(), KdDb::kForWrite);
        placed->erase(true);
    }
}

TEST_F(InsertDialogOk, A_width_that_is_not_finite_gives_way_to_the_one_before) {
    insert(L"10,20\n", {setText(wide(kWidthEdit), L"1e400"), click(L"IDOK")});
    look([](const KdDbTable& table) { EXPECT_DOUBLE_EQ(table.columnWidth(0), 63.5); });
    EXPECT_DOUBLE_EQ(storedWidth(), 63.5);
}

TEST_F(InsertDialogOk, In_a_window_an_automatic_width_is_the_least_until_the_window_tells_it) {
    for (const char* rows : {kRowsRadio, kHeightRadio}) {
        SCOPED_TRACE(rows);
        const ConfigFolder own;
        insert(L"10,20\n10,20\n",
               {click(wide(kWindowRadio)), click(wide(kColumnsRadio)), click(wide(rows)), click(L"IDOK")});
        look([](const KdDbTable& table) { EXPECT_DOUBLE_EQ(table.columnWidth(0), 7.5); });
        const OpenObject<KdDbTable> placed(tables().front(), KdDb::kForWrite);
        placed->erase(true);
    }
}

TEST_F(InsertDialogOk, A_current_style_renamed_by_F2_is_sought_by_its_old_name_and_the_table_falls_to_Standard) {
    addStyle(L"Doors");
    makeCurrent(L"Doors");
    insert(L"10,20\n", {click(wide(kStyleManager)), expectTop(L"IDD_TABLESTYLE_DIALOG"), key(L"F2"), label(L"Walls"),
                        click(L"IDOK"), click(L"IDOK")});
    EXPECT_EQ(currentStyle(), L"Walls");
    look([&](const KdDbTable& table) { EXPECT_EQ(table.tableStyle(), style(L"Standard")); });
}

TEST_F(InsertDialogOk, Of_feet_and_inches_the_number_in_front_is_the_width_and_all_is_shown_again) {
    drawing().setLunits(4);
    insert(L"10,20\n", {setText(wide(kWidthEdit), L"20'-6\""), click(L"IDOK")});
    look([](const KdDbTable& table) { EXPECT_DOUBLE_EQ(table.columnWidth(0), 20.0); });
    EXPECT_DOUBLE_EQ(storedWidth(), 246.0);
    open([&] { EXPECT_EQ(shown(kWidthEdit), length(246.0)); });
}

TEST_F(InsertDialogOk, A_width_with_anything_behind_it_is_the_number_in_front) {
    insert(L"10,20\n", {setText(wide(kWidthEdit), L"40 mm"), click(L"IDOK")});
    look([](const KdDbTable& table) { EXPECT_DOUBLE_EQ(table.columnWidth(0), 40.0); });
    EXPECT_DOUBLE_EQ(storedWidth(), 40.0);
}

TEST_F(InsertDialogOk, Each_window_type_makes_its_table_of_the_window) {
    struct Case {
        const char* columns;
        const char* rows;
        int numColumns;
        int numRows;
        double width;
    };
    // A window of 300 by 200; with 5 columns or widths of 50, 4 rows of data or rows of 2 lines.
    const Case cases[] = {
        {kColumnsRadio, kRowsRadio, 5, 6, 60.0},
        {kWidthRadio, kRowsRadio, 6, 6, 50.0},
        {kColumnsRadio, kHeightRadio, 5, 13, 60.0},
        {kWidthRadio, kHeightRadio, 6, 13, 50.0},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(std::string(each.columns) + " " + each.rows);
        const ConfigFolder own;
        insert(L"0,0\n300,-200\n",
               {setText(wide(kColumnsEdit), L"5"), setText(wide(kRowsEdit), L"4"), setText(wide(kWidthEdit), L"50"),
                setText(wide(kHeightEdit), L"2"), click(wide(kWindowRadio)), click(wide(each.columns)),
                click(wide(each.rows)), click(L"IDOK")});
        look([&](const KdDbTable& table) {
            EXPECT_EQ(table.numColumns(), each.numColumns);
            EXPECT_EQ(table.numRows(), each.numRows);
            EXPECT_DOUBLE_EQ(table.columnWidth(0), each.width);
        });
        const OpenObject<KdDbTable> placed(tables().front(), KdDb::kForWrite);
        placed->erase(true);
    }
}

TEST_F(InsertDialogOk, Cancel_in_the_dialog_and_at_the_prompt_leaves_the_drawing_as_it_was) {
    insert(L"10,20\n", {click(L"IDCANCEL")});
    EXPECT_TRUE(tables().empty());
    insert(L"", {click(L"IDOK")});
    EXPECT_TRUE(tables().empty());
}

TEST_F(InsertDialogOk, A_table_from_a_file_is_placed_as_the_drawings_own) {
    insert(L"10,20\n", steps({import(goodFile()), {click(L"IDOK")}}));
    look([&](const KdDbTable& table) {
        EXPECT_EQ(table.numRows(), 3);
        EXPECT_EQ(table.numColumns(), 2);
        EXPECT_STREQ(table.textString(1, 0), L"Bolt");
        EXPECT_EQ(table.position(), KdGePoint3d(10.0, 20.0, 0.0));
    });
}

TEST_F(InsertDialogOk, A_table_from_a_file_is_given_up_when_it_is_not_placed) {
    insert(L"", steps({import(goodFile()), {click(L"IDOK")}}));
    EXPECT_TRUE(tables().empty());
    insert(L"10,20\n", steps({import(goodFile()), {click(L"IDCANCEL")}}));
    EXPECT_TRUE(tables().empty());
}

TEST_F(InsertDialogOk, Back_at_the_empty_table_the_one_from_the_file_is_dropped) {
    insert(L"10,20\n", steps({import(goodFile()), {click(wide(kEmptyRadio)), click(L"IDOK")}}));
    look([&](const KdDbTable& table) {
        EXPECT_EQ(table.numRows(), 5);
        EXPECT_EQ(table.numColumns(), 3);
        EXPECT_STREQ(table.textString(1, 0), L"");
    });
}

TEST_F(InsertDialogOk, Without_styles_of_tables_OK_still_closes_and_the_jig_has_its_say) {
    kdhost::faults().noTableStyleDictionary = true;
    insert(L"", {click(L"IDOK")});
    EXPECT_TRUE(tables().empty());
    kdhost::faults().noTableStyleDictionary = false;
}

TEST_F(InsertDialogOk, Without_the_main_service_Cancel_closes_all_the_same) {
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(run({click(L"IDCANCEL")}), 2);
    kdhost::faults().noMainAppService = false;
}

}  // namespace
}  // namespace kdtest
