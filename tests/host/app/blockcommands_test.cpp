// BLOCK and INSERT: what is chosen goes into a block, and blocks into the drawing.

#include <cmath>
#include <numbers>

#include "host/app/dump/dump.h"
#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/db/symbolstate.h"
#include "host/db/undo.h"
#include "kd/db/blockreference.h"
#include "kd/db/line.h"
#include "kd/db/table.h"
#include "tests/support/application.h"
#include "tests/support/objects.h"
#include "tests/support/points.h"
#include "tests/support/tablebuilder.h"

namespace {

using Lines = std::vector<std::wstring>;

class BlockCommands : public kdtest::ApplicationTest {
protected:
    std::vector<KdDbObjectId> entities() { return kdhost::entitiesOfCurrentSpace(host.database()); }
    KdDbObjectId block(const wchar_t* name) {
        KdDbObjectId id;
        kdhost::peek<KdDbBlockTable>(host.database().blockTableId())->getAt(name, id);
        return id;
    }
    /// Those that aren't erased.
    std::vector<const KdDbEntity*> contents(const wchar_t* name) {
        std::vector<const KdDbEntity*> found;
        const auto* record = kdhost::peek<KdDbBlockTableRecord>(block(name));
        for (const KdDbObjectId id : stateOf<KdDbBlockTableRecordState>(*record).entities) {
            if (const auto* entity = kdhost::peek<KdDbEntity>(id)) found.push_back(entity);
        }
        return found;
    }
    const KdDbBlockReference& lastInsertion() {
        const auto* insertion = kdhost::peek<KdDbBlockReference>(entities().back());
        EXPECT_NE(insertion, nullptr);
        return *insertion;
    }
    void expectLastBox(const KdGePoint3d& low, const KdGePoint3d& high) {
        const KdDbExtents box = lastInsertion().getGeomExtents();
        EXPECT_EQ(box.minPoint(), low);
        EXPECT_EQ(box.maxPoint(), high);
    }
};

TEST_F(BlockCommands, block_takes_the_chosen_objects_out_of_the_drawing) {
    host.run(L"LINE 10,10 14,10 \nLINE 100,100 110,100 \nBLOCK\nfirst part\n10,10\n12,10\n\n");
    EXPECT_EQ(host.lastMessage(), L"Block \"first part\": 1 objects.");
    EXPECT_EQ(entities().size(), 1u);
    ASSERT_EQ(contents(L"first part").size(), 1u);
    EXPECT_EQ(static_cast<const KdDbLine*>(contents(L"first part")[0])->endPoint(), KdGePoint3d(14, 10, 0));
    EXPECT_EQ(kdhost::peek<KdDbBlockTableRecord>(block(L"first part"))->origin(), KdGePoint3d(10, 10, 0));
}

TEST_F(BlockCommands, block_takes_what_is_selected_before) {
    host.run(L"LINE 0,0 4,0 \nLINE 0,9 4,9 \n");
    host.editor().pickFirst().set(entities());
    host.run(L"BLOCK\nPart\n0,0\n");
    EXPECT_EQ(contents(L"Part").size(), 2u);
    EXPECT_TRUE(entities().empty());
    EXPECT_TRUE(host.editor().pickFirst().objects().empty());
}

TEST_F(BlockCommands, block_takes_tables_with_all_that_they_hold) {
    auto table = kdtest::TableBuilder(3, 2).merge("A1:B1").fill().build();
    const std::string before = kdtest::describe(*table);
    kdtest::append(host.database(), table.release());
    host.run(L"BLOCK\nPart\n0,0\nAll\n\n");
    ASSERT_EQ(contents(L"Part").size(), 1u);
    EXPECT_EQ(kdtest::describe(static_cast<const KdDbTable&>(*contents(L"Part")[0])), before);
}

TEST_F(BlockCommands, block_and_insert_are_one_step_each) {
    host.run(L"LINE 0,0 4,0 \nBLOCK\nPart\n0,0\nAll\n\nINSERT\nPart\n5,5\n\n\n");
    EXPECT_EQ(kdhost::undoHistory(host.database())->undoSteps(), (Lines{L"LINE", L"BLOCK", L"INSERT"}));
    host.run(L"UNDO 2\n");
    EXPECT_TRUE(block(L"Part").isNull());
    ASSERT_EQ(entities().size(), 1u);
    EXPECT_TRUE(kdhost::peekObject(entities()[0])->isKindOf(KdDbLine::desc()));
    host.run(L"REDO\nREDO\n");
    EXPECT_EQ(contents(L"Part").size(), 1u);
    expectLastBox({5, 5, 0}, {9, 5, 0});
}

TEST_F(BlockCommands, insert_puts_the_base_point_at_the_insertion_point_scaled_and_turned) {
    host.run(L"LINE 10,10 14,10 \nBLOCK\nPart\n10,10\nAll\n\nINSERT\nPart\n100,50\n2\n90\n");
    EXPECT_EQ(lastInsertion().position(), KdGePoint3d(100, 50, 0));
    EXPECT_EQ(lastInsertion().scaleFactor(), 2.0);
    EXPECT_DOUBLE_EQ(lastInsertion().rotation(), std::numbers::pi / 2.0);
    expectLastBox({100, 50, 0}, {100, 58, 0});
    host.run(L"INSERT\npart\n0,0\n\n\n");
    EXPECT_EQ(lastInsertion().scaleFactor(), 1.0);
    expectLastBox({0, 0, 0}, {4, 0, 0});
}

TEST_F(BlockCommands, insert_in_the_coordinates_of_the_block_puts_it_back_in_its_place) {
    int number = 0;
    for (const wchar_t* ucs : {L"UCS World\n", L"UCS 7,8 9,20 -5,9\n", L"UCS 1,2,3 1,9,3 1,2,9\n"}) {
        host.run(L"UCS World\nERASE All \nLINE 10,10 14,12 \n");
        host.run(ucs);
        const std::wstring name = L"Part" + std::to_wstring(++number);
        host.run(L"BLOCK\n" + name + L"\n3,4\nAll\n\nINSERT\n" + name + L"\n3,4\n\n\n");
        const auto& line = static_cast<const KdDbLine&>(*contents(name.c_str())[0]);
        const KdGeMatrix3d toWorld = lastInsertion().blockTransform();
        EXPECT_EQ(toWorld * line.startPoint(), KdGePoint3d(10, 10, 0));
        EXPECT_EQ(toWorld * line.endPoint(), KdGePoint3d(14, 12, 0));
    }
}

TEST_F(BlockCommands, insert_turns_with_the_user_s_coordinates) {
    host.run(L"LINE 0,0 4,0 \nBLOCK\nPart\n0,0\nAll\n\nUCS 10,0 10,5 5,0\nINSERT\nPart\n1,0\n\n\n");
    expectLastBox({10, 1, 0}, {10, 5, 0});
}

TEST_F(BlockCommands, insert_puts_blocks_into_the_current_space) {
    host.run(L"LINE 0,0 4,0 \nBLOCK\nPart\n0,0\nAll\n\nTILEMODE 0\nINSERT\nPart\n0,0\n\n\n");
    EXPECT_EQ(entities().size(), 1u);
    EXPECT_EQ(lastInsertion().ownerId(), host.database().paperSpaceId());
}

TEST_F(BlockCommands, insertions_go_into_other_blocks) {
    host.run(L"LINE 0,0 4,0 \nBLOCK\nInner\n0,0\nAll\n\nINSERT\nInner\n10,0\n\n\n");
    host.run(L"BLOCK\nOuter\n10,0\nAll\n\nINSERT\nOuter\n0,100\n\n\n");
    expectLastBox({0, 100, 0}, {4, 100, 0});
}

TEST_F(BlockCommands, block_refuses_taken_names_and_those_of_the_host) {
    host.run(L"LINE 0,0 4,0 \nBLOCK\nPart\n0,0\nAll\n\nLINE 0,0 4,0 \nBLOCK\nPART\nBLOCK\n*Mine\nBLOCK\n\n");
    EXPECT_EQ(host.failures(),
              (Lines{L"There is a block \"PART\" already.", L"\"*Mine\" can't be the name of a block."}));
    EXPECT_EQ(entities().size(), 1u);
}

TEST_F(BlockCommands, block_leaves_what_lies_on_locked_layers_or_is_in_use) {
    host.run(L"LAYER M walls\n\nLINE 0,0 4,0 \nLAYER LO walls\nS 0\n\nLINE 0,9 4,9 \nLINE 0,20 4,20 \n");
    {
        const kdhost::Opened<KdDbLine> reader(entities()[2]);
        host.run(L"BLOCK\nPart\n0,0\nAll\n\n");
    }
    EXPECT_EQ(contents(L"Part").size(), 1u);
    EXPECT_EQ(entities().size(), 2u);
    EXPECT_EQ(host.messages().end()[-2], L"2 on locked layers or in use left as they are.");
    host.run(L"LAYER LO 0\n\nBLOCK\nOther\n0,0\nAll\n\n");
    EXPECT_EQ(host.failures(), Lines{L"Nothing was chosen that a block can be made of."});
    EXPECT_TRUE(block(L"Other").isNull());
}

TEST_F(BlockCommands, block_that_is_cancelled_makes_nothing) {
    host.run(L"LINE 0,0 4,0 \n");
    for (const wchar_t* typed :
         {L"BLOCK\n\x1b", L"BLOCK\nPart\n\x1b", L"BLOCK\nPart\n0,0\n\x1b", L"BLOCK\nPart\n0,0\n\n"}) {
        host.run(typed);
        EXPECT_TRUE(block(L"Part").isNull());
    }
    EXPECT_EQ(entities().size(), 1u);
    EXPECT_TRUE(host.failures().empty());
}

TEST_F(BlockCommands, insert_refuses_unknown_blocks_spaces_and_what_is_no_scale_or_angle) {
    host.run(L"LINE 0,0 4,0 \nBLOCK\nPart\n0,0\nAll\n\n");
    host.run(
        L"INSERT\nNothing\nINSERT\n*Model_Space\nINSERT\nPart\n0,0\n0\nINSERT\nPart\n0,0\nx\nINSERT\nPart\n0,"
        L"0\n1\ny\n");
    EXPECT_EQ(host.failures(), (Lines{L"There is no block \"Nothing\".", L"There is no block \"*Model_Space\".",
                                      L"The scale can't be 0.", L"\"x\" is no number.", L"\"y\" is no number."}));
    EXPECT_TRUE(entities().empty());
}

TEST_F(BlockCommands, a_drawing_that_cannot_be_written_is_told) {
    host.run(L"LINE 0,0 4,0 \n");
    {
        const kdhost::Opened<KdDbBlockTable> reader(host.database().blockTableId());
        host.run(L"BLOCK\nPart\n0,0\nAll\n\n");
    }
    EXPECT_EQ(entities().size(), 1u);
    host.run(L"BLOCK\nPart\n0,0\nAll\n\n");
    {
        const kdhost::Opened<KdDbBlockTableRecord> reader(host.database().modelSpaceId());
        host.run(L"INSERT\nPart\n0,0\n\n\n");
    }
    EXPECT_EQ(host.failures(), (Lines{L"The drawing can't be written now.", L"The drawing can't be written now."}));
    EXPECT_TRUE(entities().empty());
}

TEST_F(BlockCommands, the_dump_names_the_blocks_and_the_insertions) {
    host.run(L"LINE 0,0 4,0 \nBLOCK\nPart\n0,0\nAll\n\nINSERT\nPart\n5,5\n\n\n");
    std::ostringstream text;
    kdhost::writeDump(text, host.document());
    EXPECT_NE(text.str().find("\"blocks\":[\"Part\"]"), std::string::npos);
    EXPECT_NE(text.str().find("\"class\":\"KdDbBlockReference\""), std::string::npos);
}

}  // namespace
