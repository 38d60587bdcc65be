// What makes a step of undo, and what can be redone.

#include "tests/host/db/undofixture.h"
#include "tests/support/leakguard.h"

namespace {

using kdtest::mustOpen;
using kdtest::Undo;
using Names = std::vector<std::wstring>;

TEST_F(Undo, a_command_is_one_step_that_bears_its_name) {
    step(
        [&] {
            stretch(2.0);
            stretch(3.0);
            kdtest::appendLine(m_database);
        },
        L"STRETCH");
    EXPECT_EQ(history().undoSteps(), Names{L"STRETCH"});
    EXPECT_EQ(history().undo(), Kdad::eOk);
    EXPECT_EQ(length(), 1.0);
    EXPECT_EQ(history().redoSteps(), Names{L"STRETCH"});
    EXPECT_EQ(history().redo(), Kdad::eOk);
    EXPECT_EQ(length(), 3.0);
}

TEST_F(Undo, a_command_that_changes_nothing_is_no_step) {
    step([&] { mustOpen<KdDbLine>(m_line, KdDb::kForWrite)->close(); });
    EXPECT_EQ(history().undoSteps(), Names{});
}

TEST_F(Undo, each_mark_directly_inside_a_command_is_a_step_and_the_command_has_the_rest) {
    step(
        [&] {
            stretch(2.0);
            mark(L"First", [&] { stretch(3.0); });
            mark(L"Second", [&] { stretch(4.0); });
            stretch(5.0);
        },
        L"TABLEDIT");
    EXPECT_EQ(history().undoSteps(), (Names{L"TABLEDIT", L"First", L"Second", L"TABLEDIT"}));
    for (const double before : {4.0, 3.0, 2.0, 1.0}) {
        EXPECT_EQ(history().undo(), Kdad::eOk);
        EXPECT_EQ(length(), before);
    }
}

TEST_F(Undo, a_command_with_nothing_beside_its_marks_has_no_step_of_its_own) {
    step([&] { mark(L"AboveInsert", [&] { stretch(3.0); }); }, L"TABLEDIT");
    EXPECT_EQ(history().undoSteps(), Names{L"AboveInsert"});
}

TEST_F(Undo, marks_inside_marks_join) {
    step([&] {
        mark(L"Outer", [&] {
            stretch(2.0);
            mark(L"Inner", [&] { stretch(3.0); });
            stretch(4.0);
        });
    });
    EXPECT_EQ(history().undoSteps(), Names{L"Outer"});
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

TEST_F(Undo, empty_marks_vanish) {
    step([&] {
        mark(L"Empty", [] {});
        mark(L"Outer", [&] { mark(L"Inner", [] {}); });
    });
    mark(L"Outside", [] {});
    EXPECT_EQ(history().undoSteps(), Names{});
}

TEST_F(Undo, a_mark_outside_of_commands_is_a_step) {
    mark(L"BelowInsert", [&] { stretch(2.0); });
    mark(L"DeleteRows", [&] { stretch(3.0); });
    EXPECT_EQ(history().undoSteps(), (Names{L"BelowInsert", L"DeleteRows"}));
}

TEST_F(Undo, the_end_of_a_mark_without_a_mark_does_nothing) {
    history().endMark();
    step([&] {
        stretch(2.0);
        history().endMark();
        stretch(3.0);
    });
    EXPECT_EQ(history().undoSteps().size(), 1u);
}

TEST_F(Undo, a_command_inside_a_command_joins_it) {
    step(
        [&] {
            stretch(2.0);
            step([&] { stretch(3.0); }, L"INNER");
            stretch(4.0);
        },
        L"OUTER");
    EXPECT_EQ(history().undoSteps(), Names{L"OUTER"});
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

TEST_F(Undo, a_mark_that_a_command_leaves_open_ends_with_it_and_is_noted) {
    step([&] {
        history().beginMark(L"Forgotten", {});
        stretch(2.0);
    });
    EXPECT_EQ(history().undoSteps(), Names{L"Forgotten"});
    step([&] { stretch(3.0); });
    EXPECT_EQ(history().undoSteps(), (Names{L"Forgotten", L"STEP"}));
    kdtest::expectDisciplineBreach("the mark Forgotten was left open");
}

TEST_F(Undo, a_mark_begun_before_a_command_and_ended_in_it_parts_them) {
    history().beginMark(L"Mark", {});
    stretch(2.0);
    history().beginCommand(L"COMMAND");
    stretch(3.0);
    history().endMark();
    stretch(4.0);
    history().endCommand();
    EXPECT_EQ(history().undoSteps(), (Names{L"Mark", L"COMMAND"}));
    history().undo();
    EXPECT_EQ(length(), 3.0);
}

TEST_F(Undo, an_object_open_across_the_begin_of_a_mark_is_kept_at_its_first_write_in_it) {
    history().beginCommand(L"COMMAND");
    auto* line = mustOpen<KdDbLine>(m_line, KdDb::kForWrite);
    line->setEndPoint({2.0, 0.0, 0.0});
    history().beginMark(L"Mark", {});
    line->setEndPoint({3.0, 0.0, 0.0});
    history().endMark();
    line->setEndPoint({4.0, 0.0, 0.0});
    line->close();
    history().endCommand();
    EXPECT_EQ(history().undoSteps(), (Names{L"COMMAND", L"Mark", L"COMMAND"}));
    history().undo();
    EXPECT_EQ(length(), 3.0);
    history().undo();
    EXPECT_EQ(length(), 2.0);
}

TEST_F(Undo, what_changes_outside_of_commands_and_marks_belongs_to_the_step_before) {
    step([&] { stretch(2.0); });
    stretch(3.0);
    const KdDbObjectId late = kdtest::appendLine(m_database);
    EXPECT_EQ(history().undoSteps().size(), 1u);
    history().undo();
    EXPECT_EQ(length(), 1.0);
    EXPECT_EQ(kdhost::peekObject(late), nullptr);
    history().redo();
    EXPECT_EQ(length(), 3.0);
    EXPECT_NE(kdhost::peekObject(late), nullptr);
}

TEST_F(Undo, what_changed_before_every_step_stays) {
    stretch(2.0);
    EXPECT_EQ(history().undo(), Kdad::eNotApplicable);
    EXPECT_EQ(length(), 2.0);
}

TEST_F(Undo, a_drawing_of_no_document_keeps_none) {
    KdDbDatabase side(true, true);
    EXPECT_EQ(kdhost::undoHistory(side), nullptr);
    const KdDbObjectId line = kdtest::appendLine(side);
    edit<KdDbLine>(line, [](KdDbLine& open) { open.erase(); });
    EXPECT_EQ(kdhost::peekObject(line), nullptr);
}

TEST_F(Undo, each_drawing_has_its_own) {
    KdDbDatabase other;
    const KdDbObjectId line = kdtest::appendLine(other);
    step([&] {
        stretch(2.0);
        edit<KdDbLine>(line, [](KdDbLine& open) { open.setEndPoint({7.0, 0.0, 0.0}); });
    });
    EXPECT_EQ(kdhost::undoHistory(other)->undoSteps(), Names{});
    history().undo();
    EXPECT_EQ(kdhost::peek<KdDbLine>(line)->endPoint().x, 7.0);
}

TEST_F(Undo, any_new_change_clears_what_could_be_redone) {
    step([&] { stretch(2.0); });
    history().undo();
    step([&] { stretch(5.0); });
    EXPECT_EQ(history().redoSteps(), Names{});
    EXPECT_EQ(history().redo(), Kdad::eNotApplicable);
    EXPECT_EQ(length(), 5.0);
}

TEST_F(Undo, a_change_outside_of_steps_clears_what_could_be_redone) {
    step([&] { stretch(2.0); });
    history().undo();
    stretch(5.0);
    EXPECT_EQ(history().redo(), Kdad::eNotApplicable);
    EXPECT_EQ(length(), 5.0);
}

TEST_F(Undo, a_command_without_a_change_leaves_what_can_be_redone) {
    step([&] { stretch(2.0); });
    history().undo();
    step([] {});
    EXPECT_EQ(history().redo(), Kdad::eOk);
    EXPECT_EQ(length(), 2.0);
}

}  // namespace
