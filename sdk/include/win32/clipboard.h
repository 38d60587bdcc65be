// Clipboard formats under their Win32 names. Each registered format is a MIME type of its own on the system
// clipboard, so that running programs exchange it.
#pragma once

#include "win32/types.h"

using CLIPFORMAT = WORD;

/// The number of the format of that name, the same each time in this process; names are compared without regard
/// to case. From 0xC000 upward; 0 for a null or empty name, and when all numbers are given out.
UINT RegisterClipboardFormatW(const wchar_t* name);
/// Copies the name that the format was first registered with, cut to `length` with its ending zero. Returns the
/// number of characters; 0 for a number that isn't registered.
int GetClipboardFormatNameW(UINT format, wchar_t* name, int length);
/// Non-zero when the clipboard holds data in the format.
int IsClipboardFormatAvailable(UINT format);
