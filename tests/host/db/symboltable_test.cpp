// Symbol tables and their records.

#include "kd/db/symboltable.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "host/db/access.h"
#include "kd/ed/resbuf.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

class SymbolTables : public ::testing::Test {
protected:
    KdDbObjectId add(const wchar_t* name) {
        return kdtest::addRecord<KdDbLayerTableRecord>(m_database.layerTableId(), name);
    }
    Kdad::ErrorStatus tryAdd(std::unique_ptr<KdDbSymbolTableRecord> record, const wchar_t* name) {
        if (name != nullptr) record->setName(name);
        auto* table = mustOpen<KdDbLayerTable>(m_database.layerTableId(), KdDb::kForWrite);
        KdDbObjectId id;
        const Kdad::ErrorStatus status = table->add(id, record.get());
        EXPECT_EQ(id.isNull(), status != Kdad::eOk);
        if (status == Kdad::eOk) record.release()->close();
        table->close();
        return status;
    }
    KdDbObjectId find(const wchar_t* name, bool erased = false) const {
        KdDbObjectId id(1);
        kdhost::peek<KdDbLayerTable>(m_database.layerTableId())->getAt(name, id, erased);
        return id;
    }
    static void setErased(KdDbObjectId id, bool erased) {
        KdDbObject* object = nullptr;
        ASSERT_EQ(kddbOpenObject(object, id, KdDb::kForWrite, true), Kdad::eOk);
        EXPECT_EQ(object->erase(erased), Kdad::eOk);
        object->close();
    }
    static Kdad::ErrorStatus rename(KdDbObjectId id, const wchar_t* name) {
        auto* record = mustOpen<KdDbSymbolTableRecord>(id, KdDb::kForWrite);
        const Kdad::ErrorStatus status = record->setName(name);
        record->close();
        return status;
    }

    KdDbDatabase m_database;
};

TEST_F(SymbolTables, names_are_found_without_regard_to_case) {
    const KdDbObjectId id = add(L"Walls");
    EXPECT_EQ(find(L"WALLS"), id);
    EXPECT_TRUE(find(L"Doors").isNull());
    EXPECT_TRUE(kdhost::peek<KdDbLayerTable>(m_database.layerTableId())->has(L"walls"));
    EXPECT_EQ(kdhost::peekObject(id)->ownerId(), m_database.layerTableId());
}

TEST_F(SymbolTables, a_record_is_found_and_opened_in_one) {
    auto* table = mustOpen<KdDbLayerTable>(m_database.layerTableId());
    KdDbSymbolTableRecord* record = nullptr;
    ASSERT_EQ(table->getAt(L"0", record, KdDb::kForRead), Kdad::eOk);
    wchar_t* name = nullptr;
    ASSERT_EQ(record->getName(name), Kdad::eOk);
    EXPECT_STREQ(name, L"0");
    kdutDelBuffer(name);
    record->close();
    EXPECT_EQ(table->getAt(L"None", record, KdDb::kForRead), Kdad::eKeyNotFound);
    EXPECT_EQ(record, nullptr);
    table->close();
}

TEST_F(SymbolTables, taken_empty_and_foreign_records_are_refused) {
    add(L"Walls");
    EXPECT_EQ(tryAdd(std::make_unique<KdDbLayerTableRecord>(), L"WALLS"), Kdad::eDuplicateKey);
    EXPECT_EQ(tryAdd(std::make_unique<KdDbLayerTableRecord>(), nullptr), Kdad::eInvalidKey);
    EXPECT_EQ(tryAdd(std::make_unique<KdDbTextStyleTableRecord>(), L"Style"), Kdad::eNotThatKindOfClass);
    EXPECT_EQ(tryAdd(std::make_unique<KdDbLayerTableRecord>(), L"Doors"), Kdad::eOk);
}

TEST_F(SymbolTables, adding_needs_a_write_open) {
    auto record = std::make_unique<KdDbLayerTableRecord>();
    record->setName(L"Walls");
    auto* table = mustOpen<KdDbLayerTable>(m_database.layerTableId());
    KdDbObjectId id;
    EXPECT_EQ(table->add(id, record.get()), Kdad::eNotOpenForWrite);
    EXPECT_EQ(table->add(id, nullptr), Kdad::eNullObjectPointer);
    table->close();
    EXPECT_EQ(KdDbLayerTable().add(id, record.get()), Kdad::eNotInDatabase);
    EXPECT_TRUE(find(L"Walls").isNull());
    kdtest::expectDisciplineBreach("written without a write open");
}

TEST_F(SymbolTables, a_renamed_record_is_found_by_its_new_name_alone) {
    const KdDbObjectId id = add(L"Walls");
    add(L"Doors");
    EXPECT_EQ(rename(id, L"DOORS"), Kdad::eDuplicateKey);
    EXPECT_EQ(rename(id, L""), Kdad::eInvalidKey);
    EXPECT_EQ(rename(id, nullptr), Kdad::eInvalidKey);
    EXPECT_EQ(rename(id, L"WALLS"), Kdad::eOk);
    EXPECT_EQ(rename(id, L"Roof"), Kdad::eOk);
    EXPECT_EQ(find(L"roof"), id);
    EXPECT_TRUE(find(L"Walls").isNull());
}

TEST_F(SymbolTables, what_every_drawing_must_have_keeps_its_name) {
    EXPECT_EQ(rename(m_database.layerZero(), L"Zero"), Kdad::eNotApplicable);
    EXPECT_EQ(rename(m_database.modelSpaceId(), L"Model"), Kdad::eNotApplicable);
    EXPECT_EQ(find(L"0"), m_database.layerZero());
}

TEST_F(SymbolTables, an_erased_record_frees_its_name) {
    const KdDbObjectId erased = add(L"Walls");
    setErased(erased, true);
    EXPECT_TRUE(find(L"Walls").isNull());
    EXPECT_EQ(find(L"Walls", true), erased);
    const KdDbObjectId second = add(L"Walls");
    EXPECT_EQ(find(L"Walls"), second);
    EXPECT_EQ(find(L"Walls", true), second);
}

TEST_F(SymbolTables, walking_leaves_erased_records_out_and_follows_the_order_of_making) {
    const KdDbObjectId b = add(L"B");
    const KdDbObjectId a = add(L"A");
    const KdDbObjectId c = add(L"C");
    setErased(a, true);
    auto* table = mustOpen<KdDbLayerTable>(m_database.layerTableId());
    KdDbSymbolTableIterator* made = nullptr;
    table->newIterator(made);
    const std::unique_ptr<KdDbSymbolTableIterator> iterator(made);
    for (int round = 0; round < 2; ++round) {
        std::vector<KdDbObjectId> walked;
        for (iterator->start(); !iterator->done(); iterator->step()) {
            KdDbObjectId id;
            EXPECT_EQ(iterator->getRecordId(id), Kdad::eOk);
            walked.push_back(id);
        }
        EXPECT_EQ(walked, (std::vector{m_database.layerZero(), b, c}));
    }
    KdDbObjectId id;
    KdDbSymbolTableRecord* record = nullptr;
    EXPECT_EQ(iterator->getRecordId(id), Kdad::eInvalidIndex);
    EXPECT_EQ(iterator->getRecord(record, KdDb::kForRead), Kdad::eInvalidIndex);
    table->close();
}

TEST_F(SymbolTables, random_additions_renames_and_erasures_agree_with_a_plain_map) {
    std::map<std::wstring, KdDbObjectId> model;
    std::mt19937 random(static_cast<unsigned>(::testing::UnitTest::GetInstance()->random_seed()));
    const auto anyName = [&] { return L"L" + std::to_wstring(random() % 60); };
    for (int step = 0; step < 5'000; ++step) {
        const std::wstring name = anyName();
        const auto known = model.find(name);
        switch (random() % 4) {
            case 0:
                if (known == model.end()) {
                    model[name] = add(name.c_str());
                } else {
                    EXPECT_EQ(tryAdd(std::make_unique<KdDbLayerTableRecord>(), name.c_str()), Kdad::eDuplicateKey);
                }
                break;
            case 1:
                if (known != model.end()) {
                    setErased(known->second, true);
                    model.erase(known);
                }
                break;
            case 2:
                if (known != model.end()) {
                    const std::wstring other = anyName();
                    const bool isFree = other == name || !model.contains(other);
                    EXPECT_EQ(rename(known->second, other.c_str()), isFree ? Kdad::eOk : Kdad::eDuplicateKey);
                    if (isFree) {
                        const KdDbObjectId id = known->second;
                        model.erase(known);
                        model[other] = id;
                    }
                }
                break;
            default:
                EXPECT_EQ(find(name.c_str()), known == model.end() ? KdDbObjectId::kNull : known->second);
        }
    }
}

TEST_F(SymbolTables, layers_keep_what_they_are_given) {
    KdDbLayerTableRecord layer;
    EXPECT_EQ(layer.color(), KdCmColor::fromIndex(7));
    EXPECT_FALSE(layer.isLocked());
    EXPECT_TRUE(layer.isPlottable());
    layer.setColor(KdCmColor::fromRgb(1, 2, 3));
    layer.setLinetypeObjectId(m_database.continuousLinetype());
    layer.setLineWeight(KdDb::kLnWt050);
    layer.setIsLocked(true);
    layer.setIsPlottable(false);
    EXPECT_EQ(layer.color(), KdCmColor::fromRgb(1, 2, 3));
    EXPECT_EQ(layer.linetypeObjectId(), m_database.continuousLinetype());
    EXPECT_EQ(layer.lineWeight(), KdDb::kLnWt050);
    EXPECT_TRUE(layer.isLocked());
    EXPECT_FALSE(layer.isPlottable());
}

TEST_F(SymbolTables, line_types_keep_their_pattern) {
    KdDbLinetypeTableRecord linetype;
    EXPECT_TRUE(linetype.dashes().empty());
    EXPECT_EQ(linetype.patternLength(), 0.0);
    linetype.setComments(L"Dash dot");
    linetype.setDashes({2.0, -1.0, 0.0, -1.0});
    EXPECT_EQ(linetype.comments(), L"Dash dot");
    EXPECT_EQ(linetype.dashes(), (std::vector{2.0, -1.0, 0.0, -1.0}));
    EXPECT_EQ(linetype.patternLength(), 4.0);
}

TEST_F(SymbolTables, text_styles_keep_their_font) {
    KdDbTextStyleTableRecord style;
    EXPECT_EQ(style.xScale(), 1.0);
    EXPECT_EQ(style.textSize(), 0.0);
    style.setFont(L"Droid Sans Fallback");
    style.setFontStyle(true, false);
    style.setTextSize(3.5);
    style.setObliquingAngle(0.2);
    EXPECT_EQ(style.setXScale(0.8), Kdad::eOk);
    for (const double wrong : {0.0, -1.0}) EXPECT_EQ(style.setXScale(wrong), Kdad::eInvalidInput);
    EXPECT_EQ(style.font(), L"Droid Sans Fallback");
    EXPECT_TRUE(style.isBold());
    EXPECT_FALSE(style.isItalic());
    EXPECT_EQ(style.textSize(), 3.5);
    EXPECT_EQ(style.obliquingAngle(), 0.2);
    EXPECT_EQ(style.xScale(), 0.8);
}

TEST_F(SymbolTables, block_records_know_spaces_and_anonymous_blocks) {
    const struct {
        const wchar_t* name;
        bool anonymous;
        bool layout;
    } cases[] = {{L"*Model_Space", true, true},
                 {L"*MODEL_SPACE", true, true},
                 {L"*Paper_Space0", true, true},
                 {L"*T1", true, false},
                 {L"Door", false, false}};
    for (const auto& [name, anonymous, layout] : cases) {
        KdDbBlockTableRecord block;
        block.setName(name);
        EXPECT_EQ(block.isAnonymous(), anonymous) << name;
        EXPECT_EQ(block.isLayout(), layout) << name;
    }
}

}  // namespace
