// What is kept as it stands, from a file into the drawing.
#pragma once

#include "host/file/loadcontext.h"

namespace kdhost::file {

KeptObject keptFrom(LoadContext& context, const FileObject& object);
/// Reads an object of class KdDbKeptObject.
void readKeptObject(LoadContext& context, KdDbObject& object, const FileObject& source);

}  // namespace kdhost::file
