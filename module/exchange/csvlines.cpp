// Comma-separated text to rows of fields.

#include "module/exchange/csvlines.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace csv {
namespace {

constexpr int headersPerBlock = 4096;
constexpr char32_t byteOrderMark = 0xFEFF;

/// What a lead byte tells of its sequence.
struct Lead {
    int length;         ///< bytes in all
    char32_t bits;      ///< the lead byte's part of the character
    char32_t smallest;  ///< below it the sequence is longer than it need be
};

/// A length of 0 for a byte that begins no sequence.
Lead leadOf(unsigned char byte) {
    if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

bool isScalarValue(char32_t character) {
    return character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
}

char16_t* put(char32_t character, char16_t* out) {
    if (character < 0x10000) {
        *out++ = static_cast<char16_t>(character);
        return out;
    }
    *out++ = QChar::highSurrogate(character);
    *out++ = QChar::lowSurrogate(character);
    return out;
}

/// Decodes the sequence at `bytes`, which moves behind it. Null when it isn't UTF-8. Where the text ends inside
/// a sequence that is good so far, nothing is written.
char16_t* decodeSequence(const char*& bytes, const char* end, char16_t* out, char32_t& character) {
    const Lead lead = leadOf(static_cast<unsigned char>(*bytes++));
    if (lead.length == 0) return nullptr;
    character = lead.bits;
    for (int i = 1; i < lead.length; ++i) {
        if (bytes == end) return out;
        const auto byte = static_cast<unsigned char>(*bytes++);
        if ((byte & 0xC0U) != 0x80) return nullptr;
        character = (character << 6) | (byte & 0x3FU);
    }
    if (character < lead.smallest || !isScalarValue(character)) return nullptr;
    return put(character, out);
}

/// Copies plain ASCII up to the first other byte, eight bytes at a step.
void copyAscii(const char*& bytes, const char* end, char16_t*& out) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    for (; end - bytes >= 8; bytes += 8, out += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes, sizeof word);
        if ((word & highBits) != 0) break;
        for (int i = 0; i < 8; ++i) out[i] = static_cast<unsigned char>(bytes[i]);
    }
    while (bytes != end && static_cast<signed char>(*bytes) >= 0) *out++ = static_cast<unsigned char>(*bytes++);
}

/// 1 when the number of double quotes is odd.
unsigned quoteParity(const char16_t* text, const char16_t* end) {
    unsigned count = 0;
    for (; text != end; ++text) count += *text == u'"' ? 1 : 0;
    return count & 1;
}

}  // namespace

char16_t* decodeLine(const char* bytes, const char* end, char16_t* out) {
    const char* const start = bytes;
    while (true) {
        copyAscii(bytes, end, out);
        if (bytes == end) return out;
        const bool first = bytes == start;
        char32_t character = 0;
        char16_t* const next = decodeSequence(bytes, end, out, character);
        if (next == nullptr) return nullptr;
        if (!first || character != byteOrderMark) out = next;
    }
}

void splitLine(char16_t* line, const char16_t* end, std::vector<Field>& fields) {
    fields.clear();
    // Even quotes up to here and an even number in all leave an even number behind.
    unsigned quotesBehind = quoteParity(line, end);
    char16_t* start = line;
    for (char16_t* place = line; place != end; ++place) {
        if (*place == u'"') {
            quotesBehind ^= 1;
        } else if (*place == u',' && quotesBehind == 0) {
            fields.push_back({start, static_cast<int>(place - start)});
            start = place + 1;
        }
    }
    fields.push_back({start, static_cast<int>(end - start)});
}

Field unquote(Field field) {
    if (field.length < 2 || field.text[0] != u'"' || field.text[field.length - 1] != u'"') return field;
    const char16_t* from = field.text + 1;
    const char16_t* const end = field.text + field.length - 1;
    char16_t* out = field.text;
    while (from != end) {
        if (from[0] == u'"' && from + 1 != end && from[1] == u'"') ++from;
        *out++ = *from++;
    }
    return {field.text, static_cast<int>(out - field.text)};
}

bool Rows::read(const QByteArray& bytes) {
    m_text = std::make_unique_for_overwrite<char16_t[]>(static_cast<std::size_t>(bytes.size()));
    char16_t* out = m_text.get();
    std::vector<Field> fields;
    const char* line = bytes.constData();
    const char* const end = line + bytes.size();
    while (line != end) {
        const void* const lineFeed = std::memchr(line, '\n', static_cast<std::size_t>(end - line));
        const char* const next = lineFeed == nullptr ? end : static_cast<const char*>(lineFeed) + 1;
        char16_t* const text = out;
        out = decodeLine(line, next, text);
        if (out == nullptr) return false;
        splitLine(text, out, fields);
        append(fields);
        line = next;
    }
    return true;
}

void Rows::append(std::vector<Field>& fields) {
    const int count = static_cast<int>(fields.size());
    QStringList row;
    row.reserve(count);
    for (const Field& field : fields) row.append(view(unquote(field)));
    m_columnCount = std::max(m_columnCount, count);
    const bool counts = !row.first().isEmpty();
    m_lines.append(std::move(row));
    if (counts) m_rowCount = m_lines.size();
}

// A header marked as static is counted and freed by nobody, like that of a string literal: the string is a plain
// view of the text, and whoever changes a copy of it gets memory of its own.
QString Rows::view(Field field) {
    if (field.isEmpty()) return {};
    if (m_headers.empty() || m_headersUsed == headersPerBlock) {
        m_headers.push_back(std::make_unique_for_overwrite<QStringData[]>(headersPerBlock));
        m_headersUsed = 0;
    }
    QStringData& header = m_headers.back()[static_cast<std::size_t>(m_headersUsed++)];
    header.ref.atomic.storeRelaxed(-1);
    header.size = field.length;
    header.alloc = 0;
    header.capacityReserved = 0;
    header.offset = reinterpret_cast<const char*>(field.text) - reinterpret_cast<const char*>(&header);
    return QString(QStringDataPtr{&header});
}

}  // namespace csv
