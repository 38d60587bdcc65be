// CTabCtrl: a row of tabs with the pages below.
#pragma once

#include "mfc/wnd.h"

class KdUiBaseDialog;

class CTabCtrl : public CWnd {
public:
    /// Adds a tab at `index` whose page is `page`; `helpId` is kept for the page's help. The page becomes
    /// a child of the control and gets its OnInitDialog, once, when it is added.
    bool AddTab(int index, const wchar_t* title, unsigned helpId, KdUiBaseDialog* page);
    int GetItemCount() const;
    int GetCurSel() const;
    /// Shows the page and hides the others. Returns the tab before.
    int SetCurSel(int index);
    /// Rectangle of a tab, within the control.
    bool GetItemRect(int index, CRect& rect) const;
};
