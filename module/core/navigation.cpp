// Moving the selected cell with the keyboard, and the pick that selects a cell.

#include <algorithm>

#include "kd/db/table.h"
#include "kd/ed/selection.h"
#include "kd/ed/view.h"
#include "module/core/cellwalk.h"
#include "module/core/openobject.h"
#include "module/core/tablecommon.h"

namespace {

struct Place {
    int row = -1;
    int column = -1;

    explicit operator bool() const { return row >= 0 && column >= 0; }
};

/// Not covered: in no merge, or its top left cell.
bool standsForItself(const KdDbTable& table, int row, int column) {
    CVqTableCellRange merge;
    return !cellwalk::mergeOfCell(table, row, column, merge) || (merge.m_topRow == row && merge.m_leftColumn == column);
}

/// In reading order; only the rest of the selection's first row and the rows below are looked at, and no cell of
/// the selection.
Place nextBehind(const KdDbTable& table, const KdCellRange& selection) {
    const int columns = table.numColumns();
    const int firstRow = std::max(selection.m_topRow, 0);
    for (int row = firstRow; row < table.numRows(); ++row) {
        const bool first = row == firstRow;
        const bool selected = row <= selection.m_bottomRow;
        int column = first ? std::max(selection.m_leftColumn, selection.m_rightColumn + 1) : 0;
        for (; column < columns; ++column) {
            const bool inside = selected && column >= selection.m_leftColumn && column <= selection.m_rightColumn;
            if (inside) {
                column = selection.m_rightColumn;
            } else if (standsForItself(table, row, column)) {
                return {row, column};
            }
        }
    }
    return {};
}

Place previousBefore(const KdDbTable& table, const KdCellRange& selection) {
    Place place{selection.m_topRow, selection.m_leftColumn - 1};
    if (selection.m_leftColumn < 1) place = {selection.m_topRow - 1, table.numColumns() - 1};
    if (!place) return {};
    const KdCellRange merge = table.getMergeRange(place.row, place.column);
    return {merge.m_topRow, merge.m_leftColumn};
}

Place above(const KdDbTable&, const KdCellRange& selection) {
    return {std::max(selection.m_topRow - 1, 0), selection.m_leftColumn};
}

Place below(const KdDbTable& table, const KdCellRange& selection) {
    const int next = selection.m_topRow + 1;
    return {next < table.numRows() ? next : selection.m_topRow, selection.m_leftColumn};
}

Place topmost(const KdDbTable&, const KdCellRange& selection) {
    return {0, selection.m_leftColumn};
}

Place bottommost(const KdDbTable& table, const KdCellRange& selection) {
    return {table.numRows() - 1, selection.m_leftColumn};
}

/// Whether there was a cell to go to. The selection is given up before the pick, so that a pick that can't be
/// made, for want of a view, leaves nothing selected; the move counts all the same.
bool moveTo(KdDbObjectId id, Place (*target)(const KdDbTable&, const KdCellRange&)) {
    const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
    if (!table) return false;
    const Place place = target(*table, table->getSubSelection());
    if (!place) return false;
    table->clearSubSelection();
    PickSelCell(table.get(), place.row, place.column);
    return true;
}

}  // namespace

bool CVqTableCommon::SelectNextCell(KdDbObjectId table) {
    return moveTo(table, nextBehind);
}

bool CVqTableCommon::SelectPrevCell(KdDbObjectId table) {
    return moveTo(table, previousBefore);
}

bool CVqTableCommon::SelectUpperCell(KdDbObjectId table) {
    return moveTo(table, above);
}

bool CVqTableCommon::SelectLowerCell(KdDbObjectId table) {
    return moveTo(table, below);
}

bool CVqTableCommon::SelectTopCell(KdDbObjectId table) {
    return moveTo(table, topmost);
}

bool CVqTableCommon::SelectBottomCell(KdDbObjectId table) {
    return moveTo(table, bottommost);
}

// The table is open for write with those who move the selection; the pick finds it open for read.
void PickSelCell(KdDbTable* table, int row, int column) {
    if (table == nullptr || kdedGetKdadDwgView() == nullptr) return;
    table->clearSubSelection();
    table->downgradeOpen();
    KdGePoint3d center;
    CVqTableCommon::GetCellCenterPoint(table, row, column, center);

    const KdadGsView* view = kdadGetActiveGsView();
    const KdadViewport* viewport = view == nullptr ? nullptr : view->getKdadViewport();
    if (viewport == nullptr) return;
    table->downgradeOpen();
    viewport->worldToScreen(center);
    kdadPickSelSetWithoutInteraction(center);
}
