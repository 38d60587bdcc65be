// Controls and rows by the names that scripts give them.

#include "host/ui/automation/find.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>

#include "host/ui/automation/automation.h"
#include "host/ui/automation/realinput.h"
#include "mfc/wnd.h"

namespace kdhost::automation {

namespace {

/// The visible one of that name; a hidden one when there is no other.
QWidget* findWithin(QWidget& window, const QString& name) {
    if (window.objectName() == name) return &window;
    QWidget* hidden = nullptr;
    for (QWidget* widget : window.findChildren<QWidget*>(name)) {
        if (widget->isVisible()) return widget;
        if (hidden == nullptr) hidden = widget;
    }
    return hidden;
}

/// Whether the widget stands within the other, also over a window's edge.
bool belongsTo(const QWidget* widget, const QWidget* other) {
    while (widget != nullptr && widget != other) widget = widget->parentWidget();
    return widget != nullptr;
}

/// An open menu or list keeps the mouse from all but itself and the control that it belongs to.
bool liesUnderPopup(const QWidget& control) {
    const QWidget* popup = QApplication::activePopupWidget();
    return popup != nullptr && !belongsTo(&control, popup) && !belongsTo(popup, &control) &&
           popup->focusProxy() != &control;
}

}  // namespace

QWidget* findControl(const QString& name) {
    if (QWidget* modal = QApplication::activeModalWidget()) return findWithin(*modal, name);
    QWidget* hidden = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        QWidget* found = findWithin(*window, name);
        if (found != nullptr && found->isVisible()) return found;
        if (hidden == nullptr) hidden = found;
    }
    return hidden;
}

std::wstring onControl(const std::wstring& name, const std::function<std::wstring(QWidget&)>& act) {
    QWidget* control = findControl(qt(name));
    if (control == nullptr) return L"there is no control " + name + L".";
    if (!control->isVisible()) return name + L" is hidden.";
    if (!control->isEnabled()) return name + L" is disabled.";
    if (liesUnderPopup(*control)) return name + L" is out of reach: " + topWindowName() + L" is open.";
    QWidget* window = control->window();
    if (!window->isActiveWindow() && QApplication::activePopupWidget() == nullptr)
        QApplication::setActiveWindow(window);
    return act(*control);
}

bool hasKeys(const QPointer<QWidget>& control) {
    if (QApplication::activePopupWidget() == nullptr) bringTopDialogToFront();
    const QWidget* focused = QApplication::focusWidget();
    return control != nullptr && focused != nullptr && (control->hasFocus() || belongsTo(focused, control));
}

std::optional<bool> flagOf(const std::wstring& text) {
    const QString word = qt(text).toLower();
    for (const char* on : {"on", "yes", "true", "1"}) {
        if (word == QLatin1String(on)) return true;
    }
    for (const char* off : {"off", "no", "false", "0"}) {
        if (word == QLatin1String(off)) return false;
    }
    return std::nullopt;
}

std::wstring replaceText(QLineEdit& edit, const std::wstring& name, const std::wstring& value) {
    const QPointer<QWidget> typed(&edit);
    if (edit.isReadOnly()) return name + L" can't be changed.";
    edit.selectAll();
    if (value.empty()) pressKey(Qt::Key_Delete);
    for (const QChar character : qt(value)) {
        if (!hasKeys(typed)) return name + L" lost the focus before all was typed.";
        typeKeys(character);
    }
    return {};
}

Choices::Choices(QWidget& control) {
    m_combo = qobject_cast<QComboBox*>(&control);
    m_view = qobject_cast<QAbstractItemView*>(&control);
    m_tabs = qobject_cast<QTabBar*>(&control);
    if (const auto* pages = qobject_cast<QTabWidget*>(&control)) m_tabs = pages->tabBar();
}

int Choices::count() const {
    if (m_combo != nullptr) return m_combo->count();
    if (m_tabs != nullptr) return m_tabs->count();
    return m_view != nullptr && m_view->model() != nullptr ? m_view->model()->rowCount() : 0;
}

QString Choices::text(int row) const {
    if (row < 0 || row >= count()) return {};
    if (m_combo != nullptr) return m_combo->itemText(row);
    if (m_tabs != nullptr) return m_tabs->tabText(row).remove(QLatin1Char('&'));
    return m_view->model()->index(row, 0).data().toString();
}

int Choices::current() const {
    if (m_combo != nullptr) return m_combo->currentIndex();
    if (m_tabs != nullptr) return m_tabs->currentIndex();
    const QModelIndexList rows = m_view != nullptr ? m_view->selectionModel()->selectedRows() : QModelIndexList();
    return rows.isEmpty() ? -1 : rows.first().row();
}

std::optional<int> Choices::find(const QString& choice) const {
    if (choice.startsWith(QLatin1Char('#'))) {
        bool isNumber = false;
        const int row = choice.midRef(1).toInt(&isNumber);
        if (isNumber) return row >= 0 && row < count() ? std::optional<int>(row) : std::nullopt;
    }
    for (int row = 0; row < count(); ++row) {
        if (text(row) == choice) return row;
    }
    return std::nullopt;
}

QString shownText(QWidget& control) {
    const Choices choices(control);
    if (choices.exist() && choices.combo() == nullptr) return choices.text(choices.current());
    CStdStr<wchar_t> text;
    CWnd(&control).GetWindowTextW(text);
    return QString::fromStdWString(text);
}

}  // namespace kdhost::automation
