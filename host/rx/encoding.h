// Text in bytes and in 32-bit characters: UTF-8, and code page 936.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kdhost {

/// Bytes that the longest encoded character takes.
inline constexpr std::size_t kLongestEncoding = 4;

/// A character's number; wide characters are signed on this system.
constexpr std::uint32_t codeOf(wchar_t character) {
    return std::bit_cast<std::uint32_t>(character);
}

/// Encodes one character and returns the number of bytes. Surrogates and values beyond Unicode become '?'.
std::size_t encodeUtf8(wchar_t character, char* out);
/// Takes one character from the front of `bytes`, which must not be empty. Each byte that is part of no
/// valid sequence gives U+FFFD.
wchar_t takeUtf8(std::string_view& bytes);

std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view bytes);

/// One character in code page 936: one byte below 0x80, else lead byte and trail byte in the upper and the
/// lower half; 0 for a character that the code page lacks (and for the zero character).
unsigned codePage936(wchar_t character);
/// True for 0x81 to 0xFE, which begin a character of two bytes.
bool isLeadByte936(unsigned char byte);
/// Takes one character from the front of `bytes`, which must not be empty. A byte that is part of no valid
/// character gives '?'.
wchar_t take936(std::string_view& bytes);

}  // namespace kdhost
