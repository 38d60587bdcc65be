// Merging the selected cells: into one, or row by row or column by column; and taking merges apart.
//
// Merging gives up what the covered cells hold, so the user is asked before. A selection with a negative row or
// column names no rectangle that could be merged.

#include "kd/ad/mainapp.h"
#include "mfc/messagebox.h"
#include "module/core/cellwalk.h"
#include "module/core/editframe.h"
#include "module/core/tablecommon.h"

namespace {

constexpr unsigned contentLossText = 2099;

// The four share one title.
constexpr EditMark unmergeMark{.name = L"UMergeCell", .titleText = 2085};
constexpr EditMark mergeAllMark{.name = L"MergeCell", .titleText = 2085};
constexpr EditMark mergeByRowMark{.name = L"MergeByRow", .titleText = 2085};
constexpr EditMark mergeByColumnMark{.name = L"MergeByColumn", .titleText = 2085};

bool isRectangle(const SelectedCells& cells) {
    return cells.top >= 0 && cells.bottom >= 0 && cells.left >= 0 && cells.right >= 0;
}

/// Whether a cell of `part` holds content, the top left cell of the whole selection left out.
bool holdsContent(const KdDbTable& table, const SelectedCells& part, const SelectedCells& selection) {
    const CVqTableCellRange range{part.top, part.left, part.bottom, part.right};
    return cellwalk::anyCell(table, range, [&](int row, int column) {
        const bool kept = row == selection.top && column == selection.left;
        return !kept && !table.isEmpty(row, column);
    });
}

/// False only for a plain no.
bool userAgrees() {
    const CStdStr<wchar_t> question = loadText(contentLossText);
    return kdMessageBox(kfsw_kdadMainWnd(), question.c_str(), GetOemProductName(), MB_YESNO) != IDNO;
}

/// A table that can't be read is asked nothing about.
bool mayMergeSelection(KdDbObjectId table) {
    OpenObject<KdDbTable> open(table, KdDb::kForRead);
    if (!open) return true;
    const std::optional<SelectedCells> cells = selectedCells(*open);
    const bool losesContent = cells && isRectangle(*cells) && holdsContent(*open, *cells, *cells);
    open.close();
    return !losesContent || userAgrees();
}

SelectedCells rowOf(const SelectedCells& cells, int row) {
    return {row, row, cells.left, cells.right};
}

SelectedCells columnOf(const SelectedCells& cells, int column) {
    return {cells.top, cells.bottom, column, column};
}

/// One merge for each line from `first` to `last`, in a table that is open meanwhile. The question comes at most
/// once, and that is wanted: after a no the line with the content stays as it is, and all later lines are merged
/// without asking. The first cell of every line but the first counts as content, too.
void mergeLines(KdDbTable& table, const SelectedCells& cells, int first, int last,
                SelectedCells (*lineOf)(const SelectedCells&, int)) {
    bool asked = false;
    bool unmerged = false;
    for (int i = first; i <= last; ++i) {
        const SelectedCells line = lineOf(cells, i);
        if (!asked && holdsContent(table, line, cells)) {
            asked = true;
            if (!userAgrees()) continue;
        }
        if (!unmerged) table.unmergeCells(cells.top, cells.bottom, cells.left, cells.right);
        unmerged = true;
        table.mergeCells(line.top, line.bottom, line.left, line.right);
    }
}

}  // namespace

int CVqTableCommon::UnmergeCells(KdDbObjectId table) {
    return editSelection(table, unmergeMark, [](KdDbTable& open, const SelectedCells& cells) {
        if (isRectangle(cells)) open.unmergeCells(cells.top, cells.bottom, cells.left, cells.right);
    });
}

int CVqTableCommon::MergeAll(KdDbObjectId table) {
    return markedEdit(mergeAllMark, [&] {
        if (!mayMergeSelection(table)) return;
        const KdCellRange range = GetSubSelection(table);
        const SelectedCells cells{range.m_topRow, range.m_bottomRow, range.m_leftColumn, range.m_rightColumn};
        const OpenObject<KdDbTable> open(table, KdDb::kForWrite);
        if (open && isRectangle(cells)) open->mergeCells(cells.top, cells.bottom, cells.left, cells.right);
    });
}

int CVqTableCommon::MergeByRow(KdDbObjectId table) {
    return editSelection(table, mergeByRowMark, [](KdDbTable& open, const SelectedCells& cells) {
        if (isRectangle(cells)) mergeLines(open, cells, cells.top, cells.bottom, rowOf);
    });
}

int CVqTableCommon::MergeByColumn(KdDbObjectId table) {
    return editSelection(table, mergeByColumnMark, [](KdDbTable& open, const SelectedCells& cells) {
        if (isRectangle(cells)) mergeLines(open, cells, cells.left, cells.right, columnOf);
    });
}
