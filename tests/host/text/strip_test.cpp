// What a text with formatting codes reads as.

#include <gtest/gtest.h>

#include <random>

#include "host/text/layout.h"
#include "host/text/tokens.h"

using kdhost::text::parse;
using kdhost::text::plainLength;
using kdhost::text::strip;
using kdhost::text::Token;
using kdhost::text::TokenKind;

namespace {

struct Case {
    const wchar_t* contents;
    const wchar_t* read;
};

class StripReads : public ::testing::TestWithParam<Case> {};

TEST_P(StripReads, as_a_person_does) {
    EXPECT_EQ(strip(GetParam().contents), GetParam().read);
}

TEST(PlainLength, counts_a_text_in_which_nothing_begins_a_code) {
    EXPECT_EQ(plainLength(L""), 0);
    EXPECT_EQ(plainLength(L"Bolt M8, \"20\"\nand 管道"), 20);
    EXPECT_EQ(plainLength(L"\x7F\x80\xA5\xDC"), 4);
    for (const wchar_t* contents : {L"\\P", L"a{b", L"b}", L"5%", L"a\r"}) EXPECT_EQ(plainLength(contents), -1);
}

// What looks plain must read as it stands, else it would be taken over with its codes.
TEST(PlainLength, is_that_of_the_stripped_text) {
    std::mt19937 random(1);
    constexpr std::wstring_view letters = L"aP{}\\%\r\n管\x7F;1";
    for (int round = 0; round < 20'000; ++round) {
        std::wstring contents;
        for (auto length = random() % 6; length > 0; --length) contents += letters[random() % letters.size()];
        const int length = plainLength(contents.c_str());
        if (length >= 0) {
            ASSERT_EQ(strip(contents).size(), static_cast<std::size_t>(length));
        }
        ASSERT_EQ(length >= 0, contents.find_first_of(L"{}\\%\r") == contents.npos);
    }
}

INSTANTIATE_TEST_SUITE_P(plain, StripReads,
                         ::testing::Values(Case{L"", L""}, Case{L"Bolt M8", L"Bolt M8"}, Case{L"100 %", L"100 %"},
                                           Case{L"中文", L"中文"}));

INSTANTIATE_TEST_SUITE_P(lines, StripReads,
                         ::testing::Values(Case{L"a\\Pb", L"a\nb"}, Case{L"a\nb", L"a\nb"}, Case{L"a\r\nb", L"a\nb"},
                                           Case{L"a\rb", L"a\nb"}, Case{L"\\P\\P", L"\n\n"}, Case{L"a\\~b", L"a b"}));

INSTANTIATE_TEST_SUITE_P(escapes, StripReads,
                         ::testing::Values(Case{L"\\\\", L"\\"}, Case{L"\\{a\\}", L"{a}"}, Case{L"\\\\P", L"\\P"},
                                           Case{L"{a{b}c}", L"abc"}));

INSTANTIATE_TEST_SUITE_P(looks, StripReads,
                         ::testing::Values(Case{L"\\Lab\\l", L"ab"}, Case{L"\\Oa\\o\\Kb\\k", L"ab"},
                                           Case{L"\\H2.5;a", L"a"}, Case{L"\\H1.5x;a", L"a"}, Case{L"\\C1;a", L"a"},
                                           Case{L"\\c255;a", L"a"}, Case{L"{\\fArial|b1|i0|c0|p34;a}b", L"ab"},
                                           Case{L"\\Ftxt,gbcbig;a", L"a"}, Case{L"\\W0.8;\\Q15;\\T2;\\A1;a", L"a"},
                                           Case{L"\\pi-2,l4,t4;a", L"a"}));

INSTANTIATE_TEST_SUITE_P(stacks, StripReads,
                         ::testing::Values(Case{L"\\S1/2;", L"1/2"}, Case{L"\\S1#2;", L"1/2"},
                                           Case{L"\\S+0.1^-0.2;", L"+0.1/-0.2"}, Case{L"x\\S2^;", L"x2"},
                                           Case{L"\\S^2;", L"2"}, Case{L"\\Sa\\/b/c\\;d;", L"a/b/c;d"},
                                           Case{L"\\Sa/b/c;", L"a/b/c"}));

INSTANTIATE_TEST_SUITE_P(characters, StripReads,
                         ::testing::Values(Case{L"90%%d", L"90°"}, Case{L"%%P0.1", L"±0.1"}, Case{L"%%c20", L"⌀20"},
                                           Case{L"5%%%", L"5%"}, Case{L"%%065%%066", L"AB"}, Case{L"\\U+00B5m", L"µm"},
                                           Case{L"\\U+d83d\\U+DE00", L"\U0001F600"}, Case{L"\\U+D83D!", L"\uFFFD!"},
                                           Case{L"\\M+1824F", L"０"}, Case{L"\\M+5D6D0", L"中"}));

INSTANTIATE_TEST_SUITE_P(cut_short, StripReads,
                         ::testing::Values(Case{L"\\", L"\\"}, Case{L"a\\", L"a\\"}, Case{L"\\H2.5", L"\\H2.5"},
                                           Case{L"\\H2.5\\P", L"\\H2.5\n"}, Case{L"\\S1/2", L"\\S1/2"},
                                           Case{L"\\S1\\\n;", L"\\S1\\\n;"}, Case{L"\\U+12", L"\\U+12"},
                                           Case{L"\\U+00G0", L"\\U+00G0"}, Case{L"\\M+9FFFF", L"\\M+9FFFF"},
                                           Case{L"\\M+", L"\\M+"}, Case{L"%%", L"%%"}, Case{L"%%12", L"%%12"},
                                           Case{L"%%999", L"%%999"}, Case{L"%%x", L"%%x"}, Case{L"{a", L"a"},
                                           Case{L"a}", L"a}"}, Case{L"\\z", L"\\z"}));

TEST(Strip, keeps_every_character_behind_an_escape) {
    // Escaping any text and stripping it gives the text back.
    std::mt19937 random(7);
    const std::wstring alphabet = L"ab \\{};/^#PSHLUM+0%\u4E2D";
    for (int round = 0; round < 20000; ++round) {
        std::wstring plain;
        std::wstring escaped;
        for (unsigned length = static_cast<unsigned>(random() % 12); length > 0; --length) {
            const wchar_t c = alphabet[random() % alphabet.size()];
            if (c == L'%') continue;
            plain += c;
            if (c == L'\\' || c == L'{' || c == L'}') escaped += L'\\';
            escaped += c;
        }
        ASSERT_EQ(strip(escaped), plain);
    }
}

TEST(Strip, never_gives_more_than_it_got_on_random_codes) {
    std::mt19937 random(11);
    const std::wstring alphabet = L"\\\\\\{}%%;/^#PSHLUMClkp~+0123AFd\n";
    for (int round = 0; round < 50000; ++round) {
        std::wstring text;
        for (unsigned length = static_cast<unsigned>(random() % 24); length > 0; --length) {
            text += alphabet[random() % alphabet.size()];
        }
        ASSERT_LE(strip(text).size(), text.size());
    }
}

class StripLongTexts : public ::testing::TestWithParam<const wchar_t*> {};

TEST_P(StripLongTexts, on_a_megabyte_of_one_pattern) {
    std::wstring text;
    while (text.size() < (1U << 20)) text += GetParam();
    EXPECT_LE(strip(text).size(), text.size());
}

INSTANTIATE_TEST_SUITE_P(patterns, StripLongTexts,
                         ::testing::Values(L"a", L"\\", L"{", L"}", L"\\S", L"\\S\\;", L"\\H", L"\\Ha", L"%", L"\\U+",
                                           L"\\M+", L"\\S/", L"{\\S", L"\\Sa^b;", L"\\P"));

TEST(Parse, gives_a_token_for_each_code_in_its_order) {
    const std::vector<Token> tokens = parse(L"a{\\H2x;\\Lb\\S1#2;}\\~\\P");
    const std::vector<TokenKind> expected = {TokenKind::characters, TokenKind::groupBegin, TokenKind::property,
                                             TokenKind::toggle,     TokenKind::characters, TokenKind::stack,
                                             TokenKind::groupEnd,   TokenKind::hardBlank,  TokenKind::lineBreak};
    ASSERT_EQ(tokens.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(tokens[i].kind, expected[i]) << i;
    EXPECT_EQ(tokens[2].code, L'H');
    EXPECT_EQ(tokens[2].text, L"2x");
    EXPECT_EQ(tokens[5].code, L'#');
    EXPECT_EQ(tokens[5].text, L"1");
    EXPECT_EQ(tokens[5].lower, L"2");
}

}  // namespace
