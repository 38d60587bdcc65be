// How each class of entity turns itself into primitives: what the drawing functions share.
#pragma once

#include <vector>

#include "host/draw/looks.h"
#include "host/draw/primitives.h"
#include "host/text/layout.h"
#include "kd/ge/matrix3d.h"

class KdDbBlockTableRecord;

namespace kdhost::draw {

/// Where in the drawing an entity is met.
struct Context {
    const Options& options;
    BlockLooks block;
    std::vector<KdDbObjectId> blocks;  ///< being drawn, outermost first: none of them is entered again
};

/// Appends the entity's primitives.
void drawEntity(const KdDbEntity& entity, const Context& context, Primitives& out);
void drawTable(const KdDbEntity& entity, const Context& context, Primitives& out);

/// The entities of a block in its own coordinates; nothing for a block that is being drawn already.
Primitives primitivesOfBlock(KdDbObjectId block, const Context& context);

void transform(Primitives& primitives, const KdGeMatrix3d& matrix);

/// The place of a text: its anchor is one of nine places in its box.
struct TextPlace {
    KdGePoint3d anchor;
    KdGeVector3d right;  ///< both of length 1
    KdGeVector3d up;
    int horizontal = 0;  ///< 0 left, 1 centre, 2 right
    int vertical = 0;    ///< 0 top, 1 middle, 2 bottom
};

/// Columns and rows of the nine places that alignments and attachments number from 1.
constexpr int horizontalOf(int place) {
    return place < 1 || place > 9 ? 0 : (place - 1) % 3;
}
constexpr int verticalOf(int place) {
    return place < 1 || place > 9 ? 0 : (place - 1) / 3;
}

/// `color` is that of the text as a whole; `looks` tell what the colours of single characters come to.
void drawText(const text::Layout& layout, const TextPlace& place, const Color& color, const Looks& looks,
              Primitives& out);

}  // namespace kdhost::draw
