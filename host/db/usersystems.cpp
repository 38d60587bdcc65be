// The user coordinate systems of a drawing, one for each space, and the space that is current.

#include "host/db/databasecontents.h"
#include "host/db/undo.h"

namespace {

using kdhost::UserSystem;

const kdhost::CurrentSettings& current(const KdDbDatabase& database) {
    return KdDbDatabaseAccess::contents(database).current;
}

constexpr double kLeastLength = 1e-12;

Kdad::ErrorStatus set(KdDbDatabase& database, UserSystem kdhost::CurrentSettings::*system, const KdGePoint3d& origin,
                      const KdGeVector3d& x, const KdGeVector3d& y) {
    const KdGeVector3d z = x.crossProduct(y);
    if (!(x.length() > kLeastLength) || !(z.length() > kLeastLength)) return Kdad::eInvalidInput;
    const KdGeVector3d right = x.normal();
    kdhost::currentForWrite(database).*system = {origin, right, z.normal().crossProduct(right)};
    return Kdad::eOk;
}

}  // namespace

void KdDbDatabase::setTilemode(bool modelSpace) {
    kdhost::currentForWrite(*this).modelSpace = modelSpace;
}

KdGePoint3d KdDbDatabase::ucsorg() const {
    return current(*this).modelSystem.origin;
}
KdGeVector3d KdDbDatabase::ucsxdir() const {
    return current(*this).modelSystem.x;
}
KdGeVector3d KdDbDatabase::ucsydir() const {
    return current(*this).modelSystem.y;
}
Kdad::ErrorStatus KdDbDatabase::setUcs(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y) {
    return set(*this, &kdhost::CurrentSettings::modelSystem, origin, x, y);
}

KdGePoint3d KdDbDatabase::pucsorg() const {
    return current(*this).paperSystem.origin;
}
KdGeVector3d KdDbDatabase::pucsxdir() const {
    return current(*this).paperSystem.x;
}
KdGeVector3d KdDbDatabase::pucsydir() const {
    return current(*this).paperSystem.y;
}
Kdad::ErrorStatus KdDbDatabase::setPucs(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y) {
    return set(*this, &kdhost::CurrentSettings::paperSystem, origin, x, y);
}
