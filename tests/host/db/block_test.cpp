// The entities of a block.

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

class Blocks : public ::testing::Test {
protected:
    std::vector<KdDbObjectId> walk() const {
        auto* space = mustOpen<KdDbBlockTableRecord>(m_database.modelSpaceId());
        KdDbBlockTableRecordIterator* made = nullptr;
        EXPECT_EQ(space->newIterator(made), Kdad::eOk);
        const std::unique_ptr<KdDbBlockTableRecordIterator> iterator(made);
        std::vector<KdDbObjectId> ids;
        for (iterator->start(); !iterator->done(); iterator->step()) {
            KdDbObjectId id;
            EXPECT_EQ(iterator->getEntityId(id), Kdad::eOk);
            KdDbEntity* entity = nullptr;
            EXPECT_EQ(iterator->getEntity(entity, KdDb::kForRead), Kdad::eOk);
            EXPECT_EQ(entity->objectId(), id);
            entity->close();
            ids.push_back(id);
        }
        KdDbObjectId id;
        KdDbEntity* entity = nullptr;
        EXPECT_EQ(iterator->getEntityId(id), Kdad::eInvalidIndex);
        EXPECT_EQ(iterator->getEntity(entity, KdDb::kForRead), Kdad::eInvalidIndex);
        space->close();
        return ids;
    }

    KdDbDatabase m_database;
};

TEST_F(Blocks, entities_are_walked_in_drawing_order_without_erased_ones) {
    const KdDbObjectId first = kdtest::appendLine(m_database);
    const KdDbObjectId second = kdtest::appendLine(m_database);
    const KdDbObjectId third = kdtest::appendLine(m_database);
    auto* line = mustOpen<KdDbLine>(second, KdDb::kForWrite);
    line->erase();
    line->close();
    EXPECT_EQ(walk(), (std::vector{first, third}));
}

TEST_F(Blocks, an_appended_entity_is_the_databases_and_open_for_write) {
    auto* space = mustOpen<KdDbBlockTableRecord>(m_database.modelSpaceId(), KdDb::kForWrite);
    auto* line = new KdDbLine;
    ASSERT_EQ(space->appendKdDbEntity(line), Kdad::eOk);
    EXPECT_TRUE(line->isWriteEnabled());
    EXPECT_EQ(line->ownerId(), m_database.modelSpaceId());
    EXPECT_EQ(line->layerId(), m_database.layerZero());
    EXPECT_EQ(line->linetypeId(), m_database.byLayerLinetype());
    KdDbObjectId id(3);
    EXPECT_EQ(space->appendKdDbEntity(id, line), Kdad::eAlreadyInDatabase);
    EXPECT_TRUE(id.isNull());
    line->close();
    space->close();
    EXPECT_EQ(walk().size(), 1U);
}

TEST_F(Blocks, wrong_appends_add_nothing) {
    auto line = std::make_unique<KdDbLine>();
    EXPECT_EQ(KdDbBlockTableRecord().appendKdDbEntity(line.get()), Kdad::eNotInDatabase);
    auto* space = mustOpen<KdDbBlockTableRecord>(m_database.modelSpaceId());
    EXPECT_EQ(space->appendKdDbEntity(nullptr), Kdad::eNullObjectPointer);
    EXPECT_EQ(space->appendKdDbEntity(line.get()), Kdad::eNotOpenForWrite);
    space->close();
    EXPECT_EQ(line->database(), nullptr);
    EXPECT_TRUE(walk().empty());
    kdtest::expectDisciplineBreach("written without a write open");
}

TEST_F(Blocks, an_entity_keeps_the_layer_it_was_given) {
    const KdDbObjectId walls = kdtest::addRecord<KdDbLayerTableRecord>(m_database.layerTableId(), L"Walls");
    auto* line = new KdDbLine;
    line->setLayer(walls);
    EXPECT_EQ(kdhost::peek<KdDbLine>(kdtest::append(m_database, line))->layerId(), walls);
}

}  // namespace
