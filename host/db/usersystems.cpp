// The user coordinate systems of a drawing, one for each space, and the space that is current.

#include "host/db/usersystems.h"

#include "host/db/undo.h"

namespace kdhost {
namespace {

const CurrentSettings& current(const KdDbDatabase& database) {
    return KdDbDatabaseAccess::contents(database).current;
}

constexpr double kLeastLength = 1e-12;
/// Systems further back are forgotten.
constexpr std::size_t kEarlierKept = 10;

SpaceSystems CurrentSettings::*systemsOfCurrentSpace(const KdDbDatabase& database) {
    return database.tilemode() ? &CurrentSettings::modelSystems : &CurrentSettings::paperSystems;
}

/// None for axes that make no system.
std::optional<UserSystem> systemOf(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y) {
    const KdGeVector3d z = x.crossProduct(y);
    if (!(x.length() > kLeastLength) || !(z.length() > kLeastLength)) return std::nullopt;
    const KdGeVector3d right = x.normal();
    return UserSystem{origin, right, z.normal().crossProduct(right)};
}

Kdad::ErrorStatus set(KdDbDatabase& database, SpaceSystems CurrentSettings::*systems, const KdGePoint3d& origin,
                      const KdGeVector3d& x, const KdGeVector3d& y) {
    const std::optional<UserSystem> system = systemOf(origin, x, y);
    if (!system) return Kdad::eInvalidInput;
    (currentForWrite(database).*systems).now = *system;
    return Kdad::eOk;
}

}  // namespace

const UserSystem& userSystem(const KdDbDatabase& database) {
    return (current(database).*systemsOfCurrentSpace(database)).now;
}

Kdad::ErrorStatus changeUserSystem(KdDbDatabase& database, const UserSystem& system) {
    const std::optional<UserSystem> wanted = systemOf(system.origin, system.x, system.y);
    if (!wanted) return Kdad::eInvalidInput;
    if (*wanted == userSystem(database)) return Kdad::eOk;
    SpaceSystems& systems = currentForWrite(database).*systemsOfCurrentSpace(database);
    if (systems.earlier.size() == kEarlierKept) systems.earlier.erase(systems.earlier.begin());
    systems.earlier.push_back(systems.now);
    systems.now = *wanted;
    return Kdad::eOk;
}

bool takeBackUserSystem(KdDbDatabase& database) {
    const auto ofSpace = systemsOfCurrentSpace(database);
    if ((current(database).*ofSpace).earlier.empty()) return false;
    SpaceSystems& systems = currentForWrite(database).*ofSpace;
    systems.now = systems.earlier.back();
    systems.earlier.pop_back();
    return true;
}

}  // namespace kdhost

using kdhost::CurrentSettings;

void KdDbDatabase::setTilemode(bool modelSpace) {
    kdhost::currentForWrite(*this).modelSpace = modelSpace;
}

KdGePoint3d KdDbDatabase::ucsorg() const {
    return kdhost::current(*this).modelSystems.now.origin;
}
KdGeVector3d KdDbDatabase::ucsxdir() const {
    return kdhost::current(*this).modelSystems.now.x;
}
KdGeVector3d KdDbDatabase::ucsydir() const {
    return kdhost::current(*this).modelSystems.now.y;
}
Kdad::ErrorStatus KdDbDatabase::setUcs(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y) {
    return kdhost::set(*this, &CurrentSettings::modelSystems, origin, x, y);
}

KdGePoint3d KdDbDatabase::pucsorg() const {
    return kdhost::current(*this).paperSystems.now.origin;
}
KdGeVector3d KdDbDatabase::pucsxdir() const {
    return kdhost::current(*this).paperSystems.now.x;
}
KdGeVector3d KdDbDatabase::pucsydir() const {
    return kdhost::current(*this).paperSystems.now.y;
}
Kdad::ErrorStatus KdDbDatabase::setPucs(const KdGePoint3d& origin, const KdGeVector3d& x, const KdGeVector3d& y) {
    return kdhost::set(*this, &CurrentSettings::paperSystems, origin, x, y);
}
