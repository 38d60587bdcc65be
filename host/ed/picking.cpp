// Hit testing without opening what is hit, since a module may hold it open across a prompt.

#include "host/ed/picking.h"

#include <algorithm>
#include <cmath>

#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/ed/editor.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/table.h"
#include "kd/ed/selection.h"

namespace kdhost {
namespace {

const KdGeVector3d kViewDirection{0.0, 0.0, 1.0};

/// Distance in the plane of the view.
double distanceToSegment(const KdGePoint3d& point, const KdGePoint3d& start, const KdGePoint3d& end) {
    const double dx = end.x - start.x;
    const double dy = end.y - start.y;
    const double lengthSquared = dx * dx + dy * dy;
    const double along = ((point.x - start.x) * dx + (point.y - start.y) * dy);
    const double part = lengthSquared > 0.0 ? std::clamp(along / lengthSquared, 0.0, 1.0) : 0.0;
    return std::hypot(point.x - start.x - part * dx, point.y - start.y - part * dy);
}

bool isInside(const KdDbExtents& box, const KdGePoint3d& point, double margin) {
    return box.isValid() && point.x >= box.minPoint().x - margin && point.x <= box.maxPoint().x + margin &&
           point.y >= box.minPoint().y - margin && point.y <= box.maxPoint().y + margin;
}

bool isHit(const KdDbEntity& entity, const KdGePoint3d& point, double halfBox) {
    if (entity.visibility() == KdDb::kInvisible) return false;
    if (entity.isKindOf(KdDbTable::desc())) {
        int row = -1;
        int column = -1;
        const auto& table = static_cast<const KdDbTable&>(entity);
        return table.hitTestCell(point, kViewDirection, 2.0 * halfBox, 2.0 * halfBox, row, column);
    }
    if (entity.isKindOf(KdDbLine::desc())) {
        const auto& line = static_cast<const KdDbLine&>(entity);
        return distanceToSegment(point, line.startPoint(), line.endPoint()) <= halfBox;
    }
    return isInside(entity.getGeomExtents(), point, halfBox);
}

/// The cell of the table under the point; false outside.
bool cellAt(KdDbObjectId id, const KdGePoint3d& point, KdCellRange& cells) {
    const auto* table = peek<KdDbTable>(id);
    int row = -1;
    int column = -1;
    if (table == nullptr || !table->hitTestCell(point, kViewDirection, 0.0, 0.0, row, column)) return false;
    cells = table->getMergeRange(row, column);
    return true;
}

CellSelectionListener* cellSelectionListener = nullptr;

/// The table with selected cells; null when there is none.
KdDbObjectId tableWithCells(const Editor& editor) {
    for (KdDbObjectId id : editor.pickFirst().objects()) {
        const auto* table = peek<KdDbTable>(id);
        if (table != nullptr && table->hasSubSelection()) return id;
    }
    return KdDbObjectId::kNull;
}

/// Carries out what the user does to the selection and tells what became of selected cells.
template <class Gesture>
void byUser(Editor& editor, Gesture gesture) {
    const KdDbObjectId before = tableWithCells(editor);
    gesture(editor.pickFirst());
    const KdDbObjectId after = tableWithCells(editor);
    if (cellSelectionListener == nullptr) return;
    if (!before.isNull() && before != after) cellSelectionListener->cellSelectionEnded(before);
    if (!after.isNull()) cellSelectionListener->cellSelectionStarted(after);
}

void click(PickFirst& selection, const std::vector<KdDbObjectId>& hit, const KdGePoint3d& point, bool add) {
    const std::vector<KdDbObjectId> selected = selection.objects();
    KdCellRange cells;
    const bool onTheSelected = selected.size() == 1 && !hit.empty() && hit.front() == selected.front();
    if (onTheSelected && cellAt(hit.front(), point, cells)) {
        selection.selectCells(hit.front(), cells);
    } else if (hit.empty()) {
        if (!add) selection.clear();
    } else if (add) {
        selection.add(hit.front());
    } else {
        selection.set({hit.front()});
    }
}

}  // namespace

void setCellSelectionListener(CellSelectionListener* listener) {
    cellSelectionListener = listener;
}

void selectCellsByUser(Editor& editor, KdDbObjectId table, const KdCellRange& cells) {
    byUser(editor, [&](PickFirst& selection) { selection.selectCells(table, cells); });
}

void selectNothingByUser(Editor& editor) {
    byUser(editor, [](PickFirst& selection) { selection.clear(); });
}

void tellOfCellsThatCommandsGaveUp(const Editor& editor) {
    if (cellSelectionListener == nullptr || !tableWithCells(editor).isNull()) return;
    cellSelectionListener->cellSelectionEnded(KdDbObjectId::kNull);
}

double halfPickBox(const View& view) {
    return 0.5 * kPickBoxPixels * view.screenScale();
}

std::vector<KdDbObjectId> pickAt(const Editor& editor, const KdGePoint3d& worldPoint) {
    const double halfBox = editor.view().unitsPerPixel() * halfPickBox(editor.view());
    std::vector<KdDbObjectId> ids = entitiesOfCurrentSpace(editor.database());
    std::erase_if(ids, [&](KdDbObjectId id) {
        const auto* entity = peek<KdDbEntity>(id);
        return entity == nullptr || !isHit(*entity, worldPoint, halfBox);
    });
    std::reverse(ids.begin(), ids.end());
    return ids;
}

std::optional<CellsOfTable> cellAt(const Editor& editor, const KdGePoint3d& worldPoint) {
    for (KdDbObjectId id : pickAt(editor, worldPoint)) {
        KdCellRange cells;
        if (cellAt(id, worldPoint, cells)) return CellsOfTable{id, cells};
    }
    return std::nullopt;
}

void clickAt(Editor& editor, const KdGePoint3d& worldPoint, bool add) {
    const std::vector<KdDbObjectId> hit = pickAt(editor, worldPoint);
    byUser(editor, [&](PickFirst& selection) { click(selection, hit, worldPoint, add); });
}

}  // namespace kdhost

bool kdadPickSelect(const KdGePoint3d& worldPoint, KdadSelectSet& set) {
    const kdhost::Editor* editor = kdhost::currentEditor();
    if (editor == nullptr) return false;
    const std::vector<KdDbObjectId> ids = kdhost::pickAt(*editor, worldPoint);
    for (KdDbObjectId id : ids) set.append(id);
    return !ids.empty();
}

bool kdadPickSelSetWithoutInteraction(const KdGePoint3d& screenPoint) {
    kdhost::Editor* editor = kdhost::currentEditor();
    if (editor == nullptr) return false;
    KdGePoint3d point = screenPoint;
    editor->view().screenToWorld(point);
    const auto cells = kdhost::cellAt(*editor, point);
    if (cells) editor->pickFirst().selectCells(cells->table, cells->range);
    return cells.has_value();
}
