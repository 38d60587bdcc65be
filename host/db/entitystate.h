// The states of the entities that other entities build on.
#pragma once

#include "host/db/objectstate.h"
#include "kd/db/color.h"
#include "kd/ge/point3d.h"
#include "kd/ge/vector3d.h"

struct KdDbEntityState : KdDbObjectState {
    void mapIds(const kdhost::IdMapper& map) override;

    KdDbObjectId layer;
    KdCmColor color;
    KdDbObjectId linetype;
    KdDb::LineWeight lineWeight = KdDb::kLnWtByLayer;
    KdDb::Visibility visibility = KdDb::kVisible;
};

struct KdDbBlockReferenceState : KdDbEntityState {
    std::unique_ptr<KdDbObjectState> clone() const override { return std::make_unique<KdDbBlockReferenceState>(*this); }
    void mapIds(const kdhost::IdMapper& map) override;

    KdDbObjectId block;
    KdGePoint3d position;
    KdGeVector3d normal{0.0, 0.0, 1.0};
    double rotation = 0.0;
    double scale = 1.0;
};
