// Which keyword an answer selects.

#include "host/ed/keywords.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using kdhost::KeywordList;

const wchar_t* const kOperation =
    L"BAck insertABove insertBElow deleteROw insertLEft insertRIght deleteCOlumn Merge Unmerge insertFOrmula BOrder "
    L"Quit _BAck insertABove insertBElow deleteROw insertLEft insertRIght deleteCOlumn Merge Unmerge insertFOrmula "
    L"BOrder Quit";

std::wstring match(const wchar_t* list, const wchar_t* answer) {
    return KeywordList(list).match(answer).value_or(L"(none)");
}

struct Answer {
    const wchar_t* list;
    const wchar_t* answer;
    const wchar_t* global;
};

class KeywordAnswers : public ::testing::TestWithParam<Answer> {};

TEST_P(KeywordAnswers, select_the_word_with_their_capitals) {
    EXPECT_EQ(match(GetParam().list, GetParam().answer), GetParam().global);
}

INSTANTIATE_TEST_SUITE_P(
    Keywords, KeywordAnswers,
    ::testing::Values(Answer{kOperation, L"_Formula", L"insertFOrmula"}, Answer{kOperation, L"FO", L"insertFOrmula"},
                      Answer{kOperation, L"fo", L"insertFOrmula"}, Answer{kOperation, L"insertfo", L"insertFOrmula"},
                      Answer{kOperation, L"INSERTFORMULA", L"insertFOrmula"}, Answer{kOperation, L"F", L"(none)"},
                      Answer{kOperation, L"insertF", L"(none)"}, Answer{kOperation, L"insert", L"(none)"},
                      Answer{kOperation, L"sertFO", L"(none)"}, Answer{kOperation, L"Formulas", L"(none)"},
                      Answer{kOperation, L"B", L"(none)"}, Answer{kOperation, L"BO", L"BOrder"},
                      Answer{kOperation, L"ba", L"BAck"}, Answer{kOperation, L"m", L"Merge"},
                      Answer{kOperation, L"", L"(none)"}, Answer{kOperation, L"_", L"(none)"},
                      Answer{L"Operation Content _Operation Content", L"_Op", L"Operation"},
                      Answer{L"TL TC _TL TC", L"t", L"(none)"}, Answer{L"TL TC _TL TC", L"tc", L"TC"}));

INSTANTIATE_TEST_SUITE_P(TranslatedLists, KeywordAnswers,
                         ::testing::Values(Answer{L"返回(BA) 退出(Q) _BAck Quit", L"ba", L"BAck"},
                                           Answer{L"返回(BA) 退出(Q) _BAck Quit", L"返回(BA)", L"BAck"},
                                           Answer{L"返回(BA) 退出(Q) _BAck Quit", L"返回", L"(none)"},
                                           Answer{L"返回(BA) 退出(Q) _BAck Quit", L"Quit", L"(none)"},
                                           Answer{L"返回(BA) 退出(Q) _BAck Quit", L"_quit", L"Quit"},
                                           Answer{L"返回 退出 _BAck Quit", L"退出", L"Quit"}));

INSTANTIATE_TEST_SUITE_P(ListsWithoutOneHalf, KeywordAnswers,
                         ::testing::Values(Answer{L"Make Set", L"m", L"Make"}, Answer{L"Make Set", L"_s", L"Set"},
                                           Answer{L"_Make Set", L"set", L"Set"}, Answer{L"", L"x", L"(none)"},
                                           Answer{L"One Two _First", L"t", L"Two"}));

TEST(Keywords, the_word_written_out_goes_before_a_shortened_one) {
    EXPECT_EQ(match(L"Setup SET", L"set"), L"SET");
}

// Every answer from the capitals on, with or without the letters before them, selects the word, and no
// shorter one does.
TEST(Keywords, shortened_words_are_found_exactly_from_their_capitals_on) {
    std::mt19937 random(std::random_device{}());
    // The two halves of the alphabet: letters before the capitals never spell the capitals themselves.
    const auto letters = [&](int most, wchar_t first) {
        std::wstring text(random() % static_cast<unsigned>(most + 1), L' ');
        for (wchar_t& letter : text) letter = static_cast<wchar_t>(first + static_cast<wchar_t>(random() % 13));
        return text;
    };
    for (int i = 0; i < 2000; ++i) {
        const std::wstring before = letters(4, L'a');
        const std::wstring capitals = letters(2, L'N') + L"X";
        const std::wstring word = before + capitals + letters(4, L'a');
        for (std::size_t end = 0; end <= word.size(); ++end) {
            const bool selects = end >= before.size() + capitals.size();
            EXPECT_EQ(kdhost::isKeyword(word.substr(0, end), word), selects);
            if (end > before.size()) {
                EXPECT_EQ(kdhost::isKeyword(word.substr(before.size(), end - before.size()), word), selects);
            }
        }
    }
}

}  // namespace
