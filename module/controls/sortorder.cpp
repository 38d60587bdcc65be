// The order of names in sorted boxes: each character has a key of 16 bits, and keys are compared as signed
// numbers, so that keys from 0x8000 on come before all others.

#include "module/controls/sortorder.h"

#include <bit>
#include <cstdint>

namespace {

std::int16_t sortKey(wchar_t c) {
    const auto code = std::bit_cast<std::uint32_t>(c);
    std::uint32_t offset = 0;
    if ((code & 0x80U) != 0) {
        offset = 0x300;
    } else if (c >= L'a' && c <= L'z') {
        offset = 0x200;
    } else if (c >= L'A' && c <= L'Z') {
        offset = 0x220;  // the same keys as those of the small letters
    } else if (c >= L'0' && c <= L'9') {
        offset = 0x100;
    }
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(code + offset));
}

}  // namespace

int strcmpSort(const wchar_t* a, const wchar_t* b) {
    for (; *a != L'\0'; ++a, ++b) {
        if (*b == L'\0') return 1;
        const std::int16_t left = sortKey(*a);
        const std::int16_t right = sortKey(*b);
        if (left != right) return left > right ? 1 : -1;
    }
    return *b == L'\0' ? 0 : -1;
}
