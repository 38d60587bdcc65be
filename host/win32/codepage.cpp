// Bytes to wide text and back under the Win32 names.

#include <cstring>
#include <cwchar>
#include <string>
#include <string_view>

#include "host/rx/encoding.h"
#include "win32/types.h"

namespace {

bool isKnown(UINT codePage) {
    return codePage == CP_ACP || codePage == CP_UTF8 || codePage == 936;
}

std::wstring decode(UINT codePage, std::string_view bytes) {
    if (codePage == CP_UTF8) return kdhost::fromUtf8(bytes);
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) text.push_back(kdhost::take936(bytes));
    return text;
}

std::string encode(UINT codePage, std::wstring_view text) {
    if (codePage == CP_UTF8) return kdhost::toUtf8(text);
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t character : text) {
        const unsigned encoded = kdhost::codePage936(character);
        if (encoded >= 0x100) bytes.push_back(static_cast<char>(encoded >> 8));
        const bool lacking = encoded == 0 && character != 0;
        bytes.push_back(lacking ? '?' : static_cast<char>(encoded & 0xFF));
    }
    return bytes;
}

/// The common rule of the results: only the count without room, nothing when the room is too small.
template <class Char>
int deliver(const std::basic_string<Char>& result, Char* out, int outLength) {
    const int count = static_cast<int>(result.size());
    if (outLength == 0) return count;
    if (out == nullptr || outLength < count) return 0;
    result.copy(out, result.size());
    return count;
}

}  // namespace

int MultiByteToWideChar(UINT codePage, DWORD, const char* bytes, int length, wchar_t* out, int outLength) {
    if (!isKnown(codePage) || bytes == nullptr || length == 0) return 0;
    const std::size_t count = length < 0 ? std::strlen(bytes) + 1 : static_cast<std::size_t>(length);
    return deliver(decode(codePage, {bytes, count}), out, outLength);
}

int WideCharToMultiByte(UINT codePage, DWORD, const wchar_t* text, int length, char* out, int outLength, const char*,
                        BOOL*) {
    if (!isKnown(codePage) || text == nullptr || length == 0) return 0;
    const std::size_t count = length < 0 ? std::wcslen(text) + 1 : static_cast<std::size_t>(length);
    return deliver(encode(codePage, {text, count}), out, outLength);
}
