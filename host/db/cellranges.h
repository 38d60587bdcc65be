// Rectangles of cells, both corners included and in order.
#pragma once

#include <algorithm>

#include "kd/db/cellrange.h"

namespace kdhost {

/// The smallest rectangle that holds both.
inline KdCellRange joined(const KdCellRange& a, const KdCellRange& b) {
    return {std::min(a.m_topRow, b.m_topRow), std::min(a.m_leftColumn, b.m_leftColumn),
            std::max(a.m_bottomRow, b.m_bottomRow), std::max(a.m_rightColumn, b.m_rightColumn)};
}

/// Whether all of `inner` lies in `outer`.
inline bool holds(const KdCellRange& outer, const KdCellRange& inner) {
    return outer.m_topRow <= inner.m_topRow && outer.m_leftColumn <= inner.m_leftColumn &&
           outer.m_bottomRow >= inner.m_bottomRow && outer.m_rightColumn >= inner.m_rightColumn;
}

}  // namespace kdhost
