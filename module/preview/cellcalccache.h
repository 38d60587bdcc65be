// What measuring one cell of a sample gives.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "kd/db/mtext.h"
#include "kd/ge/vector3d.h"

/// A cell that wasn't measured holds the values as they stand here.
struct VqTableCellCalcCache {
    std::uint8_t used = 0;  ///< part of the record; the samples don't read it
    double height = 0.0;    ///< that the text needs
    double width = 0.0;     ///< that the text needs
    double ratio = 1.0;     ///< part of the record; the samples don't read it
    /// The text as it was measured, until the block of the sample takes it over.
    std::unique_ptr<KdDbMText> entity;
    KdGeVector3d offset;  ///< of the text's location from the cell's first corner, in the plane of the table
};

/// `cache[row][column]`.
using VqTableCellCalcCaches = std::vector<std::vector<VqTableCellCalcCache>>;
