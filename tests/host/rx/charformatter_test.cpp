// Characters to bytes and back: code page 936, UTF-8, UTF-16 and the escapes.

#include "kd/rx/charformatter.h"

#include <gtest/gtest.h>

#include <string>

#include "host/rx/encoding.h"

namespace {

using namespace std::string_literals;

std::string ansi(wchar_t character, bool escapes = true, bool lineEnds = false) {
    char bytes[8];
    return {bytes, static_cast<std::size_t>(
                       KfCharFormatter::wcharToAnsiOrUtf8(character, bytes, sizeof bytes, true, escapes, lineEnds))};
}

std::string utf8(wchar_t character, bool lineEnds = false) {
    char bytes[8];
    return {bytes, static_cast<std::size_t>(
                       KfCharFormatter::wcharToAnsiOrUtf8(character, bytes, sizeof bytes, false, true, lineEnds))};
}

std::string utf16(wchar_t character, bool machineOrder, bool lineEnds = false) {
    char bytes[8];
    return {bytes, static_cast<std::size_t>(
                       KfCharFormatter::wcharToUtf16(character, bytes, sizeof bytes, machineOrder, lineEnds))};
}

}  // namespace

TEST(CharFormatter, ansi_is_code_page_936) {
    EXPECT_EQ(ansi(L'A'), "A");
    EXPECT_EQ(ansi(L'\0'), "\0"s);
    EXPECT_EQ(ansi(L'~'), "~");
    EXPECT_EQ(ansi(L'中'), "\xD6\xD0");
    EXPECT_EQ(ansi(L'é'), "\xA8\xA6");
    EXPECT_EQ(ansi(L'。'), "\xA1\xA3");
    EXPECT_EQ(ansi(L'镕'), "\xE9\x46");
}

TEST(CharFormatter, a_character_that_the_code_page_lacks_becomes_an_escape_in_capitals_or_a_question_mark) {
    EXPECT_EQ(ansi(L'\u00FF'), "\\U+00FF");
    EXPECT_EQ(ansi(L'한'), "\\U+D55C");
    EXPECT_EQ(ansi(L'\u0627'), "\\U+0627");
    EXPECT_EQ(ansi(L'\uFFFF'), "\\U+FFFF");
    EXPECT_EQ(ansi(L'한', false), "?");
}

TEST(CharFormatter, ansi_has_a_question_mark_for_what_lies_beyond_16_bits) {
    EXPECT_EQ(ansi(L'\U0001F600'), "?");
    EXPECT_EQ(ansi(L'\U0001F600', false), "?");
    EXPECT_EQ(ansi(L'\U00020000'), "?");
    EXPECT_EQ(ansi(static_cast<wchar_t>(-1)), "?");
}

TEST(CharFormatter, every_character_of_16_bits_comes_back_from_its_ansi_bytes) {
    int encoded = 0;
    for (unsigned code = 0; code < 0x10000; ++code) {
        const auto character = static_cast<wchar_t>(code);
        const std::string bytes = ansi(character);
        ASSERT_FALSE(bytes.empty());
        if (bytes.size() == 7) {
            wchar_t parsed = 0;
            ASSERT_TRUE(KfCharFormatter::parseCIF(bytes.c_str(), parsed));
            ASSERT_EQ(parsed, character);
        } else {
            ++encoded;
            ASSERT_EQ(KfCharFormatter::isAnsiLeadByte(static_cast<unsigned char>(bytes[0])), bytes.size() == 2);
            ASSERT_EQ(KfCharFormatter::ansiToWchar(bytes.data(), static_cast<unsigned>(bytes.size())), character);
        }
    }
    EXPECT_GT(encoded, 21000);
}

TEST(CharFormatter, ansi_bytes_that_make_no_character_read_as_a_question_mark) {
    EXPECT_EQ(KfCharFormatter::ansiToWchar("\xD6", 1), L'?');
    EXPECT_EQ(KfCharFormatter::ansiToWchar("\xD6\x20", 2), L'?');
    EXPECT_EQ(KfCharFormatter::ansiToWchar("\xFF", 1), L'?');
    EXPECT_EQ(KfCharFormatter::ansiToWchar("", 0), L'\0');
    EXPECT_EQ(KfCharFormatter::ansiToWchar(nullptr, 1), L'\0');
}

TEST(CharFormatter, lead_bytes_run_from_0x81_to_0xFE) {
    for (unsigned byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(KfCharFormatter::isAnsiLeadByte(static_cast<unsigned char>(byte)), byte >= 0x81 && byte <= 0xFE);
    }
}

TEST(CharFormatter, utf8_takes_one_to_four_bytes) {
    EXPECT_EQ(utf8(L'A'), "A");
    EXPECT_EQ(utf8(L'\0'), "\0"s);
    EXPECT_EQ(utf8(L'é'), "\xC3\xA9");
    EXPECT_EQ(utf8(L'中'), "\xE4\xB8\xAD");
    EXPECT_EQ(utf8(L'\U0001F600'), "\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8(static_cast<wchar_t>(0xD800)), "?");
    EXPECT_EQ(utf8(static_cast<wchar_t>(0x110000)), "?");
}

TEST(CharFormatter, utf16_is_in_the_machines_order_or_swapped_with_surrogates_beyond_16_bits) {
    EXPECT_EQ(utf16(L'A', true), "A\0"s);
    EXPECT_EQ(utf16(L'A', false), "\0A"s);
    EXPECT_EQ(utf16(L'中', true), "\x2D\x4E");
    EXPECT_EQ(utf16(L'中', false), "\x4E\x2D");
    EXPECT_EQ(utf16(L'\U0001F600', true), "\x3D\xD8\x00\xDE"s);
    EXPECT_EQ(utf16(L'\U0001F600', false), "\xD8\x3D\xDE\x00"s);
    EXPECT_EQ(utf16(static_cast<wchar_t>(0x110000), true), "?\0"s);
}

TEST(CharFormatter, line_ends_turn_a_line_feed_into_two_characters_where_asked) {
    EXPECT_EQ(ansi(L'\n'), "\n");
    EXPECT_EQ(ansi(L'\n', true, true), "\r\n");
    EXPECT_EQ(ansi(L'\r', true, true), "\r");
    EXPECT_EQ(utf8(L'\n', true), "\r\n");
    EXPECT_EQ(utf16(L'\n', true, true), "\r\0\n\0"s);
    EXPECT_EQ(utf16(L'\n', false, true), "\0\r\0\n"s);
}

TEST(CharFormatter, without_room_nothing_is_written) {
    char bytes[8] = "before!";
    EXPECT_EQ(KfCharFormatter::wcharToAnsiOrUtf8(L'中', bytes, 1, true, true, false), 0);
    EXPECT_EQ(KfCharFormatter::wcharToAnsiOrUtf8(L'한', bytes, 6, true, true, false), 0);
    EXPECT_EQ(KfCharFormatter::wcharToAnsiOrUtf8(L'\n', bytes, 1, true, true, true), 0);
    EXPECT_EQ(KfCharFormatter::wcharToUtf16(L'A', bytes, 1, true, false), 0);
    EXPECT_EQ(KfCharFormatter::wcharToUtf16(L'\U0001F600', bytes, 3, true, false), 0);
    EXPECT_STREQ(bytes, "before!");
    EXPECT_EQ(KfCharFormatter::wcharToAnsiOrUtf8(L'한', bytes, 7, true, true, false), 7);
}

TEST(CharFormatter, an_escape_is_a_backslash_a_u_of_either_case_a_plus_and_four_digits) {
    const struct {
        const char* text;
        bool escape;
    } rows[] = {{"\\U+4E2D", true}, {"\\u+4e2d", true},  {"\\U+4E2Dmore", true}, {"\\U+4E2", false}, {"\\U4E2D", false},
                {"U+4E2D", false},  {"\\U+4E2G", false}, {"\\X+4E2D", false},    {"", false},        {"\\", false},
                {"\\U", false},     {"\\U+", false},     {"/U+4E2D", false},     {"\\U-4E2D", false}};
    for (const auto& row : rows) {
        wchar_t character = L'!';
        EXPECT_EQ(KfCharFormatter::isCIFString(row.text), row.escape) << row.text;
        EXPECT_EQ(KfCharFormatter::parseCIF(row.text, character), row.escape) << row.text;
        EXPECT_EQ(character, row.escape ? L'中' : L'!') << row.text;
    }
    EXPECT_FALSE(KfCharFormatter::isCIFString(nullptr));
}

TEST(Encoding, utf8_text_comes_back_and_wrong_bytes_become_replacement_characters) {
    const std::wstring text = L"A é 中 \U0001F600 \uFFFD";
    EXPECT_EQ(kdhost::fromUtf8(kdhost::toUtf8(text)), text);
    EXPECT_EQ(kdhost::fromUtf8("\xEF\xBB\xBFx"), L"\uFEFFx");
    EXPECT_EQ(kdhost::fromUtf8("a\x80z"), L"a\uFFFDz");
    EXPECT_EQ(kdhost::fromUtf8("\xC0\xAF"), L"\uFFFD\uFFFD");
    EXPECT_EQ(kdhost::fromUtf8("\xE4\xB8"), L"\uFFFD\uFFFD");
    EXPECT_EQ(kdhost::fromUtf8("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(kdhost::fromUtf8("\xF5\x80\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD");
}
