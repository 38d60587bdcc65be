// The blocks "*T1", "*T2" ... that show what tables look like to programs which know no tables. They are made at each
// save and passed over at each opening.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/file/savecontext.h"
#include "kd/db/table.h"

namespace kdhost::file {

struct TableBlock {
    const KdDbTable* table = nullptr;
    std::string name;
    std::uint64_t record = 0;
};

class TableBlocks {
public:
    /// One for each table that is written.
    explicit TableBlocks(SaveContext& context);

    const std::vector<TableBlock>& all() const { return m_blocks; }
    const TableBlock& of(const KdDbTable& table) const;

    void writeRecords(SaveContext& context, std::uint64_t tableOfBlocks) const;
    /// With the entities that show the tables.
    void writeBlocks(SaveContext& context) const;

private:
    std::vector<TableBlock> m_blocks;
    std::unordered_map<const KdDbTable*, std::size_t> m_place;
};

}  // namespace kdhost::file
