// A formula put into a cell: two fields, the cell's own, whose code is one mark, and its child, the expression.
#pragma once

#include <memory>

#include "kd/db/field.h"
#include "kd/db/table.h"
#include "module/core/formulacode.h"

/// The cell gets a new formula: a posted field that stands for its one child, the expression, which `giveCode(field)`
/// gives its code, with the status of that. False, with the cell as it was, when the field can't be posted or one of
/// the two doesn't take its code. The table is open for write.
template <class GiveCode>
bool putFormula(KdDbTable& table, int row, int column, GiveCode giveCode) {
    auto made = std::make_unique<KdDbField>();
    if (made->postInDatabase(table.database()) != Kdad::eOk) return false;
    KdDbField* field = made.release();
    auto expression = std::make_unique<KdDbField>();
    KdArray<KdDbField*> children;
    children.append(expression.get());
    if (giveCode(*expression) != Kdad::eOk ||
        field->setFieldCode(firstChildMark, KdDbField::kTextField, &children) != Kdad::eOk) {
        field->erase();
        field->close();
        return false;
    }
    KdDbField* child = expression.release();  // the field's from here on
    child->setEvaluationOption(KdDbField::kAutomatic);
    field->setEvaluationOption(KdDbField::kAutomatic);
    table.setFieldId(row, column, field->objectId());
    field->setOwnerId(table.objectId());
    child->close();
    field->close();
    return true;
}
