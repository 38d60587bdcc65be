// The root of the runtime class tree, and the class descriptions, which are runtime objects themselves.
#pragma once

#include <string>

class KdRxClass;

/// Base of everything that can be asked for its class at run time.
class KdRxObject {
public:
    virtual ~KdRxObject();

    static KdRxClass* desc();
    /// Description of the object's own class.
    virtual KdRxClass* isA() const;
    /// True when the object's class is `cls` or derives from it.
    bool isKindOf(const KdRxClass* cls) const;

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

/// Describes one class: its name and its parent class. A description lives as long as the library that
/// defines the class; it joins the system's class dictionary by kdrxBuildClassHierarchy().
class KdRxClass : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdRxClass)

    /// `parent` is null for the root of a hierarchy.
    KdRxClass(const wchar_t* name, KdRxClass* parent);
    ~KdRxClass() override;
    KdRxClass(const KdRxClass&) = delete;
    KdRxClass& operator=(const KdRxClass&) = delete;

    const wchar_t* name() const { return m_name.c_str(); }
    KdRxClass* myParent() const { return m_parent; }

    /// True for this class itself and for every class above it. False for null.
    bool isDerivedFrom(const KdRxClass* ancestor) const;

private:
    std::wstring m_name;
    KdRxClass* m_parent;
};

inline bool KdRxObject::isKindOf(const KdRxClass* cls) const {
    return isA()->isDerivedFrom(cls);
}
