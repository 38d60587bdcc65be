// Edited text on its way back into the cell.

#include "kd/db/field.h"
#include "kd/db/formula.h"
#include "kd/db/mtext.h"
#include "kd/db/table.h"
#include "module/core/formulafield.h"
#include "module/core/openobject.h"
#include "module/edit/cellfield.h"

namespace {

/// A single equals sign is text.
bool readsAsFormula(const std::wstring& plainText) {
    return plainText.size() >= 2 && plainText.front() == L'=';
}

/// Closes what it holds with its scope. A field in memory doesn't mind.
class OpenFields {
public:
    ~OpenFields() {
        for (int i = m_fields.length() - 1; i >= 0; --i) m_fields[i]->close();
    }
    KdArray<KdDbField*>& fields() { return m_fields; }

private:
    KdArray<KdDbField*> m_fields;
};

void putFormulaOfFields(KdDbMText& text, KdDbTable& table, int row, int col, const LoadedField& loaded) {
    KdDbField* typed = nullptr;
    if (text.getField(textField, typed, KdDb::kForRead) != Kdad::eOk) return;
    {
        OpenFields children;
        const std::wstring formula =
            withoutEqualsSign(typed->getFieldCode(KdDbField::kFieldCode, &children.fields()).str());
        const std::wstring code = expressionCode(formula + loaded.tail.str());
        putFormula(table, row, col, [&](KdDbField& expression) {
            expression.setFieldCode(code.c_str(), KdDbField::kFieldCode);
            return expression.setFieldCode(code.c_str(), KdDbField::kFieldCode, &children.fields());
        });
    }
    typed->close();
}

void putField(KdDbMText& text, KdDbTable& table, int row, int col) {
    KdDbField* field = nullptr;
    if (text.getField(textField, field, KdDb::kForWrite) != Kdad::eOk) return;
    if (field->objectId().isNull()) field->postInDatabase(table.database());
    if (!field->objectId().isNull()) {
        table.setFieldId(row, col, field->objectId());
        const bool isFormula = field->getFieldCode(KdDbField::kAddChildren).str().starts_with(expressionStart);
        if (field->ownerId().isNull() && isFormula) field->setOwnerId(table.objectId());
    }
    field->close();
}

/// An edited formula stays the same field.
void putIntoKeptField(const std::wstring& code, KdDbTable& table, int row, int col, KdDbObjectId kept) {
    const OpenObject<KdDbField> field(kept, KdDb::kForRead);
    if (!field) return;
    KdDbField* expression = nullptr;
    if (field->getChild(0, expression, KdDb::kForWrite) != Kdad::eOk) return;
    expression->setFieldCode(code.c_str(), KdDbField::kFieldCode);
    expression->close();
    table.setFieldId(row, col, kept);
}

void putTypedFormula(const std::wstring& typed, KdDbTable& table, int row, int col, const LoadedField& loaded) {
    KdString expression;
    kdadConvertExprToFieldCode(withoutEqualsSign(typed), expression);
    const std::wstring code = expressionCode(expression.str());
    if (!loaded.keptField.isNull()) {
        putIntoKeptField(code + loaded.tail.str(), table, row, col, loaded.keptField);
        return;
    }
    putFormula(table, row, col,
               [&](KdDbField& field) { return field.setFieldCode(code.c_str(), KdDbField::kFieldCode); });
}

}  // namespace

void writeCellText(KdDbMText& text, KdDbTable& table, int row, int col, const LoadedField& loaded) {
    const std::wstring plain = stripMtextFormatting(text.contents(), table.database(), text.textStyle()).str();
    if (text.hasFields()) {
        if (readsAsFormula(plain)) {
            putFormulaOfFields(text, table, row, col, loaded);
        } else {
            putField(text, table, row, col);
        }
    } else if (readsAsFormula(plain)) {
        putTypedFormula(plain, table, row, col, loaded);
    } else {
        table.setTextString(row, col, text.contents());
    }
}
