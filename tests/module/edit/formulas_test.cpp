// Formulas put into the selected cell: what the editor opens with, and what becomes of it.

#include "kd/db/field.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "module/core/tablecommon.h"
#include "tests/module/edit/commandrun.h"
#include "tests/module/edit/typist.h"

namespace kdtest {
namespace {

using Common = CVqTableCommon;
using Insert = bool (*)(KdDbObjectId);
using InsertForToolbar = bool (*)();

struct Function {
    const char* name;
    Insert insert;
    InsertForToolbar insertForToolbar;
};
const Function functions[] = {
    {"Sum", Common::InsertSumFormula, Common::InsertSumFormula},
    {"Count", Common::InsertCountFormula, Common::InsertCountFormula},
    {"Average", Common::InsertAverageFormula, Common::InsertAverageFormula},
};
const Function cellFormula{"Cell", Common::InsertCellFormula, Common::InsertCellFormula};
const Function equation{"Equation", Common::InsertEquation, Common::InsertEquation};

std::vector<Function> all() {
    std::vector<Function> each(std::begin(functions), std::end(functions));
    each.push_back(cellFormula);
    each.push_back(equation);
    return each;
}

/// A table of 3 by 3 cells at the origin with C3 selected, and another of 2 by 2 cells far to the right of it.
class Formulas : public CommandRun {
protected:
    Typist typist;
    KdDbObjectId table;
    KdDbObjectId other;
    const char* selected = "C3";  ///< when an operation starts; null for nothing

    void SetUp() override {
        CommandRun::SetUp();
        table = add(TableBuilder(3, 3).text("A1", L"5").text("B1", L"7").text("C3", L"old").build());
        other = add(TableBuilder(2, 2).text("A1", L"40").text("B2", L"2").build(), {200.0, 0.0, 0.0});
    }

    /// Runs the operation with these answers to its picks, and the user's work in the editor.
    bool run(Insert insert, std::vector<Step> picks, std::vector<Typed> typed = {leave(kMTextEditorOutside)}) {
        if (selected != nullptr) select(table, selected);
        typist.opened.clear();
        typist.types(std::move(typed));
        answers(std::move(picks));
        const ResourceScope resources;
        return insert(table);
    }
    std::vector<std::wstring> openedWith() const {
        std::vector<std::wstring> contents;
        for (const Opened& opened : typist.opened) contents.push_back(opened.contents);
        return contents;
    }
    std::wstring codeOf(KdDbObjectId id, int row, int column) const {
        const OpenObject<KdDbField> field(look(id).fieldId(row, column), KdDb::kForRead);
        return field ? field->getFieldCode(KdDbField::kAddChildren).str() : L"(no field)";
    }
    std::wstring numberOf(KdDbObjectId id) const { return std::to_wstring(id.asInteger()); }
};

using Words = std::vector<std::wstring>;

TEST_F(Formulas, of_a_function_open_the_editor_on_its_call_over_the_picked_range) {
    for (const Function& function : functions) {
        SCOPED_TRACE(function.name);
        EXPECT_TRUE(run(function.insert, {L"1,-1", L"25,-15"}));
        const std::string name = function.name;
        EXPECT_EQ(openedWith(), (Words{L"=" + std::wstring(name.begin(), name.end()) + L"(A1:B2)"}));
        EXPECT_EQ(prompts.size(), 2u);
    }
}

TEST_F(Formulas, over_one_picked_cell_name_it_as_a_range) {
    EXPECT_TRUE(run(Common::InsertSumFormula, {L"25,-1", L"25,-1"}));
    EXPECT_EQ(openedWith(), (Words{L"=Sum(B1:B1)"}));
}

TEST_F(Formulas, over_a_range_picked_backwards_name_it_in_order) {
    EXPECT_TRUE(run(Common::InsertCountFormula, {L"25,-15", L"1,-1"}));
    EXPECT_EQ(openedWith(), (Words{L"=Count(A1:B2)"}));
}

TEST_F(Formulas, over_cells_of_another_table_name_it_by_its_decimal_id) {
    for (const Function& function : functions) {
        SCOPED_TRACE(function.name);
        EXPECT_TRUE(run(function.insert, {L"201,-1", L"225,-15"}));
        const std::string name = function.name;
        EXPECT_EQ(openedWith(),
                  (Words{L"=" + std::wstring(name.begin(), name.end()) + L"(Table(" + numberOf(other) + L").A1:B2)"}));
    }
}

TEST_F(Formulas, of_a_cell_open_the_editor_on_its_name) {
    EXPECT_TRUE(run(Common::InsertCellFormula, {L"25,-15"}));
    EXPECT_EQ(openedWith(), (Words{L"=B2"}));
    EXPECT_EQ(prompts.size(), 1u);
}

TEST_F(Formulas, of_a_cell_of_another_table_name_it_by_its_decimal_id) {
    EXPECT_TRUE(run(Common::InsertCellFormula, {L"225,-1"}));
    EXPECT_EQ(openedWith(), (Words{L"=Table(" + numberOf(other) + L").B1"}));
}

TEST_F(Formulas, of_a_cell_that_is_merged_name_the_first_of_its_merge) {
    change(table, [](KdDbTable& open) { open.mergeCells(1, 2, 0, 1); });
    EXPECT_TRUE(run(Common::InsertCellFormula, {L"25,-25"}));
    EXPECT_EQ(openedWith(), (Words{L"=A2"}));
}

TEST_F(Formulas, that_are_bare_equations_ask_for_no_pick) {
    EXPECT_TRUE(run(Common::InsertEquation, {}));
    EXPECT_EQ(openedWith(), (Words{L"="}));
    EXPECT_TRUE(prompts.empty());
}

TEST_F(Formulas, open_the_editor_with_the_caret_behind_the_text_in_the_selected_cell_only) {
    EXPECT_TRUE(
        run(Common::InsertSumFormula, {L"1,-1", L"25,-1"}, {leave(kMTextEditorLeft), leave(kMTextEditorOutside)}));
    ASSERT_EQ(typist.opened.size(), 2u);
    EXPECT_EQ(typist.opened[0].mode, kMTextEditorCaretAtEnd);
    EXPECT_EQ(typist.opened[1].contents, L"");
    EXPECT_EQ(typist.opened[1].mode, kMTextEditorFromNeighbour);
    EXPECT_EQ(codeOf(table, 2, 2), L"\\AcExpr (Sum(A1:B1))");
}

TEST_F(Formulas, stand_in_the_first_cell_of_the_selection) {
    selected = "B2:C3";
    EXPECT_TRUE(run(Common::InsertSumFormula, {L"1,-1", L"25,-1"}));
    EXPECT_EQ(codeOf(table, 1, 1), L"\\AcExpr (Sum(A1:B1))");
    EXPECT_STREQ(look(table).textString(2, 2), L"old");
}

TEST_F(Formulas, become_fields_that_show_their_result) {
    const std::pair<Insert, const wchar_t*> results[] = {
        {Common::InsertSumFormula, L"12"}, {Common::InsertCountFormula, L"2"}, {Common::InsertAverageFormula, L"6"}};
    for (const auto& [insert, result] : results) {
        EXPECT_TRUE(run(insert, {L"1,-1", L"25,-15"}));
        EXPECT_STREQ(look(table).textString(2, 2), result);
    }
    EXPECT_TRUE(run(Common::InsertCellFormula, {L"25,-1"}));
    EXPECT_STREQ(look(table).textString(2, 2), L"7");
    EXPECT_TRUE(run(Common::InsertEquation, {}, {{L"=A1*B1", kMTextEditorOutside}}));
    EXPECT_STREQ(look(table).textString(2, 2), L"35");
}

TEST_F(Formulas, over_another_table_follow_it) {
    EXPECT_TRUE(run(Common::InsertSumFormula, {L"201,-1", L"225,-15"}));
    EXPECT_EQ(codeOf(table, 2, 2), L"\\AcExpr (Sum(Table(" + numberOf(other) + L").A1:B2))");
    EXPECT_STREQ(look(table).textString(2, 2), L"42");
    change(other, [](KdDbTable& open) { open.setTextString(0, 1, L"8"); });
    EXPECT_STREQ(look(table).textString(2, 2), L"50");
    EXPECT_TRUE(run(Common::InsertCellFormula, {L"225,-1"}));
    EXPECT_STREQ(look(table).textString(2, 2), L"8");
}

TEST_F(Formulas, are_fields_of_one_mark_with_the_expression_below_and_always_evaluated) {
    EXPECT_TRUE(run(Common::InsertSumFormula, {L"1,-1", L"25,-1"}));
    const OpenObject<KdDbField> field(look(table).fieldId(2, 2), KdDb::kForRead);
    ASSERT_TRUE(field);
    EXPECT_EQ(field->getFieldCode(KdDbField::kFieldCode).str(), L"%<\\_FldIdx 0>%");
    EXPECT_EQ(field->evaluationOption(), 63);
    EXPECT_EQ(field->ownerId(), table);
    KdDbField* expression = nullptr;
    ASSERT_EQ(field->getChild(0, expression, KdDb::kForRead), Kdad::eOk);
    EXPECT_EQ(expression->getFieldCode(KdDbField::kFieldCode).str(), L"\\AcExpr (Sum(A1:B1))");
    EXPECT_EQ(expression->evaluationOption(), 63);
    expression->close();
}

// ---- what ends without a formula

TEST_F(Formulas, given_up_in_the_editor_leave_the_cell_as_it_was) {
    EXPECT_TRUE(run(Common::InsertSumFormula, {L"1,-1", L"25,-1"}, {leave(kMTextEditorEscape)}));
    EXPECT_STREQ(look(table).textString(2, 2), L"old");
    EXPECT_TRUE(run(Common::InsertEquation, {}, {leave(kMTextEditorOutside)}));
    EXPECT_STREQ(look(table).textString(2, 2), L"=") << "the sign alone is text";
}

TEST_F(Formulas, whose_pick_is_cancelled_return_false_without_editor_or_word) {
    for (const Function& function : functions) {
        EXPECT_FALSE(run(function.insert, {esc})) << function.name;
        EXPECT_FALSE(run(function.insert, {L"1,-1", esc})) << function.name;
    }
    EXPECT_FALSE(run(Common::InsertCellFormula, {esc}));
    EXPECT_FALSE(run(Common::InsertCellFormula, {L"500,500"})) << "no cell lies there";
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_TRUE(host.messages().empty() || host.lastMessage().find(L"cell") != std::wstring::npos);
    EXPECT_STREQ(look(table).textString(2, 2), L"old");
}

TEST_F(Formulas, of_a_table_that_does_not_open_return_false_and_ask_nothing) {
    select(table, selected);
    selected = nullptr;
    for (const Function& function : all()) {
        kdhost::faults().failOpenNumber = 1;
        EXPECT_FALSE(run(function.insert, {})) << function.name;
        EXPECT_TRUE(prompts.empty()) << function.name;
    }
    EXPECT_TRUE(typist.opened.empty());
}

TEST_F(Formulas, in_a_table_without_selected_cells_open_no_editor) {
    selected = nullptr;
    const std::string before = describeTable(table);
    EXPECT_TRUE(run(Common::InsertSumFormula, {L"1,-1", L"25,-1"}, {}));
    EXPECT_TRUE(run(Common::InsertEquation, {}, {}));
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_EQ(describeTable(table), before);
}

TEST_F(Formulas, in_a_locked_cell_get_the_editors_word_instead) {
    change(table, [](KdDbTable& open) { open.setCellState(2, 2, KdDb::kCellStateContentLocked); });
    EXPECT_TRUE(run(Common::InsertEquation, {}, {}));
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_EQ(L"\n" + host.lastMessage(), text(2220));
}

TEST_F(Formulas, without_an_id_are_those_of_the_toolbars_table) {
    const std::pair<InsertForToolbar, Words> roads[] = {
        {Common::InsertSumFormula, {L"=Sum(A1:B2)"}},
        {Common::InsertCountFormula, {L"=Count(A1:B2)"}},
        {Common::InsertAverageFormula, {L"=Average(A1:B2)"}},
        {Common::InsertCellFormula, {L"=A1"}},
        {Common::InsertEquation, {L"="}},
    };
    for (const auto& [insert, formula] : roads) {
        SCOPED_TRACE(&formula - &roads[0].second);
        select(table, "C3");
        Common::ShowTableToolbar(table, true);
        typist.opened.clear();
        typist.types({leave(kMTextEditorOutside)});
        const bool asksTwice = formula[0].back() == L')';
        const bool asks = formula[0].size() > 1;
        answers(asksTwice ? std::vector<Step>{L"1,-1", L"25,-15"} : std::vector<Step>(asks ? 1 : 0, Step(L"1,-1")));
        const ResourceScope resources;
        EXPECT_TRUE(insert());
        EXPECT_EQ(openedWith(), formula);
    }
}

TEST_F(Formulas, with_an_id_are_of_that_table_whatever_the_toolbar_shows) {
    select(other, "A1");
    Common::ShowTableToolbar(other, true);
    EXPECT_TRUE(run(Common::InsertSumFormula, {L"1,-1", L"25,-1"}));
    EXPECT_EQ(openedWith(), (Words{L"=Sum(A1:B1)"}));
    EXPECT_EQ(codeOf(table, 2, 2), L"\\AcExpr (Sum(A1:B1))");
    EXPECT_STREQ(look(other).textString(0, 0), L"40");
    Common::ShowTableToolbar(other, true);
    EXPECT_TRUE(run(Common::InsertEquation, {}));
    EXPECT_STREQ(look(table).textString(2, 2), L"=");
    EXPECT_STREQ(look(other).textString(0, 0), L"40");
}

TEST_F(Formulas, work_by_the_id_without_a_toolbar_and_not_without_both) {
    for (const Function& function : all()) {
        answers({});
        EXPECT_FALSE(function.insertForToolbar()) << function.name;
        EXPECT_FALSE(function.insert(KdDbObjectId::kNull)) << function.name;
        EXPECT_TRUE(prompts.empty()) << function.name;
    }
    EXPECT_TRUE(typist.opened.empty());
}

}  // namespace
}  // namespace kdtest
