// A tab control that lays its pages out below its tabs.
#pragma once

#include <array>

#include "mfc/tabctrl.h"
#include "win32/types.h"

class KdUiBaseDialog;

class CVqTabSheet : public CTabCtrl {
public:
    static constexpr int kMostPages = 16;

    /// Keeps a page with its title and number; the page is not owned. 0 when 16 pages are held already, else 1.
    int AddPage(const wchar_t* title, KdUiBaseDialog* page, unsigned int number);
    int pageCount() const { return m_pageCount; }

    /// Lays the kept pages out below the first tab: the first page is shown there, the others are hidden.
    /// Without a tab nothing moves.
    void SetRect();
    void Show() { SetRect(); }
    int GetCurSel() const { return CTabCtrl::GetCurSel(); }

private:
    struct Page {
        CStdStr<wchar_t> title;
        KdUiBaseDialog* dialog = nullptr;
        unsigned int number = 0;
    };

    int m_pageCount = 0;
    std::array<Page, kMostPages> m_pages;
};
