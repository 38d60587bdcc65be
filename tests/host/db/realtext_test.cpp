// Lengths as text, as the host writes them.

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "kd/db/database.h"
#include "kd/db/headervar.h"
#include "kd/ed/resbuf.h"

namespace {

using HeaderVar = KdDbHeaderVar;

struct Row {
    double value;
    int unit;
    int precision;
    int dimzin;
    const wchar_t* text;       ///< with UNITMODE 0
    const wchar_t* asTyped{};  ///< with UNITMODE 1, where it differs
};

std::wstring written(const KdDbHeaderVar& header, const Row& row) {
    wchar_t buffer[256] = L"";
    EXPECT_EQ(KdadConvertRealToString(header, row.value, row.unit, row.precision, buffer, 256, row.dimzin), RTNORM);
    return buffer;
}

template <std::size_t count>
void expectRows(const Row (&rows)[count]) {
    KdDbHeaderVar forReading;
    KdDbHeaderVar asTyped;
    asTyped.setUnitmode(1);
    for (const Row& row : rows) {
        const wchar_t* typed = row.asTyped != nullptr ? row.asTyped : row.text;
        EXPECT_EQ(written(forReading, row), row.text) << row.value << " unit " << row.unit << " dimzin " << row.dimzin;
        EXPECT_EQ(written(asTyped, row), typed) << row.value << " unit " << row.unit << " dimzin " << row.dimzin;
    }
}

TEST(KdadConvertRealToString, writes_decimals) {
    constexpr int unit = HeaderVar::kDecimal;
    constexpr Row rows[] = {
        {15.5, unit, 4, 0, L"15.5000"},
        {15.5, unit, 0, 0, L"16"},
        {15.5, unit, 8, 0, L"15.50000000"},
        {15.5, unit, 4, 8, L"15.5"},
        {15.0, unit, 4, 8, L"15"},
        {100.0, unit, 0, 8, L"100"},
        {0.5, unit, 2, 4, L".50"},
        {0.5, unit, 2, 12, L".5"},
        {0.0, unit, 2, 0, L"0.00"},
        {0.0, unit, 2, 4, L".00"},
        {0.0, unit, 2, 8, L"0"},
        {0.0, unit, 2, 12, L"0"},
        {-0.5, unit, 2, 12, L"-.5"},
        {-15.5, unit, 2, 3, L"-15.50"},
        {-0.001, unit, 2, 0, L"0.00"},
        {-0.0, unit, 2, 0, L"0.00"},
        {999.996, unit, 2, 0, L"1000.00"},
        {1e20, unit, 1, 0, L"100000000000000000000.0"},
    };
    expectRows(rows);
}

TEST(KdadConvertRealToString, writes_scientific_notation) {
    constexpr int unit = HeaderVar::kScientific;
    constexpr Row rows[] = {
        {15.5, unit, 4, 0, L"1.5500E+01"}, {15.5, unit, 4, 8, L"1.55E+01"}, {15.5, unit, 0, 0, L"2E+01"},
        {0.0, unit, 2, 0, L"0.00E+00"},    {0.0, unit, 2, 12, L"0E+00"},    {-0.00025, unit, 2, 0, L"-2.50E-04"},
        {1e100, unit, 1, 8, L"1E+100"},    {-0.0, unit, 1, 0, L"0.0E+00"},
    };
    expectRows(rows);
}

TEST(KdadConvertRealToString, writes_feet_and_decimal_inches) {
    constexpr int unit = HeaderVar::kEngineering;
    constexpr Row rows[] = {
        {15.5, unit, 2, 0, L"1'-3.50\"", L"1'3.50\""},
        {15.5, unit, 2, 8, L"1'-3.5\"", L"1'3.5\""},
        {12.0, unit, 2, 0, L"1'"},
        {12.0, unit, 2, 1, L"1'-0.00\"", L"1'0.00\""},
        {12.0, unit, 2, 2, L"1'"},
        {12.0, unit, 2, 3, L"1'-0.00\"", L"1'0.00\""},
        {12.0, unit, 2, 11, L"1'-0\"", L"1'0\""},
        {3.5, unit, 2, 0, L"3.50\""},
        {3.5, unit, 2, 1, L"0'-3.50\"", L"0'3.50\""},
        {3.5, unit, 2, 2, L"0'-3.50\"", L"0'3.50\""},
        {3.5, unit, 2, 3, L"3.50\""},
        {0.0, unit, 2, 0, L"0.00\""},
        {0.0, unit, 2, 8, L"0\""},
        {0.0, unit, 2, 2, L"0'"},
        {0.5, unit, 2, 4, L".50\""},
        {12.5, unit, 2, 4, L"1'-0.50\"", L"1'0.50\""},
        {11.999, unit, 2, 0, L"1'"},
        {23.999, unit, 2, 1, L"2'-0.00\"", L"2'0.00\""},
        {-15.5, unit, 1, 0, L"-1'-3.5\"", L"-1'3.5\""},
        {-0.001, unit, 2, 0, L"0.00\""},
    };
    expectRows(rows);
}

TEST(KdadConvertRealToString, writes_feet_and_inches_with_fractions) {
    constexpr int unit = HeaderVar::kArchitectural;
    constexpr Row rows[] = {
        {15.5, unit, 4, 0, L"1'-3 1/2\"", L"1'3-1/2\""},
        {15.0, unit, 4, 0, L"1'-3\"", L"1'3\""},
        {12.75, unit, 4, 0, L"1'-0 3/4\"", L"1'0-3/4\""},
        {12.0, unit, 4, 0, L"1'"},
        {12.0, unit, 4, 1, L"1'-0\"", L"1'0\""},
        {12.0, unit, 4, 2, L"1'"},
        {12.0, unit, 4, 3, L"1'-0\"", L"1'0\""},
        {0.5, unit, 4, 0, L"1/2\""},
        {0.5, unit, 4, 1, L"0'-0 1/2\"", L"0'0-1/2\""},
        {0.5, unit, 4, 2, L"0'-0 1/2\"", L"0'0-1/2\""},
        {0.5, unit, 4, 3, L"1/2\""},
        {6.0, unit, 4, 0, L"6\""},
        {6.0, unit, 4, 1, L"0'-6\"", L"0'6\""},
        {6.0, unit, 4, 2, L"0'-6\"", L"0'6\""},
        {0.0, unit, 4, 0, L"0\""},
        {0.0, unit, 4, 1, L"0'-0\"", L"0'0\""},
        {0.0, unit, 4, 2, L"0'"},
        {0.0, unit, 4, 3, L"0\""},
        {3.5, unit, 4, 0, L"3 1/2\"", L"3-1/2\""},
        {15.5, unit, 0, 0, L"1'-4\"", L"1'4\""},
        {11.99, unit, 4, 0, L"1'"},
        {15.515625, unit, 6, 0, L"1'-3 33/64\"", L"1'3-33/64\""},
        {15.00390625, unit, 8, 0, L"1'-3 1/256\"", L"1'3-1/256\""},
        {-15.5, unit, 1, 0, L"-1'-3 1/2\"", L"-1'3-1/2\""},
        {-0.01, unit, 2, 0, L"0\""},
    };
    expectRows(rows);
}

TEST(KdadConvertRealToString, writes_fractions) {
    constexpr int unit = HeaderVar::kFractional;
    constexpr Row rows[] = {
        {15.5, unit, 4, 0, L"15 1/2", L"15-1/2"},
        {0.5, unit, 4, 0, L"1/2"},
        {0.0, unit, 4, 0, L"0"},
        {15.0, unit, 4, 0, L"15"},
        {15.5, unit, 0, 0, L"16"},
        {15.99, unit, 4, 0, L"16"},
        {-0.25, unit, 2, 0, L"-1/4"},
        {-1.25, unit, 8, 0, L"-1 1/4", L"-1-1/4"},
        {0.1, unit, 8, 0, L"13/128"},
        {0.5, unit, 4, 1, L"1/2"},
    };
    expectRows(rows);
}

TEST(KdadConvertRealToString, takes_the_drawings_settings_for_minus_one) {
    KdDbHeaderVar header;
    header.setLunits(HeaderVar::kArchitectural);
    header.setLuprec(2);
    header.setDimzin(1);
    EXPECT_EQ(written(header, {12.25, -1, -1, -1, nullptr}), L"1'-0 1/4\"");
    EXPECT_EQ(written(header, {0.25, -1, -1, -1, nullptr}), L"0'-0 1/4\"");
    EXPECT_EQ(written(header, {0.25, -1, -1, 0, nullptr}), L"1/4\"");
    EXPECT_EQ(written(header, {0.25, -1, 1, -1, nullptr}), L"0'-0 1/2\"");
    EXPECT_EQ(written(header, {0.25, 2, -1, -1, nullptr}), L"0.25");
}

TEST(KdadConvertRealToString, refuses_what_does_not_fit) {
    const KdDbHeaderVar header;
    wchar_t buffer[] = L"kept";
    EXPECT_EQ(KdadConvertRealToString(header, 15.5, 2, 2, buffer, 5, 0), RTERROR);
    EXPECT_EQ(KdadConvertRealToString(header, 15.5, 2, 2, buffer, 0, 0), RTERROR);
    EXPECT_STREQ(buffer, L"kept");
    EXPECT_EQ(KdadConvertRealToString(header, 15.5, 2, 1, buffer, 5, 0), RTNORM);
    EXPECT_STREQ(buffer, L"15.5");
    EXPECT_EQ(KdadConvertRealToString(header, 15.5, 2, 1, nullptr, 5, 0), RTERROR);
}

TEST(KdadConvertRealToString, refuses_settings_out_of_range_and_what_is_no_number) {
    const KdDbHeaderVar header;
    struct Bad {
        double value;
        int unit;
        int precision;
        int dimzin;
    };
    constexpr Bad rows[] = {
        {1.0, 0, 2, 0},
        {1.0, 6, 2, 0},
        {1.0, -2, 2, 0},
        {1.0, 2, 9, 0},
        {1.0, 2, -2, 0},
        {1.0, 2, 2, 16},
        {1.0, 2, 2, -2},
        {std::numeric_limits<double>::infinity(), 2, 2, 0},
        {std::numeric_limits<double>::quiet_NaN(), 5, 2, 0},
    };
    for (const Bad& row : rows) {
        wchar_t buffer[64] = L"kept";
        EXPECT_EQ(KdadConvertRealToString(header, row.value, row.unit, row.precision, buffer, 64, row.dimzin), RTERROR);
        EXPECT_STREQ(buffer, L"kept");
    }
}

TEST(KdadConvertRealToString, writes_the_largest_numbers_in_every_unit) {
    const KdDbHeaderVar header;
    wchar_t buffer[400];
    for (int unit = 1; unit <= 5; ++unit) {
        for (int precision = 0; precision <= 8; ++precision) {
            for (const double value : {1e300, -1.7e308, 5e-324}) {
                EXPECT_EQ(KdadConvertRealToString(header, value, unit, precision, buffer, 400, 0), RTNORM);
            }
        }
    }
}

}  // namespace
