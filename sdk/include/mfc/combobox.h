// CComboBox: a combo box under the framework's name, over a QComboBox or, in its place, a QListWidget.
#pragma once

#include <cstdint>

#include "mfc/wnd.h"

/// Rows count from 0; -1 is none. SetCurSel signals when the row changes, except in the boxes of recently used
/// entries (kd/ui/comboboxes.h); adding and deleting rows never signals.
class CComboBox : public CWnd {
public:
    int GetCount() const;
    int GetCurSel() const;
    /// Returns the row, or -1 for a row that isn't there; the box then shows no row.
    virtual int SetCurSel(int row);
    /// Return the new row's index.
    virtual int AddString(const wchar_t* text);
    int InsertString(int row, const wchar_t* text);
    /// Returns the number of rows left, -1 when there is no such row.
    int DeleteString(int row);
    void ResetContent();
    /// First row behind `start` (-1: from the first; wrapping around) that begins with the text, regardless
    /// of case; -1 when there is none.
    int FindString(int start, const wchar_t* text) const;
    /// The same for a row that equals the text, regardless of case.
    int FindStringExact(int start, const wchar_t* text) const;
    /// Empty for a row that isn't there.
    void GetLBText(int row, CStdStr<wchar_t>& text) const;
    std::int64_t GetItemData(int row) const;
    void SetItemData(int row, std::int64_t data);
    void ShowDropDown(bool show = true);
    bool GetDroppedState() const;
    /// Row -1 is the edit part; the height given for a row is that of all rows, later ones too.
    int SetItemHeight(int row, unsigned height);
    unsigned GetItemHeight(int row) const;
};
