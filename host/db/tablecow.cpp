// Where shared values lie.

#include "host/db/tablecow.h"

#include <memory_resource>

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

/// Never freed: there are values that live as long as the program and go after whatever else does.
std::pmr::memory_resource& pool() {
    static auto* const heap = new Heap();
#ifdef __SANITIZE_ADDRESS__
    return *heap;  // the sanitizer is to see each node by itself
#else
    static auto* const kept = new std::pmr::unsynchronized_pool_resource(heap);
    return *kept;
#endif
}

}  // namespace

void* allocateNode(std::size_t size) {
    memory.inUse += size;
    return pool().allocate(size);
}

void freeNode(void* node, std::size_t size) {
    memory.inUse -= size;
    pool().deallocate(node, size);
}

NodeMemory nodeMemory() {
    return memory;
}

}  // namespace kdhost
