// CWnd: a window or control under the framework's name; it holds a Qt widget.
#pragma once

#include <QPointer>
#include <QWidget>

#include "mfc/notify.h"
#include "mfc/stdstr.h"

/// Values for ShowWindow.
enum ShowCommand : int { SW_HIDE = 0, SW_SHOWNORMAL = 1, SW_SHOWNOACTIVATE = 4, SW_SHOW = 5 };
/// Flags for SetWindowPos.
enum WindowPosFlag : UINT {
    SWP_NOSIZE = 1,
    SWP_NOMOVE = 2,
    SWP_NOZORDER = 4,
    SWP_SHOWWINDOW = 64,
    SWP_HIDEWINDOW = 128,
};

/// Bits of the extended window style.
enum ExtendedStyle : UINT {
    WS_EX_CONTROLPARENT = 0x10000,  ///< the platform's dialogs walk into such a window by Tab; here Qt's order holds
};

/// Without a widget, or once the widget is gone, queries answer as for an empty hidden window and changes
/// do nothing. The widget is not owned.
class CWnd {
public:
    CWnd() = default;
    explicit CWnd(QWidget* widget) : m_widget(widget) {}
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    /// Takes another widget; null gives the widget up.
    virtual void Attach(QWidget* widget);
    QWidget* widget() const { return m_widget; }
    /// The widget as class T; null when it is of another.
    template <class T>
    T* widgetAs() const {
        return qobject_cast<T*>(m_widget.data());
    }
    HWND GetSafeHwnd() const { return m_widget; }

    void SetWindowTextW(const wchar_t* text);
    void GetWindowTextW(CStdStr<wchar_t>& text) const;
    bool EnableWindow(bool enable = true);
    bool IsWindowEnabled() const;
    bool ShowWindow(int command);
    /// The word of extended style bits that the window bears; 0 at first.
    UINT GetExStyle() const;
    /// Whether the word has changed.
    bool ModifyStyleEx(UINT remove, UINT add);
    bool IsWindowVisible() const;
    /// A dialog or other window hands the focus to the control in it that had it last.
    void SetFocus();
    void Invalidate(bool erase = true);
    void UpdateWindow();
    /// Relative to the window itself, so that left and top are 0.
    void GetClientRect(CRect& rect) const;
    /// On the screen, the frame included.
    void GetWindowRect(CRect& rect) const;
    /// Relative to the parent window.
    void MoveWindow(const CRect& rect);
    void SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags);
    void ScreenToClient(CRect& rect) const;

private:
    QPointer<QWidget> m_widget;
};
