// A toolbar that shows when the module is unloaded goes with it, and keeps nothing of it in memory.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include "host/ed/picking.h"
#include "host/rx/dynamiclinker.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "module/core/openobject.h"
#include "tests/support/application.h"
#include "tests/support/places.h"
#include "tests/support/tablebuilder.h"
#include "tvx/exports.h"

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
    static QWidgetList toolbars() {
        QWidgetList found;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String("IDD_TABLEDIT_DIALOG")) found.append(window);
        }
        return found;
    }
    /// The module's own. The code that is linked into the tests may have a toolbar too, from tests before.
    QPointer<QWidget> toolbar() const {
        for (QWidget* window : toolbars()) {
            if (!m_others.contains(window)) return window;
        }
        return nullptr;
    }

private:
    const QWidgetList m_others = toolbars();
};

TEST_F(ToolbarAtUnload, goes_with_the_module_and_the_table_lives_on) {
    ASSERT_EQ(host.application().loadModule(L"TvxTable.tvx"), L"");
    const KdDbObjectId table = addTable();
    kdhost::selectCellsByUser(host.editor(), table, {0, 0, 1, 1});
    ASSERT_NE(toolbar(), nullptr);
    ASSERT_TRUE(kdhost::dynamicLinker().unloadModule(L"TvxTable.tvx"));
    EXPECT_EQ(toolbar(), nullptr);
    EXPECT_EQ(::dlopen(kdtest::builtFile("plugins/TvxTable.tvx").c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
    open->setSize(4, 4);
}

TEST_F(ToolbarAtUnload, is_given_up_by_message_2_alone_and_goes_when_a_new_one_comes) {
    const std::wstring module = L"TvxTable.tvx";
    ASSERT_EQ(host.application().loadModule(module), L"");
    const auto show = reinterpret_cast<decltype(&::showTableToolBar)>(kdhost::findExport(module, "showTableToolBar"));
    ASSERT_NE(show, nullptr);
    const KdDbObjectId table = addTable();
    show(table, true);
    const QPointer<QWidget> first = toolbar();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(kdhost::sendMessage(kdhost::applicationId(module), KdRx::kUnloadAppMsg), 0);
    EXPECT_NE(first, nullptr) << "it is not destroyed yet";
    show(table, true);
    EXPECT_EQ(first, nullptr);
    ASSERT_TRUE(kdhost::dynamicLinker().unloadModule(module.c_str()));
}

}  // namespace
}  // namespace kdtest
