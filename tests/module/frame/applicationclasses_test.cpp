// The application classes on tables of their own: runtime classes and LISP-side functions come and go.

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "host/ed/lispfunctions.h"
#include "host/rx/commandstack.h"
#include "host/rx/dynamiclinker.h"
#include "host/win32/modules.h"
#include "kd/ed/lispfunctions.h"
#include "kd/rx/dynamiclinker.h"
#include "kd/rx/registry.h"
#include "module/core/resources.h"
#include "module/frame/tvxtableapp.h"
#include "tests/host/rx/plugin/probelog.h"
#include "tests/support/application.h"
#include "tests/support/places.h"
#include "tests/support/resourcemodule.h"
#include "tests/support/virtualslots.h"

namespace {

bool inClassDictionary(const wchar_t* name) {
    auto* classes = KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"ClassDictionary"));
    return classes != nullptr && classes->has(name);
}

/// Classes of a test's own, made anew by each: one that was taken out of the dictionary doesn't come back.
class Generations {
public:
    Generations() {
        classes = {&m_first, &m_second, &m_third};
        seenWithoutParent = false;
    }

    /// The frame asks for descriptions between one removal and the next.
    template <std::size_t generation>
    static KdRxClass* description() {
        for (std::size_t i = 1; i < classes.size(); ++i) {
            const bool parentStands = inClassDictionary(classes[i - 1]->name());
            if (inClassDictionary(classes[i]->name()) && !parentStands) seenWithoutParent = true;
        }
        return classes[generation];
    }

    static inline std::array<KdRxClass*, 3> classes{};
    static inline bool seenWithoutParent = false;

private:
    KdRxClass m_first{L"FrameTestFirst", KdRxObject::desc()};
    KdRxClass m_second{L"FrameTestSecond", &m_first};
    KdRxClass m_third{L"FrameTestThird", &m_second};
};

int initialised = 0;
void initialise() {
    ++initialised;
}

int called = 0;
int lispFunction() {
    return ++called;
}

/// An application with classes and LISP-side functions, as a module with both would have.
class Application : public KdRxTvxApp {
public:
    void RegisterServerComponents() override { ++serverComponents; }
    int serverComponents = 0;
};

/// The module's own commands stay out of these tests. LISP-side functions belong to a drawing.
class FrameTables : public kdtest::ApplicationTest {
protected:
    void SetUp() override {
        m_commands = commandTable();
        commandTable().setLogicalLength(0);
    }
    void TearDown() override {
        commandTable() = m_commands;
        classTable().setLogicalLength(0);
        lispFunctionTable().setLogicalLength(0);
    }

private:
    KdArray<_TVXCOMMAND_ENTRY*> m_commands;
};

TEST_F(FrameTables, Classes_are_registered_at_message_1_and_go_at_message_2_after_their_descendants) {
    const Generations generations;
    _DBX_REGISTER_OBJECT_ENTRY rows[] = {
        {Generations::description<0>, initialise, false},
        {Generations::description<1>, initialise, false},
        {Generations::description<2>, initialise, false},
    };
    for (_DBX_REGISTER_OBJECT_ENTRY& row : rows) {
        classTable().append(&row);
        classTable().append(nullptr);
    }
    initialised = 0;

    Application application;
    EXPECT_EQ(application.On_kInitAppMsg(nullptr), 0);
    EXPECT_EQ(initialised, 3);
    EXPECT_EQ(application.serverComponents, 1);
    for (const _DBX_REGISTER_OBJECT_ENTRY& row : rows) EXPECT_TRUE(row.registered);
    for (const KdRxClass* cls : Generations::classes) EXPECT_TRUE(inClassDictionary(cls->name())) << cls->name();

    EXPECT_EQ(application.On_kUnloadAppMsg(nullptr), 0);
    for (const _DBX_REGISTER_OBJECT_ENTRY& row : rows) EXPECT_FALSE(row.registered);
    for (const KdRxClass* cls : Generations::classes) EXPECT_FALSE(inClassDictionary(cls->name())) << cls->name();
    EXPECT_FALSE(Generations::seenWithoutParent);
    EXPECT_EQ(classTable().length(), 0);
}

TEST_F(FrameTables, A_class_that_message_1_did_not_register_stays_at_message_2) {
    const Generations generations;
    kdrxBuildClassHierarchy();
    _DBX_REGISTER_OBJECT_ENTRY row{Generations::description<0>, initialise, false};
    classTable().append(&row);
    Application application;
    EXPECT_EQ(application.On_kUnloadAppMsg(nullptr), 0);
    EXPECT_TRUE(inClassDictionary(L"FrameTestFirst"));
    EXPECT_EQ(classTable().length(), 0);
}

TEST_F(FrameTables, An_empty_class_table_leaves_described_classes_where_they_are) {
    const KdRxClass described(L"FrameTestDescribed", KdRxObject::desc());
    Application application;
    EXPECT_EQ(application.On_kInitAppMsg(nullptr), 0);
    EXPECT_FALSE(inClassDictionary(L"FrameTestDescribed"));
    EXPECT_EQ(application.On_kUnloadAppMsg(nullptr), 0);
    kdrxBuildClassHierarchy();
    EXPECT_TRUE(inClassDictionary(L"FrameTestDescribed")) << "it only waits for its turn";
}

TEST_F(FrameTables, A_call_without_a_function_code_calls_nothing_and_gives_0) {
    _KFSSYMBOL_ENTRY row{L"FRAMETEST", lispFunction, 0, 0};
    lispFunctionTable().append(&row);
    called = 0;
    Application application;
    EXPECT_EQ(kdedGetFunCode(), -1);
    EXPECT_EQ(application.On_kInvkSubrMsg(nullptr), 0);
    EXPECT_EQ(called, 0);
}

TEST_F(FrameTables, Lisp_functions_are_offered_with_a_drawing_and_withdrawn_with_it) {
    _KFSSYMBOL_ENTRY row{L"FRAMETEST", lispFunction, 1, 0};
    lispFunctionTable().append(nullptr);
    lispFunctionTable().append(&row);
    Application application;
    EXPECT_EQ(application.On_kLoadDwgMsg(nullptr), 0);
    EXPECT_EQ(kdedUndef(L"FRAMETEST", 1), 5100) << "the function stood under its index in the table";
    EXPECT_EQ(application.On_kLoadDwgMsg(nullptr), 0);
    EXPECT_EQ(application.On_kUnloadDwgMsg(nullptr), 0);
    EXPECT_NE(kdedUndef(L"FRAMETEST", 1), 5100) << "nothing is left to withdraw";
}

TEST_F(FrameTables, A_lisp_function_is_called_directly_where_its_row_registers_it) {
    _KFSSYMBOL_ENTRY rows[] = {
        {L"FRAMETEST", lispFunction, 1, 0},
        {L"FRAMETEST2", lispFunction, 2, 0},
        {L"FRAMETEST3", lispFunction, -1, 0},
        {L"FRAMETEST4", lispFunction, 0, 0},
    };
    for (_KFSSYMBOL_ENTRY& row : rows) lispFunctionTable().append(&row);
    Application application;
    application.On_kLoadDwgMsg(nullptr);
    for (const _KFSSYMBOL_ENTRY& row : rows) {
        called = 0;
        EXPECT_TRUE(kdhost::runLispFunction(row.name));
        // The application of this test hears no messages.
        EXPECT_EQ(called, row.registerFunction != 0 ? 1 : 0) << row.registerFunction;
    }
    application.On_kUnloadDwgMsg(nullptr);
}

/// What a loaded module hears goes to an application of the test.
class HeardByApplication : public kdtest::ProbeLog {
public:
    HeardByApplication() {
        kdhost::setPluginFolder(kdtest::builtFile("test_plugins"));
        kdrxSysRegistry()->atPut(kdtest::kProbeLogName, this);
        EXPECT_TRUE(kdhost::dynamicLinker().loadModule(kModule));
    }
    ~HeardByApplication() override {
        kdhost::dynamicLinker().allowUnload(kdhost::applicationId(kModule));
        EXPECT_TRUE(kdhost::dynamicLinker().unloadModule(kModule));
        kdrxSysRegistry()->remove(kdtest::kProbeLogName);
        kdhost::setPluginFolder(m_pluginFolder);
    }

    std::intptr_t received(std::uint32_t message, void* argument) override {
        if (message == KdRx::kLoadDwgMsg) return m_application.On_kLoadDwgMsg(argument);
        if (message == KdRx::kUnloadDwgMsg) return m_application.On_kUnloadDwgMsg(argument);
        if (message != KdRx::kInvkSubrMsg) return 0;
        return m_answers.emplace_back(m_application.On_kInvkSubrMsg(argument));
    }
    /// To the calls so far.
    const std::vector<int>& answers() const { return m_answers; }

private:
    static constexpr const wchar_t* kModule = L"LinkerProbe.tvx";
    const std::string m_pluginFolder = kdhost::pluginFolder();
    Application m_application;
    std::vector<int> m_answers;
};

TEST_F(FrameTables, A_lisp_function_that_its_row_doesnt_register_is_called_by_a_message_with_its_code) {
    static int calledOther;
    calledOther = called = 0;
    _KFSSYMBOL_ENTRY row{L"FRAMETEST", lispFunction, 0, 0};
    _KFSSYMBOL_ENTRY other{L"FRAMETEST2", [] { return ++calledOther; }, 0, 0};
    lispFunctionTable().append(&row);
    lispFunctionTable().append(nullptr);
    lispFunctionTable().append(&other);
    {
        const HeardByApplication heard;
        EXPECT_TRUE(kdhost::runLispFunction(L"FRAMETEST2"));
        EXPECT_EQ(called, 0);
        EXPECT_EQ(calledOther, 1);
        EXPECT_TRUE(kdhost::runLispFunction(L"frametest"));
        EXPECT_EQ(called, 1);
        EXPECT_EQ(calledOther, 1);
        EXPECT_EQ(kdedGetFunCode(), -1) << "the code stands only while the message does";
        EXPECT_EQ(heard.answers(), (std::vector<int>{0, 0})) << "whatever the functions give";
    }
    EXPECT_FALSE(kdhost::runLispFunction(L"FRAMETEST")) << "gone with the module";
}

TEST_F(FrameTables, The_lower_application_takes_drawings_and_calls_without_doing_anything) {
    struct : KdRxDbxApp {
        void RegisterServerComponents() override {}
    } application;
    _KFSSYMBOL_ENTRY row{L"FRAMETEST", lispFunction, 1, 0};
    lispFunctionTable().append(&row);
    called = 0;
    EXPECT_EQ(application.On_kLoadDwgMsg(nullptr), 0);
    EXPECT_FALSE(kdhost::runLispFunction(L"FRAMETEST"));
    EXPECT_EQ(application.On_kInvkSubrMsg(nullptr), 0);
    EXPECT_EQ(application.On_kUnloadDwgMsg(nullptr), 0);
    EXPECT_EQ(called, 0);
}

/// The tables with the module's texts behind them.
class FrameTexts : public FrameTables {
protected:
    FrameTexts() { _hdllInstance = resources.handle(); }
    ~FrameTexts() override { _hdllInstance = nullptr; }

    /// What message 1 registers in the group of the rows below.
    static std::vector<kdhost::CommandRecord> registered() {
        std::vector<kdhost::CommandRecord> records;
        for (const kdhost::CommandRecord& record : kdhost::registeredCommands()) {
            if (record.group == L"FRAMETEST_GROUP") records.push_back(record);
        }
        return records;
    }
    static std::vector<std::wstring> registeredNames() {
        std::vector<std::wstring> names;
        for (const kdhost::CommandRecord& record : registered()) names.push_back(record.localName);
        return names;
    }

    kdtest::ResourceModule resources;
    Application application;
};

constexpr const wchar_t* kGroup = L"FRAMETEST_GROUP";
constexpr int kTextOfTableStyle = 2002;
constexpr int kTextOfMerging = 2099;
constexpr int kTextOfEditWords = 6217;
constexpr int kNoText = 1;
void command() {}

TEST_F(FrameTexts, A_command_is_registered_as_its_row_has_it) {
    int context = 0;
    constexpr int apart = 1 << 21 | 6;
    _TVXCOMMAND_ENTRY own{kGroup, L"FRAMETEST", L"FRAMETEST_LOCAL", 5, command, &context, kTextOfTableStyle};
    _TVXCOMMAND_ENTRY text{kGroup, L"FRAMETEST2", nullptr, 0, command, nullptr, kTextOfTableStyle};
    _TVXCOMMAND_ENTRY without{kGroup, L"FRAMETEST3", L"FRAMETEST3_LOCAL", apart, command, nullptr, 0};
    for (_TVXCOMMAND_ENTRY* row : {&own, static_cast<_TVXCOMMAND_ENTRY*>(nullptr), &text, &without}) {
        commandTable().append(row);
    }
    EXPECT_EQ(application.On_kInitAppMsg(nullptr), 0);
    const std::vector<kdhost::CommandRecord> records = registered();
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[0].globalName, L"FRAMETEST");
    EXPECT_EQ(records[0].localName, L"FRAMETEST_LOCAL");
    EXPECT_EQ(records[0].flags, 5);
    EXPECT_EQ(records[0].function, command);
    EXPECT_EQ(records[0].context, &context);
    EXPECT_EQ(records[0].fcode, -1);
    EXPECT_EQ(records[0].resource, resources.handle());
    EXPECT_EQ(records[1].localName, L"TABLESTYLE");
    EXPECT_EQ(records[1].resource, resources.handle());
    EXPECT_EQ(records[2].flags, apart);
    EXPECT_EQ(records[2].resource, nullptr);

    _KFSSYMBOL_ENTRY function{L"FRAMETEST", lispFunction, 1, 0};
    lispFunctionTable().append(&function);
    EXPECT_EQ(application.On_kUnloadAppMsg(nullptr), 0);
    EXPECT_TRUE(registered().empty());
    EXPECT_EQ(commandTable().length(), 0);
    EXPECT_EQ(lispFunctionTable().length(), 0);
}

TEST_F(FrameTexts, A_command_without_its_text_is_known_by_the_text_loaded_last) {
    _TVXCOMMAND_ENTRY rows[] = {
        {kGroup, L"FRAMETEST", nullptr, 0, command, nullptr, kNoText},
        {kGroup, L"FRAMETEST2", nullptr, 0, command, nullptr, kTextOfTableStyle},
        {kGroup, L"FRAMETEST3", L"FRAMETEST3_LOCAL", 0, command, nullptr, 0},
        {kGroup, L"FRAMETEST4", nullptr, 0, command, nullptr, kNoText},
    };
    for (_TVXCOMMAND_ENTRY& row : rows) commandTable().append(&row);
    application.On_kInitAppMsg(nullptr);
    EXPECT_EQ(registeredNames(), (std::vector<std::wstring>{L"", L"TABLESTYLE", L"FRAMETEST3_LOCAL", L"TABLESTYLE"}));
    application.On_kUnloadAppMsg(nullptr);
}

TEST_F(FrameTexts, A_command_goes_by_the_first_131_characters_of_its_text_in_the_hosts_language) {
    constexpr std::size_t longest = 131;
    _TVXCOMMAND_ENTRY rows[] = {
        {kGroup, L"FRAMETEST", nullptr, 0, command, nullptr, kTextOfMerging},
        {kGroup, L"FRAMETEST2", nullptr, 0, command, nullptr, kTextOfEditWords},
    };
    for (const auto language : {kdhost::Language::English, kdhost::Language::Chinese}) {
        kdhost::setLanguage(language);
        std::vector<std::wstring> texts;
        for (_TVXCOMMAND_ENTRY& row : rows) {
            commandTable().append(&row);
            texts.push_back(*kdhost::moduleText(resources.handle(), static_cast<unsigned>(row.localNameResource)));
        }
        EXPECT_GT(texts.back().size(), longest);
        for (std::wstring& text : texts) text = text.substr(0, longest);
        application.On_kInitAppMsg(nullptr);
        EXPECT_EQ(registeredNames(), texts);
        application.On_kUnloadAppMsg(nullptr);
    }
    kdhost::setLanguage(kdhost::Language::English);
}

TEST_F(FrameTexts, A_lisp_function_without_a_name_goes_by_its_text) {
    _KFSSYMBOL_ENTRY row{nullptr, lispFunction, 0, kTextOfTableStyle};
    lispFunctionTable().append(&row);
    application.On_kInitAppMsg(nullptr);
    application.On_kLoadDwgMsg(nullptr);
    EXPECT_TRUE(kdhost::runLispFunction(L"TABLESTYLE"));
    application.On_kUnloadDwgMsg(nullptr);
    EXPECT_FALSE(kdhost::runLispFunction(L"TABLESTYLE"));
    application.On_kUnloadAppMsg(nullptr);
}

TEST_F(FrameTables, The_three_tables_grow_in_steps_of_8) {
    EXPECT_EQ(commandTable().growLength(), 8);
    EXPECT_EQ(classTable().growLength(), 8);
    EXPECT_EQ(lispFunctionTable().growLength(), 8);
}

TEST(FrameSlots, of_the_messages_stand_in_the_order_of_the_host) {
    using App = KdRxDbxApp;
    const std::vector<std::ptrdiff_t> places = kdtest::slotsOf(
        &App::On_kInitAppMsg, &App::On_kUnloadAppMsg, &App::On_kLoadDwgMsg, &App::On_kUnloadDwgMsg,
        &App::On_kInvkSubrMsg, &App::On_kCfgMsg, &App::On_kEndMsg, &App::On_kQuitMsg, &App::On_kSaveMsg,
        &App::On_kDependencyMsg, &App::On_kNoDependencyMsg, &App::On_kOleUnloadAppMsg, &App::On_kPreQuitMsg,
        &App::On_kInitDialogMsg, &App::On_kEndDialogMsg, &App::On_kNullMsg, &App::RegisterServerComponents);
    for (std::size_t i = 0; i < places.size(); ++i) EXPECT_EQ(places[i], static_cast<std::ptrdiff_t>(i));
}

TEST(FrameSlots, of_the_linkers_two_flags_lie_two_apart) {
    EXPECT_EQ(kdtest::slotOf(&KdRxDynamicLinker::declareDocumentAware),
              kdtest::slotOf(&KdRxDynamicLinker::allowUnload) + 2);
}

/// The handle that is in place before, and again in the end.
class ResourcesOfCommands : public ::testing::Test {
protected:
    ResourcesOfCommands() { AfxSetResourceHandle(before); }
    ~ResourcesOfCommands() override {
        EXPECT_EQ(AfxGetResourceHandle(), before);
        hLibModule = nullptr;
        TvxTable.m_resourceInstance = nullptr;
    }
    static HINSTANCE named(std::uintptr_t number) { return reinterpret_cast<HINSTANCE>(number); }

    kdtest::ResourceModule resources;
    HINSTANCE before = resources.handle();
};

TEST_F(ResourcesOfCommands, are_the_modules_or_those_of_its_record_where_it_has_none) {
    TvxTable.m_resourceInstance = named(2);
    {
        const ResourceScope scope;
        EXPECT_EQ(AfxGetResourceHandle(), named(2));
    }
    EXPECT_EQ(AfxGetResourceHandle(), before);
    hLibModule = named(1);
    const ResourceScope scope;
    EXPECT_EQ(AfxGetResourceHandle(), named(1));
}

TEST_F(ResourcesOfCommands, go_also_when_an_exception_passes) {
    hLibModule = named(1);
    EXPECT_THROW(
        {
            const ResourceScope scope;
            throw 1;
        },
        int);
    EXPECT_EQ(AfxGetResourceHandle(), before);
}

TEST_F(ResourcesOfCommands, go_after_the_command_that_does_nothing) {
    hLibModule = named(1);
    TvxTableApp::TVX_TABLE_COMMANDSTABLE_CMDLINE();
    EXPECT_EQ(AfxGetResourceHandle(), before);
}

}  // namespace
