// Class descriptions, and their way into the system's class dictionary and out of it.

#include "kd/rx/class.h"

#include <utility>
#include <vector>

#include "host/rx/dictionary.h"

namespace {

/// Described and not yet entered, in the order of their making. It outlives every library's finaliser.
std::vector<KdRxClass*>& pendingClasses() {
    static auto* const classes = new std::vector<KdRxClass*>;
    return *classes;
}

void forget(KdRxClass* cls) {
    std::erase(pendingClasses(), cls);
    KdRxDictionary* dictionary = &kdhost::classDictionary();
    if (dictionary->at(cls->name()) == cls) dictionary->remove(cls->name());
}

}  // namespace

KdRxClass::KdRxClass(const wchar_t* name, KdRxClass* parent) : m_name(name), m_parent(parent) {
    pendingClasses().push_back(this);
}

KdRxClass::~KdRxClass() {
    forget(this);
}

bool KdRxClass::isDerivedFrom(const KdRxClass* ancestor) const {
    for (const KdRxClass* cls = this; cls != nullptr; cls = cls->m_parent) {
        if (cls == ancestor) return true;
    }
    return false;
}

KDRX_DEFINE_MEMBERS(KdRxClass, KdRxObject)

void kdrxBuildClassHierarchy() {
    KdRxDictionary* dictionary = &kdhost::classDictionary();
    for (KdRxClass* cls : std::exchange(pendingClasses(), {})) {
        if (!dictionary->has(cls->name())) dictionary->atPut(cls->name(), cls);
    }
}

void deleteKdRxClass(KdRxClass* cls) {
    if (cls != nullptr) forget(cls);
}
