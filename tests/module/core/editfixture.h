// What tests of edits share: a drawing with tables in it, the module's texts, and a look at the steps of undo.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "host/db/access.h"
#include "host/db/undo.h"
#include "host/rx/faults.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "mfc/resource.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "tests/module/core/sampletables.h"
#include "tests/support/application.h"
#include "tests/support/boxanswers.h"
#include "tests/support/tablebuilder.h"
#include "tvx/exports.h"

namespace kdtest {

class TableEdits : public ApplicationTest {
protected:
    void SetUp() override {
        hLibModule = LoadResourceDll(L"TvxTableRes.dll");
        ASSERT_NE(hLibModule, nullptr);
    }
    void TearDown() override {
        // Editing shows the toolbar, which is the module's and outlives the drawing.
        showTableToolBar(KdDbObjectId::kNull, false);
        FreeLibrary(std::exchange(hLibModule, nullptr));
    }

    KdDbObjectId append(KdDbEntity* entity) {
        KdDbObjectId id;
        OpenObject<KdDbBlockTableRecord> space(host.database().modelSpaceId(), KdDb::kForWrite);
        EXPECT_TRUE(space);
        EXPECT_EQ(space->appendKdDbEntity(id, entity), Kdad::eOk);
        entity->close();
        return id;
    }
    KdDbObjectId add(std::unique_ptr<KdDbTable> table) { return append(table.release()); }
    KdDbObjectId add(TableBuilder& builder) { return add(builder.build()); }
    KdDbObjectId add(TableBuilder&& builder) { return add(builder.build()); }

    /// The table as it stands, whoever holds it open.
    static const KdDbTable& look(KdDbObjectId id) { return *kdhost::peek<KdDbTable>(id); }
    static void select(KdDbObjectId id, const KdCellRange& range) {
        OpenObject<KdDbTable>(id, KdDb::kForRead)->setSubSelection(range);
    }
    static void select(KdDbObjectId id, const char* range) { select(id, cells(range)); }
    static KdCellRange selection(KdDbObjectId id) { return look(id).getSubSelection(); }

    kdhost::UndoHistory& undoHistory() { return *kdhost::undoHistory(host.database()); }
    std::vector<std::wstring> steps() { return undoHistory().undoSteps(); }
};

/// An operation on a table's selection.
using Edit = int (*)(KdDbObjectId);

}  // namespace kdtest
