// The host application as the database and modules see it.

#include "kd/db/database.h"

namespace {

KdDbHostApplicationServices* theServices = nullptr;

}  // namespace

KdDbHostApplicationServices::~KdDbHostApplicationServices() = default;
KdCommandLineState::~KdCommandLineState() = default;

bool KdDbHostApplicationServices::getTempFolder(wchar_t*, int) const {
    return false;
}

KdDbHostApplicationServices* kddbHostApplicationServices() {
    return theServices;
}

void kddbSetHostApplicationServices(KdDbHostApplicationServices* services) {
    theServices = services;
}
