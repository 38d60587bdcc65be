// Tables of texts with what a scanner makes of them.
#pragma once

#include <gtest/gtest.h>

#include <limits>

#include "mfc/stdstr.h"
#include "tests/support/textmodels.h"

/// A text and its value.
struct AcceptedText {
    const wchar_t* text;
    double value;
};

/// The scanners of lengths in a form for tables: none where the scanner refuses, which also leaves 0.
inline kdtest::Scanned scanned(int (*scanner)(wchar_t*, double*), const std::wstring& text) {
    std::wstring copy = text;
    double value = -1.0;
    if (scanner(copy.data(), &value) != 0) return value;
    EXPECT_EQ(value, 0.0) << kdtest::quoted(text) << " leaves another value";
    EXPECT_EQ(copy, text);
    return std::nullopt;
}

/// Every accepted text gives its value, to the last bit, and every refused one none.
template <class Scanner, std::size_t accepted, std::size_t refused>
void expectScanned(Scanner scanner, const AcceptedText (&good)[accepted], const wchar_t* const (&bad)[refused]) {
    for (const AcceptedText& row : good) {
        const kdtest::Scanned value = scanner(row.text);
        ASSERT_TRUE(value.has_value()) << kdtest::quoted(row.text);
        EXPECT_TRUE(kdtest::sameBits(value, row.value)) << kdtest::quoted(row.text) << " gives " << *value;
    }
    for (const wchar_t* text : bad) {
        EXPECT_FALSE(scanner(text).has_value()) << kdtest::quoted(text);
    }
}

/// The scanner and its model agree on that many random texts of the alphabet.
template <class Scanner, class Model>
void expectModelled(Scanner scanner, Model model, const std::wstring& alphabet, std::size_t longest, int count) {
    std::mt19937 random(static_cast<unsigned>(::testing::UnitTest::GetInstance()->random_seed()) + 1);
    int accepted = 0;
    for (int number = 0; number < count; ++number) {
        const std::wstring text = kdtest::randomText(random, alphabet, longest);
        const kdtest::Scanned got = scanner(text);
        const kdtest::Scanned wanted = model(text);
        ASSERT_TRUE(kdtest::sameBits(got, wanted))
            << kdtest::quoted(text) << ": " << got.value_or(std::numeric_limits<double>::quiet_NaN()) << " for "
            << wanted.value_or(std::numeric_limits<double>::quiet_NaN());
        if (wanted) ++accepted;
    }
    // Random texts that are all refused would show nothing.
    EXPECT_GT(accepted, count / 200);
}
