// References that follow rows and columns.

#include "host/db/access.h"
#include "host/db/opening.h"
#include "tests/host/field/formulafixture.h"
#include "tests/support/objects.h"

namespace {

class References : public kdtest::FormulaTest {
protected:
    /// The code of the formula in H9 of a table of 9 by 8 cells, after the change.
    template <class Change>
    std::string after(const std::wstring& expression, Change change) {
        m_table = makeTable(9, 8);
        formula(m_table, "H9", expression);
        const KdDbObjectId field = kdhost::peek<KdDbTable>(m_table)->fieldId(8, 7);
        edit(m_table, change);
        const std::string whole =
            kdtest::narrow(kdhost::peek<KdDbField>(field)->getFieldCode(KdDbField::kAddChildren).str());
        const std::size_t begin = std::string("\\AcExpr (").size();
        return whole.substr(begin, whole.size() - begin - 1);
    }
    static auto insertRows(int at, int count) {
        return [=](KdDbTable& table) { table.insertRowsAndInherit(at, 0, count); };
    }
    static auto deleteRows(int at, int count) {
        return [=](KdDbTable& table) { table.deleteRows(at, count); };
    }
    static auto insertColumns(int at, int count) {
        return [=](KdDbTable& table) { table.insertColumnsAndInherit(at, 0, count); };
    }
    static auto deleteColumns(int at, int count) {
        return [=](KdDbTable& table) { table.deleteColumns(at, count); };
    }
    KdDbObjectId m_table;
};

TEST_F(References, move_with_what_is_inserted_before_them) {
    EXPECT_EQ(after(L"B3+B2", insertRows(2, 2)), "B5+B2");
    EXPECT_EQ(after(L"B3", insertRows(3, 2)), "B3");
    EXPECT_EQ(after(L"B3+A1", insertColumns(1, 1)), "C3+A1");
    EXPECT_EQ(after(L"Z1+$B$3", insertRows(0, 1)), "Z2+$B$4") << "dollar signs are for copies";
}

TEST_F(References, to_ranges_widen_by_what_is_inserted_inside) {
    EXPECT_EQ(after(L"Sum(B2:C4)", insertRows(1, 1)), "Sum(B3:C5)");
    EXPECT_EQ(after(L"Sum(B2:C4)", insertRows(2, 3)), "Sum(B2:C7)");
    EXPECT_EQ(after(L"Sum(B2:C4)", insertRows(4, 1)), "Sum(B2:C4)");
    EXPECT_EQ(after(L"Sum(B2:C4)", insertColumns(2, 1)), "Sum(B2:D4)");
    EXPECT_EQ(after(L"Sum(B2:C4)", insertColumns(3, 1)), "Sum(B2:C4)");
}

TEST_F(References, to_what_is_deleted_are_broken) {
    EXPECT_EQ(after(L"B3+B5", deleteRows(2, 1)), "#REF!+B4");
    EXPECT_EQ(after(L"B3", deleteRows(0, 2)), "B1");
    EXPECT_EQ(after(L"B3+$A1", deleteColumns(0, 1)), "A3+#REF!");
    EXPECT_EQ(after(L"Sum(B2:B3)*2", deleteRows(1, 2)), "Sum(#REF!)*2");
}

TEST_F(References, to_ranges_narrow_by_what_is_deleted_of_them) {
    EXPECT_EQ(after(L"Sum(B2:C5)", deleteRows(0, 2)), "Sum(B1:C3)");
    EXPECT_EQ(after(L"Sum(B2:C5)", deleteRows(2, 1)), "Sum(B2:C4)");
    EXPECT_EQ(after(L"Sum(B2:C5)", deleteRows(4, 2)), "Sum(B2:C4)");
    EXPECT_EQ(after(L"Sum(B2:C5)", deleteColumns(1, 1)), "Sum(B2:B5)");
    EXPECT_EQ(after(L"Sum(B2:C5)", deleteColumns(0, 2)), "Sum(A2:A5)");
}

TEST_F(References, follow_a_table_that_grows_and_shrinks_at_its_end) {
    EXPECT_EQ(after(L"Sum(A1:A9)+A12", [](KdDbTable& table) { table.setSize(12, 8); }), "Sum(A1:A9)+A12");
    EXPECT_EQ(shown(m_table, "H9"), "0") << "the cell is there now";
    EXPECT_EQ(after(L"Sum(A1:B9)+Count(A8:A9)", [](KdDbTable& table) { table.setSize(7, 1); }),
              "Sum(A1:A7)+Count(#REF!)");
    EXPECT_EQ(after(L"B2", [](KdDbTable& table) { table.setNumRows(1); }), "#REF!");
}

TEST_F(References, keep_their_writing_and_what_is_around_them) {
    EXPECT_EQ(after(L" ( A1 + B3 ) * Sum( $B3:C$4 , 1e3 )", insertRows(2, 1)), " ( A1 + B4 ) * Sum( $B4:C$5 , 1e3 )");
}

TEST_F(References, to_the_first_cell_of_a_merge_follow_its_content) {
    const auto merged = [](KdDbTable& table) {
        table.setTextString(1, 1, L"5");
        table.mergeCells(1, 3, 1, 2);
    };
    EXPECT_EQ(after(L"B2+1",
                    [&](KdDbTable& table) {
                        merged(table);
                        table.deleteRows(1, 1);
                    }),
              "B2+1");
    EXPECT_EQ(shown(m_table, "H8"), "6");
    EXPECT_EQ(after(L"B2+1",
                    [&](KdDbTable& table) {
                        merged(table);
                        table.deleteColumns(1, 1);
                    }),
              "B2+1");
    EXPECT_EQ(shown(m_table, "G9"), "6");
    EXPECT_EQ(after(L"B2+1",
                    [&](KdDbTable& table) {
                        merged(table);
                        table.deleteRows(1, 3);
                    }),
              "#REF!+1");
}

TEST_F(References, of_a_formula_that_moves_follow_too) {
    const KdDbObjectId table = makeTable(4, 2);
    type(table, "A3", L"5");
    formula(table, "B4", L"A3*2");
    edit(table, insertRows(0, 1));
    EXPECT_EQ(code(table, "B5"), "A4*2");
    type(table, "A4", L"6");
    EXPECT_EQ(shown(table, "B5"), "12");
    edit(table, deleteRows(1, 2));
    EXPECT_EQ(code(table, "B3"), "A2*2");
    EXPECT_EQ(shown(table, "B3"), "12");
    edit(table, deleteColumns(0, 1));
    EXPECT_EQ(shown(table, "A3"), "####");
    undo();
    EXPECT_EQ(shown(table, "B3"), "12");
}

TEST_F(References, follow_several_changes_in_one_open) {
    const KdDbObjectId table = makeTable(5, 2);
    type(table, "A5", L"3");
    formula(table, "B1", L"A5");
    edit(table, [](KdDbTable& open) {
        open.insertRowsAndInherit(2, 0, 2);
        open.setTextString(6, 0, L"4");
        open.deleteRows(1, 2);
        kdtest::putFormula(open, 1, 1, L"A5*10");
        open.insertColumnsAndInherit(0, 0, 1);
    });
    EXPECT_EQ(code(table, "C1"), "B5");
    EXPECT_EQ(shown(table, "C1"), "4");
    EXPECT_EQ(code(table, "C2"), "B5*10") << "a formula set on the way follows what comes after it";
    EXPECT_EQ(shown(table, "C2"), "40");
}

TEST_F(References, are_rewritten_while_somebody_reads_the_field) {
    const KdDbObjectId table = makeTable(3, 2);
    formula(table, "B1", L"A2");
    auto* field = kdtest::mustOpen<KdDbField>(kdhost::peek<KdDbTable>(table)->fieldId(0, 1));
    KdDbField* expression = nullptr;
    ASSERT_EQ(field->getChild(0, expression, KdDb::kForRead), Kdad::eOk);
    edit(table, insertRows(1, 1));
    EXPECT_EQ(kdtest::narrow(expression->getFieldCode(KdDbField::kFieldCode).str()), "\\AcExpr (A3)");
    expression->close();
    field->close();
    EXPECT_EQ(code(table, "B1"), "A3");
}

TEST_F(References, into_a_table_in_memory_lead_nowhere) {
    KdDbTable table;
    table.setSize(2, 2);
    const KdDbObjectId field = kdtest::postFormula(m_database, L"\\AcExpr (A1)", {});
    table.setFieldId(0, 1, field);
    table.insertRowsAndInherit(0, 0, 1);
    table.deleteRows(0, 1);
    EXPECT_STREQ(table.textString(0, 1), L"####");
}

}  // namespace
