// User and world coordinates of the active document.

#include "kd/ed/coordinates.h"

#include "host/ed/editor.h"
#include "host/rx/faults.h"

namespace {

bool convert(const KdGeMatrix3d& matrix, const KdGePoint3d& from, KdGePoint3d& to, int asPoint) {
    if (asPoint != 0) {
        to = matrix * from;
    } else {
        const KdGeVector3d direction = matrix * from.asVector();
        to = {direction.x, direction.y, direction.z};
    }
    return true;
}

}  // namespace

bool kddbUcs2Wcs(const KdGePoint3d& from, KdGePoint3d& to, int asPoint) {
    const kdhost::Editor* editor = kdhost::currentEditor();
    return editor != nullptr && convert(editor->ucs(), from, to, asPoint);
}

bool kddbWcs2Ucs(const KdGePoint3d& from, KdGePoint3d& to, int asPoint) {
    const kdhost::Editor* editor = kdhost::currentEditor();
    return editor != nullptr && convert(editor->ucs().inverse(), from, to, asPoint);
}

bool kdadGetUCS(KdGeVector3d& x, KdGeVector3d& z) {
    const kdhost::Editor* editor = kdhost::currentEditor();
    if (editor == nullptr) return false;
    const KdGeMatrix3d ucs = editor->ucs();
    x = ucs * KdGeVector3d::kXAxis;
    z = ucs * KdGeVector3d::kZAxis;
    return true;
}

bool kdedCoordFromPixelToWorldInternal(int x, int y, KdGePoint3d& point) {
    const kdhost::Editor* editor = kdhost::currentEditor();
    if (editor == nullptr || kdhost::faults().noView) return false;
    KdGePoint3d world(x, y, 0.0);
    editor->view().screenToWorld(world);
    point = editor->toUser(world);
    return true;
}
