// CStdStr and the current resource handle.

#include "mfc/stdstr.h"

#include <gtest/gtest.h>

#include "mfc/resource.h"

using Text = CStdStr<wchar_t>;

TEST(StdStr, is_a_wide_string_that_takes_null_for_empty) {
    Text text(static_cast<const wchar_t*>(nullptr));
    EXPECT_TRUE(text.IsEmpty());
    text = L"中文";
    EXPECT_EQ(text.GetLength(), 2);
    EXPECT_STREQ(static_cast<const wchar_t*>(text), L"中文");
    text = static_cast<const wchar_t*>(nullptr);
    EXPECT_EQ(text.GetLength(), 0);
    text = std::wstring(L"x") + L"y";
    EXPECT_EQ(text, L"xy");
    text.Empty();
    EXPECT_TRUE(text.empty());
}

TEST(StdStr, formats_wide_text_its_own_too) {
    Text text(L"A");
    text.Format(L"%s%d-%ls", text.c_str(), 7, L"中");
    EXPECT_EQ(text, L"A7-中");
    text.Format(L"%I64d", 1LL << 40);
    EXPECT_EQ(text, L"1099511627776");
}

TEST(StdStr, trims_blanks_of_every_kind_at_its_ends_only) {
    const struct {
        const wchar_t* text;
        const wchar_t* left;
        const wchar_t* right;
        const wchar_t* both;
    } rows[] = {{L"  a b \t\r\n", L"a b \t\r\n", L"  a b", L"a b"},
                {L"a", L"a", L"a", L"a"},
                {L" \n ", L"", L"", L""},
                {L"", L"", L"", L""}};
    for (const auto& row : rows) {
        EXPECT_EQ(Text(row.text).TrimLeft(), row.left);
        EXPECT_EQ(Text(row.text).TrimRight(), row.right);
        EXPECT_EQ(Text(row.text).Trim(), row.both);
    }
}

TEST(StdStr, compares_without_regard_to_the_case_of_latin_letters) {
    EXPECT_EQ(Text(L"aBc中").CompareNoCase(L"AbC中"), 0);
    EXPECT_LT(Text(L"abc").CompareNoCase(L"ABD"), 0);
    EXPECT_GT(Text(L"abcd").CompareNoCase(L"ABC"), 0);
    EXPECT_LT(Text(L"ab").CompareNoCase(L"ABC"), 0);
    EXPECT_EQ(Text().CompareNoCase(nullptr), 0);
    EXPECT_GT(Text(L"a").CompareNoCase(nullptr), 0);
}

TEST(ResourceHandle, is_what_was_set_last) {
    const HINSTANCE before = AfxGetResourceHandle();
    int other = 0;
    AfxSetResourceHandle(reinterpret_cast<HINSTANCE>(&other));
    EXPECT_EQ(AfxGetResourceHandle(), reinterpret_cast<HINSTANCE>(&other));
    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(AfxGetResourceHandle(), nullptr);
    AfxSetResourceHandle(before);
}
