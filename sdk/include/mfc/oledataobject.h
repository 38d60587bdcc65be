// COleDataObject: what lies on the clipboard, and what is put there, by format.
//
// Blocks go to and fro in a small record. Plain text is the exception: it comes as a block of global memory.
#pragma once

#include <cstddef>
#include <memory>

#include "win32/clipboard.h"
#include "win32/globalmem.h"

/// A block of clipboard memory. `data` is a block of GlobalAlloc, the record itself one of calloc. Nobody may
/// lock it while `locked` is 1.
struct KdClipboardMemory {
    void* data = nullptr;
    std::size_t size = 0;
    int locked = 0;
};

class COleDataObject {
public:
    COleDataObject();
    ~COleDataObject();
    COleDataObject(const COleDataObject&) = delete;
    COleDataObject& operator=(const COleDataObject&) = delete;

    /// Binds the object to the system clipboard. False when there is none.
    bool AttachClipboard();
    /// Lets go; the object is then as new.
    void Release();

    /// False, too, for an object that isn't attached.
    bool IsDataAvailable(CLIPFORMAT format) const;

    /// The clipboard's data in the format; null when there is none, or none of at least a byte.
    ///
    /// For the format "text/plain" this is a block of UTF-8 text with an ending zero, to be freed by the caller
    /// with GlobalFree. For any other format it is a KdClipboardMemory, unlocked, that belongs to this object;
    /// behind its `size` bytes lies a zero, wide enough to end any text.
    HGLOBAL GetGlobalData(CLIPFORMAT format) const;

    /// Puts the data of a KdClipboardMemory on the clipboard. What the object puts there first takes the
    /// place of all that was there; each further format joins it. The record and its data belong to the host
    /// from now on, and are freed. Nothing but that happens when the object isn't attached, the format is not
    /// registered or the data is null.
    void CacheGlobalData(CLIPFORMAT format, HGLOBAL memory);

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};
