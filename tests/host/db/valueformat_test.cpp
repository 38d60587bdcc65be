// Values by their formats, and the codes of formats.

#include "host/db/valueformat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "host/db/angletext.h"
#include "host/win32/modules.h"
#include "kd/db/headervar.h"

namespace {

std::wstring shown(const KdValue& value, const wchar_t* code, const KdDbHeaderVar& header = {}) {
    return kdhost::formattedValue(value, kdhost::parseValueFormat(code), header).value_or(L"(none)");
}

template <class T>
std::wstring shown(const T& content, const wchar_t* code) {
    KdValue value;
    value.set(content);
    return shown(value, code);
}

TEST(ValueFormats, show_numbers_by_each_part_of_their_code) {
    struct Row {
        double value;
        const wchar_t* code;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {845.34786, L"", L"845.34786"},
        {845.34786, L"%lu2%pr2", L"845.35"},
        {845.34786, L"%pr2", L"845.35"},
        {845.34786, L"%lu1%pr1", L"8.5E+02"},
        {845.34786, L"%lu5%pr2", L"845 1/4"},
        {845.34786, L"%lu4%pr0", L"70'-5\""},
        {845.34786, L"%lu3%pr2", L"70'-5.35\""},
        // Without a word on zeros the drawing decides, whose new ones drop those at the end.
        {845.5, L"%lu2%pr2", L"845.5"},
        {845.5, L"%lu2%pr2%zs0", L"845.50"},
        {0.5, L"%lu2%pr2%zs12", L".5"},
        {845.34786, L"%lu2%pr2%zs0%ps[$,]", L"$845.35"},
        {-845.34786, L"%lu2%pr2%ps[$,]", L"-$845.35"},
        {845.0, L"%lu2%pr0%ps[\u5171,\u4ef6]", L"\u5171845\u4ef6"},
        {0.12345, L"%lu2%pr1%ps[,%]%ct8[100]", L"12.3%"},
        {0.12345, L"%ct8[100]", L"12.345"},
        {1234567.5, L"%lu2%pr1%th[,]", L"1,234,567.5"},
        {-1234.0, L"%th[,]", L"-1,234"},
        {123.0, L"%th[,]", L"123"},
        {1234567.5, L"%lu2%pr1%th[ ]%ps[,km]", L"1 234 567.5km"},
        {2.0, L"%au0%pr1", L"114.6\u00b0"},
        {2.0, L"%au1%pr4", L"114\u00b035'30\""},
        {2.0, L"%au2%pr1", L"127.3g"},
        {2.0, L"%au3%pr3", L"2.000r"},
        {2.0, L"%au4%pr2", L"N 24\u00b035' W"},
        // What nobody knows is passed over, and so is a part that doesn't end.
        {1.5, L"%qq7%lu2%pr0", L"2"},
        {1.5, L"%ps[x", L"1.5"},
        {1.5, L"%", L"1.5"},
        {1.5, L"plain text", L"1.5"},
    };
    for (const Row& row : rows) EXPECT_EQ(shown(row.value, row.code), row.text) << row.value << " " << row.code;
}

TEST(ValueFormats, refuse_numbers_that_cannot_be_written) {
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
        EXPECT_EQ(shown(value, L"%lu2%pr2"), L"(none)");
        EXPECT_EQ(shown(value, L"%au0%pr2"), L"(none)");
    }
    EXPECT_EQ(shown(1.5, L"%lu9%pr2"), L"(none)");
    EXPECT_EQ(shown(1.5, L"%lu2%pr99"), L"(none)");
    EXPECT_EQ(shown(1.5, L"%pr99999999999999999999"), L"(none)");
    EXPECT_EQ(shown(1.5, L"%au9"), L"(none)");
}

TEST(ValueFormats, leave_units_and_places_that_they_do_not_name_to_the_drawing) {
    KdDbHeaderVar header;
    header.setLunits(KdDbHeaderVar::kArchitectural);
    header.setLuprec(1);
    header.setAuprec(3);
    KdValue value;
    value.set(15.5);
    EXPECT_EQ(shown(value, L"%zs0", header), L"1'-3 1/2\"");
    EXPECT_EQ(shown(value, L"%pr0", header), L"1'-4\"");
    EXPECT_EQ(shown(value, L"%lu2", header), L"15.5");
    EXPECT_EQ(shown(value, L"%au3", header), L"15.500r");
    EXPECT_EQ(shown(value, L"", header), L"15.5");
}

TEST(ValueFormats, show_texts_points_and_whole_numbers) {
    EXPECT_EQ(shown(KdValue(), L"%lu2"), L"(none)");
    EXPECT_EQ(shown(L"Stra\u00dfe 5", L""), L"Stra\u00dfe 5");
    EXPECT_EQ(shown(L"Abc \u00e9", L"%tc1"), L"ABC \u00c9");
    EXPECT_EQ(shown(L"Abc", L"%tc2"), L"abc");
    EXPECT_EQ(shown(L"Abc", L"%lu2%pr2"), L"Abc");
    EXPECT_EQ(shown(20040901L, L""), L"20040901");
    EXPECT_EQ(shown(20040901L, L"%th[,]"), L"20,040,901");
    EXPECT_EQ(shown(-5L, L"%ps[$,]"), L"-$5");
    KdValue point;
    point.set(2.58, 5.37, 0.0);
    EXPECT_EQ(shown(point, L""), L"2.58, 5.37, 0");
    EXPECT_EQ(shown(point, L"%lu2%pr1%zs0"), L"2.6, 5.4, 0.0");
    point.set(1.0, std::nan(""), 0.0);
    EXPECT_EQ(shown(point, L"%lu2%pr1"), L"(none)");
}

TEST(ValueFormats, show_dates_by_their_pattern_with_names_in_the_hosts_language) {
    const KdDate date{2004, 9, 1, 14, 5, 9};
    struct Row {
        const wchar_t* code;
        const wchar_t* english;
        const wchar_t* chinese;
    };
    constexpr Row rows[] = {
        {L"", L"2004-09-01 14:05:09", L"2004-09-01 14:05:09"},
        {L"%td[]", L"2004-09-01 14:05:09", L"2004-09-01 14:05:09"},
        {L"%td[M/d/yyyy]", L"9/1/2004", L"9/1/2004"},
        {L"%td[dd.MM.yy]", L"01.09.04", L"01.09.04"},
        {L"%td[dd-MMM-yyyy]", L"01-Sep-2004", L"01-9\u6708-2004"},
        {L"%td[dddd, MMMM d, yyyy]", L"Wednesday, September 1, 2004", L"\u661f\u671f\u4e09, \u4e5d\u6708 1, 2004"},
        {L"%td[yyyy\u5e74M\u6708d\u65e5]", L"2004\u5e749\u67081\u65e5", L"2004\u5e749\u67081\u65e5"},
        {L"%td[h:mm AP]", L"2:05 PM", L"2:05 \u4e0b\u5348"},
        {L"%td[HH:mm:ss]", L"14:05:09", L"14:05:09"},
        {L"%td['day' d]", L"day 1", L"day 1"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(shown(date, row.code), row.english) << row.code;
        kdhost::setLanguage(kdhost::Language::Chinese);
        EXPECT_EQ(shown(date, row.code), row.chinese) << row.code;
        kdhost::setLanguage(kdhost::Language::English);
    }
    EXPECT_EQ(shown(KdDate{2004, 9, 1}, L""), L"2004-09-01");
}

TEST(ValueFormats, refuse_dates_that_no_calendar_has) {
    for (const KdDate& date : {KdDate{2004, 13, 1}, KdDate{2003, 2, 29}, KdDate{2004, 9, 0}, KdDate{2004, 9, 1, 24},
                               KdDate{2004, 9, 1, 0, 60}, KdDate{2004, 9, 1, 0, 0, -1}, KdDate{0, 1, 1}}) {
        EXPECT_EQ(shown(date, L"%td[d]"), L"(none)");
    }
    EXPECT_EQ(shown(KdDate{2004, 2, 29}, L"%td[d]"), L"29");
}

TEST(AngleTexts, round_once_and_never_up_to_sixty) {
    struct Row {
        double degrees;
        int unit;
        int precision;
        const wchar_t* text;
    };
    constexpr Row rows[] = {
        {45.5, 0, 0, L"46\u00b0"},       {-0.001, 0, 2, L"0.00\u00b0"},  {45.5, 1, 0, L"46\u00b0"},
        {45.5, 1, 1, L"45\u00b030'"},    {59.9999, 1, 2, L"60\u00b00'"}, {44.999999999, 1, 5, L"45\u00b00'0.0\""},
        {-45.75, 1, 2, L"-45\u00b045'"}, {-0.0001, 1, 2, L"0\u00b00'"},  {12.3456789, 1, 8, L"12\u00b020'44.4440\""},
        {0.0, 4, 0, L"N 90\u00b0 E"},    {45.0, 4, 0, L"N 45\u00b0 E"},  {90.0, 4, 0, L"N 0\u00b0 W"},
        {135.0, 4, 0, L"N 45\u00b0 W"},  {180.0, 4, 0, L"S 90\u00b0 W"}, {225.0, 4, 2, L"S 45\u00b00' W"},
        {270.0, 4, 0, L"S 0\u00b0 E"},   {300.0, 4, 0, L"S 30\u00b0 E"}, {-60.0, 4, 0, L"S 30\u00b0 E"},
        {90.0, 2, 0, L"100g"},           {180.0, 3, 4, L"3.1416r"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(kdhost::angleText(row.degrees * 3.141592653589793 / 180.0, row.unit, row.precision).value_or(L""),
                  row.text)
            << row.degrees << " unit " << row.unit << " precision " << row.precision;
    }
}

TEST(AngleTexts, have_minutes_and_seconds_below_sixty_whose_sum_is_the_angle) {
    std::mt19937 random(20040901);
    std::uniform_real_distribution<double> angles(0.0, 360.0);
    for (int number = 0; number < 20000; ++number) {
        const double degrees = angles(random);
        const int precision = number % 9;
        const std::wstring text = *kdhost::angleText(degrees * 3.141592653589793 / 180.0, 1, precision);
        double whole = 0.0;
        double minutes = 0.0;
        double seconds = 0.0;
        std::swscanf(text.c_str(), L"%lf\u00b0%lf'%lf\"", &whole, &minutes, &seconds);
        ASSERT_LT(minutes, 60.0);
        ASSERT_LT(seconds, 60.0);
        const double step = precision == 0   ? 1.0
                            : precision <= 2 ? 1.0 / 60.0
                                             : std::pow(10.0, std::min(0, 4 - precision)) / 3600.0;
        ASSERT_NEAR(whole + minutes / 60.0 + seconds / 3600.0, degrees, step * 0.5 + 1e-9) << degrees;
    }
}

TEST(AngleTexts, refuse_units_and_precisions_out_of_range_and_what_is_no_angle) {
    EXPECT_FALSE(kdhost::angleText(1.0, 5, 2));
    EXPECT_FALSE(kdhost::angleText(1.0, -1, 2));
    EXPECT_FALSE(kdhost::angleText(1.0, 0, 9));
    EXPECT_FALSE(kdhost::angleText(1.0, 0, -1));
    EXPECT_FALSE(kdhost::angleText(1e300, 1, 2));
    EXPECT_FALSE(kdhost::angleText(std::nan(""), 0, 2));
}

}  // namespace
