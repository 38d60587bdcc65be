// The vocabulary of styles: cell styles, cell classes and data formats have names of the system and names that
// the user reads. The latter are texts of the resource module, so that each conversion compares with what the
// user's language calls a thing.

#include <array>

#include "module/core/resources.h"
#include "module/core/ssicmp.h"
#include "module/core/tablecommon.h"

namespace {

struct CellStyleNames {
    const wchar_t* internal;
    unsigned displayText;
};

/// The names of the three cell styles that every table style has. A row of headers is known by the name
/// "_HERDER" too, where its text is measured; that name has no display form and no conversion knows it.
constexpr std::array kCellStyleNames = {
    CellStyleNames{.internal = L"_TITLE", .displayText = 2038},
    CellStyleNames{.internal = L"_HEADER", .displayText = 2039},
    CellStyleNames{.internal = L"_DATA", .displayText = 2037},
};

struct CellClassName {
    KdDb::CellClass cellClass;
    unsigned displayText;
};

constexpr std::array kCellClassNames = {
    CellClassName{.cellClass = KdDb::kCellClassLabel, .displayText = 2141},
    CellClassName{.cellClass = KdDb::kCellClassData, .displayText = 2140},
};

struct DataFormatName {
    KdValue::DataType type;
    KdValue::UnitType unit;
    unsigned displayText;
};

/// In the order that texts are compared in. The number 5306 is not in use.
constexpr std::array kDataFormatNames = {
    DataFormatName{.type = KdValue::kGeneral, .unit = KdValue::kUnitless, .displayText = 5301},
    DataFormatName{.type = KdValue::kDouble, .unit = KdValue::kUnitless, .displayText = 5302},
    DataFormatName{.type = KdValue::kDouble, .unit = KdValue::kAngle, .displayText = 5303},
    DataFormatName{.type = KdValue::kString, .unit = KdValue::kUnitless, .displayText = 5304},
    DataFormatName{.type = KdValue::kDate, .unit = KdValue::kUnitless, .displayText = 5305},
    DataFormatName{.type = KdValue::kLong, .unit = KdValue::kUnitless, .displayText = 5307},
    DataFormatName{.type = KdValue::kPoint, .unit = KdValue::kUnitless, .displayText = 5308},
    DataFormatName{.type = KdValue::kDouble, .unit = KdValue::kCurrency, .displayText = 5309},
    DataFormatName{.type = KdValue::kDouble, .unit = KdValue::kPercentage, .displayText = 5310},
};

/// The first row whose display name is the text; null when there is none. A display name that can't be loaded
/// is no name, so that an empty text never has one.
template <class Rows>
auto rowOfDisplayName(const Rows& rows, const CStdStr<wchar_t>& text) -> decltype(rows.data()) {
    for (const auto& row : rows) {
        if (!text.empty() && ssicmp(text, loadText(row.displayText)) == 0) return &row;
    }
    return nullptr;
}

}  // namespace

void CVqTableCommon::DefaultCellStyleConvert(CStdStr<wchar_t>& name) {
    if (const auto* row = rowOfDisplayName(kCellStyleNames, name)) name = row->internal;
}

void CVqTableCommon::DefaultCellStyleReverseConvert(CStdStr<wchar_t>& name) {
    for (const CellStyleNames& row : kCellStyleNames) {
        if (ssicmp(name, row.internal) != 0) continue;
        name = loadText(row.displayText);
        return;
    }
}

KdDb::CellClass CVqTableCommon::TypeStringToCellClass(const CStdStr<wchar_t>& text) {
    // Every text but that of labels is data: that of data is compared too, to no effect.
    const auto* row = rowOfDisplayName(kCellClassNames, text);
    return row != nullptr ? row->cellClass : KdDb::kCellClassData;
}

CStdStr<wchar_t> CVqTableCommon::CellClassToTypeString(KdDb::CellClass cellClass) {
    for (const CellClassName& row : kCellClassNames) {
        if (row.cellClass == cellClass) return loadText(row.displayText);
    }
    return {};
}

CStdStr<wchar_t> CVqTableCommon::FormatFormDataUnitType(KdValue::DataType type, KdValue::UnitType unit) {
    for (const DataFormatName& row : kDataFormatNames) {
        if (row.type == type && row.unit == unit) return loadText(row.displayText);
    }
    return {};
}

void CVqTableCommon::DataUnitTypeFormFormat(KdValue::DataType& type, KdValue::UnitType& unit,
                                            const CStdStr<wchar_t>& text) {
    const auto* row = rowOfDisplayName(kDataFormatNames, text);
    if (row == nullptr) return;
    type = row->type;
    unit = row->unit;
}

bool CVqTableCommon::CheckStyleNameValid(const CStdStr<wchar_t>& name) {
    return name.find_first_of(L"<>/\\\":;?*|,=`'") == std::wstring::npos;
}
