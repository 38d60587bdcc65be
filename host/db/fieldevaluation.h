// What the database tells whoever evaluates fields, and what it asks there. The database knows of no evaluator;
// one registers itself, and without one a formula shows "####".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kd/db/objectid.h"

class KdDbField;
class KdDbObject;
class KdDbTable;

namespace kdhost {

/// Rows or columns that come (a positive count) or go (a negative one), from place `at` on.
struct StructureChange {
    bool rows = true;
    int at = 0;
    int count = 0;
};

class FieldEvaluation {
public:
    virtual ~FieldEvaluation() = default;

    /// The text that the last field of the path shows, whose code is a formula. The path leads down from the
    /// field that was asked; a field in memory has what lies around it there and nowhere else.
    virtual std::wstring shownText(const std::vector<const KdDbField*>& path) = 0;

    /// The field has got its place, or another code or other children.
    virtual void fieldTouched(KdDbObjectId field) = 0;
    /// The field leaves memory.
    virtual void fieldGone(KdDbObjectId field) = 0;
    /// Some cell of the table shows another field than before.
    virtual void fieldPlaced(const KdDbTable& table) = 0;
    /// A formula's code for a cell that many rows and columns away from its own.
    virtual std::wstring movedCode(const std::wstring& code, int rows, int columns) = 0;

    // Both sides of a change of a table's structure: before it everything is brought up to date, after it the
    // formulas that read the table follow.
    virtual void beforeStructureChange(const KdDbTable& table, const StructureChange& change) = 0;
    virtual void afterStructureChange(const KdDbTable& table, const StructureChange& change) = 0;
};

/// Null for none. The evaluation stays the caller's.
void setFieldEvaluation(FieldEvaluation* evaluation);
FieldEvaluation* fieldEvaluation();

/// Calls `tell(evaluation)` if there is one.
template <class Tell>
void tellFieldEvaluation(Tell&& tell) {
    if (FieldEvaluation* evaluation = fieldEvaluation()) tell(*evaluation);
}

/// Carries out a change of a table's structure, with the formulas that read the table behind it.
template <class Change>
void changeStructure(const KdDbTable& table, const StructureChange& change, Change&& carryOut) {
    if (change.count == 0) return;
    tellFieldEvaluation([&](FieldEvaluation& each) { each.beforeStructureChange(table, change); });
    carryOut();
    tellFieldEvaluation([&](FieldEvaluation& each) { each.afterStructureChange(table, change); });
}

/// Whether a field of that code is a formula: "\AcExpr (1+2)" and its like.
bool isFormulaCode(std::wstring_view code);

/// One mark of a child in a code, "%<\_FldIdx 3>%".
struct ChildMark {
    std::size_t at = 0;
    std::size_t length = 0;
    int child = 0;
};
/// The next mark from a place on; false when there is none. What only looks like a mark is passed over.
bool nextChildMark(std::wstring_view code, std::size_t from, ChildMark& mark);

}  // namespace kdhost
