// Overrides of whole tables.

#include "host/file/wholetable.h"

#include "host/file/checked.h"

namespace kdhost::file {
namespace {

namespace prop = kdhost::property;

/// The bit of the title's value, which those of header and data follow.
struct RowCode {
    int code;
    std::int64_t firstBit;
};
constexpr RowCode kCodes[] = {{64, 0x20}, {283, 0x100}, {63, 0x800}, {170, 0x4000}, {7, 0x20000}, {140, 0x100000}};

/// The codes that the values of one mask have. Colours of edges share some with those of texts and fills, which stand
/// before them.
struct EdgeCodes {
    int first;
    int last;
};
constexpr EdgeCodes kCodesOfEdges[] = {{63, 69}, {274, 279}, {284, 289}};
enum Mask : int { kColors, kWeights, kVisibilities };
constexpr int kFirstMask = 94;

/// An edge of a cell, and what it is between rows or columns of one kind; places in kEdges.
struct EdgeSource {
    int outer;
    int inside;
};
constexpr EdgeSource kEdgeSources[] = {{0, 1}, {2, 1}, {3, 4}, {5, 4}};

void takeEdge(FormatOverrides& own, int edge, const FormatOverrides& all, int from) {
    const auto take = [&](const auto& family) {
        const auto source = family.at(from);
        const auto target = family.at(edge);
        if ((all.own & source.bit) == 0) return;
        own.own |= target.bit;
        target.in(own.format) = source.in(all.format);
    };
    take(prop::lineColor);
    take(prop::weight);
    take(prop::visibility);
}

}  // namespace

void WholeTable::takeHead(const Tag& tag) {
    static_assert(std::size(kCodes) == kRowCodes && std::size(kCodesOfEdges) == kEdgeMasks);
    static_assert(std::size(kEdgeSources) == kOuterEdges);
    if (tag.code == 93) m_overrides = asked(integerOf(tag));
    if (tag.code >= kFirstMask && tag.code < kFirstMask + kEdgeMasks) {
        m_edgeMasks[tag.code - kFirstMask] = asked(integerOf(tag));
    }
}

void WholeTable::takeTail(const Tag& tag) {
    if (tag.code == 40 && (m_overrides & 0x08) != 0) setMargin(prop::marginHorz, size(tag));
    if (tag.code == 41 && (m_overrides & 0x10) != 0) setMargin(prop::marginVert, size(tag));
    for (const RowCode& each : kCodes) {
        if (tag.code != each.code) continue;
        int& place = m_rowPlaces[&each - kCodes];
        while (place < kRowKinds && (m_overrides & (each.firstBit << place)) == 0) ++place;
        if (place < kRowKinds) return m_looks[place++].take(m_context, tag, ~std::int64_t{0});
    }
    for (int mask = 0; mask < kEdgeMasks; ++mask) takeForEdges(tag, mask);
}

/// The values of one mask stand in the order of its bits, six for each kind of row.
void WholeTable::takeForEdges(const Tag& tag, int mask) {
    if (tag.code < kCodesOfEdges[mask].first || tag.code > kCodesOfEdges[mask].last) return;
    int& place = m_edgePlaces[mask];
    while (place < kRowKinds * kEdgeCount && (m_edgeMasks[mask] >> place & 1) == 0) ++place;
    if (place == kRowKinds * kEdgeCount) return;
    FormatOverrides& row = m_edges[place / kEdgeCount];
    const int edge = place++ % kEdgeCount;
    const auto set = [&](const auto& which, const auto& value) {
        row.own |= which.bit;
        which.in(row.format) = value;
    };
    if (mask == kColors) set(prop::lineColor.at(edge), indexedColor(tag));
    if (mask == kWeights) set(prop::weight.at(edge), lineWeight(tag));
    if (mask == kVisibilities) set(prop::visibility.at(edge), file::visibility(tag));
}

void WholeTable::setMargin(const FormatProperty<double>& which, double margin) {
    for (ReadOverrides& each : m_looks) each.set(which, margin);
}

void WholeTable::giveTo(std::vector<TableRow>& rows) {
    for (ReadOverrides& each : m_looks) each.finish();
    for (std::size_t row = 0; row < rows.size(); ++row) {
        giveLooks(rows[row]);
        giveEdges(rows, row);
    }
}

void WholeTable::give(CellLook& cell, const CopyOnWrite<FormatOverrides>& overrides) {
    if (cell.overrides) {
        addOverrides(cell, *overrides);
    } else {
        cell.overrides = overrides;
    }
}

void WholeTable::giveLooks(TableRow& row) {
    const FormatOverrides& looks = m_looks[row.style].overrides;
    if (looks.own == 0) return;
    CopyOnWrite<FormatOverrides>& shared = m_sharedLooks[row.style];
    if (!shared) shared = CopyOnWrite<FormatOverrides>(looks);
    for (CellLook& cell : row.looks.write()) give(cell, shared);
}

/// Outer edges lie where rows of a kind begin and end, and at the table's sides.
void WholeTable::giveEdges(std::vector<TableRow>& rows, std::size_t row) {
    const std::uint16_t kind = rows[row].style;
    if (m_edges[kind].own == 0) return;
    const bool isFirst = row == 0 || rows[row - 1].style != kind;
    const bool isLast = row + 1 == rows.size() || rows[row + 1].style != kind;
    const std::span<CellLook> cells = rows[row].looks.write();
    for (std::size_t column = 0; column < cells.size(); ++column) {
        const bool isOuter[] = {isFirst, isLast, column == 0, column + 1 == cells.size()};
        unsigned outer = 0;
        for (int edge = 0; edge < kOuterEdges; ++edge) outer |= isOuter[edge] ? 1U << edge : 0U;
        const CopyOnWrite<FormatOverrides>& edges = edgesOf(kind, outer);
        if (edges->own != 0) give(cells[column], edges);
    }
}

const CopyOnWrite<FormatOverrides>& WholeTable::edgesOf(std::uint16_t kind, unsigned outer) {
    CopyOnWrite<FormatOverrides>& shared = m_sharedEdges[kind][outer];
    if (shared) return shared;
    FormatOverrides& own = shared.write();
    for (int edge = 0; edge < kOuterEdges; ++edge) {
        const EdgeSource& source = kEdgeSources[edge];
        takeEdge(own, source.outer, m_edges[kind], (outer >> edge & 1U) != 0 ? source.outer : source.inside);
    }
    return shared;
}

}  // namespace kdhost::file
