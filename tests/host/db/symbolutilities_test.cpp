// The layers that the host itself asks a drawing for.

#include "kd/db/symbolutilities.h"

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

class SymbolUtilities : public ::testing::Test {
protected:
    static KdDbObjectId layerOf(KdDbDatabase* database) {
        return KdDbSymbolUtilities::servicesPtr106()->screenOnlyLayerId(database);
    }
    int layers() const {
        auto* table = mustOpen<KdDbLayerTable>(m_database.layerTableId());
        KdDbSymbolTableIterator* iterator = nullptr;
        EXPECT_EQ(table->newIterator(iterator), Kdad::eOk);
        const std::unique_ptr<KdDbSymbolTableIterator> owned(iterator);
        int count = 0;
        for (; !iterator->done(); iterator->step()) ++count;
        table->close();
        return count;
    }

    mutable KdDbDatabase m_database;
};

TEST_F(SymbolUtilities, the_layer_of_the_screen_is_made_once_and_is_not_plotted) {
    const int before = layers();
    const KdDbObjectId layer = layerOf(&m_database);
    ASSERT_TRUE(layer.isValid());
    EXPECT_EQ(layerOf(&m_database), layer);
    EXPECT_EQ(layers(), before + 1);
    const auto* record = kdhost::peek<KdDbLayerTableRecord>(layer);
    ASSERT_NE(record, nullptr);
    EXPECT_FALSE(record->isPlottable());
    EXPECT_FALSE(record->isLocked());
}

TEST_F(SymbolUtilities, a_layer_of_the_screen_that_was_erased_is_made_anew) {
    const KdDbObjectId erased = layerOf(&m_database);
    auto* record = mustOpen<KdDbLayerTableRecord>(erased, KdDb::kForWrite);
    EXPECT_EQ(record->erase(), Kdad::eOk);
    record->close();
    const KdDbObjectId layer = layerOf(&m_database);
    EXPECT_TRUE(layer.isValid());
    EXPECT_NE(layer, erased);
}

TEST_F(SymbolUtilities, each_drawing_has_a_layer_of_its_own) {
    KdDbDatabase other;
    EXPECT_NE(layerOf(&other), layerOf(&m_database));
    EXPECT_EQ(kdhost::peekObject(layerOf(&other))->database(), &other);
}

TEST_F(SymbolUtilities, there_is_none_without_a_drawing) {
    EXPECT_TRUE(layerOf(nullptr).isNull());
}

TEST_F(SymbolUtilities, there_is_none_while_the_layers_are_not_to_be_had) {
    auto* writer = mustOpen<KdDbLayerTable>(m_database.layerTableId(), KdDb::kForWrite);
    EXPECT_TRUE(layerOf(&m_database).isNull());
    writer->close();
    auto* reader = mustOpen<KdDbLayerTable>(m_database.layerTableId());
    EXPECT_TRUE(layerOf(&m_database).isNull()) << "it would have to be made beside a reader";
    reader->close();
    const KdDbObjectId layer = layerOf(&m_database);
    reader = mustOpen<KdDbLayerTable>(m_database.layerTableId());
    EXPECT_EQ(layerOf(&m_database), layer) << "one that is there is found beside a reader";
    reader->close();
}

}  // namespace
