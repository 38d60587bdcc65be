// What undo and redo put back: objects, lists, names, settings, styles, fields and tables.

#include "host/db/symbolstate.h"
#include "kd/db/field.h"
#include "kd/db/idmapping.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "tests/host/db/undofixture.h"
#include "tests/support/tablebuilder.h"

namespace {

using kdtest::Undo;
using Names = std::vector<std::wstring>;

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

}  // namespace
