// Fingerprints of tags.

#include "host/file/fingerprint.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace kdhost::file {
namespace {

bool isReal(int code) {
    return (code >= 10 && code <= 59) || (code >= 110 && code <= 149) || (code >= 210 && code <= 239);
}

bool isText(int code) {
    return (code >= 0 && code <= 9) || (code >= 100 && code <= 102) || (code >= 300 && code <= 319) || code >= 1000;
}

}  // namespace

void Fingerprint::mix(std::uint64_t number) {
    m_state = (m_state ^ number) * 0xBF58476D1CE4E5B9;
    m_state ^= m_state >> 29;
}

void Fingerprint::add(const Tag& tag) {
    if (isPointerCode(tag.code)) return;
    mix(static_cast<std::uint64_t>(tag.code));
    if (isReal(tag.code)) {
        mix(std::bit_cast<std::uint64_t>(realOf(tag).value_or(0.0)));
    } else if (!isText(tag.code)) {
        mix(static_cast<std::uint64_t>(integerOf(tag).value_or(0)));
    } else {
        mix(tag.length);
        for (std::size_t at = 0; at < tag.length; at += sizeof(std::uint64_t)) {
            std::uint64_t piece = 0;
            std::memcpy(&piece, tag.at + at, std::min(sizeof piece, tag.length - at));
            mix(piece);
        }
    }
}

}  // namespace kdhost::file
