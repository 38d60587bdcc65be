// A block of rows, as tables keep them.
#pragma once

#include <cstddef>

#include "host/db/tablecell.h"

namespace kdhost {

/// Rows side by side, their parts apart: whoever asks for formats row after row runs through little memory, and a state
/// in which only formats differ shares the bodies with the one before.
struct RowBlock {
    SharedArray<RowLooks> looks;
    SharedArray<RowMeasures> measures;  ///< as many as looks
    SharedArray<RowBody> bodies;        ///< as many as looks

    std::size_t size() const { return looks.size(); }
    /// Whether the row is the same as one of another block by sharing.
    bool sharesRow(std::size_t place, const RowBlock& other, std::size_t otherPlace) const;

    /// Inserts copies of one row; they share its cells until written.
    void insert(std::size_t at, std::size_t count, const TableRow& row);
    /// Rows of a block, from `first` up to `behind`.
    struct Part {
        const RowBlock& block;
        std::size_t first;
        std::size_t behind;
    };
    /// The rows of both.
    static RowBlock joined(const Part& upper, const Part& lower);
};

}  // namespace kdhost
