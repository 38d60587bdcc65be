// A formula of a drawing, and a field as cells show it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/field/expression.h"
#include "host/field/sheet.h"
#include "host/field/shown.h"
#include "kd/db/headervar.h"

namespace kdhost::field {

/// One field whose code is a formula, evaluated when somebody asks for what it comes to.
struct Formula {
    KdDbObjectId field;
    std::wstring code;
    FormulaCode parts;
    Expression expression;
    std::vector<Sheet*> sheets;               ///< that the references read; null for none
    Sheet* own = nullptr;                     ///< of references that name no table
    std::vector<int> cellFields;              ///< that it is part of
    std::vector<KdDbObjectId> childFormulas;  ///< in the fields that stand in the expression
    std::uint32_t version = 0;                ///< goes up when the references change

    bool clean = false;  ///< `value` holds
    Value value;

    // For the walk that evaluates.
    int order = 0;  ///< in which the walk came by; 0 outside of walks
    int lowest = 0;
    bool readsItself = false;

    // What it showed last, and what that was written by.
    bool hasText = false;
    std::wstring text;
    CellWriting writing;
    KdDbHeaderVar units;

    bool exists() const { return field.isValid(); }
};

/// A field that isn't part of another one, with all that stands in it.
struct CellField {
    KdDbObjectId field;
    bool alive = false;      ///< neither erased nor gone
    bool isFormula = false;  ///< shows one formula and nothing else
    bool waits = false;      ///< to be built anew
    Sheet* own = nullptr;
    KdDbObjectId shownBy;  ///< the entity that shows it, where no cell does
    std::vector<Place> places;
    std::vector<int> formulas;
    std::vector<KdDbObjectId> members;  ///< the field and all in it
};

}  // namespace kdhost::field
