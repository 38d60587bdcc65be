// Blocks of clipboard memory, in the record by which they are handed to the host and come from it. A block is locked
// by one at a time: by its writer until it is filled, by each reader while it reads.
#pragma once

#include <cstddef>
#include <string>

#include "mfc/oledataobject.h"

/// Wraps a block of GlobalAlloc in a record of calloc, locked. Null for null data and without memory.
KdClipboardMemory* InitMem(void* data, std::size_t size);
/// Locks the block and gives its data; null for a null record and for one that is locked.
void* TableGlobalLock(KdClipboardMemory* record);
/// 0 for a null record, else 1.
int TableGlobalUnlock(KdClipboardMemory* record);

/// Puts a copy of the bytes on the clipboard. False without memory, and when the clipboard hasn't got it afterwards.
bool putOnClipboard(COleDataObject& object, CLIPFORMAT format, const void* bytes, std::size_t size);

/// Copies the first `size` bytes that the clipboard holds in the format. False, with `bytes` as it was, when it holds
/// none or fewer: other programs may have put anything there.
bool readFromClipboard(const COleDataObject& object, CLIPFORMAT format, void* bytes, std::size_t size);
/// The wide text up to its zero, or as far as the block goes. False, with `text` as it was, without data.
bool readFromClipboard(const COleDataObject& object, CLIPFORMAT format, std::wstring& text);
