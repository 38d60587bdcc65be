// The drag loop: what it tells a jig, when it goes on, and how it ends.

#include "kd/ed/jig.h"

#include <gtest/gtest.h>

#include <memory>

#include "host/db/access.h"
#include "host/ed/display.h"
#include "host/ed/inputqueue.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "kd/ed/hostresources.h"
#include "kd/ed/prompts.h"
#include "tests/support/application.h"

namespace {

using kdhost::InputItem;

/// Drags the end of a line, and keeps a book of what happens.
class LineJig : public KdEdJig {
public:
    DragStatus sampler() override {
        ++samples;
        if (refusal != kNormal) return refusal;
        KdGePoint3d point;
        const DragStatus status = acquirePoint(point);
        if (status == kNormal) cursor = point;
        return status;
    }
    bool update() override {
        updates.push_back(cursor);
        shownWhileDragging = kdhost::draggedEntity();
        line->setEndPoint(cursor);
        return true;
    }
    KdDbEntity* entity() const override { return line; }

    KdDbLine* line = new KdDbLine;
    KdGePoint3d cursor;
    DragStatus refusal = kNormal;
    int samples = 0;
    std::vector<KdGePoint3d> updates;
    const KdDbEntity* shownWhileDragging = nullptr;
};

class Jig : public kdtest::ApplicationTest {
protected:
    ~Jig() override {
        if (owned) delete jig.line;
    }
    void move(double x, double y) { host.editor().input().put(InputItem::Kind::Move, {x, y, 0.0}); }
    void pick(double x, double y) { host.editor().input().put(InputItem::Kind::Pick, {x, y, 0.0}); }

    LineJig jig;
    bool owned = true;
};

using Points = std::vector<KdGePoint3d>;

TEST_F(Jig, follows_each_move_and_ends_with_the_pick) {
    move(1, 1);
    move(2, 1);
    pick(3, 1);
    EXPECT_EQ(jig.drag(), KdEdJig::kNormal);
    EXPECT_EQ(jig.cursor, KdGePoint3d(3, 1, 0));
    // The pick is a move to its place, and a press there.
    EXPECT_EQ(jig.updates, (Points{{1, 1, 0}, {2, 1, 0}, {3, 1, 0}, {3, 1, 0}}));
}

TEST_F(Jig, is_not_updated_where_nothing_moved) {
    move(1, 1);
    move(1, 1);
    pick(1, 1);
    EXPECT_EQ(jig.drag(), KdEdJig::kNormal);
    EXPECT_EQ(jig.samples, 4);
    EXPECT_EQ(jig.updates, (Points{{1, 1, 0}, {1, 1, 0}})) << "the first move, and the press";
}

TEST_F(Jig, goes_on_when_the_sampler_says_that_nothing_changed_and_ends_with_a_pick_all_the_same) {
    jig.refusal = KdEdJig::kNoChange;
    move(1, 1);
    pick(2, 2);
    EXPECT_EQ(jig.drag(), KdEdJig::kNormal);
    EXPECT_TRUE(jig.updates.empty());
    EXPECT_TRUE(host.editor().input().isEmpty());
}

TEST_F(Jig, ends_with_any_other_status_of_the_sampler) {
    jig.refusal = KdEdJig::kOther;
    move(1, 1);
    pick(2, 2);
    EXPECT_EQ(jig.drag(), KdEdJig::kOther);
    EXPECT_EQ(jig.samples, 1);
    host.editor().input().clear();
}

TEST_F(Jig, takes_a_typed_point_absolute_and_relative_to_the_last) {
    host.type(L"10,20\n");
    EXPECT_EQ(jig.drag(), KdEdJig::kNormal);
    EXPECT_EQ(jig.cursor, KdGePoint3d(10, 20, 0));
    host.type(L"@5,0\n");
    EXPECT_EQ(jig.drag(), KdEdJig::kNormal);
    EXPECT_EQ(jig.cursor, KdGePoint3d(15, 20, 0));
}

TEST_F(Jig, takes_a_typed_point_in_the_user_coordinate_system) {
    ASSERT_EQ(host.database().setUcs({100, 0, 0}, {0, 1, 0}, {-1, 0, 0}), Kdad::eOk);
    host.type(L"10,20\n");
    EXPECT_EQ(jig.drag(), KdEdJig::kNormal);
    EXPECT_EQ(jig.cursor, KdGePoint3d(80, 10, 0));
}

TEST_F(Jig, tells_what_a_point_is_and_asks_again_for_any_other_text) {
    host.type(L"nonsense\n1,2\n");
    EXPECT_EQ(jig.drag(), KdEdJig::kNormal);
    EXPECT_EQ(jig.cursor, KdGePoint3d(1, 2, 0));
    EXPECT_EQ(host.lastMessage(), L"A point is needed: x,y or x,y,z.");
}

TEST_F(Jig, ends_with_a_keyword_of_its_list) {
    jig.setKeywordList(L"Breite _Width");
    host.type(L"b\n");
    EXPECT_EQ(jig.drag(), KdEdJig::kKeyword);
    wchar_t word[133];
    EXPECT_EQ(kdedGetInput(word), RTNORM);
    EXPECT_STREQ(word, L"Width");
    EXPECT_EQ(jig.samples, 0);
}

TEST_F(Jig, ends_with_Enter_with_Esc_and_with_the_end_of_all_input) {
    host.type(L"\n");
    EXPECT_EQ(jig.drag(), KdEdJig::kNull);
    host.type(L"\x1b");
    EXPECT_EQ(jig.drag(), KdEdJig::kCancel);
    host.editor().input().put(InputItem::Kind::Escape);
    EXPECT_EQ(jig.drag(), KdEdJig::kCancel);
    host.editor().input().put(InputItem::Kind::Cancel);
    EXPECT_EQ(jig.drag(), KdEdJig::kCancel);
    EXPECT_EQ(jig.drag(), KdEdJig::kModeless);
}

TEST_F(Jig, shows_its_entity_for_the_time_of_the_drag_only) {
    pick(1, 1);
    EXPECT_EQ(jig.drag(), KdEdJig::kNormal);
    EXPECT_EQ(jig.shownWhileDragging, jig.line);
    EXPECT_EQ(kdhost::draggedEntity(), nullptr);
}

TEST_F(Jig, moves_mean_nothing_to_other_prompts) {
    move(5, 5);
    host.type(L"word\n");
    wchar_t reply[133];
    EXPECT_EQ(kdedGetString(0, L"", reply), RTNORM);
    EXPECT_STREQ(reply, L"word");
}

TEST_F(Jig, appends_its_entity_to_the_current_space_closed) {
    pick(4, 4);
    ASSERT_EQ(jig.drag(), KdEdJig::kNormal);
    const KdDbObjectId id = jig.append();
    owned = false;
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(kdhost::peek<KdDbLine>(id), jig.line);
    EXPECT_EQ(jig.line->ownerId(), host.database().modelSpaceId());
}

TEST_F(Jig, gives_the_null_id_and_keeps_the_entity_where_the_space_cannot_be_written) {
    KdDbObject* space = nullptr;
    ASSERT_EQ(kddbOpenObject(space, host.database().modelSpaceId(), KdDb::kForRead, false, nullptr), Kdad::eOk);
    EXPECT_TRUE(jig.append().isNull());
    space->close();
    EXPECT_TRUE(jig.line->objectId().isNull());
}

TEST_F(Jig, the_bits_of_the_input_controls_change_nothing_of_what_the_user_may_do) {
    struct Controlled : LineJig {
        DragStatus sampler() override {
            setUserInputControls(224);
            implementation()->addAcquireInputControls(16384);
            return LineJig::sampler();
        }
    } controlled;
    pick(3, 4);
    EXPECT_EQ(controlled.drag(), KdEdJig::kNormal);
    EXPECT_EQ(controlled.cursor, KdGePoint3d(3, 4, 0));
    delete controlled.line;
}

TEST_F(Jig, shows_its_prompt) {
    jig.setDispPrompt(L"Where to: ");
    pick(1, 1);
    EXPECT_EQ(jig.drag(), KdEdJig::kNormal);
    EXPECT_EQ(host.editor().promptText(), L"Where to: ");
}

TEST(HostResources, there_are_none) {
    EXPECT_EQ(kdedGetKdadResourceInstance(), nullptr);
}

TEST(JigDefaults, change_nothing) {
    KdEdJig jig;
    EXPECT_EQ(jig.sampler(), KdEdJig::kNormal);
    EXPECT_FALSE(jig.update());
    EXPECT_EQ(jig.entity(), nullptr);
    EXPECT_EQ(jig.dimData(1.0), nullptr);
    EXPECT_EQ(jig.setDimValue(nullptr, 1.0), 0);
    EXPECT_TRUE(jig.append().isNull());
    EXPECT_EQ(jig.drag(), KdEdJig::kModeless) << "no drawing is open";
}

}  // namespace
