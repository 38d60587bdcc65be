// Operations of the table class that answer the same whatever they are asked, or look only whether a table is
// there, and change nothing. They are part of the class for those who call it from outside.

#include "module/core/cellwalk.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"

int CVqTableCommon::IsRowLastMerged(const KdDbTable*, const CVqTableCellRange&) {
    return 0;
}

int CVqTableCommon::IsColumnLastMerged(const KdDbTable*, const CVqTableCellRange&) {
    return 0;
}

int CVqTableCommon::IsCanCellDownloadChange(const KdDbTable*, const CVqTableCellRange&) {
    return 0;
}

int CVqTableCommon::IsCanCellManageCellContent(const KdDbTable*, const CVqTableCellRange&) {
    return 0;
}

int CVqTableCommon::FindCellRange(const KdDbTable*, CVqTableCellRange&) {
    return 0;
}

int CVqTableCommon::CreateTable(KdDbDatabase*, KdDbTable*&) {
    return 0;
}

bool CVqTableCommon::CheckCellsCanPaste(const KdDbTable* source, const KdDbTable* target, const CVqTableCellRange&,
                                        int&, int) {
    return source != nullptr && target != nullptr;
}

bool CVqTableCommon::DeleteCells(KdDbTable* table, const CVqTableCellRange& range, int) {
    return table != nullptr && !cellwalk::isReversed(range);
}

int CVqTableCommon::SortStyles(KdArray<KdString>&) {
    return 0;
}

/// Loads the texts of a prompt that it doesn't give.
int CVqTableCommon::SelectTable() {
    loadText(2050);
    loadText(2051);
    return 0;
}

bool CVqTableCommon::SaveAsNewCellStyle(KdDbObjectId table) {
    return static_cast<bool>(OpenObject<KdDbTable>(table, KdDb::kForRead));
}

bool CVqTableCommon::SaveAsNewTableStyle(KdDbObjectId) {
    return true;
}
