// The order of names in sorted boxes.

#include "module/controls/sortorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace kdtest {
namespace {

struct Pair {
    const wchar_t* a;
    const wchar_t* b;
    int order;
};

TEST(SortOrder, Follows_signs_digits_letters_without_case) {
    const Pair pairs[] = {
        {L"", L"", 0},
        {L"abc", L"ABC", 0},
        {L"aBc", L"AbC", 0},
        {L"a1", L"a", 1},
        {L"a", L"a1", -1},
        {L"1", L"a", -1},
        {L"a", L"1", 1},
        {L"-", L"1", -1},
        {L"", L"a", -1},
        {L"a", L"", 1},
        {L"9", L"A", -1},
        {L"~", L"0", -1},
        {L"{", L"a", -1},
        {L"a", L"b", -1},
        {L"Z", L"a", 1},
        {L"az", L"B", -1},
        {L"a b", L"ab", -1},
        {L"_x", L"x", -1},
        {L"item10", L"item2", -1},
        {L"\u00E9", L"z", 1},  // bit 7 set: behind the letters
    };
    for (const Pair& pair : pairs) {
        EXPECT_EQ(strcmpSort(pair.a, pair.b), pair.order) << &pair - pairs;
        EXPECT_EQ(strcmpSort(pair.b, pair.a), -pair.order);
    }
}

TEST(SortOrder, Beyond_Latin_only_bit_7_and_the_low_16_bits_count) {
    // 0x4E00 has bit 7 clear, 0x4E80 has it set and moves up by 0x300.
    EXPECT_EQ(strcmpSort(L"\u4E00", L"\u4E80"), -1);
    EXPECT_EQ(strcmpSort(L"\u4E80", L"\u5100"), 1);   // 0x5180 against 0x5100
    EXPECT_EQ(strcmpSort(L"\u0180", L"\u0480"), -1);  // 0x0480 against 0x0780
    EXPECT_EQ(strcmpSort(L"\u0180", L"\u047F"), 1);   // 0x0480 against 0x047F
}

TEST(SortOrder, Keys_from_0x8000_come_before_all_others) {
    EXPECT_EQ(strcmpSort(L"\u8000", L"a"), -1);
    EXPECT_EQ(strcmpSort(L"\u8000", L" "), -1);
    EXPECT_EQ(strcmpSort(L"\u9000", L"\u8000"), 1);
    EXPECT_EQ(strcmpSort(L"\u7D80", L" "), -1);  // bit 7 lifts it to 0x8080
    EXPECT_EQ(strcmpSort(L"\u7D00", L" "), 1);
}

TEST(SortOrder, Different_characters_of_one_key_are_equal) {
    EXPECT_EQ(strcmpSort(L"a", L"\u0261"), 0);  // bit 7 clear, and the very key of the letter a
    const wchar_t beyond[] = {static_cast<wchar_t>(0x1002D), 0};
    EXPECT_EQ(strcmpSort(beyond, L"-"), 0);  // only the low 16 bits
}

/// The keys as a plain model gives them.
std::vector<int> modelKeys(const std::wstring& text) {
    std::vector<int> keys;
    for (const wchar_t c : text) {
        int key = static_cast<int>(c) & 0xFFFF;
        if ((static_cast<int>(c) & 0x80) != 0) {
            key += 0x300;
        } else if (c >= L'a' && c <= L'z') {
            key += 0x200;
        } else if (c >= L'A' && c <= L'Z') {
            key += 0x220;
        } else if (c >= L'0' && c <= L'9') {
            key += 0x100;
        }
        key &= 0xFFFF;
        keys.push_back(key >= 0x8000 ? key - 0x10000 : key);
    }
    return keys;
}

std::wstring randomText(std::mt19937& random) {
    const std::wstring letters = L"aAbZz019-_ ~\u00E9\u0261\u4E00\u4E80\u8000\uFFFF";
    std::wstring text;
    for (auto length = random() % 5; length > 0; --length) text += letters[random() % letters.size()];
    return text;
}

TEST(SortOrder, Agrees_with_a_plain_model_on_random_texts) {
    std::mt19937 random(20250101);
    for (int i = 0; i < 100'000; ++i) {
        const std::wstring a = randomText(random);
        const std::wstring b = randomText(random);
        const auto left = modelKeys(a);
        const auto right = modelKeys(b);
        const int expected = left < right ? -1 : right < left ? 1 : 0;
        ASSERT_EQ(strcmpSort(a.c_str(), b.c_str()), expected) << i;
    }
}

}  // namespace
}  // namespace kdtest
