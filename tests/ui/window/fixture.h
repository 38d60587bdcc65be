// A running application in a main window, driven by real events from within the loops that its prompts wait in.
#pragma once

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <optional>

#include "host/app/window/mainwindow.h"
#include "host/app/window/windowsession.h"
#include "tests/support/application.h"
#include "tests/support/configfolder.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;

namespace kdtest {

class WindowTest : public ::testing::Test {
protected:
    WindowTest();
    ~WindowTest() override;

    using Step = std::function<void()>;
    /// Runs the commands of the user: each step acts as soon as everything before has been carried out and the
    /// program waits, in a prompt or a dialog. After the last the program quits.
    void play(std::deque<Step> steps);
    /// Whether the last play ended because a step has ended the program.
    bool hasQuit() const { return m_hasQuit; }

    /// Keys typed in the window, wherever they go.
    static Step keys(const char* text);
    static Step key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// A click of the left button into the view at a place of the drawing.
    Step click(double x, double y, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Chooses an entry of the menus by its action's name, opening its menu first.
    Step choose(const char* action);

    QPoint pixelsOf(double x, double y);
    QWidget& view();
    QLineEdit& edit();
    QLabel& prompt();
    QPlainTextEdit& history();
    QListWidget& completions();
    /// The prompt as it is read.
    QString promptText();
    QString historyText();

    ConfigFolder config;
    kdhost::MainWindow window;
    HostApplication host;
    std::optional<kdhost::WindowSession> session;

private:
    bool hasFocus();
    void next();
    void arm();

    std::deque<Step> m_steps;
    bool m_hasQuit = false;
    QTimer m_timer;
    QTimer m_watchdog;
};

/// Moves the mouse with or without buttons held, as QTest::mouseMove can't.
void moveMouse(QWidget& widget, const QPoint& to, Qt::MouseButtons held = Qt::NoButton);
/// One notch of the wheel away from the user, or as many as given.
void turnWheel(QWidget& widget, const QPoint& at, int notches);

}  // namespace kdtest
