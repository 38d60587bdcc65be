// Where the text of a cell stands while it is edited: the box of the cell and the point that the text is attached
// at.
#pragma once

#include "kd/db/dbenums.h"
#include "kd/ge/point3d.h"

class KdDbTable;

/// The size of the cell, or of its merged block, with its margins.
struct CellTextBox {
    double width = 0.0;
    double height = 0.0;
    double horizontalMargin = 0.0;
    double verticalMargin = 0.0;

    double textWidth() const { return width - 2.0 * horizontalMargin; }
    double textHeight() const { return height - 2.0 * verticalMargin; }
};
CellTextBox cellTextBox(const KdDbTable& table, int row, int col);

/// The point of attachment in world coordinates, inside the margins. An alignment outside its nine values leaves
/// it at the origin of the table's plane.
KdGePoint3d cellTextLocation(const KdDbTable& table, int row, int col, const CellTextBox& box,
                             KdDb::CellAlignment alignment);
