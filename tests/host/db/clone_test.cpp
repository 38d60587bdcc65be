// Cloning: what comes along, what is pointed at, and the refusals.

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "kd/db/blockreference.h"
#include "kd/db/field.h"
#include "kd/db/idmapping.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

class Clones : public ::testing::Test {
protected:
    /// Clones an entity into the model space of a database; the clone is closed.
    KdDbObjectId cloneEntity(KdDbObjectId id, KdDbDatabase& into, KdDbIdMapping& mapping) {
        auto* source = mustOpen<KdDbEntity>(id);
        auto* space = mustOpen<KdDbBlockTableRecord>(into.modelSpaceId(), KdDb::kForWrite);
        KdDbObject* clone = nullptr;
        EXPECT_EQ(source->deepClone(space, clone, mapping), Kdad::eOk);
        space->close();
        source->close();
        if (clone == nullptr) return {};
        EXPECT_TRUE(clone->isWriteEnabled());
        const KdDbObjectId made = clone->objectId();
        clone->close();
        return made;
    }

    KdDbObjectId makeBlock(const wchar_t* name) {
        const KdDbObjectId id = kdtest::addRecord<KdDbBlockTableRecord>(m_database.blockTableId(), name);
        auto* block = mustOpen<KdDbBlockTableRecord>(id, KdDb::kForWrite);
        auto* line = new KdDbLine({0.0, 0.0, 0.0}, {4.0, 3.0, 0.0});
        block->appendKdDbEntity(line);
        line->close();
        block->close();
        return id;
    }

    /// A block of that database with one line, as makeBlock makes it.
    static void expectPart(KdDbObjectId id, const KdDbDatabase& database) {
        auto* block = mustOpen<KdDbBlockTableRecord>(id);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(block->database(), &database);
        KdDbBlockTableRecordIterator* iterator = nullptr;
        block->newIterator(iterator);
        int entities = 0;
        for (; !iterator->done(); iterator->step(), ++entities) {
            KdDbObjectId entity;
            iterator->getEntityId(entity);
            const auto* line = kdhost::peek<KdDbLine>(entity);
            ASSERT_NE(line, nullptr);
            EXPECT_EQ(line->ownerId(), id);
            EXPECT_EQ(line->database(), &database);
            EXPECT_EQ(line->layerId(), database.layerZero());
            EXPECT_EQ(line->endPoint(), KdGePoint3d(4.0, 3.0, 0.0));
        }
        EXPECT_EQ(entities, 1);
        delete iterator;
        block->close();
    }

    KdDbDatabase m_database;
    KdDbIdMapping m_mapping;
};

TEST_F(Clones, a_clone_is_equal_placed_and_in_the_mapping) {
    const KdDbObjectId id = kdtest::appendLine(m_database, 5.0);
    const KdDbObjectId made = cloneEntity(id, m_database, m_mapping);
    EXPECT_NE(made, id);
    EXPECT_EQ(m_mapping.map(id), made);
    const auto* clone = kdhost::peek<KdDbLine>(made);
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->endPoint(), KdGePoint3d(5.0, 0.0, 0.0));
    EXPECT_EQ(clone->ownerId(), m_database.modelSpaceId());
    EXPECT_EQ(clone->layerId(), m_database.layerZero());
    EXPECT_NE(clone->handle(), kdhost::peekObject(id)->handle());
    EXPECT_EQ(kdhost::openObjects().size(), 0U);
}

TEST_F(Clones, extension_dictionary_and_fields_come_along) {
    const KdDbObjectId id = kdtest::appendLine(m_database);
    auto* line = mustOpen<KdDbLine>(id, KdDb::kForWrite);
    auto* child = new KdDbField;
    child->setFieldCode(L"inner");
    KdDbField* field = kdtest::fieldAround(child, L"<%<\\_FldIdx 0>%>");
    ASSERT_EQ(line->setField(field), Kdad::eOk);
    field->close();
    line->close();

    const auto* clone = kdhost::peek<KdDbLine>(cloneEntity(id, m_database, m_mapping));
    EXPECT_NE(clone->extensionDictionary(), kdhost::peekObject(id)->extensionDictionary());
    EXPECT_EQ(kdhost::peekObject(clone->extensionDictionary())->ownerId(), clone->objectId());
    KdDbField* cloned = nullptr;
    ASSERT_EQ(clone->getField(cloned, KdDb::kForRead), Kdad::eOk);
    EXPECT_NE(cloned, field);
    EXPECT_EQ(cloned->getFieldCode(KdDbField::kAddChildren), KdString(L"<inner>"));
    KdDbField* clonedChild = nullptr;
    ASSERT_EQ(cloned->getChild(0, clonedChild, KdDb::kForWrite), Kdad::eOk);
    EXPECT_NE(clonedChild, child);
    EXPECT_EQ(clonedChild->ownerId(), cloned->objectId());
    clonedChild->setFieldCode(L"changed");
    clonedChild->close();
    EXPECT_EQ(cloned->getFieldCode(KdDbField::kAddChildren), KdString(L"<changed>"));
    cloned->close();
    EXPECT_EQ(field->getFieldCode(KdDbField::kAddChildren), KdString(L"<inner>"));
}

TEST_F(Clones, a_clone_of_a_record_needs_a_free_name) {
    const KdDbObjectId id = makeBlock(L"Part");
    auto* source = mustOpen<KdDbBlockTableRecord>(id);
    auto* table = mustOpen<KdDbBlockTable>(m_database.blockTableId(), KdDb::kForWrite);
    KdDbObject* clone = nullptr;
    EXPECT_EQ(source->deepClone(table, clone, m_mapping), Kdad::eDuplicateKey);
    EXPECT_EQ(clone, nullptr);
    table->close();
    source->close();
}

TEST_F(Clones, a_block_comes_with_its_entities_into_another_database) {
    const KdDbObjectId id = makeBlock(L"Part");
    KdDbDatabase other;
    auto* source = mustOpen<KdDbBlockTableRecord>(id);
    auto* table = mustOpen<KdDbBlockTable>(other.blockTableId(), KdDb::kForWrite);
    KdDbObject* clone = nullptr;
    ASSERT_EQ(source->deepClone(table, clone, m_mapping), Kdad::eOk);
    KdDbObjectId found;
    EXPECT_EQ(table->getAt(L"Part", found), Kdad::eOk);
    EXPECT_EQ(found, clone->objectId());
    clone->close();
    table->close();
    source->close();
    expectPart(found, other);
}

TEST_F(Clones, in_another_database_things_of_the_same_name_serve_and_missing_ones_come_along) {
    const KdDbObjectId walls = kdtest::addRecord<KdDbLayerTableRecord>(m_database.layerTableId(), L"Walls");
    auto* insertion = new KdDbBlockReference({1.0, 2.0, 0.0}, makeBlock(L"Part"));
    insertion->setLayer(walls);
    const KdDbObjectId id = kdtest::append(m_database, insertion);

    KdDbDatabase withLayer;
    const KdDbObjectId ownWalls = kdtest::addRecord<KdDbLayerTableRecord>(withLayer.layerTableId(), L"WALLS");
    m_mapping.setDestDb(&withLayer);
    const auto* clone = kdhost::peek<KdDbBlockReference>(cloneEntity(id, withLayer, m_mapping));
    EXPECT_EQ(clone->layerId(), ownWalls);
    EXPECT_EQ(clone->linetypeId(), withLayer.byLayerLinetype());
    expectPart(clone->blockTableRecord(), withLayer);

    KdDbDatabase bare;
    KdDbIdMapping mapping(&bare);
    clone = kdhost::peek<KdDbBlockReference>(cloneEntity(id, bare, mapping));
    KdDbObjectId layer;
    EXPECT_EQ(kdhost::peek<KdDbLayerTable>(bare.layerTableId())->getAt(L"Walls", layer), Kdad::eOk);
    EXPECT_EQ(clone->layerId(), layer);
}

TEST_F(Clones, a_second_clone_by_one_mapping_points_at_what_the_first_brought) {
    const KdDbObjectId block = makeBlock(L"Part");
    const KdDbObjectId first = kdtest::append(m_database, new KdDbBlockReference({}, block));
    const KdDbObjectId second = kdtest::append(m_database, new KdDbBlockReference({}, block));
    KdDbDatabase other;
    const auto* a = kdhost::peek<KdDbBlockReference>(cloneEntity(first, other, m_mapping));
    const auto* b = kdhost::peek<KdDbBlockReference>(cloneEntity(second, other, m_mapping));
    EXPECT_EQ(a->blockTableRecord(), b->blockTableRecord());
    EXPECT_TRUE(cloneEntity(first, other, m_mapping).isNull()) << "what the mapping holds is not cloned again";
}

TEST_F(Clones, a_clone_in_a_dictionary_takes_its_name_or_a_free_one) {
    KdDbDictionary* root = nullptr;
    m_database.getNamedObjectsDictionary(root, KdDb::kForWrite);
    auto* field = new KdDbField;
    KdDbObjectId id;
    ASSERT_EQ(root->setAt(L"Mine", field, id), Kdad::eOk);
    KdDbObject* clone = nullptr;
    ASSERT_EQ(field->deepClone(root, clone, m_mapping), Kdad::eOk);
    std::wstring name;
    EXPECT_EQ(root->nameAt(clone->objectId(), name), Kdad::eOk);
    EXPECT_NE(name, L"Mine");
    EXPECT_TRUE(root->has(id));
    clone->close();
    KdDbDatabase other;
    KdDbDictionary* otherRoot = nullptr;
    other.getNamedObjectsDictionary(otherRoot, KdDb::kForWrite);
    KdDbIdMapping mapping;
    ASSERT_EQ(field->deepClone(otherRoot, clone, mapping), Kdad::eOk);
    EXPECT_TRUE(otherRoot->has(L"Mine"));
    clone->close();
    for (KdDbObject* object : std::initializer_list<KdDbObject*>{root, otherRoot, field}) object->close();
}

TEST_F(Clones, owners_that_cannot_take_a_clone_are_refused) {
    const KdDbObjectId id = kdtest::appendLine(m_database);
    auto* line = mustOpen<KdDbLine>(id);
    auto* layers = mustOpen<KdDbLayerTable>(m_database.layerTableId(), KdDb::kForWrite);
    auto* space = mustOpen<KdDbBlockTableRecord>(m_database.modelSpaceId());
    KdDbObject* clone = line;
    EXPECT_EQ(line->deepClone(nullptr, clone, m_mapping), Kdad::eNullObjectPointer);
    EXPECT_EQ(clone, nullptr);
    KdDbBlockTableRecord inMemory;
    EXPECT_EQ(line->deepClone(&inMemory, clone, m_mapping), Kdad::eNotInDatabase);
    EXPECT_EQ(line->deepClone(layers, clone, m_mapping), Kdad::eNotThatKindOfClass);
    EXPECT_EQ(layers->deepClone(line, clone, m_mapping), Kdad::eNotThatKindOfClass);
    EXPECT_EQ(line->deepClone(space, clone, m_mapping), Kdad::eNotOpenForWrite);
    KdDbDatabase other;
    m_mapping.setDestDb(&other);
    EXPECT_EQ(line->deepClone(space, clone, m_mapping), Kdad::eInvalidContext);
    EXPECT_TRUE(m_mapping.map(id).isNull());
    for (KdDbObject* object : std::initializer_list<KdDbObject*>{line, layers, space}) object->close();
    kdtest::expectDisciplineBreach("written without a write open");
}

TEST_F(Clones, what_was_erased_does_not_come_along) {
    const KdDbObjectId id = makeBlock(L"Part");
    auto* block = mustOpen<KdDbBlockTableRecord>(id, KdDb::kForWrite);
    auto* line = new KdDbLine;
    block->appendKdDbEntity(line);
    line->erase();
    line->close();
    KdDbDatabase other;
    auto* table = mustOpen<KdDbBlockTable>(other.blockTableId(), KdDb::kForWrite);
    KdDbObject* clone = nullptr;
    ASSERT_EQ(block->deepClone(table, clone, m_mapping), Kdad::eOk);
    const KdDbObjectId made = clone->objectId();
    clone->close();
    table->close();
    block->close();
    expectPart(made, other);
}

}  // namespace
