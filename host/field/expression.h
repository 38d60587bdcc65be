// Formulas as text: the expression parser.
//
// An expression is made of numbers, + - * / ^, signs, brackets, cells (A1), calls of Sum, Average and Count over
// cells, ranges (A1:C4) and expressions, cells of other tables (Table(12).A1:C4) and fields in the expression
// (%<\_FldIdx 0>%). Case doesn't count. As in spreadsheets a sign binds closer than ^, so that -2^2 is 4, and
// equal operators work from the left, so that 2^3^2 is 64.
//
// Parsing needs no stack that grows with the nesting: any text may come in.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/field/reference.h"

namespace kdhost::field {

enum class Function { sum, average, count };

enum class Operation {
    number,
    cells,  ///< reference number `index`
    child,  ///< child field number `index`
    negate,
    add,
    subtract,
    multiply,
    divide,
    power,
    call,  ///< `function` over the last `index` operands
};

/// One step of a calculation: operands go on a stack, operations take theirs from it.
struct Step {
    Operation operation = Operation::number;
    Function function = Function::sum;
    int index = 0;
    double number = 0.0;
};

/// A piece of the text, and what stands there in the usual way of writing.
struct Piece {
    std::size_t at = 0;
    std::size_t length = 0;
};

struct WrittenReference {
    Reference reference;
    Piece piece;
};
struct WrittenFunction {
    Function function;
    Piece piece;
};

struct Expression {
    bool valid = false;
    std::vector<Step> steps;
    std::vector<WrittenReference> references;  ///< in the order of the text
    std::vector<WrittenFunction> functions;
};

/// Of a text that is no expression the references found so far are given, and `valid` false.
Expression parseExpression(std::wstring_view text);

/// The text with its references, and the names of its functions, written anew.
std::wstring rewritten(std::wstring_view text, const Expression& expression);

/// A formula field's code, taken apart: "\AcExpr (A1+1) \f "%lu2"". The switch for the format stands behind the
/// bracket, or inside it behind the expression, where an edit has left it.
struct FormulaCode {
    bool valid = false;
    Piece expression;
    bool hasFormat = false;
    std::wstring format;
};
FormulaCode takeApart(std::wstring_view code);

}  // namespace kdhost::field
