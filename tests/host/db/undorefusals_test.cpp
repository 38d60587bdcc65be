// When nothing is undone, and when it is all the same.

#include "kd/db/symboltable.h"
#include "tests/host/db/undofixture.h"

namespace {

using kdtest::mustOpen;
using kdtest::Undo;

TEST_F(Undo, nothing_is_undone_while_an_object_of_the_step_is_open) {
    KdDbObjectId other = kdtest::appendLine(m_database);
    step([&] {
        stretch(2.0);
        edit<KdDbLine>(other, [](KdDbLine& line) { line.erase(); });
    });
    for (const auto& [mode, status] :
         {std::pair(KdDb::kForRead, Kdad::eWasOpenForRead), std::pair(KdDb::kForWrite, Kdad::eWasOpenForWrite)}) {
        auto* line = mustOpen<KdDbLine>(m_line, mode);
        EXPECT_EQ(history().undo(), status);
        EXPECT_EQ(line->endPoint().x, 2.0);
        EXPECT_EQ(kdhost::peekObject(other), nullptr);
        line->close();
    }
    EXPECT_EQ(history().undo(), Kdad::eOk);
    auto* line = mustOpen<KdDbLine>(m_line);
    EXPECT_EQ(history().redo(), Kdad::eWasOpenForRead);
    EXPECT_NE(kdhost::peekObject(other), nullptr);
    line->close();
}

TEST_F(Undo, an_open_object_that_the_step_left_alone_is_no_bar) {
    const KdDbObjectId other = kdtest::appendLine(m_database);
    step([&] { stretch(2.0); });
    auto* line = mustOpen<KdDbLine>(other, KdDb::kForWrite);
    EXPECT_EQ(history().undo(), Kdad::eOk);
    line->close();
}

TEST_F(Undo, it_is_refused_inside_a_mark_and_in_a_command_that_has_changed_something) {
    step([&] { stretch(2.0); });
    mark(L"Mark", [&] { EXPECT_EQ(history().undo(), Kdad::eInvalidContext); });
    step([&] {
        stretch(3.0);
        EXPECT_EQ(history().undo(), Kdad::eInvalidContext);
        EXPECT_EQ(history().redo(), Kdad::eInvalidContext);
    });
    EXPECT_EQ(length(), 3.0);
    step([&] { EXPECT_EQ(history().undo(), Kdad::eOk); });
    EXPECT_EQ(length(), 2.0);
}

TEST_F(Undo, an_entity_on_a_layer_that_was_locked_since_is_put_back_all_the_same) {
    step([&] { stretch(2.0); });
    step([&] { edit<KdDbLayerTableRecord>(m_database.layerZero(), [](auto& layer) { layer.setIsLocked(true); }); });
    history().undo();
    history().undo();
    EXPECT_EQ(length(), 1.0);
}

}  // namespace
