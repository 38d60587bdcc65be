// A block in a cell that the user picks.

#include "kd/ad/display.h"
#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "module/core/openobject.h"
#include "module/core/tablepick.h"
#include "module/edit/celledit.h"
#include "module/edit/cellinsertblockdlg.h"

void tableInsertBlockEntry() {
    KdGePoint3d point;
    KdDbTable* picked = getTableAtPt(point);
    if (picked == nullptr) return;
    int row = -1;
    int column = -1;
    int content = -1;
    KdDb::TableHitItem item{};
    const bool hit = picked->hitTest(point, KdGeVector3d::kZAxis, 0.0, 0.0, row, column, content, item);
    const KdDbObjectId id = picked->objectId();
    picked->close();
    if (!hit) return;

    bool changed = false;
    {
        const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
        changed = table && invokeTableInsertBlockDlg(table.get(), row, column, content);
    }
    if (!changed) return;
    kddbQueueForRegen(&id, 1);
    kdedUpdateDisplay();
}

bool invokeTableInsertBlockDlg(KdDbTable* table, int row, int col, int contentIndex) {
    if (table == nullptr) return false;
    CVqTableCellInsertBlockDlg dialog(table->database(), table->isAutoScale(row, col, contentIndex),
                                      table->blockScale(row, col), table->blockRotation(row, col),
                                      table->alignment(row, col), table->blockTableRecordId(row, col, contentIndex));
    if (dialog.DoModal() != IDOK) return false;
    // The row serves as the column too, so that it is the cell on the table's diagonal that takes the block: that is a
    // rule.
    const int column = row;
    table->setBlockTableRecordId(row, column, contentIndex, dialog.m_blockId, dialog.m_autofit);
    table->setAlignment(row, column, dialog.m_alignment);
    table->setBlockScale(row, column, dialog.m_scale);
    table->setBlockRotation(row, column, dialog.m_rotation);
    return true;
}
