// Lists over KdUiListWidget. The first column is what the widget shows; the others are kept with the rows.

#include "mfc/listctrl.h"

#include <QListWidget>
#include <QSignalBlocker>
#include <algorithm>
#include <vector>

#include "host/mfc/qttext.h"
#include "kd/ui/widgets.h"

namespace {

using kdhost::qtText;

constexpr int kDataRole = Qt::UserRole;
constexpr int kColumnTextRole = Qt::UserRole + 1;  // for column 1, then one role for each further column
constexpr const char* kColumnCount = "columnCount";
constexpr const char* kSelectionMark = "selectionMark";

QListWidgetItem* itemOf(const CListCtrl& list, int row) {
    const auto* widget = list.widgetAs<QListWidget>();
    return widget == nullptr ? nullptr : widget->item(row);
}

}  // namespace

int CListCtrl::InsertColumn(int column, const wchar_t*, int, int) {
    if (widget() == nullptr) return -1;
    const int count = widget()->property(kColumnCount).toInt();
    widget()->setProperty(kColumnCount, count + 1);
    return std::clamp(column, 0, count);
}

int CListCtrl::InsertItem(int row, const wchar_t* text) {
    auto* list = widgetAs<QListWidget>();
    if (list == nullptr) return -1;
    const int place = std::clamp(row, 0, list->count());
    const QSignalBlocker quiet(list);
    list->insertItem(place, qtText(text));
    const int mark = GetSelectionMark();
    if (mark >= place) SetSelectionMark(mark + 1);
    return place;
}

bool CListCtrl::DeleteItem(int row) {
    auto* list = widgetAs<QListWidget>();
    if (list == nullptr || list->item(row) == nullptr) return false;
    const int mark = GetSelectionMark();
    {
        const QSignalBlocker quiet(list);
        // Otherwise Qt selects the neighbour.
        if (list->currentRow() == row) list->setCurrentItem(nullptr);
        delete list->takeItem(row);
    }
    if (mark == row) SetSelectionMark(-1);
    if (mark > row) SetSelectionMark(mark - 1);
    return true;
}

bool CListCtrl::DeleteAllItems() {
    auto* list = widgetAs<QListWidget>();
    if (list == nullptr) return false;
    const QSignalBlocker quiet(list);
    list->clear();
    SetSelectionMark(-1);
    return true;
}

int CListCtrl::GetItemCount() const {
    const auto* list = widgetAs<QListWidget>();
    return list == nullptr ? 0 : list->count();
}

void CListCtrl::GetItemText(int row, int column, CStdStr<wchar_t>& text) const {
    text = GetItemText(row, column);
}

CStdStr<wchar_t> CListCtrl::GetItemText(int row, int column) const {
    const QListWidgetItem* item = itemOf(*this, row);
    if (item == nullptr || column < 0) return {};
    if (column == 0) return item->text().toStdWString();
    return item->data(kColumnTextRole + column - 1).toString().toStdWString();
}

bool CListCtrl::SetItemText(int row, int column, const wchar_t* text) {
    QListWidgetItem* item = itemOf(*this, row);
    if (item == nullptr || column < 0) return false;
    if (column == 0) {
        item->setText(qtText(text));
    } else {
        item->setData(kColumnTextRole + column - 1, qtText(text));
    }
    return true;
}

std::int64_t CListCtrl::GetItemData(int row) const {
    const QListWidgetItem* item = itemOf(*this, row);
    return item == nullptr ? 0 : item->data(kDataRole).toLongLong();
}

bool CListCtrl::SetItemData(int row, std::int64_t data) {
    QListWidgetItem* item = itemOf(*this, row);
    if (item == nullptr) return false;
    item->setData(kDataRole, QVariant::fromValue<qlonglong>(data));
    return true;
}

UINT CListCtrl::GetItemState(int row, UINT mask) const {
    const QListWidgetItem* item = itemOf(*this, row);
    if (item == nullptr) return 0;
    UINT state = 0;
    if (item->isSelected()) state |= LVIS_SELECTED;
    if (item->listWidget()->currentRow() == row) state |= LVIS_FOCUSED;
    return state & mask;
}

bool CListCtrl::SetItemState(int row, UINT state, UINT mask) {
    QListWidgetItem* item = itemOf(*this, row);
    if (item == nullptr) return false;
    QListWidget* list = item->listWidget();
    if ((mask & LVIS_FOCUSED) != 0 && (state & LVIS_FOCUSED) != 0) {
        const QItemSelectionModel::SelectionFlags keep = QItemSelectionModel::NoUpdate;
        list->setCurrentItem(item, keep);
    }
    if ((mask & LVIS_SELECTED) != 0) item->setSelected((state & LVIS_SELECTED) != 0);
    return true;
}

int CListCtrl::GetSelectedCount() const {
    const auto* list = widgetAs<QListWidget>();
    return list == nullptr ? 0 : static_cast<int>(list->selectedItems().size());
}

int CListCtrl::GetSelectionMark() const {
    if (widget() == nullptr) return -1;
    const QVariant mark = widget()->property(kSelectionMark);
    return mark.isValid() ? mark.toInt() : -1;
}

int CListCtrl::SetSelectionMark(int row) {
    const int before = GetSelectionMark();
    if (widget() != nullptr) widget()->setProperty(kSelectionMark, row);
    return before;
}

bool CListCtrl::EditLabel(int row) {
    auto* list = widgetAs<KdUiListWidget>();
    return list != nullptr && list->editLabel(row);
}

bool CListCtrl::SortItems(Compare compare, std::int64_t extra) {
    auto* list = widgetAs<QListWidget>();
    if (list == nullptr || compare == nullptr) return false;
    const int count = list->count();
    std::vector<QListWidgetItem*> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int row = 0; row < count; ++row) rows.push_back(list->item(row));
    const std::vector<QListWidgetItem*> before = rows;
    std::stable_sort(rows.begin(), rows.end(), [&](const QListWidgetItem* a, const QListWidgetItem* b) {
        return compare(a->data(kDataRole).toLongLong(), b->data(kDataRole).toLongLong(), extra) < 0;
    });
    if (rows == before) return true;

    // Rows are moved with what they bear; choice and mark go along.
    const QSignalBlocker quiet(list);
    QListWidgetItem* current = list->currentItem();
    QListWidgetItem* marked = list->item(GetSelectionMark());
    const QList<QListWidgetItem*> selected = list->selectedItems();
    while (list->count() > 0) list->takeItem(list->count() - 1);
    for (QListWidgetItem* item : rows) list->addItem(item);
    list->setCurrentItem(current, QItemSelectionModel::NoUpdate);
    for (QListWidgetItem* item : selected) item->setSelected(true);
    if (marked != nullptr) SetSelectionMark(list->row(marked));
    return true;
}
