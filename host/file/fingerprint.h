// A number that tells whether tags say the same as before: over their values, as bits, handles left out. However
// another program writes a number, it counts alike.
#pragma once

#include <cstdint>
#include <vector>

#include "host/file/tags.h"

namespace kdhost::file {

class Fingerprint {
public:
    void add(const Tag& tag);
    void add(std::uint64_t number) { mix(number); }
    std::int64_t value() const { return static_cast<std::int64_t>(m_state); }

private:
    void mix(std::uint64_t number);

    std::uint64_t m_state = 0x9E3779B97F4A7C15;
};

}  // namespace kdhost::file
