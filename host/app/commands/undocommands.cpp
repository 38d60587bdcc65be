// U, UNDO and REDO.

#include "host/app/commands/undocommands.h"

#include <cwchar>
#include <string>

#include "host/db/undo.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/ed/words.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

/// One way through the list of steps, and what is said of it.
struct Direction {
    Kdad::ErrorStatus (UndoHistory::*take)();
    std::wstring (UndoHistory::*title)() const;
    Words done;
    Words nothing;
    Words refused;
};

constexpr Direction kUndo{&UndoHistory::undo,
                          &UndoHistory::undoTitle,
                          {L"\nUndone: %1.", L"\n已撤消: %1。"},
                          {L"\nThere is nothing to undo.", L"\n没有可撤消的操作。"},
                          {L"An object that the step concerns is in use: nothing was undone.",
                           L"该步骤涉及的对象正在使用，未撤消任何操作。"}};
constexpr Direction kRedo{&UndoHistory::redo,
                          &UndoHistory::redoTitle,
                          {L"\nRedone: %1.", L"\n已重做: %1。"},
                          {L"\nThere is nothing to redo.", L"\n没有可重做的操作。"},
                          {L"An object that the step concerns is in use: nothing was redone.",
                           L"该步骤涉及的对象正在使用，未重做任何操作。"}};
constexpr Words kSteps{L"\nNumber of steps to undo <1>: ", L"\n要撤消的步骤数 <1>: "};
constexpr Words kNoSteps{L"\"%1\" is no number of steps.", L"“%1”不是步骤数。"};

/// True when a step was taken.
bool take(const Direction& direction) {
    UndoHistory& history = *undoHistory(currentEditor()->database());
    const std::wstring title = (history.*direction.title)();
    const Kdad::ErrorStatus status = (history.*direction.take)();
    if (status == Kdad::eOk) {
        commandLine().write(direction.done.with(title));
    } else if (status == Kdad::eNotApplicable) {
        commandLine().write(direction.nothing.text());
    } else {
        commandLine().fail(direction.refused.text());
    }
    return status == Kdad::eOk;
}

/// A positive number; 0 for any other text.
long stepCount(const wchar_t* text) {
    if (*text == L'\0') return 1;
    wchar_t* end = nullptr;
    const long number = std::wcstol(text, &end, 10);
    return *end == L'\0' && number > 0 ? number : 0;
}

}  // namespace

void undoStep() {
    take(kUndo);
}

void redoStep() {
    take(kRedo);
}

void undoSteps() {
    wchar_t text[1024];
    if (kdedGetString(0, kSteps.text(), text) != RTNORM) return;
    const long count = stepCount(text);
    if (count == 0) return commandLine().fail(kNoSteps.with(std::wstring(text)));
    for (long step = 0; step < count; ++step) {
        if (!take(kUndo)) return;
    }
}

}  // namespace kdhost
