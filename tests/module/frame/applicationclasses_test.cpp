// The application classes on tables of their own: runtime classes and LISP-side functions come and go.

#include <gtest/gtest.h>

#include "kd/ed/lispfunctions.h"
#include "kd/rx/registry.h"
#include "module/frame/tvxapp.h"
#include "tests/support/application.h"

namespace {

KdRxClass* parentClass() {
    static KdRxClass description(L"FrameTestParent", KdRxObject::desc());
    return &description;
}

KdRxClass* childClass() {
    static KdRxClass description(L"FrameTestChild", parentClass());
    return &description;
}

int initialised = 0;
void initialiseParent() {
    parentClass();
    ++initialised;
}
void initialiseChild() {
    childClass();
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

bool inClassDictionary(const wchar_t* name) {
    auto* classes = KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"ClassDictionary"));
    return classes != nullptr && classes->has(name);
}

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

TEST_F(FrameTables, Classes_are_registered_at_message_1_and_gone_after_message_2) {
    _DBX_REGISTER_OBJECT_ENTRY parent{parentClass, initialiseParent, false};
    _DBX_REGISTER_OBJECT_ENTRY child{childClass, initialiseChild, false};
    classTable().append(&parent);
    classTable().append(nullptr);
    classTable().append(&child);
    initialised = 0;

    Application application;
    EXPECT_EQ(application.On_kInitAppMsg(nullptr), 0);
    EXPECT_EQ(initialised, 2);
    EXPECT_EQ(application.serverComponents, 1);
    EXPECT_TRUE(parent.registered);
    EXPECT_TRUE(child.registered);
    EXPECT_TRUE(inClassDictionary(L"FrameTestParent"));
    EXPECT_TRUE(inClassDictionary(L"FrameTestChild"));

    EXPECT_EQ(application.On_kUnloadAppMsg(nullptr), 0);
    EXPECT_FALSE(parent.registered);
    EXPECT_FALSE(child.registered);
    EXPECT_FALSE(inClassDictionary(L"FrameTestParent"));
    EXPECT_FALSE(inClassDictionary(L"FrameTestChild"));
    EXPECT_EQ(classTable().length(), 0);
}

TEST_F(FrameTables, An_empty_class_table_builds_no_hierarchy) {
    Application application;
    EXPECT_EQ(application.On_kInitAppMsg(nullptr), 0);
    EXPECT_FALSE(inClassDictionary(L"FrameTestNeverMade"));
    EXPECT_EQ(application.On_kUnloadAppMsg(nullptr), 0);
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

TEST_F(FrameTables, The_three_tables_grow_in_steps_of_8) {
    EXPECT_EQ(commandTable().growLength(), 8);
    EXPECT_EQ(classTable().growLength(), 8);
    EXPECT_EQ(lispFunctionTable().growLength(), 8);
}

}  // namespace
