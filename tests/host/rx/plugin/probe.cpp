// A small module for the tests of the dynamic linker: it tells each message to the test's log, brings a runtime
// class of its own, and shows by a counter whether its initialisers ran anew.

#include <stdexcept>

#include "kd/rx/class.h"
#include "kd/rx/dynamiclinker.h"
#include "kd/rx/registry.h"
#include "tests/host/rx/plugin/probelog.h"

namespace {

int messagesSinceMapped = 0;

class ProbeObject : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(ProbeObject)
};

KDRX_DEFINE_MEMBERS(ProbeObject, KdRxObject)

struct ProbeFailure : std::runtime_error {
    ProbeFailure() : std::runtime_error("the probe fails") {}
};

}  // namespace

extern "C" {

__attribute__((visibility("default"))) std::intptr_t kdrxEntryPoint(std::uint32_t message, void* argument) {
    constexpr std::intptr_t failureWanted = -1;
    ++messagesSinceMapped;
    if (message == KdRx::kInitAppMsg) {
        ProbeObject::desc();
        kdrxBuildClassHierarchy();
    }
    KdRxObject* const log = kdrxSysRegistry()->at(kdtest::kProbeLogName);
    if (log == nullptr) return 0;
    const std::intptr_t answer = static_cast<kdtest::ProbeLog*>(log)->received(message, argument);
    if (answer == failureWanted) throw ProbeFailure();
    return answer;
}

__attribute__((visibility("default"))) std::uint32_t kdrxGetApiVersion() {
    return 0x07E50000;
}

__attribute__((visibility("default"))) int probeMessagesSinceMapped() {
    return messagesSinceMapped;
}
}
