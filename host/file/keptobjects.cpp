// Entities and objects that are kept as they stand.

#include "host/file/keptobjects.h"

#include "host/db/access.h"
#include "host/db/entitystate.h"
#include "host/file/commonattributes.h"

namespace kdhost::file {
namespace {

constexpr int kLayer = 8;

}  // namespace

KeptObject keptFrom(LoadContext& context, const FileObject& object) {
    KeptObject kept;
    kept.name = object.name;
    kept.tags = context.keep(object.tags, &object);
    return kept;
}

void readKeptEntity(LoadContext& context, KdDbEntity& entity, const FileObject& object) {
    auto& state = static_cast<KdDbKeptEntityState&>(KdDbObjectAccess::stateForMaker(entity));
    state.layer = context.contents.roots.layerZero;
    state.linetype = context.contents.roots.byLayer;
    std::vector<KdDbObjectId> parts = std::move(state.kept.parts);
    TagIterator layer = object.tags.first;
    while (layer != object.tags.last && layer->code != kLayer) ++layer;
    if (layer == object.tags.last) {
        state.kept = keptFrom(context, object);
    } else {
        state.layer = context.layer(layer->value());
        state.kept.name = object.name;
        // What stands before the layer's name, the name's own place, and what stands behind it.
        KeptTags& kept = state.kept.tags;
        kept = context.keep({object.tags.first, layer}, &object);
        kept.lines += "8\n";
        kept.places.push_back({static_cast<std::uint32_t>(kept.lines.size()), KeptTags::Kind::layer, {}});
        kept.lines += '\n';
        for (TagIterator tag = layer + 1; tag != object.tags.last; ++tag) context.keep(tag, kept);
    }
    state.kept.parts = std::move(parts);
}

void readKeptObject(LoadContext& context, KdDbObject& object, const FileObject& source) {
    auto& state = static_cast<KdDbKeptObjectState&>(KdDbObjectAccess::stateForMaker(object));
    std::vector<KdDbObjectId> parts = std::move(state.kept.parts);
    state.kept = keptFrom(context, source);
    state.kept.parts = std::move(parts);
    state.owner = context.idOf(source.owner);
    // The dictionary stands in the tags; it is known so that cloning takes it along.
    state.extensionDictionary = context.idOf(source.extension);
}

}  // namespace kdhost::file
