// Typed values.

#include "kd/db/value.h"

#include <algorithm>
#include <iterator>

KDRX_DEFINE_MEMBERS(KdValue, KdRxObject)

KdValue::KdValue() = default;
KdValue::~KdValue() = default;

void KdValue::set(const long& value) {
    setDataType(kLong);
    m_long = value;
}

void KdValue::set(double value) {
    setDataType(kDouble);
    m_numbers[0] = value;
}

void KdValue::set(double x, double y, double z) {
    setDataType(kPoint);
    m_numbers[0] = x;
    m_numbers[1] = y;
    m_numbers[2] = z;
}

void KdValue::set(const wchar_t* text) {
    setDataType(kString);
    m_text = text == nullptr ? L"" : text;
}

void KdValue::set(const KdDate& date) {
    setDataType(kDate);
    m_date = date;
}

void KdValue::setDataType(DataType type) {
    if (type == m_dataType) return;
    m_dataType = type;
    m_text.clear();
    m_long = 0;
    m_date = {};
    std::fill(std::begin(m_numbers), std::end(m_numbers), 0.0);
}

bool KdValue::get(long& value) const {
    if (m_dataType != kLong) return false;
    value = m_long;
    return true;
}

bool KdValue::get(double& value) const {
    if (m_dataType != kDouble) return false;
    value = m_numbers[0];
    return true;
}

bool KdValue::get(double& x, double& y, double& z) const {
    if (m_dataType != kPoint) return false;
    x = m_numbers[0];
    y = m_numbers[1];
    z = m_numbers[2];
    return true;
}

bool KdValue::get(std::wstring& text) const {
    if (m_dataType != kString) return false;
    text = m_text;
    return true;
}

bool KdValue::get(KdDate& date) const {
    if (m_dataType != kDate) return false;
    date = m_date;
    return true;
}
