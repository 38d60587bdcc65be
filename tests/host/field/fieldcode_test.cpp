// Formula fields: what stands around their expressions, fields in fields, formats, and the cell in edit.

#include "host/db/access.h"
#include "host/db/fieldstate.h"
#include "host/db/opening.h"
#include "host/field/expression.h"
#include "kd/db/fieldengine.h"
#include "kd/db/mtext.h"
#include "tests/host/field/formulafixture.h"

namespace {

using kdhost::field::takeApart;
using kdtest::cells;
using kdtest::narrow;

class FieldCodes : public kdtest::FormulaTest {
protected:
    /// What a formula of that code shows that is in no table.
    std::string alone(const std::wstring& fieldCode) {
        const auto* field = kdhost::peek<KdDbField>(kdtest::postFormula(m_database, fieldCode, {}));
        return narrow(kdhost::evaluatedText(*field));
    }
    void format(KdDbObjectId table, const char* cell, KdValue::DataType type, KdValue::UnitType unit,
                const wchar_t* code) {
        const KdCellRange place = cells(cell);
        edit(table, [&](KdDbTable& open) {
            open.setDataType(place.m_topRow, place.m_leftColumn, type, unit);
            open.setDataFormat(place.m_topRow, place.m_leftColumn, code);
        });
    }
};

TEST_F(FieldCodes, are_taken_apart_at_the_brackets_that_belong_together) {
    const struct {
        const wchar_t* code;
        const wchar_t* expression;  ///< null: no formula
        const wchar_t* format;
    } cases[] = {
        {L"\\AcExpr (1+2)", L"1+2", nullptr},
        {L"\\AcExpr(1)", L"1", nullptr},
        {L"\\AcExpr  ( (1+2)*3 ) ", L" (1+2)*3 ", nullptr},
        {L"\\AcExpr (A1) \\f \"%lu2%pr1\"", L"A1", L"%lu2%pr1"},
        {L"\\AcExpr (A1)\\f \"%ps[(,)]\"", L"A1", L"%ps[(,)]"},
        {L"\\AcExpr (A1 \\f \"%lu2\")", L"A1 ", L"%lu2"},
        {L"\\AcExpr (A1 \\f \"%ps[),(]\")", L"A1 ", L"%ps[),(]"},
        {L"\\AcExpr (A1) \\x \\f \"\"", L"A1", L""},
        {L"\\AcExpr (%<\\_FldIdx 0>%+1)", L"%<\\_FldIdx 0>%+1", nullptr},
        {L"\\AcExpr (\\AcExpr (1)+1)", L"\\AcExpr (1)+1", nullptr},
        {L"\\AcExpr", nullptr, nullptr},
        {L"\\AcExpr 1", nullptr, nullptr},
        {L"\\AcExpr (1", nullptr, nullptr},
        {L"\\AcExpr (1))", nullptr, nullptr},
        {L"\\AcExpr (1) 2", nullptr, nullptr},
        {L"\\AcExpr (1) \\f \"open", nullptr, nullptr},
        {L"\\AcExpr (1 \\ )", nullptr, nullptr},
        {L"\\AcExprX (1)", nullptr, nullptr},
        {L"AcExpr (1)", nullptr, nullptr},
        {L"", nullptr, nullptr},
    };
    for (const auto& [code, expression, format] : cases) {
        const auto parts = takeApart(code);
        EXPECT_EQ(parts.valid, expression != nullptr) << narrow(code);
        if (!parts.valid) continue;
        EXPECT_EQ(narrow(std::wstring(code).substr(parts.expression.at, parts.expression.length)), narrow(expression));
        EXPECT_EQ(parts.hasFormat, format != nullptr) << narrow(code);
        EXPECT_EQ(narrow(parts.format), format == nullptr ? "" : narrow(format));
    }
}

TEST_F(FieldCodes, a_formula_in_no_table_calculates_with_numbers) {
    EXPECT_EQ(alone(L"\\AcExpr (6*7)"), "42");
    EXPECT_EQ(alone(L"\\AcExpr (A1)"), "####");
    EXPECT_EQ(alone(L"\\AcExpr (6*7) trailing"), "####");
}

TEST_F(FieldCodes, a_format_behind_the_bracket_is_honoured_and_kept) {
    const KdDbObjectId table = makeTable(3, 3);
    formula(table, "A1", L"2/3", L" \\f \"%lu2%pr2\"");
    EXPECT_EQ(shown(table, "A1"), "0.67");
    formula(table, "A2", L"B1*3", L"\\f \"%lu2%pr1%ps[about ,.]\"");
    EXPECT_EQ(shown(table, "A2"), "about 0.");
    edit(table, [](KdDbTable& open) { open.insertRowsAndInherit(0, 0, 1); });
    const auto* field = kdhost::peek<KdDbField>(kdhost::peek<KdDbTable>(table)->fieldId(2, 0));
    EXPECT_EQ(narrow(field->getFieldCode(KdDbField::kAddChildren).str()),
              "\\AcExpr (B2*3)\\f \"%lu2%pr1%ps[about ,.]\"");
}

TEST_F(FieldCodes, a_switch_that_an_edit_left_inside_the_bracket_counts_too) {
    const KdDbObjectId table = makeTable(1, 2);
    formula(table, "A1", L"2/3 \\f \"%lu2%pr3\"");
    EXPECT_EQ(shown(table, "A1"), "0.667");
}

TEST_F(FieldCodes, results_are_written_by_the_cells_type_unit_and_format) {
    const KdDbObjectId table = makeTable(2, 2);
    formula(table, "A1", L"12345.678/10");
    const struct {
        KdValue::DataType type;
        KdValue::UnitType unit;
        const wchar_t* format;
        const char* text;
    } cases[] = {
        {KdValue::kGeneral, KdValue::kUnitless, L"", "1234.5678"},
        {KdValue::kGeneral, KdValue::kUnitless, L"%lu2%pr1", "1234.6"},
        {KdValue::kLong, KdValue::kUnitless, L"", "1235"},
        {KdValue::kLong, KdValue::kUnitless, L"%th[,]", "1,235"},
        {KdValue::kDouble, KdValue::kUnitless, L"", "1234.5678"},
        {KdValue::kDouble, KdValue::kUnitless, L"%lu4%pr1", "102'-10 1/2\""},
        {KdValue::kDouble, KdValue::kCurrency, L"", "$1,234.57"},
        {KdValue::kDouble, KdValue::kPercentage, L"", "123456.78%"},
        {KdValue::kDouble, KdValue::kAngle, L"%au3%pr1", "1234.6r"},
        {KdValue::kString, KdValue::kUnitless, L"%tc1", "1234.5678"},
        {KdValue::kDouble, KdValue::kUnitless, L"%lu9", "1234.5678"},
    };
    for (const auto& [type, unit, code, text] : cases) {
        format(table, "A1", type, unit, code);
        EXPECT_EQ(shown(table, "A1"), text) << narrow(code);
    }
}

TEST_F(FieldCodes, texts_and_errors_keep_to_the_format_as_far_as_it_concerns_them) {
    const KdDbObjectId table = makeTable(2, 2);
    type(table, "A1", L"Pump");
    formula(table, "B1", L"A1");
    formula(table, "B2", L"1/0");
    format(table, "B1", KdValue::kString, KdValue::kUnitless, L"%tc1");
    format(table, "B2", KdValue::kDouble, KdValue::kCurrency, L"");
    EXPECT_EQ(shown(table, "B1"), "PUMP");
    EXPECT_EQ(shown(table, "B2"), "####");
}

TEST_F(FieldCodes, what_a_format_leaves_open_is_as_in_the_drawing) {
    const KdDbObjectId table = makeTable(1, 2);
    formula(table, "A1", L"100/3", L" \\f \"%lu2\"");
    EXPECT_EQ(shown(table, "A1"), "33.3333");
    m_database.setLuprec(1);
    EXPECT_EQ(shown(table, "A1"), "33.3");
    m_database.setDimzin(0);
    formula(table, "B1", L"2", L" \\f \"%lu2\"");
    EXPECT_EQ(shown(table, "B1"), "2.0");
}

TEST_F(FieldCodes, the_value_behind_a_format_is_whole) {
    const KdDbObjectId table = makeTable(1, 3);
    formula(table, "A1", L"1/3", L" \\f \"%lu2%pr1\"");
    formula(table, "B1", L"A1*3");
    EXPECT_EQ(shown(table, "B1"), "1") << "not three times 0.3";
}

// ---- fields in fields

TEST_F(FieldCodes, a_formula_calculates_with_the_fields_in_it) {
    const KdDbObjectId table = makeTable(2, 2);
    type(table, "A1", L"5");
    edit(table, [&](KdDbTable& open) {
        KdArray<KdDbField*> children;
        for (const wchar_t* code : {L"\\AcExpr (A1+1)", L"4", L"word"}) {
            children.append(new KdDbField);
            children[children.length() - 1]->setFieldCode(code);
        }
        auto* expression = new KdDbField;
        expression->setFieldCode(L"\\AcExpr (%<\\_FldIdx 0>%*%<\\_FldIdx 1>%)", KdDbField::kFieldCode, &children);
        KdArray<KdDbField*> one;
        one.append(expression);
        auto* field = new KdDbField;
        field->setFieldCode(L"%<\\_FldIdx 0>%", KdDbField::kTextField, &one);
        ASSERT_EQ(field->postInDatabase(&m_database), Kdad::eOk);
        open.setFieldId(1, 1, field->objectId());
        field->setOwnerId(open.objectId());
        field->close();
    });
    EXPECT_EQ(shown(table, "B2"), "24");
    type(table, "A1", L"9");
    EXPECT_EQ(shown(table, "B2"), "40");
    formula(table, "A2", L"B2/2");
    EXPECT_EQ(shown(table, "A2"), "20");
    edit(table, [](KdDbTable& open) { open.insertColumnsAndInherit(0, 0, 1); });
    EXPECT_EQ(shown(table, "C2"), "40");
    EXPECT_EQ(code(table, "C2"), "\\AcExpr (B1+1)*4");
}

TEST_F(FieldCodes, a_child_that_is_missing_or_no_number_is_an_error) {
    auto* child = new KdDbField;
    child->setFieldCode(L"word");
    KdArray<KdDbField*> children;
    children.append(child);
    KdDbField field;
    field.setFieldCode(L"\\AcExpr (%<\\_FldIdx 0>%+1)", KdDbField::kFieldCode, &children);
    EXPECT_EQ(narrow(field.getFieldCode(KdDbField::kEvaluatedText).str()), "####");
    KdDbField without;
    without.setFieldCode(L"\\AcExpr (%<\\_FldIdx 0>%+1)");
    EXPECT_EQ(narrow(without.getFieldCode(KdDbField::kEvaluatedText).str()), "####");
}

TEST_F(FieldCodes, a_text_around_a_formula_counts_as_the_text_that_it_shows) {
    const KdDbObjectId table = makeTable(2, 3);
    type(table, "A1", L"5");
    const auto mixed = [&](const wchar_t* text) {
        return [&, text](KdDbTable& open) {
            auto* inside = new KdDbField;
            inside->setFieldCode(L"\\AcExpr (A1*2)");
            KdArray<KdDbField*> children;
            children.append(inside);
            auto* field = new KdDbField;
            field->setFieldCode(text, KdDbField::kTextField, &children);
            ASSERT_EQ(field->postInDatabase(&m_database), Kdad::eOk);
            open.setFieldId(0, 1, field->objectId());
            field->close();
        };
    };
    formula(table, "C1", L"B1");
    formula(table, "C2", L"Sum(B1,1)");
    edit(table, mixed(L"Total: %<\\_FldIdx 0>%"));
    EXPECT_EQ(shown(table, "B1"), "Total: 10") << "though nobody made the table its owner";
    EXPECT_EQ(shown(table, "C1"), "Total: 10");
    EXPECT_EQ(shown(table, "C2"), "1");
    edit(table, mixed(L"%<\\_FldIdx 0>%.5"));
    EXPECT_EQ(shown(table, "C2"), "11.5");
    type(table, "A1", L"7");
    EXPECT_EQ(shown(table, "C2"), "15.5");
    type(table, "A1", L"x");
    EXPECT_EQ(shown(table, "B1"), "####.5");
    EXPECT_EQ(shown(table, "C1"), "####");
}

TEST_F(FieldCodes, how_a_text_around_a_formula_is_written_counts_for_those_who_read_it) {
    const KdDbObjectId table = makeTable(1, 3);
    type(table, "A1", L"8");
    edit(table, [&](KdDbTable& open) {
        auto* inside = new KdDbField;
        inside->setFieldCode(L"\\AcExpr (A1/3)");
        KdArray<KdDbField*> children;
        children.append(inside);
        auto* field = new KdDbField;
        field->setFieldCode(L" %<\\_FldIdx 0>% ", KdDbField::kTextField, &children);
        ASSERT_EQ(field->postInDatabase(&m_database), Kdad::eOk);
        open.setFieldId(0, 1, field->objectId());
        field->close();
    });
    formula(table, "C1", L"B1*100");
    format(table, "B1", KdValue::kDouble, KdValue::kUnitless, L"%lu2%pr1");
    EXPECT_EQ(shown(table, "C1"), "270");
    format(table, "B1", KdValue::kDouble, KdValue::kUnitless, L"%lu2");
    EXPECT_EQ(shown(table, "C1"), "266.67");
    m_database.setLuprec(0);
    EXPECT_EQ(shown(table, "C1"), "300");
}

// ---- the cell in edit

class CellInEdit : public FieldCodes {
protected:
    ~CellInEdit() override { tell({}, 0, 0); }
    static KdFdFieldEnginePE& engine() { return *kddbGetFieldEngine()->extension(); }
    static void tell(KdDbObjectId table, int row, int column) { engine().setCellInEdit(table, row, column); }
    /// What a formula shows in a text that is in no drawing, such as the one in the editor.
    static std::string inText(const std::wstring& expression) {
        KdDbMText text;
        auto* field = new KdDbField;
        auto* child = new KdDbField;
        child->setFieldCode((L"\\AcExpr (" + expression + L")").c_str());
        text.setField(L"TEXT", field);
        field->setFieldCode(L"<%<\\_FldIdx 0>%>");
        field->setField(L"", child);
        return narrow(text.contents());
    }
};

TEST_F(CellInEdit, is_told_and_taken_back) {
    const KdDbObjectId table = makeTable(2, 2);
    int row = 7;
    int column = 7;
    EXPECT_TRUE(engine().cellInEdit(row, column).isNull());
    EXPECT_EQ(row, 7);
    tell(table, 1, 0);
    EXPECT_EQ(engine().cellInEdit(row, column), table);
    EXPECT_EQ(row, 1);
    EXPECT_EQ(column, 0);
    tell({}, 1, 0);
    EXPECT_TRUE(engine().cellInEdit(row, column).isNull());
    EXPECT_EQ(kddbGetFieldEngine()->isA(), KdFdFieldEngine::desc());
    EXPECT_EQ(engine().isA(), KdFdFieldEnginePE::desc());
}

TEST_F(CellInEdit, formulas_in_the_edited_text_read_its_table) {
    const KdDbObjectId table = makeTable(2, 2);
    type(table, "A1", L"5");
    formula(table, "B1", L"A1*3");
    EXPECT_EQ(inText(L"B1+1"), "<####>") << "nobody knows which table is meant";
    tell(table, 1, 1);
    EXPECT_EQ(inText(L"B1+1"), "<16>");
    EXPECT_EQ(inText(L"Sum(A1:B1)"), "<20>");
    EXPECT_EQ(inText(L"Table(" + std::to_wstring(table.asInteger()) + L").A1"), "<5>");
}

TEST_F(CellInEdit, a_formula_that_reads_the_edited_cell_would_read_itself) {
    const KdDbObjectId table = makeTable(2, 2);
    type(table, "B2", L"5");
    formula(table, "A1", L"B2+1");
    tell(table, 1, 1);
    EXPECT_EQ(inText(L"B2"), "<####>");
    EXPECT_EQ(inText(L"Sum(A1:B2)"), "<####>");
    EXPECT_EQ(shown(table, "A1"), "6") << "what stands in the drawing reads the cell as it was";
}

TEST_F(CellInEdit, a_number_in_the_edited_text_is_written_as_in_its_cell) {
    const KdDbObjectId table = makeTable(2, 2);
    format(table, "B2", KdValue::kDouble, KdValue::kUnitless, L"%lu2%pr1");
    tell(table, 1, 1);
    EXPECT_EQ(inText(L"2/3"), "<0.7>");
    EXPECT_EQ(inText(L"2/3 \\f \"%lu2%pr2\""), "<0.67>");
}

TEST_F(CellInEdit, a_posted_formula_that_no_cell_shows_yet_reads_the_table_too) {
    const KdDbObjectId table = makeTable(2, 2);
    type(table, "A1", L"5");
    const auto* field = kdhost::peek<KdDbField>(kdtest::postFormula(m_database, L"\\AcExpr (A1)", {}));
    EXPECT_EQ(narrow(kdhost::evaluatedText(*field)), "####");
    tell(table, 1, 1);
    EXPECT_EQ(narrow(kdhost::evaluatedText(*field)), "5");
    tell({}, 0, 0);
    EXPECT_EQ(narrow(kdhost::evaluatedText(*field)), "####");
}

TEST_F(CellInEdit, an_erased_table_is_none) {
    const KdDbObjectId table = makeTable(2, 2);
    tell(table, 1, 1);
    edit(table, [](KdDbTable& open) { open.erase(); });
    EXPECT_EQ(inText(L"A1"), "<####>");
    EXPECT_EQ(inText(L"1+1"), "<2>");
}

}  // namespace
