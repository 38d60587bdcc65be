// Which rows and columns of a table are drawn.

#include "host/draw/tablestrips.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kdhost::draw {
namespace {

/// Rows and columns narrower than this, in pixels, are drawn together.
constexpr double kNarrowest = 2.0;

/// What is drawn beyond the border of the view: texts and double lines reach over the edges of their cells.
constexpr int kRowsBeyond = 1;
constexpr int kColumnsBeyond = 2;

constexpr double kFlat = 1e-9;

/// A stretch along the rows, or from row to row, from the table's position.
struct Stretch {
    double from = std::numeric_limits<double>::max();
    double to = std::numeric_limits<double>::lowest();

    void add(double place) {
        from = std::min(from, place);
        to = std::max(to, place);
    }
};

std::vector<Strip> oneByOne(int count) {
    std::vector<Strip> strips;
    strips.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) strips.push_back({index, index});
    return strips;
}

/// Edges lie in rising order; the first is that of the first row or column.
std::vector<Strip> seenStrips(const std::vector<double>& edges, const Stretch& seen, double narrowest, int beyond) {
    const int count = static_cast<int>(edges.size()) - 1;
    if (count <= 0 || seen.to < edges.front() || seen.from > edges.back()) return {};
    const auto lineAfter = [&](double place) {
        return static_cast<int>(std::upper_bound(edges.begin(), edges.end(), place) - edges.begin());
    };
    const int first = std::max(lineAfter(seen.from) - 1 - beyond, 0);
    const int end = std::min(lineAfter(seen.to) + beyond, count);
    std::vector<Strip> strips;
    for (int row = first; row < end;) {
        const double wanted = edges[static_cast<std::size_t>(row)] + narrowest;
        const int next = static_cast<int>(std::lower_bound(edges.begin() + row, edges.end(), wanted) - edges.begin());
        const int last = std::clamp(next - 1, row, count - 1);
        strips.push_back({row, last});
        row = last + 1;
    }
    return strips;
}

}  // namespace

TableStrips stripsOf(const TableGeometry& geometry, const std::optional<Visible>& visible) {
    const bool isFlat = std::abs(std::abs(geometry.normal().z) - 1.0) < kFlat;
    if (!visible || !isFlat) return {Strips(oneByOne(geometry.rows())), Strips(oneByOne(geometry.columns()))};
    Stretch along;
    Stretch down;
    const KdGePoint3d origin = geometry.at(0.0, 0.0);
    for (const double x : {visible->left, visible->right}) {
        for (const double y : {visible->bottom, visible->top}) {
            const KdGeVector3d place = KdGePoint3d(x, y, origin.z) - origin;
            along.add(place.dotProduct(geometry.right()));
            down.add(place.dotProduct(geometry.next()));
        }
    }
    const double narrowest = kNarrowest * visible->unitsPerPixel;
    return {Strips(seenStrips(geometry.rowEdges(), down, narrowest, kRowsBeyond)),
            Strips(seenStrips(geometry.columnEdges(), along, narrowest, kColumnsBeyond))};
}

}  // namespace kdhost::draw
