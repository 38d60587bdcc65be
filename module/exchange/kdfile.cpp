// Files of wide text in a chosen encoding.

#include "module/exchange/kdfile.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <cwchar>
#include <utility>

#include "kd/rx/charformatter.h"

namespace {

constexpr std::uint32_t longestCharacter = 8;  ///< bytes that one character can take
constexpr UINT escapeLength = 7;               ///< of \U+XXXX

bool readBytes(CFile& file, void* bytes, UINT count) {
    return file.Read(bytes, count) == count;
}

/// Bytes of the sequence that a lead byte begins; a lone continuation byte stands for itself.
unsigned utf8Length(unsigned char lead) {
    if ((lead >> 4) == 0xF) return 4;
    if ((lead >> 5) == 0x7) return 3;
    return (lead >> 6) == 0x3 ? 2 : 1;
}

/// In ANSI and in UTF-8. A line feed becomes two bytes where line ends are converted.
bool isOwnByte(wchar_t character, bool lineEnds) {
    return character > 0 && character < 0x80 && (character != L'\n' || !lineEnds);
}

/// Characters looked at together, as many as the processor takes at once.
constexpr std::ptrdiff_t groupSize = 16;

/// Puts a group's bytes into the room, and tells whether each of its characters is its own byte; else what was put
/// means nothing.
bool putGroup(const wchar_t* text, char* room, bool lineEnds) {
    // Without a branch, as isOwnByte would say: neither a character nor the one before it has a bit above the lowest
    // seven, which zero fails by the latter.
    std::array<char, groupSize> bytes;
    std::uint32_t high = 0;
    std::uint32_t lineFeeds = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto code = std::bit_cast<std::uint32_t>(text[i]);
        high |= code | (code - 1);
        lineFeeds |= code == L'\n' ? 1U : 0U;
        bytes[i] = static_cast<char>(code);
    }
    std::memcpy(room, bytes.data(), bytes.size());
    return high < 0x80 && !(lineEnds && lineFeeds != 0);
}

/// Puts the characters that are their own bytes into the room until another one comes or either ends, and returns
/// the place behind the last.
char* putOwnBytes(const wchar_t*& text, const wchar_t* textEnd, char* room, const char* roomEnd, bool lineEnds) {
    while (textEnd - text >= groupSize && roomEnd - room >= groupSize && putGroup(text, room, lineEnds)) {
        text += groupSize;
        room += groupSize;
    }
    while (text != textEnd && room != roomEnd && isOwnByte(*text, lineEnds)) *room++ = static_cast<char>(*text++);
    return room;
}

}  // namespace

KdCharacterCoding::KdCharacterCoding(Encoding encoding, bool escapes, bool lineEnds, std::uint32_t bufferSize)
    : m_encoding(encoding),
      m_escapes(escapes),
      m_lineEnds(lineEnds),
      m_buffer(bufferSize >= longestCharacter ? std::make_unique_for_overwrite<char[]>(bufferSize) : nullptr),
      m_bufferSize(bufferSize),
      m_reserved(longestCharacter) {}

inline int KdCharacterCoding::encode(wchar_t character, char* out) const {
    if (isOfBytes()) {
        return KfCharFormatter::wcharToAnsiOrUtf8(character, out, longestCharacter, m_encoding == kAnsi, m_escapes,
                                                  m_lineEnds);
    }
    if (m_encoding == kUtf16 || m_encoding == kUtf16Swapped) {
        return KfCharFormatter::wcharToUtf16(character, out, longestCharacter, m_encoding == kUtf16, m_lineEnds);
    }
    return 0;
}

void KdCharacterCoding::write(CFile& file, const wchar_t* text, const wchar_t* end) {
    if (m_buffer == nullptr) return writeDirectly(file, text, end);
    for (; text != end; ++text) {
        m_bufferFill += static_cast<std::uint32_t>(encode(*text, m_buffer.get() + m_bufferFill));
        if (m_bufferSize - m_bufferFill < m_reserved) writeBuffer(file);
    }
}

// Nearly every character of a file is one that is its own byte; the others are made bytes of by a call.
void KdCharacterCoding::writeDirectly(CFile& file, const wchar_t* text, const wchar_t* end) const {
    while (text != end) {
        if (isOfBytes()) {
            file.WriteEach(
                [&](char* room, const char* roomEnd) { return putOwnBytes(text, end, room, roomEnd, m_lineEnds); });
            if (text == end) return;
        }
        std::array<char, longestCharacter> bytes;
        const int made = encode(*text++, bytes.data());
        if (made > 0) file.Write(bytes.data(), static_cast<UINT>(made));
    }
}

void KdCharacterCoding::writeBuffer(CFile& file) {
    if (m_bufferFill == 0) return;
    // Emptied first: writing bytes asks for the buffer to be written out before them.
    const std::uint32_t count = std::exchange(m_bufferFill, 0);
    file.Write(m_buffer.get(), count);
}

bool KdCharacterCoding::read(CFile& file, wchar_t& character) {
    writeBuffer(file);
    if (!readOne(file, character)) return false;
    if (m_encoding == kAnsi && m_escapes && character == L'\\')
        readEscape(file, character);
    else if (m_lineEnds && character == L'\r')
        joinLineEnd(file, character);
    return true;
}

bool KdCharacterCoding::readOne(CFile& file, wchar_t& character) const {
    switch (m_encoding) {
        case kAnsi:
            return readAnsi(file, character);
        case kUtf8:
            return readUtf8(file, character);
        case kUtf16:
        case kUtf16Swapped:
            return readUtf16(file, character);
        default:
            return false;
    }
}

bool KdCharacterCoding::readUtf8(CFile& file, wchar_t& character) const {
    std::array<unsigned char, 4> bytes{};
    if (!readBytes(file, bytes.data(), 1)) return false;
    const unsigned length = utf8Length(bytes[0]);
    if (length > 1 && !readBytes(file, bytes.data() + 1, length - 1)) return false;
    constexpr std::array<unsigned, 5> leadBits = {0, 0xFF, 0x1F, 0x0F, 0x07};
    std::uint32_t value = bytes[0] & leadBits[length];
    for (unsigned i = 1; i < length; ++i) value = (value << 6) | (bytes[i] & 0x3FU);
    character = static_cast<wchar_t>(value);
    return true;
}

bool KdCharacterCoding::readUtf16(CFile& file, wchar_t& character) const {
    std::array<unsigned char, 2> bytes{};
    if (!readBytes(file, bytes.data(), 2)) return false;
    character = fromUtf16(bytes);
    return true;
}

wchar_t KdCharacterCoding::fromUtf16(const std::array<unsigned char, 2>& bytes) const {
    const bool lowFirst = (std::endian::native == std::endian::little) == (m_encoding == kUtf16);
    return static_cast<wchar_t>(lowFirst ? bytes[0] | (bytes[1] << 8) : (bytes[0] << 8) | bytes[1]);
}

bool KdCharacterCoding::readAnsi(CFile& file, wchar_t& character) const {
    std::array<char, 2> bytes{};
    if (!readBytes(file, bytes.data(), 1)) return false;
    unsigned length = 1;
    if (KfCharFormatter::isAnsiLeadByte(static_cast<unsigned char>(bytes[0]))) {
        if (!readBytes(file, bytes.data() + 1, 1)) return false;
        length = 2;
    }
    character = KfCharFormatter::ansiToWchar(bytes.data(), length);
    return true;
}

/// A backslash was read; when it begins an escape, the escape's character takes its place.
void KdCharacterCoding::readEscape(CFile& file, wchar_t& character) {
    std::array<char, escapeLength + 1> text{'\\'};
    const UINT got = file.Read(text.data() + 1, escapeLength - 1);
    if (KfCharFormatter::isCIFString(text.data()) && KfCharFormatter::parseCIF(text.data(), character)) return;
    file.Seek(-static_cast<std::int64_t>(got), CFile::current);
}

/// A carriage return was read; with a line feed behind it the two are one line feed. What else follows is put
/// back.
void KdCharacterCoding::joinLineEnd(CFile& file, wchar_t& character) const {
    const bool wide = m_encoding == kUtf16 || m_encoding == kUtf16Swapped;
    std::array<unsigned char, 2> next{};
    const UINT unit = wide ? 2 : 1;
    const UINT got = file.Read(next.data(), unit);
    if (got == unit && (wide ? fromUtf16(next) : next[0]) == L'\n') {
        character = L'\n';
        return;
    }
    file.Seek(-static_cast<std::int64_t>(got), CFile::current);
}

template <class Base>
KdCodedFile<Base>::KdCodedFile(KdCharacterCoding::Encoding encoding, bool escapes, bool lineEnds,
                               std::uint32_t bufferSize)
    : m_coding(encoding, escapes, lineEnds, bufferSize) {}

template <class Base>
KdCodedFile<Base>::KdCodedFile(const wchar_t* path, UINT flags, KdCharacterCoding::Encoding encoding, bool escapes,
                               bool lineEnds, std::uint32_t bufferSize)
    : Base(path, flags), m_coding(encoding, escapes, lineEnds, bufferSize) {}

/// There is nobody left to tell that the rest can't be written.
template <class Base>
KdCodedFile<Base>::~KdCodedFile() {
    try {
        m_coding.writeBuffer(*this);
    } catch (...) {
    }
}

template <class Base>
std::uint64_t KdCodedFile<Base>::Seek(std::int64_t offset, UINT from) {
    m_coding.writeBuffer(*this);
    return Base::Seek(offset, from);
}

template <class Base>
void KdCodedFile<Base>::Flush() {
    m_coding.writeBuffer(*this);
    Base::Flush();
}

template <class Base>
void KdCodedFile<Base>::Close() {
    try {
        m_coding.writeBuffer(*this);
    } catch (...) {
        Base::Close();
        throw;
    }
    Base::Close();
}

template class KdCodedFile<CFile>;
template class KdCodedFile<CStdioFile>;

UINT KdCFile::Read(wchar_t* text, unsigned count) {
    UINT got = 0;
    while (got < count && m_coding.read(*this, text[got])) ++got;
    return got;
}

void KdCFile::Write(const wchar_t* text, unsigned count) {
    m_coding.write(*this, text, text + count);
}

void KdCFile::Write(const wchar_t* text) {
    if (text != nullptr) Write(text, static_cast<unsigned>(std::wcslen(text)));
}

UINT KdCFile::Read(void* buffer, UINT count) {
    m_coding.writeBuffer(*this);
    return CFile::Read(buffer, count);
}

void KdCFile::Write(const void* buffer, UINT count) {
    m_coding.writeBuffer(*this);
    CFile::Write(buffer, count);
}

void KdCStdioFile::WriteString(const wchar_t* text) {
    if (text != nullptr) m_coding.write(*this, text, text + std::wcslen(text));
}

wchar_t* KdCStdioFile::ReadString(wchar_t* text, unsigned size) {
    unsigned got = 0;
    while (got + 1 < size && m_coding.read(*this, text[got])) {
        if (text[got++] == L'\n') break;
    }
    if (got == 0) return nullptr;
    text[got] = 0;
    return text;
}

bool KdCStdioFile::ReadString(CStdStr<wchar_t>& line) {
    line.Empty();
    wchar_t character = 0;
    bool any = false;
    while (m_coding.read(*this, character)) {
        any = true;
        if (character == L'\n') break;
        line += character;
    }
    return any;
}
