// Entities in and out of a file.
#pragma once

#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"

namespace kdhost::file {

/// Writes an entity whole: one that the program knows, a table, or one that is kept.
void writeEntity(SaveContext& context, const KdDbEntity& entity);

/// Makes the entity that the object will be; one of a kind that the program doesn't know, or with more to it than the
/// program's own kind holds, is made to be kept as it stands.
std::unique_ptr<KdDbEntity> makeEntity(const FileObject& object);
/// Whether vertices, attributes and their like follow the object, up to one of the name "SEQEND".
bool hasParts(const FileObject& object);

/// Reads what the file says of the entity, once all objects have their places.
void readEntity(LoadContext& context, KdDbEntity& entity, const FileObject& object);

/// Name, handle, extension dictionary and owner; what every object but few begins with.
void writeIdentity(SaveContext& context, std::string_view name, const KdDbObject& object, std::uint64_t extension = 0);

/// The file's word for whether the entity is in a paper space.
bool isInPaperSpace(const FileObject& object);

}  // namespace kdhost::file
