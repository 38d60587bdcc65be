// Cells of a temporary drawing taken over into a table.

#include "kd/db/table.h"
#include "mfc/messagebox.h"
#include "module/core/resources.h"
#include "module/core/transactions.h"
#include "module/exchange/clipdatamgr.h"
#include "module/exchange/clipobjects.h"
#include "module/exchange/clipranges.h"

namespace {

constexpr unsigned kDoesNotFitText = 2116;
constexpr unsigned kLockedText = 2184;
constexpr unsigned kMergesDifferText = 2185;

constexpr auto kCopyBlock = static_cast<KdDb::TableCopyOption>(64);
constexpr auto kCopySpread = static_cast<KdDb::TableCopyOption>(0x20040);

/// Tells why the cells aren't taken over; without a text, nothing.
int refuse(unsigned textNumber) {
    const CStdStr<wchar_t> text = loadText(textNumber);
    if (!text.IsEmpty()) AfxMessageBox(text, MB_ICONSTOP, 0);
    return 0;
}

/// A source of several cells is laid down from the target's first cell on, whatever was selected behind it. False when
/// it doesn't fit into the table.
bool makeAsLarge(CKdTableCellRange& target, const CKdTableCellRange& source, const KdDbTable& table) {
    if (source.numCells() <= 1 || target.rangeMatching(source)) return true;
    target.m_bottomRow = target.m_topRow + source.numRows() - 1;
    target.m_rightColumn = target.m_leftColumn + source.numColumns() - 1;
    return target.checkRangeFromTable(&table);
}

bool isCovered(const KdDbTable& table, int row, int column) {
    int top = 0;
    int left = 0;
    return table.isMergedCell(row, column, &top, nullptr, &left, nullptr) && (top != row || left != column);
}

/// The last column is left to the host, so that a single column is not looked at here.
bool holdsLockedCells(const KdDbTable& table, const CKdTableCellRange& cells) {
    for (int row = cells.m_topRow; row <= cells.m_bottomRow; ++row) {
        for (int column = cells.m_leftColumn; column < cells.m_rightColumn; ++column) {
            if (!isCovered(table, row, column) && !table.isContentEditable(row, column)) return true;
        }
    }
    return false;
}

CKdTableCellRange mergeOf(const KdDbTable& table, int row, int column) {
    const CKdTableCellRange merge = table.getMergeRange(row, column);
    return merge.isValid() ? merge : CKdTableCellRange(KdCellRange{row, column, row, column});
}

/// Cell by cell, a merge of the target must be the source's, or lie within it. Both blocks are of one size; the last
/// row and the last column are left to the host.
bool mergesAgree(const KdDbTable& target, const KdDbTable& source, const CKdTableCellRange& to,
                 const CKdTableCellRange& from) {
    const int down = to.m_topRow - from.m_topRow;
    const int right = to.m_leftColumn - from.m_leftColumn;
    for (int row = from.m_topRow; row < from.m_bottomRow; ++row) {
        for (int column = from.m_leftColumn; column < from.m_rightColumn; ++column) {
            CKdTableCellRange coming = mergeOf(source, row, column);
            coming.m_topRow += down;
            coming.m_bottomRow += down;
            coming.m_leftColumn += right;
            coming.m_rightColumn += right;
            if (!mergeOf(target, row + down, column + right).beingContained(coming)) return false;
        }
    }
    return true;
}

}  // namespace

int CVqTableClipDataMgr::CanApplyCellProperties(KdDbTable* target, KdDbTable* source, CKdTableCellRange& targetRange,
                                                CKdTableCellRange& sourceRange) {
    if (target == nullptr || source == nullptr || !targetRange.isValid() || !sourceRange.isValid()) return 0;
    if (!makeAsLarge(targetRange, sourceRange, *target)) return refuse(kDoesNotFitText);
    if (holdsLockedCells(*target, targetRange)) return refuse(kLockedText);
    if (sourceRange.numCells() < 2) return 1;
    return mergesAgree(*target, *source, targetRange, sourceRange) ? 1 : refuse(kMergesDifferText);
}

int CVqTableClipDataMgr::DoApplyCellProperties(KdDbTable* target, KdDbTable* source,
                                               const CKdTableCellRange& targetRange,
                                               const CKdTableCellRange& sourceRange) {
    if (target == nullptr || source == nullptr) return 0;
    if (!targetRange.checkRangeFromTable(target) || !sourceRange.checkRangeFromTable(source)) return 0;
    const bool several = sourceRange.numCells() > 1;
    if (several && !targetRange.rangeMatching(sourceRange)) return 0;
    const Kdad::ErrorStatus status = target->copyFrom(source, several ? kCopyBlock : kCopySpread, sourceRange.asRange(),
                                                      targetRange.asRange(), nullptr);
    return status == Kdad::eOk ? 1 : 0;
}

int CVqTableClipDataMgr::ApplyCellProperties(KdDbTable* table, tagVqTableClipboardInfo* info) {
    if (table == nullptr || info == nullptr || info->m_fileName[0] == L'\0') return 0;
    std::optional<CKdTableCellRange> cells = cellsOf(*table);
    if (!cells) return 0;
    Attempt attempt;
    KdDbDatabase drawing(false, true);
    KdDbDatabase* database = &drawing;
    KdDbObjectId source;
    KdDbObjectId block;
    int applied = 0;
    if (ReadTableFromTempFile(database, fileNameIn(info->m_fileName).c_str(), source, block) == Kdad::eOk) {
        const OpenObject<KdDbTable> open(source, KdDb::kForWrite);
        if (open) {
            CKdTableCellRange all = wholeOf(*open);
            if (CanApplyCellProperties(table, open.get(), *cells, all) != 0) {
                applied = DoApplyCellProperties(table, open.get(), *cells, all);
            }
            open->erase();
        }
    }
    // A file of no table, or of several, has become a block all the same. Cells whose block stayed behind aren't
    // taken over.
    const bool isCleared = eraseObject(block);
    if (applied == 0 || !isCleared) return 0;
    attempt.stands();
    return applied;
}
