// Objects that are no entities and no records of symbol tables.

#include "host/file/objects.h"

#include <algorithm>

#include "host/db/access.h"
#include "host/db/dictionarystate.h"
#include "host/db/opening.h"
#include "host/file/entities.h"
#include "host/file/extrasrecord.h"
#include "host/file/keptobjects.h"
#include "host/file/record.h"
#include "host/file/tableextras.h"
#include "host/rx/encoding.h"
#include "kd/db/dictionary.h"
#include "kd/db/field.h"
#include "kd/db/tablestyle.h"

namespace kdhost::file {
namespace {

constexpr int kKey = 3;
constexpr int kSoftEntry = 350;
constexpr int kHardEntry = 360;
constexpr const char* kSettingsKey = "KDHOST_SETTINGS";

bool isExtension(const KdDbObject& dictionary) {
    const KdDbObject* owner = peekObject(dictionary.ownerId());
    return owner != nullptr && owner->extensionDictionary() == dictionary.objectId();
}

void writeDictionary(SaveContext& context, const KdDbObject& dictionary) {
    const auto& state = stateOf<KdDbDictionaryState>(dictionary);
    const bool isHard = state.hardOwner || isExtension(dictionary);
    writeIdentity(context, "DICTIONARY", dictionary);
    RecordWriter writer(context, dictionary);
    writer.subclass("AcDbDictionary");
    if (isHard) context.out.integer(280, 1);
    writer.fixed(281, "1");
    const auto entry = [&](std::uint64_t handle) { context.out.handle(isHard ? kHardEntry : kSoftEntry, handle); };
    for (const auto& [folded, each] : state.entries) {
        if (context.handleOf(each.id) == 0) continue;
        context.out.text(kKey, each.name);
        entry(context.handleOf(each.id));
    }
    const auto extra = context.extraEntries.find(dictionary.objectId());
    if (extra != context.extraEntries.end()) {
        context.out.raw(kKey, kExtrasKey);
        entry(extra->second);
    }
    if (context.settings != 0 && dictionary.objectId() == context.contents.roots.namedObjects) {
        context.out.raw(kKey, kSettingsKey);
        entry(context.settings);
    }
    writer.end();
}

void readDictionary(LoadContext& context, KdDbObject& dictionary, const FileObject& object) {
    auto& state = static_cast<KdDbDictionaryState&>(KdDbObjectAccess::stateForMaker(dictionary));
    RecordReader reader(context, dictionary, object);
    reader.subclass("AcDbDictionary");
    reader.value(280, state.hardOwner, false);
    reader.fixed(281, "1");
    TagIterator key = nullptr;
    for (const Tag& tag : reader.tags()) {
        if (tag.code == kKey) {
            require(key == nullptr, "an entry of a dictionary has no object");
            key = &tag;
            reader.consume(&tag);
        } else if (tag.code == kSoftEntry || tag.code == kHardEntry) {
            require(key != nullptr, "an entry of a dictionary has no name");
            reader.consume(&tag);
            const KdDbObjectId id = context.idOf(handleOf(tag).value_or(0));
            const std::wstring name = textOf(key->value());
            key = nullptr;
            if (id.isNull()) continue;
            require(!name.empty(), "an entry of a dictionary has no name");
            state.put(name.c_str(), id);
        }
    }
    require(key == nullptr, "an entry of a dictionary has no object");
    reader.end();
}

/// One kind that the program knows.
struct Kind {
    const char* name;
    KdRxClass* (*cls)();
    std::unique_ptr<KdDbObject> (*make)();
    void (*write)(SaveContext&, const KdDbObject&);
    void (*read)(LoadContext&, KdDbObject&, const FileObject&);
};

template <class T>
std::unique_ptr<KdDbObject> make() {
    return std::make_unique<T>();
}

constexpr Kind kKinds[] = {
    {"DICTIONARY", KdDbDictionary::desc, make<KdDbDictionary>, writeDictionary, readDictionary},
    {"TABLESTYLE", KdDbTableStyle::desc, make<KdDbTableStyle>, writeTableStyle, readTableStyle},
    {"FIELD", KdDbField::desc, make<KdDbField>, writeField, readField},
};

/// Null for an object of another kind.
const Kind* kindOf(const KdDbObject& object) {
    const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                    [&](const Kind& each) { return each.cls() == object.isA(); });
    return kind == std::end(kKinds) ? nullptr : kind;
}

/// Whether no owner above the object is erased or gone.
bool isReachable(const KdDbObject& object) {
    constexpr int kDeepest = 1000;
    const KdDbObject* at = &object;
    for (int depth = 0; depth < kDeepest; ++depth) {
        if (at->ownerId().isNull()) return true;
        at = peekObject(at->ownerId());
        if (at == nullptr) return false;
    }
    return false;
}

/// What is written with something else: tables that are kept, and all parts.
void addParts(std::unordered_set<KdDbObjectId>& written, const KdDbObject& object) {
    if (!object.isKindOf(KdDbKeptObject::desc()) && !object.isKindOf(KdDbKeptEntity::desc())) return;
    for (const KdDbObjectId part : keptObject(object).parts) written.insert(part);
}

/// What the header of a file has no variables for.
void writeSettings(SaveContext& context) {
    TagWriter& out = context.out;
    out.raw(0, "XRECORD");
    out.handle(5, context.settings);
    out.handle(330, context.handleOf(context.contents.roots.namedObjects));
    out.raw(100, "AcDbXrecord");
    out.integer(280, 1);
    out.integer(90, 1);
    out.handle(330, context.handleOf(context.contents.current.tableStyle));
}

void readSettings(LoadContext& context, const FileObject& object) {
    for (TagIterator tag = object.body; tag != object.tags.last; ++tag) {
        if (tag->code != 330) continue;
        const auto* style = context.findAs<KdDbTableStyle>(handleOf(*tag).value_or(0));
        if (style != nullptr) context.contents.current.tableStyle = style->objectId();
    }
}

/// The record of settings among the entries of the root; null when there is none.
const FileObject* findSettings(const LoadContext& context, const FileObject& root) {
    for (TagIterator tag = root.body; tag != root.tags.last && tag + 1 != root.tags.last; ++tag) {
        if (tag->is(kKey, kSettingsKey)) return context.fileObject(handleOf(tag[1]).value_or(0));
    }
    return nullptr;
}

/// A dictionary that every drawing has, under the root, made where the file has none.
KdDbObjectId requiredEntry(LoadContext& context, KdDbObjectId dictionary, const wchar_t* name,
                           std::unique_ptr<KdDbObject> fresh) {
    KdDbObject& holder = *findObject(dictionary);
    auto& state = static_cast<KdDbDictionaryState&>(KdDbObjectAccess::stateForMaker(holder));
    KdDbObjectId id;
    static_cast<KdDbDictionary&>(holder).getAt(name, id);
    const KdDbObject* found = peekObject(id);
    if (found == nullptr) {
        KdDbObject& made = context.insert(std::move(fresh), 0);
        KdDbObjectAccess::stateForMaker(made).owner = dictionary;
        state.put(name, id = made.objectId());
    } else {
        require(found->isA() == fresh->isA(), "a dictionary holds what it must not");
    }
    context.contents.required.insert(id);
    return id;
}

}  // namespace

void writeObjects(SaveContext& context) {
    std::unordered_set<KdDbObjectId> written(context.contents.remainder.tables.begin(),
                                             context.contents.remainder.tables.end());
    for (const auto& [handle, object] : context.contents.objects) addParts(written, *object);
    const KdDbObjectId root = context.contents.roots.namedObjects;
    context.settings = context.newHandle();
    writeDictionary(context, *peekObject(root));
    for (const auto& [handle, object] : context.contents.objects) {
        if (object->isErased() || object->objectId() == root || written.contains(object->objectId())) continue;
        const Kind* kind = kindOf(*object);
        const bool isKept = object->isKindOf(KdDbKeptObject::desc());
        if ((kind == nullptr && !isKept) || !isReachable(*object)) continue;
        isKept ? context.keptObject(*object) : kind->write(context, *object);
    }
    writeSettings(context);
    context.out.lines(context.objects);
}

void placeObjects(LoadContext& context, const FileSection& section) {
    require(!section.objects.empty() && section.objects.front().name == "DICTIONARY", "the root dictionary is missing");
    const FileObject& root = section.objects.front();
    if (const FileObject* settings = findSettings(context, root)) context.passedOver.insert(settings->handle);
    for (const FileObject& object : section.objects) {
        if (context.passedOver.contains(object.handle)) continue;
        const auto* kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                        [&](const Kind& each) { return each.name == object.name; });
        context.insert(kind == std::end(kKinds) ? make<KdDbKeptObject>() : kind->make(), object.handle);
    }
    context.contents.roots.namedObjects = context.idOf(root.handle);
    context.contents.required.insert(context.idOf(root.handle));
}

void readObjects(LoadContext& context, const FileSection& section) {
    for (const FileObject& source : section.objects) {
        KdDbObject* object = context.find(source.handle);
        if (object == nullptr) continue;
        const Kind* kind = kindOf(*object);
        if (kind == nullptr) {
            readKeptObject(context, *object, source);
            continue;
        }
        KdDbObjectState& state = KdDbObjectAccess::stateForMaker(*object);
        state.owner = context.idOf(source.owner);
        state.extensionDictionary =
            context.passedOver.contains(source.extension) ? KdDbObjectId::kNull : context.idOf(source.extension);
        kind->read(context, *object, source);
    }
    const KdDbObjectId root = context.contents.roots.namedObjects;
    requiredEntry(context, root, L"ACAD_GROUP", make<KdDbDictionary>());
    context.contents.roots.tableStyles = requiredEntry(context, root, L"ACAD_TABLESTYLE", make<KdDbDictionary>());
    context.contents.current.tableStyle =
        requiredEntry(context, context.contents.roots.tableStyles, L"Standard", make<KdDbTableStyle>());
    if (const FileObject* settings = findSettings(context, section.objects.front())) readSettings(context, *settings);
}

}  // namespace kdhost::file
