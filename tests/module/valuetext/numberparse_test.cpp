// The scanners of lengths: the forms that they accept, and their values to the last bit.

#include "module/valuetext/numberparse.h"

#include "tests/module/valuetext/scannedtexts.h"

namespace {

kdtest::Scanned decimal(const std::wstring& text) {
    return scanned(ParseAsDecimal, text);
}

kdtest::Scanned architectural(const std::wstring& text) {
    return scanned(ParseAsArchitectural, text);
}

TEST(GatherValue, gathers_digits_and_stops_at_the_first_other_character) {
    struct Row {
        const wchar_t* text;
        double value;
        int count;
    };
    constexpr Row rows[] = {
        {L"", 0.0, 0},
        {L"x", 0.0, 0},
        {L".5", 0.0, 0},
        {L"7", 7.0, 1},
        {L"0012x", 12.0, 4},
        {L"90 1", 90.0, 2},
        {L"123456789012345", 123456789012345.0, 15},
        {L"\u0661\u0662", 0.0, 0},
        {L"\uff11", 0.0, 0},
        {L"/", 0.0, 0},
        {L":", 0.0, 0},
    };
    for (const Row& row : rows) {
        std::wstring text = row.text;
        wchar_t* cursor = text.data();
        double value = -1.0;
        int count = -1;
        GatherValue(&cursor, &value, &count);
        EXPECT_EQ(value, row.value) << kdtest::quoted(text);
        EXPECT_EQ(count, row.count) << kdtest::quoted(text);
        EXPECT_EQ(cursor - text.data(), row.count) << kdtest::quoted(text);
    }
}

TEST(GatherValue, adds_up_long_numbers_digit_by_digit) {
    std::mt19937 random(4711);
    for (int length = 1; length <= 320; ++length) {
        std::wstring text;
        double wanted = 0.0;
        for (int place = 0; place < length; ++place) {
            const int digit = static_cast<int>(random() % 10);
            text += static_cast<wchar_t>(L'0' + digit);
            wanted = digit + 10.0 * wanted;
        }
        wchar_t* cursor = text.data();
        double value = 0.0;
        int count = 0;
        GatherValue(&cursor, &value, &count);
        ASSERT_EQ(value, wanted) << kdtest::quoted(text);
        ASSERT_EQ(count, length);
    }
}

TEST(ParseAsDecimal, accepts_and_refuses_by_its_table) {
    constexpr AcceptedText accepted[] = {
        {L"12", 12.0},     {L"12.", 12.0},     {L"12.5", 12.5}, {L".5", 0.5},        {L"1e3", 1000.0}, {L"1E3", 1000.0},
        {L"1E+3", 1000.0}, {L"1.5e-2", 0.015}, {L".5e1", 5.0},  {L".e3", 0.0},       {L"1e", 1.0},     {L"1e+", 1.0},
        {L"1e-", 1.0},     {L"1e99", 1e99},    {L"0", 0.0},     {L"007.50", 7.5},    {L"1e099", 1e99}, {L".e", 0.0},
        {L"1.5e0", 1.5},   {L"1.5E-0", 1.5},   {L"2.5e", 2.5},  {L"12.e3", 12000.0}, {L"1.E-1", 0.1},  {L"1.e", 1.0},
    };
    constexpr const wchar_t* refused[] = {
        L"",   L".",    L"1e100", L"1.2.3", L"1e3x",  L"+1",      L"-1",    L"1e5x", L"x",      L"1x",   L"1.x",
        L".x", L"..5",  L"1e++3", L"1e3.5", L" 1",    L"1 ",      L"1e 3",  L"1.5 ", L"e3",     L"1ee3", L"1,5",
        L"1'", L"0x10", L"inf",   L"nan",   L"1e1e1", L"12.e100", L"1.e3x", L"1.5f", L"\u0661",
    };
    expectScanned(decimal, accepted, refused);
}

TEST(ParseAsDecimal, divides_the_fraction_by_ten_once_for_each_digit) {
    std::mt19937 random(1905);
    bool differsFromOneDivision = false;
    for (int number = 0; number < 20000; ++number) {
        std::wstring digits(random() % 20 + 1, 0);
        for (wchar_t& digit : digits) digit = static_cast<wchar_t>(L'0' + random() % 10);
        double wanted = 0.0;
        for (const wchar_t digit : digits) wanted = (digit - L'0') + 10.0 * wanted;
        for (std::size_t left = digits.size(); left > 0; --left) wanted /= 10.0;
        ASSERT_EQ(decimal(L"." + digits), kdtest::Scanned(wanted)) << kdtest::quoted(digits);
        if (wanted != std::wcstod((L"." + digits).c_str(), nullptr)) differsFromOneDivision = true;
    }
    EXPECT_TRUE(differsFromOneDivision);
}

TEST(ParseAsDecimal, agrees_with_its_model_on_a_million_random_texts) {
    expectModelled(decimal, kdtest::modelDecimal, L"0123456789001122..eE+-x", 8, 1000000);
}

TEST(ParseAsArchitectural, accepts_and_refuses_by_its_table) {
    constexpr AcceptedText accepted[] = {
        {L"5'", 60.0},       {L"5'3", 63.0},     {L"5'3\"", 63.0},      {L"5'-3", 63.0},       {L"5' 3\"", 63.0},
        {L"5'3.5", 63.5},    {L"5'3.5\"", 63.5}, {L"5'3.", 63.0},       {L"5'3.\"", 63.0},     {L"5'3/4", 60.75},
        {L"5'3/4\"", 60.75}, {L"5'3-1/2", 63.5}, {L"5'-3 1/2\"", 63.5}, {L"3", 3.0},           {L"3\"", 3.0},
        {L"3.5\"", 3.5},     {L"3.5", 3.5},      {L".5", 0.5},          {L".5\"", 0.5},        {L".5'", 6.0},
        {L"5.5'", 66.0},     {L"3/4", 0.75},     {L"3/4\"", 0.75},      {L"3-1/2", 3.5},       {L"3 1/2\"", 3.5},
        {L".", 0.0},         {L"3.", 3.0},       {L"5'3 1/2", 63.5},    {L"5'-3-1/2\"", 63.5}, {L"0'0\"", 0.0},
        {L"5' 3-1/2", 63.5}, {L"5'-3/4", 60.75},
    };
    constexpr const wchar_t* refused[] = {
        L"",        L"5'-",    L"5' ",      L"5'3\"x", L"3/0",   L"5.5'x",    L"3.'",     L"3.\"",
        L"x",       L"'",      L"\"",       L"-3",     L" 3",    L"3 ",       L"3-",      L"3-1",
        L"3-1/",    L"3/",     L"3/4x",     L"3/4'",   L"5'x",   L"5'\"",     L"5'.5",    L"5'--3",
        L"5'- 3",   L"5'3'",   L"5'3-",     L"5'3-1",  L"5'3/",  L"5'3/0",    L"3\"\"",   L"3\"4",
        L"3 1/2x",  L"5'3.5x", L"5'3.5\"x", L"5.5\"x", L"5.5''", L"1.2.3",    L"5'3.5'",  L"3-1/0\"",
        L"5.5 1/2", L"1/2/3",  L"3 -1/2",   L"..",     L".'",    L"5'3 1/2'", L"3/00000",
    };
    expectScanned(architectural, accepted, refused);
}

TEST(ParseAsArchitectural, agrees_with_its_model_on_a_million_random_texts) {
    expectModelled(architectural, kdtest::modelArchitectural, L"0123456789012''\"\".-- //x", 9, 1000000);
}

}  // namespace
