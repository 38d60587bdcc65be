// Rows that come and go in a block.

#include "host/db/rowblock.h"

namespace kdhost {

bool RowBlock::sharesRow(std::size_t place, const RowBlock& other, std::size_t otherPlace) const {
    if (!looks[place].shares(other.looks[otherPlace])) return false;
    const RowBody& a = bodies[place];
    const RowBody& b = other.bodies[otherPlace];
    return a.contents.shares(b.contents) && a.links.shares(b.links) && a.style == b.style && a.height == b.height;
}

void RowBlock::insert(std::size_t at, std::size_t count, const TableRow& row) {
    looks.insert(at, count, row.looks);
    measures.insert(at, count, {});
    bodies.insert(at, count, row);
}

RowBlock RowBlock::joined(const Part& upper, const Part& lower) {
    const auto join = [&](auto RowBlock::*elements) {
        using Elements = std::remove_reference_t<decltype(upper.block.*elements)>;
        const auto of = [&](const Part& part) {
            return std::span((part.block.*elements).begin() + part.first, part.behind - part.first);
        };
        return Elements::joined({of(upper), of(lower)});
    };
    return {join(&RowBlock::looks), join(&RowBlock::measures), join(&RowBlock::bodies)};
}

}  // namespace kdhost
