// Small helpers for tests of drawings: objects opened by class, entities and records put into a drawing.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/db/opening.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/field.h"
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

/// Appends to a block, the model space for one; the entity is closed.
inline KdDbObjectId appendTo(KdDbObjectId block, KdDbEntity* entity) {
    auto* record = mustOpen<KdDbBlockTableRecord>(block, KdDb::kForWrite);
    KdDbObjectId id;
    EXPECT_EQ(record->appendKdDbEntity(id, entity), Kdad::eOk);
    EXPECT_EQ(entity->close(), Kdad::eOk);
    record->close();
    return id;
}

/// The same to the model space.
inline KdDbObjectId append(KdDbDatabase& database, KdDbEntity* entity) {
    return appendTo(database.modelSpaceId(), entity);
}

inline KdDbObjectId appendLine(KdDbDatabase& database, double length = 1.0) {
    return append(database, new KdDbLine({0.0, 0.0, 0.0}, {length, 0.0, 0.0}));
}

/// Adds a record of class T under that name, prepared by `prepare(record)`; the record is closed.
template <class T, class Prepare>
KdDbObjectId addRecord(KdDbObjectId table, const wchar_t* name, Prepare prepare) {
    auto* open = mustOpen<KdDbSymbolTable>(table, KdDb::kForWrite);
    auto* record = new T;
    record->setName(name);
    prepare(*record);
    KdDbObjectId id;
    EXPECT_EQ(open->add(id, record), Kdad::eOk);
    record->close();
    open->close();
    return id;
}
template <class T>
KdDbObjectId addRecord(KdDbObjectId table, const wchar_t* name) {
    return addRecord<T>(table, name, [](T&) {});
}

/// A field of that code, in which its mark of child 0 stands for the child.
inline KdDbField* fieldAround(KdDbField* child, const wchar_t* code) {
    KdArray<KdDbField*> children;
    children.append(child);
    auto* field = new KdDbField;
    field->setFieldCode(code, KdDbField::kTextField, &children);
    return field;
}

}  // namespace kdtest
