// What part of a table lies under a point of the screen.

#include "kd/ad/mainapp.h"
#include "kd/db/table.h"
#include "kd/ed/coordinates.h"
#include "kd/ed/view.h"
#include "module/core/tablecommon.h"

namespace {

/// From the whole screen by way of the view's pixels and the user's coordinates to the world. False when one of
/// the steps can't be made.
bool screenToWorld(const CPoint& screen, KdGePoint3d& world) {
    const KdadDwgView* view = kdedGetKdadDwgView();
    const KdadMainAppService* service = vqcadMainAppService();
    if (view == nullptr || service == nullptr) return false;
    int x = static_cast<int>(screen.x);
    int y = static_cast<int>(screen.y);
    view->screenToClient(x, y);
    if (!kdedCoordFromPixelToWorldInternal(x, y, world)) return false;
    service->toWorld(world);
    return true;
}

}  // namespace

bool CVqTableCommon::TableHitTest(const KdDbTable* table, const CPoint& point, int& row, int& column, int& content,
                                  KdDb::TableHitItem& item) {
    row = 0;
    column = 0;
    content = 0;
    item = KdDb::kTableHitNone;
    KdGePoint3d world;
    if (table == nullptr || !screenToWorld(point, world)) return false;
    return table->hitTest(world, KdGeVector3d::kZAxis, 0.0, 0.0, row, column, content, item);
}
