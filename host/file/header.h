// The variables of a drawing, in and out of a file's header.
#pragma once

#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"

namespace kdhost::file {

/// The section HEADER; `nextHandle` is greater than every handle in the file.
void writeHeader(const KdDbDatabase& database, SaveContext& names, TagWriter& out, std::uint64_t nextHandle);
/// The section CLASSES.
void writeClasses(SaveContext& context, TagWriter& out);

/// Whether the file is of a version that is read: its texts are in UTF-8.
bool isKnownVersion(const FileSection& header);
void readHeader(LoadContext& context, const FileSection& header);
void readClasses(LoadContext& context, const FileSection& classes);

}  // namespace kdhost::file
