// Documents: their life, who is told of it and in which order.

#include "kd/ad/document.h"

#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/ed/commands.h"
#include "host/rx/commandstack.h"
#include "host/rx/faults.h"
#include "kd/ad/doclock.h"
#include "kd/db/line.h"
#include "kd/db/transaction.h"
#include "kd/ed/prompts.h"
#include "tests/support/application.h"

namespace {

/// Notes what it is told, with the number of documents and whose record is given out at that time.
class Reactor : public KdApDocManagerReactor {
public:
    Reactor() { kdDocManagerPtr()->addReactor(this); }
    ~Reactor() override { kdDocManagerPtr()->removeReactor(this); }

    std::vector<std::wstring> told;

private:
    void note(const wchar_t* what, KdApDocument* document) {
        const bool inContext = GetKdadAppCtxActiveDocData() == &static_cast<kdhost::Document*>(document)->data();
        told.push_back(std::wstring(what) + L" " + document->fileName() + (inContext ? L" in context, " : L", ") +
                       std::to_wstring(kdDocManagerPtr()->documentCount()));
    }
    void documentCreated(KdApDocument* document) override { note(L"created", document); }
    void documentToBeActivated(KdApDocument* document) override { note(L"to be activated", document); }
    void documentActivated(KdApDocument* document) override { note(L"activated", document); }
    void documentToBeDeactivated(KdApDocument* document) override { note(L"to be deactivated", document); }
    void documentToBeDestroyed(KdApDocument* document) override { note(L"to be destroyed", document); }
    void documentDestroyed(const wchar_t* fileName) override { told.push_back(std::wstring(L"destroyed ") + fileName); }
};

class Documents : public kdtest::ApplicationTest {};

using Told = std::vector<std::wstring>;

TEST_F(Documents, a_new_one_is_created_then_activated) {
    Reactor reactor;
    kdhost::Document& document = host.documents().openNew();
    EXPECT_EQ(reactor.told, (Told{L"created Drawing2, 2", L"to be deactivated Drawing1 in context, 2",
                                  L"to be activated Drawing2 in context, 2", L"activated Drawing2 in context, 2"}));
    EXPECT_EQ(kdDocManagerPtr()->curDocument(), &document);
    EXPECT_EQ(kddbHostApplicationServices()->workingDatabase(), document.database());
}

TEST_F(Documents, switching_tells_both_sides) {
    kdhost::Document& first = host.document();
    host.documents().openNew();
    Reactor reactor;
    host.documents().activate(first);
    EXPECT_EQ(reactor.told, (Told{L"to be deactivated Drawing2 in context, 2",
                                  L"to be activated Drawing1 in context, 2", L"activated Drawing1 in context, 2"}));
    host.documents().activate(first);
    EXPECT_EQ(reactor.told.size(), 3u) << "it is active already";
    EXPECT_EQ(kddbHostApplicationServices()->workingDatabase(), first.database());
}

TEST_F(Documents, the_one_to_be_destroyed_is_still_counted_and_in_context) {
    host.documents().openNew();
    Reactor reactor;
    EXPECT_TRUE(host.documents().close(host.document()));
    EXPECT_EQ(
        reactor.told,
        (Told{L"to be destroyed Drawing2 in context, 2", L"to be deactivated Drawing2 in context, 2",
              L"to be activated Drawing1 in context, 2", L"activated Drawing1 in context, 2", L"destroyed Drawing2"}));
    reactor.told.clear();
    EXPECT_TRUE(host.documents().close(host.document()));
    EXPECT_EQ(reactor.told, (Told{L"to be destroyed Drawing1 in context, 1",
                                  L"to be deactivated Drawing1 in context, 1", L"destroyed Drawing1"}));
    EXPECT_EQ(kdDocManagerPtr()->curDocument(), nullptr);
    EXPECT_EQ(GetKdadAppCtxActiveDocData(), nullptr);
    EXPECT_EQ(kddbHostApplicationServices()->workingDatabase(), nullptr);
    EXPECT_EQ(kdhost::currentEditor(), nullptr);
}

TEST_F(Documents, a_reactor_added_twice_is_told_once_and_a_removed_one_no_more) {
    Reactor reactor;
    kdDocManagerPtr()->addReactor(&reactor);
    kdDocManagerPtr()->addReactor(nullptr);
    host.documents().openNew();
    EXPECT_EQ(reactor.told.size(), 4u);
    kdDocManagerPtr()->removeReactor(&reactor);
    host.documents().openNew();
    EXPECT_EQ(reactor.told.size(), 4u);
}

TEST_F(Documents, each_has_its_own_record_selection_and_input) {
    kdhost::Document& first = host.document();
    first.data().m_tableId = KdDbObjectId(42);
    host.type(L"waiting\n");
    host.documents().openNew();
    EXPECT_TRUE(GetKdadAppCtxActiveDocData()->m_tableId.isNull());
    EXPECT_TRUE(host.editor().input().isEmpty());
    host.documents().activate(first);
    EXPECT_EQ(GetKdadAppCtxActiveDocData()->m_tableId, KdDbObjectId(42));
    EXPECT_FALSE(host.editor().input().isEmpty());
    first.data().m_tableId.setNull();
}

TEST_F(Documents, text_is_sent_to_the_document_named) {
    kdhost::Document& first = host.document();
    host.documents().openNew();
    EXPECT_EQ(kdDocManagerPtr()->sendStringToExecute(&first, L"FILEDIA 0\n", false), Kdad::eOk);
    EXPECT_TRUE(host.editor().input().isEmpty());
    EXPECT_FALSE(first.editor().input().isEmpty());
    EXPECT_EQ(kdDocManagerPtr()->sendStringToExecute(nullptr, L"x"), Kdad::eInvalidInput);
    EXPECT_EQ(kdDocManagerPtr()->sendStringToExecute(&first, nullptr), Kdad::eInvalidInput);
}

TEST_F(Documents, the_record_can_be_missing) {
    kdhost::faults().noDocumentData = true;
    EXPECT_EQ(GetKdadAppCtxActiveDocData(), nullptr);
}

TEST_F(Documents, the_command_line_s_state_can_be_off_or_missing) {
    ASSERT_NE(kddbHostApplicationServices()->commandLineState(), nullptr);
    EXPECT_TRUE(kddbHostApplicationServices()->commandLineState()->isOn());
    kdhost::faults().commandLineOff = true;
    EXPECT_FALSE(kddbHostApplicationServices()->commandLineState()->isOn());
    kdhost::faults().noCommandLineState = true;
    EXPECT_EQ(kddbHostApplicationServices()->commandLineState(), nullptr);
}

TEST_F(Documents, each_document_has_transactions_of_its_own) {
    KdDbTransactionManager& first = *host.document().transactionManager();
    KdDbTransactionManager& second = *host.documents().openNew().transactionManager();
    KdDbTransaction* transaction = first.startTransaction();
    EXPECT_EQ(first.topTransaction(), transaction);
    EXPECT_EQ(second.topTransaction(), nullptr);
    EXPECT_EQ(second.endTransaction(), Kdad::eInvalidContext);
    EXPECT_EQ(first.endTransaction(), Kdad::eOk);
}

KdDbObjectId lineOfFirst;
KdDbObjectId lineOfSecond;
std::vector<int> lockStatuses;
bool closed = true;

void lockBoth() {
    lockStatuses = {KdAxDocLock(lineOfFirst).lockStatus(), KdAxDocLock(lineOfSecond).lockStatus()};
    closed = kdhost::Application::current()->documents().close(*kdhost::Application::current()->documents().current());
}

TEST_F(Documents, the_lock_is_granted_unless_another_document_s_command_runs) {
    const auto addLine = [&] {
        kdhost::appendToCurrentSpace(host.database(), std::make_unique<KdDbLine>());
        return kdhost::entitiesOfCurrentSpace(host.database()).back();
    };
    lineOfFirst = addLine();
    host.documents().openNew();
    lineOfSecond = addLine();
    EXPECT_EQ(KdAxDocLock(lineOfFirst).lockStatus(), 0);
    EXPECT_EQ(KdAxDocLock(lineOfSecond).lockStatus(), 0);
    EXPECT_NE(KdAxDocLock(KdDbObjectId::kNull).lockStatus(), 0);
    {
        KdDbDatabase side(true, true);
        EXPECT_NE(KdAxDocLock(side.layerTableId()).lockStatus(), 0) << "an object of no document";
    }

    kdhost::commandStack().addCommand(L"TEST", L"LOCKBOTH", L"LOCKBOTH", 0, lockBoth, nullptr, -1, nullptr, nullptr);
    host.run(L"LOCKBOTH\n");
    kdhost::commandStack().removeGroup(L"TEST");
    ASSERT_EQ(lockStatuses.size(), 2u);
    EXPECT_NE(lockStatuses[0], 0);
    EXPECT_EQ(lockStatuses[1], 0);
    EXPECT_FALSE(closed) << "a document is not closed under its own command";
}

}  // namespace
