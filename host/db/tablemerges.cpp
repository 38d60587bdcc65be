// Merges of a table's state. Each cell knows its place in its merge, so that a look-up is one step and rows
// that come or go elsewhere touch nothing.

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "host/db/cellranges.h"
#include "host/db/tablestate.h"

namespace kdhost {

KdCellRange TableState::grownToMerges(KdCellRange range) const {
    // A merge that sticks out of a rectangle has a cell on the rectangle's border.
    for (;;) {
        KdCellRange grown = range;
        const auto take = [&](int row, int column) { grown = joined(grown, mergeOf(row, column)); };
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            take(range.m_topRow, column);
            take(range.m_bottomRow, column);
        }
        for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
            take(row, range.m_leftColumn);
            take(row, range.m_rightColumn);
        }
        if (grown == range) return range;
        range = grown;
    }
}

std::vector<KdCellRange> TableState::mergesIn(const KdCellRange& range) const {
    std::vector<KdCellRange> found;
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            const MergeLink& merge = mergeLink(row, column);
            if (!merge.merged()) continue;
            // Met first at the corner where the merge and the range begin to overlap.
            const bool firstRow = merge.up == 0 || row == range.m_topRow;
            const bool firstColumn = merge.left == 0 || column == range.m_leftColumn;
            if (firstRow && firstColumn) found.push_back(mergeOf(row, column));
        }
    }
    return found;
}

void TableState::link(const KdCellRange& range) {
    const int height = range.m_bottomRow - range.m_topRow + 1;
    const int width = range.m_rightColumn - range.m_leftColumn + 1;
    const bool single = height == 1 && width == 1;
    for (int row = 0; row < height; ++row) {
        rows.changeRow(range.m_topRow + row, [&](TableRow& line) {
            for (int column = 0; column < width; ++column) {
                line.setLink(range.m_leftColumn + column, single ? MergeLink{} : MergeLink{row, column, height, width});
            }
        });
    }
}

void TableState::relink(const std::vector<KdCellRange>& merges) {
    for (const KdCellRange& merge : merges) link(merge);
}

void TableState::merge(const KdCellRange& range) {
    for (int row = range.m_topRow; row <= range.m_bottomRow; ++row) {
        for (int column = range.m_leftColumn; column <= range.m_rightColumn; ++column) {
            const bool owner = row == range.m_topRow && column == range.m_leftColumn;
            if (!owner) rows.writeContent(row, column).clear();
        }
    }
    link(range);
    touchGeometry();
}

void TableState::unmerge(const KdCellRange& merge) {
    for (int row = merge.m_topRow; row <= merge.m_bottomRow; ++row) {
        rows.changeRow(row, [&](TableRow& line) {
            for (int column = merge.m_leftColumn; column <= merge.m_rightColumn; ++column) line.setLink(column, {});
        });
    }
    touchGeometry();
}

#if !defined(NDEBUG) || defined(__SANITIZE_ADDRESS__)
namespace {

void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "a table's state contradicts itself: %s\n", what);
    std::abort();
}

}  // namespace

void TableState::assertValid() const {
    // Of a large table a change now and then is looked at: one that is built merge by merge would take a time that
    // grows with the square of its size.
    constexpr int kLargeTable = 10'000;
    constexpr unsigned kChangesBetweenLooks = 64;
    if (rowCount() * columnCount() > kLargeTable && ++m_changes % kChangesBetweenLooks != 0) return;
    for (int row = 0; row < rowCount(); ++row) {
        require(rows.looks(row).size() == columnWidths.size() && rows[row].contents.size() == columnWidths.size(),
                "a row's length differs from the number of columns");
        for (int column = 0; column < columnCount(); ++column) {
            const MergeLink& merge = mergeLink(row, column);
            if (!merge.merged()) {
                const SharedArray<MergeLink>& links = rows[row].links;
                require(links.empty() || links[static_cast<std::size_t>(column)] == MergeLink{},
                        "a cell in no merge has a place in one");
                require(!look(row, column).isCovered, "a cell in no merge is covered");
                continue;
            }
            require(look(row, column).isCovered == merge.covered(), "a cell that isn't covered as its merge has it");
            require(merge.rows * merge.columns > 1, "a merge of a single cell");
            require(merge.up >= 0 && merge.left >= 0 && merge.up < merge.rows && merge.left < merge.columns,
                    "a cell outside its merge");
            const KdCellRange range = mergeOf(row, column);
            require(contains(range), "a merge outside the table");
            const MergeLink& owner = mergeLink(range.m_topRow, range.m_leftColumn);
            require(owner == MergeLink{0, 0, merge.rows, merge.columns}, "a merge without its owner");
            // The neighbours inside the merge know the same merge, so that all of its cells do.
            const auto follows = [&](int r, int c) {
                return mergeLink(r, c) ==
                       MergeLink{r - range.m_topRow, c - range.m_leftColumn, merge.rows, merge.columns};
            };
            require(column == range.m_rightColumn || follows(row, column + 1), "a merge with a hole");
            require(row == range.m_bottomRow || follows(row + 1, column), "a merge with a hole");
        }
    }
}
#else
void TableState::assertValid() const {}
#endif

}  // namespace kdhost
