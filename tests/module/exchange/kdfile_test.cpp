// The two files of wide text: bytes written, characters read, with and without a buffer.

#include "module/exchange/kdfile.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <random>
#include <string>

#include "tests/support/virtualslots.h"

namespace {

using Coding = KdCharacterCoding;

constexpr UINT create = CFile::modeCreate | CFile::modeReadWrite | CFile::typeBinary;
constexpr UINT openForRead = CFile::modeRead | CFile::typeBinary;

class KdFile : public ::testing::Test {
protected:
    std::wstring path() const { return folder.filePath(QStringLiteral("text")).toStdWString(); }

    std::string bytes() const {
        QFile file(QString::fromStdWString(path()));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }

    void putBytes(const std::string& text) const {
        QFile file(QString::fromStdWString(path()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text.data(), static_cast<qint64>(text.size())), static_cast<qint64>(text.size()));
    }

    /// All that a file of these bytes gives.
    std::wstring read(const std::string& text, Coding::Encoding encoding, bool escapes, bool lineEnds) const {
        putBytes(text);
        KdCFile file(path().c_str(), openForRead, encoding, escapes, lineEnds);
        std::wstring room(text.size() + 1, L'#');
        room.resize(file.Read(room.data(), static_cast<unsigned>(room.size())));
        return room;
    }

    QTemporaryDir folder;
};

/// One character, and its bytes in every encoding.
struct CharacterBytes {
    wchar_t character;
    std::string ansiWithEscapes;
    std::string ansi;
    std::string utf8;
    std::string utf16;
};

const std::vector<CharacterBytes>& characters() {
    using namespace std::string_literals;
    static const std::vector<CharacterBytes> all = {
        {L'a', "a", "a", "a", "a\0"s},
        {L'"', "\"", "\"", "\"", "\"\0"s},
        {L'\r', "\r", "\r", "\r", "\r\0"s},
        {L'\n', "\n", "\n", "\n", "\n\0"s},
        {L'\x7F', "\x7F", "\x7F", "\x7F", "\x7F\0"s},
        {L'\x80', "\\U+0080", "?", "\xC2\x80", "\x80\0"s},
        {L'管', "\xB9\xDC", "\xB9\xDC", "\xE7\xAE\xA1", "\xA1\x7B"},
        {L'ä', "\\U+00E4", "?", "\xC3\xA4", "\xE4\0"s},
        {L'\u05D0', "\\U+05D0", "?", "\xD7\x90", "\xD0\x05"},
        {L'\U0001F600', "?", "?", "\xF0\x9F\x98\x80", "\x3D\xD8\x00\xDE"s},
    };
    return all;
}

std::string swapped(std::string bytes) {
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
    return bytes;
}

std::string bytesOf(const CharacterBytes& entry, Coding::Encoding encoding, bool escapes) {
    switch (encoding) {
        case Coding::kAnsi:
            return escapes ? entry.ansiWithEscapes : entry.ansi;
        case Coding::kUtf8:
            return entry.utf8;
        case Coding::kUtf16:
            return entry.utf16;
        default:
            return swapped(entry.utf16);
    }
}

/// The bytes of a text, put together from the list above.
std::string expectedBytes(const std::wstring& text, Coding::Encoding encoding, bool escapes, bool lineEnds) {
    const auto find = [&](wchar_t wanted) {
        const auto entry = std::find_if(characters().begin(), characters().end(),
                                        [&](const CharacterBytes& each) { return each.character == wanted; });
        return bytesOf(*entry, encoding, escapes);
    };
    std::string bytes;
    for (const wchar_t character : text) {
        if (character == L'\n' && lineEnds) bytes += find(L'\r');
        bytes += find(character);
    }
    return bytes;
}

struct Mode {
    Coding::Encoding encoding;
    bool escapes;
    bool lineEnds;
    std::uint32_t bufferSize;
};

std::vector<Mode> allModes() {
    std::vector<Mode> modes;
    for (const auto encoding : {Coding::kAnsi, Coding::kUtf8, Coding::kUtf16, Coding::kUtf16Swapped}) {
        for (const bool escapes : {false, true}) {
            for (const bool lineEnds : {false, true}) {
                // 5 is less than a character may take, 8 just that, 13 leaves an odd rest.
                for (const std::uint32_t bufferSize : {0U, 5U, 8U, 13U, 4096U}) {
                    modes.push_back({encoding, escapes, lineEnds, bufferSize});
                }
            }
        }
    }
    return modes;
}

class KdFileModes : public KdFile, public ::testing::WithParamInterface<Mode> {
protected:
    static std::wstring randomText(std::mt19937& random) {
        std::wstring text;
        for (auto n = random() % 60; n > 0; --n) text += characters()[random() % characters().size()].character;
        return text;
    }
};

TEST_P(KdFileModes, WriteString_writes_each_character_in_the_encoding) {
    const auto [encoding, escapes, lineEnds, bufferSize] = GetParam();
    std::mt19937 random(3);
    for (int i = 0; i < 5; ++i) {
        const std::wstring text = randomText(random);
        KdCStdioFile file(path().c_str(), create, encoding, escapes, lineEnds, bufferSize);
        file.WriteString(text.c_str());
        file.WriteString(L"");
        file.WriteString(L"a");
        file.Close();
        ASSERT_EQ(bytes(), expectedBytes(text + L"a", encoding, escapes, lineEnds));
    }
}

// Long stretches of plain characters are looked at in groups: another one must stop them wherever it stands.
TEST_P(KdFileModes, Any_character_at_any_place_of_a_line_is_written_like_one_of_its_own) {
    const auto& [encoding, escapes, lineEnds, bufferSize] = GetParam();
    KdCStdioFile file(path().c_str(), create, encoding, escapes, lineEnds, bufferSize);
    std::string expected;
    for (const CharacterBytes& entry : characters()) {
        for (std::size_t place = 0; place < 40; ++place) {
            std::wstring line(40, L'a');
            line[place] = entry.character;
            file.WriteString(line.c_str());
            expected += expectedBytes(line, encoding, escapes, lineEnds);
        }
    }
    file.Close();
    EXPECT_EQ(bytes(), expected);
}

TEST_P(KdFileModes, Write_writes_what_WriteString_writes) {
    const auto [encoding, escapes, lineEnds, bufferSize] = GetParam();
    std::mt19937 random(4);
    for (int i = 0; i < 5; ++i) {
        const std::wstring text = randomText(random);
        KdCFile file(path().c_str(), create, encoding, escapes, lineEnds, bufferSize);
        file.Write(text.c_str());
        file.Write((text + L"not these").c_str(), static_cast<unsigned>(text.size()));
        file.Close();
        ASSERT_EQ(bytes(), expectedBytes(text + text, encoding, escapes, lineEnds));
    }
}

TEST_P(KdFileModes, What_was_written_is_read_back_in_the_same_file) {
    const auto [encoding, escapes, lineEnds, bufferSize] = GetParam();
    const std::wstring text = encoding == Coding::kAnsi && !escapes ? L"a\"管\nb\"a" : L"a\"管ä\n\u05D0\"a";
    KdCFile file(path().c_str(), create, encoding, escapes, lineEnds, bufferSize);
    file.Write(text.c_str());
    file.Seek(0, CFile::begin);
    std::wstring room(text.size() + 5, L'#');
    EXPECT_EQ(file.Read(room.data(), static_cast<unsigned>(room.size())), text.size());
    EXPECT_EQ(room.substr(0, text.size()), text);
    EXPECT_EQ(room.substr(text.size()), L"#####");
}

TEST_P(KdFileModes, Lines_are_read_back_in_the_same_file) {
    const auto [encoding, escapes, lineEnds, bufferSize] = GetParam();
    KdCStdioFile file(path().c_str(), create, encoding, escapes, lineEnds, bufferSize);
    file.WriteString(L"first\n\n管\nlast");
    file.Seek(0, CFile::begin);
    CStdStr<wchar_t> line;
    for (const wchar_t* expected : {L"first", L"", L"管", L"last"}) {
        ASSERT_TRUE(file.ReadString(line));
        EXPECT_EQ(line, expected);
    }
    EXPECT_FALSE(file.ReadString(line));
    EXPECT_EQ(line, L"");
}

INSTANTIATE_TEST_SUITE_P(All, KdFileModes, ::testing::ValuesIn(allModes()), [](const auto& test) {
    const Mode& mode = test.param;
    return "encoding" + std::to_string(mode.encoding) + (mode.escapes ? "_escapes" : "") +
           (mode.lineEnds ? "_lineEnds" : "") + "_buffer" + std::to_string(mode.bufferSize);
});

TEST_F(KdFile, An_unknown_encoding_writes_and_reads_nothing) {
    KdCFile file(path().c_str(), create, static_cast<Coding::Encoding>(0), true, true);
    file.Write(L"abc");
    file.Close();
    EXPECT_EQ(bytes(), "");
    EXPECT_EQ(read("abc", static_cast<Coding::Encoding>(5), true, true), L"");
}

TEST_F(KdFile, Utf8_takes_the_length_from_the_lead_byte) {
    EXPECT_EQ(read("a\xC3\xA4\xE7\xAE\xA1\xF0\x9F\x98\x80z", Coding::kUtf8, false, false), L"aä管\U0001F600z");
    // A lone continuation byte is one character.
    EXPECT_EQ(read("\x80z", Coding::kUtf8, false, false), L"\x80z");
    EXPECT_EQ(read("\xBF", Coding::kUtf8, false, false), L"\xBF");
}

TEST_F(KdFile, A_character_cut_off_by_the_end_of_the_file_is_not_read) {
    EXPECT_EQ(read("a\xE7\xAE", Coding::kUtf8, false, false), L"a");
    EXPECT_EQ(read("a\xB9", Coding::kAnsi, false, false), L"a");
    EXPECT_EQ(read(std::string("a\0b", 3), Coding::kUtf16, false, false), L"a");
}

TEST_F(KdFile, Utf16_is_read_two_bytes_at_a_time) {
    const std::string bytes("\x3D\xD8\x00\xDE\xA1\x7B", 6);
    const std::wstring halves = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00), L'管'};
    EXPECT_EQ(read(bytes, Coding::kUtf16, false, false), halves);
    EXPECT_EQ(read(swapped(bytes), Coding::kUtf16Swapped, false, false), halves);
}

TEST_F(KdFile, Ansi_takes_two_bytes_after_a_lead_byte) {
    EXPECT_EQ(read("x\xB9\xDCy", Coding::kAnsi, false, false), L"x管y");
    // The second byte of a pair may be a backslash; it begins no escape.
    const std::wstring pair = read("\x81\\U+0041", Coding::kAnsi, true, false);
    EXPECT_EQ(pair.size(), 7U);
    EXPECT_EQ(pair.substr(1), L"U+0041");
}

struct EscapeCase {
    const char* bytes;
    const wchar_t* with;
    const wchar_t* without;
};

class KdFileEscapes : public KdFile, public ::testing::WithParamInterface<EscapeCase> {};

TEST_P(KdFileEscapes, are_parsed_only_with_the_flag_and_only_in_ansi) {
    const EscapeCase& escape = GetParam();
    EXPECT_EQ(read(escape.bytes, Coding::kAnsi, true, false), escape.with);
    EXPECT_EQ(read(escape.bytes, Coding::kAnsi, false, false), escape.without);
    EXPECT_EQ(read(escape.bytes, Coding::kUtf8, true, false), escape.without);
}

INSTANTIATE_TEST_SUITE_P(
    All, KdFileEscapes,
    ::testing::Values(EscapeCase{"\\U+00E4", L"ä", L"\\U+00E4"}, EscapeCase{"x\\u+7ba1y", L"x管y", L"x\\u+7ba1y"},
                      EscapeCase{"\\U+00E4\\U+00E4", L"ää", L"\\U+00E4\\U+00E4"},
                      EscapeCase{"\\U+00G4", L"\\U+00G4", L"\\U+00G4"}, EscapeCase{"\\\\U+00E4", L"\\ä", L"\\\\U+00E4"},
                      EscapeCase{"\\U+00E", L"\\U+00E", L"\\U+00E"}, EscapeCase{"a\\", L"a\\", L"a\\"}));

struct LineEndCase {
    const wchar_t* in;
    const wchar_t* with;
};

class KdFileLineEnds : public KdFile, public ::testing::WithParamInterface<LineEndCase> {};

TEST_P(KdFileLineEnds, are_joined_only_with_the_flag) {
    const LineEndCase& lineEnd = GetParam();
    for (const auto encoding : {Coding::kAnsi, Coding::kUtf8, Coding::kUtf16, Coding::kUtf16Swapped}) {
        const std::string bytes = expectedBytes(lineEnd.in, encoding, false, false);
        EXPECT_EQ(read(bytes, encoding, true, true), lineEnd.with);
        EXPECT_EQ(read(bytes, encoding, true, false), lineEnd.in);
    }
}

INSTANTIATE_TEST_SUITE_P(All, KdFileLineEnds,
                         ::testing::Values(LineEndCase{L"a\r\na", L"a\na"}, LineEndCase{L"\r\n\r\n", L"\n\n"},
                                           LineEndCase{L"a\ra", L"a\ra"}, LineEndCase{L"a\r", L"a\r"},
                                           LineEndCase{L"\r\r\n", L"\r\n"}, LineEndCase{L"\n\r", L"\n\r"},
                                           LineEndCase{L"\r管", L"\r管"}, LineEndCase{L"\n", L"\n"}));

TEST_F(KdFile, An_escaped_line_feed_behind_a_carriage_return_stays_apart) {
    EXPECT_EQ(read("\r\\U+000A", Coding::kAnsi, true, true), L"\r\n");
}

TEST_F(KdFile, ReadString_into_a_buffer_stops_behind_the_line_feed) {
    putBytes("ab\ncdef");
    KdCStdioFile file(path().c_str(), openForRead, Coding::kUtf8, false, false);
    std::array<wchar_t, 4> room{};
    EXPECT_EQ(file.ReadString(room.data(), 4), room.data());
    EXPECT_STREQ(room.data(), L"ab\n");
    EXPECT_EQ(file.ReadString(room.data(), 4), room.data());
    EXPECT_STREQ(room.data(), L"cde");
    EXPECT_EQ(file.ReadString(room.data(), 4), room.data());
    EXPECT_STREQ(room.data(), L"f");
    EXPECT_EQ(file.ReadString(room.data(), 4), nullptr);
}

TEST_F(KdFile, ReadString_into_a_buffer_for_the_zero_alone_reads_nothing) {
    putBytes("ab");
    KdCStdioFile file(path().c_str(), openForRead, Coding::kUtf8, false, false);
    wchar_t room = L'#';
    EXPECT_EQ(file.ReadString(&room, 0), nullptr);
    EXPECT_EQ(file.ReadString(&room, 1), nullptr);
    EXPECT_EQ(room, L'#');
}

TEST_F(KdFile, Null_texts_write_nothing) {
    KdCStdioFile lines(path().c_str(), create, Coding::kUtf8, false, false);
    lines.WriteString(nullptr);
    lines.Close();
    EXPECT_EQ(bytes(), "");
    KdCFile file(path().c_str(), create, Coding::kUtf8, false, false);
    file.Write(static_cast<const wchar_t*>(nullptr));
    file.Close();
    EXPECT_EQ(bytes(), "");
}

TEST_F(KdFile, Bytes_come_behind_buffered_characters) {
    KdCFile file(path().c_str(), create, Coding::kUtf16, false, false, 64);
    file.Write(L"a");
    file.Write(static_cast<const void*>("raw"), 3);
    file.Write(L"b");
    file.Flush();
    EXPECT_EQ(bytes(), std::string("a\0rawb\0", 7));
    file.Seek(2, CFile::begin);
    std::array<char, 3> raw{};
    EXPECT_EQ(file.Read(static_cast<void*>(raw.data()), 3), 3U);
    EXPECT_EQ(std::string(raw.data(), 3), "raw");
}

TEST_F(KdFile, Reading_goes_on_behind_what_the_buffer_still_holds) {
    constexpr UINT change = CFile::modeReadWrite | CFile::typeBinary;
    putBytes("xyz\n");
    {
        KdCStdioFile file(path().c_str(), change, Coding::kUtf8, false, false, 64);
        file.WriteString(L"a");
        CStdStr<wchar_t> line;
        ASSERT_TRUE(file.ReadString(line));
        EXPECT_EQ(line, L"yz");
    }
    EXPECT_EQ(bytes(), "ayz\n");
    {
        KdCFile file(path().c_str(), change, Coding::kUtf8, false, false, 64);
        file.Write(L"bc");
        char next = 0;
        ASSERT_EQ(file.Read(static_cast<void*>(&next), 1), 1U);
        EXPECT_EQ(next, 'z');
    }
    EXPECT_EQ(bytes(), "bcz\n");
}

TEST_F(KdFile, A_file_that_goes_out_of_scope_keeps_what_was_buffered) {
    {
        KdCStdioFile file(path().c_str(), create, Coding::kUtf8, false, false, 64);
        file.WriteString(L"kept");
    }
    EXPECT_EQ(bytes(), "kept");
    {
        KdCFile file(path().c_str(), create, Coding::kUtf8, false, false, 64);
        file.Write(L"kept too");
    }
    EXPECT_EQ(bytes(), "kept too");
}

TEST_F(KdFile, A_file_opened_later_works_as_one_opened_at_once) {
    KdCStdioFile file(Coding::kUtf8, false, true);
    ASSERT_TRUE(file.Open(path().c_str(), create));
    file.WriteString(L"a\n");
    file.Close();
    EXPECT_EQ(bytes(), "a\r\n");
    KdCFile again(Coding::kUtf8, false, true, 16);
    ASSERT_TRUE(again.Open(path().c_str(), openForRead));
    std::array<wchar_t, 4> room{};
    EXPECT_EQ(again.Read(room.data(), 4), 2U);
    EXPECT_STREQ(room.data(), L"a\n");
}

TEST_F(KdFile, A_path_that_cannot_be_made_throws) {
    const std::wstring missing = path() + L"/below/a/file";
    putBytes("");
    EXPECT_THROW(KdCStdioFile(missing.c_str(), create, Coding::kUtf8, false, false), CFileException);
    EXPECT_THROW(KdCFile(missing.c_str(), create, Coding::kUtf8, false, false), CFileException);
}

TEST_F(KdFile, The_operations_on_wide_text_stand_in_order_behind_those_of_the_framework) {
    const std::vector<std::ptrdiff_t> pieces =
        kdtest::slotsOf(&CFile::Close, static_cast<UINT (KdCFile::*)(wchar_t*, unsigned)>(&KdCFile::Read),
                        static_cast<void (KdCFile::*)(const wchar_t*, unsigned)>(&KdCFile::Write),
                        static_cast<void (KdCFile::*)(const wchar_t*)>(&KdCFile::Write));
    const std::vector<std::ptrdiff_t> lines =
        kdtest::slotsOf(&CFile::Close, &KdCStdioFile::WriteString,
                        static_cast<wchar_t* (KdCStdioFile::*)(wchar_t*, unsigned)>(&KdCStdioFile::ReadString),
                        static_cast<bool (KdCStdioFile::*)(CStdStr<wchar_t>&)>(&KdCStdioFile::ReadString));
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        EXPECT_EQ(pieces[i], pieces[i - 1] + 1);
        EXPECT_EQ(lines[i], lines[i - 1] + 1);
    }
}

TEST_F(KdFile, A_full_disk_throws_at_the_latest_when_the_file_is_closed) {
    const auto writeAndClose = [](std::uint32_t bufferSize) {
        KdCStdioFile file(L"/dev/full", CFile::modeWrite, Coding::kUtf8, false, false, bufferSize);
        file.WriteString(L"no room");
        file.Close();
    };
    EXPECT_THROW(writeAndClose(0), CFileException);
    EXPECT_THROW(writeAndClose(64), CFileException);

    KdCFile file(L"/dev/full", CFile::modeWrite, Coding::kUtf8, false, false, 64);
    file.Write(L"no room");
    EXPECT_THROW(file.Close(), CFileException);
    EXPECT_FALSE(file.isOpen());
}

TEST_F(KdFile, A_full_disk_is_survived_by_a_file_that_goes_out_of_scope) {
    EXPECT_NO_THROW({
        KdCStdioFile file(L"/dev/full", CFile::modeWrite, Coding::kUtf8, false, false, 64);
        file.WriteString(L"no room");
    });
    EXPECT_NO_THROW({
        KdCFile file(L"/dev/full", CFile::modeWrite, Coding::kUtf8, false, false, 64);
        file.Write(L"no room");
    });
}

}  // namespace
