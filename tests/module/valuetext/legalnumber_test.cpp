// Tests of what a dialog field holds.

#include <limits>

#include "module/valuetext/tableutils.h"
#include "tests/support/textmodels.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    std::wstring text;
    bool legal;
    std::wstring after;
};

template <std::size_t count>
void expectRows(bool (*test)(CStdStr<wchar_t>&), const Row (&rows)[count]) {
    for (const Row& row : rows) {
        CStdStr<wchar_t> text = row.text;
        EXPECT_EQ(test(text), row.legal) << kdtest::quoted(row.text);
        EXPECT_EQ(text, row.after) << kdtest::quoted(row.text);
    }
}

TEST(IsLegalNumber, takes_plain_digits_with_a_fraction_or_without) {
    const Row rows[] = {
        {L"7", true, L"7"},
        {L"007", true, L"7"},
        {L"007.50", true, L"7.50"},
        {L"1.50", true, L"1.50"},
        {L" 1.50\t", true, L"1.50"},
        {L"0", true, L"0"},
        {L"0.0", true, L"0.0"},
        {L"", false, L""},
        {L"  ", false, L""},
        {L".5", false, L".5"},
        {L"5.", false, L"5."},
        {L"-5", false, L"-5"},
        {L"+5", false, L"+5"},
        {L"1e3", false, L"1e3"},
        {L"1.2.3", false, L"1.2.3"},
        {L" 1 2 ", false, L"1 2"},
        {L"1.5x", false, L"1.5x"},
        {L"x", false, L"x"},
        {L".", false, L"."},
        {L"1. 5", false, L"1. 5"},
        {L"1,5", false, L"1,5"},
        {L"2147483647", true, L"2147483647"},
        // A whole part beyond 32 bits comes back as the greatest integer.
        {L"2147483648", true, L"2147483647"},
        {L"99999999999999999999.25", true, L"2147483647.25"},
    };
    expectRows(CVqTableUtils::IsLegalNumber, rows);
}

TEST(IsLegalNumber, holds_at_most_1023_digits_in_a_part) {
    const std::wstring longest(1023, L'0');
    const std::wstring tooLong(1024, L'0');
    const Row rows[] = {
        {longest, true, L"0"},
        {tooLong, false, tooLong},
        {L"1." + longest, true, L"1." + longest},
        {L"1." + tooLong, false, L"1." + tooLong},
    };
    expectRows(CVqTableUtils::IsLegalNumber, rows);
}

TEST(IsLegalInteger, takes_integers_other_than_zero) {
    const Row rows[] = {
        {L"7", true, L"7"},
        {L"+007", true, L"7"},
        {L"-7", true, L"-7"},
        {L" 12 ", true, L"12"},
        {L"0", false, L"0"},
        {L"-0", false, L"-0"},
        {L"", false, L""},
        {L" \n", false, L""},
        {L"1.0", false, L"1.0"},
        {L"1x", false, L"1x"},
        {L"1 2", false, L"1 2"},
        {L"2147483647", true, L"2147483647"},
        {L"2147483648", false, L"2147483648"},
        {L"-2147483648", true, L"-2147483648"},
        {L"-2147483649", false, L"-2147483649"},
        {L"0x10", false, L"0x10"},
        {L"1,000", false, L"1,000"},
        {L"--1", false, L"--1"},
    };
    expectRows(CVqTableUtils::IsLegalInteger, rows);
}

TEST(IsLegalScientificNotation, takes_whatever_is_not_blank) {
    const Row rows[] = {
        {L" 1e3 ", true, L"1e3"},
        {L"x y", true, L"x y"},
        {L"", false, L""},
        {L" \t\r\n", false, L""},
    };
    expectRows(CVqTableUtils::IsLegalScientificNotation, rows);
}

TEST(IsRealValid, refuses_infinities_nans_and_denormal_numbers) {
    using Limits = std::numeric_limits<double>;
    for (const double value : {0.0, -0.0, 1.0, -1e300, Limits::max(), Limits::lowest(), Limits::min()}) {
        EXPECT_TRUE(CVqTableUtils::IsRealValid(value)) << value;
    }
    for (const double value : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::denorm_min(),
                               -Limits::denorm_min(), Limits::min() / 2.0}) {
        EXPECT_FALSE(CVqTableUtils::IsRealValid(value)) << value;
    }
}

}  // namespace
