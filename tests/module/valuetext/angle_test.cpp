// Angles as numbers.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "module/valuetext/tableutils.h"
#include "tests/support/angles.h"
#include "tests/support/textmodels.h"

namespace {

using kdtest::pi;
using kdtest::twoPi;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(AngleEqual, compares_up_to_whole_turns) {
    struct Row {
        double a;
        double b;
        bool equal;
    };
    constexpr Row rows[] = {
        {0.0, 0.0, true},
        {0.0, -0.0, true},
        {1.0, 1.0, true},
        {1.0, 1.0 + twoPi, true},
        {1.0, 1.0 - twoPi, true},
        {-1.0, twoPi - 1.0, true},
        {1.0, 1.1, false},
        {1.0, 1.0 + 5e-11, true},
        {1.0, 1.0 + 2e-10, false},
        {twoPi, 0.0, true},
        {10.0 * twoPi, twoPi, true},
        {-pi, pi, true},
        // A negative angle is taken from a whole turn, so that negative whole turns are a whole turn and not 0.
        {-twoPi, 0.0, false},
        {-3.0 * twoPi, twoPi, false},
        {-twoPi, -3.0 * twoPi, true},
        // Angles just below a whole turn and just above 0 are far apart in one turn.
        {0.0, twoPi - 1e-12, false},
        {0.0, -1e-12, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(CVqTableUtils::AngleEqual(row.a, row.b), row.equal) << row.a << " " << row.b;
        EXPECT_EQ(CVqTableUtils::AngleEqual(row.b, row.a), row.equal) << row.a << " " << row.b;
    }
}

TEST(NormalAngle, brings_one_angle_into_a_turn) {
    struct Row {
        double angle;
        double wanted;
        bool result;
    };
    constexpr Row rows[] = {
        {0.0, 0.0, true},
        {1.0, 1.0, true},
        {-1.0, twoPi - 1.0, true},
        {twoPi + 1.0, 1.0, true},
        {-twoPi - 1.0, twoPi - 1.0, true},
        {1000.0 * twoPi + 1.0, 1.0, true},
        {-150000.0 * twoPi + 1.0, 1.0, true},
        {-5e-11, -5e-11, true},
        {twoPi - 5e-11, -5e-11, true},
        {twoPi, 0.0, true},
        {1e6, 1e6 - 159154.0 * twoPi, true},
        {-1e6, 159155.0 * twoPi - 1e6, true},
        {1e6 + 1.0, 0.0, true},
        {-1e7, 0.0, true},
        {infinity, 0.0, false},
        {notANumber, 0.0, false},
        {std::numeric_limits<double>::denorm_min(), 0.0, false},
    };
    for (const Row& row : rows) {
        double angle = row.angle;
        EXPECT_EQ(CVqTableUtils::NormalAngle(&angle, nullptr), row.result) << row.angle;
        EXPECT_NEAR(angle, row.wanted, 1e-9) << row.angle;
    }
}

TEST(NormalAngle, ends_within_one_turn_for_any_number) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> exponent(-300.0, 300.0);
    for (int number = 0; number < 100000; ++number) {
        const double given = std::pow(10.0, exponent(random)) * (random() % 2 == 0 ? 1.0 : -1.0);
        double angle = given;
        EXPECT_TRUE(CVqTableUtils::NormalAngle(&angle, nullptr));
        ASSERT_GE(angle, -1e-10) << given;
        ASSERT_LT(angle, twoPi) << given;
    }
}

TEST(NormalAngle, puts_the_second_angle_behind_the_first) {
    struct Row {
        double a;
        double b;
        double wantedA;
        double wantedB;
        bool result;
    };
    const Row rows[] = {
        {1.0, 2.0, 1.0, 2.0, false},
        {2.0, 1.0, 2.0, 1.0 + twoPi, false},
        {1.0, 1.0 + twoPi, 1.0, 1.0, true},
        {-1.0, 1.0, twoPi - 1.0, 1.0 + twoPi, false},
        {3.0, infinity, 3.0, 0.0, false},
        {3.0, 2e6, 3.0, 0.0, true},
        {infinity, 9.0, 0.0, 9.0, false},
        {2e6, 9.0, 0.0, 9.0, true},
        // A second angle a hair below the turn's end, or above it, stays there.
        {0.0, twoPi - 5e-11, 0.0, twoPi - 5e-11, false},
        {0.0, twoPi + 5e-11, 0.0, twoPi + 5e-11, true},
        {0.0, twoPi + 2e-10, 0.0, 2e-10, false},
        // And so does one a hair below 0, or above it.
        {-8e-11, -5e-11, -8e-11, -5e-11, true},
        {0.0, 0.0, 0.0, 0.0, true},
        {0.0, 5e-11, 0.0, 5e-11, true},
    };
    for (const Row& row : rows) {
        double a = row.a;
        double b = row.b;
        EXPECT_EQ(CVqTableUtils::NormalAngle(&a, &b), row.result) << row.a << " " << row.b;
        EXPECT_NEAR(a, row.wantedA, 1e-12) << row.a << " " << row.b;
        EXPECT_NEAR(b, row.wantedB, 1e-12) << row.a << " " << row.b;
    }
}

TEST(ProcessAngle, applies_base_and_direction_unless_told_not_to) {
    struct Row {
        int flags;
        int direction;
        double wanted;
    };
    constexpr double base = 1.0;
    constexpr double angle = 7.0;
    constexpr Row rows[] = {
        {0, 0, base + angle - twoPi},
        {0, 1, base - angle + twoPi},
        {2, 0, base + angle},
        {2, 1, base - angle},
        {4, 0, base + angle - twoPi},
        {4, 1, base - angle + twoPi},
        {1, 0, angle - twoPi},
        {1, 1, twoPi - (angle - twoPi)},
        {3, 0, angle},
        {3, 1, twoPi - angle},
        {5, 0, angle - twoPi},
        {5, 1, angle - twoPi},
        {7, 0, angle},
        {7, 1, angle},
        {6, 0, base + angle},
    };
    for (const Row& row : rows) {
        double out = 99.0;
        EXPECT_TRUE(CVqTableUtils::ProcessAngle(row.flags, base, row.direction, angle, out));
        EXPECT_NEAR(out, row.wanted, 1e-12) << "flags " << row.flags << " direction " << row.direction;
    }
}

TEST(ProcessAngle, gives_a_whole_turn_for_0_in_the_other_direction) {
    for (const double angle : {0.0, twoPi, -twoPi}) {
        double out = 99.0;
        EXPECT_TRUE(CVqTableUtils::ProcessAngle(1, 1.0, 1, angle, out));
        EXPECT_NEAR(out, twoPi, 1e-12) << angle;
        EXPECT_TRUE(CVqTableUtils::ProcessAngle(5, 1.0, 1, angle, out));
        EXPECT_NEAR(out, 0.0, 1e-12) << angle;
    }
}

TEST(ProcessAngle, refuses_angles_beyond_ten_thousand_million) {
    double out = 99.0;
    EXPECT_FALSE(CVqTableUtils::ProcessAngle(0, 0.0, 0, 1.1e10, out));
    EXPECT_FALSE(CVqTableUtils::ProcessAngle(0, 0.0, 0, -1.1e10, out));
    EXPECT_EQ(out, 99.0);
    EXPECT_TRUE(CVqTableUtils::ProcessAngle(0, 0.0, 0, 1e10, out));
    // Beyond a million, normalising gives 0.
    EXPECT_EQ(out, 0.0);
}

TEST(ReplaceDegreeMark, writes_the_degree_sign_only_when_asked) {
    struct Row {
        int flags;
        const wchar_t* text;
        const wchar_t* after;
    };
    constexpr Row rows[] = {
        {0, L"45d30'", L"45d30'"},
        {1, L"45d", L"45d"},
        {2, L"45d30'", L"45\u00b030'"},
        {3, L"5D 6d", L"5\u00b0 6\u00b0"},
        {2, L"", L""},
        {2, L"%%d", L"%%\u00b0"},
        {2, L"N 45d E", L"N 45\u00b0 E"},
        {6, L"dD", L"\u00b0\u00b0"},
        {4, L"d", L"d"},
    };
    for (const Row& row : rows) {
        CStdStr<wchar_t> text = row.text;
        EXPECT_EQ(CVqTableUtils::ReplaceDegreeMark(row.flags, text), 1);
        EXPECT_EQ(text, row.after) << kdtest::quoted(row.text);
    }
}

TEST(DegreeSign, is_one_character) {
    EXPECT_EQ(std::wstring(CVqTableUtils::DegreeSign()), L"\u00b0");
}

}  // namespace
