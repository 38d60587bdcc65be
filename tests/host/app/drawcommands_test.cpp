// LINE, ERASE, LIST, LAYER and SETVAR.

#include <algorithm>

#include "host/db/access.h"
#include "host/db/currentspace.h"
#include "host/db/opened.h"
#include "host/db/undo.h"
#include "host/ed/variables.h"
#include "kd/db/blockreference.h"
#include "kd/db/line.h"
#include "kd/db/mtext.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "tests/support/application.h"
#include "tests/support/objects.h"
#include "tests/support/tablebuilder.h"

namespace {

class DrawCommands : public kdtest::ApplicationTest {
protected:
    std::vector<KdDbObjectId> entities() { return kdhost::entitiesOfCurrentSpace(host.database()); }
    /// The ends of the lines, "x,y-x,y", one after the other.
    std::string lines() {
        std::string all;
        for (const KdDbObjectId id : entities()) {
            const auto& line = *kdhost::peek<KdDbLine>(id);
            const auto end = [](const KdGePoint3d& p) {
                return QString::number(p.x).toStdString() + ',' + QString::number(p.y).toStdString();
            };
            all += end(line.startPoint()) + '-' + end(line.endPoint()) + ' ';
        }
        return all;
    }
};

TEST_F(DrawCommands, line_goes_on_until_enter_and_takes_relative_and_polar_points) {
    host.run(L"LINE 0,0 10,0 @0,5 @5<180\n\n");
    EXPECT_EQ(lines(), "0,0-10,0 10,0-10,5 10,5-5,5 ");
}

TEST_F(DrawCommands, line_closes_to_its_first_point_and_ends) {
    host.run(L"LINE 0,0 10,0 10,5 C\nLINE 1,1 2,2 \n");
    EXPECT_EQ(lines(), "0,0-10,0 10,0-10,5 10,5-0,0 1,1-2,2 ");
}

TEST_F(DrawCommands, line_needs_two_lines_to_close) {
    host.run(L"LINE 0,0 Close 10,0 Close 10,5 \n");
    EXPECT_EQ(lines(), "0,0-10,0 10,0-10,5 ");
    EXPECT_EQ(host.messages().back(), L"Two lines at least are needed to close.");
}

TEST_F(DrawCommands, line_takes_back_line_by_line_and_goes_on_from_there) {
    host.run(L"LINE 0,0 10,0 10,5 Undo @1,1 U U U @7,0 \n");
    EXPECT_EQ(lines(), "0,0-7,0 ");
    EXPECT_EQ(host.messages().back(), L"There is no line to take back.");
    EXPECT_EQ(kdhost::undoHistory(host.database())->undoSteps(), std::vector<std::wstring>{L"LINE"});
    host.run(L"U\n");
    EXPECT_EQ(lines(), "");
    host.run(L"REDO\n");
    EXPECT_EQ(lines(), "0,0-7,0 ");
}

TEST_F(DrawCommands, line_without_a_first_point_or_cancelled_draws_nothing_more) {
    host.run(L"LINE \n");
    host.run(L"LINE 0,0 1,1 \x1b");
    EXPECT_EQ(lines(), "0,0-1,1 ");
}

TEST_F(DrawCommands, line_draws_in_the_user_s_coordinates_and_on_the_current_layer) {
    host.database().setUcs({100, 50, 0}, {0, 1, 0}, {-1, 0, 0});
    host.run(L"LAYER M walls\n\nLINE 0,0 10,5 \n");
    EXPECT_EQ(lines(), "100,50-95,60 ");
    EXPECT_EQ(kdhost::peek<KdDbLine>(entities()[0])->layerId(), host.database().clayer());
}

TEST_F(DrawCommands, line_that_the_drawing_cannot_take_is_told_and_ends) {
    const kdhost::Opened<KdDbBlockTableRecord> reader(host.database().modelSpaceId());
    host.run(L"LINE 0,0 10,0 \n");
    EXPECT_EQ(host.failures(), std::vector<std::wstring>{L"The drawing can't be written now."});
    EXPECT_EQ(lines(), "");
}

TEST_F(DrawCommands, erase_keeps_what_is_in_use) {
    host.run(L"LINE 0,0 10,0 \nLINE 0,50 10,50 \n");
    {
        const kdhost::Opened<KdDbLine> reader(entities()[0]);
        host.run(L"ERASE All \n");
    }
    EXPECT_EQ(lines(), "0,0-10,0 ");
    EXPECT_EQ(host.messages().end()[-2], L"1 erased.");
    EXPECT_EQ(host.messages().back(), L"1 on locked layers or in use kept.");
}

TEST_F(DrawCommands, list_tells_what_each_class_has_to_tell) {
    const auto last = [&] {
        host.run(L"LIST Last \n");
        return host.lastMessage();
    };
    host.run(L"LINE 0,0 3,4 \n");
    EXPECT_NE(last().find(L"layer 0, from 0,0 to 3,4, length 5"), std::wstring::npos);
    auto* text = new KdDbMText;
    text->setContents(L"some\\Ptext");
    kdtest::append(host.database(), text);
    EXPECT_NE(last().find(L"KdDbMText, handle "), std::wstring::npos);
    EXPECT_NE(last().find(L", text \"some\\Ptext\""), std::wstring::npos);
    kdtest::append(host.database(), kdtest::TableBuilder(4, 3).build().release());
    EXPECT_NE(last().find(L"KdDbTable, handle "), std::wstring::npos);
    EXPECT_NE(last().find(L", 4 rows, 3 columns"), std::wstring::npos);
    kdtest::append(host.database(), new KdDbBlockReference({7, 8, 0}, host.database().paperSpaceId()));
    EXPECT_NE(last().find(L", block *Paper_Space at 7,8, scale 1"), std::wstring::npos);
}

TEST_F(DrawCommands, list_reads_what_is_open_for_write) {
    host.run(L"LINE 0,0 3,4 \n");
    const kdhost::Opened<KdDbLine> writer(entities()[0], KdDb::kForWrite);
    host.run(L"LIST Last \n");
    EXPECT_NE(host.lastMessage().find(L"length 5"), std::wstring::npos);
}

TEST_F(DrawCommands, layer_names_its_words_when_another_is_typed) {
    host.run(L"LAYER Paint\n");
    EXPECT_EQ(host.failures(),
              std::vector<std::wstring>{L"\"Paint\" is none of Make, Set, LOck, Unlock, Plot, Noplot."});
}

TEST_F(DrawCommands, layer_that_cannot_be_made_is_told) {
    const kdhost::Opened<KdDbLayerTable> reader(host.database().layerTableId());
    host.run(L"LAYER Make walls\n\n");
    EXPECT_EQ(host.failures(), std::vector<std::wstring>{L"The layer \"walls\" can't be made."});
    EXPECT_EQ(host.database().clayer(), host.database().layerZero());
}

TEST_F(DrawCommands, layer_locks_and_unlocks_are_steps_and_come_back) {
    const auto locked = [&] { return kdhost::peek<KdDbLayerTableRecord>(host.database().layerZero())->isLocked(); };
    host.run(L"LAYER LO 0\n\nLAYER U 0\n\n");
    EXPECT_FALSE(locked());
    host.run(L"U\n");
    EXPECT_TRUE(locked());
    host.run(L"U\n");
    EXPECT_FALSE(locked());
}

TEST_F(DrawCommands, setvar_lists_all_variables_for_a_question_mark) {
    host.run(L"LUNITS 4\nSETVAR ?\n");
    const std::vector<std::wstring> said = host.messages();
    EXPECT_NE(std::find(said.begin(), said.end(), L"LUNITS = 4"), said.end());
    EXPECT_NE(std::find(said.begin(), said.end(), L"CTABLESTYLE = Standard"), said.end());
    EXPECT_GE(said.size(), kdhost::variableRecords().size());
}

TEST_F(DrawCommands, setvar_shows_takes_and_refuses_as_the_variable_s_own_name_does) {
    host.run(L"SETVAR LUPREC 3\n");
    EXPECT_EQ(host.database().luprec(), 3);
    host.run(L"SETVAR\nLUPREC\n\n");
    EXPECT_EQ(host.database().luprec(), 3) << "Enter keeps it";
    host.run(L"SETVAR LUPREC 9\nLUPREC x\nSETVAR NOSUCH\nSETVAR CVPORT\n");
    EXPECT_EQ(host.failures(),
              (std::vector<std::wstring>{L"\"9\" is no value for LUPREC.", L"\"x\" is no value for LUPREC.",
                                         L"There is no variable \"NOSUCH\"."}));
    EXPECT_EQ(host.lastMessage(), L"CVPORT = 2 (read only)");
    EXPECT_EQ(host.database().luprec(), 3);
}

}  // namespace
