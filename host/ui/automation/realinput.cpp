// Keys and mouse go in where the platform puts them in.

#include "host/ui/automation/realinput.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

QT_BEGIN_NAMESPACE
// Qt's own doors for input that no device made.
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                    const QString& text, bool autoRepeat, ushort count);
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers modifiers, int timestamp);
QT_END_NAMESPACE

namespace kdhost {

namespace {

constexpr int kBetweenClicks = 10000;  // milliseconds, longer than any double click
constexpr int kWithinDoubleClick = 10;

/// The window that keys go to.
QWindow* keyboardWindow() {
    if (const QWidget* popup = QApplication::activePopupWidget()) return popup->windowHandle();
    bringTopDialogToFront();
    const QWidget* active = QApplication::activeWindow();
    return active == nullptr ? nullptr : active->windowHandle();
}

}  // namespace

void bringTopDialogToFront() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) return;
    const QWidget* front = QApplication::activeWindow();
    // The news that a list came to the front may arrive when it has closed again.
    if (front != nullptr && !front->isVisible()) front = nullptr;
    while (front != nullptr && front != modal) front = front->parentWidget();
    if (front == nullptr) QApplication::setActiveWindow(modal);
}

void pressKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    const QPointer<QWindow> window = keyboardWindow();
    if (window == nullptr) return;
    qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text, false, 1);
    // The press may have ended the window.
    if (window != nullptr) qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text, false, 1);
}

void typeKeys(const QString& text) {
    for (const QChar character : text) {
        const QChar upper = character.toUpper();
        const int key = upper.unicode() < 0x100 ? static_cast<int>(upper.unicode()) : static_cast<int>(Qt::Key_unknown);
        pressKey(key, Qt::NoModifier, character);
    }
}

void pressMouse(QWidget& widget, const QPoint& place, Qt::MouseButton button, bool twice) {
    static int now = 0;
    now += kBetweenClicks;
    const QPointer<QWindow> window = widget.window()->windowHandle();
    const QPointF local = widget.mapTo(widget.window(), place);
    const QPointF global = widget.mapToGlobal(place);
    for (int click = 0; click < (twice ? 2 : 1); ++click) {
        now += kWithinDoubleClick;
        if (window == nullptr) return;
        qt_handleMouseEvent(window, local, global, button, button, QEvent::MouseButtonPress, Qt::NoModifier, now);
        if (window == nullptr) return;
        qt_handleMouseEvent(window, local, global, Qt::NoButton, button, QEvent::MouseButtonRelease, Qt::NoModifier,
                            now);
    }
}

}  // namespace kdhost
