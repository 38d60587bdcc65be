// A drawing in memory that the tests of drawing fill and look at.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "host/db/access.h"
#include "host/draw/primitives.h"
#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"

namespace kdtest {

/// A fresh drawing. What is added is closed at once.
struct Drawing {
    KdDbDatabase database;

    KdDbObjectId add(std::unique_ptr<KdDbEntity> entity, KdDbObjectId block = {}) {
        KdDbObject* opened = nullptr;
        const KdDbObjectId place = block.isNull() ? database.modelSpaceId() : block;
        EXPECT_EQ(kddbOpenObject(opened, place, KdDb::kForWrite), Kdad::eOk);
        auto* record = static_cast<KdDbBlockTableRecord*>(opened);
        KdDbObjectId id;
        KdDbEntity* added = entity.release();
        EXPECT_EQ(record->appendKdDbEntity(id, added), Kdad::eOk);
        added->close();
        record->close();
        return id;
    }

    KdDbObjectId addBlock(const wchar_t* name) {
        KdDbBlockTable* table = nullptr;
        EXPECT_EQ(database.getBlockTable(table, KdDb::kForWrite), Kdad::eOk);
        return addRecord(table, new KdDbBlockTableRecord, name);
    }

    KdDbObjectId addLayer(const wchar_t* name, const KdCmColor& color, KdDb::LineWeight weight = KdDb::kLnWt050) {
        KdDbLayerTable* table = nullptr;
        EXPECT_EQ(database.getLayerTable(table, KdDb::kForWrite), Kdad::eOk);
        auto* layer = new KdDbLayerTableRecord;
        layer->setColor(color);
        layer->setLineWeight(weight);
        return addRecord(table, layer, name);
    }

    KdDbObjectId addLinetype(const wchar_t* name, std::vector<double> dashes) {
        KdDbLinetypeTable* table = nullptr;
        EXPECT_EQ(database.getLinetypeTable(table, KdDb::kForWrite), Kdad::eOk);
        auto* linetype = new KdDbLinetypeTableRecord;
        linetype->setDashes(std::move(dashes));
        return addRecord(table, linetype, name);
    }

    kdhost::draw::Primitives primitives(const kdhost::draw::Options& options = {}) const {
        return kdhost::draw::primitivesOf(database, options);
    }

private:
    KdDbObjectId addRecord(KdDbSymbolTable* table, KdDbSymbolTableRecord* record, const wchar_t* name) {
        record->setName(name);
        KdDbObjectId id;
        EXPECT_EQ(table->add(id, record), Kdad::eOk);
        record->close();
        table->close();
        return id;
    }
};

/// The primitives of one kind, in their order.
template <class Kind>
std::vector<Kind> only(const kdhost::draw::Primitives& primitives) {
    std::vector<Kind> result;
    for (const auto& primitive : primitives) {
        if (const Kind* kind = std::get_if<Kind>(&primitive)) result.push_back(*kind);
    }
    return result;
}

}  // namespace kdtest
