// Files under the class framework's names, held against the bytes on disk.

#include "mfc/file.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cerrno>
#include <functional>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace {

constexpr UINT kWrite = CFile::modeCreate | CFile::modeWrite;
constexpr UINT kReadWrite = CFile::modeCreate | CFile::modeReadWrite;

/// The errno of the exception that `work` ends with, 0 for none.
int causeOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const CFileException& error) {
        return error.cause();
    }
    return 0;
}

class FileTest : public ::testing::Test {
protected:
    std::wstring path(const char* name = "file") const {
        return m_folder.filePath(QString::fromUtf8(name)).toStdWString();
    }

    std::string onDisk() const {
        QFile file(QString::fromStdWString(path()));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    void putOnDisk(const std::string& bytes) const {
        QFile file(QString::fromStdWString(path()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    }

    QTemporaryDir m_folder;
};

/// The same behaviour is wanted of the file with a buffer below it and of the one without.
template <class File>
class AnyFile : public FileTest {};
using FileClasses = ::testing::Types<CFile, CStdioFile>;
TYPED_TEST_SUITE(AnyFile, FileClasses);

std::string readAll(CFile& file, UINT step) {
    std::string bytes;
    std::vector<char> part(step);
    for (UINT got = step; got == step;) {
        got = file.Read(part.data(), step);
        bytes.append(part.data(), got);
    }
    return bytes;
}

/// Writes the text byte by byte.
void writeEach(CFile& file, const std::string& text) {
    std::size_t place = 0;
    file.WriteEach([&](char* room, const char* end) {
        while (room != end && place != text.size()) *room++ = text[place++];
        return room;
    });
}

}  // namespace

TYPED_TEST(AnyFile, what_was_written_is_on_disk_after_closing) {
    TypeParam file(this->path().c_str(), kWrite | CFile::typeBinary);
    EXPECT_TRUE(file.isOpen());
    EXPECT_EQ(file.GetFilePath(), this->path());
    file.Write("one\r\n", 5);
    file.Write("two\n", 4);
    file.Write("", 0);
    EXPECT_EQ(file.GetPosition(), 9u);
    EXPECT_EQ(file.GetLength(), 9u);
    file.Close();
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(this->onDisk(), "one\r\ntwo\n");
}

TYPED_TEST(AnyFile, flushing_and_destroying_hand_everything_to_the_system) {
    {
        TypeParam file(this->path().c_str(), kWrite);
        file.Write("abc", 3);
        file.Flush();
        EXPECT_EQ(this->onDisk(), "abc");
        file.Write("def", 3);
    }
    EXPECT_EQ(this->onDisk(), "abcdef");
}

TYPED_TEST(AnyFile, creating_empties_a_file_unless_told_not_to) {
    this->putOnDisk("before");
    TypeParam(this->path().c_str(), kWrite | CFile::modeNoTruncate).Write("B", 1);
    EXPECT_EQ(this->onDisk(), "Before");
    TypeParam(this->path().c_str(), kWrite).Write("x", 1);
    EXPECT_EQ(this->onDisk(), "x");
}

TYPED_TEST(AnyFile, opening_without_create_neither_makes_nor_empties_a_file) {
    TypeParam file;
    CFileException error(0, {});
    EXPECT_FALSE(file.Open(this->path().c_str(), CFile::modeWrite, &error));
    EXPECT_EQ(error.cause(), ENOENT);
    this->putOnDisk("before");
    ASSERT_TRUE(file.Open(this->path().c_str(), CFile::modeWrite));
    file.Write("B", 1);
    file.Close();
    EXPECT_EQ(this->onDisk(), "Before");
}

TYPED_TEST(AnyFile, reading_gives_less_only_at_the_end) {
    std::string bytes;
    for (int i = 0; i < 200000; ++i) bytes += static_cast<char>(i * 7 % 251);
    this->putOnDisk(bytes);
    for (const UINT step : {1u, 3u, 1000u, 65536u, 65537u, 300000u}) {
        TypeParam file(this->path().c_str(), CFile::modeRead);
        EXPECT_EQ(file.GetLength(), bytes.size());
        EXPECT_EQ(readAll(file, step), bytes) << step;
        EXPECT_EQ(file.GetPosition(), bytes.size());
        char more = 0;
        EXPECT_EQ(file.Read(&more, 1), 0u);
    }
}

TYPED_TEST(AnyFile, seeking_counts_from_the_beginning_the_place_or_the_end) {
    this->putOnDisk("0123456789");
    TypeParam file(this->path().c_str(), CFile::modeRead);
    const struct {
        std::int64_t offset;
        UINT from;
        std::uint64_t position;
        char next;
    } rows[] = {{4, CFile::begin, 4, '4'}, {-1, CFile::current, 4, '4'}, {2, CFile::current, 7, '7'},
                {-3, CFile::end, 7, '7'},  {-8, CFile::current, 0, '0'}, {0, CFile::current, 1, '1'}};
    for (const auto& row : rows) {
        EXPECT_EQ(file.Seek(row.offset, row.from), row.position);
        EXPECT_EQ(file.GetPosition(), row.position);
        char next = 0;
        EXPECT_EQ(file.Read(&next, 1), 1u);
        EXPECT_EQ(next, row.next);
    }
}

TYPED_TEST(AnyFile, a_wrong_seek_throws_and_stays_where_it_was) {
    this->putOnDisk("0123456789");
    TypeParam file(this->path().c_str(), CFile::modeRead);
    char next = 0;
    file.Read(&next, 1);
    EXPECT_EQ(causeOf([&] { file.Seek(-2, CFile::current); }), EINVAL);
    EXPECT_EQ(causeOf([&] { file.Seek(0, 7); }), EINVAL);
    EXPECT_EQ(file.GetPosition(), 1u);
    EXPECT_EQ(file.Read(&next, 1), 1u);
    EXPECT_EQ(next, '1');
}

TYPED_TEST(AnyFile, any_mixture_of_reads_writes_and_seeks_agrees_with_a_string) {
    std::mt19937 random(7);
    const auto below = [&](unsigned limit) { return static_cast<UINT>(random() % limit); };
    for (int round = 0; round < 20; ++round) {
        TypeParam file(this->path().c_str(), kReadWrite);
        std::string model;
        std::size_t at = 0;
        for (int step = 0; step < 300; ++step) {
            const UINT count = below(20) == 0 ? below(150000) : below(50);
            switch (below(4)) {
                case 0: {
                    const std::string bytes(count, static_cast<char>('a' + step % 26));
                    file.Write(bytes.data(), count);
                    model.resize(std::max(model.size(), at + count));
                    model.replace(at, count, bytes);
                    at += count;
                    break;
                }
                case 1: {
                    std::string bytes(count, '#');
                    bytes.resize(file.Read(bytes.data(), count));
                    ASSERT_EQ(bytes, model.substr(at, count));
                    at += bytes.size();
                    break;
                }
                case 2:
                    at = below(static_cast<unsigned>(model.size()) + 1);
                    ASSERT_EQ(file.Seek(static_cast<std::int64_t>(at), CFile::begin), at);
                    break;
                default: {
                    const std::size_t back = below(static_cast<unsigned>(std::min<std::size_t>(at, 100)) + 1);
                    at -= back;
                    ASSERT_EQ(file.Seek(-static_cast<std::int64_t>(back), CFile::current), at);
                }
            }
            ASSERT_EQ(file.GetPosition(), at);
            ASSERT_EQ(file.GetLength(), model.size());
        }
        file.Close();
        ASSERT_EQ(this->onDisk(), model);
    }
}

TYPED_TEST(AnyFile, files_that_cannot_be_opened_say_why) {
    this->putOnDisk("x");
    const struct {
        std::wstring path;
        UINT flags;
        int cause;
    } rows[] = {{this->path("missing"), CFile::modeRead, ENOENT},
                {this->path("no/folder"), kWrite, ENOENT},
                {this->path("file/below"), kWrite, ENOTDIR},
                {this->m_folder.path().toStdWString(), CFile::modeRead, EISDIR},
                {this->m_folder.path().toStdWString(), kWrite, EISDIR},
                {L"", kWrite, ENOENT}};
    for (const auto& row : rows) {
        EXPECT_EQ(causeOf([&] { TypeParam file(row.path.c_str(), row.flags); }), row.cause);
        TypeParam file;
        CFileException error(0, {});
        EXPECT_FALSE(file.Open(row.path.c_str(), row.flags, &error));
        EXPECT_EQ(error.cause(), row.cause);
        EXPECT_EQ(error.fileName(), row.path);
        EXPECT_FALSE(file.Open(row.path.c_str(), row.flags));
        EXPECT_FALSE(file.isOpen());
    }
    EXPECT_EQ(causeOf([] { TypeParam file(nullptr, kWrite); }), ENOENT);
}

TYPED_TEST(AnyFile, bytes_written_each_follow_upon_those_written_at_once) {
    TypeParam file(this->path().c_str(), kReadWrite);
    file.Write("ab", 2);
    writeEach(file, "cd");
    file.Write("e", 1);
    EXPECT_EQ(file.Seek(1, CFile::begin), 1u);
    char read = 0;
    EXPECT_EQ(file.Read(&read, 1), 1u);
    EXPECT_EQ(read, 'b');
    writeEach(file, "XY");
    file.Close();
    EXPECT_EQ(this->onDisk(), "abXYe");
}

TYPED_TEST(AnyFile, bytes_written_each_fill_a_buffer_many_times_over) {
    std::string text;
    for (int i = 0; i < 200'000; ++i) text += static_cast<char>('a' + i % 23);
    TypeParam file(this->path().c_str(), kWrite);
    writeEach(file, text);
    EXPECT_EQ(file.GetLength(), text.size());
    file.Close();
    EXPECT_EQ(this->onDisk(), text);
}

TEST_F(FileTest, a_full_disk_met_while_bytes_are_written_each_keeps_what_the_buffer_holds) {
    CStdioFile file(L"/dev/full", kWrite);
    const std::string text(100'000, 'x');
    EXPECT_EQ(causeOf([&] { writeEach(file, text); }), ENOSPC);
    EXPECT_EQ(file.GetLength(), 0x10000u);
    EXPECT_EQ(causeOf([&] { file.Close(); }), ENOSPC);
}

TYPED_TEST(AnyFile, an_open_file_is_not_opened_again) {
    TypeParam file(this->path().c_str(), kWrite);
    file.Write("a", 1);
    CFileException error(0, {});
    EXPECT_FALSE(file.Open(this->path("other").c_str(), kWrite, &error));
    EXPECT_EQ(error.cause(), EBUSY);
    file.Write("b", 1);
    file.Close();
    EXPECT_EQ(this->onDisk(), "ab");
}

TYPED_TEST(AnyFile, a_file_that_is_not_open_refuses_everything_but_closing) {
    TypeParam file;
    char byte = 0;
    EXPECT_EQ(causeOf([&] { file.Read(&byte, 1); }), EBADF);
    EXPECT_EQ(causeOf([&] { file.Write(&byte, 1); }), EBADF);
    EXPECT_EQ(causeOf([&] { writeEach(file, "x"); }), EBADF);
    EXPECT_EQ(causeOf([&] { writeEach(file, ""); }), 0);
    EXPECT_EQ(causeOf([&] { file.Seek(0, CFile::begin); }), EBADF);
    EXPECT_EQ(causeOf([&] { static_cast<void>(file.GetPosition()); }), EBADF);
    EXPECT_EQ(causeOf([&] { static_cast<void>(file.GetLength()); }), EBADF);
    EXPECT_EQ(causeOf([&] { file.Flush(); }), EBADF);
    EXPECT_EQ(causeOf([&] { file.Close(); }), 0);
}

TYPED_TEST(AnyFile, writing_to_a_file_opened_for_reading_throws) {
    this->putOnDisk("x");
    TypeParam file(this->path().c_str(), CFile::modeRead);
    EXPECT_EQ(causeOf([&] {
                  file.Write("y", 1);
                  file.Flush();
              }),
              EBADF);
    // What a buffer holds is lost, and said so; without one nothing is left to write.
    constexpr int lost = std::is_same_v<TypeParam, CStdioFile> ? EBADF : 0;
    EXPECT_EQ(causeOf([&] { file.Close(); }), lost);
    EXPECT_EQ(this->onDisk(), "x");
}

TYPED_TEST(AnyFile, a_full_disk_is_told_at_the_latest_when_closing) {
    TypeParam file(L"/dev/full", kWrite);
    EXPECT_EQ(causeOf([&] {
                  file.Write("x", 1);
                  file.Close();
              }),
              ENOSPC);
}

TEST_F(FileTest, a_file_without_a_buffer_tells_a_full_disk_at_once) {
    CFile file(L"/dev/full", kWrite);
    EXPECT_EQ(causeOf([&] { file.Write("x", 1); }), ENOSPC);
}

TEST_F(FileTest, a_buffered_file_closes_even_when_the_rest_cannot_be_written) {
    CStdioFile file(L"/dev/full", kWrite);
    EXPECT_EQ(causeOf([&] { file.Write("x", 1); }), 0);
    EXPECT_EQ(causeOf([&] { file.Flush(); }), ENOSPC);
    EXPECT_EQ(causeOf([&] { file.Close(); }), ENOSPC);
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(causeOf([&] { file.Close(); }), 0);
}

TEST_F(FileTest, destroying_a_buffered_file_on_a_full_disk_is_silent) {
    CStdioFile file(L"/dev/full", kWrite);
    file.Write("x", 1);
}

TEST_F(FileTest, characters_written_one_by_one_reach_the_system_in_blocks) {
    CStdioFile file(path().c_str(), kWrite);
    for (int i = 0; i < 1000; ++i) file.Write("x", 1);
    EXPECT_EQ(onDisk(), "");
    EXPECT_EQ(file.GetLength(), 1000u);
    file.Close();
    EXPECT_EQ(onDisk().size(), 1000u);
}

TEST_F(FileTest, names_beyond_ascii_are_utf8_on_disk) {
    CFile(path("表格.csv").c_str(), kWrite).Close();
    EXPECT_TRUE(QFile::exists(m_folder.filePath(QStringLiteral("表格.csv"))));
}
