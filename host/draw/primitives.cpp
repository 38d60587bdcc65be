// Entities to primitives: the dispatch by class, and the simple classes.

#include "host/draw/primitives.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/textstyle.h"
#include "host/db/walk.h"
#include "host/draw/entitydrawing.h"
#include "kd/db/blockreference.h"
#include "kd/db/database.h"
#include "kd/db/line.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"
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

/// A fill behind the text, in its own colour or in that of what is painted on.
void drawBackground(const KdDbMText& mtext, const text::Layout& layout, const TextPlace& place, const Looks& looks,
                    Primitives& out) {
    const auto color = mtext.useBackgroundColorOn() ? Color{.paper = true} : looks.color(mtext.backgroundFillColor());
    if (!color || layout.lines.empty()) return;
    const double margin = (mtext.backgroundScaleFactor() - 1.0) * mtext.textHeight();
    const double left = -0.5 * place.horizontal * layout.room - margin;
    const double top = 0.5 * place.vertical * layout.height + margin;
    const auto at = [&](double x, double y) { return place.anchor + place.right * x + place.up * y; };
    const double right = left + layout.room + 2.0 * margin;
    const double bottom = top - layout.height - 2.0 * margin;
    out.push_back(Polygon{{at(left, top), at(right, top), at(right, bottom), at(left, bottom)}, *color});
}

void drawMText(const KdDbEntity& entity, const Context& context, Primitives& out) {
    const auto& mtext = static_cast<const KdDbMText&>(entity);
    const KdGeVector3d normal = mtext.normal().normal();
    TextPlace place;
    place.anchor = mtext.location();
    place.right = KdGeMatrix3d::planeToWorld(normal) * KdGeVector3d::kXAxis;
    place.right.rotateBy(mtext.rotation(), normal).normalize();
    place.up = normal.crossProduct(place.right);
    place.horizontal = horizontalOf(mtext.attachment());
    place.vertical = verticalOf(mtext.attachment());
    const text::Layout layout =
        text::layout(mtext.contents(), fontOf(mtext.textStyle()), mtext.textHeight(), mtext.width());
    const Looks looks(entity, context.block, context.options);
    if (mtext.backgroundFillOn()) drawBackground(mtext, layout, place, looks, out);
    drawText(layout, place, looks.color(), looks, out);
}

void drawBlockReference(const KdDbEntity& entity, const Context& context, Primitives& out) {
    const auto& reference = static_cast<const KdDbBlockReference&>(entity);
    const Options options = context.options.everywhere();
    const Context inside{options, Looks(entity, context.block, context.options).forParts(), context.blocks};
    Primitives parts = primitivesOfBlock(reference.blockTableRecord(), inside);
    transform(parts, reference.blockTransform());
    std::move(parts.begin(), parts.end(), std::back_inserter(out));
}

struct ClassRule {
    KdRxClass* (*desc)();
    void (*draw)(const KdDbEntity&, const Context&, Primitives&);
    bool drawsByItself = true;  ///< else its parts do, each on a layer of its own
};

constexpr ClassRule kRules[] = {
    {&KdDbTable::desc, drawTable},
    {&KdDbLine::desc, drawLine},
    {&KdDbSolid::desc, drawSolid},
    {&KdDbMText::desc, drawMText},
    {&KdDbBlockReference::desc, drawBlockReference, false},
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
    polyline.dashStart *= factor;
}

void moveBy(Polygon& polygon, const KdGeMatrix3d& matrix) {
    for (KdGePoint3d& point : polygon.points) point = matrix * point;
}

void moveBy(Text& text, const KdGeMatrix3d& matrix) {
    const KdGeVector3d direction = matrix * text.direction;
    const KdGeVector3d up = matrix * text.up;
    text.origin = matrix * text.origin;
    text.direction = direction.normal();
    text.up = up.normal();
    text.height *= up.length();
    text.width *= direction.length();
}

void addTo(KdDbExtents& extents, const Polyline& polyline) {
    for (const KdGePoint3d& point : polyline.points) extents.addPoint(point);
}

void addTo(KdDbExtents& extents, const Polygon& polygon) {
    for (const KdGePoint3d& point : polygon.points) extents.addPoint(point);
}

void addTo(KdDbExtents& extents, const Text& text) {
    const KdGeVector3d right = text.direction * text.width;
    const KdGeVector3d up = text.up * text.height;
    for (const KdGeVector3d& corner : {KdGeVector3d(), right, up, right + up}) extents.addPoint(text.origin + corner);
}

}  // namespace

void drawEntity(const KdDbEntity& entity, const Context& context, Primitives& out) {
    if (entity.visibility() == KdDb::kInvisible) return;
    const ClassRule* rule = ruleFor(entity);
    if (rule == nullptr) return;
    const bool byLayer = context.options.plotted && rule->drawsByItself;
    if (byLayer && !Looks(entity, context.block, context.options).isPlotted()) return;
    rule->draw(entity, context, out);
}

Primitives primitivesOfBlock(KdDbObjectId block, const Context& context) {
    Primitives out;
    const auto& path = context.blocks;
    if (std::find(path.begin(), path.end(), block) != path.end()) return out;
    Context inside = context;
    inside.blocks.push_back(block);
    for (const KdDbObjectId id : entitiesOf(block)) {
        if (const auto* entity = peek<KdDbEntity>(id)) drawEntity(*entity, inside, out);
    }
    return out;
}

void transform(Primitives& primitives, const KdGeMatrix3d& matrix) {
    for (Primitive& primitive : primitives) {
        std::visit([&](auto& any) { moveBy(any, matrix); }, primitive);
    }
}

namespace {

/// One line of a layout, in its place.
class TextLineDrawer {
public:
    TextLineDrawer(const KdGePoint3d& start, const TextPlace& place, const Color& color, const Looks& looks,
                   Primitives& out)
        : m_start(start), m_place(place), m_color(color), m_looks(looks), m_out(out) {}

    void operator()(const text::Run& run) const {
        Text text;
        text.text = run.text;
        text.origin = at(run.x, run.y);
        text.direction = m_place.right;
        text.up = m_place.up;
        text.height = run.height;
        text.width = run.width;
        text.tracking = run.tracking;
        text.font = run.font;
        text.color = inked(run.ink);
        text.underline = run.underline;
        text.overline = run.overline;
        text.strike = run.strike;
        m_out.push_back(std::move(text));
    }

    void operator()(const text::Stroke& stroke) const {
        m_out.push_back(
            Polyline{{at(stroke.fromX, stroke.fromY), at(stroke.toX, stroke.toY)}, inked(stroke.ink), 0, {}});
    }

private:
    KdGePoint3d at(double x, double y) const { return m_start + m_place.right * x + m_place.up * y; }

    Color inked(const text::Ink& ink) const {
        return ink.kind == text::Ink::Kind::ofText ? m_color : m_looks.color(colorOf(ink)).value_or(m_color);
    }

    KdGePoint3d m_start;
    const TextPlace& m_place;
    const Color& m_color;
    const Looks& m_looks;
    Primitives& m_out;
};

}  // namespace

void drawText(const text::Layout& layout, const TextPlace& place, const Color& color, const Looks& looks,
              Primitives& out) {
    const double left = -0.5 * place.horizontal * layout.room;
    const double top = 0.5 * place.vertical * layout.height;
    for (const text::Line& line : layout.lines) {
        const KdGePoint3d start = place.anchor + place.right * (left + layout.leftOf(line, place.horizontal)) +
                                  place.up * (top - line.baseline);
        const TextLineDrawer draw(start, place, color, looks, out);
        for (const text::Run& run : line.runs) draw(run);
        for (const text::Stroke& stroke : line.strokes) draw(stroke);
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
