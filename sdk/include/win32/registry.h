// The registry under its Win32 names: a tree of keys with typed values, kept for the current user across runs.
//
// A path names its levels with backslashes; names of keys and values are compared without regard to case and
// kept as first written. What one process writes, the next one reads: every call works on the stored tree.
#pragma once

#include "win32/types.h"

using LSTATUS = std::int32_t;
using LPBYTE = BYTE*;
using REGSAM = DWORD;

struct KdRegistryKey;
/// An open key. Opaque; to be closed with RegCloseKey.
using HKEY = KdRegistryKey*;

/// The current user's branch, always open with full access. The only one there is: another predefined
/// handle is an invalid one.
inline HKEY kdPredefinedKey(std::uintptr_t number) {
    return reinterpret_cast<HKEY>(number);
}
#define HKEY_CURRENT_USER (kdPredefinedKey(0x80000001U))

/// Rights asked for when a key is opened.
enum : REGSAM {
    KEY_QUERY_VALUE = 0x0001,
    KEY_SET_VALUE = 0x0002,
    KEY_CREATE_SUB_KEY = 0x0004,
    KEY_READ = 0x20019,
    KEY_WRITE = 0x20006,
    KEY_ALL_ACCESS = 0xf003f,
};

/// Types of values. They are kept and handed back; the bytes are never looked at.
enum : DWORD {
    REG_NONE = 0,
    REG_SZ = 1,
    REG_EXPAND_SZ = 2,
    REG_BINARY = 3,
    REG_DWORD = 4,
    REG_MULTI_SZ = 7,
    REG_QWORD = 11,
};

/// What RegCreateKeyExW tells about the key.
enum : DWORD {
    REG_CREATED_NEW_KEY = 1,
    REG_OPENED_EXISTING_KEY = 2,
};

enum : LSTATUS {
    ERROR_SUCCESS = 0,
    ERROR_FILE_NOT_FOUND = 2,      ///< no such key or value
    ERROR_ACCESS_DENIED = 5,       ///< the handle lacks the right, or the store can't be written
    ERROR_INVALID_HANDLE = 6,      ///< not an open key
    ERROR_LOCK_VIOLATION = 33,     ///< another process keeps the store locked
    ERROR_INVALID_PARAMETER = 87,  ///< a null where a place is needed, or a level of more than 255 characters
    ERROR_BAD_PATHNAME = 161,      ///< an empty level, as with a leading backslash
    ERROR_MORE_DATA = 234,         ///< the buffer is too small; the size needed is told
    ERROR_KEY_DELETED = 1018,      ///< the key is gone since it was opened
};

/// Opens an existing key below `key`. A null or empty `subKey` opens `key` once more. `options` is not used.
/// Asking for a right to write where the store can't be written gives ERROR_ACCESS_DENIED; `result` is then,
/// as on any failure, null.
LSTATUS RegOpenKeyExW(HKEY key, const wchar_t* subKey, DWORD options, REGSAM access, HKEY* result);

/// Opens a key, with all its levels made where they are missing. The rights of `key` itself don't matter.
/// `reserved`, `keyClass`, `options` and `security` are not used; `disposition` may be null.
LSTATUS RegCreateKeyExW(HKEY key, const wchar_t* subKey, DWORD reserved, wchar_t* keyClass, DWORD options,
                        REGSAM access, const void* security, HKEY* result, DWORD* disposition);

/// Reads a value; a null or empty name is the key's unnamed value. `size` holds the buffer's size in bytes and
/// gets the value's size, also with ERROR_MORE_DATA, which leaves the buffer as it was. Without `data` only
/// type and size are told. `type` may be null.
LSTATUS RegQueryValueExW(HKEY key, const wchar_t* name, DWORD* reserved, DWORD* type, BYTE* data, DWORD* size);

/// Writes a value of `size` bytes, over an older one of any type.
LSTATUS RegSetValueExW(HKEY key, const wchar_t* name, DWORD reserved, DWORD type, const BYTE* data, DWORD size);

LSTATUS RegDeleteValueW(HKEY key, const wchar_t* name);

/// Deletes a key with its values. ERROR_ACCESS_DENIED while it has keys below it.
LSTATUS RegDeleteKeyW(HKEY key, const wchar_t* subKey);

/// A predefined key closes without effect.
LSTATUS RegCloseKey(HKEY key);
