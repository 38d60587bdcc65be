// A whole drawing in and out.
//
// Reading goes in this order: bytes to tags, tags to sections and objects, every object its place (so that whatever
// points at it finds it), then what each holds. Whatever is wrong anywhere throws Refused, and the drawing is emptied.

#include "host/file/drawingfile.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/fieldevaluation.h"
#include "host/db/opening.h"
#include "host/file/blocks.h"
#include "host/file/extrasrecord.h"
#include "host/file/header.h"
#include "host/file/objects.h"
#include "host/file/symboltables.h"
#include "host/file/tableblocks.h"
#include "kd/db/field.h"
#include "kd/db/table.h"

namespace kdhost::file {
namespace {

std::string refusal;

constexpr std::string_view kKnownSections[] = {"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};

template <class Write>
void section(TagWriter& out, std::string_view name, Write write) {
    out.raw(0, "SECTION");
    out.raw(2, name);
    write();
    out.raw(0, "ENDSEC");
}

/// What is in the file for the sake of other things, before anything has its place.
void lookAround(LoadContext& context, const FileStructure& file) {
    for (const FileObject& object : file.section("OBJECTS").objects) {
        context.fileObjects.emplace(object.handle, &object);
    }
    findTableBlocks(context, file.section("TABLES"), file.section("BLOCKS"), file.section("ENTITIES"));
    findExtras(context, file.section("OBJECTS"));
}

void keepOtherSections(LoadContext& context, const FileStructure& file) {
    for (const FileSection& each : file.sections()) {
        if (std::find(std::begin(kKnownSections), std::end(kKnownSections), each.name) != std::end(kKnownSections)) {
            continue;
        }
        context.contents.remainder.sections.push_back("0\nSECTION\n2\n" + std::string(each.name) + "\n" +
                                                      linesOf(each.tags) + "0\nENDSEC\n");
    }
}

void read(LoadContext& context, const FileStructure& file) {
    const FileSection& tables = file.section("TABLES");
    const FileSection& blocks = file.section("BLOCKS");
    const FileSection& entities = file.section("ENTITIES");
    const FileSection& objects = file.section("OBJECTS");
    lookAround(context, file);
    placeTables(context, tables);
    placeEntities(context, blocks, entities);
    placeObjects(context, objects);
    // What is made from here on must not take a handle of the file's.
    context.contents.nextHandle = std::max(context.contents.nextHandle, file.nextHandle());
    readTables(context, tables);
    readObjects(context, objects);
    readEntities(context, blocks, entities);
    readHeader(context, file.section("HEADER"));
    readClasses(context, file.section("CLASSES"));
    keepOtherSections(context, file);
}

/// Formulas are evaluated when they are first asked for.
void tellFields(const LoadContext& context) {
    tellFieldEvaluation([&](FieldEvaluation& evaluation) {
        for (const KdDbObjectId field : context.fields) evaluation.fieldTouched(field);
        for (const KdDbTable* table : context.tablesWithFields) evaluation.fieldPlaced(*table);
    });
}

/// The database is as it was made: without anything.
void empty(DatabaseContents& contents) {
    for (const auto& [handle, object] : contents.objects) forgetObject(*object);
    contents.objects.clear();
    contents.nextHandle = 1;
    contents.roots = {};
    contents.current = {};
    contents.header = {};
    contents.remainder = {};
    contents.required.clear();
    ++contents.nameGeneration;
}

}  // namespace

SaveOptions& saveOptions() {
    static SaveOptions options;
    return options;
}

const std::string& lastRefusal() {
    return refusal;
}

std::string drawingBytes(const KdDbDatabase& database) {
    SaveContext context(database);
    TagWriter& out = context.out;
    // Handles are given to what a reader keeps first, then to what it passes over: so they are the same ones when the
    // drawing is opened and saved again.
    reserveStandardTables(context);
    const TableBlocks blocks(context);
    context.tableBlocks = &blocks;
    section(out, "TABLES", [&] { writeTables(context, blocks); });
    section(out, "BLOCKS", [&] { writeBlocks(context, blocks); });
    section(out, "ENTITIES", [&] { writeEntities(context); });
    section(out, "OBJECTS", [&] { writeObjects(context); });
    for (const std::string& other : context.contents.remainder.sections) out.lines(other);
    out.raw(0, "EOF");
    TagWriter file;
    writeHeader(database, context, file, context.nextHandle);
    writeClasses(context, file);
    return std::move(file.bytes()) + out.bytes();
}

Kdad::ErrorStatus readDrawing(KdDbDatabase& database, std::string_view bytes) {
    DatabaseContents& contents = KdDbDatabaseAccess::contents(database);
    if (!contents.objects.empty()) return Kdad::eInvalidContext;
    refusal.clear();
    std::vector<Tag> tags;
    FileStructure file;
    if (!looksLikeTags(bytes) || !readTags(bytes, tags) || !file.read(tags)) return Kdad::eFileCorrupt;
    if (!isKnownVersion(file.section("HEADER"))) return Kdad::eFileVersion;
    // What is read is no change of the drawing's.
    const std::shared_ptr<UndoHistory> undo = std::exchange(contents.undo, nullptr);
    LoadContext context(database);
    Kdad::ErrorStatus status = Kdad::eOk;
    try {
        read(context, file);
        tellFields(context);
    } catch (const Refused& error) {
        refusal = error.what();
        empty(contents);
        status = Kdad::eFileCorrupt;
    }
    contents.undo = undo;
    return status;
}

}  // namespace kdhost::file
