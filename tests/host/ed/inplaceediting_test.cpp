// Editing in place where there is no user, what surrounds it, and picking cells of tables.

#include "kd/ed/inplaceeditor.h"

#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/ed/display.h"
#include "host/ed/texteditor.h"
#include "kd/db/mtext.h"
#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"
#include "tests/support/application.h"

namespace {

class InPlaceEditing : public kdtest::ApplicationTest {
protected:
    /// Cells of 10 by 10 units, downwards from the point.
    KdDbObjectId addTable(const KdGePoint3d& position) {
        auto table = std::make_unique<KdDbTable>();
        table->setSize(3, 3);
        table->setColumnWidth(10.0);
        table->setRowHeight(10.0);
        table->setPosition(position);
        table->setDatabaseDefaults(&host.database());
        EXPECT_TRUE(kdhost::appendToCurrentSpace(host.database(), std::move(table)));
        return kdhost::entitiesOfCurrentSpace(host.database()).back();
    }
    static bool isQueued(KdDbObjectId id) {
        const std::vector<KdDbObjectId>& queue = kdhost::queuedForRedraw();
        return std::find(queue.begin(), queue.end(), id) != queue.end();
    }
};

/// Shows what it was called with, and ends with Tab.
class RecordingEditor : public kdhost::TextEditor {
public:
    RecordingEditor() { kdhost::setTextEditor(this); }
    ~RecordingEditor() override { kdhost::setTextEditor(nullptr); }

    int edit(KdDbMText& text, int& key, int mode) override {
        edited = &text;
        lastMode = mode;
        key = kMTextEditorTab;
        return RTNORM;
    }
    const KdDbMText* edited = nullptr;
    int lastMode = 0;
};

TEST_F(InPlaceEditing, without_a_user_every_edit_is_cancelled) {
    KdDbMText text;
    text.setContents(L"kept");
    KdDbMText* edited = &text;
    int key = 5;
    EXPECT_EQ(invokeMTextEditorForTable(edited, key, kMTextEditorSelectAll), RTCAN);
    EXPECT_EQ(key, kMTextEditorEscape);
    EXPECT_EQ(edited, &text);
    EXPECT_STREQ(text.contents(), L"kept");
}

TEST_F(InPlaceEditing, the_editor_gets_the_text_and_the_mode) {
    RecordingEditor editor;
    KdDbMText text;
    KdDbMText* edited = &text;
    int key = 0;
    EXPECT_EQ(invokeMTextEditorForTable(edited, key, kMTextEditorFromNeighbour), RTNORM);
    EXPECT_EQ(key, kMTextEditorTab);
    EXPECT_EQ(editor.edited, &text);
    EXPECT_EQ(editor.lastMode, kMTextEditorFromNeighbour);

    editor.edited = nullptr;
    edited = nullptr;
    EXPECT_EQ(invokeMTextEditorForTable(edited, key, kMTextEditorSelectAll), RTERROR);
    EXPECT_EQ(editor.edited, nullptr);
}

TEST_F(InPlaceEditing, the_end_draws_the_table_again_where_that_is_asked_for) {
    const KdDbObjectId id = addTable({0, 0, 0});
    kdhost::updateDisplay();
    const kdhost::Opened<KdDbTable> table(id, KdDb::kForRead);
    kddbBeginInPlaceEdit(&*table, KdCell(), -1);
    kddbEndInPlaceEdit(&*table, false);
    EXPECT_FALSE(isQueued(id));
    kddbEndInPlaceEdit(&*table, true);
    EXPECT_TRUE(isQueued(id));
    kddbBeginInPlaceEdit(nullptr, KdCell(), -1);
    kddbEndInPlaceEdit(nullptr, true);
}

TEST_F(InPlaceEditing, an_entity_is_drawn_again_by_its_name) {
    class Recorder : public kdhost::Display {
    public:
        Recorder() { kdhost::setDisplay(this); }
        ~Recorder() override { kdhost::setDisplay(nullptr); }
        void redraw(const std::vector<KdDbObjectId>& ids) override {
            drawn.insert(drawn.end(), ids.begin(), ids.end());
        }
        std::vector<KdDbObjectId> drawn;
    };
    const KdDbObjectId id = addTable({0, 0, 0});
    kdhost::updateDisplay();
    Recorder display;
    kded_name name{};
    ASSERT_EQ(kddbGetKfsName(name, id), Kdad::eOk);
    EXPECT_EQ(kddbEntUpd(name), RTNORM);
    EXPECT_EQ(display.drawn, std::vector<KdDbObjectId>{id});
    kded_name none{};
    EXPECT_EQ(kddbEntUpd(none), RTERROR);
}

TEST_F(InPlaceEditing, action_9_drops_the_selection_and_no_other_is_known) {
    const KdDbObjectId id = addTable({0, 0, 0});
    host.editor().pickFirst().set({id});
    KdadPickfirstProc* pickfirst = kdadGetPickfirstProc();
    ASSERT_NE(pickfirst, nullptr);
    EXPECT_FALSE(pickfirst->doAction(8));
    EXPECT_EQ(host.editor().pickFirst().objects().size(), 1u);
    EXPECT_TRUE(pickfirst->doAction(9));
    EXPECT_TRUE(host.editor().pickFirst().objects().empty());
}

class CellPicking : public InPlaceEditing {
protected:
    bool pick(bool singleCell) {
        table = KdDbObjectId::kNull;
        range = {-1, -1, -1, -1};
        return kdadSelectTableUnits(singleCell, table, range);
    }
    void put(const KdGePoint3d& point) { host.editor().input().put(kdhost::InputItem::Kind::Pick, point); }
    KdDbObjectId table;
    KdCellRange range;
};

TEST_F(CellPicking, one_cell_is_picked_or_its_coordinates_typed) {
    const KdDbObjectId id = addTable({0, 100, 0});
    put({15, 85, 0});
    EXPECT_TRUE(pick(true));
    EXPECT_EQ(table, id);
    EXPECT_EQ(range, (KdCellRange{1, 1, 1, 1}));
    host.type(L"25,95\n");
    EXPECT_TRUE(pick(true));
    EXPECT_EQ(range, (KdCellRange{0, 2, 0, 2}));
}

TEST_F(CellPicking, a_rectangle_is_picked_by_two_corners_in_any_order) {
    const KdDbObjectId id = addTable({0, 100, 0});
    put({25, 95, 0});
    put({5, 75, 0});
    EXPECT_TRUE(pick(false));
    EXPECT_EQ(table, id);
    EXPECT_EQ(range, (KdCellRange{0, 0, 2, 2}));
}

TEST_F(CellPicking, the_second_corner_is_asked_for_again_until_it_lies_in_the_same_table) {
    const KdDbObjectId id = addTable({0, 100, 0});
    addTable({100, 100, 0});
    put({5, 95, 0});
    put({105, 95, 0});
    put({15, 95, 0});
    EXPECT_TRUE(pick(false));
    EXPECT_EQ(table, id);
    EXPECT_EQ(range, (KdCellRange{0, 0, 0, 1}));
}

TEST_F(CellPicking, cells_dragged_over_answer_at_once_at_either_corner) {
    const KdDbObjectId id = addTable({0, 100, 0});
    const kdhost::CellsOfTable dragged{id, {0, 1, 2, 1}};
    host.editor().input().put(dragged);
    EXPECT_TRUE(pick(false));
    EXPECT_EQ(range, dragged.range);
    put({5, 95, 0});
    host.editor().input().put(dragged);
    EXPECT_TRUE(pick(false));
    EXPECT_EQ(range, dragged.range);
    EXPECT_TRUE(host.editor().input().isEmpty());
}

TEST_F(CellPicking, who_picks_no_cell_gets_false_and_the_outputs_as_they_were) {
    addTable({0, 100, 0});
    put({500, 500, 0});
    EXPECT_FALSE(pick(true));
    EXPECT_TRUE(table.isNull());
    EXPECT_EQ(range, (KdCellRange{-1, -1, -1, -1}));
    host.type(L"\n");
    EXPECT_FALSE(pick(true));
    host.editor().input().put(kdhost::InputItem::Kind::Escape);
    EXPECT_FALSE(pick(false));
    EXPECT_FALSE(pick(false));  // nothing comes any more
}

}  // namespace
