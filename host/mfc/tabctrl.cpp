// Tabs with pages: a QTabWidget shows the tabs, the pages are dialogs of their own.

#include "mfc/tabctrl.h"

#include <QTabBar>
#include <QTabWidget>
#include <QVariant>

#include "kd/ui/basedialog.h"

bool CTabCtrl::AddTab(int index, const wchar_t* title, unsigned helpId, KdUiBaseDialog* page) {
    auto* tabs = widgetAs<QTabWidget>();
    if (tabs == nullptr || page == nullptr) return false;
    CWnd* dialog = nullptr;
    for (QWidget* parent = tabs; parent != nullptr && dialog == nullptr; parent = parent->parentWidget()) {
        dialog = qobject_cast<KdUiBaseDialog*>(parent);
    }
    page->setProperty("helpId", helpId);
    page->becomePage(dialog, tabs);
    tabs->insertTab(index, page, QString::fromWCharArray(title == nullptr ? L"" : title));
    return true;
}

int CTabCtrl::GetItemCount() const {
    const auto* tabs = widgetAs<QTabWidget>();
    return tabs == nullptr ? 0 : tabs->count();
}

int CTabCtrl::GetCurSel() const {
    const auto* tabs = widgetAs<QTabWidget>();
    return tabs == nullptr ? -1 : tabs->currentIndex();
}

int CTabCtrl::SetCurSel(int index) {
    auto* tabs = widgetAs<QTabWidget>();
    if (tabs == nullptr) return -1;
    const int before = tabs->currentIndex();
    tabs->setCurrentIndex(index);
    return before;
}

bool CTabCtrl::GetItemRect(int index, CRect& rect) const {
    const auto* tabs = widgetAs<QTabWidget>();
    if (tabs == nullptr || index < 0 || index >= tabs->count()) return false;
    const QTabBar* bar = tabs->tabBar();
    rect = CRect(bar->tabRect(index).translated(bar->pos()));
    return true;
}
