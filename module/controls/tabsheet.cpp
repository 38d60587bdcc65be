// The pages of a tab control and where they lie.

#include "module/controls/tabsheet.h"

#include "kd/ui/basedialog.h"

int CVqTabSheet::AddPage(const wchar_t* title, KdUiBaseDialog* page, unsigned int number) {
    if (m_pageCount == kMostPages) return 0;
    m_pages[static_cast<std::size_t>(m_pageCount++)] = {title, page, number};
    return 1;
}

void CVqTabSheet::SetRect() {
    CRect client;
    CRect tab;
    GetClientRect(client);
    if (!GetItemRect(0, tab)) return;
    const long left = tab.left;
    const long top = tab.bottom + 1;
    const long width = client.right - left - 2;
    const long height = client.bottom - top - 2;

    UINT flags = SWP_SHOWWINDOW;
    for (int i = 0; i < m_pageCount; ++i) {
        KdUiBaseDialog* page = m_pages[static_cast<std::size_t>(i)].dialog;
        if (page != nullptr) {
            page->SetWindowPos(nullptr, static_cast<int>(left), static_cast<int>(top), static_cast<int>(width),
                               static_cast<int>(height), flags);
        }
        flags = SWP_HIDEWINDOW;
    }
}
