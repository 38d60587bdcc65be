// Reading of comma-separated files into tables, through the exported functions as the host calls them.

#include "module/exchange/tableiocsv.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <memory>
#include <stdexcept>

#include "host/rx/faults.h"
#include "kd/db/database.h"
#include "kd/db/dictionary.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "module/core/resources.h"
#include "module/exchange/readingprogress.h"
#include "tests/support/virtualslots.h"
#include "tvx/exports.h"
#include "tvx/tableio.h"

namespace {

/// A host without documents: a drawing to work on, nothing else.
class DrawingOnly : public KdDbHostApplicationServices {
public:
    DrawingOnly() : m_before(kddbHostApplicationServices()) { kddbSetHostApplicationServices(this); }
    ~DrawingOnly() override { kddbSetHostApplicationServices(m_before); }

    KdDbDatabase* workingDatabase() const override { return m_working; }
    void setWorkingDatabase(KdDbDatabase* database) override { m_working = database; }
    const KdCommandLineState* commandLineState() const override { return nullptr; }

private:
    KdDbHostApplicationServices* m_before;
    KdDbDatabase m_drawing;
    KdDbDatabase* m_working = &m_drawing;
};

/// Gives a reader's reference back.
struct Releaser {
    void operator()(CVqTableIOHandle* reader) const { reader->Release(); }
};
using ReaderPointer = std::unique_ptr<CVqTableIOHandle, Releaser>;

class TableIoCsv : public ::testing::Test {
protected:
    TableIoCsv() {
        hLibModule = LoadResourceDll(L"TvxTableRes.dll");
        reader.reset(CreateTableIOHandle(1));
        info.handle = reader.get();
        info.status = 77;
        info.error = L"as before";
    }
    ~TableIoCsv() override {
        delete info.table;
        reader.reset();
        FreeLibrary(hLibModule);
        hLibModule = nullptr;
    }

    std::wstring path(const char* name = "cells.csv") const {
        return folder.filePath(QLatin1String(name)).toStdWString();
    }

    void put(const QByteArray& text) const {
        QFile file(QString::fromStdWString(path()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

    /// Imports a file; the record keeps what came.
    void importFile(const std::wstring& file) {
        info.file = file.c_str();
        EXPECT_EQ(ImportTableFromCSV(&info), 0);
        info.file = nullptr;
    }

    void importText(const QByteArray& text) {
        put(text);
        importFile(path());
    }

    std::vector<std::vector<std::wstring>> texts() const {
        std::vector<std::vector<std::wstring>> rows;
        for (int row = 0; row < info.table->numRows(); ++row) {
            rows.emplace_back();
            for (int column = 0; column < info.table->numColumns(); ++column) {
                rows.back().emplace_back(info.table->textString(row, column));
            }
        }
        return rows;
    }

    void expectRefusedWithoutAWord() const {
        EXPECT_EQ(info.status, 1);
        EXPECT_EQ(info.error, L"as before");
        EXPECT_EQ(info.table, nullptr);
    }

    DrawingOnly host;
    QTemporaryDir folder;
    ReaderPointer reader;
    struTableIoInfo info;
};

using Texts = std::vector<std::vector<std::wstring>>;

TEST_F(TableIoCsv, Each_line_becomes_a_row_of_cells) {
    importText("a,\"b,c\",d\n\"x\"\"y\",z\nlast");
    ASSERT_EQ(info.status, 0);
    EXPECT_EQ(info.error, L"as before");
    EXPECT_EQ(texts(), (Texts{{L"a", L"b,c", L"d\n"}, {L"x\"y", L"z\n", L""}, {L"last", L"", L""}}));
}

TEST_F(TableIoCsv, Characters_beyond_16_bits_arrive_whole) {
    importText("\xF0\x9F\x98\x80,\xE7\xAE\xA1");
    ASSERT_EQ(info.status, 0);
    EXPECT_EQ(texts(), (Texts{{L"\U0001F600", L"管"}}));
}

TEST_F(TableIoCsv, The_line_end_stays_in_the_last_cell_and_hides_its_quotes) {
    importText("\"a\",\"b\"\n\"c\",\"d\"");
    ASSERT_EQ(info.status, 0);
    EXPECT_EQ(texts(), (Texts{{L"a", L"\"b\"\n"}, {L"c", L"d"}}));
}

TEST_F(TableIoCsv, Cells_have_the_sizes_of_an_import_and_missing_ones_the_height_of_their_style) {
    importText("a,b,c\nd");
    ASSERT_EQ(info.status, 0);
    for (int column = 0; column < 3; ++column) EXPECT_EQ(info.table->columnWidth(column), 45.0);
    for (int row = 0; row < 2; ++row) EXPECT_EQ(info.table->rowHeight(row), 15.0);
    for (int column = 0; column < 3; ++column) EXPECT_EQ(info.table->textHeight(0, column), 6.0);
    EXPECT_EQ(info.table->textHeight(1, 0), 6.0);
    const double headerHeight = info.table->textHeight(KdDb::kHeaderRow);
    EXPECT_NE(headerHeight, 6.0);
    EXPECT_EQ(info.table->textHeight(1, 1), headerHeight);
    EXPECT_EQ(info.table->textHeight(1, 2), headerHeight);
}

TEST_F(TableIoCsv, Empty_fields_that_are_there_have_the_height_of_an_import_too) {
    importText("a,,c\n,,\nd\n");
    ASSERT_EQ(info.status, 0);
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 3; ++column) EXPECT_EQ(info.table->textHeight(row, column), 6.0);
    }
    EXPECT_NE(info.table->textHeight(2, 1), 6.0);
}

TEST_F(TableIoCsv, The_table_lies_at_the_origin_in_style_Standard_whatever_is_current_and_in_no_drawing) {
    KdDbDictionary* styles = nullptr;
    ASSERT_EQ(host.workingDatabase()->getTableStyleDictionary(styles, KdDb::kForWrite), Kdad::eOk);
    KdDbObjectId standard;
    EXPECT_EQ(styles->getAt(L"Standard", standard), Kdad::eOk);
    auto* mine = new KdDbTableStyle;
    KdDbObjectId current;
    EXPECT_EQ(styles->setAt(L"Mine", mine, current), Kdad::eOk);
    mine->close();
    styles->close();
    host.workingDatabase()->setTablestyle(current);
    ASSERT_EQ(host.workingDatabase()->tablestyle(), current);
    importText("a\n");
    ASSERT_EQ(info.status, 0);
    EXPECT_EQ(info.table->position(), KdGePoint3d());
    EXPECT_TRUE(info.table->objectId().isNull());
    EXPECT_EQ(info.table->tableStyle(), standard);
    EXPECT_EQ(info.table->layerId(), host.workingDatabase()->clayer());
}

TEST_F(TableIoCsv, A_reader_keeps_to_the_drawing_that_was_worked_on_when_it_was_made) {
    const KdDbObjectId style = host.workingDatabase()->tablestyle();
    const KdDbObjectId layer = host.workingDatabase()->clayer();
    KdDbDatabase later;
    host.setWorkingDatabase(&later);
    importText("a\n");
    ASSERT_EQ(info.status, 0);
    EXPECT_EQ(info.table->tableStyle(), style);
    EXPECT_EQ(info.table->layerId(), layer);
    host.setWorkingDatabase(nullptr);
    delete std::exchange(info.table, nullptr);
    importText("a\n");
    ASSERT_EQ(info.status, 0);
    EXPECT_EQ(info.table->tableStyle(), style);
}

TEST_F(TableIoCsv, A_line_that_does_not_count_still_widens_the_table) {
    importText("a\n,b,c,d\n");
    ASSERT_EQ(info.status, 0);
    EXPECT_EQ(texts(), (Texts{{L"a\n", L"", L"", L""}}));
}

TEST_F(TableIoCsv, A_line_beginning_with_a_comma_in_the_middle_keeps_its_row) {
    importText("a\n,b\nc\n");
    ASSERT_EQ(info.status, 0);
    EXPECT_EQ(texts(), (Texts{{L"a\n", L""}, {L"", L"b\n"}, {L"c\n", L""}}));
}

TEST_F(TableIoCsv, An_empty_file_gives_a_table_without_rows_and_columns) {
    importText("");
    EXPECT_EQ(info.status, 0);
    EXPECT_EQ(info.error, L"as before");
    ASSERT_NE(info.table, nullptr);
    EXPECT_EQ(info.table->numRows(), 0);
    EXPECT_EQ(info.table->numColumns(), 0);
}

TEST_F(TableIoCsv, Lines_that_all_begin_with_a_comma_give_columns_without_rows) {
    importText(",a,b\n,c\n");
    EXPECT_EQ(info.status, 0);
    ASSERT_NE(info.table, nullptr);
    EXPECT_EQ(info.table->numRows(), 0);
    EXPECT_EQ(info.table->numColumns(), 3);
}

TEST_F(TableIoCsv, A_cell_ends_at_a_NUL) {
    importText(QByteArray("a\0b,c", 5));
    ASSERT_EQ(info.status, 0);
    EXPECT_EQ(texts(), (Texts{{L"a", L"c"}}));
}

TEST_F(TableIoCsv, Every_road_that_is_no_readable_file_is_refused_without_a_word) {
    for (const std::wstring& road : {path("missing.csv"), folder.path().toStdWString(), std::wstring()}) {
        importFile(road);
        expectRefusedWithoutAWord();
    }
    info.file = nullptr;
    ImportTableFromCSV(&info);
    expectRefusedWithoutAWord();
}

/// Another user for its lifetime, where the tests run as one who may read everything.
class PlainUser {
public:
    PlainUser() {
        if (::geteuid() != 0) return;
        EXPECT_EQ(::seteuid(nobody), 0);
    }
    ~PlainUser() {
        if (::getuid() != 0) return;
        EXPECT_EQ(::seteuid(0), 0);
    }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;

private:
    static constexpr uid_t nobody = 65534;
};

TEST_F(TableIoCsv, A_file_that_may_not_be_read_is_refused_without_a_word) {
    put("a\n");
    ASSERT_EQ(::chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    const QByteArray file = QFile::encodeName(QString::fromStdWString(path()));
    ASSERT_EQ(::chmod(file.constData(), 0), 0);
    {
        const PlainUser user;
        importFile(path());
    }
    expectRefusedWithoutAWord();
    ASSERT_EQ(::chmod(file.constData(), 0644), 0);
    {
        const PlainUser user;
        importFile(path());
    }
    EXPECT_EQ(info.status, 0);
}

TEST_F(TableIoCsv, Bytes_that_are_not_UTF8_refuse_the_whole_file) {
    for (const char* text : {"a,b\nc,\x80", "a\n,\xFF\n", "a\xC3\nb\n", "\xED\xA0\x80"}) {
        importText(text);
        expectRefusedWithoutAWord();
    }
}

TEST_F(TableIoCsv, A_refused_file_takes_no_table_of_an_earlier_one_along) {
    importText("a");
    ASSERT_EQ(info.status, 0);
    const std::unique_ptr<KdDbTable> earlier(info.table);
    importText("\x80");
    expectRefusedWithoutAWord();
    EXPECT_STREQ(earlier->textString(0, 0), L"a");
}

TEST_F(TableIoCsv, Without_table_styles_the_user_is_told_and_no_table_of_an_earlier_file_taken_along) {
    KdDbTable earlier;
    info.table = &earlier;
    kdhost::faults().noTableStyleDictionary = true;
    importText("a\n");
    kdhost::faults() = {};
    EXPECT_EQ(info.status, 1);
    EXPECT_EQ(std::exchange(info.table, nullptr), nullptr);
    const ResourceScope resources;
    EXPECT_FALSE(loadText(6054).IsEmpty());
    EXPECT_FALSE(loadText(6060).IsEmpty());
    EXPECT_EQ(info.error, loadText(6054) + loadText(6060));
}

TEST_F(TableIoCsv, Without_a_drawing_there_are_no_table_styles) {
    host.setWorkingDatabase(nullptr);
    const ReaderPointer homeless(CreateTableIOHandle(1));
    info.handle = homeless.get();
    importText("a\n");
    EXPECT_EQ(info.status, 1);
    EXPECT_EQ(info.table, nullptr);
}

TEST_F(TableIoCsv, Sheet_and_range_do_not_matter) {
    put("a,b");
    for (const wchar_t* sheet : {static_cast<const wchar_t*>(nullptr), L"sheet9"}) {
        info.sheet = sheet;
        info.range = L"B2:C3";
        importFile(path());
        ASSERT_EQ(info.status, 0);
        EXPECT_EQ(texts(), (Texts{{L"a", L"b"}}));
        delete std::exchange(info.table, nullptr);
    }
}

TEST_F(TableIoCsv, Record_and_reader_have_the_form_that_the_host_was_built_with) {
    using Reader = CVqTableIOHandle;
    // Two destructors stand first.
    EXPECT_EQ(kdtest::slotsOf(&Reader::OutHandle, &Reader::InHandle, &Reader::GetSubNameList, &Reader::AddRef,
                              &Reader::Release),
              (std::vector<std::ptrdiff_t>{2, 3, 4, 5, 6}));
    const auto* const start = reinterpret_cast<const std::byte*>(&info);
    const auto place = [start](const auto& field) { return reinterpret_cast<const std::byte*>(&field) - start; };
    EXPECT_EQ(
        (std::vector<std::ptrdiff_t>{place(info.handle), place(info.table), place(info.file), place(info.sheet),
                                     place(info.range), place(info.status), place(info.sheetNames), place(info.error)}),
        (std::vector<std::ptrdiff_t>{0, 8, 16, 24, 32, 40, 48, 56}));
    EXPECT_EQ(sizeof info.status, 4U);
}

TEST_F(TableIoCsv, A_hundred_thousand_rows_arrive) {
    QByteArray text;
    for (int row = 0; row < 100000; ++row) text += QByteArray::number(row) + ",b,c,d,e,f,g,h\n";
    importText(text);
    ASSERT_EQ(info.status, 0);
    ASSERT_EQ(info.table->numRows(), 100000);
    ASSERT_EQ(info.table->numColumns(), 8);
    for (int row = 0; row < 100000; row += 999) {
        EXPECT_EQ(info.table->textString(row, 0), std::to_wstring(row));
        EXPECT_STREQ(info.table->textString(row, 7), L"h\n");
        EXPECT_EQ(info.table->textHeight(row, 7), 6.0);
    }
}

TEST_F(TableIoCsv, Who_watches_is_told_of_each_row_and_of_the_end) {
    std::vector<std::pair<int, int>> told;
    const ReadingWatch watch([&](int done, int all) { told.emplace_back(done, all); });
    importText("a\nb\n");
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{0, 2}, {1, 2}, {2, 2}}));
}

TEST_F(TableIoCsv, A_line_of_a_megabyte_is_one_row) {
    importText("a," + QByteArray(1 << 20, 'x') + ",b");
    ASSERT_EQ(info.status, 0);
    ASSERT_EQ(info.table->numColumns(), 3);
    EXPECT_EQ(std::wstring(info.table->textString(0, 1)).size(), std::size_t{1} << 20);
    EXPECT_STREQ(info.table->textString(0, 2), L"b");
}

TEST_F(TableIoCsv, The_handle_of_an_outsider_is_refused) {
    EXPECT_EQ(CreateTableIOHandle(0), nullptr);
    EXPECT_EQ(CreateTableIOHandle(2), nullptr);
    EXPECT_EQ(CreateTableIOHandle(-1), nullptr);
}

TEST_F(TableIoCsv, Null_records_and_handles_give_0_at_once) {
    EXPECT_EQ(ImportTableFromCSV(nullptr), 0);
    EXPECT_EQ(GetSheetsNameFromCSV(nullptr), 0);
    EXPECT_EQ(GetSheetsNameFromExl(nullptr), 0);
    EXPECT_NO_THROW(tvxtableImportTableFromExlSE(nullptr));
    info.handle = nullptr;
    EXPECT_EQ(ImportTableFromCSV(&info), 0);
    EXPECT_EQ(GetSheetsNameFromCSV(&info), 0);
    EXPECT_EQ(GetSheetsNameFromExl(&info), 0);
    EXPECT_EQ(info.status, 77);
}

TEST_F(TableIoCsv, Names_give_status_1_and_none_come_back) {
    std::vector<CStdStr<wchar_t>> names = {L"kept"};
    info.sheetNames = &names;
    for (int (*const ask)(void*) : {&GetSheetsNameFromCSV, &GetSheetsNameFromExl}) {
        info.status = 0;
        EXPECT_EQ(ask(&info), 0);
        EXPECT_EQ(info.status, 1);
        EXPECT_EQ(names, std::vector<CStdStr<wchar_t>>{L"kept"});
    }
    info.sheetNames = nullptr;
    EXPECT_EQ(GetSheetsNameFromCSV(&info), 0);
    EXPECT_EQ(info.status, 1);
}

TEST_F(TableIoCsv, Writing_through_the_reader_does_nothing) {
    const KdDbTable table;
    EXPECT_EQ(reader->OutHandle(&table, path().c_str(), nullptr, nullptr), 1);
    EXPECT_FALSE(QFile::exists(QString::fromStdWString(path())));
}

/// A reader that counts its own end, and throws what a test gives it.
class OtherReader : public CVqTableIOHandle {
public:
    explicit OtherReader(int& ended) : m_ended(ended) {}
    ~OtherReader() override { ++m_ended; }

    int OutHandle(const KdDbTable*, const wchar_t*, const wchar_t*, const wchar_t*) override { return 1; }
    int InHandle(CStdStr<wchar_t>&, const wchar_t*, KdDbTable*&, const wchar_t*, const wchar_t*) override {
        if (thrower) thrower();
        return 5;
    }

    std::function<void()> thrower;

private:
    int& m_ended;
};

class NamingReader : public OtherReader {
public:
    using OtherReader::OtherReader;
    int GetSubNameList(const wchar_t* file, std::vector<CStdStr<wchar_t>>& names) override {
        if (thrower) thrower();
        names.emplace_back(file);
        return 9;
    }
};

class OtherReaders : public TableIoCsv {
protected:
    /// The status and the error text after a reader threw this.
    template <class Thrown>
    std::pair<int, std::wstring> after(Thrown thrown, int (*function)(struTableIoInfo*)) {
        NamingReader throwing(ended);
        throwing.thrower = [thrown] { throw thrown; };
        info.handle = &throwing;
        info.status = 0;
        info.error = L"as before";
        KdDbTable earlier;
        info.table = &earlier;
        EXPECT_EQ(function(&info), 0);
        EXPECT_EQ(std::exchange(info.table, nullptr), &earlier) << "the record's table stays";
        return {info.status, info.error};
    }

    int ended = 0;
};

TEST_F(OtherReaders, References_are_counted_and_the_last_release_ends_the_reader) {
    CVqTableIOHandle* const counted = new OtherReader(ended);
    EXPECT_EQ(counted->AddRef(), 2);
    EXPECT_EQ(counted->AddRef(), 3);
    EXPECT_EQ(counted->Release(), 2);
    EXPECT_EQ(counted->Release(), 1);
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(counted->Release(), 0);
    EXPECT_EQ(ended, 1);
}

TEST_F(OtherReaders, The_result_of_the_reader_is_the_status) {
    OtherReader other(ended);
    info.handle = &other;
    tvxtableImportTableFromExlSE(&info);
    EXPECT_EQ(info.status, 5);
}

TEST_F(OtherReaders, A_reader_without_names_of_its_own_is_not_asked) {
    OtherReader other(ended);
    std::vector<CStdStr<wchar_t>> names;
    EXPECT_EQ(other.GetSubNameList(L"file", names), 0);
    info.handle = &other;
    info.sheetNames = &names;
    EXPECT_EQ(GetSheetsNameFromCSV(&info), 0);
    EXPECT_EQ(info.status, 77);
    EXPECT_TRUE(names.empty());
}

TEST_F(OtherReaders, A_reader_with_names_is_asked_and_its_result_is_the_status) {
    NamingReader naming(ended);
    std::vector<CStdStr<wchar_t>> names;
    info.handle = &naming;
    info.sheetNames = &names;
    info.file = L"file";
    EXPECT_EQ(GetSheetsNameFromExl(&info), 0);
    EXPECT_EQ(info.status, 9);
    EXPECT_EQ(names, std::vector<CStdStr<wchar_t>>{L"file"});
}

TEST_F(OtherReaders, A_thrown_wide_string_is_the_text_for_the_user) {
    for (int (*const function)(struTableIoInfo*) :
         {&ImportTableFromCSV, +[](struTableIoInfo* record) { return GetSheetsNameFromCSV(record); }}) {
        EXPECT_EQ(after(L"literal", function), (std::pair<int, std::wstring>(1, L"literal")));
        EXPECT_EQ(after(std::wstring(L"string"), function), (std::pair<int, std::wstring>(1, L"string")));
        EXPECT_EQ(after(CStdStr<wchar_t>(L"own"), function), (std::pair<int, std::wstring>(1, L"own")));
    }
}

TEST_F(OtherReaders, Anything_else_thrown_is_status_1_without_a_word) {
    for (int (*const function)(struTableIoInfo*) :
         {&ImportTableFromCSV, +[](struTableIoInfo* record) { return GetSheetsNameFromCSV(record); }}) {
        EXPECT_EQ(after(std::runtime_error("narrow"), function), (std::pair<int, std::wstring>(1, L"as before")));
        EXPECT_EQ(after(42, function), (std::pair<int, std::wstring>(1, L"as before")));
    }
}

TEST_F(OtherReaders, The_inner_function_lets_no_exception_out_either) {
    OtherReader throwing(ended);
    throwing.thrower = [] { throw std::bad_alloc(); };
    info.handle = &throwing;
    EXPECT_NO_THROW(tvxtableImportTableFromExlSE(&info));
    EXPECT_EQ(info.status, 1);
    EXPECT_EQ(info.error, L"as before");
    throwing.thrower = [] { throw std::wstring(L"string"); };
    info.status = 0;
    EXPECT_NO_THROW(tvxtableImportTableFromExlSE(&info));
    EXPECT_EQ(info.status, 1);
    EXPECT_EQ(info.error, L"string");
}

}  // namespace
