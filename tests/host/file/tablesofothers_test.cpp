// Tables as other programs write them: attributes of blocks in cells, edges of the whole table, groups of references.

#include <gtest/gtest.h>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/keptobject.h"
#include "host/db/tableaccess.h"
#include "kd/db/idmapping.h"
#include "tests/host/file/filefixture.h"
#include "tests/support/objects.h"

namespace {

class TablesOfOthers : public kdtest::DrawingFiles {
protected:
    static std::string handle(const KdDbDatabase&, KdDbObjectId id) {
        char digits[17];
        std::snprintf(digits, sizeof digits, "%llX", static_cast<unsigned long long>(kdhost::peekObject(id)->handle()));
        return digits;
    }
    static std::string with(std::string bytes, const std::string& mark, const std::string& text,
                            const std::string& behind = "") {
        const std::size_t at = bytes.find(mark, bytes.find(behind));
        EXPECT_NE(at, std::string::npos) << mark;
        return at == std::string::npos ? bytes : bytes.insert(at, text);
    }
    static std::string replaced(std::string bytes, const std::string& text, const std::string& by,
                                const std::string& behind) {
        const std::size_t at = bytes.find(text, bytes.find(behind));
        EXPECT_NE(at, std::string::npos) << text;
        return at == std::string::npos ? bytes : bytes.replace(at, text.size(), by);
    }
    static KdDbObjectId same(const KdDbDatabase& database, KdDbObjectId id) {
        const KdDbObject* found = KdDbDatabaseAccess::find(database, kdhost::peekObject(id)->handle());
        return found == nullptr ? KdDbObjectId::kNull : found->objectId();
    }
    static const KdDbTable& table(const KdDbDatabase& database, KdDbObjectId id) {
        return *kdhost::peek<KdDbTable>(same(database, id));
    }
};

/// A drawing with a table whose cell B2 shows a block with two attributes.
class BlockAttributes : public TablesOfOthers {
protected:
    BlockAttributes() {
        m_block = kdtest::addRecord<KdDbBlockTableRecord>(m_database.blockTableId(), L"door");
        kdtest::appendTo(m_block, new KdDbLine({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}));
        auto* made = new KdDbTable;
        made->setTableStyle(m_database.tablestyle());
        made->setSize(2, 2);
        made->setBlockTableRecordId(1, 1, 0, m_block, false);
        m_table = kdtest::append(m_database, made);
        m_bytes = kdhost::file::drawingBytes(m_database);
        const std::string block = handle(m_database, m_block);
        for (const char* definition : {"ABC0", "ABC1"}) {
            m_bytes = with(m_bytes, "0\nENDBLK\n",
                           "0\nATTDEF\n5\n" + std::string(definition) + "\n330\n" + block +
                               "\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n0\n20\n0\n30\n0\n40\n2.5\n1\n\n100\n"
                               "AcDbAttributeDefinition\n3\nNumber?\n2\nNUMBER\n70\n0\n",
                           "2\ndoor\n70\n");
        }
        m_bytes = replaced(m_bytes, "179\n0\n", kAttributes, "100\nAcDbTable\n");
    }
    static const std::vector<kdhost::BlockAttribute>& attributesOf(const KdDbTable& table, int row, int column) {
        static const std::vector<kdhost::BlockAttribute> none;
        const auto& objects = kdhost::tableState(table).content(row, column).objects;
        return objects ? objects->attributes : none;
    }

    static constexpr const char* kAttributes = "179\n2\n331\nABC0\n300\nD-12 ^ \xE9\x97\xA8\n331\nABC1\n300\n\n";
    KdDbDatabase m_database;
    KdDbObjectId m_block;
    KdDbObjectId m_table;
    std::string m_bytes;
};

TEST_F(BlockAttributes, of_cells_are_read_and_written_again) {
    const auto read = opened(m_bytes);
    ASSERT_NE(read, nullptr);
    const auto& attributes = attributesOf(table(*read, m_table), 1, 1);
    ASSERT_EQ(attributes.size(), 2U);
    EXPECT_EQ(attributes[0].text, L"D-12 ^\u95e8");
    EXPECT_EQ(attributes[0].definition, KdDbDatabaseAccess::find(*read, 0xABC0)->objectId());
    EXPECT_EQ(attributes[1].text, L"");
    const std::string saved = kdhost::file::drawingBytes(*read);
    EXPECT_NE(saved.find("179\n2\n331\nABC0\n300\nD-12 ^ \xE9\x97\xA8\n331\nABC1\n300\n\n"), std::string::npos);
    savedAndOpened(*read);
}

TEST_F(BlockAttributes, move_with_their_cell_and_go_with_their_block) {
    const auto read = opened(m_bytes);
    ASSERT_NE(read, nullptr);
    auto* open = kdtest::mustOpen<KdDbTable>(same(*read, m_table), KdDb::kForWrite);
    open->insertRowsAndInherit(0, 0, 1);
    EXPECT_EQ(attributesOf(*open, 2, 1).size(), 2U);
    open->copyFrom(open, KdDb::TableCopyOption(64), {2, 1, 2, 1}, {0, 0, 0, 0}, nullptr);
    EXPECT_EQ(attributesOf(*open, 0, 0).size(), 2U);
    open->setBlockTableRecordId(2, 1, 0, same(*read, m_block), true);
    EXPECT_EQ(attributesOf(*open, 2, 1).size(), 2U) << "the same block";
    open->setBlockTableRecordId(2, 1, 0, read->modelSpaceId(), true);
    EXPECT_TRUE(attributesOf(*open, 2, 1).empty());
    open->setTextString(0, 0, L"text");
    EXPECT_TRUE(attributesOf(*open, 0, 0).empty());
    open->close();
}

TEST_F(BlockAttributes, of_clones_point_at_the_clones_of_their_definitions) {
    const auto read = opened(m_bytes);
    ASSERT_NE(read, nullptr);
    KdDbDatabase other(true, true);
    KdDbIdMapping mapping(&other);
    KdDbObjectIdArray ids;
    ids.append(same(*read, m_table));
    ASSERT_EQ(read->wblockCloneObjects(ids, other.modelSpaceId(), mapping, 1), Kdad::eOk);
    const auto& attributes = attributesOf(*kdhost::peek<KdDbTable>(mapping.map(ids[0])), 1, 1);
    ASSERT_EQ(attributes.size(), 2U);
    const KdDbObject* definition = kdhost::peekObject(attributes[0].definition);
    ASSERT_NE(definition, nullptr);
    EXPECT_EQ(definition->database(), &other);
    EXPECT_EQ(attributes[0].text, L"D-12 ^\u95e8");
    savedAndOpened(other);
}

TEST_F(BlockAttributes, whose_definitions_are_gone_are_left_out) {
    const auto read = opened(replaced(m_bytes, "331\nABC0\n", "331\nDEAD\n", "100\nAcDbTable\n"));
    ASSERT_NE(read, nullptr);
    const auto& attributes = attributesOf(table(*read, m_table), 1, 1);
    ASSERT_EQ(attributes.size(), 1U);
    EXPECT_EQ(attributes[0].text, L"");
    savedAndOpened(*read);
}

TEST_F(TablesOfOthers, edges_that_a_table_overrides_as_a_whole_are_its_cells_own) {
    KdDbDatabase plain;
    auto* made = new KdDbTable;
    made->setTableStyle(plain.tablestyle());
    made->setSize(5, 2);
    made->setGridColor(4, 1, KdDb::kHorzBottom, KdCmColor::fromIndex(6));
    const KdDbObjectId id = kdtest::append(plain, made);
    std::string file = kdhost::file::drawingBytes(plain);
    // Bits of title, header and data, six each: top, inside, bottom, left, inside, right.
    constexpr int kData = 12;
    const auto bits = [](std::initializer_list<int> places) {
        int mask = 0;
        for (const int place : places) mask |= 1 << place;
        return std::to_string(mask);
    };
    const std::string head = "100\nAcDbTable\n";
    file = replaced(file, "\n94\n0\n", "\n94\n" + bits({0, kData + 0, kData + 1, kData + 2, kData + 3}) + "\n", head);
    file = replaced(file, "\n95\n0\n", "\n95\n" + bits({6 + 4, kData + 5}) + "\n", head);
    file = replaced(file, "\n96\n0\n", "\n96\n" + bits({kData + 4}) + "\n", head);
    file = replaced(file, "\n93\n0\n", "\n93\n32\n", head);
    // The colour of the title's text stands before the colours of edges, under a code that one of them has.
    file.insert(file.find("0\nENDSEC\n", file.find(head)),
                "64\n9\n64\n1\n64\n2\n65\n3\n66\n4\n67\n5\n278\n50\n279\n70\n288\n0\n");
    const auto read = opened(file);
    ASSERT_NE(read, nullptr);
    const KdDbTable& table = this->table(*read, id);
    const auto color = [&](int row, int column, KdDb::GridLineType edge) {
        return table.gridColor(row, column, edge).colorIndex();
    };
    EXPECT_EQ(table.contentColor(0, 0).colorIndex(), 9);
    EXPECT_EQ(color(0, 0, KdDb::kHorzTop), 1);
    EXPECT_EQ(color(2, 0, KdDb::kHorzTop), 2);
    EXPECT_EQ(color(3, 0, KdDb::kHorzTop), 3);
    EXPECT_EQ(color(3, 1, KdDb::kHorzBottom), 3);
    EXPECT_EQ(color(4, 0, KdDb::kHorzBottom), 4);
    EXPECT_EQ(color(4, 1, KdDb::kHorzBottom), 6) << "the cell's own";
    EXPECT_EQ(color(2, 0, KdDb::kVertLeft), 5);
    EXPECT_EQ(table.gridLineWeight(1, 0, KdDb::kVertRight), KdDb::LineWeight(50));
    EXPECT_EQ(table.gridLineWeight(1, 1, KdDb::kVertLeft), KdDb::LineWeight(50));
    EXPECT_EQ(table.gridLineWeight(3, 1, KdDb::kVertRight), KdDb::LineWeight(70));
    EXPECT_NE(table.gridLineWeight(3, 0, KdDb::kVertRight), KdDb::LineWeight(70));
    EXPECT_EQ(table.gridVisibility(2, 0, KdDb::kVertRight), KdDb::kInvisible);
    EXPECT_EQ(table.gridVisibility(2, 1, KdDb::kVertLeft), KdDb::kInvisible);
    EXPECT_EQ(table.gridVisibility(1, 0, KdDb::kVertRight), KdDb::kVisible) << "of data alone";
    const auto again = savedAndOpened(*read);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(this->table(*again, id).gridColor(3, 0, KdDb::kHorzTop).colorIndex(), 3);
    EXPECT_EQ(this->table(*again, id).gridLineWeight(3, 1, KdDb::kVertRight), KdDb::LineWeight(70));
}

TEST_F(TablesOfOthers, groups_of_references_of_known_objects_are_kept_and_follow_clones) {
    KdDbDatabase database;
    const KdDbObjectId line = kdtest::appendLine(database);
    const KdDbObjectId watched = kdtest::appendLine(database, 2.0);
    auto* made = new KdDbTable;
    made->setTableStyle(database.tablestyle());
    made->setSize(1, 1);
    const KdDbObjectId table = kdtest::append(database, made);
    const std::string group = "102\n{ACAD_REACTORS\n330\n" + handle(database, line) + "\n102\n}\n102\n{OTHERS\n330\n" +
                              handle(database, line) + "\n1\nnote\n102\n}\n";
    std::string file = kdhost::file::drawingBytes(database);
    const std::vector<KdDbObjectId> objects{watched, table, database.tablestyle(), database.layerZero(),
                                            database.namedObjectsDictionaryId()};
    for (const KdDbObjectId id : objects) {
        const std::string own = "5\n" + handle(database, id) + "\n";
        const std::size_t at = file.find("\n" + own);
        ASSERT_NE(at, std::string::npos);
        file.insert(at + 1 + own.size(), group);
    }
    const auto count = [&](const std::string& bytes) {
        int found = 0;
        for (std::size_t at = bytes.find(group); at != std::string::npos; at = bytes.find(group, at + 1)) ++found;
        return found;
    };
    ASSERT_EQ(count(file), 5);
    const auto read = opened(file);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(count(kdhost::file::drawingBytes(*read)), 5);
    savedAndOpened(*read);

    KdDbDatabase other(true, true);
    KdDbIdMapping mapping(&other);
    KdDbObjectIdArray ids;
    ids.append(same(*read, watched));
    ids.append(same(*read, line));
    ASSERT_EQ(read->wblockCloneObjects(ids, other.modelSpaceId(), mapping, 1), Kdad::eOk);
    const std::string reference = "330\n" + handle(other, mapping.map(ids[1])) + "\n";
    EXPECT_NE(kdhost::file::drawingBytes(other).find("102\n{ACAD_REACTORS\n" + reference), std::string::npos);
    savedAndOpened(other);
}

TEST_F(TablesOfOthers, sections_of_extras_that_a_later_version_has_written_are_kept) {
    KdDbDatabase database;
    auto* made = new KdDbTable;
    made->setTableStyle(database.tablestyle());
    made->setSize(2, 1);
    made->setBackgroundColor(1, 0, KdCmColor::fromRgb(1, 2, 3));
    const KdDbObjectId id = kdtest::append(database, made);
    const KdDbObjectId line = kdtest::appendLine(database);
    std::string file = kdhost::file::drawingBytes(database);
    const std::string section = "300\nLATER\n90\n7\n330\n" + handle(database, line) + "\n1\ntext ^ \n";
    file = with(file, "300\nCELLS\n", section);
    file = with(file, "300\nFORMER\n", section);
    const auto count = [&](const std::string& bytes) {
        int found = 0;
        for (std::size_t at = bytes.find(section); at != std::string::npos; at = bytes.find(section, at + 1)) ++found;
        return found;
    };
    const auto read = opened(file);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(table(*read, id).backgroundColor(1, 0), KdCmColor::fromRgb(1, 2, 3)) << "what is known counts";
    EXPECT_EQ(count(kdhost::file::drawingBytes(*read)), 2);
    savedAndOpened(*read);
    auto* open = kdtest::mustOpen<KdDbTable>(same(*read, id), KdDb::kForWrite);
    open->clearCellOverrides(1, 0);
    open->close();
    EXPECT_EQ(count(kdhost::file::drawingBytes(*read)), 2) << "with nothing else to be told beside them";
    savedAndOpened(*read);
}

}  // namespace
