// Where shared values lie.

#include "host/db/tablecow.h"

#include <array>
#include <new>
#include <utility>

namespace kdhost {
namespace {

NodeMemory memory;

void* takeFromHeap(std::size_t size) {
    void* const taken = ::operator new(size);
    memory.taken += size;
    return taken;
}

#ifdef __SANITIZE_ADDRESS__
constexpr std::size_t kLargestKept = 0;  // the sanitizer is to see each node by itself
#else
constexpr std::size_t kLargestKept = 128;  // what is larger isn't worth the rounding
#endif
constexpr std::size_t kStep = 16;
constexpr std::size_t kPiece = 64 * 1024;

/// The nodes of one size: a list of free ones, the one freed last taken first, and a piece of the heap that isn't cut
/// yet. Taking and giving back are a few instructions each, however many there are; the pools of the library look
/// through their pieces. Nothing goes back to the heap: there are values that live as long as the program.
class Shelf {
public:
    void* take(std::size_t size) {
        if (m_free != nullptr) return std::exchange(m_free, m_free->next);
        if (m_left < size) {
            m_uncut = static_cast<char*>(takeFromHeap(kPiece));
            m_left = kPiece;
        }
        m_left -= size;
        return std::exchange(m_uncut, m_uncut + size);
    }
    void giveBack(void* node) { m_free = new (node) Free{m_free}; }

private:
    struct Free {
        Free* next;
    };
    Free* m_free = nullptr;
    char* m_uncut = nullptr;
    std::size_t m_left = 0;
};

std::array<Shelf, kLargestKept / kStep + 1> shelves;

}  // namespace

void* allocateNode(std::size_t size) {
    const std::size_t place = (size + kStep - 1) / kStep;
    void* const node = place < shelves.size() ? shelves[place].take(place * kStep) : takeFromHeap(size);
    memory.inUse += size;
    return node;
}

void freeNode(void* node, std::size_t size) {
    memory.inUse -= size;
    const std::size_t place = (size + kStep - 1) / kStep;
    if (place < shelves.size()) {
        shelves[place].giveBack(node);
    } else {
        ::operator delete(node);
        memory.taken -= size;
    }
}

NodeMemory nodeMemory() {
    return memory;
}

}  // namespace kdhost
