// What the two lists of styles have in common: which row is meant, the edit of a name in its row, and the context menu.
#pragma once

#include <functional>
#include <vector>

#include "mfc/listctrl.h"

class KdUiBaseDialog;

/// The selected row; -1 unless exactly one is.
int selectedRow(const CListCtrl& list);

/// Selects the row and gives it and the list the focus.
void selectRow(CListCtrl& list, int row);

/// Lets the user type another name into the row at the selection mark. Does nothing unless exactly one row is selected.
void editMarkedLabel(CListCtrl& list);

/// A right click has met a row: it becomes the list's current one.
void makeCurrentRow(const CListCtrl& list, int row);

struct StyleMenuItem {
    const char* action;  ///< name of the item in the menu's tree
    bool enabled;
    std::function<void()> run;
};

/// Shows a context menu at the mouse until the user has chosen, with the focus taken back to the dialog first. No menu
/// comes up when the tree is missing, is no menu of the host's, or has fewer than three items.
void showStyleMenu(KdUiBaseDialog& dialog, const char* tree, const std::vector<StyleMenuItem>& items);
