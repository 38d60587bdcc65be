// The host application as the database and modules see it.

#include "kd/db/database.h"

namespace {

KdDbHostApplicationServices* theServices = nullptr;

}  // namespace

KdDbHostApplicationServices::~KdDbHostApplicationServices() = default;
KdCommandLineState::~KdCommandLineState() = default;

KdDbHostApplicationServices* kddbHostApplicationServices() {
    return theServices;
}

void kddbSetHostApplicationServices(KdDbHostApplicationServices* services) {
    theServices = services;
}
