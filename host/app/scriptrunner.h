// Running of a script: its lines answer prompts and windows in turn, until one of them can't be carried out.
#pragma once

#include <string>

#include "host/ad/application.h"
#include "host/app/script.h"
#include "host/app/windowfeeder.h"
#include "host/ed/commandline.h"
#include "host/ed/inputqueue.h"

namespace kdhost {

/// A line goes to what waits for the user innermost: the top window while a window's loop runs, else the prompt
/// that asked last, also when a dialog asks with it.
class ScriptRunner : private InputSource, private WindowUser, private CommandLineListener {
public:
    ScriptRunner(Application& application, Script script, WindowFeeder& windows);
    ~ScriptRunner() override;
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    /// Runs the script to its end, which cancels what still prompts, or to the first line that can't be
    /// carried out. Empty on success, else "FILE:LINE: message".
    std::string run();

private:
    bool feed(InputQueue& queue) override;
    bool useWindow() override;
    void written(const std::wstring& text) override;
    void failed(const std::wstring& message) override { fail(message); }

    /// Ends the run at the line taken last, or at the one given. The first failure is kept.
    void fail(const std::wstring& message) override { failAt(m_script.currentLine(), message); }
    void failAt(int line, const std::wstring& message);
    bool isOver() const { return !m_failure.empty() || m_application.isQuitRequested(); }

    Application& m_application;
    Script m_script;
    WindowFeeder& m_windows;
    std::string m_failure;
};

}  // namespace kdhost
