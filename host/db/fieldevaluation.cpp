// The seam between fields and their evaluation, and the little of field codes that the database reads itself.

#include "host/db/fieldevaluation.h"

namespace kdhost {
namespace {

FieldEvaluation* theEvaluation = nullptr;

constexpr std::wstring_view kFormula = L"\\AcExpr";
constexpr std::wstring_view kMarkBegin = L"%<\\_FldIdx ";
constexpr std::wstring_view kMarkEnd = L">%";

/// A mark's number, or -1 when the text between the mark's ends is no number.
int numberIn(std::wstring_view digits) {
    int number = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9' || number > 99'999) return -1;
        number = number * 10 + (digit - L'0');
    }
    return digits.empty() ? -1 : number;
}

}  // namespace

void setFieldEvaluation(FieldEvaluation* evaluation) {
    theEvaluation = evaluation;
}

FieldEvaluation* fieldEvaluation() {
    return theEvaluation;
}

bool isFormulaCode(std::wstring_view code) {
    if (!code.starts_with(kFormula)) return false;
    return code.size() == kFormula.size() || code[kFormula.size()] == L' ' || code[kFormula.size()] == L'(';
}

bool nextChildMark(std::wstring_view code, std::size_t from, ChildMark& mark) {
    for (std::size_t at = code.find(kMarkBegin, from); at != code.npos; at = code.find(kMarkBegin, at + 1)) {
        const std::size_t digits = at + kMarkBegin.size();
        const std::size_t end = code.find(kMarkEnd, digits);
        if (end == code.npos) return false;
        const int child = numberIn(code.substr(digits, end - digits));
        if (child < 0) continue;
        mark = {at, end + kMarkEnd.size() - at, child};
        return true;
    }
    return false;
}

}  // namespace kdhost
