// Colours, line weights and line types as they are drawn: what "by layer" and "by block" come to.
#pragma once

#include <optional>
#include <vector>

#include "host/draw/primitives.h"
#include "kd/db/color.h"
#include "kd/db/dbenums.h"
#include "kd/db/objectid.h"

namespace kdhost::draw {

/// The colour of characters that have one of their own.
KdCmColor colorOf(const text::Ink& ink);

/// What "by block" stands for inside a block or a table. The initial values are those outside of any.
struct BlockLooks {
    Color color{0, 0, 0, true};
    int lineWeight = 0;
    std::vector<double> dashes;
    KdDbObjectId layer;  ///< stands in for layer "0"; null outside of blocks
};

/// Resolves the looks of one entity, or of its parts.
class Looks {
public:
    Looks(const KdDbEntity& entity, BlockLooks block, const Options& options);

    /// Nothing for none().
    std::optional<Color> color(const KdCmColor& color) const;
    int lineWeight(KdDb::LineWeight weight) const;
    /// A null line type is by block.
    std::vector<double> dashes(KdDbObjectId linetype) const;

    /// Whether what the entity draws by itself lies on a layer that is plotted.
    bool isPlotted() const;

    /// The entity's own.
    Color color() const;
    int lineWeight() const;
    std::vector<double> dashes() const;

    /// What its parts get for "by block".
    BlockLooks forParts() const;

private:
    const KdDbEntity& m_entity;
    BlockLooks m_block;
    bool m_lineWeights;
    KdDbObjectId m_layer;
};

}  // namespace kdhost::draw
