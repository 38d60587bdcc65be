// A running application in a main window.

#include "tests/ui/window/fixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextDocumentFragment>
#include <QWheelEvent>

#include "host/app/window/commandlinewidget.h"
#include "host/app/window/drawingview.h"

namespace kdtest {

WindowTest::WindowTest() {
    host.application().setMainWindow(&window);
    session.emplace(host.application(), window);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { next(); });
    m_watchdog.setSingleShot(true);
    QObject::connect(&m_watchdog, &QTimer::timeout, &m_watchdog, [this] {
        ADD_FAILURE() << "the program waits, with " << m_steps.size() << " steps to go";
        m_steps.clear();
        if (QWidget* modal = QApplication::activeModalWidget()) modal->close();
        next();
    });
}

WindowTest::~WindowTest() {
    session.reset();
    host.application().setMainWindow(nullptr);
}

void WindowTest::play(std::deque<Step> steps) {
    m_steps = std::move(steps);
    m_watchdog.start(30000);
    m_hasQuit = true;
    arm();
    session->run();
    m_timer.stop();
    m_watchdog.stop();
    EXPECT_TRUE(m_steps.empty()) << m_steps.size() << " steps were not reached";
}

/// A shot of its own each time, since a step may wait in a loop while the next ones come.
void WindowTest::arm() {
    m_timer.start(0);
}

void WindowTest::next() {
    const kdhost::Editor* editor = kdhost::currentEditor();
    const bool isBusy = editor == nullptr || !const_cast<kdhost::Editor*>(editor)->input().isEmpty();
    if (isBusy || !hasFocus()) return arm();
    if (m_steps.empty()) {
        m_hasQuit = host.application().isQuitRequested();
        host.application().requestQuit();
        host.editor().input().put(kdhost::InputItem::Kind::Cancel);
        return;
    }
    const Step step = std::move(m_steps.front());
    m_steps.pop_front();
    arm();
    step();
}

/// Without a window manager nobody makes the window active again when a menu has closed.
bool WindowTest::hasFocus() {
    if (QApplication::focusWidget() != nullptr || QApplication::activePopupWidget() != nullptr) return true;
    QApplication::setActiveWindow(nullptr);
    QApplication::setActiveWindow(&window);
    return false;
}

WindowTest::Step WindowTest::keys(const char* text) {
    return [text] {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    };
}

WindowTest::Step WindowTest::key(int key, Qt::KeyboardModifiers modifiers) {
    return [key, modifiers] {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    };
}

WindowTest::Step WindowTest::click(double x, double y, Qt::KeyboardModifiers modifiers) {
    return [this, x, y, modifiers] { QTest::mouseClick(&view(), Qt::LeftButton, modifiers, pixelsOf(x, y)); };
}

WindowTest::Step WindowTest::choose(const char* action) {
    return [this, action] {
        auto* chosen = window.findChild<QAction*>(QString::fromLatin1(action));
        ASSERT_NE(chosen, nullptr) << action;
        auto* menu = qobject_cast<QMenu*>(chosen->parent());
        ASSERT_NE(menu, nullptr) << action;
        menu->popup(window.mapToGlobal(QPoint(0, 0)));
        ASSERT_TRUE(chosen->isEnabled()) << action;
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(chosen).center());
    };
}

QPoint WindowTest::pixelsOf(double x, double y) {
    return window.view().toPixels({x, y, 0.0}).toPoint();
}

QWidget& WindowTest::view() {
    return window.view();
}

QLineEdit& WindowTest::edit() {
    return *window.findChild<QLineEdit*>(QStringLiteral("CommandEdit"));
}

QLabel& WindowTest::prompt() {
    return *window.findChild<QLabel*>(QStringLiteral("CommandPrompt"));
}

QPlainTextEdit& WindowTest::history() {
    return *window.findChild<QPlainTextEdit*>(QStringLiteral("CommandHistory"));
}

QListWidget& WindowTest::completions() {
    return *window.findChild<QListWidget*>(QStringLiteral("CommandCompletion"));
}

QString WindowTest::promptText() {
    return QTextDocumentFragment::fromHtml(prompt().text()).toPlainText();
}

QString WindowTest::historyText() {
    return history().toPlainText();
}

void moveMouse(QWidget& widget, const QPoint& to, Qt::MouseButtons held) {
    QMouseEvent event(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void turnWheel(QWidget& widget, const QPoint& at, int notches) {
    QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

}  // namespace kdtest
