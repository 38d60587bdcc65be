// The command loop.

#include "host/ed/commands.h"

#include <QDebug>
#include <algorithm>
#include <exception>
#include <utility>

#include "host/db/undo.h"
#include "host/ed/commandline.h"
#include "host/ed/display.h"
#include "host/ed/editor.h"
#include "host/ed/picking.h"
#include "host/ed/variableprompt.h"
#include "host/ed/variables.h"
#include "host/ed/words.h"
#include "host/rx/commandstack.h"
#include "host/rx/encoding.h"

namespace kdhost {
namespace {

constexpr Words kPrompt{L"\nCommand: ", L"\n命令: "};
constexpr Words kUnknown{L"Unknown command \"%1\".", L"未知命令“%1”。"};
constexpr Words kEndedByError{L"%1 ended by an error: %2", L"%1 因错误而终止: %2"};
constexpr Words kEndedByAnError{L"%1 ended by an error.", L"%1 因错误而终止。"};

constexpr int kKeepsSelection = KdEdCommandFlag::kUsePickSet | KdEdCommandFlag::kRedraw;

struct Running {
    std::wstring name;
    const Editor* editor;
};

std::vector<Running>& running() {
    static std::vector<Running> commands;
    return commands;
}

std::vector<LeftOpen>& leftOpen() {
    static std::vector<LeftOpen> list;
    return list;
}

std::vector<std::function<void()>>& postponed() {
    static std::vector<std::function<void()>> actions;
    return actions;
}

/// Notes for a command's time that it runs.
class RunningScope {
public:
    RunningScope(const std::wstring& name, const Editor* editor) {
        running().push_back({name, editor});
        setCurrentCommandName(name);
    }
    ~RunningScope() {
        running().pop_back();
        setCurrentCommandName(running().empty() ? std::wstring() : running().back().name);
    }
    RunningScope(const RunningScope&) = delete;
    RunningScope& operator=(const RunningScope&) = delete;
};

KdDbDatabase* databaseOf(const Editor* editor) {
    return editor == nullptr ? nullptr : &editor->database();
}

bool wasOpen(const std::vector<OpenObject>& before, const OpenObject& object) {
    return std::any_of(before.begin(), before.end(), [&](const OpenObject& other) { return other.id == object.id; });
}

void logLeftOpen(const std::wstring& command, const std::vector<OpenObject>& before) {
    std::vector<OpenObject> after = openObjects();
    std::erase_if(after, [&](const OpenObject& object) { return wasOpen(before, object); });
    if (after.empty()) return;
    for (const OpenObject& object : after) {
        qWarning().noquote() << QString::fromStdWString(command)
                             << "leaves open:" << QString::fromStdWString(object.className)
                             << QString::number(object.handle, 16).toUpper();
    }
    leftOpen().push_back({command, std::move(after)});
}

/// An exception that leaves a command ends that command alone.
void callSafely(const CommandRecord& command) {
    try {
        command.function();
    } catch (const std::exception& error) {
        commandLine().fail(kEndedByError.with(command.globalName, fromUtf8(error.what())));
    } catch (...) {
        commandLine().fail(kEndedByAnError.with(command.globalName));
    }
}

void runVariable(const VariableRecord& variable) {
    const RunningScope scope(variable.name, currentEditor());
    const UndoCommandScope undo(databaseOf(currentEditor()), variable.name);
    promptForVariable(variable);
}

/// "(name)" calls a LISP-side function.
bool runLispWord(const std::wstring& word) {
    if (word.size() < 3 || word.front() != L'(' || word.back() != L')') return false;
    const std::wstring name = word.substr(1, word.size() - 2);
    const UndoCommandScope undo(databaseOf(currentEditor()), name);
    return runLispFunction(name);
}

void runWord(const std::wstring& word) {
    if (const auto command = findCommand(word)) {
        runCommand(*command);
    } else if (const VariableRecord* variable = findVariable(word)) {
        runVariable(*variable);
    } else if (!runLispWord(word)) {
        commandLine().fail(kUnknown.with(word));
    }
}

/// False when nothing comes any more.
bool runAnswer(Editor& editor, const Answer& answer) {
    switch (answer.kind) {
        case Answer::Kind::Text:
            if (!answer.text.empty()) runWord(answer.text);
            break;
        case Answer::Kind::Pick:
        case Answer::Kind::AddPick:
            clickAt(editor, answer.point, answer.kind == Answer::Kind::AddPick);
            break;
        case Answer::Kind::Cells:
            selectCellsByUser(editor, answer.cells.table, answer.cells.range);
            break;
        case Answer::Kind::Escape:
            selectNothingByUser(editor);
            break;
        case Answer::Kind::Move:
        case Answer::Kind::Cancel:
            break;
        case Answer::Kind::End:
            return false;
    }
    updateDisplay();
    return true;
}

}  // namespace

void runCommand(const CommandRecord& command) {
    Editor* editor = currentEditor();
    if (editor != nullptr && (command.flags & kKeepsSelection) == 0) selectNothingByUser(*editor);
    const std::vector<OpenObject> before = openObjects();
    {
        const RunningScope scope(command.globalName, editor);
        const UndoCommandScope undo(databaseOf(editor), command.globalName);
        callSafely(command);
    }
    // Keywords announced for a prompt that never came are not for the next command.
    if (Editor* now = currentEditor()) now->takeAnnouncement();
    logLeftOpen(command.globalName, before);
    if (!running().empty()) return;
    if (const Editor* now = currentEditor()) tellOfCellsThatCommandsGaveUp(*now);
    for (const auto& action : std::exchange(postponed(), {})) action();
}

void afterCommands(std::function<void()> action) {
    postponed().push_back(std::move(action));
}

void runCommands() {
    // A command may close the document and open another.
    while (Editor* editor = currentEditor()) {
        if (!runAnswer(*editor, editor->ask(PromptKind::Command, kPrompt.text()))) return;
    }
}

void runQueuedCommands() {
    for (Editor* editor = currentEditor(); editor != nullptr && !editor->input().isEmpty(); editor = currentEditor()) {
        runAnswer(*editor, editor->ask(PromptKind::Command, kPrompt.text()));
    }
}

std::wstring runningCommandNames() {
    std::wstring names;
    for (const Running& command : running()) names += (names.empty() ? L"" : L"'") + command.name;
    return names;
}

const Editor* editorOfRunningCommand() {
    return running().empty() ? nullptr : running().back().editor;
}

std::vector<LeftOpen> takeLeftOpen() {
    return std::exchange(leftOpen(), {});
}

}  // namespace kdhost
