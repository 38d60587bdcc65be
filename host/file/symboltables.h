// The symbol tables and the blocks, in and out of a file.
#pragma once

#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"

namespace kdhost::file {

class TableBlocks;

/// Gives handles to the tables that every file must have and this drawing doesn't know.
void reserveStandardTables(SaveContext& context);
/// The section TABLES; those tables are made up.
void writeTables(SaveContext& context, const TableBlocks& blocks);

/// Gives the tables and their records their places, by name: only then can anything else be read.
void placeTables(LoadContext& context, const FileSection& section);
/// What the records hold, once all objects have their places.
void readTables(LoadContext& context, const FileSection& section);

}  // namespace kdhost::file
