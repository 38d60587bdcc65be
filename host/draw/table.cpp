// A table to primitives: fills, then texts and blocks, then the grid, and over all the selection.

#include "kd/db/table.h"

#include "host/draw/tabledrawing.h"

namespace kdhost::draw {

void drawTable(const KdDbEntity& entity, const Context& context, Primitives& out) {
    const auto& table = static_cast<const KdDbTable&>(entity);
    Context inside = context;
    inside.block = Looks(entity, context.block, context.options).forParts();
    const Looks looks(entity, inside.block, context.options);
    const TableGeometry geometry(table);
    const TableStrips strips = stripsOf(geometry, context.options.visible);
    const TableDrawing drawing{table, inside, looks, geometry, strips, out};
    if (!strips.isEmpty()) {
        drawFills(drawing);
        drawTexts(drawing);
        drawBlocks(drawing);
        drawGrid(drawing);
    }
    drawSelection(drawing);
}

}  // namespace kdhost::draw
