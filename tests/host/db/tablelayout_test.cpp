// Row heights and column widths from what the cells hold.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "host/db/access.h"
#include "host/db/opening.h"
#include "host/text/layout.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "kd/db/tablestyle.h"
#include "tests/support/random.h"
#include "tests/support/tablebuilder.h"

using kdtest::TableBuilder;

namespace {

/// Height of a row with that many lines of data text, all values standard.
double dataHeight(int lines) {
    return 2 * 1.5 + 4.5 + (lines - 1) * 4.5 * kdhost::text::kLinePitch + 4.5 / 3.0;
}

/// A table style of the drawing, prepared by `prepare(style)`.
template <class Prepare>
KdDbObjectId addStyle(KdDbDatabase& database, Prepare prepare) {
    auto* style = new KdDbTableStyle;
    prepare(*style);
    KdDbObjectId id;
    EXPECT_EQ(style->postTableStyleToDb(&database, L"Made", id), Kdad::eOk);
    style->close();
    return id;
}

const std::wstring kLong = L"several words that need more than the one line of their narrow column";

}  // namespace

TEST(TableLayout, one_line_needs_two_margins_and_four_thirds_of_the_text_height) {
    auto table = TableBuilder(3, 2).text("A3", L"x").build();
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(0), 3.0 + 8.0);
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(1), 3.0 + 6.0);
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(2), 3.0 + 6.0);
    table->setTextHeight(2, 1, 12.0);
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(2), 3.0 + 16.0) << "an empty cell counts for a line too";
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(7), 0.0);
}

TEST(TableLayout, lines_by_code_and_by_wrapping_make_a_row_higher) {
    auto table = TableBuilder(3, 2).text("A3", L"one\\Ptwo\\Pthree").build();
    EXPECT_NEAR(table->minimumRowHeight(2), dataHeight(3), 1e-9);
    table->setTextString(2, 0, kLong.c_str());
    const kdhost::text::Layout layout = kdhost::text::layout(kLong, {L"DejaVu Sans"}, 4.5, 63.5 - 3.0);
    ASSERT_GT(layout.lines.size(), 2U);
    EXPECT_NEAR(table->minimumRowHeight(2), dataHeight(static_cast<int>(layout.lines.size())), 1e-9);
    table->setColumnWidth(0, 10000.0);
    EXPECT_NEAR(table->minimumRowHeight(2), dataHeight(1), 1e-9) << "in a wide column it is one line";
}

TEST(TableLayout, writing_text_makes_a_low_row_grow_and_none_shrink) {
    auto table = TableBuilder(4, 2).build();
    EXPECT_DOUBLE_EQ(table->rowHeight(2), dataHeight(1));
    table->setTextString(2, 0, L"one\\Ptwo");
    EXPECT_NEAR(table->rowHeight(2), dataHeight(2), 1e-9);
    EXPECT_DOUBLE_EQ(table->rowHeight(3), dataHeight(1));
    table->setTextString(2, 0, L"one");
    EXPECT_NEAR(table->rowHeight(2), dataHeight(2), 1e-9);
    table->setRowHeight(3, 1.0);
    table->setTextString(3, 0, L"one");
    EXPECT_NEAR(table->rowHeight(3), dataHeight(1), 1e-9);
    table->setRowHeight(3, 1.0);
    EXPECT_DOUBLE_EQ(table->rowHeight(3), 1.0) << "kept as set";
}

TEST(TableLayout, a_greater_text_height_makes_a_low_row_grow_and_a_smaller_one_keeps_it) {
    auto table = TableBuilder(3, 1).text("A3", L"one\\Ptwo").build();
    const double before = table->rowHeight(2);
    table->setTextHeight(2, 0, 9.0);
    const double grown = table->rowHeight(2);
    EXPECT_GT(grown, before);
    EXPECT_DOUBLE_EQ(grown, table->minimumRowHeight(2));
    table->setTextHeight(2, 0, 2.0);
    EXPECT_DOUBLE_EQ(table->rowHeight(2), grown);
}

TEST(TableLayout, growth_belongs_to_the_moment_of_writing) {
    // Heights are worked out late, yet as if at once.
    auto wide = TableBuilder(3, 2).columnWidth(0, 10000.0).build();
    wide->setTextString(2, 0, kLong.c_str());
    wide->setColumnWidth(0, 20.0);
    EXPECT_NEAR(wide->rowHeight(2), dataHeight(1), 1e-9);

    auto set = TableBuilder(3, 2).build();
    set->setTextString(2, 0, L"one\\Ptwo\\Pthree");
    set->setRowHeight(2, 2.0);
    EXPECT_DOUBLE_EQ(set->rowHeight(2), 2.0);

    auto moved = TableBuilder(3, 2).build();
    moved->setTextString(2, 0, L"one\\Ptwo\\Pthree");
    moved->insertRowsAndInherit(0, 0, 2);
    EXPECT_NEAR(moved->rowHeight(4), dataHeight(3), 1e-9);

    auto gone = TableBuilder(4, 2).build();
    gone->setTextString(2, 0, L"one\\Ptwo\\Pthree");
    gone->deleteRows(2, 1);
    EXPECT_DOUBLE_EQ(gone->rowHeight(2), dataHeight(1));
}

TEST(TableLayout, rows_grow_by_the_styles_that_their_texts_were_written_under_whoever_looks_when) {
    KdDbDatabase database;
    const KdDbObjectId style = addStyle(database, [](KdDbTableStyle&) {});
    const auto inDatabase = [&](KdDbTable* table) {
        table->setTableStyle(style);
        KdDbBlockTableRecord* space = nullptr;
        EXPECT_EQ(kdhost::openAs(space, database.modelSpaceId(), KdDb::kForWrite), Kdad::eOk);
        KdDbObjectId id;
        EXPECT_EQ(space->appendKdDbEntity(id, table), Kdad::eOk);
        space->close();
        return id;
    };
    KdDbTable* written = TableBuilder(4, 2).build().release();
    const KdDbObjectId id = inDatabase(written);
    written->close();
    ASSERT_EQ(kdhost::openAs(written, id, KdDb::kForWrite), Kdad::eOk);
    written->setTextString(2, 0, L"one\\Ptwo");
    written->close();
    KdDbTable* filled = TableBuilder(4, 2).build().release();
    filled->setTextString(2, 0, L"one\\Ptwo");
    const KdDbObjectId filledId = inDatabase(filled);
    filled->close();

    KdDbTableStyle* open = nullptr;
    ASSERT_EQ(kdhost::openAs(open, style, KdDb::kForWrite), Kdad::eOk);
    open->setTextHeight(60.0, L"_DATA");
    open->close();
    for (const KdDbObjectId table : {id, filledId}) {
        EXPECT_NEAR(kdhost::peek<KdDbTable>(table)->rowHeight(2), dataHeight(2), 1e-9);
    }
    ASSERT_EQ(kdhost::openAs(written, id, KdDb::kForWrite), Kdad::eOk);
    written->setTextString(3, 0, L"x");
    EXPECT_NEAR(written->rowHeight(2), dataHeight(2), 1e-9) << "another row's text is none of its own";
    EXPECT_NEAR(written->rowHeight(3), 3.0 + 80.0, 1e-9);
    written->close();
}

TEST(TableLayout, a_merge_wraps_at_its_whole_width) {
    auto table = TableBuilder(3, 4).build();
    table->mergeCells(2, 2, 0, 3);
    const std::wstring text(kLong);
    table->setTextString(2, 0, text.c_str());
    const auto lines = kdhost::text::layout(text, {L"DejaVu Sans"}, 4.5, 4 * 63.5 - 3.0).lines.size();
    EXPECT_NEAR(table->minimumRowHeight(2), dataHeight(static_cast<int>(lines)), 1e-9);
}

TEST(TableLayout, a_merge_over_several_rows_counts_for_its_last_row) {
    auto table = TableBuilder(5, 2).merge("A3:A4").build();
    table->setTextString(2, 0, L"1\\P2\\P3\\P4\\P5");
    EXPECT_DOUBLE_EQ(table->rowHeight(2), dataHeight(1));
    EXPECT_NEAR(table->rowHeight(3), dataHeight(5) - dataHeight(1), 1e-9);
    EXPECT_NEAR(table->minimumRowHeight(3), dataHeight(5) - dataHeight(1), 1e-9);
    table->setRowHeight(2, 20.0);
    EXPECT_NEAR(table->minimumRowHeight(3), dataHeight(5) - 20.0, 1e-9);
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(2), dataHeight(1));
}

// Two tables take the same random changes of single cells. One is asked for a height after each, the other one now and
// then.
TEST(TableLayout, growth_that_is_worked_out_late_is_the_same_in_any_order_of_changes) {
    constexpr int kRows = 6;
    constexpr int kColumns = 3;
    constexpr int kRuns = 300;
    kdtest::Random random(7);
    const std::wstring texts[] = {L"x", kLong, L"two lines\\Pof words", L"one\\Ptwo\\Pthree", L""};
    for (int run = 0; run < kRuns; ++run) {
        auto late = TableBuilder(kRows, kColumns).merge("B3:B5").build();
        auto atOnce = TableBuilder(kRows, kColumns).merge("B3:B5").build();
        for (int step = random.between(1, 12); step > 0; --step) {
            const int row = random.between(-1, kRows - 1);
            const int column = random.between(row == -1 ? 0 : -1, kColumns - 1);
            const double size = random.between(2, 9);
            const int kind = random.below(3);
            const std::wstring& text = random.oneOf(texts);
            const wchar_t* style = random.oneIn(2) ? L"_TITLE" : L"_DATA";
            for (KdDbTable* table : {late.get(), atOnce.get()}) {
                if (kind == 0) table->setTextString(row, column, text.c_str());
                if (kind == 1) table->setTextHeight(row, column, size);
                if (kind == 2) table->setCellStyle(row, column, style);
            }
            atOnce->rowHeight(0);
        }
        for (int row = 0; row < kRows; ++row) {
            ASSERT_EQ(late->rowHeight(row), atOnce->rowHeight(row)) << "run " << run << ", row " << row;
        }
    }
}

TEST(TableLayout, generateLayout_makes_every_row_grow_and_none_shrink) {
    auto table = TableBuilder(4, 1).text("A3", kLong).rowHeight(3, 55.0).build();
    table->setColumnWidth(0, 30.0);
    const double before = table->rowHeight(2);
    EXPECT_GT(table->minimumRowHeight(2), before);
    table->generateLayout();
    EXPECT_DOUBLE_EQ(table->rowHeight(2), table->minimumRowHeight(2));
    EXPECT_DOUBLE_EQ(table->rowHeight(3), 55.0);
    EXPECT_DOUBLE_EQ(table->columnWidth(0), 30.0);
    table->setRowHeight(0.0);
    table->generateLayout();
    EXPECT_DOUBLE_EQ(table->rowHeight(0), 11.0);
}

TEST(TableLayout, generateLayout_makes_a_column_as_wide_as_its_content_and_none_narrower) {
    auto table = TableBuilder(4, 4).text("A3", L"as wide as Understandable").text("B3", L"x").merge("C4:D4").build();
    table->setTextString(3, 2, L"Understandable");
    table->setColumnWidth(5.0);
    table->setColumnWidth(1, 40.0);
    const double word = table->minimumColumnWidth(0);
    EXPECT_GT(word, 5.0);
    table->generateLayout();
    EXPECT_DOUBLE_EQ(table->columnWidth(0), word);
    EXPECT_DOUBLE_EQ(table->columnWidth(1), 40.0);
    EXPECT_DOUBLE_EQ(table->columnWidth(2), 9.0) << "one character of a title between its margins";
    EXPECT_DOUBLE_EQ(table->columnWidth(3), word - 9.0) << "the last column of a merge makes room for it";
    for (int column = 0; column < 4; ++column) {
        EXPECT_GE(table->columnWidth(column), table->minimumColumnWidth(column) - 1e-9) << column;
    }
    EXPECT_NEAR(table->rowHeight(3), dataHeight(1), 1e-9) << "its text has the room for one line";
}

TEST(TableLayout, what_was_measured_is_measured_again_after_every_change_it_depends_on) {
    auto table = TableBuilder(3, 2).text("A3", kLong).build();
    const double narrow = table->minimumRowHeight(2);
    table->setColumnWidth(0, 1000.0);
    EXPECT_LT(table->minimumRowHeight(2), narrow);
    table->setTextHeight(2, 0, 9.0);
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(2), 3.0 + 12.0);
    table->clearCellOverrides(2, 0);
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(2), dataHeight(1));
    table->setCellStyle(2, 0, L"_TITLE");
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(2), 11.0);
    table->setColumnWidth(0, 63.5);
    table->setCellStyle(2, 0, L"_DATA");
    table->mergeCells(2, 2, 0, 1);
    EXPECT_LT(table->minimumRowHeight(2), narrow);
    table->unmergeCells(2, 2, 0, 1);
    EXPECT_DOUBLE_EQ(table->minimumRowHeight(2), narrow);
}

// Two tables take the same random changes. One forgets what it has measured before each layout, the other one keeps it.
TEST(TableLayout, what_a_layout_remembers_of_the_one_before_never_shows) {
    constexpr int kSteps = 400;
    KdDbDatabase database;
    KdDbObjectId styleId;
    auto* style = new KdDbTableStyle;
    ASSERT_EQ(style->postTableStyleToDb(&database, L"Changing", styleId), Kdad::eOk);
    style->close();
    kdtest::Random random(12);
    const std::wstring texts[] = {L"x", L"Understandable", L"two lines\\Pof words", kLong, L""};
    std::vector<std::unique_ptr<KdDbTable>> tables;
    for (int i = 0; i < 2; ++i) {
        tables.push_back(TableBuilder(150, 4).build());  // rows of two blocks
        tables.back()->setTableStyle(styleId);
    }
    const auto change = [&](auto act) {
        for (const auto& table : tables) act(*table);
    };
    for (int step = 0; step < kSteps; ++step) {
        const int row = random.below(tables[0]->numRows());
        const int column = random.below(tables[0]->numColumns());
        const double size = random.between(2, 9);
        switch (random.below(10)) {
            case 0:
                change([&](KdDbTable& table) { table.setColumnWidth(column, 3.0 * size); });
                break;
            case 1:
                change([&](KdDbTable& table) { table.setTextHeight(row, column, size); });
                break;
            case 2:
                change([&](KdDbTable& table) { table.mergeCells(row, row + 2, column, column + 1); });
                break;
            case 3:
                change([&](KdDbTable& table) { table.unmergeCells(row, row, 0, table.numColumns() - 1); });
                break;
            case 4:
                change([&](KdDbTable& table) { table.insertRowsAndInherit(row, row, 3); });
                break;
            case 5:
                change([&](KdDbTable& table) { table.deleteRows(row, 2); });
                break;
            case 6:
                ASSERT_EQ(kdhost::openAs(style, styleId, KdDb::kForWrite), Kdad::eOk);
                style->setTextHeight(size, L"_DATA");
                style->close();
                break;
            default: {
                const std::wstring& text = random.oneOf(texts);
                change([&](KdDbTable& table) { table.setTextString(row, column, text.c_str()); });
            }
        }
        tables[1]->setColumnWidth(0, tables[1]->columnWidth(0));
        change([](KdDbTable& table) { table.generateLayout(); });
        for (int each = 0; each < tables[0]->numColumns(); ++each) {
            ASSERT_EQ(tables[0]->columnWidth(each), tables[1]->columnWidth(each)) << "step " << step;
        }
        for (int each = 0; each < tables[0]->numRows(); ++each) {
            ASSERT_EQ(tables[0]->rowHeight(each), tables[1]->rowHeight(each)) << "step " << step << ", row " << each;
        }
    }
}

TEST(TableLayout, text_at_a_slant_runs_on_and_the_row_makes_room) {
    KdDbDatabase database;
    const KdDbObjectId style =
        addStyle(database, [](KdDbTableStyle& made) { made.setRotation(std::numbers::pi / 2.0, L"_DATA"); });
    auto table = TableBuilder(3, 1).style(style).text("A3", kLong).build();
    const double width = kdhost::text::layout(kLong, {L"DejaVu Sans"}, 4.5, 0.0).width;
    EXPECT_NEAR(table->minimumRowHeight(2), width + 3.0, 1e-6);
}

TEST(TableLayout, a_row_is_as_high_as_the_turned_box_of_its_text_at_any_angle) {
    for (int degrees = 5; degrees < 360; degrees += 5) {
        SCOPED_TRACE(degrees);
        KdDbDatabase database;
        const double angle = degrees * std::numbers::pi / 180.0;
        const KdDbObjectId style = addStyle(database, [&](KdDbTableStyle& made) { made.setRotation(angle, L"_DATA"); });
        for (const wchar_t* text : {L"x", L"Bolt M8", L"two\\Plines here"}) {
            auto table = TableBuilder(3, 1).style(style).columnWidth(0, 500.0).text("A3", text).build();
            const kdhost::text::Layout layout = kdhost::text::layout(text, {L"DejaVu Sans"}, 4.5, 0.0);
            const double box =
                std::abs(layout.width * std::sin(angle)) + std::abs((layout.height + 1.5) * std::cos(angle));
            EXPECT_NEAR(table->rowHeight(2), std::max(dataHeight(1), box + 3.0), 1e-6);
        }
    }
}

TEST(TableLayout, a_cell_style_of_higher_or_turned_text_makes_the_row_of_a_text_grow) {
    KdDbDatabase database;
    const KdDbObjectId style =
        addStyle(database, [](KdDbTableStyle& made) { made.setRotation(std::numbers::pi / 6.0, L"_HEADER"); });
    auto table = TableBuilder(5, 2).style(style).text("A4", L"Bolt M8").text("A5", L"Bolt M8").build();
    table->setCellStyle(3, 0, L"_HEADER");
    EXPECT_GT(table->rowHeight(3), 2.0 * dataHeight(1));
    EXPECT_DOUBLE_EQ(table->rowHeight(3), table->minimumRowHeight(3));
    table->setCellStyle(4, 0, L"_TITLE");
    EXPECT_DOUBLE_EQ(table->rowHeight(4), 11.0);
    table->setCellStyle(2, 0, L"_TITLE");
    EXPECT_DOUBLE_EQ(table->rowHeight(2), dataHeight(1)) << "no text asks for more";
    table->setCellStyle(3, 0, L"_DATA");
    EXPECT_GT(table->rowHeight(3), 2.0 * dataHeight(1)) << "none shrinks";
}

TEST(TableLayout, a_block_needs_its_own_height_unless_it_is_fitted) {
    KdDbDatabase database;
    KdDbBlockTable* blocks = nullptr;
    ASSERT_EQ(database.getBlockTable(blocks, KdDb::kForWrite), Kdad::eOk);
    auto* record = new KdDbBlockTableRecord;
    record->setName(L"Mark");
    KdDbObjectId block;
    ASSERT_EQ(blocks->add(block, record), Kdad::eOk);
    auto* line = new KdDbLine(KdGePoint3d(0, 0, 0), KdGePoint3d(20, 30, 0));
    ASSERT_EQ(record->appendKdDbEntity(line), Kdad::eOk);
    line->close();
    record->close();
    blocks->close();
    auto table = TableBuilder(3, 1).build();
    table->setBlockTableRecordId(2, 0, 0, block, false);
    EXPECT_NEAR(table->minimumRowHeight(2), 33.0, 1e-9);
    EXPECT_NEAR(table->minimumColumnWidth(0), 23.0, 1e-9);
    table->setBlockScale(2, 0, 2.0);
    EXPECT_NEAR(table->minimumRowHeight(2), 63.0, 1e-9);
    table->setBlockTableRecordId(2, 0, 0, block, true);
    EXPECT_NEAR(table->minimumRowHeight(2), dataHeight(1), 1e-9);
}

TEST(TableLayout, a_column_is_no_narrower_than_its_widest_word) {
    auto table = TableBuilder(4, 3).text("A3", L"a considerably wide word").text("A4", L"x").build();
    const double word = kdhost::text::widestWord(L"considerably", {L"DejaVu Sans"}, 4.5);
    EXPECT_NEAR(table->minimumColumnWidth(0), word + 3.0, 1e-9);
    EXPECT_NEAR(table->minimumColumnWidth(1), 6.0 + 3.0, 1e-9) << "of an empty column: a character of the title";
    EXPECT_DOUBLE_EQ(table->minimumColumnWidth(5), 0.0);
    table->mergeCells(2, 2, 0, 1);
    table->setColumnWidth(0, 10.0);
    EXPECT_NEAR(table->minimumColumnWidth(1), std::max(9.0, word + 3.0 - 10.0), 1e-9)
        << "a merge counts for its last column";
}

TEST(TableLayout, a_hundred_thousand_texts_cost_no_layout_until_heights_are_asked_for) {
    auto table = TableBuilder(2, 8).build();
    table->setSize(12500, 8);
    for (int row = 0; row < 12500; ++row) {
        for (int column = 0; column < 8; ++column) table->setTextString(row, column, L"short text");
    }
    EXPECT_DOUBLE_EQ(table->rowHeight(12499), dataHeight(1));
    table->setTextString(7000, 3, kLong.c_str());
    EXPECT_GT(table->rowHeight(7000), dataHeight(1));
    EXPECT_DOUBLE_EQ(table->rowHeight(7001), dataHeight(1));
}
