// The locking of documents by the document manager.

#include <gtest/gtest.h>

#include "host/db/currentspace.h"
#include "host/db/undo.h"
#include "host/ed/commands.h"
#include "host/rx/commandstack.h"
#include "kd/ad/document.h"
#include "kd/db/line.h"
#include "tests/support/application.h"

namespace {

class DocumentLocks : public kdtest::ApplicationTest {
protected:
    void addLine() { kdhost::appendToCurrentSpace(host.database(), std::make_unique<KdDbLine>()); }
    std::vector<std::wstring> steps() { return kdhost::undoHistory(host.database())->undoSteps(); }
    KdApDocManager& manager() { return *kdDocManagerPtr(); }
};

TEST_F(DocumentLocks, what_is_changed_between_lock_and_unlock_is_one_step_of_the_given_name) {
    KdApDocument* document = manager().curDocument();
    ASSERT_EQ(manager().lockDocument(document, KdAp::kWrite, L"Lines", L"Two lines", true), Kdad::eOk);
    addLine();
    addLine();
    EXPECT_EQ(manager().unlockDocument(document), Kdad::eOk);
    EXPECT_EQ(steps(), std::vector<std::wstring>{L"Lines"});
}

TEST_F(DocumentLocks, a_lock_without_changes_leaves_no_step_and_one_without_a_name_is_an_edit) {
    KdApDocument* document = manager().curDocument();
    ASSERT_EQ(manager().lockDocument(document), Kdad::eOk);
    EXPECT_EQ(manager().unlockDocument(document), Kdad::eOk);
    EXPECT_TRUE(steps().empty());
    ASSERT_EQ(manager().lockDocument(document), Kdad::eOk);
    addLine();
    EXPECT_EQ(manager().unlockDocument(document), Kdad::eOk);
    EXPECT_EQ(steps(), std::vector<std::wstring>{kdhost::kUnnamedStep});
}

TEST_F(DocumentLocks, locks_inside_a_lock_join_it) {
    KdApDocument* document = manager().curDocument();
    ASSERT_EQ(manager().lockDocument(document, KdAp::kWrite, L"Outer"), Kdad::eOk);
    addLine();
    ASSERT_EQ(manager().lockDocument(document, KdAp::kWrite, L"Inner"), Kdad::eOk);
    addLine();
    EXPECT_EQ(manager().unlockDocument(document), Kdad::eOk);
    EXPECT_EQ(manager().unlockDocument(document), Kdad::eOk);
    EXPECT_EQ(steps(), std::vector<std::wstring>{L"Outer"});
}

TEST_F(DocumentLocks, no_document_and_an_unlock_without_a_lock_are_refused) {
    EXPECT_EQ(manager().lockDocument(nullptr), Kdad::eInvalidInput);
    EXPECT_EQ(manager().unlockDocument(nullptr), Kdad::eInvalidInput);
    EXPECT_EQ(manager().unlockDocument(manager().curDocument()), Kdad::eInvalidInput);
}

kdhost::Document* otherDocument = nullptr;
Kdad::ErrorStatus statusOfOther = Kdad::eOk;

void lockOther() {
    statusOfOther = kdDocManagerPtr()->lockDocument(otherDocument);
}

TEST_F(DocumentLocks, a_document_is_not_locked_while_a_command_of_another_runs) {
    otherDocument = &host.document();
    host.documents().openNew();
    kdhost::commandStack().addCommand(L"TEST", L"LOCKOTHER", L"LOCKOTHER", 0, lockOther, nullptr, -1, nullptr, nullptr);
    host.run(L"LOCKOTHER\n");
    kdhost::commandStack().removeGroup(L"TEST");
    EXPECT_EQ(statusOfOther, Kdad::eLockViolation);
    EXPECT_EQ(kdDocManagerPtr()->unlockDocument(otherDocument), Kdad::eInvalidInput);
}

}  // namespace
