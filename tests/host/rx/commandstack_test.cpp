// The command stack: registering and removing, and what a typed word finds.

#include "host/rx/commandstack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

void first() {}
void second() {}

std::wstring globalNameOf(const wchar_t* word) {
    const auto record = kdhost::findCommand(word);
    return record ? record->globalName : L"";
}

/// The commands of a test are in groups of its own, which go with it.
class CommandStackTest : public ::testing::Test {
protected:
    void TearDown() override {
        for (const wchar_t* group : {L"TESTS_A", L"TESTS_B"}) m_stack.removeGroup(group);
    }

    Kdad::ErrorStatus add(const wchar_t* group, const wchar_t* global, const wchar_t* local,
                          KdEdCommandFunction function = first) {
        return m_stack.addCommand(group, global, local, 0, function, nullptr, -1, nullptr, nullptr);
    }

    KdEdCommandStack& m_stack = kdhost::commandStack();
};

}  // namespace

TEST_F(CommandStackTest, a_command_keeps_everything_it_was_registered_with) {
    int context = 0;
    const auto resource = reinterpret_cast<HINSTANCE>(&context);
    void* entry = nullptr;
    ASSERT_EQ(m_stack.addCommand(L"TESTS_A", L"QGLOBAL", L"QLOCAL", 6, second, &context, 7, resource, &entry),
              Kdad::eOk);
    EXPECT_NE(entry, nullptr);
    const auto record = kdhost::findCommand(L"QLOCAL");
    ASSERT_TRUE(record);
    EXPECT_EQ(record->group, L"TESTS_A");
    EXPECT_EQ(record->globalName, L"QGLOBAL");
    EXPECT_EQ(record->localName, L"QLOCAL");
    EXPECT_EQ(record->flags, KdEdCommandFlag::kUsePickSet | KdEdCommandFlag::kRedraw);
    EXPECT_EQ(record->function, second);
    EXPECT_EQ(record->context, &context);
    EXPECT_EQ(record->fcode, 7);
    EXPECT_EQ(record->resource, resource);
}

TEST_F(CommandStackTest, words_find_local_then_global_names_and_an_underscore_asks_for_the_global_one) {
    add(L"TESTS_A", L"QONE", L"QTWO");
    add(L"TESTS_A", L"QTWO", L"QLOCAL");
    add(L"TESTS_A", L"-QONE", L"-QONE");
    const struct {
        const wchar_t* word;
        const wchar_t* found;
    } rows[] = {{L"QTWO", L"QONE"},   {L"_QTWO", L"QTWO"},   {L"QONE", L"QONE"}, {L"qtwo", L"QONE"},
                {L"_qtWo", L"QTWO"},  {L"QLOCAL", L"QTWO"},  {L"_QLOCAL", L""},  {L"QON", L""},
                {L"-qone", L"-QONE"}, {L"_-QONE", L"-QONE"}, {L"", L""},         {L"_", L""},
                {L"__QONE", L""}};
    for (const auto& row : rows)
        EXPECT_EQ(globalNameOf(row.word), row.found) << std::string(row.word, row.word + std::wcslen(row.word));
}

TEST_F(CommandStackTest, case_does_not_count_beyond_ascii_either) {
    add(L"TESTS_A", L"QGLOBAL", L"QÄNDERN");
    EXPECT_EQ(globalNameOf(L"qändern"), L"QGLOBAL");
}

TEST_F(CommandStackTest, of_commands_of_one_name_the_first_registered_answers) {
    add(L"TESTS_A", L"QSAME", L"QSAME", first);
    add(L"TESTS_B", L"QSAME", L"QSAME", second);
    EXPECT_EQ(kdhost::findCommand(L"QSAME")->function, first);
    m_stack.removeGroup(L"TESTS_A");
    EXPECT_EQ(kdhost::findCommand(L"QSAME")->function, second);
}

TEST_F(CommandStackTest, a_group_has_a_global_name_once) {
    add(L"TESTS_A", L"QSAME", L"QX", first);
    EXPECT_EQ(add(L"TESTS_A", L"qsame", L"QY", second), Kdad::eDuplicateKey);
    EXPECT_EQ(kdhost::findCommand(L"QSAME")->function, first);
    EXPECT_FALSE(kdhost::findCommand(L"QY"));
}

TEST_F(CommandStackTest, a_missing_group_name_or_function_is_refused) {
    const std::size_t before = kdhost::registeredCommands().size();
    void* entry = this;
    EXPECT_EQ(add(nullptr, L"QX", L"QX"), Kdad::eInvalidInput);
    EXPECT_EQ(add(L"", L"QX", L"QX"), Kdad::eInvalidInput);
    EXPECT_EQ(add(L"TESTS_A", nullptr, L"QX"), Kdad::eInvalidInput);
    EXPECT_EQ(add(L"TESTS_A", L"", L"QX"), Kdad::eInvalidInput);
    EXPECT_EQ(m_stack.addCommand(L"TESTS_A", L"QX", L"QX", 0, nullptr, nullptr, -1, nullptr, &entry),
              Kdad::eInvalidInput);
    EXPECT_EQ(entry, this);
    EXPECT_EQ(kdhost::registeredCommands().size(), before);
}

TEST_F(CommandStackTest, a_command_without_its_local_text_answers_to_its_global_name) {
    EXPECT_EQ(add(L"TESTS_A", L"QNULL", nullptr), Kdad::eOk);
    EXPECT_EQ(add(L"TESTS_A", L"QEMPTY", L""), Kdad::eOk);
    EXPECT_EQ(globalNameOf(L"qnull"), L"QNULL");
    EXPECT_EQ(globalNameOf(L"_qempty"), L"QEMPTY");
}

TEST_F(CommandStackTest, removing_takes_one_command_or_a_whole_group) {
    add(L"TESTS_A", L"QONE", L"QONE");
    add(L"TESTS_A", L"QTWO", L"QTWO");
    add(L"TESTS_B", L"QTHREE", L"QTHREE");
    EXPECT_EQ(m_stack.removeCmd(L"tests_a", L"qone"), Kdad::eOk);
    EXPECT_FALSE(kdhost::findCommand(L"QONE"));
    EXPECT_TRUE(kdhost::findCommand(L"QTWO"));
    EXPECT_EQ(m_stack.removeGroup(L"TESTS_A"), Kdad::eOk);
    EXPECT_FALSE(kdhost::findCommand(L"QTWO"));
    EXPECT_TRUE(kdhost::findCommand(L"QTHREE"));
}

TEST_F(CommandStackTest, removing_what_is_not_there_says_so) {
    add(L"TESTS_A", L"QONE", L"QLOCAL");
    EXPECT_EQ(m_stack.removeCmd(L"TESTS_A", L"QLOCAL"), Kdad::eKeyNotFound);
    EXPECT_EQ(m_stack.removeCmd(L"TESTS_B", L"QONE"), Kdad::eKeyNotFound);
    EXPECT_EQ(m_stack.removeCmd(nullptr, L"QONE"), Kdad::eKeyNotFound);
    EXPECT_EQ(m_stack.removeCmd(L"TESTS_A", nullptr), Kdad::eKeyNotFound);
    EXPECT_EQ(m_stack.removeGroup(L"TESTS_B"), Kdad::eKeyNotFound);
    EXPECT_EQ(m_stack.removeGroup(nullptr), Kdad::eKeyNotFound);
    EXPECT_TRUE(kdhost::findCommand(L"QONE"));
}

TEST_F(CommandStackTest, completions_are_sorted_names_that_continue_the_typed_text) {
    add(L"TESTS_A", L"QZEBRA", L"QZB");
    add(L"TESTS_A", L"QZANY", L"QZA");
    add(L"TESTS_B", L"QZOWN", nullptr);
    add(L"TESTS_B", L"QZANY", L"QZA");
    using Names = std::vector<std::wstring>;
    EXPECT_EQ(kdhost::commandCompletions(L"qz"), (Names{L"QZA", L"QZB", L"QZOWN"}));
    EXPECT_EQ(kdhost::commandCompletions(L"_qz"), (Names{L"_QZANY", L"_QZEBRA", L"_QZOWN"}));
    EXPECT_EQ(kdhost::commandCompletions(L"QZB"), (Names{L"QZB"}));
    EXPECT_EQ(kdhost::commandCompletions(L"QZBB"), Names{});
}
