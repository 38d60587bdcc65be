// The system registry: the root dictionary through which a module reaches the host's services.
#pragma once

#include "kd/rx/dictionary.h"

/// The host's system dictionary. It always holds "DynamicLinker" (a KdRxDynamicLinker),
/// "KDAD_REGISTERED_COMMANDS" (a KdEdCommandStack), "ServiceDictionary" and "ClassDictionary"
/// (both KdRxDictionary). Never null.
KdRxDictionary* kdrxSysRegistry();
