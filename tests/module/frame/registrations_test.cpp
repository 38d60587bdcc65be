// What the loaded module has entered in the host's registries, and what it does where these aren't as they should be.

#include <gtest/gtest.h>

#include "host/ed/uicontext.h"
#include "host/rx/commandstack.h"
#include "host/rx/dynamiclinker.h"
#include "kd/db/table.h"
#include "kd/rx/dictionary.h"
#include "kd/rx/registry.h"
#include "kd/rx/service.h"
#include "tests/support/application.h"
#include "tests/support/resourcemodule.h"

namespace {

const wchar_t* const kTableModule = L"TvxTable.tvx";
const wchar_t* const kCommandStack = L"KDAD_REGISTERED_COMMANDS";

class ModuleRegistrations : public kdtest::ApplicationTest {
protected:
    void load() { ASSERT_TRUE(kdhost::dynamicLinker().loadModule(kTableModule)); }
    void unload() { ASSERT_TRUE(kdhost::dynamicLinker().unloadModule(kTableModule)); }
    void TearDown() override {
        if (kdhost::dynamicLinker().isModuleLoaded(kTableModule)) unload();
    }

    static KdRxDictionary& services() {
        return *KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"ServiceDictionary"));
    }
};

TEST_F(ModuleRegistrations, of_commands_name_the_modules_texts_but_for_the_one_added_by_hand) {
    load();
    const kdtest::ResourceModule resources;
    int count = 0;
    for (const kdhost::CommandRecord& record : kdhost::registeredCommands()) {
        if (record.group != L"TVX_TABLE_COMMANDS") continue;
        ++count;
        const bool addedByHand = record.globalName == L"-TABLE";
        EXPECT_EQ(record.resource, addedByHand ? nullptr : resources.handle()) << record.globalName;
        EXPECT_NE(record.function, nullptr);
        EXPECT_EQ(record.context, nullptr);
        EXPECT_EQ(record.fcode, -1);
    }
    EXPECT_EQ(count, 6);
}

TEST_F(ModuleRegistrations, stay_single_when_message_1_comes_again) {
    load();
    const std::size_t commands = kdhost::registeredCommands().size();
    const std::size_t reactors = host.documents().reactorCount();
    const KdRxObject* service = services().at(L"TVXTABLE_SERVICE");
    void* id = kdhost::applicationId(kTableModule);
    EXPECT_EQ(kdhost::sendMessage(id, 1, id), 0);
    EXPECT_EQ(kdhost::registeredCommands().size(), commands);
    EXPECT_EQ(host.documents().reactorCount(), reactors);
    EXPECT_EQ(kdhost::contextsFor(KdDbTable::desc()).length(), 1);
    EXPECT_EQ(services().at(L"TVXTABLE_SERVICE"), service);
}

TEST_F(ModuleRegistrations, of_the_service_leave_one_that_is_there) {
    ASSERT_TRUE(kdrxRegisterService(L"TVXTABLE_SERVICE"));
    const KdRxObject* service = services().at(L"TVXTABLE_SERVICE");
    load();
    EXPECT_EQ(services().at(L"TVXTABLE_SERVICE"), service);
    unload();
    EXPECT_FALSE(kdrxServiceIsRegistered(L"TVXTABLE_SERVICE"));
}

TEST_F(ModuleRegistrations, of_the_command_line_table_run_nothing) {
    load();
    host.document().noteSaved();
    const std::size_t before = host.messages().size();
    host.run(L"-TABLE\n");
    EXPECT_TRUE(host.failures().empty());
    EXPECT_FALSE(host.document().isChanged());
    EXPECT_TRUE(host.editor().input().isEmpty());
    EXPECT_EQ(host.messages().size(), before);
}

TEST_F(ModuleRegistrations, cannot_go_without_the_command_stack) {
    load();
    EXPECT_DEATH(
        {
            kdrxSysRegistry()->remove(kCommandStack);
            kdhost::sendMessage(kdhost::applicationId(kTableModule), 2);
        },
        "");
}

TEST_F(ModuleRegistrations, cannot_come_where_something_else_stands_for_the_command_stack_or_the_linker) {
    for (const wchar_t* name : {kCommandStack, L"DynamicLinker"}) {
        EXPECT_DEATH(
            {
                KdRxDynamicLinker& linker = kdhost::dynamicLinker();
                kdrxSysRegistry()->remove(name);
                kdrxSysRegistry()->atPut(name, new KdRxService);
                linker.loadModule(kTableModule);
            },
            "");
    }
}

}  // namespace
