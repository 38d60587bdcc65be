// Lines, solids, texts and insertions; what is common to all entities.

#include "host/file/entities.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/fieldstate.h"
#include "host/db/pointentity.h"
#include "host/db/symbolstate.h"
#include "host/db/textstate.h"
#include "host/file/acadtable.h"
#include "host/file/commonattributes.h"
#include "host/file/record.h"
#include "kd/db/blockreference.h"
#include "kd/db/line.h"
#include "kd/db/mtext.h"
#include "kd/db/solid.h"

namespace kdhost::file {
namespace {

const KdGeVector3d kUp{0.0, 0.0, 1.0};

constexpr auto describeLine = [](auto& archive, auto& line) {
    archive.subclass("AcDbLine");
    archive.value(10, line.points[0]);
    archive.value(11, line.points[1]);
};

constexpr auto describeSolid = [](auto& archive, auto& solid) {
    archive.subclass("AcDbTrace");
    for (int corner = 0; corner < 4; ++corner) archive.value(10 + corner, solid.points[std::size_t(corner)]);
};

constexpr auto describeText = [](auto& archive, auto& text) {
    constexpr int kFill = 1;
    constexpr int kViewColor = 2;
    archive.subclass("AcDbMText");
    archive.value(10, text.location);
    archive.value(40, text.textHeight);
    archive.value(41, text.width, 0.0);
    archive.value(46, text.height, 0.0);
    archive.value(71, text.attachment);
    archive.value(72, text.flow, KdDbMText::kByStyle);
    archive.longText(3, 1, text.contents);
    archive.textStyle(7, text.textStyle);
    archive.value(210, text.normal, kUp);
    archive.angle(50, text.rotation, 0.0);
    archive.fixed(73, "1");
    archive.fixed(44, "1");
    int background = (text.backgroundFill ? kFill : 0) | (text.usesViewBackground ? kViewColor : 0);
    archive.value(90, background, 0);
    archive.value(45, text.backgroundScale, 1.5);
    archive.color(63, text.backgroundColor, 256);
    archive.check(text.textHeight > 0.0 && text.width >= 0.0 && text.height >= 0.0);
    archive.check(text.attachment >= KdDbMText::kTopLeft && text.attachment <= KdDbMText::kBottomRight);
    archive.check(text.backgroundScale >= 1.0 && text.backgroundScale <= 5.0);
    if constexpr (std::decay_t<decltype(archive)>::kReads) {
        text.backgroundFill = (background & kFill) != 0;
        text.usesViewBackground = (background & kViewColor) != 0;
    }
};

constexpr auto describeInsertion = [](auto& archive, auto& insertion) {
    archive.subclass("AcDbBlockReference");
    archive.block(2, insertion.block);
    archive.value(10, insertion.position);
    double scales[3] = {insertion.scale, insertion.scale, insertion.scale};
    for (int axis = 0; axis < 3; ++axis) archive.value(41 + axis, scales[axis], 1.0);
    archive.angle(50, insertion.rotation, 0.0);
    archive.value(210, insertion.normal, kUp);
    archive.check(scales[0] != 0.0);
    if constexpr (std::decay_t<decltype(archive)>::kReads) insertion.scale = scales[0];
};

/// Insertions of another scale on each axis, in rows and columns, or with attributes are more than the program's own.
bool isPlainInsertion(const FileObject& object) {
    double scales[3] = {1.0, 1.0, 1.0};
    for (const Tag& tag : object.tags) {
        if (tag.code >= 41 && tag.code <= 43) scales[tag.code - 41] = realOf(tag).value_or(1.0);
        const bool isCount = tag.code == 70 || tag.code == 71;
        if (tag.code == 66 || (isCount && integerOf(tag).value_or(0) > 1)) return false;
    }
    return scales[0] == scales[1] && scales[0] == scales[2] && scales[0] != 0.0;
}

bool always(const FileObject&) {
    return true;
}

/// One kind of entity: the one list of its attributes serves both ways.
struct Kind {
    const char* name;
    KdRxClass* (*cls)();
    std::unique_ptr<KdDbEntity> (*make)();
    bool (*fits)(const FileObject&);
    void (*write)(RecordWriter&, const KdDbEntity&);
    void (*read)(RecordReader&, KdDbEntity&);
};

template <class Entity, class State, auto describe>
constexpr Kind kindOf(const char* name, bool (*fits)(const FileObject&)) {
    return {name,
            Entity::desc,
            []() -> std::unique_ptr<KdDbEntity> { return std::make_unique<Entity>(); },
            fits,
            [](RecordWriter& writer, const KdDbEntity& entity) { describe(writer, stateOf<State>(entity)); },
            [](RecordReader& reader, KdDbEntity& entity) {
                describe(reader, static_cast<State&>(KdDbObjectAccess::stateForMaker(entity)));
            }};
}

constexpr Kind kKinds[] = {
    kindOf<KdDbLine, PointsState<2>, describeLine>("LINE", always),
    kindOf<KdDbSolid, PointsState<4>, describeSolid>("SOLID", always),
    kindOf<KdDbMText, KdDbMTextState, describeText>("MTEXT", always),
    kindOf<KdDbBlockReference, KdDbBlockReferenceState, describeInsertion>("INSERT", isPlainInsertion),
};

/// A text shows its field, for those who know nothing of fields.
void writeShownText(SaveContext& context, const KdDbMText& text) {
    KdDbMTextState shown = stateOf<KdDbMTextState>(text);
    shown.contents = text.contents();
    RecordWriter writer(context, text);
    describeText(writer, std::as_const(shown));
    writer.end();
}

}  // namespace

void writeIdentity(SaveContext& context, std::string_view name, const KdDbObject& object, std::uint64_t extension) {
    if (extension == 0) extension = context.handleOf(object.extensionDictionary());
    context.out.raw(0, name);
    context.out.handle(5, object.handle());
    if (extension != 0) {
        context.out.raw(102, "{ACAD_XDICTIONARY");
        context.out.handle(360, extension);
        context.out.raw(102, "}");
    }
    const auto& foreign = KdDbObjectAccess::state(object).foreign;
    if (foreign != nullptr) context.keptTags(foreign->groups, object);
    context.out.handle(330, context.handleOf(object.ownerId()));
}

bool isInPaperSpace(const FileObject& object) {
    return std::any_of(object.tags.begin(), object.tags.end(), [](const Tag& tag) { return tag.is(67, "1"); });
}

bool hasParts(const FileObject& object) {
    const bool mayHave = object.name == "POLYLINE" || object.name == "INSERT";
    return mayHave && (object.name == "POLYLINE" || std::any_of(object.tags.begin(), object.tags.end(),
                                                                [](const Tag& tag) { return tag.is(66, "1"); }));
}

void writeEntity(SaveContext& context, const KdDbEntity& entity) {
    if (entity.isKindOf(KdDbKeptEntity::desc())) return context.keptObject(entity);
    if (entity.isKindOf(KdDbTable::desc())) return writeTable(context, static_cast<const KdDbTable&>(entity));
    const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                    [&](const Kind& each) { return each.cls() == entity.isA(); });
    if (kind == std::end(kKinds)) return;
    writeIdentity(context, kind->name, entity);
    RecordWriter writer(context, entity);
    describeCommon(context, writer, stateOf<KdDbEntityState>(entity));
    if (entity.isKindOf(KdDbMText::desc()) && textFieldOf(entity) != nullptr) {
        return writeShownText(context, static_cast<const KdDbMText&>(entity));
    }
    kind->write(writer, entity);
    writer.end();
}

std::unique_ptr<KdDbEntity> makeEntity(const FileObject& object) {
    if (object.name == kTableName) return std::make_unique<KdDbTable>();
    const auto* kind =
        std::find_if(std::begin(kKinds), std::end(kKinds), [&](const Kind& each) { return each.name == object.name; });
    if (kind == std::end(kKinds) || !kind->fits(object)) return std::make_unique<KdDbKeptEntity>();
    return kind->make();
}

void readEntity(LoadContext& context, KdDbEntity& entity, const FileObject& object) {
    if (entity.isKindOf(KdDbKeptEntity::desc())) return readKeptEntity(context, entity, object);
    if (entity.isKindOf(KdDbTable::desc())) return readTable(context, static_cast<KdDbTable&>(entity), object);
    const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                    [&](const Kind& each) { return each.cls() == entity.isA(); });
    RecordReader reader(context, entity, object);
    describeCommon(context, reader, static_cast<KdDbEntityState&>(KdDbObjectAccess::stateForMaker(entity)));
    kind->read(reader, entity);
    reader.end();
}

}  // namespace kdhost::file
