// Colours and values.

#include "kd/db/color.h"

#include <gtest/gtest.h>

#include "kd/db/value.h"

namespace {

using namespace KdCmEntityColor;

TEST(Colors, the_five_methods_tell_themselves_apart) {
    EXPECT_TRUE(KdCmColor().isByLayer());
    EXPECT_TRUE(KdCmColor::byBlock().isByBlock());
    EXPECT_TRUE(KdCmColor::none().isNone());
    EXPECT_TRUE(KdCmColor::fromIndex(1).isByACI());
    EXPECT_TRUE(KdCmColor::fromRgb(1, 2, 3).isByColor());
    EXPECT_NE(KdCmColor(), KdCmColor::byBlock());
    EXPECT_NE(KdCmColor::fromIndex(1), KdCmColor::fromIndex(2));
    EXPECT_NE(KdCmColor::fromIndex(1), KdCmColor::fromRgb(255, 0, 0));
}

TEST(Colors, every_index_comes_back_and_the_special_ones_name_their_methods) {
    for (int index = 0; index <= 257; ++index) EXPECT_EQ(KdCmColor::fromIndex(index).colorIndex(), index);
    EXPECT_TRUE(KdCmColor::fromIndex(0).isByBlock());
    EXPECT_TRUE(KdCmColor::fromIndex(256).isByLayer());
    EXPECT_TRUE(KdCmColor::fromIndex(257).isNone());
    for (const int wrong : {-1, 258, 100'000}) EXPECT_TRUE(KdCmColor::fromIndex(wrong).isByLayer());
}

TEST(Colors, an_index_names_its_red_green_and_blue) {
    const struct {
        int index, red, green, blue;
    } cases[] = {{1, 255, 0, 0},      {2, 255, 255, 0},   {3, 0, 255, 0},     {4, 0, 255, 255},   {5, 0, 0, 255},
                 {6, 255, 0, 255},    {7, 255, 255, 255}, {8, 128, 128, 128}, {9, 192, 192, 192}, {10, 255, 0, 0},
                 {11, 255, 127, 127}, {12, 165, 0, 0},    {13, 165, 82, 82},  {18, 38, 0, 0},     {20, 255, 63, 0},
                 {30, 255, 127, 0},   {40, 255, 191, 0},  {50, 255, 255, 0},  {90, 0, 255, 0},    {130, 0, 255, 255},
                 {170, 0, 0, 255},    {210, 255, 0, 255}, {249, 38, 19, 23},  {250, 51, 51, 51},  {255, 255, 255, 255}};
    for (const auto& [index, red, green, blue] : cases) {
        SCOPED_TRACE(index);
        const KdCmColor color = KdCmColor::fromIndex(index);
        EXPECT_EQ(color.red(), red);
        EXPECT_EQ(color.green(), green);
        EXPECT_EQ(color.blue(), blue);
    }
}

TEST(Colors, a_true_colour_has_the_nearest_index) {
    EXPECT_EQ(KdCmColor::fromRgb(255, 0, 0).colorIndex(), 1) << "of equal ones the lowest";
    EXPECT_EQ(KdCmColor::fromRgb(250, 5, 5).colorIndex(), 1);
    EXPECT_EQ(KdCmColor::fromRgb(129, 128, 127).colorIndex(), 8);
    EXPECT_EQ(KdCmColor::fromRgb(165, 80, 84).colorIndex(), 13);
    for (int index = 1; index <= 255; ++index) {
        const KdCmColor color = KdCmColor::fromIndex(index);
        const KdCmColor found =
            KdCmColor::fromIndex(KdCmColor::fromRgb(color.red(), color.green(), color.blue()).colorIndex());
        EXPECT_EQ(found.red(), color.red());
        EXPECT_EQ(found.green(), color.green());
        EXPECT_EQ(found.blue(), color.blue());
    }
}

TEST(Colors, a_true_colour_keeps_its_parts_within_a_byte) {
    const KdCmColor color = KdCmColor::fromRgb(300, -5, 77);
    EXPECT_EQ(color.red(), 255);
    EXPECT_EQ(color.green(), 0);
    EXPECT_EQ(color.blue(), 77);
    EXPECT_EQ(KdCmColor::byBlock().red(), 0);
}

TEST(Colors, another_method_drops_the_value_and_the_same_one_keeps_it) {
    KdCmColor color = KdCmColor::fromIndex(3);
    color.setColorMethod(kByACI);
    EXPECT_EQ(color.colorIndex(), 3);
    color.setColorMethod(kByColor);
    EXPECT_EQ(color, KdCmColor::fromRgb(0, 0, 0));
    color.setColorMethod(kByACI);
    EXPECT_EQ(color, KdCmColor::fromIndex(7));
    color.setColorMethod(kByBlock);
    EXPECT_EQ(color, KdCmColor::byBlock());
    color.setColorMethod(kNone);
    EXPECT_EQ(color, KdCmColor::none());
    color.setColorMethod(kByLayer);
    EXPECT_EQ(color, KdCmColor());
}

TEST(Values, each_type_gives_its_own_value_and_no_other) {
    KdValue value;
    EXPECT_EQ(value.dataType(), KdValue::kUnknown);
    long number = 1;
    double decimal = 2.0, x = 3.0, y = 4.0, z = 5.0;
    std::wstring text = L"kept";

    value.set(42L);
    EXPECT_EQ(value.dataType(), KdValue::kLong);
    EXPECT_TRUE(value.get(number));
    EXPECT_EQ(number, 42);
    EXPECT_FALSE(value.get(decimal));
    EXPECT_FALSE(value.get(text));
    EXPECT_FALSE(value.get(x, y, z));
    EXPECT_EQ(decimal, 2.0);
    EXPECT_EQ(text, L"kept");

    value.set(2.5);
    EXPECT_EQ(value.dataType(), KdValue::kDouble);
    EXPECT_TRUE(value.get(decimal));
    EXPECT_EQ(decimal, 2.5);
    EXPECT_FALSE(value.get(number));

    value.set(1.0, 2.0, 3.0);
    EXPECT_EQ(value.dataType(), KdValue::kPoint);
    EXPECT_TRUE(value.get(x, y, z));
    EXPECT_EQ(x + y + z, 6.0);
    EXPECT_FALSE(value.get(decimal));

    value.set(L"text");
    EXPECT_EQ(value.dataType(), KdValue::kString);
    EXPECT_TRUE(value.get(text));
    EXPECT_EQ(text, L"text");

    KdDate date{1999, 12, 31};
    EXPECT_FALSE(value.get(date));
    EXPECT_EQ(date, (KdDate{1999, 12, 31}));
    value.set(KdDate{2004, 9, 1, 14, 5, 9});
    EXPECT_EQ(value.dataType(), KdValue::kDate);
    EXPECT_TRUE(value.get(date));
    EXPECT_EQ(date, (KdDate{2004, 9, 1, 14, 5, 9}));
    EXPECT_FALSE(value.get(text));
}

TEST(Values, another_type_drops_the_value_and_keeps_unit_and_format) {
    KdValue value;
    value.setUnitType(KdValue::kAngle);
    value.setFormat(L"%au0");
    value.set(2.5);
    value.setDataType(KdValue::kDouble);
    double decimal = 0.0;
    EXPECT_TRUE(value.get(decimal));
    EXPECT_EQ(decimal, 2.5);
    value.setDataType(KdValue::kLong);
    value.setDataType(KdValue::kDouble);
    EXPECT_TRUE(value.get(decimal));
    EXPECT_EQ(decimal, 0.0);
    EXPECT_EQ(value.unitType(), KdValue::kAngle);
    EXPECT_STREQ(value.getFormat(), L"%au0");
    value.setFormat(nullptr);
    EXPECT_STREQ(value.getFormat(), L"");
}

}  // namespace
