// Whether the cells of a range are alike in one property: one scan, and the properties it compares.

#include <cwchar>

#include "kd/db/table.h"
#include "module/core/cellwalk.h"
#include "module/core/tablecommon.h"

namespace {

bool isAlikeAnyway(const CVqTableCellRange& range) {
    return cellwalk::isOneCell(range) || cellwalk::isReversed(range);
}

/// Compares the cells of the range with its top left one. `read(row, column)` gives the property, of a merge's owner
/// for each of its cells; `differs(reference, other, merged)` tells a difference, of a merge where `merged` is true.
/// Merges are looked for only where something differs at all, which halves the calls of a test that goes through.
template <class Read, class Differs>
bool alike(const KdDbTable* table, const CVqTableCellRange& range, Read read, Differs differs) {
    if (table == nullptr) return false;
    if (isAlikeAnyway(range)) return true;
    const auto reference = read(range.m_topRow, range.m_leftColumn);
    return !cellwalk::anyCell(*table, range, [&](int row, int column) {
        const auto other = read(row, column);
        return other != reference && differs(reference, other, table->isMergedCell(row, column));
    });
}

/// Filled by the getter. Zeroes put there before would be looked for in the place of what the getter stored, which
/// costs half as much again as the look itself.
struct DataFormat {
    KdValue::DataType dataType;
    KdValue::UnitType unitType;

    bool operator==(const DataFormat&) const = default;
};

constexpr auto valuesDiffer = [](int reference, int other, bool) { return reference != other; };

}  // namespace

// Behind a merge the walk goes on in the merge's last row: what stands beside it above that isn't compared.
bool CVqTableCommon::IsIdenticalCellStyle(const KdDbTable* table, const CVqTableCellRange& range) {
    if (table == nullptr) return false;
    if (isAlikeAnyway(range)) return true;
    const wchar_t* const reference = table->cellStyle(range.m_topRow, range.m_leftColumn);
    bool different = false;
    const auto decides = [&](int row, int column, const CVqTableCellRange* merge) {
        if (merge != nullptr && *merge == range) return true;
        const wchar_t* const other = table->cellStyle(row, column);
        different = other != reference && std::wcscmp(reference, other) != 0;
        return different;
    };
    cellwalk::anyBlock(*table, range, decides, cellwalk::BehindMerge::LastRow);
    return !different;
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
