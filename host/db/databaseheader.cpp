// The header variables of a database: they are part of its contents.

#include "host/db/databasecontents.h"
#include "host/db/objectstate.h"
#include "host/db/openrecord.h"
#include "host/db/undo.h"
#include "kd/db/headervar.h"

namespace {

const KdDbHeaderVar& header(const KdDbDatabase& database) {
    return KdDbDatabaseAccess::contents(database).header;
}

KdDbHeaderVar& header(KdDbDatabase& database) {
    return kdhost::headerForWrite(database);
}

}  // namespace

KdDbImpDatabase* KdDbSystemInternals::getImpDatabase(KdDbDatabase* database) {
    return database == nullptr ? nullptr : &KdDbDatabaseAccess::contents(*database);
}

KdDbImpObject* KdDbSystemInternals::getImpObject(KdDbObject* object) {
    return object == nullptr ? nullptr : &KdDbObjectAccess::openRecord(*object);
}

KdGePoint3d KdDbDatabase::insbase() const {
    return KdDbDatabaseAccess::contents(*this).current.insertionBase;
}
void KdDbDatabase::setInsbase(const KdGePoint3d& point) {
    kdhost::currentForWrite(*this).insertionBase = point;
}

int KdDbDatabase::lunits() const {
    return header(*this).lunits();
}
Kdad::ErrorStatus KdDbDatabase::setLunits(int unit) {
    return header(*this).setLunits(unit);
}

int KdDbDatabase::luprec() const {
    return header(*this).luprec();
}
Kdad::ErrorStatus KdDbDatabase::setLuprec(int precision) {
    return header(*this).setLuprec(precision);
}

int KdDbDatabase::aunits() const {
    return header(*this).aunits();
}
Kdad::ErrorStatus KdDbDatabase::setAunits(int unit) {
    return header(*this).setAunits(unit);
}

int KdDbDatabase::auprec() const {
    return header(*this).auprec();
}
Kdad::ErrorStatus KdDbDatabase::setAuprec(int precision) {
    return header(*this).setAuprec(precision);
}

double KdDbDatabase::angbase() const {
    return header(*this).angbase();
}
Kdad::ErrorStatus KdDbDatabase::setAngbase(double radians) {
    return header(*this).setAngbase(radians);
}

bool KdDbDatabase::angdir() const {
    return header(*this).angdir();
}
Kdad::ErrorStatus KdDbDatabase::setAngdir(bool clockwise) {
    return header(*this).setAngdir(clockwise);
}

int KdDbDatabase::unitmode() const {
    return header(*this).unitmode();
}
Kdad::ErrorStatus KdDbDatabase::setUnitmode(int mode) {
    return header(*this).setUnitmode(mode);
}

int KdDbDatabase::dimzin() const {
    return header(*this).dimzin();
}
Kdad::ErrorStatus KdDbDatabase::setDimzin(int suppression) {
    return header(*this).setDimzin(suppression);
}

int KdDbDatabase::insunits() const {
    return header(*this).insunits();
}
Kdad::ErrorStatus KdDbDatabase::setInsunits(int unit) {
    return header(*this).setInsunits(unit);
}

int KdDbDatabase::measurement() const {
    return header(*this).measurement();
}
Kdad::ErrorStatus KdDbDatabase::setMeasurement(int measurement) {
    return header(*this).setMeasurement(measurement);
}

bool KdDbDatabase::measurementIsMetric() const {
    return measurement() == 1;
}
