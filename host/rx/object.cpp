// The root of the runtime class tree.

#include "kd/rx/object.h"

KdRxObject::~KdRxObject() = default;

KdRxClass* KdRxObject::desc() {
    static KdRxClass description(L"KdRxObject", nullptr);
    return &description;
}

KdRxClass* KdRxObject::isA() const {
    return desc();
}
