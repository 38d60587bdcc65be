// Whether a drawing has changed since it was saved.

#include "kd/db/transaction.h"
#include "tests/host/db/undofixture.h"

namespace {

class SavedState : public kdtest::Undo {
protected:
    SavedState() { history().noteSaved(); }
    bool isChanged() { return history().isChangedSinceSave(); }
};

TEST_F(SavedState, a_step_makes_a_drawing_changed_until_it_is_saved) {
    EXPECT_FALSE(isChanged());
    step([&] { stretch(2.0); });
    EXPECT_TRUE(isChanged());
    history().noteSaved();
    EXPECT_FALSE(isChanged());
    step([&] { stretch(3.0); });
    EXPECT_TRUE(isChanged());
}

TEST_F(SavedState, a_step_that_touches_nothing_changes_nothing) {
    step([&] { kdtest::mustOpen<KdDbLine>(m_line, KdDb::kForWrite)->close(); });
    step([&] { m_database.setLunits(m_database.lunits()); });
    EXPECT_FALSE(isChanged());
    step([&] { m_database.setLunits(m_database.lunits() == 2 ? 1 : 2); });
    EXPECT_TRUE(isChanged());
}

TEST_F(SavedState, undo_and_redo_lead_back_to_what_was_saved) {
    step([&] { stretch(2.0); });
    history().noteSaved();
    EXPECT_EQ(history().undo(), Kdad::eOk);
    EXPECT_TRUE(isChanged());
    EXPECT_EQ(history().redo(), Kdad::eOk);
    EXPECT_FALSE(isChanged());
    step([&] { stretch(3.0); });
    EXPECT_EQ(history().undo(), Kdad::eOk);
    EXPECT_FALSE(isChanged());
}

TEST_F(SavedState, another_step_in_the_place_of_one_that_was_saved_is_a_change) {
    step([&] { stretch(2.0); });
    history().noteSaved();
    EXPECT_EQ(history().undo(), Kdad::eOk);
    step([&] { stretch(2.0); });
    EXPECT_TRUE(isChanged());
}

TEST_F(SavedState, what_the_running_step_or_nobodys_step_changes_counts_at_once) {
    step([&] {
        stretch(2.0);
        EXPECT_TRUE(isChanged());
    });
    history().noteSaved();
    stretch(3.0);
    EXPECT_TRUE(isChanged());
    history().noteSaved();
    EXPECT_FALSE(isChanged());
}

TEST_F(SavedState, an_aborted_transaction_leaves_it_unchanged) {
    step([&] {
        history().startTransaction();
        stretch(2.0);
        EXPECT_EQ(history().abortTransaction(), Kdad::eOk);
    });
    EXPECT_EQ(length(), 1.0);
    EXPECT_FALSE(isChanged());
}

}  // namespace
