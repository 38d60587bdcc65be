// A module whose command forgets to close what it opened.

#include <cstdint>

#include "kd/db/database.h"
#include "kd/rx/commandstack.h"
#include "kd/rx/dynamiclinker.h"
#include "kd/rx/registry.h"

namespace {

void forget() {
    KdDbObject* object = nullptr;
    kddbOpenObject(object, kddbHostApplicationServices()->workingDatabase()->layerTableId(), KdDb::kForRead);
}

KdEdCommandStack* commands() {
    return KdRxObject::cast<KdEdCommandStack>(kdrxSysRegistry()->at(L"KDAD_REGISTERED_COMMANDS"));
}

}  // namespace

extern "C" {

__attribute__((visibility("default"))) std::intptr_t kdrxEntryPoint(std::uint32_t message, void*) {
    if (message == KdRx::kInitAppMsg) {
        commands()->addCommand(L"FORGETFUL", L"FORGET", L"FORGET", 0, forget, nullptr, -1, nullptr, nullptr);
    }
    if (message == KdRx::kUnloadAppMsg) commands()->removeGroup(L"FORGETFUL");
    return 0;
}

__attribute__((visibility("default"))) std::uint32_t kdrxGetApiVersion() {
    return 0x7E50000;
}
}
