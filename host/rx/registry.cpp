// The system registry with the host's own entries.

#include "kd/rx/registry.h"

#include "host/rx/commandstack.h"
#include "host/rx/dictionary.h"
#include "host/rx/dynamiclinker.h"

namespace {

/// The registry and what stands in it outlive every finaliser, since modules and the host's own class
/// descriptions reach for it to the very end of the process.
KdRxDictionary* makeRegistry() {
    auto* const registry = new kdhost::ObjectDictionary;
    registry->atPut(L"ClassDictionary", &kdhost::classDictionary());
    registry->atPut(L"ServiceDictionary", new kdhost::ObjectDictionary);
    registry->atPut(L"KDAD_REGISTERED_COMMANDS", &kdhost::commandStack());
    registry->atPut(L"DynamicLinker", &kdhost::dynamicLinker());
    return registry;
}

}  // namespace

KdRxDictionary* kdrxSysRegistry() {
    static KdRxDictionary* const registry = makeRegistry();
    return registry;
}
