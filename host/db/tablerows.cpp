// Rows that come and go, in their blocks.

#include "host/db/tablerows.h"

#include <algorithm>

namespace kdhost {
namespace {

/// A block that would grow larger is cut.
constexpr std::size_t kLargestBlock = 128;
/// The length of new blocks.
constexpr std::size_t kNewBlock = 96;
/// Neighbours that have no more rows together become one.
constexpr std::size_t kSmallBlocks = 64;

template <class List>
auto at(List& list, std::size_t place) {
    return list.begin() + static_cast<std::ptrdiff_t>(place);
}

}  // namespace

void TableRows::toBlockOf(int row) const {
    const Blocks& all = *m_blocks;
    std::size_t place = m_near.block + 1;
    // Mostly a walk goes on.
    const bool isNext = m_near.count != 0 && place < all.size() && all[place].first <= row && row < all[place].behind();
    if (!isNext) {
        const auto behind = std::upper_bound(all.begin(), all.end(), row,
                                             [](int wanted, const Block& block) { return wanted < block.first; });
        place = static_cast<std::size_t>(behind - all.begin()) - 1;
    }
    beNear(place);
    // The next blocks lie anywhere in memory: what a walk will find in them is fetched meanwhile.
    if (place + 2 < all.size()) __builtin_prefetch(all[place + 2].rows.get());
    if (place + 1 < all.size()) __builtin_prefetch(all[place + 1].rows->looks.begin());
}

void TableRows::beNear(std::size_t place) const {
    const Block& block = (*m_blocks)[place];
    const RowBlock& rows = *block.rows;
    m_near = {rows.looks.begin(),  rows.measures.begin(),
              rows.bodies.begin(), static_cast<unsigned>(rows.size()),
              block.first,         place};
}

// A row most of whose looks were written mostly looks like the one above then, which was written before. For fewer
// cells looking at the whole row isn't worth it.
void TableRows::leaveOwn() {
    const unsigned place = static_cast<unsigned>(m_own.row - m_near.first);
    if (m_own.row <= 0 || place >= m_near.count || m_looksWritten < m_own.looks->size() / 2) return;
    const RowLooks& above =
        place == 0 ? *((*m_blocks)[m_near.block - 1].rows->looks.end() - 1) : m_near.looks[place - 1];
    if (*m_own.looks == above) *m_own.looks = above;
}

void TableRows::shareLooks(int row) {
    if (row == 0) return;
    const RowLooks above = looks(row - 1);
    const RowLooks& own = looks(row);
    if (!own.shares(above) && own == above) setLooks(row, above);
}

void TableRows::makeOwn(int row) {
    leaveOwn();
    m_looksWritten = 0;
    const auto place = static_cast<std::size_t>(row - nearTo(row).first);
    Block& block = m_blocks.write()[m_near.block];
    RowBlock& rows = block.rows.write();
    rows.measures.write();
    m_own = {row, &rows.looks.write()[place], rows.measures.begin() + place, nullptr};
    block.settled = 0;
    beNear(m_near.block);
}

void TableRows::makeBodyOwn(int row) {
    if (row != m_own.row) makeOwn(row);
    const auto place = static_cast<std::size_t>(row - nearTo(row).first);
    m_own.body = &m_blocks.write()[m_near.block].rows.write().bodies.write()[place];
    beNear(m_near.block);
}

void TableRows::insert(int where, int count, const TableRow& row) {
    if (count <= 0) return;
    const auto added = static_cast<std::size_t>(count);
    RowBlock rows;
    if (m_count == 0) {
        rows.insert(0, added, row);
        replaceBlocks(0, 0, std::move(rows));
    } else {
        const Near near = nearTo(std::min(where, m_count - 1));
        rows = *(*m_blocks)[near.block].rows;
        rows.insert(static_cast<std::size_t>(where - near.first), added, row);
        replaceBlocks(near.block, 1, std::move(rows));
    }
    m_count += count;
}

void TableRows::erase(int first, int count) {
    if (count <= 0) return;
    const int behind = first + count;
    const Near from = nearTo(first);
    const Near last = nearTo(behind - 1);
    const Blocks& all = *m_blocks;
    const auto head = static_cast<std::size_t>(first - from.first);
    const auto tail = static_cast<std::size_t>(behind - last.first);
    // What is left at both ends, and the next block if that is small, make a new one.
    RowBlock rows = RowBlock::joined({*all[from.block].rows, 0, head}, {*all[last.block].rows, tail, last.count});
    std::size_t next = last.block + 1;
    if (next < all.size() && rows.size() + all[next].rows->size() <= kSmallBlocks) {
        rows = RowBlock::joined({rows, 0, rows.size()}, {*all[next].rows, 0, all[next].rows->size()});
        ++next;
    }
    replaceBlocks(from.block, next - from.block, std::move(rows));
    m_count -= count;
}

void TableRows::replaceBlocks(std::size_t place, std::size_t count, RowBlock rows) {
    Blocks made;
    if (rows.size() > kLargestBlock) {
        for (std::size_t first = 0; first < rows.size(); first += kNewBlock) {
            const std::size_t behind = std::min(rows.size(), first + kNewBlock);
            made.push_back({CopyOnWrite(RowBlock::joined({rows, first, behind}, {rows, behind, behind}))});
        }
    } else if (rows.size() != 0) {
        made.push_back({CopyOnWrite(std::move(rows))});
    }
    Blocks& all = m_blocks.write();
    const std::size_t common = std::min(count, made.size());
    std::move(made.begin(), at(made, common), at(all, place));
    all.erase(at(all, place + common), at(all, place + count));
    all.insert(at(all, place + common), at(made, common), made.end());
    int first = place == 0 ? 0 : all[place - 1].behind();
    for (; place < all.size(); ++place) {
        all[place].first = first;
        first = all[place].behind();
    }
    forgetPlaces();
}

}  // namespace kdhost
