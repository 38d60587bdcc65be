// Entities: the objects of a drawing that can be seen.
#pragma once

#include "kd/db/color.h"
#include "kd/db/object.h"
#include "kd/ge/extents.h"
#include "kd/ge/matrix3d.h"
#include "kd/ge/point3d.h"

class KdDbEntity : public KdDbObject {
public:
    KDRX_DECLARE_MEMBERS(KdDbEntity)

    /// Takes layer, line type, colour and line weight from the database's current settings; a null
    /// database means the working one.
    void setDatabaseDefaults(KdDbDatabase* database = nullptr);

    KdDbObjectId layerId() const;
    Kdad::ErrorStatus setLayer(KdDbObjectId layer);
    KdCmColor color() const;
    /// `applyToParts` also gives it to what the entity is made of.
    Kdad::ErrorStatus setColor(const KdCmColor& color, bool applyToParts = true);
    KdDbObjectId linetypeId() const;
    Kdad::ErrorStatus setLinetype(KdDbObjectId linetype);
    KdDb::LineWeight lineWeight() const;
    Kdad::ErrorStatus setLineWeight(KdDb::LineWeight weight);
    KdDb::Visibility visibility() const;
    Kdad::ErrorStatus setVisibility(KdDb::Visibility visibility);

    /// Marks the entity's looks as changed, so that it is drawn afresh and told as modified at its close, though
    /// nothing that it holds changes. Needs a write open; `setModified` false does nothing.
    void recordGraphicsModified(bool setModified = true);

    /// Moves, turns and scales. eInvalidInput for a transformation that the entity can't take.
    virtual Kdad::ErrorStatus transformBy(const KdGeMatrix3d& matrix) = 0;
    /// Invalid extents for an entity without any.
    virtual KdDbExtents getGeomExtents() const = 0;

protected:
    explicit KdDbEntity(std::unique_ptr<KdDbObjectState> state);
};
