// Cells copied from table to table, and states that go their own ways.

#include <gtest/gtest.h>

#include "host/db/tableaccess.h"
#include "kd/db/database.h"
#include "kd/db/field.h"
#include "kd/db/symboltable.h"
#include "tests/support/objects.h"
#include "tests/support/tablebuilder.h"

using kdtest::cells;
using kdtest::describe;
using kdtest::TableBuilder;
using kdtest::texts;

namespace {

Kdad::ErrorStatus copyCells(KdDbTable& target, const KdDbTable& source, const char* from, const char* to,
                            KdCellRange* out = nullptr) {
    return target.copyFrom(&source, KdDb::kTableCopyDefault, cells(from), cells(to), out);
}

}  // namespace

TEST(TableCopy, of_a_block_lays_content_and_looks_from_the_targets_corner_on) {
    auto source = TableBuilder(3, 3).fill().align("B2", KdDb::kBottomLeft).cellStyle("B2", L"_TITLE").build();
    auto target = TableBuilder(5, 5).build();
    KdCellRange out;
    ASSERT_EQ(copyCells(*target, *source, "A2:B3", "C3", &out), Kdad::eOk);
    EXPECT_EQ(out, cells("C3:D4"));
    EXPECT_EQ(texts(*target), "||||||\n||||||\n|||A2|B2||\n|||A3|B3||\n||||||\n");
    EXPECT_EQ(target->alignment(2, 3), KdDb::kBottomLeft);
    EXPECT_STREQ(target->cellStyle(2, 3), L"_TITLE");
    EXPECT_STREQ(target->cellStyle(2, 2), L"_HEADER");
}

TEST(TableCopy, of_one_cell_fills_the_whole_target) {
    auto source = TableBuilder(3, 3).fill().align("B2", KdDb::kBottomLeft).build();
    auto target = TableBuilder(3, 3).build();
    ASSERT_EQ(copyCells(*target, *source, "B2", "A2:B3"), Kdad::eOk);
    EXPECT_EQ(texts(*target), "||||\n|B2|B2||\n|B2|B2||\n");
    EXPECT_EQ(target->alignment(2, 1), KdDb::kBottomLeft);
    KdCellRange out;
    ASSERT_EQ(target->copyFrom(source.get(), KdDb::kTableCopyDefault, cells("A1"), {-1, 2, -1, 2}, &out), Kdad::eOk);
    EXPECT_EQ(out, cells("C1:C3"));
}

TEST(TableCopy, makes_rows_as_high_as_what_comes_into_them_needs) {
    auto source = TableBuilder(1, 1).text("A1", L"one\\Ptwo\\Pthree").build();
    auto target = TableBuilder(3, 2).build();
    const double before = target->rowHeight(2);
    ASSERT_EQ(copyCells(*target, *source, "A1", "B3"), Kdad::eOk);
    EXPECT_GT(target->rowHeight(2), before);
    EXPECT_DOUBLE_EQ(target->rowHeight(2), target->minimumRowHeight(2));
}

TEST(TableCopy, does_the_same_under_the_options_of_a_paste) {
    auto source = TableBuilder(2, 2).fill().align("A1", KdDb::kBottomLeft).build();
    for (const auto& [option, from, to] : {std::tuple{64, "A1:B2", "B2:C3"}, {0x20040, "A1", "B2:C3"}}) {
        auto target = TableBuilder(3, 3).fill().build();
        auto expected = TableBuilder(3, 3).fill().build();
        ASSERT_EQ(copyCells(*expected, *source, from, to), Kdad::eOk);
        ASSERT_EQ(
            target->copyFrom(source.get(), static_cast<KdDb::TableCopyOption>(option), cells(from), cells(to), nullptr),
            Kdad::eOk);
        EXPECT_EQ(describe(*target), describe(*expected)) << option;
    }
}

TEST(TableCopy, brings_merges_along_and_ends_those_in_its_place) {
    auto source = TableBuilder(3, 3).fill().merge("A1:B2").build();
    auto target = TableBuilder(5, 5).fill().merge("B2:C2").build();
    ASSERT_EQ(copyCells(*target, *source, "A1:C3", "B2"), Kdad::eOk);
    EXPECT_EQ(target->getMergeRange(2, 2), cells("B2:C3"));
    EXPECT_STREQ(target->textString(1, 1), L"A1");
    EXPECT_STREQ(target->textString(3, 3), L"C3");
}

TEST(TableCopy, inside_one_table_takes_the_cells_as_they_were) {
    auto table = TableBuilder(3, 3).fill().build();
    ASSERT_EQ(copyCells(*table, *table, "A1:B2", "B2"), Kdad::eOk);
    EXPECT_EQ(texts(*table), "|A1|B1|C1|\n|A2|A1|B1|\n|A3|A2|B2|\n");
}

TEST(TableCopy, leaves_what_is_locked_in_a_cell) {
    auto source = TableBuilder(1, 2).fill().align("A1:B1", KdDb::kBottomLeft).build();
    auto target = TableBuilder(2, 2)
                      .fill()
                      .lock("A1", KdDb::kCellStateContentLocked)
                      .lock("B1", KdDb::kCellStateFormatLocked)
                      .build();
    ASSERT_EQ(copyCells(*target, *source, "A1:B1", "A1"), Kdad::eOk);
    EXPECT_STREQ(target->textString(0, 0), L"A1");
    EXPECT_EQ(target->alignment(0, 0), KdDb::kBottomLeft);
    EXPECT_STREQ(target->textString(0, 1), L"B1");
    EXPECT_EQ(target->alignment(0, 1), KdDb::kMiddleCenter);
    EXPECT_EQ(target->cellState(0, 0), KdDb::kCellStateContentLocked);
}

TEST(TableCopy, is_refused_whole_where_it_cannot_be_done) {
    auto source = TableBuilder(3, 3).fill().merge("A1:B1").build();
    auto target = TableBuilder(3, 3).fill().merge("C1:C2").lock("A3").build();
    const std::string before = describe(*target);
    KdCellRange out{7, 7, 7, 7};
    EXPECT_NE(target->copyFrom(nullptr, KdDb::kTableCopyDefault, cells("A1"), cells("A1"), &out), Kdad::eOk);
    EXPECT_EQ(copyCells(*target, *source, "A1:B2", "C3", &out), Kdad::eInvalidInput) << "doesn't fit";
    EXPECT_EQ(copyCells(*target, *source, "A1:D1", "A1", &out), Kdad::eInvalidInput) << "outside the source";
    EXPECT_EQ(copyCells(*target, *source, "A2:C2", "A1", &out), Kdad::eInvalidInput) << "would tear a merge";
    EXPECT_EQ(copyCells(*target, *source, "A1:B1", "A3", &out), Kdad::eLockViolation) << "would merge a locked cell";
    EXPECT_EQ(target->copyFrom(source.get(), KdDb::kTableCopyDefault, {-1, -1, -1, -1}, cells("A1"), &out),
              Kdad::eInvalidInput);
    EXPECT_EQ(describe(*target), before);
    EXPECT_EQ(out, (KdCellRange{7, 7, 7, 7}));
}

TEST(TableCopy, of_a_field_is_a_field_of_its_own) {
    KdDbDatabase database;
    auto* child = new KdDbField;
    child->setFieldCode(L"inner");
    KdDbField* field = kdtest::fieldAround(child, L"a %<\\_FldIdx 0>% b");
    ASSERT_EQ(field->postInDatabase(&database), Kdad::eOk);
    const KdDbObjectId id = field->objectId();
    field->close();
    KdDbBlockTableRecord* space = nullptr;
    KdDbObject* object = nullptr;
    ASSERT_EQ(kddbOpenObject(object, database.modelSpaceId(), KdDb::kForWrite), Kdad::eOk);
    space = static_cast<KdDbBlockTableRecord*>(object);
    auto* table = TableBuilder(2, 2).build().release();
    ASSERT_EQ(space->appendKdDbEntity(table), Kdad::eOk);
    space->close();
    table->setFieldId(0, 0, id);
    EXPECT_EQ(table->contentType(0, 0), KdDb::kCellContentTypeField);
    EXPECT_STREQ(table->textString(0, 0), L"a inner b");
    EXPECT_FALSE(table->isEmpty(0, 0));
    ASSERT_EQ(copyCells(*table, *table, "A1", "B2"), Kdad::eOk);
    EXPECT_EQ(table->fieldId(0, 0), id);
    EXPECT_NE(table->fieldId(1, 1), id);
    EXPECT_STREQ(table->textString(1, 1), L"a inner b");
    table->setTextString(0, 0, L"text");
    EXPECT_TRUE(table->fieldId(0, 0).isNull());
    table->close();
    if (kddbOpenObject(object, id, KdDb::kForWrite) == Kdad::eOk) {
        static_cast<KdDbField*>(object)->setFieldCode(L"other");
        object->close();
    }
    ASSERT_EQ(kddbOpenObject(object, table->objectId(), KdDb::kForRead), Kdad::eOk);
    EXPECT_STREQ(table->textString(1, 1), L"a inner b");
    table->close();
}

TEST(TableStates, that_were_kept_know_nothing_of_later_changes) {
    auto table = TableBuilder(6, 6).fill().merge("B2:C3").align("A1:F6", KdDb::kBottomLeft).build();
    const std::string before = describe(*table);
    const std::unique_ptr<KdDbObjectState> kept = kdhost::tableState(*table).clone();

    table->setTextString(0, 0, L"changed");
    table->setAlignment(-1, -1, KdDb::kTopRight);
    table->setRowHeight(70.0);
    table->setColumnWidth(2, 7.0);
    table->insertRowsAndInherit(2, 2, 2);
    table->deleteColumns(0, 2);
    table->mergeCells(0, 3, 0, 2);
    table->setCellStyle(1, -1, L"Mine");
    table->setCellState(-1, -1, KdDb::kCellStateContentLocked);
    EXPECT_NE(describe(*table), before);

    KdDbTable other;
    *kdhost::editTable(other) = static_cast<const kdhost::TableState&>(*kept);
    EXPECT_EQ(describe(other), before);
}

TEST(TableStates, that_were_kept_let_the_rows_go_their_own_way_too) {
    auto first = TableBuilder(3, 3).fill().build();
    KdDbTable second;
    ASSERT_EQ(second.copyFrom(first.get()), Kdad::eOk);
    const std::string firstBefore = describe(*first);
    second.setTextString(1, 1, L"one\\Ptwo\\Pthree\\Pfour");
    EXPECT_GT(second.rowHeight(1), first->rowHeight(1));
    EXPECT_EQ(describe(*first), firstBefore);
    const std::string secondBefore = describe(second);
    first->deleteRows(0, 2);
    EXPECT_EQ(describe(second), secondBefore);
}

TEST(TableStates, are_taken_from_tables_only) {
    KdDbTable table;
    KdDbField field;
    EXPECT_EQ(table.copyFrom(&field), Kdad::eNotThatKindOfClass);
}

TEST(TableStates, put_every_id_they_hold_through_a_map_and_keep_sharing_the_rest) {
    auto table = TableBuilder(3, 3).style(KdDbObjectId(1)).fill().align("A1:C3", KdDb::kBottomLeft).build();
    table->setTextStyle(0, 0, KdDbObjectId(2));
    table->setGridLinetype(0, 1, KdDb::kHorzTop, KdDbObjectId(3));
    table->setBlockTableRecordId(1, 1, 0, KdDbObjectId(4), false);
    table->setFieldId(2, 2, KdDbObjectId(5));
    const std::unique_ptr<KdDbObjectState> mapped = kdhost::tableState(*table).clone();
    std::vector<KdDbObjectId> owned;
    mapped->mapIds([&](KdDbObjectId id, kdhost::IdRole role) {
        if (id.isNull()) return id;
        if (role == kdhost::IdRole::owned) owned.push_back(id);
        return KdDbObjectId(static_cast<std::uint64_t>(id.asInteger()) + 100);
    });
    EXPECT_EQ(owned, std::vector<KdDbObjectId>{KdDbObjectId(5)});
    KdDbTable other;
    *kdhost::editTable(other) = static_cast<const kdhost::TableState&>(*mapped);
    EXPECT_EQ(other.tableStyle(), KdDbObjectId(101));
    EXPECT_EQ(other.textStyle(0, 0), KdDbObjectId(102));
    EXPECT_EQ(other.gridLinetype(0, 1, KdDb::kHorzTop), KdDbObjectId(103));
    EXPECT_EQ(other.blockTableRecordId(1, 1), KdDbObjectId(104));
    EXPECT_EQ(other.fieldId(2, 2), KdDbObjectId(105));
    EXPECT_EQ(other.alignment(2, 0), KdDb::kBottomLeft);
    EXPECT_EQ(table->textStyle(0, 0), KdDbObjectId(2)) << "the state it came from is untouched";
    EXPECT_EQ(table->fieldId(2, 2), KdDbObjectId(5));
}
