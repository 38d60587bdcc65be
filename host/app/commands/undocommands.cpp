// U, UNDO and REDO.

#include "host/app/commands/undocommands.h"

#include <cwchar>
#include <string>

#include "host/db/undo.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "kd/ed/prompts.h"

namespace kdhost {
namespace {

/// One way through the list of steps, and what is said of it.
struct Direction {
    Kdad::ErrorStatus (UndoHistory::*take)();
    std::wstring (UndoHistory::*title)() const;
    const wchar_t* done;
    const wchar_t* nothing;
    const wchar_t* refused;
};

constexpr Direction kUndo{&UndoHistory::undo, &UndoHistory::undoTitle, L"Undone: ", L"There is nothing to undo.",
                          L"An object that the step concerns is in use: nothing was undone."};
constexpr Direction kRedo{&UndoHistory::redo, &UndoHistory::redoTitle, L"Redone: ", L"There is nothing to redo.",
                          L"An object that the step concerns is in use: nothing was redone."};

/// True when a step was taken.
bool take(const Direction& direction) {
    UndoHistory& history = *undoHistory(currentEditor()->database());
    const std::wstring title = (history.*direction.title)();
    const Kdad::ErrorStatus status = (history.*direction.take)();
    if (status == Kdad::eOk) {
        commandLine().write(L"\n" + (direction.done + title) + L".");
    } else if (status == Kdad::eNotApplicable) {
        commandLine().write(std::wstring(L"\n") + direction.nothing);
    } else {
        commandLine().fail(direction.refused);
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
    if (kdedGetString(0, L"\nNumber of steps to undo <1>: ", text) != RTNORM) return;
    const long count = stepCount(text);
    if (count == 0) return commandLine().fail(std::wstring(L"\"") + text + L"\" is no number of steps.");
    for (long step = 0; step < count; ++step) {
        if (!take(kUndo)) return;
    }
}

}  // namespace kdhost
