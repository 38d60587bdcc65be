// Looks that changed though the entity itself did not.

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/db/undo.h"
#include "host/ed/display.h"
#include "tests/support/application.h"
#include "tests/support/leakguard.h"
#include "tests/support/objects.h"

namespace {

using kdtest::mustOpen;

struct ChangeCounter : KdDbObjectReactor {
    void modified(const KdDbObject*) override { ++count; }
    int count = 0;
};

class GraphicsModified : public kdtest::ApplicationTest {
protected:
    GraphicsModified() {
        m_line = kdtest::appendLine(host.database());
        kdhost::peekObject(m_line)->addReactor(&m_changes);
        kdhost::updateDisplay();
        m_steps = steps();
    }
    ~GraphicsModified() override { kdhost::peekObject(m_line)->removeReactor(&m_changes); }
    std::vector<std::wstring> steps() { return kdhost::undoHistory(host.database())->undoSteps(); }

    KdDbObjectId m_line;
    ChangeCounter m_changes;
    std::vector<std::wstring> m_steps;
};

TEST_F(GraphicsModified, the_entity_is_told_once_and_drawn_afresh_and_nothing_is_to_be_undone) {
    const kdhost::UndoCommandScope command(&host.database(), L"LOOKS");
    auto* line = mustOpen<KdDbLine>(m_line, KdDb::kForWrite);
    line->recordGraphicsModified();
    line->recordGraphicsModified(true);
    EXPECT_EQ(m_changes.count, 0) << "only at the close";
    EXPECT_TRUE(kdhost::queuedForRedraw().empty());
    line->close();
    EXPECT_EQ(m_changes.count, 1);
    EXPECT_EQ(kdhost::queuedForRedraw(), std::vector<KdDbObjectId>{m_line});
    EXPECT_EQ(steps(), m_steps);
}

TEST_F(GraphicsModified, told_as_not_modified_it_stays_as_it_was) {
    auto* line = mustOpen<KdDbLine>(m_line, KdDb::kForWrite);
    line->recordGraphicsModified(false);
    line->close();
    EXPECT_EQ(m_changes.count, 0);
    EXPECT_TRUE(kdhost::queuedForRedraw().empty());
}

TEST_F(GraphicsModified, without_a_write_open_nothing_happens_and_a_breach_is_noted) {
    auto* line = mustOpen<KdDbLine>(m_line);
    line->recordGraphicsModified();
    line->close();
    EXPECT_EQ(m_changes.count, 0);
    EXPECT_TRUE(kdhost::queuedForRedraw().empty());
    kdtest::expectDisciplineBreach("told as changed without a write open");
}

TEST_F(GraphicsModified, an_entity_in_memory_takes_it_quietly) {
    KdDbLine line;
    line.recordGraphicsModified();
    EXPECT_TRUE(kdhost::queuedForRedraw().empty());
}

}  // namespace
