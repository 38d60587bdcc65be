// What all samples have in common: a drawing of their own, with a block for the sample and a reference to it.
#pragma once

#include <memory>

#include "kd/db/objectid.h"
#include "kd/ge/point3d.h"
#include "kd/ge/vector3d.h"

class KdDbBlockReference;
class KdDbBlockTableRecord;
class KdDbDatabase;
class KdDbEntity;
struct VqTableCellCalcCache;

/// Size and directions of a sample's cells.
struct SampleGrid {
    double rowHeight = 0.0;
    double columnWidth = 0.0;
    KdGeVector3d down;            ///< from one row to the next, length 1
    KdGeVector3d right;           ///< from one column to the next, length 1
    KdDbObjectId invisibleLayer;  ///< where invisible lines lie
    double rotation = 0.0;        ///< of the plane's direction, radians

    KdGeVector3d columnStep() const { return columnWidth * right; }
    KdGeVector3d rowStep() const { return rowHeight * down; }
};

/// A reference in memory that belongs to the sample's drawing. The grid gets its directions for a table that grows so,
/// and its layer; its sizes stay.
std::unique_ptr<KdDbBlockReference> startSample(KdDbDatabase& database, int flowDirection, SampleGrid& grid);

struct CloseBlock {
    void operator()(KdDbBlockTableRecord* block) const;
};
/// A block of the drawing that is open for write, closed at the end of the scope.
using SampleBlock = std::unique_ptr<KdDbBlockTableRecord, CloseBlock>;

/// A new anonymous block in the drawing. Null when it can't be added.
SampleBlock addSampleBlock(KdDbDatabase& database);

/// Puts the entity at the end of the block, and closes it. One that the block refuses is gone.
void appendToSample(KdDbBlockTableRecord& block, std::unique_ptr<KdDbEntity> entity);

/// Puts the text of a cell into the block. Nothing happens to a cell without one.
void appendCellText(KdDbBlockTableRecord& block, VqTableCellCalcCache& cell, const KdGePoint3d& cellOrigin,
                    double rotation);

/// Makes the reference show the block in the plane of the drawing's user coordinates. What is in the block is
/// transformed the other way, so that it shows where it was laid out.
void placeSample(KdDbBlockReference& reference, KdDbBlockTableRecord& block, const KdDbDatabase& database);
