// Menu commands of alignments and data formats, and the samples of the data format dialog.

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <memory>
#include <string>

#include "module/core/tablecommon.h"

namespace kdtest {
namespace {

using Common = CVqTableCommon;

KdDb::CellAlignment alignment(int value) {
    return static_cast<KdDb::CellAlignment>(value);
}

TEST(Alignments, Have_the_menu_commands_1802_to_1810_in_order) {
    for (int value = -3; value <= 20; ++value) {
        const int expected = value >= 1 && value <= 9 ? 1801 + value : 0;
        EXPECT_EQ(Common::GetAlignmentToMenuId(alignment(value)), expected) << value;
    }
}

TEST(Alignments, Of_a_menu_command_are_top_left_for_every_number_but_1803_to_1810) {
    EXPECT_EQ(Common::GetMenuIDToAlignment(1802), KdDb::kTopLeft);
    EXPECT_EQ(Common::GetMenuIDToAlignment(9999), KdDb::kTopLeft);
    for (unsigned command = 0; command <= 10'000; ++command) {
        const unsigned expected = command >= 1803 && command <= 1810 ? command - 1801 : 1;
        EXPECT_EQ(Common::GetMenuIDToAlignment(command), expected) << command;
    }
    for (const unsigned command : {UINT_MAX, 0x80000000U, 0x7FFFFFFFU, UINT_MAX - 1801 + 5}) {
        EXPECT_EQ(Common::GetMenuIDToAlignment(command), KdDb::kTopLeft) << command;
    }
}

TEST(Alignments, Have_places_in_a_list_from_0) {
    for (int value = -3; value <= 20; ++value) {
        EXPECT_EQ(Common::CellAlignmentToIndex(alignment(value)), value >= 2 && value <= 9 ? value - 1 : 0) << value;
        EXPECT_EQ(Common::CellAlignmentToIndex(value), value >= 1 && value <= 8 ? value + 1 : 1) << value;
    }
    EXPECT_EQ(Common::CellAlignmentToIndex(INT_MAX), KdDb::kTopLeft);
    EXPECT_EQ(Common::CellAlignmentToIndex(INT_MIN), KdDb::kTopLeft);
}

TEST(Alignments, Come_back_from_their_command_and_their_place) {
    for (int value = 1; value <= 9; ++value) {
        const auto command = static_cast<unsigned>(Common::GetAlignmentToMenuId(alignment(value)));
        EXPECT_EQ(Common::GetMenuIDToAlignment(command), value);
        EXPECT_EQ(Common::CellAlignmentToIndex(Common::CellAlignmentToIndex(alignment(value))), value);
    }
}

struct Format {
    int command;
    int type;
    int unit;
};
constexpr Format kFormats[] = {{1823, 2, 2},  {1824, 2, 16}, {1825, 8, 0}, {1826, 2, 0}, {1827, 512, 0},
                               {1828, 2, 32}, {1829, 32, 0}, {1830, 4, 0}, {1831, 1, 0}};

TEST(DataFormats, Have_the_menu_commands_1823_to_1831) {
    for (const Format& row : kFormats) {
        auto type = static_cast<KdValue::DataType>(77);
        auto unit = static_cast<KdValue::UnitType>(77);
        EXPECT_TRUE(Common::GetDataFormat(row.command, type, unit));
        EXPECT_EQ(type, row.type) << row.command;
        EXPECT_EQ(unit, row.unit) << row.command;
        EXPECT_EQ(Common::GetDataFormatToMenuId(type, unit), row.command);
    }
}

TEST(DataFormats, Of_every_other_command_are_none_and_the_pair_is_0_and_0) {
    for (const int command : {0, -1, 1802, 1822, 1832, 1833, INT_MAX, INT_MIN}) {
        auto type = KdValue::kPoint;
        auto unit = KdValue::kCurrency;
        EXPECT_FALSE(Common::GetDataFormat(command, type, unit)) << command;
        EXPECT_EQ(type, KdValue::kUnknown);
        EXPECT_EQ(unit, KdValue::kUnitless);
    }
}

TEST(DataFormats, Outside_the_nine_pairs_have_a_command_far_from_every_menu_item) {
    for (int type = 0; type <= 513; ++type) {
        for (int unit = 0; unit <= 33; ++unit) {
            const int command = Common::GetDataFormatToMenuId(static_cast<KdValue::DataType>(type),
                                                              static_cast<KdValue::UnitType>(unit));
            auto backType = KdValue::kUnknown;
            auto backUnit = KdValue::kUnitless;
            if (Common::GetDataFormat(command, backType, backUnit)) {
                EXPECT_EQ(backType, type);
                EXPECT_EQ(backUnit, unit);
            } else {
                EXPECT_LT(command - 1823, 0) << "would check the item at that position";
            }
        }
    }
}

/// The sample as text; empty when there is none.
std::string sample(int type, int unit) {
    auto value = std::make_unique<KdValue>();
    KdValue* filled = value.get();
    Common::GetValue(filled, static_cast<KdValue::DataType>(type), static_cast<KdValue::UnitType>(unit));
    EXPECT_EQ(filled, value.get());
    long whole = 0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    std::wstring text;
    if (value->get(whole)) return "long " + std::to_string(whole);
    if (value->get(x)) return "double " + std::to_string(x);
    if (value->get(x, y, z)) return "point " + std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(z);
    if (value->get(text)) return text == L"样例文字" ? "the sample text" : "another text";
    EXPECT_EQ(value->dataType(), KdValue::kUnknown);
    return {};
}

TEST(DataFormatSamples, Are_fixed_for_each_type_and_unit) {
    for (const int unit : {0, 2, 16, 32, 1, 7}) {
        EXPECT_EQ(sample(1, unit), "long 20040901");
        EXPECT_EQ(sample(4, unit), "the sample text");
        EXPECT_EQ(sample(512, unit), "the sample text");
        EXPECT_EQ(sample(32, unit), "point 2.580000 5.370000 0.000000");
    }
    EXPECT_EQ(sample(2, 16), "double 1234.100000");
    EXPECT_EQ(sample(2, 32), "double 12.340000");
    EXPECT_EQ(sample(2, 0), "double 845.347860");
    EXPECT_EQ(sample(2, 2), "double 2.103000");
}

TEST(DataFormatSamples, Are_missing_for_dates_other_units_and_other_types) {
    for (const int unit : {1, 3, 15, 33, -1}) EXPECT_EQ(sample(2, unit), "") << unit;
    for (const int type : {0, 8, 3, 16, 33, 511, -1}) {
        for (const int unit : {0, 2, 16, 32}) EXPECT_EQ(sample(type, unit), "") << type << ", " << unit;
    }
}

TEST(DataFormatSamples, Keep_unit_and_format_of_the_value) {
    KdValue value;
    value.setUnitType(KdValue::kCurrency);
    value.setFormat(L"%lu2");
    KdValue* filled = &value;
    Common::GetValue(filled, KdValue::kDouble, KdValue::kCurrency);
    EXPECT_EQ(value.unitType(), KdValue::kCurrency);
    EXPECT_STREQ(value.getFormat(), L"%lu2");
}

TEST(DataFormatSamples, Without_a_value_nothing_happens) {
    KdValue* none = nullptr;
    Common::GetValue(none, KdValue::kLong, KdValue::kUnitless);
    EXPECT_EQ(none, nullptr);
}

}  // namespace
}  // namespace kdtest
