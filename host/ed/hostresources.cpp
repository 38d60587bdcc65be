// The host's resource module: there is none.

#include "kd/ed/hostresources.h"

HINSTANCE kdedGetKdadResourceInstance() {
    return nullptr;
}
