// Drawables: what a view or a previewer can be given to show.
#pragma once

#include "kd/rx/object.h"

/// Objects of a drawing are drawables; entities among them can be seen.
class KdGiDrawable : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdGiDrawable)
};

/// A drawable that stands for another one, and tells when that has to be drawn afresh.
class KdGsDrawable : public KdGiDrawable {
public:
    KDRX_DECLARE_MEMBERS(KdGsDrawable)
    /// What is drawn in its place; null, as by default, draws nothing. Not owned.
    virtual const KdGiDrawable* drawable() const;
    /// Whether the picture that was made of it is out of date; true by default.
    virtual bool isRegenNeeded() const;
};
