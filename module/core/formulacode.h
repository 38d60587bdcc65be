// The codes of formula fields.
#pragma once

#include <optional>
#include <string>

/// What a formula's code begins with, and the code of the field that stands for its one child.
inline constexpr const wchar_t* expressionStart = L"\\AcExpr ";
inline constexpr const wchar_t* firstChildMark = L"%<\\_FldIdx 0>%";
/// The name under which an object's text is attached as a field.
inline constexpr const wchar_t* textField = L"TEXT";

/// A code taken apart at its first opening and its last closing bracket.
struct BracketedCode {
    std::wstring inner;
    std::wstring behind;
};

/// Nothing when a bracket is missing.
inline std::optional<BracketedCode> takeApart(const std::wstring& code) {
    const std::size_t open = code.find(L'(');
    const std::size_t close = code.rfind(L')');
    if (open == std::wstring::npos || close == std::wstring::npos || close < open) return std::nullopt;
    return BracketedCode{code.substr(open + 1, close - open - 1), code.substr(close + 1)};
}

inline std::wstring expressionCode(const std::wstring& expression) {
    return expressionStart + (L'(' + expression + L')');
}

/// A formula as typed, without its equals sign: equals signs, blanks and equals signs again are taken off its start.
inline std::wstring withoutEqualsSign(std::wstring formula) {
    for (const wchar_t* characters : {L"=", L" ", L"="}) formula.erase(0, formula.find_first_not_of(characters));
    return formula;
}
