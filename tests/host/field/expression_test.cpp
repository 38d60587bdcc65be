// What expressions come to, by the rules of spreadsheets.

#include "host/field/expression.h"

#include "kd/db/formula.h"
#include "tests/host/field/formulafixture.h"

namespace {

using kdhost::field::parseExpression;
using kdtest::narrow;

class Expressions : public kdtest::FormulaTest {
protected:
    void expectAll(std::initializer_list<std::pair<const wchar_t*, const char*>> cases) {
        for (const auto& [expression, text] : cases) EXPECT_EQ(result(expression), text) << narrow(expression);
    }
};

TEST_F(Expressions, numbers_and_operators) {
    expectAll({{L"1+2", "3"},
               {L"1.5", "1.5"},
               {L".5+5.", "5.5"},
               {L"1e3", "1000"},
               {L"2E-1", "0.2"},
               {L"7-2-1", "4"},
               {L"2+3*4", "14"},
               {L"(2+3)*4", "20"},
               {L"10/4", "2.5"},
               {L"2^10", "1024"},
               {L" 1 +\t2 ", "3"},
               {L"0.1+0.2", "0.3"},
               {L"1/3", "0.333333333333333"}});
}

TEST_F(Expressions, a_sign_binds_closer_than_a_power_and_equals_work_from_the_left) {
    expectAll({{L"-2^2", "4"},
               {L"0-2^2", "-4"},
               {L"2^-1", "0.5"},
               {L"2^3^2", "64"},
               {L"64/4/2", "8"},
               {L"--3", "3"},
               {L"+-+3", "-3"},
               {L"2--3", "5"},
               {L"-(1+2)", "-3"},
               {L"-0", "0"}});
}

TEST_F(Expressions, cells_count_for_what_they_hold) {
    expectAll({{L"A1", "5"}, {L"a1+$B$1", "2.5"}, {L"A1*B3", "2.5"}, {L"C1+1", "9"}, {L"D2*2", "24"}, {L"A1:A1", "5"}});
}

TEST_F(Expressions, an_empty_cell_is_zero_and_a_text_no_number) {
    expectAll({{L"E5", "0"},
               {L"E5+1", "1"},
               {L"1/E5", "####"},
               {L"A3", "text"},
               {L"(A3)", "text"},
               {L"A3+1", "####"},
               {L"-A3", "####"},
               {L"A3^E5", "####"}});
}

TEST_F(Expressions, errors_go_through_every_calculation) {
    expectAll({{L"D1", "####"}, {L"D1*0", "####"}, {L"Sum(A1,D1)", "####"}, {L"Average(A1:D1)", "####"}});
}

TEST_F(Expressions, a_text_of_marks_is_an_error_wherever_it_is_read) {
    const KdDbObjectId table = makeTable(4, 2);
    type(table, "A1", L"5");
    type(table, "A2", L" #### ");
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"A2", "####"},         {L"A2+1", "####"},           {L"Sum(A2)", "####"},
        {L"Sum(A1:A3)", "####"}, {L"Average(A1:A3)", "####"}, {L"Count(A1:A3)", "1"}};
    for (const auto& [expression, text] : cases) {
        formula(table, "B1", expression);
        EXPECT_EQ(shown(table, "B1"), text) << narrow(expression);
    }
    formula(table, "B1", L"Sum(A1:A3)");
    type(table, "A2", L"7");
    EXPECT_EQ(shown(table, "B1"), "12");
    type(table, "A2", L"####");
    EXPECT_EQ(shown(table, "B1"), "####");
}

TEST_F(Expressions, what_is_no_finite_number_is_an_error) {
    expectAll({{L"1/0", "####"},
               {L"0/0", "####"},
               {L"10^400", "####"},
               {L"(-8)^0.5", "####"},
               {L"1e999", "####"},
               {L"1e-999", "0"},
               {L"0^0", "1"}});
}

TEST_F(Expressions, sum_and_average_pass_over_texts_and_empty_cells) {
    expectAll({{L"Sum(A1:A3)", "12"},
               {L"Sum(A1:B3)", "10"},
               {L"Sum(E1:E6)", "0"},
               {L"Sum(A3)", "0"},
               {L"Average(A1:A6)", "6"},
               {L"Average(E1:E6)", "####"},
               {L"Average(A3)", "####"},
               {L"Sum(D2,A1:A2)", "24"}});
}

TEST_F(Expressions, count_counts_numbers_whatever_stands_beside_them) {
    expectAll({{L"Count(A1:C3)", "5"},
               {L"Count(A1:D2)", "5"},
               {L"Count(D1)", "0"},
               {L"Count(1/0,2,A3)", "1"},
               {L"Count(E1:E6)", "0"}});
}

TEST_F(Expressions, functions_take_any_arguments_and_nest) {
    expectAll({{L"SUM(1,2,3)", "6"},
               {L"sum(A1:A2)*2", "24"},
               {L"Sum ( A1 : A2 )", "12"},
               {L"Sum(A1:A2,Sum(1,2)*2,-A1)", "13"},
               {L"Average(Count(A1:A2),Sum(1))", "1.5"}});
}

TEST_F(Expressions, ranges_may_be_given_from_any_corner) {
    expectAll({{L"Sum(A2:A1)", "12"}, {L"Sum(B3:A1)", "10"}, {L"Sum(B1:A2)", "9.5"}});
}

TEST_F(Expressions, a_range_is_no_operand) {
    expectAll({{L"A1:A2", "####"}, {L"A1:A2+1", "####"}, {L"-A1:B1", "####"}, {L"Sum(A1:A2+1)", "####"}});
}

TEST_F(Expressions, cells_that_the_table_has_not_are_broken) {
    expectAll({{L"A7", "####"},
               {L"G1", "####"},
               {L"Sum(A1:A7)", "####"},
               {L"Count(A7)", "####"},
               {L"#REF!", "####"},
               {L"Count(#REF!,1)", "####"},
               {L"Table(999999).A1", "####"},
               {L"Table(0).A1", "####"}});
}

TEST_F(Expressions, what_is_no_expression_is_an_error) {
    for (const wchar_t* wrong : {L"",
                                 L" ",
                                 L"1+",
                                 L"*2",
                                 L"1 2",
                                 L"(1",
                                 L"1)",
                                 L"()",
                                 L"Sum()",
                                 L"Sum(1,)",
                                 L"Sum(,1)",
                                 L"1,2",
                                 L"Max(1)",
                                 L"A",
                                 L"A0",
                                 L"1A",
                                 L"A1B",
                                 L"A1:",
                                 L":A1",
                                 L"A1:B2:C3",
                                 L"$1",
                                 L"A$",
                                 L"$$A1",
                                 L"#REF",
                                 L"Table",
                                 L"Table(1)",
                                 L"Table().A1",
                                 L"Table(1).",
                                 L"Table(A1)",
                                 L"1..2",
                                 L".",
                                 L"1e",
                                 L"1e+",
                                 L"%",
                                 L"%<\\_FldIdx x>%",
                                 L"\u0661",
                                 L"A1 B1",
                                 L"Sum A1",
                                 L"=1",
                                 L"\\AcExpr 1",
                                 L"Table(1).Sum(A1)",
                                 L"1=1",
                                 L"Table(99999999999999999999).A1",
                                 L"A99999999999",
                                 L"ABCDEFGHIJ1",
                                 L"inf",
                                 L"nan"}) {
        EXPECT_FALSE(parseExpression(wrong).valid) << narrow(wrong);
    }
    expectAll({{L"1+", "####"}, {L"Max(1)", "####"}, {L"1)+(2", "####"}});
}

TEST_F(Expressions, a_formula_may_stand_in_a_formula) {
    expectAll({{L"\\AcExpr (A1+1)*2", "12"}, {L"2*\\AcExpr(A1)", "10"}});
}

TEST_F(Expressions, deep_nesting_neither_overflows_nor_changes_the_result) {
    constexpr int depth = 100'000;
    EXPECT_EQ(result(std::wstring(depth, L'(') + L"7" + std::wstring(depth, L')')), "7");
    EXPECT_EQ(result(std::wstring(depth, L'-') + L"7"), "7");
    std::wstring calls;
    for (int i = 0; i < depth; ++i) calls += L"Sum(";
    EXPECT_EQ(result(calls + L"7" + std::wstring(depth, L')')), "7");
    std::wstring powers = L"1";
    for (int i = 0; i < depth; ++i) powers += L"^-1";
    EXPECT_EQ(result(powers), "1");
}

TEST_F(Expressions, a_text_that_is_copied_reads_as_it_did) {
    const KdDbObjectId table = makeTable(2, 2);
    type(table, "A1", L"{\\fArial;\\{50\\\\60\\}}");
    formula(table, "B1", L"A1");
    EXPECT_EQ(shown(table, "B1"), "\\{50\\\\60\\}") << "braces and backslashes are no codes";
}

// ---- formulas as typed

TEST(TypedFormulas, are_written_in_the_usual_case) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"1+2", L"1+2"},
        {L"sum(a1:b2)", L"Sum(A1:B2)"},
        {L"AVERAGE( c4:A1 ) * 2", L"Average( A1:C4 ) * 2"},
        {L"$a1+b$2", L"$A1+B$2"},
        {L"table( 12 ) . a1", L"Table(12).A1"},
        {L"c$3:$a1", L"$A1:C$3"},
        {L"count(TABLE(7).a1:b2)", L"Count(Table(7).A1:B2)"},
        {L"\uFF21\uFF11\uFF0B\uFF08\uFF12\uFF0A\uFF13\uFF09", L"A1+(2*3)"},
        {L"%<\\_FldIdx 0>%*2", L"%<\\_FldIdx 0>%*2"},
    };
    for (const auto& [typed, expected] : cases) {
        KdString code;
        EXPECT_TRUE(kdadConvertExprToFieldCode(typed, code)) << narrow(typed);
        EXPECT_EQ(narrow(code.str()), narrow(expected));
        KdString again;
        EXPECT_TRUE(kdadConvertExprToFieldCode(code, again));
        EXPECT_EQ(again, code) << "once is enough";
    }
}

TEST(TypedFormulas, what_is_none_stays_as_typed) {
    for (const wchar_t* wrong : {L"", L"sum(", L"hello a1", L"1+2)"}) {
        KdString code(L"before");
        EXPECT_FALSE(kdadConvertExprToFieldCode(wrong, code));
        EXPECT_EQ(code, KdString(wrong));
    }
}

TEST(TypedFormulas, what_is_picked_reads_back) {
    KdString text;
    ASSERT_TRUE(kdadConvertToFormulaExpr({1, 26, 3, 701}, L"Sum", KdDbObjectId(42), text));
    const auto parsed = parseExpression(text.str());
    ASSERT_TRUE(parsed.valid);
    ASSERT_EQ(parsed.references.size(), 1U);
    EXPECT_EQ(parsed.references[0].reference.cells, (KdCellRange{1, 26, 3, 701}));
    EXPECT_EQ(parsed.references[0].reference.table, KdDbObjectId(42));
}

}  // namespace
