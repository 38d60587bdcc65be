// The rows of one state of a table.
//
// Rows stand in blocks, and a list holds the blocks; rows, blocks and the list are each shared between states until one
// of them writes. So keeping a state costs nothing, a changed row costs its block, and a row that comes or goes costs
// its block and the list, which is short: not the table's length.
//
//     list      block 0 (row 0)    block 1 (row 96)    block 2 (row 200) ...
//     block     row row row ...    row row row ...
#pragma once

#include <cstdint>
#include <vector>

#include "host/db/tablecell.h"
#include "host/db/tablecow.h"

namespace kdhost {

class TableRows {
public:
    TableRows() = default;
    // Copies only: what is moved from would keep its memory of a block that it no longer holds. From a copy on,
    // neither has a row for itself.
    TableRows(const TableRows& other) : m_list(other.m_list), m_count(other.m_count) { other.m_ownRow = kNoRow; }
    TableRows& operator=(const TableRows& other) {
        if (this == &other) return *this;
        m_list = other.m_list;
        m_count = other.m_count;
        forgetPlaces();
        other.m_ownRow = kNoRow;
        return *this;
    }
    ~TableRows() = default;

    int size() const { return m_count; }
    const TableRow& operator[](int row) const {
        const unsigned place = static_cast<unsigned>(row - m_near.first);
        if (place < m_near.count) [[likely]]
            return *m_near.rows[place];
        blockOf(row);
        return *m_near.rows[row - m_near.first];
    }
    const CellLook& look(int row, int column) const { return (*this)[row].looks[static_cast<std::size_t>(column)]; }
    const CellContent& content(int row, int column) const {
        return (*this)[row].content(static_cast<std::size_t>(column));
    }
    /// The row where it stands in the block looked at last, else null.
    const TableRow* nearRow(int row) const {
        const unsigned place = static_cast<unsigned>(row - m_near.first);
        return place < m_near.count ? m_near.rows[place].get() : nullptr;
    }
    /// Whether nothing was written in either since one was copied from the other.
    bool shares(const TableRows& other) const { return m_list.shares(other.m_list); }

    /// The row for this state alone.
    TableRow& write(int row) {
        if (row != m_ownRow) [[unlikely]]
            makeOwn(row);
        m_own->forgetMeasures();
        return *m_own;
    }
    /// A height is no part of what the row's own text asks for.
    void setHeight(int row, double height) {
        if ((*this)[row].height == height) return;
        makeOwn(row);
        m_own->height = height;
    }
    CellLook& writeLook(int row, int column) {
        TableRow& own = write(row);
        ++m_looksWritten;
        return own.writeLook(static_cast<std::size_t>(column));
    }
    CellContent& writeContent(int row, int column) { return write(row).writeContent(static_cast<std::size_t>(column)); }

    /// Calls `visit(row)` for each row that isn't shared with the one at the same place of another state with as many
    /// rows. Blocks that both share cost one look.
    template <class Visit>
    void visitChanged(const TableRows& before, Visit&& visit) const {
        std::size_t other = 0;
        for (std::size_t block = 0; !shares(before) && block < m_list->blocks.size(); ++block) {
            const int first = m_list->firstRows[block];
            while (other + 1 < before.m_list->blocks.size() && before.m_list->firstRows[other] < first) ++other;
            const bool same =
                before.m_list->firstRows[other] == first && m_list->blocks[block].shares(before.m_list->blocks[other]);
            const int behind = first + static_cast<int>(m_list->blocks[block]->size());
            for (int row = first; !same && row < behind; ++row) {
                if (&(*this)[row] != &before[row]) visit(row);
            }
        }
    }
    /// Calls `visit(row)` for the rows of each block that isn't settled under that stamp. A block is from then on,
    /// until something in it is written, if all of these calls gave true.
    template <class Visit>
    void visitUnsettled(std::uint64_t stamp, Visit&& visit) {
        for (std::size_t block = 0; m_list && block < m_list->blocks.size(); ++block) {
            if (m_list->settled[block] == stamp) continue;
            const int first = m_list->firstRows[block];
            const int behind = first + static_cast<int>(m_list->blocks[block]->size());
            bool all = true;
            for (int row = first; row < behind; ++row) all = visit(row) && all;
            if (!all) continue;
            m_list->settled[block] = stamp;
            m_ownRow = kNoRow;  // its next write is to be noticed
        }
    }

    /// Lets the row share the looks of the one above it where they are the same.
    void shareLooks(int row);

    /// Inserts copies of one row; they share it until written.
    void insert(int at, int count, TableRow row);
    void erase(int first, int count);

private:
    using Row = CopyOnWrite<TableRow>;
    using Block = std::vector<Row>;
    struct List {
        std::vector<CopyOnWrite<Block>> blocks;  ///< none of them empty
        std::vector<int> firstRows;              ///< of each block; they ascend from 0
        /// Under which stamp nothing was to be done in a block, and nothing was written since; 0 for none.
        mutable std::vector<std::uint64_t> settled;
    };
    static constexpr int kNoRow = -1;
    /// The block looked at last. Walks go row by row, so that the next look mostly goes there too.
    struct Near {
        const Row* rows = nullptr;
        unsigned count = 0;
        int first = 0;
        std::size_t block = 0;
    };

    /// The block that the row stands in, which is then the near one.
    std::size_t blockOf(int row) const;
    void makeOwn(int row);
    void leaveOwn();
    void forgetPlaces() {
        m_near = {};
        m_ownRow = kNoRow;
    }
    /// Puts rows in the place of `count` blocks, as blocks with room to grow.
    static void replaceBlocks(List& list, std::size_t at, std::size_t count, const Block& rows);
    static void countFrom(List& list, std::size_t block);

    CopyOnWrite<List> m_list;
    int m_count = 0;  ///< asked for before every look at a cell, hence at hand
    mutable Near m_near;
    /// The row written last, while nobody shares it: walks write cell after cell of a row.
    mutable int m_ownRow = kNoRow;
    TableRow* m_own = nullptr;
    std::size_t m_looksWritten = 0;  ///< in that row
};

}  // namespace kdhost
