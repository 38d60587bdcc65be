// The symbol tables as a section; tables of kinds that the program doesn't know are kept as they stand.

#include "host/file/symboltables.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/opening.h"
#include "host/db/symbolstate.h"
#include "host/file/entities.h"
#include "host/file/keptobjects.h"
#include "host/file/record.h"
#include "host/file/symbolkinds.h"
#include "host/file/tableblocks.h"
#include "host/rx/encoding.h"
#include "kd/db/symboltable.h"

namespace kdhost::file {
namespace {

/// The tables in their order, and the records of those that are made up where the drawing has none.
struct StandardTable {
    const char* name;
    const char* record;  ///< its tags; null for a table without records
    const char* subclass = "";
};
constexpr StandardTable kTables[] = {
    {"VPORT",
     "2\n*ACTIVE\n70\n0\n10\n0\n20\n0\n11\n1\n21\n1\n12\n210\n22\n148.5\n13\n0\n23\n0\n14\n10\n24\n10\n15\n10\n25\n10\n"
     "16\n0\n26\n0\n36\n1\n17\n0\n27\n0\n37\n0\n40\n297\n41\n1.5\n42\n50\n43\n0\n44\n0\n50\n0\n51\n0\n71\n0\n72\n100\n"
     "73\n1\n74\n3\n75\n0\n76\n0\n77\n0\n78\n0\n",
     "AcDbViewportTableRecord"},
    {"LTYPE", nullptr},
    {"LAYER", nullptr},
    {"STYLE", nullptr},
    {"VIEW", nullptr},
    {"UCS", nullptr},
    {"APPID", "2\nACAD\n70\n0\n", "AcDbRegAppTableRecord"},
    {"DIMSTYLE", "2\nStandard\n70\n0\n", "AcDbDimStyleTableRecord"},
    {"BLOCK_RECORD", nullptr},
};

void writeHead(SaveContext& context, std::string_view name, std::uint64_t handle, std::size_t records) {
    context.out.raw(0, "TABLE");
    context.out.raw(2, name);
    context.out.handle(5, handle);
    context.out.handle(330, 0);
    context.out.raw(100, "AcDbSymbolTable");
    context.out.integer(70, static_cast<std::int64_t>(records));
}

void writeKnown(SaveContext& context, const SymbolKind& kind, const TableBlocks& blocks) {
    const KdDbObject* table = peekObject(context.contents.roots.*kind.root);
    if (table == nullptr) return;
    std::vector<const KdDbObject*> records;
    for (const KdDbObjectId id : stateOf<KdDbSymbolTableState>(*table).records) {
        if (const KdDbObject* record = peekObject(id)) records.push_back(record);
    }
    const bool ofBlocks = kind.root == &DatabaseRoots::blockTable;
    writeHead(context, kind.name, table->handle(), records.size() + (ofBlocks ? blocks.all().size() : 0));
    RecordWriter(context, *table).end();
    for (const KdDbObject* record : records) {
        writeIdentity(context, kind.name, *record);
        context.out.raw(100, "AcDbSymbolTableRecord");
        RecordWriter writer(context, *record);
        kind.write(writer, *record);
        writer.end();
    }
    if (ofBlocks) blocks.writeRecords(context, table->handle());
    context.out.raw(0, "ENDTAB");
}

void writeKept(SaveContext& context, const KdDbObject& table) {
    context.keptObject(table);
    context.out.raw(0, "ENDTAB");
}

void writeStandard(SaveContext& context, const StandardTable& table) {
    const auto [head, record] = context.standardTables.at(table.name);
    writeHead(context, table.name, head, table.record == nullptr ? 0 : 1);
    const bool isDimension = std::string_view(table.name) == "DIMSTYLE";
    if (isDimension) {
        context.out.raw(100, "AcDbDimStyleTable");
        context.out.integer(71, 0);
    }
    if (table.record != nullptr) {
        context.out.raw(0, table.name);
        context.out.handle(isDimension ? 105 : 5, record);
        context.out.handle(330, head);
        context.out.raw(100, "AcDbSymbolTableRecord");
        context.out.raw(100, table.subclass);
        context.out.lines(table.record);
    }
    context.out.raw(0, "ENDTAB");
}

/// The name that a kept table's tags begin with.
std::string_view nameOfKept(const KdDbObject& table) {
    const std::string_view lines = keptObject(table).tags.lines;
    constexpr std::string_view kNameCode = "2\n";
    return lines.starts_with(kNameCode) ? lines.substr(2, lines.find('\n', 2) - 2) : std::string_view();
}

std::vector<const KdDbObject*> keptTables(const SaveContext& context) {
    std::vector<const KdDbObject*> kept;
    for (const KdDbObjectId id : context.contents.remainder.tables) kept.push_back(peekObject(id));
    std::erase(kept, nullptr);
    return kept;
}

// ---- reading

/// One table of the section: its head, and its records up to the end.
struct FileTable {
    const FileObject* head;
    std::vector<const FileObject*> records;
    std::string_view name;
};

std::vector<FileTable> tablesOf(const FileSection& section) {
    std::vector<FileTable> tables;
    bool open = false;
    for (const FileObject& object : section.objects) {
        if (object.name == "TABLE") {
            require(!open && !object.tags.empty() && object.tags.first->code == 2, "a table has no end, or no name");
            tables.push_back({&object, {}, object.tags.first->value()});
            open = true;
        } else if (object.name == "ENDTAB") {
            require(open, "a table's end comes twice");
            open = false;
        } else {
            require(open && object.name == tables.back().name, "a record stands outside its table");
            tables.back().records.push_back(&object);
        }
    }
    require(!open, "a table has no end");
    return tables;
}

std::string_view recordName(const FileObject& record) {
    for (TagIterator tag = record.body; tag != record.tags.last && tag->code < 1000; ++tag) {
        if (tag->code == 2) return tag->value();
    }
    throw Refused("a record has no name");
}

void placeKnown(LoadContext& context, const FileTable& table, const SymbolKind& kind) {
    KdDbObjectId& root = context.contents.roots.*kind.root;
    require(root.isNull(), "a table comes twice");
    KdDbObject& made = context.insert(kind.makeTable(), table.head->handle);
    root = made.objectId();
    context.contents.required.insert(root);
    auto& records = static_cast<KdDbSymbolTableState&>(KdDbObjectAccess::stateForMaker(made)).records;
    for (const FileObject* record : table.records) {
        if (context.tableBlocks.contains(record->handle)) continue;
        const std::wstring name = textOf(recordName(*record));
        std::unique_ptr<KdDbSymbolTableRecord> fresh = kind.makeRecord();
        static_cast<KdDbSymbolTableRecordState&>(KdDbObjectAccess::stateForMaker(*fresh)).name = name;
        KdDbObject& inserted = context.insert(std::move(fresh), record->handle);
        KdDbObjectAccess::stateForMaker(inserted).owner = root;
        records.push_back(inserted.objectId());
    }
}

void placeKept(LoadContext& context, const FileTable& table) {
    KdDbObject& made = context.insert(std::make_unique<KdDbKeptObject>(), table.head->handle);
    context.contents.remainder.tables.push_back(made.objectId());
    auto& state = static_cast<KdDbKeptObjectState&>(KdDbObjectAccess::stateForMaker(made));
    for (const FileObject* record : table.records) {
        state.kept.parts.push_back(context.insert(std::make_unique<KdDbKeptObject>(), record->handle).objectId());
    }
}

/// Looked for by name among what every drawing must have.
KdDbObjectId required(LoadContext& context, KdDbObjectId table, std::string_view name) {
    const KdDbObjectId id = context.record(table, name);
    context.contents.required.insert(id);
    return id;
}

void findRequired(LoadContext& context) {
    DatabaseRoots& roots = context.contents.roots;
    CurrentSettings& current = context.contents.current;
    roots.byBlock = required(context, roots.linetypeTable, "ByBlock");
    roots.byLayer = required(context, roots.linetypeTable, "ByLayer");
    roots.continuous = required(context, roots.linetypeTable, "Continuous");
    roots.layerZero = required(context, roots.layerTable, "0");
    roots.modelSpace = required(context, roots.blockTable, toUtf8(KDDB_MODEL_SPACE));
    roots.paperSpace = required(context, roots.blockTable, toUtf8(KDDB_PAPER_SPACE));
    current.layer = roots.layerZero;
    current.linetype = roots.byLayer;
    current.textStyle = required(context, roots.textStyleTable, "Standard");
}

/// Records of one table have names of their own; nameless text styles stand for shapes.
void checkNames(LoadContext& context, const FileTable& table, KdDbObjectId root) {
    for (const FileObject* record : table.records) {
        const std::string_view name = recordName(*record);
        if (name.empty() || context.tableBlocks.contains(record->handle)) continue;
        require(context.record(root, name) == context.idOf(record->handle), "two records have one name");
    }
}

}  // namespace

void reserveStandardTables(SaveContext& context) {
    const std::vector<const KdDbObject*> kept = keptTables(context);
    for (const StandardTable& table : kTables) {
        const bool isThere = std::any_of(kept.begin(), kept.end(),
                                         [&](const KdDbObject* each) { return nameOfKept(*each) == table.name; });
        if (isThere || symbolKind(table.name) != nullptr) continue;
        const std::uint64_t head = context.newHandle();
        context.standardTables[table.name] = {head, table.record == nullptr ? 0 : context.newHandle()};
    }
}

void writeTables(SaveContext& context, const TableBlocks& blocks) {
    std::vector<const KdDbObject*> kept = keptTables(context);
    for (const StandardTable& table : kTables) {
        const auto known = std::find_if(kept.begin(), kept.end(),
                                        [&](const KdDbObject* each) { return nameOfKept(*each) == table.name; });
        if (const SymbolKind* kind = symbolKind(table.name)) {
            writeKnown(context, *kind, blocks);
        } else if (known == kept.end()) {
            writeStandard(context, table);
        } else {
            writeKept(context, **known);
            kept.erase(known);
        }
    }
    for (const KdDbObject* table : kept) writeKept(context, *table);
}

void placeTables(LoadContext& context, const FileSection& section) {
    const std::vector<FileTable> tables = tablesOf(section);
    for (const FileTable& table : tables) {
        if (const SymbolKind* kind = symbolKind(table.name)) {
            placeKnown(context, table, *kind);
        } else {
            placeKept(context, table);
        }
    }
    for (const SymbolKind& kind : symbolKinds())
        require((context.contents.roots.*kind.root).isValid(), "a symbol table is missing");
    findRequired(context);
    for (const FileTable& table : tables) {
        if (const SymbolKind* kind = symbolKind(table.name))
            checkNames(context, table, context.contents.roots.*kind->root);
    }
}

void readTables(LoadContext& context, const FileSection& section) {
    for (const FileTable& table : tablesOf(section)) {
        const SymbolKind* kind = symbolKind(table.name);
        KdDbObject& head = *context.find(table.head->handle);
        if (kind == nullptr) readKeptObject(context, head, *table.head);
        KdDbObjectAccess::stateForMaker(head).extensionDictionary = context.idOf(table.head->extension);
        for (const FileObject* source : table.records) {
            KdDbObject* record = context.find(source->handle);
            if (record == nullptr) continue;
            if (kind == nullptr) {
                readKeptObject(context, *record, *source);
                KdDbObjectAccess::stateForMaker(*record).owner = head.objectId();
                continue;
            }
            KdDbObjectAccess::stateForMaker(*record).extensionDictionary = context.idOf(source->extension);
            RecordReader reader(context, *record, *source);
            reader.subclass("AcDbSymbolTableRecord");
            kind->read(reader, *record);
            reader.end();
        }
    }
}

}  // namespace kdhost::file
