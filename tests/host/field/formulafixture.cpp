// A drawing with tables and formulas for one test.

#include "tests/host/field/formulafixture.h"

#include <QString>

#include "host/db/access.h"
#include "tests/support/objects.h"

namespace kdtest {

std::string narrow(const std::wstring& text) {
    return QString::fromStdWString(text).toStdString();
}

KdDbObjectId postFormula(KdDbDatabase& database, const std::wstring& code, KdDbObjectId owner) {
    auto* field = new KdDbField;
    EXPECT_EQ(field->postInDatabase(&database), Kdad::eOk);
    auto* expression = new KdDbField;
    expression->setFieldCode(code.c_str());
    expression->setEvaluationOption(KdDbField::kAutomatic);
    KdArray<KdDbField*> children;
    children.append(expression);
    field->setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::kTextField, &children);
    field->setEvaluationOption(KdDbField::kAutomatic);
    field->setOwnerId(owner);
    const KdDbObjectId id = field->objectId();
    expression->close();
    field->close();
    return id;
}

void putFormula(KdDbTable& table, int row, int column, const std::wstring& expression, const std::wstring& tail) {
    const std::wstring code = L"\\AcExpr (" + expression + L")" + tail;
    table.setFieldId(row, column, postFormula(*table.database(), code, table.objectId()));
}

KdDbObjectId FormulaTest::makeTable(int rows, int columns) {
    return makeTableIn(m_database.modelSpaceId(), rows, columns);
}

KdDbObjectId FormulaTest::makeTableIn(KdDbObjectId block, int rows, int columns) {
    const kdhost::UndoCommandScope step(&m_database, L"MAKE");
    auto table = std::make_unique<KdDbTable>();
    table->setSize(rows, columns);
    table->setCellStyle(-1, -1, L"_DATA");
    return appendTo(block, table.release());
}

KdDbTable* FormulaTest::openTable(KdDbObjectId table) {
    return mustOpen<KdDbTable>(table, KdDb::kForWrite);
}

void FormulaTest::type(KdDbObjectId table, const char* cell, const std::wstring& text) {
    const KdCellRange place = cells(cell);
    edit(table, [&](KdDbTable& open) { open.setTextString(place.m_topRow, place.m_leftColumn, text.c_str()); });
}

void FormulaTest::formula(KdDbObjectId table, const char* range, const std::wstring& expression,
                          const std::wstring& tail) {
    const KdCellRange places = cells(range);
    edit(table, [&](KdDbTable& open) {
        for (int row = places.m_topRow; row <= places.m_bottomRow; ++row) {
            for (int column = places.m_leftColumn; column <= places.m_rightColumn; ++column) {
                putFormula(open, row, column, expression, tail);
            }
        }
    });
}

std::string FormulaTest::shown(KdDbObjectId table, const char* cell) {
    const auto* peeked = kdhost::peek<KdDbTable>(table);
    const KdCellRange place = cells(cell);
    return peeked == nullptr ? "(no table)" : narrow(peeked->textString(place.m_topRow, place.m_leftColumn));
}

std::string FormulaTest::code(KdDbObjectId table, const char* cell) {
    const KdCellRange place = cells(cell);
    const auto* field =
        kdhost::peek<KdDbField>(kdhost::peek<KdDbTable>(table)->fieldId(place.m_topRow, place.m_leftColumn));
    if (field == nullptr) return "(no field)";
    const std::string whole = narrow(field->getFieldCode(KdDbField::kAddChildren).str());
    const std::string begin = "\\AcExpr (";
    EXPECT_TRUE(whole.starts_with(begin)) << whole;
    const std::size_t end = whole.rfind(')');
    return whole.substr(begin.size(), end - begin.size());
}

std::string FormulaTest::result(const std::wstring& expression) {
    const KdDbObjectId table = makeTable(6, 6);
    const std::pair<const char*, const wchar_t*> given[] = {{"A1", L"5"},    {"A2", L"7"},     {"A3", L"text"},
                                                            {"B1", L"-2.5"}, {"B3", L" 50% "}, {"C1", L"{\\H2;8}"}};
    for (const auto& [cell, text] : given) type(table, cell, text);
    formula(table, "D1", L"1/0");
    formula(table, "D2", L"A1+A2");
    formula(table, "F6", expression);
    return shown(table, "F6");
}

void FormulaTest::undo() {
    EXPECT_EQ(kdhost::undoHistory(m_database)->undo(), Kdad::eOk);
}

void FormulaTest::redo() {
    EXPECT_EQ(kdhost::undoHistory(m_database)->redo(), Kdad::eOk);
}

}  // namespace kdtest
