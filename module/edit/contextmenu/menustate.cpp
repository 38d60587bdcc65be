// The states of the items about locks, rows and columns, and merges.

#include "module/edit/contextmenu/menustate.h"

#include "kd/db/table.h"
#include "module/core/celllocks.h"
#include "module/core/tablecommon.h"

namespace {

/// The items for rows, or for columns.
struct LineItems {
    const char* insertBefore;
    const char* insertBehind;
    const char* erase;
    bool rows;
};

constexpr LineItems kColumnItems{"IDR_BYCOLUMN_LEFTINSERT", "IDR_BYCOLUMN_RIGHTINSERT", "IDR_BYCOLUMN_DELETE", false};
constexpr LineItems kRowItems{"IDR_BYROW_ABOVEINSERT", "IDR_BYROW_BELOWINSERT", "IDR_BYROW_DELETE", true};

/// The selected rows, or the selected columns: -1 to -1 where whole columns, or whole rows, are selected.
struct SelectedLines {
    int first = -1;
    int last = -1;
    int count = 0;
};

SelectedLines selectedLines(const KdDbTable& table, bool rows) {
    const CKdTableCellRange range(table.getSubSelection());
    if (rows) return {range.m_topRow, range.m_bottomRow, range.numRows()};
    return {range.m_leftColumn, range.m_rightColumn, range.numColumns()};
}

bool canDelete(const KdDbTable& table, const SelectedLines& lines, bool rows) {
    return table.canDelete(lines.first, lines.count, rows);
}

/// Both inserting items ask at the first selected line here, also the one that inserts behind the last. That a line
/// can be inserted there is the same question in every table.
void allowLineItems(TableMenu& menu, const KdDbTable& table, const LineItems& items) {
    const SelectedLines lines = selectedLines(table, items.rows);
    const bool canInsert = table.canInsert(lines.first, items.rows);
    allow(menu, QLatin1String(items.insertBefore), canInsert);
    allow(menu, QLatin1String(items.insertBehind), canInsert);
    allow(menu, QLatin1String(items.erase), canDelete(table, lines, items.rows));
}

}  // namespace

void setLockingMenuItemState(TableMenu& menu, const KdDbTable& table) {
    const QLatin1String kUnlocked("IDR_LOCKING_UNLOCKED");
    const QLatin1String kContent("IDR_LOCKING_CONTENTLOCKED");
    const QLatin1String kFormat("IDR_LOCKING_FORMATLOCKED");
    const QLatin1String kBoth("IDR_LOCKING_CONTENTFORMATLOCKED");
    KdDb::CellState state = KdDb::kCellStateNone;
    if (!CVqTableCommon::GetCellState(&table, state)) return;
    const CellLocks locks(state);
    const QLatin1String checked =
        locks.content ? (locks.format ? kBoth : kContent) : (locks.format ? kFormat : kUnlocked);
    menu.CheckMenuRadioItem(kBoth, kUnlocked, checked, 0);
    // Content that is read-only hides that the format is: one item is disabled at most.
    if ((state & KdDb::kCellStateContentReadOnly) != 0) {
        allow(menu, kContent, false);
    } else if ((state & KdDb::kCellStateFormatReadOnly) != 0) {
        allow(menu, kFormat, false);
    }
}

void setInsertMenuItemState(TableMenu& menu, const KdDbTable& table) {
    constexpr int kToColumns = 2;
    constexpr int kToRows = 3;
    const int from = menu.positionOf(QLatin1String("IDR_TABLECELL_DELETEALLCONTENT"));
    if (from == menu.GetMenuItemCount()) return;
    if (const auto columns = menu.GetSubMenu(from + kToColumns)) allowLineItems(*columns, table, kColumnItems);
    if (const auto rows = menu.GetSubMenu(from + kToRows)) allowLineItems(*rows, table, kRowItems);
}

void setMergeMenuItemState(TableMenu& menu, const KdDbTable& table) {
    const QLatin1String kUnmerge("IDR_TABLECELL_UNMERGE");
    allow(menu, menu.positionOf(kUnmerge) - 1, CVqTableCommon::CanMergeCells(&table));
    allow(menu, kUnmerge, CVqTableCommon::CanUnMergeCells(&table));
}

// All that is asked by number here goes without effect: the menu takes a command's number for a position, which lies
// far behind its end. So both inserting items of a row, and all three items of a column, always stay enabled.
void setIndicatorMenuItemState(TableMenu& menu, const KdDbTable& table) {
    if (menu.holds(QLatin1String(kRowItems.insertBefore))) {
        const SelectedLines rows = selectedLines(table, true);
        allow(menu, 1840, table.canInsert(rows.first, true));
        allow(menu, 1841, table.canInsert(rows.last + 1, true));
        allow(menu, QLatin1String(kRowItems.erase), canDelete(table, rows, true));
    }
    if (menu.holds(QLatin1String(kColumnItems.insertBefore))) {
        const SelectedLines columns = selectedLines(table, false);
        allow(menu, 1835, table.canInsert(columns.first, false));
        allow(menu, 1836, table.canInsert(columns.last + 1, false));
        allow(menu, 1837, canDelete(table, columns, false));
    }
    const auto last = menu.GetSubMenu(menu.GetMenuItemCount() - 1);
    if (last == nullptr) return;
    for (int position = 0; position < last->GetMenuItemCount(); position += 2) allow(*last, position, true);
}
