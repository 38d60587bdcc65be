// The host's dictionary of runtime objects by name.

#include "host/rx/dictionary.h"

#include <utility>

KDRX_DEFINE_MEMBERS(KdRxDictionary, KdRxObject)

namespace kdhost {
namespace {

bool isName(const wchar_t* name) {
    return name != nullptr && *name != L'\0';
}

}  // namespace

KdRxObject* ObjectDictionary::at(const wchar_t* name) const {
    if (!isName(name)) return nullptr;
    const auto found = m_objects.find(name);
    return found == m_objects.end() ? nullptr : found->second;
}

KdRxObject* ObjectDictionary::atPut(const wchar_t* name, KdRxObject* object) {
    if (!isName(name) || object == nullptr) return nullptr;
    return std::exchange(m_objects[name], object);
}

KdRxObject* ObjectDictionary::remove(const wchar_t* name) {
    if (!isName(name)) return nullptr;
    const auto found = m_objects.find(name);
    if (found == m_objects.end()) return nullptr;
    KdRxObject* const object = found->second;
    m_objects.erase(found);
    return object;
}

ObjectDictionary& classDictionary() {
    static auto* const classes = new ObjectDictionary;
    return *classes;
}

}  // namespace kdhost
