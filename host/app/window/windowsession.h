// The host behind a main window: prompts wait in an event loop until the window has put something into the queue,
// and what the host writes, draws and opens is shown.
#pragma once

#include <vector>

#include "host/ad/application.h"
#include "host/ed/commandline.h"
#include "host/ed/display.h"
#include "host/ed/inputqueue.h"

class QEventLoop;

namespace kdhost {

class MainWindow;

class WindowSession : private InputSource,
                      private Display,
                      private PromptListener,
                      private CommandLineListener,
                      private KdApDocManagerReactor {
public:
    /// Both outlive the session. The window is shown, as it was left, with what is opened and drawn from now on.
    WindowSession(Application& application, MainWindow& window);
    ~WindowSession() override;
    WindowSession(const WindowSession&) = delete;
    WindowSession& operator=(const WindowSession&) = delete;

    /// Runs the commands of the user until QUIT. What had been written before is shown first.
    void run();

private:
    bool feed(InputQueue& queue) override;
    void prompted(const Editor& editor) override;
    void redraw(const std::vector<KdDbObjectId>& ids) override;
    void written(const std::wstring& text) override;
    void failed(const std::wstring&) override {}
    void echoed(const std::wstring& input) override;
    void documentCreated(KdApDocument* document) override;
    void documentActivated(KdApDocument* document) override;
    void documentDestroyed(const wchar_t* fileName) override;

    /// What was written while somebody else listened, as a script does.
    void showUnseenMessages();
    void followScript();

    Application& m_application;
    MainWindow& m_window;
    ApplicationInterface::KeyReceiver m_keysBefore;
    std::vector<QEventLoop*> m_waiting;
    bool m_runs = false;
    std::size_t m_seenMessages = 0;
};

}  // namespace kdhost
