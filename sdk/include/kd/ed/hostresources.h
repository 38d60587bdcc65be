// The host's own resource module.
#pragma once

#include "win32/module.h"

/// The handle to look the host's texts up with; null where the host has no resource module, as here: the reference
/// host's texts come with the program.
HINSTANCE kdedGetKdadResourceInstance();
