// Single and double grid lines of a sample, and their looks.

#include "module/preview/samplelines.h"

#include "kd/db/line.h"

namespace {

constexpr int kInvisibleEdgeColor = 8;  ///< a grey

bool isHorizontal(KdDb::GridLineType edge) {
    return edge == KdDb::kHorzTop || edge == KdDb::kHorzInside || edge == KdDb::kHorzBottom;
}

}  // namespace

SampleLines::SampleLines(const SampleEdges& edges, const SampleGrid& grid) : m_edges(edges), m_grid(grid) {}

SampleLines::~SampleLines() = default;

void SampleLines::add(const EdgePlace& place, KdDb::GridLineType looks, bool isDouble, const KdGePoint3d& start) {
    const KdGePoint3d end = start + (isHorizontal(place.edge) ? m_grid.columnStep() : m_grid.rowStep());
    if (!isDouble) {
        addLine(start, end, looks);
        return;
    }
    DoubleLine line{.a1 = start, .b1 = end, .a2 = start, .b2 = end};
    correctDoubleLine(line, place, m_edges, m_grid.right, m_grid.down);
    addLine(line.a1, line.b1, looks);
    addLine(line.a2, line.b2, looks);
}

void SampleLines::add(const EdgePlace& place, const KdGePoint3d& start) {
    add(place, place.edge, m_edges.isDouble(place.edge), start);
}

void SampleLines::appendTo(KdDbBlockTableRecord& block) {
    for (std::unique_ptr<KdDbLine>& line : m_lines) appendToSample(block, std::move(line));
}

void SampleLines::addLine(const KdGePoint3d& start, const KdGePoint3d& end, KdDb::GridLineType looks) {
    m_lines.push_back(std::make_unique<KdDbLine>(start, end));
    dress(*m_lines.back(), looks);
}

/// Invisible edges are shown grey and thin, not left out.
void SampleLines::dress(KdDbLine& line, KdDb::GridLineType looks) const {
    line.setLinetype(m_edges.linetype(looks));
    line.setLineWeight(m_edges.lineWeight(looks));
    line.setColor(m_edges.color(looks));
    if (m_edges.isVisible(looks)) return;
    line.setLayer(m_grid.invisibleLayer);
    line.setColor(KdCmColor::fromIndex(kInvisibleEdgeColor));
    line.setLineWeight(KdDb::kLnWt000);
}
