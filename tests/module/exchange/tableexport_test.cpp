// The TABLEEXPORT command on tables of a running application, and what its files become when they are read.

#include "module/exchange/tableexport.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <clocale>
#include <cstdlib>

#include "host/rx/faults.h"
#include "kd/db/database.h"
#include "kd/db/field.h"
#include "kd/db/line.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"
#include "kd/ed/prompts.h"
#include "kd/ed/variables.h"
#include "module/core/openobject.h"
#include "module/core/resources.h"
#include "tests/module/core/editfixture.h"
#include "tvx/exports.h"
#include "tvx/tableio.h"

namespace {

class TableExport : public kdtest::TableEdits {
protected:
    TableExport() { std::setlocale(LC_CTYPE, "C.UTF-8"); }

    /// A table in the drawing, its first cell's outer corner at the origin, growing downwards.
    KdDbObjectId addTable(const std::vector<std::vector<const wchar_t*>>& rows) {
        auto* const table = new KdDbTable;
        table->setDatabaseDefaults(&host.database());
        table->setTableStyle(host.database().tablestyle());
        table->setSize(static_cast<int>(rows.size()), rows.empty() ? 3 : static_cast<int>(rows[0].size()));
        table->setColumnWidth(45.0);
        table->setRowHeight(15.0);
        for (int row = 0; row < table->numRows(); ++row) {
            const auto& cells = rows[static_cast<std::size_t>(row)];
            for (int column = 0; column < table->numColumns(); ++column) {
                const wchar_t* text = cells[static_cast<std::size_t>(column)];
                if (text != nullptr) table->setTextString(row, column, text);
            }
        }
        table->recomputeTableBlock(true);
        return append(table);
    }

    KdDbObjectId addBlock(const wchar_t* name) {
        KdDbBlockTable* blocks = nullptr;
        EXPECT_EQ(host.database().getBlockTable(blocks, KdDb::kForWrite), Kdad::eOk);
        auto* const block = new KdDbBlockTableRecord;
        block->setName(name);
        KdDbObjectId id;
        EXPECT_EQ(blocks->add(id, block), Kdad::eOk);
        block->close();
        blocks->close();
        return id;
    }

    /// A field that shows the number 3.
    KdDbObjectId addSum() { return addField(L"\\AcExpr (1+2)"); }
    KdDbObjectId addField(const wchar_t* code) {
        auto* const field = new KdDbField;
        field->setFieldCode(code);
        EXPECT_EQ(field->postInDatabase(&host.database()), Kdad::eOk);
        const KdDbObjectId id = field->objectId();
        field->close();
        return id;
    }

    void selectBefore(KdDbObjectId id) { host.editor().pickFirst().set({id}); }

    std::wstring path(const char* name = "out.csv") const {
        return folder.filePath(QLatin1String(name)).toStdWString();
    }

    bool exists(const std::wstring& file) const { return QFile::exists(QString::fromStdWString(file)); }

    QByteArray bytes(const std::wstring& file) const {
        QFile opened(QString::fromStdWString(file));
        EXPECT_TRUE(opened.open(QIODevice::ReadOnly));
        return opened.readAll();
    }

    /// Runs the command as the module's handler does.
    void runCommand() {
        const ResourceScope resources;
        tableExportEntry();
    }

    /// What the file of a selected table holds; the name comes from the file dialog.
    QByteArray exported(KdDbObjectId table) {
        selectBefore(table);
        host.answerFileDialog(path());
        runCommand();
        return bytes(path());
    }

    QByteArray exportedCell(const std::function<void(KdDbTable&)>& change) {
        const KdDbObjectId id = addTable({{L"title"}, {L"header"}, {nullptr}});
        {
            const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
            change(*table);
        }
        const QByteArray lines = exported(id);
        const QByteArray before = "\"title\"\n\"header\"\n";
        EXPECT_TRUE(lines.startsWith(before));
        return lines.mid(before.size());
    }

    std::wstring text(unsigned number) const {
        const ResourceScope resources;
        return kdhostText(loadText(number));
    }

    void noFileDialogs() {
        resbuf off;
        off.restype = RTSHORT;
        off.resval.rint = 0;
        ASSERT_EQ(kdedSetVar(L"FILEDIA", &off), RTNORM);
    }

    bool wasWritten(unsigned number) const {
        const std::vector<std::wstring> all = host.messages();
        return std::find(all.begin(), all.end(), text(number)) != all.end();
    }

    QTemporaryDir folder;

private:
    /// As it comes to the command line's messages: without line ends around it.
    static std::wstring kdhostText(const std::wstring& text) {
        const std::size_t begin = text.find_first_not_of(L"\r\n");
        if (begin == text.npos) return {};
        return text.substr(begin, text.find_last_not_of(L"\r\n") - begin + 1);
    }
};

TEST_F(TableExport, Every_text_is_quoted_and_a_row_ends_in_a_line_feed) {
    EXPECT_EQ(exported(addTable({{L"a", L"12", L"c"}, {L"d", L"e,f", L"g"}})),
              "\"a\",\"12\",\"c\"\n\"d\",\"e,f\",\"g\"\n");
}

TEST_F(TableExport, Empty_cells_are_blanks_and_only_the_last_comma_goes) {
    EXPECT_EQ(exported(addTable({{L"", nullptr, L""}, {L"a", L"", L""}})), " , , \n\"a\", , \n");
}

TEST_F(TableExport, Quotes_inside_a_text_are_doubled) {
    EXPECT_EQ(exported(addTable({{L"a\"b"}})), "\"a\"\"b\"\n");
    EXPECT_EQ(exported(addTable({{L"\""}})), "\"\"\"\"\n");
}

TEST_F(TableExport, Quotes_are_doubled_in_what_formatting_codes_leave) {
    EXPECT_EQ(exported(addTable({{L"{\\H2x;a\"b}"}})), "\"a\"\"b\"\n");
}

TEST_F(TableExport, Formatting_codes_are_stripped_and_line_ends_stay_raw) {
    EXPECT_EQ(exported(addTable({{L"{\\H2x;big}", L"two\\Plines"}})), "\"big\",\"two\nlines\"\n");
}

TEST_F(TableExport, Characters_are_in_ANSI_and_others_escaped) {
    EXPECT_EQ(exported(addTable({{L"管", L"ä"}})), "\"\xB9\xDC\",\"\\U+00E4\"\n");
}

TEST_F(TableExport, Covered_cells_of_a_merge_are_blanks) {
    const KdDbObjectId id = addTable({{L"a", L"b"}, {L"c", L"d"}});
    {
        const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
        table->mergeCells(0, 1, 0, 1);
    }
    EXPECT_EQ(exported(id), "\"a\", \n , \n");
}

TEST_F(TableExport, A_table_without_rows_gives_an_empty_file) {
    const KdDbObjectId id = addTable({});
    EXPECT_EQ(exported(id), "");
}

TEST_F(TableExport, A_block_is_a_label_with_its_name_unquoted) {
    const KdDbObjectId block = addBlock(L"Bolt");
    const QByteArray label = QString::fromStdWString(text(2062)).toLatin1();
    EXPECT_FALSE(label.isEmpty());
    const QByteArray cell = exportedCell([&](KdDbTable& table) { table.setBlockTableRecordId(2, 0, 0, block, true); });
    EXPECT_TRUE(cell.endsWith("Bolt\n"));
    EXPECT_TRUE(cell.startsWith(label));
    EXPECT_FALSE(cell.contains('"'));
}

TEST_F(TableExport, Commas_at_the_end_of_a_block_name_go_with_the_separators) {
    const KdDbObjectId block = addBlock(L"Bolt,,");
    const QByteArray cell = exportedCell([&](KdDbTable& table) { table.setBlockTableRecordId(2, 0, 0, block, true); });
    EXPECT_TRUE(cell.endsWith("Bolt\n"));
}

TEST_F(TableExport, A_block_that_cannot_be_opened_is_a_blank) {
    const KdDbObjectId block = addBlock(L"Gone");
    const auto erase = [&] {
        const OpenObject<KdDbBlockTableRecord> record(block, KdDb::kForWrite);
        record->erase();
    };
    EXPECT_EQ(exportedCell([&](KdDbTable& table) {
                  table.setBlockTableRecordId(2, 0, 0, block, true);
                  erase();
              }),
              " \n");
    EXPECT_EQ(exportedCell([](KdDbTable& table) { table.setCellType(2, 0, KdDb::kBlockCell); }), " \n");
}

TEST_F(TableExport, A_field_is_its_quoted_evaluated_text) {
    EXPECT_EQ(exportedCell([&](KdDbTable& table) { table.setFieldId(2, 0, addSum()); }), "\"3\"\n");
}

TEST_F(TableExport, A_field_without_a_text_is_two_quotes) {
    EXPECT_EQ(exportedCell([&](KdDbTable& table) { table.setFieldId(2, 0, addField(L"")); }), "\"\"\n");
}

TEST_F(TableExport, A_field_that_cannot_be_opened_is_a_blank) {
    const QByteArray cell = exportedCell([&](KdDbTable& table) {
        auto* const field = new KdDbField;
        field->setFieldCode(L"\\AcExpr (1+2)");
        EXPECT_EQ(field->postInDatabase(&host.database()), Kdad::eOk);
        const KdDbObjectId id = field->objectId();
        table.setFieldId(2, 0, id);
        field->erase();
        field->close();
    });
    EXPECT_EQ(cell, " \n");
}

TEST_F(TableExport, A_cell_of_the_third_kind_is_told_by_its_first_content) {
    const KdDbObjectId block = addBlock(L"Bolt");
    EXPECT_EQ(exportedCell([](KdDbTable& table) {
                  table.setTextString(2, 0, L"text");
                  table.setCellType(2, 0, KdDb::kMultipleContentCell);
              }),
              "\"text\"\n");
    EXPECT_TRUE(exportedCell([&](KdDbTable& table) {
                    table.setBlockTableRecordId(2, 0, 0, block, true);
                    table.setCellType(2, 0, KdDb::kMultipleContentCell);
                }).endsWith("Bolt\n"));
    EXPECT_EQ(exportedCell([&](KdDbTable& table) {
                  table.setFieldId(2, 0, addSum());
                  table.setCellType(2, 0, KdDb::kMultipleContentCell);
              }),
              "\"3\"\n");
    EXPECT_EQ(exportedCell([](KdDbTable& table) { table.setCellType(2, 0, KdDb::kMultipleContentCell); }), " \n");
}

TEST_F(TableExport, A_cell_of_unknown_kind_is_a_blank) {
    EXPECT_EQ(exportedCell([](KdDbTable& table) { table.setCellType(2, 0, KdDb::kUnknownCell); }), " \n");
}

TEST_F(TableExport, The_file_dialog_is_asked_as_told) {
    exported(addTable({{L"a"}}));
    ASSERT_EQ(host.fileDialogs().size(), 1U);
    const kdhost::FileDialogRequest& request = host.fileDialogs()[0];
    const ResourceScope resources;
    EXPECT_EQ(request.title, loadText(2053));
    EXPECT_EQ(request.defaultName, L"Table1");
    EXPECT_EQ(request.extension, L"csv");
    EXPECT_EQ(request.flags, 33);
}

TEST_F(TableExport, A_file_that_is_there_is_replaced) {
    QFile old(QString::fromStdWString(path()));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("much longer than what comes");
    old.close();
    EXPECT_EQ(exported(addTable({{L"a"}})), "\"a\"\n");
}

TEST_F(TableExport, A_cancelled_file_dialog_ends_the_command) {
    selectBefore(addTable({{L"a"}}));
    host.answerFileDialog(std::nullopt);
    runCommand();
    EXPECT_EQ(host.fileDialogs().size(), 1U);
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(TableExport, A_table_is_picked_when_none_was_selected) {
    addTable({{L"a"}});
    host.answerFileDialog(path());
    host.type(L"5,-5\n");
    runCommand();
    EXPECT_EQ(bytes(path()), "\"a\"\n");
}

TEST_F(TableExport, A_pick_of_something_else_is_told_and_asked_again) {
    addTable({{L"a"}});
    auto* const line = new KdDbLine;
    line->setDatabaseDefaults(&host.database());
    line->setStartPoint(KdGePoint3d(200, 100, 0));
    line->setEndPoint(KdGePoint3d(400, 100, 0));
    append(line);
    host.answerFileDialog(path());
    host.type(L"300,100\n5,-5\n");
    runCommand();
    EXPECT_TRUE(wasWritten(2051));
    EXPECT_FALSE(wasWritten(2087));
    EXPECT_EQ(bytes(path()), "\"a\"\n");
}

TEST_F(TableExport, A_pick_of_nothing_is_told_and_asked_again) {
    addTable({{L"a"}});
    host.answerFileDialog(path());
    host.type(L"900,900\n5,-5\n");
    runCommand();
    EXPECT_TRUE(wasWritten(2087));
    EXPECT_FALSE(wasWritten(2051));
    EXPECT_EQ(bytes(path()), "\"a\"\n");
}

TEST_F(TableExport, A_picked_object_that_cannot_be_opened_is_told_and_asked_again) {
    const KdDbObjectId id = addTable({{L"a"}});
    host.answerFileDialog(path());
    host.type(L"5,-5\n");
    {
        // Nobody else may read what is open for write. The second question finds no answer and is cancelled.
        const OpenObject<KdDbTable> writer(id, KdDb::kForWrite);
        runCommand();
    }
    EXPECT_TRUE(wasWritten(2087));
    EXPECT_FALSE(wasWritten(2051));
    EXPECT_TRUE(host.fileDialogs().empty());
}

TEST_F(TableExport, Cancel_at_the_pick_ends_the_command_silently) {
    addTable({{L"a"}});
    host.answerFileDialog(path());
    runCommand();
    EXPECT_TRUE(host.fileDialogs().empty());
    EXPECT_FALSE(wasWritten(2087));
}

TEST_F(TableExport, A_table_with_selected_cells_does_not_count_as_selected) {
    const KdDbObjectId id = addTable({{L"a"}, {L"b"}});
    host.editor().pickFirst().selectCells(id, {0, 0, 1, 0});
    host.answerFileDialog(path());
    runCommand();
    EXPECT_FALSE(exists(path()));
}

class NamesFromCommandLine : public TableExport {
protected:
    /// Types the name at the prompt; whether a file of that name stands then.
    bool exportsTo(const std::wstring& name) {
        selectBefore(addTable({{L"a"}}));
        host.type(name + L"\n");
        runCommand();
        return !name.empty() && exists(name);
    }
};

TEST_F(NamesFromCommandLine, An_extension_in_capitals_is_accepted) {
    noFileDialogs();
    EXPECT_TRUE(exportsTo(path("x.csv")));
    EXPECT_TRUE(exportsTo(path("x.CSV")));
    EXPECT_TRUE(exportsTo(path(".csv")));
    EXPECT_EQ(bytes(path("x.CSV")), "\"a\"\n");
    EXPECT_TRUE(host.fileDialogs().empty());
}

TEST_F(NamesFromCommandLine, Another_extension_ends_the_command_without_a_word) {
    noFileDialogs();
    EXPECT_FALSE(exportsTo(path("x.txt")));
    EXPECT_FALSE(exportsTo(path("xcsv")));
    EXPECT_FALSE(exportsTo(L"csv"));
    EXPECT_FALSE(exportsTo(L"a"));
    EXPECT_FALSE(exportsTo(L""));
    for (const unsigned number : {2051U, 2087U}) EXPECT_FALSE(wasWritten(number));
    EXPECT_TRUE(host.fileDialogs().empty());
}

TEST_F(NamesFromCommandLine, Cancel_ends_the_command_silently) {
    noFileDialogs();
    selectBefore(addTable({{L"a"}}));
    runCommand();
    EXPECT_TRUE(host.fileDialogs().empty());
    for (const unsigned number : {2051U, 2087U}) EXPECT_FALSE(wasWritten(number));
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(NamesFromCommandLine, An_empty_name_ends_the_command_whatever_was_announced_before) {
    noFileDialogs();
    constexpr int refuseEnter = 1;
    kdedInitGet(refuseEnter, nullptr);
    EXPECT_FALSE(exportsTo(L""));
    EXPECT_TRUE(host.messages().empty());
}

TEST_F(NamesFromCommandLine, The_dialog_asks_where_no_command_line_is_on) {
    noFileDialogs();
    for (const bool offered : {true, false}) {
        kdhost::faults().commandLineOff = offered;
        kdhost::faults().noCommandLineState = !offered;
        const std::size_t before = host.fileDialogs().size();
        exported(addTable({{L"a"}}));
        EXPECT_EQ(host.fileDialogs().size(), before + 1);
    }
}

TEST_F(NamesFromCommandLine, The_dialog_asks_when_the_variable_cannot_be_read) {
    noFileDialogs();
    kdhost::faults().unreadableVariables = {L"FILEDIA"};
    exported(addTable({{L"a"}}));
    EXPECT_EQ(host.fileDialogs().size(), 1U);
}

class LocaleOfExport : public TableExport {
protected:
    /// Exports to the path; the locale must be what it was, and nothing be said.
    void exportTo(const std::wstring& file) {
        host.answerFileDialog(file);
        const std::string before = std::setlocale(LC_CTYPE, nullptr);
        EXPECT_NO_THROW(runCommand());
        EXPECT_EQ(before, std::setlocale(LC_CTYPE, nullptr));
        EXPECT_TRUE(host.messages().empty());
    }
};

TEST_F(LocaleOfExport, is_put_back_after_a_good_run) {
    selectBefore(addTable({{L"a"}}));
    exportTo(path());
    EXPECT_EQ(bytes(path()), "\"a\"\n");
}

/// For its lifetime there is a locale of the name that an export asks for.
class ChineseLocale {
public:
    ChineseLocale() {
        const QDir places(m_folder.path());
        EXPECT_TRUE(QFile::link(QStringLiteral("/usr/lib/locale/C.utf8"), places.filePath(QStringLiteral("chs"))));
        EXPECT_EQ(::setenv("LOCPATH", QFile::encodeName(m_folder.path()).constData(), 1), 0);
    }
    ~ChineseLocale() { ::unsetenv("LOCPATH"); }
    ChineseLocale(const ChineseLocale&) = delete;
    ChineseLocale& operator=(const ChineseLocale&) = delete;

private:
    QTemporaryDir m_folder;
};

TEST_F(LocaleOfExport, is_put_back_where_there_is_such_a_locale) {
    const ChineseLocale chinese;
    const std::string before = std::setlocale(LC_CTYPE, nullptr);
    ASSERT_STREQ(std::setlocale(LC_CTYPE, "chs"), "chs");
    ASSERT_NE(std::setlocale(LC_CTYPE, before.c_str()), nullptr);
    selectBefore(addTable({{L"a"}}));
    exportTo(path());
    EXPECT_EQ(bytes(path()), "\"a\"\n");
    selectBefore(addTable({{L"a"}}));
    kdhost::faults().failOpenNumber = 2;
    exportTo(path());
    exportTo(path("missing/folder/out.csv"));
}

TEST_F(LocaleOfExport, is_put_back_when_the_table_cannot_be_opened_which_leaves_an_empty_file) {
    selectBefore(addTable({{L"a"}}));
    kdhost::faults().failOpenNumber = 2;
    exportTo(path());
    EXPECT_EQ(bytes(path()), "");
}

TEST_F(LocaleOfExport, is_put_back_when_the_file_cannot_be_made) {
    selectBefore(addTable({{L"a"}}));
    exportTo(path("missing/folder/out.csv"));
    exportTo(folder.path().toStdWString());
}

TEST_F(LocaleOfExport, is_put_back_when_the_disk_is_full) {
    selectBefore(addTable({{L"a"}}));
    exportTo(L"/dev/full");
    // More than any buffer holds, so that writing fails on the way.
    const std::wstring longText(100000, L'x');
    selectBefore(addTable({{longText.c_str(), L"b"}}));
    exportTo(L"/dev/full");
}

class RoundTrip : public TableExport {
protected:
    /// Exports a table and reads the file back: the texts, or nothing when it is refused.
    std::optional<std::vector<std::vector<std::wstring>>> readBack(KdDbObjectId table) {
        exported(table);
        const std::wstring file = path();
        struTableIoInfo info;
        info.handle = CreateTableIOHandle(1);
        info.file = file.c_str();
        ImportTableFromCSV(&info);
        info.handle->Release();
        const std::unique_ptr<KdDbTable> read(info.table);
        if (info.status != 0) return std::nullopt;
        std::vector<std::vector<std::wstring>> rows;
        for (int row = 0; row < read->numRows(); ++row) {
            rows.emplace_back();
            for (int column = 0; column < read->numColumns(); ++column) {
                rows.back().emplace_back(read->textString(row, column));
            }
        }
        return rows;
    }

    using Texts = std::vector<std::vector<std::wstring>>;
};

TEST_F(RoundTrip, The_last_field_comes_back_with_its_quotes_and_the_line_end) {
    EXPECT_EQ(readBack(addTable({{L"a", L"b"}, {L"c,\"", L"d"}})), (Texts{{L"a", L"\"b\"\n"}, {L"c,\"", L"\"d\"\n"}}));
}

TEST_F(RoundTrip, An_empty_cell_comes_back_as_a_blank) {
    EXPECT_EQ(readBack(addTable({{L"", L"b"}, {L"c", L""}})), (Texts{{L" ", L"\"b\"\n"}, {L"c", L" \n"}}));
}

TEST_F(RoundTrip, A_character_of_two_ANSI_bytes_refuses_the_file) {
    EXPECT_EQ(readBack(addTable({{L"管", L"b"}})), std::nullopt);
}

TEST_F(RoundTrip, A_character_beyond_ANSI_comes_back_as_its_escape) {
    EXPECT_EQ(readBack(addTable({{L"ä", L"b"}})), (Texts{{L"\\U+00E4", L"\"b\"\n"}}));
}

TEST_F(RoundTrip, A_line_end_in_a_cell_splits_its_field_over_two_rows) {
    EXPECT_EQ(readBack(addTable({{L"x\\Py", L"z"}})), (Texts{{L"\"x\n", L""}, {L"y\"", L"\"z\"\n"}}));
}

TEST_F(RoundTrip, A_block_comes_back_as_its_label) {
    const KdDbObjectId block = addBlock(L"Bolt");
    const KdDbObjectId id = addTable({{L"", L"b"}});
    {
        const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
        table->setBlockTableRecordId(0, 0, 0, block, true);
    }
    const auto texts = readBack(id);
    ASSERT_TRUE(texts.has_value());
    const ResourceScope resources;
    EXPECT_EQ(texts->at(0).at(0), loadText(2062) + L"Bolt");
}

TEST_F(RoundTrip, Sizes_and_merges_do_not_come_back) {
    const KdDbObjectId id = addTable({{L"a", L"b"}, {L"c", L"d"}});
    {
        const OpenObject<KdDbTable> table(id, KdDb::kForWrite);
        table->setColumnWidth(0, 77.0);
        table->mergeCells(0, 0, 0, 1);
    }
    exported(id);
    const std::wstring file = path();
    struTableIoInfo info;
    info.handle = CreateTableIOHandle(1);
    info.file = file.c_str();
    ImportTableFromCSV(&info);
    info.handle->Release();
    const std::unique_ptr<KdDbTable> read(info.table);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->columnWidth(0), 45.0);
    EXPECT_FALSE(read->isMergedCell(0, 0));
}

}  // namespace
