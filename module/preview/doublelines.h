// Double lines of a sample: where the two lines of an edge lie, and how they meet those of its neighbours.
#pragma once

#include "kd/ge/point3d.h"
#include "module/preview/sampleedges.h"

/// The line that is moved outwards first, and the one that is moved inwards. Both start as the single line.
struct DoubleLine {
    KdGePoint3d a1;
    KdGePoint3d b1;
    KdGePoint3d a2;
    KdGePoint3d b2;
};

/// Which edge of which of the sample's cells a line is.
struct EdgePlace {
    KdDb::GridLineType edge;
    int row;
    int column;
};

/// Moves the two lines apart and cuts or lengthens them to their neighbours. `right` and `down` are the directions
/// of the sample's columns and rows.
void correctDoubleLine(DoubleLine& line, const EdgePlace& place, const SampleEdges& edges, const KdGeVector3d& right,
                       const KdGeVector3d& down);
