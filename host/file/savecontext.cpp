// Names and handles of what is written.

#include "host/file/savecontext.h"

#include "host/db/access.h"
#include "host/db/symbolstate.h"

namespace kdhost::file {

SaveContext::SaveContext(const KdDbDatabase& saved) : database(saved), contents(KdDbDatabaseAccess::contents(saved)) {
    // Erased objects aren't written: a drawing that is opened and saved again comes to the same number.
    for (const auto& [handle, object] : contents.objects) {
        if (!object->isErased()) nextHandle = handle + 1;
    }
}

std::uint64_t SaveContext::handleOf(KdDbObjectId id) const {
    const KdDbObject* object = id.isNull() ? nullptr : peekObject(id);
    return object == nullptr || object->database() != &database ? 0 : object->handle();
}

const std::string& SaveContext::nameOf(KdDbObjectId id) {
    const auto [known, isNew] = m_names.try_emplace(id);
    if (!isNew) return known->second;
    const KdDbObject* object = peekObject(id);
    if (object != nullptr && object->isKindOf(KdDbSymbolTableRecord::desc())) {
        appendText(known->second, stateOf<KdDbSymbolTableRecordState>(*object).name);
    }
    return known->second;
}

void SaveContext::keptTags(const KeptTags& tags, const KdDbObject& object) {
    std::size_t done = 0;
    const std::string_view lines = tags.lines;
    for (const KeptTags::Place& place : tags.places) {
        out.lines(lines.substr(done, place.at - done));
        done = place.at;
        switch (place.kind) {
            case KeptTags::Kind::own:
                out.lines(handleText(object.handle()));
                break;
            case KeptTags::Kind::owner:
                out.lines(handleText(handleOf(object.ownerId())));
                break;
            case KeptTags::Kind::layer:
                out.lines(nameOf(stateOf<KdDbEntityState>(object).layer));
                break;
            default:
                out.lines(handleText(handleOf(place.id)));
        }
    }
    out.lines(lines.substr(done));
}

void SaveContext::keptObject(const KdDbObject& object) {
    const KeptObject& kept = kdhost::keptObject(object);
    out.raw(0, kept.name);
    keptTags(kept.tags, object);
    for (const KdDbObjectId part : kept.parts) {
        if (const KdDbObject* each = peekObject(part)) keptObject(*each);
    }
}

}  // namespace kdhost::file
