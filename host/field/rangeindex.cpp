// The order of the ranges.

#include "host/field/rangeindex.h"

#include <algorithm>

namespace kdhost::field {

void RangeIndex::add(const KdCellRange& range, Reader reader) {
    m_groups[{range.m_leftColumn, range.m_rightColumn}].ranges.push_back(
        {range.m_topRow, range.m_bottomRow, range.m_bottomRow, reader});
}

void RangeIndex::Group::tidy() {
    constexpr std::size_t kShort = 32;
    if (ranges.size() - sorted <= kShort + sorted / 16) return;
    std::sort(ranges.begin(), ranges.end(), [](const Range& a, const Range& b) { return a.top < b.top; });
    sorted = ranges.size();
    noteFurthest(0, sorted);
}

int RangeIndex::Group::noteFurthest(std::size_t begin, std::size_t end) {
    if (begin >= end) return -1;
    const std::size_t middle = begin + (end - begin) / 2;
    Range& range = ranges[middle];
    range.furthest = std::max({range.bottom, noteFurthest(begin, middle), noteFurthest(middle + 1, end)});
    return range.furthest;
}

}  // namespace kdhost::field
