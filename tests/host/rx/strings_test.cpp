// KdString, KdArray and the wide formatting behind both string classes.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "kd/rx/array.h"
#include "kd/rx/kdstring.h"

namespace {

template <class... Arguments>
std::wstring formatted(const wchar_t* pattern, Arguments... arguments) {
    return KdString().format(pattern, arguments...).str();
}

}  // namespace

TEST(WideFormat, strings_are_wide_for_s_and_ls_and_narrow_for_S_and_hs) {
    EXPECT_EQ(formatted(L"<%s|%ls>", L"宽", L"wide"), L"<宽|wide>");
    EXPECT_EQ(formatted(L"<%S|%hs>", "narrow", "\xE4\xB8\xAD"), L"<narrow|中>");
    EXPECT_EQ(formatted(L"%lS", L"wide"), L"wide");
    EXPECT_EQ(formatted(L"<%s>", static_cast<const wchar_t*>(nullptr)), L"<(null)>");
    EXPECT_EQ(formatted(L"<%S>", static_cast<const char*>(nullptr)), L"<(null)>");
}

TEST(WideFormat, widths_and_precisions_of_strings_count_characters) {
    EXPECT_EQ(formatted(L"<%5s|%-5s>", L"中文", L"中文"), L"<   中文|中文   >");
    EXPECT_EQ(formatted(L"<%.2s|%5.1s>", L"abc", L"中文"), L"<ab|    中>");
    EXPECT_EQ(formatted(L"<%*s|%-*s|%.*s>", 4, L"a", 4, L"b", 1, L"cd"), L"<   a|b   |c>");
    EXPECT_EQ(formatted(L"<%*s>", -3, L"a"), L"<a  >");
    EXPECT_EQ(formatted(L"<%.2S>", "abc"), L"<ab>");
    const wchar_t unended[] = {L'x', L'y'};
    EXPECT_EQ(formatted(L"%.2s", unended), L"xy");
}

TEST(WideFormat, characters_are_wide) {
    EXPECT_EQ(formatted(L"<%c%3c>", L'中', L'b'), L"<中  b>");
}

TEST(WideFormat, integers_of_each_size) {
    EXPECT_EQ(formatted(L"%d %i %u %x %X %o", -5, 7, 4000000000u, 255, 255, 8), L"-5 7 4000000000 ff FF 10");
    EXPECT_EQ(formatted(L"%I64d %I64u %lld", LLONG_MIN, ULLONG_MAX, 12LL),
              L"-9223372036854775808 18446744073709551615 12");
    EXPECT_EQ(formatted(L"%ld %lu %I32d", -3L, 3UL, -4), L"-3 3 -4");
    EXPECT_EQ(formatted(L"%hd %hhu", 70000, 300), L"4464 44");
    EXPECT_EQ(formatted(L"<%05d|%-5d|%+d|% d|%#x|%8.3d>", 42, 42, 42, 42, 255, 7),
              L"<00042|42   |+42| 42|0xff|     007>");
}

TEST(WideFormat, floating_numbers) {
    EXPECT_EQ(formatted(L"%f %.2f %g %e", 1.5, 2.345, 0.0001, 12345.678), L"1.500000 2.35 0.0001 1.234568e+04");
    EXPECT_EQ(formatted(L"<%8.3f|%-8.1f|%+.0f>", 3.14159, 2.5, 7.0), L"<   3.142|2.5     |+7>");
    EXPECT_EQ(formatted(L"%.*f", 3, 1.0), L"1.000");
    EXPECT_EQ(formatted(L"%f", 1e300).size(), 308u);
}

TEST(WideFormat, percent_signs_and_unknown_conversions_stand_as_they_are) {
    EXPECT_EQ(formatted(L"100%% %d", 1), L"100% 1");
    EXPECT_EQ(formatted(L"%y %-5k"), L"%y %-5k");
    EXPECT_EQ(formatted(L"end %"), L"end %");
    EXPECT_EQ(formatted(L""), L"");
    EXPECT_EQ(formatted(nullptr), L"");
}

TEST(WideFormat, a_position_is_stored_nowhere) {
    int stored = 77;
    EXPECT_EQ(formatted(L"a%nb%d", &stored, 5), L"ab5");
    EXPECT_EQ(stored, 77);
}

TEST(KdStringTest, is_made_from_null_text_or_a_character) {
    EXPECT_TRUE(KdString(static_cast<const wchar_t*>(nullptr)).isEmpty());
    EXPECT_EQ(KdString(L'x').length(), 1);
    EXPECT_STREQ(KdString(L"中文").kwszPtr(), L"中文");
    EXPECT_EQ(KdString(L"中文").length(), 2);
}

TEST(KdStringTest, compares_by_character_value_with_case) {
    EXPECT_EQ(KdString(L"abc").compare(L"abc"), 0);
    EXPECT_LT(KdString(L"ABC").compare(L"abc"), 0);
    EXPECT_GT(KdString(L"b").compare(KdString(L"abc")), 0);
    EXPECT_EQ(KdString().compare(static_cast<const wchar_t*>(nullptr)), 0);
    EXPECT_TRUE(KdString(L"a") == KdString(L"a"));
    EXPECT_TRUE(KdString(L"a") != KdString(L"A"));
}

TEST(KdStringTest, appends_assigns_and_formats_its_own_text) {
    KdString text(L"a");
    text.append(L"b").append(KdString(L"c")).append(static_cast<const wchar_t*>(nullptr));
    EXPECT_STREQ(text.kwszPtr(), L"abc");
    text.append(text);
    EXPECT_STREQ(text.kwszPtr(), L"abcabc");
    text.format(L"[%s]", text.kwszPtr());
    EXPECT_STREQ(text.kwszPtr(), L"[abcabc]");
    text.assign(L"z");
    EXPECT_STREQ(text.kwszPtr(), L"z");
    text.assign(nullptr);
    EXPECT_TRUE(text.isEmpty());
}

TEST(KdStringTest, a_text_of_no_module_is_empty) {
    KdString text(L"before");
    EXPECT_FALSE(text.loadString(nullptr, 2002));
    EXPECT_TRUE(text.isEmpty());
}

TEST(KdArrayTest, grows_by_appending_and_is_cut_and_lengthened) {
    KdArray<int> numbers(0, 8);
    EXPECT_TRUE(numbers.isEmpty());
    EXPECT_EQ(numbers.growLength(), 8);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(numbers.append(i), i);
    EXPECT_EQ(numbers.length(), 100);
    numbers.removeAt(50);
    EXPECT_EQ(numbers[50], 51);
    numbers.removeAt(-1);
    numbers.removeAt(99);
    EXPECT_EQ(numbers.logicalLength(), 99);
    numbers.setLogicalLength(2);
    EXPECT_EQ(numbers.length(), 2);
    numbers.setLogicalLength(4);
    EXPECT_EQ(numbers[3], 0);
    numbers.setLogicalLength(-1);
    EXPECT_TRUE(numbers.isEmpty());
}

TEST(KdArrayTest, tolerates_silly_lengths_and_reports_a_wrong_index) {
    KdArray<int> numbers(-5, 0);
    EXPECT_EQ(numbers.growLength(), 1);
    numbers.append(1);
    EXPECT_EQ(numbers.at(0), 1);
    EXPECT_THROW(numbers.at(1), std::out_of_range);
    EXPECT_THROW(numbers.at(-1), std::out_of_range);
}
