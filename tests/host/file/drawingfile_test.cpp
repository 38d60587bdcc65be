// Drawings that are saved and opened: each kind of object comes back as it was.

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/symbolstate.h"
#include "kd/db/blockreference.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "kd/db/table.h"
#include "tests/host/file/filefixture.h"
#include "tests/support/objects.h"

namespace {

using kdtest::DrawingFiles;

TEST_F(DrawingFiles, a_new_drawing_comes_back) {
    KdDbDatabase database;
    const auto again = savedAndOpened(database);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(kdhost::peekObject(again->modelSpaceId())->handle(),
              kdhost::peekObject(database.modelSpaceId())->handle());
}

TEST_F(DrawingFiles, the_block_that_shows_a_table_has_its_texts_and_each_line_of_its_grid_once) {
    KdDbDatabase database;
    auto* table = new KdDbTable;
    table->setTableStyle(database.tablestyle());
    table->setSize(3, 2);
    table->setTextString(1, 1, L"two\r\nlines\n");
    table->setBackgroundColor(2, 0, KdCmColor::fromIndex(3));
    table->setGridLineStyle(0, -1, KdDb::kHorzTop, KdDb::kGridLineStyleDouble);
    kdtest::append(database, table);
    const std::string bytes = kdhost::file::drawingBytes(database);
    const std::size_t first = bytes.find("0\nBLOCK\n", bytes.find("2\n*T1\n"));
    const std::string block = bytes.substr(first, bytes.find("0\nENDSEC\n", first) - first);
    const auto count = [&](const std::string& text) {
        int found = 0;
        for (std::size_t at = block.find(text); at != std::string::npos; at = block.find(text, at + 1)) ++found;
        return found;
    };
    EXPECT_EQ(count("1\ntwo\\Plines\n"), 1);
    EXPECT_EQ(count("0\nSOLID\n"), 1);
    // Four lines along the rows, of which the first is double, and three along the columns.
    EXPECT_EQ(count("0\nLINE\n"), 8);
}

TEST_F(DrawingFiles, a_table_comes_back) {
    KdDbDatabase database;
    auto* table = new KdDbTable;
    table->setSize(4, 3);
    table->setTableStyle(database.tablestyle());
    table->setTextString(0, 0, L"Title ^ \u4e2d\u6587\nsecond");
    table->setTextString(2, 1, L"1.5");
    table->setAlignment(2, 1, KdDb::kBottomRight);
    table->setBackgroundColor(2, 2, KdCmColor::fromRgb(1, 2, 3));
    table->mergeCells(2, 3, 0, 0);
    kdtest::append(database, table);
    const auto again = savedAndOpened(database);
    ASSERT_NE(again, nullptr);
    const auto* made = static_cast<const KdDbTable*>(KdDbDatabaseAccess::find(*again, table->handle()));
    ASSERT_NE(made, nullptr);
    EXPECT_STREQ(made->textString(0, 0), L"Title ^ \u4e2d\u6587\nsecond");
    EXPECT_EQ(made->backgroundColor(2, 2), KdCmColor::fromRgb(1, 2, 3));
    EXPECT_EQ(made->getMergeRange(3, 0), (KdCellRange{2, 0, 3, 0}));
}

}  // namespace
