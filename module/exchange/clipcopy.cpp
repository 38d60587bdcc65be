// A copy: the table cloned beside itself, the clone cut down to the cells, saved, erased, and told on the clipboard.

#include "kd/db/headervar.h"
#include "kd/db/idmapping.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "module/core/tablecommon.h"
#include "module/core/transactions.h"
#include "module/exchange/clipdatamgr.h"
#include "module/exchange/clipmemory.h"
#include "module/exchange/clipobjects.h"
#include "module/exchange/clipranges.h"

namespace {

void giveExtensionsTo(KdDbObject& clone) {
    const OpenObject<KdDbObject> extensions(clone.extensionDictionary(), KdDb::kForWrite);
    if (extensions) extensions->setOwnerId(clone.objectId());
}

/// A clone of the table in the same block, closed; the null id when it can't be made.
KdDbObjectId cloneBeside(const KdDbTable& table) {
    const OpenObject<KdDbBlockTableRecord> owner(table.ownerId(), KdDb::kForWrite);
    KdDbDatabase* const database = workingDatabase();
    if (!owner || database == nullptr) return KdDbObjectId::kNull;
    KdDbIdMapping mapping;
    mapping.setDestDb(database);
    KdDbObject* clone = nullptr;
    table.deepClone(owner.get(), clone, mapping, true);
    if (clone == nullptr) return KdDbObjectId::kNull;
    giveExtensionsTo(*clone);
    KdDbSystemInternals::getImpObject(clone)->setKdDbObjectIdsInFlux(false);
    const KdDbObjectId id = clone->objectId();
    clone->close();
    return id;
}

/// Cutting the clone down may have torn merges apart.
void rebuildMerges(const KdDbTable& source, const CKdTableCellRange& cells, KdDbTable& clone) {
    CVqTableCellRange merge;
    forEachCell(cells, [&](int row, int column) {
        const bool merged = source.isMergedCell(row, column, &merge.m_topRow, &merge.m_bottomRow, &merge.m_leftColumn,
                                                &merge.m_rightColumn);
        if (!merged || merge.m_topRow != row || merge.m_leftColumn != column) return;
        clone.mergeCells(merge.m_topRow - cells.m_topRow, merge.m_bottomRow - cells.m_topRow,
                         merge.m_leftColumn - cells.m_leftColumn, merge.m_rightColumn - cells.m_leftColumn);
    });
}

/// One setter serves title and header, so that the last of either decides.
void takeOverSuppressions(const KdDbTable& source, const CKdTableCellRange& cells, KdDbTable& clone) {
    for (int row = cells.m_topRow; row <= cells.m_bottomRow; ++row) {
        const KdDb::RowType type = source.rowType(row);
        if (type == KdDb::kTitleRow) clone.suppressHeaderRow(source.isTitleSuppressed());
        if (type == KdDb::kHeaderRow) clone.suppressHeaderRow(source.isHeaderSuppressed());
    }
}

KdGePoint3d basePointOf(const KdDbTable& table) {
    const KdDbExtents extents = table.getGeomExtents();
    return extents.isValid() ? extents.minPoint() : KdGePoint3d();
}

/// Makes the clone hold just the cells, looking as they do. False when it can't be opened.
bool cutDownTo(const KdDbTable& source, const CKdTableCellRange& cells, KdDbObjectId id, KdGePoint3d& basePoint) {
    const OpenObject<KdDbTable> clone(id, KdDb::kForWrite);
    if (!clone) return false;
    CVqTableClipDataMgr::TrimTable(clone.get(), &cells);
    // Cells outside the table leave the clone whole, with its merges in place.
    if (cells.beingContained(wholeOf(source))) rebuildMerges(source, cells, *clone);
    takeOverSuppressions(source, cells, *clone);
    basePoint = basePointOf(*clone);
    clone->recomputeTableBlock(true);
    return true;
}

bool offerDrawing(COleDataObject& clipboard, const KdString& fileName, const KdGePoint3d& basePoint) {
    tagVqDrawingClipboardInfo info{};
    putFileName(info.m_fileName, fileName.str());
    std::wmemcpy(info.m_versionTag, L"R15", 4);
    info.m_basePoint[0] = basePoint.x;
    info.m_basePoint[1] = basePoint.y;
    info.m_basePoint[2] = basePoint.z;
    return putOnClipboard(clipboard, CVqTableClipDataMgr::GetAutoCADClipFormat(), &info, sizeof info);
}

bool offerCells(COleDataObject& clipboard, const KdString& fileName, const KdDbTable& source,
                const CKdTableCellRange& cells) {
    constexpr int kRecordVersion = 12;
    tagVqTableClipboardInfo info{};
    putFileName(info.m_fileName, fileName.str());
    info.m_rows = cells.numRows();
    info.m_columns = cells.numColumns();
    info.m_version = kRecordVersion;
    info.m_sourceTable = static_cast<std::int64_t>(source.objectId().asInteger());
    info.m_firstRow = cells.m_topRow;
    info.m_firstColumn = cells.m_leftColumn;
    return putOnClipboard(clipboard, CVqTableClipDataMgr::GetAcTableClipFormat(), &info, sizeof info);
}

}  // namespace

std::optional<CKdTableCellRange> CVqTableClipDataMgr::cellsOf(const KdDbTable& table) const {
    return blockOf(m_range.isValid() ? m_range : CKdTableCellRange(table.getSubSelection()), table);
}

int CVqTableClipDataMgr::CopyTableCells(KdDbTable* table) {
    if (table == nullptr || !table->isReadEnabled()) return 0;
    // On a locked layer the clone could be made, but neither changed nor erased again.
    if (CVqTableCommon::IsTableLocking(table->objectId())) return 0;
    Attempt attempt;
    const KdDbObjectId clone = cloneBeside(*table);
    if (clone.isNull()) return 0;
    const std::optional<CKdTableCellRange> cells = cellsOf(*table);
    KdGePoint3d basePoint;
    KdString fileName;
    const bool written = cells && cutDownTo(*table, *cells, clone, basePoint) &&
                         WriteTableToTempFile(workingDatabase(), clone, basePoint, fileName) == Kdad::eOk &&
                         !fileName.isEmpty();
    // The clone goes whatever came of it; one that can't be erased is taken back.
    if (!eraseObject(clone)) return 0;
    attempt.stands();
    if (!written) return 0;
    COleDataObject clipboard;
    if (!clipboard.AttachClipboard()) return 0;
    return offerDrawing(clipboard, fileName, basePoint) && offerCells(clipboard, fileName, *table, *cells) ? 1 : 0;
}

int CVqTableClipDataMgr::TrimTable(KdDbTable* table, const CKdTableCellRange* range) {
    if (table == nullptr || range == nullptr) return 0;
    const std::optional<CKdTableCellRange> cells = blockOf(*range, *table);
    if (!cells || cells->numCells() < 1) return 0;
    const CKdTableCellRange whole = wholeOf(*table);
    if (!cells->beingContained(whole) || cells->asRange() == whole.asRange()) return 1;
    table->removeDataLink();
    // From behind, so that the numbers of what is still to go stay right.
    table->deleteRows(cells->m_bottomRow + 1, whole.m_bottomRow - cells->m_bottomRow);
    table->deleteColumns(cells->m_rightColumn + 1, whole.m_rightColumn - cells->m_rightColumn);
    if (cells->m_topRow > 0) table->deleteRows(0, cells->m_topRow);
    if (cells->m_leftColumn > 0) table->deleteColumns(0, cells->m_leftColumn);
    return 1;
}
