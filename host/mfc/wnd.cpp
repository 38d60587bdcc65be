// The window wrapper.

#include "mfc/wnd.h"

#include <QLabel>
#include <QLineEdit>
#include <QVariant>
#include <array>

CWnd::~CWnd() = default;

void CWnd::Attach(QWidget* widget) {
    m_widget = widget;
}

namespace {

constexpr const char* kExtendedStyle = "extendedStyle";

/// The property that holds a widget's text, by the first that it has.
const char* textProperty(const QWidget& widget) {
    constexpr std::array kProperties = {"text", "currentText", "title", "plainText"};
    if (widget.isWindow()) return "windowTitle";
    for (const char* name : kProperties) {
        if (widget.metaObject()->indexOfProperty(name) >= 0) return name;
    }
    return "windowTitle";
}

/// A spin box keeps its text in the edit within it.
QWidget* textWidget(QWidget* widget) {
    if (!widget->inherits("QAbstractSpinBox")) return widget;
    QWidget* edit = widget->findChild<QLineEdit*>();
    return edit != nullptr ? edit : widget;
}

}  // namespace

void CWnd::SetWindowTextW(const wchar_t* text) {
    if (m_widget == nullptr) return;
    QWidget* widget = textWidget(m_widget);
    // Names of the drawing may look like markup.
    if (auto* label = qobject_cast<QLabel*>(widget)) label->setTextFormat(Qt::PlainText);
    widget->setProperty(textProperty(*widget), QString::fromWCharArray(text == nullptr ? L"" : text));
}

void CWnd::GetWindowTextW(CStdStr<wchar_t>& text) const {
    text.clear();
    if (m_widget == nullptr) return;
    QWidget* widget = textWidget(m_widget);
    text = widget->property(textProperty(*widget)).toString().toStdWString();
}

bool CWnd::EnableWindow(bool enable) {
    if (m_widget == nullptr) return false;
    const bool wasDisabled = !m_widget->isEnabled();
    m_widget->setEnabled(enable);
    return wasDisabled;
}

bool CWnd::IsWindowEnabled() const {
    return m_widget != nullptr && m_widget->isEnabled();
}

bool CWnd::ShowWindow(int command) {
    if (m_widget == nullptr) return false;
    const bool wasVisible = m_widget->isVisible();
    m_widget->setAttribute(Qt::WA_ShowWithoutActivating, command == SW_SHOWNOACTIVATE);
    m_widget->setVisible(command != SW_HIDE);
    return wasVisible;
}

UINT CWnd::GetExStyle() const {
    return m_widget == nullptr ? 0 : m_widget->property(kExtendedStyle).toUInt();
}

bool CWnd::ModifyStyleEx(UINT remove, UINT add) {
    const UINT before = GetExStyle();
    const UINT after = (before & ~remove) | add;
    if (m_widget == nullptr || after == before) return false;
    m_widget->setProperty(kExtendedStyle, after);
    return true;
}

bool CWnd::IsWindowVisible() const {
    return m_widget != nullptr && m_widget->isVisible();
}

void CWnd::SetFocus() {
    if (m_widget == nullptr) return;
    QWidget* last = m_widget->isWindow() ? m_widget->focusWidget() : nullptr;
    (last != nullptr ? last : m_widget.data())->setFocus(Qt::OtherFocusReason);
}

void CWnd::Invalidate(bool) {
    if (m_widget != nullptr) m_widget->update();
}

void CWnd::UpdateWindow() {
    if (m_widget != nullptr) m_widget->repaint();
}

void CWnd::GetClientRect(CRect& rect) const {
    rect = m_widget == nullptr ? CRect() : CRect(0, 0, m_widget->width(), m_widget->height());
}

void CWnd::GetWindowRect(CRect& rect) const {
    if (m_widget == nullptr) {
        rect = CRect();
    } else if (m_widget->isWindow()) {
        rect = CRect(m_widget->frameGeometry());
    } else {
        rect = CRect(QRect(m_widget->mapToGlobal(QPoint(0, 0)), m_widget->size()));
    }
}

void CWnd::MoveWindow(const CRect& rect) {
    if (m_widget != nullptr) m_widget->setGeometry(rect.toQRect());
}

void CWnd::SetWindowPos(const CWnd*, int x, int y, int width, int height, UINT flags) {
    if (m_widget == nullptr) return;
    if ((flags & SWP_NOMOVE) == 0) m_widget->move(x, y);
    if ((flags & SWP_NOSIZE) == 0) m_widget->resize(width, height);
    if ((flags & SWP_NOZORDER) == 0) m_widget->raise();
    if ((flags & SWP_SHOWWINDOW) != 0) m_widget->show();
    if ((flags & SWP_HIDEWINDOW) != 0) m_widget->hide();
}

void CWnd::ScreenToClient(CRect& rect) const {
    if (m_widget == nullptr) return;
    const QRect moved(m_widget->mapFromGlobal(rect.toQRect().topLeft()), rect.toQRect().size());
    rect = CRect(moved);
}
