// Grips: the small squares on what is selected. Those of a table move it, or one of its grid lines.
#pragma once

#include <QPointF>
#include <optional>
#include <vector>

#include "host/draw/view.h"
#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"

class KdDbTable;

namespace kdhost {

class Editor;

/// Side of a grip, in pixels of the view; it grows with the screen's scale.
double gripPixels();

struct Grip {
    enum class Kind {
        Move,    ///< the table
        Column,  ///< the far edge of a column: its width
        Row,     ///< the far edge of a row: its height
        Show     ///< of another object; nothing is dragged by it
    };
    Kind kind = Kind::Show;
    int index = 0;      ///< of the column or row
    KdGePoint3d place;  ///< in world coordinates
};

/// The grips of an object; of a table with selected cells those around the cells. Grips so close to each other that
/// nobody could tell them apart in the view are left out.
std::vector<Grip> gripsOf(KdDbObjectId id, const draw::View& view);

/// The grip of a table under a place in the view.
std::optional<Grip> gripAt(KdDbObjectId table, const QPointF& pixels, const draw::View& view);

/// Where the lines of a table lie while a grip of it is at `to`: its outline, or the grid line that moves.
std::vector<KdGePoint3d> draggedLine(const KdDbTable& table, const Grip& grip, const KdGePoint3d& to);

/// Moves the table, or its grid line, by the grip: one step of undo. No row or column gets smaller than its content
/// allows. A table that can't be changed is told to the user, and nothing changes.
void dragGrip(Editor& editor, KdDbObjectId table, const Grip& grip, const KdGePoint3d& to);

}  // namespace kdhost
