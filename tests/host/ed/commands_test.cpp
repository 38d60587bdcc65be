// The command loop.

#include "host/ed/commands.h"

#include <stdexcept>

#include "host/db/opened.h"
#include "host/ed/display.h"
#include "host/ed/uicontext.h"
#include "host/rx/commandstack.h"
#include "kd/ad/display.h"
#include "kd/db/database.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/ed/lispfunctions.h"
#include "kd/ed/prompts.h"
#include "kd/ed/uicontext.h"
#include "tests/support/application.h"

namespace {

std::vector<std::wstring> seen;

void noteAnswer() {
    wchar_t reply[1024];
    seen.push_back(kdedGetString(0, L"Say: ", reply) == RTNORM ? reply : L"(cancelled)");
}

void noteNames() {
    seen.push_back(kdhost::runningCommandNames());
}

void throwError() {
    throw std::runtime_error("out of paper");
}

void throwNumber() {
    throw 7;
}

void leaveOpen() {
    KdDbObject* object = nullptr;
    kddbOpenObject(object, kdhost::currentEditor()->database().layerTableId(), KdDb::kForRead);
}

void announceOnly() {
    kdedInitGet(1, L"Yes No");
}

int callDirectly() {
    seen.push_back(L"called");
    return 0;
}

class Commands : public kdtest::ApplicationTest {
protected:
    Commands() {
        seen.clear();
        add(L"NOTE", noteAnswer);
        add(L"NAMES", noteNames);
        add(L"THROWERROR", throwError);
        add(L"THROWNUMBER", throwNumber);
        add(L"LEAVEOPEN", leaveOpen);
        add(L"ANNOUNCE", announceOnly);
    }
    ~Commands() override { kdhost::commandStack().removeGroup(L"TEST"); }

    static void add(const wchar_t* name, KdEdCommandFunction function) {
        kdhost::commandStack().addCommand(L"TEST", name, name, 0, function, nullptr, -1, nullptr, nullptr);
    }
};

using Texts = std::vector<std::wstring>;

TEST_F(Commands, run_by_their_names_in_either_case_and_answers_follow) {
    host.run(L"note one\n_NOTE\ntwo\n");
    EXPECT_EQ(seen, (Texts{L"one", L"two"}));
}

TEST_F(Commands, an_empty_line_repeats_nothing) {
    host.run(L"NOTE one\n\n \n");
    EXPECT_EQ(seen, Texts{L"one"});
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(Commands, an_unknown_command_is_told) {
    host.run(L"NOSUCH\nNOTE one\n");
    EXPECT_EQ(host.failures(), Texts{L"Unknown command \"NOSUCH\"."});
    EXPECT_EQ(seen, Texts{L"one"});
}

TEST_F(Commands, a_macro_cancels_what_runs_and_starts_its_own) {
    host.type(L"NOTE\n");
    host.documents().sendStringToExecute(&host.document(), L"NOTE ^C^C_NOTE two\n");
    host.run(L"last\n");
    EXPECT_EQ(seen, (Texts{L"(cancelled)", L"two", L"last"}));
}

TEST_F(Commands, an_exception_ends_its_command_alone) {
    host.run(L"THROWERROR\nTHROWNUMBER\nNOTE one\n");
    EXPECT_EQ(host.failures(),
              (Texts{L"THROWERROR ended by an error: out of paper", L"THROWNUMBER ended by an error."}));
    EXPECT_EQ(seen, Texts{L"one"});
    EXPECT_EQ(kdhost::runningCommandNames(), L"");
}

TEST_F(Commands, what_a_command_leaves_open_is_noted_under_its_name) {
    host.run(L"LEAVEOPEN\n");
    const std::vector<kdhost::LeftOpen> left = kdhost::takeLeftOpen();
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].command, L"LEAVEOPEN");
    ASSERT_EQ(left[0].objects.size(), 1u);
    EXPECT_EQ(left[0].objects[0].command, L"LEAVEOPEN");
    EXPECT_TRUE(kdhost::takeLeftOpen().empty());
    const_cast<KdDbObject*>(kdhost::peekObject(left[0].objects[0].id))->close();
}

TEST_F(Commands, the_running_name_is_known) {
    host.run(L"NAMES\n");
    EXPECT_EQ(seen, Texts{L"NAMES"});
    EXPECT_EQ(kdhost::editorOfRunningCommand(), nullptr);
}

TEST_F(Commands, keywords_announced_in_vain_are_not_for_the_next_command) {
    host.run(L"ANNOUNCE\nNOTE \n");
    EXPECT_EQ(seen, Texts{L""});
}

TEST_F(Commands, lisp_functions_are_called_by_name) {
    EXPECT_EQ(kdedDefun(L"C:DO", 4), RTNORM);
    EXPECT_EQ(kdedRegFunc(callDirectly, 4), RTNORM);
    EXPECT_EQ(kdedRegFunc(callDirectly, 5), RTERROR);
    EXPECT_EQ(kdedDefun(L"", 6), RTERROR);
    host.run(L"(c:do)\n");
    EXPECT_EQ(seen, Texts{L"called"});
    EXPECT_EQ(kdedGetFunCode(), -1);
    EXPECT_EQ(kdedUndef(L"C:DO", 3), RTERROR);
    EXPECT_EQ(kdedUndef(L"C:DO", 4), RTNORM);
    host.run(L"(c:do)\n");
    EXPECT_EQ(seen.size(), 1u);
    EXPECT_EQ(host.failures().size(), 1u);
}

TEST_F(Commands, lisp_functions_belong_to_their_drawing) {
    kdedDefun(L"C:DO", 4);
    host.documents().openNew();
    EXPECT_EQ(kdedUndef(L"C:DO", 4), RTERROR);
}

class Context : public KdEdUIContext {
    QMenu* getMenuContext(const KdRxClass*, const KdArray<KdDbObjectId>&) override { return nullptr; }
    void onCommand(unsigned) override {}
};

TEST(ContextMenus, are_found_for_a_class_and_those_above_it) {
    Context table;
    Context entity;
    EXPECT_TRUE(kdedAddObjectContextMenu(KdDbEntity::desc(), &entity, nullptr));
    EXPECT_TRUE(kdedAddObjectContextMenu(KdDbTable::desc(), &table, nullptr));
    EXPECT_FALSE(kdedAddObjectContextMenu(KdDbTable::desc(), &table, nullptr));
    EXPECT_FALSE(kdedAddObjectContextMenu(nullptr, &table, nullptr));
    EXPECT_FALSE(kdedAddObjectContextMenu(KdDbTable::desc(), nullptr, nullptr));
    const KdArray<KdEdUIContext*> found = kdhost::contextsFor(KdDbTable::desc());
    ASSERT_EQ(found.length(), 2);
    EXPECT_EQ(found[0], &table);
    EXPECT_EQ(found[1], &entity);
    EXPECT_EQ(kdhost::contextsFor(KdDbObject::desc()).length(), 0);
    EXPECT_TRUE(kdedRemoveObjectContextMenu(KdDbTable::desc(), &table));
    EXPECT_FALSE(kdedRemoveObjectContextMenu(KdDbTable::desc(), &table));
    EXPECT_TRUE(kdedRemoveObjectContextMenu(KdDbEntity::desc(), &entity));
}

TEST_F(Commands, entities_to_redraw_gather_until_the_update) {
    kdhost::updateDisplay();
    const KdDbObjectId ids[] = {KdDbObjectId(5), KdDbObjectId(6), KdDbObjectId(5), KdDbObjectId()};
    kddbQueueForRegen(ids, 4);
    kddbQueueForRegen(nullptr, 4);
    EXPECT_EQ(kdhost::queuedForRedraw(), (std::vector<KdDbObjectId>{KdDbObjectId(5), KdDbObjectId(6)}));
    struct Screen : kdhost::Display {
        std::vector<std::size_t> redraws;
        void redraw(const std::vector<KdDbObjectId>& list) override { redraws.push_back(list.size()); }
    } screen;
    kdhost::setDisplay(&screen);
    kdedUpdateDisplay();
    kdedUpdateDisplay();
    host.run(L"LINE 0,0 5,5 \n");
    kdhost::setDisplay(nullptr);
    ASSERT_EQ(screen.redraws.size(), 2u) << "once for the two, once for the new line";
    EXPECT_EQ(screen.redraws[0], 2u);
}

}  // namespace
