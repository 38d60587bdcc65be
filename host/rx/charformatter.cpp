// Single characters to bytes and back, for text files in a chosen encoding.

#include "kd/rx/charformatter.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "host/rx/encoding.h"

namespace {

constexpr std::size_t kEscapeDigits = 4;

/// Value of a hexadecimal digit of either case, -1 for another character.
int digitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

/// The bytes of one character while they are put together.
class Bytes {
public:
    void push(unsigned byte) { m_bytes[m_count++] = static_cast<char>(byte); }
    void push(std::string_view text) { m_count += text.copy(m_bytes.data() + m_count, text.size()); }
    char* room() { return m_bytes.data() + m_count; }
    void grow(std::size_t count) { m_count += count; }

    /// The number of bytes, 0 when `out` has no room for them.
    int copyTo(char* out, unsigned size) const {
        if (out == nullptr || m_count > size) return 0;
        std::memcpy(out, m_bytes.data(), m_count);
        return static_cast<int>(m_count);
    }

private:
    std::array<char, 8> m_bytes{};
    std::size_t m_count = 0;
};

void pushEscape(Bytes& bytes, std::uint32_t code) {
    bytes.push("\\U+");
    for (int shift = 12; shift >= 0; shift -= 4) {
        bytes.push(static_cast<unsigned>("0123456789ABCDEF"[code >> shift & 0xF]));
    }
}

void pushAnsi(Bytes& bytes, wchar_t character, bool escapes) {
    const std::uint32_t code = kdhost::codeOf(character);
    const unsigned encoded = kdhost::codePage936(character);
    if (encoded >= 0x100) {
        bytes.push(encoded >> 8);
        bytes.push(encoded & 0xFF);
    } else if (encoded != 0 || code == 0) {
        bytes.push(encoded);
    } else if (escapes && code <= 0xFFFF) {
        pushEscape(bytes, code);
    } else {
        bytes.push("?");
    }
}

void pushUtf16(Bytes& bytes, std::uint32_t unit, bool machineOrder) {
    // The machine's order is least byte first.
    bytes.push(machineOrder ? unit & 0xFF : unit >> 8 & 0xFF);
    bytes.push(machineOrder ? unit >> 8 & 0xFF : unit & 0xFF);
}

}  // namespace

bool KfCharFormatter::isCIFString(const char* text) {
    wchar_t unused = 0;
    return parseCIF(text, unused);
}

bool KfCharFormatter::parseCIF(const char* text, wchar_t& character) {
    if (text == nullptr || text[0] != '\\' || (text[1] != 'U' && text[1] != 'u') || text[2] != '+') return false;
    int code = 0;
    for (std::size_t i = 0; i < kEscapeDigits; ++i) {
        const int digit = digitValue(text[3 + i]);
        if (digit < 0) return false;
        code = code * 16 + digit;
    }
    character = static_cast<wchar_t>(code);
    return true;
}

int KfCharFormatter::encodeAnsiOrUtf8(wchar_t character, char* out, unsigned size, bool ansi, bool escapes,
                                      bool lineEnds) {
    Bytes bytes;
    if (lineEnds && character == L'\n') bytes.push("\r");
    if (ansi) {
        pushAnsi(bytes, character, escapes);
    } else {
        bytes.grow(kdhost::encodeUtf8(character, bytes.room()));
    }
    return bytes.copyTo(out, size);
}

int KfCharFormatter::wcharToUtf16(wchar_t character, char* out, unsigned size, bool machineOrder, bool lineEnds) {
    Bytes bytes;
    const std::uint32_t code = kdhost::codeOf(character);
    if (lineEnds && character == L'\n') pushUtf16(bytes, L'\r', machineOrder);
    if (code <= 0xFFFF) {
        pushUtf16(bytes, code, machineOrder);
    } else if (code <= 0x10FFFF) {
        pushUtf16(bytes, 0xD800 + ((code - 0x10000) >> 10), machineOrder);
        pushUtf16(bytes, 0xDC00 + ((code - 0x10000) & 0x3FF), machineOrder);
    } else {
        pushUtf16(bytes, L'?', machineOrder);
    }
    return bytes.copyTo(out, size);
}

wchar_t KfCharFormatter::ansiToWchar(const char* bytes, unsigned length) {
    if (bytes == nullptr || length == 0) return 0;
    std::string_view rest(bytes, length);
    return kdhost::take936(rest);
}

bool KfCharFormatter::isAnsiLeadByte(unsigned char byte) {
    return kdhost::isLeadByte936(byte);
}
