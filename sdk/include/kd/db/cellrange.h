// A rectangle of cells, and one cell, as the host passes them.
#pragma once

/// All four fields -1 mean no cell. Rows set and columns negative stand for whole rows, and the other way
/// round for whole columns.
struct KdCellRange {
    int m_topRow = -1;
    int m_leftColumn = -1;
    int m_bottomRow = -1;
    int m_rightColumn = -1;

    friend bool operator==(const KdCellRange&, const KdCellRange&) = default;
};

struct KdCell {
    int m_row = -1;
    int m_column = -1;

    friend bool operator==(const KdCell&, const KdCell&) = default;
};
