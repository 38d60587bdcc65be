// Angles as text, in all five units.

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "kd/db/database.h"
#include "module/valuetext/tableutils.h"
#include "tests/support/angles.h"
#include "tests/support/textmodels.h"

namespace {

using kdtest::degrees;
using kdtest::halfPi;
using kdtest::pi;
using kdtest::twoPi;

std::wstring degreesText(double radians, int precision) {
    CStdStr<wchar_t> text;
    EXPECT_EQ(CVqTableUtils::RadianToDecimaldegrees(radians, precision, text), 1);
    return text;
}

TEST(RadianToDecimaldegrees, rounds_by_precision_and_carries_full_sixties) {
    struct Row {
        double degrees;
        int precision;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {45.5, 0, L"46d"},
        {45.4, 0, L"45d"},
        {0.0, 0, L"0d"},
        {359.6, 0, L"360d"},
        {45.5, 1, L"45d30'"},
        {45.5, 2, L"45d30'"},
        {59.9999, 2, L"60d0'"},
        {59.9999, 1, L"60d0'"},
        {45.504, 2, L"45d30'"},
        {45.51, 2, L"45d31'"},
        {45.5, 3, L"45d30'0\""},
        {45.5042, 4, L"45d30'15\""},
        {59.99999, 3, L"60d0'0\""},
        {45.99999, 4, L"46d0'0\""},
        {45.26665, 3, L"45d16'0\""},
        {45.5042, 5, L"45d30'15.1\""},
        {45.5042, 6, L"45d30'15.12\""},
        {45.5042, 8, L"45d30'15.1200\""},
        {0.0, 5, L"0d0'0.0\""},
        // Seconds with decimals carry nothing.
        {44.999999999, 5, L"44d59'60.0\""},
        {1.0166666, 6, L"1d0'60.00\""},
        // Below zero nothing rounds up.
        {-45.75, 0, L"-45d"},
        {-45.75, 2, L"-45d-45'"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(degreesText(degrees(row.degrees), row.precision), row.text) << row.degrees << " " << row.precision;
    }
}

TEST(RadianToDecimaldegrees, takes_whole_turns_off) {
    EXPECT_EQ(degreesText(twoPi + degrees(45.2), 0), L"45d");
    EXPECT_EQ(degreesText(100.0 * twoPi + degrees(45.2), 0), L"45d");
    EXPECT_EQ(degreesText(twoPi, 0), L"360d");
}

TEST(RadianToDecimaldegrees, writes_at_most_thirteen_decimals_of_seconds) {
    EXPECT_EQ(degreesText(0.0, 17), L"0d0'0.0000000000000\"");
    EXPECT_EQ(degreesText(0.0, 40), L"0d0'0.0000000000000\"");
}

TEST(RadianToDecimaldegrees, refuses_negative_precision_and_what_is_no_angle) {
    CStdStr<wchar_t> text = L"kept";
    EXPECT_EQ(CVqTableUtils::RadianToDecimaldegrees(1.0, -1, text), 0);
    EXPECT_EQ(CVqTableUtils::RadianToDecimaldegrees(std::numeric_limits<double>::infinity(), 2, text), 0);
    EXPECT_EQ(CVqTableUtils::RadianToDecimaldegrees(std::numeric_limits<double>::quiet_NaN(), 2, text), 0);
    EXPECT_EQ(CVqTableUtils::RadianToDecimaldegrees(-1e300, 2, text), 0);
    EXPECT_EQ(text, L"kept");
}

/// A drawing with its angle settings.
struct Drawing {
    Drawing() : database(false, true) { database.setDimzin(0); }
    Drawing(int units, int precision) : Drawing() {
        database.setAunits(units);
        database.setAuprec(precision);
    }
    std::wstring text(double radians, int flags = 2) {
        CStdStr<wchar_t> text = L"old";
        EXPECT_EQ(CVqTableUtils::AngleToStringConvert(&database, flags, radians, text), 1);
        return text;
    }
    KdDbDatabase database;
};

TEST(AngleToStringConvert, writes_each_unit) {
    struct Row {
        int units;
        int precision;
        double degrees;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {0, 0, 45.5, L"46"},
        {0, 2, 45.5, L"45.50"},
        {0, 8, 45.5, L"45.50000000"},
        {0, 0, 0.0, L"0"},
        {0, 3, 0.5, L"0.500"},
        {1, 0, 45.5, L"46\u00b0"},
        {1, 2, 45.5, L"45\u00b030'"},
        {1, 4, 45.5, L"45\u00b030'0\""},
        {1, 6, 45.5, L"45\u00b030'0.00\""},
        {2, 0, 90.0, L"100g"},
        {2, 2, 45.0, L"50.00g"},
        {3, 4, 90.0, L"1.5708r"},
        {3, 0, 180.0, L"3r"},
        {4, 0, 45.0, L"N 45\u00b0 E"},
        {4, 2, 45.5, L"N 44\u00b030' E"},
        {4, 0, 135.0, L"N 45\u00b0 W"},
        {4, 0, 225.0, L"S 45\u00b0 W"},
        {4, 0, 300.0, L"S 30\u00b0 E"},
        {4, 4, 300.0, L"S 30\u00b00'0\" E"},
    };
    for (const Row& row : rows) {
        Drawing drawing(row.units, row.precision);
        EXPECT_EQ(drawing.text(degrees(row.degrees)), row.text)
            << "unit " << row.units << " precision " << row.precision << " of " << row.degrees;
    }
}

TEST(AngleToStringConvert, writes_the_four_directions_alone_or_with_their_degrees) {
    struct Row {
        double angle;
        const wchar_t* spaced;
        const wchar_t* close;
        const wchar_t* alone;
    };
    constexpr Row rows[] = {
        {0.0, L"N 90d E", L"N90dE", L"E"},
        {5e-11, L"N 90d E", L"N90dE", L"E"},
        {twoPi - 5e-11, L"N 90d E", L"N90dE", L"E"},
        {twoPi, L"N 90d E", L"N90dE", L"E"},
        {halfPi, L"N 0d W", L"N0dW", L"N"},
        {halfPi - 5e-11, L"N 0d W", L"N0dW", L"N"},
        {halfPi + 5e-11, L"N 0d W", L"N0dW", L"N"},
        {pi, L"S 90d W", L"S90dW", L"W"},
        {pi - 5e-11, L"S 90d W", L"S90dW", L"W"},
        {4.71238898038469, L"S 0d E", L"S0dE", L"S"},
        {4.71238898038469 + 5e-11, L"S 0d E", L"S0dE", L"S"},
    };
    for (const Row& row : rows) {
        Drawing drawing(4, 0);
        EXPECT_EQ(drawing.text(row.angle, 0), row.spaced) << row.angle;
        drawing.database.setUnitmode(1);
        EXPECT_EQ(drawing.text(row.angle, 0), row.close) << row.angle;
        for (int precision = 1; precision <= 8; ++precision) {
            drawing.database.setAuprec(precision);
            EXPECT_EQ(drawing.text(row.angle, 0), row.alone) << row.angle << " precision " << precision;
        }
    }
}

TEST(AngleToStringConvert, suppresses_a_leading_zero_by_moving_a_quarter_of_the_text) {
    struct Row {
        int precision;
        int dimzin;
        double degrees;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {2, 0, 0.5, L"0.50"},
        {2, 4, 0.5, L"..50"},
        {2, 12, 0.5, L"..5"},
        {2, 8, 0.5, L"0.5"},
        {4, 4, 0.1234, L".11234"},
        {4, 12, 0.12, L".112"},
        {8, 4, 0.12345678, L".122345678"},
        {3, 4, 0.125, L"..125"},
        {1, 4, 0.5, L"..5"},
        {0, 4, 0.4, L"0"},
        {2, 4, 1.5, L"1.50"},
        {2, 12, 1.5, L"1.5"},
        {2, 12, 0.0, L"."},
        {0, 12, 0.0, L"0"},
        {2, 8, 0.0, L"0"},
        {0, 8, 100.0, L"100"},
        {3, 8, 100.0, L"100"},
        {2, 3, 0.5, L"0.50"},
    };
    for (const Row& row : rows) {
        Drawing drawing(0, row.precision);
        drawing.database.setDimzin(row.dimzin);
        EXPECT_EQ(drawing.text(degrees(row.degrees)), row.text)
            << row.degrees << " precision " << row.precision << " dimzin " << row.dimzin;
    }
}

TEST(AngleToStringConvert, suppresses_no_less_below_zero_where_it_keeps_negative_angles) {
    struct Row {
        int precision;
        int dimzin;
        double degrees;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {2, 4, -0.5, L".0.50"}, {2, 4, -1.0, L".1.00"},      {2, 4, -1.5, L".1.50"},     {2, 12, -1.5, L".1.5"},
        {2, 8, -1.5, L"-1.5"},  {3, 4, -12.125, L".12.125"}, {6, 4, -1.5, L".5.500000"}, {0, 4, -12.2, L"-12"},
    };
    for (const Row& row : rows) {
        Drawing drawing(0, row.precision);
        drawing.database.setDimzin(row.dimzin);
        EXPECT_EQ(drawing.text(degrees(row.degrees), 8), row.text)
            << row.degrees << " precision " << row.precision << " dimzin " << row.dimzin;
    }
}

TEST(AngleToStringConvert, keeps_turns_by_its_flags) {
    struct Row {
        int flags;
        double degrees;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {0, 725.0, L"5.0"},     {4, 725.0, L"5.0"},  {4, 360.0, L"360.0"}, {0, 360.0, L"0.0"},  {4, -5.0, L"355.0"},
        {8, 725.0, L"725.0"},   {8, -5.0, L"-5.0"},  {12, 725.0, L"5.0"},  {0, -5.0, L"355.0"}, {1, 725.0, L"5.0"},
        {9, -725.0, L"-725.0"}, {8, -1e-9, L"-0.0"}, {0, -1e-9, L"0.0"},
    };
    for (const Row& row : rows) {
        Drawing drawing(0, 1);
        EXPECT_EQ(drawing.text(degrees(row.degrees), row.flags), row.text) << row.degrees << " flags " << row.flags;
    }
}

TEST(AngleToStringConvert, ends_for_any_number_whatever_the_flags) {
    for (int flags = 0; flags < 16; ++flags) {
        for (const double angle : {1e300, -1e300, std::numeric_limits<double>::infinity(), 1e6, -1e6}) {
            for (int units = 0; units <= 4; ++units) {
                Drawing drawing(units, 2);
                CStdStr<wchar_t> text;
                const int written = CVqTableUtils::AngleToStringConvert(&drawing.database, flags, angle, text);
                EXPECT_TRUE(written == 0 || written == 1);
            }
        }
    }
}

TEST(AngleToStringConvert, leaves_base_and_direction_alone_when_told_so) {
    Drawing drawing(0, 1);
    drawing.database.setAngbase(degrees(30.0));
    EXPECT_EQ(drawing.text(degrees(45.0)), L"15.0");
    EXPECT_EQ(drawing.text(degrees(45.0), 1), L"45.0");
    drawing.database.setAngdir(true);
    EXPECT_EQ(drawing.text(degrees(45.0)), L"345.0");
    EXPECT_EQ(drawing.text(degrees(45.0), 1), L"45.0");
}

TEST(AngleToStringConvert, takes_a_base_of_more_than_a_turn_for_what_it_is_within_one) {
    Drawing drawing(0, 1);
    drawing.database.setAngbase(twoPi + degrees(30.0));
    EXPECT_EQ(drawing.text(degrees(45.0), 8), L"15.0");
    // Far out nothing is left of a base.
    drawing.database.setAngbase(2e6);
    EXPECT_EQ(drawing.text(degrees(45.0), 8), L"45.0");
    EXPECT_EQ(drawing.text(degrees(45.0)), L"45.0");
}

TEST(AngleToStringConvert, needs_a_database) {
    CStdStr<wchar_t> text = L"kept";
    EXPECT_EQ(CVqTableUtils::AngleToStringConvert(nullptr, 2, 1.0, text), 0);
    EXPECT_EQ(text, L"kept");
}

/// The decimal forms, letter for letter: the bytes of the text are moved in an array of their own.
std::wstring decimalModel(double value, int precision, int dimzin, const wchar_t* unit) {
    char narrow[400];
    std::snprintf(narrow, sizeof narrow, "%.*f", precision, value);
    std::wstring text(narrow, narrow + std::strlen(narrow));
    const std::size_t point = text.find(L'.');
    if (point != text.npos && value < 1.0 && (dimzin & 4) != 0) {
        std::vector<unsigned char> bytes;
        for (const wchar_t character : text) {
            for (int byte = 0; byte < 4; ++byte) {
                bytes.push_back(static_cast<unsigned char>(static_cast<unsigned>(character) >> (8 * byte)));
            }
        }
        const std::vector<unsigned char> before = bytes;
        for (std::size_t at = 0; at < text.size() - point; ++at) bytes[at] = before[4 * point + at];
        for (std::size_t at = 0; at < text.size(); ++at) {
            text[at] = static_cast<wchar_t>(bytes[4 * at] | bytes[4 * at + 1] << 8 | bytes[4 * at + 2] << 16);
        }
    }
    if ((dimzin & 8) != 0 && text.find(L'.') != text.npos) {
        while (!text.empty() && text.back() == L'0') text.pop_back();
        if (!text.empty() && text.back() == L'.') text.pop_back();
    }
    if (text.empty()) text = L"0";
    return text + unit;
}

/// The degrees of a text in degrees, minutes and seconds; the text must have the form of its precision.
double readDegrees(const std::wstring& text, int precision) {
    static const QString forms[] = {
        QStringLiteral("\\A(\\d+)\u00b0()()\\z"),
        QStringLiteral("\\A(\\d+)\u00b0(\\d+)'()\\z"),
        QStringLiteral("\\A(\\d+)\u00b0(\\d+)'(\\d+)\"\\z"),
        QStringLiteral("\\A(\\d+)\u00b0(\\d+)'(\\d+\\.\\d{%1})\"\\z"),
    };
    const int form = precision == 0 ? 0 : precision <= 2 ? 1 : precision <= 4 ? 2 : 3;
    const QString pattern = form == 3 ? forms[3].arg(precision - 4) : forms[form];
    const auto match = QRegularExpression(pattern).match(QString::fromStdWString(text));
    EXPECT_TRUE(match.hasMatch()) << kdtest::quoted(text) << " at precision " << precision;
    const double minutes = match.captured(2).toDouble();
    EXPECT_LT(minutes, 60.0) << kdtest::quoted(text);
    return match.captured(1).toDouble() + minutes / 60.0 + match.captured(3).toDouble() / 3600.0;
}

/// Half a step of the last place, in degrees.
double resolution(int precision) {
    if (precision == 0) return 0.5;
    if (precision <= 2) return 0.5 / 60.0;
    return precision <= 4 ? 0.5 / 3600.0 : 0.5 / 3600.0 * std::pow(10.0, 4 - precision);
}

/// The angle of a bearing, in degrees.
double readBearing(const std::wstring& text, int precision, bool blanks) {
    const std::wstring directions[] = {L"E", L"N", L"W", L"S"};
    for (int quarter = 0; quarter < 4; ++quarter) {
        if (precision != 0 && text == directions[quarter]) return 90.0 * quarter;
    }
    const QString form = blanks ? QStringLiteral("\\A([NS]) (.*) ([EW])\\z") : QStringLiteral("\\A([NS])(.*)([EW])\\z");
    const auto match = QRegularExpression(form).match(QString::fromStdWString(text));
    EXPECT_TRUE(match.hasMatch()) << kdtest::quoted(text);
    const double size = readDegrees(match.captured(2).toStdWString(), precision);
    const bool north = match.captured(1) == QLatin1String("N");
    const bool east = match.captured(3) == QLatin1String("E");
    if (north) return east ? 90.0 - size : 90.0 + size;
    return east ? 270.0 + size : 270.0 - size;
}

/// Degrees between two angles, whole turns aside.
double apart(double a, double b) {
    return std::abs(std::remainder(a - b, 360.0));
}

/// Every unit, precision, base, direction and suppression, with that many angles.
class EverySetting : public ::testing::TestWithParam<int> {};

TEST_P(EverySetting, writes_an_angle_that_reads_as_what_it_is) {
    constexpr double bases[] = {0.0, 0.5, halfPi, 4.0, -1.25, 13.0};
    constexpr double angles[] = {0.0,       0.3,      1.0,     10.0,   30.0,     44.99999999, 45.0,
                                 45.5,      59.99996, 89.9999, 90.0,   123.4567, 179.999,     180.0,
                                 200.00001, 270.0,    333.3,   359.99, 400.0,    -20.0};
    const int units = GetParam();
    for (int precision = 0; precision <= 8; ++precision) {
        Drawing drawing(units, precision);
        for (const double base : bases) {
            drawing.database.setAngbase(base);
            for (const bool clockwise : {false, true}) {
                drawing.database.setAngdir(clockwise);
                for (int dimzin = 0; dimzin < 16; ++dimzin) {
                    drawing.database.setDimzin(dimzin);
                    drawing.database.setUnitmode(dimzin % 2);
                    for (const double angle : angles) {
                        double shown = clockwise ? base - degrees(angle) : degrees(angle) - base;
                        while (shown < -1e-10) shown += twoPi;
                        while (shown + 1e-10 >= twoPi) shown -= twoPi;
                        if (shown < 1e-10) shown = 0.0;
                        const std::wstring text = drawing.text(degrees(angle));
                        const double inDegrees = shown * 57.29577951308232;
                        if (units == 0 || units == 2 || units == 3) {
                            const double value = units == 0   ? inDegrees
                                                 : units == 2 ? inDegrees * 1.1111111111111112
                                                              : shown;
                            const wchar_t* letters[] = {L"", L"", L"g", L"r"};
                            const std::wstring wanted = decimalModel(value, precision, dimzin, letters[units]);
                            // Summing turns in another order may move the last bit across a rounding.
                            const std::wstring above = decimalModel(value + 1e-11, precision, dimzin, letters[units]);
                            const std::wstring below = decimalModel(value - 1e-11, precision, dimzin, letters[units]);
                            ASSERT_TRUE(text == wanted || text == above || text == below)
                                << kdtest::quoted(text) << " for " << kdtest::quoted(wanted) << " of " << angle;
                        } else {
                            const double back = units == 1 ? readDegrees(text, precision)
                                                           : readBearing(text, precision, dimzin % 2 == 0);
                            ASSERT_LE(apart(back, inDegrees), resolution(precision) + 1e-9)
                                << kdtest::quoted(text) << " of " << angle;
                        }
                    }
                }
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AngleToStringConvert, EverySetting, ::testing::Range(0, 5));

TEST(AngleToStringConvert, minutes_and_seconds_that_it_writes_read_back) {
    for (int precision = 1; precision <= 8; ++precision) {
        Drawing drawing(1, precision);
        drawing.database.setAngbase(0.7);
        drawing.database.setAngdir(true);
        for (double angle = 0.0; angle < 360.0; angle += 7.3) {
            double back = 0.0;
            const std::wstring text = drawing.text(degrees(angle));
            ASSERT_EQ(CVqTableUtils::StringToAngleConvert(&drawing.database, text, back), 1) << kdtest::quoted(text);
            EXPECT_LE(apart(back * 57.29577951308232, angle), resolution(precision) + 1e-9) << kdtest::quoted(text);
        }
    }
}

}  // namespace
