// Bytes to wide text and back under the Win32 names.

#include <gtest/gtest.h>

#include <string>

#include "win32/types.h"

namespace {

using namespace std::string_literals;

constexpr wchar_t kText[] = L"A中\U0001F600";

}  // namespace

TEST(MultiByteToWideChar, counts_without_room_and_then_fills) {
    const std::string bytes = "A\xE4\xB8\xAD\xF0\x9F\x98\x80";
    const int length = static_cast<int>(bytes.size());
    ASSERT_EQ(MultiByteToWideChar(CP_UTF8, 0, bytes.c_str(), length, nullptr, 0), 3);
    wchar_t out[4] = L"###";
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, bytes.c_str(), length, out, 4), 3);
    EXPECT_EQ(std::wstring(out, 3), kText);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, bytes.c_str(), -1, out, 4), 4);
    EXPECT_EQ(std::wstring(out), kText);
}

TEST(MultiByteToWideChar, the_ansi_encoding_is_code_page_936) {
    wchar_t out[8] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "x\xD6\xD0", -1, out, 8), 3);
    EXPECT_STREQ(out, L"x中");
    EXPECT_EQ(MultiByteToWideChar(936, 0, "\xD6", 1, out, 8), 1);
    EXPECT_EQ(out[0], L'?');
}

TEST(MultiByteToWideChar, fails_on_too_little_room_no_text_and_an_unknown_code_page) {
    wchar_t out[2] = {L'x', L'y'};
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abc", 3, out, 2), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, nullptr, 3, out, 2), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "a", 0, out, 2), 0);
    EXPECT_EQ(MultiByteToWideChar(12345, 0, "a", 1, out, 2), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "a", 1, nullptr, 2), 0);
    EXPECT_EQ(out[0], L'x');
}

TEST(MultiByteToWideChar, a_byte_order_mark_is_a_character_like_any_other) {
    wchar_t out[4] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "\xEF\xBB\xBFz", 4, out, 4), 2);
    EXPECT_STREQ(out, L"\uFEFFz");
}

TEST(WideCharToMultiByte, counts_fills_and_puts_question_marks_for_what_the_code_page_lacks) {
    ASSERT_EQ(WideCharToMultiByte(CP_UTF8, 0, kText, -1, nullptr, 0), 9);
    char out[16] = {};
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, kText, -1, out, 16), 9);
    EXPECT_STREQ(out, "A\xE4\xB8\xAD\xF0\x9F\x98\x80");
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, kText, -1, out, 16), 5);
    EXPECT_STREQ(out, "A\xD6\xD0?");
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, L"한\0z", 3, out, 16), 3);
    EXPECT_EQ(std::string(out, 3), "?\0z"s);
}

TEST(WideCharToMultiByte, fails_on_too_little_room_no_text_and_an_unknown_code_page) {
    char out[2] = {'x', 'y'};
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, L"中中", 2, out, 2), 0);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, nullptr, 2, out, 2), 0);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, L"a", 0, out, 2), 0);
    EXPECT_EQ(WideCharToMultiByte(1200, 0, L"a", 1, out, 2), 0);
    EXPECT_EQ(out[0], 'x');
}
