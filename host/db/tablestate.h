// What a table holds, as a value: its grid of cells, its merges, its sizes.
//
// The structural changes of a grid live here, free of any object: they take valid arguments and know nothing
// of locks or opens, which the table asks first.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "host/db/entitystate.h"
#include "host/db/tablerows.h"
#include "host/db/tablestylepool.h"
#include "kd/db/cellrange.h"

namespace kdhost {

/// Width of a column that nobody has set.
inline constexpr double kDefaultColumnWidth = 63.5;

/// Lowest row that holds `lines` lines of that height.
constexpr double heightOfLines(int lines, double textHeight, double marginVert) {
    return (textHeight + textHeight / 3.0) * lines + 2.0 * marginVert;
}

/// A number that no other moment of the process has.
std::uint64_t newStamp();

/// Cells that their rows may have to grow for, in the order in which they were written.
struct PendingGrowth {
    using Place = std::pair<int, int>;  ///< row and column
    /// What rows grow for: the line that every written text has, an empty one too, or what the cells hold.
    enum class For { Text, Content };
    /// Rows from `top` to before `bottom`, each with its cells from `left` to before `right`, written in this order.
    struct Block {
        int top;
        int bottom;
        int left;
        int right;
        For what;

        bool isBelow(const Block& other) const {
            return top == other.bottom && left == other.left && right == other.right && what == other.what;
        }
    };

    void note(Place place, For what) {
        const auto [row, column] = place;
        const Block* const last = blocks.empty() ? nullptr : &blocks.back();
        if (last != nullptr && last->top == row && last->bottom == row + 1 && last->right == column &&
            last->what == what) {
            ++blocks.back().right;
        } else {
            blocks.push_back({row, row + 1, column, column + 1, what});
        }
        if (blocks.size() > 1 && blocks.back().isBelow(blocks[blocks.size() - 2])) {
            blocks.pop_back();
            ++blocks.back().bottom;
        }
        furthest = std::max(furthest, place);
    }
    /// Whether a walk by rows comes to that place after all of these.
    bool liesBefore(Place place) const { return furthest < place; }

    std::vector<Block> blocks;  ///< in the order of writing
    Place furthest{-1, -1};
};

struct TableState : KdDbBlockReferenceState {
    /// One row and one column.
    TableState();
    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<TableState>(*this); }
    void mapIds(const IdMapper& map) override;
    /// Selections are not undone, but held inside the table.
    void wasPutBack(KdDbObject& self) const override;

    int rowCount() const { return rows.size(); }
    int columnCount() const { return m_columnCount; }
    bool contains(int row, int column) const {
        // Compared without sign: what is negative lies far behind the end.
        return static_cast<unsigned>(row) < static_cast<unsigned>(rowCount()) &&
               static_cast<unsigned>(column) < static_cast<unsigned>(columnCount());
    }
    bool contains(const KdCellRange& range) const {
        return contains(range.m_topRow, range.m_leftColumn) && contains(range.m_bottomRow, range.m_rightColumn) &&
               range.m_topRow <= range.m_bottomRow && range.m_leftColumn <= range.m_rightColumn;
    }
    KdCellRange whole() const { return {0, 0, rowCount() - 1, columnCount() - 1}; }

    const CellLook& look(int row, int column) const { return rows.look(row, column); }
    const CellContent& content(int row, int column) const { return rows.content(row, column); }
    /// The cell's look where its row is near the last one that was looked at; else, and outside the table, null.
    const CellLook* nearLook(int row, int column) const {
        if (static_cast<unsigned>(column) >= static_cast<unsigned>(m_columnCount)) [[unlikely]]
            return nullptr;
        const RowLooks* near = rows.nearLooks(row);
        return near == nullptr ? nullptr : &(*near)[static_cast<std::size_t>(column)];
    }
    /// The look of the cell's owner in its merge, else of the cell itself.
    const CellLook& ownerLook(int row, int column) const {
        const CellLook& own = look(row, column);
        if (!own.isCovered) [[likely]]
            return own;
        const MergeLink& link = rows[row].links[static_cast<std::size_t>(column)];
        return look(row - link.up, column - link.left);
    }
    /// The cell's place in its merge.
    const MergeLink& mergeLink(int row, int column) const {
        static constexpr MergeLink kNone;
        return look(row, column).isMerged ? rows[row].links[static_cast<std::size_t>(column)] : kNone;
    }

    void setRowCount(int count);
    void setColumnCount(int count);
    /// The new rows look like `row` would in a new table.
    void insertDefaultRows(int row, int count);
    void insertRows(int at, int inheritFrom, int count);
    void insertColumns(int at, int inheritFrom, int count);
    /// The owner's content moves on to what is left of its merge.
    void eraseRows(int first, int count);
    void eraseColumns(int first, int count);

    /// The rectangle of the cell's merge, else the cell.
    KdCellRange mergeOf(int row, int column) const {
        const MergeLink& merge = mergeLink(row, column);
        return merge.merged() ? merge.rangeAt(row, column) : KdCellRange{row, column, row, column};
    }
    /// The smallest rectangle that holds the range and every merge it touches.
    KdCellRange grownToMerges(KdCellRange range) const;
    /// The range must be grown to its merges. Clears what the merge covers.
    void merge(const KdCellRange& range);
    void unmerge(const KdCellRange& merge);
    /// The merges that touch the range, each once.
    std::vector<KdCellRange> mergesIn(const KdCellRange& range) const;

    /// Rows grow by the styles that texts were written under.
    void settle(const KdDbObject& self) const override;

    /// Sizes or structure have changed.
    void touchGeometry() { geometryStamp = newStamp(); }
    /// Something has changed that row heights depend on beyond a row's own cells.
    void touchLayout() { layoutStamp = geometryStamp = newStamp(); }

    /// Stops the program when the state contradicts itself: merges that aren't disjoint rectangles, rows
    /// that differ in length. Does nothing in release builds.
    void assertValid() const;

    CellStylePool styles;
    KdGeVector3d direction{1.0, 0.0, 0.0};
    std::optional<int> flow;  ///< none as the table style has it
    bool titleSuppressed = false;
    bool headerSuppressed = false;
    std::vector<double> columnWidths;

    // Text written to a cell makes its row grow, once somebody asks for heights: until then the places stand
    // here. Settling them changes nothing that could be seen from outside, so it may happen under const.
    mutable TableRows rows;
    mutable PendingGrowth pendingGrowth;
    mutable std::uint64_t geometryStamp = 0;
    mutable std::uint64_t layoutStamp = 0;
    mutable std::uint64_t layoutRevision = 0;  ///< of the styles under `layoutStamp`

private:
    TableRow defaultRow(int row) const;
    /// Everything of the cell but its place in a merge.
    void copyCell(int row, int column, int toRow, int toColumn);
    void link(const KdCellRange& merge);
    void relink(const std::vector<KdCellRange>& merges);

    mutable unsigned m_changes = 0;  ///< that assertValid() was told of while the table is large
    int m_columnCount = 1;           ///< the length of `columnWidths`, asked for before every look at a cell
};

}  // namespace kdhost
