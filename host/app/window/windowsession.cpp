// The host behind a main window.

#include "host/app/window/windowsession.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <utility>

#include "host/app/usersettings.h"
#include "host/app/window/commandlinewidget.h"
#include "host/app/window/drawingview.h"
#include "host/app/window/mainwindow.h"
#include "host/ed/commands.h"

namespace kdhost {

WindowSession::WindowSession(Application& application, MainWindow& window)
    : m_application(application), m_window(window) {
    setDisplay(this);
    setViewWidget(&m_window.view());
    setPromptListener(this);
    m_application.documents().addReactor(this);
    m_application.documents().setSaveListener([this] { m_window.showDocuments(m_application.documents()); });
    m_keysBefore = m_application.applicationInterface().setKeyReceiver(
        [this](const QKeyEvent& key) { return m_window.takeKey(key); });
    m_window.restoreGeometry(storedWindowPlace());
    m_window.show();
    m_window.showDocuments(m_application.documents());
}

WindowSession::~WindowSession() {
    storeWindowPlace(m_window.saveGeometry());
    m_application.applicationInterface().setKeyReceiver(std::move(m_keysBefore));
    m_application.documents().setSaveListener({});
    m_application.documents().removeReactor(this);
    setPromptListener(nullptr);
    setViewWidget(nullptr);
    setDisplay(nullptr);
}

void WindowSession::run() {
    showUnseenMessages();
    m_runs = true;
    m_application.setAttended(true);
    setInputSource(this);
    commandLine().setListener(this);
    if (!m_application.isQuitRequested()) runCommands();
    commandLine().setListener(nullptr);
    setInputSource(nullptr);
    m_application.setAttended(false);
    m_runs = false;
}

// A prompt that an event sets off waits in a loop of its own inside the loop of the outer one. Only the innermost
// is told of input; what it leaves in the queue is then for those around it, which wake up to look.
bool WindowSession::feed(InputQueue& queue) {
    if (m_application.isQuitRequested()) return false;
    updateDisplay();
    QEventLoop loop;
    m_waiting.push_back(&loop);
    const auto outer = queue.setListener([&loop] { loop.quit(); });
    if (queue.isEmpty()) loop.exec();
    queue.setListener(outer);
    m_waiting.pop_back();
    if (!m_waiting.empty() && (!queue.isEmpty() || m_application.isQuitRequested())) m_waiting.back()->quit();
    return !m_application.isQuitRequested();
}

void WindowSession::prompted(const Editor& editor) {
    m_window.commandLineWidget().showPrompt(editor.promptText(), editor.promptKind() == PromptKind::Command,
                                            editor.promptTakesBlanks());
}

void WindowSession::showUnseenMessages() {
    const std::vector<std::wstring>& messages = commandLine().messages();
    if (m_seenMessages > messages.size()) m_seenMessages = 0;
    for (; m_seenMessages < messages.size(); ++m_seenMessages) {
        m_window.commandLineWidget().append(messages[m_seenMessages]);
    }
}

/// Without a loop of its own the window would stand still until the script is over.
void WindowSession::followScript() {
    showUnseenMessages();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void WindowSession::redraw(const std::vector<KdDbObjectId>&) {
    m_window.view().redraw();
    if (!m_runs) followScript();
}

void WindowSession::written(const std::wstring& text) {
    m_window.commandLineWidget().append(text);
}

void WindowSession::echoed(const std::wstring& input) {
    m_window.commandLineWidget().echo(withoutLineEnds(input));
}

/// What is in the drawing, or a new drawing's sheet, fills the view as it is now.
void WindowSession::documentCreated(KdApDocument* document) {
    View& view = static_cast<Document*>(document)->editor().view();
    view.shown().resize(m_window.view().width(), m_window.view().height());
    static_cast<Document*>(document)->editor().zoomToDrawing();
}

void WindowSession::documentActivated(KdApDocument*) {
    m_window.showDocuments(m_application.documents());
}

void WindowSession::documentDestroyed(const wchar_t*) {
    m_window.showDocuments(m_application.documents());
}

}  // namespace kdhost
