// What a hand does to the cells of a table while no command runs: the mouse of the window and the lines of scripts call
// the same functions.
#pragma once

#include <QString>
#include <Qt>
#include <optional>

#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"

class QPoint;

namespace kdhost {

class Editor;
struct CellsOfTable;

/// Whether the prompt for commands waits, so that the mouse and keys select.
bool isIdle(const Editor& editor);

/// The table that is selected alone; null for none.
KdDbObjectId soleTable(const Editor& editor);
/// The same where cells of it are selected.
KdDbObjectId tableOfSelectedCells(const Editor& editor);

/// Selects cells as dragging over them does: merges that they touch are taken in whole.
void dragOverCells(Editor& editor, KdDbObjectId table, const KdCellRange& cells);

/// Selects the cell there and hands it to the cell editor. False where no cell is.
bool doubleClickAt(Editor& editor, const KdGePoint3d& world);

/// A key while cells are selected: a character begins to edit the first one, some keys move the selection, empty the
/// cells or use the clipboard. False for a key that isn't for cells; it has done nothing then.
bool sendKeyToCells(Editor& editor, int key, Qt::KeyboardModifiers modifiers, const QString& text);

/// Selects what lies there as the right button does: cells that are selected already stay so. False where nothing is.
bool selectForMenu(Editor& editor, const KdGePoint3d& world);
/// The same on these cells of a table.
void selectForMenu(Editor& editor, const CellsOfTable& cells);
/// Shows the context menu that a module gives for what is selected and waits for its end. False when there is none.
bool showContextMenu(Editor& editor, const QPoint& place);

}  // namespace kdhost
