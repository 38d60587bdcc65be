// Blocks and what stands in them: the sections BLOCKS and ENTITIES.
#pragma once

#include "host/file/loadcontext.h"
#include "host/file/savecontext.h"

namespace kdhost::file {

class TableBlocks;

void writeBlocks(SaveContext& context, const TableBlocks& tables);
void writeEntities(SaveContext& context);
/// The two ends of a block, around what `entities()` writes.
void writeBlockBegin(SaveContext& context, std::uint64_t record, std::string_view name, const KdGePoint3d& origin,
                     bool anonymous);
void writeBlockEnd(SaveContext& context, std::uint64_t record);

/// Gives the entities of both sections their places.
void placeEntities(LoadContext& context, const FileSection& blocks, const FileSection& entities);
/// What they hold, once all objects have their places.
void readEntities(LoadContext& context, const FileSection& blocks, const FileSection& entities);

/// Finds the blocks that only show tables.
void findTableBlocks(LoadContext& context, const FileSection& tables, const FileSection& blocks,
                     const FileSection& entities);

}  // namespace kdhost::file
