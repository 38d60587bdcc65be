// Codes of fields: taken apart, shown by a cell of a table, and followed through rows that come and go.

#include <memory>

#include "host/db/access.h"
#include "host/db/fieldevaluation.h"
#include "host/db/opening.h"
#include "host/field/expression.h"
#include "kd/db/database.h"
#include "kd/db/field.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "tests/fuzz/target.h"

using namespace kdhost::field;

namespace {

/// A table of 3 by 3 cells whose middle shows a field with the code under test as its child.
class Drawing {
public:
    Drawing() {
        auto made = std::make_unique<KdDbTable>();
        made->setSize(3, 3);
        made->setTextString(0, 0, L"5");
        made->setTextString(0, 1, L"text");
        KdDbBlockTableRecord* space = nullptr;
        kdhost::openAs(space, m_database.modelSpaceId(), KdDb::kForWrite);
        space->appendKdDbEntity(m_table, made.get());
        space->close();
        KdDbTable* table = made.release();
        auto* field = new KdDbField;
        auto* child = new KdDbField;
        auto* inside = new KdDbField;
        inside->setFieldCode(L"\\AcExpr (A1+1)");
        KdArray<KdDbField*> children;
        children.append(inside);
        child->setFieldCode(L"", KdDbField::kTextField, &children);
        children[0] = child;
        field->setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::kTextField, &children);
        field->postInDatabase(&m_database);
        table->setFieldId(1, 1, field->objectId());
        field->setOwnerId(m_table);
        KdDbField* posted = nullptr;
        field->getChild(0, posted, KdDb::kForRead);
        m_child = posted->objectId();
        KdDbField* postedInside = nullptr;
        posted->getChild(0, postedInside, KdDb::kForRead);
        m_inside = postedInside->objectId();
        postedInside->close();
        posted->close();
        field->close();
        table->close();
    }

    void setCode(const std::wstring& code) {
        KdDbField* child = nullptr;
        KdDbField* inside = nullptr;
        kdhost::openAs(child, m_child, KdDb::kForWrite);
        kdhost::openAs(inside, m_inside, KdDb::kForRead);
        KdArray<KdDbField*> children;
        children.append(inside);
        child->setFieldCode(code.c_str(), KdDbField::kTextField, &children);
        inside->close();
        child->close();
    }
    std::wstring code(KdDbField::FieldCodeFlag flag) const {
        return kdhost::peek<KdDbField>(m_child)->getFieldCode(flag).str();
    }
    std::wstring shown() const { return kdhost::peek<KdDbTable>(m_table)->textString(1, 1); }
    template <class Change>
    void edit(Change change) {
        KdDbTable* table = nullptr;
        kdhost::openAs(table, m_table, KdDb::kForWrite);
        change(*table);
        table->close();
    }

private:
    KdDbDatabase m_database;
    KdDbObjectId m_table;
    KdDbObjectId m_child;
    KdDbObjectId m_inside;
};

/// References past what a table may hold would move out of what can be written.
bool isNear(const Expression& expression) {
    for (const auto& [reference, piece] : expression.references) {
        if (reference.cells.m_bottomRow > 1'000'000 || reference.cells.m_rightColumn > 1'000'000) return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Drawing drawing;
    const std::wstring code = kdtest::fuzzText(data, size);
    drawing.setCode(code);
    kdtest::require(drawing.code(KdDbField::kFieldCode) == code, "not the code that was set", code);
    const std::wstring shown = drawing.shown();
    kdtest::require(shown == drawing.code(KdDbField::kEvaluatedText), "the cell shows another text", code);
    drawing.code(KdDbField::kAddChildren);

    const FormulaCode parts = takeApart(code);
    if (kdhost::isFormulaCode(code) && !parts.valid) kdtest::require(shown == L"####", "shown though it is cut", code);
    if (!parts.valid) return 0;
    const auto [at, length] = parts.expression;
    kdtest::require(at + length <= code.size(), "an expression outside of the code", code);
    const Expression expression = parseExpression(std::wstring_view(code).substr(at, length));
    if (!expression.valid) kdtest::require(shown == L"####", "shown though it is no expression", code);
    if (expression.references.empty() || !expression.valid || !isNear(expression)) return 0;

    drawing.edit([](KdDbTable& table) { table.insertRowsAndInherit(0, 0, 2); });
    drawing.edit([](KdDbTable& table) { table.deleteRows(0, 2); });
    kdtest::require(drawing.shown() == shown, "shows something else once the rows are gone again", code);
    const std::wstring now = drawing.code(KdDbField::kFieldCode);
    const FormulaCode partsNow = takeApart(now);
    kdtest::require(partsNow.valid && partsNow.hasFormat == parts.hasFormat && partsNow.format == parts.format,
                    "another format", code);
    const std::wstring_view text = std::wstring_view(now).substr(partsNow.expression.at, partsNow.expression.length);
    const Expression again = parseExpression(text);
    kdtest::require(again.valid && again.references.size() == expression.references.size(), "other references", code);
    return 0;
}
