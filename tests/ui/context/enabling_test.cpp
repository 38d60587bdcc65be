// Which items of the context menus may be chosen: item by item for every kind of selection.

#include "tests/ui/context/fixture.h"

namespace kdtest {
namespace {

using EnablingOfMenu = ContextMenus;

const ItemNames kSizes = {"IDR_BYCOLUMN_SIZEEQUALLY", "IDR_BYROW_SIZEEQUALLY"};
const ItemNames kMerges = {"IDR_TABLECELL_MERGE", "IDR_TABLECELL_UNMERGE"};
const ItemNames kDeletes = {"IDR_BYCOLUMN_DELETE", "IDR_BYROW_DELETE"};
const ItemNames kContent = {"IDR_TABLECELL_CUT", "IDR_TABLECELL_EDITTEXT", "IDR_TABLECELL_DELETEALLCONTENT"};
const ItemNames kFormat = {"IDR_TABLECELL_MATCHCELL", "IDR_TABLECELL_BACKGROUNDFILL", "IDR_TABLECELL_BORDERS",
                           "IDR_TABLECELL_DATAFORMAT"};
const ItemNames kColumnInserts = {"IDR_BYCOLUMN_LEFTINSERT", "IDR_BYCOLUMN_RIGHTINSERT"};
const ItemNames kRowInserts = {"IDR_BYROW_ABOVEINSERT", "IDR_BYROW_BELOWINSERT"};

ItemNames operator+(ItemNames a, const ItemNames& b) {
    a.insert(b.begin(), b.end());
    return a;
}

TEST_F(EnablingOfMenu, On_one_cell_nothing_is_to_be_sized_or_merged) {
    const KdDbObjectId table = put(TableBuilder(4, 4).select("B2"));
    EXPECT_EQ(disabledIn(*ask(table)), kSizes + kMerges);
}

TEST_F(EnablingOfMenu, On_a_block_only_unmerging_is_left_out) {
    const KdDbObjectId table = put(TableBuilder(4, 4).select("B2:C3"));
    EXPECT_EQ(disabledIn(*ask(table)), ItemNames{"IDR_TABLECELL_UNMERGE"});
}

TEST_F(EnablingOfMenu, On_a_merge_only_merging_is_left_out) {
    const KdDbObjectId table = put(TableBuilder(4, 4).merge("B2:C3").select("B2:C3"));
    EXPECT_EQ(disabledIn(*ask(table)), ItemNames{"IDR_TABLECELL_MERGE"});
}

TEST_F(EnablingOfMenu, On_a_merge_and_more_cells_both_merging_and_unmerging_are_offered) {
    const KdDbObjectId table = put(TableBuilder(4, 4).merge("B2:C3").select("A2:C3"));
    EXPECT_EQ(disabledIn(*ask(table)), ItemNames{});
}

TEST_F(EnablingOfMenu, On_a_whole_row_its_columns_cannot_all_be_deleted) {
    const KdDbObjectId table = put(TableBuilder(4, 4).select("A2:D2"));
    EXPECT_EQ(disabledIn(*ask(table)),
              (ItemNames{"IDR_BYROW_SIZEEQUALLY", "IDR_TABLECELL_UNMERGE", "IDR_BYCOLUMN_DELETE"}));
}

TEST_F(EnablingOfMenu, On_a_whole_column_its_rows_cannot_all_be_deleted) {
    const KdDbObjectId table = put(TableBuilder(4, 4).select("B1:B4"));
    EXPECT_EQ(disabledIn(*ask(table)),
              (ItemNames{"IDR_BYCOLUMN_SIZEEQUALLY", "IDR_TABLECELL_UNMERGE", "IDR_BYROW_DELETE"}));
}

TEST_F(EnablingOfMenu, On_several_rows_of_one_column_the_columns_cannot_be_sized) {
    const KdDbObjectId table = put(TableBuilder(4, 4).select("B2:B3"));
    EXPECT_EQ(disabledIn(*ask(table)), (ItemNames{"IDR_BYCOLUMN_SIZEEQUALLY", "IDR_TABLECELL_UNMERGE"}));
}

// What an indicator selects has no columns, or no rows, so that nothing can be asked about these.
TEST_F(EnablingOfMenu, On_a_row_selected_by_its_indicator_all_about_columns_is_left_out_but_their_sizes) {
    const KdDbObjectId table = put(TableBuilder(4, 4));
    select(table, {1, -1, 1, -1});
    EXPECT_EQ(disabledIn(*ask(table)),
              (kMerges + kColumnInserts + ItemNames{"IDR_BYCOLUMN_DELETE", "IDR_BYROW_SIZEEQUALLY"}));
}

TEST_F(EnablingOfMenu, On_a_column_selected_by_its_indicator_all_about_rows_is_left_out_but_their_sizes) {
    const KdDbObjectId table = put(TableBuilder(4, 4));
    select(table, {-1, 1, -1, 1});
    EXPECT_EQ(disabledIn(*ask(table)),
              (kMerges + kRowInserts + ItemNames{"IDR_BYROW_DELETE", "IDR_BYCOLUMN_SIZEEQUALLY"}));
}

TEST_F(EnablingOfMenu, Both_items_that_insert_go_by_the_first_end_of_the_selection_alone) {
    const KdDbObjectId table = put(TableBuilder(4, 4));
    const auto disabledInserts = [&](const KdCellRange& range) {
        select(table, range);
        ItemNames names;
        for (const std::string& name : disabledIn(*ask(table))) {
            if ((kRowInserts + kColumnInserts).contains(name)) names.insert(name);
        }
        return names;
    };
    EXPECT_EQ(disabledInserts({1, 1, -1, 1}), ItemNames{});
    EXPECT_EQ(disabledInserts({1, 1, 1, -1}), ItemNames{});
    EXPECT_EQ(disabledInserts({-1, 1, 1, 1}), kRowInserts);
    EXPECT_EQ(disabledInserts({1, -1, 1, 1}), kColumnInserts);
}

TEST_F(EnablingOfMenu, On_the_whole_table_neither_its_rows_nor_its_columns_can_be_deleted) {
    const KdDbObjectId table = put(TableBuilder(4, 4).select("A1:D4"));
    EXPECT_EQ(disabledIn(*ask(table)), kDeletes + ItemNames{"IDR_TABLECELL_UNMERGE"});
}

TEST_F(EnablingOfMenu, On_locked_content_the_content_stays_and_rows_and_columns_with_it) {
    const KdDbObjectId table = put(TableBuilder(4, 4).lock("B2").select("B2"));
    QMenu* menu = ask(table);
    EXPECT_EQ(disabledIn(*menu), kSizes + kMerges + kContent + kDeletes);
    EXPECT_EQ(checkedIn(*menu), ItemNames{"IDR_LOCKING_CONTENTLOCKED"});
}

TEST_F(EnablingOfMenu, On_a_locked_format_the_format_stays) {
    const KdDbObjectId table = put(TableBuilder(4, 4).lock("B2", KdDb::kCellStateFormatLocked).select("B2"));
    QMenu* menu = ask(table);
    EXPECT_EQ(disabledIn(*menu), kSizes + kMerges + kFormat);
    EXPECT_EQ(checkedIn(*menu), ItemNames{"IDR_LOCKING_FORMATLOCKED"});
}

TEST_F(EnablingOfMenu, One_cell_that_may_be_edited_is_enough_except_for_merging) {
    const KdDbObjectId table = put(TableBuilder(4, 4).lock("B2", static_cast<KdDb::CellState>(17)).select("B2:B3"));
    QMenu* menu = ask(table);
    EXPECT_EQ(disabledIn(*menu), kMerges + kDeletes + ItemNames{"IDR_BYCOLUMN_SIZEEQUALLY"});
    EXPECT_TRUE(checkedIn(*menu).empty()) << "the cells differ";
}

TEST_F(EnablingOfMenu, The_kind_of_lock_is_checked_and_one_read_only_item_disabled) {
    for (int state = 0; state < 64; ++state) {
        const KdDbObjectId table =
            put(TableBuilder(2, 2).lock("A1:B1", static_cast<KdDb::CellState>(state)).select("A1:B1"));
        QMenu* menu = ask(table);
        const bool content = (state & 3) != 0;
        const bool format = (state & 48) != 0;
        const char* const names[] = {"IDR_LOCKING_UNLOCKED", "IDR_LOCKING_CONTENTLOCKED", "IDR_LOCKING_FORMATLOCKED",
                                     "IDR_LOCKING_CONTENTFORMATLOCKED"};
        EXPECT_EQ(checkedIn(*menu), ItemNames{names[(content ? 1 : 0) + (format ? 2 : 0)]}) << state;
        const ItemNames disabled = disabledIn(*menu);
        EXPECT_EQ(disabled.contains("IDR_LOCKING_CONTENTLOCKED"), (state & 2) != 0) << state;
        EXPECT_EQ(disabled.contains("IDR_LOCKING_FORMATLOCKED"), (state & 2) == 0 && (state & 32) != 0) << state;
        EXPECT_FALSE(disabled.contains("IDR_LOCKING_UNLOCKED") || disabled.contains("IDR_LOCKING_CONTENTFORMATLOCKED"));
    }
}

TEST_F(EnablingOfMenu, On_a_locked_layer_the_items_are_as_on_any_other) {
    const KdDbObjectId table = put(TableBuilder(4, 4).select("B2"));
    lockLayer(true);
    EXPECT_EQ(disabledIn(*ask(table)), kSizes + kMerges);
}

TEST_F(EnablingOfMenu, On_a_table_of_one_cell_that_is_selected_nothing_can_be_deleted_sized_or_merged) {
    const KdDbObjectId table = put(TableBuilder(1, 1).select("A1"));
    EXPECT_EQ(disabledIn(*ask(table)), kSizes + kMerges + kDeletes);
}

TEST_F(EnablingOfMenu, On_a_table_of_one_cell_without_a_selection_both_sizes_are_left_out) {
    EXPECT_EQ(disabledIn(*ask(put(TableBuilder(1, 1)))), kSizes);
}

TEST_F(EnablingOfMenu, Without_a_selection_all_of_a_larger_table_is_enabled) {
    for (const auto& [rows, columns] : {std::pair(1, 2), std::pair(2, 1), std::pair(4, 4)}) {
        EXPECT_EQ(disabledIn(*ask(put(TableBuilder(rows, columns)))), ItemNames{}) << rows << " " << columns;
    }
}

TEST_F(EnablingOfMenu, In_a_table_that_grows_upwards_the_items_are_as_in_any_other) {
    const KdDbObjectId table = put(TableBuilder(4, 4).select("B2"));
    OpenObject<KdDbTable>(table, KdDb::kForWrite)->setFlowDirection(1);
    EXPECT_EQ(disabledIn(*ask(table)), kSizes + kMerges);
    select(table, "A1:A4");
    EXPECT_EQ(disabledIn(*ask(table)),
              (ItemNames{"IDR_BYCOLUMN_SIZEEQUALLY", "IDR_TABLECELL_UNMERGE", "IDR_BYROW_DELETE"}));
}

TEST_F(EnablingOfMenu, On_a_reversed_selection_no_content_may_be_edited_and_merging_is_offered) {
    const KdDbObjectId table = put(TableBuilder(4, 4));
    select(table, {2, 2, 1, 1});
    EXPECT_EQ(disabledIn(*ask(table)), kContent + kFormat + ItemNames{"IDR_TABLECELL_UNMERGE"});
}

TEST_F(EnablingOfMenu, Items_beside_others_are_disabled_with_them) {
    const KdDbObjectId table = put(TableBuilder(4, 4).lock("B2", static_cast<KdDb::CellState>(17)).select("B2"));
    const QList<QAction*> items = ask(table)->actions();
    const auto place = [&](const char* name) {
        const auto found =
            std::find_if(items.begin(), items.end(), [&](const QAction* item) { return nameOfItem(*item) == name; });
        return static_cast<int>(found - items.begin());
    };
    EXPECT_FALSE(items[place("IDR_TABLECELL_EDITTEXT") - 1]->isEnabled());
    EXPECT_FALSE(items[place("IDR_TABLECELL_BACKGROUNDFILL") + 1]->isEnabled());
    EXPECT_TRUE(items[place("IDR_TABLECELL_BACKGROUNDFILL") - 1]->isEnabled()) << "alignments always are";
}

TEST_F(EnablingOfMenu, No_alignment_is_checked_whatever_the_cells_have) {
    const KdDbObjectId table = put(TableBuilder(2, 2).align("A1:B2", KdDb::kMiddleCenter).select("A1:B2"));
    EXPECT_EQ(checkedIn(*ask(table)), ItemNames{"IDR_LOCKING_UNLOCKED"});
}

TEST_F(EnablingOfMenu, Paste_is_offered_where_what_was_copied_fits) {
    const KdDbObjectId table = put(TableBuilder(4, 4).fill().select("A1:C3"));
    ASSERT_NE(CVqTableCommon::CopyTableCells(table), 0);
    const auto offered = [&](const char* range) {
        select(table, range);
        return !disabledIn(*ask(table)).contains("IDR_TABLECELL_PASTE");
    };
    EXPECT_TRUE(offered("A1:C3"));
    EXPECT_TRUE(offered("B2")) << "it ends with the last row and column";
    EXPECT_FALSE(offered("B3"));
    EXPECT_FALSE(offered("A4"));
    select(table, "A1");
    ASSERT_NE(CVqTableCommon::CopyTableCells(table), 0);
    EXPECT_TRUE(offered("D4")) << "a single cell goes anywhere";
}

// The menus of indicators.

TEST_F(EnablingOfMenu, Of_a_row_indicator_is_all_enabled_but_the_deletion_that_the_table_refuses) {
    const KdDbObjectId table = put(TableBuilder(3, 3).lock("B2"));
    moveToRowIndicator(0);
    EXPECT_EQ(disabledIn(*ask(table)), ItemNames{});
    moveToRowIndicator(1);
    EXPECT_EQ(disabledIn(*ask(table)), ItemNames{"IDR_BYROW_DELETE"}) << "a locked cell stands in the row";
    const KdDbObjectId single = put(TableBuilder(1, 3));
    OpenObject<KdDbTable>(single, KdDb::kForWrite)->setPosition({100.0, 400.0, 0.0});
    moveCursor(96.0, 390.0);
    EXPECT_EQ(disabledIn(*ask(single)), ItemNames{"IDR_BYROW_DELETE"}) << "it is the only row";
}

// A column that can't be deleted is offered for deletion all the same; choosing it changes nothing.
TEST_F(EnablingOfMenu, Of_a_column_indicator_is_always_all_enabled) {
    const KdDbObjectId table = put(TableBuilder(3, 1).lock("A2").select("A1"));
    moveToColumnIndicator(0);
    QMenu* menu = ask(table);
    EXPECT_EQ(disabledIn(*menu), ItemNames{});
    const std::string before = describe(look(table));
    choose(*menu, "IDR_BYCOLUMN_DELETE");
    EXPECT_EQ(describe(look(table)), before);
    EXPECT_TRUE(steps().empty());
}

}  // namespace
}  // namespace kdtest
