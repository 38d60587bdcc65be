// Whether the cells of a range are alike in one property: one scan, and the properties it compares.

#include <cwchar>

#include "kd/db/table.h"
#include "module/core/cellwalk.h"
#include "module/core/tablecommon.h"

using cellwalk::BehindMerge;

namespace {

/// Compares the cells of the range with its top left one. `read(row, column)` gives the property;
/// `differs(reference, other, merged)` tells a difference, of a merge's owner where `merged` is true.
template <class Read, class Differs>
bool alike(const KdDbTable* table, const CVqTableCellRange& range, Read read, Differs differs,
           BehindMerge behind = BehindMerge::SameRow) {
    if (table == nullptr) return false;
    if (cellwalk::isOneCell(range) || cellwalk::isReversed(range)) return true;
    const auto reference = read(range.m_topRow, range.m_leftColumn);
    bool different = false;
    const auto decides = [&](int row, int column, const CVqTableCellRange* merge) {
        if (merge != nullptr && *merge == range) return true;
        different = merge != nullptr ? differs(reference, read(merge->m_topRow, merge->m_leftColumn), true)
                                     : differs(reference, read(row, column), false);
        return different;
    };
    cellwalk::anyBlock(*table, range, decides, behind);
    return !different;
}

/// Filled by the getter. Zeroes put there before would be looked for in the place of what the getter stored, which
/// costs half as much again as the look itself.
struct DataFormat {
    KdValue::DataType dataType;
    KdValue::UnitType unitType;
};

constexpr auto valuesDiffer = [](int reference, int other, bool) { return reference != other; };

}  // namespace

bool CVqTableCommon::IsIdenticalCellStyle(const KdDbTable* table, const CVqTableCellRange& range) {
    const auto read = [&](int row, int column) { return table->cellStyle(row, column); };
    const auto differs = [](const wchar_t* reference, const wchar_t* other, bool) {
        return reference != other && std::wcscmp(reference, other) != 0;
    };
    return alike(table, range, read, differs, BehindMerge::LastRow);
}

bool CVqTableCommon::IsIdenticalAlignment(const KdDbTable* table, const CVqTableCellRange& range) {
    const auto read = [&](int row, int column) -> int { return table->alignment(row, column); };
    return alike(table, range, read, valuesDiffer);
}

bool CVqTableCommon::IsIdenticalLocking(const KdDbTable* table, const CVqTableCellRange& range) {
    const auto read = [&](int row, int column) -> int { return table->cellState(row, column); };
    return alike(table, range, read, valuesDiffer);
}

bool CVqTableCommon::IsIdenticalDataFormat(const KdDbTable* table, const CVqTableCellRange& range) {
    const auto read = [&](int row, int column) {
        DataFormat format;
        table->getDataType(row, column, format.dataType, format.unitType);
        return format;
    };
    const auto differs = [](const DataFormat& reference, const DataFormat& other, bool merged) {
        const bool byData = reference.dataType != other.dataType;
        const bool byUnit = reference.unitType != other.unitType;
        return merged ? byData && byUnit : byData || byUnit;
    };
    return alike(table, range, read, differs);
}
