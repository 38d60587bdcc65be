// What a copy and a paste make in the working drawing, and take out of it again.
#pragma once

#include "kd/db/database.h"
#include "module/core/openobject.h"

/// Null without an open drawing.
inline KdDbDatabase* workingDatabase() {
    const KdDbHostApplicationServices* services = kddbHostApplicationServices();
    return services == nullptr ? nullptr : services->workingDatabase();
}

/// False for the null id, and when the object can't be opened.
inline bool eraseObject(KdDbObjectId id) {
    const OpenObject<KdDbObject> object(id, KdDb::kForWrite);
    return object && object->erase() == Kdad::eOk;
}
