// What all parts of writing a drawing share: the drawing, the bytes so far, handles for what only the file has.
#pragma once

#include <string>
#include <unordered_map>

#include "host/db/databasecontents.h"
#include "host/db/keptobject.h"
#include "host/file/tagwriter.h"

namespace kdhost::file {

class TableBlocks;

struct SaveContext {
    explicit SaveContext(const KdDbDatabase& saved);

    /// The handle of an object that is written; 0 for any other.
    std::uint64_t handleOf(KdDbObjectId id) const;
    /// The name of a layer, line type, text style or block, as the file has it; of an object that is gone, the name of
    /// what takes its place.
    const std::string& nameOf(KdDbObjectId id);
    std::uint64_t newHandle() { return nextHandle++; }

    /// The lines with what is to be put into them.
    void keptTags(const KeptTags& tags, const KdDbObject& object);
    /// A whole object with its parts.
    void keptObject(const KdDbObject& object);

    const KdDbDatabase& database;
    const DatabaseContents& contents;
    TagWriter out;
    /// Handles of what isn't an object of the drawing, and is made anew at each save: above all of the drawing's.
    std::uint64_t nextHandle = 1;
    /// Of tables that are made up, by name: handles of the table and of its record.
    std::unordered_map<std::string, std::pair<std::uint64_t, std::uint64_t>> standardTables;
    const TableBlocks* tableBlocks = nullptr;
    std::uint64_t settings = 0;  ///< the record of what the header has no variables for
    std::string objects;         ///< records that belong to what is written, for the last section
    std::unordered_map<KdDbObjectId, std::uint64_t> extraEntries;  ///< of dictionaries: the records of extras

private:
    std::unordered_map<KdDbObjectId, std::string> m_names;
};

}  // namespace kdhost::file
