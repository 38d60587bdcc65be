// The process's current resource handle.

#include "mfc/resource.h"

namespace {

HINSTANCE currentHandle = nullptr;

}  // namespace

HINSTANCE AfxGetResourceHandle() {
    return currentHandle;
}

void AfxSetResourceHandle(HINSTANCE handle) {
    currentHandle = handle;
}
