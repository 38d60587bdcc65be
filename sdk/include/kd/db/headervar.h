// A drawing's header variables: the units that its lengths and angles are shown in.
#pragma once

#include "kd/db/objectid.h"
#include "kd/rx/errorstatus.h"

class KdDbDatabase;
class KdDbObject;

/// The values themselves. A setter refuses a value outside its range with eInvalidInput and keeps the old one.
class KdDbHeaderVar {
public:
    /// Length units.
    enum LengthUnit : int {
        kScientific = 1,
        kDecimal = 2,
        kEngineering = 3,
        kArchitectural = 4,
        kFractional = 5,
    };

    /// Length units, 1 to 5.
    int lunits() const { return m_lunits; }
    Kdad::ErrorStatus setLunits(int unit);
    /// Decimals of lengths, or the power of two of the smallest fraction: 0 to 8.
    int luprec() const { return m_luprec; }
    Kdad::ErrorStatus setLuprec(int precision);
    /// Angle units: 0 decimal degrees, 1 degrees minutes seconds, 2 grads, 3 radians, 4 surveyor's units.
    int aunits() const { return m_aunits; }
    Kdad::ErrorStatus setAunits(int unit);
    /// Precision of angles, 0 to 8.
    int auprec() const { return m_auprec; }
    Kdad::ErrorStatus setAuprec(int precision);
    /// The direction of angle 0, in radians.
    double angbase() const { return m_angbase; }
    Kdad::ErrorStatus setAngbase(double radians);
    /// False counter-clockwise, true clockwise.
    bool angdir() const { return m_angdir; }
    Kdad::ErrorStatus setAngdir(bool clockwise);
    /// How fractions, feet with inches and survey angles are written: 0 for reading, 1 as they are typed.
    int unitmode() const { return m_unitmode; }
    Kdad::ErrorStatus setUnitmode(int mode);
    /// Zero suppression. The two low bits choose for feet and inches: 0 suppresses zero feet and exactly zero
    /// inches, 1 neither, 2 only zero inches, 3 only zero feet. Bit 4 suppresses the leading zero of decimals,
    /// bit 8 the trailing ones.
    int dimzin() const { return m_dimzin; }
    Kdad::ErrorStatus setDimzin(int suppression);
    /// The unit that one drawing unit stands for, 0 to 24: 0 none, 1 inches, 4 millimetres.
    int insunits() const { return m_insunits; }
    Kdad::ErrorStatus setInsunits(int unit);
    /// 0 English, 1 metric.
    int measurement() const { return m_measurement; }
    Kdad::ErrorStatus setMeasurement(int measurement);

    friend bool operator==(const KdDbHeaderVar&, const KdDbHeaderVar&) = default;

private:
    // A new drawing is metric: decimal millimetres without trailing zeros, decimal degrees.
    int m_lunits = kDecimal;
    int m_luprec = 4;
    int m_aunits = 0;
    int m_auprec = 0;
    double m_angbase = 0.0;
    bool m_angdir = false;
    int m_unitmode = 0;
    int m_dimzin = 8;
    int m_insunits = 4;
    int m_measurement = 1;
};

/// What lies behind a database.
class KdDbImpDatabase {
public:
    virtual ~KdDbImpDatabase();
    virtual const KdDbHeaderVar& headerVar() const = 0;
    /// The null id in a drawing without defaults.
    virtual KdDbObjectId modelSpace() const = 0;
};

/// What lies behind an object.
class KdDbImpObject {
public:
    virtual ~KdDbImpObject();
    /// Whether the ids that the object holds may still be those of the objects that it was cloned from: deepClone says
    /// so of the clone that it gives out, for the caller to take back.
    virtual bool kdDbObjectIdsInFlux() const = 0;
    virtual void setKdDbObjectIdsInFlux(bool inFlux) = 0;
};

class KdDbSystemInternals {
public:
    /// Null for a null database. Valid as long as the database.
    static KdDbImpDatabase* getImpDatabase(KdDbDatabase* database);
    /// Null for a null object. Valid as long as the object.
    static KdDbImpObject* getImpObject(KdDbObject* object);
};

/// Writes a length as the drawing shows it: "15.5", "1.5500E+01", "1'-3.50\"", "1'-3 1/2\"", "15 1/2". `unit`
/// (1 to 5), `precision` (0 to 8) and `dimzin` (0 to 15) are the drawing's own when they are -1. `size` is in
/// characters, with the ending zero. RTNORM; RTERROR, with the buffer as it was, when the buffer is too small, a
/// setting is out of its range or the value is not finite.
int KdadConvertRealToString(const KdDbHeaderVar& header, double value, int unit, int precision, wchar_t* buffer,
                            unsigned long size, int dimzin);
