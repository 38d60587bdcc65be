// The host's dictionary of runtime objects by name.
#pragma once

#include <string>
#include <unordered_map>

#include "kd/rx/dictionary.h"

namespace kdhost {

/// A missing or empty name, and a null object to put, change nothing and give null.
class ObjectDictionary final : public KdRxDictionary {
public:
    KdRxObject* at(const wchar_t* name) const override;
    KdRxObject* atPut(const wchar_t* name, KdRxObject* object) override;
    KdRxObject* remove(const wchar_t* name) override;
    bool has(const wchar_t* name) const override { return at(name) != nullptr; }
    int numEntries() const override { return static_cast<int>(m_objects.size()); }

private:
    std::unordered_map<std::wstring, KdRxObject*> m_objects;
};

/// The registry's "ClassDictionary". It is never destroyed, and reached without a cast: the descriptions that
/// leave it at the end of the process are what a cast would ask.
ObjectDictionary& classDictionary();

}  // namespace kdhost
