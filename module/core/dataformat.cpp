// Data formats: menu commands, the pairs of data type and unit that they stand for, and a sample value of each.

#include "module/core/tablecommon.h"

#include <array>

namespace {

struct MenuFormat {
    int menuId;
    KdValue::DataType type;
    KdValue::UnitType unit;
};

constexpr std::array kMenuFormats = {
    MenuFormat{.menuId = 1823, .type = KdValue::kDouble, .unit = KdValue::kAngle},
    MenuFormat{.menuId = 1824, .type = KdValue::kDouble, .unit = KdValue::kCurrency},
    MenuFormat{.menuId = 1825, .type = KdValue::kDate, .unit = KdValue::kUnitless},
    MenuFormat{.menuId = 1826, .type = KdValue::kDouble, .unit = KdValue::kUnitless},
    MenuFormat{.menuId = 1827, .type = KdValue::kGeneral, .unit = KdValue::kUnitless},
    MenuFormat{.menuId = 1828, .type = KdValue::kDouble, .unit = KdValue::kPercentage},
    MenuFormat{.menuId = 1829, .type = KdValue::kPoint, .unit = KdValue::kUnitless},
    MenuFormat{.menuId = 1830, .type = KdValue::kString, .unit = KdValue::kUnitless},
    MenuFormat{.menuId = 1831, .type = KdValue::kLong, .unit = KdValue::kUnitless},
};

/// A sample belongs to one unit of its type, or to all of them.
constexpr int kAnyUnit = -1;

struct Sample {
    KdValue::DataType type;
    int unit;
    void (*fill)(KdValue& value);
};

void fillText(KdValue& value) {
    value.set(L"样例文字");
}

/// Dates and all that stands in no row have no sample.
constexpr std::array kSamples = {
    Sample{.type = KdValue::kLong, .unit = kAnyUnit, .fill = [](KdValue& value) { value.set(20040901L); }},
    Sample{.type = KdValue::kDouble, .unit = KdValue::kCurrency, .fill = [](KdValue& value) { value.set(1234.1); }},
    Sample{.type = KdValue::kDouble, .unit = KdValue::kPercentage, .fill = [](KdValue& value) { value.set(12.34); }},
    Sample{.type = KdValue::kDouble, .unit = KdValue::kUnitless, .fill = [](KdValue& value) { value.set(845.34786); }},
    Sample{.type = KdValue::kDouble, .unit = KdValue::kAngle, .fill = [](KdValue& value) { value.set(2.103); }},
    Sample{.type = KdValue::kString, .unit = kAnyUnit, .fill = fillText},
    Sample{.type = KdValue::kGeneral, .unit = kAnyUnit, .fill = fillText},
    Sample{.type = KdValue::kPoint, .unit = kAnyUnit, .fill = [](KdValue& value) { value.set(2.58, 5.37, 0.0); }},
};

}  // namespace

bool CVqTableCommon::GetDataFormat(int menuId, KdValue::DataType& type, KdValue::UnitType& unit) {
    type = KdValue::kUnknown;
    unit = KdValue::kUnitless;
    for (const MenuFormat& row : kMenuFormats) {
        if (row.menuId != menuId) continue;
        type = row.type;
        unit = row.unit;
        return true;
    }
    return false;
}

int CVqTableCommon::GetDataFormatToMenuId(KdValue::DataType type, KdValue::UnitType unit) {
    for (const MenuFormat& row : kMenuFormats) {
        if (row.type == type && row.unit == unit) return row.menuId;
    }
    return 0;  // far from every menu item
}

void CVqTableCommon::GetValue(KdValue*& value, KdValue::DataType type, KdValue::UnitType unit) {
    if (value == nullptr) return;
    for (const Sample& row : kSamples) {
        if (row.type != type || (row.unit != kAnyUnit && row.unit != unit)) continue;
        row.fill(*value);
        return;
    }
}
