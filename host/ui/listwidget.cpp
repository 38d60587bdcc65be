// The list widget: what happens in it reaches its dialog as notifications, in a fixed order.

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QStyledItemDelegate>
#include <optional>
#include <utility>

#include "host/ui/virtualkeys.h"
#include "kd/ui/basedialog.h"
#include "kd/ui/widgets.h"

namespace {

/// Gives a notification to the dialog that the list stands in. Returns what the dialog answered.
LRESULT notifyDialog(const KdUiListWidget& list, NMHDR* header) {
    LRESULT result = 0;
    if (list.signalsBlocked()) return result;
    for (QWidget* parent = list.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (auto* dialog = qobject_cast<KdUiBaseDialog*>(parent)) {
            dialog->OnListNotify(list.objectName().toUtf8().constData(), header, &result);
            break;
        }
    }
    return result;
}

NMLISTVIEW itemNotice(KdUiListWidget& list, int code, int row) {
    NMLISTVIEW notice;
    notice.hdr = {&list, code};
    notice.iItem = row;
    return notice;
}

/// Edits a row's text in place; the typed text goes to the dialog, which decides what the row shows.
class LabelDelegate : public QStyledItemDelegate {
public:
    explicit LabelDelegate(KdUiListWidget* list) : QStyledItemDelegate(list), m_list(list) {
        connect(this, &QAbstractItemDelegate::closeEditor, list, [this](QWidget*, EndEditHint hint) {
            if (hint == RevertModelCache) finish(std::nullopt);
        });
    }

    void begin(int row) { m_row = row; }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
        m_editor = qobject_cast<QLineEdit*>(editor);
        if (m_editor != nullptr) m_editor->setObjectName(QStringLiteral("LabelEdit"));
        return editor;
    }

    /// A row that goes away takes its edit with it, untold like all that the program does to rows.
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override {
        m_row = -1;
        QStyledItemDelegate::destroyEditor(editor, index);
    }

    QLineEdit* editor() const { return m_row < 0 ? nullptr : m_editor.data(); }

    void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const override {
        if (auto* edit = qobject_cast<QLineEdit*>(editor)) finish(edit->text());
    }

private:
    /// Without a text the edit was given up.
    void finish(const std::optional<QString>& typed) const {
        if (m_row < 0) return;
        const int row = m_row;
        m_row = -1;
        NMLVDISPINFO notice;
        notice.hdr = {m_list, LVN_ENDLABELEDIT};
        notice.iItem = row;
        const std::wstring text = typed.value_or(QString()).toStdWString();
        notice.pszText = typed ? text.c_str() : nullptr;
        QListWidgetItem* item = m_list->item(row);
        if (item != nullptr) item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        const bool taken = notifyDialog(*m_list, &notice.hdr) != 0;
        item = m_list->item(row);
        if (taken && typed && item != nullptr) item->setText(*typed);
    }

    KdUiListWidget* m_list;
    mutable int m_row = -1;
    mutable QPointer<QLineEdit> m_editor;
};

}  // namespace

KdUiListWidget::KdUiListWidget(QWidget* parent) : QListWidget(parent) {
    setItemDelegate(new LabelDelegate(this));
    // Labels are edited when the dialog says so, not by clicks.
    setEditTriggers(NoEditTriggers);
}

bool KdUiListWidget::editLabel(int row) {
    // The edit that is open loses the focus, which ends it.
    if (state() == EditingState) setFocus(Qt::OtherFocusReason);
    QListWidgetItem* edited = item(row);
    if (edited == nullptr) return false;
    NMLVDISPINFO notice;
    notice.hdr = {this, LVN_BEGINLABELEDIT};
    notice.iItem = row;
    const std::wstring text = edited->text().toStdWString();
    notice.pszText = text.c_str();
    if (notifyDialog(*this, &notice.hdr) != 0) return false;
    edited = item(row);
    if (edited == nullptr) return false;
    static_cast<LabelDelegate*>(itemDelegate())->begin(row);
    edited->setFlags(edited->flags() | Qt::ItemIsEditable);
    editItem(edited);
    return true;
}

QLineEdit* KdUiListWidget::labelEditor() const {
    return static_cast<LabelDelegate*>(itemDelegate())->editor();
}

void KdUiListWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListWidget::selectionChanged(selected, deselected);
    if (signalsBlocked()) return;
    const auto tell = [this](const QItemSelection& changed, UINT newState, UINT oldState) {
        for (const QModelIndex& index : changed.indexes()) {
            NMLISTVIEW notice = itemNotice(*this, LVN_ITEMCHANGED, index.row());
            notice.uNewState = newState;
            notice.uOldState = oldState;
            LRESULT result = notifyDialog(*this, &notice.hdr);
            emit currentItemChanged(&notice.hdr, &result);
        }
    };
    tell(deselected, 0, LVIS_SELECTED);
    tell(selected, LVIS_SELECTED, 0);
}

void KdUiListWidget::mousePressEvent(QMouseEvent* event) {
    const int pressed = row(itemAt(event->pos()));
    QListWidget::mousePressEvent(event);
    if (event->button() != Qt::LeftButton) return;
    NMLISTVIEW notice = itemNotice(*this, NM_CLICK, pressed);
    notice.ptAction = {event->x(), event->y()};
    notifyDialog(*this, &notice.hdr);
}

void KdUiListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    const int pressed = row(itemAt(event->pos()));
    QListWidget::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton) return;
    NMLISTVIEW notice = itemNotice(*this, NM_DBLCLK, pressed);
    notice.ptAction = {event->x(), event->y()};
    notifyDialog(*this, &notice.hdr);
}

void KdUiListWidget::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    m_menuKeyServed = byKey;
    tellRightClick(byKey ? currentRow() : row(itemAt(event->pos())), event->pos());
    event->accept();
}

void KdUiListWidget::tellRightClick(int row, const QPoint& place) {
    NMLISTVIEW notice = itemNotice(*this, NM_RCLICK, row);
    notice.ptAction = {place.x(), place.y()};
    LRESULT result = notifyDialog(*this, &notice.hdr);
    emit RightClickItem(&notice.hdr, &result);
}

void KdUiListWidget::keyPressEvent(QKeyEvent* event) {
    const bool editing = state() == EditingState;
    QListWidget::keyPressEvent(event);
    if (editing) return;
    NMLVKEYDOWN notice;
    notice.hdr = {this, LVN_KEYDOWN};
    notice.wVKey = kdhost::virtualKey(*event);
    notifyDialog(*this, &notice.hdr);
    // Some platforms make a context menu of the menu key, others leave it at the key.
    const bool menuKey =
        event->key() == Qt::Key_Menu || (event->key() == Qt::Key_F10 && (event->modifiers() & Qt::ShiftModifier) != 0);
    if (!menuKey || std::exchange(m_menuKeyServed, false)) return;
    event->accept();
    tellRightClick(currentRow(), visualItemRect(currentItem()).center());
}
