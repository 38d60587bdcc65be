// Cells from the clipboard: where they go, what refuses them, and how they get there whole.

#include "kd/db/field.h"
#include "tests/module/exchange/clipfixture.h"

namespace {

using kdtest::BoxAnswer;
using kdtest::BoxAnswers;
using kdtest::cells;
using kdtest::describe;
using kdtest::texts;

class CellPastes : public kdtest::CellClipboard {
protected:
    /// Pastes with one message, which leaves the table as it was.
    void expectMessage(KdDbObjectId id, const char* range, unsigned textNumber) {
        const std::string before = describe(look(id));
        const std::vector<std::wstring> stepsBefore = steps();
        const auto countBefore = blocksAndEntities();
        BoxAnswers boxes({BoxAnswer::Escape});
        EXPECT_EQ(paste(id, range), 0);
        EXPECT_EQ(steps(), stepsBefore) << "what is refused is no step of undo";
        EXPECT_EQ(blocksAndEntities(), countBefore);
        ASSERT_EQ(boxes.count(), 1);
        EXPECT_EQ(boxes.seen()[0].text, CellClipboard::textNumber(textNumber));
        EXPECT_FALSE(boxes.seen()[0].text.empty());
        EXPECT_EQ(boxes.seen()[0].icon, QMessageBoxCritical);
        EXPECT_EQ(describe(look(id)), before);
    }

    static constexpr int QMessageBoxCritical = 3;
    static constexpr unsigned doesNotFit = 2116;
    static constexpr unsigned locked = 2184;
    static constexpr unsigned mergesDiffer = 2185;
};

TEST_F(CellPastes, of_a_block_lay_it_down_from_the_first_selected_cell_on) {
    const KdDbObjectId id = add(table(5, 5).fill().align("B2", KdDb::kBottomRight));
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    EXPECT_EQ(paste(id, "C3:D4"), 1);
    EXPECT_EQ(texts(look(id)),
              "|A1|B1|C1|D1|E1|\n|A2|B2|C2|D2|E2|\n|A3|B3|A1|B1|E3|\n|A4|B4|A2|B2|E4|\n|A5|B5|C5|D5|E5|\n");
    EXPECT_EQ(look(id).alignment(3, 3), KdDb::kBottomRight);
    EXPECT_EQ(paste(id, "D1"), 1) << "the selection grows to what comes";
    EXPECT_STREQ(look(id).textString(1, 4), L"B2");
    EXPECT_EQ(paste(id, "A4:E5"), 1) << "and shrinks";
    EXPECT_STREQ(look(id).textString(4, 1), L"B2");
    EXPECT_STREQ(look(id).textString(4, 2), L"C5");
}

TEST_F(CellPastes, of_one_cell_fill_every_selected_one_with_content_and_looks) {
    const KdDbObjectId id = add(table(4, 4).fill().align("A3", KdDb::kBottomRight).cellStyle("A3", L"_TITLE"));
    ASSERT_EQ(copy(id, "A3"), 1);
    EXPECT_EQ(paste(id, "B2:D4"), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|C1|D1|\n|A2|A3|A3|A3|\n|A3|A3|A3|A3|\n|A4|A3|A3|A3|\n");
    for (const auto& [row, column] : {std::pair{1, 1}, {1, 3}, {3, 1}, {3, 3}}) {
        EXPECT_EQ(look(id).alignment(row, column), KdDb::kBottomRight);
        EXPECT_STREQ(look(id).cellStyle(row, column), L"_TITLE");
    }
}

TEST_F(CellPastes, go_to_whole_rows_and_reversed_selections) {
    const KdDbObjectId id = add(table(3, 2).fill());
    ASSERT_EQ(copy(id, "A1:B1"), 1);
    select(id, KdCellRange{2, -1, 2, -1});
    EXPECT_EQ(CVqTableCommon::PasteTableCells(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n|A2|B2|\n|A1|B1|\n");
    select(id, KdCellRange{1, 1, 1, 0});
    EXPECT_EQ(CVqTableCommon::PasteTableCells(id), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|\n|A1|B1|\n|A1|B1|\n");
}

TEST_F(CellPastes, go_to_other_drawings) {
    const KdDbObjectId id = add(table(2, 2).fill());
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    host.run(L"NEW\n");
    ASSERT_EQ(host.documents().documentCount(), 2);
    const KdDbObjectId other = add(table(3, 3));
    ASSERT_NE(look(other).database(), look(id).database());
    EXPECT_EQ(paste(other, "B2"), 1);
    EXPECT_EQ(texts(look(other)), "||||\n||A1|B1|\n||A2|B2|\n");
}

TEST_F(CellPastes, take_formulas_along_that_read_the_cells_pasted) {
    const KdDbObjectId id = add(table(4, 4).text("A1", L"2").text("B1", L"3"));
    putPlain("=A1*B1");
    ASSERT_EQ(paste(id, "C1"), 1);
    ASSERT_STREQ(look(id).textString(0, 2), L"6");
    ASSERT_EQ(copy(id, "A1:C1"), 1);
    EXPECT_EQ(paste(id, "B3:D3"), 1);
    EXPECT_STREQ(look(id).textString(2, 3), L"6");
    EXPECT_NE(look(id).fieldId(2, 3), look(id).fieldId(0, 2));
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->setTextString(2, 1, L"10");
    EXPECT_STREQ(look(id).textString(2, 3), L"30");
    EXPECT_STREQ(look(id).textString(0, 2), L"6");
}

/// Formulas whose cells stay behind, as in spreadsheets.
class FormulaPastes : public CellPastes {
protected:
    /// Numbers in A1 to B4, and in C1 a formula over them.
    KdDbObjectId sheet(const char* formula) {
        const KdDbObjectId id = add(table(4, 4).fill());
        OpenObject<KdDbTable> open(id, KdDb::kForWrite);
        for (int row = 0; row < 4; ++row) {
            for (int column = 0; column < 4; ++column) {
                open->setTextString(row, column, std::to_wstring(10 * row + column + 1).c_str());
            }
        }
        open.close();
        putPlain(formula);
        EXPECT_EQ(paste(id, "C1"), 1);
        return id;
    }
    static std::wstring code(KdDbObjectId id, int row, int column) {
        const OpenObject<KdDbField> field(look(id).fieldId(row, column), KdDb::kForRead);
        return field ? field->getFieldCode(KdDbField::kAddChildren).str() : L"(none)";
    }
};

TEST_F(FormulaPastes, copied_alone_read_what_lies_around_the_new_cell) {
    const KdDbObjectId id = sheet("=A1*B1");
    ASSERT_STREQ(look(id).textString(0, 2), L"2");
    ASSERT_EQ(copy(id, "C1"), 1);
    EXPECT_EQ(code(id, 0, 2), L"\\AcExpr (A1*B1)") << "the source keeps its own";
    EXPECT_EQ(paste(id, "C2:C4"), 1);
    EXPECT_EQ(code(id, 1, 2), L"\\AcExpr (A2*B2)");
    EXPECT_EQ(code(id, 3, 2), L"\\AcExpr (A4*B4)");
    EXPECT_STREQ(look(id).textString(1, 2), L"132");
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->setTextString(1, 0, L"2");
    EXPECT_STREQ(look(id).textString(1, 2), L"24");
    EXPECT_EQ(underWay(), 0);
}

TEST_F(FormulaPastes, keep_what_dollar_signs_fix_and_whole_ranges) {
    const KdDbObjectId id = sheet("=Sum(A1:B2)+$A$1+A$1");
    ASSERT_EQ(copy(id, "C1"), 1);
    EXPECT_EQ(paste(id, "D2"), 1);
    EXPECT_EQ(code(id, 1, 3), L"\\AcExpr (Sum(B2:C3)+$A$1+B$1)");
}

TEST_F(FormulaPastes, that_would_read_outside_the_table_are_broken) {
    const KdDbObjectId id = sheet("=A1*B1");
    ASSERT_EQ(copy(id, "C1"), 1);
    EXPECT_EQ(paste(id, "B2"), 1);
    EXPECT_EQ(code(id, 1, 1), L"\\AcExpr (#REF!*A2)");
    EXPECT_STREQ(look(id).textString(1, 1), L"####");
    ASSERT_EQ(copy(id, "B2"), 1);
    EXPECT_EQ(paste(id, "D2"), 1) << "what was broken stays so";
    EXPECT_EQ(code(id, 1, 3), L"\\AcExpr (#REF!*C2)");
}

TEST_F(FormulaPastes, copied_with_some_of_their_cells_read_as_from_the_place_they_came_from) {
    const KdDbObjectId id = sheet("=A1*B1");
    ASSERT_EQ(copy(id, "B1:C1"), 1);
    EXPECT_EQ(paste(id, "C3"), 1);
    EXPECT_EQ(code(id, 2, 3), L"\\AcExpr (B3*C3)");
    EXPECT_STREQ(look(id).textString(2, 3), L"44");
}

TEST_F(FormulaPastes, arrive_in_other_drawings_and_once_more_from_there) {
    const KdDbObjectId id = sheet("=A1*B1");
    ASSERT_EQ(copy(id, "C1"), 1);
    host.run(L"NEW\n");
    const KdDbObjectId other = add(table(3, 3).text("A2", L"5").text("B2", L"6"));
    EXPECT_EQ(paste(other, "C2"), 1);
    EXPECT_EQ(code(other, 1, 2), L"\\AcExpr (A2*B2)");
    EXPECT_STREQ(look(other).textString(1, 2), L"30");
    ASSERT_EQ(copy(other, "C2"), 1);
    EXPECT_EQ(paste(other, "C3"), 1);
    EXPECT_EQ(code(other, 2, 2), L"\\AcExpr (A3*B3)");
}

TEST_F(FormulaPastes, of_tables_whose_rows_went_by_an_edit_are_as_that_left_them) {
    const KdDbObjectId id = sheet("=A1*B1");
    ASSERT_EQ(copy(id, "C1"), 1);
    EXPECT_EQ(paste(id, "C4"), 1);
    OpenObject<KdDbTable>(id, KdDb::kForWrite)->deleteColumns(0, 1);
    EXPECT_EQ(code(id, 3, 1), L"\\AcExpr (#REF!*A4)");
    ASSERT_EQ(copy(id, "B4"), 1);
    EXPECT_EQ(paste(id, "C4"), 1);
    EXPECT_EQ(code(id, 3, 2), L"\\AcExpr (#REF!*B4)");
}

TEST_F(CellPastes, are_one_step_of_undo) {
    const KdDbObjectId id = add(table(4, 4).merge("A1:B2").fill());
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    const std::string before = describe(look(id));
    const auto countBefore = blocksAndEntities();
    const std::size_t stepsBefore = steps().size();
    EXPECT_EQ(paste(id, "C3:D4"), 1);
    ASSERT_EQ(steps().size(), stepsBefore + 1);
    EXPECT_EQ(steps().back(), L"PasteTable");
    EXPECT_EQ(look(id).getMergeRange(2, 2), cells("C3:D4"));
    const std::string after = describe(look(id));
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(describe(look(id)), before);
    EXPECT_EQ(blocksAndEntities(), countBefore);
    EXPECT_EQ(undoHistory().redo(), Kdad::eOk);
    EXPECT_EQ(describe(look(id)), after);
    EXPECT_EQ(blocksAndEntities(), countBefore);
    EXPECT_EQ(paste(id, "A3:B4"), 1) << "and again";
    EXPECT_EQ(look(id).getMergeRange(2, 0), cells("A3:B4"));
}

TEST_F(CellPastes, leave_no_other_table_in_the_drawing_not_even_in_a_block_that_is_gone) {
    const KdDbObjectId id = add(table(3, 3).fill());
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    ASSERT_EQ(paste(id, "B2"), 1);
    const KdDbObjectId next = add(table(1, 1));
    for (std::int64_t number = id.asInteger() + 1; number < next.asInteger(); ++number) {
        EXPECT_EQ(kdhost::peek<KdDbTable>(KdDbObjectId(static_cast<std::uint64_t>(number))), nullptr) << number;
    }
}

TEST_F(CellPastes, rebuild_merges_in_the_target) {
    const KdDbObjectId id = add(table(6, 6).merge("A1:B2").merge("D2:E2").fill());
    ASSERT_EQ(copy(id, "A1:C2"), 1);
    EXPECT_EQ(paste(id, "A4"), 1);
    EXPECT_EQ(look(id).getMergeRange(4, 1), cells("A4:B5"));
    EXPECT_STREQ(look(id).textString(3, 0), L"A1");
    EXPECT_EQ(paste(id, "D1"), 1) << "the target's merge lies within the one that comes";
    EXPECT_EQ(look(id).getMergeRange(1, 4), cells("D1:E2"));
    EXPECT_STREQ(look(id).textString(1, 5), L"C2");
}

TEST_F(CellPastes, that_stick_out_of_the_table_are_refused_and_told) {
    const KdDbObjectId id = add(table(5, 5).fill());
    ASSERT_EQ(copy(id, "A1:C3"), 1);
    expectMessage(id, "A5", doesNotFit);
    expectMessage(id, "A4:E5", doesNotFit);
    expectMessage(id, "D1", doesNotFit);
    EXPECT_EQ(paste(id, "C3"), 1) << "ends on the last row and column";
    EXPECT_STREQ(look(id).textString(4, 4), L"C3");
}

TEST_F(CellPastes, over_locked_cells_are_refused_and_told) {
    for (const KdDb::CellState state : {KdDb::kCellStateContentLocked, KdDb::kCellStateContentReadOnly}) {
        const KdDbObjectId id = add(table(5, 5).fill().lock("B4", state));
        ASSERT_EQ(copy(id, "A1:C2"), 1);
        expectMessage(id, "A3", locked);
        expectMessage(id, "A4", locked);
        expectMessage(id, "B4", locked);
        ASSERT_EQ(copy(id, "A1"), 1);
        expectMessage(id, "A4:C4", locked);
    }
}

TEST_F(CellPastes, over_locked_cells_of_the_last_column_leave_these_as_they_are) {
    const KdDbObjectId id = add(table(5, 3).fill().lock("C4"));
    ASSERT_EQ(copy(id, "A1:C1"), 1);
    const BoxAnswers boxes;
    EXPECT_EQ(paste(id, "A4:C4"), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|C1|\n|A2|B2|C2|\n|A3|B3|C3|\n|A1|B1|C4|\n|A5|B5|C5|\n");
}

TEST_F(CellPastes, into_a_single_column_are_never_refused_for_locks) {
    const KdDbObjectId id = add(table(4, 2).fill().lock("B2").lock("B3"));
    ASSERT_EQ(copy(id, "A1:A3"), 1);
    const BoxAnswers boxes;
    EXPECT_EQ(paste(id, "B1:B3"), 1);
    EXPECT_EQ(texts(look(id)), "|A1|A1|\n|A2|B2|\n|A3|B3|\n|A4|B4|\n");
    ASSERT_EQ(copy(id, "A4"), 1);
    EXPECT_EQ(paste(id, "B2:B3"), 1);
    EXPECT_STREQ(look(id).textString(1, 1), L"B2");
}

TEST_F(CellPastes, judge_a_merge_by_its_owner) {
    auto made = table(4, 4).fill().build();
    made->mergeCells(2, 3, 0, 1);
    made->setCellState(3, 1, KdDb::kCellStateContentLocked);
    const KdDbObjectId id = add(std::move(made));
    ASSERT_EQ(copy(id, "D1"), 1);
    const bool ownerEditable = look(id).isContentEditable(2, 0);
    const BoxAnswers boxes(ownerEditable ? std::vector<BoxAnswer>{} : std::vector{BoxAnswer::Escape});
    EXPECT_EQ(paste(id, "A3:C4"), ownerEditable ? 1 : 0);
}

TEST_F(CellPastes, whose_merges_differ_are_refused_and_told) {
    const KdDbObjectId id = add(table(7, 4).merge("A1:B2").merge("A5:C6").fill());
    ASSERT_EQ(copy(id, "A1:D3"), 1);
    expectMessage(id, "A5", mergesDiffer);
    ASSERT_EQ(copy(id, "A3:D4"), 1) << "no merges at all";
    expectMessage(id, "A5", mergesDiffer);
}

TEST_F(CellPastes, whose_merges_take_those_of_the_target_in_are_accepted) {
    const KdDbObjectId id = add(table(7, 4).merge("A1:C2").merge("A5:B5").fill());
    ASSERT_EQ(copy(id, "A1:D3"), 1);
    const BoxAnswers boxes;
    EXPECT_EQ(paste(id, "A5"), 1);
    EXPECT_EQ(look(id).getMergeRange(4, 0), cells("A5:C6"));
}

TEST_F(CellPastes, that_the_host_refuses_fail_without_a_word) {
    const KdDbObjectId id = add(table(5, 4).merge("C3:D3").fill());
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    const std::string before = describe(look(id));
    const std::size_t stepsBefore = steps().size();
    const BoxAnswers boxes;
    EXPECT_EQ(paste(id, "B2"), 0) << "the merge in the last row isn't looked at, and would be torn";
    EXPECT_EQ(describe(look(id)), before);
    EXPECT_EQ(steps().size(), stepsBefore);
}

TEST_F(CellPastes, whose_merges_differ_in_the_last_column_alone_take_the_place_of_the_targets) {
    const KdDbObjectId id = add(table(5, 4).merge("D3:D4").fill());
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    const BoxAnswers boxes;
    EXPECT_EQ(paste(id, "C3"), 1);
    EXPECT_EQ(texts(look(id)), "|A1|B1|C1|D1|\n|A2|B2|C2|D2|\n|A3|B3|A1|B1|\n|A4|B4|A2|B2|\n|A5|B5|C5|D5|\n");
}

// Three refusals have a message; a locked layer is none of them, as with every edit of a table.
TEST_F(CellPastes, onto_a_locked_layer_are_refused_without_a_word) {
    const KdDbObjectId id = add(table(3, 3).fill());
    ASSERT_EQ(copy(id, "A1"), 1);
    const std::string before = describe(look(id));
    const std::size_t stepsBefore = steps().size();
    const auto lock = [&](bool locked) {
        OpenObject<KdDbLayerTableRecord>(look(id).layerId(), KdDb::kForWrite)->setIsLocked(locked);
    };
    lock(true);
    const BoxAnswers boxes;
    EXPECT_EQ(paste(id, "B2"), 0);
    putPlain("text");
    EXPECT_EQ(paste(id, "B2"), 0);
    EXPECT_EQ(describe(look(id)), before);
    EXPECT_EQ(steps().size(), stepsBefore);
    EXPECT_EQ(underWay(), 0);
    lock(false);
    EXPECT_EQ(paste(id, "B2"), 1);
}

TEST_F(CellPastes, need_a_selection_and_a_table_open_for_write) {
    const KdDbObjectId id = add(table(3, 3).fill());
    ASSERT_EQ(copy(id, "A1"), 1);
    OpenObject<KdDbTable>(id, KdDb::kForRead)->clearSubSelection();
    EXPECT_EQ(CVqTableCommon::PasteTableCells(id), 0);
    putPlain("text");
    EXPECT_EQ(CVqTableCommon::PasteTableCells(id), 0);
    EXPECT_EQ(CVqTableCommon::PasteTableCells(KdDbObjectId::kNull), 0);
    CVqTableClipDataMgr manager;
    bool formula = false;
    EXPECT_EQ(manager.PastTableCells(nullptr, formula), 0);
    select(id, "A1");
    const OpenObject<KdDbTable> open(id, KdDb::kForRead);
    EXPECT_EQ(manager.PastTableCells(open.get(), formula), 0);
    EXPECT_FALSE(formula);
    EXPECT_STREQ(open->textString(0, 0), L"A1");
}

TEST_F(CellPastes, refuse_what_is_no_table_or_no_range) {
    auto target = table(2, 2).build();
    auto source = table(1, 2).build();
    CKdTableCellRange to = cells("A1:B1");
    CKdTableCellRange from = cells("A1:B1");
    CKdTableCellRange none;
    using Manager = CVqTableClipDataMgr;
    EXPECT_EQ(Manager::CanApplyCellProperties(target.get(), source.get(), to, from), 1);
    EXPECT_EQ(Manager::CanApplyCellProperties(nullptr, source.get(), to, from), 0);
    EXPECT_EQ(Manager::CanApplyCellProperties(target.get(), nullptr, to, from), 0);
    EXPECT_EQ(Manager::CanApplyCellProperties(target.get(), source.get(), none, from), 0);
    EXPECT_EQ(Manager::CanApplyCellProperties(target.get(), source.get(), to, none), 0);
    EXPECT_EQ(Manager::DoApplyCellProperties(target.get(), source.get(), to, from), 1);
    EXPECT_EQ(Manager::DoApplyCellProperties(nullptr, source.get(), to, from), 0);
    EXPECT_EQ(Manager::DoApplyCellProperties(target.get(), nullptr, to, from), 0);
    EXPECT_EQ(Manager::DoApplyCellProperties(target.get(), source.get(), cells("A1:C1"), from), 0);
    EXPECT_EQ(Manager::DoApplyCellProperties(target.get(), source.get(), to, cells("A2:B2")), 0);
    EXPECT_EQ(Manager::DoApplyCellProperties(target.get(), source.get(), cells("A1"), from), 0) << "not of one size";
    tagVqTableClipboardInfo info{};
    EXPECT_EQ(Manager().ApplyCellProperties(target.get(), nullptr), 0);
    EXPECT_EQ(Manager().ApplyCellProperties(nullptr, &info), 0);
    EXPECT_EQ(Manager().ApplyCellProperties(target.get(), &info), 0) << "no file name";
}

TEST_F(CellPastes, grow_the_target_range_to_the_sources_size) {
    auto target = table(4, 4).build();
    auto source = table(2, 3).build();
    CKdTableCellRange to = cells("B2");
    CKdTableCellRange from = cells("A1:C2");
    EXPECT_EQ(CVqTableClipDataMgr::CanApplyCellProperties(target.get(), source.get(), to, from), 1);
    EXPECT_EQ(to.asRange(), cells("B2:D3"));
    to = cells("A1:D4");
    CKdTableCellRange one = cells("A1");
    EXPECT_EQ(CVqTableClipDataMgr::CanApplyCellProperties(target.get(), source.get(), to, one), 1);
    EXPECT_EQ(to.asRange(), cells("A1:D4"));
}

TEST_F(CellPastes, show_no_box_without_a_text_for_it) {
    auto target = table(1, 1).build();
    auto source = table(2, 2).build();
    CKdTableCellRange to = cells("A1");
    CKdTableCellRange from = cells("A1:B2");
    const ResourceScope without(nullptr);
    const BoxAnswers boxes;
    EXPECT_EQ(CVqTableClipDataMgr::CanApplyCellProperties(target.get(), source.get(), to, from), 0);
}

TEST_F(CellPastes, stay_whole_when_any_open_fails) {
    const KdDbObjectId id = add(table(3, 3).fill());
    ASSERT_EQ(copy(id, "A1:B1"), 1);
    const std::string description = describe(look(id));
    const auto before = blocksAndEntities();
    int refused = 0;
    for (int number = 1; number <= 30; ++number) {
        select(id, "A3:B3");
        kdhost::faults().failOpenNumber = number;
        const int done = CVqTableCommon::PasteTableCells(id);
        kdhost::faults() = {};
        EXPECT_EQ(underWay(), 0);
        if (done == 0) {
            ++refused;
            EXPECT_EQ(describe(look(id)), description) << number;
        } else {
            EXPECT_STREQ(look(id).textString(2, 1), L"B1") << number;
        }
        EXPECT_EQ(blocksAndEntities(), before) << number;
        while (describe(look(id)) != description) {
            ASSERT_EQ(undoHistory().undo(), Kdad::eOk) << number;
        }
    }
    EXPECT_GE(refused, 3);
}

TEST_F(CellPastes, do_without_a_transaction_where_none_can_be_had) {
    const KdDbObjectId id = add(table(3, 3).fill());
    ASSERT_EQ(copy(id, "A1:B1"), 1);
    const auto before = blocksAndEntities();
    kdhost::faults().noTransaction = true;
    EXPECT_EQ(paste(id, "A3"), 1);
    BoxAnswers boxes({BoxAnswer::Escape});
    EXPECT_EQ(paste(id, "C3"), 0);
    EXPECT_EQ(boxes.count(), 1);
    EXPECT_EQ(blocksAndEntities(), before);
    EXPECT_STREQ(look(id).textString(2, 1), L"B1");
}

TEST_F(CellPastes, can_be_tested_before) {
    const KdDbObjectId id = add(table(5, 5).fill());
    EXPECT_EQ(canPaste(id, "E5"), 1) << "nothing, or text, goes anywhere";
    EXPECT_EQ(CVqTableClipDataMgr().CanPasteTableCell(nullptr), 0);
    OpenObject<KdDbTable>(id, KdDb::kForRead)->clearSubSelection();
    EXPECT_EQ(CVqTableClipDataMgr().CanPasteTableCell(&look(id)), 0);
    ASSERT_EQ(copy(id, "B2"), 1);
    EXPECT_EQ(canPaste(id, "A1:E5"), 1) << "so does one cell";
    ASSERT_EQ(copy(id, "A1:C3"), 1);
    EXPECT_EQ(canPaste(id, "C3"), 1) << "ends exactly on the last row and column";
    EXPECT_EQ(canPaste(id, "A5"), 0);
    EXPECT_EQ(canPaste(id, "A4"), 0);
    EXPECT_EQ(canPaste(id, "D1"), 0);
    EXPECT_EQ(canPaste(id, "D1:D3"), 0) << "as many rows are not enough";
    EXPECT_EQ(canPaste(id, "A4:C4"), 0) << "nor are as many columns";
    EXPECT_EQ(canPaste(id, "A1:E5"), 1);
    select(id, KdCellRange{3, 3, 5, 5});
    EXPECT_EQ(CVqTableClipDataMgr().CanPasteTableCell(&look(id)), 1) << "of one size, wherever it ends";
    putInfo(L"x", 2147483647, 1);
    EXPECT_EQ(canPaste(id, "C3"), 0);
}

TEST_F(CellPastes, are_marked_and_told_to_be_under_way) {
    const KdDbObjectId id = add(table(3, 3).fill());
    EXPECT_EQ(underWay(), 0);
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    EXPECT_EQ(underWay(), 0);
    BoxAnswers boxes({BoxAnswer::Escape});
    boxes.setLook([&] { EXPECT_EQ(underWay(), 1); });
    EXPECT_EQ(paste(id, "C3"), 0);
    EXPECT_EQ(boxes.count(), 1);
    EXPECT_EQ(underWay(), 0);
    ASSERT_EQ(cut(id, "A1"), 1);
    EXPECT_EQ(steps().back(), L"CutTableCell");
    EXPECT_EQ(paste(id, "C3"), 1);
    EXPECT_EQ(steps().back(), L"PasteTable");
}

}  // namespace
