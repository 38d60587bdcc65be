// The root of the runtime class tree.
#pragma once

#include "kd/rx/class.h"

/// Base of everything that can be asked for its class at run time.
class KdRxObject {
public:
    virtual ~KdRxObject();

    static KdRxClass* desc();
    /// Description of the object's own class.
    virtual KdRxClass* isA() const;
    /// True when the object's class is `cls` or derives from it.
    bool isKindOf(const KdRxClass* cls) const { return isA()->isDerivedFrom(cls); }

    /// `object` as a KdRxObject of this class, or null when it is null or of another kind.
    template <class T>
    static T* cast(KdRxObject* object) {
        return object != nullptr && object->isKindOf(T::desc()) ? static_cast<T*>(object) : nullptr;
    }
};

/// Stands in the public part of a class that has a description of its own.
#define KDRX_DECLARE_MEMBERS(Class)   \
    static KdRxClass* desc();         \
    KdRxClass* isA() const override { \
        return Class::desc();         \
    }

/// Stands once in a source file. The description is made on first use.
#define KDRX_DEFINE_MEMBERS(Class, Parent)                        \
    KdRxClass* Class::desc() {                                    \
        static KdRxClass description(L## #Class, Parent::desc()); \
        return &description;                                      \
    }
