// A toolbar that shows when the module is unloaded goes with it, and keeps nothing of it in memory.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QApplication>

#include "host/ed/picking.h"
#include "host/rx/dynamiclinker.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "module/core/openobject.h"
#include "tests/support/application.h"
#include "tests/support/places.h"
#include "tests/support/tablebuilder.h"

namespace kdtest {
namespace {

class ToolbarAtUnload : public ApplicationTest {
protected:
    KdDbObjectId addTable() {
        std::unique_ptr<KdDbTable> table = TableBuilder(3, 3).style(host.database().tablestyle()).build();
        KdDbObjectId id;
        const OpenObject<KdDbBlockTableRecord> space(host.database().modelSpaceId(), KdDb::kForWrite);
        EXPECT_EQ(space->appendKdDbEntity(id, table.get()), Kdad::eOk);
        table.release()->close();
        return id;
    }
    static int toolbars() {
        int count = 0;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String("IDD_TABLEDIT_DIALOG")) ++count;
        }
        return count;
    }
};

TEST_F(ToolbarAtUnload, goes_with_the_module_and_the_table_lives_on) {
    // The code that is linked into the tests may have a toolbar of its own, from tests before.
    const int others = toolbars();
    ASSERT_EQ(host.application().loadModule(L"TvxTable.tvx"), L"");
    const KdDbObjectId table = addTable();
    kdhost::selectCellsByUser(host.editor(), table, {0, 0, 1, 1});
    ASSERT_EQ(toolbars(), others + 1);
    ASSERT_TRUE(kdhost::dynamicLinker().unloadModule(L"TvxTable.tvx"));
    EXPECT_EQ(toolbars(), others);
    EXPECT_EQ(::dlopen(kdtest::builtFile("plugins/TvxTable.tvx").c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
    open->setSize(4, 4);
}

}  // namespace
}  // namespace kdtest
