// Runtime class descriptions: each host class has one, reached by the class's static desc().
#pragma once

#include <string>

class KdRxClass;

/// Describes one class: its name and its parent class. A description lives as long as the library that
/// defines the class; it joins the system's class dictionary by kdrxBuildClassHierarchy().
class KdRxClass {
public:
    /// `parent` is null for the root of a hierarchy.
    KdRxClass(const wchar_t* name, KdRxClass* parent);
    ~KdRxClass();
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

/// Enters every class described so far and not yet entered into the system's class dictionary.
void kdrxBuildClassHierarchy();

/// Takes a class out of the system's class dictionary. The description stays its library's own.
void deleteKdRxClass(KdRxClass* cls);
