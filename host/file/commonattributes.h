// What all entities have, in and out of a file.
#pragma once

#include "host/db/databasecontents.h"
#include "host/file/record.h"

namespace kdhost::file {

template <class Context, class Archive, class State>
void describeCommon(Context& context, Archive& archive, State& entity) {
    constexpr int kByLayer = 256;
    archive.subclass("AcDbEntity");
    if constexpr (!Archive::kReads) {
        if (entity.owner == context.contents.roots.paperSpace) archive.value(67, 1);
    }
    archive.layer(8, entity.layer);
    archive.linetype(6, entity.linetype, context.contents.roots.byLayer);
    archive.color(62, entity.color, kByLayer);
    archive.value(370, entity.lineWeight, KdDb::kLnWtByLayer);
    archive.value(60, entity.visibility, KdDb::kVisible);
    if constexpr (Archive::kReads) {
        int space = 0;
        archive.value(67, space, 0);
    }
    archive.endCommon();
}

/// An entity that is kept as it stands: of its tags the host knows the layer alone.
void readKeptEntity(LoadContext& context, KdDbEntity& entity, const FileObject& object);

}  // namespace kdhost::file
