// The ways into the cell editor.

#include "kd/db/table.h"
#include "module/core/editframe.h"
#include "module/core/tablecommon.h"
#include "module/core/tablepick.h"
#include "module/edit/celledit.h"

namespace {

/// The cell under a point that the user picks; the null id when there is none.
KdDbObjectId pickCell(int& row, int& col) {
    KdGePoint3d point;
    KdDbTable* table = getTableAtPt(point);
    if (table == nullptr) return KdDbObjectId::kNull;
    const bool hit = table->hitTestCell(point, KdGeVector3d::kZAxis, 0.0, 0.0, row, col);
    const KdDbObjectId id = hit ? table->objectId() : KdDbObjectId::kNull;
    table->close();
    return id;
}

}  // namespace

void tableEditEntry() {
    KdDbObjectId id;
    int row = -1;
    int col = -1;
    const bool selectedBefore = isDoubleClickEdit(id, row, col);
    if (!selectedBefore) id = pickCell(row, col);
    if (id.isNull() || row < 0 || col < 0) return;
    editTable(id, row, col, selectedBefore, {});
}

int CVqTableCommon::TableEdit(KdDbObjectId id) {
    constexpr EditMark mark{.name = L"TableEdit", .titleText = 2093, .updatesDisplay = false};
    return markedEdit(mark, [&] {
        const KdCellRange cells = GetSubSelection(id);
        editTable(id, cells.m_topRow, cells.m_leftColumn, false, {});
    });
}
