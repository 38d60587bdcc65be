// Module handles and the texts of resource modules, under their Win32 names.
#pragma once

struct KdModule;
/// A loaded module. Opaque; null means none.
using HINSTANCE = KdModule*;
using HMODULE = HINSTANCE;

/// Loads a resource module by file name, from the folder of plug-ins. Null when there is none. A module
/// loaded twice gives one handle, to be freed as often.
HINSTANCE LoadResourceDll(const wchar_t* name);
/// Non-zero on success; 0 for null or a handle that isn't loaded.
int FreeLibrary(HINSTANCE module);

/// Loads text `number` in the host's language into a buffer of `length` wide characters, cut to fit and
/// always ended by a zero. Returns the number of characters, 0 when there is no such text; the buffer is
/// then left as it was.
int LoadStringW(HINSTANCE module, unsigned number, wchar_t* buffer, int length);

/// Fills the buffer (1024 wide characters) with the product's prefix for file names. Non-zero when the
/// product has one; this host's has none.
int GetKdadProductPreName(wchar_t* buffer);
