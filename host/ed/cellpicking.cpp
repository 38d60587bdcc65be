// Asking for cells of a table.

#include "host/db/cellranges.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/ed/picking.h"
#include "host/ed/points.h"
#include "host/ed/words.h"
#include "kd/ed/selection.h"

namespace kdhost {
namespace {

constexpr Words kCell{L"\nSelect a cell: ", L"\n选择单元: "};
constexpr Words kFirstCorner{L"\nFirst corner of the cells: ", L"\n单元区域的第一个角点: "};
constexpr Words kOtherCorner{L"\nOpposite corner: ", L"\n对角点: "};
constexpr Words kCellNeeded{L"\nPick a cell, or type the coordinates of a point in it.",
                            L"\n请拾取单元，或输入其中一点的坐标。"};
constexpr Words kOneTable{L"\nBoth corners must lie in one table.", L"\n两个角点必须在同一表格中。"};

/// One answer: the cell at a point picked or typed, or, to a prompt for several, cells dragged over. `wasDragged` tells
/// which. None when the user cancels, answers with nothing, or points where no cell is.
std::optional<CellsOfTable> askForCells(Editor& editor, PromptKind kind, const Words& prompt, bool& wasDragged) {
    for (;;) {
        const Answer answer = editor.ask(kind, prompt.text());
        wasDragged = answer.kind == Answer::Kind::Cells;
        if (wasDragged) return answer.cells;
        if (answer.isPick()) return cellAt(editor, answer.point);
        if (answer.isCancel() || answer.text.empty()) return std::nullopt;
        const auto point = parsePoint(answer.text, editor.lastPoint());
        if (point) return cellAt(editor, editor.toWorld(*point));
        commandLine().write(kCellNeeded.text());
    }
}

std::optional<CellsOfTable> askForRectangle(Editor& editor) {
    bool wasDragged = false;
    const auto first = askForCells(editor, PromptKind::Cells, kFirstCorner, wasDragged);
    if (!first || wasDragged) return first;
    for (;;) {
        const auto second = askForCells(editor, PromptKind::Cells, kOtherCorner, wasDragged);
        if (!second || wasDragged) return second;
        if (second->table == first->table) return CellsOfTable{first->table, joined(first->range, second->range)};
        commandLine().write(kOneTable.text());
    }
}

}  // namespace
}  // namespace kdhost

bool kdadSelectTableUnits(bool singleCell, KdDbObjectId& table, KdCellRange& range) {
    kdhost::Editor* editor = kdhost::currentEditor();
    if (editor == nullptr) return false;
    bool wasDragged = false;
    const auto cells = singleCell ? kdhost::askForCells(*editor, kdhost::PromptKind::Cell, kdhost::kCell, wasDragged)
                                  : kdhost::askForRectangle(*editor);
    if (!cells) return false;
    table = cells->table;
    range = cells->range;
    return true;
}
