// Rows and columns of a table's state: how they come, go and stay together with the merges around them.

#include "host/db/tablestate.h"

#include <algorithm>
#include <map>

namespace kdhost {
namespace {

/// The cell's format, without its locks and its place in a merge.
CellLook pattern(const CellLook& source) {
    CellLook look;
    look.style = source.style;
    look.overrides = source.overrides;
    return look;
}

/// The row as a pattern for new ones: its looks, none of its content, locks or merges.
TableRow pattern(const RowBody& source, const RowLooks& looks) {
    TableRow row;
    row.height = source.height;
    row.style = source.style;
    row.looks = looks;
    for (CellLook& look : row.looks.write()) look = pattern(look);
    row.contents = {looks.size(), {}};
    return row;
}

CellLook styledCell(std::uint16_t style) {
    CellLook look;
    look.style = style;
    return look;
}

/// Changes each row: its looks by `changeLooks(looks, style of the row)`, and `changeBody(body)`. Rows that shared
/// their looks go on sharing them.
template <class ChangeLooks, class ChangeBody>
void changeLines(TableRows& rows, ChangeLooks changeLooks, ChangeBody changeBody) {
    RowLooks before;
    RowLooks after;
    std::uint16_t style = 0;
    for (int row = 0; row < rows.size(); ++row) {
        const bool known = row > 0 && rows.looks(row).shares(before) && rows[row].style == style;
        if (!known) {
            before = after = rows.looks(row);
            style = rows[row].style;
            changeLooks(after, style);
        }
        rows.setLooks(row, after);
        if (!known) rows.shareLooks(row);
        changeBody(rows.write(row));
    }
}

/// Where a span of a merge stands after `count` places went from `first` on; empty (last before first) when
/// nothing is left.
std::pair<int, int> spanAfterErase(int from, int to, int first, int count) {
    const auto after = [&](int place) { return place < first ? place : std::max(first, place - count); };
    const int keptFrom = after(from);
    return {keptFrom, after(to + 1) - 1};
}

}  // namespace

std::uint64_t newStamp() {
    static std::uint64_t last = 0;
    return ++last;
}

TableState::TableState() {
    columnWidths.assign(static_cast<std::size_t>(m_columnCount), kDefaultColumnWidth);
    insertDefaultRows(0, 1);
    touchLayout();
}

// Cells share their records of overrides and objects, so that each record is mapped once; records that hold
// no id go on being shared.
void TableState::mapIds(const IdMapper& map) {
    KdDbBlockReferenceState::mapIds(map);
    styles.mapTableStyle(map);
    std::map<const void*, CopyOnWrite<FormatOverrides>> mapped;
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            if (rows.content(row, column).objects) {
                CellObjects objects = *rows.content(row, column).objects;
                objects.field = map(objects.field, IdRole::owned);
                objects.block = map(objects.block, IdRole::pointer);
                for (BlockAttribute& each : objects.attributes) each.definition = map(each.definition, IdRole::pointer);
                if (objects != *rows.content(row, column).objects) {
                    rows.writeContent(row, column).objects = CopyOnWrite<CellObjects>(objects);
                }
            }
            const CellLook& cell = rows.look(row, column);
            if (!cell.overrides) continue;
            auto [known, made] = mapped.try_emplace(&*cell.overrides, cell.overrides);
            if (made) {
                CellFormat format = cell.overrides->format;
                mapFormatIds(format, [&](KdDbObjectId id) { return map(id, IdRole::pointer); });
                if (format != cell.overrides->format) known->second.write().format = format;
            }
            if (!known->second.shares(cell.overrides)) rows.writeLook(row, column).overrides = known->second;
        }
    }
    touchLayout();
}

TableRow TableState::defaultRow(int row) const {
    TableRow made;
    made.style = row == 0 ? CellStylePool::kTitle : row == 1 ? CellStylePool::kHeader : CellStylePool::kData;
    const CellFormat& format = styles.record(made.style).format;
    made.height = heightOfLines(1, format.textHeight, format.marginVert);
    made.looks = {columnWidths.size(), styledCell(made.style)};
    made.contents = {columnWidths.size(), {}};
    return made;
}

void TableState::setRowCount(int count) {
    if (count > rowCount()) insertDefaultRows(rowCount(), count - rowCount());
    if (count < rowCount()) eraseRows(count, rowCount() - count);
}

void TableState::setColumnCount(int count) {
    if (count > columnCount()) insertColumns(columnCount(), -1, count - columnCount());
    if (count < columnCount()) eraseColumns(count, columnCount() - count);
}

void TableState::insertDefaultRows(int row, int count) {
    std::vector<KdCellRange> split;
    if (row < rowCount()) split = mergesIn({row, 0, row, columnCount() - 1});
    std::erase_if(split, [&](const KdCellRange& merge) { return merge.m_topRow == row; });
    // Only the first two rows of a table differ from those that follow.
    int done = 0;
    for (; done < count && row + done < 2; ++done) rows.insert(row + done, 1, defaultRow(row + done));
    if (done < count) rows.insert(row + done, count - done, defaultRow(row + done));
    for (KdCellRange& merge : split) merge.m_bottomRow += count;
    relink(split);
    touchGeometry();
}

void TableState::insertRows(int at, int inheritFrom, int count) {
    if (inheritFrom < 0 || inheritFrom >= rowCount()) {
        insertDefaultRows(at, count);
        return;
    }
    std::vector<KdCellRange> split;
    if (at < rowCount()) split = mergesIn({at, 0, at, columnCount() - 1});
    std::erase_if(split, [&](const KdCellRange& merge) { return merge.m_topRow == at; });
    rows.insert(at, count, pattern(rows[inheritFrom], rows.looks(inheritFrom)));
    for (KdCellRange& merge : split) merge.m_bottomRow += count;
    relink(split);
    touchGeometry();
}

void TableState::insertColumns(int at, int inheritFrom, int count) {
    const bool inherit = inheritFrom >= 0 && inheritFrom < columnCount();
    std::vector<KdCellRange> split;
    if (at < columnCount() && rowCount() > 0) split = mergesIn({0, at, rowCount() - 1, at});
    std::erase_if(split, [&](const KdCellRange& merge) { return merge.m_leftColumn == at; });
    const double width = inherit ? columnWidths[static_cast<std::size_t>(inheritFrom)] : kDefaultColumnWidth;
    const auto place = static_cast<std::size_t>(at);
    const auto added = static_cast<std::size_t>(count);
    changeLines(
        rows,
        [&](RowLooks& looks, std::uint16_t style) {
            const auto source = static_cast<std::size_t>(inheritFrom);
            looks.insert(place, added, inherit ? pattern(looks[source]) : styledCell(style));
        },
        [&](RowBody& body) { body.insertContents(place, added); });
    columnWidths.insert(columnWidths.begin() + at, static_cast<std::size_t>(count), width);
    m_columnCount += count;
    for (KdCellRange& merge : split) merge.m_rightColumn += count;
    relink(split);
    touchLayout();
}

void TableState::copyCell(int row, int column, int toRow, int toColumn) {
    const CellLook look = this->look(row, column);
    const CellContent content = this->content(row, column);
    rows.writeLook(toRow, toColumn).takeOver(look);
    rows.writeContent(toRow, toColumn) = content;
}

void TableState::eraseRows(int first, int count) {
    const int behind = first + count;
    std::vector<KdCellRange> cut;
    if (columnCount() > 0) {
        cut = mergesIn({first, 0, first, columnCount() - 1});
        if (behind < rowCount()) {
            for (const KdCellRange& merge : mergesIn({behind, 0, behind, columnCount() - 1})) {
                if (merge.m_topRow > first && merge.m_topRow < behind) cut.push_back(merge);
            }
        }
    }
    for (const KdCellRange& merge : cut) {
        if (merge.m_topRow < first || merge.m_bottomRow < behind) continue;
        copyCell(merge.m_topRow, merge.m_leftColumn, behind, merge.m_leftColumn);
    }
    rows.erase(first, count);
    for (KdCellRange& merge : cut) {
        std::tie(merge.m_topRow, merge.m_bottomRow) = spanAfterErase(merge.m_topRow, merge.m_bottomRow, first, count);
    }
    relink(cut);
    touchGeometry();
}

void TableState::eraseColumns(int first, int count) {
    const int behind = first + count;
    std::vector<KdCellRange> cut;
    if (rowCount() > 0) {
        cut = mergesIn({0, first, rowCount() - 1, first});
        if (behind < columnCount()) {
            for (const KdCellRange& merge : mergesIn({0, behind, rowCount() - 1, behind})) {
                if (merge.m_leftColumn > first && merge.m_leftColumn < behind) cut.push_back(merge);
            }
        }
    }
    for (const KdCellRange& merge : cut) {
        if (merge.m_leftColumn < first || merge.m_rightColumn < behind) continue;
        copyCell(merge.m_topRow, merge.m_leftColumn, merge.m_topRow, behind);
    }
    const auto from = static_cast<std::size_t>(first);
    const auto rest = static_cast<std::size_t>(behind);
    changeLines(
        rows, [&](RowLooks& looks, std::uint16_t) { looks.erase(from, rest); },
        [&](RowBody& body) { body.eraseContents(from, rest); });
    columnWidths.erase(columnWidths.begin() + first, columnWidths.begin() + behind);
    m_columnCount -= count;
    for (KdCellRange& merge : cut) {
        std::tie(merge.m_leftColumn, merge.m_rightColumn) =
            spanAfterErase(merge.m_leftColumn, merge.m_rightColumn, first, count);
    }
    relink(cut);
    touchLayout();
}

}  // namespace kdhost
