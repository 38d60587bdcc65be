// Which cell is edited next: the walks over a table's cells that the ending keys of the cell editor lead to.
#pragma once

class KdDbTable;

/// A cell, and whether it is edited or the loop ends.
struct CellEditStep {
    int row = 0;
    int column = 0;
    bool goesOn = false;

    friend bool operator==(const CellEditStep&, const CellEditStep&) = default;
};

/// The step from a cell by a key (KdMTextEditorKey); every other key ends the loop. Cells whose content can't be
/// edited are passed over, and a merged block is entered at its top left cell only. `rows` and `columns` are the
/// counts from when the loop began.
CellEditStep nextEditedCell(KdDbTable* table, int rows, int columns, int row, int column, int key);
