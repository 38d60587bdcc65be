// What a drawing has from the start, and the host application's services.

#include "kd/db/database.h"

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/rx/faults.h"
#include "kd/db/tablestyle.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

std::vector<std::wstring> namesIn(KdDbObjectId tableId) {
    auto* table = mustOpen<KdDbSymbolTable>(tableId);
    KdDbSymbolTableIterator* iterator = nullptr;
    EXPECT_EQ(table->newIterator(iterator), Kdad::eOk);
    std::vector<std::wstring> names;
    for (; !iterator->done(); iterator->step()) {
        KdDbSymbolTableRecord* record = nullptr;
        EXPECT_EQ(iterator->getRecord(record, KdDb::kForRead), Kdad::eOk);
        std::wstring name;
        record->getName(name);
        names.push_back(name);
        record->close();
    }
    delete iterator;
    table->close();
    return names;
}

TEST(Database, a_new_drawing_has_its_symbols_and_spaces) {
    const KdDbDatabase database;
    EXPECT_EQ(namesIn(database.blockTableId()), (std::vector<std::wstring>{L"*Model_Space", L"*Paper_Space"}));
    EXPECT_EQ(namesIn(database.layerTableId()), std::vector<std::wstring>{L"0"});
    EXPECT_EQ(namesIn(database.textStyleTableId()), std::vector<std::wstring>{L"Standard"});
    const std::vector<std::wstring> linetypes = namesIn(database.linetypeTableId());
    for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous", L"DASHED", L"HIDDEN", L"CENTER"}) {
        EXPECT_NE(std::find(linetypes.begin(), linetypes.end(), name), linetypes.end());
    }
    EXPECT_TRUE(database.measurementIsMetric());
    EXPECT_TRUE(database.tilemode());
}

TEST(Database, a_new_drawing_has_its_current_settings) {
    const KdDbDatabase database;
    EXPECT_EQ(database.clayer(), database.layerZero());
    EXPECT_EQ(database.celtype(), database.byLayerLinetype());
    EXPECT_EQ(database.currentSpaceId(), database.modelSpaceId());
    EXPECT_EQ(kdhost::peek<KdDbTextStyleTableRecord>(database.textstyle())->font(), L"DejaVu Sans");
    const auto* style = kdhost::peek<KdDbTableStyle>(database.tablestyle());
    ASSERT_NE(style, nullptr);
    for (const wchar_t* name : {L"_TITLE", L"_HEADER", L"_DATA"}) {
        EXPECT_EQ(style->textStyle(name), database.textstyle());
    }
    EXPECT_EQ(kdhost::peek<KdDbLinetypeTableRecord>(database.byBlockLinetype())->dashes().size(), 0U);
    EXPECT_EQ(kdhost::peek<KdDbLayerTableRecord>(database.layerZero())->linetypeObjectId(),
              database.continuousLinetype());
    EXPECT_EQ(kdhost::peek<KdDbLayerTableRecord>(database.layerZero())->color(), KdCmColor::fromIndex(7));
}

TEST(Database, the_dictionaries_hang_on_one_another) {
    KdDbDatabase database;
    KdDbDictionary* root = nullptr;
    ASSERT_EQ(database.getNamedObjectsDictionary(root), Kdad::eOk);
    KdDbObjectId id;
    EXPECT_EQ(root->getAt(L"ACAD_TABLESTYLE", id), Kdad::eOk);
    EXPECT_EQ(id, database.tableStyleDictionaryId());
    EXPECT_TRUE(root->has(L"ACAD_GROUP"));
    root->close();
    KdDbDictionary* styles = nullptr;
    ASSERT_EQ(database.getTableStyleDictionary(styles), Kdad::eOk);
    EXPECT_EQ(styles->getAt(L"standard", id), Kdad::eOk);
    EXPECT_EQ(id, database.tablestyle());
    styles->close();
}

TEST(Database, each_table_opens_by_its_own_operation) {
    KdDbDatabase database;
    KdDbBlockTable* blocks = nullptr;
    KdDbLayerTable* layers = nullptr;
    KdDbLinetypeTable* linetypes = nullptr;
    KdDbTextStyleTable* styles = nullptr;
    ASSERT_EQ(database.getBlockTable(blocks), Kdad::eOk);
    ASSERT_EQ(database.getLayerTable(layers, KdDb::kForWrite), Kdad::eOk);
    ASSERT_EQ(database.getLinetypeTable(linetypes), Kdad::eOk);
    ASSERT_EQ(database.getTextStyleTable(styles), Kdad::eOk);
    KdDbLayerTable* second = layers;
    EXPECT_EQ(database.getLayerTable(second), Kdad::eWasOpenForWrite);
    EXPECT_EQ(second, nullptr);
    for (KdDbObject* object : std::initializer_list<KdDbObject*>{blocks, layers, linetypes, styles}) object->close();
}

TEST(Database, a_drawing_without_defaults_is_empty) {
    KdDbDatabase database(false, true);
    EXPECT_TRUE(database.blockTableId().isNull());
    EXPECT_TRUE(database.currentSpaceId().isNull());
    KdDbLayerTable* layers = nullptr;
    EXPECT_EQ(database.getLayerTable(layers), Kdad::eNullObjectId);
    EXPECT_EQ(layers, nullptr);
}

TEST(Database, a_missing_table_style_dictionary_can_be_provoked) {
    KdDbDatabase database;
    kdhost::faults().noTableStyleDictionary = true;
    KdDbDictionary* styles = nullptr;
    EXPECT_NE(database.getTableStyleDictionary(styles), Kdad::eOk);
    EXPECT_EQ(styles, nullptr);
}

TEST(Database, a_current_setting_takes_only_what_the_drawing_has) {
    KdDbDatabase database;
    const KdDbDatabase other;
    const KdDbObjectId walls = kdtest::addRecord<KdDbLayerTableRecord>(database.layerTableId(), L"Walls");
    database.setClayer(walls);
    EXPECT_EQ(database.clayer(), walls);
    database.setClayer(other.layerZero());
    database.setClayer(KdDbObjectId::kNull);
    database.setClayer(database.textstyle());
    EXPECT_EQ(database.clayer(), walls);
    const KdDbObjectId style = kdtest::addRecord<KdDbTextStyleTableRecord>(database.textStyleTableId(), L"Notes");
    database.setTextstyle(style);
    database.setTextstyle(walls);
    EXPECT_EQ(database.textstyle(), style);
    const KdDbObjectId tableStyle = database.tablestyle();
    database.setTablestyle(walls);
    EXPECT_EQ(database.tablestyle(), tableStyle);
}

TEST(Database, an_added_object_is_the_databases_and_open_for_write) {
    KdDbDatabase database;
    auto* dictionary = new KdDbDictionary;
    KdDbObjectId id;
    ASSERT_EQ(database.addKdDbObject(dictionary, id, database.layerZero()), Kdad::eOk);
    EXPECT_TRUE(dictionary->isWriteEnabled());
    EXPECT_EQ(dictionary->database(), &database);
    EXPECT_EQ(dictionary->ownerId(), database.layerZero());
    EXPECT_EQ(KdDbDatabaseAccess::find(database, dictionary->handle()), dictionary);
    KdDbObjectId again(7);
    EXPECT_EQ(database.addKdDbObject(dictionary, again), Kdad::eAlreadyInDatabase);
    EXPECT_TRUE(again.isNull());
    EXPECT_EQ(database.addKdDbObject(nullptr, again), Kdad::eNullObjectPointer);
    dictionary->close();
}

TEST(Database, a_handle_given_by_a_file_is_kept_and_a_taken_one_refused) {
    KdDbDatabase database(false);
    const KdDbObjectId id = KdDbDatabaseAccess::insert(database, std::make_unique<KdDbDictionary>(), {}, 0x2A);
    EXPECT_EQ(kdhost::peekObject(id)->handle(), 0x2AU);
    EXPECT_TRUE(KdDbDatabaseAccess::insert(database, std::make_unique<KdDbDictionary>(), {}, 0x2A).isNull());
    const KdDbObjectId next = KdDbDatabaseAccess::insert(database, std::make_unique<KdDbDictionary>(), {});
    EXPECT_EQ(kdhost::peekObject(next)->handle(), 0x2BU);
    EXPECT_EQ(KdDbDatabaseAccess::find(database, 1), nullptr);
}

TEST(Database, an_entity_takes_the_defaults_of_the_working_database) {
    KdDbDatabase database;
    struct Services : KdDbHostApplicationServices {
        KdDbDatabase* workingDatabase() const override { return working; }
        void setWorkingDatabase(KdDbDatabase* other) override { working = other; }
        const KdCommandLineState* commandLineState() const override { return nullptr; }
        KdDbDatabase* working = nullptr;
    } services;
    KdDbHostApplicationServices* before = kddbHostApplicationServices();
    kddbSetHostApplicationServices(&services);
    KdDbLine line;
    line.setDatabaseDefaults();
    EXPECT_TRUE(line.layerId().isNull()) << "no document, no defaults";
    services.working = &database;
    line.setDatabaseDefaults();
    EXPECT_EQ(line.layerId(), database.clayer());
    EXPECT_EQ(line.linetypeId(), database.celtype());
    kddbSetHostApplicationServices(before);
}

}  // namespace
