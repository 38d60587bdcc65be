// Names of temporary files under their Win32 names, and the code of the last failure.
#pragma once

#include "win32/types.h"

/// The longest path that GetTempFileNameW gives, the ending zero included.
inline constexpr int KD_MAX_PATH = 260;

/// Why a function of this layer that tells so failed, as the platform numbers it; 0 after a success.
enum LastError : DWORD {
    LAST_NO_ERROR = 0,
    LAST_PATH_NOT_FOUND = 3,      ///< the folder isn't there
    LAST_ACCESS_DENIED = 5,       ///< the folder can't be written
    LAST_FILE_EXISTS = 80,        ///< every name is taken
    LAST_INVALID_PARAMETER = 87,  ///< a null where a text or place is needed
    LAST_BUFFER_OVERFLOW = 111,   ///< the name would be longer than KD_MAX_PATH
    LAST_INVALID_NAME = 123,      ///< the prefix holds a path separator
};
DWORD GetLastError();
void SetLastError(DWORD code);

/// A code of this layer as a status of the host. It has none for any of them and always gives 0.
int getKdadErrorFromWinErr(DWORD code);

/// Makes a file name in `folder` from the first three characters of `prefix`, four hexadecimal digits and
/// ".tmp". With `unique` 0 the name is a new one, and an empty file is made under it; else the digits are those
/// of `unique`, and nothing is made. `out` takes KD_MAX_PATH characters. Returns the number in the name; 0 on
/// failure, which GetLastError tells, with `out` as it was. A null prefix is an empty one.
UINT GetTempFileNameW(const wchar_t* folder, const wchar_t* prefix, UINT unique, wchar_t* out);
