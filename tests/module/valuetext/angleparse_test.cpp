// The scanners of angle text.

#include <cmath>

#include "kd/db/database.h"
#include "module/valuetext/tableutils.h"
#include "tests/module/valuetext/scannedtexts.h"
#include "tests/support/angles.h"

namespace {

using kdtest::degrees;
using kdtest::halfPi;
using kdtest::pi;
using kdtest::twoPi;
constexpr double untouched = 17.0;

kdtest::Scanned degreeText(const std::wstring& text) {
    double value = untouched;
    if (CVqTableUtils::DecimaldegreesToRadian(text, value) != 0) return value;
    EXPECT_EQ(value, untouched) << kdtest::quoted(text);
    return std::nullopt;
}

kdtest::Scanned decimalAngle(const std::wstring& text) {
    double value = untouched;
    if (CVqTableUtils::ProcessDecimalToAngle(text, CVqTableUtils::DegreeSign(), value) != 0) return value;
    EXPECT_EQ(value, untouched) << kdtest::quoted(text);
    return std::nullopt;
}

template <int north>
kdtest::Scanned bearing(const std::wstring& text) {
    double working = 0.0;
    double value = untouched;
    const int parsed = CVqTableUtils::ProcessSurveyNorthAndSouthToAngle(0, text, working, value, 0.0, 0, north);
    if (parsed != 0) return value;
    EXPECT_EQ(value, untouched) << kdtest::quoted(text);
    return std::nullopt;
}

kdtest::Scanned angleIn(KdDbDatabase& database, const std::wstring& text) {
    double value = untouched;
    if (CVqTableUtils::StringToAngleConvert(&database, text, value) != 0) return value;
    EXPECT_EQ(value, untouched) << kdtest::quoted(text);
    return std::nullopt;
}

kdtest::Scanned angle(const std::wstring& text) {
    static KdDbDatabase database(false, true);
    return angleIn(database, text);
}

TEST(DecimaldegreesToRadian, accepts_and_refuses_by_its_table) {
    constexpr AcceptedText accepted[] = {
        {L"45", degrees(45.0)},
        {L"45.5", degrees(45.5)},
        {L"45d30'", degrees(45.0 + 30.0 / 60.0)},
        {L"45D30'", degrees(45.0 + 30.0 / 60.0)},
        {L"45d30'15\"", degrees(45.0 + 30.0 / 60.0 + 15.0 / 3600.0)},
        {L"30'", degrees(30.0 / 60.0)},
        {L"15\"", degrees(15.0 / 3600.0)},
        {L"1d2\"", degrees(1.0 + 2.0 / 3600.0)},
        {L"2'3\"", degrees(2.0 / 60.0 + 3.0 / 3600.0)},
        {L"-45d30'", -degrees(45.0 + 30.0 / 60.0)},
        {L"-45", -degrees(45.0)},
        {L"45d", degrees(45.0)},
        {L"1.5d", degrees(1.5)},
        {L"d", 0.0},
        {L"'", 0.0},
        {L"d30'", degrees(30.0 / 60.0)},
        {L".", 0.0},
        {L"1.2.3", degrees(1.2)},
        {L"-", -0.0},
        {L"--", -0.0},
        {L"-0", -0.0},
    };
    constexpr const wchar_t* refused[] = {
        L"",    L"45d30", L"30'45d", L"45x", L"45d30'15", L"1\"2'", L"1d2d", L"1'2'",   L"1\"2\"", L"45 d",
        L"--5", L"---",   L"4-5",    L"+45", L"45\u00b0", L"1\"2d", L"1e3",  L"45d-3'", L" 45",    L"45 ",
    };
    expectScanned(degreeText, accepted, refused);
}

TEST(DecimaldegreesToRadian, agrees_with_its_model_on_a_million_random_texts) {
    expectModelled(degreeText, kdtest::modelDegrees, L"0123456789..dD''\"\"-x", 7, 1000000);
}

TEST(ProcessDecimalToAngle, takes_the_digit_before_a_mark_of_degrees_along) {
    constexpr AcceptedText accepted[] = {
        {L"45", degrees(45.0)},
        {L"-45", degrees(-45.0)},
        {L"45.5", degrees(45.5)},
        {L".5", degrees(0.5)},
        {L"45d", degrees(4.0)},
        {L"123.5d", degrees(123.0)},
        {L"45D", degrees(4.0)},
        {L"45\u00b0", degrees(4.0)},
        {L"4d", 0.0},
        {L"-d", 0.0},
        {L"45dxyz", degrees(4.0)},
        {L"-45d", degrees(-4.0)},
        {L"-", 0.0},
        {L".", 0.0},
        {L"1.2.3", degrees(1.2)},
        {L"456d7D8", degrees(45.0)},
        {L"12D3d", degrees(1.0)},
        {L"125\u00b030'", degrees(12.0)},
    };
    constexpr const wchar_t* refused[] = {
        L"", L"d", L"x", L"+45", L" 45", L"45 ", L"45x", L"4-5", L"--5", L"1e3", L"45'", L"\u00b0", L"1x5d",
    };
    expectScanned(decimalAngle, accepted, refused);
}

TEST(ProcessDecimalToAngle, agrees_with_its_model_on_a_million_random_texts) {
    expectModelled(decimalAngle, kdtest::modelDecimalAngle, L"0123456789012..-dD\u00b0x", 6, 1000000);
}

TEST(ProcessSurveyNorthAndSouthToAngle, reads_bearings_towards_west_from_north_and_south_alike) {
    constexpr AcceptedText accepted[] = {
        {L"N 45d W", halfPi + degrees(45.0)},
        {L"N45dW", halfPi + degrees(45.0)},
        {L"N 45dW", halfPi + degrees(45.0)},
        {L"N45d W", halfPi + degrees(45.0)},
        {L"n 45d w", halfPi + degrees(45.0)},
        {L"N 45 W", halfPi + degrees(45.0)},
        {L"N 0 W", halfPi},
        {L"N 90 W", halfPi + halfPi},
        {L"N 45d30' W", halfPi + degrees(45.5)},
        {L"N 30' W", halfPi + degrees(0.5)},
        {L"N 1.5 W", halfPi + degrees(1.5)},
    };
    constexpr const wchar_t* refused[] = {
        L"N 45d E", L"N45dE",   L"N 45d", L"N 45d ", L"N  45d W", L"N 45d  W", L"N 91 W",    L"N d W",   L"N 45d WW",
        L"N 45d X", L"N -45 W", L"N W",   L"NW",     L"N ",       L"N 45x W",  L"N 45d30 W", L"N 45dW ", L"N .5 W",
    };
    expectScanned(bearing<1>, accepted, refused);
    expectScanned(bearing<0>, accepted, refused);
}

TEST(ProcessSurveyNorthAndSouthToAngle, tells_north_from_south_only_where_they_stand_alone) {
    EXPECT_TRUE(kdtest::sameBits(bearing<1>(L"N"), halfPi));
    EXPECT_TRUE(kdtest::sameBits(bearing<0>(L"S"), pi + halfPi));
}

TEST(ProcessSurveyNorthAndSouthToAngle, leaves_its_working_value_in_the_angle) {
    struct Row {
        const wchar_t* text;
        int north;
        double working;
    };
    const Row rows[] = {
        {L"N 45d E", 1, halfPi - degrees(45.0)},
        {L"S 45d e", 0, pi + halfPi - degrees(45.0)},
        {L"N 45d X", 1, degrees(45.0)},
        {L"N 45d", 1, degrees(45.0)},
        {L"N 91 W", 1, degrees(91.0)},
        {L"N x W", 1, untouched},
        {L"N 45d30 W", 1, untouched},
    };
    for (const Row& row : rows) {
        double working = untouched;
        double out = untouched;
        EXPECT_EQ(CVqTableUtils::ProcessSurveyNorthAndSouthToAngle(0, row.text, working, out, 0.0, 0, row.north), 0);
        EXPECT_EQ(working, row.working) << kdtest::quoted(row.text);
        EXPECT_EQ(out, untouched) << kdtest::quoted(row.text);
    }
}

TEST(ProcessSurveyNorthAndSouthToAngle, applies_base_and_direction) {
    double working = 0.0;
    double out = 0.0;
    EXPECT_EQ(CVqTableUtils::ProcessSurveyNorthAndSouthToAngle(0, L"N", working, out, 1.0, 1, 1), 1);
    EXPECT_NEAR(out, 1.0 - halfPi + twoPi, 1e-12);
    EXPECT_EQ(CVqTableUtils::ProcessSurveyNorthAndSouthToAngle(0, L"S 30 W", working, out, 1.0, 0, 0), 1);
    EXPECT_NEAR(out, 1.0 + halfPi + degrees(30.0), 1e-12);
}

TEST(ProcessSurveyNorthAndSouthToAngle, agrees_with_its_model_on_a_million_random_texts) {
    const auto north = [](const std::wstring& text) { return bearing<1>(L"N" + text); };
    const auto model = [](const std::wstring& text) { return kdtest::modelSurvey(L"N" + text, true); };
    expectModelled(north, model, L"0123456789. d'\"WWWEx", 6, 1000000);
}

TEST(StringToAngleConvert, accepts_and_refuses_by_its_table) {
    const AcceptedText accepted[] = {
        {L"45", degrees(45.0)},
        {L"45d", degrees(4.0)},
        {L"45\u00b0", degrees(4.0)},
        {L"45d30'", degrees(45.5)},
        {L"45\u00b030'", degrees(45.5)},
        {L"100g", halfPi},
        {L"100G", halfPi},
        {L"1.5r", 1.5},
        {L"1.5R", 1.5},
        {L"E", 0.0},
        {L"e", 0.0},
        {L"W", pi},
        {L"w", pi},
        {L"N", halfPi},
        {L"S", pi + halfPi},
        {L"N 45d W", halfPi + degrees(45.0)},
        {L"S 45d W", halfPi + degrees(45.0)},
        {L"n45w", halfPi + degrees(45.0)},
        {L"0", 0.0},
        {L".5r", 0.5},
        {L"15\"", degrees(15.0 / 3600.0)},
        {L"1rg", pi * 1.0 / 200.0},
        {L"N 45\u00b0 W", halfPi + degrees(45.0)},
        {L"45dW", degrees(4.0)},
        {L"45d30", degrees(4.0)},
    };
    constexpr const wchar_t* refused[] = {
        L"",  L"N 45d E", L"1e3", L"East", L"EE", L"WW",   L"E ",      L"x",    L"45x",   L" 45",
        L"r", L"g",       L"xr",  L"+1r",  L"NE", L"N 45", L"45d30'x", L"45 W", L"1e11r", L"2e4g",
    };
    for (const AcceptedText& row : accepted) {
        const kdtest::Scanned value = angle(row.text);
        ASSERT_TRUE(value.has_value()) << kdtest::quoted(row.text);
        EXPECT_NEAR(*value, row.value, 1e-12) << kdtest::quoted(row.text);
    }
    for (const wchar_t* text : refused) {
        EXPECT_FALSE(angle(text).has_value()) << kdtest::quoted(text);
    }
}

TEST(StringToAngleConvert, brings_the_result_into_one_turn) {
    EXPECT_NEAR(*angle(L"-45"), twoPi - degrees(45.0), 1e-12);
    EXPECT_NEAR(*angle(L"405"), degrees(45.0), 1e-12);
    EXPECT_NEAR(*angle(L"-1r"), twoPi - 1.0, 1e-12);
    EXPECT_EQ(*angle(L"2000000r"), 0.0);
    EXPECT_FALSE(angle(L"20000000000r").has_value());
}

TEST(StringToAngleConvert, applies_base_and_direction_of_the_drawing) {
    struct Row {
        const wchar_t* text;
        double angle;
    };
    const Row rows[] = {
        {L"45", degrees(45.0)},
        {L"E", 0.0},
        {L"W", pi},
        {L"N", halfPi},
        {L"S", pi + halfPi},
        {L"100g", halfPi},
        {L"1.5r", 1.5},
        {L"30'", degrees(0.5)},
        {L"N 45 W", halfPi + degrees(45.0)},
    };
    KdDbDatabase database(false, true);
    for (const double base : {0.0, 0.5, halfPi, -1.0, 7.0}) {
        for (const bool clockwise : {false, true}) {
            database.setAngbase(base);
            database.setAngdir(clockwise);
            for (const Row& row : rows) {
                const kdtest::Scanned got = angleIn(database, row.text);
                ASSERT_TRUE(got.has_value()) << kdtest::quoted(row.text);
                const double wanted = clockwise ? base - row.angle : base + row.angle;
                EXPECT_NEAR(std::remainder(*got - wanted, twoPi), 0.0, 1e-9) << kdtest::quoted(row.text);
                EXPECT_GE(*got, -1e-10);
                EXPECT_LT(*got, twoPi);
            }
        }
    }
}

TEST(StringToAngleConvert, leaves_a_base_far_out_aside) {
    KdDbDatabase database(false, true);
    database.setAngbase(2e6);
    EXPECT_NEAR(*angleIn(database, L"45"), degrees(45.0), 1e-12);
}

TEST(StringToAngleConvert, needs_a_database) {
    double value = untouched;
    EXPECT_EQ(CVqTableUtils::StringToAngleConvert(nullptr, L"45", value), 0);
    EXPECT_EQ(value, untouched);
}

TEST(StringToAngleConvert, agrees_with_its_model_on_a_million_random_texts) {
    expectModelled(angle, kdtest::modelAngle, L"01234567890123456789..-d\u00b0'\"gRNSWE ", 6, 1000000);
}

}  // namespace
