// A formula put into a cell: two fields, the cell's own, whose code is one mark, and its child, the expression.
#pragma once

#include <memory>

#include "kd/db/field.h"
#include "kd/db/table.h"
#include "module/core/formulacode.h"

/// The cell gets a new formula: a posted field that stands for its one child, the expression, which `giveCode(field)`
/// gives its code. False, with the cell as it was, when the field can't be posted. The table is open for write.
template <class GiveCode>
bool putFormula(KdDbTable& table, int row, int column, GiveCode giveCode) {
    auto made = std::make_unique<KdDbField>();
    if (made->postInDatabase(table.database()) != Kdad::eOk) return false;
    KdDbField* field = made.release();
    auto* expression = new KdDbField;
    giveCode(*expression);
    expression->setEvaluationOption(KdDbField::kAutomatic);
    KdArray<KdDbField*> children;
    children.append(expression);
    field->setFieldCode(firstChildMark, KdDbField::kTextField, &children);
    field->setEvaluationOption(KdDbField::kAutomatic);
    table.setFieldId(row, column, field->objectId());
    field->setOwnerId(table.objectId());
    expression->close();
    field->close();
    return true;
}
