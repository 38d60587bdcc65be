// Loading and unloading of modules, and the messages that host and module exchange.
#pragma once

#include <cstdint>

#include "kd/rx/object.h"

/// Numbers of the messages that the host sends to a module's kdrxEntryPoint.
namespace KdRx {
enum AppMsgCode : std::uint32_t {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14,
    kEndDialogMsg = 15,
};
}  // namespace KdRx

/// Every module exports, under the name "kdrxEntryPoint", a function of this type. With kInitAppMsg the
/// argument is the application id; with the other messages it is the host's, or null.
using KdRxEntryPoint = std::intptr_t (*)(std::uint32_t message, void* argument);
/// And under "kdrxGetApiVersion" one of this type: year in the upper, revision in the lower 16 bits.
using KdRxGetApiVersion = std::uint32_t (*)();

/// Loads modules and keeps what they say about themselves.
class KdRxDynamicLinker : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdRxDynamicLinker)

    /// Marks the application as one that may be unloaded. False for an unknown id.
    virtual bool allowUnload(void* applicationId) = 0;
    virtual bool isUnloadAllowed(void* applicationId) const = 0;
    /// Marks the application as one that works with several documents. False for an unknown id.
    virtual bool declareDocumentAware(void* applicationId) = 0;
    virtual bool isDocumentAware(void* applicationId) const = 0;

    /// Maps the module, sends kInitAppMsg, then kLoadDwgMsg for each open document.
    /// False, with nothing left loaded, when the file can't be mapped, lacks an export, or is loaded already.
    virtual bool loadModule(const wchar_t* path) = 0;
    /// Sends kUnloadDwgMsg and kUnloadAppMsg and unmaps the module. False when it isn't loaded or has not
    /// been marked by allowUnload.
    virtual bool unloadModule(const wchar_t* path) = 0;
    /// Whether a module of that file name (without its folder) is loaded.
    virtual bool isModuleLoaded(const wchar_t* path) const = 0;
};
