// Undo: what makes a step, what a step puts back, and who is told.

#include "host/db/undo.h"

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/db/symbolstate.h"
#include "host/db/tableaccess.h"
#include "kd/db/field.h"
#include "kd/db/idmapping.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "tests/host/db/drawing.h"
#include "tests/support/leakguard.h"
#include "tests/support/tablebuilder.h"

namespace {

using kdtest::mustOpen;
using Names = std::vector<std::wstring>;

class Undo : public ::testing::Test {
protected:
    kdhost::UndoHistory& history() { return *kdhost::undoHistory(m_database); }

    /// Makes one step of the change.
    template <class Change>
    void step(Change change, const wchar_t* name = L"STEP") {
        const kdhost::UndoCommandScope command(&m_database, name);
        change();
    }
    template <class Change>
    void mark(const wchar_t* name, Change change) {
        history().beginMark(name, {});
        change();
        history().endMark();
    }

    /// Changes an open object.
    template <class T, class Change>
    void edit(KdDbObjectId id, Change change) {
        auto* object = mustOpen<T>(id, KdDb::kForWrite);
        ASSERT_NE(object, nullptr);
        change(*object);
        object->close();
    }
    void stretch(double length) {
        edit<KdDbLine>(m_line, [&](KdDbLine& line) { line.setEndPoint({length, 0.0, 0.0}); });
    }
    double length() { return kdhost::peek<KdDbLine>(m_line)->endPoint().x; }

    KdDbDatabase m_database;
    KdDbObjectId m_line = kdtest::appendLine(m_database);
};

// ---- what makes a step

TEST_F(Undo, a_command_is_one_step_that_bears_its_name) {
    step(
        [&] {
            stretch(2.0);
            stretch(3.0);
            kdtest::appendLine(m_database);
        },
        L"STRETCH");
    EXPECT_EQ(history().undoSteps(), Names{L"STRETCH"});
    EXPECT_EQ(history().undo(), Kdad::eOk);
    EXPECT_EQ(length(), 1.0);
    EXPECT_EQ(history().redoSteps(), Names{L"STRETCH"});
    EXPECT_EQ(history().redo(), Kdad::eOk);
    EXPECT_EQ(length(), 3.0);
}

TEST_F(Undo, a_command_that_changes_nothing_is_no_step) {
    step([&] { mustOpen<KdDbLine>(m_line, KdDb::kForWrite)->close(); });
    EXPECT_EQ(history().undoSteps(), Names{});
}

TEST_F(Undo, each_mark_directly_inside_a_command_is_a_step_and_the_command_has_the_rest) {
    step(
        [&] {
            stretch(2.0);
            mark(L"First", [&] { stretch(3.0); });
            mark(L"Second", [&] { stretch(4.0); });
            stretch(5.0);
        },
        L"TABLEDIT");
    EXPECT_EQ(history().undoSteps(), (Names{L"TABLEDIT", L"First", L"Second", L"TABLEDIT"}));
    for (const double before : {4.0, 3.0, 2.0, 1.0}) {
        EXPECT_EQ(history().undo(), Kdad::eOk);
        EXPECT_EQ(length(), before);
    }
}

TEST_F(Undo, a_command_with_nothing_beside_its_marks_has_no_step_of_its_own) {
    step([&] { mark(L"AboveInsert", [&] { stretch(3.0); }); }, L"TABLEDIT");
    EXPECT_EQ(history().undoSteps(), Names{L"AboveInsert"});
}

TEST_F(Undo, marks_inside_marks_join) {
    step([&] {
        mark(L"Outer", [&] {
            stretch(2.0);
            mark(L"Inner", [&] { stretch(3.0); });
            stretch(4.0);
        });
    });
    EXPECT_EQ(history().undoSteps(), Names{L"Outer"});
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

TEST_F(Undo, empty_marks_vanish) {
    step([&] {
        mark(L"Empty", [] {});
        mark(L"Outer", [&] { mark(L"Inner", [] {}); });
    });
    mark(L"Outside", [] {});
    EXPECT_EQ(history().undoSteps(), Names{});
}

TEST_F(Undo, a_mark_outside_of_commands_is_a_step) {
    mark(L"BelowInsert", [&] { stretch(2.0); });
    mark(L"DeleteRows", [&] { stretch(3.0); });
    EXPECT_EQ(history().undoSteps(), (Names{L"BelowInsert", L"DeleteRows"}));
}

TEST_F(Undo, the_end_of_a_mark_without_a_mark_does_nothing) {
    history().endMark();
    step([&] {
        stretch(2.0);
        history().endMark();
        stretch(3.0);
    });
    EXPECT_EQ(history().undoSteps().size(), 1u);
}

TEST_F(Undo, a_command_inside_a_command_joins_it) {
    step(
        [&] {
            stretch(2.0);
            step([&] { stretch(3.0); }, L"INNER");
            stretch(4.0);
        },
        L"OUTER");
    EXPECT_EQ(history().undoSteps(), Names{L"OUTER"});
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

TEST_F(Undo, a_mark_that_a_command_leaves_open_ends_with_it_and_is_noted) {
    step([&] {
        history().beginMark(L"Forgotten", {});
        stretch(2.0);
    });
    EXPECT_EQ(history().undoSteps(), Names{L"Forgotten"});
    step([&] { stretch(3.0); });
    EXPECT_EQ(history().undoSteps(), (Names{L"Forgotten", L"STEP"}));
    kdtest::expectDisciplineBreach("the mark Forgotten was left open");
}

TEST_F(Undo, a_mark_begun_before_a_command_and_ended_in_it_parts_them) {
    history().beginMark(L"Mark", {});
    stretch(2.0);
    history().beginCommand(L"COMMAND");
    stretch(3.0);
    history().endMark();
    stretch(4.0);
    history().endCommand();
    EXPECT_EQ(history().undoSteps(), (Names{L"Mark", L"COMMAND"}));
    history().undo();
    EXPECT_EQ(length(), 3.0);
}

TEST_F(Undo, an_object_open_across_the_begin_of_a_mark_is_kept_at_its_first_write_in_it) {
    history().beginCommand(L"COMMAND");
    auto* line = mustOpen<KdDbLine>(m_line, KdDb::kForWrite);
    line->setEndPoint({2.0, 0.0, 0.0});
    history().beginMark(L"Mark", {});
    line->setEndPoint({3.0, 0.0, 0.0});
    history().endMark();
    line->setEndPoint({4.0, 0.0, 0.0});
    line->close();
    history().endCommand();
    EXPECT_EQ(history().undoSteps(), (Names{L"COMMAND", L"Mark", L"COMMAND"}));
    history().undo();
    EXPECT_EQ(length(), 3.0);
    history().undo();
    EXPECT_EQ(length(), 2.0);
}

TEST_F(Undo, what_changes_outside_of_commands_and_marks_belongs_to_the_step_before) {
    step([&] { stretch(2.0); });
    stretch(3.0);
    const KdDbObjectId late = kdtest::appendLine(m_database);
    EXPECT_EQ(history().undoSteps().size(), 1u);
    history().undo();
    EXPECT_EQ(length(), 1.0);
    EXPECT_EQ(kdhost::peekObject(late), nullptr);
    history().redo();
    EXPECT_EQ(length(), 3.0);
    EXPECT_NE(kdhost::peekObject(late), nullptr);
}

TEST_F(Undo, what_changed_before_every_step_stays) {
    stretch(2.0);
    EXPECT_EQ(history().undo(), Kdad::eNotApplicable);
    EXPECT_EQ(length(), 2.0);
}

TEST_F(Undo, a_drawing_of_no_document_keeps_none) {
    KdDbDatabase side(true, true);
    EXPECT_EQ(kdhost::undoHistory(side), nullptr);
    const KdDbObjectId line = kdtest::appendLine(side);
    edit<KdDbLine>(line, [](KdDbLine& open) { open.erase(); });
    EXPECT_EQ(kdhost::peekObject(line), nullptr);
}

TEST_F(Undo, each_drawing_has_its_own) {
    KdDbDatabase other;
    const KdDbObjectId line = kdtest::appendLine(other);
    step([&] {
        stretch(2.0);
        edit<KdDbLine>(line, [](KdDbLine& open) { open.setEndPoint({7.0, 0.0, 0.0}); });
    });
    EXPECT_EQ(kdhost::undoHistory(other)->undoSteps(), Names{});
    history().undo();
    EXPECT_EQ(kdhost::peek<KdDbLine>(line)->endPoint().x, 7.0);
}

// ---- redo

TEST_F(Undo, any_new_change_clears_what_could_be_redone) {
    step([&] { stretch(2.0); });
    history().undo();
    step([&] { stretch(5.0); });
    EXPECT_EQ(history().redoSteps(), Names{});
    EXPECT_EQ(history().redo(), Kdad::eNotApplicable);
    EXPECT_EQ(length(), 5.0);
}

TEST_F(Undo, a_change_outside_of_steps_clears_what_could_be_redone) {
    step([&] { stretch(2.0); });
    history().undo();
    stretch(5.0);
    EXPECT_EQ(history().redo(), Kdad::eNotApplicable);
    EXPECT_EQ(length(), 5.0);
}

TEST_F(Undo, a_command_without_a_change_leaves_what_can_be_redone) {
    step([&] { stretch(2.0); });
    history().undo();
    step([] {});
    EXPECT_EQ(history().redo(), Kdad::eOk);
    EXPECT_EQ(length(), 2.0);
}

// ---- what is put back

TEST_F(Undo, a_made_object_becomes_as_never_made_and_comes_back) {
    KdDbObjectId made;
    step([&] { made = kdtest::appendLine(m_database, 9.0); });
    const std::uint64_t handle = kdhost::peekObject(made)->handle();
    history().undo();
    EXPECT_EQ(kdhost::peekObject(made), nullptr);
    KdDbObject* object = nullptr;
    EXPECT_EQ(kddbOpenObject(object, made, KdDb::kForRead), Kdad::eWasErased);
    history().redo();
    ASSERT_NE(kdhost::peek<KdDbLine>(made), nullptr);
    EXPECT_EQ(kdhost::peekObject(made)->handle(), handle);
    EXPECT_EQ(kdhost::peek<KdDbLine>(made)->endPoint().x, 9.0);
}

TEST_F(Undo, an_erased_object_comes_back) {
    step([&] { edit<KdDbLine>(m_line, [](KdDbLine& line) { line.erase(); }); });
    EXPECT_EQ(kdhost::peekObject(m_line), nullptr);
    history().undo();
    EXPECT_NE(kdhost::peekObject(m_line), nullptr);
    history().redo();
    EXPECT_EQ(kdhost::peekObject(m_line), nullptr);
}

TEST_F(Undo, an_erased_object_that_was_brought_back_goes_again) {
    step([&] { edit<KdDbLine>(m_line, [](KdDbLine& line) { line.erase(); }); });
    step([&] {
        KdDbObject* object = nullptr;
        ASSERT_EQ(kddbOpenObject(object, m_line, KdDb::kForWrite, true), Kdad::eOk);
        EXPECT_EQ(object->erase(false), Kdad::eOk);
        static_cast<KdDbLine*>(object)->setEndPoint({4.0, 0.0, 0.0});
        object->close();
    });
    EXPECT_EQ(length(), 4.0);
    history().undo();
    EXPECT_EQ(kdhost::peekObject(m_line), nullptr);
    history().redo();
    EXPECT_EQ(length(), 4.0);
    history().undo();
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

TEST_F(Undo, an_object_erased_and_brought_back_in_one_step_has_its_changes_undone) {
    step([&] {
        edit<KdDbLine>(m_line, [](KdDbLine& line) {
            line.erase();
            line.setEndPoint({4.0, 0.0, 0.0});
            line.erase(false);
        });
    });
    EXPECT_EQ(length(), 4.0);
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

TEST_F(Undo, an_object_made_changed_and_erased_in_steps_goes_through_all_of_them) {
    KdDbObjectId made;
    step([&] { made = kdtest::appendLine(m_database, 2.0); });
    step([&] { edit<KdDbLine>(made, [](KdDbLine& line) { line.setEndPoint({3.0, 0.0, 0.0}); }); });
    step([&] { edit<KdDbLine>(made, [](KdDbLine& line) { line.erase(); }); });
    for (int round = 0; round < 2; ++round) {
        history().undo();
        EXPECT_EQ(kdhost::peek<KdDbLine>(made)->endPoint().x, 3.0);
        history().undo();
        EXPECT_EQ(kdhost::peek<KdDbLine>(made)->endPoint().x, 2.0);
        history().undo();
        EXPECT_EQ(kdhost::peekObject(made), nullptr);
        history().redo();
        EXPECT_EQ(kdhost::peek<KdDbLine>(made)->endPoint().x, 2.0);
        history().redo();
        history().redo();
        EXPECT_EQ(kdhost::peekObject(made), nullptr);
    }
}

TEST_F(Undo, an_object_made_and_erased_in_one_step_stays_away) {
    KdDbObjectId made;
    step([&] {
        made = kdtest::appendLine(m_database);
        edit<KdDbLine>(made, [](KdDbLine& line) { line.erase(); });
    });
    history().undo();
    EXPECT_EQ(kdhost::peekObject(made), nullptr);
    history().redo();
    EXPECT_EQ(kdhost::peekObject(made), nullptr);
}

TEST_F(Undo, the_list_of_a_block_is_put_back) {
    const auto entities = [&] {
        return stateOf<KdDbBlockTableRecordState>(*kdhost::peekObject(m_database.modelSpaceId())).entities;
    };
    const auto before = entities();
    step([&] { kdtest::appendLine(m_database); });
    const auto after = entities();
    history().undo();
    EXPECT_EQ(entities(), before);
    history().redo();
    EXPECT_EQ(entities(), after);
}

TEST_F(Undo, names_of_symbol_tables_come_and_go) {
    KdDbObjectId layer;
    const auto has = [&](const wchar_t* name) {
        return kdhost::peek<KdDbLayerTable>(m_database.layerTableId())->has(name);
    };
    step([&] { layer = kdtest::addRecord<KdDbLayerTableRecord>(m_database.layerTableId(), L"walls"); });
    step([&] { edit<KdDbLayerTableRecord>(layer, [](auto& record) { record.setName(L"doors"); }); });
    step([&] { edit<KdDbLayerTableRecord>(layer, [](auto& record) { record.erase(); }); });
    EXPECT_FALSE(has(L"doors"));
    history().undo();
    EXPECT_TRUE(has(L"doors"));
    history().undo();
    EXPECT_FALSE(has(L"doors"));
    EXPECT_TRUE(has(L"walls"));
    history().undo();
    EXPECT_FALSE(has(L"walls"));
    const KdDbObjectId other = kdtest::addRecord<KdDbLayerTableRecord>(m_database.layerTableId(), L"walls");
    EXPECT_NE(other, layer);
    EXPECT_TRUE(has(L"walls"));
}

TEST_F(Undo, entries_of_dictionaries_come_and_go) {
    const KdDbObjectId styles = m_database.tableStyleDictionaryId();
    const auto* dictionary = kdhost::peek<KdDbDictionary>(styles);
    KdDbObjectId made;
    step([&] {
        edit<KdDbDictionary>(styles, [&](KdDbDictionary& open) {
            auto* style = new KdDbTableStyle;
            open.setAt(L"Narrow", style, made);
            style->close();
        });
    });
    step([&] { edit<KdDbDictionary>(styles, [](KdDbDictionary& open) { open.setName(L"Narrow", L"Wide"); }); });
    step([&] { edit<KdDbDictionary>(styles, [](KdDbDictionary& open) { open.remove(L"Wide"); }); });
    EXPECT_FALSE(dictionary->has(made));
    history().undo();
    EXPECT_TRUE(dictionary->has(L"Wide"));
    history().undo();
    EXPECT_TRUE(dictionary->has(L"Narrow"));
    EXPECT_FALSE(dictionary->has(L"Wide"));
    history().undo();
    EXPECT_EQ(dictionary->numEntries(), 1u);
    history().redo();
    EXPECT_TRUE(dictionary->has(L"Narrow"));
}

TEST_F(Undo, an_entry_replaced_in_a_dictionary_comes_back) {
    const KdDbObjectId styles = m_database.tableStyleDictionaryId();
    const auto put = [&] {
        KdDbObjectId id;
        edit<KdDbDictionary>(styles, [&](KdDbDictionary& open) {
            auto* style = new KdDbTableStyle;
            open.setAt(L"Narrow", style, id);
            style->close();
        });
        return id;
    };
    const KdDbObjectId first = put();
    KdDbObjectId second;
    step([&] { second = put(); });
    KdDbObjectId found;
    history().undo();
    kdhost::peek<KdDbDictionary>(styles)->getAt(L"Narrow", found);
    EXPECT_EQ(found, first);
    history().redo();
    kdhost::peek<KdDbDictionary>(styles)->getAt(L"Narrow", found);
    EXPECT_EQ(found, second);
}

TEST_F(Undo, current_settings_and_header_variables_are_put_back) {
    const KdDbObjectId layer = kdtest::addRecord<KdDbLayerTableRecord>(m_database.layerTableId(), L"walls");
    const KdDbObjectId font = kdtest::addRecord<KdDbTextStyleTableRecord>(m_database.textStyleTableId(), L"small");
    KdDbObjectId style;
    edit<KdDbDictionary>(m_database.tableStyleDictionaryId(), [&](KdDbDictionary& open) {
        auto* made = new KdDbTableStyle;
        open.setAt(L"Narrow", made, style);
        made->close();
    });
    const auto all = [&] {
        return std::tuple(m_database.clayer(), m_database.textstyle(), m_database.tablestyle(), m_database.lunits(),
                          m_database.luprec(), m_database.aunits(), m_database.auprec(), m_database.angbase(),
                          m_database.angdir(), m_database.unitmode(), m_database.dimzin(), m_database.insunits(),
                          m_database.measurement());
    };
    const auto before = all();
    step(
        [&] {
            m_database.setClayer(layer);
            m_database.setTextstyle(font);
            m_database.setTablestyle(style);
            m_database.setLunits(4);
            m_database.setLuprec(2);
            m_database.setAunits(3);
            m_database.setAuprec(5);
            m_database.setAngbase(1.5);
            m_database.setAngdir(true);
            m_database.setUnitmode(1);
            m_database.setDimzin(3);
            m_database.setInsunits(1);
            m_database.setMeasurement(0);
        },
        L"UNITS");
    const auto after = all();
    EXPECT_EQ(history().undoSteps(), Names{L"UNITS"});
    history().undo();
    EXPECT_EQ(all(), before);
    history().redo();
    EXPECT_EQ(all(), after);
}

TEST_F(Undo, a_setting_that_is_refused_or_ends_as_it_was_is_no_step) {
    step([&] { EXPECT_NE(m_database.setLunits(99), Kdad::eOk); });
    step([&] {
        m_database.setLunits(4);
        m_database.setLunits(2);
    });
    EXPECT_EQ(history().undoSteps(), Names{});
}

TEST_F(Undo, a_table_style_is_put_back_and_tables_read_by_it) {
    const KdDbObjectId style = m_database.tablestyle();
    const KdDbObjectId id = kdtest::append(m_database, kdtest::TableBuilder(4, 2).style(style).build().release());
    const auto* table = kdhost::peek<KdDbTable>(id);
    const double before = table->textHeight(3, 0);
    step([&] {
        edit<KdDbTableStyle>(style, [](KdDbTableStyle& open) {
            open.setTextHeight(20.0, L"_DATA");
            open.createCellStyle(L"Notes", L"_DATA");
            open.setFlowDirection(1);
        });
        edit<KdDbTable>(id, [](KdDbTable& open) { open.setCellStyle(3, 1, L"Notes"); });
    });
    EXPECT_EQ(table->textHeight(3, 0), 20.0);
    history().undo();
    EXPECT_EQ(table->textHeight(3, 0), before);
    EXPECT_EQ(kdhost::peek<KdDbTableStyle>(style)->numCellStyles(), 3);
    EXPECT_EQ(kdhost::peek<KdDbTableStyle>(style)->flowDirection(), 0);
    EXPECT_STREQ(table->cellStyle(3, 1), L"_DATA");
    history().redo();
    EXPECT_EQ(table->textHeight(3, 1), 20.0);
    EXPECT_STREQ(table->cellStyle(3, 1), L"Notes");
}

TEST_F(Undo, a_renamed_cell_style_takes_its_cells_back_along) {
    const KdDbObjectId style = m_database.tablestyle();
    edit<KdDbTableStyle>(style, [](KdDbTableStyle& open) { open.createCellStyle(L"Notes", L"_DATA"); });
    const KdDbObjectId id =
        kdtest::append(m_database, kdtest::TableBuilder(4, 2).style(style).cellStyle("A4", L"Notes").build().release());
    const auto* table = kdhost::peek<KdDbTable>(id);
    step(
        [&] { edit<KdDbTableStyle>(style, [](KdDbTableStyle& open) { open.renameCellStyle(L"Notes", L"Remarks"); }); });
    EXPECT_STREQ(table->cellStyle(3, 0), L"Remarks");
    history().undo();
    EXPECT_STREQ(table->cellStyle(3, 0), L"Notes");
    history().redo();
    EXPECT_STREQ(table->cellStyle(3, 0), L"Remarks");
}

TEST_F(Undo, a_field_of_an_object_comes_and_goes) {
    step([&] {
        edit<KdDbLine>(m_line, [](KdDbLine& line) {
            auto* field = new KdDbField;
            field->setFieldCode(L"length");
            line.setField(field);
            field->close();
        });
    });
    EXPECT_TRUE(kdhost::peekObject(m_line)->hasFields());
    history().undo();
    EXPECT_FALSE(kdhost::peekObject(m_line)->hasFields());
    EXPECT_TRUE(kdhost::peekObject(m_line)->extensionDictionary().isNull());
    history().redo();
    EXPECT_TRUE(kdhost::peekObject(m_line)->hasFields());
}

TEST_F(Undo, a_clone_from_another_drawing_goes_with_the_layer_that_it_brought) {
    KdDbDatabase side(true, true);
    const KdDbObjectId layer = kdtest::addRecord<KdDbLayerTableRecord>(side.layerTableId(), L"walls");
    const KdDbObjectId source = kdtest::appendLine(side);
    edit<KdDbLine>(source, [&](KdDbLine& line) { line.setLayer(layer); });
    KdDbObjectId cloned;
    step([&] {
        KdDbIdMapping mapping(&m_database);
        edit<KdDbBlockTableRecord>(m_database.modelSpaceId(), [&](KdDbBlockTableRecord& space) {
            KdDbObject* clone = nullptr;
            ASSERT_EQ(kdhost::peekObject(source)->deepClone(&space, clone, mapping), Kdad::eOk);
            cloned = clone->objectId();
            clone->close();
        });
    });
    const auto* layers = kdhost::peek<KdDbLayerTable>(m_database.layerTableId());
    EXPECT_TRUE(layers->has(L"walls"));
    history().undo();
    EXPECT_FALSE(layers->has(L"walls"));
    EXPECT_EQ(kdhost::peekObject(cloned), nullptr);
    history().redo();
    EXPECT_TRUE(layers->has(L"walls"));
    EXPECT_NE(kdhost::peekObject(cloned), nullptr);
}

TEST_F(Undo, selections_of_cells_are_not_undone_but_held_inside_the_table) {
    const KdDbObjectId id = kdtest::append(m_database, kdtest::TableBuilder(4, 3).fill().build().release());
    step([&] { edit<KdDbTable>(id, [](KdDbTable& open) { open.insertRowsAndInherit(4, 3, 4); }); });
    edit<KdDbTable>(id, [](KdDbTable& open) { open.setSubSelection(5, 6, 1, 2); });
    EXPECT_EQ(history().undoSteps().size(), 1u) << "a selection is no change";
    history().undo();
    EXPECT_EQ(kdhost::peek<KdDbTable>(id)->getSubSelection(), kdtest::cells("B4:C4"));
    history().redo();
    EXPECT_EQ(kdhost::peek<KdDbTable>(id)->getSubSelection(), kdtest::cells("B4:C4"));
}

TEST_F(Undo, merges_sizes_and_overrides_of_a_table_are_put_back_whole) {
    const KdDbObjectId id = kdtest::append(m_database, kdtest::TableBuilder(5, 4)
                                                           .merge("A1:D1")
                                                           .merge("B2:C3")
                                                           .fill()
                                                           .align("A4:B5", KdDb::kTopLeft)
                                                           .build()
                                                           .release());
    const auto* table = kdhost::peek<KdDbTable>(id);
    const std::string before = kdtest::describe(*table);
    step([&] {
        edit<KdDbTable>(id, [](KdDbTable& open) {
            open.mergeCells(1, 3, 0, 3);
            open.deleteRows(2, 1);
            open.insertColumnsAndInherit(1, 0, 2);
            open.setTextString(0, 0, L"a text of many lines\\Pthat makes\\Pits row grow");
            open.setColumnWidth(10.0);
            open.setGridVisibility(-1, -1, KdDb::kHorzTop, KdDb::kInvisible);
        });
    });
    const std::string after = kdtest::describe(*table);
    EXPECT_NE(before, after);
    history().undo();
    EXPECT_EQ(kdtest::describe(*table), before);
    history().redo();
    EXPECT_EQ(kdtest::describe(*table), after);
}

// ---- refusals

TEST_F(Undo, nothing_is_undone_while_an_object_of_the_step_is_open) {
    KdDbObjectId other = kdtest::appendLine(m_database);
    step([&] {
        stretch(2.0);
        edit<KdDbLine>(other, [](KdDbLine& line) { line.erase(); });
    });
    for (const auto& [mode, status] :
         {std::pair(KdDb::kForRead, Kdad::eWasOpenForRead), std::pair(KdDb::kForWrite, Kdad::eWasOpenForWrite)}) {
        auto* line = mustOpen<KdDbLine>(m_line, mode);
        EXPECT_EQ(history().undo(), status);
        EXPECT_EQ(line->endPoint().x, 2.0);
        EXPECT_EQ(kdhost::peekObject(other), nullptr);
        line->close();
    }
    EXPECT_EQ(history().undo(), Kdad::eOk);
    auto* line = mustOpen<KdDbLine>(m_line);
    EXPECT_EQ(history().redo(), Kdad::eWasOpenForRead);
    EXPECT_NE(kdhost::peekObject(other), nullptr);
    line->close();
}

TEST_F(Undo, an_open_object_that_the_step_left_alone_is_no_bar) {
    const KdDbObjectId other = kdtest::appendLine(m_database);
    step([&] { stretch(2.0); });
    auto* line = mustOpen<KdDbLine>(other, KdDb::kForWrite);
    EXPECT_EQ(history().undo(), Kdad::eOk);
    line->close();
}

TEST_F(Undo, it_is_refused_inside_a_mark_and_in_a_command_that_has_changed_something) {
    step([&] { stretch(2.0); });
    mark(L"Mark", [&] { EXPECT_EQ(history().undo(), Kdad::eInvalidContext); });
    step([&] {
        stretch(3.0);
        EXPECT_EQ(history().undo(), Kdad::eInvalidContext);
        EXPECT_EQ(history().redo(), Kdad::eInvalidContext);
    });
    EXPECT_EQ(length(), 3.0);
    step([&] { EXPECT_EQ(history().undo(), Kdad::eOk); });
    EXPECT_EQ(length(), 2.0);
}

TEST_F(Undo, an_entity_on_a_layer_that_was_locked_since_is_put_back_all_the_same) {
    step([&] { stretch(2.0); });
    step([&] { edit<KdDbLayerTableRecord>(m_database.layerZero(), [](auto& layer) { layer.setIsLocked(true); }); });
    history().undo();
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

// ---- who is told

struct Witness : KdDbObjectReactor {
    void modified(const KdDbObject*) override { told += 'm'; }
    void erased(const KdDbObject*, bool erasing) override { told += erasing ? 'e' : 'b'; }
    std::string told;
};

TEST_F(Undo, reactors_are_told_of_what_is_put_back) {
    Witness witness;
    kdhost::peekObject(m_line)->addReactor(&witness);
    step([&] { stretch(2.0); });
    step([&] { edit<KdDbLine>(m_line, [](KdDbLine& line) { line.erase(); }); });
    EXPECT_EQ(witness.told, "me");
    history().undo();
    history().undo();
    history().redo();
    history().redo();
    EXPECT_EQ(witness.told, "mebmme");
    kdhost::peekObject(m_line, true)->removeReactor(&witness);
}

struct Listener : kdhost::DatabaseListener {
    Listener() { kdhost::addDatabaseListener(this); }
    ~Listener() override { kdhost::removeDatabaseListener(this); }
    void objectChanged(KdDbObjectId id) override {
        told.push_back(id);
        if (then) then(id);
    }
    std::vector<KdDbObjectId> told;
    std::function<void(KdDbObjectId)> then;
};

TEST_F(Undo, listeners_are_told_of_each_object_once_and_of_no_other) {
    const KdDbObjectId other = kdtest::appendLine(m_database);
    KdDbObjectId made;
    step([&] {
        stretch(2.0);
        made = kdtest::appendLine(m_database);
    });
    const Listener listener;
    history().undo();
    EXPECT_EQ(std::count(listener.told.begin(), listener.told.end(), m_line), 1);
    EXPECT_EQ(std::count(listener.told.begin(), listener.told.end(), made), 1);
    EXPECT_EQ(std::count(listener.told.begin(), listener.told.end(), other), 0);
}

TEST_F(Undo, what_a_listener_changes_belongs_to_the_step_that_it_is_told_of) {
    // As a computed value follows what it is computed from.
    const KdDbObjectId follower = kdtest::appendLine(m_database);
    Listener listener;
    listener.then = [&](KdDbObjectId id) {
        if (id == m_line)
            edit<KdDbLine>(follower, [&](KdDbLine& line) { line.setEndPoint({2.0 * length(), 0.0, 0.0}); });
    };
    const auto followed = [&] { return kdhost::peek<KdDbLine>(follower)->endPoint().x; };
    step([&] { stretch(2.0); });
    step([&] { stretch(3.0); });
    EXPECT_EQ(history().undoSteps().size(), 2u);
    EXPECT_EQ(followed(), 6.0);
    history().undo();
    EXPECT_EQ(followed(), 4.0);
    EXPECT_EQ(history().redoSteps().size(), 1u) << "following is no new change";
    history().redo();
    EXPECT_EQ(followed(), 6.0);
    history().undo();
    history().undo();
    EXPECT_EQ(followed(), 2.0);
}

// ---- what a step keeps

/// How many rows of the table are the step's copies, that is, no longer shared with the state before the step.
int copiedRows(const kdhost::TableState& before, const kdhost::TableState& now) {
    int copied = 0;
    for (int row = 0; row < std::min(before.rowCount(), now.rowCount()); ++row) {
        if (&before.rows[row] != &now.rows[row]) ++copied;
    }
    return copied;
}

class UndoOfLargeTables : public Undo {
protected:
    static constexpr int kRows = 12'500;
    static constexpr int kColumns = 8;

    template <class Change>
    int copiesOf(Change change) {
        const kdhost::TableState before = kdhost::tableState(*kdhost::peek<KdDbTable>(m_table));
        step([&] { edit<KdDbTable>(m_table, change); });
        return copiedRows(before, kdhost::tableState(*kdhost::peek<KdDbTable>(m_table)));
    }

    KdDbObjectId m_table = kdtest::append(m_database, kdtest::TableBuilder(kRows, kColumns).build().release());
};

TEST_F(UndoOfLargeTables, a_step_copies_the_rows_that_it_touches) {
    EXPECT_EQ(copiesOf([](KdDbTable&) {}), 0);
    EXPECT_EQ(copiesOf([](KdDbTable& table) { table.setTextString(7000, 3, L"text"); }), 1);
    EXPECT_EQ(copiesOf([](KdDbTable& table) { table.setColumnWidth(2, 20.0); }), 0);
    EXPECT_EQ(copiesOf([](KdDbTable& table) { table.mergeCells(10, 14, 1, 2); }), 5);
    EXPECT_EQ(copiesOf([](KdDbTable& table) {
                  for (int row = 100; row < 200; ++row) table.setAlignment(row, 0, KdDb::kTopRight);
              }),
              100);
    // A row is written for the first time once in a step, however often.
    EXPECT_EQ(copiesOf([](KdDbTable& table) {
                  for (int column = 0; column < kColumns; ++column) table.setTextString(50, column, L"text");
              }),
              1);
}

TEST_F(UndoOfLargeTables, inserted_rows_leave_the_others_shared) {
    const auto* table = kdhost::peek<KdDbTable>(m_table);
    const kdhost::TableState before = kdhost::tableState(*table);
    step([&] { edit<KdDbTable>(m_table, [](KdDbTable& open) { open.insertRowsAndInherit(6000, 5999, 3); }); });
    const kdhost::TableState& now = kdhost::tableState(*table);
    for (int row = 0; row < kRows; ++row) {
        ASSERT_EQ(&before.rows[row], &now.rows[row < 6000 ? row : row + 3]) << row;
    }
}

TEST_F(UndoOfLargeTables, undo_puts_the_very_rows_back) {
    const auto* table = kdhost::peek<KdDbTable>(m_table);
    const kdhost::TableState before = kdhost::tableState(*table);
    step([&] { edit<KdDbTable>(m_table, [](KdDbTable& open) { open.setAlignment(-1, -1, KdDb::kTopRight); }); });
    EXPECT_EQ(copiedRows(before, kdhost::tableState(*table)), kRows);
    history().undo();
    EXPECT_EQ(copiedRows(before, kdhost::tableState(*table)), 0);
}

}  // namespace
