// The built module in a running host: what message 1 brings, message 2 takes away again.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/ed/editor.h"
#include "host/ed/uicontext.h"
#include "host/rx/commandstack.h"
#include "host/rx/dynamiclinker.h"
#include "host/rx/faults.h"
#include "host/win32/modules.h"
#include "kd/db/table.h"
#include "kd/rx/dictionary.h"
#include "kd/rx/registry.h"
#include "kd/rx/service.h"
#include "mfc/resource.h"
#include "tests/support/application.h"
#include "tests/support/places.h"
#include "tests/support/resourcemodule.h"

namespace {

const std::wstring kModule = L"TvxTable.tvx";
const std::string kModulePath = kdtest::builtFile("plugins/TvxTable.tvx");
const std::string kResourcePath = kdtest::builtFile("plugins/TvxTableRes.dll");

bool isMapped(const std::string& path) {
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) dlclose(handle);
    return handle != nullptr;
}

/// The module's commands as "name flags local name", in the order of registering.
std::vector<std::wstring> moduleCommands() {
    std::vector<std::wstring> found;
    for (const kdhost::CommandRecord& record : kdhost::registeredCommands()) {
        if (record.group != L"TVX_TABLE_COMMANDS") continue;
        found.push_back(record.globalName + L" " + std::to_wstring(record.flags) + L" " + record.localName);
    }
    return found;
}

const std::vector<std::wstring> kAllCommands = {
    L"TABLESTYLE 0 TABLESTYLE",       L"TABLE 0 TABLE",   L"TABLEDIT 6 TABLEDIT", L"TABLEEXPORT 2 TABLEEXPORT",
    L"EDITTABLECELL 6 EDITTABLECELL", L"-TABLE 2 -TABLE",
};

bool serviceStands() {
    return kdrxServiceIsRegistered(L"TVXTABLE_SERVICE");
}

class ModuleLifecycle : public kdtest::ApplicationTest {
protected:
    void load() { ASSERT_TRUE(kdhost::dynamicLinker().loadModule(kModule.c_str())) << "the module loads"; }
    void unload() { ASSERT_TRUE(kdhost::dynamicLinker().unloadModule(kModule.c_str())) << "the module unloads"; }
    void TearDown() override {
        if (kdhost::dynamicLinker().isModuleLoaded(kModule.c_str())) unload();
    }
};

TEST_F(ModuleLifecycle, Commands_menu_service_and_reactor_come_and_go_and_come_back) {
    const std::size_t reactors = host.documents().reactorCount();
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(moduleCommands().empty());
        EXPECT_FALSE(serviceStands());
        EXPECT_TRUE(kdhost::contextsFor(KdDbTable::desc()).isEmpty());
        EXPECT_FALSE(isMapped(kModulePath));
        EXPECT_FALSE(isMapped(kResourcePath));

        load();
        EXPECT_EQ(moduleCommands(), kAllCommands);
        EXPECT_TRUE(serviceStands());
        EXPECT_EQ(kdhost::contextsFor(KdDbTable::desc()).length(), 1);
        EXPECT_EQ(host.documents().reactorCount(), reactors + 1);
        EXPECT_TRUE(isMapped(kModulePath));
        EXPECT_TRUE(isMapped(kResourcePath));

        unload();
        EXPECT_EQ(host.documents().reactorCount(), reactors);
    }
    EXPECT_TRUE(moduleCommands().empty());
    EXPECT_FALSE(serviceStands());
    EXPECT_FALSE(isMapped(kModulePath)) << "the module really leaves the process";
    EXPECT_FALSE(isMapped(kResourcePath)) << "and so does its resource module";
}

TEST_F(ModuleLifecycle, Message_2_takes_all_of_it_away_while_the_module_is_still_in_the_process) {
    const std::size_t reactors = host.documents().reactorCount();
    load();
    EXPECT_EQ(kdhost::sendMessage(kdhost::applicationId(kModule), 2), 0);
    EXPECT_TRUE(moduleCommands().empty());
    EXPECT_FALSE(serviceStands());
    EXPECT_TRUE(kdhost::contextsFor(KdDbTable::desc()).isEmpty());
    EXPECT_EQ(host.documents().reactorCount(), reactors);
    EXPECT_FALSE(isMapped(kResourcePath));
    EXPECT_TRUE(isMapped(kModulePath));
}

TEST_F(ModuleLifecycle, The_class_of_drawables_on_demand_comes_and_goes_by_its_name) {
    auto* classes = KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"ClassDictionary"));
    ASSERT_NE(classes, nullptr);
    constexpr const wchar_t* kName = L"KdGsDemandRegenGiDrawable";
    for (int round = 0; round < 2; ++round) {
        EXPECT_FALSE(classes->has(kName));
        load();
        const auto* description = KdRxObject::cast<KdRxClass>(classes->at(kName));
        ASSERT_NE(description, nullptr);
        EXPECT_STREQ(description->myParent()->name(), L"KdGsDrawable");
        unload();
    }
    EXPECT_FALSE(classes->has(kName));
}

TEST_F(ModuleLifecycle, The_application_may_be_unloaded_and_knows_documents) {
    load();
    void* id = kdhost::applicationId(kModule);
    ASSERT_NE(id, nullptr);
    EXPECT_TRUE(kdhost::dynamicLinker().isUnloadAllowed(id));
    EXPECT_TRUE(kdhost::dynamicLinker().isDocumentAware(id));
    EXPECT_EQ(kdhost::apiVersion(id), 0x7E50000u);
    EXPECT_EQ(kdhost::apiVersion(id), 132448256u);
}

TEST_F(ModuleLifecycle, Messages_without_a_handler_of_their_own_give_0_and_change_nothing) {
    load();
    void* id = kdhost::applicationId(kModule);
    for (std::uint32_t message : {0u, 3u, 4u, 5u, 6u, 7u, 8u, 9u, 10u, 11u, 12u, 13u, 14u, 15u}) {
        EXPECT_EQ(kdhost::sendMessage(id, message), 0) << message;
    }
    for (std::uint32_t message : {16u, 17u, 1000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(kdhost::sendMessage(id, message), 0) << message;
    }
    EXPECT_EQ(moduleCommands(), kAllCommands);
}

/// The module outside the linker, so that its first message may be any.
class BareModule {
public:
    BareModule() : m_handle(dlopen(kModulePath.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        if (m_handle != nullptr) m_entry = reinterpret_cast<KdRxEntryPoint>(dlsym(m_handle, "kdrxEntryPoint"));
    }
    ~BareModule() {
        if (m_handle != nullptr) dlclose(m_handle);
    }
    BareModule(const BareModule&) = delete;
    BareModule& operator=(const BareModule&) = delete;

    std::intptr_t send(std::uint32_t message) { return m_entry(message, nullptr); }
    bool isThere() const { return m_entry != nullptr; }

private:
    void* m_handle;
    KdRxEntryPoint m_entry = nullptr;
};

TEST_F(ModuleLifecycle, The_first_message_of_any_number_loads_the_resource_module) {
    for (std::uint32_t message : {0u, 7u, 16u, 99u}) {
        BareModule module;
        ASSERT_TRUE(module.isThere());
        EXPECT_FALSE(isMapped(kResourcePath)) << message;
        EXPECT_EQ(module.send(message), 0);
        EXPECT_TRUE(isMapped(kResourcePath)) << message;
        EXPECT_TRUE(moduleCommands().empty()) << message;
        EXPECT_EQ(module.send(2), 0);
        EXPECT_FALSE(isMapped(kResourcePath)) << message;
    }
}

TEST_F(ModuleLifecycle, Unloading_takes_the_command_line_table_command_away_by_its_group) {
    load();
    ASSERT_TRUE(kdhost::findCommand(L"-TABLE").has_value());
    EXPECT_NE(kdhost::commandStack().removeCmd(L"TVX_TABLE_COMMANDS", L"TABLE"), Kdad::eKeyNotFound);
    unload();
    EXPECT_FALSE(kdhost::findCommand(L"-TABLE").has_value());
}

TEST_F(ModuleLifecycle, A_missing_resource_module_leaves_commands_under_their_global_names) {
    kdhost::faults().noResourceModule = true;
    load();
    std::vector<std::wstring> names;
    for (const kdhost::CommandRecord& record : kdhost::registeredCommands()) {
        if (record.group == L"TVX_TABLE_COMMANDS") names.push_back(record.globalName + L"/" + record.localName);
    }
    EXPECT_EQ(names.size(), 6u);
    EXPECT_EQ(names.front(), L"TABLESTYLE/");
    host.run(L"-TABLE\n");
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(ModuleLifecycle, A_missing_service_dictionary_at_unload_is_no_error) {
    load();
    KdRxObject* services = kdrxSysRegistry()->remove(L"ServiceDictionary");
    ASSERT_NE(services, nullptr);
    unload();
    kdrxSysRegistry()->atPut(L"ServiceDictionary", services);
    EXPECT_TRUE(serviceStands()) << "the service entry is simply left";
    delete KdRxObject::cast<KdRxDictionary>(services)->remove(L"TVXTABLE_SERVICE");
}

TEST_F(ModuleLifecycle, A_missing_command_stack_stops_the_process) {
    EXPECT_DEATH(
        {
            kdrxSysRegistry()->remove(L"KDAD_REGISTERED_COMMANDS");
            kdhost::dynamicLinker().loadModule(kModule.c_str());
        },
        "");
}

TEST_F(ModuleLifecycle, A_missing_linker_stops_the_process) {
    EXPECT_DEATH(
        {
            BareModule module;
            kdrxSysRegistry()->remove(L"DynamicLinker");
            module.send(1);
        },
        "");
}

/// Keeps the resource handle that is in place while a command waits for the user: at a prompt, or in a dialog, which
/// it closes.
class HandlesAtWork : kdhost::PromptListener {
public:
    HandlesAtWork() {
        kdhost::setPromptListener(this);
        QObject::connect(&m_closing, &QTimer::timeout, [this] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            m_seen.push_back(AfxGetResourceHandle());
            dialog->close();
        });
        m_closing.start();
    }
    ~HandlesAtWork() override { kdhost::setPromptListener(nullptr); }
    HandlesAtWork(const HandlesAtWork&) = delete;
    HandlesAtWork& operator=(const HandlesAtWork&) = delete;

    std::vector<HINSTANCE> take() { return std::exchange(m_seen, {}); }

private:
    void prompted(const kdhost::Editor& editor) override {
        if (editor.promptKind() != kdhost::PromptKind::Command) m_seen.push_back(AfxGetResourceHandle());
    }

    std::vector<HINSTANCE> m_seen;
    QTimer m_closing;
};

TEST_F(ModuleLifecycle, Each_command_works_with_the_modules_resources_and_leaves_the_handle_as_it_found_it) {
    load();
    const kdtest::ResourceModule resources;
    const auto marker = reinterpret_cast<HINSTANCE>(std::uintptr_t{1});
    AfxSetResourceHandle(marker);
    HandlesAtWork handles;
    for (const wchar_t* command : {L"TABLE\n", L"TABLESTYLE\n", L"TABLEDIT\n", L"TABLEEXPORT\n", L"EDITTABLECELL\n"}) {
        host.run(command);
        EXPECT_EQ(handles.take(), std::vector<HINSTANCE>{resources.handle()}) << std::wstring(command);
        EXPECT_EQ(AfxGetResourceHandle(), marker) << std::wstring(command);
    }
    host.run(L"-TABLE\n");
    EXPECT_TRUE(handles.take().empty()) << "it asks nothing";
    EXPECT_EQ(AfxGetResourceHandle(), marker);
}

TEST_F(ModuleLifecycle, Commands_answer_to_their_names_among_the_texts_of_the_hosts_language) {
    struct Row {
        std::wstring command;
        unsigned name;
    };
    const std::vector<Row> rows = {
        {L"TABLESTYLE", 2002},  {L"TABLE", 2005},         {L"TABLEDIT", 2101},
        {L"TABLEEXPORT", 2052}, {L"EDITTABLECELL", 6206}, {L"-TABLE", 2009},
    };
    for (const auto language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        load();
        EXPECT_EQ(moduleCommands().size(), rows.size());
        const kdtest::ResourceModule resources;
        for (const Row& row : rows) {
            const std::wstring name = *kdhost::moduleText(resources.handle(), row.name);
            const std::optional<kdhost::CommandRecord> found = kdhost::findCommand(name);
            EXPECT_EQ(found ? found->globalName : L"", row.command);
            EXPECT_EQ(found ? found->localName : L"", name) << row.command;
        }
        unload();
    }
    kdhost::setLanguage(kdhost::Language::English);
}

TEST_F(ModuleLifecycle, The_module_follows_documents_that_come_and_go) {
    load();
    kdhost::Document& first = host.document();
    host.run(L"NEW\n");
    EXPECT_EQ(host.documents().documentCount(), 2);
    host.run(L"DOCUMENT\n1\n");
    EXPECT_EQ(&host.document(), &first);
    EXPECT_TRUE(host.failures().empty());
}

}  // namespace
