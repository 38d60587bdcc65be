// An insertion of a block.
#pragma once

#include "kd/db/entity.h"

class KdDbBlockReference : public KdDbEntity {
public:
    KDRX_DECLARE_MEMBERS(KdDbBlockReference)
    KdDbBlockReference();
    KdDbBlockReference(const KdGePoint3d& position, KdDbObjectId block);

    virtual void setNormal(const KdGeVector3d& normal);
    virtual KdGePoint3d position() const;
    virtual void setPosition(const KdGePoint3d& position);

    /// Normal of the plane that the block lies in.
    KdGeVector3d normal() const;
    KdDbObjectId blockTableRecord() const;
    Kdad::ErrorStatus setBlockTableRecord(KdDbObjectId block);
    double rotation() const;  ///< radians
    Kdad::ErrorStatus setRotation(double angle);
    double scaleFactor() const;
    Kdad::ErrorStatus setScaleFactor(double factor);  ///< eInvalidInput for 0
    /// From the block's coordinates to world coordinates.
    KdGeMatrix3d blockTransform() const;

    Kdad::ErrorStatus transformBy(const KdGeMatrix3d& matrix) override;
    KdDbExtents getGeomExtents() const override;

protected:
    explicit KdDbBlockReference(std::unique_ptr<KdDbObjectState> state);
};
