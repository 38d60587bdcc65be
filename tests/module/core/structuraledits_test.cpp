// Rows and columns that come and go by the selection, and the frame that all edits stand in.

#include <gtest/gtest.h>

#include "host/ed/display.h"
#include "tests/module/core/editfixture.h"

namespace kdtest {
namespace {

class StructuralEdits : public TableEdits {};

KdCellRange rows(int first, int last) {
    return {first, -1, last, -1};
}

KdCellRange columns(int first, int last) {
    return {-1, first, -1, last};
}

TEST_F(StructuralEdits, InsertRowByAbove_inserts_as_many_rows_as_are_selected) {
    const KdDbObjectId id = add(TableBuilder(4, 2).fill().select("A2:B4"));
    EXPECT_EQ(CVqTableCommon::InsertRowByAbove(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n|||\n|||\n|||\n|A2|B2|\n|A3|B3|\n|A4|B4|\n");
    EXPECT_EQ(selection(id), cells("A5:B7"));
}

TEST_F(StructuralEdits, InsertRowByAbove_on_a_merged_cell_inserts_one_row_and_moves_the_selection_by_one) {
    const KdDbObjectId id = add(TableBuilder(4, 2).merge("A2:A4").fill().select("A2:A4"));
    EXPECT_EQ(CVqTableCommon::InsertRowByAbove(id), 1);
    EXPECT_EQ(look(id).numRows(), 5);
    EXPECT_EQ(selection(id), cells("A3:A5"));
    EXPECT_EQ(look(id).getMergeRange(2, 0), cells("A3:A5"));
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n|||\n|A2|B2|\n|.|B3|\n|.|B4|\n");
}

TEST_F(StructuralEdits, InsertRowByAbove_on_a_merge_and_more_inserts_a_row_for_each) {
    const KdDbObjectId id = add(TableBuilder(4, 2).merge("A2:A4").select("A2:B4"));
    CVqTableCommon::InsertRowByAbove(id);
    EXPECT_EQ(look(id).numRows(), 7);
}

TEST_F(StructuralEdits, New_rows_inherit_from_the_row_that_stood_there) {
    TableBuilder builder(3, 2);
    builder.rowHeight(1, 42.0).align("A2", KdDb::kBottomRight).text("A2", L"text").lock("A2").select("A2:B3");
    const KdDbObjectId id = add(builder);
    CVqTableCommon::InsertRowByAbove(id);
    for (const int row : {1, 2}) {
        EXPECT_EQ(look(id).rowHeight(row), 42.0);
        EXPECT_EQ(look(id).alignment(row, 0), KdDb::kBottomRight);
        EXPECT_STREQ(look(id).cellStyle(row, 0), L"_HEADER");
        EXPECT_STREQ(look(id).textString(row, 0), L"");
        EXPECT_EQ(look(id).cellState(row, 0), KdDb::kCellStateNone);
    }
    EXPECT_STREQ(look(id).textString(3, 0), L"text");
}

TEST_F(StructuralEdits, InsertRowByBelow_on_the_last_row_inserts_behind_it) {
    const KdDbObjectId id = add(TableBuilder(3, 2).fill().rowHeight(2, 33.0).rowHeight(1, 22.0).select("A2:B3"));
    EXPECT_EQ(CVqTableCommon::InsertRowByBelow(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n|A2|B2|\n|A3|B3|\n|||\n|||\n");
    EXPECT_EQ(look(id).rowHeight(3), 33.0);
    EXPECT_EQ(look(id).rowHeight(4), 33.0);
    EXPECT_EQ(selection(id), cells("A2:B3"));
}

TEST_F(StructuralEdits, InsertRowByBelow_on_a_merged_cell_inserts_one_row_behind_it) {
    const KdDbObjectId id = add(TableBuilder(4, 2).merge("A1:A3").fill().select("A1:A3"));
    CVqTableCommon::InsertRowByBelow(id);
    EXPECT_EQ(look(id).numRows(), 5);
    EXPECT_EQ(look(id).getMergeRange(0, 0), cells("A1:A3"));
    EXPECT_EQ(selection(id), cells("A1:A3"));
}

TEST_F(StructuralEdits, A_row_inserted_inside_a_merge_makes_the_merge_longer) {
    const KdDbObjectId id = add(TableBuilder(4, 2).merge("A1:A4").select("B2"));
    CVqTableCommon::InsertRowByAbove(id);
    CVqTableCommon::InsertRowByBelow(id);
    EXPECT_EQ(look(id).getMergeRange(0, 0), cells("A1:A6"));
}

TEST_F(StructuralEdits, InsertColumnByLeft_inserts_as_many_columns_as_are_selected) {
    const KdDbObjectId id = add(TableBuilder(2, 3).fill().columnWidth(1, 17.0).select("B1:C2"));
    EXPECT_EQ(CVqTableCommon::InsertColumnByLeft(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|||B1|C1|\n|A2|||B2|C2|\n");
    EXPECT_EQ(look(id).columnWidth(1), 17.0);
    EXPECT_EQ(look(id).columnWidth(2), 17.0);
    EXPECT_EQ(selection(id), cells("D1:E2"));
}

TEST_F(StructuralEdits, InsertColumnByLeft_on_a_merged_cell_inserts_one_column_and_moves_the_selection_by_one) {
    const KdDbObjectId id = add(TableBuilder(2, 4).merge("B1:D1").select("B1:D1"));
    CVqTableCommon::InsertColumnByLeft(id);
    EXPECT_EQ(look(id).numColumns(), 5);
    EXPECT_EQ(selection(id), cells("C1:E1"));
    EXPECT_EQ(look(id).getMergeRange(0, 2), cells("C1:E1"));
}

TEST_F(StructuralEdits, InsertColumnByRight_inserts_behind_the_selection_which_stays) {
    const KdDbObjectId id = add(TableBuilder(2, 3).fill().columnWidth(2, 17.0).select("B1:C2"));
    EXPECT_EQ(CVqTableCommon::InsertColumnByRight(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|C1|||\n|A2|B2|C2|||\n");
    EXPECT_EQ(look(id).columnWidth(3), 17.0);
    EXPECT_EQ(look(id).columnWidth(4), 17.0);
    EXPECT_EQ(selection(id), cells("B1:C2"));
}

TEST_F(StructuralEdits, InsertColumnByRight_on_a_merged_cell_inserts_one_column) {
    const KdDbObjectId id = add(TableBuilder(2, 4).merge("A1:B2").select("A1:B2"));
    CVqTableCommon::InsertColumnByRight(id);
    EXPECT_EQ(look(id).numColumns(), 5);
    EXPECT_EQ(look(id).getMergeRange(0, 0), cells("A1:B2"));
}

TEST_F(StructuralEdits, InsertColumnByRight_goes_by_the_rows_where_InsertColumnByLeft_goes_by_the_columns) {
    const KdDbObjectId id = add(TableBuilder(3, 3).fill());
    select(id, columns(1, 1));
    CVqTableCommon::InsertColumnByRight(id);
    EXPECT_EQ(look(id).numColumns(), 3) << "whole columns have no rows";
    CVqTableCommon::InsertColumnByLeft(id);
    EXPECT_EQ(look(id).numColumns(), 4);
    EXPECT_EQ(selection(id), columns(2, 2));

    select(id, rows(1, 2));
    CVqTableCommon::InsertColumnByLeft(id);
    EXPECT_EQ(look(id).numColumns(), 4) << "whole rows have no columns";
    CVqTableCommon::InsertColumnByRight(id);
    EXPECT_EQ(look(id).numColumns(), 5);
    EXPECT_EQ(texts(look(id)), "||A1||B1|C1|\n||A2||B2|C2|\n||A3||B3|C3|\n");
}

TEST_F(StructuralEdits, Operations_on_rows_take_whole_rows_and_pass_over_whole_columns) {
    for (const Edit edit : {CVqTableCommon::InsertRowByAbove, CVqTableCommon::InsertRowByBelow}) {
        const KdDbObjectId id = add(TableBuilder(3, 2).fill());
        select(id, columns(0, 1));
        EXPECT_EQ(edit(id), 1);
        EXPECT_EQ(look(id).numRows(), 3);
        select(id, rows(1, 2));
        EXPECT_EQ(edit(id), 1);
        EXPECT_EQ(look(id).numRows(), 5);
    }
    const KdDbObjectId id = add(TableBuilder(3, 2).fill());
    select(id, columns(0, 1));
    EXPECT_EQ(CVqTableCommon::DeleteRows(id), 1);
    EXPECT_EQ(look(id).numRows(), 3);
    select(id, rows(1, 2));
    EXPECT_EQ(CVqTableCommon::DeleteRows(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n");
}

TEST_F(StructuralEdits, DeleteColumns_takes_whole_columns_and_passes_over_whole_rows) {
    const KdDbObjectId id = add(TableBuilder(2, 3).fill());
    select(id, rows(0, 0));
    EXPECT_EQ(CVqTableCommon::DeleteColumns(id), 1);
    EXPECT_EQ(look(id).numColumns(), 3);
    select(id, columns(0, 1));
    EXPECT_EQ(CVqTableCommon::DeleteColumns(id), 1);
    EXPECT_EQ(texts(look(id)), "|C1|\n|C2|\n");
}

TEST_F(StructuralEdits, DeleteRows_deletes_every_row_of_a_merged_cell) {
    const KdDbObjectId id = add(TableBuilder(5, 2).merge("A2:A4").fill().select("A2:A4"));
    EXPECT_EQ(CVqTableCommon::DeleteRows(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n|A5|B5|\n");
    EXPECT_FALSE(look(id).isMergedCell(1, 0));
}

TEST_F(StructuralEdits, DeleteColumns_deletes_every_column_of_a_merged_cell) {
    const KdDbObjectId id = add(TableBuilder(2, 5).merge("B1:D1").fill().select("B1:D1"));
    EXPECT_EQ(CVqTableCommon::DeleteColumns(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|E1|\n|A2|E2|\n");
}

TEST_F(StructuralEdits, Deleting_leaves_the_selection_to_the_host_which_holds_it_in_the_table) {
    const KdDbObjectId id = add(TableBuilder(5, 5).select("B4:D5"));
    CVqTableCommon::DeleteRows(id);
    EXPECT_EQ(selection(id), cells("B3:D3"));
    CVqTableCommon::DeleteColumns(id);
    EXPECT_EQ(selection(id), cells("B3:B3"));
}

TEST_F(StructuralEdits, The_last_row_and_the_last_column_stay) {
    const KdDbObjectId id = add(TableBuilder(2, 2).fill().select("A1:B2"));
    EXPECT_EQ(CVqTableCommon::DeleteRows(id), 1);
    EXPECT_EQ(CVqTableCommon::DeleteColumns(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n|A2|B2|\n");
    EXPECT_TRUE(steps().empty());
}

TEST_F(StructuralEdits, A_reversed_selection_holds_no_row_to_insert_or_delete_and_stays) {
    for (const Edit edit :
         {CVqTableCommon::InsertRowByAbove, CVqTableCommon::InsertRowByBelow, CVqTableCommon::InsertColumnByLeft,
          CVqTableCommon::InsertColumnByRight, CVqTableCommon::DeleteRows, CVqTableCommon::DeleteColumns}) {
        const KdDbObjectId id = add(TableBuilder(4, 4).fill());
        const std::string before = describe(look(id));
        select(id, {3, 3, 1, 1});
        EXPECT_EQ(edit(id), 1);
        EXPECT_EQ(describe(look(id)), before);
        EXPECT_EQ(selection(id), (KdCellRange{3, 3, 1, 1}));
    }
}

/// That is for those to ask who offer the operation: canInsert, canDelete and the tests of the selection.
TEST_F(StructuralEdits, None_asks_whether_it_is_allowed) {
    const auto locked = [&] {
        TableBuilder builder(4, 4);
        builder.fill().rowHeight(1, 50.0).columnWidth(1, 90.0).select("B2:C3");
        return add(builder.lock("A1:D4", static_cast<KdDb::CellState>(51)));
    };
    const auto rowsAndColumnsAfter = [&](Edit edit) {
        const KdDbObjectId id = locked();
        EXPECT_EQ(edit(id), 1);
        return std::pair(look(id).numRows(), look(id).numColumns());
    };
    EXPECT_FALSE(look(locked()).canDelete(1, 2, true));
    EXPECT_EQ(rowsAndColumnsAfter(CVqTableCommon::InsertRowByAbove), std::pair(6, 4));
    EXPECT_EQ(rowsAndColumnsAfter(CVqTableCommon::InsertRowByBelow), std::pair(6, 4));
    EXPECT_EQ(rowsAndColumnsAfter(CVqTableCommon::InsertColumnByLeft), std::pair(4, 6));
    EXPECT_EQ(rowsAndColumnsAfter(CVqTableCommon::InsertColumnByRight), std::pair(4, 6));
    EXPECT_EQ(rowsAndColumnsAfter(CVqTableCommon::DeleteRows), std::pair(2, 4));
    EXPECT_EQ(rowsAndColumnsAfter(CVqTableCommon::DeleteColumns), std::pair(4, 2));
    const KdDbObjectId id = locked();
    CVqTableCommon::SizeRowsEvenly(id);
    CVqTableCommon::SizeColumnsEvenly(id);
    EXPECT_EQ(look(id).rowHeight(1), look(id).rowHeight(2));
    EXPECT_EQ(look(id).columnWidth(1), look(id).columnWidth(2));
}

TEST_F(StructuralEdits, Either_end_of_the_rows_or_columns_that_is_negative_leaves_the_table_alone) {
    const Edit byRows[] = {CVqTableCommon::InsertRowByAbove, CVqTableCommon::InsertRowByBelow,
                           CVqTableCommon::InsertColumnByRight, CVqTableCommon::DeleteRows};
    const Edit byColumns[] = {CVqTableCommon::InsertColumnByLeft, CVqTableCommon::DeleteColumns};
    const auto expectNothing = [&](Edit edit, const KdCellRange& range) {
        const KdDbObjectId id = add(TableBuilder(4, 4).fill());
        const std::string before = describe(look(id));
        select(id, range);
        EXPECT_EQ(edit(id), 1);
        EXPECT_EQ(describe(look(id)), before);
        EXPECT_EQ(selection(id), range);
    };
    for (const Edit edit : byRows) {
        expectNothing(edit, {-1, 1, 2, 2});
        expectNothing(edit, {1, 1, -1, 2});
    }
    for (const Edit edit : byColumns) {
        expectNothing(edit, {1, -1, 2, 2});
        expectNothing(edit, {1, 1, 2, -1});
    }
    EXPECT_TRUE(steps().empty());
}

// ---- the frame, of all twelve

struct Framed {
    const char* what;
    Edit edit;
    const wchar_t* name;
    const wchar_t* title;
    bool updatesDisplay;
};

const Framed framed[] = {
    {"InsertRowByAbove", CVqTableCommon::InsertRowByAbove, L"AboveInsert", L"Insert row above", true},
    {"InsertRowByBelow", CVqTableCommon::InsertRowByBelow, L"BelowInsert", L"Insert row below", true},
    {"DeleteRows", CVqTableCommon::DeleteRows, L"DeleteRows", L"Delete rows", true},
    {"InsertColumnByLeft", CVqTableCommon::InsertColumnByLeft, L"LeftInsert", L"Insert column left", true},
    {"InsertColumnByRight", CVqTableCommon::InsertColumnByRight, L"RightInsert", L"Insert column right", true},
    {"DeleteColumns", CVqTableCommon::DeleteColumns, L"DeleteColumn", L"Delete columns", true},
    {"UnmergeCells", CVqTableCommon::UnmergeCells, L"UMergeCell", L"Merge or unmerge cells", true},
    {"MergeAll", CVqTableCommon::MergeAll, L"MergeCell", L"Merge or unmerge cells", true},
    {"MergeByRow", CVqTableCommon::MergeByRow, L"MergeByRow", L"Merge or unmerge cells", true},
    {"MergeByColumn", CVqTableCommon::MergeByColumn, L"MergeByColumn", L"Merge or unmerge cells", true},
    {"SizeColumnsEvenly", CVqTableCommon::SizeColumnsEvenly, L"SizeColumnsEvenly", L"Size columns equally", false},
    {"SizeRowsEvenly", CVqTableCommon::SizeRowsEvenly, L"SizeRowsEvenly", L"Size rows equally", false},
};

void PrintTo(const Framed& value, std::ostream* out) {
    *out << value.what;
}

class EditFrame : public TableEdits, public ::testing::WithParamInterface<Framed> {
protected:
    /// A table that each of the twelve changes, without asking anything.
    KdDbObjectId makeTable() {
        TableBuilder builder(5, 5);
        builder.merge("B2:C2").merge("E4:E5").rowHeight(2, 77.0).columnWidth(2, 99.0);
        return add(builder.text("B2", L"kept").text("A1", L"first").text("E5", L"hidden").select("B2:D4"));
    }
    int run(KdDbObjectId id) { return GetParam().edit(id); }
};

TEST_P(EditFrame, Is_one_step_of_undo_with_its_fixed_name_and_its_title) {
    const KdDbObjectId id = makeTable();
    const std::string before = describe(look(id));
    EXPECT_EQ(run(id), 1);
    const std::string after = describe(look(id));
    EXPECT_NE(after, before);
    EXPECT_EQ(steps(), std::vector<std::wstring>{GetParam().name});
    EXPECT_EQ(undoHistory().undoTitle(), GetParam().title);

    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(describe(look(id)), before);
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(undoHistory().redo(), Kdad::eOk);
    EXPECT_EQ(describe(look(id)), after);
}

/// Changes an object of its own as soon as a table has changed.
class Follower : public kdhost::DatabaseListener {
public:
    Follower(KdDbObjectId leader, KdDbObjectId follower) : m_leader(leader), m_follower(follower) {
        kdhost::addDatabaseListener(this);
    }
    ~Follower() override { kdhost::removeDatabaseListener(this); }
    void objectChanged(KdDbObjectId id) override {
        if (id == m_leader) OpenObject<KdDbTable>(m_follower, KdDb::kForWrite)->setColumnWidth(0, 321.0);
    }

private:
    KdDbObjectId m_leader;
    KdDbObjectId m_follower;
};

TEST_P(EditFrame, Closes_the_table_within_the_mark_so_that_what_follows_from_it_is_of_the_same_step) {
    const KdDbObjectId id = makeTable();
    const KdDbObjectId other = add(TableBuilder(1, 1).columnWidth(0, 5.0));
    {
        const Follower follower(id, other);
        run(id);
    }
    EXPECT_EQ(look(other).columnWidth(0), 321.0);
    EXPECT_EQ(steps(), std::vector<std::wstring>{GetParam().name});
    undoHistory().undo();
    EXPECT_EQ(look(other).columnWidth(0), 5.0);
}

TEST_P(EditFrame, Is_false_and_does_nothing_without_the_main_application_service) {
    const KdDbObjectId id = makeTable();
    const std::string before = describe(look(id));
    kdhost::updateDisplay();
    kdhost::queueForRedraw(id);
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(run(id), 0);
    EXPECT_EQ(describe(look(id)), before);
    EXPECT_TRUE(steps().empty());
    EXPECT_EQ(kdhost::queuedForRedraw().size(), 1U) << "no update of the display";
}

TEST_P(EditFrame, Is_true_without_a_change_when_the_table_cannot_be_opened) {
    const KdDbObjectId id = makeTable();
    const std::string before = describe(look(id));
    {
        const OpenObject<KdDbTable> reader(id, KdDb::kForRead);
        ASSERT_TRUE(reader);
        EXPECT_EQ(run(id), 1);
    }
    EXPECT_EQ(describe(look(id)), before);
    EXPECT_EQ(run(KdDbObjectId::kNull), 1);
    EXPECT_EQ(run(host.database().layerTableId()), 1) << "no table";
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->erase(true);
    EXPECT_EQ(run(id), 1);
    EXPECT_TRUE(std::all_of(steps().begin(), steps().end(), [](const auto& name) { return name != GetParam().name; }));
}

TEST_P(EditFrame, Leaves_everything_closed_when_the_first_open_fails) {
    const KdDbObjectId id = makeTable();
    kdhost::faults().failOpenNumber = 1;
    EXPECT_EQ(run(id), 1);
    EXPECT_TRUE(kdhost::openObjects().empty());
}

TEST_P(EditFrame, Updates_the_display_but_for_even_sizes_even_when_nothing_could_be_done) {
    for (const bool possible : {true, false}) {
        const KdDbObjectId id = makeTable();
        kdhost::updateDisplay();
        kdhost::queueForRedraw(id);
        EXPECT_EQ(run(possible ? id : KdDbObjectId::kNull), 1);
        EXPECT_EQ(kdhost::queuedForRedraw().empty(), GetParam().updatesDisplay) << possible;
    }
}

TEST_P(EditFrame, Puts_the_resource_handle_back) {
    const KdDbObjectId id = makeTable();
    const HINSTANCE before = AfxGetResourceHandle();
    EXPECT_NE(before, hLibModule);
    run(id);
    EXPECT_EQ(AfxGetResourceHandle(), before);
}

TEST_P(EditFrame, Is_true_without_a_change_when_nothing_is_selected) {
    const bool sizes = !GetParam().updatesDisplay;
    if (sizes) return;  // without a selection these take the whole table
    const KdDbObjectId id = makeTable();
    select(id, KdCellRange{});
    const std::string before = describe(look(id));
    EXPECT_EQ(run(id), 1);
    EXPECT_EQ(describe(look(id)), before);
    EXPECT_TRUE(steps().empty());
}

INSTANTIATE_TEST_SUITE_P(AllTwelve, EditFrame, ::testing::ValuesIn(framed),
                         [](const auto& row) { return std::string(row.param.what); });

}  // namespace
}  // namespace kdtest
