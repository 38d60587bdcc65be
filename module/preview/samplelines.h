// The grid lines of a sample, gathered while its cells are made: they come last in its block, above fills and texts.
#pragma once

#include <memory>
#include <vector>

#include "module/preview/doublelines.h"
#include "module/preview/sampleblock.h"

class KdDbLine;

class SampleLines {
public:
    /// Both must outlive this object.
    SampleLines(const SampleEdges& edges, const SampleGrid& grid);
    ~SampleLines();
    SampleLines(const SampleLines&) = delete;
    SampleLines& operator=(const SampleLines&) = delete;

    const SampleEdges& edges() const { return m_edges; }

    /// One line from `start` on, as long as a cell, or a double line. It looks as the edge `looks` does.
    void add(const EdgePlace& place, KdDb::GridLineType looks, bool isDouble, const KdGePoint3d& start);
    /// The same for an edge that has its own style and looks.
    void add(const EdgePlace& place, const KdGePoint3d& start);

    /// Puts all lines into the block.
    void appendTo(KdDbBlockTableRecord& block);

private:
    void addLine(const KdGePoint3d& start, const KdGePoint3d& end, KdDb::GridLineType looks);
    void dress(KdDbLine& line, KdDb::GridLineType looks) const;

    const SampleEdges& m_edges;
    const SampleGrid& m_grid;
    std::vector<std::unique_ptr<KdDbLine>> m_lines;
};
