// Memory for whole files.
#pragma once

#include <cstddef>

namespace kdhost::file {

/// Tells the system that all of this fresh memory is about to be filled, so that it may come in few large pages: else a
/// large drawing spends a quarter of its opening on getting small ones. Does nothing for what is small.
void askForLargePages(void* at, std::size_t size);

}  // namespace kdhost::file
