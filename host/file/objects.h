// The section OBJECTS: dictionaries, table styles, fields, and what is kept as it stands.
#pragma once

#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"

namespace kdhost::file {

void writeObjects(SaveContext& context);

void placeObjects(LoadContext& context, const FileSection& section);
void readObjects(LoadContext& context, const FileSection& section);

// One kind each.
void writeTableStyle(SaveContext& context, const KdDbObject& style);
void readTableStyle(LoadContext& context, KdDbObject& style, const FileObject& object);
void writeField(SaveContext& context, const KdDbObject& field);
void readField(LoadContext& context, KdDbObject& field, const FileObject& object);

}  // namespace kdhost::file
