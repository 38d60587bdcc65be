// Key presses on their way to controls.

#include "host/ui/keywatcher.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <memory>

#include "host/ui/virtualkeys.h"
#include "kd/ui/basedialog.h"

namespace kdhost {

namespace {

int attached = 0;
std::unique_ptr<KeyWatcher> watcher;

}  // namespace

void KeyWatcher::attach() {
    if (attached++ > 0) return;
    watcher = std::make_unique<KeyWatcher>();
    qApp->installEventFilter(watcher.get());
}

void KeyWatcher::detach() {
    if (--attached == 0) watcher.reset();
}

bool KeyWatcher::isPassedOn(const QWidget& watched, const QEvent& event) const {
    // Qt hands the very event on from a control to its parents.
    return m_press == &event && m_receiver != nullptr && watched.isAncestorOf(m_receiver);
}

bool KeyWatcher::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyRelease) m_press = nullptr;
    auto* widget = event->type() == QEvent::KeyPress ? qobject_cast<QWidget*>(watched) : nullptr;
    if (widget == nullptr || isPassedOn(*widget, *event)) return false;
    m_press = event;
    m_receiver = widget;

    MSG message;
    message.hwnd = widget;
    message.message = WM_KEYDOWN;
    message.wParam = virtualKey(*static_cast<QKeyEvent*>(event));
    for (QPointer<QWidget> level = widget; level != nullptr; level = level->parentWidget()) {
        const bool atWindow = level->isWindow();
        auto* dialog = qobject_cast<KdUiBaseDialog*>(level.data());
        if (dialog != nullptr && dialog->PreTranslateMessage(&message)) return true;
        if (atWindow || level == nullptr) break;
    }
    return false;
}

}  // namespace kdhost
