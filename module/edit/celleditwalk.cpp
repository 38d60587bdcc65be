// The walks over a table's cells, by the ending key.

#include "module/edit/celleditwalk.h"

#include <algorithm>
#include <array>

#include "kd/db/table.h"
#include "kd/ed/inplaceeditor.h"
#include "module/core/tablepick.h"

namespace {

enum class Way { Forward, Backward, Down, Up };

struct KeyRow {
    int key;
    Way way;
    bool goesOnAtEdge;  ///< at the table's edge the walk stays instead of ending the loop
};

constexpr std::array keys = {
    KeyRow{kMTextEditorTab, Way::Forward, false},  KeyRow{kMTextEditorShiftTab, Way::Backward, false},
    KeyRow{kMTextEditorEnter, Way::Down, false},   KeyRow{kMTextEditorShiftEnter, Way::Up, false},
    KeyRow{kMTextEditorRight, Way::Forward, true}, KeyRow{kMTextEditorLeft, Way::Backward, true},
    KeyRow{kMTextEditorDown, Way::Down, true},     KeyRow{kMTextEditorUp, Way::Up, true},
};

class Walk {
public:
    Walk(KdDbTable* table, int rows, int columns, int row, int column, bool goesOnAtEdge)
        : m_table(table), m_rows(rows), m_columns(columns), m_from{row, column, goesOnAtEdge} {}

    CellEditStep to(Way way) {
        const bool inReadingOrder = way == Way::Forward || way == Way::Backward;
        const int step = way == Way::Forward || way == Way::Down ? 1 : -1;
        return inReadingOrder ? byColumns(step) : byRows(step);
    }

private:
    CellEditStep byColumns(int step) {
        int row = m_from.row;
        int column = m_from.column;
        for (;;) {
            column += step;
            if (column < 0 || column >= m_columns) {
                row += step;
                column = step > 0 ? 0 : m_columns - 1;
            }
            if (row < 0 || row >= m_rows) return m_from;
            if (canBeEntered(row, column)) return {row, column, true};
        }
    }

    /// A block that spans columns is met in its middle: from there the walk goes left to the block's first
    /// column, and never by rows again.
    CellEditStep byRows(int step) {
        int row = m_from.row;
        int column = m_from.column;
        for (;;) {
            if (m_mergedAcross) {
                --column;
            } else {
                row += step;
            }
            if (row < 0 || row >= m_rows) return {m_from.row, column, m_from.goesOn};
            // Even for the keys that end the loop at the table's edge.
            if (column < 0) return {m_from.row, m_from.column, true};
            if (canBeEntered(row, column)) return {row, column, true};
        }
    }

    bool canBeEntered(int row, int column) {
        return m_table->isContentEditable(row, column) && !isInvalidRowColByMerge(m_table, row, column, m_mergedAcross);
    }

    KdDbTable* m_table;
    int m_rows;
    int m_columns;
    CellEditStep m_from;  ///< where the walk began, and whether the loop goes on there when it finds no cell
    bool m_mergedAcross = false;
};

}  // namespace

CellEditStep nextEditedCell(KdDbTable* table, int rows, int columns, int row, int column, int key) {
    const auto* found =
        std::find_if(keys.begin(), keys.end(), [&](const KeyRow& candidate) { return candidate.key == key; });
    if (found == keys.end()) return {row, column, false};
    return Walk(table, rows, columns, row, column, found->goesOnAtEdge).to(found->way);
}
