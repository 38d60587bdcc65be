// Running of a script: its lines answer prompts and dialogs in turn, until one of them can't be carried out.
#pragma once

#include <optional>
#include <string>

#include "host/ad/application.h"
#include "host/app/script.h"
#include "host/ed/commandline.h"
#include "host/ed/filedialog.h"
#include "host/ed/inputqueue.h"

namespace kdhost {

class ScriptRunner : private InputSource, private FileDialog, private CommandLineListener {
public:
    ScriptRunner(Application& application, Script script);
    ~ScriptRunner() override;
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    /// Runs the script to its end, which cancels what still prompts, or to the first line that can't be
    /// carried out. Empty on success, else "FILE:LINE: message".
    std::string run();

    // What actions work on.

    Application& application() { return m_application; }
    /// The editor that asks for input now.
    Editor& editor() { return *currentEditor(); }
    /// Answers the file dialog that is open. False when none is.
    bool answerFileDialog(std::optional<std::wstring> path);
    /// Ends the run at the line that is being carried out. The first failure is kept.
    void fail(const std::wstring& message);

private:
    bool feed(InputQueue& queue) override;
    std::optional<std::wstring> ask(const FileDialogRequest& request) override;
    void written(const std::wstring& text) override;
    void failed(const std::wstring& message) override { fail(message); }

    bool isOver() const { return !m_failure.empty() || m_application.isQuitRequested(); }

    struct Dialog {
        bool answered = false;
        std::optional<std::wstring> path;
    };

    Application& m_application;
    Script m_script;
    std::string m_failure;
    std::optional<Dialog> m_dialog;
};

}  // namespace kdhost
