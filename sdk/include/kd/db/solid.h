// A filled quadrilateral. Its corners run in a zig-zag: first edge 0 to 1, second edge 2 to 3.
#pragma once

#include "kd/db/entity.h"

class KdDbSolid : public KdDbEntity {
public:
    KDRX_DECLARE_MEMBERS(KdDbSolid)
    KdDbSolid();
    KdDbSolid(const KdGePoint3d& p0, const KdGePoint3d& p1, const KdGePoint3d& p2, const KdGePoint3d& p3);

    /// `index` 0 to 3; eInvalidIndex otherwise.
    Kdad::ErrorStatus getPointAt(int index, KdGePoint3d& point) const;
    Kdad::ErrorStatus setPointAt(int index, const KdGePoint3d& point);

    Kdad::ErrorStatus transformBy(const KdGeMatrix3d& matrix) override;
    KdDbExtents getGeomExtents() const override;
};
