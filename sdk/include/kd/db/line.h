// A straight line.
#pragma once

#include "kd/db/entity.h"

class KdDbLine : public KdDbEntity {
public:
    KDRX_DECLARE_MEMBERS(KdDbLine)
    KdDbLine();
    KdDbLine(const KdGePoint3d& start, const KdGePoint3d& end);

    KdGePoint3d startPoint() const;
    Kdad::ErrorStatus setStartPoint(const KdGePoint3d& point);
    KdGePoint3d endPoint() const;
    Kdad::ErrorStatus setEndPoint(const KdGePoint3d& point);

    Kdad::ErrorStatus transformBy(const KdGeMatrix3d& matrix) override;
    KdDbExtents getGeomExtents() const override;
};
