// KdCFile and KdCStdioFile: files of wide text in a chosen encoding.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "mfc/file.h"
#include "mfc/stdstr.h"

/// How a file's characters become bytes, and back: what both file classes carry.
class KdCharacterCoding {
public:
    enum Encoding : std::int32_t {
        kAnsi = 1,  ///< code page 936
        kUtf8 = 2,
        kUtf16 = 3,         ///< in the machine's order
        kUtf16Swapped = 4,  ///< byte-swapped
    };

    /// `escapes` lets a file in ANSI hold other characters as `\U+XXXX`. `lineEnds` makes a carriage return with
    /// line feed out of a line feed on writing and a line feed out of both on reading. A buffer of 0 bytes is
    /// none: each character is then written on its own.
    KdCharacterCoding(Encoding encoding, bool escapes, bool lineEnds, std::uint32_t bufferSize);

    /// Writes characters one by one, or keeps their bytes in the buffer. An encoding that there isn't makes no
    /// bytes.
    void write(CFile& file, const wchar_t* text, const wchar_t* end);
    /// Writes out what the buffer holds.
    void writeBuffer(CFile& file);

    /// Reads one character. False at the end of the file, also inside a character. In UTF-16 each two bytes are
    /// one, so that what lies beyond 16 bits comes as its two halves.
    bool read(CFile& file, wchar_t& character);

private:
    bool isOfBytes() const { return m_encoding == kAnsi || m_encoding == kUtf8; }
    /// Makes the character's bytes and returns their number.
    int encode(wchar_t character, char* out) const;
    void writeDirectly(CFile& file, const wchar_t* text, const wchar_t* end) const;
    bool readOne(CFile& file, wchar_t& character) const;
    bool readUtf8(CFile& file, wchar_t& character) const;
    bool readUtf16(CFile& file, wchar_t& character) const;
    wchar_t fromUtf16(const std::array<unsigned char, 2>& bytes) const;
    bool readAnsi(CFile& file, wchar_t& character) const;
    static void readEscape(CFile& file, wchar_t& character);
    void joinLineEnd(CFile& file, wchar_t& character) const;

    std::int32_t m_encoding;
    bool m_escapes;
    bool m_lineEnds;
    std::unique_ptr<char[]> m_buffer;  ///< null for direct writing
    std::uint32_t m_bufferSize;
    std::uint32_t m_bufferFill = 0;
    std::uint32_t m_reserved;  ///< room set aside for the character in hand
};

/// What both file classes add to those of the framework: how characters become bytes, and that the buffer is written
/// out before anything else happens to the file. Every operation throws CFileException when the file can't carry it
/// out.
template <class Base>
class KdCodedFile : public Base {
public:
    KdCodedFile(KdCharacterCoding::Encoding encoding, bool escapes, bool lineEnds, std::uint32_t bufferSize = 0);
    KdCodedFile(const wchar_t* path, UINT flags, KdCharacterCoding::Encoding encoding, bool escapes, bool lineEnds,
                std::uint32_t bufferSize = 0);
    ~KdCodedFile() override;

    std::uint64_t Seek(std::int64_t offset, UINT from) override;
    void Flush() override;
    /// Closes the file also when the rest of the buffer can't be written.
    void Close() override;

protected:
    KdCharacterCoding m_coding;
};

extern template class KdCodedFile<CFile>;
extern template class KdCodedFile<CStdioFile>;

/// A file of wide text, read and written in pieces of any length.
class KdCFile final : public KdCodedFile<CFile> {
public:
    using KdCodedFile::KdCodedFile;

    /// Returns the number of characters read, less than `count` only at the end of the file.
    virtual UINT Read(wchar_t* text, unsigned count);
    virtual void Write(const wchar_t* text, unsigned count);
    /// Writes up to the ending zero. Null counts as empty.
    virtual void Write(const wchar_t* text);

    // Bytes as they are, behind the characters that the buffer still holds.
    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;
};

/// A file of wide text, read and written in lines. Bytes written as they are go past the buffer; Flush() comes first
/// where their order matters.
class KdCStdioFile final : public KdCodedFile<CStdioFile> {
public:
    using KdCodedFile::KdCodedFile;

    /// Writes up to the ending zero, character by character. Null counts as empty.
    virtual void WriteString(const wchar_t* text);
    /// Reads up to and with the next line feed, at most `size` - 1 characters, and ends the text with a zero.
    /// Null at the end of the file.
    virtual wchar_t* ReadString(wchar_t* text, unsigned size);
    /// Reads a line without its line feed. False at the end of the file.
    virtual bool ReadString(CStdStr<wchar_t>& line);
};
