// Which rows and columns of a table are drawn, so that a large table costs no more than what is seen of it.
#pragma once

#include <optional>
#include <vector>

#include "host/draw/primitives.h"
#include "host/draw/tablegeometry.h"

namespace kdhost::draw {

/// Neighbouring rows or columns that are drawn as one: a single one, or as many as fill a few pixels together.
struct Strip {
    int first = 0;
    int last = 0;

    bool isSingle() const { return first == last; }
};

/// The strips of one direction, without gaps between them.
class Strips {
public:
    Strips() = default;
    explicit Strips(std::vector<Strip> strips) : m_strips(std::move(strips)) {}

    bool isEmpty() const { return m_strips.empty(); }
    int count() const { return static_cast<int>(m_strips.size()); }
    const Strip& at(int index) const { return m_strips[static_cast<std::size_t>(index)]; }

    /// The row or column behind a grid line of the strips, which run from 0 to count().
    int behind(int line) const { return line < count() ? at(line).first : m_strips.back().last + 1; }
    /// Whether what begins at `start` and reaches to this strip is met here first.
    bool isFirstSince(int start, int index) const { return index == 0 || at(index - 1).first < start; }

private:
    std::vector<Strip> m_strips;
};

struct TableStrips {
    Strips rows;
    Strips columns;

    bool isEmpty() const { return rows.isEmpty() || columns.isEmpty(); }
};

/// All rows and columns one by one where `visible` is none, or the table doesn't lie in the plane of the view.
TableStrips stripsOf(const TableGeometry& geometry, const std::optional<Visible>& visible);

}  // namespace kdhost::draw
