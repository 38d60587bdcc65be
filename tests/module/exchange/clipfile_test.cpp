// The temporary drawing: its name, and files that are gone, damaged, or hold something else than one table.

#include "tests/module/exchange/clipfixture.h"

namespace {

using kdtest::describe;
using kdtest::saveTables;
using kdtest::TableBuilder;

class CellFiles : public kdtest::CellClipboard {
protected:
    static std::wstring newName() {
        wchar_t* name = CVqTableClipDataMgr::GenerateTempFileName();
        std::wstring text = name == nullptr ? L"(none)" : name;
        kdutDelBuffer(name);
        return text;
    }

    /// The status of reading a file into a new drawing; what it made is taken out again.
    int read(const std::wstring& file) {
        KdDbDatabase drawing(false, true);
        KdDbDatabase* database = &drawing;
        KdDbObjectId table(1);
        KdDbObjectId block;
        const int status = CVqTableClipDataMgr::ReadTableFromTempFile(database, file.c_str(), table, block);
        EXPECT_EQ(table.isNull(), status != 0);
        const OpenObject<KdDbObject> made(block, KdDb::kForWrite);
        if (made) made->erase();
        return status;
    }

    /// The paste of what is on the clipboard fails without a word and leaves no trace.
    void expectPlainFailure(const char* why) {
        const KdDbObjectId id = add(table(3, 3).fill());
        const std::string description = describe(look(id));
        const auto before = blocksAndEntities();
        const kdtest::BoxAnswers boxes;
        for (int time = 0; time < 2; ++time) {
            EXPECT_EQ(paste(id, "A1:B2"), 0) << why;
            EXPECT_EQ(describe(look(id)), description) << why;
            EXPECT_EQ(blocksAndEntities(), before) << why;
        }
        EXPECT_EQ(boxes.count(), 0) << why;
    }
};

TEST_F(CellFiles, are_named_in_the_folder_for_temporary_files) {
    const std::wstring plain = newName();
    EXPECT_TRUE(plain.starts_with(folder.path().toStdWString() + L"/"));
    EXPECT_TRUE(plain.ends_with(L".DWG"));
    EXPECT_NE(newName(), plain);
    const QString first = QString::fromStdWString(plain).replace(QLatin1String(".DWG"), QLatin1String(".tmp"));
    EXPECT_TRUE(QFile::exists(first)) << "the file of the first name stays";
    EXPECT_FALSE(QFile::exists(QString::fromStdWString(plain)));
}

TEST_F(CellFiles, are_named_in_folders_with_dots_too) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("version 1.2.d")));
    const QString dotted = folder.filePath(QStringLiteral("version 1.2.d"));
    qputenv("TMPDIR", QFile::encodeName(dotted));
    const std::wstring name = newName();
    EXPECT_TRUE(name.starts_with(dotted.toStdWString() + L"/")) << QString::fromStdWString(name).toStdString();
    EXPECT_TRUE(name.ends_with(L".DWG"));
}

TEST_F(CellFiles, begin_with_what_the_environment_tells) {
    qputenv("TMPFILEXT", "cel");
    EXPECT_NE(newName().find(L"/cel"), std::wstring::npos);
    qputenv("TMPFILEXT", "longer than twenty-one characters");
    EXPECT_EQ(newName().find(L"/lon"), std::wstring::npos) << "it isn't read";
    EXPECT_TRUE(newName().ends_with(L".DWG"));
}

TEST_F(CellFiles, have_no_name_where_none_can_be_made) {
    qputenv("TMPFILEXT", "a/b");
    EXPECT_EQ(newName(), L"(none)");
    qunsetenv("TMPFILEXT");
    qputenv("TMPDIR", "/there/is/no/such/folder");
    EXPECT_EQ(newName(), L"(none)");
    const KdDbObjectId id = add(table(1, 1));
    KdString name;
    EXPECT_EQ(CVqTableClipDataMgr::WriteTableToTempFile(&host.database(), id, {}, name), 0);
    EXPECT_TRUE(name.isEmpty());
}

TEST_F(CellFiles, are_not_written_of_what_is_no_object) {
    KdString name;
    EXPECT_NE(CVqTableClipDataMgr::WriteTableToTempFile(&host.database(), KdDbObjectId::kNull, {}, name), 0);
    EXPECT_TRUE(name.isEmpty());
}

TEST_F(CellFiles, tell_how_many_tables_they_hold) {
    const std::wstring file = pathOf("tables.dwg");
    const auto save = [&](int count) {
        std::vector<std::unique_ptr<KdDbTable>> tables;
        for (int i = 0; i < count; ++i) tables.push_back(TableBuilder(2, 2).fill().build());
        saveTables(file, std::move(tables));
    };
    save(1);
    EXPECT_EQ(read(file), 0);
    save(2);
    EXPECT_EQ(read(file), 3);
    save(0);
    EXPECT_EQ(read(file), 3);
    EXPECT_NE(read(pathOf("missing.dwg")), 0);
    KdDbDatabase* none = nullptr;
    KdDbObjectId table;
    KdDbObjectId block;
    EXPECT_EQ(CVqTableClipDataMgr::ReadTableFromTempFile(none, file.c_str(), table, block), 124);
}

TEST_F(CellFiles, are_told_by_their_content) {
    saveTables(pathOf("other.name"), [] {
        std::vector<std::unique_ptr<KdDbTable>> tables;
        tables.push_back(TableBuilder(1, 1).fill().build());
        return tables;
    }());
    EXPECT_EQ(read(pathOf("other.name")), 0);
}

TEST_F(CellFiles, that_are_gone_fail_plainly) {
    const KdDbObjectId id = add(table(2, 2).fill());
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    ASSERT_TRUE(QFile::remove(copiedFile()));
    expectPlainFailure("the file is gone");
}

TEST_F(CellFiles, that_hold_two_tables_fail_plainly) {
    std::vector<std::unique_ptr<KdDbTable>> tables;
    tables.push_back(TableBuilder(2, 2).fill().build());
    tables.push_back(TableBuilder(2, 2).fill().build());
    saveTables(pathOf("two.dwg"), std::move(tables));
    putInfo(pathOf("two.dwg"), 2, 2);
    expectPlainFailure("two tables");
}

TEST_F(CellFiles, that_are_cut_off_anywhere_fail_plainly) {
    const KdDbObjectId id = add(table(2, 2).fill());
    ASSERT_EQ(copy(id, "A1:B2"), 1);
    const QString file = copiedFile();
    const QByteArray whole = bytesOf(file);
    const KdDbObjectId target = add(table(3, 3).fill());
    const std::string description = describe(look(target));
    const auto before = blocksAndEntities();
    const kdtest::BoxAnswers boxes;
    // The last bytes are no more than a line end.
    for (int length = 0; length < whole.size() - 4; length += std::max(1, static_cast<int>(whole.size()) / 23)) {
        write(file, whole.left(length));
        EXPECT_EQ(paste(target, "A1:B2"), 0) << length;
        EXPECT_EQ(describe(look(target)), description) << length;
        EXPECT_EQ(blocksAndEntities(), before) << length;
    }
    EXPECT_EQ(boxes.count(), 0);
    write(file, whole);
    EXPECT_EQ(paste(target, "A1:B2"), 1);
}

TEST_F(CellFiles, serve_as_often_as_they_are_pasted) {
    const KdDbObjectId id = add(table(2, 2).fill());
    ASSERT_EQ(copy(id, "A1:B1"), 1);
    const QByteArray bytes = bytesOf(copiedFile());
    const auto before = blocksAndEntities();
    for (int time = 0; time < 3; ++time) EXPECT_EQ(paste(id, "A2:B2"), 1);
    EXPECT_EQ(bytesOf(copiedFile()), bytes);
    EXPECT_EQ(blocksAndEntities(), before);
}

}  // namespace
