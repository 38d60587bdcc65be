// U, UNDO and REDO.

#include "host/app/commands/undocommands.h"

#include "host/app/commands/valueprompts.h"
#include "host/db/undo.h"
#include "host/ed/commandline.h"
#include "host/ed/editor.h"
#include "host/rx/numbertext.h"

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

}  // namespace

void undoStep() {
    take(kUndo);
}

void redoStep() {
    take(kRedo);
}

void undoSteps() {
    const std::optional<std::wstring> text = askForText(kSteps);
    if (!text) return;
    const int count = text->empty() ? 1 : wholeNumberFrom(*text).value_or(0);
    if (count <= 0) return commandLine().fail(kNoSteps.with(*text));
    for (int step = 0; step < count; ++step) {
        if (!take(kUndo)) return;
    }
}

}  // namespace kdhost
