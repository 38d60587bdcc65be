// How the loop over cells begins and ends: what refuses it, what the first input may be, and what is left behind.

#include <memory>

#include "host/db/access.h"
#include "host/ed/display.h"
#include "tests/module/edit/celleditfixture.h"

namespace kdtest {
namespace {

class CellEditEnds : public CellEdit {
protected:
    static bool toolbarShows() {
        KdCellRange cells;
        return CVqTableCommon::GetSelectRange(cells);
    }
};

// ---- before the editor

TEST_F(CellEditEnds, a_table_that_cannot_be_read_is_refused_without_a_prompt) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    {
        const OpenObject<KdDbTable> writer(id, KdDb::kForWrite);
        EXPECT_FALSE(edit(id, 0, 0));
    }
    EXPECT_FALSE(edit(host.database().layerTableId(), 0, 0));
    EXPECT_TRUE(prompts.empty());
    EXPECT_TRUE(typist.opened.empty());
}

TEST_F(CellEditEnds, a_table_that_cannot_be_written_gets_no_editor_and_counts_as_edited) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    host.editor().pickFirst().selectCells(id, cells("A1"));
    const OpenObject<KdDbTable> reader(id, KdDb::kForRead);
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_TRUE(host.editor().pickFirst().objects().empty());
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(CellEditEnds, Esc_at_the_first_input_is_refused_and_leaves_the_cells_selected) {
    const KdDbObjectId id = add(TableBuilder(2, 2).fill().build());
    EXPECT_FALSE(typeOver(id, "A1:B1", esc));
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_EQ(selection(id), cells("A1:B1"));
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(CellEditEnds, the_first_input_is_read_without_a_prompt_and_up_to_a_blank) {
    const KdDbObjectId id = add(TableBuilder(1, 1).build());
    host.editor().pickFirst().selectCells(id, cells("A1"));
    host.type(L"a b\n");
    const ResourceScope resources;
    EXPECT_TRUE(editTable(id, 0, 0, true, {}));
    EXPECT_EQ(openedWith(), (Words{L"a"}));
    host.editor().input().clear();
    EXPECT_TRUE(typeOver(id, "A1", L"x"));
    EXPECT_EQ(prompts, (Words{L""}));
}

TEST_F(CellEditEnds, a_word_that_is_none_of_those_for_the_selected_cells_is_text) {
    const KdDbObjectId id = add(TableBuilder(1, 1).text("A1", L"old").build());
    for (const wchar_t* word : {L"*ENTER", L"TAB", L"*TABS", L"*"}) {
        typist.opened.clear();
        EXPECT_TRUE(typeOver(id, "A1", word));
        EXPECT_EQ(openedWith(), (Words{word}));
    }
}

/// The words ask neither for content that can be edited nor for text.
TEST_F(CellEditEnds, a_word_for_the_selected_cells_acts_from_a_locked_cell_and_from_a_block) {
    const KdDbObjectId id = add(TableBuilder(2, 2).lock("A1").build());
    change(id, [&](KdDbTable& table) { table.setBlockTableRecordId(0, 1, 0, host.database().modelSpaceId(), true); });
    EXPECT_TRUE(typeOver(id, "A1", L"*TAB"));
    EXPECT_EQ(selection(id), cells("B1"));
    EXPECT_TRUE(typeOver(id, "B1", L"*DOWN"));
    EXPECT_EQ(selection(id), cells("B2"));
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(CellEditEnds, text_typed_over_a_locked_cell_gets_the_word_and_no_editor) {
    const KdDbObjectId id = add(TableBuilder(2, 2).lock("A1").build());
    EXPECT_FALSE(typeOver(id, "A1", L"x"));
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_EQ(L"\n" + host.lastMessage(), text(2220));
}

TEST_F(CellEditEnds, a_cell_of_several_contents_gets_neither_editor_nor_word) {
    const KdDbObjectId id = add(TableBuilder(1, 1).text("A1", L"x").build());
    change(id, [](KdDbTable& table) { table.setCellType(0, 0, KdDb::kMultipleContentCell); });
    EXPECT_FALSE(edit(id, 0, 0));
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_TRUE(host.messages().empty());
}

// ---- the toolbar

TEST_F(CellEditEnds, the_toolbar_goes_while_the_editor_is_up_and_comes_back_after_Esc_alone) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    int looked = 0;
    typist.look = [&](KdDbMText&) {
        ++looked;
        EXPECT_FALSE(toolbarShows());
    };
    for (const int key : {27, 0, 9, 13}) {
        CVqTableCommon::ShowTableToolbar(id, true);
        ASSERT_TRUE(toolbarShows());
        typist.types({leave(key)});
        EXPECT_TRUE(edit(id, 1, 1));
        EXPECT_EQ(toolbarShows(), key == 27) << key;
    }
    EXPECT_EQ(looked, 4);
}

TEST_F(CellEditEnds, the_toolbar_stays_over_a_cell_that_gets_no_editor) {
    const KdDbObjectId id = add(TableBuilder(2, 2).lock("A1").build());
    CVqTableCommon::ShowTableToolbar(id, true);
    EXPECT_FALSE(edit(id, 0, 0));
    EXPECT_FALSE(edit(id, 5, 5));
    EXPECT_FALSE(typeOver(id, "B2", esc));
    EXPECT_TRUE(typeOver(id, "B2", L"*UP"));
    EXPECT_TRUE(toolbarShows());
}

// ---- from cell to cell

/// Opens a table for read as soon as it has been closed after a change, and keeps it open.
class Reader : public kdhost::DatabaseListener {
public:
    explicit Reader(KdDbObjectId table) : m_table(table) { kdhost::addDatabaseListener(this); }
    ~Reader() override { kdhost::removeDatabaseListener(this); }
    void objectChanged(KdDbObjectId id) override {
        if (id == m_table && m_open == nullptr) m_open = std::make_unique<OpenObject<KdDbTable>>(id, KdDb::kForRead);
    }

private:
    KdDbObjectId m_table;
    std::unique_ptr<OpenObject<KdDbTable>> m_open;
};

TEST_F(CellEditEnds, a_table_that_cannot_be_opened_for_the_next_cell_ends_the_loop) {
    const KdDbObjectId id = add(TableBuilder(1, 3).build());
    {
        const Reader reader(id);
        typist.types({{L"a", 9}, {L"b", 9}});
        EXPECT_TRUE(edit(id, 0, 0));
    }
    EXPECT_EQ(typist.opened.size(), 1U);
    EXPECT_EQ(textsOf(id), "|a|||\n");
    EXPECT_TRUE(host.messages().empty());
}

class DrawnAgain : public kdhost::Display {
public:
    DrawnAgain() { kdhost::setDisplay(this); }
    ~DrawnAgain() override { kdhost::setDisplay(nullptr); }
    void redraw(const std::vector<KdDbObjectId>& ids) override { last = ids; }
    std::vector<KdDbObjectId> last;
};

TEST_F(CellEditEnds, the_table_is_drawn_after_each_cell) {
    const KdDbObjectId id = add(TableBuilder(1, 2).build());
    kdhost::updateDisplay();
    DrawnAgain drawn;
    typist.types({{L"a", 9}, {L"b", 9}});
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_EQ(drawn.last, std::vector<KdDbObjectId>{id}) << "after the last cell, too";
    EXPECT_TRUE(kdhost::queuedForRedraw().empty());
}

TEST_F(CellEditEnds, Ctrl_ends_the_loop_with_Enter_alone) {
    const KdDbObjectId id = add(TableBuilder(3, 1).build());
    const auto holdCtrl = [](KdDbMText&) { kdhost::keepKeyState(Qt::ControlModifier); };
    typist.types({{L"a", 40, holdCtrl}, {L"b", 9, holdCtrl}, {L"c", 29, holdCtrl}, {L"d", 13, holdCtrl}});
    EXPECT_TRUE(edit(id, 0, 0));
    kdhost::releaseKeyState();
    EXPECT_EQ(textsOf(id), "|a|\n|d|\n|c|\n") << "A2 was come back to from below";
    EXPECT_EQ(typist.left(), 0U);
}

// ---- Esc

TEST_F(CellEditEnds, Esc_in_a_later_cell_keeps_the_earlier_ones_and_selects_the_later_one) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    typist.types({{L"a", 9}, leave(27)});
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_EQ(textsOf(id), "|a||\n|||\n");
    EXPECT_EQ(selection(id), cells("B1"));
    EXPECT_EQ(host.editor().pickFirst().objects(), std::vector<KdDbObjectId>{id});
}

TEST_F(CellEditEnds, Esc_without_a_view_selects_nothing_and_brings_the_toolbar_all_the_same) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    typist.look = [](KdDbMText&) { kdhost::faults().noView = true; };
    EXPECT_TRUE(edit(id, 1, 1));
    kdhost::faults().noView = false;
    EXPECT_EQ(selection(id), KdCellRange());
    EXPECT_TRUE(toolbarShows());
}

/// Ends with a key and a status that seldom come together.
class OddEditor : public kdhost::TextEditor {
public:
    OddEditor(int key, int status) : m_key(key), m_status(status) { kdhost::setTextEditor(this); }
    ~OddEditor() override { kdhost::setTextEditor(nullptr); }
    int edit(KdDbMText& text, int& key, int) override {
        ++edits;
        text.setContents(L"new");
        key = m_key;
        return m_status;
    }
    int edits = 0;

private:
    int m_key;
    int m_status;
};

TEST_F(CellEditEnds, only_the_key_and_the_status_of_Esc_together_select_the_cell_again) {
    struct End {
        int key;
        int status;
        bool taken;
        bool selected;
    };
    for (const End& end : {End{27, RTCAN, false, true},
                           {27, RTNORM, true, false},
                           {0, RTCAN, false, false},
                           {27, RTERROR, false, false}}) {
        const KdDbObjectId id = add(TableBuilder(1, 2).build(), {0.0, 100.0, 0.0});
        OddEditor editor(end.key, end.status);
        EXPECT_TRUE(edit(id, 0, 0));
        EXPECT_EQ(editor.edits, 1);
        EXPECT_EQ(textsOf(id), end.taken ? "|new||\n" : "|||\n") << end.key << ", " << end.status;
        EXPECT_EQ(selection(id), end.selected ? cells("A1") : KdCellRange());
        change(id, [](KdDbTable& table) { table.erase(); });
    }
}

/// The text is not accepted, and the walk goes on by the key all the same.
TEST_F(CellEditEnds, a_text_that_is_not_taken_does_not_keep_a_key_from_leading_on) {
    const KdDbObjectId id = add(TableBuilder(1, 3).build());
    OddEditor editor(kMTextEditorTab, RTCAN);
    EXPECT_TRUE(edit(id, 0, 0));
    EXPECT_EQ(editor.edits, 3);
    EXPECT_EQ(textsOf(id), "||||\n");
}

// ---- the command, and the road of the menu

TEST_F(CellEditEnds, a_pick_that_hits_no_table_ends_the_command_without_a_word) {
    add(TableBuilder(2, 2).build());
    addLine({0.0, 100.0, 0.0}, {60.0, 100.0, 0.0});
    for (const Step& answer : {Step(L"500,500"), Step(L"30,100"), Step(esc)}) {
        runTableEdit({answer});
        EXPECT_EQ(prompts, (Words{text(2103)}));
    }
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(CellEditEnds, a_table_selected_without_cells_is_picked_like_any_other) {
    const KdDbObjectId id = add(TableBuilder(2, 2).fill().build());
    host.editor().pickFirst().set({id});
    typist.types({leave(0)});
    runTableEdit({L"25,-15"});
    EXPECT_EQ(openedWith(), (Words{L"B2"}));
}

TEST_F(CellEditEnds, the_command_edits_the_block_that_is_picked_anywhere) {
    const KdDbObjectId id = add(TableBuilder(3, 3).merge("A1:B2").text("A1", L"block").build());
    typist.types({{L"new", 0}});
    runTableEdit({L"25,-15"});
    EXPECT_EQ(openedWith(), (Words{L"block"}));
    EXPECT_STREQ(look(id).textString(0, 0), L"new");
}

TEST_F(CellEditEnds, TableEdit_without_the_service_or_a_selected_cell_edits_nothing) {
    const KdDbObjectId id = add(TableBuilder(2, 2).build());
    EXPECT_EQ(CVqTableCommon::TableEdit(id), 1) << "nothing is selected";
    EXPECT_EQ(CVqTableCommon::TableEdit(KdDbObjectId::kNull), 1);
    select(id, "B2:B2");
    {
        const OpenObject<KdDbTable> writer(id, KdDb::kForWrite);
        EXPECT_EQ(CVqTableCommon::TableEdit(id), 1);
    }
    kdhost::faults().noMainAppService = true;
    EXPECT_EQ(CVqTableCommon::TableEdit(id), 0);
    kdhost::faults() = {};
    EXPECT_TRUE(typist.opened.empty());
    EXPECT_TRUE(steps().empty());
}

TEST_F(CellEditEnds, TableEdit_begins_at_the_top_left_of_the_selected_cells_and_asks_nothing) {
    const KdDbObjectId id = add(TableBuilder(3, 3).fill().build());
    select(id, "B2:C3");
    typist.types({leave(0)});
    answers({});
    EXPECT_EQ(CVqTableCommon::TableEdit(id), 1);
    EXPECT_EQ(openedWith(), (Words{L"B2"}));
    EXPECT_TRUE(prompts.empty());
}

}  // namespace
}  // namespace kdtest
