// The host's side of the dynamic linker: which modules are loaded, their functions, and messages to them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "kd/rx/dynamiclinker.h"

namespace kdhost {

/// The process's one dynamic linker; it is never destroyed.
KdRxDynamicLinker& dynamicLinker();

/// Tells the linker how many documents are open: a module learns of each of them by a message when it is
/// loaded and again when it is unloaded. Without it there are none.
void setOpenDocumentCount(std::function<int()> count);

/// An exported function of a loaded module (its file name, with or without a folder), null when there is
/// none.
void* findExport(const std::wstring& moduleName, const char* symbol);

/// Sends a message to one loaded module. What its entry point answers; 0 for an unknown id.
std::intptr_t sendMessage(void* applicationId, std::uint32_t message, void* argument = nullptr);

/// Sends a message to every loaded module, in the order of loading.
void sendMessage(std::uint32_t message, void* argument = nullptr);

/// The id under which a loaded module is known, null for another name.
void* applicationId(const std::wstring& moduleName);

/// Id of the module that is handling a message just now, null when none is.
void* messagedApplication();

/// Ids of all loaded modules, in the order of loading.
std::vector<void*> loadedApplications();

/// What the module's kdrxGetApiVersion answers, 0 for an unknown id.
std::uint32_t apiVersion(void* applicationId);

/// Why the last load failed, in words for a person; empty after a success.
const std::wstring& lastLoadError();

}  // namespace kdhost
