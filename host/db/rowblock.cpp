// Rows that come and go in a block.

#include "host/db/rowblock.h"

namespace kdhost {
namespace {

template <class T>
std::span<const T> part(const SharedArray<T>& all, std::size_t first, std::size_t behind) {
    return {all.begin() + first, behind - first};
}

}  // namespace

bool RowBlock::sharesRow(std::size_t place, const RowBlock& other, std::size_t otherPlace) const {
    if (!fronts[place].looks.shares(other.fronts[otherPlace].looks)) return false;
    const RowBody& a = bodies[place];
    const RowBody& b = other.bodies[otherPlace];
    return a.contents.shares(b.contents) && a.links.shares(b.links) && a.style == b.style && a.height == b.height;
}

void RowBlock::insert(std::size_t at, std::size_t count, const TableRow& row) {
    fronts.insert(at, count, {row.looks, {}});
    bodies.insert(at, count, row);
}

RowBlock RowBlock::joined(const RowBlock& block, std::size_t first, std::size_t behind, const RowBlock& other,
                          std::size_t otherFirst, std::size_t otherBehind) {
    const auto join = [&](const auto& a, const auto& b) {
        return std::decay_t<decltype(a)>::joined(
            {kdhost::part(a, first, behind), kdhost::part(b, otherFirst, otherBehind)});
    };
    return {join(block.fronts, other.fronts), join(block.bodies, other.bodies)};
}

}  // namespace kdhost
