// Running of scripts.

#include "host/app/scriptrunner.h"

#include <iostream>
#include <utility>

#include "host/app/scriptactions.h"
#include "host/ed/commands.h"
#include "host/mfc/messagebox.h"
#include "host/rx/encoding.h"
#include "host/ui/automation/automation.h"

namespace kdhost {

ScriptRunner::ScriptRunner(Application& application, Script script, WindowFeeder& windows)
    : m_application(application), m_script(std::move(script)), m_windows(windows) {
    setInputSource(this);
    m_windows.setUser(this);
    commandLine().setListener(this);
    forgetMessageBoxes();
}

ScriptRunner::~ScriptRunner() {
    commandLine().setListener(nullptr);
    m_windows.setUser(nullptr);
    setInputSource(nullptr);
}

std::string ScriptRunner::run() {
    runCommands();
    WindowFeeder::waitUntilClosed();
    return m_failure;
}

void ScriptRunner::failAt(int line, const std::wstring& message) {
    if (!m_failure.empty()) return;
    m_failure = m_script.file() + ":" + std::to_string(line) + ": " + toUtf8(message);
    m_windows.dismissAll(m_failure);
    // What was typed ahead is not carried out any more.
    if (Editor* asking = currentEditor()) asking->input().clear();
}

bool ScriptRunner::feed(InputQueue& queue) {
    while (!isOver() && queue.isEmpty()) {
        const std::optional<ScriptLine> line = m_script.next();
        if (!line) return false;
        if (line->kind == ScriptLine::Kind::Typed) {
            queue.type(line->text + L"\n");
        } else if (const std::wstring error = actOnPrompt(*currentEditor(), line->text); !error.empty()) {
            failAt(line->number, error);
        }
    }
    return !isOver();
}

bool ScriptRunner::useWindow() {
    if (isOver()) {
        m_windows.dismissAll(m_failure);
        return true;
    }
    const std::optional<ScriptLine> line = m_script.next();
    if (!line) return false;
    if (line->kind == ScriptLine::Kind::Typed) {
        failAt(line->number, automation::topWindowName() + L" is open: a line for a prompt doesn't reach it.");
    } else if (const std::wstring error = actOnWindow(line->text); !error.empty()) {
        failAt(line->number, error);
    }
    return true;
}

void ScriptRunner::written(const std::wstring& text) {
    const std::wstring shown = withoutLineEnds(text);
    if (!shown.empty()) std::cout << toUtf8(shown) << std::endl;
}

}  // namespace kdhost
