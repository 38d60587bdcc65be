// The rows of one state of a table.
//
// Rows stand in blocks, and a list holds the blocks; blocks and the list are each shared between states until one of
// them writes. So keeping a state costs nothing, a changed row costs its block, and a row that comes or goes costs its
// block and the list, which is short: not the table's length.
//
//     list      block 0 (row 0)    block 1 (row 96)    block 2 (row 200) ...
//     block     row row row ...    row row row ...     row row row ...
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "host/db/rowblock.h"

namespace kdhost {

class TableRows {
public:
    TableRows() = default;
    // Copies only: what is moved from would keep its memory of a block that it no longer holds. From a copy on,
    // neither has a row for itself.
    TableRows(const TableRows& other) : m_blocks(other.m_blocks), m_count(other.m_count) { other.m_own = {}; }
    TableRows& operator=(const TableRows& other) {
        if (this == &other) return *this;
        m_blocks = other.m_blocks;
        m_count = other.m_count;
        forgetPlaces();
        other.m_own = {};
        return *this;
    }
    ~TableRows() = default;

    int size() const { return m_count; }
    const RowBody& operator[](int row) const { return nearTo(row).bodies[row - m_near.first]; }
    const RowLooks& looks(int row) const { return nearTo(row).looks[row - m_near.first]; }
    /// What is known of the row under that layout, to be told what is found out.
    const RowMeasures& measures(int row, std::uint64_t layout) const {
        return nearTo(row).measures[row - m_near.first].of(layout);
    }
    const CellLook& look(int row, int column) const { return looks(row)[static_cast<std::size_t>(column)]; }
    const CellContent& content(int row, int column) const {
        return (*this)[row].content(static_cast<std::size_t>(column));
    }
    /// The looks of a row that stands in the block looked at last, else null.
    const RowLooks* nearLooks(int row) const {
        const unsigned place = static_cast<unsigned>(row - m_near.first);
        return place < m_near.count ? &m_near.looks[place] : nullptr;
    }
    /// The body of a row for which there are near looks.
    const RowBody& nearBody(int row) const { return m_near.bodies[row - m_near.first]; }
    /// Whether nothing was written in either since one was copied from the other.
    bool shares(const TableRows& other) const { return m_blocks.shares(other.m_blocks); }

    // What is written is written for this state alone, and forgets what was worked out about the row.

    CellLook& writeLook(int row, int column) {
        if (row != m_own.row) [[unlikely]]
            makeOwn(row);
        m_own.measures->forget();
        ++m_looksWritten;
        return m_own.looks->write()[static_cast<std::size_t>(column)];
    }
    void setLooks(int row, const RowLooks& looks) {
        if (row != m_own.row) [[unlikely]]
            makeOwn(row);
        m_own.measures->forget();
        *m_own.looks = looks;
    }
    CellContent& writeContent(int row, int column) { return write(row).writeContent(static_cast<std::size_t>(column)); }
    RowBody& write(int row) {
        if (row != m_own.row || m_own.body == nullptr) [[unlikely]]
            makeBodyOwn(row);
        m_own.measures->forget();
        return *m_own.body;
    }
    /// Calls `change(whole)` with a copy of the row, which it becomes then.
    template <class Change>
    void changeRow(int row, Change&& change) {
        RowBody& body = write(row);
        TableRow whole{body, *m_own.looks};
        change(whole);
        *m_own.looks = std::move(whole.looks);
        body = std::move(whole);
    }
    /// A height is no part of what the row's own text asks for.
    void setHeight(int row, double height) {
        if ((*this)[row].height == height) return;
        makeBodyOwn(row);
        m_own.body->height = height;
    }

    /// Calls `visit(row)` for each row that isn't shared with the one at the same place of another state with as many
    /// rows. Blocks that both share cost one look.
    template <class Visit>
    void visitChanged(const TableRows& before, Visit&& visit) const {
        if (shares(before) || m_count == 0) return;
        auto other = before.m_blocks->begin();
        for (const Block& block : *m_blocks) {
            for (int row = block.first; row < block.behind(); ++row) {
                while (other->behind() <= row) ++other;
                if (block.first == other->first && block.rows.shares(other->rows)) break;
                const auto place = static_cast<std::size_t>(row - block.first);
                const auto otherPlace = static_cast<std::size_t>(row - other->first);
                if (!block.rows->sharesRow(place, *other->rows, otherPlace)) visit(row);
            }
        }
    }

    /// Calls `visit(row)` for the rows of each block that isn't settled under that stamp. A block is from then on,
    /// until something in it is written, if all of these calls gave true.
    template <class Visit>
    void visitUnsettled(std::uint64_t stamp, Visit&& visit) {
        for (std::size_t place = 0; m_count != 0 && place < m_blocks->size(); ++place) {
            if ((*m_blocks)[place].settled == stamp) continue;
            const int behind = (*m_blocks)[place].behind();
            bool all = true;
            for (int row = (*m_blocks)[place].first; row < behind; ++row) all = visit(row) && all;
            if (!all) continue;
            (*m_blocks)[place].settled = stamp;  // of a list of its own, where a visit has written
            m_own = {};                          // its next write is to be noticed
        }
    }

    /// Lets the row share the looks of the one above it where they are the same.
    void shareLooks(int row);

    /// Inserts copies of one row; they share it until written.
    void insert(int at, int count, const TableRow& row);
    void erase(int first, int count);

private:
    struct Block {
        CopyOnWrite<RowBlock> rows;  ///< at least one
        int first = 0;               ///< row of the table
        /// Under which stamp nothing was to be done in it, and nothing was written since; 0 for none.
        mutable std::uint64_t settled = 0;

        int behind() const { return first + static_cast<int>(rows->size()); }
    };
    using Blocks = std::vector<Block>;
    static constexpr int kNoRow = -1;
    /// The block looked at last. Walks go row by row, so that the next look mostly goes there too.
    struct Near {
        const RowLooks* looks = nullptr;
        const RowMeasures* measures = nullptr;
        const RowBody* bodies = nullptr;
        unsigned count = 0;
        int first = 0;
        std::size_t block = 0;
    };
    /// The row written last, while nobody shares its block: walks write cell after cell of a row.
    struct Own {
        int row = kNoRow;
        RowLooks* looks = nullptr;
        const RowMeasures* measures = nullptr;
        RowBody* body = nullptr;  ///< null until something in it is written
    };

    /// The row's block, which is then the near one.
    const Near& nearTo(int row) const {
        if (static_cast<unsigned>(row - m_near.first) >= m_near.count) [[unlikely]]
            toBlockOf(row);
        return m_near;
    }
    void toBlockOf(int row) const;
    void beNear(std::size_t block) const;
    void makeOwn(int row);
    void makeBodyOwn(int row);
    void leaveOwn();
    void forgetPlaces() {
        m_near = {};
        m_own = {};
    }
    /// Puts rows in the place of `count` blocks, in one block or, where they are too many, in some with room to grow.
    void replaceBlocks(std::size_t at, std::size_t count, RowBlock rows);

    CopyOnWrite<Blocks> m_blocks;
    int m_count = 0;  ///< asked for before every look at a cell, hence at hand
    mutable Near m_near;
    mutable Own m_own;
    std::size_t m_looksWritten = 0;  ///< in the own row
};

}  // namespace kdhost
