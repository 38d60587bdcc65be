// Filled quadrilaterals.

#include "kd/db/solid.h"

#include "host/db/pointentity.h"

KDRX_DEFINE_MEMBERS(KdDbSolid, KdDbEntity)

namespace {

using State = kdhost::PointsState<4>;

bool isCorner(int index) {
    return index >= 0 && index < 4;
}

}  // namespace

KdDbSolid::KdDbSolid() : KdDbEntity(std::make_unique<State>()) {}
KdDbSolid::KdDbSolid(const KdGePoint3d& p0, const KdGePoint3d& p1, const KdGePoint3d& p2, const KdGePoint3d& p3)
    : KdDbEntity(kdhost::makePoints<4>({p0, p1, p2, p3})) {}

Kdad::ErrorStatus KdDbSolid::getPointAt(int index, KdGePoint3d& point) const {
    if (!isCorner(index)) return Kdad::eInvalidIndex;
    point = stateOf<State>(*this).points[static_cast<std::size_t>(index)];
    return Kdad::eOk;
}

Kdad::ErrorStatus KdDbSolid::setPointAt(int index, const KdGePoint3d& point) {
    if (!isCorner(index)) return Kdad::eInvalidIndex;
    return changeState<State>(*this, [&](State& state) { state.points[static_cast<std::size_t>(index)] = point; });
}

Kdad::ErrorStatus KdDbSolid::transformBy(const KdGeMatrix3d& matrix) {
    return kdhost::transformPoints<4>(*this, matrix);
}

KdDbExtents KdDbSolid::getGeomExtents() const {
    return kdhost::extentsOfPoints<4>(*this);
}
