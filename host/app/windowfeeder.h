// What a script does to dialogs, menus and message boxes. A command that opens one stays in the window's own loop
// until it ends, and so does a script line that opens a further one; so the lines that come next are carried out
// from within that loop, a line at a turn of it.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <optional>
#include <string>

namespace kdhost {

/// Who answers the windows that open.
class WindowUser {
public:
    virtual ~WindowUser() = default;
    /// Does the next thing to the window that is on top; may return only when further windows have come and gone.
    /// False when nothing more will be done.
    virtual bool useWindow() = 0;
    /// Told when a window waits that nobody answers.
    virtual void fail(const std::wstring& message) = 0;
};

class WindowFeeder : public QObject {
public:
    /// Watches all windows of the program, until it ends. A window that is left alone for `patience` fails; without
    /// a limit it may stay open for ever.
    explicit WindowFeeder(std::optional<std::chrono::milliseconds> patience);
    ~WindowFeeder() override;

    /// Null for none; the user stays the caller's. A window that opens without one waits for a person, or in vain.
    void setUser(WindowUser* user);

    /// Ends the windows that are open, the top one first, and all that open from now on: in a run that has its
    /// patience until its end, in any other while its user stays. Why, in a line that is empty when all is well.
    void dismissAll(const std::string& reason);
    /// Why windows were dismissed; empty when none had to be.
    const std::string& failure() const { return m_failure; }

    /// Gives turns to windows that were opened without a loop of their own, until none is open.
    static void waitUntilClosed();

private:
    bool eventFilter(QObject* object, QEvent* event) override;
    void askForTurn();
    void goRound();
    void takeTurn();
    void losePatience();
    void dismissTop();

    WindowUser* m_user = nullptr;
    QTimer m_round;
    std::optional<std::chrono::milliseconds> m_patience;
    QTimer m_idle;  ///< runs while nobody has anything to do to the window on top
    int m_roundsToGo = 0;
    bool m_dismisses = false;
    int m_dismissed = 0;
    std::string m_failure;
};

}  // namespace kdhost
