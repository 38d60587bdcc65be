// Blocks with their entities, and the entities of the spaces.

#include "host/file/blocks.h"

#include "host/db/access.h"
#include "host/db/opening.h"
#include "host/db/symbolstate.h"
#include "host/file/acadtable.h"
#include "host/file/entities.h"
#include "host/file/keptobjects.h"
#include "host/file/record.h"
#include "host/file/tableblocks.h"

namespace kdhost::file {
namespace {

constexpr std::string_view kBlock = "BLOCK";
constexpr std::string_view kBlockEnd = "ENDBLK";
constexpr std::string_view kPartsEnd = "SEQEND";

const auto& stateOfBlock(const KdDbObject& block) {
    return stateOf<KdDbBlockTableRecordState>(block);
}

/// The block's own part of the file, which has the block's name a second time.
template <class Archive, class State>
void describeBegin(Archive& archive, State& block, bool anonymous) {
    std::wstring name = block.name;
    archive.subclass("AcDbBlockBegin");
    archive.value(2, name);
    archive.fixed(70, anonymous ? "1" : "0");
    archive.value(10, block.origin);
    archive.value(3, name, std::wstring());
    archive.fixed(1, "");
}

void writeBegin(SaveContext& context, const KdDbBlockTableRecord& block) {
    const KdDbBlockTableRecordState& state = stateOfBlock(block);
    context.out.raw(0, kBlock);
    context.out.handle(5, context.newHandle());
    context.out.handle(330, block.handle());
    context.out.raw(100, "AcDbEntity");
    context.out.raw(8, "0");
    RecordWriter writer(context, block);
    writer.fixesCommon();
    describeBegin(writer, state, block.isAnonymous() && !block.isLayout());
    writer.endCommon();
}

void writeContents(SaveContext& context, const KdDbObject& block) {
    for (const KdDbObjectId id : stateOfBlock(block).entities) {
        if (const auto* entity = peek<KdDbEntity>(id)) writeEntity(context, *entity);
    }
}

/// Calls `visit(record, object)` for each block's begin and each entity: with the record of the block that it stands
/// in. What only shows a table is left out.
template <class Begin, class Visit>
void walk(LoadContext& context, const FileSection& blocks, const FileSection& entities, Begin begin, Visit visit) {
    KdDbObject* block = nullptr;
    bool isOpen = false;
    bool isPassedOver = false;
    for (const FileObject& object : blocks.objects) {
        if (object.name == kBlock) {
            require(!isOpen, "a block has no end");
            isOpen = true;
            isPassedOver = context.tableBlocks.contains(object.owner);
            if (isPassedOver) continue;
            TagIterator name = object.body;
            while (name != object.tags.last && name->code != 2) ++name;
            require(name != object.tags.last, "a block has no name");
            const KdDbObjectId record = context.record(context.contents.roots.blockTable, name->value());
            block = findObject(record);
            begin(*block, object);
        } else if (object.name == kBlockEnd) {
            require(isOpen, "a block's end comes twice");
            isOpen = false;
        } else {
            require(isOpen, "an entity stands outside its block");
            if (!isPassedOver) visit(*block, object);
        }
    }
    require(!isOpen, "a block has no end");
    KdDbObject* spaces[] = {findObject(context.contents.roots.modelSpace),
                            findObject(context.contents.roots.paperSpace)};
    for (const FileObject& object : entities.objects) {
        KdDbObject* owner = context.findAs<KdDbBlockTableRecord>(object.owner);
        if (owner == nullptr) owner = spaces[isInPaperSpace(object) ? 1 : 0];
        visit(*owner, object);
    }
}

/// An insertion of a block that only shows a table: the table shows itself.
bool showsTable(const LoadContext& context, const FileObject& object) {
    if (object.name != "INSERT") return false;
    for (const Tag& tag : object.tags) {
        if (tag.code == 2) return context.tableBlockNames.contains(tag.value());
    }
    return false;
}

}  // namespace

void writeBlockBegin(SaveContext& context, std::uint64_t record, std::string_view name, const KdGePoint3d& origin,
                     bool anonymous) {
    TagWriter& out = context.out;
    out.raw(0, kBlock);
    out.handle(5, context.newHandle());
    out.handle(330, record);
    out.raw(100, "AcDbEntity");
    out.raw(8, "0");
    out.raw(100, "AcDbBlockBegin");
    out.raw(2, name);
    out.integer(70, anonymous ? 1 : 0);
    out.point(10, origin);
    out.raw(3, name);
    out.raw(1, "");
}

void writeBlockEnd(SaveContext& context, std::uint64_t record) {
    TagWriter& out = context.out;
    out.raw(0, kBlockEnd);
    out.handle(5, context.newHandle());
    out.handle(330, record);
    out.raw(100, "AcDbEntity");
    out.raw(8, "0");
    out.raw(100, "AcDbBlockEnd");
}

void writeBlocks(SaveContext& context, const TableBlocks& tables) {
    for (const KdDbObjectId id :
         stateOf<KdDbSymbolTableState>(*peekObject(context.contents.roots.blockTable)).records) {
        const auto* block = peek<KdDbBlockTableRecord>(id);
        if (block == nullptr) continue;
        writeBegin(context, *block);
        const bool isSpace = id == context.contents.roots.modelSpace || id == context.contents.roots.paperSpace;
        if (!isSpace) writeContents(context, *block);
        writeBlockEnd(context, block->handle());
    }
    tables.writeBlocks(context);
}

void writeEntities(SaveContext& context) {
    for (const KdDbObjectId space : {context.contents.roots.modelSpace, context.contents.roots.paperSpace}) {
        writeContents(context, *peekObject(space));
    }
}

void findTableBlocks(LoadContext& context, const FileSection& tables, const FileSection& blocks,
                     const FileSection& entities) {
    for (const FileSection* section : {&blocks, &entities}) {
        for (const FileObject& object : section->objects) {
            if (object.name != kTableName) continue;
            const std::uint64_t record = blockOfTable(object);
            if (record != 0) context.tableBlocks.insert(record);
        }
    }
    std::size_t found = 0;
    for (const FileObject& record : tables.objects) {
        if (record.name != "BLOCK_RECORD" || !context.tableBlocks.contains(record.handle)) continue;
        ++found;
        for (const Tag& tag : record.tags) {
            if (tag.code == 2) context.tableBlockNames.insert(tag.value());
        }
    }
    require(found == context.tableBlocks.size(), "the block that shows a table is missing");
}

void placeEntities(LoadContext& context, const FileSection& blocks, const FileSection& entities) {
    KdDbObject* whole = nullptr;
    const auto place = [&](KdDbObject& block, const FileObject& object) {
        if (whole != nullptr) {
            auto& state = static_cast<KdDbKeptEntityState&>(KdDbObjectAccess::stateForMaker(*whole));
            KdDbObject& part = context.insert(std::make_unique<KdDbKeptObject>(), object.handle);
            state.kept.parts.push_back(part.objectId());
            if (object.name == kPartsEnd) whole = nullptr;
            return;
        }
        if (showsTable(context, object)) return;
        KdDbObject& made = context.insert(makeEntity(object), object.handle);
        KdDbObjectAccess::stateForMaker(made).owner = block.objectId();
        static_cast<KdDbBlockTableRecordState&>(KdDbObjectAccess::stateForMaker(block))
            .entities.push_back(made.objectId());
        if (hasParts(object)) whole = &made;
    };
    walk(
        context, blocks, entities, [](KdDbObject&, const FileObject&) {}, place);
    require(whole == nullptr, "an entity's parts have no end");
}

void readEntities(LoadContext& context, const FileSection& blocks, const FileSection& entities) {
    const auto begin = [&](KdDbObject& block, const FileObject& object) {
        auto& state = static_cast<KdDbBlockTableRecordState&>(KdDbObjectAccess::stateForMaker(block));
        const auto& record = static_cast<const KdDbBlockTableRecord&>(block);
        RecordReader reader(context, block, object);
        // They would stand at the record then.
        reader.forgetGroups();
        reader.subclass("AcDbEntity");
        reader.forget();
        describeBegin(reader, state, record.isAnonymous() && !record.isLayout());
        reader.endCommon();
        reader.end();
    };
    const auto read = [&](KdDbObject&, const FileObject& object) {
        KdDbObject* made = context.find(object.handle);
        if (made == nullptr) return;
        if (made->isKindOf(KdDbKeptObject::desc())) return readKeptObject(context, *made, object);
        KdDbObjectAccess::stateForMaker(*made).extensionDictionary =
            context.passedOver.contains(object.extension) ? KdDbObjectId::kNull : context.idOf(object.extension);
        readEntity(context, static_cast<KdDbEntity&>(*made), object);
    };
    walk(context, blocks, entities, begin, read);
}

}  // namespace kdhost::file
