// Seeded chance: the same seed gives the same run on every machine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

namespace kdtest {

class Random {
public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}

    /// 0 to `limit` - 1; `limit` is positive. The distributions of the library differ between machines.
    int below(int limit) { return static_cast<int>(m_engine() % static_cast<std::uint64_t>(limit)); }
    int between(int least, int most) { return least + below(most - least + 1); }
    bool oneIn(int n) { return below(n) == 0; }
    bool chance(int percent) { return below(100) < percent; }

    template <class List>
    const auto& oneOf(const List& list) {
        return std::data(list)[below(static_cast<int>(std::size(list)))];
    }
    std::wstring number(int least, int most) { return std::to_wstring(between(least, most)); }

private:
    std::mt19937_64 m_engine;
};

}  // namespace kdtest
