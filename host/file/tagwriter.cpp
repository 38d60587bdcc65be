// Writing of tags.

#include "host/file/tagwriter.h"

#include <charconv>
#include <cmath>

#include "host/rx/encoding.h"

namespace kdhost::file {
namespace {

constexpr std::size_t kLongestNumber = 64;
constexpr long double kPi = 3.14159265358979323846264338327950288L;

bool isSurrogateOrBeyond(wchar_t letter) {
    const std::uint32_t code = codeOf(letter);
    return (code >= 0xD800 && code < 0xE000) || code > 0x10FFFF;
}

/// What no file can hold as a character stands there as its escape.
void appendEscape(std::string& bytes, wchar_t letter) {
    char digits[kLongestNumber] = {};
    const auto end = std::to_chars(digits, digits + sizeof digits, codeOf(letter) & 0xFFFFU, 16).ptr;
    bytes += "\\U+";
    for (const char* digit = digits; digit != end; ++digit) {
        bytes += *digit >= 'a' ? static_cast<char>(*digit - 'a' + 'A') : *digit;
    }
}

/// The radians that a reader finds, who reads the digits with more precision than a double has.
double readBack(double degrees) {
    char digits[kLongestNumber];
    const char* end = std::to_chars(digits, digits + sizeof digits, degrees).ptr;
    long double read = 0.0L;
    std::from_chars(digits, end, read);
    return radiansOf(read);
}

}  // namespace

double radiansOf(long double degrees) {
    return static_cast<double>(degrees * kPi / 180.0L);
}

void appendText(std::string& bytes, std::wstring_view text) {
    for (const wchar_t letter : text) {
        if (letter >= L' ' && letter < 0x7F && letter != L'^') [[likely]] {
            bytes += static_cast<char>(letter);
        } else if (letter == L'^') {
            bytes += "^ ";
        } else if (letter >= 0 && letter < L' ') {
            bytes += '^';
            bytes += static_cast<char>(letter + '@');
        } else if (isSurrogateOrBeyond(letter)) {
            appendEscape(bytes, letter);
        } else {
            char encoded[kLongestEncoding];
            bytes.append(encoded, encodeUtf8(letter, encoded));
        }
    }
}

std::string handleText(std::uint64_t handle) {
    TagWriter writer;
    writer.handle(0, handle);
    return writer.bytes().substr(2, writer.bytes().size() - 3);
}

void TagWriter::code(int code) {
    char digits[kLongestNumber];
    char* end = std::to_chars(digits, digits + sizeof digits, code).ptr;
    *end++ = '\n';
    m_bytes.append(digits, end);
}

/// One number and the end of its line.
template <class... Format>
void TagWriter::number(Format... format) {
    char digits[kLongestNumber];
    char* end = std::to_chars(digits, digits + sizeof digits, format...).ptr;
    *end++ = '\n';
    m_bytes.append(digits, end);
}

void TagWriter::raw(int code, std::string_view bytes) {
    this->code(code);
    m_bytes += bytes;
    m_bytes += '\n';
}

void TagWriter::text(int code, std::wstring_view text) {
    this->code(code);
    appendText(m_bytes, text);
    m_bytes += '\n';
}

void TagWriter::longText(int pieceCode, int lastCode, std::wstring_view text) {
    for (; text.size() > kLongestPiece; text.remove_prefix(kLongestPiece)) {
        this->text(pieceCode, text.substr(0, kLongestPiece));
    }
    this->text(lastCode, text);
}

void TagWriter::real(int code, double value) {
    this->code(code);
    number(value);
}

void TagWriter::integer(int code, std::int64_t value) {
    this->code(code);
    number(value);
}

void TagWriter::handle(int code, std::uint64_t value) {
    this->code(code);
    const std::size_t first = m_bytes.size();
    number(value, 16);
    for (std::size_t at = first; at < m_bytes.size(); ++at) {
        if (m_bytes[at] >= 'a') m_bytes[at] = static_cast<char>(m_bytes[at] - 'a' + 'A');
    }
}

void TagWriter::angle(int code, double radians) {
    this->code(code);
    const long double exact = static_cast<long double>(radians) * 180.0L / kPi;
    // Nearly always some short number of degrees means these radians; else digits beyond a double's tell them.
    const auto degrees = static_cast<double>(exact);
    const double rounded = std::round(degrees * 1e9) / 1e9;
    for (const double candidate : {rounded, degrees}) {
        if (readBack(candidate) == radians) return number(candidate);
    }
    number(exact);
}

void TagWriter::point(int code, double x, double y, double z) {
    real(code, x);
    real(code + 10, y);
    real(code + 20, z);
}

}  // namespace kdhost::file
