// How a script finds controls and the rows in them.
#pragma once

#include <QPointer>
#include <QString>
#include <functional>
#include <optional>
#include <string>

class QAbstractItemView;
class QAction;
class QComboBox;
class QLineEdit;
class QTabBar;
class QWidget;

namespace kdhost::automation {

inline QString qt(const std::wstring& text) {
    return QString::fromStdWString(text);
}

/// A control of the top dialog or, while none is modal, of any window; visible ones first. Null when there is none.
QWidget* findControl(const QString& name);

/// Carries `act` out on a control that a person could use now, in the window that is in front then. What is wrong
/// when there is none of that name, or it is hidden, disabled or under an open menu.
std::wstring onControl(const std::wstring& name, const std::function<std::wstring(QWidget&)>& act);

/// True while the control has the keys. What a key or a click sets off may end its dialog or move the focus.
bool hasKeys(const QPointer<QWidget>& control);

/// What "on" and "off" and their like say; none for any other word.
std::optional<bool> flagOf(const std::wstring& word);

/// Replaces an edit's text by keys.
std::wstring replaceText(QLineEdit& edit, const std::wstring& name, const std::wstring& value);

/// The rows of a combo box or list, or the tabs of a tab bar, behind one face.
class Choices {
public:
    /// Of a control without rows `exist` is false.
    explicit Choices(QWidget& control);

    bool exist() const { return m_combo != nullptr || m_view != nullptr || m_tabs != nullptr; }
    int count() const;
    QString text(int row) const;
    int current() const;
    /// "#2" or a text; none when there is no such row.
    std::optional<int> find(const QString& choice) const;

    QComboBox* combo() const { return m_combo; }
    QAbstractItemView* view() const { return m_view; }
    QTabBar* tabs() const { return m_tabs; }

private:
    QComboBox* m_combo = nullptr;
    QAbstractItemView* m_view = nullptr;
    QTabBar* m_tabs = nullptr;
};

/// An item of the open popup menu, its sub-menus included, by object name; null when there is none.
QAction* findMenuItem(const QString& name);
/// The text of an item without its mnemonic's mark and its shortcut.
QString plainText(const QAction& action);

/// What the control shows as its text: of a combo box, list or tab bar the chosen row's.
QString shownText(QWidget& control);

}  // namespace kdhost::automation
