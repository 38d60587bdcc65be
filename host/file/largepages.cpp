// Large pages, where the system has them.

#include "host/file/largepages.h"

#include <sys/mman.h>

#include <cstdint>

namespace kdhost::file {
namespace {

constexpr std::uintptr_t kSmallPage = 4096;
constexpr std::size_t kWorthIt = std::size_t{4} << 20;

}  // namespace

void askForLargePages(void* at, std::size_t size) {
    if (size < kWorthIt) return;
    // The pages that lie inside as a whole. A refusal costs nothing but time.
    const std::uintptr_t first = (reinterpret_cast<std::uintptr_t>(at) + kSmallPage - 1) & ~(kSmallPage - 1);
    const std::uintptr_t behind = (reinterpret_cast<std::uintptr_t>(at) + size) & ~(kSmallPage - 1);
    ::madvise(reinterpret_cast<void*>(first), behind - first, MADV_HUGEPAGE);
}

}  // namespace kdhost::file
