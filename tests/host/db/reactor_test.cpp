// When reactors and the listener are told, and what they may do then.

#include <gtest/gtest.h>

#include <functional>

#include "host/db/access.h"
#include "host/db/objectstate.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

struct Recorder : KdDbObjectReactor {
    void modified(const KdDbObject* object) override {
        calls.push_back("modified");
        if (onModified) onModified(object);
    }
    void erased(const KdDbObject*, bool erasing) override { calls.push_back(erasing ? "erased" : "back"); }
    void goodbye(const KdDbObject*) override { calls.push_back("goodbye"); }

    std::vector<std::string> calls;
    std::function<void(const KdDbObject*)> onModified;
};

using Calls = std::vector<std::string>;

class Reactors : public ::testing::Test {
protected:
    void SetUp() override { kdhost::peekObject(m_id)->addReactor(&m_recorder); }

    Recorder m_recorder;
    KdDbDatabase m_database;
    KdDbObjectId m_id = kdtest::appendLine(m_database);
};

TEST_F(Reactors, a_changed_open_is_told_once_at_its_close) {
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    line->setEndPoint({2.0, 0.0, 0.0});
    line->setEndPoint({3.0, 0.0, 0.0});
    EXPECT_TRUE(m_recorder.calls.empty());
    line->close();
    EXPECT_EQ(m_recorder.calls, Calls{"modified"});
}

TEST_F(Reactors, a_write_open_without_a_change_tells_nothing) {
    mustOpen<KdDbLine>(m_id, KdDb::kForWrite)->close();
    EXPECT_TRUE(m_recorder.calls.empty());
}

TEST_F(Reactors, a_change_before_a_downgrade_is_told_at_the_last_close) {
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    line->setEndPoint({2.0, 0.0, 0.0});
    line->downgradeOpen();
    auto* other = mustOpen<KdDbLine>(m_id);
    other->close();
    EXPECT_TRUE(m_recorder.calls.empty());
    line->upgradeOpen();
    line->close();
    EXPECT_EQ(m_recorder.calls, Calls{"modified"});
}

TEST_F(Reactors, a_reactor_may_open_the_object_for_read_and_for_write) {
    m_recorder.onModified = [&](const KdDbObject* object) {
        EXPECT_FALSE(object->isReadEnabled());
        mustOpen<KdDbLine>(m_id)->close();
        mustOpen<KdDbLine>(m_id, KdDb::kForWrite)->close();
    };
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    line->setEndPoint({2.0, 0.0, 0.0});
    line->close();
    EXPECT_EQ(m_recorder.calls, Calls{"modified"});
}

TEST_F(Reactors, a_transient_change_under_a_read_open_is_told_at_its_close) {
    auto* line = mustOpen<KdDbLine>(m_id);
    KdDbObjectAccess::noteTransientChange(*line);
    KdDbObjectAccess::noteTransientChange(*line);
    EXPECT_TRUE(m_recorder.calls.empty());
    line->close();
    EXPECT_EQ(m_recorder.calls, Calls{"modified"});
}

TEST_F(Reactors, a_transient_change_of_an_object_that_is_not_open_is_told_at_once) {
    KdDbObjectAccess::noteTransientChange(*kdhost::peekObject(m_id));
    EXPECT_EQ(m_recorder.calls, Calls{"modified"});
}

TEST_F(Reactors, erasing_and_coming_back_are_told_and_cancel_out_within_one_open) {
    KdDbObject* object = mustOpen<KdDbObject>(m_id, KdDb::kForWrite);
    object->erase();
    object->close();
    ASSERT_EQ(kddbOpenObject(object, m_id, KdDb::kForWrite, true), Kdad::eOk);
    object->erase(false);
    object->erase();
    object->close();
    ASSERT_EQ(kddbOpenObject(object, m_id, KdDb::kForWrite, true), Kdad::eOk);
    object->erase(false);
    object->close();
    EXPECT_EQ(m_recorder.calls, (Calls{"erased", "back"}));
}

TEST_F(Reactors, they_come_and_go_under_any_open) {
    Recorder second;
    auto* line = mustOpen<KdDbLine>(m_id);
    line->addReactor(&second);
    line->addReactor(&second);
    line->addReactor(nullptr);
    line->removeReactor(&m_recorder);
    line->close();
    EXPECT_TRUE(m_recorder.calls.empty());
    line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    line->setEndPoint({2.0, 0.0, 0.0});
    line->close();
    EXPECT_EQ(second.calls, Calls{"modified"});
    kdhost::peekObject(m_id)->removeReactor(&second);
}

TEST_F(Reactors, one_that_is_removed_while_others_are_told_is_told_no_more) {
    auto second = std::make_unique<Recorder>();
    kdhost::peekObject(m_id)->addReactor(second.get());
    Recorder added;
    m_recorder.onModified = [&](const KdDbObject* object) {
        object->removeReactor(second.get());
        second.reset();
        object->addReactor(&added);
    };
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    line->setEndPoint({2.0, 0.0, 0.0});
    line->close();
    EXPECT_EQ(m_recorder.calls, Calls{"modified"});
    EXPECT_TRUE(added.calls.empty()) << "who comes during a telling waits for the next";
    kdhost::peekObject(m_id)->removeReactor(&added);
}

TEST_F(Reactors, they_are_told_when_the_database_goes) {
    auto database = std::make_unique<KdDbDatabase>();
    kdhost::peekObject(kdtest::appendLine(*database))->addReactor(&m_recorder);
    database.reset();
    EXPECT_EQ(m_recorder.calls, Calls{"goodbye"});
}

TEST_F(Reactors, the_listener_hears_of_additions_changes_and_erasures_at_their_closes) {
    struct : kdhost::DatabaseListener {
        void objectChanged(KdDbObjectId id) override { ids.push_back(id); }
        std::vector<KdDbObjectId> ids;
    } listener;
    kdhost::addDatabaseListener(&listener);
    const KdDbObjectId added = kdtest::appendLine(m_database);
    EXPECT_EQ(listener.ids, (std::vector{added, m_database.modelSpaceId()}));
    listener.ids.clear();
    auto* line = mustOpen<KdDbLine>(m_id, KdDb::kForWrite);
    line->setEndPoint({2.0, 0.0, 0.0});
    line->erase();
    line->close();
    kdhost::removeDatabaseListener(&listener);
    EXPECT_EQ(listener.ids, std::vector{m_id});
}

}  // namespace
