// A typed cell value with its unit and format.
#pragma once

#include <string>

#include "kd/rx/object.h"

/// A moment of the calendar. Months and days count from 1, hours go to 23.
struct KdDate {
    int year = 0;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;

    friend bool operator==(const KdDate&, const KdDate&) = default;
};

class KdValue : public KdRxObject {
public:
    KDRX_DECLARE_MEMBERS(KdValue)

    enum DataType : int {
        kUnknown = 0,
        kLong = 1,
        kDouble = 2,
        kString = 4,
        kDate = 8,
        kPoint = 32,
        kGeneral = 512,
    };
    enum UnitType : int { kUnitless = 0, kAngle = 2, kCurrency = 16, kPercentage = 32 };

    KdValue();
    ~KdValue() override;

    /// Each sets the value and its data type; the format stays.
    void set(const long& value);
    void set(double value);
    void set(double x, double y, double z);
    void set(const wchar_t* text);
    void set(const KdDate& date);

    DataType dataType() const { return m_dataType; }
    /// Changes the type alone; a value of another type is dropped.
    void setDataType(DataType type);
    UnitType unitType() const { return m_unitType; }
    void setUnitType(UnitType type) { m_unitType = type; }
    /// Valid until the format changes.
    const wchar_t* getFormat() const { return m_format.c_str(); }
    void setFormat(const wchar_t* format) { m_format = format == nullptr ? L"" : format; }

    /// False, and the output as it was, when the value is of another type.
    bool get(long& value) const;
    bool get(double& value) const;
    bool get(double& x, double& y, double& z) const;
    bool get(std::wstring& text) const;
    bool get(KdDate& date) const;

private:
    DataType m_dataType = kUnknown;
    UnitType m_unitType = kUnitless;
    std::wstring m_format;
    std::wstring m_text;
    long m_long = 0;
    double m_numbers[3] = {0.0, 0.0, 0.0};
    KdDate m_date;
};
