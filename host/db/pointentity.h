// Entities that are nothing but a fixed number of points: lines and solids.
#pragma once

#include <array>

#include "host/db/entitystate.h"
#include "kd/ge/extents.h"
#include "kd/ge/matrix3d.h"

namespace kdhost {

template <std::size_t Count>
struct PointsState : KdDbEntityState {
    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<PointsState>(*this); }

    std::array<KdGePoint3d, Count> points;
};

template <std::size_t Count>
std::unique_ptr<KdDbObjectState> makePoints(const std::array<KdGePoint3d, Count>& points) {
    auto state = std::make_unique<PointsState<Count>>();
    state->points = points;
    return state;
}

template <std::size_t Count>
Kdad::ErrorStatus transformPoints(KdDbObject& object, const KdGeMatrix3d& matrix) {
    return changeState<PointsState<Count>>(object, [&](PointsState<Count>& state) {
        for (KdGePoint3d& point : state.points) point.transformBy(matrix);
    });
}

template <std::size_t Count>
KdDbExtents extentsOfPoints(const KdDbObject& object) {
    KdDbExtents extents;
    for (const KdGePoint3d& point : stateOf<PointsState<Count>>(object).points) extents.addPoint(point);
    return extents;
}

}  // namespace kdhost
