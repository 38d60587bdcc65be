// Integer types and characters sets under their Win32 names.
#pragma once

#include <cstdint>

using BOOL = int;
using UINT = unsigned int;
using DWORD = std::uint32_t;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;

enum : UINT {
    CP_ACP = 0,  ///< the ANSI encoding of this system, code page 936
    CP_UTF8 = 65001,
};

/// Decodes `length` bytes (-1: up to and with the ending zero) into `out`. With `outLength` 0 only counts.
/// Returns the number of wide characters, 0 on failure. `flags` is not used.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int length, wchar_t* out, int outLength);
/// The reverse; characters that the code page lacks become '?'. The last two arguments are not used.
int WideCharToMultiByte(UINT codePage, DWORD flags, const wchar_t* text, int length, char* out, int outLength,
                        const char* defaultChar = nullptr, BOOL* usedDefault = nullptr);
