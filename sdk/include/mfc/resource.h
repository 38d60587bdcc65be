// The process's current resource handle, which string and dialog lookups use.
#pragma once

#include "win32/module.h"

HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE handle);
