// What other programs write: kept where it is unknown, read where it is changed.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <regex>

#include "host/db/access.h"
#include "host/db/databasecontents.h"
#include "host/db/keptobject.h"
#include "host/db/symbolstate.h"
#include "kd/db/idmapping.h"
#include "kd/db/mtext.h"
#include "kd/db/table.h"
#include "kd/db/tablestyle.h"
#include "tests/host/file/filefixture.h"
#include "tests/support/objects.h"
#include "tests/support/places.h"
#include "tests/support/randomdrawing.h"
#include "tests/support/tablebuilder.h"

namespace {

class ForeignFiles : public kdtest::DrawingFiles {
protected:
    ForeignFiles() {
        m_line = kdtest::appendLine(m_database, 12.5);
        auto* table = new KdDbTable;
        table->setTableStyle(m_database.tablestyle());
        table->setSize(3, 2);
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 2; ++column) {
                table->setTextString(row, column, (L"cell " + std::to_wstring(row * 2 + column)).c_str());
                table->setBackgroundColor(row, column, KdCmColor::fromRgb(10, 20, 30));
            }
        }
        m_table = kdtest::append(m_database, table);
    }

    std::string bytes() const { return kdhost::file::drawingBytes(m_database); }
    static std::string with(std::string bytes, const std::string& mark, const std::string& text, bool before = true) {
        const std::size_t at = bytes.find(mark);
        EXPECT_NE(at, std::string::npos) << mark;
        return at == std::string::npos ? bytes : bytes.insert(before ? at : at + mark.size(), text);
    }
    std::string handle(KdDbObjectId id) const {
        char digits[17];
        std::snprintf(digits, sizeof digits, "%llX", static_cast<unsigned long long>(kdhost::peekObject(id)->handle()));
        return digits;
    }
    /// Opens, saves, opens and saves again: the text is there each time.
    static void expectKept(const std::string& bytes, const std::string& text) {
        const auto database = opened(bytes);
        ASSERT_NE(database, nullptr);
        const std::string saved = kdhost::file::drawingBytes(*database);
        EXPECT_NE(saved.find(text), std::string::npos) << text;
        savedAndOpened(*database);
    }
    /// Descriptions of all tables in the model space, without ids, which are numbers of the run.
    static std::vector<std::string> tablesIn(const KdDbDatabase& database) {
        static const std::regex ids("#[0-9]+");
        std::vector<std::string> tables;
        const auto* space = kdhost::peek<KdDbBlockTableRecord>(database.modelSpaceId());
        for (const KdDbObjectId id : stateOf<KdDbBlockTableRecordState>(*space).entities) {
            const auto* table = kdhost::peek<KdDbTable>(id);
            if (table != nullptr) tables.push_back(std::regex_replace(kdtest::describe(*table), ids, "#"));
        }
        EXPECT_FALSE(tables.empty());
        return tables;
    }
    /// Standard output of the script in Python; fails when it does.
    static std::string python(const QStringList& arguments) {
        QProcess process;
        process.start(QStringLiteral("/usr/bin/python3"),
                      QStringList{kdtest::sourcePath("tests/host/file/otherprogram.py")} + arguments);
        EXPECT_TRUE(process.waitForFinished(120000));
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
        return process.readAllStandardOutput().toStdString();
    }

    /// The size of the picture that a program without tables makes of the file beside it; 0 for none.
    qint64 sizeOfPicture(const std::string& name) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("HOME"), QString::fromStdString(path("")));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral("librecad"),
                      {QStringLiteral("dxf2pdf"), QStringLiteral("-a"), QString::fromStdString(path(name + ".dxf"))});
        EXPECT_TRUE(process.waitForFinished(120000));
        return QFile(QString::fromStdString(path(name + ".pdf"))).size();
    }
    /// The same of the drawing saved under that name, with insertions of what its tables look like or without.
    qint64 sizeOfPicture(KdDbDatabase& database, const std::string& name, bool insertsTables) const {
        kdhost::file::saveOptions().insertsTables = insertsTables;
        EXPECT_EQ(database.saveAs(widePath(name + ".dxf").c_str()), Kdad::eOk);
        kdhost::file::saveOptions().insertsTables = false;
        return sizeOfPicture(name);
    }

    KdDbDatabase m_database;
    KdDbObjectId m_line;
    KdDbObjectId m_table;
};

TEST_F(ForeignFiles, entities_of_other_kinds_keep_their_tags_their_handles_and_their_place) {
    const std::string circle = "0\nCIRCLE\n5\nABC0\n102\n{ACAD_REACTORS\n330\n0\n102\n}\n330\n" +
                               handle(m_database.modelSpaceId()) + "\n100\nAcDbEntity\n8\n0\n62\n3\n100\nAcDbCircle\n" +
                               "10\n1.0\n20\n2.50\n30\n0.0\n40\n7.00\n1001\nACAD\n1000\n  blanks kept  \n";
    const std::string file = with(bytes(), "0\nACAD_TABLE\n", circle);
    expectKept(file, "0\nLINE\n");
    expectKept(file, circle);
    const auto database = opened(file);
    const KdDbObject* kept = KdDbDatabaseAccess::find(*database, 0xABC0);
    ASSERT_NE(kept, nullptr);
    EXPECT_TRUE(kept->isKindOf(KdDbEntity::desc()));
    EXPECT_EQ(static_cast<const KdDbEntity*>(kept)->layerId(), database->layerZero());
}

TEST_F(ForeignFiles, an_entity_with_vertices_is_one) {
    const std::string space = handle(m_database.modelSpaceId());
    const std::string lines = "0\nPOLYLINE\n5\nABC0\n330\n" + space +
                              "\n100\nAcDbEntity\n8\n0\n100\nAcDb2dPolyline\n66\n1\n10\n0\n20\n0\n30\n0\n"
                              "0\nVERTEX\n5\nABC1\n330\nABC0\n100\nAcDbEntity\n8\n0\n10\n1\n20\n1\n30\n0\n"
                              "0\nSEQEND\n5\nABC2\n330\nABC0\n100\nAcDbEntity\n8\n0\n";
    const std::string file = with(bytes(), "0\nACAD_TABLE\n", lines);
    expectKept(file, "0\nPOLYLINE\n5\nABC0\n");
    const auto database = opened(file);
    EXPECT_EQ(KdDbDatabaseAccess::find(*database, 0xABC1)->isKindOf(KdDbEntity::desc()), false);
    auto* entity =
        kdtest::mustOpen<KdDbEntity>(KdDbDatabaseAccess::find(*database, 0xABC0)->objectId(), KdDb::kForWrite);
    entity->erase();
    entity->close();
    EXPECT_EQ(kdhost::file::drawingBytes(*database).find("VERTEX"), std::string::npos) << "its vertices go with it";
}

TEST_F(ForeignFiles, objects_sections_variables_and_classes_of_other_kinds_are_kept) {
    const std::string object = "0\nMATERIAL\n5\nABC0\n330\n" + handle(m_database.namedObjectsDictionaryId()) +
                               "\n100\nAcDbMaterial\n1\nGlobal\n340\n" + handle(m_line) + "\n";
    expectKept(with(bytes(), "0\nTABLESTYLE\n", object), object);
    const std::string section = "0\nSECTION\n2\nACDSDATA\n70\n2\n71\n6\n0\nENDSEC\n";
    expectKept(with(bytes(), "0\nEOF\n", section), section);
    expectKept(with(bytes(), "9\n$ANGBASE\n", "9\n$FILLETRAD\n40\n12.50\n"), "9\n$FILLETRAD\n40\n12.50\n");
    const std::string cls = "0\nCLASS\n1\nSUN\n2\nAcDbSun\n3\nSCENEOE\n90\n1153\n91\n0\n280\n0\n281\n0\n";
    expectKept(with(bytes(), "0\nENDSEC\n0\nSECTION\n2\nTABLES\n", cls), cls);
    const std::string view =
        "0\nVIEW\n5\nABC0\n330\n0\n100\nAcDbSymbolTableRecord\n100\nAcDbViewTableRecord\n2\nTop\n"
        "70\n0\n40\n1.00\n";
    const std::string head = "0\nTABLE\n2\nVIEW\n";
    const std::string file = bytes();
    const std::size_t end = file.find("0\nENDTAB\n", file.find(head));
    const auto database = opened(file.substr(0, end) + view + file.substr(end));
    ASSERT_NE(database, nullptr);
    EXPECT_NE(kdhost::file::drawingBytes(*database).find("100\nAcDbViewTableRecord\n2\nTop\n"), std::string::npos);
}

TEST_F(ForeignFiles, what_other_programs_hang_on_known_objects_is_kept) {
    expectKept(with(bytes(), "0\nACAD_TABLE\n", "1001\nACAD\n1000\nnote\n1040\n1.50\n"), "1000\nnote\n1040\n1.50\n");
    expectKept(with(bytes(), "11\n12.5\n", "39\n2.00\n"), "39\n2.00\n");
    expectKept(with(bytes(), "100\nAcDbLayerTableRecord\n", "347\n0\n", false), "347\n0\n");
    expectKept(with(bytes(), "70\n0\n62\n7\n6\nContinuous\n", "390\n0\n"), "390\n0\n");
}

TEST_F(ForeignFiles, clones_of_kept_objects_point_at_clones) {
    const std::string space = handle(m_database.modelSpaceId());
    const std::string pointing = "0\nWIPEOUT\n5\nABC0\n330\n" + space +
                                 "\n100\nAcDbEntity\n8\n0\n100\nAcDbWipeout\n340\n" + handle(m_line) + "\n";
    const auto database = opened(with(bytes(), "0\nACAD_TABLE\n", pointing));
    ASSERT_NE(database, nullptr);
    KdDbDatabase other(true, true);
    KdDbIdMapping mapping(&other);
    KdDbObjectIdArray ids;
    ids.append(KdDbDatabaseAccess::find(*database, 0xABC0)->objectId());
    const KdDbObjectId line = KdDbDatabaseAccess::find(*database, kdhost::peekObject(m_line)->handle())->objectId();
    ids.append(line);
    ASSERT_EQ(database->wblockCloneObjects(ids, other.modelSpaceId(), mapping, 1), Kdad::eOk);
    const kdhost::KeptObject& clone = kdhost::keptObject(*kdhost::peekObject(mapping.map(ids[0])));
    EXPECT_EQ(clone.tags.places.back().id, mapping.map(line));
    savedAndOpened(other);
}

TEST_F(ForeignFiles, every_code_that_points_is_translated_when_its_object_is_cloned) {
    const std::string space = handle(m_database.modelSpaceId());
    std::string pointing = "0\nWIPEOUT\n5\nABC0\n330\n" + space + "\n100\nAcDbEntity\n8\n0\n100\nAcDbWipeout\n";
    std::vector<int> codes{480, 481};
    for (int code = 330; code <= 369; ++code) codes.push_back(code);
    for (int code = 390; code <= 399; ++code) codes.push_back(code);
    for (const int code : codes) pointing += std::to_string(code) + "\n" + handle(m_line) + "\n";
    // Beside them some that look alike and don't point.
    pointing += "320\n" + handle(m_line) + "\n370\n25\n1001\nACAD\n1005\n" + handle(m_line) + "\n";
    const auto database = opened(with(bytes(), "0\nACAD_TABLE\n", pointing));
    ASSERT_NE(database, nullptr);
    KdDbDatabase other(true, true);
    // The line's clone gets another handle than the line has.
    for (int line = 0; line < 40; ++line) kdtest::appendLine(other);
    KdDbIdMapping mapping(&other);
    KdDbObjectIdArray ids;
    ids.append(KdDbDatabaseAccess::find(*database, kdhost::peekObject(m_line)->handle())->objectId());
    ids.append(KdDbDatabaseAccess::find(*database, 0xABC0)->objectId());
    ASSERT_EQ(database->wblockCloneObjects(ids, other.modelSpaceId(), mapping, 1), Kdad::eOk);
    const std::string clone = handle(mapping.map(ids[0]));
    ASSERT_NE(clone, handle(m_line));
    const std::string saved = kdhost::file::drawingBytes(other);
    const std::size_t at = saved.find("100\nAcDbWipeout\n");
    for (const int code : codes) {
        EXPECT_NE(saved.find("\n" + std::to_string(code) + "\n" + clone + "\n", at), std::string::npos) << code;
    }
    EXPECT_NE(saved.find("\n1005\n" + clone + "\n", at), std::string::npos);
    EXPECT_NE(saved.find("\n320\n" + handle(m_line) + "\n370\n25\n", at), std::string::npos);
}

TEST_F(ForeignFiles, long_texts_of_cells_are_read_in_pieces_of_either_code) {
    auto* open = kdtest::mustOpen<KdDbTable>(m_table, KdDb::kForWrite);
    const std::wstring text = std::wstring(250, L'a') + std::wstring(250, L'\u8868') + L"end";
    open->setTextString(1, 1, text.c_str());
    open->close();
    std::string file = bytes();
    const std::size_t table = file.find("100\nAcDbTable\n");
    const auto read = [&] {
        const auto database = opened(file);
        EXPECT_NE(database, nullptr);
        const auto* found =
            static_cast<const KdDbTable*>(KdDbDatabaseAccess::find(*database, kdhost::peekObject(m_table)->handle()));
        return std::wstring(found->textString(1, 1));
    };
    EXPECT_EQ(read(), text);
    for (int piece = 0; piece < 2; ++piece) {
        const std::size_t at = file.find(piece == 0 ? "\n2\naaa" : "\n2\n\xE8\xA1\xA8", table);
        ASSERT_NE(at, std::string::npos);
        file[at + 1] = '3';
    }
    EXPECT_EQ(read(), text);
}

TEST_F(ForeignFiles, a_cell_that_another_program_changed_loses_its_extras_and_the_others_keep_theirs) {
    std::string file = bytes();
    const std::size_t table = file.find("100\nAcDbTable\n");
    const std::size_t text = file.find("\n1\ncell 3\n", table);
    ASSERT_NE(text, std::string::npos);
    file.replace(text, 10, "\n1\nother\n");
    const auto database = opened(file);
    ASSERT_NE(database, nullptr);
    const auto* read =
        static_cast<const KdDbTable*>(KdDbDatabaseAccess::find(*database, kdhost::peekObject(m_table)->handle()));
    EXPECT_STREQ(read->textString(1, 1), L"other");
    EXPECT_NE(read->backgroundColor(1, 1), KdCmColor::fromRgb(10, 20, 30)) << "the nearest index counts";
    EXPECT_TRUE(read->backgroundColor(1, 1).isByACI());
    EXPECT_EQ(read->backgroundColor(1, 0), KdCmColor::fromRgb(10, 20, 30));
    EXPECT_STREQ(read->cellStyle(0, 0), L"_TITLE");
}

TEST_F(ForeignFiles, a_table_style_that_another_program_changed_has_its_values_and_keeps_the_rest) {
    auto* style = kdtest::mustOpen<KdDbTableStyle>(m_database.tablestyle(), KdDb::kForWrite);
    style->createCellStyle(L"mine", L"_DATA");
    style->setTextHeight(4.25, L"_DATA");
    style->setGridLineStyle(KdDb::kGridLineStyleDouble, KdDb::kHorzTop, L"_DATA");
    style->close();
    std::string file = bytes();
    const std::size_t height = file.find("140\n4.25\n", file.find("100\nAcDbTableStyle\n"));
    ASSERT_NE(height, std::string::npos);
    file.replace(height, 9, "140\n8.5\n");
    const auto database = opened(file);
    ASSERT_NE(database, nullptr);
    const auto* read = kdhost::peek<KdDbTableStyle>(database->tablestyle());
    EXPECT_EQ(read->textHeight(L"_DATA"), 8.5);
    EXPECT_EQ(read->gridLineStyle(KdDb::kHorzTop, L"_DATA"), KdDb::kGridLineStyleDouble);
    EXPECT_EQ(read->textHeight(L"mine"), 4.5);
    EXPECT_EQ(read->numCellStyles(), 4);
}

TEST_F(ForeignFiles, a_table_without_extras_is_read_by_the_standard_codes) {
    auto* open = kdtest::mustOpen<KdDbTable>(m_table, KdDb::kForWrite);
    open->setAlignment(2, 1, KdDb::kBottomRight);
    open->setBackgroundColor(2, 1, KdCmColor::fromIndex(3));
    open->setGridVisibility(2, 1, KdDb::kHorzBottom, KdDb::kInvisible);
    open->mergeCells(1, 2, 0, 0);
    open->close();
    std::string file = bytes();
    for (std::size_t at = file.find("KDHOST_EXTRAS"); at != std::string::npos; at = file.find("KDHOST_EXTRAS")) {
        file.replace(at, 13, "OTHER_PROGRAM");
    }
    const auto database = opened(file);
    ASSERT_NE(database, nullptr);
    const auto* read =
        static_cast<const KdDbTable*>(KdDbDatabaseAccess::find(*database, kdhost::peekObject(m_table)->handle()));
    EXPECT_EQ(read->alignment(2, 1), KdDb::kBottomRight);
    EXPECT_EQ(read->backgroundColor(2, 1), KdCmColor::fromIndex(3));
    EXPECT_EQ(read->gridVisibility(2, 1, KdDb::kHorzBottom), KdDb::kInvisible);
    EXPECT_EQ(read->getMergeRange(2, 0), (KdCellRange{1, 0, 2, 0}));
    EXPECT_STREQ(read->cellStyle(1, 1), L"_HEADER");
    EXPECT_STREQ(read->textString(2, 1), L"cell 5");
}

TEST_F(ForeignFiles, what_a_table_overrides_as_a_whole_is_its_cells_own) {
    KdDbDatabase plain;
    auto* table = new KdDbTable;
    table->setTableStyle(plain.tablestyle());
    table->setSize(4, 1);
    table->setAlignment(3, 0, KdDb::kBottomLeft);
    const KdDbObjectId id = kdtest::append(plain, table);
    std::string file = kdhost::file::drawingBytes(plain);
    const std::size_t head = file.find("100\nAcDbTable\n");
    // Colours of header and data, the alignment of data, heights of title and data, no fill of the title, a margin.
    const std::int64_t mask = 0x40 | 0x80 | 0x10000 | 0x100000 | 0x400000 | 0x100 | 0x08;
    file.replace(file.find("\n93\n0\n", head), 6, "\n93\n" + std::to_string(mask) + "\n");
    const std::size_t tail = file.find("0\nENDSEC\n", head);
    file.insert(tail, "40\n0.25\n64\n1\n64\n2\n283\n0\n170\n3\n140\n7.5\n140\n2.25\n");
    const auto database = opened(file);
    ASSERT_NE(database, nullptr);
    const auto* read =
        static_cast<const KdDbTable*>(KdDbDatabaseAccess::find(*database, kdhost::peekObject(id)->handle()));
    EXPECT_EQ(read->textHeight(0, 0), 7.5);
    EXPECT_TRUE(read->backgroundColor(0, 0).isNone());
    EXPECT_TRUE(read->contentColor(0, 0).isByBlock());
    EXPECT_EQ(read->contentColor(1, 0), KdCmColor::fromIndex(1));
    EXPECT_EQ(read->textHeight(1, 0), 4.5);
    EXPECT_EQ(read->contentColor(2, 0), KdCmColor::fromIndex(2));
    EXPECT_EQ(read->textHeight(2, 0), 2.25);
    EXPECT_EQ(read->alignment(2, 0), KdDb::kTopRight);
    EXPECT_EQ(read->alignment(3, 0), KdDb::kBottomLeft) << "the cell's own";
    EXPECT_EQ(read->margin(2, 0, KdDb::kCellMarginLeft), 0.25);
    savedAndOpened(*database);
}

TEST_F(ForeignFiles, layers_that_entities_name_and_the_file_does_not_list_are_made) {
    std::string file = bytes();
    const std::size_t line = file.find("8\n0\n", file.find("0\nLINE\n", file.find("2\nENTITIES\n")));
    file.replace(line, 4, "8\nnew layer\n");
    const auto database = opened(file);
    ASSERT_NE(database, nullptr);
    const auto* layers = kdhost::peek<KdDbLayerTable>(database->layerTableId());
    EXPECT_TRUE(layers->has(L"New Layer"));
    savedAndOpened(*database);
}

TEST_F(ForeignFiles, another_programs_audit_finds_nothing_in_random_drawings) {
    QStringList files{QStringLiteral("audit")};
    for (unsigned seed = 0; seed < 40; ++seed) {
        KdDbDatabase database;
        kdtest::fillRandomly(database, seed);
        const std::string name = "random" + std::to_string(seed) + ".dxf";
        ASSERT_EQ(database.saveAs(widePath(name).c_str()), Kdad::eOk);
        files += QString::fromStdString(path(name));
    }
    EXPECT_EQ(python(files), "");
}

TEST_F(ForeignFiles, another_programs_audit_finds_nothing_in_examples_and_it_keeps_what_they_hold) {
    QStringList files{QStringLiteral("audit")};
    for (const std::string& name : kdtest::exampleDrawings()) files += QString::fromStdString(name);
    EXPECT_EQ(python(files), "");
    for (const std::string& name : kdtest::exampleDrawings()) {
        SCOPED_TRACE(name);
        const std::string theirs = path("theirs.dxf");
        python({QStringLiteral("copy"), QString::fromStdString(name), QString::fromStdString(theirs)});
        KdDbDatabase read(false, true);
        ASSERT_EQ(read.readDwgFile(kdhost::fromUtf8(theirs).c_str()), Kdad::eOk) << kdhost::file::lastRefusal();
        const auto ours = opened(kdtest::contentOf(name));
        ASSERT_NE(ours, nullptr);
        EXPECT_EQ(tablesIn(read), tablesIn(*ours));
        savedAndOpened(read);
    }
}

TEST_F(ForeignFiles, a_drawing_edited_and_saved_by_another_program_opens_with_its_changes_and_all_that_was_kept) {
    ASSERT_EQ(m_database.saveAs(widePath("ours.dxf").c_str()), Kdad::eOk);
    python(
        {QStringLiteral("edit"), QString::fromStdString(path("ours.dxf")), QString::fromStdString(path("theirs.dxf"))});
    KdDbDatabase theirs(false, true);
    ASSERT_EQ(theirs.readDwgFile(widePath("theirs.dxf").c_str()), Kdad::eOk) << kdhost::file::lastRefusal();
    const auto find = [&](KdDbObjectId id) {
        return KdDbDatabaseAccess::find(theirs, kdhost::peekObject(id)->handle());
    };
    const auto* line = static_cast<const KdDbLine*>(find(m_line));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->endPoint(), KdGePoint3d(50.0, 60.0, 0.0));
    EXPECT_TRUE(kdhost::peek<KdDbLayerTable>(theirs.layerTableId())->has(L"THEIRS"));
    const auto* table = static_cast<const KdDbTable*>(find(m_table));
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->numRows(), 3);
    for (int cell = 0; cell < 6; ++cell) {
        EXPECT_EQ(table->textString(cell / 2, cell % 2), L"cell " + std::to_wstring(cell));
        EXPECT_EQ(table->backgroundColor(cell / 2, cell % 2), KdCmColor::fromRgb(10, 20, 30));
    }
    EXPECT_NE(kdhost::file::drawingBytes(theirs).find("0\nCIRCLE\n"), std::string::npos);
    savedAndOpened(theirs);
}

TEST_F(ForeignFiles, a_program_without_tables_draws_the_block_that_is_inserted_for_it) {
    const qint64 without = sizeOfPicture(m_database, "without", false);
    const qint64 with = sizeOfPicture(m_database, "with", true);
    EXPECT_GT(without, 0);
    EXPECT_GT(with, without + 1000) << "the table's texts and lines are drawn";
    KdDbDatabase again(false, true);
    ASSERT_EQ(again.readDwgFile(widePath("with.dxf").c_str()), Kdad::eOk);
    EXPECT_EQ(kdhost::file::drawingBytes(again), bytes()) << "the insertion is no part of the drawing";
}

TEST_F(ForeignFiles, a_program_without_tables_draws_every_example) {
    int number = 0;
    for (const std::string& example : kdtest::exampleDrawings()) {
        SCOPED_TRACE(example);
        const auto database = opened(kdtest::contentOf(example));
        ASSERT_NE(database, nullptr);
        const std::string name = "example" + std::to_string(++number);
        const qint64 without = sizeOfPicture(*database, name + "-bare", false);
        EXPECT_GT(sizeOfPicture(*database, name, true), without + 1000);
    }
}

}  // namespace
