// The model's rules that both samples share: where the two lines of a double line lie, and how a line is dressed.
#pragma once

#include <array>

#include "tests/module/preview/celllook.h"
#include "tests/module/preview/samplepicture.h"

namespace kdtest::preview {

/// A place in the sample: along the rows, and from row to row.
struct GridPoint {
    double right = 0.0;
    double down = 0.0;
};

struct GridLine {
    GridPoint from;
    GridPoint to;
};

/// By EdgeName.
using HalfSpacings = std::array<double, kEdgeCount>;

/// The two lines that stand for one at that place of the cell.
std::array<GridLine, 2> doubled(EdgeName place, int row, int column, const GridLine& line, const HalfSpacings& half);

/// A line with the looks of an edge: one that is invisible is grey, thin and on the layer of the screen alone.
Line dressed(const KdGePoint3d& from, const KdGePoint3d& to, const Edge& edge);

}  // namespace kdtest::preview
