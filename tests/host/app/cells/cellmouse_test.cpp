// What the mouse and the keys do to tables and their cells, through the one way in that the drawing view uses.

#include "host/app/cells/cellmouse.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QTimer>
#include <optional>

#include "host/app/cells/cellactions.h"
#include "host/db/access.h"
#include "host/db/undo.h"
#include "host/ed/commands.h"
#include "host/ed/picking.h"
#include "host/win32/modules.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "kd/ed/prompts.h"
#include "kd/ed/selection.h"
#include "kd/ed/uicontext.h"
#include "tests/support/application.h"
#include "tests/support/tablebuilder.h"

namespace {

using kdhost::ViewPoint;
using kdtest::cells;
using kdtest::TableBuilder;

/// A table of columns of 20 and rows of 10 with its upper left corner at the origin, in a view of a tenth of a unit to
/// the pixel.
class CellMouse : public kdtest::ApplicationTest {
protected:
    void SetUp() override {
        table = add(TableBuilder(4, 4).fill());
        KdDbExtents box;
        box.addPoint({-10, 10, 0});
        box.addPoint({90, -50, 0});
        host.editor().view().shown().resize(1000, 600);
        host.editor().view().shown().zoomExtents(box, 0.0);
        ASSERT_EQ(host.editor().promptKind(), kdhost::PromptKind::Command);
    }

    KdDbObjectId add(TableBuilder& builder, const KdGePoint3d& position = {}) {
        std::unique_ptr<KdDbTable> made = builder.build();
        made->setColumnWidth(20.0);
        made->setRowHeight(10.0);
        made->setPosition(position);
        return append(made.release());
    }
    KdDbObjectId append(KdDbEntity* entity) {
        KdDbObjectId id;
        KdDbObject* space = nullptr;
        EXPECT_EQ(kddbOpenObject(space, host.database().modelSpaceId(), KdDb::kForWrite, false, nullptr), Kdad::eOk);
        static_cast<KdDbBlockTableRecord*>(space)->appendKdDbEntity(id, entity);
        entity->close();
        space->close();
        return id;
    }

    ViewPoint at(double x, double y, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        const KdGePoint3d world(x, y, 0);
        const auto& view = host.editor().view().shown();
        return {world, view.toPixels(world), 1.0 / view.scale(), modifiers, Qt::NoButton};
    }
    void run() { kdhost::runQueuedCommands(); }
    void click(double x, double y, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        mouse.press(at(x, y, modifiers));
        mouse.release(at(x, y, modifiers));
        run();
    }
    void drag(double x, double y, double toX, double toY) {
        mouse.press(at(x, y));
        mouse.move(at((x + toX) / 2, (y + toY) / 2));
        mouse.move(at(toX, toY));
        mouse.release(at(toX, toY));
        run();
    }
    void selectTable() { click(30, -15); }
    bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
        return mouse.key(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
    }

    const KdDbTable& look() const { return *kdhost::peek<KdDbTable>(table); }
    KdCellRange selection() const { return look().getSubSelection(); }
    std::vector<KdDbObjectId> selected() { return host.editor().pickFirst().objects(); }
    std::wstring sent() {
        std::wstring text;
        while (const auto item = host.editor().input().next(nullptr)) text += item->character;
        return text;
    }
    std::vector<std::wstring> steps() { return kdhost::undoHistory(host.database())->undoSteps(); }

    kdhost::CellMouse mouse;
    KdDbObjectId table;
};

const KdCellRange none{-1, -1, -1, -1};

TEST_F(CellMouse, a_click_selects_the_table_and_a_click_inside_it_a_cell) {
    click(30, -15);
    EXPECT_EQ(selected(), std::vector{table});
    EXPECT_EQ(selection(), none);
    click(30, -15);
    EXPECT_EQ(selected(), std::vector{table});
    EXPECT_EQ(selection(), cells("B2"));
    click(70, -35);
    EXPECT_EQ(selection(), cells("D4"));
    click(85, 5);
    EXPECT_TRUE(selected().empty());
    EXPECT_EQ(selection(), none);
}

TEST_F(CellMouse, dragging_selects_a_rectangle_of_cells_whichever_way_it_goes) {
    selectTable();
    drag(30, -15, 70, -35);
    EXPECT_EQ(selection(), cells("B2:D4"));
    drag(50, -25, 10, -5);
    EXPECT_EQ(selection(), cells("A1:C3"));
}

TEST_F(CellMouse, dragging_beyond_the_table_takes_the_cells_at_its_edge) {
    selectTable();
    drag(30, -15, 500, -400);
    EXPECT_EQ(selection(), cells("B2:D4"));
    drag(30, -15, -50, 5);
    EXPECT_EQ(selection(), cells("A1:B2"));
}

TEST_F(CellMouse, shift_extends_what_is_selected) {
    selectTable();
    click(30, -15);
    click(70, -25, Qt::ShiftModifier);
    EXPECT_EQ(selection(), cells("B2:D3"));
    click(10, -35, Qt::ShiftModifier);
    EXPECT_EQ(selection(), cells("A2:D4"));
}

TEST_F(CellMouse, merges_are_taken_in_whole) {
    KdDbObject* object = nullptr;
    ASSERT_EQ(kddbOpenObject(object, table, KdDb::kForWrite, false, nullptr), Kdad::eOk);
    static_cast<KdDbTable*>(object)->mergeCells(1, 2, 1, 2);
    object->close();
    selectTable();
    click(45, -25);
    EXPECT_EQ(selection(), cells("B2:C3"));
    drag(10, -15, 30, -15);
    EXPECT_EQ(selection(), cells("A2:C3"));
}

TEST_F(CellMouse, an_indicator_selects_its_row_or_column_whole_and_dragging_more_of_them) {
    selectTable();
    click(30, -15);
    click(30, 1);
    EXPECT_EQ(selection(), cells("B1:B4"));
    click(-1, -25);
    EXPECT_EQ(selection(), cells("A3:D3"));
    drag(-1, -15, -1, -35);
    EXPECT_EQ(selection(), cells("A2:D4"));
    drag(70, 1, 30, 1);
    EXPECT_EQ(selection(), cells("B1:D4"));
    click(-1, -5, Qt::ShiftModifier);
    EXPECT_EQ(selection(), cells("A1:D4"));
}

TEST_F(CellMouse, there_are_no_indicators_before_a_cell_is_selected) {
    selectTable();
    click(30, 3);
    EXPECT_TRUE(selected().empty()) << "empty space";
}

TEST_F(CellMouse, shift_adds_another_object_and_gives_the_cells_up) {
    const KdDbObjectId other = add(TableBuilder(2, 2).fill(), {0, -45, 0});
    selectTable();
    click(30, -15);
    ASSERT_EQ(selection(), cells("B2"));
    click(10, -50, Qt::ShiftModifier);
    EXPECT_EQ(selected(), (std::vector{table, other}));
    click(10, -50);
    EXPECT_EQ(selected(), std::vector{other});
    EXPECT_EQ(selection(), none);
}

TEST_F(CellMouse, selecting_cells_is_no_step_of_undo) {
    const auto before = steps();
    selectTable();
    drag(30, -15, 70, -35);
    EXPECT_EQ(steps(), before);
}

TEST_F(CellMouse, a_double_click_edits_the_cell_also_of_a_table_not_selected_yet) {
    mouse.press(at(50, -25));
    mouse.release(at(50, -25));
    run();
    mouse.doubleClick(at(50, -25));
    mouse.release(at(50, -25));
    EXPECT_EQ(selection(), cells("C3"));
    EXPECT_EQ(sent(), L"TABLEDIT \n");
}

TEST_F(CellMouse, a_double_click_beside_every_table_is_a_click) {
    selectTable();
    mouse.doubleClick(at(85, 5));
    mouse.release(at(85, 5));
    run();
    EXPECT_TRUE(selected().empty());
    EXPECT_EQ(sent(), L"");
}

struct KeyCase {
    int key;
    Qt::KeyboardModifiers modifiers;
    const char* text;
    const wchar_t* sent;
};

class CellKeys : public CellMouse, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(CellKeys, are_sent_to_the_cell_editor_while_cells_are_selected) {
    const KeyCase& key = GetParam();
    EXPECT_FALSE(press(key.key, key.modifiers, QString::fromUtf8(key.text)));
    selectTable();
    EXPECT_FALSE(press(key.key, key.modifiers, QString::fromUtf8(key.text))) << "the table alone is selected";
    click(30, -15);
    EXPECT_TRUE(press(key.key, key.modifiers, QString::fromUtf8(key.text)));
    EXPECT_EQ(sent(), key.sent);
}

INSTANTIATE_TEST_SUITE_P(words, CellKeys,
                         ::testing::Values(KeyCase{Qt::Key_Delete, Qt::NoModifier, "\x7f", L"TABLEDIT *DELETE\n"},
                                           KeyCase{Qt::Key_C, Qt::ControlModifier, "\x03", L"TABLEDIT *CTRLC\n"},
                                           KeyCase{Qt::Key_V, Qt::ControlModifier, "\x16", L"TABLEDIT *CTRLV\n"},
                                           KeyCase{Qt::Key_X, Qt::ControlModifier, "\x18", L"TABLEDIT *CTRLX\n"},
                                           KeyCase{Qt::Key_Tab, Qt::NoModifier, "\t", L"TABLEDIT *TAB\n"},
                                           KeyCase{Qt::Key_Backtab, Qt::ShiftModifier, "", L"TABLEDIT *SHIFTTAB\n"},
                                           KeyCase{Qt::Key_Right, Qt::NoModifier, "", L"TABLEDIT *RIGHT\n"},
                                           KeyCase{Qt::Key_Left, Qt::NoModifier, "", L"TABLEDIT *LEFT\n"},
                                           KeyCase{Qt::Key_Up, Qt::KeypadModifier, "", L"TABLEDIT *UP\n"},
                                           KeyCase{Qt::Key_Down, Qt::NoModifier, "", L"TABLEDIT *DOWN\n"},
                                           KeyCase{Qt::Key_PageUp, Qt::NoModifier, "", L"TABLEDIT *PGUP\n"},
                                           KeyCase{Qt::Key_PageDown, Qt::NoModifier, "", L"TABLEDIT *PGDN\n"}));

INSTANTIATE_TEST_SUITE_P(characters, CellKeys,
                         ::testing::Values(KeyCase{Qt::Key_A, Qt::NoModifier, "a", L"TABLEDIT a\n"},
                                           KeyCase{Qt::Key_A, Qt::ShiftModifier, "A", L"TABLEDIT A\n"},
                                           KeyCase{Qt::Key_Equal, Qt::NoModifier, "=", L"TABLEDIT =\n"},
                                           KeyCase{Qt::Key_7, Qt::KeypadModifier, "7", L"TABLEDIT 7\n"},
                                           KeyCase{0, Qt::NoModifier, "\xe8\xa1\xa8", L"TABLEDIT \u8868\n"}));

TEST_F(CellMouse, keys_that_are_not_for_cells_stay_with_the_command_line) {
    selectTable();
    click(30, -15);
    for (int key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_F2, Qt::Key_Shift}) EXPECT_FALSE(press(key)) << key;
    EXPECT_FALSE(press(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" ")));
    EXPECT_FALSE(press(Qt::Key_Z, Qt::ControlModifier, QStringLiteral("\x1a")));
    EXPECT_EQ(sent(), L"");
}

TEST_F(CellMouse, the_grip_at_the_position_moves_the_table_as_one_step) {
    const auto before = steps().size();
    selectTable();
    drag(0, 0, 13, -7);
    EXPECT_EQ(look().position(), KdGePoint3d(13, -7, 0));
    EXPECT_EQ(steps().size(), before + 1);
    EXPECT_EQ(selected(), std::vector{table});
    host.run(L"U\n");
    EXPECT_EQ(look().position(), KdGePoint3d(0, 0, 0));
}

TEST_F(CellMouse, the_grips_above_and_beside_move_the_far_edge_of_a_column_or_row) {
    selectTable();
    drag(40, 0, 47, 3);
    EXPECT_NEAR(look().columnWidth(1), 27.0, 1e-9);
    EXPECT_EQ(look().columnWidth(2), 20.0);
    drag(0, -30, -2, -36);
    EXPECT_NEAR(look().rowHeight(2), 16.0, 1e-9);
    EXPECT_EQ(look().rowHeight(3), 10.0);
    EXPECT_EQ(steps().size(), 2u);
}

TEST_F(CellMouse, the_grips_around_cells_move_the_grid_lines_there) {
    selectTable();
    drag(30, -15, 50, -15);
    ASSERT_EQ(selection(), cells("B2:C2"));
    drag(60, -15, 65, -15);
    EXPECT_NEAR(look().columnWidth(2), 25.0, 1e-9);
    drag(20, -15, 22, -15);
    EXPECT_NEAR(look().columnWidth(0), 22.0, 1e-9);
    drag(44.5, -10, 44.5, -14);
    EXPECT_NEAR(look().rowHeight(0), 14.0, 1e-9);
    drag(44.5, -24, 44.5, -30);
    EXPECT_NEAR(look().rowHeight(1), 16.0, 1e-9);
    EXPECT_EQ(selection(), cells("B2:C2"));
}

TEST_F(CellMouse, the_grips_stand_on_the_frame_of_a_selection_that_cuts_a_merge_or_names_whole_rows) {
    KdDbObject* object = nullptr;
    ASSERT_EQ(kddbOpenObject(object, table, KdDb::kForWrite, false, nullptr), Kdad::eOk);
    static_cast<KdDbTable*>(object)->mergeCells(1, 2, 1, 2);
    object->close();
    const auto placesOf = [&](const KdCellRange& range) {
        host.editor().pickFirst().selectCells(table, range);
        std::vector<KdGePoint3d> places;
        for (const auto& grip : kdhost::gripsOf(table, host.editor().view().shown())) places.push_back(grip.place);
        return places;
    };
    EXPECT_EQ(placesOf(cells("C3:D3")), placesOf(cells("B2:D3")));
    EXPECT_EQ(placesOf({3, -1, 3, -1}), placesOf(cells("A4:D4")));
    EXPECT_EQ(placesOf({3, 3, 2, 3}), placesOf(cells("D3:D4")));
    host.editor().pickFirst().clear();
}

TEST_F(CellMouse, a_grip_makes_nothing_smaller_than_its_content_allows) {
    selectTable();
    drag(20, 0, -50, 0);
    EXPECT_EQ(look().columnWidth(0), look().minimumColumnWidth(0));
    EXPECT_GT(look().columnWidth(0), 0.0);
    drag(0, -10, 0, 40);
    EXPECT_EQ(look().rowHeight(0), look().minimumRowHeight(0));
}

TEST_F(CellMouse, a_press_on_a_grip_without_a_drag_changes_nothing) {
    const auto before = steps();
    selectTable();
    click(0, 0);
    EXPECT_EQ(steps(), before);
    EXPECT_EQ(selected(), std::vector{table});
}

TEST_F(CellMouse, the_grips_of_a_table_that_grows_upwards_stand_on_its_side) {
    KdDbObject* object = nullptr;
    ASSERT_EQ(kddbOpenObject(object, table, KdDb::kForWrite, false, nullptr), Kdad::eOk);
    static_cast<KdDbTable*>(object)->setFlowDirection(1);
    object->close();
    click(30, 15);
    drag(0, 10, 0, 13);
    EXPECT_NEAR(look().rowHeight(0), 13.0, 1e-9);
}

TEST_F(CellMouse, a_table_on_a_locked_layer_is_not_moved_and_the_user_told) {
    selectTable();
    KdDbObject* layer = nullptr;
    ASSERT_EQ(kddbOpenObject(layer, look().layerId(), KdDb::kForWrite, false, nullptr), Kdad::eOk);
    static_cast<KdDbLayerTableRecord*>(layer)->setIsLocked(true);
    layer->close();
    const auto before = steps();
    drag(0, 0, 13, -7);
    EXPECT_EQ(look().position(), KdGePoint3d(0, 0, 0));
    EXPECT_EQ(host.lastMessage(), L"The table lies on a locked layer.");
    EXPECT_EQ(steps(), before);
    kdhost::setLanguage(kdhost::Language::Chinese);
    drag(0, 0, 13, -7);
    kdhost::setLanguage(kdhost::Language::English);
    EXPECT_EQ(host.lastMessage(), L"表格位于锁定的图层上。");
}

/// Answers in the place of a user: at each wait it carries out the next action.
class WaitingPrompt : public CellMouse, private kdhost::InputSource {
protected:
    void SetUp() override {
        CellMouse::SetUp();
        m_before = kdhost::inputSource();
        kdhost::setInputSource(this);
    }
    void TearDown() override { kdhost::setInputSource(m_before); }

    std::vector<std::function<void()>> actions;

private:
    bool feed(kdhost::InputQueue&) override {
        if (m_next == actions.size()) return false;
        actions[m_next++]();
        return true;
    }
    kdhost::InputSource* m_before = nullptr;
    std::size_t m_next = 0;
};

TEST_F(WaitingPrompt, for_a_rectangle_of_cells_takes_the_cells_dragged_over) {
    actions.push_back([&] {
        mouse.press(at(30, -15));
        mouse.move(at(70, -35));
        mouse.release(at(70, -35));
    });
    KdDbObjectId id;
    KdCellRange range;
    EXPECT_TRUE(kdadSelectTableUnits(false, id, range));
    EXPECT_EQ(id, table);
    EXPECT_EQ(range, cells("B2:D4"));
    EXPECT_EQ(selection(), none) << "what answers a prompt is not selected";
}

TEST_F(WaitingPrompt, for_a_cell_takes_the_cell_clicked) {
    actions.push_back([&] {
        mouse.press(at(30, -15));
        mouse.release(at(30, -15));
    });
    KdDbObjectId id;
    KdCellRange range;
    EXPECT_TRUE(kdadSelectTableUnits(true, id, range));
    EXPECT_EQ(range, cells("B2"));
}

TEST_F(WaitingPrompt, for_a_cell_takes_the_cell_pressed_wherever_the_button_comes_up) {
    actions.push_back([&] {
        mouse.press(at(50, -25));
        mouse.move(at(30, -15));
        mouse.release(at(30, -15));
    });
    KdDbObjectId id;
    KdCellRange range;
    EXPECT_TRUE(kdadSelectTableUnits(true, id, range));
    EXPECT_EQ(range, cells("C3"));
    EXPECT_EQ(selection(), none);
}

TEST_F(WaitingPrompt, for_a_cell_ends_with_a_click_beside_every_table) {
    actions.push_back([&] {
        mouse.press(at(85, 5));
        mouse.release(at(85, 5));
    });
    KdDbObjectId id;
    KdCellRange range;
    EXPECT_FALSE(kdadSelectTableUnits(true, id, range));
}

TEST_F(WaitingPrompt, for_a_point_takes_a_click_also_on_a_table_that_is_selected) {
    selectTable();
    actions.push_back([&] {
        mouse.press(at(30, -15));
        mouse.release(at(30, -15));
    });
    KdGePoint3d point;
    EXPECT_EQ(kdedGetPoint(nullptr, L"", point), RTNORM);
    EXPECT_EQ(point, KdGePoint3d(30, -15, 0));
    EXPECT_EQ(selection(), none);
}

TEST_F(WaitingPrompt, for_a_word_takes_no_click_and_the_right_button_is_Enter) {
    actions.push_back([&] { mouse.press(at(30, -15)); });
    actions.push_back([&] { mouse.context(at(30, -15)); });
    wchar_t word[133];
    EXPECT_EQ(kdedGetString(0, L"", word), RTNORM);
    EXPECT_STREQ(word, L"");
    EXPECT_TRUE(selected().empty());
}

TEST_F(WaitingPrompt, leaves_keys_to_the_command_line_whatever_is_selected) {
    selectTable();
    click(30, -15);
    actions.push_back([&] {
        EXPECT_FALSE(press(Qt::Key_A, Qt::NoModifier, QStringLiteral("a")));
        host.type(L"\n");
    });
    wchar_t word[133];
    EXPECT_EQ(kdedGetString(0, L"", word), RTNORM);
}

/// A module's menu for tables.
class MenuContext : public KdEdUIContext {
public:
    MenuContext() { kdedAddObjectContextMenu(KdDbTable::desc(), this, nullptr); }
    ~MenuContext() override { kdedRemoveObjectContextMenu(KdDbTable::desc(), this); }
    QMenu* getMenuContext(const KdRxClass*, const KdArray<KdDbObjectId>& ids) override {
        asked.push_back(ids[0]);
        return isThere ? &menu : nullptr;
    }
    void onCommand(unsigned) override { ++commands; }

    QMenu menu;
    bool isThere = true;
    int commands = 0;
    std::vector<KdDbObjectId> asked;
};

TEST_F(CellMouse, the_right_button_selects_the_cell_and_shows_the_menu_that_a_module_gives) {
    MenuContext context;
    int chosen = 0;
    QObject::connect(context.menu.addAction(QStringLiteral("Act")), &QAction::triggered, [&] { ++chosen; });
    bool shown = false;
    QTimer::singleShot(0, [&] {
        shown = context.menu.isVisible();
        context.menu.setActiveAction(context.menu.actions().front());
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(&context.menu, &enter);
    });
    selectTable();
    mouse.context(at(30, -15));
    EXPECT_TRUE(shown);
    EXPECT_EQ(chosen, 1);
    EXPECT_EQ(context.commands, 0) << "the menu's own items call back";
    EXPECT_EQ(context.asked, std::vector{table});
    EXPECT_EQ(selection(), cells("B2"));
}

TEST_F(CellMouse, the_right_button_inside_selected_cells_keeps_them) {
    MenuContext context;
    context.isThere = false;
    selectTable();
    drag(30, -15, 70, -35);
    mouse.context(at(50, -25));
    EXPECT_EQ(selection(), cells("B2:D4"));
    mouse.context(at(10, -5));
    EXPECT_EQ(selection(), cells("A1"));
    EXPECT_EQ(context.asked.size(), 2u);
}

TEST_F(CellMouse, the_right_button_selects_a_table_that_is_not_selected_and_asks_for_its_menu) {
    MenuContext context;
    context.isThere = false;
    mouse.context(at(30, -15));
    EXPECT_EQ(selected(), std::vector{table});
    EXPECT_EQ(selection(), none);
    EXPECT_EQ(context.asked.size(), 1u);
    mouse.context(at(85, 5));
    EXPECT_EQ(context.asked.size(), 1u) << "empty space has no menu";
    EXPECT_EQ(selected(), std::vector{table});
}

TEST_F(CellMouse, the_right_button_on_an_indicator_selects_its_line_and_asks_for_the_menu) {
    MenuContext context;
    context.isThere = false;
    selectTable();
    mouse.context(at(-4, -15));
    EXPECT_TRUE(context.asked.empty()) << "without selected cells there are no indicators";
    click(30, -15);
    mouse.context(at(-4, -15));
    EXPECT_EQ(selection(), cells("A2:D2"));
    mouse.context(at(50, 4));
    EXPECT_EQ(selection(), cells("C1:C4"));
    EXPECT_EQ(context.asked, (std::vector{table, table}));
}

TEST_F(CellMouse, grips_are_painted_where_they_are_hit_and_the_cursor_tells_what_they_do) {
    selectTable();
    QImage picture(1000, 600, QImage::Format_RGB32);
    picture.fill(Qt::white);
    {
        QPainter painter(&picture);
        mouse.paintOver(painter, host.editor().view().shown());
    }
    const auto colorAt = [&](double x, double y) { return picture.pixelColor(at(x, y).pixels.toPoint()); };
    EXPECT_NE(colorAt(0, 0), QColor(Qt::white));
    EXPECT_NE(colorAt(40, 0), QColor(Qt::white));
    EXPECT_NE(colorAt(0, -30), QColor(Qt::white));
    EXPECT_EQ(colorAt(30, -15), QColor(Qt::white));
    EXPECT_EQ(mouse.cursorAt(at(0, 0)), Qt::SizeAllCursor);
    EXPECT_EQ(mouse.cursorAt(at(40, 0)), Qt::SplitHCursor);
    EXPECT_EQ(mouse.cursorAt(at(0, -30)), Qt::SplitVCursor);
    EXPECT_EQ(mouse.cursorAt(at(30, -15)), Qt::CrossCursor);
}

TEST_F(CellMouse, grips_too_close_to_be_told_apart_are_left_out) {
    EXPECT_EQ(kdhost::gripsOf(table, host.editor().view().shown()).size(), 9u);
    host.editor().view().shown().zoom(0.1, {500, 300});
    // Now 20 pixels between columns, 10 between rows: every other row has one.
    EXPECT_EQ(kdhost::gripsOf(table, host.editor().view().shown()).size(), 1u + 4u + 2u);
    host.editor().view().shown().zoom(0.1, {500, 300});
    const auto grips = kdhost::gripsOf(table, host.editor().view().shown());
    ASSERT_EQ(grips.size(), 1u);
    EXPECT_EQ(grips.front().kind, kdhost::Grip::Kind::Move);
}

TEST_F(CellMouse, another_object_shows_grips_and_nothing_is_dragged_by_them) {
    auto* line = new KdDbLine;
    line->setStartPoint({0, 5, 0});
    line->setEndPoint({50, 5, 0});
    const KdDbObjectId id = append(line);
    click(25, 5);
    ASSERT_EQ(selected(), std::vector{id});
    EXPECT_EQ(kdhost::gripsOf(id, host.editor().view().shown()).size(), 2u);
    const auto before = steps();
    drag(0, 5, 10, 7);
    EXPECT_EQ(steps(), before);
}

TEST_F(CellMouse, without_a_drawing_nothing_happens) {
    host.documents().close(host.document());
    mouse.press({});
    mouse.move({});
    mouse.release({});
    mouse.doubleClick({});
    mouse.context({});
    EXPECT_FALSE(press(Qt::Key_A, Qt::NoModifier, QStringLiteral("a")));
    host.documents().openNew();
}

}  // namespace
