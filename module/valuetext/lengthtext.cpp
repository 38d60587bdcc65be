// Lengths: the text of a dialog field to a number and back.

#include <cmath>

#include "kd/db/headervar.h"
#include "kd/ed/resbuf.h"
#include "module/valuetext/digits.h"
#include "module/valuetext/tableutils.h"
#include "win32/widenumbers.h"

namespace {

constexpr unsigned long bufferLength = 256;
constexpr const wchar_t* exponentMarks = L"Ee";
constexpr const wchar_t* architecturalMarks = L"'- /\"";

bool holdsAny(const CStdStr<wchar_t>& text, const wchar_t* characters) {
    return text.find_first_of(characters) != text.npos;
}

}  // namespace

int CVqTableUtils::StringToDoubleConvert(KdDbDatabase*, const CStdStr<wchar_t>& text, double& value) {
    if (text.empty()) return 0;
    CStdStr<wchar_t> number = text;
    number.Trim();
    // The sign goes before the hyphen between inches and fraction is looked for.
    const bool negative = number[0] == L'-';
    if (negative || number[0] == L'+') number.erase(0, 1);

    int parsed = 0;
    if (holdsAny(number, exponentMarks)) {
        parsed = ParseAsDecimal(number.data(), &value);
        if (parsed != 0) value = _wtof(number.c_str());
    } else if (holdsAny(number, architecturalMarks)) {
        parsed = ParseAsArchitectural(number.data(), &value);
    } else {
        parsed = ParseAsDecimal(number.data(), &value);
    }
    // A refused text behind a minus sign leaves -0.
    if (negative) value = -value;
    return parsed;
}

int CVqTableUtils::DoubleToStringConvert(KdDbDatabase* database, double value, CStdStr<wchar_t>& text) {
    if (database == nullptr) return RTERROR;
    const KdDbHeaderVar& header = KdDbSystemInternals::getImpDatabase(database)->headerVar();
    wchar_t buffer[bufferLength] = {};
    const int status = KdadConvertRealToString(header, value, -1, -1, buffer, bufferLength, -1);
    text = buffer;
    return status == RTNORM ? 1 : 0;
}

int CVqTableUtils::ConvertStringWithDimzin(double value, int precision, int dimzin, CStdStr<wchar_t>& text) {
    text.Format(L"%.*f", precision, value);
    if (dimzin < 4) return 1;
    CStdStr<wchar_t> work = text;

    const bool leading = dimzin < 8 || dimzin > 11;
    const std::size_t sign = work[0] == L'-' ? 1 : 0;
    if (leading && work.compare(sign, 2, L"0.") == 0) {
        work.erase(0, sign + 1);
        text = work;
        // The minus sign is to come back by moving the characters one place to the right. The first move is
        // outside the text and throws, so that such a number is never written; callers count on that.
        if (sign != 0) {
            for (std::size_t at = text.size(); at > 0; --at) text.at(at) = text.at(at - 1);
        }
    }
    if (dimzin >= 8 && work.find(L'.') != work.npos) {
        while (!work.empty() && work.back() == L'0') work.pop_back();
        if (!work.empty() && work.back() == L'.') work.pop_back();
    }
    text = work;
    if (text.empty() && std::abs(value) <= negligible) text = L"0";
    return 1;
}
