// A cell's field on its way into the editor.

#include <memory>

#include "kd/db/field.h"
#include "kd/db/mtext.h"
#include "kd/db/table.h"
#include "module/core/formulacode.h"
#include "module/core/openobject.h"
#include "module/edit/cellfield.h"

namespace {

/// How a field can be edited.
enum class Form {
    Text,            ///< text with fields in it
    Formula,         ///< an expression over cells and numbers
    FormulaOfFields  ///< an expression with fields in it
};

bool holdsExpression(const KdString& code) {
    return code.str().find(expressionStart) != std::wstring::npos;
}

/// The child as far as the decision needs it.
struct Child {
    KdString code;
    KdString evaluated;
    int children = 0;
};

bool readChild(const KdDbField& field, Child& child) {
    KdDbField* open = nullptr;
    if (field.getChild(0, open, KdDb::kForRead) != Kdad::eOk) return false;
    child.code = open->getFieldCode(KdDbField::kFieldCode);
    child.evaluated = open->getFieldCode(KdDbField::kEvaluatedText);
    child.children = open->childCount();
    open->close();
    return true;
}

/// Texts are alike when they read alike: the cell's may have formatting codes around it.
bool readAlike(const KdString& a, const KdString& b, const KdDbTable& table, KdDbObjectId textStyle) {
    if (a == b) return true;
    return stripMtextFormatting(a, table.database(), textStyle) == stripMtextFormatting(b, table.database(), textStyle);
}

Form formOf(const KdDbField& field, const KdDbTable& table, KdDbObjectId textStyle) {
    if (field.childCount() != 1) return Form::Text;
    const KdString whole = field.getFieldCode(KdDbField::kAddChildren);
    if (!holdsExpression(whole)) return Form::Text;
    Child child;
    if (!readChild(field, child)) return Form::Text;
    const bool isExpressionItself = whole.str().starts_with(expressionStart);
    if (!isExpressionItself && !holdsExpression(child.code)) return Form::Text;
    if (child.children != 0) return Form::FormulaOfFields;
    // Text around the one formula makes it a text.
    const KdString evaluated = field.getFieldCode(KdDbField::kEvaluatedText);
    if (!readAlike(evaluated, child.evaluated, table, textStyle)) return Form::Text;
    return takeApart(whole.str()) ? Form::Formula : Form::Text;
}

/// The text owns the copy once it has taken it. False, with the copy gone, when it doesn't.
bool attach(KdDbMText& text, std::unique_ptr<KdDbField> copy) {
    const bool isTaken = text.setField(textField, copy.get()) == Kdad::eOk;
    if (isTaken) static_cast<void>(copy.release());
    return isTaken;
}

/// Attaches a copy of the field, each of its children copied anew. From one that can't be read on they stay those that
/// came with the copy: each further one would take the place before its own.
void loadText(KdDbMText& text, const KdDbField& field) {
    KdDbField* copy = field.clone();
    if (!attach(text, std::unique_ptr<KdDbField>(copy))) return;
    for (int i = 0; i < field.childCount(); ++i) {
        KdDbField* child = nullptr;
        if (field.getChild(i, child, KdDb::kForRead) != Kdad::eOk) break;
        std::unique_ptr<KdDbField> anew(child->clone());
        child->close();
        if (copy->setField(L"", anew.get()) != Kdad::eOk) break;
        static_cast<void>(anew.release());
    }
}

/// A formula without an expression is shown as its field shows, and typed over it stays that field.
LoadedField loadFormula(KdDbMText& text, const KdDbField& field) {
    const BracketedCode code = *takeApart(field.getFieldCode(KdDbField::kAddChildren).str());
    if (code.inner.empty()) {
        loadText(text, field);
    } else {
        text.setContents((L'=' + code.inner).c_str());
    }
    return {code.behind, field.objectId()};
}

/// Takes off the end of `text` as many characters as there are in `measure`.
std::wstring lastOf(const std::wstring& text, const std::wstring& measure) {
    return text.size() <= measure.size() ? text : text.substr(text.size() - measure.size());
}

LoadedField loadFormulaOfFields(KdDbMText& text, const KdDbField& field) {
    KdDbField* expression = nullptr;
    if (field.getChild(0, expression, KdDb::kForRead) != Kdad::eOk) return {};
    std::unique_ptr<KdDbField> copy(expression->clone());
    std::vector<std::unique_ptr<KdDbField>> owned;
    KdArray<KdDbField*> children;
    for (int i = 0; i < expression->childCount(); ++i) {
        KdDbField* child = nullptr;
        if (expression->getChild(i, child, KdDb::kForRead) != Kdad::eOk) break;
        children.append(owned.emplace_back(child->clone()).get());
        child->close();
    }
    const bool isWhole = children.length() == expression->childCount();
    expression->close();

    const std::optional<BracketedCode> code = takeApart(copy->getFieldCode(KdDbField::kFieldCode).str());
    if (!code || !isWhole) return {};
    if (copy->setFieldCode((L'=' + code->inner).c_str(), KdDbField::kTextField, &children) != Kdad::eOk) return {};
    for (auto& child : owned) static_cast<void>(child.release());  // they are the copy's from here on
    if (!attach(text, std::move(copy))) return {};
    // The tail is cut from the end of the expression, as long as what stood behind the bracket.
    return {lastOf(code->inner, code->behind), field.objectId()};
}

}  // namespace

LoadedField loadCellField(KdDbMText& text, KdDbObjectId id, const KdDbTable& table) {
    const OpenObject<KdDbField> field(id, KdDb::kForRead);
    if (!field) return {};
    switch (formOf(*field, table, text.textStyle())) {
        case Form::Text:
            loadText(text, *field);
            return {};
        case Form::Formula:
            return loadFormula(text, *field);
        case Form::FormulaOfFields:
            return loadFormulaOfFields(text, *field);
    }
    return {};
}
