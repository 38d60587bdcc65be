// What becomes of formulas when what they read changes.

#include "host/db/access.h"
#include "host/db/opening.h"
#include "kd/db/idmapping.h"
#include "kd/db/mtext.h"
#include "kd/db/symboltable.h"
#include "tests/host/field/formulafixture.h"
#include "tests/support/objects.h"

namespace {

using kdtest::cells;
using kdtest::narrow;

std::wstring nameOf(KdDbObjectId table) {
    return L"Table(" + std::to_wstring(table.asInteger()) + L").";
}

class Recalculation : public kdtest::FormulaTest {
protected:
    /// Counts what is told of an object.
    struct Watch : KdDbObjectReactor {
        explicit Watch(KdDbObjectId id) : object(kdhost::peekObject(id)) { object->addReactor(this); }
        ~Watch() override { object->removeReactor(this); }
        void modified(const KdDbObject*) override { ++times; }
        const KdDbObject* object;
        int times = 0;
    };

    KdDbObjectId cloneOf(KdDbObjectId table, KdDbDatabase& destination, KdDbIdMapping& mapping) {
        mapping.setDestDb(&destination);
        auto* open = kdtest::mustOpen<KdDbTable>(table);
        auto* space = kdtest::mustOpen<KdDbBlockTableRecord>(destination.modelSpaceId(), KdDb::kForWrite);
        KdDbObject* clone = nullptr;
        EXPECT_EQ(open->deepClone(space, clone, mapping), Kdad::eOk);
        const KdDbObjectId id = clone->objectId();
        clone->close();
        space->close();
        open->close();
        return id;
    }
};

TEST_F(Recalculation, a_formula_follows_the_cells_that_it_reads) {
    const KdDbObjectId table = makeTable(3, 3);
    formula(table, "C1", L"A1+B1");
    EXPECT_EQ(shown(table, "C1"), "0");
    type(table, "A1", L"2");
    EXPECT_EQ(shown(table, "C1"), "2");
    type(table, "B1", L"3");
    EXPECT_EQ(shown(table, "C1"), "5");
    type(table, "B1", L"three");
    EXPECT_EQ(shown(table, "C1"), "####");
    edit(table, [](KdDbTable& open) { open.deleteContent({0, 0, 0, 1}); });
    EXPECT_EQ(shown(table, "C1"), "0");
}

TEST_F(Recalculation, what_changes_while_the_table_is_open_counts_from_its_close_on) {
    const KdDbObjectId table = makeTable(2, 2);
    formula(table, "B1", L"A1");
    EXPECT_EQ(shown(table, "B1"), "0");
    edit(table, [&](KdDbTable& open) {
        open.setTextString(0, 0, L"5");
        EXPECT_EQ(shown(table, "B1"), "0");
    });
    EXPECT_EQ(shown(table, "B1"), "5");
}

TEST_F(Recalculation, formulas_that_read_formulas_follow_through_them) {
    const KdDbObjectId table = makeTable(5, 1);
    type(table, "A1", L"1");
    formula(table, "A5", L"A4*2");
    formula(table, "A4", L"Sum(A2:A3)");
    formula(table, "A3", L"A2+1");
    formula(table, "A2", L"A1+1");
    EXPECT_EQ(shown(table, "A5"), "10");
    type(table, "A1", L"2");
    EXPECT_EQ(shown(table, "A5"), "14");
    formula(table, "A3", L"100");
    EXPECT_EQ(shown(table, "A5"), "206");
    type(table, "A3", L"");
    EXPECT_EQ(shown(table, "A5"), "6");
}

TEST_F(Recalculation, an_edited_formula_stays_the_field_and_shows_the_new_result) {
    const KdDbObjectId table = makeTable(2, 2);
    formula(table, "A1", L"1+1");
    formula(table, "B1", L"A1");
    EXPECT_EQ(shown(table, "B1"), "2");
    edit(table, [](KdDbTable& open) {
        const KdDbObjectId kept = open.fieldId(0, 0);
        auto* field = kdtest::mustOpen<KdDbField>(kept);
        KdDbField* expression = nullptr;
        EXPECT_EQ(field->getChild(0, expression, KdDb::kForWrite), Kdad::eOk);
        expression->setFieldCode(L"\\AcExpr (2+2)");
        expression->close();
        open.setFieldId(0, 0, kept);
        field->close();
    });
    EXPECT_EQ(shown(table, "A1"), "4");
    EXPECT_EQ(shown(table, "B1"), "4");
}

TEST_F(Recalculation, a_code_that_changes_by_itself_is_told_to_the_table_and_its_readers) {
    const KdDbObjectId table = makeTable(1, 1);
    const KdDbObjectId reader = makeTable(1, 1);
    formula(table, "A1", L"1");
    formula(reader, "A1", nameOf(table) + L"A1");
    EXPECT_EQ(shown(reader, "A1"), "1");
    const Watch watch(table);
    const Watch readerWatch(reader);
    auto* field = kdtest::mustOpen<KdDbField>(kdhost::peek<KdDbTable>(table)->fieldId(0, 0));
    KdDbField* expression = nullptr;
    field->getChild(0, expression, KdDb::kForWrite);
    expression->setFieldCode(L"\\AcExpr (2)");
    EXPECT_EQ(watch.times, 0);
    expression->close();
    field->close();
    EXPECT_EQ(watch.times, 1);
    EXPECT_EQ(readerWatch.times, 1);
    EXPECT_EQ(shown(reader, "A1"), "2");
}

// ---- other tables

TEST_F(Recalculation, cells_of_another_table_are_followed_and_the_reader_is_told) {
    const KdDbObjectId source = makeTable(3, 3);
    KdDbBlockTableRecord* record = nullptr;
    const KdDbObjectId block = kdtest::addRecord<KdDbBlockTableRecord>(m_database.blockTableId(), L"Second");
    ASSERT_EQ(kdhost::openAs(record, block, KdDb::kForRead), Kdad::eOk);
    record->close();
    const KdDbObjectId reader = makeTableIn(block, 2, 2);
    type(source, "A1", L"1");
    type(source, "B2", L"2");
    formula(reader, "A1", L"Sum(" + nameOf(source) + L"A1:C3)+A2");
    formula(reader, "B1", L"A1*2");
    type(reader, "A2", L"10");
    EXPECT_EQ(shown(reader, "B1"), "26");
    const Watch watch(reader);
    type(source, "C3", L"4");
    EXPECT_EQ(watch.times, 1) << "told once, though two of its cells show something else";
    EXPECT_EQ(shown(reader, "B1"), "34");
    type(source, "A1", L"x");
    EXPECT_EQ(shown(reader, "B1"), "32");
}

TEST_F(Recalculation, a_change_that_nobody_reads_is_told_to_nobody) {
    const KdDbObjectId source = makeTable(3, 3);
    const KdDbObjectId reader = makeTable(1, 1);
    formula(reader, "A1", nameOf(source) + L"A1");
    EXPECT_EQ(shown(reader, "A1"), "0");
    const Watch watch(reader);
    type(source, "B2", L"4");
    edit(source, [](KdDbTable& open) { open.setAlignment(0, 0, KdDb::kMiddleCenter); });
    EXPECT_EQ(watch.times, 0);
}

TEST_F(Recalculation, an_erased_table_is_broken_and_heals_when_it_comes_back) {
    const KdDbObjectId source = makeTable(2, 2);
    const KdDbObjectId reader = makeTable(1, 2);
    type(source, "A1", L"5");
    formula(reader, "A1", nameOf(source) + L"A1");
    formula(reader, "B1", L"A1+1");
    EXPECT_EQ(shown(reader, "B1"), "6");
    edit(source, [](KdDbTable& open) { open.erase(); });
    EXPECT_EQ(shown(reader, "A1"), "####");
    EXPECT_EQ(shown(reader, "B1"), "####");
    undo();
    EXPECT_EQ(shown(reader, "B1"), "6");
    redo();
    EXPECT_EQ(shown(reader, "B1"), "####");
}

TEST_F(Recalculation, a_table_that_is_brought_back_is_read_as_it_is_then) {
    const KdDbObjectId source = makeTable(2, 2);
    const KdDbObjectId reader = makeTable(1, 2);
    type(source, "A1", L"5");
    formula(source, "B1", L"A1*2");
    formula(reader, "A1", nameOf(source) + L"B1");
    edit(source, [](KdDbTable& open) {
        open.erase();
        open.setTextString(0, 0, L"7");
    });
    EXPECT_EQ(shown(reader, "A1"), "####");
    KdDbObject* erased = nullptr;
    ASSERT_EQ(kddbOpenObject(erased, source, KdDb::kForWrite, true, KdDbTable::desc()), Kdad::eOk);
    EXPECT_EQ(erased->erase(false), Kdad::eOk);
    erased->close();
    EXPECT_EQ(shown(reader, "A1"), "14");
}

TEST_F(Recalculation, a_deleted_row_that_is_read_breaks_and_heals) {
    const KdDbObjectId table = makeTable(3, 2);
    const KdDbObjectId reader = makeTable(1, 1);
    type(table, "A2", L"5");
    formula(table, "B1", L"A2+1");
    formula(reader, "A1", nameOf(table) + L"B1*" + nameOf(table) + L"A2");
    EXPECT_EQ(shown(reader, "A1"), "30");
    edit(table, [](KdDbTable& open) { open.deleteRows(1, 1); });
    EXPECT_EQ(code(table, "B1"), "#REF!+1");
    EXPECT_EQ(shown(table, "B1"), "####");
    EXPECT_EQ(shown(reader, "A1"), "####");
    edit(table, [](KdDbTable& open) { open.insertRowsAndInherit(1, 0, 1); });
    EXPECT_EQ(shown(table, "B1"), "####") << "another row is not the one that went";
    undo();
    undo();
    EXPECT_EQ(code(table, "B1"), "A2+1");
    EXPECT_EQ(shown(reader, "A1"), "30");
}

TEST_F(Recalculation, a_table_of_another_drawing_is_out_of_reach) {
    KdDbDatabase other;
    auto* table = new KdDbTable;
    table->setTextString(0, 0, L"5");
    const KdDbObjectId foreign = kdtest::append(other, table);
    const KdDbObjectId reader = makeTable(1, 2);
    formula(reader, "A1", nameOf(foreign) + L"A1");
    formula(reader, "B1", nameOf(m_database.layerZero()) + L"A1");
    EXPECT_EQ(shown(reader, "A1"), "####");
    EXPECT_EQ(shown(reader, "B1"), "####");
}

TEST_F(Recalculation, drawings_come_and_go_without_a_trace_in_others) {
    const KdDbObjectId table = makeTable(1, 1);
    for (int round = 0; round < 3; ++round) {
        KdDbDatabase other;
        auto* made = new KdDbTable;
        made->setSize(2, 1);
        const KdDbObjectId id = kdtest::append(other, made);
        auto* open = kdtest::mustOpen<KdDbTable>(id, KdDb::kForWrite);
        open->setTextString(0, 0, L"3");
        kdtest::putFormula(*open, 1, 0, L"A1+1");
        open->close();
        EXPECT_EQ(shown(id, "A2"), "4");
    }
    formula(table, "A1", L"1+1");
    EXPECT_EQ(shown(table, "A1"), "2");
}

// ---- circles and chains

TEST_F(Recalculation, formulas_in_a_circle_show_marks_and_heal) {
    const KdDbObjectId table = makeTable(6, 2);
    formula(table, "A1", L"A2");
    formula(table, "A2", L"A3+1");
    formula(table, "A3", L"A1");
    formula(table, "A4", L"A1+1");
    formula(table, "A5", L"Count(A1:A4)");
    formula(table, "A6", L"7");
    for (const char* cell : {"A1", "A2", "A3", "A4"}) EXPECT_EQ(shown(table, cell), "####");
    EXPECT_EQ(shown(table, "A5"), "0") << "counts no errors, and is in no circle itself";
    EXPECT_EQ(shown(table, "A6"), "7");
    type(table, "A3", L"10");
    EXPECT_EQ(shown(table, "A1"), "11");
    EXPECT_EQ(shown(table, "A4"), "12");
    undo();
    EXPECT_EQ(shown(table, "A4"), "####");
}

TEST_F(Recalculation, a_formula_that_reads_itself_is_a_circle) {
    const KdDbObjectId table = makeTable(3, 2);
    formula(table, "A1", L"A1");
    formula(table, "A2", L"Count(A1:B3)");
    formula(table, "B1", L"Sum(A1:B1)*0");
    formula(table, "B2", nameOf(table) + L"B2+1");
    for (const char* cell : {"A1", "A2", "B1", "B2"}) EXPECT_EQ(shown(table, cell), "####");
}

TEST_F(Recalculation, circles_that_touch_are_told_apart) {
    const KdDbObjectId table = makeTable(4, 3);
    // A1 and B1 read each other, B1 also the circle of A2 to C2; A3 reads a member of each, C3 neither.
    formula(table, "A1", L"Count(B1,B1)");
    formula(table, "B1", L"Count(A1:A2)");
    formula(table, "A2", L"Count(B2)");
    formula(table, "B2", L"Count(C2)");
    formula(table, "C2", L"Count(A2)");
    formula(table, "A3", L"Count(A1,C2)");
    formula(table, "C3", L"A3+1");
    EXPECT_EQ(shown(table, "C3"), "1");
    for (const char* cell : {"A1", "B1", "A2", "B2", "C2"}) EXPECT_EQ(shown(table, cell), "####");
    EXPECT_EQ(shown(table, "A3"), "0");
}

TEST_F(Recalculation, a_circle_over_two_tables_is_found) {
    const KdDbObjectId one = makeTable(1, 1);
    const KdDbObjectId two = makeTable(1, 1);
    formula(one, "A1", nameOf(two) + L"A1+1");
    formula(two, "A1", nameOf(one) + L"A1+1");
    EXPECT_EQ(shown(one, "A1"), "####");
    EXPECT_EQ(shown(two, "A1"), "####");
    type(one, "A1", L"1");
    EXPECT_EQ(shown(two, "A1"), "2");
}

TEST_F(Recalculation, a_chain_of_a_hundred_thousand_cells_is_followed) {
    constexpr int length = 100'000;
    constexpr int columns = 10;
    const KdDbObjectId table = makeTable(length / columns, columns);
    edit(table, [](KdDbTable& open) {
        open.setTextString(0, 0, L"1");
        for (int place = 1; place < length; ++place) {
            KdString before;
            kdadConvertIndexToIndicatorString((place - 1) / columns, (place - 1) % columns, before);
            kdtest::putFormula(open, place / columns, place % columns, before.str() + L"+1");
        }
    });
    EXPECT_EQ(shown(table, "J10000"), "100000");
    type(table, "A1", L"11");
    EXPECT_EQ(shown(table, "J10000"), "100010");
    formula(table, "A1", L"J10000");
    EXPECT_EQ(shown(table, "J10000"), "####");
    EXPECT_EQ(shown(table, "B1"), "####");
    undo();
    EXPECT_EQ(shown(table, "J10000"), "100010");
}

TEST_F(Recalculation, ten_thousand_running_sums_follow_their_first_cell) {
    constexpr int rows = 10'000;
    const KdDbObjectId table = makeTable(rows, 2);
    edit(table, [](KdDbTable& open) {
        for (int row = 0; row < rows; ++row) {
            open.setTextString(row, 0, L"1");
            kdtest::putFormula(open, row, 1, L"Sum(A1:A" + std::to_wstring(row + 1) + L")");
        }
    });
    EXPECT_EQ(shown(table, "B10000"), "10000");
    type(table, "A1", L"101");
    EXPECT_EQ(shown(table, "B10000"), "10100");
    EXPECT_EQ(shown(table, "B1"), "101");
}

// ---- undo

TEST_F(Recalculation, undo_and_redo_put_codes_and_results_back) {
    const KdDbObjectId table = makeTable(3, 2);
    const KdDbObjectId reader = makeTable(1, 1);
    type(table, "A1", L"5");
    formula(reader, "A1", nameOf(table) + L"B1");
    formula(table, "B1", L"A1*2");
    EXPECT_EQ(shown(reader, "A1"), "10");
    formula(table, "B1", L"A1*3");
    EXPECT_EQ(shown(reader, "A1"), "15");
    type(table, "A1", L"7");
    EXPECT_EQ(shown(reader, "A1"), "21");
    undo();
    EXPECT_EQ(shown(reader, "A1"), "15");
    undo();
    EXPECT_EQ(code(table, "B1"), "A1*2");
    EXPECT_EQ(shown(reader, "A1"), "10");
    undo();
    EXPECT_EQ(shown(table, "B1"), "");
    EXPECT_EQ(shown(reader, "A1"), "0");
    for (int step = 0; step < 3; ++step) redo();
    EXPECT_EQ(shown(reader, "A1"), "21");
}

TEST_F(Recalculation, results_make_no_step_of_their_own) {
    const KdDbObjectId table = makeTable(2, 1);
    formula(table, "A2", L"A1*2");
    const auto steps = kdhost::undoHistory(m_database)->undoSteps();
    type(table, "A1", L"4");
    undo();
    EXPECT_EQ(shown(table, "A2"), "0");
    EXPECT_EQ(kdhost::undoHistory(m_database)->undoSteps(), steps);
    EXPECT_EQ(kdhost::undoHistory(m_database)->redoSteps().size(), 1U) << "reading what was undone costs no redo";
}

TEST_F(Recalculation, an_edit_of_the_structure_is_one_step_with_its_codes) {
    const KdDbObjectId table = makeTable(3, 2);
    const KdDbObjectId reader = makeTable(1, 1);
    type(table, "A3", L"5");
    formula(table, "B1", L"A3");
    formula(reader, "A1", nameOf(table) + L"A3");
    edit(table, [](KdDbTable& open) { open.insertRowsAndInherit(1, 0, 2); });
    EXPECT_EQ(code(table, "B1"), "A5");
    EXPECT_EQ(code(reader, "A1"), narrow(nameOf(table)) + "A5");
    undo();
    EXPECT_EQ(code(table, "B1"), "A3");
    EXPECT_EQ(code(reader, "A1"), narrow(nameOf(table)) + "A3");
    EXPECT_EQ(shown(reader, "A1"), "5");
    redo();
    EXPECT_EQ(shown(table, "B1"), "5");
    EXPECT_EQ(code(reader, "A1"), narrow(nameOf(table)) + "A5");
    type(table, "A5", L"6");
    EXPECT_EQ(shown(table, "B1"), "6");
    EXPECT_EQ(shown(reader, "A1"), "6");
}

// ---- copies

TEST_F(Recalculation, a_copied_table_reads_its_own_cells) {
    const KdDbObjectId table = makeTable(2, 2);
    type(table, "A1", L"5");
    formula(table, "B1", L"A1*2");
    formula(table, "B2", nameOf(table) + L"A1+1");
    KdDbIdMapping mapping;
    const KdDbObjectId copy = cloneOf(table, m_database, mapping);
    EXPECT_EQ(shown(copy, "B1"), "10");
    type(copy, "A1", L"7");
    EXPECT_EQ(shown(copy, "B1"), "14");
    EXPECT_EQ(shown(copy, "B2"), "8") << "a table that names itself";
    EXPECT_EQ(code(copy, "B2"), narrow(nameOf(copy)) + "A1+1");
    EXPECT_EQ(shown(table, "B1"), "10");
    EXPECT_EQ(shown(table, "B2"), "6");
}

TEST_F(Recalculation, a_copy_goes_on_reading_the_other_tables_of_its_drawing_alone) {
    const KdDbObjectId source = makeTable(1, 1);
    const KdDbObjectId table = makeTable(1, 1);
    type(source, "A1", L"5");
    formula(table, "A1", nameOf(source) + L"A1");
    KdDbIdMapping mapping;
    const KdDbObjectId copy = cloneOf(table, m_database, mapping);
    type(source, "A1", L"6");
    EXPECT_EQ(shown(copy, "A1"), "6");
    KdDbDatabase other;
    KdDbIdMapping elsewhere;
    const KdDbObjectId far = cloneOf(table, other, elsewhere);
    EXPECT_EQ(shown(far, "A1"), "####");
    EXPECT_EQ(code(far, "A1"), "Table(0).A1");
}

TEST_F(Recalculation, a_formula_copied_to_other_cells_reads_what_lies_there) {
    const KdDbObjectId table = makeTable(6, 4);
    for (const auto& [cell, text] : {std::pair("A1", L"1"), {"A2", L"2"}, {"A3", L"3"}, {"B1", L"10"}}) {
        type(table, cell, text);
    }
    formula(table, "C1", L"A1+$A$2+Sum(A$1:A1)");
    edit(table, [](KdDbTable& open) {
        EXPECT_EQ(open.copyFrom(&open, KdDb::kTableCopyDefault, cells("C1"), cells("C3:D4"), nullptr), Kdad::eOk);
    });
    EXPECT_EQ(code(table, "C3"), "A3+$A$2+Sum(A$1:A3)");
    EXPECT_EQ(shown(table, "C3"), "11");
    EXPECT_EQ(code(table, "D3"), "B3+$A$2+Sum(B$1:B3)");
    EXPECT_EQ(shown(table, "D3"), "12");
    type(table, "A3", L"4");
    EXPECT_EQ(shown(table, "C3"), "13");
    EXPECT_EQ(code(table, "C1"), "A1+$A$2+Sum(A$1:A1)");
}

TEST_F(Recalculation, a_formula_copied_past_the_tables_edge_is_broken) {
    const KdDbObjectId table = makeTable(3, 3);
    formula(table, "C3", L"A1+B2");
    edit(table, [](KdDbTable& open) {
        EXPECT_EQ(open.copyFrom(&open, KdDb::kTableCopyDefault, cells("C3"), cells("B2"), nullptr), Kdad::eOk);
    });
    EXPECT_EQ(code(table, "B2"), "#REF!+A1");
    EXPECT_EQ(shown(table, "B2"), "####");
}

TEST_F(Recalculation, cells_copied_into_another_table_read_that_table) {
    const KdDbObjectId source = makeTable(2, 2);
    const KdDbObjectId target = makeTable(2, 2);
    formula(source, "B1", L"A1*2");
    type(target, "A2", L"4");
    const auto* from = kdtest::mustOpen<KdDbTable>(source);
    edit(target, [&](KdDbTable& open) {
        EXPECT_EQ(open.copyFrom(from, KdDb::kTableCopyDefault, cells("B1"), cells("B2"), nullptr), Kdad::eOk);
    });
    const_cast<KdDbTable*>(from)->close();
    EXPECT_EQ(shown(target, "B2"), "8");
}

TEST_F(Recalculation, a_table_that_takes_over_another_has_formulas_of_its_own) {
    const KdDbObjectId source = makeTable(2, 2);
    const KdDbObjectId target = makeTable(1, 1);
    type(source, "A1", L"4");
    formula(source, "B1", L"A1*2");
    auto* from = kdtest::mustOpen<KdDbTable>(source);
    edit(target, [&](KdDbTable& open) { EXPECT_EQ(open.copyFrom(from), Kdad::eOk); });
    from->close();
    EXPECT_EQ(shown(target, "B1"), "8");
    type(target, "A1", L"5");
    EXPECT_EQ(shown(target, "B1"), "10");
    EXPECT_EQ(shown(source, "B1"), "8");
}

// ---- texts

TEST_F(Recalculation, a_text_of_the_drawing_follows_a_table_and_is_told) {
    const KdDbObjectId table = makeTable(1, 1);
    type(table, "A1", L"5");
    auto* text = new KdDbMText;
    auto* field = new KdDbField;
    field->setFieldCode((L"\\AcExpr (" + nameOf(table) + L"A1*2)").c_str());
    text->setField(field);
    const KdDbObjectId id = kdtest::append(m_database, text);
    EXPECT_STREQ(kdhost::peek<KdDbMText>(id)->contents(), L"10");
    const Watch watch(id);
    type(table, "A1", L"6");
    EXPECT_EQ(watch.times, 1);
    EXPECT_STREQ(kdhost::peek<KdDbMText>(id)->contents(), L"12");
}

// ---- merges

TEST_F(Recalculation, covered_cells_count_as_empty) {
    const KdDbObjectId table = makeTable(3, 3);
    type(table, "A1", L"1");
    type(table, "A2", L"2");
    formula(table, "C1", L"Sum(A1:B3)");
    formula(table, "C2", L"A2+1");
    EXPECT_EQ(shown(table, "C1"), "3");
    edit(table, [](KdDbTable& open) { open.mergeCells(0, 1, 0, 1); });
    EXPECT_EQ(shown(table, "C1"), "1");
    EXPECT_EQ(shown(table, "C2"), "1");
    undo();
    EXPECT_EQ(shown(table, "C1"), "3");
}

}  // namespace
