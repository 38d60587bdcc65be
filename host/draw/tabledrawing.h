// The layers of a drawn table, in the order of painting.
#pragma once

#include "host/draw/entitydrawing.h"
#include "host/draw/tablegeometry.h"
#include "host/draw/tablestrips.h"

class KdDbTable;

namespace kdhost::draw {

/// A table on its way to primitives.
struct TableDrawing {
    const KdDbTable& table;
    const Context& context;
    const Looks& looks;  ///< of the table's parts
    const TableGeometry& geometry;
    const TableStrips& strips;
    Primitives& out;
};

void drawFills(const TableDrawing& drawing);
void drawTexts(const TableDrawing& drawing);
void drawBlocks(const TableDrawing& drawing);
void drawGrid(const TableDrawing& drawing);
/// Selection frame, grips and indicators; nothing when no cell is selected.
void drawSelection(const TableDrawing& drawing);

}  // namespace kdhost::draw
