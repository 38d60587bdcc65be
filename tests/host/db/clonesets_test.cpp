// Cloning whole sets of objects into another drawing, and drawings inserted as blocks.

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/db/symbolstate.h"
#include "host/db/undo.h"
#include "kd/db/blockreference.h"
#include "kd/db/field.h"
#include "kd/db/headervar.h"
#include "kd/db/idmapping.h"
#include "kd/db/table.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

KdDbObjectIdArray arrayOf(std::initializer_list<KdDbObjectId> ids) {
    KdDbObjectIdArray array;
    for (const KdDbObjectId id : ids) array.append(id);
    return array;
}

std::vector<KdDbObjectId> entitiesOf(KdDbObjectId block) {
    return stateOf<KdDbBlockTableRecordState>(*kdhost::peekObject(block)).entities;
}

/// A table whose first cell shows a formula of that code.
KdDbObjectId appendTableWithFormula(KdDbDatabase& database, const std::wstring& code) {
    auto* table = new KdDbTable;
    table->setSize(2, 2);
    const KdDbObjectId id = kdtest::append(database, table);
    auto* field = new KdDbField;
    field->setFieldCode(code.c_str());
    field->postInDatabase(&database);
    const KdDbObjectId fieldId = field->objectId();
    field->close();
    table = mustOpen<KdDbTable>(id, KdDb::kForWrite);
    table->setFieldId(0, 0, fieldId);
    table->close();
    return id;
}

std::wstring formulaOf(KdDbObjectId table) {
    return kdhost::peek<KdDbField>(kdhost::peek<KdDbTable>(table)->fieldId(0, 0))
        ->getFieldCode(KdDbField::FieldCodeFlag(0))
        .str();
}

class CloneSets : public ::testing::Test {
protected:
    Kdad::ErrorStatus clone(const KdDbObjectIdArray& ids, int cloning = 1, bool deferred = false) {
        m_mapping.setDestDb(&m_other);
        return m_database.wblockCloneObjects(ids, m_other.modelSpaceId(), m_mapping, cloning, deferred);
    }

    KdDbDatabase m_database;
    KdDbDatabase m_other{true, true};
    KdDbIdMapping m_mapping;
};

TEST_F(CloneSets, clones_stand_closed_in_the_owner_in_the_order_given) {
    const KdDbObjectId first = kdtest::appendLine(m_database, 1.0);
    const KdDbObjectId second = kdtest::appendLine(m_database, 2.0);
    ASSERT_EQ(clone(arrayOf({second, first})), Kdad::eOk);
    EXPECT_EQ(entitiesOf(m_other.modelSpaceId()),
              (std::vector<KdDbObjectId>{m_mapping.map(second), m_mapping.map(first)}));
    EXPECT_EQ(kdhost::peek<KdDbLine>(m_mapping.map(second))->endPoint().x, 2.0);
    EXPECT_EQ(kdhost::peekObject(m_mapping.map(first))->database(), &m_other);
}

TEST_F(CloneSets, formulas_that_read_a_later_table_of_the_set_read_its_clone) {
    const KdDbObjectId source = kdtest::append(m_database, new KdDbTable);
    const KdDbObjectId reader =
        appendTableWithFormula(m_database, L"\\AcExpr (Table(" + std::to_wstring(source.asInteger()) + L").A1)");
    ASSERT_EQ(clone(arrayOf({reader, source})), Kdad::eOk);
    EXPECT_EQ(formulaOf(m_mapping.map(reader)),
              L"\\AcExpr (Table(" + std::to_wstring(m_mapping.map(source).asInteger()) + L").A1)");
}

TEST_F(CloneSets, what_the_mapping_holds_is_not_cloned_again) {
    const KdDbObjectId line = kdtest::appendLine(m_database);
    ASSERT_EQ(clone(arrayOf({line})), Kdad::eOk);
    ASSERT_EQ(clone(arrayOf({line})), Kdad::eOk);
    EXPECT_EQ(entitiesOf(m_other.modelSpaceId()).size(), 1U);
}

TEST_F(CloneSets, one_bad_object_refuses_the_whole_set) {
    const KdDbObjectId line = kdtest::appendLine(m_database);
    const KdDbObjectId erased = kdtest::appendLine(m_database);
    auto* object = mustOpen<KdDbLine>(erased, KdDb::kForWrite);
    object->erase();
    object->close();
    EXPECT_EQ(clone(arrayOf({line, erased})), Kdad::eWasErased);
    EXPECT_EQ(clone(arrayOf({line, KdDbObjectId::kNull})), Kdad::eNullObjectId);
    EXPECT_EQ(clone(arrayOf({line, m_other.layerZero()})), Kdad::eInvalidContext);
    EXPECT_EQ(clone(arrayOf({line, m_database.layerZero()})), Kdad::eNotThatKindOfClass);
    EXPECT_TRUE(entitiesOf(m_other.modelSpaceId()).empty());
}

TEST_F(CloneSets, other_ways_of_cloning_and_a_foreign_owner_are_refused) {
    const KdDbObjectIdArray ids = arrayOf({kdtest::appendLine(m_database)});
    EXPECT_EQ(clone(ids, 2), Kdad::eNotApplicable);
    EXPECT_EQ(clone(ids, 1, true), Kdad::eNotApplicable);
    m_mapping.setDestDb(&m_database);
    EXPECT_EQ(m_database.wblockCloneObjects(ids, m_other.modelSpaceId(), m_mapping, 1), Kdad::eInvalidContext);
    EXPECT_EQ(m_database.wblockCloneObjects(ids, KdDbObjectId::kNull, m_mapping, 1), Kdad::eNullObjectId);
    auto* space = mustOpen<KdDbBlockTableRecord>(m_other.modelSpaceId());
    EXPECT_EQ(clone(ids), Kdad::eWasOpenForRead);
    space->close();
    EXPECT_TRUE(entitiesOf(m_other.modelSpaceId()).empty());
}

TEST_F(CloneSets, a_clone_is_given_out_with_its_ids_in_flux_until_told_otherwise) {
    auto* line = mustOpen<KdDbLine>(kdtest::appendLine(m_database));
    auto* space = mustOpen<KdDbBlockTableRecord>(m_other.modelSpaceId(), KdDb::kForWrite);
    KdDbObject* made = nullptr;
    ASSERT_EQ(line->deepClone(space, made, m_mapping), Kdad::eOk);
    KdDbImpObject* behind = KdDbSystemInternals::getImpObject(made);
    EXPECT_TRUE(behind->kdDbObjectIdsInFlux());
    behind->setKdDbObjectIdsInFlux(false);
    EXPECT_FALSE(behind->kdDbObjectIdsInFlux());
    EXPECT_FALSE(KdDbSystemInternals::getImpObject(line)->kdDbObjectIdsInFlux());
    EXPECT_EQ(KdDbSystemInternals::getImpObject(nullptr), nullptr);
    const KdDbObjectId id = made->objectId();
    for (KdDbObject* open : {made, static_cast<KdDbObject*>(line), static_cast<KdDbObject*>(space)}) open->close();
    ASSERT_EQ(kddbOpenKdDbObjectEx(made, id, KdDb::kForWrite), Kdad::eOk);
    EXPECT_TRUE(made->isWriteEnabled());
    made->close();
}

TEST_F(CloneSets, the_model_space_is_found_behind_the_database) {
    EXPECT_EQ(KdDbSystemInternals::getImpDatabase(&m_other)->modelSpace(), m_other.modelSpaceId());
    KdDbDatabase empty(false, true);
    EXPECT_TRUE(KdDbSystemInternals::getImpDatabase(&empty)->modelSpace().isNull());
}

TEST_F(CloneSets, an_inserted_drawing_is_a_block_around_its_insertion_base) {
    m_other.setInsbase({3.0, 4.0, 5.0});
    kdtest::appendLine(m_other, 7.0);
    const KdDbObjectId erased = kdtest::appendLine(m_other);
    auto* gone = mustOpen<KdDbLine>(erased, KdDb::kForWrite);
    gone->erase();
    gone->close();
    KdDbObjectId block;
    ASSERT_EQ(m_database.insert(block, L"drawings/a part.DWG", &m_other), Kdad::eOk);
    const auto* made = kdhost::peek<KdDbBlockTableRecord>(block);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->origin(), KdGePoint3d(3.0, 4.0, 5.0));
    std::wstring name;
    made->getName(name);
    EXPECT_EQ(name, L"drawings/a part.DWG");
    ASSERT_EQ(entitiesOf(block).size(), 1U);
    EXPECT_EQ(kdhost::peek<KdDbLine>(entitiesOf(block)[0])->endPoint().x, 7.0);
    EXPECT_EQ(entitiesOf(m_other.modelSpaceId()).size(), 2U);
}

TEST_F(CloneSets, a_drawing_is_inserted_again_under_the_name_of_an_erased_block) {
    KdDbObjectId block;
    ASSERT_EQ(m_database.insert(block, L"part", &m_other), Kdad::eOk);
    KdDbObjectId second;
    EXPECT_EQ(m_database.insert(second, L"PART", &m_other), Kdad::eDuplicateKey);
    EXPECT_TRUE(second.isNull());
    auto* open = mustOpen<KdDbBlockTableRecord>(block, KdDb::kForWrite);
    open->erase();
    open->close();
    EXPECT_EQ(m_database.insert(second, L"PART", &m_other), Kdad::eOk);
    EXPECT_NE(second, block);
}

TEST_F(CloneSets, what_is_inserted_goes_and_comes_with_its_step) {
    kdtest::appendLine(m_other);
    KdDbObjectId block;
    {
        const kdhost::UndoCommandScope command(&m_database, L"PASTE");
        ASSERT_EQ(m_database.insert(block, L"part", &m_other), Kdad::eOk);
    }
    const auto history = kdhost::undoHistory(m_database);
    const auto* blocks = kdhost::peek<KdDbBlockTable>(m_database.blockTableId());
    EXPECT_EQ(history->undoSteps().back(), L"PASTE");
    ASSERT_EQ(history->undo(), Kdad::eOk);
    EXPECT_FALSE(blocks->has(L"part"));
    ASSERT_EQ(history->redo(), Kdad::eOk);
    EXPECT_TRUE(blocks->has(L"part"));
    EXPECT_EQ(entitiesOf(block).size(), 1U);
}

TEST_F(CloneSets, nothing_is_inserted_without_a_source_or_a_name) {
    KdDbObjectId block(17);
    EXPECT_EQ(m_database.insert(block, L"part", nullptr), Kdad::eNullObjectPointer);
    EXPECT_TRUE(block.isNull());
    EXPECT_EQ(m_database.insert(block, L"part", &m_database), Kdad::eInvalidContext);
    EXPECT_EQ(m_database.insert(block, L"", &m_other), Kdad::eInvalidKey);
    EXPECT_EQ(m_database.insert(block, nullptr, &m_other), Kdad::eInvalidKey);
}

}  // namespace
