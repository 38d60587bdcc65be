// The loop over cells in the in-place editor, with a user who types.

#include "host/db/access.h"
#include "kd/db/field.h"
#include "tests/module/edit/celleditfixture.h"

namespace kdtest {
namespace {

TEST_F(CellEdit, cells_are_edited_one_after_another_until_the_end) {
    const KdDbObjectId id = add(TableBuilder(2, 2).fill().build());
    typist.types({{L"a", 9}, leave(9), {L"c", 9}, {L"d", 9}});
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_EQ(openedWith(), (Words{L"A1", L"B1", L"A2", L"B2"}));
    EXPECT_EQ(textsOf(id), "|a|B1|\n|c|d|\n");
    EXPECT_EQ(typist.left(), 0u);
}

TEST_F(CellEdit, the_first_cell_opens_with_its_text_selected_and_the_next_as_from_a_neighbour) {
    const KdDbObjectId id = add(TableBuilder(1, 2).fill().build());
    typist.types({leave(9), leave(9)});
    edit(id, 0, 0);
    ASSERT_EQ(typist.opened.size(), 2u);
    EXPECT_EQ(typist.opened[0].mode, kMTextEditorSelectAll);
    EXPECT_EQ(typist.opened[1].mode, kMTextEditorFromNeighbour);
}

TEST_F(CellEdit, Right_at_the_end_opens_the_same_cell_again) {
    const KdDbObjectId id = add(TableBuilder(1, 2).fill().build());
    typist.types({leave(39), leave(39), leave(39), leave(0)});
    edit(id, 0, 0);
    EXPECT_EQ(openedWith(), (Words{L"A1", L"B1", L"B1", L"B1"}));
}

TEST_F(CellEdit, Down_in_the_last_row_opens_a_cell_of_that_row_and_Enter_ends) {
    const KdDbObjectId id = add(TableBuilder(2, 1).fill().build());
    typist.types({leave(40), leave(40), leave(13)});
    edit(id, 0, 0);
    EXPECT_EQ(openedWith(), (Words{L"A1", L"A2", L"A2"}));
}

TEST_F(CellEdit, a_click_outside_keeps_the_text_and_ends) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    typist.types({{L"kept", kMTextEditorOutside}});
    EXPECT_TRUE(edit(id, 0, 1));
    EXPECT_EQ(textsOf(id), "||kept|\n|||\n");
    EXPECT_EQ(selection(id), KdCellRange());
}

TEST_F(CellEdit, Ctrl_and_Enter_ends_on_any_cell_with_the_text_kept) {
    const KdDbObjectId id = add(TableBuilder(3, 1).build());
    typist.types({{L"one", 13, [](KdDbMText&) { kdhost::keepKeyState(Qt::ControlModifier); }}});
    edit(id, 0, 0);
    kdhost::releaseKeyState();
    EXPECT_EQ(typist.opened.size(), 1u);
    EXPECT_EQ(textsOf(id), "|one|\n||\n||\n");
}

TEST_F(CellEdit, Esc_leaves_the_cell_as_it_was_and_selects_it_again) {
    const KdDbObjectId id = add(TableBuilder(3, 3).fill().merge("B2:C3").build());
    typist.types({leave(27)});
    EXPECT_TRUE(edit(id, 1, 1));
    EXPECT_EQ(selection(id), cells("B2:C3"));
}

TEST_F(CellEdit, after_every_other_end_nothing_is_selected) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    host.editor().pickFirst().selectCells(id, cells("A1"));
    typist.types({leave(0)});
    edit(id, 0, 0);
    EXPECT_EQ(selection(id), KdCellRange());
    EXPECT_TRUE(host.editor().pickFirst().objects().empty());
}

TEST_F(CellEdit, text_typed_over_a_selected_cell_is_put_into_the_first_cell_only) {
    const KdDbObjectId id = add(TableBuilder(1, 2).fill().build());
    typist.types({leave(9), leave(9)});
    EXPECT_TRUE(typeOver(id, "A1", L"x"));
    EXPECT_EQ(openedWith(), (Words{L"x", L"B1"}));
    EXPECT_EQ(typist.opened[0].mode, kMTextEditorCaretAtEnd);
    EXPECT_EQ(typist.opened[1].mode, kMTextEditorFromNeighbour);
    EXPECT_EQ(textsOf(id), "|x|B1|\n");
}

TEST_F(CellEdit, a_prefill_is_put_into_the_first_cell_only) {
    const KdDbObjectId id = add(TableBuilder(1, 2).fill().build());
    typist.types({leave(9), leave(9)});
    edit(id, 0, 0, L"ready");
    EXPECT_EQ(openedWith(), (Words{L"ready", L"B1"}));
    EXPECT_EQ(typist.opened[0].mode, kMTextEditorCaretAtEnd);
}

TEST_F(CellEdit, a_word_for_the_selected_cells_acts_at_once_without_the_editor) {
    struct Row {
        const wchar_t* word;
        const char* from;
        const char* to;
    };
    const Row rows[] = {
        {L"*TAB", "B2", "C2"},      {L"*right", "C2", "A3"}, {L"*UP", "B2", "B1"},   {L"*LEFT", "A2", "C1"},
        {L"*ShiftTab", "B2", "A2"}, {L"*DOWN", "B2", "B3"},  {L"*PGUP", "B3", "B1"}, {L"*PGDN", "B1", "B3"},
    };
    const KdDbObjectId id = add(TableBuilder(3, 3).fill().build());
    for (const Row& row : rows) {
        EXPECT_TRUE(typeOver(id, row.from, row.word)) << row.from;
        EXPECT_EQ(selection(id), cells(row.to)) << row.from << " to " << row.to;
    }
    EXPECT_TRUE(typist.opened.empty());
}

TEST_F(CellEdit, the_word_for_deleting_empties_the_selected_cells) {
    const KdDbObjectId id = add(TableBuilder(2, 2).fill().build());
    EXPECT_TRUE(typeOver(id, "A1:B1", L"*DELETE"));
    EXPECT_EQ(textsOf(id), "|||\n|A2|B2|\n");
    EXPECT_TRUE(typist.opened.empty());
}

TEST_F(CellEdit, a_locked_cell_gets_a_word_and_no_editor) {
    const KdDbObjectId id = add(TableBuilder(2, 2).lock("B1").build());
    EXPECT_FALSE(edit(id, 0, 1));
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_EQ(L"\n" + host.lastMessage(), text(2220));
}

TEST_F(CellEdit, a_block_cell_gets_neither_editor_nor_word) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    change(id, [&](KdDbTable& table) { table.setBlockTableRecordId(0, 0, 0, host.database().modelSpaceId(), true); });
    const std::size_t words = host.messages().size();
    EXPECT_FALSE(edit(id, 0, 0));
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_EQ(host.messages().size(), words);
}

TEST_F(CellEdit, a_block_cell_whose_content_is_locked_gets_the_word) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    change(id, [&](KdDbTable& table) {
        table.setBlockTableRecordId(0, 0, 0, host.database().modelSpaceId(), true);
        table.setCellState(0, 0, KdDb::kCellStateContentLocked);
    });
    EXPECT_FALSE(edit(id, 0, 0));
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_EQ(L"\n" + host.lastMessage(), text(2220));
}

TEST_F(CellEdit, a_cell_outside_the_table_is_refused_without_a_prompt) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    for (const auto& [row, column] : {std::pair(-1, 0), {0, -1}, {2, 0}, {0, 2}}) EXPECT_FALSE(edit(id, row, column));
    EXPECT_FALSE(edit(KdDbObjectId::kNull, 0, 0));
    EXPECT_TRUE(prompts.empty());
    EXPECT_TRUE(typist.opened.empty());
}

TEST_F(CellEdit, the_table_is_open_for_read_alone_while_the_editor_is_up) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    int looked = 0;
    typist.look = [&](KdDbMText&) {
        ++looked;
        const std::vector<kdhost::OpenObject> open = kdhost::openObjects();
        ASSERT_EQ(open.size(), 1u);
        EXPECT_EQ(open[0].id, id);
        EXPECT_FALSE(open[0].writing);
    };
    typist.types({{L"x", 0}});
    edit(id, 0, 0);
    EXPECT_EQ(looked, 1);
}

TEST_F(CellEdit, the_text_lies_over_the_cell_with_its_looks) {
    auto built = TableBuilder(2, 2).text("A1", L"x").merge("A1:B1").align("A1", KdDb::kMiddleCenter).build();
    const KdDbObjectId id = add(std::move(built), {100.0, 50.0, 0.0});
    change(id, [](KdDbTable& table) {
        table.setTextHeight(0, 0, 3.0);
        table.setContentColor(0, 0, KdCmColor::fromIndex(1));
        table.setBackgroundColor(0, 0, KdCmColor::fromIndex(5));
    });
    typist.look = [&](KdDbMText& text) {
        EXPECT_TRUE(text.location().isEqualTo({120.0, 45.0, 0.0}, 1e-9))
            << text.location().x << " " << text.location().y;
        EXPECT_EQ(text.attachment(), KdDbMText::kMiddleCenter);
        EXPECT_NEAR(text.width(), 40.0 - 2.0 * 1.5, 1e-9);
        EXPECT_NEAR(text.height(), 10.0 - 2.0 * 1.5, 1e-9);
        EXPECT_EQ(text.textHeight(), 3.0);
        EXPECT_EQ(text.color(), KdCmColor::fromIndex(1));
        EXPECT_TRUE(text.backgroundFillOn());
        EXPECT_EQ(text.backgroundFillColor(), KdCmColor::fromIndex(5));
        EXPECT_EQ(text.backgroundScaleFactor(), 1.0);
        EXPECT_FALSE(text.useBackgroundColorOn());
    };
    typist.types({leave(0)});
    edit(id, 0, 0);
    EXPECT_EQ(typist.opened.size(), 1u);
}

TEST_F(CellEdit, what_the_user_changes_of_the_looks_goes_to_the_cell) {
    const KdDbObjectId id = add(TableBuilder(1, 1).build());
    typist.types({{L"x", 0, [](KdDbMText& text) {
                       text.setAttachment(KdDbMText::kBottomRight);
                       text.setTextHeight(7.0);
                   }}});
    edit(id, 0, 0);
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    EXPECT_EQ(table->alignment(0, 0), KdDb::kBottomRight);
    EXPECT_EQ(table->textHeight(0, 0), 7.0);
}

TEST_F(CellEdit, a_typed_formula_becomes_a_field) {
    const KdDbObjectId id = add(TableBuilder(2, 1).build());
    typist.types({{L"=1+2", 13}, {L"=", 13}});
    edit(id, 0, 0);
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    EXPECT_FALSE(table->fieldId(0, 0).isNull());
    const OpenObject<KdDbField> field(table->fieldId(0, 0), KdDb::kForRead);
    EXPECT_EQ(field->getFieldCode(KdDbField::kAddChildren).str(), L"\\AcExpr (1+2)");
    EXPECT_EQ(field->getFieldCode(KdDbField::kFieldCode).str(), L"%<\\_FldIdx 0>%");
    EXPECT_EQ(field->ownerId(), id);
    EXPECT_TRUE(table->fieldId(1, 0).isNull()) << "an equals sign alone is text";
    EXPECT_STREQ(table->textString(1, 0), L"=");
}

TEST_F(CellEdit, equals_signs_and_blanks_before_a_formula_are_taken_off) {
    const KdDbObjectId id = add(TableBuilder(1, 1).build());
    typist.types({{L"= =5", 0}});
    edit(id, 0, 0);
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    const OpenObject<KdDbField> field(table->fieldId(0, 0), KdDb::kForRead);
    ASSERT_TRUE(field);
    EXPECT_EQ(field->getFieldCode(KdDbField::kAddChildren).str(), L"\\AcExpr (5)");
}

TEST_F(CellEdit, a_formula_is_edited_as_typed_and_stays_the_same_field) {
    const KdDbObjectId id = add(TableBuilder(1, 1).build());
    typist.types({{L"=1+2", 0}});
    edit(id, 0, 0);
    const KdDbObjectId before = OpenObject<KdDbTable>(id, KdDb::kForRead)->fieldId(0, 0);
    typist.types({{L"=2*4", 0}});
    edit(id, 0, 0);
    EXPECT_EQ(openedWith(), (Words{L"", L"=1+2"}));
    const OpenObject<KdDbTable> table(id, KdDb::kForRead);
    EXPECT_EQ(table->fieldId(0, 0), before);
    const OpenObject<KdDbField> field(before, KdDb::kForRead);
    EXPECT_EQ(field->getFieldCode(KdDbField::kAddChildren).str(), L"\\AcExpr (2*4)");
}

TEST_F(CellEdit, TableEdit_is_one_step_of_undo_over_all_cells) {
    const KdDbObjectId id = add(TableBuilder(1, 2).build());
    change(id, [](KdDbTable& table) { table.setSubSelection(0, 0, 0, 0); });
    typist.types({{L"a", 9}, {L"b", 9}});
    EXPECT_TRUE(CVqTableCommon::TableEdit(id));
    EXPECT_EQ(textsOf(id), "|a|b|\n");
    EXPECT_EQ(steps().back(), L"TableEdit");
    EXPECT_EQ(undoHistory().undoTitle(), text(2093));
    EXPECT_EQ(undoHistory().undo(), Kdad::eOk);
    EXPECT_EQ(textsOf(id), "|||\n");
}

TEST_F(CellEdit, the_command_edits_the_cell_that_is_picked) {
    const KdDbObjectId id = add(TableBuilder(2, 2).fill().build());
    typist.types({{L"new", 0}});
    answers({Step(L"25,-15")});
    const ResourceScope resources;
    tableEditEntry();
    EXPECT_EQ(textsOf(id), "|A1|B1|\n|A2|new|\n");
}

TEST_F(CellEdit, the_command_starts_in_the_cell_that_was_selected) {
    const KdDbObjectId id = add(TableBuilder(2, 2).fill().build());
    host.editor().pickFirst().selectCells(id, cells("B1"));
    typist.types({leave(0)});
    answers({Step(L"")});
    const ResourceScope resources;
    tableEditEntry();
    EXPECT_EQ(openedWith(), (Words{L"B1"}));
}

}  // namespace
}  // namespace kdtest
