// Lengths as dialog fields read and write them.

#include <cmath>

#include "kd/db/database.h"
#include "kd/db/headervar.h"
#include "kd/ed/resbuf.h"
#include "module/valuetext/tableutils.h"
#include "tests/module/valuetext/scannedtexts.h"

namespace {

/// The value, or none; a refused text leaves 0, with the sign of its minus, and an empty one nothing.
kdtest::Scanned length(const std::wstring& text) {
    double value = 17.0;
    if (CVqTableUtils::StringToDoubleConvert(nullptr, text, value) != 0) return value;
    EXPECT_EQ(value, text.empty() ? 17.0 : 0.0) << kdtest::quoted(text);
    return std::nullopt;
}

TEST(StringToDoubleConvert, chooses_the_scanner_by_the_look_of_the_text) {
    constexpr AcceptedText accepted[] = {
        {L"12.5", 12.5}, {L"-12.5", -12.5},     {L"+12.5", 12.5},    {L"  7\t", 7.0},  {L"-5'6", -66.0},
        {L"1-1/2", 1.5}, {L"-1-1/2", -1.5},     {L"2e3", 2000.0},    {L"-2E-1", -0.2}, {L"5'-3 1/2\"", 63.5},
        {L"3/4", 0.75},  {L"1 1/2", 1.5},       {L"3\"", 3.0},       {L"-0", -0.0},    {L"1e", 1.0},
        {L".e3", 0.0},   {L"-12.e3", -12000.0}, {L"\v\f\r\n8", 8.0}, {L"+5'", 60.0},   {L"\u30003-1/2\u2003", 3.5},
    };
    constexpr const wchar_t* refused[] = {
        L"",    L"-",   L"+",   L" ",     L"--5",  L"+-5",   L"1e100", L"x",      L".",  L"- 5", L"1e3x",
        L"5'-", L"5 6", L"5mm", L"5'6e1", L"0x10", L"1.2.3", L"1/0",   L"\u3000", L"-.", L"e",
    };
    expectScanned(length, accepted, refused);
}

TEST(StringToDoubleConvert, leaves_minus_zero_behind_a_refused_minus) {
    for (const wchar_t* text : {L"-", L"-x", L"-1e100", L"-5'-"}) {
        double value = 17.0;
        EXPECT_EQ(CVqTableUtils::StringToDoubleConvert(nullptr, text, value), 0);
        EXPECT_EQ(value, 0.0);
        EXPECT_TRUE(std::signbit(value)) << kdtest::quoted(text);
    }
}

TEST(StringToDoubleConvert, reads_exponents_with_the_rounding_of_the_c_library) {
    // Scanned digit by digit, these would end one bit away.
    for (const wchar_t* text : {L"1.234567e-5", L"8.7654321e22", L"3.3e-7"}) {
        EXPECT_EQ(length(text), kdtest::Scanned(std::wcstod(text, nullptr)));
    }
}

TEST(StringToDoubleConvert, agrees_with_its_model_on_a_million_random_texts) {
    expectModelled(length, kdtest::modelLength, L"01234567890123'\"./-+ eEx\t", 8, 1000000);
}

TEST(DoubleToStringConvert, needs_a_database) {
    CStdStr<wchar_t> text = L"kept";
    EXPECT_EQ(CVqTableUtils::DoubleToStringConvert(nullptr, 1.0, text), RTERROR);
    EXPECT_EQ(text, L"kept");
}

TEST(DoubleToStringConvert, writes_in_the_units_of_the_drawing) {
    KdDbDatabase database(false, true);
    CStdStr<wchar_t> text;
    EXPECT_EQ(CVqTableUtils::DoubleToStringConvert(&database, 15.5, text), 1);
    EXPECT_EQ(text, L"15.5");
    database.setLunits(KdDbHeaderVar::kArchitectural);
    EXPECT_EQ(CVqTableUtils::DoubleToStringConvert(&database, 15.5, text), 1);
    EXPECT_EQ(text, L"1'-3 1/2\"");
    database.setLuprec(0);
    database.setLunits(KdDbHeaderVar::kDecimal);
    EXPECT_EQ(CVqTableUtils::DoubleToStringConvert(&database, -2.6, text), 1);
    EXPECT_EQ(text, L"-3");
}

TEST(DoubleToStringConvert, empties_the_text_where_the_host_refuses) {
    KdDbDatabase database(false, true);
    for (const double value : {1e300, std::numeric_limits<double>::infinity()}) {
        CStdStr<wchar_t> text = L"old";
        EXPECT_EQ(CVqTableUtils::DoubleToStringConvert(&database, value, text), 0);
        EXPECT_EQ(text, L"");
    }
}

TEST(DoubleToStringConvert, what_it_writes_reads_back) {
    KdDbDatabase database(false, true);
    constexpr double values[] = {0.0,   0.5,  1.0,   11.5,  11.999999999, 12.0,  12.25,    15.5,       143.99999999,
                                 144.0, 0.03, 100.0, 3.875, -0.75,        -12.5, -27.0625, 0.999999999};
    for (int unit = 1; unit <= 5; ++unit) {
        for (int precision = 0; precision <= 8; ++precision) {
            for (int dimzin = 0; dimzin < 16; ++dimzin) {
                for (int mode = 0; mode <= 1; ++mode) {
                    database.setLunits(unit);
                    database.setLuprec(precision);
                    database.setDimzin(dimzin);
                    database.setUnitmode(mode);
                    const bool isFraction = unit >= KdDbHeaderVar::kArchitectural;
                    const double step = isFraction ? std::pow(2.0, -precision) : std::pow(10.0, -precision);
                    for (const double value : values) {
                        CStdStr<wchar_t> text;
                        ASSERT_EQ(CVqTableUtils::DoubleToStringConvert(&database, value, text), 1);
                        const kdtest::Scanned back = length(text);
                        ASSERT_TRUE(back.has_value()) << kdtest::quoted(text) << " of " << value;
                        const double scale = unit == KdDbHeaderVar::kScientific ? std::max(std::abs(value), 1e-9) : 1.0;
                        EXPECT_NEAR(*back, value, step * scale * 0.5 + 1e-9) << kdtest::quoted(text);
                    }
                }
            }
        }
    }
}

TEST(ConvertStringWithDimzin, suppresses_zeros_by_the_setting) {
    struct Row {
        double value;
        int precision;
        int dimzin;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {0.5, 3, 0, L"0.500"},    {0.5, 3, 3, L"0.500"},  {0.5, 3, 4, L".500"},     {0.5, 3, 7, L".500"},
        {0.5, 3, 8, L"0.5"},      {0.5, 3, 11, L"0.5"},   {0.5, 3, 12, L".5"},      {0.5, 3, 15, L".5"},
        {0.5, 3, 99, L".5"},      {0.5, 3, -1, L"0.500"}, {0.0, 2, 12, L"0"},       {0.0, 2, 8, L"0"},
        {0.0, 2, 4, L".00"},      {0.0, 2, 0, L"0.00"},   {0.0, 0, 12, L"0"},       {1.5, 3, 4, L"1.500"},
        {1.5, 3, 8, L"1.5"},      {1.5, 3, 12, L"1.5"},   {10.0, 2, 12, L"10"},     {10.0, 0, 12, L"10"},
        {100.0, 0, 8, L"100"},    {-0.5, 3, 8, L"-0.5"},  {-0.5, 3, 0, L"-0.500"},  {-1.5, 3, 12, L"-1.5"},
        {-10.5, 2, 4, L"-10.50"}, {0.05, 3, 12, L".05"},  {20.05, 3, 12, L"20.05"}, {1e-11, 2, 12, L"0"},
        {0.004, 2, 12, L""},      {-0.4, 0, 12, L"-0"},
    };
    for (const Row& row : rows) {
        CStdStr<wchar_t> text = L"old";
        EXPECT_EQ(CVqTableUtils::ConvertStringWithDimzin(row.value, row.precision, row.dimzin, text), 1);
        EXPECT_EQ(text, row.text) << row.value << " precision " << row.precision << " dimzin " << row.dimzin;
    }
}

TEST(ConvertStringWithDimzin, never_completes_where_a_leading_zero_would_go_behind_a_minus) {
    for (const int dimzin : {4, 7, 12, 15}) {
        CStdStr<wchar_t> text;
        EXPECT_THROW(CVqTableUtils::ConvertStringWithDimzin(-0.5, 2, dimzin, text), std::out_of_range) << dimzin;
        EXPECT_EQ(text, L".50") << "it was cut before, dimzin " << dimzin;
    }
}

}  // namespace
