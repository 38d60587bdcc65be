// Global memory under its Win32 names: blocks that cross the border between module and host, as the clipboard's.
#pragma once

#include <cstddef>

/// A block of memory. The handle is the block's address, also of a movable one: blocks never move.
using HGLOBAL = void*;

/// Bits of GlobalAlloc; the others have no effect.
enum GlobalMemoryFlag : unsigned { GMEM_FIXED = 0x0000, GMEM_MOVEABLE = 0x0002, GMEM_ZEROINIT = 0x0040 };

/// Null when there is no memory. A block of 0 bytes is a block all the same.
HGLOBAL GlobalAlloc(unsigned flags, std::size_t bytes);
/// The block's address, held until as many calls of GlobalUnlock; null for what is no block.
void* GlobalLock(HGLOBAL memory);
/// Non-zero while the block is still locked by others; 0 when it no longer is, and for what is no block.
int GlobalUnlock(HGLOBAL memory);
/// The bytes asked for; 0 for what is no block.
std::size_t GlobalSize(HGLOBAL memory);
/// Null when the block was freed, locked or not; the handle itself for what is no block.
HGLOBAL GlobalFree(HGLOBAL memory);
