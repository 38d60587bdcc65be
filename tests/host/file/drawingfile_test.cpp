// Drawings that are saved and opened: each kind of object comes back as it was.

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <sstream>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/symbolstate.h"
#include "host/db/walk.h"
#include "kd/db/dictionary.h"
#include "kd/db/field.h"
#include "kd/db/headervar.h"
#include "kd/db/idmapping.h"
#include "kd/db/mtext.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "tests/host/file/filefixture.h"
#include "tests/support/objects.h"
#include "tests/support/randomdrawing.h"

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

TEST_F(DrawingFiles, no_line_of_a_file_is_longer_than_readers_take) {
    KdDbDatabase database;
    const std::wstring text = std::wstring(700, L'\u8868') + std::wstring(700, L'x');
    auto* table = new KdDbTable;
    table->setTableStyle(database.tablestyle());
    table->setSize(2, 2);
    table->setTextString(0, 0, text.c_str());
    table->setDataFormat(1, 0, text.c_str());
    const KdDbObjectId id = kdtest::append(database, table);
    auto* field = new KdDbField;
    field->setFieldCode(text.c_str());
    field->postInDatabase(&database);
    auto* open = kdtest::mustOpen<KdDbTable>(id, KdDb::kForWrite);
    open->setFieldId(1, 1, field->objectId());
    field->setOwnerId(id);
    field->close();
    open->close();
    auto* mtext = new KdDbMText;
    mtext->setTextHeight(1.0);
    mtext->setContents(text.c_str());
    kdtest::append(database, mtext);
    std::istringstream lines(kdhost::file::drawingBytes(database));
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(kdhost::fromUtf8(line).size(), 250U) << line.substr(0, 40);
    }
    savedAndOpened(database);
}

TEST_F(DrawingFiles, the_next_handle_is_above_every_one_and_each_stands_once) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        KdDbDatabase database;
        kdtest::fillRandomly(database, seed);
        std::istringstream lines(kdhost::file::drawingBytes(database));
        std::set<unsigned long long> handles;
        unsigned long long next = 0;
        std::string code;
        std::string value;
        std::string before;
        for (; std::getline(lines, code) && std::getline(lines, value); before = value) {
            if (code == "5" && before == "$HANDSEED") {
                next = std::stoull(value, nullptr, 16);
            } else if (code == "5" || code == "105") {
                EXPECT_TRUE(handles.insert(std::stoull(value, nullptr, 16)).second) << value;
            }
        }
        ASSERT_FALSE(handles.empty());
        EXPECT_GT(next, *handles.rbegin()) << seed;
    }
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

TEST_F(DrawingFiles, a_normal_that_is_upward_but_for_the_last_bit_comes_back_as_it_was) {
    KdDbDatabase database;
    const KdGeVector3d normal(0.0, 0.0, std::nextafter(1.0, 0.0));
    auto* table = new KdDbTable;
    table->setTableStyle(database.tablestyle());
    table->setSize(3, 2);
    table->setNormal(normal);
    kdtest::append(database, table);
    auto* text = new KdDbMText;
    text->setNormal(normal);
    kdtest::append(database, text);
    const auto again = savedAndOpened(database);
    ASSERT_NE(again, nullptr);
    for (const KdDbObjectId id : kdhost::entitiesOf(again->modelSpaceId())) {
        const auto* read = kdhost::peek<KdDbTable>(id);
        const double z = read != nullptr ? read->normal().z : kdhost::peek<KdDbMText>(id)->normal().z;
        EXPECT_EQ(z, normal.z);
    }
}

TEST_F(DrawingFiles, a_table_travels_through_a_temporary_drawing_into_another_one) {
    KdDbDatabase source;
    KdDbObjectId style;
    KdDbDictionary* styles = nullptr;
    source.getTableStyleDictionary(styles, KdDb::kForWrite);
    auto* made = new KdDbTableStyle;
    styles->setAt(L"narrow", made, style);
    made->setTextHeight(2.25, L"_DATA");
    made->close();
    styles->close();
    auto* table = new KdDbTable;
    table->setTableStyle(style);
    table->setSize(3, 2);
    table->setTextString(2, 1, L"text");
    table->setGridLineStyle(2, 1, KdDb::kHorzTop, KdDb::kGridLineStyleDouble);
    const KdDbObjectId id = kdtest::append(source, table);
    auto* field = new KdDbField;
    field->setFieldCode(L"\\AcExpr (1+2)");
    field->postInDatabase(&source);
    auto* open = kdtest::mustOpen<KdDbTable>(id, KdDb::kForWrite);
    open->setFieldId(2, 0, field->objectId());
    field->setOwnerId(id);
    field->close();
    open->close();

    KdDbDatabase temporary(true, true);
    KdDbIdMapping mapping(&temporary);
    KdDbObjectIdArray ids;
    ids.append(id);
    const KdDbObjectId space = KdDbSystemInternals::getImpDatabase(&temporary)->modelSpace();
    ASSERT_EQ(source.wblockCloneObjects(ids, space, mapping, 1, false), Kdad::eOk);
    temporary.setInsbase({1.0, 2.0, 3.0});
    const std::wstring file = widePath("clip.DWG");
    ASSERT_EQ(temporary.saveAs(file.c_str(), false, 33, nullptr), Kdad::eOk);

    KdDbDatabase target;
    KdDbDatabase read(false, true);
    ASSERT_EQ(read.readDwgFile(file.c_str(), 64, true, nullptr), Kdad::eOk);
    KdDbObjectId block;
    ASSERT_EQ(target.insert(block, file.c_str(), &read, true), Kdad::eOk);
    EXPECT_EQ(kdhost::peek<KdDbBlockTableRecord>(block)->origin(), KdGePoint3d(1.0, 2.0, 3.0));
    const auto& entities = stateOf<KdDbBlockTableRecordState>(*kdhost::peekObject(block)).entities;
    ASSERT_EQ(entities.size(), 1U);
    const auto* pasted = kdhost::peek<KdDbTable>(entities[0]);
    ASSERT_NE(pasted, nullptr);
    EXPECT_EQ(pasted->isA(), KdDbTable::desc());
    EXPECT_STREQ(pasted->textString(2, 1), L"text");
    EXPECT_STREQ(pasted->textString(2, 0), L"3");
    EXPECT_EQ(pasted->textHeight(2, 1), 2.25);
    EXPECT_EQ(pasted->gridLineStyle(2, 1, KdDb::kHorzTop), KdDb::kGridLineStyleDouble);
    EXPECT_EQ(kdhost::peekObject(pasted->tableStyle())->database(), &target);
    EXPECT_EQ(kdhost::peekObject(pasted->fieldId(2, 0))->database(), &target);
    savedAndOpened(target);
}

}  // namespace
