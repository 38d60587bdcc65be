// Asking for cells of a table.

#include <algorithm>

#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/ed/picking.h"
#include "host/ed/points.h"
#include "kd/ed/selection.h"

namespace kdhost {
namespace {

/// One answer: cells dragged over, or the cell at a point picked or typed. `wasDragged` tells which. None when
/// the user cancels, answers with nothing, or points where no cell is.
std::optional<CellsOfTable> askForCells(Editor& editor, const wchar_t* prompt, bool& wasDragged) {
    for (;;) {
        const Answer answer = editor.ask(PromptKind::Cells, prompt);
        wasDragged = answer.kind == Answer::Kind::Cells;
        if (wasDragged) return answer.cells;
        if (answer.isPick()) return cellAt(editor, answer.point);
        if (answer.isCancel() || answer.text.empty()) return std::nullopt;
        const auto point = parsePoint(answer.text, editor.lastPoint());
        if (point) return cellAt(editor, editor.toWorld(*point));
        commandLine().write(L"\nPick a cell, or type the coordinates of a point in it.");
    }
}

KdCellRange joined(const KdCellRange& a, const KdCellRange& b) {
    return {std::min(a.m_topRow, b.m_topRow), std::min(a.m_leftColumn, b.m_leftColumn),
            std::max(a.m_bottomRow, b.m_bottomRow), std::max(a.m_rightColumn, b.m_rightColumn)};
}

std::optional<CellsOfTable> askForRectangle(Editor& editor) {
    bool wasDragged = false;
    const auto first = askForCells(editor, L"\nFirst corner of the cells: ", wasDragged);
    if (!first || wasDragged) return first;
    for (;;) {
        const auto second = askForCells(editor, L"\nOpposite corner: ", wasDragged);
        if (!second || wasDragged) return second;
        if (second->table == first->table) return CellsOfTable{first->table, joined(first->range, second->range)};
        commandLine().write(L"\nBoth corners must lie in one table.");
    }
}

}  // namespace
}  // namespace kdhost

bool kdadSelectTableUnits(bool singleCell, KdDbObjectId& table, KdCellRange& range) {
    kdhost::Editor* editor = kdhost::currentEditor();
    if (editor == nullptr) return false;
    bool wasDragged = false;
    const auto cells =
        singleCell ? kdhost::askForCells(*editor, L"\nSelect a cell: ", wasDragged) : kdhost::askForRectangle(*editor);
    if (!cells) return false;
    table = cells->table;
    range = cells->range;
    return true;
}
