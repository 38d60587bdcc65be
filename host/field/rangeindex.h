// Which formulas read a cell: the ranges of a table's readers, found by the cell.
//
// Ranges with the same columns stand together, ordered by their first row, with the furthest last row of each
// half of a half remembered: asking for a run of cells costs a few comparisons for each such group and one for
// each range found. What is added waits in a short tail until sorting pays.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "kd/db/cellrange.h"

namespace kdhost::field {

class RangeIndex {
public:
    /// What reads a range: a formula, as it was when it had that version.
    struct Reader {
        int formula = 0;
        std::uint32_t version = 0;
    };

    void add(const KdCellRange& range, Reader reader);
    void clear() { m_groups.clear(); }
    bool isEmpty() const { return m_groups.empty(); }
    /// Takes out the readers that `isGone(reader)`.
    template <class IsGone>
    void removeIf(IsGone&& isGone) {
        for (auto& [columns, group] : m_groups) {
            std::erase_if(group.ranges, [&](const Range& range) { return isGone(range.reader); });
            group.sorted = 0;
        }
    }

    /// Calls `visit(reader)` for each range that has a cell of that column in the rows from `first` to `last`.
    template <class Visit>
    void visit(int column, int first, int last, Visit&& visit) {
        for (auto& [columns, group] : m_groups) {
            // Groups are ordered by their left column.
            if (columns.first > column) return;
            if (columns.second < column) continue;
            group.tidy();
            group.visitSorted(0, group.sorted, first, last, visit);
            for (std::size_t i = group.sorted; i < group.ranges.size(); ++i) {
                const Range& range = group.ranges[i];
                if (range.top <= last && range.bottom >= first) visit(range.reader);
            }
        }
    }
    /// Calls `visit(reader)` for each range.
    template <class Visit>
    void visitAll(Visit&& visit) const {
        for (const auto& [columns, group] : m_groups) {
            for (const Range& range : group.ranges) visit(range.reader);
        }
    }

private:
    struct Range {
        int top;
        int bottom;
        int furthest;  ///< greatest last row of the ranges that this one stands in the middle of
        Reader reader;
    };
    struct Group {
        std::vector<Range> ranges;
        std::size_t sorted = 0;  ///< so many of them are in order

        void tidy();
        int noteFurthest(std::size_t begin, std::size_t end);
        template <class Visit>
        void visitSorted(std::size_t begin, std::size_t end, int first, int last, Visit& visit) const {
            if (begin >= end) return;
            const std::size_t middle = begin + (end - begin) / 2;
            const Range& range = ranges[middle];
            if (range.furthest < first) return;
            visitSorted(begin, middle, first, last, visit);
            if (range.top > last) return;
            if (range.bottom >= first) visit(range.reader);
            visitSorted(middle + 1, end, first, last, visit);
        }
    };

    std::map<std::pair<int, int>, Group> m_groups;  ///< by left and right column
};

}  // namespace kdhost::field
