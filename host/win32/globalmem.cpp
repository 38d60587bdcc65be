// Global memory: each block is known by its address, so that a wrong handle is refused and never touched.

#include "win32/globalmem.h"

#include <cstring>
#include <memory>
#include <new>
#include <unordered_map>

#include "host/win32/clipboardformats.h"

namespace {

struct Block {
    std::unique_ptr<std::byte[]> bytes;
    std::size_t size = 0;
    int locks = 0;
};

using Blocks = std::unordered_map<HGLOBAL, Block>;

/// Never destroyed: modules may free their blocks in a finaliser.
Blocks& blocks() {
    static auto* const instance = new Blocks;
    return *instance;
}

Block* find(HGLOBAL memory) {
    const auto found = blocks().find(memory);
    return found == blocks().end() ? nullptr : &found->second;
}

}  // namespace

HGLOBAL GlobalAlloc(unsigned flags, std::size_t bytes) {
    if (kdhost::clipboardFaultStrikes()) return nullptr;
    Block block;
    block.size = bytes;
    block.bytes.reset(new (std::nothrow) std::byte[bytes == 0 ? 1 : bytes]);
    if (!block.bytes) return nullptr;
    if ((flags & GMEM_ZEROINIT) != 0) std::memset(block.bytes.get(), 0, bytes);
    HGLOBAL memory = block.bytes.get();
    blocks().emplace(memory, std::move(block));
    return memory;
}

void* GlobalLock(HGLOBAL memory) {
    if (kdhost::clipboardFaultStrikes()) return nullptr;
    Block* block = find(memory);
    if (block == nullptr) return nullptr;
    ++block->locks;
    return block->bytes.get();
}

int GlobalUnlock(HGLOBAL memory) {
    Block* block = find(memory);
    if (block == nullptr || block->locks == 0) return 0;
    return --block->locks > 0 ? 1 : 0;
}

std::size_t GlobalSize(HGLOBAL memory) {
    const Block* block = find(memory);
    return block == nullptr ? 0 : block->size;
}

HGLOBAL GlobalFree(HGLOBAL memory) {
    return blocks().erase(memory) > 0 ? nullptr : memory;
}
