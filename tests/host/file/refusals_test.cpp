// Files that are damaged: each is refused as a whole, or is another drawing.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <random>

#include "host/db/databasecontents.h"
#include "kd/db/field.h"
#include "kd/db/mtext.h"
#include "kd/db/table.h"
#include "tests/host/file/filefixture.h"
#include "tests/support/objects.h"
#include "tests/support/otherprocess.h"
#include "tests/support/randomdrawing.h"

namespace {

class Refusals : public kdtest::DrawingFiles {
protected:
    /// Expects that the bytes are refused, and that the database holds nothing afterwards.
    static void expectRefused(const std::string& bytes, Kdad::ErrorStatus wanted = Kdad::eFileCorrupt) {
        KdDbDatabase database(false, true);
        EXPECT_EQ(kdhost::file::readDrawing(database, bytes), wanted);
        EXPECT_TRUE(KdDbDatabaseAccess::contents(database).objects.empty());
        EXPECT_TRUE(database.modelSpaceId().isNull());
    }
    /// The bytes with the first text behind a place replaced by another one.
    static std::string replaced(std::string bytes, const std::string& text, const std::string& by,
                                const std::string& behind = "") {
        const std::size_t at = bytes.find(text, bytes.find(behind));
        EXPECT_NE(at, std::string::npos) << text;
        return at == std::string::npos ? bytes : bytes.replace(at, text.size(), by);
    }
    static std::string sampleBytes() {
        KdDbDatabase database;
        auto* table = new KdDbTable;
        table->setTableStyle(database.tablestyle());
        table->setSize(3, 2);
        table->mergeCells(1, 2, 0, 0);
        table->setTextString(0, 0, L"text");
        kdtest::append(database, table);
        kdtest::appendLine(database, 12.5);
        return kdhost::file::drawingBytes(database);
    }
    static std::string randomBytes(unsigned seed) {
        KdDbDatabase database;
        kdtest::fillRandomly(database, seed);
        return kdhost::file::drawingBytes(database);
    }
};

TEST_F(Refusals, a_file_cut_off_anywhere_is_refused) {
    const std::string bytes = randomBytes(1);
    int cuts = 0;
    for (std::size_t length = 0; length + 2 < bytes.size(); length += 997, ++cuts) {
        SCOPED_TRACE(length);
        expectRefused(bytes.substr(0, length));
    }
    EXPECT_GT(cuts, 20);
    for (std::size_t length = bytes.size() - 60; length + 1 < bytes.size(); ++length) {
        SCOPED_TRACE(length);
        expectRefused(bytes.substr(0, length));
    }
    EXPECT_NE(opened(bytes.substr(0, bytes.size() - 1)), nullptr) << "the last line lacks only its end";
}

TEST_F(Refusals, an_example_cut_off_at_every_997th_byte_is_refused) {
    for (const std::string& name : kdtest::exampleDrawings()) {
        SCOPED_TRACE(name);
        const std::string bytes = kdtest::contentOf(name);
        ASSERT_NE(opened(bytes), nullptr);
        for (std::size_t length = 0; length < bytes.size(); length += 997) {
            SCOPED_TRACE(length);
            expectRefused(bytes.substr(0, length));
        }
    }
}

TEST_F(Refusals, bytes_behind_the_end_are_refused) {
    expectRefused(sampleBytes() + "0\n");
    expectRefused(sampleBytes() + "0\nEOF\n");
}

TEST_F(Refusals, a_flipped_byte_gives_a_refusal_or_a_drawing_that_can_be_saved_and_opened) {
    int refused = 0;
    int read = 0;
    for (unsigned seed = 0; seed < 20; ++seed) {
        const std::string bytes = randomBytes(seed);
        std::mt19937 random(seed);
        for (int flip = 0; flip < 200; ++flip) {
            std::string damaged = bytes;
            for (auto count = 1 + random() % 3; count > 0; --count) {
                damaged[random() % damaged.size()] ^= static_cast<char>(1U << (random() % 8));
            }
            KdDbDatabase database(false, true);
            if (kdhost::file::readDrawing(database, damaged) != Kdad::eOk) {
                ++refused;
                EXPECT_TRUE(KdDbDatabaseAccess::contents(database).objects.empty());
                continue;
            }
            ++read;
            const std::string saved = kdhost::file::drawingBytes(database);
            KdDbDatabase again(false, true);
            ASSERT_EQ(kdhost::file::readDrawing(again, saved), Kdad::eOk)
                << "seed " << seed << " flip " << flip << ": " << kdhost::file::lastRefusal();
        }
    }
    EXPECT_GT(refused, 500);
    EXPECT_GT(read, 500);
}

TEST_F(Refusals, a_missing_section_is_refused) {
    const std::string bytes = sampleBytes();
    for (const std::string name : {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"}) {
        SCOPED_TRACE(name);
        const std::size_t first = bytes.find("0\nSECTION\n2\n" + name + "\n");
        const std::size_t last = bytes.find("0\nENDSEC\n", first) + 9;
        expectRefused(bytes.substr(0, first) + bytes.substr(last));
    }
}

TEST_F(Refusals, sections_out_of_place_are_refused) {
    const std::string bytes = sampleBytes();
    expectRefused(replaced(bytes, "2\nENTITIES\n", "2\nBLOCKS\n"));
    expectRefused(replaced(bytes, "0\nENDSEC\n", ""));
    expectRefused(replaced(bytes, "0\nENDTAB\n", ""));
    expectRefused(replaced(bytes, "0\nENDBLK\n", "0\nENDBLOCK\n"));
}

TEST_F(Refusals, a_handle_that_comes_twice_or_is_none_is_refused) {
    const std::string bytes = sampleBytes();
    const std::size_t line = bytes.find("0\nLINE\n5\n", bytes.find("2\nENTITIES\n"));
    const std::size_t end = bytes.find('\n', line + 9);
    expectRefused(bytes.substr(0, line + 9) + "1" + bytes.substr(end));
    expectRefused(bytes.substr(0, line + 9) + "XYZ" + bytes.substr(end));
    expectRefused(bytes.substr(0, line + 9) + "FFFFFFFFFFFFFFFF" + bytes.substr(end));
    expectRefused(bytes.substr(0, line + 9) + "0" + bytes.substr(end));
}

TEST_F(Refusals, counts_of_a_table_that_lie_are_refused) {
    const std::string bytes = sampleBytes();
    for (const char* rows : {"0", "2", "4", "-1", "2147483647", "1000000000000", "x"}) {
        SCOPED_TRACE(rows);
        expectRefused(replaced(bytes, "\n91\n3\n", "\n91\n" + std::string(rows) + "\n", "100\nAcDbTable\n"));
    }
    for (const char* columns : {"0", "1", "3", "1000000000"}) {
        SCOPED_TRACE(columns);
        expectRefused(replaced(bytes, "\n92\n2\n", "\n92\n" + std::string(columns) + "\n", "100\nAcDbTable\n"));
    }
}

TEST_F(Refusals, a_count_that_promises_a_gigabyte_takes_no_memory) {
    const std::string bytes = replaced(sampleBytes(), "\n91\n3\n", "\n91\n1000000000\n", "100\nAcDbTable\n");
    // What this process has used at most so far hides what the reader takes; another one begins anew.
    const int done = kdtest::inOtherProcess([&] {
        const auto used = [] {
            rusage usage{};
            ::getrusage(RUSAGE_SELF, &usage);
            return usage.ru_maxrss;
        };
        const long kilobytes = used();
        KdDbDatabase database(false, true);
        if (kdhost::file::readDrawing(database, bytes) != Kdad::eFileCorrupt) return 1;
        return used() - kilobytes < 20000 ? 0 : 2;
    });
    EXPECT_EQ(done, 0);
}

TEST_F(Refusals, a_table_cut_in_half_is_refused) {
    const std::string bytes = sampleBytes();
    const std::string cell = "\n171\n";
    const std::size_t table = bytes.find("100\nAcDbTable\n");
    expectRefused(replaced(bytes, cell, "\n999\n", "100\nAcDbTable\n"));
    const std::size_t first = bytes.find("304\nACVALUE_END\n", table);
    expectRefused(bytes.substr(0, first) + bytes.substr(first + 16));
    const std::size_t end = bytes.find("171\n", first) + 4;
    const std::string more = bytes.substr(bytes.find("171\n", table), first + 16 - bytes.find("171\n", table));
    EXPECT_GT(end, first);
    expectRefused(bytes.substr(0, first + 16) + more + bytes.substr(first + 16));
}

TEST_F(Refusals, merges_out_of_their_table_or_across_each_other_are_refused) {
    const std::string bytes = sampleBytes();
    expectRefused(replaced(bytes, "176\n2\n", "176\n3\n", "100\nAcDbTable\n"));
    expectRefused(replaced(bytes, "175\n1\n", "175\n2147483647\n", "100\nAcDbTable\n"));
    expectRefused(replaced(bytes, "175\n1\n176\n1\n", "175\n1\n176\n2\n", "100\nAcDbTable\n"));
}

TEST_F(Refusals, what_a_table_names_must_be_there) {
    const std::string bytes = sampleBytes();
    const auto dangling = [&](const std::string& code) {
        const std::size_t at = bytes.find("\n" + code + "\n", bytes.find("100\nAcDbTable\n"));
        const std::size_t value = at + code.size() + 2;
        return bytes.substr(0, value) + "ABCDEF" + bytes.substr(bytes.find('\n', value));
    };
    expectRefused(dangling("342"));
    expectRefused(dangling("343"));
    const std::string cell = "145\n0\n";
    expectRefused(replaced(bytes, cell, cell + "344\nABCDEF\n", "100\nAcDbTable\n"));
    expectRefused(replaced(bytes, cell, cell + "340\nABCDEF\n", "100\nAcDbTable\n"));
    expectRefused(replaced(bytes, cell, cell + "344\n1\n", "100\nAcDbTable\n"));
}

TEST_F(Refusals, a_field_whose_parts_are_not_those_that_it_counts_is_refused) {
    KdDbDatabase database;
    auto* text = new KdDbMText;
    text->setTextHeight(2.5);
    auto* child = new KdDbField;
    child->setFieldCode(L"\\AcExpr (1+2)");
    text->setField(kdtest::fieldAround(child, L"%<\\_FldIdx 0>%"));
    kdtest::append(database, text);
    const std::string bytes = kdhost::file::drawingBytes(database);
    ASSERT_NE(opened(bytes), nullptr);
    const std::string field = "100\nAcDbField\n1\n_text\n";
    expectRefused(replaced(bytes, "\n90\n1\n", "\n90\n2\n", field));
    expectRefused(replaced(bytes, "\n90\n1\n", "\n90\n0\n", field));
    expectRefused(replaced(bytes, "\n97\n0\n", "\n97\n1000000000\n", field));
    const std::size_t at = bytes.find("\n360\n", bytes.find(field)) + 5;
    expectRefused(bytes.substr(0, at) + "ABCDEF" + bytes.substr(bytes.find('\n', at)));
    expectRefused(bytes.substr(0, at) + "1" + bytes.substr(bytes.find('\n', at)));
}

TEST_F(Refusals, what_every_drawing_has_must_be_there) {
    const std::string bytes = sampleBytes();
    expectRefused(replaced(bytes, "2\nContinuous\n", "2\nOther\n"));
    expectRefused(replaced(bytes, "2\n*Model_Space\n", "2\n*Model\n"));
    expectRefused(replaced(bytes, "2\nByLayer\n", "2\nByBlock\n"));
}

TEST_F(Refusals, texts_must_be_utf8_without_zeros) {
    const std::string bytes = sampleBytes();
    expectRefused(replaced(bytes, "\ntext\n", "\nt\xFFxt\n"));
    expectRefused(replaced(bytes, "\ntext\n", std::string("\nt\0xt\n", 6)));
    expectRefused(replaced(bytes, "\ntext\n", "\n\xED\xA0\x80\n"));
    EXPECT_NE(opened(replaced(bytes, "\ntext\n", "\n\xEF\xBF\xBD\n")), nullptr) << "the replacement character is one";
}

TEST_F(Refusals, numbers_that_are_none_are_refused) {
    const std::string bytes = sampleBytes();
    for (const char* number : {"", "x", "1.2.3", "12,5", "0x10", "1e999"}) {
        SCOPED_TRACE(number);
        expectRefused(replaced(bytes, "11\n12.5\n", "11\n" + std::string(number) + "\n", "100\nAcDbLine\n"));
    }
    EXPECT_NE(opened(replaced(bytes, "11\n12.5\n", "11\n +1.25e1 \n", "100\nAcDbLine\n")), nullptr);
}

TEST_F(Refusals, line_ends_of_both_kinds_and_padded_codes_are_read) {
    std::string bytes;
    bool isCode = true;
    for (const char letter : sampleBytes()) {
        if (bytes.empty() || bytes.back() == '\n') {
            if (isCode) bytes += "  ";
            isCode = !isCode;
        }
        if (letter == '\n') bytes += '\r';
        bytes += letter;
    }
    EXPECT_NE(opened("999\r\na comment\r\n" + bytes), nullptr);
}

}  // namespace
