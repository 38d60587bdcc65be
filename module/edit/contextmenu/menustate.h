// The states of the items of context menus. Each function reads the table's selection and touches the items that it is
// about; all others stay as they are.
#pragma once

#include "module/edit/contextmenu/tablemenu.h"

class KdDbTable;

inline const QString kMenuFile = QStringLiteral("TvxTableRes/TvxTableRes");

/// Enables the item, or disables it.
inline void allow(TableMenu& menu, QLatin1String item, bool allowed) {
    menu.EnableMenuItem(item, allowed ? kTableMenuEnabled : kTableMenuDisabled);
}
inline void allow(TableMenu& menu, int position, bool allowed) {
    menu.EnableMenuItem(position, kTableMenuByPosition | (allowed ? kTableMenuEnabled : kTableMenuDisabled));
}

/// The mark at the kind of lock that all selected cells have; no mark where they differ.
void setLockingMenuItemState(TableMenu& menu, const KdDbTable& table);
/// The sub-menus of columns and rows.
void setInsertMenuItemState(TableMenu& menu, const KdDbTable& table);
void setMergeMenuItemState(TableMenu& menu, const KdDbTable& table);
/// The menus of indicators.
void setIndicatorMenuItemState(TableMenu& menu, const KdDbTable& table);
