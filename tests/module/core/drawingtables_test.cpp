// The tables of a drawing, the names of temporary files, and the operations that only look whether a table is there.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/tablestyle.h"
#include "tests/module/core/editfixture.h"
#include "win32/tempfile.h"

namespace kdtest {
namespace {

class SpecialTable : public KdDbTable {
public:
    KDRX_DECLARE_MEMBERS(SpecialTable)
};
KDRX_DEFINE_MEMBERS(SpecialTable, KdDbTable)

class DrawingTables : public TableEdits {
protected:
    KdDbObjectId appendTo(KdDbObjectId block, KdDbEntity* entity) {
        KdDbObjectId id;
        OpenObject<KdDbBlockTableRecord> record(block, KdDb::kForWrite);
        EXPECT_EQ(record->appendKdDbEntity(id, entity), Kdad::eOk);
        entity->close();
        return id;
    }
    KdDbObjectId makeBlock(const wchar_t* name) {
        KdDbObjectId id;
        OpenObject<KdDbBlockTable> blocks(host.database().blockTableId(), KdDb::kForWrite);
        auto* record = new KdDbBlockTableRecord;
        record->setName(name);
        EXPECT_EQ(blocks->add(id, record), Kdad::eOk);
        record->close();
        return id;
    }
    std::vector<KdDbObjectId> found() {
        KdArray<KdDbObjectId> ids;
        EXPECT_TRUE(CVqTableCommon::GetTablesFormDatabase(&host.database(), ids));
        return {ids.begin(), ids.end()};
    }
};

TEST_F(DrawingTables, GetTablesFormDatabase_finds_those_of_all_blocks) {
    EXPECT_TRUE(found().empty());
    const KdDbObjectId inModel = add(TableBuilder(1, 1));
    append(new KdDbLine);
    const KdDbObjectId inPaper = appendTo(host.database().paperSpaceId(), new KdDbTable);
    const KdDbObjectId inBlock = appendTo(makeBlock(L"Part"), new KdDbTable);
    const std::vector<KdDbObjectId> ids = found();
    EXPECT_EQ(ids.size(), 3U);
    for (const KdDbObjectId id : {inModel, inPaper, inBlock}) EXPECT_EQ(std::count(ids.begin(), ids.end(), id), 1);
}

TEST_F(DrawingTables, GetTablesFormDatabase_appends_to_what_is_there) {
    const KdDbObjectId id = add(TableBuilder(1, 1));
    KdArray<KdDbObjectId> ids;
    ids.append(host.database().layerZero());
    EXPECT_TRUE(CVqTableCommon::GetTablesFormDatabase(&host.database(), ids));
    ASSERT_EQ(ids.length(), 2);
    EXPECT_EQ(ids[0], host.database().layerZero());
    EXPECT_EQ(ids[1], id);
}

TEST_F(DrawingTables, GetTablesFormDatabase_leaves_out_derived_classes_and_erased_tables) {
    append(new SpecialTable);
    const KdDbObjectId erased = add(TableBuilder(1, 1));
    OpenObject<KdDbTable>(erased, KdDb::kForWrite)->erase(true);
    EXPECT_TRUE(found().empty());
}

TEST_F(DrawingTables, GetTablesFormDatabase_passes_over_what_cannot_be_opened) {
    const KdDbObjectId model = add(TableBuilder(1, 1));
    const KdDbObjectId block = makeBlock(L"Part");
    const KdDbObjectId inBlock = appendTo(block, new KdDbTable);
    {
        const OpenObject<KdDbBlockTableRecord> writer(block, KdDb::kForWrite);
        EXPECT_EQ(found(), std::vector<KdDbObjectId>{model});
    }
    const OpenObject<KdDbTable> writer(model, KdDb::kForWrite);
    EXPECT_EQ(found(), std::vector<KdDbObjectId>{inBlock});
}

TEST_F(DrawingTables, GetTablesFormDatabase_is_false_without_the_blocks) {
    add(TableBuilder(1, 1));
    KdArray<KdDbObjectId> ids;
    EXPECT_FALSE(CVqTableCommon::GetTablesFormDatabase(nullptr, ids));
    const OpenObject<KdDbBlockTable> writer(host.database().blockTableId(), KdDb::kForWrite);
    EXPECT_FALSE(CVqTableCommon::GetTablesFormDatabase(&host.database(), ids));
    EXPECT_EQ(ids.length(), 0);
}

TEST_F(DrawingTables, FindTableStyleFromTable_tells_whether_a_table_has_the_style) {
    const KdDbObjectId standard = host.database().tablestyle();
    KdArray<KdDbObjectId> ids;
    EXPECT_FALSE(CVqTableCommon::FindTableStyleFromTable(ids, standard));
    ids.append(append(new KdDbLine));
    ids.append(add(TableBuilder(1, 1).style(host.database().layerZero())));
    EXPECT_FALSE(CVqTableCommon::FindTableStyleFromTable(ids, standard)) << "a line, and a table of another style";
    const KdDbObjectId styled = add(TableBuilder(1, 1).style(standard));
    ids.append(styled);
    EXPECT_TRUE(CVqTableCommon::FindTableStyleFromTable(ids, standard));
    const OpenObject<KdDbTable> writer(styled, KdDb::kForWrite);
    EXPECT_FALSE(CVqTableCommon::FindTableStyleFromTable(ids, standard)) << "a table that can't be opened";
}

TEST_F(DrawingTables, FindCellStyleFromTable_tells_whether_a_cell_of_a_table_of_that_style_has_it) {
    KdArray<KdDbObjectId> ids;
    const auto finds = [&](const wchar_t* tableStyle, const wchar_t* cellStyle) {
        return CVqTableCommon::FindCellStyleFromTable(ids, tableStyle, cellStyle);
    };
    const KdDbObjectId standard = host.database().tablestyle();
    EXPECT_EQ(finds(L"Standard", L"_DATA"), 0) << "no tables";
    ids.append(append(new KdDbLine));
    ids.append(add(TableBuilder(3, 3).style(standard).cellStyle("C3", L"Notes")));
    EXPECT_EQ(finds(L"Standard", L"Notes"), 1);
    EXPECT_EQ(finds(L"STANDARD", L"nOTES"), 1) << "regardless of case";
    EXPECT_EQ(finds(L"Standard", L"Other"), 0);
    EXPECT_EQ(finds(L"Walls", L"Notes"), 0) << "a table of another style";
    const OpenObject<KdDbTable> writer(ids[1], KdDb::kForWrite);
    EXPECT_EQ(finds(L"Standard", L"Notes"), 0) << "a table that can't be opened";
}

TEST_F(DrawingTables, FindCellStyleFromTable_goes_on_behind_a_table_of_the_style_that_has_no_such_cell) {
    const KdDbObjectId standard = host.database().tablestyle();
    KdArray<KdDbObjectId> ids;
    ids.append(add(TableBuilder(2, 2).style(standard)));
    ids.append(add(TableBuilder(2, 2).style(standard).cellStyle("B2", L"Notes")));
    EXPECT_EQ(CVqTableCommon::FindCellStyleFromTable(ids, L"Standard", L"Notes"), 1);
}

TEST_F(DrawingTables, FindCellStyleFromTable_ends_at_a_table_whose_style_cannot_be_opened) {
    const KdDbObjectId standard = host.database().tablestyle();
    const KdDbObjectId odd = add(TableBuilder(1, 1).style(host.database().layerZero()));
    const KdDbObjectId styled = add(TableBuilder(1, 1).style(standard).cellStyle("A1", L"Notes"));
    KdArray<KdDbObjectId> ids;
    ids.append(styled);
    ids.append(odd);
    EXPECT_EQ(CVqTableCommon::FindCellStyleFromTable(ids, L"Standard", L"Notes"), 1);
    ids[0] = odd;
    ids[1] = styled;
    EXPECT_EQ(CVqTableCommon::FindCellStyleFromTable(ids, L"Standard", L"Notes"), 0);
}

TEST_F(DrawingTables, SaveAsNewCellStyle_tells_whether_the_table_can_be_read) {
    const KdDbObjectId id = add(TableBuilder(1, 1));
    EXPECT_TRUE(CVqTableCommon::SaveAsNewCellStyle(id));
    EXPECT_FALSE(CVqTableCommon::SaveAsNewCellStyle(KdDbObjectId::kNull));
    EXPECT_FALSE(CVqTableCommon::SaveAsNewCellStyle(host.database().layerTableId()));
    const OpenObject<KdDbTable> writer(id, KdDb::kForWrite);
    EXPECT_FALSE(CVqTableCommon::SaveAsNewCellStyle(id));
}

TEST_F(DrawingTables, SaveAsNewTableStyle_is_true_and_SelectTable_0_whatever_there_is) {
    EXPECT_TRUE(CVqTableCommon::SaveAsNewTableStyle(KdDbObjectId::kNull));
    EXPECT_TRUE(CVqTableCommon::SaveAsNewTableStyle(add(TableBuilder(1, 1))));
    EXPECT_EQ(CVqTableCommon::SelectTable(), 0);
    EXPECT_TRUE(steps().empty());
}

// ---- temporary files

class TempFileName : public ApplicationTest {
protected:
    QString name() const { return QString::fromWCharArray(out); }
    wchar_t out[KD_MAX_PATH] = L"kept";
};

TEST_F(TempFileName, Is_a_new_file_in_the_folder) {
    const QTemporaryDir folder;
    EXPECT_EQ(CVqTableCommon::GetVqcadTmpFileName(L"tbl", folder.path().toStdWString().c_str(), out), 0);
    EXPECT_TRUE(name().startsWith(folder.path() + QStringLiteral("/tbl")));
    EXPECT_TRUE(QFile::exists(name()));
}

TEST_F(TempFileName, Without_a_folder_lies_in_the_hosts_temporary_one) {
    ASSERT_EQ(CVqTableCommon::GetVqcadTmpFileName(L"tbl", nullptr, out), 0);
    EXPECT_TRUE(name().startsWith(QDir::tempPath() + QStringLiteral("/tbl")));
    EXPECT_TRUE(QFile::remove(name()));
}

/// That the host translates every reason to 0 makes such a failure look like a success; only the text tells.
TEST_F(TempFileName, A_failure_with_a_reason_gives_0_and_leaves_the_text) {
    EXPECT_EQ(CVqTableCommon::GetVqcadTmpFileName(L"tbl", L"/no/such/folder", out), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(LAST_PATH_NOT_FOUND));
    EXPECT_STREQ(out, L"kept");
}

TEST_F(TempFileName, A_failure_without_a_reason_gives_53) {
    KdDbHostApplicationServices* services = kddbHostApplicationServices();
    kddbSetHostApplicationServices(nullptr);
    EXPECT_EQ(CVqTableCommon::GetVqcadTmpFileName(L"tbl", nullptr, out), 53);
    kddbSetHostApplicationServices(services);
    EXPECT_STREQ(out, L"kept");
}

}  // namespace
}  // namespace kdtest
