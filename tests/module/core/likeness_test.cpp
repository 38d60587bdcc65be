// Whether the cells of a range are alike, with the particulars of each property.

#include <gtest/gtest.h>

#include "module/core/tablecommon.h"
#include "tests/module/core/sampletables.h"

namespace kdtest {
namespace {

using Test = bool (*)(const KdDbTable*, const Range&);

/// One property: its test, and how a cell gets the common value and another one.
struct Property {
    const char* name;
    Test alike;
    void (*common)(KdDbTable&, int row, int column);
    void (*other)(KdDbTable&, int row, int column);
};

const Property properties[] = {
    {"cell styleProperty", CVqTableCommon::IsIdenticalCellStyle,
     [](KdDbTable& table, int row, int column) { table.setCellStyle(row, column, L"_DATA"); },
     [](KdDbTable& table, int row, int column) { table.setCellStyle(row, column, L"_HEADER"); }},
    {"alignment", CVqTableCommon::IsIdenticalAlignment,
     [](KdDbTable& table, int row, int column) { table.setAlignment(row, column, KdDb::kTopLeft); },
     [](KdDbTable& table, int row, int column) { table.setAlignment(row, column, KdDb::kBottomRight); }},
    {"locking", CVqTableCommon::IsIdenticalLocking,
     [](KdDbTable& table, int row, int column) { table.setCellState(row, column, KdDb::kCellStateNone); },
     [](KdDbTable& table, int row, int column) { table.setCellState(row, column, KdDb::kCellStateFormatReadOnly); }},
    {"data format", CVqTableCommon::IsIdenticalDataFormat,
     [](KdDbTable& table, int row, int column) {
         table.setDataType(row, column, KdValue::kDouble, KdValue::kUnitless);
     },
     [](KdDbTable& table, int row, int column) { table.setDataType(row, column, KdValue::kDate, KdValue::kAngle); }},
};

std::unique_ptr<KdDbTable> commonTable(const Property& property, int rows, int columns,
                                       const std::vector<Range>& merges = {}) {
    auto table = makeTable(rows, columns, merges);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) property.common(*table, row, column);
    }
    return table;
}

class Likeness : public ::testing::TestWithParam<Property> {
protected:
    const Property& property = GetParam();
};

TEST_P(Likeness, Fails_at_any_one_cell_that_differs_and_only_inside_the_range) {
    constexpr Range range{1, 1, 2, 3};
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 5; ++column) {
            const auto table = commonTable(property, 4, 5);
            property.other(*table, row, column);
            const bool inside = row >= 1 && row <= 2 && column >= 1 && column <= 3;
            EXPECT_EQ(property.alike(table.get(), range), !inside) << row << ", " << column;
        }
    }
}

TEST_P(Likeness, Holds_for_one_cell_and_for_a_reversed_range_whatever_they_hold) {
    const auto table = commonTable(property, 3, 3);
    property.other(*table, 1, 1);
    EXPECT_TRUE(property.alike(table.get(), {1, 1, 1, 1}));
    EXPECT_TRUE(property.alike(table.get(), {2, 0, 0, 2}));
    EXPECT_TRUE(property.alike(table.get(), {0, 2, 2, 0}));
    EXPECT_TRUE(property.alike(table.get(), noCell));
    EXPECT_FALSE(property.alike(table.get(), {0, 0, 2, 2}));
}

TEST_P(Likeness, Holds_for_exactly_one_merge_whatever_lies_under_it) {
    const auto table = commonTable(property, 3, 3, {{0, 0, 1, 1}});
    property.other(*table, 1, 1);
    EXPECT_TRUE(property.alike(table.get(), {0, 0, 1, 1}));
}

TEST_P(Likeness, Judges_a_merge_by_its_owner) {
    const auto table = commonTable(property, 3, 4, {{1, 1, 2, 2}});
    EXPECT_TRUE(property.alike(table.get(), {0, 0, 2, 3}));
    property.other(*table, 1, 1);
    EXPECT_FALSE(property.alike(table.get(), {0, 0, 2, 3}));
    // The owner counts also where the range holds only covered cells of the merge.
    EXPECT_FALSE(property.alike(table.get(), {2, 0, 2, 3}));
}

TEST_P(Likeness, Goes_on_behind_a_merge) {
    const auto table = commonTable(property, 1, 4, {{0, 0, 0, 1}});
    EXPECT_TRUE(property.alike(table.get(), {0, 0, 0, 3}));
    property.other(*table, 0, 3);
    EXPECT_FALSE(property.alike(table.get(), {0, 0, 0, 3}));
}

TEST_P(Likeness, Is_false_without_a_table) {
    EXPECT_FALSE(property.alike(nullptr, {0, 0, 1, 1}));
}

INSTANTIATE_TEST_SUITE_P(Properties, Likeness, ::testing::ValuesIn(properties), [](const auto& info) {
    std::string name = info.param.name;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
});

const Property& styleProperty = properties[0];
const Property& alignmentProperty = properties[1];

// A merge of three rows stands in column 0. Behind it the scan of styles goes on in the merge's last row.
const std::vector<Range> tallMerge{{0, 0, 2, 0}};

TEST(IsIdenticalCellStyle, Does_not_visit_the_rows_beside_a_merge_but_its_last) {
    for (int row = 0; row < 4; ++row) {
        const auto table = commonTable(styleProperty, 4, 3, tallMerge);
        styleProperty.other(*table, row, 2);
        EXPECT_EQ(CVqTableCommon::IsIdenticalCellStyle(table.get(), {0, 0, 3, 2}), row < 2) << row;
    }
}

TEST(IsIdenticalAlignment, Visits_the_rows_beside_a_merge) {
    for (int row = 0; row < 4; ++row) {
        const auto table = commonTable(alignmentProperty, 4, 3, tallMerge);
        alignmentProperty.other(*table, row, 2);
        EXPECT_FALSE(CVqTableCommon::IsIdenticalAlignment(table.get(), {0, 0, 3, 2})) << row;
    }
}

TEST(IsIdenticalCellStyle, Follows_a_merge_out_of_the_range_to_its_last_row) {
    const auto table = commonTable(styleProperty, 4, 3, tallMerge);
    styleProperty.other(*table, 0, 2);
    EXPECT_TRUE(CVqTableCommon::IsIdenticalCellStyle(table.get(), {0, 0, 0, 2}));
    styleProperty.other(*table, 2, 2);
    EXPECT_FALSE(CVqTableCommon::IsIdenticalCellStyle(table.get(), {0, 0, 0, 2}));
}

TEST(IsIdenticalCellStyle, Compares_names_not_their_places_in_memory) {
    const auto table = makeTable(1, 2);
    table->setCellStyle(0, 0, std::wstring(L"_TITLE").c_str());
    table->setCellStyle(0, 1, std::wstring(L"_TITLE").c_str());
    EXPECT_TRUE(CVqTableCommon::IsIdenticalCellStyle(table.get(), {0, 0, 0, 1}));
    table->setCellStyle(0, 1, L"_TITLES");
    EXPECT_FALSE(CVqTableCommon::IsIdenticalCellStyle(table.get(), {0, 0, 0, 1}));
}

TEST(IsIdenticalLocking, Compares_all_bits_of_the_state) {
    for (const int bit : {1, 2, 4, 8, 16, 32, 64, 128}) {
        const auto table = makeTable(1, 2);
        table->setCellState(0, 1, static_cast<KdDb::CellState>(bit));
        EXPECT_FALSE(CVqTableCommon::IsIdenticalLocking(table.get(), {0, 0, 0, 1})) << bit;
    }
}

struct FormatCase {
    KdValue::DataType dataType;
    KdValue::UnitType unitType;
    bool alikeAsCell;
    bool alikeAsMerge;
};

TEST(IsIdenticalDataFormat, A_cell_differs_by_either_type_a_merge_only_by_both) {
    const FormatCase cases[] = {
        {KdValue::kDouble, KdValue::kUnitless, true, true},
        {KdValue::kDouble, KdValue::kAngle, false, true},
        {KdValue::kDate, KdValue::kUnitless, false, true},
        {KdValue::kDate, KdValue::kAngle, false, false},
    };
    for (const FormatCase& expected : cases) {
        SCOPED_TRACE(::testing::Message() << expected.dataType << ", " << expected.unitType);
        const auto plain = commonTable(properties[3], 1, 3);
        plain->setDataType(0, 1, expected.dataType, expected.unitType);
        EXPECT_EQ(CVqTableCommon::IsIdenticalDataFormat(plain.get(), {0, 0, 0, 2}), expected.alikeAsCell);
        const auto merged = commonTable(properties[3], 1, 3, {{0, 1, 0, 2}});
        merged->setDataType(0, 1, expected.dataType, expected.unitType);
        EXPECT_EQ(CVqTableCommon::IsIdenticalDataFormat(merged.get(), {0, 0, 0, 2}), expected.alikeAsMerge);
    }
}

}  // namespace
}  // namespace kdtest
