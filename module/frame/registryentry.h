// Entries of the system registry that the module can't work without.
#pragma once

#include <cstdlib>

#include "kd/rx/commandstack.h"
#include "kd/rx/registry.h"

/// The entry as class T. A missing entry, or one of another class, means that this is no host: the process
/// stops on the spot.
template <class T>
T& requiredRegistryEntry(const wchar_t* name) {
    T* entry = KdRxObject::cast<T>(kdrxSysRegistry()->at(name));
    if (entry == nullptr) std::abort();
    return *entry;
}

/// The host's commands.
inline KdEdCommandStack& commandStack() {
    return requiredRegistryEntry<KdEdCommandStack>(L"KDAD_REGISTERED_COMMANDS");
}
