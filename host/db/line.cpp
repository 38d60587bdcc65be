// Straight lines.

#include "kd/db/line.h"

#include "host/db/pointentity.h"

KDRX_DEFINE_MEMBERS(KdDbLine, KdDbEntity)

namespace {

using State = kdhost::PointsState<2>;

}  // namespace

KdDbLine::KdDbLine() : KdDbEntity(std::make_unique<State>()) {}
KdDbLine::KdDbLine(const KdGePoint3d& start, const KdGePoint3d& end)
    : KdDbEntity(kdhost::makePoints<2>({start, end})) {}

KdGePoint3d KdDbLine::startPoint() const {
    return stateOf<State>(*this).points[0];
}
Kdad::ErrorStatus KdDbLine::setStartPoint(const KdGePoint3d& point) {
    return changeState<State>(*this, [&](State& state) { state.points[0] = point; });
}
KdGePoint3d KdDbLine::endPoint() const {
    return stateOf<State>(*this).points[1];
}
Kdad::ErrorStatus KdDbLine::setEndPoint(const KdGePoint3d& point) {
    return changeState<State>(*this, [&](State& state) { state.points[1] = point; });
}

Kdad::ErrorStatus KdDbLine::transformBy(const KdGeMatrix3d& matrix) {
    return kdhost::transformPoints<2>(*this, matrix);
}

KdDbExtents KdDbLine::getGeomExtents() const {
    return kdhost::extentsOfPoints<2>(*this);
}
