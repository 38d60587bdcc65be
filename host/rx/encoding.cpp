// UTF-8 and code page 936. The tables of the code page are read from the system's converter once, on first
// use: a converter call for each character would be the cost of writing a text file.

#include "host/rx/encoding.h"

#include <iconv.h>

#include <array>
#include <cstdint>
#include <vector>

namespace kdhost {
namespace {

constexpr wchar_t kReplacement = 0xFFFD;
constexpr unsigned kFirstLead = 0x81;
constexpr unsigned kLastLead = 0xFE;
constexpr unsigned kFirstTrail = 0x40;
constexpr unsigned kLastTrail = 0xFE;

bool isSurrogate(std::uint32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

/// Code page 936 both ways, for characters of 16 bits.
class CodePage936 {
public:
    CodePage936() : m_toBytes(0x10000), m_toCharacter(0x10000) {
        for (unsigned byte = 0; byte < 0x80; ++byte) enter(byte, byte);
        const iconv_t converter = ::iconv_open("UTF-32LE", "GBK");
        if (reinterpret_cast<std::intptr_t>(converter) == -1) return;
        for (unsigned lead = kFirstLead; lead <= kLastLead; ++lead) {
            for (unsigned trail = kFirstTrail; trail <= kLastTrail; ++trail) {
                const std::uint32_t code = convert(converter, lead, trail);
                if (code != 0) enter(lead << 8 | trail, code);
            }
        }
        ::iconv_close(converter);
    }

    unsigned bytesOf(std::uint32_t code) const { return code < m_toBytes.size() ? m_toBytes[code] : 0; }
    wchar_t characterOf(unsigned bytes) const { return static_cast<wchar_t>(m_toCharacter[bytes]); }

private:
    static std::uint32_t convert(iconv_t converter, unsigned lead, unsigned trail) {
        std::array<char, 2> bytes{static_cast<char>(lead), static_cast<char>(trail)};
        std::uint32_t code = 0;
        char* in = bytes.data();
        char* out = reinterpret_cast<char*>(&code);
        std::size_t inLeft = bytes.size();
        std::size_t outLeft = sizeof code;
        ::iconv(converter, nullptr, nullptr, nullptr, nullptr);
        const bool done = ::iconv(converter, &in, &inLeft, &out, &outLeft) == 0 && inLeft == 0 && outLeft == 0;
        return done && code < 0x10000 ? code : 0;
    }

    void enter(unsigned bytes, std::uint32_t code) {
        m_toCharacter[bytes] = static_cast<std::uint16_t>(code);
        if (m_toBytes[code] == 0) m_toBytes[code] = static_cast<std::uint16_t>(bytes);
    }

    std::vector<std::uint16_t> m_toBytes;
    std::vector<std::uint16_t> m_toCharacter;
};

const CodePage936& tables936() {
    static const CodePage936 tables;
    return tables;
}

/// Length of the sequence that a lead byte begins, 0 for another byte.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead <= 0xDF) return 2;
    if (lead >= 0xE0 && lead <= 0xEF) return 3;
    if (lead >= 0xF0 && lead <= 0xF4) return 4;
    return 0;
}

/// The character of a whole sequence, or the replacement when a byte is wrong, the form is longer than
/// needed, or the value is none of Unicode's characters.
std::uint32_t decodeSequence(std::string_view sequence) {
    constexpr std::array<std::uint32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    constexpr std::array<unsigned, 5> leadBits{0, 0x7F, 0x1F, 0x0F, 0x07};
    std::uint32_t code = static_cast<unsigned char>(sequence[0]) & leadBits[sequence.size()];
    for (const char c : sequence.substr(1)) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0) != 0x80) return kReplacement;
        code = code << 6 | (byte & 0x3F);
    }
    const bool valid = code >= smallest[sequence.size()] && code <= 0x10FFFF && !isSurrogate(code);
    return valid ? code : kReplacement;
}

}  // namespace

std::size_t encodeUtf8(wchar_t character, char* out) {
    const std::uint32_t code = codeOf(character);
    if (code > 0x10FFFF || isSurrogate(code)) {
        *out = '?';
        return 1;
    }
    if (code < 0x80) {
        *out = static_cast<char>(code);
        return 1;
    }
    constexpr std::array<std::uint32_t, 5> leadMark{0, 0, 0xC0, 0xE0, 0xF0};
    const std::size_t length = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    std::uint32_t rest = code;
    for (std::size_t i = length - 1; i > 0; --i) {
        out[i] = static_cast<char>(0x80 | (rest & 0x3F));
        rest >>= 6;
    }
    *out = static_cast<char>(leadMark[length] | rest);
    return length;
}

wchar_t takeUtf8(std::string_view& bytes) {
    const std::size_t length = sequenceLength(static_cast<unsigned char>(bytes.front()));
    if (length != 0 && length <= bytes.size()) {
        const std::string_view sequence = bytes.substr(0, length);
        const std::uint32_t code = decodeSequence(sequence);
        if (code != kReplacement || sequence == "\xEF\xBF\xBD") {
            bytes.remove_prefix(length);
            return static_cast<wchar_t>(code);
        }
    }
    bytes.remove_prefix(1);
    return kReplacement;
}

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t character : text) {
        std::array<char, kLongestEncoding> encoded{};
        bytes.append(encoded.data(), encodeUtf8(character, encoded.data()));
    }
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) text.push_back(takeUtf8(bytes));
    return text;
}

unsigned codePage936(wchar_t character) {
    const std::uint32_t code = codeOf(character);
    return code < 0x80 ? code : tables936().bytesOf(code);
}

bool isLeadByte936(unsigned char byte) {
    return byte >= kFirstLead && byte <= kLastLead;
}

wchar_t take936(std::string_view& bytes) {
    const auto lead = static_cast<unsigned char>(bytes.front());
    bytes.remove_prefix(1);
    if (lead < 0x80) return static_cast<wchar_t>(lead);
    if (!isLeadByte936(lead) || bytes.empty()) return L'?';
    const unsigned pair = static_cast<unsigned>(lead) << 8 | static_cast<unsigned char>(bytes.front());
    const wchar_t character = tables936().characterOf(pair);
    if (character == 0) return L'?';
    bytes.remove_prefix(1);
    return character;
}

}  // namespace kdhost
