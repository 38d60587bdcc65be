// Who is told of what undo puts back.

#include "tests/host/db/undofixture.h"
#include "tests/host/db/witness.h"

namespace {

using kdtest::Undo;
using kdtest::Witness;

TEST_F(Undo, reactors_are_told_of_what_is_put_back) {
    Witness witness;
    kdhost::peekObject(m_line)->addReactor(&witness);
    step([&] { stretch(2.0); });
    step([&] { edit<KdDbLine>(m_line, [](KdDbLine& line) { line.erase(); }); });
    EXPECT_EQ(witness.told, "me");
    history().undo();
    history().undo();
    history().redo();
    history().redo();
    EXPECT_EQ(witness.told, "mebmme");
    kdhost::peekObject(m_line, true)->removeReactor(&witness);
}

struct Listener : kdhost::DatabaseListener {
    Listener() { kdhost::addDatabaseListener(this); }
    ~Listener() override { kdhost::removeDatabaseListener(this); }
    void objectChanged(KdDbObjectId id) override {
        told.push_back(id);
        if (then) then(id);
    }
    std::vector<KdDbObjectId> told;
    std::function<void(KdDbObjectId)> then;
};

TEST_F(Undo, listeners_are_told_of_each_object_once_and_of_no_other) {
    const KdDbObjectId other = kdtest::appendLine(m_database);
    KdDbObjectId made;
    step([&] {
        stretch(2.0);
        made = kdtest::appendLine(m_database);
    });
    const Listener listener;
    history().undo();
    EXPECT_EQ(std::count(listener.told.begin(), listener.told.end(), m_line), 1);
    EXPECT_EQ(std::count(listener.told.begin(), listener.told.end(), made), 1);
    EXPECT_EQ(std::count(listener.told.begin(), listener.told.end(), other), 0);
}

TEST_F(Undo, what_a_listener_changes_belongs_to_the_step_that_it_is_told_of) {
    // As a computed value follows what it is computed from.
    const KdDbObjectId follower = kdtest::appendLine(m_database);
    Listener listener;
    listener.then = [&](KdDbObjectId id) {
        if (id == m_line)
            edit<KdDbLine>(follower, [&](KdDbLine& line) { line.setEndPoint({2.0 * length(), 0.0, 0.0}); });
    };
    const auto followed = [&] { return kdhost::peek<KdDbLine>(follower)->endPoint().x; };
    step([&] { stretch(2.0); });
    step([&] { stretch(3.0); });
    EXPECT_EQ(history().undoSteps().size(), 2u);
    EXPECT_EQ(followed(), 6.0);
    history().undo();
    EXPECT_EQ(followed(), 4.0);
    EXPECT_EQ(history().redoSteps().size(), 1u) << "following is no new change";
    history().redo();
    EXPECT_EQ(followed(), 6.0);
    history().undo();
    history().undo();
    EXPECT_EQ(followed(), 2.0);
}

}  // namespace
