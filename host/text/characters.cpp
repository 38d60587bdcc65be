// Characters that texts name by number.

#include "host/text/characters.h"

#include <QByteArray>
#include <QTextCodec>
#include <array>

namespace kdhost::text {
namespace {

/// By the number in the code.
constexpr std::array<const char*, 6> kEncodings = {nullptr, "Shift_JIS", "Big5", "windows-949", "johab", "GB18030"};

struct Block {
    wchar_t first;
    wchar_t last;
};

constexpr Block kCjkBlocks[] = {
    {0x1100, 0x11FF},    // Hangul letters
    {0x2E80, 0x303E},    // radicals, punctuation
    {0x3041, 0xA4CF},    // kana, ideographs, Yi
    {0xAC00, 0xD7A3},    // Hangul syllables
    {0xF900, 0xFAFF},    // compatibility ideographs
    {0xFE30, 0xFE4F},    // compatibility forms
    {0xFF00, 0xFF60},    // full-width forms
    {0xFFE0, 0xFFE6},    // full-width signs
    {0x20000, 0x3FFFD},  // ideographs beyond 16 bits
};

}  // namespace

std::optional<wchar_t> characterOf(int encoding, unsigned bytes) {
    if (encoding < 1 || encoding >= static_cast<int>(kEncodings.size())) return std::nullopt;
    QTextCodec* codec = QTextCodec::codecForName(kEncodings[static_cast<std::size_t>(encoding)]);
    if (codec == nullptr) return std::nullopt;
    QByteArray data;
    if (bytes > 0xFF) data.append(static_cast<char>(bytes >> 8 & 0xFF));
    data.append(static_cast<char>(bytes & 0xFF));
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QVector<uint> decoded = codec->toUnicode(data.constData(), data.size(), &state).toUcs4();
    if (state.invalidChars > 0 || state.remainingChars > 0 || decoded.size() != 1) return std::nullopt;
    if (decoded[0] < 0x20 || decoded[0] == QChar::ReplacementCharacter) return std::nullopt;
    return static_cast<wchar_t>(decoded[0]);
}

bool isCjk(wchar_t character) {
    if (character < kCjkBlocks[0].first) return false;
    for (const Block& block : kCjkBlocks) {
        if (character >= block.first && character <= block.last) return true;
    }
    return false;
}

}  // namespace kdhost::text
