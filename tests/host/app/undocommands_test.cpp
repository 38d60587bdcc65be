// U, UNDO and REDO at the command line, and the steps in the dump.

#include <nlohmann/json.hpp>
#include <sstream>

#include "host/app/dump/dump.h"
#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/db/undo.h"
#include "host/ed/pickfirst.h"
#include "kd/ad/doclock.h"
#include "kd/ad/mainapp.h"
#include "kd/db/table.h"
#include "tests/support/application.h"
#include "tests/support/objects.h"
#include "tests/support/tablebuilder.h"

namespace {

using Names = std::vector<std::wstring>;
using Titles = std::vector<std::string>;

class UndoCommands : public kdtest::ApplicationTest {
protected:
    std::size_t lineCount() { return kdhost::entitiesOfCurrentSpace(host.database()).size(); }
    Names steps() { return kdhost::undoHistory(host.database())->undoSteps(); }
    nlohmann::json dump() {
        std::ostringstream text;
        kdhost::writeDump(text, host.document());
        return nlohmann::json::parse(text.str());
    }
    void mark(const wchar_t* name, const wchar_t* title) {
        vqcadMainAppService()->beginCommandMark(name, title);
        kdtest::appendLine(host.database());
        vqcadMainAppService()->endCommandMark();
    }
};

TEST_F(UndoCommands, u_takes_back_one_command_and_says_which) {
    host.run(L"LINE 0,0 10,0 10,10 \nLINE 0,0 5,5 \n");
    EXPECT_EQ(steps(), (Names{L"LINE", L"LINE"}));
    host.run(L"U\n");
    EXPECT_EQ(host.lastMessage(), L"Undone: LINE.");
    EXPECT_EQ(lineCount(), 2u);
    host.run(L"U\n");
    EXPECT_EQ(lineCount(), 0u);
}

TEST_F(UndoCommands, a_mark_is_told_by_its_title) {
    mark(L"AboveInsert", L"Insert row above");
    host.run(L"U\n");
    EXPECT_EQ(host.lastMessage(), L"Undone: Insert row above.");
    host.run(L"REDO\n");
    EXPECT_EQ(host.lastMessage(), L"Redone: Insert row above.");
}

TEST_F(UndoCommands, with_nothing_to_undo_or_redo_that_is_said_and_no_failure) {
    host.run(L"U\n");
    EXPECT_EQ(host.lastMessage(), L"There is nothing to undo.");
    host.run(L"UNDO 3\n");
    EXPECT_EQ(host.lastMessage(), L"There is nothing to undo.");
    host.run(L"REDO\n");
    EXPECT_EQ(host.lastMessage(), L"There is nothing to redo.");
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(UndoCommands, undo_takes_a_number_of_steps_or_one) {
    for (int i = 0; i < 5; ++i) host.run(L"LINE 0,0 10,0 \n");
    host.run(L"UNDO 2\n");
    EXPECT_EQ(lineCount(), 3u);
    host.run(L"UNDO\n\n");
    EXPECT_EQ(lineCount(), 2u);
    host.run(L"UNDO 9\n");
    EXPECT_EQ(lineCount(), 0u);
    EXPECT_EQ(host.lastMessage(), L"There is nothing to undo.");
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(UndoCommands, undo_refuses_what_is_no_number_of_steps) {
    host.run(L"LINE 0,0 10,0 \n");
    for (const wchar_t* text : {L"0", L"-1", L"two", L"1x"}) {
        host.run(std::wstring(L"UNDO ") + text + L"\n");
        EXPECT_EQ(host.lastMessage(), std::wstring(L"\"") + text + L"\" is no number of steps.");
    }
    EXPECT_EQ(lineCount(), 1u);
    EXPECT_EQ(host.failures().size(), 4u);
}

TEST_F(UndoCommands, redo_goes_forward_step_by_step_until_a_new_change) {
    host.run(L"LINE 0,0 10,0 \nLINE 0,0 20,0 \nLINE 0,0 30,0 \nUNDO 3\nREDO\nREDO\n");
    EXPECT_EQ(lineCount(), 2u);
    host.run(L"LINE 0,0 40,0 \nREDO\n");
    EXPECT_EQ(host.lastMessage(), L"There is nothing to redo.");
    EXPECT_EQ(lineCount(), 3u);
}

TEST_F(UndoCommands, an_object_in_use_refuses_and_nothing_changes) {
    host.run(L"LINE 0,0 10,0 \n");
    const kdhost::Opened<KdDbEntity> line(kdhost::entitiesOfCurrentSpace(host.database()).front());
    host.run(L"U\n");
    EXPECT_EQ(host.failures(), Names{L"An object that the step concerns is in use: nothing was undone."});
    EXPECT_EQ(lineCount(), 1u);
}

TEST_F(UndoCommands, a_cancelled_command_leaves_no_step) {
    host.run(L"LINE 0,0 10,0 \nUNDO\n\x1bLINE\n\x1b");
    EXPECT_EQ(steps(), Names{L"LINE"});
}

TEST_F(UndoCommands, host_commands_are_undone_with_layers_and_the_current_one) {
    host.run(L"LAYER Make walls\nLOck walls\n\n");
    EXPECT_EQ(steps(), Names{L"LAYER"});
    const auto before = dump();
    host.run(L"U\n");
    EXPECT_EQ(dump()["layers"].size(), 1u);
    EXPECT_EQ(dump()["variables"]["CLAYER"], "0");
    host.run(L"REDO\n");
    EXPECT_EQ(dump(), before);
}

TEST_F(UndoCommands, a_drawing_s_variable_is_undone_by_its_own_name_and_by_setvar) {
    host.run(L"LUNITS 4\nSETVAR AUNITS 3\nLWDISPLAY 1\n");
    EXPECT_EQ(steps(), (Names{L"LUNITS", L"SETVAR"})) << "a variable of the session is none of the drawing's";
    host.run(L"UNDO 2\n");
    EXPECT_EQ(host.database().lunits(), 2);
    EXPECT_EQ(host.database().aunits(), 0);
}

TEST_F(UndoCommands, erased_objects_come_back_in_their_place) {
    host.run(L"LINE 0,0 10,0 \nLINE 0,50 10,50 \n");
    const auto before = kdhost::entitiesOfCurrentSpace(host.database());
    host.editor().pickFirst().set({before[0]});
    host.run(L"ERASE\nU\n");
    EXPECT_EQ(kdhost::entitiesOfCurrentSpace(host.database()), before);
}

TEST_F(UndoCommands, selected_cells_stay_selected) {
    const KdDbObjectId id = kdtest::append(host.database(), kdtest::TableBuilder(4, 3).build().release());
    vqcadMainAppService()->beginCommandMark(L"DeleteRows", L"");
    auto* table = kdtest::mustOpen<KdDbTable>(id, KdDb::kForWrite);
    table->deleteRows(3, 1);
    table->close();
    vqcadMainAppService()->endCommandMark();
    host.editor().pickFirst().selectCells(id, kdtest::cells("B2:C3"));
    host.run(L"U\n");
    EXPECT_EQ(kdhost::peek<KdDbTable>(id)->getSubSelection(), kdtest::cells("B2:C3"));
    EXPECT_EQ(host.editor().pickFirst().objects(), std::vector{id});
}

TEST_F(UndoCommands, what_is_changed_under_a_document_lock_is_a_step) {
    const KdDbObjectId id = kdtest::append(host.database(), kdtest::TableBuilder(4, 3).build().release());
    for (const double width : {20.0, 30.0}) {
        const KdAxDocLock lock(id);
        auto* table = kdtest::mustOpen<KdDbTable>(id, KdDb::kForWrite);
        table->setColumnWidth(0, width);
        table->close();
    }
    EXPECT_EQ(steps(), (Names{kdhost::kUnnamedStep, kdhost::kUnnamedStep}));
    host.run(L"U\n");
    EXPECT_EQ(kdhost::peek<KdDbTable>(id)->columnWidth(0), 20.0);
}

TEST_F(UndoCommands, a_mark_under_a_document_lock_keeps_its_name) {
    const KdDbObjectId id = kdtest::appendLine(host.database());
    {
        const KdAxDocLock lock(id);
        mark(L"SetCurTableStyle", L"");
    }
    EXPECT_EQ(steps(), Names{L"SetCurTableStyle"});
}

TEST_F(UndoCommands, a_lock_may_outlive_its_document) {
    auto lock = std::make_unique<KdAxDocLock>(kdtest::appendLine(host.database()));
    EXPECT_EQ(lock->lockStatus(), 0);
    host.documents().close(host.document());
    lock.reset();
}

TEST_F(UndoCommands, the_dump_tells_the_steps_oldest_first_and_those_of_its_own_drawing) {
    host.run(L"LINE 0,0 10,0 \n");
    mark(L"AboveInsert", L"Insert row above");
    EXPECT_EQ(dump()["undoSteps"], (Titles{"LINE", "AboveInsert"}));
    host.run(L"U\n");
    EXPECT_EQ(dump()["undoSteps"], (Titles{"LINE"}));
    host.run(L"NEW\n");
    EXPECT_EQ(dump()["undoSteps"], Titles{});
}

}  // namespace
