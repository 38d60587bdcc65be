// Which object is which, by handle and by name; what is kept as it stands.

#include "host/file/loadcontext.h"

#include "host/db/access.h"
#include "host/db/names.h"
#include "host/db/opening.h"
#include "host/db/symbolstate.h"
#include "host/file/tagwriter.h"
#include "host/rx/encoding.h"

namespace kdhost::file {

KdDbObject& LoadContext::insert(std::unique_ptr<KdDbObject> object, std::uint64_t handle) {
    KdDbObject& made = *object;
    const KdDbObjectId id = KdDbDatabaseAccess::insert(database, std::move(object), KdDbObjectId::kNull, handle);
    require(id.isValid(), "a handle comes twice");
    if (handle != 0) m_objects.emplace(handle, &made);
    return made;
}

KdDbObject* LoadContext::find(std::uint64_t handle) const {
    const auto found = m_objects.find(handle);
    return found == m_objects.end() ? nullptr : found->second;
}

KdDbObjectId LoadContext::idOf(std::uint64_t handle) const {
    const KdDbObject* object = find(handle);
    return object == nullptr ? KdDbObjectId::kNull : object->objectId();
}

const FileObject* LoadContext::fileObject(std::uint64_t handle) const {
    const auto found = fileObjects.find(handle);
    return found == fileObjects.end() ? nullptr : found->second;
}

std::unordered_map<std::string, KdDbObjectId>& LoadContext::namesOf(KdDbObjectId table) {
    const auto [names, isNew] = m_names.try_emplace(table);
    if (isNew) {
        const KdDbObject* object = peekObject(table);
        require(object != nullptr, "a symbol table is missing");
        for (const KdDbObjectId id : stateOf<KdDbSymbolTableState>(*object).records) {
            const std::wstring& name = stateOf<KdDbSymbolTableRecordState>(*peekObject(id)).name;
            names->second.try_emplace(toUtf8(foldedName(name.c_str())), id);
        }
    }
    return names->second;
}

KdDbObjectId LoadContext::recordOrNull(KdDbObjectId table, std::string_view name) {
    if (table == m_lastTable && name == m_lastName && m_lastRecord.isValid()) return m_lastRecord;
    const auto& names = namesOf(table);
    const auto found = names.find(toUtf8(foldedName(textOf(name).c_str())));
    m_lastTable = table;
    m_lastName = name;
    m_lastRecord = found == names.end() ? KdDbObjectId::kNull : found->second;
    return m_lastRecord;
}

KdDbObjectId LoadContext::record(KdDbObjectId table, std::string_view name) {
    const KdDbObjectId id = recordOrNull(table, name);
    require(id.isValid(), "a name stands for nothing");
    return id;
}

KdDbObjectId LoadContext::layer(std::string_view name) {
    const KdDbObjectId table = contents.roots.layerTable;
    const KdDbObjectId known = recordOrNull(table, name);
    if (known.isValid()) return known;
    const std::wstring text = textOf(name);
    require(!text.empty(), "an entity is on no layer");
    auto made = std::make_unique<KdDbLayerTableRecord>();
    made->setName(text.c_str());
    KdDbObject& record = insert(std::move(made), 0);
    auto& state = static_cast<KdDbLayerTableRecordState&>(KdDbObjectAccess::stateForMaker(record));
    state.owner = table;
    state.linetype = contents.roots.continuous;
    static_cast<KdDbSymbolTableState&>(KdDbObjectAccess::stateForMaker(*findObject(table)))
        .records.push_back(record.objectId());
    namesOf(table).emplace(toUtf8(foldedName(text.c_str())), record.objectId());
    return m_lastRecord = record.objectId();
}

void LoadContext::keep(TagIterator tag, KeptTags& kept) {
    char digits[8];
    const auto length = std::snprintf(digits, sizeof digits, "%d\n", tag->code);
    kept.lines.append(digits, static_cast<std::size_t>(length));
    if (isPointerCode(tag->code)) {
        const std::optional<std::uint64_t> handle = handleOf(*tag);
        require(handle.has_value(), "a handle is none");
        const auto kind = isOwningCode(tag->code) ? KeptTags::Kind::owned : KeptTags::Kind::pointer;
        kept.places.push_back({static_cast<std::uint32_t>(kept.lines.size()), kind, idOf(*handle)});
    } else {
        kept.lines.append(tag->at, tag->length);
    }
    kept.lines += '\n';
}

KeptTags LoadContext::keep(TagSpan tags, const FileObject* identity) {
    KeptTags kept;
    bool seenHandle = false;
    bool seenOwner = false;
    const auto place = [&](int code, KeptTags::Kind kind) {
        kept.lines += std::to_string(code) + "\n";
        kept.places.push_back({static_cast<std::uint32_t>(kept.lines.size()), kind, {}});
        kept.lines += '\n';
    };
    for (TagIterator tag = tags.first; tag != tags.last; ++tag) {
        if (identity != nullptr && tag < identity->body) {
            if (tag->code == 102) {
                const TagIterator behind = behindGroup(tag, tags.last);
                for (; tag + 1 != behind; ++tag) keep(tag, kept);
                keep(tag, kept);
                continue;
            }
            const bool isHandle = !seenHandle && (tag->code == 5 || tag->code == 105);
            const bool isOwner = !seenOwner && tag->code == 330;
            seenHandle = seenHandle || isHandle;
            seenOwner = seenOwner || isOwner;
            if (isHandle || isOwner) {
                place(tag->code, isHandle ? KeptTags::Kind::own : KeptTags::Kind::owner);
                continue;
            }
        }
        keep(tag, kept);
    }
    return kept;
}

KeptTags LoadContext::keepGroups(const FileObject& object) {
    KeptTags kept;
    for (TagIterator tag = object.tags.first; tag != object.body; ++tag) {
        if (tag->code != 102) continue;
        const TagIterator end = behindGroup(tag, object.tags.last) - 1;
        const bool isExtension = tag->value() == "{ACAD_XDICTIONARY";
        for (; tag != end; ++tag) {
            if (!isExtension) keep(tag, kept);
        }
        if (!isExtension) keep(end, kept);
    }
    return kept;
}

void LoadContext::setForeign(KdDbObject& object, ForeignTags tags) {
    constexpr KeptTags ForeignTags::*kParts[] = {&ForeignTags::groups, &ForeignTags::common, &ForeignTags::own,
                                                 &ForeignTags::extras};
    auto& foreign = KdDbObjectAccess::stateForMaker(object).foreign;
    bool isNone = true;
    for (const auto part : kParts) {
        isNone = isNone && (tags.*part).empty();
        if (foreign != nullptr && (tags.*part).empty()) tags.*part = (*foreign).*part;
    }
    if (!isNone) foreign = std::make_shared<const ForeignTags>(std::move(tags));
}

}  // namespace kdhost::file
