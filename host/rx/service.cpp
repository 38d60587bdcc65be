// Named services: entries of the "ServiceDictionary".

#include "kd/rx/service.h"

#include <memory>

#include "kd/rx/registry.h"

KDRX_DEFINE_MEMBERS(KdRxService, KdRxObject)

namespace {

/// Null when the dictionary was taken out of the registry.
KdRxDictionary* serviceDictionary() {
    return KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"ServiceDictionary"));
}

}  // namespace

bool kdrxServiceIsRegistered(const wchar_t* name) {
    const KdRxDictionary* dictionary = serviceDictionary();
    return dictionary != nullptr && dictionary->has(name);
}

bool kdrxRegisterService(const wchar_t* name) {
    KdRxDictionary* dictionary = serviceDictionary();
    if (dictionary == nullptr || name == nullptr || *name == L'\0' || dictionary->has(name)) return false;
    dictionary->atPut(name, std::make_unique<KdRxService>().release());
    return true;
}
