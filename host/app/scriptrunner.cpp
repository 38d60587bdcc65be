// Running of scripts.

#include "host/app/scriptrunner.h"

#include <iostream>
#include <utility>

#include "host/app/scriptactions.h"
#include "host/ed/commands.h"
#include "host/rx/encoding.h"

namespace kdhost {

ScriptRunner::ScriptRunner(Application& application, Script script)
    : m_application(application), m_script(std::move(script)) {
    setInputSource(this);
    setFileDialog(this);
    commandLine().setListener(this);
}

ScriptRunner::~ScriptRunner() {
    commandLine().setListener(nullptr);
    setFileDialog(nullptr);
    setInputSource(nullptr);
}

std::string ScriptRunner::run() {
    runCommands();
    return m_failure;
}

void ScriptRunner::fail(const std::wstring& message) {
    if (!m_failure.empty()) return;
    m_failure = m_script.file() + ":" + std::to_string(m_script.currentLine()) + ": " + toUtf8(message);
    // What was typed ahead is not carried out any more.
    if (Editor* asking = currentEditor()) asking->input().clear();
}

bool ScriptRunner::feed(InputQueue& queue) {
    while (!isOver() && queue.isEmpty()) {
        const std::optional<ScriptLine> line = m_script.next();
        if (!line) return false;
        if (line->kind == ScriptLine::Kind::Typed) {
            queue.type(line->text + L"\n");
        } else {
            performAction(*this, line->text);
        }
    }
    return !isOver();
}

bool ScriptRunner::answerFileDialog(std::optional<std::wstring> path) {
    if (!m_dialog) return false;
    *m_dialog = {true, std::move(path)};
    return true;
}

std::optional<std::wstring> ScriptRunner::ask(const FileDialogRequest& request) {
    m_dialog.emplace();
    while (!isOver() && !m_dialog->answered) {
        const std::optional<ScriptLine> line = m_script.next();
        if (!line) {
            fail(L"the file dialog \"" + request.title + L"\" is not answered.");
        } else if (line->kind == ScriptLine::Kind::Typed) {
            fail(L"the file dialog \"" + request.title + L"\" is open: it takes @file PATH or @file CANCEL.");
        } else {
            performAction(*this, line->text);
        }
    }
    std::optional<std::wstring> path = std::move(m_dialog->path);
    m_dialog.reset();
    return path;
}

void ScriptRunner::written(const std::wstring& text) {
    const std::wstring shown = withoutLineEnds(text);
    if (!shown.empty()) std::cout << toUtf8(shown) << std::endl;
}

}  // namespace kdhost
