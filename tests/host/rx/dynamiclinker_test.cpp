// The dynamic linker, on a real module that it maps and unmaps.

#include "host/rx/dynamiclinker.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/win32/modules.h"
#include "kd/rx/registry.h"
#include "tests/host/rx/plugin/probelog.h"
#include "tests/support/places.h"

namespace {

constexpr const wchar_t* kProbe = L"LinkerProbe.tvx";
constexpr std::intptr_t kThrow = -1;

std::string probePath() {
    return kdtest::builtFile("test_plugins/LinkerProbe.tvx");
}

bool isMapped(const std::string& path) {
    void* const library = ::dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (library == nullptr) return false;
    ::dlclose(library);
    return true;
}

/// The folder of plug-ins is that of the test module; its messages are recorded.
class DynamicLinkerTest : public ::testing::Test, public kdtest::ProbeLog {
protected:
    using Messages = std::vector<std::uint32_t>;

    void SetUp() override {
        kdhost::setPluginFolder(kdtest::builtFile("test_plugins"));
        kdrxSysRegistry()->atPut(kdtest::kProbeLogName, this);
    }

    void TearDown() override {
        m_answer = nullptr;
        if (m_linker.isModuleLoaded(kProbe)) {
            m_linker.allowUnload(kdhost::applicationId(kProbe));
            m_linker.unloadModule(kProbe);
        }
        kdrxSysRegistry()->remove(kdtest::kProbeLogName);
        kdhost::setOpenDocumentCount(nullptr);
        kdhost::setPluginFolder(m_pluginFolder);
    }

    std::intptr_t received(std::uint32_t message, void* argument) override {
        m_messages.push_back(message);
        m_arguments.push_back(argument);
        m_handling.push_back(kdhost::messagedApplication());
        return m_answer ? m_answer(message) : 0;
    }

    void* load() {
        EXPECT_TRUE(m_linker.loadModule(kProbe));
        return kdhost::applicationId(kProbe);
    }

    KdRxDynamicLinker& m_linker = kdhost::dynamicLinker();
    Messages m_messages;
    std::vector<void*> m_arguments;
    std::vector<void*> m_handling;
    std::function<std::intptr_t(std::uint32_t)> m_answer;

private:
    std::string m_pluginFolder = kdhost::pluginFolder();
};

}  // namespace

TEST_F(DynamicLinkerTest, a_loaded_module_is_told_its_id_and_each_open_document) {
    kdhost::setOpenDocumentCount([] { return 2; });
    void* const id = load();
    EXPECT_EQ(m_messages, (Messages{KdRx::kInitAppMsg, KdRx::kLoadDwgMsg, KdRx::kLoadDwgMsg}));
    EXPECT_EQ(m_arguments, (std::vector<void*>{id, nullptr, nullptr}));
    EXPECT_TRUE(m_linker.isModuleLoaded(kProbe));
    EXPECT_EQ(kdhost::apiVersion(id), 0x07E50000u);
    EXPECT_EQ(kdhost::lastLoadError(), L"");
}

TEST_F(DynamicLinkerTest, unloading_tells_each_document_first_and_really_unmaps) {
    kdhost::setOpenDocumentCount([] { return 2; });
    void* const id = load();
    EXPECT_TRUE(isMapped(probePath()));
    m_messages.clear();
    EXPECT_TRUE(m_linker.allowUnload(id));
    EXPECT_TRUE(m_linker.unloadModule(kProbe));
    EXPECT_EQ(m_messages, (Messages{KdRx::kUnloadDwgMsg, KdRx::kUnloadDwgMsg, KdRx::kUnloadAppMsg}));
    EXPECT_FALSE(m_linker.isModuleLoaded(kProbe));
    EXPECT_FALSE(isMapped(probePath()));
    EXPECT_EQ(kdhost::applicationId(kProbe), nullptr);
}

TEST_F(DynamicLinkerTest, a_module_loaded_again_starts_afresh) {
    for (int round = 0; round < 3; ++round) {
        void* const id = load();
        const auto counter = reinterpret_cast<int (*)()>(kdhost::findExport(kProbe, "probeMessagesSinceMapped"));
        ASSERT_NE(counter, nullptr);
        EXPECT_EQ(counter(), 1);
        kdhost::sendMessage(id, KdRx::kCfgMsg);
        EXPECT_EQ(counter(), 2);
        EXPECT_FALSE(m_linker.isUnloadAllowed(id));
        m_linker.allowUnload(id);
        ASSERT_TRUE(m_linker.unloadModule(kProbe));
        ASSERT_FALSE(isMapped(probePath()));
    }
}

TEST_F(DynamicLinkerTest, a_modules_classes_go_with_it) {
    auto* const classes = KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"ClassDictionary"));
    void* const id = load();
    EXPECT_TRUE(classes->has(L"ProbeObject"));
    m_linker.allowUnload(id);
    m_linker.unloadModule(kProbe);
    EXPECT_FALSE(classes->has(L"ProbeObject"));
}

TEST_F(DynamicLinkerTest, a_module_that_was_not_marked_stays_loaded) {
    load();
    m_messages.clear();
    EXPECT_FALSE(m_linker.unloadModule(kProbe));
    EXPECT_TRUE(m_linker.isModuleLoaded(kProbe));
    EXPECT_TRUE(m_messages.empty());
}

TEST_F(DynamicLinkerTest, a_module_is_loaded_once_whatever_its_folder_reads) {
    load();
    m_messages.clear();
    EXPECT_FALSE(m_linker.loadModule(kProbe));
    EXPECT_FALSE(m_linker.loadModule(QString::fromStdString(probePath()).toStdWString().c_str()));
    EXPECT_TRUE(m_messages.empty());
    EXPECT_NE(kdhost::lastLoadError(), L"");
    EXPECT_TRUE(m_linker.isModuleLoaded(L"/elsewhere/LinkerProbe.tvx"));
}

TEST_F(DynamicLinkerTest, a_name_with_a_folder_is_loaded_from_there) {
    kdhost::setPluginFolder("/nowhere");
    EXPECT_FALSE(m_linker.loadModule(kProbe));
    EXPECT_TRUE(m_linker.loadModule(QString::fromStdString(probePath()).toStdWString().c_str()));
    EXPECT_TRUE(m_linker.isModuleLoaded(kProbe));
}

TEST_F(DynamicLinkerTest, files_that_are_no_modules_are_refused_and_leave_nothing_mapped) {
    QTemporaryDir folder;
    QFile text(folder.filePath(QStringLiteral("text.tvx")));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no library\n");
    text.close();
    const std::string withoutExports = kdtest::builtFile("plugins/TvxTableRes.dll");
    ASSERT_FALSE(isMapped(withoutExports));

    const std::wstring refused[] = {L"Missing.tvx",
                                    L"/nowhere/Missing.tvx",
                                    text.fileName().toStdWString(),
                                    L"",
                                    folder.path().toStdWString() + L"/",
                                    QString::fromStdString(withoutExports).toStdWString()};
    for (const std::wstring& path : refused) {
        EXPECT_FALSE(m_linker.loadModule(path.c_str())) << QString::fromStdWString(path).toStdString();
        EXPECT_NE(kdhost::lastLoadError(), L"");
    }
    EXPECT_FALSE(m_linker.loadModule(nullptr));
    EXPECT_FALSE(isMapped(withoutExports));
    EXPECT_TRUE(kdhost::loadedApplications().empty());
}

TEST_F(DynamicLinkerTest, a_module_that_fails_to_initialise_is_unmapped_again) {
    m_answer = [](std::uint32_t) { return kThrow; };
    EXPECT_FALSE(m_linker.loadModule(kProbe));
    EXPECT_FALSE(m_linker.isModuleLoaded(kProbe));
    EXPECT_FALSE(isMapped(probePath()));
    EXPECT_EQ(kdhost::messagedApplication(), nullptr);
}

TEST_F(DynamicLinkerTest, an_exception_at_unloading_does_not_keep_the_module) {
    void* const id = load();
    m_linker.allowUnload(id);
    m_answer = [](std::uint32_t) { return kThrow; };
    EXPECT_TRUE(m_linker.unloadModule(kProbe));
    EXPECT_FALSE(isMapped(probePath()));
}

TEST_F(DynamicLinkerTest, a_module_that_handles_a_message_is_not_unloaded) {
    void* const id = load();
    m_linker.allowUnload(id);
    bool unloaded = true;
    m_answer = [&](std::uint32_t) {
        unloaded = m_linker.unloadModule(kProbe);
        return std::intptr_t{0};
    };
    kdhost::sendMessage(id, KdRx::kCfgMsg);
    EXPECT_FALSE(unloaded);
    EXPECT_TRUE(m_linker.isModuleLoaded(kProbe));
}

TEST_F(DynamicLinkerTest, the_marks_belong_to_the_application_and_start_unset) {
    void* const id = load();
    EXPECT_FALSE(m_linker.isUnloadAllowed(id));
    EXPECT_FALSE(m_linker.isDocumentAware(id));
    EXPECT_TRUE(m_linker.declareDocumentAware(id));
    EXPECT_TRUE(m_linker.isDocumentAware(id));
    EXPECT_FALSE(m_linker.isUnloadAllowed(id));
    EXPECT_TRUE(m_linker.allowUnload(id));
    EXPECT_TRUE(m_linker.isUnloadAllowed(id));
}

TEST_F(DynamicLinkerTest, an_unknown_id_is_refused_everywhere) {
    int unknown = 0;
    for (void* id : {static_cast<void*>(nullptr), static_cast<void*>(&unknown)}) {
        EXPECT_FALSE(m_linker.allowUnload(id));
        EXPECT_FALSE(m_linker.isUnloadAllowed(id));
        EXPECT_FALSE(m_linker.declareDocumentAware(id));
        EXPECT_FALSE(m_linker.isDocumentAware(id));
        EXPECT_EQ(kdhost::sendMessage(id, KdRx::kCfgMsg), 0);
        EXPECT_EQ(kdhost::apiVersion(id), 0u);
    }
    EXPECT_FALSE(m_linker.unloadModule(kProbe));
    EXPECT_FALSE(m_linker.unloadModule(nullptr));
    EXPECT_FALSE(m_linker.isModuleLoaded(nullptr));
}

TEST_F(DynamicLinkerTest, a_message_reaches_the_module_with_its_argument_and_answers) {
    void* const id = load();
    m_answer = [](std::uint32_t message) { return static_cast<std::intptr_t>(message) * 10; };
    int argument = 0;
    EXPECT_EQ(kdhost::sendMessage(id, KdRx::kSaveMsg, &argument), 90);
    EXPECT_EQ(m_arguments.back(), &argument);
    kdhost::sendMessage(KdRx::kEndMsg, &argument);
    EXPECT_EQ(m_messages.back(), KdRx::kEndMsg);
}

TEST_F(DynamicLinkerTest, the_module_that_handles_a_message_is_known_meanwhile_and_no_longer) {
    void* const id = load();
    kdhost::sendMessage(KdRx::kInvkSubrMsg);
    EXPECT_EQ(m_handling, (std::vector<void*>{id, id}));
    EXPECT_EQ(kdhost::messagedApplication(), nullptr);
}

TEST_F(DynamicLinkerTest, only_the_modules_own_exports_are_found) {
    load();
    EXPECT_NE(kdhost::findExport(kProbe, "probeMessagesSinceMapped"), nullptr);
    EXPECT_EQ(kdhost::findExport(kProbe, "noSuchFunction"), nullptr);
    EXPECT_EQ(kdhost::findExport(kProbe, "malloc"), nullptr);
    EXPECT_EQ(kdhost::findExport(kProbe, nullptr), nullptr);
    EXPECT_EQ(kdhost::findExport(L"Missing.tvx", "kdrxEntryPoint"), nullptr);
}
