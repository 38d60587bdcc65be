// What cells hold and how they look: content, overrides, locks, merged cells.

#include <gtest/gtest.h>

#include <functional>

#include "tests/support/tablebuilder.h"

using kdtest::describe;
using kdtest::TableBuilder;

// ---- content

TEST(CellContent, an_empty_cell_is_a_text_cell_without_text) {
    KdDbTable table;
    EXPECT_TRUE(table.isEmpty(0, 0));
    EXPECT_EQ(table.cellType(0, 0), KdDb::kTextCell);
    EXPECT_EQ(table.contentType(0, 0), KdDb::kCellContentTypeValue);
    EXPECT_EQ(table.contentType(0, 0, 0), KdDb::kCellContentTypeValue);
    EXPECT_EQ(table.contentType(0, 0, 1), KdDb::kCellContentTypeUnknown);
    EXPECT_STREQ(table.textString(0, 0), L"");
    EXPECT_TRUE(table.fieldId(0, 0).isNull());
    EXPECT_TRUE(table.blockTableRecordId(0, 0).isNull());
}

TEST(CellContent, text_is_kept_with_its_codes) {
    KdDbTable table;
    table.setTextString(0, 0, L"{\\C1;red} a\\Pb");
    EXPECT_STREQ(table.textString(0, 0), L"{\\C1;red} a\\Pb");
    EXPECT_EQ(table.textString(0, 0, 0).str(), L"{\\C1;red} a\\Pb");
    EXPECT_TRUE(table.textString(0, 0, 1).isEmpty());
    EXPECT_FALSE(table.isEmpty(0, 0));
    table.setTextString(0, 0, nullptr);
    EXPECT_TRUE(table.isEmpty(0, 0));
}

TEST(CellContent, text_for_minus_one_is_for_the_whole_row_or_column) {
    auto table = TableBuilder(3, 2).build();
    table->setTextString(1, -1, L"row");
    table->setTextString(-1, 1, L"column");
    EXPECT_EQ(kdtest::texts(*table), "||column|\n|row|column|\n||column|\n");
    EXPECT_STREQ(table->textString(1, -1), L"row");
    EXPECT_STREQ(table->textString(-1, 1), L"column");
    table->setTextString(-1, -1, L"all");
    EXPECT_EQ(kdtest::texts(*table), "|all|all|\n|all|all|\n|all|all|\n");
}

TEST(CellContent, a_block_takes_the_place_of_text_and_text_that_of_a_block) {
    KdDbTable table;
    table.setTextString(0, 0, L"x");
    table.setBlockTableRecordId(0, 0, 0, KdDbObjectId(5), true);
    EXPECT_EQ(table.cellType(0, 0), KdDb::kBlockCell);
    EXPECT_EQ(table.contentType(0, 0), KdDb::kCellContentTypeBlock);
    EXPECT_EQ(table.blockTableRecordId(0, 0), KdDbObjectId(5));
    EXPECT_EQ(table.blockTableRecordId(0, 0, 0), KdDbObjectId(5));
    EXPECT_TRUE(table.blockTableRecordId(0, 0, 1).isNull());
    EXPECT_TRUE(table.isAutoScale(0, 0, 0));
    EXPECT_FALSE(table.isAutoScale(0, 0, 1));
    EXPECT_STREQ(table.textString(0, 0), L"");
    EXPECT_FALSE(table.isEmpty(0, 0));
    table.setBlockScale(0, 0, 2.5);
    table.setBlockScale(0, 0, 0.0);
    table.setBlockRotation(0, 0, 0.5);
    EXPECT_DOUBLE_EQ(table.blockScale(0, 0), 2.5);
    EXPECT_DOUBLE_EQ(table.blockRotation(0, 0), 0.5);
    table.setTextString(0, 0, L"y");
    EXPECT_EQ(table.cellType(0, 0), KdDb::kTextCell);
    EXPECT_TRUE(table.blockTableRecordId(0, 0).isNull());
    EXPECT_DOUBLE_EQ(table.blockScale(0, 0), 1.0);
}

TEST(CellContent, another_content_of_a_cell_takes_no_block) {
    KdDbTable table;
    table.setBlockTableRecordId(0, 0, 1, KdDbObjectId(5), true);
    EXPECT_TRUE(table.isEmpty(0, 0));
}

TEST(CellContent, a_type_drops_what_it_cannot_show) {
    KdDbTable table;
    table.setTextString(0, 0, L"x");
    table.setCellType(0, 0, KdDb::kTextCell);
    EXPECT_STREQ(table.textString(0, 0), L"x");
    table.setCellType(0, 0, KdDb::kMultipleContentCell);
    EXPECT_EQ(table.cellType(0, 0), KdDb::kMultipleContentCell);
    EXPECT_STREQ(table.textString(0, 0), L"x");
    table.setCellType(0, 0, KdDb::kBlockCell);
    EXPECT_TRUE(table.isEmpty(0, 0));
    EXPECT_EQ(table.contentType(0, 0), KdDb::kCellContentTypeBlock);
    table.setBlockTableRecordId(0, 0, 0, KdDbObjectId(5), false);
    table.setCellType(0, 0, KdDb::kTextCell);
    EXPECT_TRUE(table.isEmpty(0, 0));
    for (const int type : {0, 4, -1}) {
        table.setCellType(0, 0, static_cast<KdDb::CellType>(type));
        EXPECT_EQ(table.cellType(0, 0), KdDb::kTextCell);
    }
}

TEST(CellContent, is_deleted_in_ranges_and_looks_stay) {
    auto table = TableBuilder(3, 3).fill().align("B2", KdDb::kBottomLeft).build();
    table->deleteContent(kdtest::cells("A1:B2"));
    EXPECT_EQ(kdtest::texts(*table), "|||C1|\n|||C2|\n|A3|B3|C3|\n");
    EXPECT_EQ(table->alignment(1, 1), KdDb::kBottomLeft);
    table->deleteContent({2, -1, 2, -1});
    table->deleteContent({-1, 2, -1, 2});
    EXPECT_EQ(kdtest::texts(*table), "||||\n||||\n||||\n");
}

TEST(CellContent, leaves_a_text_cell_when_it_is_deleted) {
    for (const KdDb::CellType type : {KdDb::kBlockCell, KdDb::kMultipleContentCell}) {
        KdDbTable table;
        table.setCellType(0, 0, type);
        if (type == KdDb::kBlockCell) table.setBlockTableRecordId(0, 0, 0, KdDbObjectId(5), false);
        table.deleteContent({0, 0, 0, 0});
        EXPECT_TRUE(table.isEmpty(0, 0));
        EXPECT_EQ(table.cellType(0, 0), KdDb::kTextCell) << type;
        EXPECT_EQ(table.contentType(0, 0), KdDb::kCellContentTypeValue) << type;
    }
}

TEST(CellContent, is_deleted_from_no_range_outside_reversed_or_empty) {
    auto table = TableBuilder(2, 2).fill().build();
    const std::string before = describe(*table);
    table->deleteContent({-1, -1, -1, -1});
    table->deleteContent({1, 1, 0, 0});
    table->deleteContent({0, 0, 2, 0});
    EXPECT_EQ(describe(*table), before);
}

// ---- places outside

TEST(CellPlaces, outside_the_table_read_like_a_fresh_data_cell_and_take_nothing) {
    auto table = TableBuilder(3, 3).fill().align("A1:C3", KdDb::kBottomLeft).lock("A1:C3").build();
    const std::string before = describe(*table);
    for (const auto& [row, column] : {std::pair{3, 0}, {0, 3}, {-2, 0}, {0, -2}, {100, 100}}) {
        EXPECT_STREQ(table->textString(row, column), L"");
        EXPECT_TRUE(table->isEmpty(row, column));
        EXPECT_EQ(table->alignment(row, column), KdDb::kTopCenter);
        EXPECT_STREQ(table->cellStyle(row, column), L"_DATA");
        EXPECT_DOUBLE_EQ(table->textHeight(row, column), 4.5);
        EXPECT_EQ(table->cellState(row, column), KdDb::kCellStateNone);
        EXPECT_EQ(table->cellType(row, column), KdDb::kTextCell);
        EXPECT_EQ(table->gridVisibility(row, column, KdDb::kHorzTop), KdDb::kVisible);
        EXPECT_FALSE(table->isContentEditable(row, column));
        EXPECT_FALSE(table->isFormatEditable(row, column));
        EXPECT_EQ(table->getMergeRange(row, column), (KdCellRange{row, column, row, column}));
        table->setTextString(row, column, L"out");
        table->setAlignment(row, column, KdDb::kTopLeft);
        table->setCellStyle(row, column, L"_TITLE");
        table->setCellState(row, column, KdDb::kCellStateNone);
        table->setCellType(row, column, KdDb::kBlockCell);
        table->setBlockTableRecordId(row, column, 0, KdDbObjectId(5), true);
        table->setGridVisibility(row, column, KdDb::kHorzTop, KdDb::kInvisible);
        table->clearCellOverrides(row, column);
    }
    EXPECT_EQ(describe(*table), before);
}

// ---- looks

namespace {

/// One property of a cell: how it is set, and what tells whether the cell has that value.
struct LooksCase {
    const char* name;
    std::function<void(KdDbTable&, int, int)> set;
    std::function<bool(const KdDbTable&, int, int)> isSet;
};

std::vector<LooksCase> looksCases() {
    const KdCmColor red = KdCmColor::fromIndex(1);
    return {
        {"alignment", [](KdDbTable& t, int r, int c) { t.setAlignment(r, c, KdDb::kBottomRight); },
         [](const KdDbTable& t, int r, int c) { return t.alignment(r, c) == KdDb::kBottomRight; }},
        {"background", [=](KdDbTable& t, int r, int c) { t.setBackgroundColor(r, c, red); },
         [=](const KdDbTable& t, int r, int c) { return t.backgroundColor(r, c) == red; }},
        {"content colour", [=](KdDbTable& t, int r, int c) { t.setContentColor(r, c, red); },
         [=](const KdDbTable& t, int r, int c) { return t.contentColor(r, c) == red; }},
        {"text style", [](KdDbTable& t, int r, int c) { t.setTextStyle(r, c, KdDbObjectId(8)); },
         [](const KdDbTable& t, int r, int c) { return t.textStyle(r, c) == KdDbObjectId(8); }},
        {"text height", [](KdDbTable& t, int r, int c) { t.setTextHeight(r, c, 1.25); },
         [](const KdDbTable& t, int r, int c) { return t.textHeight(r, c) == 1.25; }},
        {"format", [](KdDbTable& t, int r, int c) { t.setDataFormat(r, c, L"%lu2%pr3"); },
         [](const KdDbTable& t, int r, int c) { return std::wstring(t.format(r, c)) == L"%lu2%pr3"; }},
        {"data type", [](KdDbTable& t, int r, int c) { t.setDataType(r, c, KdValue::kDate, KdValue::kAngle); },
         [](const KdDbTable& t, int r, int c) {
             KdValue::DataType data{};
             KdValue::UnitType unit{};
             t.getDataType(r, c, data, unit);
             return data == KdValue::kDate && unit == KdValue::kAngle;
         }},
    };
}

}  // namespace

TEST(CellLooks, each_property_is_the_cells_own_until_cleared) {
    for (const LooksCase& looks : looksCases()) {
        auto table = TableBuilder(3, 3).fill().build();
        const std::string before = describe(*table);
        EXPECT_FALSE(looks.isSet(*table, 1, 1)) << looks.name;
        looks.set(*table, 1, 1);
        EXPECT_TRUE(looks.isSet(*table, 1, 1)) << looks.name;
        EXPECT_FALSE(looks.isSet(*table, 1, 2)) << looks.name;
        table->clearCellOverrides(1, 1);
        EXPECT_EQ(describe(*table), before) << looks.name;
    }
}

TEST(CellLooks, each_property_is_set_for_whole_rows_columns_and_tables_by_minus_one) {
    for (const LooksCase& looks : looksCases()) {
        auto row = TableBuilder(3, 3).build();
        looks.set(*row, 1, -1);
        auto column = TableBuilder(3, 3).build();
        looks.set(*column, -1, 1);
        auto all = TableBuilder(3, 3).build();
        looks.set(*all, -1, -1);
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 3; ++c) {
                EXPECT_EQ(looks.isSet(*row, r, c), r == 1) << looks.name;
                EXPECT_EQ(looks.isSet(*column, r, c), c == 1) << looks.name;
                EXPECT_TRUE(looks.isSet(*all, r, c)) << looks.name;
            }
        }
        EXPECT_TRUE(looks.isSet(*row, 1, -1)) << "the first cell answers: " << looks.name;
    }
}

TEST(CellLooks, each_property_is_refused_by_a_locked_format) {
    for (const LooksCase& looks : looksCases()) {
        for (const int lock : {16, 32, 51}) {
            auto table = TableBuilder(2, 2).lock("A1", static_cast<KdDb::CellState>(lock)).build();
            const std::string before = describe(*table);
            looks.set(*table, 0, 0);
            EXPECT_EQ(describe(*table), before) << looks.name << " under " << lock;
        }
        auto table = TableBuilder(2, 2).lock("A1", static_cast<KdDb::CellState>(3)).build();
        looks.set(*table, 0, 0);
        EXPECT_TRUE(looks.isSet(*table, 0, 0)) << looks.name << " under a lock of the content";
    }
}

TEST(CellLooks, of_a_whole_row_pass_over_its_locked_cells) {
    auto table = TableBuilder(2, 3).lock("B1", KdDb::kCellStateFormatLocked).build();
    table->setAlignment(0, -1, KdDb::kBottomLeft);
    EXPECT_EQ(table->alignment(0, 0), KdDb::kBottomLeft);
    EXPECT_EQ(table->alignment(0, 1), KdDb::kMiddleCenter);
    EXPECT_EQ(table->alignment(0, 2), KdDb::kBottomLeft);
}

TEST(CellLooks, values_without_sense_change_nothing) {
    auto table = TableBuilder(2, 2).build();
    const std::string before = describe(*table);
    table->setAlignment(0, 0, static_cast<KdDb::CellAlignment>(0));
    table->setAlignment(0, 0, static_cast<KdDb::CellAlignment>(10));
    table->setTextHeight(0, 0, 0.0);
    table->setTextHeight(0, 0, -2.0);
    table->setCellStyle(0, 0, L"");
    table->setCellStyle(0, 0, nullptr);
    table->setGridDoubleLineSpacing(0, 0, KdDb::kHorzTop, -1.0);
    EXPECT_EQ(describe(*table), before);
}

TEST(CellLooks, clearing_keeps_content_style_name_locks_and_merges) {
    auto table = TableBuilder(3, 3)
                     .fill()
                     .merge("A2:B3")
                     .cellStyle("C3", L"_HEADER")
                     .lock("C3")
                     .align("A1:C3", KdDb::kBottomLeft)
                     .build();
    table->clearTableStyleOverrides(0);
    EXPECT_EQ(table->alignment(2, 2), KdDb::kMiddleCenter) << "of the header style";
    EXPECT_STREQ(table->cellStyle(2, 2), L"_HEADER");
    EXPECT_STREQ(table->textString(2, 2), L"C3");
    EXPECT_EQ(table->cellState(2, 2), KdDb::kCellStateContentLocked);
    EXPECT_TRUE(table->isMergedCell(1, 0));
    EXPECT_EQ(table->alignment(1, 0), KdDb::kMiddleCenter);
}

TEST(CellLooks, whether_a_cell_merges_its_row_is_told_by_its_own_style) {
    auto table = TableBuilder(3, 2).cellStyle("A1", L"_DATA").cellStyle("A3", L"_TITLE").build();
    EXPECT_FALSE(table->isMergeAllEnabled(0, 0));
    EXPECT_TRUE(table->isMergeAllEnabled(0, 1));
    EXPECT_TRUE(table->isMergeAllEnabled(2, 0));
    EXPECT_FALSE(table->isMergeAllEnabled(2, 1));
}

TEST(CellLooks, are_apart_in_cells_that_were_set_alike) {
    auto table = TableBuilder(2, 3).build();
    table->setAlignment(-1, -1, KdDb::kBottomLeft);
    table->setAlignment(0, 1, KdDb::kTopRight);
    EXPECT_EQ(table->alignment(0, 0), KdDb::kBottomLeft);
    EXPECT_EQ(table->alignment(0, 1), KdDb::kTopRight);
    EXPECT_EQ(table->alignment(0, 2), KdDb::kBottomLeft);
    table->setTextHeight(0, 0, 3.0);
    EXPECT_DOUBLE_EQ(table->textHeight(0, 2), 6.0);
}

// ---- locks

TEST(CellLocks, of_content_refuse_every_change_of_content) {
    for (const int lock : {1, 2, 51}) {
        auto table = TableBuilder(2, 2).fill().lock("A1", static_cast<KdDb::CellState>(lock)).build();
        const std::string before = describe(*table);
        table->setTextString(0, 0, L"no");
        table->setFieldId(0, 0, KdDbObjectId(4));
        table->setBlockTableRecordId(0, 0, 0, KdDbObjectId(4), false);
        table->setBlockScale(0, 0, 3.0);
        table->setCellType(0, 0, KdDb::kBlockCell);
        table->deleteContent({0, 0, 0, 0});
        EXPECT_EQ(describe(*table), before) << lock;
        EXPECT_FALSE(table->isContentEditable(0, 0));
        EXPECT_TRUE(table->isContentEditable(0, 1));
        EXPECT_EQ(table->isFormatEditable(0, 0), lock != 51);
    }
}

TEST(CellLocks, can_always_be_changed) {
    auto table = TableBuilder(2, 2).lock("A1", static_cast<KdDb::CellState>(51)).build();
    table->setCellState(0, 0, KdDb::kCellStateNone);
    EXPECT_EQ(table->cellState(0, 0), KdDb::kCellStateNone);
    table->setCellState(-1, -1, KdDb::kCellStateFormatLocked);
    EXPECT_EQ(table->cellState(1, 1), KdDb::kCellStateFormatLocked);
}

// ---- merged cells

TEST(CoveredCells, show_nothing_and_read_the_looks_of_the_owner) {
    auto table = TableBuilder(3, 3).fill().merge("A2:B3").align("A2", KdDb::kBottomLeft).lock("A2").build();
    table->setBackgroundColor(1, 0, KdCmColor::fromIndex(4));
    EXPECT_STREQ(table->textString(2, 1), L"");
    EXPECT_TRUE(table->isEmpty(2, 1));
    EXPECT_EQ(table->alignment(2, 1), KdDb::kBottomLeft);
    EXPECT_EQ(table->backgroundColor(1, 1).colorIndex(), 4);
    EXPECT_STREQ(table->cellStyle(2, 1), L"_HEADER");
    EXPECT_EQ(table->cellState(2, 1), KdDb::kCellStateContentLocked);
    EXPECT_FALSE(table->isContentEditable(2, 1));
}

TEST(CoveredCells, take_a_write_themselves_and_show_it_when_they_are_free) {
    auto table = TableBuilder(3, 3).merge("A2:B3").build();
    table->setAlignment(2, 1, KdDb::kTopRight);
    table->setTextString(2, 1, L"hidden");
    table->setCellStyle(2, 1, L"_TITLE");
    EXPECT_EQ(table->alignment(2, 1), KdDb::kMiddleCenter);
    EXPECT_EQ(table->alignment(1, 0), KdDb::kMiddleCenter);
    EXPECT_STREQ(table->textString(2, 1), L"");
    table->unmergeCells(1, 1, 0, 0);
    EXPECT_EQ(table->alignment(2, 1), KdDb::kTopRight);
    EXPECT_STREQ(table->textString(2, 1), L"hidden");
    EXPECT_STREQ(table->cellStyle(2, 1), L"_TITLE");
}

TEST(CoveredCells, are_locked_by_their_owners_lock) {
    auto table = TableBuilder(3, 3).merge("A2:B3").lock("A2", static_cast<KdDb::CellState>(51)).build();
    const std::string before = describe(*table);
    table->setAlignment(2, 1, KdDb::kTopRight);
    table->setTextString(2, 1, L"no");
    EXPECT_EQ(describe(*table), before);
}
