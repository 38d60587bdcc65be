// Where shared values lie.

#include "host/db/tablecow.h"

#include <memory_resource>
#include <utility>

namespace kdhost {
namespace {

NodeMemory memory;

/// The heap, counted.
class Heap : public std::pmr::memory_resource {
    void* do_allocate(std::size_t size, std::size_t alignment) override {
        memory.taken += size;
        return std::pmr::new_delete_resource()->allocate(size, alignment);
    }
    void do_deallocate(void* block, std::size_t size, std::size_t alignment) override {
        memory.taken -= size;
        std::pmr::new_delete_resource()->deallocate(block, size, alignment);
    }
    bool do_is_equal(const std::pmr::memory_resource& other) const noexcept override { return this == &other; }
};

// Never freed: there are values that live as long as the program and go after whatever else does.
Heap& heap() {
    static auto* const kept = new Heap();
    return *kept;
}

#ifdef __SANITIZE_ADDRESS__
constexpr bool kKeepsNodes = false;  // the sanitizer is to see each node by itself
#else
constexpr bool kKeepsNodes = true;
#endif

/// Larger ones aren't worth the pool's roundings, and among its own ones it would look for them one by one.
constexpr std::size_t kLargestInPool = 128;

std::pmr::memory_resource& pool() {
    // Its pieces of the heap double up to this bound. It looks through full ones for each node, so that there had
    // better be few.
    static constexpr std::pmr::pool_options kFewPieces{1 << 20, kLargestInPool};
    static auto* const kept = new std::pmr::unsynchronized_pool_resource(kFewPieces, &heap());
    return *kept;
}

std::pmr::memory_resource& resourceFor(std::size_t size) {
    return kKeepsNodes && size <= kLargestInPool ? pool() : heap();
}

/// The node freed last, which the next one of its size takes: a walk often makes one only to find that it isn't needed.
struct Spare {
    void* node = nullptr;
    std::size_t size = 0;
} spare;

}  // namespace

void* allocateNode(std::size_t size) {
    void* const node = spare.size == size ? std::exchange(spare, {}).node : resourceFor(size).allocate(size);
    memory.inUse += size;
    return node;
}

void freeNode(void* node, std::size_t size) {
    memory.inUse -= size;
    if (kKeepsNodes && spare.node == nullptr) {
        spare = {node, size};
    } else {
        resourceFor(size).deallocate(node, size);
    }
}

NodeMemory nodeMemory() {
    return memory;
}

}  // namespace kdhost
