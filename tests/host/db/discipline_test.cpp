// The open discipline, from outside: many readers or one writer, and nothing else.

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/rx/faults.h"
#include "kd/db/entity.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

class Discipline : public ::testing::Test {
protected:
    KdDbDatabase m_database;
    KdDbObjectId m_id = kdtest::appendLine(m_database);
};

TEST_F(Discipline, many_readers_may_have_an_object_open) {
    auto* first = mustOpen<KdDbLine>(m_id);
    auto* second = mustOpen<KdDbLine>(m_id);
    EXPECT_TRUE(first->isReadEnabled());
    EXPECT_FALSE(first->isWriteEnabled());
    EXPECT_EQ(first->close(), Kdad::eOk);
    EXPECT_EQ(second->close(), Kdad::eOk);
}

TEST_F(Discipline, a_second_writer_is_refused) {
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    KdDbObject* other = line;
    EXPECT_EQ(kddbOpenObject(other, m_id, KdDb::kForWrite), Kdad::eWasOpenForWrite);
    EXPECT_EQ(other, nullptr);
    line->close();
}

TEST_F(Discipline, a_reader_beside_a_writer_is_refused) {
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    KdDbEntity* other = line;
    EXPECT_EQ(kddbOpenObject(other, m_id, KdDb::kForRead), Kdad::eWasOpenForWrite);
    EXPECT_EQ(other, nullptr);
    line->close();
}

TEST_F(Discipline, a_writer_beside_readers_is_refused) {
    auto* line = mustOpen<KdDbLine>(m_id);
    KdDbObject* other = line;
    EXPECT_EQ(kddbOpenObject(other, m_id, KdDb::kForWrite, false, KdDbLine::desc()), Kdad::eWasOpenForRead);
    EXPECT_EQ(other, nullptr);
    line->close();
}

TEST_F(Discipline, the_null_id_and_an_unknown_id_do_not_open) {
    KdDbObject* object = nullptr;
    EXPECT_EQ(kddbOpenObject(object, KdDbObjectId::kNull, KdDb::kForRead), Kdad::eNullObjectId);
    EXPECT_EQ(kddbOpenObject(object, KdDbObjectId(UINT64_C(1) << 60), KdDb::kForRead), Kdad::eUnknownId);
    EXPECT_EQ(object, nullptr);
}

TEST_F(Discipline, an_object_of_another_class_does_not_open) {
    KdDbObject* object = nullptr;
    EXPECT_EQ(kddbOpenObject(object, m_id, KdDb::kForRead, false, KdDbDictionary::desc()), Kdad::eNotThatKindOfClass);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(kddbOpenObject(object, m_id, KdDb::kForRead, false, KdDbEntity::desc()), Kdad::eOk);
    object->close();
}

TEST_F(Discipline, what_is_no_entity_does_not_open_as_one) {
    KdDbEntity* entity = nullptr;
    EXPECT_EQ(kddbOpenObject(entity, m_database.layerTableId(), KdDb::kForRead), Kdad::eNotThatKindOfClass);
    EXPECT_EQ(entity, nullptr);
}

TEST_F(Discipline, an_erased_object_opens_only_for_those_who_ask_for_erased_ones) {
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    EXPECT_EQ(line->erase(), Kdad::eOk);
    EXPECT_EQ(line->erase(), Kdad::eWasErased);
    line->close();
    KdDbObject* object = nullptr;
    EXPECT_EQ(kddbOpenObject(object, m_id, KdDb::kForRead), Kdad::eWasErased);
    EXPECT_EQ(kdhost::peekObject(m_id), nullptr);
    ASSERT_EQ(kddbOpenObject(object, m_id, KdDb::kForWrite, true), Kdad::eOk);
    EXPECT_EQ(object->erase(false), Kdad::eOk);
    object->close();
    EXPECT_NE(kdhost::peekObject(m_id), nullptr);
    mustOpen<KdDbLine>(m_id)->close();
}

TEST_F(Discipline, erasing_needs_a_write_open) {
    auto* line = mustOpen<KdDbLine>(m_id);
    EXPECT_EQ(line->erase(), Kdad::eNotOpenForWrite);
    EXPECT_FALSE(line->isErased());
    line->close();
    kdtest::expectDisciplineBreach("erased without a write open");
}

TEST_F(Discipline, what_every_drawing_must_have_is_not_erased) {
    for (const KdDbObjectId id : {m_database.layerZero(), m_database.modelSpaceId(), m_database.layerTableId(),
                                  m_database.tableStyleDictionaryId(), m_database.continuousLinetype()}) {
        auto* object = mustOpen<KdDbObject>(id, KdDb::kForWrite);
        EXPECT_EQ(object->erase(), Kdad::eCannotBeErased);
        object->close();
    }
}

TEST_F(Discipline, a_setter_without_a_write_open_changes_nothing_and_is_noted) {
    kdhost::setCurrentCommandName(L"CHANGE");
    auto* line = mustOpen<KdDbLine>(m_id);
    EXPECT_EQ(line->setEndPoint({9.0, 9.0, 9.0}), Kdad::eNotOpenForWrite);
    EXPECT_EQ(line->endPoint(), KdGePoint3d(1.0, 0.0, 0.0));
    line->close();
    kdhost::setCurrentCommandName(L"");
    kdtest::expectDisciplineBreach("written without a write open, in CHANGE");
}

TEST_F(Discipline, a_close_too_many_is_noted) {
    auto* line = mustOpen<KdDbLine>(m_id);
    EXPECT_EQ(line->close(), Kdad::eOk);
    EXPECT_EQ(line->close(), Kdad::eNotOpenForRead);
    kdtest::expectDisciplineBreach("closed while it is not open");
}

TEST_F(Discipline, an_upgrade_takes_the_only_reader_to_a_writer) {
    auto* line = mustOpen<KdDbLine>(m_id);
    EXPECT_EQ(line->upgradeOpen(), Kdad::eOk);
    EXPECT_EQ(line->upgradeOpen(), Kdad::eOk);
    EXPECT_TRUE(line->isWriteEnabled());
    EXPECT_EQ(line->close(), Kdad::eOk);
    EXPECT_TRUE(kdhost::openObjects().empty());
}

TEST_F(Discipline, an_upgrade_beside_another_reader_is_refused) {
    auto* line = mustOpen<KdDbLine>(m_id);
    auto* other = mustOpen<KdDbLine>(m_id);
    EXPECT_EQ(line->upgradeOpen(), Kdad::eWasOpenForRead);
    EXPECT_FALSE(line->isWriteEnabled());
    other->close();
    EXPECT_EQ(line->upgradeOpen(), Kdad::eOk);
    line->close();
}

TEST_F(Discipline, an_upgrade_of_what_is_not_open_is_refused) {
    auto* line = mustOpen<KdDbLine>(m_id);
    line->close();
    EXPECT_EQ(line->upgradeOpen(), Kdad::eNotOpenForRead);
    EXPECT_EQ(line->downgradeOpen(), Kdad::eNotOpenForRead);
}

TEST_F(Discipline, a_repeated_downgrade_is_harmless) {
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    EXPECT_EQ(line->downgradeOpen(), Kdad::eOk);
    EXPECT_EQ(line->downgradeOpen(), Kdad::eOk);
    EXPECT_FALSE(line->isWriteEnabled());
    EXPECT_TRUE(line->isReadEnabled());
    EXPECT_EQ(line->close(), Kdad::eOk);
    EXPECT_FALSE(line->isReadEnabled());
}

TEST_F(Discipline, an_object_in_no_database_is_its_makers) {
    KdDbLine line({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0});
    EXPECT_TRUE(line.isReadEnabled());
    EXPECT_TRUE(line.isWriteEnabled());
    EXPECT_EQ(line.setEndPoint({2.0, 0.0, 0.0}), Kdad::eOk);
    EXPECT_EQ(line.close(), Kdad::eOk);
    EXPECT_EQ(line.upgradeOpen(), Kdad::eOk);
    EXPECT_EQ(line.downgradeOpen(), Kdad::eOk);
    EXPECT_EQ(line.erase(), Kdad::eNotInDatabase);
    EXPECT_TRUE(line.objectId().isNull());
    EXPECT_EQ(line.handle(), 0U);
    EXPECT_EQ(line.database(), nullptr);
}

TEST_F(Discipline, a_forgotten_close_is_listed_with_the_command_that_opened_it_first) {
    kdhost::setCurrentCommandName(L"FORGETFUL");
    auto* line = mustOpen<KdDbLine>(m_id);
    kdhost::setCurrentCommandName(L"LATER");
    mustOpen<KdDbLine>(m_id);
    kdhost::setCurrentCommandName(L"");
    const std::vector<kdhost::OpenObject> open = kdhost::openObjects();
    ASSERT_EQ(open.size(), 1U);
    EXPECT_EQ(open[0].id, m_id);
    EXPECT_EQ(open[0].handle, line->handle());
    EXPECT_EQ(open[0].className, L"KdDbLine");
    EXPECT_EQ(open[0].readers, 2);
    EXPECT_FALSE(open[0].writing);
    EXPECT_EQ(open[0].command, L"FORGETFUL");
    line->close();
    line->close();
    EXPECT_TRUE(kdhost::openObjects().empty());
}

TEST_F(Discipline, peeking_sees_an_object_that_is_open_for_write) {
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    EXPECT_EQ(kdhost::peek<KdDbLine>(m_id), line);
    EXPECT_EQ(kdhost::peek<KdDbDictionary>(m_id), nullptr);
    line->close();
}

TEST_F(Discipline, an_entity_on_a_locked_layer_is_read_not_written) {
    auto* layer = mustOpen<KdDbLayerTableRecord>(m_database.layerZero(), KdDb::kForWrite);
    layer->setIsLocked(true);
    layer->close();
    KdDbObject* object = nullptr;
    EXPECT_EQ(kddbOpenObject(object, m_id, KdDb::kForWrite), Kdad::eOnLockedLayer);
    EXPECT_EQ(object, nullptr);
    auto* line = mustOpen<KdDbLine>(m_id);
    EXPECT_EQ(line->upgradeOpen(), Kdad::eOnLockedLayer);
    EXPECT_TRUE(line->isReadEnabled());
    line->close();
}

TEST_F(Discipline, the_open_that_a_fault_names_fails_once) {
    kdhost::faults().failOpenNumber = 2;
    mustOpen<KdDbLine>(m_id)->close();
    KdDbEntity* entity = nullptr;
    EXPECT_NE(kddbOpenObject(entity, m_id, KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(entity, nullptr);
    mustOpen<KdDbLine>(m_id)->close();
}

TEST_F(Discipline, ids_are_never_given_twice_and_handles_are_unique_in_a_database) {
    KdDbObjectId gone;
    std::uint64_t handle = 0;
    {
        KdDbDatabase other;
        gone = kdtest::appendLine(other);
        handle = kdhost::peekObject(gone)->handle();
        EXPECT_NE(gone, kdtest::appendLine(other));
    }
    EXPECT_EQ(kdhost::peekObject(gone, true), nullptr);
    KdDbObject* object = nullptr;
    EXPECT_EQ(kddbOpenObject(object, gone, KdDb::kForRead), Kdad::eUnknownId);
    KdDbDatabase again;
    const KdDbObjectId id = kdtest::appendLine(again);
    EXPECT_GT(id, gone);
    EXPECT_EQ(kdhost::peekObject(id)->handle(), handle);
}

TEST_F(Discipline, an_object_left_open_when_its_database_goes_is_noted) {
    auto database = std::make_unique<KdDbDatabase>();
    mustOpen<KdDbLine>(kdtest::appendLine(*database));
    database.reset();
    EXPECT_TRUE(kdhost::openObjects().empty());
    kdtest::expectDisciplineBreach("left open when its database was deleted");
}

TEST_F(Discipline, copying_takes_what_the_source_holds_and_keeps_identity_and_place) {
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    const KdDbObjectId owner = line->ownerId();
    KdDbLine source({5.0, 5.0, 5.0}, {6.0, 6.0, 6.0});
    source.setColor(KdCmColor::fromIndex(3));
    EXPECT_EQ(line->copyFrom(&source), Kdad::eOk);
    EXPECT_EQ(line->startPoint(), KdGePoint3d(5.0, 5.0, 5.0));
    EXPECT_EQ(line->color(), KdCmColor::fromIndex(3));
    EXPECT_EQ(line->ownerId(), owner);
    EXPECT_EQ(line->objectId(), m_id);
    KdDbDictionary dictionary;
    EXPECT_EQ(line->copyFrom(&dictionary), Kdad::eNotThatKindOfClass);
    EXPECT_EQ(line->copyFrom(nullptr), Kdad::eNullObjectPointer);
    line->close();
}

}  // namespace
