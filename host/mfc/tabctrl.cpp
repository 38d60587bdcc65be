// Tabs with pages: a QTabWidget shows the tabs, the pages are dialogs of their own.

#include "mfc/tabctrl.h"

#include <QTabBar>
#include <QTabWidget>
#include <QVariant>
#include <vector>

#include "kd/ui/basedialog.h"

namespace {

/// The page's controls that take the focus, in the order of Tab.
std::vector<QWidget*> controlsOf(const QWidget& page) {
    std::vector<QWidget*> controls;
    for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
        if (page.isAncestorOf(next) && next->focusPolicy() != Qt::NoFocus) controls.push_back(next);
    }
    return controls;
}

/// Tab goes from the tabs to the pages, one behind the other, before it goes on behind the tabs: without that a page
/// that is added would come last of all.
void enterTabOrder(const QTabWidget& tabs, int index) {
    QWidget* before = tabs.tabBar();
    for (int page = 0; page < index; ++page) {
        const std::vector<QWidget*> controls = controlsOf(*tabs.widget(page));
        if (!controls.empty()) before = controls.back();
    }
    for (QWidget* control : controlsOf(*tabs.widget(index))) {
        QWidget::setTabOrder(before, control);
        before = control;
    }
}

}  // namespace

bool CTabCtrl::AddTab(int index, const wchar_t* title, unsigned helpId, KdUiBaseDialog* page) {
    auto* tabs = widgetAs<QTabWidget>();
    if (tabs == nullptr || page == nullptr) return false;
    CWnd* dialog = nullptr;
    for (QWidget* parent = tabs; parent != nullptr && dialog == nullptr; parent = parent->parentWidget()) {
        dialog = qobject_cast<KdUiBaseDialog*>(parent);
    }
    page->setProperty("helpId", helpId);
    page->becomePage(dialog, tabs);
    enterTabOrder(*tabs, tabs->insertTab(index, page, QString::fromWCharArray(title == nullptr ? L"" : title)));
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
