// A drawing with a line in it, and changes that are steps of undo.
#pragma once

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/db/undo.h"
#include "tests/support/objects.h"

namespace kdtest {

class Undo : public ::testing::Test {
protected:
    kdhost::UndoHistory& history() { return *kdhost::undoHistory(m_database); }

    /// Makes one step of the change.
    template <class Change>
    void step(Change change, const wchar_t* name = L"STEP") {
        const kdhost::UndoCommandScope command(&m_database, name);
        change();
    }
    template <class Change>
    void mark(const wchar_t* name, Change change) {
        history().beginMark(name, {});
        change();
        history().endMark();
    }

    /// Changes an open object.
    template <class T, class Change>
    void edit(KdDbObjectId id, Change change) {
        auto* object = mustOpen<T>(id, KdDb::kForWrite);
        ASSERT_NE(object, nullptr);
        change(*object);
        object->close();
    }
    void stretch(double length) {
        edit<KdDbLine>(m_line, [&](KdDbLine& line) { line.setEndPoint({length, 0.0, 0.0}); });
    }
    double length() { return kdhost::peek<KdDbLine>(m_line)->endPoint().x; }

    KdDbDatabase m_database;
    KdDbObjectId m_line = kdtest::appendLine(m_database);
};

}  // namespace kdtest
