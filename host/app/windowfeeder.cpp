// Turns of modal loops.

#include "host/app/windowfeeder.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <cstdlib>
#include <iostream>

#include "host/rx/encoding.h"
#include "host/ui/automation/automation.h"
#include "host/ui/inplaceeditor/editorpanel.h"
#include "host/ui/inplaceeditor/inplaceeditor.h"

namespace kdhost {
namespace {

/// More windows than any command opens one after the other.
constexpr int kMostDismissed = 1000;

bool keepsPeopleFromAllElse(const QWidget& widget) {
    const bool isOnTop = widget.isWindow() && (widget.isModal() || widget.windowType() == Qt::Popup);
    return isOnTop || &widget == openInPlaceEditor();
}

}  // namespace

WindowFeeder::WindowFeeder(std::optional<std::chrono::milliseconds> patience) : m_patience(patience) {
    // Without delay, and each a shot of its own, since a repeating timer keeps still in loops that it has opened.
    m_round.setSingleShot(true);
    m_idle.setSingleShot(true);
    connect(&m_round, &QTimer::timeout, this, &WindowFeeder::goRound);
    connect(&m_idle, &QTimer::timeout, this, &WindowFeeder::losePatience);
    QCoreApplication::instance()->installEventFilter(this);
}

WindowFeeder::~WindowFeeder() = default;

void WindowFeeder::setUser(WindowUser* user) {
    m_user = user;
    m_dismissed = 0;
    if (user == nullptr && !m_patience) m_dismisses = false;
}

bool WindowFeeder::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Show && object->isWidgetType() &&
        keepsPeopleFromAllElse(static_cast<QWidget&>(*object))) {
        askForTurn();
    }
    return false;
}

void WindowFeeder::askForTurn() {
    m_idle.stop();
    // A loop whose window has gone ends between two rounds: by the second the loop of the window on top runs.
    m_roundsToGo = 2;
    m_round.start();
}

void WindowFeeder::goRound() {
    if (--m_roundsToGo > 0) {
        m_round.start();
    } else {
        takeTurn();
    }
}

void WindowFeeder::takeTurn() {
    // A window that has just come is told by and by that it is on the screen and in front.
    QCoreApplication::processEvents();
    if (!automation::isBlocked()) return;
    if (m_dismisses) {
        dismissTop();
    } else if (m_user == nullptr || !m_user->useWindow()) {
        if (m_patience) m_idle.start(*m_patience);
        return;
    }
    askForTurn();
}

void WindowFeeder::losePatience() {
    if (!automation::isBlocked()) return;
    const std::wstring message = automation::topWindowName() + L" is not answered.";
    if (m_user != nullptr) {
        m_user->fail(message);
    } else {
        dismissAll(toUtf8(message));
    }
}

void WindowFeeder::dismissAll(const std::string& reason) {
    if (m_failure.empty()) m_failure = reason;
    m_dismisses = true;
    askForTurn();
}

void WindowFeeder::dismissTop() {
    if (++m_dismissed > kMostDismissed) {
        // Who asks again whenever asking was cancelled would never let the run end.
        std::cerr << m_failure << std::endl
                  << toUtf8(automation::topWindowName()) << " opens again and again." << std::endl;
        std::_Exit(EXIT_FAILURE);
    }
    automation::dismiss();
}

void WindowFeeder::waitUntilClosed() {
    while (automation::isBlocked()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace kdhost
