// The field engine: what evaluates fields, as far as modules talk to it.
#pragma once

#include "kd/db/objectid.h"
#include "kd/rx/object.h"

/// What the engine offers beside evaluation.
class KdFdFieldEnginePE : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdFdFieldEnginePE)
    /// Tells which cell is in the in-place editor; the null id ends it. Meanwhile a formula that belongs to no
    /// table, as those in the edited text, reads cells of that table, and the cell itself as circular. What
    /// stands in the drawing goes on reading the cell as it was before.
    virtual void setCellInEdit(KdDbObjectId table, int row, int column) = 0;
    /// The null id when no cell is in edit; then the outputs stay as they were.
    virtual KdDbObjectId cellInEdit(int& row, int& column) const = 0;
};

class KdFdFieldEngine : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdFdFieldEngine)
    /// Null when the engine has none.
    virtual KdFdFieldEnginePE* extension() = 0;
};

/// The process's one engine; null without one.
KdFdFieldEngine* kddbGetFieldEngine();
