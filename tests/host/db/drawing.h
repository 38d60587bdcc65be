// Small helpers for the tests of the drawing database: things in the model space, opens by class.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/db/opening.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"

namespace kdtest {

/// Opens an object that must open.
template <class T>
T* mustOpen(KdDbObjectId id, KdDb::OpenMode mode = KdDb::kForRead) {
    KdDbObject* object = nullptr;
    EXPECT_EQ(kddbOpenObject(object, id, mode, false, T::desc()), Kdad::eOk);
    return static_cast<T*>(object);
}

/// Appends to the model space; the entity is closed.
inline KdDbObjectId append(KdDbDatabase& database, KdDbEntity* entity) {
    auto* space = mustOpen<KdDbBlockTableRecord>(database.modelSpaceId(), KdDb::kForWrite);
    KdDbObjectId id;
    EXPECT_EQ(space->appendKdDbEntity(id, entity), Kdad::eOk);
    EXPECT_EQ(entity->close(), Kdad::eOk);
    space->close();
    return id;
}

inline KdDbObjectId appendLine(KdDbDatabase& database, double length = 1.0) {
    return append(database, new KdDbLine({0.0, 0.0, 0.0}, {length, 0.0, 0.0}));
}

/// Adds a record of class T under that name; the record is closed.
template <class T>
KdDbObjectId addRecord(KdDbObjectId table, const wchar_t* name) {
    auto* open = mustOpen<KdDbSymbolTable>(table, KdDb::kForWrite);
    auto* record = new T;
    record->setName(name);
    KdDbObjectId id;
    EXPECT_EQ(open->add(id, record), Kdad::eOk);
    record->close();
    open->close();
    return id;
}

}  // namespace kdtest
