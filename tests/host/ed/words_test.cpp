// Texts of the command line in both languages, and their places for values.

#include "host/ed/words.h"

#include <gtest/gtest.h>

#include <QString>

#include "host/ed/keywords.h"
#include "host/win32/modules.h"

namespace {

constexpr kdhost::Words kSaid{L"%1 of %2.", L"%2 之 %1。"};

class WordsTest : public ::testing::Test {
protected:
    ~WordsTest() override { kdhost::setLanguage(kdhost::Language::English); }
};

TEST_F(WordsTest, are_those_of_the_host_s_language) {
    EXPECT_STREQ(kSaid.text(), L"%1 of %2.");
    EXPECT_EQ(kSaid.with(3, std::wstring(L"seven")), L"3 of seven.");
    kdhost::setLanguage(kdhost::Language::Chinese);
    EXPECT_EQ(kSaid.with(3, std::wstring(L"seven")), L"seven 之 3。");
}

TEST_F(WordsTest, take_a_value_as_it_stands_though_it_looks_like_a_place) {
    EXPECT_EQ(kSaid.with(std::wstring(L"%2"), std::wstring(L"%1%")), L"%2 of %1%.");
}

TEST_F(WordsTest, keep_what_is_no_place_of_a_value) {
    constexpr kdhost::Words percent{L"100%, %3 and %1", L"%1 %3"};
    EXPECT_EQ(percent.with(1.5), L"100%, %3 and 1.5");
}

TEST_F(WordsTest, write_numbers_in_few_digits) {
    constexpr kdhost::Words number{L"%1", L"%1"};
    EXPECT_EQ(number.with(10.0), L"10");
    EXPECT_EQ(number.with(0.1 + 0.2), L"0.3");
    EXPECT_EQ(number.with(std::size_t{7}), L"7");
    EXPECT_EQ(number.with(-7), L"-7");
}

TEST(Keywords, of_the_host_s_own_prompts_are_taken_in_either_language_without_an_underscore) {
    const kdhost::KeywordList words(L"新建(M) 锁定(LO) _Make LOck");
    for (const wchar_t* answer : {L"M", L"m", L"Make", L"_Make", L"新建(M)", L"make"}) {
        EXPECT_EQ(words.matchEither(answer), L"Make") << QString::fromWCharArray(answer).toStdString();
    }
    EXPECT_EQ(words.matchEither(L"LOCK"), L"LOck");
    EXPECT_EQ(words.match(L"LOCK"), std::nullopt) << "what modules ask goes by the rule";
    EXPECT_EQ(words.matchEither(L"Paint"), std::nullopt);
    EXPECT_EQ(words.matchEither(L""), std::nullopt);
}

}  // namespace
