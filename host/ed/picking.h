// Picking: what lies under a point of the drawing, and what a click there selects.
#pragma once

#include <optional>
#include <vector>

#include "host/ed/inputqueue.h"
#include "kd/db/cellrange.h"
#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"

namespace kdhost {

class Editor;
class View;

/// Side of the pick box in pixels, on a screen of scale 1.
inline constexpr double kPickBoxPixels = 10.0;
/// Half its side as the view shows it, in pixels.
double halfPickBox(const View& view);

/// The entities of the current space under a world point, the one drawn last first. A table is hit anywhere
/// inside its outline, a line within the pick box, another entity inside its extents.
std::vector<KdDbObjectId> pickAt(const Editor& editor, const KdGePoint3d& worldPoint);

/// The cell under a world point, a merge with its whole rectangle; none where no table lies on top.
std::optional<CellsOfTable> cellAt(const Editor& editor, const KdGePoint3d& worldPoint);

/// Told when the user starts or ends a selection of cells; what modules select is not told.
class CellSelectionListener {
public:
    virtual ~CellSelectionListener() = default;
    virtual void cellSelectionStarted(KdDbObjectId table) = 0;
    /// The null id where a command has ended, and no cells are selected.
    virtual void cellSelectionEnded(KdDbObjectId table) = 0;
};
/// Null for none. The listener stays the caller's.
void setCellSelectionListener(CellSelectionListener* listener);

/// The user selects cells, with their table as the sole object; or nothing any more.
void selectCellsByUser(Editor& editor, KdDbObjectId table, const KdCellRange& cells);
void selectNothingByUser(Editor& editor);

/// Tells the listener when no cells are selected any more once a command has ended, whoever gave them up.
void tellOfCellsThatCommandsGaveUp(const Editor& editor);

/// A click while no prompt waits: it selects the object there, or a cell when it falls into the one table
/// that is selected; in empty space it selects nothing. `add` keeps what is selected.
void clickAt(Editor& editor, const KdGePoint3d& worldPoint, bool add);

}  // namespace kdhost
