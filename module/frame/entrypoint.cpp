// The one door through which the host talks to the module.

#include <array>
#include <cstdint>

#include "kd/rx/dynamiclinker.h"
#include "module/frame/tvxtableapp.h"
#include "tvx/exports.h"

namespace {

using Handler = int (KdRxDbxApp::*)(void*);

/// By message number.
constexpr std::array<Handler, 16> kHandlers = {
    &KdRxDbxApp::On_kNullMsg,          // 0
    &KdRxDbxApp::On_kInitAppMsg,       // 1
    &KdRxDbxApp::On_kUnloadAppMsg,     // 2
    &KdRxDbxApp::On_kLoadDwgMsg,       // 3
    &KdRxDbxApp::On_kUnloadDwgMsg,     // 4
    &KdRxDbxApp::On_kInvkSubrMsg,      // 5
    &KdRxDbxApp::On_kCfgMsg,           // 6
    &KdRxDbxApp::On_kEndMsg,           // 7
    &KdRxDbxApp::On_kQuitMsg,          // 8
    &KdRxDbxApp::On_kSaveMsg,          // 9
    &KdRxDbxApp::On_kDependencyMsg,    // 10
    &KdRxDbxApp::On_kNoDependencyMsg,  // 11
    &KdRxDbxApp::On_kOleUnloadAppMsg,  // 12
    &KdRxDbxApp::On_kPreQuitMsg,       // 13
    &KdRxDbxApp::On_kInitDialogMsg,    // 14
    &KdRxDbxApp::On_kEndDialogMsg,     // 15
};

/// Built by the first message of any number.
TvxTableApp& application() {
    static TvxTableApp instance;
    return instance;
}

/// The year in the upper 16 bits, the revision in the lower.
constexpr std::uint32_t kApiVersion = 2021u << 16;

}  // namespace

std::intptr_t kdrxEntryPoint(std::uint32_t message, void* argument) {
    KdRxDbxApp& receiver = application();
    if (message >= kHandlers.size()) return 0;
    return (receiver.*kHandlers[message])(argument);
}

std::uint32_t kdrxGetApiVersion() {
    return kApiVersion;
}
