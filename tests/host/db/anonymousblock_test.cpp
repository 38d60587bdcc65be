// Anonymous blocks get their numbers from the drawing that they are added to.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "tests/support/leakguard.h"

namespace {

class AnonymousBlocks : public ::testing::Test {
protected:
    /// The name that the block got; empty when it could not be added.
    std::wstring add(const wchar_t* name) {
        KdDbBlockTable* blocks = nullptr;
        EXPECT_EQ(m_database.getBlockTable(blocks, KdDb::kForWrite), Kdad::eOk);
        auto block = std::make_unique<KdDbBlockTableRecord>();
        block->setName(name);
        KdDbObjectId id;
        std::wstring given;
        if (blocks->add(id, block.get()) == Kdad::eOk) {
            block->getName(given);
            if (m_eraseNext) block->erase();
            block.release()->close();
        }
        blocks->close();
        return given;
    }

    KdDbDatabase m_database;
    bool m_eraseNext = false;
};

TEST_F(AnonymousBlocks, each_gets_the_lowest_number_that_is_free) {
    EXPECT_EQ(add(L"*T"), L"*T1");
    EXPECT_EQ(add(L"*T3"), L"*T3");
    EXPECT_EQ(add(L"*t"), L"*t2");
    EXPECT_EQ(add(L"*T"), L"*T4");
    EXPECT_EQ(add(L"*U"), L"*U1");
}

TEST_F(AnonymousBlocks, the_number_of_an_erased_one_is_free_again) {
    m_eraseNext = true;
    EXPECT_EQ(add(L"*T"), L"*T1");
    EXPECT_EQ(add(L"*T"), L"*T1");
}

TEST_F(AnonymousBlocks, blocks_with_longer_names_and_other_records_keep_theirs) {
    EXPECT_EQ(add(L"*T1"), L"*T1");
    EXPECT_EQ(add(L"*T1"), L"");
    EXPECT_EQ(add(L"TT"), L"TT");
    EXPECT_EQ(add(L"*"), L"*");
    KdDbLayerTable* layers = nullptr;
    ASSERT_EQ(m_database.getLayerTable(layers, KdDb::kForWrite), Kdad::eOk);
    auto layer = std::make_unique<KdDbLayerTableRecord>();
    layer->setName(L"*T");
    KdDbObjectId id;
    ASSERT_EQ(layers->add(id, layer.get()), Kdad::eOk);
    std::wstring name;
    layer->getName(name);
    EXPECT_EQ(name, L"*T");
    layer.release()->close();
    layers->close();
}

TEST_F(AnonymousBlocks, a_refused_one_keeps_its_kind_as_its_name) {
    KdDbBlockTable* blocks = nullptr;
    ASSERT_EQ(m_database.getBlockTable(blocks, KdDb::kForRead), Kdad::eOk);
    KdDbBlockTableRecord block;
    block.setName(L"*T");
    KdDbObjectId id;
    kdtest::expectDisciplineBreach("written without a write open");
    EXPECT_EQ(blocks->add(id, &block), Kdad::eNotOpenForWrite);
    std::wstring name;
    block.getName(name);
    EXPECT_EQ(name, L"*T");
    blocks->close();
}

}  // namespace
