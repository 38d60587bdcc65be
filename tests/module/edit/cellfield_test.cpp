// The field of a cell in the editor: what is loaded, and what comes back, for every kind of field.

#include "module/edit/cellfield.h"

#include "kd/db/field.h"
#include "kd/db/fieldengine.h"
#include "kd/db/mtext.h"
#include "module/core/formulacode.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "module/edit/celledit.h"
#include "tests/module/edit/commandrun.h"
#include "tests/module/edit/typist.h"
#include "tests/support/objects.h"

namespace kdtest {
namespace {

/// A field that stands for one child of the inner code.
KdDbField* fieldOver(const wchar_t* inner, const wchar_t* code = firstChildMark) {
    auto* inside = new KdDbField;
    inside->setFieldCode(inner);
    return fieldAround(inside, code);
}

/// Gives a field that code, over one child of the inner one.
void setCodeOver(KdDbField& field, const std::wstring& code, const wchar_t* inner) {
    auto* inside = new KdDbField;
    inside->setFieldCode(inner);
    KdArray<KdDbField*> children;
    children.append(inside);
    field.setFieldCode(code.c_str(), KdDbField::kFieldCode, &children);
    inside->close();
}

class CellFields : public CommandRun {
protected:
    Typist typist;
    KdDbObjectId table;

    void SetUp() override {
        CommandRun::SetUp();
        table = add(TableBuilder(3, 2).text("A1", L"5").text("A2", L"7").build());
    }

    /// Puts a field of that code into a cell, with children of those codes.
    KdDbObjectId put(int row, int column, const std::wstring& code, const std::vector<std::wstring>& children) {
        auto* field = new KdDbField;
        EXPECT_EQ(field->postInDatabase(&host.database()), Kdad::eOk);
        KdArray<KdDbField*> made;
        for (const std::wstring& child : children) {
            made.append(new KdDbField);
            made[made.length() - 1]->setFieldCode(child.c_str());
        }
        field->setFieldCode(code.c_str(), KdDbField::kTextField, &made);
        field->setOwnerId(table);
        for (int i = 0; i < made.length(); ++i) made[i]->close();
        const KdDbObjectId id = field->objectId();
        field->close();
        change(table, [&](KdDbTable& open) { open.setFieldId(row, column, id); });
        return id;
    }
    /// A formula with a number field in it, below the cell's own field.
    KdDbObjectId putFormulaOfFields(int row, int column, const std::wstring& tail = {}) {
        const KdDbObjectId id = put(row, column, firstChildMark, {L"\\AcExpr (0)"});
        const OpenObject<KdDbField> field(id, KdDb::kForRead);
        KdDbField* expression = nullptr;
        EXPECT_EQ(field->getChild(0, expression, KdDb::kForWrite), Kdad::eOk);
        setCodeOver(*expression, L"\\AcExpr (%<\\_FldIdx 0>%*2)" + tail, L"\\AcExpr (A1+1)");
        expression->close();
        return id;
    }

    /// One pass through the editor.
    std::wstring edit(int row, int column, Typed typed) {
        typist.opened.clear();
        typist.types({std::move(typed)});
        const ResourceScope resources;
        EXPECT_TRUE(editTable(table, row, column, false, {}));
        return typist.opened.empty() ? L"(none)" : typist.opened.front().contents;
    }
    KdDbObjectId fieldAt(int row, int column) const { return look(table).fieldId(row, column); }
    std::wstring shown(int row, int column) const { return look(table).textString(row, column); }
    KdDbObjectId ownerAt(int row, int column) const {
        const OpenObject<KdDbField> field(fieldAt(row, column), KdDb::kForRead);
        EXPECT_TRUE(field);
        return field ? field->ownerId() : KdDbObjectId();
    }
    std::wstring code(KdDbObjectId id, KdDbField::FieldCodeFlag flag = KdDbField::kAddChildren) const {
        const OpenObject<KdDbField> field(id, KdDb::kForRead);
        return field ? field->getFieldCode(flag).str() : L"(no field)";
    }
};

TEST(CellFieldCode, equals_signs_blanks_and_equals_signs_are_trimmed_in_this_order) {
    EXPECT_EQ(withoutEqualsSign(L"=1+2"), L"1+2");
    EXPECT_EQ(withoutEqualsSign(L"= =5"), L"5");
    EXPECT_EQ(withoutEqualsSign(L"==  ==5"), L"5");
    EXPECT_EQ(withoutEqualsSign(L"= = =5"), L" =5") << "three passes and no more";
    EXPECT_EQ(withoutEqualsSign(L"=\t5"), L"\t5");
    EXPECT_EQ(withoutEqualsSign(L"=="), L"");
}

TEST_F(CellFields, a_typed_formula_is_loaded_as_typed_and_stays_its_field) {
    const KdDbObjectId id = put(2, 0, firstChildMark, {L"\\AcExpr (A1+A2)"});
    EXPECT_EQ(shown(2, 0), L"12");
    EXPECT_EQ(edit(2, 0, {L"=a1*a2", 0}), L"=A1+A2");
    EXPECT_EQ(fieldAt(2, 0), id);
    EXPECT_EQ(code(id), L"\\AcExpr (A1*A2)");
    EXPECT_EQ(shown(2, 0), L"35");
}

TEST_F(CellFields, a_formulas_tail_is_kept_behind_the_new_expression) {
    const KdDbObjectId id = put(2, 0, firstChildMark, {L"\\AcExpr (A1/A2) \\f \"%lu2%pr2%zs0\""});
    EXPECT_EQ(shown(2, 0), L"0.71");
    EXPECT_EQ(edit(2, 0, {L"=A2/A1+0.001", 0}), L"=A1/A2");
    EXPECT_EQ(code(id), L"\\AcExpr (A2/A1+0.001) \\f \"%lu2%pr2%zs0\"");
    EXPECT_EQ(shown(2, 0), L"1.40");
}

/// What counts is what stands behind the bracket in the code of the whole field, formatting codes too: that is a rule.
TEST_F(CellFields, the_tail_of_a_formula_is_what_stands_behind_it_in_its_field) {
    const KdDbObjectId id = put(2, 0, L"{\\C1;%<\\_FldIdx 0>%}", {L"\\AcExpr (A1+A2)"});
    EXPECT_EQ(edit(2, 0, {L"=A1", 0}), L"=A1+A2");
    EXPECT_EQ(fieldAt(2, 0), id);
    EXPECT_EQ(code(id), L"{\\C1;\\AcExpr (A1)}}");
}

TEST_F(CellFields, a_formula_without_an_expression_shows_marks_and_left_as_it_is_stays_a_field_of_the_table) {
    for (const wchar_t* typed : {L"==", L"= "}) {
        edit(2, 1, {typed, 0});
        ASSERT_EQ(code(fieldAt(2, 1)), L"\\AcExpr ()");
        EXPECT_EQ(edit(2, 1, leave(0)), L"####");
        EXPECT_EQ(code(fieldAt(2, 1)), L"\\AcExpr ()");
        EXPECT_EQ(ownerAt(2, 1), table);
        EXPECT_EQ(shown(2, 1), L"####");
        edit(2, 1, {L"", 0});
    }
}

TEST_F(CellFields, a_formula_typed_over_one_without_an_expression_goes_into_its_field_before_its_tail) {
    const KdDbObjectId id = put(2, 0, firstChildMark, {L"\\AcExpr () \\f \"%lu2%pr2%zs0\""});
    EXPECT_EQ(edit(2, 0, {L"=A1/A2", 0}), L"####");
    EXPECT_EQ(fieldAt(2, 0), id);
    EXPECT_EQ(code(id), L"\\AcExpr (A1/A2) \\f \"%lu2%pr2%zs0\"");
    EXPECT_EQ(shown(2, 0), L"0.71");
}

TEST_F(CellFields, a_formula_left_as_it_is_is_written_back_unchanged) {
    const KdDbObjectId id = put(2, 0, firstChildMark, {L"\\AcExpr (Sum(A1:A2)) \\f \"%lu2%pr1%zs0\""});
    edit(2, 0, leave(0));
    EXPECT_EQ(fieldAt(2, 0), id);
    EXPECT_EQ(code(id), L"\\AcExpr (Sum(A1:A2)) \\f \"%lu2%pr1%zs0\"");
    EXPECT_EQ(shown(2, 0), L"12.0");
}

TEST_F(CellFields, a_formula_typed_over_by_text_is_gone) {
    put(2, 0, firstChildMark, {L"\\AcExpr (A1+A2)"});
    EXPECT_EQ(edit(2, 0, {L"plain", 0}), L"=A1+A2");
    EXPECT_TRUE(fieldAt(2, 0).isNull());
    EXPECT_EQ(shown(2, 0), L"plain");
}

TEST_F(CellFields, formatting_around_a_formula_leaves_it_one) {
    put(2, 0, L"{\\C1;%<\\_FldIdx 0>%}", {L"\\AcExpr (A1+A2)"});
    EXPECT_EQ(edit(2, 0, leave(27)), L"=A1+A2");
}

TEST_F(CellFields, text_around_a_formula_makes_it_a_text_with_a_copied_field) {
    const KdDbObjectId id = put(2, 0, L"total %<\\_FldIdx 0>%", {L"\\AcExpr (A1+A2)"});
    EXPECT_EQ(edit(2, 0, leave(0)), L"total 12");
    EXPECT_NE(fieldAt(2, 0), id);
    EXPECT_EQ(code(fieldAt(2, 0), KdDbField::kFieldCode), L"total %<\\_FldIdx 0>%");
    EXPECT_EQ(code(fieldAt(2, 0)), L"total \\AcExpr (A1+A2)");
    EXPECT_EQ(shown(2, 0), L"total 12");
}

TEST_F(CellFields, a_field_of_several_children_is_a_text_with_copied_fields) {
    put(2, 0, L"%<\\_FldIdx 0>%/%<\\_FldIdx 1>%", {L"\\AcExpr (A1)", L"\\AcExpr (A2)"});
    EXPECT_EQ(edit(2, 0, leave(0)), L"5/7");
    EXPECT_EQ(shown(2, 0), L"5/7");
    change(table, [](KdDbTable& open) { open.setTextString(0, 0, L"6"); });
    EXPECT_EQ(shown(2, 0), L"6/7") << "the copies are fields of the cell";
}

TEST_F(CellFields, a_formula_typed_over_a_text_with_fields_is_a_field_of_its_own) {
    const KdDbObjectId id = put(2, 0, L"%<\\_FldIdx 0>%/%<\\_FldIdx 1>%", {L"\\AcExpr (A1)", L"\\AcExpr (A2)"});
    EXPECT_EQ(edit(2, 0, {L"=A1+100", 0}), L"5/7");
    EXPECT_NE(fieldAt(2, 0), id);
    EXPECT_EQ(code(id), L"\\AcExpr (A1)/\\AcExpr (A2)");
    EXPECT_EQ(code(fieldAt(2, 0)), L"\\AcExpr (A1+100)");
    EXPECT_EQ(shown(2, 0), L"105");
}

TEST_F(CellFields, a_field_without_children_is_copied_whole) {
    put(2, 0, L"just text", {});
    EXPECT_EQ(edit(2, 0, leave(0)), L"just text");
    EXPECT_EQ(code(fieldAt(2, 0)), L"just text");
}

TEST_F(CellFields, one_child_that_is_no_expression_is_a_text_with_a_copied_field) {
    const KdDbObjectId id = put(2, 0, firstChildMark, {L"just text"});
    EXPECT_EQ(edit(2, 0, leave(0)), L"just text");
    EXPECT_NE(fieldAt(2, 0), id);
    EXPECT_EQ(code(fieldAt(2, 0), KdDbField::kFieldCode), firstChildMark);
    EXPECT_EQ(code(fieldAt(2, 0)), L"just text");
}

TEST_F(CellFields, an_expression_below_a_child_that_is_none_leaves_the_cell_a_text) {
    const KdDbObjectId id = put(2, 0, firstChildMark, {L"no expression"});
    {
        const OpenObject<KdDbField> field(id, KdDb::kForRead);
        KdDbField* child = nullptr;
        ASSERT_EQ(field->getChild(0, child, KdDb::kForWrite), Kdad::eOk);
        setCodeOver(*child, L"sum %<\\_FldIdx 0>%", L"\\AcExpr (A1)");
        child->close();
    }
    ASSERT_EQ(code(id), L"sum \\AcExpr (A1)");
    EXPECT_EQ(edit(2, 0, leave(0)), L"sum 5");
    EXPECT_NE(fieldAt(2, 0), id);
    EXPECT_EQ(code(fieldAt(2, 0)), L"sum \\AcExpr (A1)");
    EXPECT_EQ(shown(2, 0), L"sum 5");
}

TEST_F(CellFields, an_expression_without_brackets_is_a_text_with_a_copied_field) {
    const KdDbObjectId id = put(2, 0, firstChildMark, {L"\\AcExpr A1"});
    EXPECT_EQ(edit(2, 0, leave(0)), shown(2, 0));
    EXPECT_NE(fieldAt(2, 0), id);
    EXPECT_EQ(code(fieldAt(2, 0)), L"\\AcExpr A1");
}

TEST_F(CellFields, a_formula_itself_in_the_cell_gets_the_table_for_an_owner) {
    put(2, 0, L"\\AcExpr (A1+1)", {});
    EXPECT_EQ(edit(2, 0, leave(0)), L"6");
    EXPECT_EQ(code(fieldAt(2, 0)), L"\\AcExpr (A1+1)");
    EXPECT_EQ(OpenObject<KdDbField>(fieldAt(2, 0), KdDb::kForRead)->ownerId(), table);
    EXPECT_EQ(shown(2, 0), L"6");
}

TEST_F(CellFields, a_formula_over_fields_is_loaded_with_them_and_written_back_as_one) {
    putFormulaOfFields(2, 0);
    EXPECT_EQ(shown(2, 0), L"12");
    EXPECT_EQ(edit(2, 0, leave(0)), L"=6*2") << "an equals sign, and the fields as they show";
    const KdDbObjectId id = fieldAt(2, 0);
    EXPECT_EQ(code(id, KdDbField::kFieldCode), firstChildMark);
    EXPECT_EQ(code(id), L"\\AcExpr (\\AcExpr (A1+1)*2)");
    EXPECT_EQ(OpenObject<KdDbField>(id, KdDb::kForRead)->ownerId(), table);
    EXPECT_EQ(OpenObject<KdDbField>(id, KdDb::kForRead)->evaluationOption(), 63);
    EXPECT_EQ(shown(2, 0), L"12");
    change(table, [](KdDbTable& open) { open.setTextString(0, 0, L"9"); });
    EXPECT_EQ(shown(2, 0), L"20");
}

/// The tail is as long as what stood behind the bracket, and is cut from the end of the expression: that is a rule.
TEST_F(CellFields, a_formula_over_fields_takes_its_tail_from_the_end_of_its_expression) {
    putFormulaOfFields(2, 0, L" ");
    EXPECT_EQ(edit(2, 0, leave(0)), L"=6*2");
    EXPECT_EQ(code(fieldAt(2, 0)), L"\\AcExpr (\\AcExpr (A1+1)*22)");
}

TEST_F(CellFields, equals_signs_and_blanks_before_a_formula_over_fields_are_taken_off) {
    edit(2, 1, {std::nullopt, 0, [](KdDbMText& text) {
                    text.setField(textField, fieldOver(L"\\AcExpr (A1+1)", L"= =%<\\_FldIdx 0>%*2"));
                }});
    EXPECT_EQ(code(fieldAt(2, 1)), L"\\AcExpr (\\AcExpr (A1+1)*2)");
    EXPECT_EQ(shown(2, 1), L"12");
}

TEST_F(CellFields, a_text_whose_fields_are_edited_away_is_a_text) {
    putFormulaOfFields(2, 0);
    edit(2, 0, {L"plain", 0});
    EXPECT_TRUE(fieldAt(2, 0).isNull());
    EXPECT_EQ(shown(2, 0), L"plain");
}

TEST_F(CellFields, a_formula_over_fields_that_is_typed_anew_stays_its_field) {
    const KdDbObjectId id = putFormulaOfFields(2, 0);
    edit(2, 0, {L"=A1+100", 0});
    EXPECT_EQ(fieldAt(2, 0), id);
    EXPECT_EQ(code(id), L"\\AcExpr (A1+100)");
    EXPECT_EQ(shown(2, 0), L"105");
}

TEST_F(CellFields, a_field_put_into_a_plain_cell_is_posted_and_belongs_to_the_table_if_it_is_a_formula) {
    struct Put {
        std::function<KdDbField*()> make;
        const wchar_t* shown;
        bool isFormula;
    };
    const auto single = [](const wchar_t* code) {
        auto* field = new KdDbField;
        field->setFieldCode(code);
        return field;
    };
    for (const Put& put :
         {Put{[&] { return single(L"\\AcExpr (A1+A2)"); }, L"12", true},
          Put{[] { return fieldOver(L"\\AcExpr (A1*A2)"); }, L"35", true},
          Put{[&] { return single(L"just text"); }, L"just text", false},
          Put{[] { return fieldOver(L"\\AcExpr (A1)", L"total %<\\_FldIdx 0>%"); }, L"total 5", false}}) {
        edit(2, 1, {std::nullopt, 0, [&](KdDbMText& text) { text.setField(textField, put.make()); }});
        ASSERT_FALSE(fieldAt(2, 1).isNull());
        EXPECT_EQ(shown(2, 1), put.shown);
        EXPECT_EQ(ownerAt(2, 1), put.isFormula ? table : KdDbObjectId()) << code(fieldAt(2, 1)).c_str();
        edit(2, 1, {L"", 0});
    }
}

TEST_F(CellFields, a_field_that_does_not_open_leaves_the_editor_empty) {
    const KdDbObjectId id = put(2, 0, firstChildMark, {L"\\AcExpr (A1)"});
    const OpenObject<KdDbField> held(id, KdDb::kForWrite);
    EXPECT_EQ(edit(2, 0, leave(27)), L"");
    EXPECT_EQ(fieldAt(2, 0), id);
}

TEST_F(CellFields, what_is_no_formula_behind_an_equals_sign_shows_marks_and_is_edited_as_typed) {
    edit(2, 1, {L"=what is this", 0});
    EXPECT_EQ(shown(2, 1), L"####");
    EXPECT_EQ(edit(2, 1, {L"=1+1", 0}), L"=what is this");
    EXPECT_EQ(shown(2, 1), L"2");
}

TEST_F(CellFields, formatting_codes_around_a_typed_formula_do_not_count) {
    edit(2, 1, {L"{\\C1;=A1+1}", 0});
    EXPECT_EQ(code(fieldAt(2, 1)), L"\\AcExpr (A1+1)");
    EXPECT_EQ(shown(2, 1), L"6");
}

TEST_F(CellFields, a_text_keeps_its_formatting_codes) {
    edit(2, 1, {L"{\\C1;red} \\Lunder\\l", 0});
    EXPECT_EQ(shown(2, 1), L"{\\C1;red} \\Lunder\\l");
}

TEST_F(CellFields, the_engine_knows_the_cell_in_edit_while_the_editor_is_up) {
    int row = -5;
    int column = -5;
    KdFdFieldEnginePE& engine = *kddbGetFieldEngine()->extension();
    KdDbObjectId during;
    typist.look = [&](KdDbMText&) { during = engine.cellInEdit(row, column); };
    edit(2, 1, leave(0));
    EXPECT_EQ(during, table);
    EXPECT_EQ(row, 2);
    EXPECT_EQ(column, 1);
    EXPECT_TRUE(engine.cellInEdit(row, column).isNull());
}

}  // namespace
}  // namespace kdtest
