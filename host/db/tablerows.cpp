// Rows that come and go, in their blocks.

#include "host/db/tablerows.h"

#include <algorithm>
#include <iterator>

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

std::size_t TableRows::blockOf(int row) const {
    const List& all = *m_list;
    const auto behind = std::upper_bound(all.firstRows.begin(), all.firstRows.end(), row);
    const auto block = static_cast<std::size_t>(behind - all.firstRows.begin()) - 1;
    m_near = {all.blocks[block]->data(), static_cast<unsigned>(all.blocks[block]->size()), all.firstRows[block], block};
    return block;
}

// A row most of whose looks were written mostly looks like the one above then, which was written before. For fewer
// cells looking at the whole row isn't worth it.
void TableRows::leaveOwn() {
    const unsigned place = static_cast<unsigned>(m_ownRow - m_near.first);
    if (m_ownRow == kNoRow || place == 0 || place >= m_near.count) return;
    if (m_looksWritten >= m_own->size() / 2) m_own->shareLooks(*m_near.rows[place - 1]);
}

void TableRows::shareLooks(int row) {
    if (row > 0 && !(*this)[row].looks.shares((*this)[row - 1].looks)) write(row).shareLooks((*this)[row - 1]);
}

void TableRows::makeOwn(int row) {
    leaveOwn();
    m_looksWritten = 0;
    if (static_cast<unsigned>(row - m_near.first) >= m_near.count) blockOf(row);
    List& all = m_list.write();
    Block& rows = all.blocks[m_near.block].write();
    all.settled[m_near.block] = 0;
    m_near.rows = rows.data();
    m_own = &rows[static_cast<std::size_t>(row - m_near.first)].write();
    m_ownRow = row;
}

void TableRows::insert(int where, int count, TableRow row) {
    if (count <= 0) return;
    const Row made(std::move(row));
    const auto added = static_cast<std::size_t>(count);
    const std::size_t block = m_count == 0 ? 0 : blockOf(std::min(where, m_count - 1));
    const auto place = static_cast<std::size_t>(where - m_near.first);
    List& all = m_list.write();
    if (m_count == 0) {
        replaceBlocks(all, 0, 0, Block(added, made));
    } else if (all.blocks[block]->size() + added <= kLargestBlock) {
        Block& rows = all.blocks[block].write();
        all.settled[block] = 0;
        rows.insert(at(rows, place), added, made);
        countFrom(all, block + 1);
    } else {
        Block rows = *all.blocks[block];
        rows.insert(at(rows, place), added, made);
        replaceBlocks(all, block, 1, rows);
    }
    m_count += count;
    forgetPlaces();
}

void TableRows::erase(int first, int count) {
    if (count <= 0) return;
    const int behind = first + count;
    const std::size_t from = blockOf(first);
    const auto head = static_cast<std::size_t>(first - m_near.first);
    const std::size_t last = blockOf(behind - 1);
    const auto tail = static_cast<std::size_t>(behind - m_near.first);
    List& all = m_list.write();
    if (from == last && m_near.count - static_cast<std::size_t>(count) > kSmallBlocks) {
        Block& rows = all.blocks[from].write();
        all.settled[from] = 0;
        rows.erase(at(rows, head), at(rows, tail));
        countFrom(all, from + 1);
    } else {
        // What is left at both ends, and the next block if that is small, make new blocks.
        Block rows(all.blocks[from]->begin(), at(*all.blocks[from], head));
        rows.insert(rows.end(), at(*all.blocks[last], tail), all.blocks[last]->end());
        std::size_t replaced = last - from + 1;
        if (last + 1 < all.blocks.size() && rows.size() + all.blocks[last + 1]->size() <= kSmallBlocks) {
            rows.insert(rows.end(), all.blocks[last + 1]->begin(), all.blocks[last + 1]->end());
            ++replaced;
        }
        replaceBlocks(all, from, replaced, rows);
    }
    m_count -= count;
    forgetPlaces();
}

void TableRows::replaceBlocks(List& list, std::size_t place, std::size_t count, const Block& rows) {
    std::vector<CopyOnWrite<Block>> made;
    for (std::size_t first = 0; first < rows.size(); first += kNewBlock) {
        const std::size_t behind = std::min(rows.size(), first + kNewBlock);
        made.emplace_back(Block(at(rows, first), at(rows, behind)));
    }
    list.blocks.erase(at(list.blocks, place), at(list.blocks, place + count));
    list.blocks.insert(at(list.blocks, place), made.begin(), made.end());
    list.settled.erase(at(list.settled, place), at(list.settled, place + count));
    list.settled.insert(at(list.settled, place), made.size(), 0);
    countFrom(list, place);
}

void TableRows::countFrom(List& list, std::size_t block) {
    list.firstRows.resize(list.blocks.size());
    for (; block < list.blocks.size(); ++block) {
        list.firstRows[block] =
            block == 0 ? 0 : list.firstRows[block - 1] + static_cast<int>(list.blocks[block - 1]->size());
    }
}

}  // namespace kdhost
