// A drawing as the bytes of a file, and back.
#pragma once

#include <string>
#include <string_view>

#include "kd/db/database.h"

namespace kdhost::file {

/// How drawings are written from now on, in the whole program.
struct SaveOptions {
    /// Each table is followed by an insertion of the block that shows it, for programs that pass over tables. Whoever
    /// knows both sees the table twice; this program passes over the insertion.
    bool insertsTables = false;
};
SaveOptions& saveOptions();

/// The whole file.
std::string drawingBytes(const KdDbDatabase& database);

/// Reads a file into a database that holds nothing yet; on failure it holds nothing afterwards. eFileCorrupt for bytes
/// that are no drawing or one that contradicts itself, eFileVersion for a version that isn't read.
Kdad::ErrorStatus readDrawing(KdDbDatabase& database, std::string_view bytes);

/// What was wrong with the file that was refused last, for the log.
const std::string& lastRefusal();

}  // namespace kdhost::file
