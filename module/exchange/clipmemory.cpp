// Blocks of clipboard memory: made, locked, put there and read.

#include "module/exchange/clipmemory.h"

#include <cstdlib>
#include <cstring>

namespace {

/// The record of a block that the clipboard holds, locked while this lives.
class LockedBlock {
public:
    LockedBlock(const COleDataObject& object, CLIPFORMAT format)
        : m_record(static_cast<KdClipboardMemory*>(object.GetGlobalData(format))), m_data(TableGlobalLock(m_record)) {}
    ~LockedBlock() {
        if (m_data != nullptr) TableGlobalUnlock(m_record);
    }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;

    /// Null when there is none.
    const void* data() const { return m_data; }
    std::size_t size() const { return m_record->size; }

private:
    KdClipboardMemory* m_record;  ///< the data object's
    const void* m_data;
};

}  // namespace

KdClipboardMemory* InitMem(void* data, std::size_t size) {
    if (data == nullptr) return nullptr;
    auto* record = static_cast<KdClipboardMemory*>(std::calloc(1, sizeof(KdClipboardMemory)));
    if (record == nullptr) return nullptr;
    record->data = data;
    record->size = size;
    record->locked = 1;
    return record;
}

void* TableGlobalLock(KdClipboardMemory* record) {
    if (record == nullptr || record->locked != 0) return nullptr;
    record->locked = 1;
    return record->data;
}

int TableGlobalUnlock(KdClipboardMemory* record) {
    if (record == nullptr) return 0;
    record->locked = 0;
    return 1;
}

bool putOnClipboard(COleDataObject& object, CLIPFORMAT format, const void* bytes, std::size_t size) {
    constexpr unsigned kMovableAndShared = 8194;
    HGLOBAL block = GlobalAlloc(kMovableAndShared, size);
    KdClipboardMemory* record = InitMem(block, size);
    if (record == nullptr) {
        GlobalFree(block);
        return false;
    }
    std::memcpy(block, bytes, size);
    TableGlobalUnlock(record);
    object.CacheGlobalData(format, record);
    return object.IsDataAvailable(format);
}

bool readFromClipboard(const COleDataObject& object, CLIPFORMAT format, void* bytes, std::size_t size) {
    const LockedBlock block(object, format);
    if (block.data() == nullptr || block.size() < size) return false;
    std::memcpy(bytes, block.data(), size);
    return true;
}

bool readFromClipboard(const COleDataObject& object, CLIPFORMAT format, std::wstring& text) {
    const LockedBlock block(object, format);
    if (block.data() == nullptr) return false;
    const auto* characters = static_cast<const wchar_t*>(block.data());
    text.assign(characters, wcsnlen(characters, block.size() / sizeof(wchar_t)));
    return true;
}
