// How a range grows over the merges that it touches, and moves its edges off merges at the table's ends.

#include <algorithm>
#include <array>
#include <optional>

#include "kd/db/table.h"
#include "module/core/cellwalk.h"
#include "module/core/tablecommon.h"

using cellwalk::anyBlock;
using cellwalk::mergeOfCell;

namespace {

using Range = CVqTableCellRange;

/// The smallest rectangle around merges.
class MergeUnion {
public:
    /// Takes in the merges that lie in the range or reach into it.
    void addMergesOf(const KdDbTable& table, const Range& range) {
        anyBlock(table, range, [this](int, int, const Range* merge) {
            if (merge != nullptr) add(*merge);
            return false;
        });
    }

    /// The range grown over the union. A top or left field of -1 gives way to the union's.
    Range grow(Range range) const {
        if (!m_union) return range;
        const bool anyTop = range.m_topRow == -1;
        const bool anyLeft = range.m_leftColumn == -1;
        range.m_topRow = anyTop ? m_union->m_topRow : std::min(range.m_topRow, m_union->m_topRow);
        range.m_leftColumn = anyLeft ? m_union->m_leftColumn : std::min(range.m_leftColumn, m_union->m_leftColumn);
        range.m_bottomRow = std::max(range.m_bottomRow, m_union->m_bottomRow);
        range.m_rightColumn = std::max(range.m_rightColumn, m_union->m_rightColumn);
        return range;
    }

private:
    void add(const Range& merge) {
        if (!m_union) m_union = merge;
        m_union->m_topRow = std::min(m_union->m_topRow, merge.m_topRow);
        m_union->m_leftColumn = std::min(m_union->m_leftColumn, merge.m_leftColumn);
        m_union->m_bottomRow = std::max(m_union->m_bottomRow, merge.m_bottomRow);
        m_union->m_rightColumn = std::max(m_union->m_rightColumn, merge.m_rightColumn);
    }

    std::optional<Range> m_union;
};

/// A range that grows by merges, looking at each cell once: a later step looks only at the cells that the
/// step before it added. Within the first range only the rim counts, as a merge that reaches out of it has
/// a cell there.
class GrowingRange {
public:
    explicit GrowingRange(const KdDbTable& table) : m_table(table) {}

    Range step(const Range& range) {
        MergeUnion merges;
        // A field of -1 gives way to merges anywhere in the range, so that all of it has to be looked at.
        if (range.m_topRow == -1 || range.m_leftColumn == -1) {
            merges.addMergesOf(m_table, range);
            return merges.grow(range);
        }
        if (!m_started) m_seen = within(range);
        m_started = true;
        if (cellwalk::isReversed(m_seen)) {
            merges.addMergesOf(m_table, range);
        } else {
            for (const Range& strip : around(range, m_seen)) {
                if (!cellwalk::isReversed(strip)) merges.addMergesOf(m_table, strip);
            }
        }
        m_seen = range;
        return merges.grow(range);
    }

private:
    /// The range without its rim.
    static Range within(const Range& range) {
        return {range.m_topRow + 1, range.m_leftColumn + 1, range.m_bottomRow - 1, range.m_rightColumn - 1};
    }

    /// The cells of `outer` that aren't in `inner`: above, below, left and right of it.
    static std::array<Range, 4> around(const Range& outer, const Range& inner) {
        return {{{outer.m_topRow, outer.m_leftColumn, inner.m_topRow - 1, outer.m_rightColumn},
                 {inner.m_bottomRow + 1, outer.m_leftColumn, outer.m_bottomRow, outer.m_rightColumn},
                 {inner.m_topRow, outer.m_leftColumn, inner.m_bottomRow, inner.m_leftColumn - 1},
                 {inner.m_topRow, inner.m_rightColumn + 1, inner.m_bottomRow, outer.m_rightColumn}}};
    }

    const KdDbTable& m_table;
    Range m_seen;
    bool m_started = false;
};

/// Rows or columns from first to last.
struct Span {
    int first = 0;
    int last = 0;
};

/// One row or column of the table, looked along from its first cell to its last, or mirrored from the last
/// to the first: what is said of leading edges then holds for trailing ones.
class MergeLine {
public:
    /// The line of the range's leading cell along columns or rows; mirrored, of its trailing cell.
    MergeLine(const KdDbTable& table, bool alongColumns, bool mirrored, const Range& range)
        : m_table(table),
          m_alongColumns(alongColumns),
          m_mirrored(mirrored),
          m_count(alongColumns ? table.numColumns() : table.numRows()),
          m_across(alongColumns ? (mirrored ? range.m_bottomRow : range.m_topRow)
                                : (mirrored ? range.m_rightColumn : range.m_leftColumn)) {}

    Span whole() const { return {0, m_count - 1}; }

    Span spanOf(const Range& range) const {
        return seen(m_alongColumns ? Span{range.m_leftColumn, range.m_rightColumn}
                                   : Span{range.m_topRow, range.m_bottomRow});
    }

    Range withSpan(Range range, const Span& span) const {
        const Span actual = seen(span);
        (m_alongColumns ? range.m_leftColumn : range.m_topRow) = actual.first;
        (m_alongColumns ? range.m_rightColumn : range.m_bottomRow) = actual.last;
        return range;
    }

    /// The span of the merge that the line's cell `place` belongs to.
    std::optional<Span> mergeAt(int place) const {
        const int along = m_mirrored ? m_count - 1 - place : place;
        Range merge;
        const bool merged = m_alongColumns ? mergeOfCell(m_table, m_across, along, merge)
                                           : mergeOfCell(m_table, along, m_across, merge);
        return merged ? std::optional(spanOf(merge)) : std::nullopt;
    }

private:
    /// Between the table's numbers and the mirror's; its own inverse.
    Span seen(const Span& span) const {
        return m_mirrored ? Span{m_count - 1 - span.last, m_count - 1 - span.first} : span;
    }

    const KdDbTable& m_table;
    bool m_alongColumns;
    bool m_mirrored;
    int m_count;
    int m_across;
};

/// The span with its leading edge moved behind `merge`, and behind the merges that follow it one upon the
/// other. A merge on this way that ends with the table makes it the whole line.
Span behindMerges(const MergeLine& line, Span span, const Span& merge) {
    bool found = false;
    int place = merge.last + 1;
    while (place <= span.last) {
        const std::optional<Span> next = line.mergeAt(place);
        if (!next) {
            if (!found) span.first = merge.last + 1;
            break;
        }
        if (next->last == line.whole().last) {
            ++place;
            span = line.whole();
        } else {
            found = true;
            place = next->last + 1;
            span.first = place;
        }
    }
    return span;
}

}  // namespace

CVqTableCellRange CVqTableCommon::SearchMaxCellRange(KdDbTable* table, int a, int b, const CVqTableCellRange& range) {
    if (table == nullptr) return range;
    const bool fromFirstRow = a == 0 && b == 0;
    const bool fromFirstColumn = a != 0 && b == 0;
    GrowingRange growing(*table);
    for (Range given = range;;) {
        Range grown = growing.step(given);
        if (fromFirstRow) grown.m_topRow = 0;
        if (fromFirstColumn) grown.m_leftColumn = 0;
        if (grown == given) return grown;
        given = grown;
    }
}

CVqTableCellRange CVqTableCommon::CellRangeBackward(KdDbTable* table, int byColumn, const CVqTableCellRange& range) {
    if (table == nullptr) return range;
    const MergeLine line(*table, byColumn != 0, false, range);
    const Span span = line.spanOf(range);
    const std::optional<Span> merge = line.mergeAt(span.first);
    if (!merge || merge->first != 0) return range;
    return line.withSpan(range, behindMerges(line, span, *merge));
}

CVqTableCellRange CVqTableCommon::CellRangeForward(KdDbTable* table, int byColumn, const CVqTableCellRange& range) {
    if (table == nullptr) return range;
    const MergeLine line(*table, byColumn != 0, true, range);
    const Span span = line.spanOf(range);
    const std::optional<Span> merge = line.mergeAt(span.first);
    // Only a merge that ends where the range ends; in the mirror that is its first place.
    if (!merge || merge->first != span.first) return range;
    return line.withSpan(range, behindMerges(line, span, *merge));
}
