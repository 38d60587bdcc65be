// Gathering of what is to be drawn afresh.

#include "host/ed/display.h"

#include <unordered_set>
#include <utility>

#include "kd/ad/display.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

struct Queue {
    std::vector<KdDbObjectId> ids;
    std::unordered_set<KdDbObjectId> known;
    bool all = false;
    Display* display = nullptr;
};

Queue& queue() {
    static Queue instance;
    return instance;
}

}  // namespace

void setDisplay(Display* display) {
    queue().display = display;
}

namespace {
const KdDbEntity* dragged = nullptr;
}

const KdDbEntity* draggedEntity() {
    return dragged;
}

void setDraggedEntity(const KdDbEntity* entity) {
    dragged = entity;
    queueAllForRedraw();
}

void queueForRedraw(KdDbObjectId id) {
    if (!id.isNull() && queue().known.insert(id).second) queue().ids.push_back(id);
}

void queueAllForRedraw() {
    queue().all = true;
}

const std::vector<KdDbObjectId>& queuedForRedraw() {
    return queue().ids;
}

void updateDisplay() {
    const std::vector<KdDbObjectId> ids = std::exchange(queue().ids, {});
    queue().known.clear();
    const bool all = std::exchange(queue().all, false);
    if (queue().display == nullptr || (ids.empty() && !all)) return;
    queue().display->redraw(all ? std::vector<KdDbObjectId>() : ids);
}

}  // namespace kdhost

void kddbQueueForRegen(const KdDbObjectId* ids, int count) {
    if (ids == nullptr) return;
    for (int i = 0; i < count; ++i) kdhost::queueForRedraw(ids[i]);
}

void kdedUpdateDisplay() {
    kdhost::updateDisplay();
}
