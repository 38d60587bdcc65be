// CListCtrl: a list of rows with columns, over a KdUiListWidget.
#pragma once

#include <cstdint>

#include "mfc/wnd.h"

/// Rows and columns count from 0; -1 is none. The widget shows column 0; further columns are kept as texts. Adding,
/// deleting and sorting rows never signals; a state that changes does.
class CListCtrl : public CWnd {
public:
    /// `format` 0 is left aligned. Returns the column's index.
    int InsertColumn(int column, const wchar_t* title, int format = 0, int width = -1);
    /// Returns the row's index: `row` cut to the number of rows.
    int InsertItem(int row, const wchar_t* text);
    bool DeleteItem(int row);
    bool DeleteAllItems();
    int GetItemCount() const;
    void GetItemText(int row, int column, CStdStr<wchar_t>& text) const;
    CStdStr<wchar_t> GetItemText(int row, int column) const;
    bool SetItemText(int row, int column, const wchar_t* text);
    std::int64_t GetItemData(int row) const;
    bool SetItemData(int row, std::int64_t data);
    /// Bits of ListItemState.
    UINT GetItemState(int row, UINT mask) const;
    bool SetItemState(int row, UINT state, UINT mask);
    int GetSelectedCount() const;
    /// The row that actions refer to: set by the program alone, it goes along with its row.
    int GetSelectionMark() const;
    int SetSelectionMark(int row);
    /// Starts the edit of a row's text; the list asks its dialog first. False when it is refused.
    bool EditLabel(int row);
    using Compare = int (*)(std::int64_t data1, std::int64_t data2, std::int64_t extra);
    /// A stable sort by the rows' data.
    bool SortItems(Compare compare, std::int64_t extra);
};
