// What can be shown, without saying yet how.

#include "kd/db/drawable.h"

KDRX_DEFINE_MEMBERS(KdGiDrawable, KdRxObject)
KDRX_DEFINE_MEMBERS(KdGsDrawable, KdGiDrawable)

const KdGiDrawable* KdGsDrawable::drawable() const {
    return nullptr;
}

bool KdGsDrawable::isRegenNeeded() const {
    return true;
}
