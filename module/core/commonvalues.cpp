// What the selected cells have in common: the values that menus check and the toolbar shows. Without a selection the
// table's first cell answers for alignment, locks and fill, as it does for a row and a column of -1 everywhere.

#include "module/core/cellwalk.h"
#include "module/core/tablecommon.h"

namespace {

/// The bits of a state that are compared.
constexpr int kLocks = KdDb::kCellStateContentLocked | KdDb::kCellStateContentReadOnly | KdDb::kCellStateFormatLocked |
                       KdDb::kCellStateFormatReadOnly;

struct TypeAndUnit {
    KdValue::DataType type = KdValue::kUnknown;
    KdValue::UnitType unit = KdValue::kUnitless;
    friend bool operator==(const TypeAndUnit&, const TypeAndUnit&) = default;
};

/// Whether some selected cell differs from `common` by `read(row, column)`.
template <class Value, class Read>
bool someCellDiffers(const KdDbTable& table, const KdCellRange& selection, const Value& common, Read read) {
    return cellwalk::anyCell(table, selection, [&](int row, int column) { return read(row, column) != common; });
}

}  // namespace

bool CVqTableCommon::GetDataType(const KdDbTable* table, KdValue::DataType& type, KdValue::UnitType& unit) {
    KdCellRange selection;
    if (table == nullptr || table->getSubSelection(selection.m_topRow, selection.m_bottomRow, selection.m_leftColumn,
                                                   selection.m_rightColumn) != Kdad::eOk) {
        return false;
    }
    // The first change is the one from nothing to the first cell's pair, so that it is tolerated wherever it
    // comes: cells that have no type and then cells of one type pass for cells of that type.
    TypeAndUnit last;
    int changes = 0;
    const bool mixed = cellwalk::anyCell(*table, selection, [&](int row, int column) {
        TypeAndUnit read;
        table->getDataType(row, column, read.type, read.unit);
        if (read != last) ++changes;
        last = read;
        return changes > 1;
    });
    type = mixed ? KdValue::kUnknown : last.type;
    unit = last.unit;
    return true;
}

bool CVqTableCommon::GetCellAlignment(const KdDbTable* table, KdDb::CellAlignment& alignment) {
    if (table == nullptr) return false;
    const KdCellRange selection = table->getSubSelection();
    alignment = table->alignment(selection.m_topRow, selection.m_leftColumn);
    return !someCellDiffers(*table, selection, alignment,
                            [&](int row, int column) { return table->alignment(row, column); });
}

bool CVqTableCommon::GetCellState(const KdDbTable* table, KdDb::CellState& state) {
    if (table == nullptr) return false;
    const KdCellRange selection = table->getSubSelection();
    const auto locks = [&](int row, int column) { return table->cellState(row, column) & kLocks; };
    const int common = locks(selection.m_topRow, selection.m_leftColumn);
    if (someCellDiffers(*table, selection, common, locks)) return false;
    state = static_cast<KdDb::CellState>(common);
    return true;
}

bool CVqTableCommon::GetBackgroundColor(const KdDbTable* table, KdCmColor& color) {
    if (table == nullptr) return false;
    const KdCellRange selection = table->getSubSelection();
    color = table->backgroundColor(selection.m_topRow, selection.m_leftColumn);
    const auto isCovered = [&](int row, int column) {
        CVqTableCellRange merge;
        return cellwalk::mergeOfCell(*table, row, column, merge) &&
               (row != merge.m_topRow || column != merge.m_leftColumn);
    };
    return !cellwalk::anyCell(*table, selection, [&](int row, int column) {
        return table->backgroundColor(row, column) != color && !isCovered(row, column);
    });
}
