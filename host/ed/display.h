// What is to be drawn afresh: changed entities gather until the next update, which a window carries out.
#pragma once

#include <vector>

#include "kd/db/objectid.h"

class KdDbEntity;

namespace kdhost {

class Display {
public:
    virtual ~Display() = default;
    /// These entities look different now; an empty list means all of them.
    virtual void redraw(const std::vector<KdDbObjectId>& ids) = 0;
};
/// Null for none, as without a window. The display stays the caller's.
void setDisplay(Display* display);

/// The entity that follows the cursor now; null for none. It is in no drawing, and a window draws it over what is.
const KdDbEntity* draggedEntity();
void setDraggedEntity(const KdDbEntity* entity);

/// Asks that an entity be drawn afresh at the next update, once however often it is asked.
void queueForRedraw(KdDbObjectId id);
/// Asks for everything.
void queueAllForRedraw();
/// What the next update will draw.
const std::vector<KdDbObjectId>& queuedForRedraw();
/// Draws what gathered.
void updateDisplay();

}  // namespace kdhost
