// Tests of a table's current selection.

#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "module/core/cellwalk.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"

using cellwalk::anyCell;

KdCellRange CVqTableCommon::GetSubSelection(KdDbObjectId table) {
    const OpenObject<KdDbTable> open(table, KdDb::kForRead);
    return open ? open->getSubSelection() : KdCellRange{};
}

bool CVqTableCommon::IsSingleCell(const KdDbTable* table) {
    if (table == nullptr) return false;
    const KdCellRange selection = table->getSubSelection();
    return CKdTableCellRange(selection).numCells() < 2 ||
           selection == table->getMergeRange(selection.m_topRow, selection.m_leftColumn);
}

bool CVqTableCommon::CanMergeCells(const KdDbTable* table) {
    if (table == nullptr || IsSingleCell(table)) return false;
    const auto isFixed = [&](int row, int column) { return !table->isContentEditable(row, column); };
    return !anyCell(*table, table->getSubSelection(), isFixed);
}

bool CVqTableCommon::CanUnMergeCells(const KdDbTable* table) {
    if (table == nullptr) return false;
    const KdCellRange selection = table->getSubSelection();
    const auto isEditable = [&](int row, int column) { return table->isContentEditable(row, column); };
    return cellwalk::anyMerge(*table, selection) && anyCell(*table, selection, isEditable);
}

int CVqTableCommon::CanColumnSizeEqually(const KdDbTable* table) {
    return table == nullptr ? 0 : CKdTableCellRange(table->getSubSelection()).numColumns();
}

int CVqTableCommon::CanRowSizeEqually(const KdDbTable* table) {
    return table == nullptr ? 0 : CKdTableCellRange(table->getSubSelection()).numRows();
}

bool CVqTableCommon::GetReadOnlyState(const KdDbTable* table, bool& content, bool& format) {
    bool anyContent = false;
    bool anyFormat = false;
    if (table != nullptr) {
        anyCell(*table, table->getSubSelection(), [&](int row, int column) {
            anyContent = anyContent || table->isContentEditable(row, column);
            anyFormat = anyFormat || table->isFormatEditable(row, column);
            return anyContent && anyFormat;
        });
    }
    content = anyContent;
    format = anyFormat;
    return table != nullptr;
}

bool CVqTableCommon::IsTableLocking(KdDbObjectId table) {
    OpenObject<KdDbTable> open(table, KdDb::kForRead);
    if (!open) return false;
    const KdDbObjectId layerId = open->layerId();
    open.close();
    const OpenObject<KdDbLayerTableRecord> layer(layerId, KdDb::kForRead);
    return layer && layer->isLocked();
}
