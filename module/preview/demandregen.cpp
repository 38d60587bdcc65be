// The name of the drawable in the runtime class system.

#include "module/preview/demandregen.h"

#include <memory>

#include "kd/rx/class.h"

namespace {

/// Not a plain static of desc(): a class that was taken out of the dictionary doesn't come back, but the module does
/// when it gets its first message again after its last one.
std::unique_ptr<KdRxClass>& description() {
    static std::unique_ptr<KdRxClass> instance;
    return instance;
}

}  // namespace

KdRxClass* KdGsDemandRegenGiDrawable::desc() {
    if (description() == nullptr) {
        description() = std::make_unique<KdRxClass>(L"KdGsDemandRegenGiDrawable", KdGsDrawable::desc());
    }
    return description().get();
}

void KdGsDemandRegenGiDrawable::rxInit() {
    desc();
    kdrxBuildClassHierarchy();
}

void KdGsDemandRegenGiDrawable::rxExit() {
    description().reset();
}
