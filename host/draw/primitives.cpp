// Entities to primitives: the dispatch by class, and the simple classes.

#include "host/draw/primitives.h"

#include <algorithm>
#include <memory>

#include "host/db/access.h"
#include "host/db/textstyle.h"
#include "host/draw/entitydrawing.h"
#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
#include "kd/db/symboltable.h"
#include "kd/db/table.h"

namespace kdhost::draw {
namespace {

void drawLine(const KdDbEntity& entity, const Context& context, Primitives& out) {
    const auto& line = static_cast<const KdDbLine&>(entity);
    const Looks looks(entity, context.block, context.options);
    out.push_back(Polyline{{line.startPoint(), line.endPoint()}, looks.color(), looks.lineWeight(), looks.dashes()});
}

void drawSolid(const KdDbEntity& entity, const Context& context, Primitives& out) {
    const auto& solid = static_cast<const KdDbSolid&>(entity);
    Polygon polygon{{}, Looks(entity, context.block, context.options).color()};
    // The corners run in a zig-zag, the polygon around.
    for (const int index : {0, 1, 3, 2}) {
        KdGePoint3d point;
        solid.getPointAt(index, point);
        polygon.points.push_back(point);
    }
    out.push_back(std::move(polygon));
}

void drawMText(const KdDbEntity& entity, const Context& context, Primitives& out) {
    const auto& mtext = static_cast<const KdDbMText&>(entity);
    Text sample;
    sample.height = mtext.textHeight();
    sample.font = fontOf(mtext.textStyle());
    sample.color = Looks(entity, context.block, context.options).color();

    const KdGeVector3d normal = mtext.normal().normal();
    TextPlace place;
    place.anchor = mtext.location();
    place.right = KdGeMatrix3d::planeToWorld(normal) * KdGeVector3d::kXAxis;
    place.right.rotateBy(mtext.rotation(), normal).normalize();
    place.up = normal.crossProduct(place.right);
    place.horizontal = horizontalOf(mtext.attachment());
    place.vertical = verticalOf(mtext.attachment());
    drawText(text::layout(mtext.contents(), sample.font, sample.height, mtext.width()), place, sample, out);
}

void drawBlockReference(const KdDbEntity& entity, const Context& context, Primitives& out) {
    const auto& reference = static_cast<const KdDbBlockReference&>(entity);
    Context inside = context;
    inside.block = Looks(entity, context.block, context.options).forParts();
    Primitives parts = primitivesOfBlock(reference.blockTableRecord(), inside);
    transform(parts, reference.blockTransform());
    std::move(parts.begin(), parts.end(), std::back_inserter(out));
}

struct ClassRule {
    KdRxClass* (*desc)();
    void (*draw)(const KdDbEntity&, const Context&, Primitives&);
};

constexpr ClassRule kRules[] = {
    {&KdDbTable::desc, drawTable},
    {&KdDbLine::desc, drawLine},
    {&KdDbSolid::desc, drawSolid},
    {&KdDbMText::desc, drawMText},
    {&KdDbBlockReference::desc, drawBlockReference},
};

/// The rule of the entity's class, else of the nearest class above it; null for none.
const ClassRule* ruleFor(const KdDbEntity& entity) {
    for (const KdRxClass* cls = entity.isA(); cls != nullptr; cls = cls->myParent()) {
        for (const ClassRule& rule : kRules) {
            if (rule.desc() == cls) return &rule;
        }
    }
    return nullptr;
}

void moveBy(Polyline& polyline, const KdGeMatrix3d& matrix) {
    for (KdGePoint3d& point : polyline.points) point = matrix * point;
    const double factor = (matrix * KdGeVector3d::kXAxis).length();
    for (double& dash : polyline.dashes) dash *= factor;
}

void moveBy(Polygon& polygon, const KdGeMatrix3d& matrix) {
    for (KdGePoint3d& point : polygon.points) point = matrix * point;
}

void moveBy(Text& text, const KdGeMatrix3d& matrix) {
    const KdGeVector3d direction = matrix * text.direction;
    const double factor = direction.length();
    text.origin = matrix * text.origin;
    text.direction = direction.normal();
    text.height *= factor;
    text.width *= factor;
}

void addTo(KdDbExtents& extents, const Polyline& polyline) {
    for (const KdGePoint3d& point : polyline.points) extents.addPoint(point);
}

void addTo(KdDbExtents& extents, const Polygon& polygon) {
    for (const KdGePoint3d& point : polygon.points) extents.addPoint(point);
}

void addTo(KdDbExtents& extents, const Text& text) {
    const KdGeVector3d right = text.direction * text.width;
    const KdGeVector3d up = KdGeVector3d(-text.direction.y, text.direction.x, 0.0) * text.height;
    for (const KdGeVector3d& corner : {KdGeVector3d(), right, up, right + up}) extents.addPoint(text.origin + corner);
}

}  // namespace

void drawEntity(const KdDbEntity& entity, const Context& context, Primitives& out) {
    if (entity.visibility() == KdDb::kInvisible) return;
    if (const ClassRule* rule = ruleFor(entity)) rule->draw(entity, context, out);
}

Primitives primitivesOfBlock(KdDbObjectId block, const Context& context) {
    Primitives out;
    const auto* record = peek<KdDbBlockTableRecord>(block);
    const auto& path = context.blocks;
    if (record == nullptr || std::find(path.begin(), path.end(), block) != path.end()) return out;
    Context inside = context;
    inside.blocks.push_back(block);
    KdDbBlockTableRecordIterator* made = nullptr;
    if (record->newIterator(made) != Kdad::eOk) return out;
    const std::unique_ptr<KdDbBlockTableRecordIterator> iterator(made);
    for (iterator->start(); !iterator->done(); iterator->step()) {
        KdDbObjectId id;
        if (iterator->getEntityId(id) != Kdad::eOk) continue;
        if (const auto* entity = peek<KdDbEntity>(id)) drawEntity(*entity, inside, out);
    }
    return out;
}

void transform(Primitives& primitives, const KdGeMatrix3d& matrix) {
    for (Primitive& primitive : primitives) {
        std::visit([&](auto& any) { moveBy(any, matrix); }, primitive);
    }
}

void drawText(const text::Layout& layout, const TextPlace& place, const Text& sample, Primitives& out) {
    double baseline = layout.height * 0.5 * place.vertical - sample.height;
    for (const text::Line& line : layout.lines) {
        const double left = -line.width * 0.5 * place.horizontal;
        for (const text::Run& run : line.runs) {
            Text text = sample;
            text.text = run.text;
            text.origin = place.anchor + place.right * (left + run.x) + place.up * baseline;
            text.direction = place.right;
            text.width = run.width;
            text.underline = run.underline;
            text.overline = run.overline;
            text.strike = run.strike;
            out.push_back(std::move(text));
        }
        baseline -= text::kLinePitch * sample.height;
    }
}

Primitives primitivesOf(const KdDbEntity& entity, const Options& options) {
    Primitives out;
    drawEntity(entity, {options, {}, {}}, out);
    return out;
}

Primitives primitivesOf(const KdDbDatabase& database, const Options& options) {
    return primitivesOfBlock(database.modelSpaceId(), {options, {}, {}});
}

KdDbExtents extentsOf(const Primitives& primitives) {
    KdDbExtents extents;
    for (const Primitive& primitive : primitives) {
        std::visit([&](const auto& any) { addTo(extents, any); }, primitive);
    }
    return extents;
}

}  // namespace kdhost::draw
