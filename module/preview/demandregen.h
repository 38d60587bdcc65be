// A drawable that the host draws afresh on demand. The module keeps to the host's default behaviour; what it brings
// is the class's name in the runtime class system, from the module's first message to its unloading.
#pragma once

#include "kd/db/drawable.h"

class KdGsDemandRegenGiDrawable : public KdGsDrawable {
public:
    /// The description is made when it is first asked for.
    static KdRxClass* desc();
    KdRxClass* isA() const override { return desc(); }

    /// Enters the class into the class dictionary under its name. Once more changes nothing.
    static void rxInit();
    /// Takes it out of the dictionary and gives up the description: what asks next gets another one.
    static void rxExit();

    // The host's defaults.
    const KdGiDrawable* drawable() const override { return KdGsDrawable::drawable(); }
    bool isRegenNeeded() const override { return KdGsDrawable::isRegenNeeded(); }
};
