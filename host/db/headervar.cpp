// Header variables: their ranges.

#include "kd/db/headervar.h"

#include <cmath>

namespace {

Kdad::ErrorStatus setWithin(int& variable, int value, int lowest, int highest) {
    if (value < lowest || value > highest) return Kdad::eInvalidInput;
    variable = value;
    return Kdad::eOk;
}

}  // namespace

KdDbImpDatabase::~KdDbImpDatabase() = default;
KdDbImpObject::~KdDbImpObject() = default;

Kdad::ErrorStatus KdDbHeaderVar::setLunits(int unit) {
    return setWithin(m_lunits, unit, kScientific, kFractional);
}
Kdad::ErrorStatus KdDbHeaderVar::setLuprec(int precision) {
    return setWithin(m_luprec, precision, 0, 8);
}
Kdad::ErrorStatus KdDbHeaderVar::setAunits(int unit) {
    return setWithin(m_aunits, unit, 0, 4);
}
Kdad::ErrorStatus KdDbHeaderVar::setAuprec(int precision) {
    return setWithin(m_auprec, precision, 0, 8);
}
Kdad::ErrorStatus KdDbHeaderVar::setAngbase(double radians) {
    if (!std::isfinite(radians)) return Kdad::eInvalidInput;
    m_angbase = radians;
    return Kdad::eOk;
}
Kdad::ErrorStatus KdDbHeaderVar::setAngdir(bool clockwise) {
    m_angdir = clockwise;
    return Kdad::eOk;
}
Kdad::ErrorStatus KdDbHeaderVar::setUnitmode(int mode) {
    return setWithin(m_unitmode, mode, 0, 1);
}
Kdad::ErrorStatus KdDbHeaderVar::setDimzin(int suppression) {
    return setWithin(m_dimzin, suppression, 0, 15);
}
Kdad::ErrorStatus KdDbHeaderVar::setInsunits(int unit) {
    return setWithin(m_insunits, unit, 0, 24);
}
Kdad::ErrorStatus KdDbHeaderVar::setMeasurement(int measurement) {
    return setWithin(m_measurement, measurement, 0, 1);
}
